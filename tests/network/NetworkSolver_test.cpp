// Both solvers: against all simple routes and all spanning trees of small networks, and a published network.
#include "network/NetworkSolver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "basic/error.h"
#include "network/networks.h"

namespace {

using Network::Problem;
using Network::Result;

// The lengths between nodes, by the last arc that joins them.
using Joined = std::map<std::pair<int, int>, int>;

Joined JoinedBy(const std::vector<TestArc>& arcs)
{
    Joined joined;
    for (const TestArc& arc : arcs) {
        joined[{arc.start, arc.end}] = Network::ToThousandths(arc.length);
        joined[{arc.end, arc.start}] = Network::ToThousandths(arc.length);
    }
    return joined;
}

// The shortest of all simple routes from `at` to `end`; -1: there is none.
int ShortestOfAll(const Joined& joined, int at, int end, std::set<int> visited)
{
    if (at == end) return 0;
    visited.insert(at);
    int best = -1;
    for (const auto& [ends, length] : joined) {
        if (ends.first != at || visited.contains(ends.second)) continue;
        const int rest = ShortestOfAll(joined, ends.second, end, visited);
        if (rest >= 0 && (best < 0 || length + rest < best)) best = length + rest;
    }
    return best;
}

std::vector<TestArc> RandomArcs(std::mt19937& random, int nodes, int arcs)
{
    std::uniform_int_distribution<int> node(1, nodes);
    std::uniform_int_distribution<int> length(0, 8);
    std::vector<TestArc> network;
    network.reserve(static_cast<std::size_t>(arcs));
    for (int k = 0; k < arcs; ++k)
        network.push_back({node(random), node(random), length(random) / 4.0});
    return network;
}

bool AllReached(const Joined& joined, int nodes, int start)
{
    for (int n = 1; n <= nodes; ++n)
        if (ShortestOfAll(joined, start, n, {}) < 0) return false;
    return true;
}

// The nodes of the route, start first.
std::vector<int> RouteNodes()
{
    std::vector<int> nodes(Result.RoutePath.rbegin(), Result.RoutePath.rend());
    if (Problem.StartNode != Problem.EndNode) nodes.push_back(Problem.EndNode);
    return nodes;
}

TEST(ShortestRoute, IsTheShortestOfAllSimpleRoutes)
{
    std::mt19937 random(41);
    int solved = 0;
    for (int round = 0; round < 1500; ++round) {
        const int nodes = 2 + round % 5;
        const auto arcs = RandomArcs(random, nodes, 1 + round % 9);
        const int start = 1 + round % nodes;
        const int end = 1 + (round / 7) % nodes;
        const Joined joined = JoinedBy(arcs);
        GiveRoute(nodes, arcs, start, end);
        FindRoute();
        ASSERT_EQ(Result.Reached, AllReached(joined, nodes, start)) << "round " << round;
        if (!Result.Reached) continue;
        ++solved;
        ASSERT_EQ(Result.NodeLabel(Network::kDistance, end), ShortestOfAll(joined, start, end, {}));
        const auto route = RouteNodes();
        EXPECT_EQ(route.front(), start);
        int length = 0;
        for (std::size_t i = 1; i < route.size(); ++i)
            length += joined.at({route[i - 1], route[i]});
        EXPECT_EQ(length, Result.NodeLabel(Network::kDistance, end)) << "round " << round;
    }
    EXPECT_GT(solved, 300);
}

// Kruskal's method: the arcs by length, those that close a cycle left out. -1: the network is in pieces.
int KruskalLength(const Joined& joined, int nodes)
{
    std::vector<std::pair<int, std::pair<int, int>>> arcs;
    for (const auto& [ends, length] : joined)
        if (ends.first < ends.second) arcs.emplace_back(length, ends);
    std::sort(arcs.begin(), arcs.end());
    std::vector<int> group(static_cast<std::size_t>(nodes) + 1);
    std::iota(group.begin(), group.end(), 0);
    int total = 0;
    int pieces = nodes;
    for (const auto& [length, ends] : arcs) {
        const int a = group[static_cast<std::size_t>(ends.first)];
        const int b = group[static_cast<std::size_t>(ends.second)];
        if (a == b) continue;
        std::replace(group.begin(), group.end(), a, b);
        total += length;
        --pieces;
    }
    return pieces == 1 ? total : -1;
}

TEST(SpanningTree, IsAsLongAsKruskals)
{
    std::mt19937 random(42);
    int solved = 0;
    for (int round = 0; round < 2000; ++round) {
        const int nodes = 2 + round % 8;
        const auto arcs = RandomArcs(random, nodes, 1 + round % 20);
        Joined joinedBy = JoinedBy(arcs);
        if (joinedBy.contains({1, 1})) continue;  // see below
        const int other = KruskalLength(joinedBy, nodes);
        GiveTree(nodes, arcs);
        FindTree();
        ASSERT_EQ(Result.Reached, other >= 0) << "round " << round;
        if (!Result.Reached) continue;
        ++solved;
        ASSERT_EQ(Result.TreeLength, other) << "round " << round;
        std::set<int> joined = {1};
        for (int k = 1; k < nodes; ++k) {
            EXPECT_TRUE(joined.contains(Result.TreeArcs(Network::kStart, k)));
            EXPECT_TRUE(joined.insert(Result.TreeArcs(Network::kEnd, k)).second);
        }
    }
    EXPECT_GT(solved, 500);
}

// Nothing keeps the first step from joining node 1 to itself, when that is its shortest arc; the last node is
// left out then. Loops at other nodes are forgotten before they could be taken.
TEST(SpanningTree, ALoopAtTheFirstNodeCountsAsAnArc)
{
    GiveTree(3, {{1, 1, 1}, {1, 2, 2}, {2, 3, 3}, {2, 2, 0}});
    FindTree();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.TreeLength, 3000);
    EXPECT_EQ(Result.TreeArcs(Network::kStart, 1), 1);
    EXPECT_EQ(Result.TreeArcs(Network::kEnd, 1), 1);
    GiveTree(3, {{1, 1, 3}, {1, 2, 2}, {2, 3, 3}, {2, 2, 0}});
    FindTree();
    EXPECT_EQ(Result.TreeLength, 5000);
}

