#include "forecasting/ForecastSteps.h"

#include <gmock/gmock.h>

#include <random>
#include <sstream>

#include "basic/error.h"
#include "basic/format.h"
#include "forecasting/SeriesFacts.h"
#include "forecasting/forecasting_support.h"

using picture::Step;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using namespace VtForecasting;

namespace {

std::vector<Step> Told(int method, std::string_view parameter, std::string_view count = "")
{
    ForecastBy(method, parameter, count);
    return Steps(Problem, Result);
}

const Step& Headed(const std::vector<Step>& steps, std::string_view start)
{
    for (const Step& step : steps)
        if (step.Heading.starts_with(start)) return step;
    throw std::runtime_error("no step " + std::string(start));
}

std::vector<std::string> Headings(const std::vector<Step>& steps)
{
    std::vector<std::string> headings;
    headings.reserve(steps.size());
    for (const Step& step : steps)
        headings.push_back(step.Heading);
    return headings;
}

// The figures of a table's row.
std::vector<double> Figures(const std::string& row)
{
    std::string plain;
    for (const char c : row)
        if (c != ',') plain += c;
    std::istringstream text(plain);
    std::vector<double> figures;
    for (double figure = 0; text >> figure;)
        figures.push_back(figure);
    return figures;
}

}  // namespace

TEST(ForecastSteps, NothingIsToldBeforeASolve)
{
    Given({1, 2, 3});
    EXPECT_THAT(Steps(Problem, {}), IsEmpty());
}

TEST(ForecastSteps, MovingAveragesGoPeriodByPeriod)
{
    Given({17, 21, 19, 23, 18});
    const auto steps = Told(kMovingAverages, "3");
    EXPECT_THAT(Headings(steps), ElementsAre("Period 4", "Period 5", "Period 6", "Fitted values and errors",
                                             "Mean square error", "Proof"));
    EXPECT_THAT(steps[0].Figures, ElementsAre("sum of periods 1 to 3 = 57.00", "forecast = 57.00 / 3 = 19.00",
                                              "error    = 23 - 19.00 = +4.00"));
    EXPECT_THAT(steps[0].Arithmetic, ElementsAre("period 1: 17", "period 2: 21", "period 3: 19"));
    EXPECT_THAT(steps[2].Figures,
                ElementsAre("sum of periods 3 to 5 = 60.00", "forecast = 60.00 / 3 = 20.00"));
    EXPECT_THAT(steps[2].Marks, ElementsAre("forecast"));
    EXPECT_THAT(steps[4].Figures, ElementsAre("mean square error = 25.00 / 2 = 12.50", "its root = 3.54"));
    EXPECT_THAT(steps[5].Figures,
                ElementsAre("squared errors of periods 4 and 5 = 25.00", "mean square error x 2 = 25.00"));
}

TEST(ForecastSteps, SmoothingIsARecursion)
{
    Given({10, 20, 12});
    const auto steps = Told(kExponentialSmoothing, "0.5");
    EXPECT_THAT(steps[0].Figures, ElementsAre("forecast = 10"));
    EXPECT_THAT(steps[2].Figures,
                ElementsAre("forecast = 0.5 x 20 + 0.5 x 10.00 = 15.00", "error    = 12 - 15.00 = -3.00"));
    EXPECT_THAT(steps[3].Figures, ElementsAre("forecast = 0.5 x 12 + 0.5 x 15.00 = 13.50"));
}

TEST(ForecastSteps, OnePeriodProvesNothing)
{
    Given({7});
    const auto steps = Told(kExponentialSmoothing, "0.5");
    EXPECT_THAT(steps.back().Figures, ElementsAre("there is no error"));
}

// By hand over 1/3, 2/3, 1: sums 6, 2, 14, 14/3; slope 2/3 / 2.
TEST(ForecastSteps, TheLineIsRoundedInAStepOfItsOwn)
{
    Given({1.0 / 3, 2.0 / 3, 1});
    Problem.DecimalPlaces = 2.0;
    const auto steps = Told(kTrendProjection, "", "1");
    EXPECT_THAT(Headings(steps),
                ElementsAre("Sums for the line", "Slope and intercept", "Rounding to thousandths",
                            "Fitted values and errors", "Period 4", "Mean square error", "Proof"));
    EXPECT_THAT(Figures(steps[0].Figures.back()), ElementsAre(6, 2, 14, 4.67));
    EXPECT_THAT(steps[1].Figures[0], EndsWith("= 0.67"));  // Sxy = 14/3 - 6 x 2/3
    EXPECT_THAT(steps[1].Figures[1], EndsWith("= 2.00"));  // Sxx = 14 - 6 x 6/3
    EXPECT_THAT(steps[1].Figures[2], EndsWith("= 0.33333"));
    EXPECT_THAT(steps[2].Figures, ElementsAre("b0 = 0.00000 becomes 0", "b1 = 0.33333 becomes 0.333"));
    EXPECT_THAT(steps[4].Figures, ElementsAre("forecast = (0 + 0.333 x 4) = 1.33"));
}

