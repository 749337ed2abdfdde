// How the characteristics of a waiting line come about, formula by formula.
#pragma once

#include <vector>

#include "picture/picture.h"
#include "waiting/VtWait.h"

namespace VtWait {

// Each formula with its name, the figures put in, the result; then the chances, the cost and the proof. None
// before a solve.
std::vector<picture::Step> Steps(const WaitingProblem& problem, const WaitingResult& result);

}  // namespace VtWait
