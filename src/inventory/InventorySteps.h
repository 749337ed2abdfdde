// How a policy is found: each formula with its textbook name, the numbers put in, the result.
#pragma once

#include <vector>

#include "inventory/VtInvent.h"
#include "picture/picture.h"

namespace VtInvent {

std::vector<picture::Step> Steps(const InventoryProblem& problem, const InventoryResult& result);

}  // namespace VtInvent
