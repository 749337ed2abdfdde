// How the forecasts come about, sum by sum and period by period.
#pragma once

#include <vector>

#include "forecasting/VtForecasting.h"
#include "picture/picture.h"

namespace VtForecasting {

// Ends with the proof that the squared errors add up. None before a solve.
std::vector<picture::Step> Steps(const ForecastProblem& problem, const ForecastResult& result);

}  // namespace VtForecasting
