#include "forecasting/ForecastPicture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "basic/error.h"
#include "forecasting/forecasting_support.h"

using picture::Chart;
using picture::Picture;
using picture::Role;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace VtForecasting;

namespace {

std::vector<Picture> Drawn(int method, std::string_view parameter, std::string_view count = "")
{
    ForecastBy(method, parameter, count);
    return Pictures(Problem, Result);
}

std::vector<std::string> Titles(const std::vector<Picture>& pictures)
{
    std::vector<std::string> titles;
    titles.reserve(pictures.size());
    for (const Picture& drawn : pictures)
        titles.push_back(drawn.Title);
    return titles;
}

const Chart& ChartOf(const std::vector<Picture>& pictures, std::string_view title)
{
    for (const Picture& drawn : pictures)
        if (drawn.Title == title) return std::get<Chart>(drawn.Body);
    throw std::runtime_error("no picture " + std::string(title));
}

std::vector<double> Heights(const picture::Series& series)
{
    std::vector<double> heights;
    for (const picture::Point& point : series.Points)
        heights.push_back(point.Y);
    return heights;
}

void ExpectInside(const Chart& chart)
{
    EXPECT_LT(chart.Y.From, chart.Y.To);
    for (const picture::Series& series : chart.Curves)
        for (const picture::Point& point : series.Points) {
            EXPECT_GT(point.X, chart.X.From);
            EXPECT_LT(point.X, chart.X.To);
            EXPECT_GE(point.Y, chart.Y.From);
            EXPECT_LE(point.Y, chart.Y.To);
        }
    for (const picture::Rule& rule : chart.Rules) {
        const picture::Axis& axis = rule.Across == picture::Direction::X ? chart.X : chart.Y;
        EXPECT_GE(rule.Value, axis.From);
        EXPECT_LE(rule.Value, axis.To);
    }
}

}  // namespace

TEST(ForecastPicture, NothingIsDrawnBeforeASolve)
{
    Given({1, 2, 3});
    EXPECT_THAT(Pictures(Problem, {}), IsEmpty());
}

TEST(ForecastPicture, MovingAveragesBeginBehindTheFirstAverage)
{
    Given({17, 21, 19, 23, 18});
    const auto pictures = Drawn(kMovingAverages, "3");
    EXPECT_THAT(Titles(pictures), ElementsAre("Series", "Errors"));
    const Chart& series = ChartOf(pictures, "Series");
    ASSERT_EQ(series.Curves.size(), 3U);
    EXPECT_EQ(series.Curves[0].As, Role::Past);
    EXPECT_THAT(Heights(series.Curves[0]), ElementsAre(17, 21, 19, 23, 18));
    EXPECT_THAT(Heights(series.Curves[1]), ElementsAre(19, 21));
    EXPECT_EQ(series.Curves[1].Points[0].X, 4);
    EXPECT_EQ(series.Curves[2].As, Role::Forecast);
    EXPECT_EQ(series.Curves[2].Points[0].X, 6);
    EXPECT_EQ(series.Curves[2].Points[0].Y, 20);
    EXPECT_EQ(series.Rules[0].Value, 5.5);
    EXPECT_EQ(series.X.To, 6.5);
    EXPECT_THAT(pictures[0].Notes,
                ElementsAre("The forecast for period 6 is 20.00.", "Fitted from period 4 on."));
}

// What is seen first is the answer: the forecast is strong and has its figures beside it, the fit is neither.
TEST(ForecastPicture, TheForecastStandsOutBeforeTheFit)
{
    Given({5, 3, 1, -1});
    const auto pictures = Drawn(kTrendProjection, "", "3");
    const Chart& series = ChartOf(pictures, "Series");
    EXPECT_EQ(series.Curves[1].As, Role::Second);
    EXPECT_FALSE(series.Curves[1].Strong);
    EXPECT_EQ(series.Curves[2].As, Role::Forecast);
    EXPECT_TRUE(series.Curves[2].Strong);
    EXPECT_THAT(series.Curves[2].Texts, ElementsAre("-3.00", "", "-7.00"));
}

// Errors 4 and -3: the root of 25 / 2.
TEST(ForecastPicture, ErrorsStandBetweenTheRootsOfTheirMeanSquare)
{
    Given({17, 21, 19, 23, 18});
    const auto pictures = Drawn(kMovingAverages, "3");
    const Chart& errors = ChartOf(pictures, "Errors");
    EXPECT_THAT(Heights(errors.Curves[0]), ElementsAre(4, -3));
    ASSERT_EQ(errors.Rules.size(), 2U);
    EXPECT_DOUBLE_EQ(errors.Rules[0].Value, std::sqrt(12.5));
    EXPECT_DOUBLE_EQ(errors.Rules[1].Value, -std::sqrt(12.5));
    EXPECT_EQ(errors.Rules[0].Text, "+3.54");
    EXPECT_EQ(pictures[1].Notes[0], "The largest error, +4.00, is that of period 4.");
    EXPECT_EQ(errors.X.From, 3.5);
}

