#include "forecasting/SeriesFacts.h"

#include <cmath>

#include "basic/format.h"
#include "forecasting/ForecastReport.h"

namespace VtForecasting {

bool IsTrendMethod(const ForecastResult& result)
{
    return result.Method == kTrendProjection || result.Method == kTrendAndSeasonal;
}

bool HasForecasts(const ForecastResult& result)
{
    return result.ZeroIndexCount == 0;
}

std::vector<double> ForecastsOf(const ForecastResult& result)
{
    if (!HasForecasts(result)) return {};
    if (!IsTrendMethod(result)) return {result.NextForecast};
    std::vector<double> forecasts;
    for (int i = 1; i <= result.ForecastCount; ++i)
        forecasts.push_back(result.Forecast(i));
    return forecasts;
}

double RootMeanSquareError(const ForecastResult& result)
{
    return std::sqrt(result.MeanSquareError);
}

int FittedPeriods(const ForecastResult& result)
{
    return HasForecasts(result) ? result.PeriodCount - result.FirstFittedPeriod + 1 : 0;
}

double MeanError(const ForecastResult& result)
{
    double sum = 0;
    for (int t = result.FirstFittedPeriod; t <= result.PeriodCount; ++t)
        sum += result.FitError(t);
    return FittedPeriods(result) > 0 ? sum / FittedPeriods(result) : 0;
}

int SeasonOf(const ForecastResult& result, int period)
{
    const int season = period % result.SeasonCount;
    return season == 0 ? result.SeasonCount : season;
}

double IndexOf(const ForecastResult& result, int period)
{
    return result.SeasonalIndex(SeasonOf(result, period));
}

std::string SeriesText(const ForecastProblem& problem, double value)
{
    return Format(value, FieldsOf(problem).ValuePattern);
}

std::string ForecastText(double value)
{
    return Format(value, "###,###,##0.00");
}

std::string SignedText(double error)
{
    const std::string text = ForecastText(error);
    return error > 0 && text != ForecastText(0) ? "+" + text : text;
}

std::string IndexText(double index)
{
    return Format(index, "0.000");
}

}  // namespace VtForecasting
