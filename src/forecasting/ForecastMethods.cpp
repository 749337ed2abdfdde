// Moving averages, exponential smoothing, a least-squares trend, and the ratio-to-moving-average method for
// trend and seasonal components.
#include <algorithm>
#include <utility>

#include "basic/number.h"
#include "forecasting/VtForecasting.h"

namespace VtForecasting {
namespace {

// Averages over a whole cycle of p seasons, each set against the period in its middle.
struct CentredAverages {
    int First;  // period
    int Last;
    Array1<double> Value;
};

class Forecaster {
public:
    Forecaster(const ForecastProblem& problem, ForecastWork* work);
    ForecastResult Run();

private:
    [[nodiscard]] double MeanFrom(int first, int count) const;
    double Fit(int t, double fitted);
    void FitTrend(const Array1<double>& values);
    [[nodiscard]] double Trend(int t) const;
    template <typename Model>
    void FitAndForecast(Model model);

    void MovingAverages();
    void ExponentialSmoothing();
    void TrendProjection();
    void TrendAndSeasonal();

    [[nodiscard]] CentredAverages Centre(int p) const;
    [[nodiscard]] double MeanRatio(const CentredAverages& centred, int season) const;
    void FindSeasonalIndexes();
    [[nodiscard]] double IndexOfPeriod(int t) const;

