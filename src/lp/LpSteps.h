// How a linear or integer program was solved, step by step: the standard form, each change of the basis,
// prices and ranges; for an integer program the linear optimum and each node of the search. Told by solving
// once more.
#pragma once

#include <vector>

#include "lp/LP_Engine.h"
#include "picture/picture.h"

namespace LP_Engine {

std::vector<picture::Step> Steps(const LpResult& result);

}  // namespace LP_Engine
