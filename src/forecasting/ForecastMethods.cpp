// Moving averages, exponential smoothing, a least-squares trend, and the ratio-to-moving-average method for
// trend and seasonal components.
#include <algorithm>
#include <utility>

#include "basic/number.h"
#include "forecasting/VtForecasting.h"

namespace VtForecasting {
namespace {

// The result of the run; it becomes the module's when the run has come to its end.
ForecastResult Run;

// ---- shared steps ----

double MeanFrom(int first, int count)
{
    double sum = 0;
    for (int t = first; t < first + count; ++t)
        sum += Run.Series(t);
    return sum / count;
}

// Answers the square of the period's error.
double Fit(int t, double fitted)
{
    Run.Fitted(t) = fitted;
    Run.FitError(t) = Run.Series(t) - fitted;
    return Run.FitError(t) * Run.FitError(t);
}

// The least-squares line through the values of all periods.
void FitTrend(const Array1<double>& values)
{
    const int n = Run.PeriodCount;
    double sumT = 0;
    double sumY = 0;
    double sumTT = 0;
    double sumTY = 0;
    for (int t = 1; t <= n; ++t) {
        sumT += t;
        sumY += values(t);
        sumTT += static_cast<double>(t) * t;
        sumTY += t * values(t);
    }
    const double sxy = sumTY - Divide(sumT * sumY, n);
    const double sxx = sumTT - Divide(sumT * sumT, n);
    Run.TrendSlope = Divide(sxy, sxx);
    Run.TrendIntercept = sumY / n - sumT / n * Run.TrendSlope;
}

double Trend(int t)
{
    return Run.TrendIntercept + Run.TrendSlope * t;
}

// Fits every period and makes the forecasts behind the last one by the given function of the period.
template <typename Model>
void FitAndForecast(Model model)
{
    const int n = Run.PeriodCount;
    double squares = 0;
    for (int t = 1; t <= n; ++t)
        squares += Fit(t, model(t));
    Run.MeanSquareError = squares / n;
    Run.ForecastCount = static_cast<int>(std::max(0.0, Val(Problem.ForecastCount)));
    Run.Forecast = Array1<double>(Run.ForecastCount);
    for (int i = 1; i <= Run.ForecastCount; ++i)
        Run.Forecast(i) = model(n + i);
}

// ---- methods 1 to 3 ----

void MovingAverages()
{
    const int n = Run.PeriodCount;
    const int k = static_cast<int>(Run.Parameter);
    double squares = 0;
    for (int t = k + 1; t <= n; ++t)
        squares += Fit(t, MeanFrom(t - k, k));
    Run.MeanSquareError = Divide(squares, n - k);
    Run.NextForecast = MeanFrom(n - k + 1, k);
    Run.FirstFittedPeriod = k + 1;
}

void ExponentialSmoothing()
{
    const int n = Run.PeriodCount;
    const double a = Run.Parameter;
    const auto next = [a](int t) { return a * Run.Series(t) + (1 - a) * Run.Fitted(t); };
    Run.Fitted(1) = Run.Series(1);
    double squares = 0;
    for (int t = 1; t < n; ++t)
        squares += Fit(t + 1, next(t));
    Run.MeanSquareError = squares / (n == 1 ? 1 : n - 1);
    Run.NextForecast = next(n);
    Run.FirstFittedPeriod = 2;
}

double ToThousandths(double value)
{
    return Int(value * 1000 + 0.5) / 1000;
}

// The rounded line is the model, not only its picture in the report.
void TrendProjection()
{
    FitTrend(Run.Series);
    Run.TrendIntercept = ToThousandths(Run.TrendIntercept);
    Run.TrendSlope = ToThousandths(Run.TrendSlope);
    FitAndForecast(Trend);
}

// ---- method 4 ----

// Averages over a whole cycle of p seasons, each set against the period in its middle.
struct CentredAverages {
    int First;  // period
    int Last;
    Array1<double> Value;
};

CentredAverages Centre(int p)
{
    const int n = Run.PeriodCount;
    const bool odd = p % 2 == 1;
    const int averages = odd ? n - p + 1 : n - p;
    const int shift = odd ? (p - 1) / 2 : p / 2;
    CentredAverages centred{.First = 1 + shift, .Last = averages + shift, .Value = Array1<double>(n)};
    for (int t = 1; t <= averages; ++t)
        centred.Value(t + shift) = odd ? MeanFrom(t, p) : (MeanFrom(t, p) + MeanFrom(t + 1, p)) / 2;
    return centred;
}

// Mean of the season's values against their centred averages; an average of 0 gives a ratio of 0.
double MeanRatio(const CentredAverages& centred, int season)
{
    double sum = 0;
    int count = 0;
    for (int t = season; t <= centred.Last; t += Run.SeasonCount) {
        if (t < centred.First) continue;
        if (centred.Value(t) != 0) sum += Run.Series(t) / centred.Value(t);
        ++count;
    }
    return Divide(sum, count);
}

// The indexes, scaled to average 1.
void FindSeasonalIndexes()
{
    const int p = Run.SeasonCount;
    const CentredAverages centred = Centre(p);
    Run.SeasonalIndex = Array1<double>(p);
    double sum = 0;
    for (int s = 1; s <= p; ++s) {
        Run.SeasonalIndex(s) = MeanRatio(centred, s);
        sum += Run.SeasonalIndex(s);
    }
    const double factor = Divide(p, sum);
    for (int s = 1; s <= p; ++s) {
        Run.SeasonalIndex(s) *= factor;
        if (Run.SeasonalIndex(s) == 0) ++Run.ZeroIndexCount;
    }
}

double IndexOfPeriod(int t)
{
    const int season = t % Run.SeasonCount;
    return Run.SeasonalIndex(season == 0 ? Run.SeasonCount : season);
}

void TrendAndSeasonal()
{
    Run.SeasonCount = static_cast<int>(Run.Parameter);
    FindSeasonalIndexes();
    if (Run.ZeroIndexCount > 0) return;
    Array1<double> deseasonalized(Run.PeriodCount);
    for (int t = 1; t <= Run.PeriodCount; ++t)
        deseasonalized(t) = Run.Series(t) / IndexOfPeriod(t);
    FitTrend(deseasonalized);
    FitAndForecast([](int t) { return Trend(t) * IndexOfPeriod(t); });
}

// An empty run over a copy of the series.
void BeginRun()
{
    const int n = Problem.PeriodCount;
    Run = {};
    Run.Method = Problem.ForecastMethod;
    Run.Parameter = Val(Problem.MethodParameter);
    Run.PeriodCount = n;
    Run.Series = Array1<double>(kMostPeriods);
    Run.Fitted = Array1<double>(kMostPeriods);
    Run.FitError = Array1<double>(kMostPeriods);
    for (int t = 1; t <= n; ++t)
        Run.Series(t) = Problem.TimeSeries(t).Value();
}

}  // namespace

void Forecast()
{
    Result = {};
    BeginRun();
    switch (Run.Method) {
        case kMovingAverages:
            MovingAverages();
            break;
        case kExponentialSmoothing:
            ExponentialSmoothing();
            break;
        case kTrendProjection:
            TrendProjection();
            break;
        default:
            TrendAndSeasonal();
            break;
    }
    Result = std::move(Run);
}

}  // namespace VtForecasting
