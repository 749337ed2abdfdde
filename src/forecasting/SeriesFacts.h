// What pictures, steps and sentences of forecasts have in common: figures in the report's decimals, and what
// follows from the result without another forecast.
#pragma once

#include <string>
#include <vector>

#include "forecasting/VtForecasting.h"

namespace VtForecasting {

bool IsTrendMethod(const ForecastResult& result);
bool HasForecasts(const ForecastResult& result);  // false where an index of 0 ended the method

// The forecasts behind the last period, those of period n + 1 first.
std::vector<double> ForecastsOf(const ForecastResult& result);

double RootMeanSquareError(const ForecastResult& result);
double MeanError(const ForecastResult& result);  // of the fitted periods; 0 without one
int FittedPeriods(const ForecastResult& result);

int SeasonOf(const ForecastResult& result, int period);
double IndexOf(const ForecastResult& result, int period);

std::string SeriesText(const ForecastProblem& problem, double value);  // a value of the series
std::string ForecastText(double value);
std::string SignedText(double error);  // "+4.00", "-3.00", "0.00"
std::string IndexText(double index);

}  // namespace VtForecasting
