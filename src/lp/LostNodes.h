// Nodes of an integer search that the method gave up as without a plan although there is one: its repair
// starts from the root's basis and may find no column there. Each node's linear program is solved on its own.
#pragma once

#include <vector>

#include "lp/LP_Engine.h"

namespace LP_Engine {

struct LostNode {
    int Record = 0;
    // Some plan there is better than the best whole one by more than the search's gain.
    bool IsBetter = false;
};

std::vector<LostNode> LostNodes(const LpResult& result);

}  // namespace LP_Engine
