// Branch and bound over the linear relaxations: depth first, the branch upwards first. A node is given up
// when it does not promise a gain of more than 1 over the best whole solution so far.
//
// Nodes are numbered as in a heap: the root is 1, the children of p are 2p (the variable at most ...) and
// 2p + 1 (at least ...). At a jump the state of the root is restored and the bounds on the way to the node
// are applied to it. "Subscript out of range" at the 50th branching, "Overflow" when a node number or a bound
// does not fit 16 bits.
#pragma once

namespace LP_Engine {

// The type lines into IntegerColumn and UpperBound. Before BuildColumns.
void ReadIntegerTypes();

// Leaves the best node's solution in State. False: a relaxation is unbounded. Without a whole solution it
// ends by the user's interrupt only.
[[nodiscard]] bool SearchIntegers();

}  // namespace LP_Engine
