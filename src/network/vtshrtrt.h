// Shortest route and minimal spanning tree: the arc table, its entry rules, and both solvers.
//
// Lengths are kept as whole thousandths of the entered distance. Arcs have no direction.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "basic/variant.h"

namespace Network {

constexpr int kMostNodes = 20;
constexpr int kMostArcs = 40;
constexpr std::int32_t kNoArc = 100000000;  // the length between nodes that no arc joins

enum ArcRow : int { kStart = 1, kEnd = 2, kLength = 3 };                  // rows of the arc tables
enum LabelRow : int { kPermanent = 1, kDistance = 2, kPredecessor = 3 };  // rows of NodeLabel

struct NetworkProblem {
    std::int16_t NumNodes = 0;
    std::int16_t NumArcs = 0;
    // By arc: start node, end node (0: left empty), length. As large as the largest problem.
    Array2<std::int32_t> ArcTable;
    Variant DecimalPlaces = 0.0;  // of the lengths: 0, 1 or 2; it only grows
    std::int16_t StartNode = 0;   // of the route
    std::int16_t EndNode = 0;
};

struct NetworkResult {
    bool Reached = false;  // all nodes can be reached
    Array2<std::int32_t> RawDistance;

    // Shortest route.
    Array2<std::int32_t> NodeDistance;  // RawDistance with 0 on its diagonal
    Array2<std::int32_t> NodeLabel;
    std::vector<std::int32_t> RoutePath;  // from the node before the ending node back to the starting node

    // Spanning tree.
    std::vector<std::int32_t> TreeNodes;  // in the order of joining
    Array2<std::int32_t> TreeArcs;        // by tree arc: the node in the tree, the node that joined, length
    std::int32_t TreeLength = 0;
};

extern NetworkProblem Problem;
extern NetworkResult Result;

bool IsShortestRoute();  // otherwise the tree is asked for

// Empties the record and makes the arc table.
void Allocate();

void NewNetwork();   // asks for the two counts; DialogCancelled tells
void ShowNetwork();  // fills the grid: empty cells when NewProblem is true

// A cell of the grid, the fixed row and column being 0: a cell commit (shell/module.h). A blank cell stores
// 0.
int EnterCell(int row, int column, std::string_view text);

// A distance in thousandths; half of one rounds up. "Overflow" beyond 32 bits.
std::int32_t ToThousandths(double distance);

// Which answer of `frminputnodes` is refused, after its message (0: start, 1: end); -1: both are stored.
int TakeNodes(const std::string& start, const std::string& end);

// Dijkstra's method. Fills the labels of every node from StartNode, and the route when all can be reached.
// "Overflow" when distances add up beyond 32 bits.
void FindShortestRoute();

// Prim's method from node 1; stops at nothing, so a network in pieces is seen at the end.
void FindSpanningTree();

// Solves and shows the report, or warns that not all nodes can be reached.
void SolveNetwork();

}  // namespace Network
