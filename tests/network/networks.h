// Networks for the tests of this folder, put into the record as the entry rules would.
#pragma once

#include <vector>

#include "network/NetworkSolver.h"
#include "network/vtshrtrt.h"
#include "shell/module.h"
#include "shell/session.h"

struct TestArc {
    int start;
    int end;
    double length;
};

inline void GiveNetwork(int module, int nodes, const std::vector<TestArc>& arcs)
{
    Session = {};
    Session.CurrentModule = static_cast<std::int16_t>(module);
    Session.ProblemTitle = CurrentModule().Title;
    Network::Allocate();
    Network::Problem.NumNodes = static_cast<std::int16_t>(nodes);
    Network::Problem.NumArcs = static_cast<std::int16_t>(arcs.size());
    for (int k = 1; k <= Network::Problem.NumArcs; ++k) {
        const TestArc& arc = arcs[static_cast<std::size_t>(k) - 1];
        Network::Problem.ArcTable(Network::kStart, k) = arc.start;
        Network::Problem.ArcTable(Network::kEnd, k) = arc.end;
        Network::Problem.ArcTable(Network::kLength, k) = Network::ToThousandths(arc.length);
    }
}

inline void GiveRoute(int nodes, const std::vector<TestArc>& arcs, int start, int end)
{
    GiveNetwork(5, nodes, arcs);
    Network::Problem.StartNode = static_cast<std::int16_t>(start);
    Network::Problem.EndNode = static_cast<std::int16_t>(end);
}

inline void GiveTree(int nodes, const std::vector<TestArc>& arcs)
{
    GiveNetwork(6, nodes, arcs);
}

// Both keep the result.
inline void FindRoute()
{
    Network::Result = {};
    Network::Result = Network::FindShortestRoute(Network::Problem);
}

inline void FindTree()
{
    Network::Result = {};
    Network::Result = Network::FindSpanningTree(Network::Problem);
}

// clang-format off
//        2       7
//   O(1)--A(2)-------D(5)
//    | \    | \2   4/  | \5
//   4|  \5  |  \   /   |1  T(7)
//    |    `---B(3)-----E(6)/7
//   C(4)-1----'  \3----'
//     `-----4----------'
// The roads of a park (Hillier and Lieberman): from the gate to the wonder 13 miles, all joined by 14.
inline std::vector<TestArc> ParkRoads()
{
    return {{1, 2, 2}, {1, 3, 5}, {1, 4, 4}, {2, 3, 2}, {2, 5, 7}, {3, 4, 1},
            {3, 5, 4}, {3, 6, 3}, {4, 6, 4}, {5, 6, 1}, {5, 7, 5}, {6, 7, 7}};
}
