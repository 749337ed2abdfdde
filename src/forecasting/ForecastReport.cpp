#include "forecasting/ForecastReport.h"

#include <array>
#include <cmath>
#include <string>

#include "basic/format.h"
#include "forecasting/SeriesFacts.h"

namespace VtForecasting {
namespace {

// ---- fields ----

// By DecimalPlaces.
constexpr std::array<SeriesFields, 3> kSeriesFields = {{
    {.ValuePattern = "###,###,##0", .ValueWidth = 11, .ForecastWidth = 10, .ErrorWidth = 10},
    {.ValuePattern = "###,###,##0.0", .ValueWidth = 21, .ForecastWidth = 18, .ErrorWidth = 17},
    {.ValuePattern = "###,###,##0.00", .ValueWidth = 20, .ForecastWidth = 18, .ErrorWidth = 17},
}};

std::string PeriodText(int t)
{
    return Format(std::to_string(t), "@@@");
}

// ---- blocks ----

struct Heading {
    std::string_view Title;
    std::string_view Rule;
};

// By method.
constexpr std::array<Heading, 4> kHeadings = {{
    {.Title = "FORECASTING WITH MOVING AVERAGES", .Rule = "********************************"},
    {.Title = "FORECASTING WITH EXPONENTIAL SMOOTHING", .Rule = "**************************************"},
    {.Title = "FORECASTING WITH LINEAR TREND", .Rule = "*****************************"},
    {.Title = "FORECASTING WITH TREND AND SEASONAL COMPONENTS",
     .Rule = "**********************************************"},
}};

std::string Margin(const ReportChannel& out)
{
    if (out.OnScreen()) return "";
    return Blanks(Result.Method == kTrendAndSeasonal ? 4 : 5);
}

void MethodHeading(ReportChannel& out)
{
    const Heading heading = kHeadings.at(static_cast<std::size_t>(Result.Method) - 1);
    out.Line();
    out.Line(Margin(out) + std::string(heading.Title));
    out.Line(Margin(out) + std::string(heading.Rule));
}

void ParameterLine(ReportChannel& out)
{
    const std::string item = PrintItem(Result.Parameter);
    if (Result.Method == kMovingAverages)
        out.Line("     THE MOVING AVERAGE USES" + item + "TIME PERIODS");
    else if (Result.Method == kExponentialSmoothing)
        out.Line("     THE SMOOTHING CONSTANT IS" + item);
}

void TrendEquation(ReportChannel& out)
{
    out.Line();
    out.Line(Margin(out) + "THE LINEAR TREND EQUATION:");
    out.Line();
    out.Line("                 T  = " + PlainText(Result.TrendIntercept) +
             (Result.TrendSlope < 0 ? " - " : " + ") + PlainText(std::abs(Result.TrendSlope)) + " t");
    out.Line("          where  T  =  trend value of the time series in period t");
}

void SeasonalTable(ReportChannel& out)
{
    out.Line("SEASON     SEASONAL INDEX");
    out.Line("======     ==============");
    for (int s = 1; s <= Result.SeasonCount; ++s)
        out.Line(Blanks(10) + PeriodText(s) + "    " +
                 FlushRight(Format(Result.SeasonalIndex(s), "#####,##0.000"), 13));
}

void PrintedSeasonalTable(ReportChannel& out)
{
    // The numbers end below the last letters of their headings.
    constexpr int kSeasonEnd = 18;
    constexpr int kIndexEnd = 38;
    out.Line("            SEASON      SEASONAL INDEX");
    out.Line("            ------      --------------");
    for (int s = 1; s <= Result.SeasonCount; ++s)
        out.Line(FlushRight(Format(s, "###0"), kSeasonEnd) +
                 FlushRight(Format(Result.SeasonalIndex(s), "#0.000"), kIndexEnd - kSeasonEnd));
}

// The two marks stand as they are; the message box on screen has told the numbers.
void PrintedZeroWarning(ReportChannel& out)
{
    if (Result.ZeroIndexCount == 1) {
        out.Line("     WARNING:  1 seasonal index is zero.  The data cannot be");
        out.Line("     deseasonalized for this season.  We suggest that you remove ");
        out.Line("     this seasons from your time series and develop forecasts based");
        return;
    }
    out.Line("     WARNING:  ## seasonal indexes are zero.  The data cannot be");
    out.Line("     deseasonalized for these seasons.  We suggest that you remove ");
    out.Line("     these seasons from your time series and develop forecasts based");
    out.Line("     on the ## nonzero seasons.");
}

std::string SeriesRow(int t)
{
    constexpr std::string_view kForecastPattern = "###,##0.00";
    const SeriesFields& fields = FieldsOf(Problem);
    std::string row = Blanks(9) + PeriodText(t) + Blanks(8) +
                      FlushRight(Format(Result.Series(t), fields.ValuePattern), fields.ValueWidth);
    if (t < Result.FirstFittedPeriod) return row;
    return row + FlushRight(Format(Result.Fitted(t), kForecastPattern), fields.ForecastWidth) +
           FlushRight(Format(Result.FitError(t), kForecastPattern), fields.ErrorWidth);
}

void SeriesTable(ReportChannel& out)
{
    out.Line();
    out.Line("     TIME PERIOD     TIME SERIES VALUE     FORECAST     FORECAST ERROR");
    out.Line("     ===========     =================     ========     ==============");
    for (int t = 1; t <= Result.PeriodCount; ++t)
        out.Line(SeriesRow(t));
}

void MeanSquareErrorLine(ReportChannel& out)
{
    constexpr int kWidth = 14;
    out.Line();
    out.Line((out.OnScreen() ? "     THE MEAN SQUARE ERROR       " : "     THE MEAN SQUARE ERROR     ") +
             FlushRight(Format(Result.MeanSquareError, "#,########0.00"), kWidth));
}

// The gap makes up for the digits of the period number, so that the values stand below each other.
void ForecastLine(ReportChannel& out, int period, double value)
{
    const int gapOfOneDigit = IsTrendMethod(Result) ? 6 : 4;
    const std::string number = std::to_string(period);
    out.Line("     THE FORECAST FOR PERIOD " + number +
             Blanks(gapOfOneDigit + 1 - static_cast<int>(number.size())) +
             FlushRight(Format(value, "#######0.00"), WidthOfForecast(Result)));
}

void Forecasts(ReportChannel& out)
{
    out.Line();
    const int n = Result.PeriodCount;
    if (!IsTrendMethod(Result)) ForecastLine(out, n + 1, Result.NextForecast);
    for (int i = 1; i <= Result.ForecastCount; ++i)
        ForecastLine(out, n + i, Result.Forecast(i));
}

// What follows the heading of a method, down to the table of the series.
void MethodBlock(ReportChannel& out)
{
    if (!out.OnScreen()) ParameterLine(out);
    if (Result.Method == kTrendProjection) TrendEquation(out);
    if (Result.Method != kTrendAndSeasonal) return;
    if (out.OnScreen())
        SeasonalTable(out);
    else
        PrintedSeasonalTable(out);
}

void WriteBlocks(ReportChannel& out)
{
    MethodHeading(out);
    MethodBlock(out);
    if (Result.ZeroIndexCount > 0) {
        if (!out.OnScreen()) PrintedZeroWarning(out);
        return;
    }
    SeriesTable(out);
    MeanSquareErrorLine(out);
    Forecasts(out);
}

}  // namespace

const SeriesFields& FieldsOf(const ForecastProblem& problem)
{
    return kSeriesFields.at(static_cast<std::size_t>(ShownDecimals(problem.DecimalPlaces.Value())));
}

int WidthOfForecast(const ForecastResult& result)
{
    return IsTrendMethod(result) ? 11 : 13;
}

void WriteReport(ReportChannel& out)
{
    if (Result.Method == 0) return;
    if (out.OnScreen()) out.Line("Forecasting Solution");
    WriteBlocks(out);
}

}  // namespace VtForecasting
