// What forecasts say, and where they mislead.
#pragma once

#include <vector>

#include "forecasting/VtForecasting.h"
#include "picture/picture.h"

namespace VtForecasting {

// At most 12 sentences; none before a solve.
std::vector<picture::Sentence> Meaning(const ForecastProblem& problem, const ForecastResult& result);

}  // namespace VtForecasting
