// What the characteristics of a waiting line say, and where they mislead.
#pragma once

#include <vector>

#include "picture/picture.h"
#include "waiting/VtWait.h"

namespace VtWait {

// At most 12 sentences; none before a solve.
std::vector<picture::Sentence> Meaning(const WaitingProblem& problem, const WaitingResult& result);

}  // namespace VtWait
