#include "forecasting/ForecastMeaning.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "basic/error.h"
#include "forecasting/forecasting_support.h"

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using namespace VtForecasting;

namespace {

std::vector<std::string> Said(int method, std::string_view parameter, std::string_view count = "")
{
    ForecastBy(method, parameter, count);
    std::vector<std::string> texts;
    for (const picture::Sentence& sentence : Meaning(Problem, Result))
        texts.push_back(sentence.Text);
    return texts;
}

constexpr const char* kOtherPeriods = "that of another method may cover other periods";

}  // namespace

TEST(ForecastMeaning, NothingIsSaidBeforeASolve)
{
    Given({1, 2, 3});
    EXPECT_THAT(Meaning(Problem, {}), IsEmpty());
}

TEST(ForecastMeaning, MovingAverages)
{
    Given({17, 21, 19, 23, 18});
    EXPECT_THAT(
        Said(kMovingAverages, "3"),
        ElementsAre(
            "The forecast for period 6 is 20.00.",
            "Past forecasts missed by about 3.54 (root of the mean square error); the future may miss "
            "by more.",
            "The mean square error is over periods 4 and 5; that of another method may cover other "
            "periods, and the two cannot be compared as they are."));
    EXPECT_THAT(Said(kMovingAverages, "4"), Contains(HasSubstr("is over period 5; that")));
}

TEST(ForecastMeaning, AnAverageOfOnePeriodRepeats)
{
    Given({3, 8, 5});
    EXPECT_THAT(Said(kMovingAverages, "1"), Contains("An average of one period repeats the value before."));
    EXPECT_THAT(Said(kMovingAverages, "2"), Not(Contains(HasSubstr("repeats"))));
}

// A line of slope 1 is met 1 and a half behind by an average of two; three errors are enough to say so.
TEST(ForecastMeaning, AveragesLagBehindALine)
{
    Given({1, 2, 3, 4, 5});
    EXPECT_THAT(
        Said(kMovingAverages, "2"),
        Contains(
            "On average the past forecasts were 1.50 too low: this method lags behind a series that goes "
            "one way."));
    Given({1, 2, 3, 4});
    EXPECT_THAT(Said(kMovingAverages, "2"), Not(Contains(HasSubstr("On average"))));
    Given({5, 4, 3, 2, 1});
    EXPECT_THAT(Said(kMovingAverages, "2"), Contains(HasSubstr("1.50 too high")));
    Given({5, 4, 5, 4, 5, 4});
    EXPECT_THAT(Said(kMovingAverages, "2"), Not(Contains(HasSubstr("On average"))));
}

TEST(ForecastMeaning, SmoothingConstantsThatDoNothing)
{
    Given({7, 1, 9, 4});
    EXPECT_THAT(Said(kExponentialSmoothing, "0"),
                Contains("With a smoothing constant of 0 every forecast is the first value."));
    EXPECT_THAT(Said(kExponentialSmoothing, "1"),
                Contains("With a smoothing constant of 1 every forecast is the value before."));
    EXPECT_THAT(Said(kExponentialSmoothing, "0.5"), Not(Contains(HasSubstr("every forecast"))));
}

// 0.8^3 = 0.512 behind four periods; 0.8^11 = 0.086 behind twelve.
TEST(ForecastMeaning, TheFirstValueMayStillWeighMuch)
{
    Given({7, 1, 9, 4});
    EXPECT_THAT(
        Said(kExponentialSmoothing, "0.2"),
        Contains(
            "The first value still has a weight of 0.51 in the forecast, as the recursion begins with it."));
    Given(std::vector<double>(12, 3.0));
    EXPECT_THAT(Said(kExponentialSmoothing, "0.2"), Not(Contains(HasSubstr("first value"))));
}

TEST(ForecastMeaning, OnePeriodHasNoPast)
{
    Given({7});
    EXPECT_THAT(Said(kExponentialSmoothing, "0.3"),
                ElementsAre("The forecast for period 2 is 7.00.",
                            "There is one period only: no forecast of the past can be compared with it."));
}