    int forecastCount_;
    ForecastWork* work_;  // may be null
    ForecastResult result_;
};

// A copy of the series, and room for what is fitted to it.
Forecaster::Forecaster(const ForecastProblem& problem, ForecastWork* work)
    : forecastCount_(static_cast<int>(std::max(0.0, Val(problem.ForecastCount)))), work_(work)
{
    const int n = problem.PeriodCount;
    result_.Method = problem.ForecastMethod;
    result_.Parameter = Val(problem.MethodParameter);
    result_.PeriodCount = n;
    result_.Series = Array1<double>(kMostPeriods);
    result_.Fitted = Array1<double>(kMostPeriods);
    result_.FitError = Array1<double>(kMostPeriods);
    for (int t = 1; t <= n; ++t)
        result_.Series(t) = problem.TimeSeries(t).Value();
}

// ---- shared steps ----

double Forecaster::MeanFrom(int first, int count) const
{
    double sum = 0;
    for (int t = first; t < first + count; ++t)
        sum += result_.Series(t);
    return sum / count;
}

// Answers the square of the period's error.
double Forecaster::Fit(int t, double fitted)
{
    result_.Fitted(t) = fitted;
    result_.FitError(t) = result_.Series(t) - fitted;
    return result_.FitError(t) * result_.FitError(t);
}

// The least-squares line through the values of all periods.
void Forecaster::FitTrend(const Array1<double>& values)
{
    const int n = result_.PeriodCount;
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
    result_.TrendSlope = Divide(sxy, sxx);
    result_.TrendIntercept = sumY / n - sumT / n * result_.TrendSlope;
    if (work_ == nullptr) return;
    work_->SumT = sumT;
    work_->SumY = sumY;
    work_->SumTT = sumTT;
    work_->SumTY = sumTY;
    work_->Sxy = sxy;
    work_->Sxx = sxx;
    work_->TrendIntercept = result_.TrendIntercept;
    work_->TrendSlope = result_.TrendSlope;
}

double Forecaster::Trend(int t) const
{
    return result_.TrendIntercept + result_.TrendSlope * t;
}

// Fits every period and makes the forecasts behind the last one by the given function of the period.
template <typename Model>
void Forecaster::FitAndForecast(Model model)
{
    const int n = result_.PeriodCount;
    double squares = 0;
    for (int t = 1; t <= n; ++t)
        squares += Fit(t, model(t));
    result_.MeanSquareError = squares / n;
    result_.ForecastCount = forecastCount_;
    result_.Forecast = Array1<double>(result_.ForecastCount);
    for (int i = 1; i <= result_.ForecastCount; ++i)
        result_.Forecast(i) = model(n + i);
}

// ---- methods 1 to 3 ----

void Forecaster::MovingAverages()
{
    const int n = result_.PeriodCount;
    const int k = static_cast<int>(result_.Parameter);
    double squares = 0;
    for (int t = k + 1; t <= n; ++t)
        squares += Fit(t, MeanFrom(t - k, k));
    result_.MeanSquareError = Divide(squares, n - k);
    result_.NextForecast = MeanFrom(n - k + 1, k);
    result_.FirstFittedPeriod = k + 1;
}

void Forecaster::ExponentialSmoothing()
{
    const int n = result_.PeriodCount;
    const double a = result_.Parameter;
    const auto next = [this, a](int t) { return a * result_.Series(t) + (1 - a) * result_.Fitted(t); };
    result_.Fitted(1) = result_.Series(1);
    double squares = 0;
    for (int t = 1; t < n; ++t)
        squares += Fit(t + 1, next(t));
    result_.MeanSquareError = squares / (n == 1 ? 1 : n - 1);
    result_.NextForecast = next(n);
    result_.FirstFittedPeriod = 2;
}

double ToThousandths(double value)
{
    return Int(value * 1000 + 0.5) / 1000;
}

// The rounded line is the model, not only its picture in the report.
void Forecaster::TrendProjection()
{
    FitTrend(result_.Series);
    result_.TrendIntercept = ToThousandths(result_.TrendIntercept);
    result_.TrendSlope = ToThousandths(result_.TrendSlope);
    FitAndForecast([this](int t) { return Trend(t); });
}

// ---- method 4 ----

CentredAverages Forecaster::Centre(int p) const
{
    const int n = result_.PeriodCount;
    const bool odd = p % 2 == 1;
    const int averages = odd ? n - p + 1 : n - p;
    const int shift = odd ? (p - 1) / 2 : p / 2;
    CentredAverages centred{.First = 1 + shift, .Last = averages + shift, .Value = Array1<double>(n)};
    for (int t = 1; t <= averages; ++t)
        centred.Value(t + shift) = odd ? MeanFrom(t, p) : (MeanFrom(t, p) + MeanFrom(t + 1, p)) / 2;
    return centred;
}

// Mean of the season's values against their centred averages; an average of 0 gives a ratio of 0.
double Forecaster::MeanRatio(const CentredAverages& centred, int season) const
{
    double sum = 0;
    int count = 0;
    for (int t = season; t <= centred.Last; t += result_.SeasonCount) {
        if (t < centred.First) continue;
        if (centred.Value(t) != 0) sum += result_.Series(t) / centred.Value(t);
        ++count;
    }
    return Divide(sum, count);
}

// The indexes, scaled to average 1.
void Forecaster::FindSeasonalIndexes()
{
    const int p = result_.SeasonCount;
    const CentredAverages centred = Centre(p);
    result_.SeasonalIndex = Array1<double>(p);
    double sum = 0;
    for (int s = 1; s <= p; ++s) {
        result_.SeasonalIndex(s) = MeanRatio(centred, s);
        sum += result_.SeasonalIndex(s);
    }
    const double factor = Divide(p, sum);
    if (work_ != nullptr) {
        work_->FirstCentred = centred.First;
        work_->LastCentred = centred.Last;
        work_->Centred = centred.Value;
        work_->MeanRatio = result_.SeasonalIndex;
        work_->Factor = factor;
    }
    for (int s = 1; s <= p; ++s) {
        result_.SeasonalIndex(s) *= factor;
        if (result_.SeasonalIndex(s) == 0) ++result_.ZeroIndexCount;
    }
}

double Forecaster::IndexOfPeriod(int t) const
{
    const int season = t % result_.SeasonCount;
    return result_.SeasonalIndex(season == 0 ? result_.SeasonCount : season);
}

void Forecaster::TrendAndSeasonal()
{
    result_.SeasonCount = static_cast<int>(result_.Parameter);
    FindSeasonalIndexes();
    if (result_.ZeroIndexCount > 0) return;
    Array1<double> deseasonalized(result_.PeriodCount);
    for (int t = 1; t <= result_.PeriodCount; ++t)
        deseasonalized(t) = result_.Series(t) / IndexOfPeriod(t);
    if (work_ != nullptr) work_->Deseasonalized = deseasonalized;
    FitTrend(deseasonalized);
    FitAndForecast([this](int t) { return Trend(t) * IndexOfPeriod(t); });
}

ForecastResult Forecaster::Run()
{
    switch (result_.Method) {
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
    return std::move(result_);
}

}  // namespace

ForecastResult Forecast(const ForecastProblem& problem, ForecastWork* work)
{
    return Forecaster(problem, work).Run();
}

}  // namespace VtForecasting
