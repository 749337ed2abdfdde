// The engine of the inventory models: a policy from a problem.
#pragma once

#include "basic/array.h"
#include "inventory/VtInvent.h"

namespace VtInvent {

// Nothing for a model that does not exist. Run-time errors where a division or a root fails, as with a
// production rate not above the demand.
InventoryResult Solve(const InventoryProblem& problem);

// What the category's price alone would ask for, before its minimum is looked at.
double LotSizeOf(const InventoryProblem& problem, int category);

// Row i, 1 to 310: the area under the standard normal curve between 0 and (i - 1) / 100. Row 0 is 0.
const Array1<double>& NormalAreaTable();

// The factor of a safety stock for this chance of running out.
AreaLookup SafetyFactor(double stockoutProbability);

}  // namespace VtInvent
