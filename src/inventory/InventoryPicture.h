// Costs, stock and demand of a policy as pictures.
#pragma once

#include <vector>

#include "inventory/VtInvent.h"
#include "picture/picture.h"

namespace VtInvent {

// None for a problem that is not solved. Ids of the marks: "best", "highest", "lowest", "order 1",
// "quantity", and "category k".
std::vector<picture::Picture> Pictures(const InventoryProblem& problem, const InventoryResult& result);

}  // namespace VtInvent