TEST(ForecastSteps, AFallingLineIsWrittenWithItsMinus)
{
    Given({5, 3, 1});
    EXPECT_THAT(Headed(Told(kTrendProjection, "", "1"), "Period 4").Figures,
                ElementsAre("forecast = (7 - 2 x 4) = -1.00"));
}

// By hand, p = 2: averages 4 5 7 8 10, centred 4.5 6 7.5 9 at periods 2 to 5; ratios 6/4.5, 4/6, 10/7.5, 6/9;
// both seasons average them exactly, 4/3 and 2/3, and these already average 1.
TEST(ForecastSteps, SeasonsAreCentredAveragedAndScaled)
{
    Given({2, 6, 4, 10, 6, 14});
    const auto steps = Told(kTrendAndSeasonal, "2", "1");
    EXPECT_THAT(Headings(steps),
                ElementsAre("Centred averages and ratios", "Mean ratio of season 1", "Mean ratio of season 2",
                            "Scaling the indexes", "Deseasonalized values", "Sums for the line",
                            "Slope and intercept", "Fitted values and errors", "Period 7",
                            "Mean square error", "Proof"));
    EXPECT_THAT(Figures(steps[0].Figures[1]), ElementsAre(1, 2));
    EXPECT_THAT(Figures(steps[0].Figures[2]), ElementsAre(2, 6, 4.5, 1.333));
    EXPECT_THAT(Figures(steps[0].Figures[5]), ElementsAre(5, 6, 9, 0.667));
    EXPECT_THAT(Figures(steps[0].Figures[6]), ElementsAre(6, 14));
    EXPECT_THAT(steps[1].Figures, ElementsAre("mean = 1.333 / 2 = 0.667"));
    EXPECT_THAT(steps[1].Arithmetic, ElementsAre("period 3: 0.667", "period 5: 0.667"));
    EXPECT_THAT(steps[3].Figures.back(), EndsWith("= 1.00000"));
    EXPECT_THAT(Figures(steps[4].Figures[1]), ElementsAre(1, 2, 0.667, 3));
    EXPECT_THAT(steps[8].Figures[0], HasSubstr("x 0.667 (season 1) = "));
}

TEST(ForecastSteps, AZeroIndexIsTheEnd)
{
    Given({0, 5, 0, 7, 0, 9});
    const auto steps = Told(kTrendAndSeasonal, "2", "2");
    EXPECT_EQ(steps.back().Heading, "Scaling the indexes");
    EXPECT_EQ(steps.back().Why, "An index of zero ends the method: no value can be divided by it.");
}

TEST(ForecastSteps, EverySeriesIsToldToItsResult)
{
    std::mt19937 random(1102);
    for (int round = 0; round < 200; ++round) {
        const int n = 2 + static_cast<int>(random() % 60);
        std::vector<double> values;
        values.reserve(static_cast<std::size_t>(n));
        for (int t = 0; t < n; ++t)
            values.push_back(static_cast<double>(random() % 200));
        Given(values);
        const int method = 1 + round % 4;
        const int most = method == kTrendAndSeasonal ? n / 2 : n - 1;
        const int parameter = 1 + static_cast<int>(random() % static_cast<unsigned>(most));
        const auto steps =
            Told(method, method == kExponentialSmoothing ? "0.3" : std::to_string(parameter), "3");
        for (const Step& step : steps)
            EXPECT_FALSE(step.Why.empty());
        if (!HasForecasts(Result)) continue;
        EXPECT_EQ(steps.back().Heading, "Proof");
        int period = n;
        for (const double forecast : ForecastsOf(Result))
            EXPECT_THAT(Headed(steps, "Period " + std::to_string(++period))
                            .Figures[IsTrendMethod(Result)       ? 0
                                     : method == kMovingAverages ? 1
                                                                 : 0],
                        EndsWith(" = " + ForecastText(forecast)));
        // The table's errors are its values less its fitted values, and their squares add up.
        double sum = 0;
        const Step& table = Headed(steps, "Fitted values");
        for (std::size_t row = 1; row < table.Figures.size(); ++row) {
            const std::vector<double> figures = Figures(table.Figures[row]);
            ASSERT_EQ(figures.size(), 5U);
            EXPECT_NEAR(figures[1] - figures[2], figures[3], 0.011);
            sum += figures[4];
        }
        EXPECT_NEAR(sum / FittedPeriods(Result), Result.MeanSquareError, 0.011) << round;
    }
}