TEST(ForecastMeaning, APerfectFitPromisesNothing)
{
    Given(std::vector<double>(6, 3.0));
    const auto said = Said(kMovingAverages, "2");
    EXPECT_THAT(said, Contains("The method meets every past value; that is no promise for the future."));
    EXPECT_THAT(said, Not(Contains(HasSubstr("missed by"))));
}

// ---- trend ----

TEST(ForecastMeaning, ATrendRisesFallsOrIsLevel)
{
    Given({5, 3, 1, -1});
    EXPECT_THAT(
        Said(kTrendProjection, "", "2"),
        ElementsAre(
            "The forecasts for periods 5 and 6 are -3.00 and -5.00.",
            "The trend falls by 2.000 from one period to the next.",
            "The method meets every past value; that is no promise for the future.",
            "All forecasts run on along the line; the data cover 4 periods only.",
            "The errors are those of a line fitted to the same values; the mean square error of a method "
            "that forecasts each period from those before it cannot be compared with theirs as it "
            "stands."));
    Given({1, 2, 4});
    EXPECT_THAT(Said(kTrendProjection, "", "1"),
                Contains("The trend rises by 1.500 from one period to the next."));
    EXPECT_THAT(Said(kTrendProjection, "", "1"), Contains(HasSubstr("The forecast runs on along the line")));
    Given({4, 4, 4});
    EXPECT_THAT(Said(kTrendProjection, "", "1"), Contains("The trend is level."));
    EXPECT_THAT(Said(kTrendProjection, "", "1"), Not(Contains(HasSubstr(kOtherPeriods))));
}

TEST(ForecastMeaning, ManyForecastsHaveTheirEndsTold)
{
    Given({1, 2, 3});
    EXPECT_EQ(Said(kTrendProjection, "", "4")[0],
              "The forecasts for periods 4 to 7 are 4.00, 5.00, 6.00 and 7.00.");
    EXPECT_EQ(Said(kTrendProjection, "", "5")[0],
              "The 5 forecasts go from 4.00 for period 4 to 8.00 for period 8.");
}

// Thirds: 0.333 x 15 is 5.00 when rounded to 4.995, 5 unrounded; at period 30 it is 9.99 against 10.
TEST(ForecastMeaning, TheRoundingOfTheLineIsTold)
{
    std::vector<double> thirds;
    thirds.reserve(29);
    for (int t = 1; t <= 29; ++t)
        thirds.push_back(t / 3.0);
    Given(thirds);
    EXPECT_THAT(
        Said(kTrendProjection, "", "1"),
        Contains(
            "The line is rounded to thousandths before it is used; unrounded it gives 10.00 for period 30, "
            "not 9.99."));
    Given({1, 2, 3});
    EXPECT_THAT(Said(kTrendProjection, "", "1"), Not(Contains(HasSubstr("rounded"))));
}

TEST(ForecastMeaning, AForecastBelowZeroOfPositiveDataIsACaution)
{
    Given({5, 3, 1});
    EXPECT_THAT(Said(kTrendProjection, "", "2"),
                Contains("The forecast for period 4 is below 0, although no value of the series is."));
    Given({5, 3, 1, -1});
    EXPECT_THAT(Said(kTrendProjection, "", "2"), Not(Contains(HasSubstr("below 0"))));
    Given({6, 4, 2});
    EXPECT_THAT(Said(kTrendProjection, "", "1"), Not(Contains(HasSubstr("below 0"))));
}

// ---- seasons ----

TEST(ForecastMeaning, TheHighestAndTheLowestSeasonAreTold)
{
    Given({2, 6, 4, 10, 6, 14});
    const auto said = Said(kTrendAndSeasonal, "2", "0");
    EXPECT_EQ(said[0], "No period was to be forecast.");
    EXPECT_THAT(said, Contains("Season 2 runs at 1.333 of the average season, season 1 at 0.667."));
    EXPECT_THAT(said, Contains(HasSubstr("Without the seasons the trend rises by ")));
    EXPECT_THAT(said, Not(Contains(HasSubstr("run on"))));
    EXPECT_THAT(Said(kTrendAndSeasonal, "1", "1"),
                Contains("With one season nothing is seasonal: its index is 1."));
    Given(std::vector<double>(8, 5.0));
    EXPECT_THAT(Said(kTrendAndSeasonal, "2", "1"),
                Contains("The seasons do not differ: each index is 1.000."));
}

