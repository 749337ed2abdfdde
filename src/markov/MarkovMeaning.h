// What the shares and chances of a chain say, and where they mislead.
#pragma once

#include <vector>

#include "markov/Markov.h"
#include "picture/picture.h"

namespace Markov {

// At most 12 sentences; none before a solve.
std::vector<picture::Sentence> Meaning(const MarkovProblem& problem, const MarkovResult& result);

}  // namespace Markov
