// Transportation and assignment: the tableau and the rules by which its cells are entered.
//
// Both problems are one network from the start: origins (agents) are the nodes 1 to O, destinations (tasks)
// the nodes O + 1 to O + D, and the cell (i, j) is the arc (i - 1) * D + j from i to O + j. An assignment is
// the same network with a supply of 1 on each agent and a demand of 1 on each task.
//
// Supplies and demands are whole units, costs and revenues are per unit.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "basic/variant.h"

namespace Tableau {

constexpr int kMaxLines = 30;  // origins, destinations, agents, tasks: each

struct TableauProblem {
    std::int16_t NumOrigins = 0;
    std::int16_t NumDestinations = 0;
    std::int16_t NumNodes = 0;  // N, origins and destinations
    std::int16_t NumArcs = 0;   // M, cells of costs

    // By arc, 1 to M, with room for the N arcs that join the nodes to the solver's root.
    Array1<std::int32_t> TailNode;
    Array1<std::int16_t> HeadNode;
    Array1<Variant> ArcCost;

    // By node, 1 to N; N + 1 is the solver's root.
    Array1<std::int32_t> NodeSupply;  // a demand is negative
    Array1<std::int16_t> FirstArc;    // of an origin; 0 for the others

    Variant DecimalPlaces = 0.0;  // of the costs: 0, 1 or 2; it only grows while cells are entered
};

extern TableauProblem Problem;

// Which of the two problems is at hand.
bool IsTransportation();
bool IsAssignment();

// Makes the arrays afresh for the size, with zero costs and supplies (1 and -1 in an assignment).
// "Subscript out of range" for a negative count, "Overflow" when the arcs cannot be counted in 16 bits. Only
// a problem file asks for a size that the dialog would refuse; it is taken as it stands.
void Allocate(int origins, int destinations);

int ArcNumber(int origin, int destination);

// The tail and head of every arc.
void JoinArcs();

// Each takes the text of a cell and answers as a cell commit does (shell/module.h); a refused text has been
// told. A blank cell stores 0. EnterSupply and EnterDemand take the node.
int EnterCost(int origin, int destination, std::string_view text);
int EnterSupply(int node, std::string_view text);
int EnterDemand(int node, std::string_view text);

// A cell of the grid, the fixed row and column being 0: a cost, in a transportation also a supply (last
// column) or a demand (last row). The corner takes nothing.
int EnterCell(int row, int column, std::string_view text);

// Sizes, costs and quantities in a row, and back (shell/module.h).
std::vector<double> Numbers();
void TakeNumbers(const std::vector<double>& numbers);

}  // namespace Tableau