// Of 6 periods with 3 seasons the periods 2 to 5 have ratios: season 2 has two of them, 1 and 3 have one.
TEST(ForecastMeaning, SeasonsThatRestOnOnePeriodAreACaution)
{
    Given({2, 6, 4, 10, 6, 14});
    EXPECT_THAT(Said(kTrendAndSeasonal, "3", "1"),
                Contains("The indexes of seasons 1 and 3 rest on one period each."));
    EXPECT_THAT(Said(kTrendAndSeasonal, "2", "1"), Not(Contains(HasSubstr("on one period"))));
}

TEST(ForecastMeaning, AZeroIndexHasNoForecast)
{
    Given({0, 5, 0, 7, 0, 9});
    EXPECT_EQ(Said(kTrendAndSeasonal, "2", "2")[0],
              "There is no forecast: the index of season 1 is zero, and nothing can be divided by zero.");
    Given({0, 0, 4, 4, 0, 0, 4, 4});
    EXPECT_EQ(
        Said(kTrendAndSeasonal, "4", "1")[0],
        "There is no forecast: the indexes of seasons 1 and 2 are zero, and nothing can be divided by zero.");
}

// The averages of two neighbours around period 3 cancel out.
TEST(ForecastMeaning, AnAverageOfZeroIsACaution)
{
    Given({4, 2, -4, 6, 3, 9});
    EXPECT_THAT(Said(kTrendAndSeasonal, "2", "1"),
                Contains("The average around period 3 is 0: its ratio counts as 0."));
    Given({2, 6, 4, 10, 6, 14});
    EXPECT_THAT(Said(kTrendAndSeasonal, "2", "1"), Not(Contains(HasSubstr("counts as 0"))));
}

// 10 columns hold 999,999.99 without decimals in the series.
TEST(ForecastMeaning, FiguresThatDoNotFitAreTold)
{
    Given({1000000, 1000000});
    EXPECT_THAT(Said(kMovingAverages, "1"),
                Contains("The report cuts figures that do not fit their field: the fitted "
                         "value of period 2 (1,000,000.00)."));
    Given({999999, 999999});
    EXPECT_THAT(Said(kMovingAverages, "1"), Not(Contains(HasSubstr("cuts"))));
    Given({1000000, 1000000});
    Problem.DecimalPlaces = 1.0;
    EXPECT_THAT(Said(kMovingAverages, "1"), Not(Contains(HasSubstr("cuts"))));
}

TEST(ForecastMeaning, EverySeriesHasAResultAndAtMost12Sentences)
{
    std::mt19937 random(1103);
    for (int round = 0; round < 500; ++round) {
        const int n = 1 + static_cast<int>(random() % 100);
        std::vector<double> values;
        values.reserve(static_cast<std::size_t>(n));
        for (int t = 0; t < n; ++t)
            values.push_back(static_cast<double>(random() % 200) - (random() % 3 == 0 ? 100 : 0));
        Given(values);
        const int method = 1 + round % 4;
        const int most = method == kTrendAndSeasonal ? std::max(n / 2, 1) : n;
        const int parameter = 1 + static_cast<int>(random() % static_cast<unsigned>(most));
        try {
            const auto said =
                Said(method, method == kExponentialSmoothing ? "0.3" : std::to_string(parameter), "5");
            EXPECT_FALSE(said.empty());
            EXPECT_LE(said.size(), 12U);
            EXPECT_THAT(said, Each(testing::EndsWith(".")));
            EXPECT_THAT(said, Each(Not(HasSubstr("nan"))));
        } catch (const RuntimeError&) {
            EXPECT_THAT(Meaning(Problem, Result), IsEmpty());
        }
    }
}