// Node 1 joins itself and stands among the tree nodes twice; its arcs are compared once.
TEST(SpanningTree, ComparesTheArcsOfEachTreeNodeOnce)
{
    GiveTree(3, {{1, 1, 1}, {1, 2, 2}, {2, 3, 3}});
    std::vector<Network::JoinStep> steps;
    Network::FindSpanningTree(Network::Problem, &steps);
    std::vector<std::vector<int>> compared;
    for (const Network::JoinStep& step : steps) {
        compared.emplace_back();
        for (const Network::TreeArc& arc : step.Compared)
            compared.back().insert(compared.back().end(), {arc.Start, arc.End, arc.Length});
    }
    EXPECT_EQ(compared, (std::vector<std::vector<int>>{{1, 1, 1000, 1, 2, 2000}, {1, 2, 2000}}));
}

TEST(ShortestRoute, ThroughThePublishedParkIs13Miles)
{
    GiveRoute(7, ParkRoads(), 1, 7);
    FindRoute();
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 7), 13000);
    EXPECT_EQ(RouteNodes(), (std::vector<int>{1, 2, 3, 5, 7}));
}

TEST(SpanningTree, OfThePublishedParkHas14Miles)
{
    GiveTree(7, ParkRoads());
    FindTree();
    EXPECT_EQ(Result.TreeLength, 14000);
}

TEST(ShortestRoute, FromANodeToItselfHasOneEntry)
{
    GiveRoute(3, {{1, 2, 5}, {2, 3, 4}}, 2, 2);
    FindRoute();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.RoutePath, std::vector<std::int32_t>{2});
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 0);
}

TEST(ShortestRoute, ANodeWithoutArcsFailsEveryRun)
{
    GiveRoute(3, {{1, 2, 5}}, 1, 2);
    FindRoute();
    EXPECT_FALSE(Result.Reached);
    Network::Problem.StartNode = 3;
    FindRoute();
    EXPECT_FALSE(Result.Reached);
}

TEST(ShortestRoute, TheLaterOfTwoArcsCountsAlsoWhenItIsLonger)
{
    GiveRoute(2, {{1, 2, 5}, {2, 1, 9}}, 1, 2);
    FindRoute();
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 9000);
}

TEST(ShortestRoute, AnArcOfLengthZeroIsAnArc)
{
    GiveRoute(2, {{1, 2, 0.0004}}, 1, 2);
    FindRoute();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 0);
}