TEST(ForecastPicture, AFitWithoutErrorHasNoLinesAroundIt)
{
    Given({4, 4, 4, 4});
    const auto pictures = Drawn(kMovingAverages, "2");
    EXPECT_THAT(ChartOf(pictures, "Errors").Rules, IsEmpty());
    EXPECT_THAT(pictures[1].Notes, ElementsAre("The fitted values meet the series in every period."));
}

TEST(ForecastPicture, OnePeriodHasNoErrors)
{
    Given({7});
    const auto pictures = Drawn(kExponentialSmoothing, "0.3");
    EXPECT_THAT(Titles(pictures), ElementsAre("Series"));
    EXPECT_EQ(ChartOf(pictures, "Series").Curves.size(), 2U);
    ExpectInside(ChartOf(pictures, "Series"));
}

TEST(ForecastPicture, ATrendGoesOnBehindTheSeries)
{
    Given({5, 3, 1, -1});
    const auto pictures = Drawn(kTrendProjection, "", "2");
    const Chart& series = ChartOf(pictures, "Series");
    EXPECT_THAT(Heights(series.Curves[1]), ElementsAre(5, 3, 1, -1));
    EXPECT_THAT(Heights(series.Curves[2]), ElementsAre(-3, -5));
    EXPECT_EQ(pictures[0].Notes[0], "The forecast for period 5 is -3.00, that for period 6 is -5.00.");
}

// Two seasons of 2/3 and 4/3, worked out by hand for this series elsewhere.
TEST(ForecastPicture, SeasonsAreBarsFromOne)
{
    Given({2, 6, 4, 10, 6, 14});
    const auto pictures = Drawn(kTrendAndSeasonal, "2", "0");
    EXPECT_THAT(Titles(pictures), ElementsAre("Series", "Errors", "Seasons"));
    const Chart& seasons = ChartOf(pictures, "Seasons");
    EXPECT_EQ(seasons.BarsFrom, 1);
    EXPECT_THAT(seasons.X.Names, ElementsAre("1", "2"));
    EXPECT_NEAR(seasons.Curves[0].Points[0].Y, 2.0 / 3, 1e-12);
    EXPECT_EQ(pictures[2].Notes[0], "Season 2 is the highest with 1.333, season 1 the lowest with 0.667.");
    EXPECT_EQ(ChartOf(pictures, "Series").Curves.size(), 2U);
    EXPECT_EQ(pictures[0].Notes[0], "No period was to be forecast.");
}

TEST(ForecastPicture, ASeasonOfZeroLeavesNothingFitted)
{
    Given({0, 5, 0, 7, 0, 9});
    const auto pictures = Drawn(kTrendAndSeasonal, "2", "2");
    EXPECT_THAT(Titles(pictures), ElementsAre("Series", "Seasons"));
    EXPECT_EQ(ChartOf(pictures, "Series").Curves.size(), 1U);
    EXPECT_EQ(pictures[0].Notes[0], "There is no forecast: a seasonal index is zero.");
    EXPECT_EQ(pictures[1].Notes[1], "1 index is zero.");
}

TEST(ForecastPicture, EverySeriesIsDrawnInsideItsAxes)
{
    std::mt19937 random(1101);
    for (int round = 0; round < 500; ++round) {
        const int n = 1 + static_cast<int>(random() % 100);
        std::vector<double> values;
        values.reserve(static_cast<std::size_t>(n));
        for (int t = 0; t < n; ++t)
            values.push_back(static_cast<double>(random() % 200) - (random() % 3 == 0 ? 100 : 0));
        if (round % 11 == 0) values.assign(static_cast<std::size_t>(n), round % 2 == 0 ? 0.0 : 5.0);
        Given(values);
        const int method = 1 + round % 4;
        const int most = method == kTrendAndSeasonal ? std::max(n / 2, 1) : n;
        const int parameter = 1 + static_cast<int>(random() % static_cast<unsigned>(most));
        try {
            ForecastBy(method, method == kExponentialSmoothing ? "0.3" : std::to_string(parameter),
                       std::to_string(1 + random() % 12));
        } catch (const RuntimeError&) {
            EXPECT_THAT(Pictures(Problem, Result), IsEmpty());
            continue;
        }
        for (const Picture& drawn : Pictures(Problem, Result)) {
            EXPECT_FALSE(drawn.Notes.empty());
            ExpectInside(std::get<Chart>(drawn.Body));
        }
        const Chart series = std::get<Chart>(Pictures(Problem, Result)[0].Body);
        EXPECT_EQ(Heights(series.Curves[0]), values);
    }
}
