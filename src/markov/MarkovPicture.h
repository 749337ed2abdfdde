// What a chain looks like: its states and arrows, its matrix where the arrows are many, the way to its end.
#pragma once

#include <vector>

#include "markov/Markov.h"
#include "picture/picture.h"

namespace Markov {

// "Matrix" (more than 24 arcs), "States", "Absorption" (states that absorb), "Course". None before a solve.
std::vector<picture::Picture> Pictures(const MarkovProblem& problem, const MarkovResult& result);

}  // namespace Markov