TEST(ShortestRoute, AnArcFromANodeToItselfIsOverwritten)
{
    GiveRoute(2, {{1, 1, 5}, {1, 2, 3}}, 1, 1);
    FindRoute();
    EXPECT_EQ(Result.NodeDistance(1, 1), 0);
}

// 1-2-4 and 1-3-4 are equally long: node 2 is made permanent first and keeps node 4.
TEST(ShortestRoute, TiesKeepTheEarlierPredecessor)
{
    GiveRoute(4, {{3, 4, 1}, {1, 3, 1}, {2, 4, 1}, {1, 2, 1}}, 1, 4);
    FindRoute();
    EXPECT_EQ(RouteNodes(), (std::vector<int>{1, 2, 4}));
}

// Only a file holds a length below zero. Node 2 is permanent with 1 when node 3 comes to 1 - 5 = -4, from
// where it would be -9.
TEST(ShortestRoute, APermanentNodeKeepsItsLabel)
{
    GiveRoute(4, {{1, 2, 1}, {2, 3, -5}, {1, 4, 9}}, 1, 3);
    FindRoute();
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 1000);
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 3), -4000);
    EXPECT_EQ(RouteNodes(), (std::vector<int>{1, 2, 3}));
}

TEST(ShortestRoute, AnArcAsLongAsNoArcIsNone)
{
    GiveRoute(2, {{1, 2, 100000}}, 1, 2);
    FindRoute();
    EXPECT_FALSE(Result.Reached);
    GiveRoute(2, {{1, 2, 99999.999}}, 1, 2);
    FindRoute();
    EXPECT_TRUE(Result.Reached);
    GiveRoute(2, {{1, 2, 200000}}, 1, 2);
    FindRoute();
    EXPECT_FALSE(Result.Reached);
}

TEST(ShortestRoute, DistancesBeyond32BitsOverflow)
{
    GiveRoute(3, {{1, 2, 1}, {2, 3, 2147483}}, 1, 3);
    EXPECT_THROW(FindRoute(), RuntimeError);
}

TEST(ShortestRoute, AnArcWithAnEmptyNodeIsLost)
{
    GiveRoute(2, {{1, 2, 3}, {0, 2, 1}, {1, 0, 1}}, 1, 2);
    FindRoute();
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 3000);
    EXPECT_EQ(RouteNodes(), (std::vector<int>{1, 2}));
}

TEST(SpanningTree, OfOneNodeIsEmpty)
{
    GiveTree(1, {});
    FindTree();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.TreeLength, 0);
}

TEST(SpanningTree, ANodeWithoutArcsFails)
{
    GiveTree(3, {{1, 2, 5}});
    FindTree();
    EXPECT_FALSE(Result.Reached);
    GiveTree(3, {{2, 3, 5}});
    FindTree();
    EXPECT_FALSE(Result.Reached);
}

// A square of equal sides: each node joins the earliest tree node that it can, the lowest number first.
TEST(SpanningTree, EqualLengthsJoinTheEarliestNodeAndTheLowestNumber)
{
    GiveTree(4, {{4, 3, 1}, {3, 2, 1}, {2, 1, 1}, {1, 4, 1}});
    FindTree();
    const std::vector<std::vector<int>> expected = {{1, 2}, {1, 4}, {2, 3}};
    for (int k = 1; k <= 3; ++k) {
        EXPECT_EQ(Result.TreeArcs(Network::kStart, k), expected[static_cast<std::size_t>(k) - 1][0]);
        EXPECT_EQ(Result.TreeArcs(Network::kEnd, k), expected[static_cast<std::size_t>(k) - 1][1]);
    }
}

TEST(NetworkSolvers, ANetworkOfThousandsOfNodesIsRefused)
{
    GiveTree(501, {{1, 2, 1}});
    EXPECT_THROW(FindTree(), RuntimeError);
    GiveTree(500, {{1, 2, 1}});
    EXPECT_NO_THROW(FindTree());
}

TEST(SpanningTree, TheLaterOfTwoArcsCounts)
{
    GiveTree(2, {{1, 2, 1}, {2, 1, 6}});
    FindTree();
    EXPECT_EQ(Result.TreeLength, 6000);
}

}  // namespace
