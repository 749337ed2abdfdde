// Forecasting: a time series as the user enters it, and its forecasts by one of four methods.
//
// Periods and seasons are numbered from 1. Values are in the user's own unit.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "basic/variant.h"
#include "desktop/dialogs.h"
#include "shell/modaldialog.h"

namespace VtForecasting {

constexpr int kMostPeriods = 100;
constexpr int kMostTrendForecasts = 12;

enum ForecastMethods {
    kMovingAverages = 1,
    kExponentialSmoothing = 2,
    kTrendProjection = 3,
    kTrendAndSeasonal = 4,
};

struct ForecastProblem {
    std::int16_t PeriodCount = 0;  // n, 1 to 100
    Array1<Variant> TimeSeries;    // 100 values; empty where the user has entered nothing
    Variant DecimalPlaces = 0.0;   // 0 to 2, raised by the values entered
    std::int16_t ForecastMethod = 0;
    std::string MethodParameter;  // periods in the average, smoothing constant or seasons
    std::string ForecastCount;    // periods to forecast, trend methods only
};

// What a solve leaves for the reports.
struct ForecastResult {
    int Method = 0;  // 0: nothing has been solved since the problem began
    double Parameter = 0;
    int PeriodCount = 0;
    Array1<double> Series;
    Array1<double> Fitted;    // from FirstFittedPeriod
    Array1<double> FitError;  // series minus fitted value
    int FirstFittedPeriod = 1;
    double MeanSquareError = 0;
    double NextForecast = 0;    // of period n + 1, methods 1 and 2
    double TrendIntercept = 0;  // b0 of T = b0 + b1 t
    double TrendSlope = 0;      // b1
    int SeasonCount = 0;
    Array1<double> SeasonalIndex;  // averages 1 over the seasons
    int ZeroIndexCount = 0;        // above 0: there is nothing behind the indexes
    int ForecastCount = 0;
    Array1<double> Forecast;  // of the periods n + 1, n + 2, ..., trend methods
};

extern ForecastProblem Problem;
extern ForecastResult Result;

// ---- model and entry ----

void MakeArrays();  // an empty series; PeriodCount stays
bool Ask();         // asks for the number of periods; false: cancelled, nothing has changed
void Fill();        // puts the series on `frmProblem`
int CommitCell(int row, int column, std::string_view text);

// The count and the values in a row, and back (shell/module.h).
std::vector<double> Numbers();
void TakeNumbers(const std::vector<double>& numbers);

// Ask how many and change the series: new periods come at the end, old ones go from the beginning.
void AddTimePeriods();
void DeleteTimePeriods();

// ---- `frmForecastingModels` ----

// The fields are those of the problem.
struct MethodChoice {
    std::int16_t Method = 0;
    std::string Parameter = {};
    std::string ForecastCount = {};
};

extern ModalDialog<NoQuestion, MethodChoice> TheMethod;
bool AskMethod();  // into the problem; false: cancelled

// The labels of the two fields; an empty one has no field.
std::array<std::string, 2> FieldLabels(int method);
// Which values they take, where the labels do not say so.
std::array<std::string, 2> FieldRanges(int method);

// Its Solve button: which field is refused (0 or 1), after its message; -1: the method and its inputs are
// given.
int TakeMethod(int method, const std::array<std::string, 2>& fields, const BoxPointer& point = {});

// ---- engine ----

// What the engine passes through on its way, for whoever asks; only what the method has.
struct ForecastWork {
    double SumT = 0;  // of the trend line: sums over all periods
    double SumY = 0;
    double SumTT = 0;
    double SumTY = 0;
    double Sxy = 0;
    double Sxx = 0;
    double TrendIntercept = 0;  // before it is rounded
    double TrendSlope = 0;
    int FirstCentred = 0;  // periods with a centred average
    int LastCentred = 0;
    Array1<double> Centred;
    Array1<double> MeanRatio;  // of each season, before it is scaled
    double Factor = 0;         // that scales them
    Array1<double> Deseasonalized;
};

// "Division by zero" or "Overflow" where a divisor is 0: an average over all periods, a trend over one
// period, seasonal indexes that add up to 0.
ForecastResult Forecast(const ForecastProblem& problem, ForecastWork* work = nullptr);

}  // namespace VtForecasting
