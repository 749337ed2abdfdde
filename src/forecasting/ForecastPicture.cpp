#include "forecasting/ForecastPicture.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "forecasting/SeriesFacts.h"
#include "picture/words.h"

namespace VtForecasting {
namespace {

using picture::Axis;
using picture::Chart;
using picture::Picture;
using picture::Role;
using picture::Series;
using picture::SeriesKind;

constexpr double kHalf = 0.5;
constexpr int kPlaces = 2;               // of fitted values, forecasts and errors in the report
constexpr int kMostWrittenSeasons = 12;  // as many figures stand side by side above their bars

// Grows the axis to hold the value.
void Hold(Axis& axis, double value)
{
    axis.From = std::min(axis.From, value);
    axis.To = std::max(axis.To, value);
}

// Values that are all alike still need some height.
void Open(Axis& axis)
{
    if (axis.From < axis.To) return;
    const double room = axis.From == 0 ? 1 : std::abs(axis.From) / 2;
    axis.From -= room;
    axis.To += room;
}

void Put(Series& series, int period, double value, const std::string& tip)
{
    series.Points.push_back({.X = static_cast<double>(period), .Y = value});
    series.Tips.push_back("Period " + std::to_string(period) + ": " + tip);
}

// ---- series ----

std::string ForecastNote(const ForecastResult& result)
{
    const std::vector<double> forecasts = ForecastsOf(result);
    const int next = result.PeriodCount + 1;
    if (forecasts.empty())
        return HasForecasts(result) ? "No period was to be forecast."
                                    : "There is no forecast: a seasonal index is zero.";
    const std::string first =
        "The forecast for period " + std::to_string(next) + " is " + ForecastText(forecasts.front());
    if (forecasts.size() == 1) return first + ".";
    return first + ", that for period " +
           std::to_string(result.PeriodCount + static_cast<int>(forecasts.size())) + " is " +
           ForecastText(forecasts.back()) + ".";
}

Picture SeriesPicture(const ForecastProblem& problem, const ForecastResult& result)
{
    const int n = result.PeriodCount;
    const std::vector<double> forecasts = ForecastsOf(result);
    const int last = n + static_cast<int>(forecasts.size());
    Series past{.As = Role::Past, .Name = "time series", .Id = "time series"};
    Series fitted{.As = Role::Second, .Name = "fitted", .Id = "fitted"};
    Series forecast{.As = Role::Forecast, .Name = "forecast", .Id = "forecast", .Strong = true};
    Axis y{.Title = "Value", .From = result.Series(1), .To = result.Series(1), .Places = kPlaces};
    for (int t = 1; t <= n; ++t) {
        Put(past, t, result.Series(t), SeriesText(problem, result.Series(t)));
        Hold(y, result.Series(t));
        if (!HasForecasts(result) || t < result.FirstFittedPeriod) continue;
        Put(fitted, t, result.Fitted(t),
            "fitted " + ForecastText(result.Fitted(t)) + ", error " + SignedText(result.FitError(t)));
        Hold(y, result.Fitted(t));
    }
    int period = n;
    for (const double value : forecasts) {
        Put(forecast, ++period, value, "forecast " + ForecastText(value));
        forecast.Texts.push_back(period == n + 1 || period == last ? ForecastText(value) : "");
        Hold(y, value);
    }
    Open(y);
    Chart chart{.X = {.Title = "Period", .From = kHalf, .To = last + kHalf, .Counts = true}, .Y = y};
    chart.Curves.push_back(std::move(past));
    if (!fitted.Points.empty()) chart.Curves.push_back(std::move(fitted));
    if (!forecast.Points.empty()) {
        chart.Curves.push_back(std::move(forecast));
        chart.Rules.push_back({.Value = n + kHalf});
    }
    Picture series{.Title = "Series", .Notes = {ForecastNote(result)}};
    if (HasForecasts(result) && result.FirstFittedPeriod > 1 && FittedPeriods(result) > 0)
        series.Notes.push_back("Fitted from period " + std::to_string(result.FirstFittedPeriod) + " on.");
    series.Body = std::move(chart);
    return series;
}

// ---- errors ----

Picture ErrorsPicture(const ForecastResult& result)
{
    const int first = result.FirstFittedPeriod;
    const int last = result.PeriodCount;
    const double root = RootMeanSquareError(result);
    Axis y{.Title = "Value minus fitted value", .From = -root, .To = root, .Places = kPlaces};
    Series bars{.Kind = SeriesKind::Bars, .Name = "error", .Id = "error"};
    int largest = first;
    for (int t = first; t <= last; ++t) {
        Put(bars, t, result.FitError(t), "error " + SignedText(result.FitError(t)));
        Hold(y, result.FitError(t));
        if (std::abs(result.FitError(t)) > std::abs(result.FitError(largest))) largest = t;
    }
    Open(y);
    Chart chart{.X = {.Title = "Period", .From = first - kHalf, .To = last + kHalf, .Counts = true}, .Y = y};
    chart.Curves = {bars};
    Picture errors{.Title = "Errors"};
    const std::string text = ForecastText(root);
    if (text == ForecastText(0)) {
        errors.Notes = {"The fitted values meet the series in every period."};
    } else {
        chart.Rules = {
            {.Across = picture::Direction::Y, .As = Role::Limit, .Value = root, .Text = "+" + text},
            {.Across = picture::Direction::Y, .As = Role::Limit, .Value = -root, .Text = "-" + text}};
        errors.Notes = {
            "The largest error, " + SignedText(result.FitError(largest)) + ", is that of period " +
                std::to_string(largest) + ".",
            "The dashed lines stand at plus and minus the root of the mean square error, " + text + "."};
    }
    errors.Body = std::move(chart);
    return errors;
}

// ---- seasons ----

Picture SeasonsPicture(const ForecastResult& result)
{
    const int p = result.SeasonCount;
    Axis y{.Title = "Seasonal index", .From = 1, .To = 1, .Places = 3};
    Chart chart{.X = {.Title = "Season", .From = kHalf, .To = p + kHalf}, .BarsFrom = 1};
    Series bars{.Kind = SeriesKind::Bars, .Name = "seasonal index", .Id = "seasons"};
    int highest = 1;
    int lowest = 1;
    for (int s = 1; s <= p; ++s) {
        const double index = result.SeasonalIndex(s);
        bars.Points.push_back({.X = static_cast<double>(s), .Y = index});
        bars.Tips.push_back("Season " + std::to_string(s) + ": " + IndexText(index));
        if (p <= kMostWrittenSeasons) bars.Texts.push_back(IndexText(index));
        chart.X.Names.push_back(std::to_string(s));
        Hold(y, index);
        if (index > result.SeasonalIndex(highest)) highest = s;
        if (index < result.SeasonalIndex(lowest)) lowest = s;
    }
    Open(y);
    chart.Y = y;
    chart.Curves = {bars};
    Picture seasons{.Title = "Seasons"};
    const std::string top = IndexText(result.SeasonalIndex(highest));
    const std::string bottom = IndexText(result.SeasonalIndex(lowest));
    seasons.Notes = {top == bottom
                         ? "All seasons have the index " + top + "."
                         : "Season " + std::to_string(highest) + " is the highest with " + top + ", season " +
                               std::to_string(lowest) + " the lowest with " + bottom + "."};
    if (result.ZeroIndexCount > 0)
        seasons.Notes.push_back(picture::Counted(result.ZeroIndexCount, "index", "indexes") +
                                (result.ZeroIndexCount == 1 ? " is" : " are") + " zero.");
    seasons.Body = std::move(chart);
    return seasons;
}

}  // namespace

std::vector<Picture> Pictures(const ForecastProblem& problem, const ForecastResult& result)
{
    std::vector<Picture> pictures;
    if (result.Method == 0 || result.PeriodCount < 1) return pictures;
    pictures.push_back(SeriesPicture(problem, result));
    if (FittedPeriods(result) > 0) pictures.push_back(ErrorsPicture(result));
    if (result.Method == kTrendAndSeasonal) pictures.push_back(SeasonsPicture(result));
    return pictures;
}

}  // namespace VtForecasting
