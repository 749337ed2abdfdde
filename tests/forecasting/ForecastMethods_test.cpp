#include <gmock/gmock.h>

#include <cmath>
#include <cstdint>
#include <numeric>
#include <random>

#include "basic/error.h"
#include "forecasting/VtForecasting.h"
#include "forecasting/forecasting_support.h"

using namespace VtForecasting;
using ::testing::DoubleEq;
using ::testing::Pointwise;

namespace {

constexpr double kClose = 1e-9;

std::vector<double> Part(const Array1<double>& values, int first, int last)
{
    std::vector<double> part;
    for (int t = first; t <= last; ++t)
        part.push_back(values(t));
    return part;
}

std::vector<double> RandomSeries(std::mt19937& random, int n)
{
    std::vector<double> series(static_cast<std::size_t>(n));
    for (double& value : series)
        value = static_cast<double>(random() % 1000) / 10;
    return series;
}

ErrorNumber FailureOf(int method, std::string_view parameter, std::string_view count = "")
{
    try {
        ForecastBy(method, parameter, count);
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return {};
}

// ---- moving averages ----

// Twelve weeks, three in the average: the squares of the nine errors add up to 92.
TEST(MovingAverages, WorkedByHand)
{
    Given({17, 21, 19, 23, 18, 16, 20, 18, 22, 20, 15, 22});
    ForecastBy(kMovingAverages, "3");
    EXPECT_THAT(Part(Result.Fitted, 4, 12),
                Pointwise(DoubleEq(), {19., 21., 20., 19., 18., 18., 20., 20., 19.}));
    EXPECT_THAT(Part(Result.FitError, 4, 12), Pointwise(DoubleEq(), {4., -3., -4., 1., 0., 4., 0., -5., 3.}));
    EXPECT_DOUBLE_EQ(Result.MeanSquareError, 92.0 / 9);
    EXPECT_DOUBLE_EQ(Result.NextForecast, 19);
    EXPECT_EQ(Result.FirstFittedPeriod, 4);
}

TEST(MovingAverages, OfOnePeriodLagBehindByOne)
{
    Given({3, 8, 5});
    ForecastBy(kMovingAverages, "1");
    EXPECT_EQ(Result.Fitted(2), 3);
    EXPECT_EQ(Result.Fitted(3), 8);
    EXPECT_EQ(Result.NextForecast, 5);
    EXPECT_EQ(Result.MeanSquareError, (25 + 9) / 2.0);
}

// On a straight line an average of k periods stays (k + 1) / 2 steps behind.
TEST(MovingAverages, LagBehindALineByHalfTheirLength)
{
    std::vector<double> line(100);
    for (std::size_t t = 0; t < line.size(); ++t)
        line[t] = 2.0 * static_cast<double>(t);
    for (int k = 1; k < 100; ++k) {
        Given(line);
        ForecastBy(kMovingAverages, std::to_string(k));
        EXPECT_NEAR(Result.MeanSquareError, (k + 1.0) * (k + 1.0), kClose) << k;
    }
}

TEST(MovingAverages, OverAllPeriodsAreAnErrorOfTheMachine)
{
    Given({1, 2, 3});
    EXPECT_NE(FailureOf(kMovingAverages, "3"), ErrorNumber{});
    EXPECT_EQ(Result.Method, 0);
}

// ---- exponential smoothing ----

TEST(ExponentialSmoothing, WorkedByHand)
{
    Given({10, 20, 12});
    ForecastBy(kExponentialSmoothing, "0.5");
    EXPECT_EQ(Result.Fitted(2), 10);
    EXPECT_EQ(Result.Fitted(3), 15);
    EXPECT_EQ(Result.MeanSquareError, (100 + 9) / 2.0);
    EXPECT_EQ(Result.NextForecast, 13.5);
    EXPECT_EQ(Result.FirstFittedPeriod, 2);
}

TEST(ExponentialSmoothing, WithConstant0KeepsTheFirstValue)
{
    Given({7, 1, 9, 4});
    ForecastBy(kExponentialSmoothing, "0");
    EXPECT_THAT(Part(Result.Fitted, 1, 4), Pointwise(DoubleEq(), {7., 7., 7., 7.}));
    EXPECT_EQ(Result.NextForecast, 7);
}

TEST(ExponentialSmoothing, WithConstant1LagsByOnePeriod)
{
    Given({7, 1, 9, 4});
    ForecastBy(kExponentialSmoothing, "1");
    EXPECT_THAT(Part(Result.Fitted, 2, 4), Pointwise(DoubleEq(), {7., 1., 9.}));
    EXPECT_EQ(Result.NextForecast, 4);
}

TEST(ExponentialSmoothing, OfOnePeriodHasNoError)
{
    Given({7});
    ForecastBy(kExponentialSmoothing, "0.3");
    EXPECT_EQ(Result.MeanSquareError, 0);
    EXPECT_DOUBLE_EQ(Result.NextForecast, 7);
}

// A step from 0 to 1 is forgotten geometrically: F(t + 1) = 1 - (1 - a)^t.
TEST(ExponentialSmoothing, ForgetsGeometrically)
{
    std::vector<double> step(100, 1.0);
    step[0] = 0;
    Given(step);
    ForecastBy(kExponentialSmoothing, "0.2");
    for (int t = 2; t <= 100; ++t)
        EXPECT_NEAR(Result.Fitted(t), 1 - std::pow(0.8, t - 2), kClose);
}

// ---- trend projection ----

// A least-squares line over whole numbers as exact fractions: slope = s / d, intercept = i / (n d).
struct ExactLine {
    std::int64_t SlopeTop;
    std::int64_t InterceptTop;
    std::int64_t Bottom;  // of the slope; n times as much for the intercept
};

ExactLine LineThrough(const std::vector<int>& values)
{
    const auto n = static_cast<std::int64_t>(values.size());
    std::int64_t t = 0;
    std::int64_t sumY = 0;
    std::int64_t sumTY = 0;
    for (const int value : values) {
        ++t;
        sumY += value;
        sumTY += t * value;
    }
    const std::int64_t sumT = n * (n + 1) / 2;
    const std::int64_t sumTT = n * (n + 1) * (2 * n + 1) / 6;
    const std::int64_t bottom = n * sumTT - sumT * sumT;
    const std::int64_t slope = n * sumTY - sumT * sumY;
    return {slope, sumY * bottom - sumT * slope, bottom};
}

// The nearest number of thousandths to top / bottom, halves upwards.
std::int64_t Thousandths(std::int64_t top, std::int64_t bottom)
{
    const std::int64_t doubled = 2000 * top + bottom;
    const std::int64_t quotient = doubled / (2 * bottom);
    return doubled % (2 * bottom) < 0 ? quotient - 1 : quotient;
}

TEST(TrendProjection, RoundsTheExactLineToThousandths)
{
    std::mt19937 random(11);
    for (int round = 0; round < 300; ++round) {
        const int n = 2 + round % 99;
        std::vector<int> values(static_cast<std::size_t>(n));
        for (int& value : values)
            value = static_cast<int>(random() % 2001) - 1000;
        const ExactLine exact = LineThrough(values);
        Given({values.begin(), values.end()});
        ForecastBy(kTrendProjection, "", "1");
        // An exact half of a thousandth may fall to either side.
        if ((2000 * exact.SlopeTop) % exact.Bottom == 0) continue;
        EXPECT_NEAR(Result.TrendSlope, static_cast<double>(Thousandths(exact.SlopeTop, exact.Bottom)) / 1000,
                    kClose);
        if ((2000 * exact.InterceptTop) % (n * exact.Bottom) == 0) continue;
        EXPECT_NEAR(Result.TrendIntercept,
                    static_cast<double>(Thousandths(exact.InterceptTop, n * exact.Bottom)) / 1000, kClose);
    }
}

// Ten years: T = 20.4 + 1.1 t, and 32.5 in the year that follows.
TEST(TrendProjection, WorkedByHand)
{
    Given({21.6, 22.9, 25.5, 21.9, 23.9, 27.5, 31.5, 29.7, 28.6, 31.4});
    ForecastBy(kTrendProjection, "", "3");
    EXPECT_EQ(Result.TrendIntercept, 20.4);
    EXPECT_EQ(Result.TrendSlope, 1.1);
    EXPECT_EQ(Result.FirstFittedPeriod, 1);
    EXPECT_THAT(Part(Result.Forecast, 1, 3), Pointwise(DoubleEq(), {32.5, 33.6, 34.7}));
    EXPECT_DOUBLE_EQ(Result.FitError(1), 21.6 - 21.5);
    EXPECT_NEAR(Result.MeanSquareError, 3.07, kClose);
}

TEST(TrendProjection, OfALineHasNoErrorButTheRounding)
{
    Given({5, 3, 1, -1});
    ForecastBy(kTrendProjection, "", "2");
    EXPECT_EQ(Result.TrendIntercept, 7);
    EXPECT_EQ(Result.TrendSlope, -2);
    EXPECT_EQ(Result.MeanSquareError, 0);
    EXPECT_EQ(Result.Forecast(2), -5);
    Given({1.0 / 3, 2.0 / 3, 1});
    ForecastBy(kTrendProjection, "", "1");
    EXPECT_EQ(Result.TrendSlope, 0.333);
    EXPECT_EQ(Result.TrendIntercept, 0);
    EXPECT_EQ(Result.Forecast(1), 0.333 * 4);
}

TEST(TrendProjection, ANegativeHalfRoundsUp)
{
    Given({0, -0.0625 * 0.008});  // slope -0.0005 exactly
    ForecastBy(kTrendProjection, "", "1");
    EXPECT_EQ(Result.TrendSlope, 0);
}

TEST(TrendProjection, ForecastsAsManyPeriodsAsAskedFor)
{
    Given(std::vector<double>(100, 4.0));
    ForecastBy(kTrendProjection, "", "12");
    EXPECT_EQ(Result.ForecastCount, 12);
    EXPECT_EQ(Result.Forecast(12), 4);
}

TEST(TrendProjection, OfOnePeriodIsAnErrorOfTheMachine)
{
    Given({5});
    EXPECT_NE(FailureOf(kTrendProjection, "", "1"), ErrorNumber{});
    EXPECT_EQ(Result.Method, 0);
}

// ---- trend and seasonal components ----

// Averages of two: 4, 5, 7, 8, 10; centred on periods 2 to 5: 9/2, 6, 15/2, 9; ratios 4/3, 2/3, 4/3, 2/3. The
// deseasonalized values 3, 4.5, 6, ... lie on 1.5 + 1.5 t.
TEST(TrendAndSeasonal, TwoSeasonsWorkedByHand)
{
    Given({2, 6, 4, 10, 6, 14});
    ForecastBy(kTrendAndSeasonal, "2", "2");
    EXPECT_DOUBLE_EQ(Result.SeasonalIndex(1), 2.0 / 3);
    EXPECT_DOUBLE_EQ(Result.SeasonalIndex(2), 4.0 / 3);
    EXPECT_NEAR(Result.TrendIntercept, 1.5, kClose);
    EXPECT_NEAR(Result.TrendSlope, 1.5, kClose);
    EXPECT_NEAR(Result.MeanSquareError, 0, kClose);
    EXPECT_NEAR(Result.Forecast(1), 8, kClose);
    EXPECT_NEAR(Result.Forecast(2), 18, kClose);
    EXPECT_EQ(Result.FirstFittedPeriod, 1);
    EXPECT_EQ(Result.ZeroIndexCount, 0);
}

// Averages of three: 6, 7, 9, 12, centred on periods 2 to 5; ratios 1, 9/7, 2/3, 1. Seasons 2/3, 1 and 9/7
// add up to 62/21.
TEST(TrendAndSeasonal, ThreeSeasonsWorkedByHand)
{
    Given({3, 6, 9, 6, 12, 18});
    ForecastBy(kTrendAndSeasonal, "3", "1");
    EXPECT_DOUBLE_EQ(Result.SeasonalIndex(1), 21.0 / 31);
    EXPECT_DOUBLE_EQ(Result.SeasonalIndex(2), 63.0 / 62);
    EXPECT_DOUBLE_EQ(Result.SeasonalIndex(3), 81.0 / 62);
}

// The centred averages stand at periods 3 to 10. A peak there raises its season's index; a peak outside only
// shifts the averages of its neighbours a little.
TEST(TrendAndSeasonal, FourSeasonsOnTwelvePeriodsHaveAveragesFrom3To10)
{
    const std::vector<double> series(12, 8.0);
    for (const auto& [period, counts] : std::vector<std::pair<std::size_t, bool>>{
             {3, true}, {10, true}, {2, false}, {11, false}, {12, false}}) {
        std::vector<double> spike = series;
        spike[period - 1] = 16;
        Given(spike);
        ForecastBy(kTrendAndSeasonal, "4", "1");
        const int season = static_cast<int>((period - 1) % 4) + 1;
        EXPECT_EQ(Result.SeasonalIndex(season) > 1.2, counts) << period;
    }
}

TEST(TrendAndSeasonal, IndexesAverage1)
{
    std::mt19937 random(12);
    for (int round = 0; round < 200; ++round) {
        const int n = 4 + round % 97;
        const int p = 2 + static_cast<int>(random() % static_cast<unsigned>(n / 2 - 1));
        auto series = RandomSeries(random, n);
        for (double& value : series)
            value += 1;
        Given(series);
        ForecastBy(kTrendAndSeasonal, std::to_string(p), std::to_string(p));
        const auto indexes = Part(Result.SeasonalIndex, 1, p);
        EXPECT_NEAR(std::accumulate(indexes.begin(), indexes.end(), 0.0), p, kClose);
    }
}

// With one season the method is the trend, not rounded.
TEST(TrendAndSeasonal, OfOneSeasonIsTheExactTrend)
{
    std::mt19937 random(13);
    for (int round = 0; round < 200; ++round) {
        const int n = 2 + round % 99;
        std::vector<int> values(static_cast<std::size_t>(n));
        for (int& value : values)
            value = 1 + static_cast<int>(random() % 500);
        const ExactLine exact = LineThrough(values);
        Given({values.begin(), values.end()});
        ForecastBy(kTrendAndSeasonal, "1", "1");
        EXPECT_EQ(Result.SeasonalIndex(1), 1);
        const double slope = static_cast<double>(exact.SlopeTop) / static_cast<double>(exact.Bottom);
        const double intercept =
            static_cast<double>(exact.InterceptTop) / static_cast<double>(n * exact.Bottom);
        EXPECT_NEAR(Result.TrendSlope, slope, kClose);
        EXPECT_NEAR(Result.TrendIntercept, intercept, 1e-7);
        EXPECT_NEAR(Result.Forecast(1), intercept + slope * (n + 1), 1e-7);
        // The residuals of a least-squares line are orthogonal to 1 and to t.
        double sum = 0;
        double moment = 0;
        for (int t = 1; t <= n; ++t) {
            sum += Result.FitError(t);
            moment += t * Result.FitError(t);
        }
        EXPECT_NEAR(sum, 0, 1e-6);
        EXPECT_NEAR(moment, 0, 1e-4);
    }
}

// A series that is its seasons times a line is forecast as it would go on, at least when the line is level.
TEST(TrendAndSeasonal, APureSeasonGoesOn)
{
    for (int p = 2; p <= 50; ++p) {
        std::vector<double> series(static_cast<std::size_t>(2 * p));
        for (std::size_t t = 0; t < series.size(); ++t)
            series[t] = 10.0 * static_cast<double>(t % static_cast<std::size_t>(p) + 1);
        Given(series);
        ForecastBy(kTrendAndSeasonal, std::to_string(p), std::to_string(p));
        ASSERT_EQ(Result.ForecastCount, p);
        for (int i = 1; i <= p; ++i)
            EXPECT_NEAR(Result.Forecast(i), 10.0 * i, 1e-6) << p;
        EXPECT_NEAR(Result.MeanSquareError, 0, kClose);
    }
}

TEST(TrendAndSeasonal, StopsAtASeasonOfZeroes)
{
    Given({0, 5, 0, 7, 0, 9});
    ForecastBy(kTrendAndSeasonal, "2", "2");
    EXPECT_EQ(Result.ZeroIndexCount, 1);
    EXPECT_EQ(Result.SeasonalIndex(1), 0);
    EXPECT_EQ(Result.SeasonalIndex(2), 2);
    EXPECT_EQ(Result.ForecastCount, 0);
    EXPECT_EQ(Result.Method, kTrendAndSeasonal);
    Given({0, 0, 4, 4, 0, 0, 4, 4});
    ForecastBy(kTrendAndSeasonal, "4", "1");
    EXPECT_EQ(Result.ZeroIndexCount, 2);
    EXPECT_EQ(Result.SeasonalIndex(3), 2);
}

TEST(TrendAndSeasonal, OfZeroesAloneIsAnErrorOfTheMachine)
{
    Given(std::vector<double>(8, 0.0));
    EXPECT_EQ(FailureOf(kTrendAndSeasonal, "4", "1"), ErrorNumber::DivisionByZero);
}

TEST(TrendAndSeasonal, NoPeriodsNeedToBeForecast)
{
    Given({2, 6, 4, 10});
    for (const char* count : {"0", "-2", "-99999999999"}) {
        ForecastBy(kTrendAndSeasonal, "2", count);
        EXPECT_EQ(Result.ForecastCount, 0);
    }
}

// ---- all methods ----

TEST(Forecast, AConstantSeriesGoesOnWithoutError)
{
    for (int method = 1; method <= 4; ++method) {
        Given(std::vector<double>(20, 6.0));
        ForecastBy(method, method == kExponentialSmoothing ? "0.4" : "4", "4");
        EXPECT_NEAR(Result.MeanSquareError, 0, kClose) << method;
        const bool isTrend = method >= kTrendProjection;
        EXPECT_NEAR(isTrend ? Result.Forecast(4) : Result.NextForecast, 6, kClose) << method;
    }
}

TEST(Forecast, LeavesTheSeriesAsItIs)
{
    Given({2, 6, 4, 10});
    Problem.TimeSeries(2) = Variant();
    ForecastBy(kMovingAverages, "1");
    EXPECT_TRUE(Problem.TimeSeries(2).IsEmpty());
    EXPECT_EQ(Result.Series(2), 0);
}

TEST(Forecast, AFailedSolveLeavesNothingOfTheFormerOne)
{
    Given({2, 6, 4, 10});
    ForecastBy(kMovingAverages, "1");
    EXPECT_EQ(Result.Method, kMovingAverages);
    EXPECT_NE(FailureOf(kMovingAverages, "4"), ErrorNumber{});
    EXPECT_EQ(Result.Method, 0);
}

}  // namespace
