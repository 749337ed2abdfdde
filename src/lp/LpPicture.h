// What stands beside the report of a linear or integer program as pictures: the plan in the plane, how far
// the limits are used, the ranges, the values, the tree of the search. Also where the solve ended without a
// report.
#pragma once

#include <vector>

#include "lp/LP_Engine.h"
#include "picture/picture.h"

namespace LP_Engine {

std::vector<picture::Picture> Pictures(const LpResult& result);

// Ids of what steps can mark.
std::string WayId(int step);     // in "Plan": the corner behind that many steps
std::string NodeId(int number);  // in "Search"

}  // namespace LP_Engine
