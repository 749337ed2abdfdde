// Shortest route by Dijkstra's method, minimal spanning tree by Prim's.
//
// Given    the arcs, without direction; of two arcs between the same nodes the later one counts. An arc with
//          an empty node (0) is lost. StartNode and EndNode of the route
// Answers  the route or tree, when all nodes can be reached: one that cannot fails any route and the tree
// Fails    "Overflow" when lengths add up beyond 32 bits
//
// All lengths are thousandths of the entered distance. Nodes are counted from 1; row and column 0 of the
// tables are there for arcs that are lost.
#pragma once

#include <cstdint>
#include <vector>

#include "basic/array.h"
#include "network/vtshrtrt.h"

namespace Network {

constexpr std::int32_t kNoArc = 100000000;  // the length between nodes that no arc joins

enum LabelRow : int { kPermanent = 1, kDistance = 2, kPredecessor = 3 };  // rows of NodeLabel

struct NetworkResult {
    bool Solved = false;   // there is an answer, be it that nodes cannot be reached
    bool Reached = false;  // all nodes can be reached

    // Shortest route.
    Array2<std::int32_t> NodeDistance;  // by pair of nodes, 0 on its diagonal
    Array2<std::int32_t> NodeLabel;
    std::vector<std::int32_t> RoutePath;  // from the node before the ending node back to the starting node

    // Spanning tree.
    std::vector<std::int32_t> TreeNodes;  // in the order of joining, node 1 first
    Array2<std::int32_t> TreeArcs;        // by tree arc: the node in the tree, the node that joined, length
    std::int32_t TreeLength = 0;
};

// The last one.
extern NetworkResult Result;

// A node that became permanent, and the labels behind it.
struct LabelStep {
    int Node = 0;
    Array2<std::int32_t> NodeLabel = {};
};

// From a node of the tree to one outside of it.
struct TreeArc {
    std::int32_t Start = 0;
    std::int32_t End = 0;
    std::int32_t Length = kNoArc;
};

struct JoinStep {
    TreeArc Joined = {};  // its length is kNoArc where nothing can join
    std::vector<TreeArc> Compared = {};
};

// Labels every node from StartNode; the route is read back when all of them can be reached. Whoever watches
// is told each node that becomes permanent.
NetworkResult FindShortestRoute(const NetworkProblem& problem, std::vector<LabelStep>* trace = nullptr);

// Starts from node 1 and never stops early, so that a network in pieces is seen at the end.
NetworkResult FindSpanningTree(const NetworkProblem& problem, std::vector<JoinStep>* trace = nullptr);

}  // namespace Network
