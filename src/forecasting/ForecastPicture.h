// What a forecast looks like: the series with what was fitted to it, its errors, its seasons.
#pragma once

#include <vector>

#include "forecasting/VtForecasting.h"
#include "picture/picture.h"

namespace VtForecasting {

// "Series", "Errors" (where something was fitted), "Seasons" (trend and seasonal). None before a solve.
std::vector<picture::Picture> Pictures(const ForecastProblem& problem, const ForecastResult& result);

}  // namespace VtForecasting
