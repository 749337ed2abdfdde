// What a policy says, in sentences.
#pragma once

#include <vector>

#include "inventory/VtInvent.h"
#include "picture/picture.h"

namespace VtInvent {

std::vector<picture::Sentence> Meaning(const InventoryProblem& problem, const InventoryResult& result);

}  // namespace VtInvent
