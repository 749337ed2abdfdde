// How the repetition came to its result, step by step.
#pragma once

#include <vector>

#include "markov/Markov.h"
#include "picture/picture.h"

namespace Markov {

// Which states absorb, each step of each repetition, the check by elimination, the proof. None before a
// solve.
std::vector<picture::Step> Steps(const MarkovProblem& problem, const MarkovResult& result);

}  // namespace Markov
