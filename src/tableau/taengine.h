// Transportation and assignment solver: the primal network simplex method on a rooted spanning tree.
//
// There are no dummy lines: a root node takes the difference of supply and demand, and every node starts
// joined to it by an arc of its own, M + i for node i. Arcs from origins to the root cost nothing, arcs from
// the root to destinations more than any route. What flows on them at the end is unused supply and
// unsatisfied demand.
//
// Given   the tableau; supplies are not negative, demands not positive
// Answers the optimal tree
// Fails   "Overflow" when supplies or demands add up beyond 32 bits; else never: the root absorbs any
//         imbalance, and the flows are bounded by the totals
//
// Costs are compared in whole units of 1/100000. When every cost is 0, nothing is worth shipping and all flow
// stays on the arcs to the root.
#pragma once

#include <cstdint>
#include <vector>

#include "basic/array.h"
#include "tableau/VtTanda.h"

namespace Tableau {

struct TableauResult {
    bool Solved = false;
    bool Maximize = false;  // the costs are revenues
    // By node: the arc that joins it to its parent, positive when it runs from the node to its parent, and
    // what flows on it, never negative.
    Array1<std::int32_t> BasicArc;
    Array1<std::int32_t> BasicFlow;
    std::int32_t TotalSupply = 0;
    std::int32_t TotalDemand = 0;
};

// The last one.
extern TableauResult Result;

// ---- a run that is watched ----

constexpr double kCostScale = 100000;  // scaled costs and potentials are whole numbers of 1 / this

struct TreeState {
    Array1<std::int32_t> BasicArc;  // as in the result
    Array1<std::int32_t> BasicFlow;
    Array1<double> NodePotential;  // scaled; by the sense of the run, revenues are negative costs
};

struct CycleArc {
    int Arc = 0;
    int Sign = 0;           // 1: gains the step, -1: loses it
    std::int32_t Flow = 0;  // before the step
};

struct Change {
    int EnteringArc = 0;
    double Gain = 0;   // scaled, a unit
    int RunnerUp = 0;  // 0: no other arc would gain
    double RunnerUpGain = 0;
    int OthersWithGain = 0;
    std::vector<CycleArc> Cycle;  // along the entering arc, which is first
    std::int32_t Step = 0;
    int LeavingArc = 0;
    TreeState After;
};

struct Trace {
    TreeState First;
    std::vector<Change> Changes;
};

// The trace is filled when there is one.
TableauResult TaSolve(const TableauProblem& problem, bool maximize, Trace* trace = nullptr);

// The ends of an arc, those that join the nodes to the root (N + 1) included.
int TailOf(const TableauProblem& problem, int arc);
int HeadOf(const TableauProblem& problem, int arc);

}  // namespace Tableau
