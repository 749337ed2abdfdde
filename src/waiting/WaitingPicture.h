// What a waiting line looks like: how many units there are, how the line grows with the load, what channels
// cost or lose.
#pragma once

#include <vector>

#include "picture/picture.h"
#include "waiting/VtWait.h"

namespace VtWait {

// "Chance of n units" (the models that have such chances), "Wait" (one channel, arbitrary or constant
// service), "Cost" (economic analysis, where the number of channels is open), "Lost" (no waiting). None
// before a solve.
std::vector<picture::Picture> Pictures(const WaitingProblem& problem, const WaitingResult& result);

}  // namespace VtWait
