// Transportation and assignment solver: the primal network simplex method on a rooted spanning tree.
//
// There are no dummy lines: a root node takes the difference of supply and demand, and every node starts
// joined to it by an arc of its own, M + i for node i. Arcs from origins to the root cost nothing, arcs from
// the root to destinations more than any route. What flows on them at the end is unused supply and
// unsatisfied demand.
//
// Reads   Problem        the tableau; supplies are not negative, demands not positive
//         MaximizeFlag   "YES" for revenues
// Leaves  Result         the optimal tree
//         Problem        the entries of the N arcs to the root in TailNode, HeadNode and ArcCap, and the
//                        root's entry of NodeSupply
// Fails   never: the root absorbs any imbalance, and the flows are bounded by the totals
//
// Costs are compared in whole units of 1/100000. When every cost is 0, nothing is worth shipping and all flow
// stays on the arcs to the root.
#pragma once

#include <cstdint>

#include "basic/array.h"

namespace Tableau {

struct TableauResult {
    // By node: the arc that joins it to its parent, positive when it runs from the node to its parent, and
    // what flows on it, never negative.
    Array1<std::int32_t> BasicArc;
    Array1<std::int32_t> BasicFlow;
    std::int32_t TotalSupply = 0;
    std::int32_t TotalDemand = 0;
};

extern TableauResult Result;

void TaSolve();

}  // namespace Tableau
