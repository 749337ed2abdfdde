// Branch and bound over the linear relaxations: depth first, the branch upwards first. A node is given up
// when it does not promise a gain of more than 1 over the best whole solution so far.
//
// Nodes are numbered as in a heap: the root is 1, the children of p are 2p (the variable at most ...) and
// 2p + 1 (at least ...). At a jump the basis of the root is restored and the bounds on the way to the node
// are applied to it. "Subscript out of range" at the 50th branching, "Overflow" when a node number or a bound
// does not fit 16 bits.
#pragma once

#include "lp/Simplex.h"

namespace LP_Engine {

// The type lines of the problem into IntegerColumn and UpperBound. Before BuildColumns.
void ReadIntegerTypes(LpResult& at);

// Leaves the best node's solution in the tables. False: a relaxation is unbounded. Without a whole solution
// it ends by the user's interrupt only.
[[nodiscard]] bool SearchIntegers(LpResult& at, Simplex& simplex, Recorder* recorder);

}  // namespace LP_Engine
