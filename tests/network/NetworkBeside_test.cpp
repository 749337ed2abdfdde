// Pictures, steps and meaning of both networks: against all simple routes and all spanning trees of small
// ones, and by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "network/NetworkFacts.h"
#include "network/NetworkMeaning.h"
#include "network/NetworkPicture.h"
#include "network/NetworkSteps.h"
#include "network/module.h"
#include "network/networks.h"
#include "support/sound_pictures.h"

namespace {

using Network::Problem;
using Network::Result;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Texts = std::vector<std::string>;

const picture::Diagram& DiagramOf(const std::vector<picture::Picture>& pictures)
{
    return std::get<picture::Diagram>(pictures.at(0).Body);
}

Texts RouteTexts()
{
    return TextsOf(Network::RouteMeaning(Problem, Result));
}

Texts TreeTexts()
{
    return TextsOf(Network::TreeMeaning(Problem, Result));
}

void Route(int nodes, const std::vector<TestArc>& arcs, int start, int end)
{
    GiveRoute(nodes, arcs, start, end);
    FindRoute();
}

void Tree(int nodes, const std::vector<TestArc>& arcs)
{
    GiveTree(nodes, arcs);
    FindTree();
}

std::vector<TestArc> RandomArcs(std::mt19937& random, int nodes, int arcs)
{
    std::uniform_int_distribution<int> node(1, nodes);
    std::uniform_int_distribution<int> length(0, 5);
    std::vector<TestArc> network;
    network.reserve(static_cast<std::size_t>(arcs));
    for (int k = 0; k < arcs; ++k)
        network.push_back({node(random), node(random), length(random) / 2.0});
    return network;
}

// By both orders of the ends, the last arc's length in thousandths.
using Joined = std::map<std::pair<int, int>, int>;

Joined JoinedBy(const std::vector<TestArc>& arcs)
{
    Joined joined;
    for (const TestArc& arc : arcs)
        if (arc.start != arc.end)
            joined[{arc.start, arc.end}] = joined[{arc.end, arc.start}] = Network::ToThousandths(arc.length);
    return joined;
}

// Counts the simple routes of this length.
int RoutesOfLength(const Joined& joined, int at, int end, int length, std::set<int> visited)
{
    if (length < 0) return 0;
    if (at == end) return length == 0 ? 1 : 0;
    visited.insert(at);
    int count = 0;
    for (const auto& [ends, step] : joined)
        if (ends.first == at && !visited.contains(ends.second))
            count += RoutesOfLength(joined, ends.second, end, length - step, visited);
    return count;
}

// ---- other answers ----

TEST(NetworkFacts, AnotherRouteIsToldExactlyWhereThereIsOne)
{
    std::mt19937 random(71);
    int several = 0;
    int one = 0;
    for (int round = 0; round < 2500; ++round) {
        const int nodes = 2 + round % 5;
        const auto arcs = RandomArcs(random, nodes, nodes + round % 6);
        const int start = 1 + round % nodes;
        const int end = 1 + (round / 5) % nodes;
        Route(nodes, arcs, start, end);
        if (!Result.Reached || start == end) continue;
        const int count =
            RoutesOfLength(JoinedBy(arcs), start, end, Result.NodeLabel(Network::kDistance, end), {});
        ASSERT_GE(count, 1);
        ASSERT_EQ(Network::OtherRoute(Problem, Result).has_value(), count > 1) << "round " << round;
        ASSERT_EQ(testing::Value(RouteTexts(), Contains(HasSubstr("Another route is as short"))), count > 1);
        (count > 1 ? several : one) += 1;
    }
    EXPECT_GT(several, 50);
    EXPECT_GT(one, 300);
}

// All sets of nodes - 1 links that join everything, and the shortest of them.
struct AllTrees {
    std::vector<std::set<std::pair<int, int>>> Shortest;
    int Length = -1;
};

bool JoinAll(const std::vector<std::pair<int, int>>& links, int nodes)
{
    std::vector<int> group(static_cast<std::size_t>(nodes) + 1);
    std::iota(group.begin(), group.end(), 0);
    int pieces = nodes;
    for (const auto& [a, b] : links) {
        const int from = group[static_cast<std::size_t>(a)];
        const int to = group[static_cast<std::size_t>(b)];
        if (from == to) return false;
        std::replace(group.begin(), group.end(), from, to);
        --pieces;
    }
    return pieces == 1;
}

AllTrees TreesOf(const Joined& joined, int nodes)
{
    std::vector<std::pair<std::pair<int, int>, int>> links;
    for (const auto& link : joined)
        if (link.first.first < link.first.second) links.emplace_back(link);
    AllTrees trees;
    for (unsigned chosen = 0; chosen < (1U << links.size()); ++chosen) {
        std::vector<std::pair<int, int>> arcs;
        int length = 0;
        for (std::size_t k = 0; k < links.size(); ++k)
            if ((chosen >> k & 1U) != 0) {
                arcs.push_back(links[k].first);
                length += links[k].second;
            }
        if (static_cast<int>(arcs.size()) != nodes - 1 || !JoinAll(arcs, nodes)) continue;
        if (trees.Length < 0 || length < trees.Length) trees = {{}, length};
        if (length == trees.Length) trees.Shortest.emplace_back(arcs.begin(), arcs.end());
    }
    return trees;
}

TEST(NetworkFacts, SubstitutesAreTheArcsOfTheOtherShortestTrees)
{
    std::mt19937 random(72);
    int several = 0;
    for (int round = 0; round < 600; ++round) {
        const int nodes = 2 + round % 5;
        auto arcs = RandomArcs(random, nodes, nodes + round % 5);
        std::erase_if(arcs, [](const TestArc& arc) { return arc.start == arc.end; });
        Tree(nodes, arcs);
        if (!Result.Reached) continue;
        const AllTrees trees = TreesOf(JoinedBy(arcs), nodes);
        ASSERT_EQ(Result.TreeLength, trees.Length);
        std::set<std::pair<int, int>> expected;
        for (const auto& tree : trees.Shortest)
            expected.insert(tree.begin(), tree.end());
        std::set<std::pair<int, int>> told;
        for (const auto& arc : Network::JoinedArcs(Problem, Result))
            told.insert({std::min(arc.Start, arc.End), std::max(arc.Start, arc.End)});
        ASSERT_EQ(told.size(), static_cast<std::size_t>(nodes) - 1);
        for (const auto& other : Network::SubstitutesOf(Problem, Result)) {
            ASSERT_TRUE(told.insert({other.Other.A, other.Other.B}).second);
            ASSERT_EQ(other.Other.Length, other.Tree.Length);
        }
        ASSERT_EQ(told, expected) << "round " << round;
        several += trees.Shortest.size() > 1 ? 1 : 0;
    }
    EXPECT_GT(several, 50);
}

TEST(NetworkFacts, PiecesAreWhatHangsTogether)
{
    GiveTree(6, {{2, 5, 1}, {3, 6, 1}, {1, 4, 1}, {4, 4, 1}});
    EXPECT_THAT(Network::PiecesOf(Problem, 5),
                ElementsAre(std::vector{2, 5}, std::vector{1, 4}, std::vector{3, 6}));
}

TEST(NetworkFacts, TheLastOfSeveralArcsIsTheLink)
{
    GiveTree(3, {{2, 1, 5}, {1, 2, 9}, {3, 3, 1}, {0, 2, 4}, {2, 1, 7}});
    const auto links = Network::LinksOf(Problem);
    ASSERT_EQ(links.size(), 1U);
    EXPECT_EQ(links[0].A, 1);
    EXPECT_EQ(links[0].B, 2);
    EXPECT_EQ(links[0].Length, 7000);
    EXPECT_EQ(links[0].Number, 5);
    EXPECT_THAT(links[0].Replaced, ElementsAre(1, 2));
    EXPECT_THAT(Network::LoopsOf(Problem), ElementsAre(3));
    EXPECT_THAT(Network::LostArcs(Problem), ElementsAre(4));
}

// ---- the route ----

TEST(RoutePicture, DrawsTheRouteStrongAndTheLabelsAtMediumWeight)
{
    Route(4, {{1, 2, 2}, {4, 2, 3.5}, {1, 3, 1}, {3, 4, 6}, {2, 3, 4}}, 1, 4);
    Problem.DecimalPlaces = 1.0;
    const auto pictures = Network::RoutePictures(Problem, Result);
    ASSERT_EQ(pictures.size(), 1U);
    EXPECT_THAT(Listing(pictures[0], 1, 1),
                ElementsAre("picture 1 of 1 diagram \"Network\"",    //
                            "node circle chosen \"1\" \"1\\n0.0\"",  //
                            "node circle chosen \"2\" \"2\\n2.0\"",  //
                            "node circle plain \"3\" \"3\\n1.0\"",   //
                            "node circle chosen \"4\" \"4\\n5.5\"",  //
                            "arc chosen \"1\" \"2\" 2 \"2.0\"",      //
                            "edge plain \"1\" \"3\" 1 \"1.0\"",      //
                            "edge spare \"2\" \"3\" 4 \"4.0\"",      //
                            "arc chosen \"2\" \"4\" 3.5 \"3.5\"",    //
                            "edge spare \"3\" \"4\" 6 \"6.0\"",      //
                            "note \"The shortest route from 1 to 4 is 1, 2 and 4 with a length of 5.5.\"",
                            "note \"Leg by leg: 1 to 2 brings it to 2.0 and 2 to 4 brings it to 5.5.\""));
}

TEST(RoutePicture, ARouteAgainstTheNumbersHasItsHeadsTheOtherWay)
{
    Route(3, {{1, 2, 2}, {2, 3, 3}}, 3, 1);
    const auto pictures = Network::RoutePictures(Problem, Result);
    EXPECT_EQ(DiagramOf(pictures).Arcs[0].From, "2");
    EXPECT_EQ(DiagramOf(pictures).Arcs[0].To, "1");
    EXPECT_EQ(DiagramOf(pictures).Start, "3");
}

TEST(RoutePicture, WhatCannotBeReachedStandsApart)
{
    Route(5, {{1, 2, 2}, {4, 5, 3}}, 1, 2);
    const auto pictures = Network::RoutePictures(Problem, Result);
    ASSERT_EQ(DiagramOf(pictures).Frames.size(), 2U);
    EXPECT_THAT(DiagramOf(pictures).Frames[0].Ids, ElementsAre("3"));
    EXPECT_THAT(DiagramOf(pictures).Frames[1].Ids, ElementsAre("4", "5"));
    EXPECT_EQ(pictures[0].Notes[0],
              "Not all nodes can be reached from node 1: nodes 3, 4 and 5 lie apart, in 2 pieces.");
    EXPECT_EQ(DiagramOf(pictures).Nodes[2].As, picture::Role::Infeasible);
    EXPECT_EQ(DiagramOf(pictures).Nodes[1].As, picture::Role::Plain);
    Route(3, {{1, 2, 2}}, 1, 2);
    EXPECT_EQ(Network::RoutePictures(Problem, Result)[0].Notes[0],
              "Not all nodes can be reached from node 1: node 3 lies apart.");
}

TEST(RoutePicture, TellsWhatIsNotDrawn)
{
    Route(2, {{1, 2, 5}, {2, 1, 9}, {1, 1, 3}, {0, 1, 2}}, 1, 2);
    EXPECT_THAT(
        Network::RoutePictures(Problem, Result)[0].Notes,
        ElementsAre("The shortest route from 1 to 2 is 1 and 2 with a length of 9.",
                    "Arc 1 between 1 and 2, with 5, is replaced by arc 2, with 9.",
                    "Arc 3 joins a node to itself and is not drawn.", "Arc 4 has an empty end and is lost."));
}

TEST(RouteSteps, LabelNodeByNode)
{
    Route(4, {{1, 2, 2}, {1, 3, 1}, {3, 2, 1}, {2, 4, 3}}, 1, 4);
    const auto steps = Network::RouteSteps(Problem, Result);
    ASSERT_EQ(steps.size(), 5U);
    EXPECT_THAT(steps[0].Figures, ElementsAre("node  distance  from      label",  //
                                              "1            0     1  permanent",  //
                                              "2            2     1  temporary",  //
                                              "3            1     1  temporary",  //
                                              "4         none  none  temporary"));
    EXPECT_EQ(steps[1].Heading, "Node 3 becomes permanent with 1");
    EXPECT_EQ(steps[1].Why, "1 is the smallest temporary label; the next is 2 at node 2.");
    EXPECT_THAT(steps[1].Arithmetic, ElementsAre("node 2: 1 + 1 = 2 is not less than 2"));
    EXPECT_THAT(steps[1].Marks, ElementsAre("3", "1-3"));
    EXPECT_EQ(steps[2].Heading, "Node 2 becomes permanent with 2");
    EXPECT_EQ(steps[2].Why, "2 is the only temporary label.");
    EXPECT_THAT(steps[2].Figures, ElementsAre("node  distance  from      label",  //
                                              "2            2     1  permanent",  //
                                              "4            5     2  temporary"));
    EXPECT_THAT(steps[4].Figures, ElementsAre("from  to  length  so far",  //
                                              "1      2       2       2",  //
                                              "2      4       3       5",  //
                                              "2 + 3 = 5"));
}

TEST(RouteSteps, ATieGoesToTheLowerNumber)
{
    Route(3, {{1, 2, 2}, {1, 3, 2}}, 1, 3);
    EXPECT_EQ(Network::RouteSteps(Problem, Result)[1].Why,
              "2 is the smallest temporary label; node 3 has the same, and the lower number goes first.");
}

TEST(RouteSteps, EndWhereNothingCanBeReached)
{
    Route(4, {{1, 2, 2}}, 1, 2);
    const auto steps = Network::RouteSteps(Problem, Result);
    EXPECT_EQ(steps.back().Heading, "No node can be reached any more");
    EXPECT_THAT(steps.back().Figures, ElementsAre("without a label: 3 and 4"));
}

TEST(RouteMeaning, TellsTheRoute)
{
    Route(7, ParkRoads(), 1, 7);
    EXPECT_THAT(RouteTexts(),
                ElementsAre("The shortest route from 1 to 7 is 1, 2, 3, 5, 7 with a length of 13.",
                            "Another route is as short: it reaches 5 from 6."));
    Route(2, {{1, 2, 5}}, 2, 2);
    EXPECT_THAT(RouteTexts(), ElementsAre("Start and end are the same node, 2: the length is 0."));
    Problem.DecimalPlaces = 1;
    EXPECT_THAT(RouteTexts(), ElementsAre("Start and end are the same node, 2: the length is 0.0."));
    EXPECT_EQ(Network::RouteSteps(Problem, Result)[0].Heading, "Node 2 starts with 0.0");
}

TEST(RouteMeaning, TellsWhyThereIsNone)
{
    Route(4, {{1, 2, 5}}, 1, 2);
    EXPECT_THAT(RouteTexts(),
                ElementsAre("No route is given: nodes 3 and 4 cannot be reached from node 1.",
                            "Node 2 could be reached, with a length of 5; the method gives no route as long "
                            "as any node is out of reach."));
    Route(4, {{1, 2, 5}}, 1, 3);
    EXPECT_EQ(RouteTexts().size(), 1U);
    Route(2, {}, 1, 2);
    EXPECT_THAT(RouteTexts(), ElementsAre("No route is given: node 2 cannot be reached from node 1."));
}

// 100,000 stands for no arc: neither one arc nor a way of 10 and 99,999 may be as long.
TEST(RouteMeaning, LengthsThatCountAsNoneAreTold)
{
    Route(3, {{1, 2, 10}, {2, 3, 100000}}, 1, 3);
    EXPECT_THAT(RouteTexts(), ElementsAre("No route is given: no way from node 1 to node 3 is shorter than "
                                          "100,000, and longer ones do not count.",
                                          "Arc 2 has a length of 100,000 or more and counts as no arc."));
    Route(3, {{1, 2, 10}, {2, 3, 99999}}, 1, 2);
    EXPECT_THAT(RouteTexts(), ElementsAre("No route is given: no way from node 1 to node 3 is shorter than "
                                          "100,000, and longer ones do not count.",
                                          "Node 2 could be reached, with a length of 10; the method gives no "
                                          "route as long as any node is out of reach."));
    Route(3, {{1, 2, 10}, {2, 3, 99989}}, 1, 3);
    EXPECT_THAT(RouteTexts(),
                ElementsAre("The shortest route from 1 to 3 is 1, 2, 3 with a length of 99999."));
    Route(2, {{1, 2, 100000}, {2, 1, 200000}, {1, 2, 5}}, 1, 2);
    EXPECT_THAT(RouteTexts(),
                ElementsAre("The shortest route from 1 to 2 is 1, 2 with a length of 5.",
                            "Arcs 1 and 2 have a length of 100,000 or more and count as no arc."));
}

TEST(RouteMeaning, ALongerLastArcIsACaution)
{
    Route(2, {{1, 2, 5}, {2, 1, 9}}, 1, 2);
    EXPECT_THAT(RouteTexts(),
                Contains("Two arcs join 1 and 2; the one entered last, with 9, is used, although "
                         "the other is shorter."));
    Route(2, {{1, 2, 9}, {2, 1, 9}}, 1, 2);
    EXPECT_EQ(RouteTexts().size(), 1U);
    Route(2, {{1, 2, 5}, {2, 1, 9}, {1, 2, 6}}, 1, 2);
    EXPECT_THAT(RouteTexts(), Contains("Three arcs join 1 and 2; the one entered last, with 6, is used, "
                                       "although another is shorter."));
}

TEST(RouteMeaning, ManySuchPairsAreCounted)
{
    std::vector<TestArc> arcs;
    for (int n = 1; n < 6; ++n) {
        arcs.push_back({n, n + 1, 1});
        arcs.push_back({n, n + 1, 2});
    }
    Route(6, arcs, 1, 6);
    EXPECT_THAT(RouteTexts(), Contains("The same holds for 2 more pairs of nodes."));
    EXPECT_EQ(RouteTexts().size(), 5U);
    arcs.resize(6);
    Route(4, arcs, 1, 4);
    EXPECT_THAT(RouteTexts(), Not(Contains(HasSubstr("The same holds"))));
}

TEST(RouteMeaning, HiddenDecimalsAndLostArcsAreCautions)
{
    Route(2, {{1, 2, 2.037}}, 1, 2);
    Problem.DecimalPlaces = 2.0;
    EXPECT_THAT(RouteTexts(), Contains("Lengths are kept to three decimals and shown with 2: what is shown "
                                       "need not add up."));
    Route(2, {{1, 2, 2.03}, {0, 2, 1}}, 1, 2);
    Problem.DecimalPlaces = 2.0;
    EXPECT_THAT(RouteTexts(), Not(Contains(HasSubstr("Lengths are kept"))));
    EXPECT_THAT(RouteTexts(), Contains("Arc 2 has no node at one end and is left out."));
}

// ---- the tree ----

TEST(TreePicture, DrawsTheTreeStrongAndNumbersTheJoining)
{
    Tree(4, {{1, 2, 3}, {2, 3, 3}, {1, 3, 3}, {3, 4, 1}, {1, 4, 9}});
    const auto pictures = Network::TreePictures(Problem, Result);
    EXPECT_THAT(Listing(pictures[0], 1, 1),
                ElementsAre("picture 1 of 1 diagram \"Network\"",  //
                            "node circle plain \"1\" \"1\"",       //
                            "node circle plain \"2\" \"2\"",       //
                            "node circle plain \"3\" \"3\"",       //
                            "node circle plain \"4\" \"4\"",       //
                            "edge chosen \"1\" \"2\" 3 \"3\"",     //
                            "edge chosen \"1\" \"3\" 3 \"3\"",     //
                            "edge spare \"1\" \"4\" 9 \"9\"",      //
                            "edge second \"2\" \"3\" 3 \"3\"",     //
                            "edge chosen \"3\" \"4\" 1 \"1\"",     //
                            "note \"3 arcs with a length of 7 in all join the 4 nodes.\"",
                            "note \"In the order of joining: 1 to 2 (3), 1 to 3 (3) and 3 to 4 (1).\"",
                            "note \"Arc 2 to 3 would serve as well, in place of one as long.\""));
    const auto& nodes = DiagramOf(pictures).Nodes;
    EXPECT_EQ(nodes[0].Badge, "");
    EXPECT_EQ(nodes[1].Badge, "1");
    EXPECT_EQ(nodes[2].Badge, "2");
    EXPECT_EQ(nodes[3].Badge, "3");
}

TEST(TreePicture, ANetworkInPiecesIsFramed)
{
    Tree(5, {{1, 2, 5}, {4, 5, 1}});
    const auto pictures = Network::TreePictures(Problem, Result);
    ASSERT_EQ(DiagramOf(pictures).Frames.size(), 2U);
    EXPECT_THAT(DiagramOf(pictures).Frames[1].Ids, ElementsAre("4", "5"));
    EXPECT_EQ(pictures[0].Notes[0],
              "Not all nodes can be reached from node 1: nodes 3, 4 and 5 lie apart, in 2 pieces.");
    EXPECT_EQ(DiagramOf(pictures).Arcs[0].As, picture::Role::Chosen);
    EXPECT_EQ(DiagramOf(pictures).Arcs[1].As, picture::Role::Spare);
}

TEST(TreePicture, OneNodeNeedsNoArc)
{
    Tree(1, {});
    EXPECT_EQ(Network::TreePictures(Problem, Result)[0].Notes[0], "A network of one node needs no arc.");
    EXPECT_THAT(TreeTexts(), ElementsAre("One node needs no arc; the length is 0."));
    EXPECT_EQ(Network::TreeSteps(Problem, Result).size(), 1U);
}

TEST(TreeSteps, CompareTheArcsThatLeadOut)
{
    Tree(3, {{1, 2, 3}, {1, 3, 4}, {2, 3, 1}});
    const auto steps = Network::TreeSteps(Problem, Result);
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_EQ(steps[0].Heading, "Arc 1 to 2 joins node 2");
    EXPECT_THAT(steps[0].Figures, ElementsAre("from  to  length",         //
                                              "1      2       3  joins",  //
                                              "1      3       4",         //
                                              "length so far: 3"));
    EXPECT_EQ(steps[0].Why,
              "3 is the shortest of 2 arcs that lead out of the tree; the next is 1 to 3 with 4.");
    EXPECT_THAT(steps[0].Marks, ElementsAre("2", "1-2"));
    EXPECT_THAT(steps[1].Figures, Contains("length so far: 4"));
    EXPECT_THAT(steps[2].Figures, ElementsAre("3 + 1 = 4"));
    Tree(3, {{1, 2, 3}, {1, 3, 3}});
    EXPECT_EQ(Network::TreeSteps(Problem, Result)[0].Why,
              "No arc that leads out of the tree is shorter than 3; 1 to 3 is as short and is met later.");
    EXPECT_EQ(Network::TreeSteps(Problem, Result)[1].Why, "It is the only arc that leads out of the tree.");
}

TEST(TreeSteps, EndWhereNothingJoins)
{
    Tree(4, {{1, 2, 3}, {3, 4, 1}});
    const auto steps = Network::TreeSteps(Problem, Result);
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_THAT(steps[1].Figures, ElementsAre("apart: 3 and 4"));
}

TEST(TreeMeaning, TellsTheTreeItsLongestArcAndItsSubstitutes)
{
    Tree(4, {{1, 2, 3}, {2, 3, 3}, {1, 3, 3}, {3, 4, 1}, {1, 4, 9}});
    EXPECT_THAT(TreeTexts(),
                ElementsAre("3 arcs with a length of 7 in all join the 4 nodes.",
                            "The longest arc of the tree, 1 to 2, has 3; every other way to join these parts "
                            "is at least as long.",
                            "Arc 2 to 3 is as long as arc 1 to 2 and would serve as well."));
    Tree(4, {{1, 2, 3}, {2, 3, 2}, {1, 3, 2}, {3, 4, 8}});
    EXPECT_THAT(TreeTexts(),
                Contains("The longest arc of the tree, 3 to 4, has 8; no other arc joins these parts."));
    Tree(2, {{1, 2, 5}});
    EXPECT_THAT(TreeTexts(), ElementsAre("1 arc with a length of 5 in all joins the 2 nodes."));
}

TEST(TreeMeaning, TellsWhyThereIsNone)
{
    Tree(3, {{1, 2, 5}});
    EXPECT_THAT(TreeTexts(), ElementsAre("No tree is given: node 3 cannot be reached from node 1."));
}

TEST(TreeMeaning, AnArcThatCountsAsNoneIsTold)
{
    Tree(3, {{1, 2, 10}, {2, 3, 100000}});
    EXPECT_THAT(
        TreeTexts(),
        ElementsAre(
            "No tree is given: no arc to node 3 is shorter than 100,000, and longer ones do not count.",
            "Arc 2 has a length of 100,000 or more and counts as no arc."));
    Tree(3, {{1, 2, 10}, {2, 3, 99999.999}});
    EXPECT_TRUE(Result.Reached);
}

// The loop at node 1 is the shortest arc at hand and takes the place of the one to node 2.
TEST(TreeMeaning, ALoopAtNode1LeavesANodeOutside)
{
    Tree(2, {{1, 1, 1}, {1, 2, 3}});
    ASSERT_TRUE(Result.Reached);
    EXPECT_THAT(TreeTexts(),
                ElementsAre("The tree takes an arc that joins node 1 to itself; node 2 stays outside."));
    EXPECT_EQ(Network::TreePictures(Problem, Result)[0].Notes[0],
              "The tree takes an arc that joins node 1 to itself; node 2 is not joined.");
    EXPECT_EQ(Network::TreeSteps(Problem, Result).back().Heading, "As many arcs have joined as a tree needs");
    Tree(2, {{1, 1, 4}, {1, 2, 3}});
    EXPECT_EQ(Network::TreeSteps(Problem, Result).back().Heading, "All nodes are joined");
    EXPECT_EQ(TreeTexts()[0], "1 arc with a length of 3 in all joins the 2 nodes.");
}

// ---- all sizes ----

TEST(NetworkBeside, NothingIsShownBeforeASolve)
{
    GiveRoute(2, {{1, 2, 5}}, 1, 2);
    EXPECT_THAT(Network::RoutePictures(Problem, Result), IsEmpty());
    EXPECT_THAT(Network::RouteSteps(Problem, Result), IsEmpty());
    EXPECT_THAT(RouteTexts(), IsEmpty());
    GiveTree(2, {{1, 2, 5}});
    EXPECT_THAT(Network::TreePictures(Problem, Result), IsEmpty());
    EXPECT_THAT(Network::TreeSteps(Problem, Result), IsEmpty());
    EXPECT_THAT(TreeTexts(), IsEmpty());
}

TEST(NetworkBeside, RandomNetworksAreShownWithoutFault)
{
    std::mt19937 random(73);
    for (int round = 0; round < 800; ++round) {
        const int nodes = 1 + round % 20;
        const auto arcs = RandomArcs(random, nodes, 1 + round % 40);
        Route(nodes, arcs, 1 + round % nodes, 1 + (round / 3) % nodes);
        const auto routePictures = Network::RoutePictures(Problem, Result);
        ExpectSound(routePictures);
        ExpectSound(Network::RouteSteps(Problem, Result), routePictures);
        ExpectSound(Network::RouteMeaning(Problem, Result));
        EXPECT_EQ(DiagramOf(routePictures).Frames.empty(), Result.Reached);
        double length = 0;
        for (const auto& arc : DiagramOf(routePictures).Arcs)
            if (arc.As == picture::Role::Chosen) length += arc.Weight;
        const int distance = Result.Reached ? Result.NodeLabel(Network::kDistance, Problem.EndNode) : 0;
        EXPECT_NEAR(length, distance / 1000.0, 1e-9);
        Tree(nodes, arcs);
        const auto treePictures = Network::TreePictures(Problem, Result);
        ExpectSound(treePictures);
        ExpectSound(Network::TreeSteps(Problem, Result), treePictures);
        ExpectSound(Network::TreeMeaning(Problem, Result));
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "round " << round;
    }
}

TEST(NetworkBeside, TheModulesHandThemOut)
{
    Route(2, {{1, 2, 5}}, 1, 2);
    EXPECT_EQ(ShortestRoute().Pictures().size(), 1U);
    EXPECT_EQ(ShortestRoute().Steps().size(), 3U);
    EXPECT_EQ(ShortestRoute().Meaning().size(), 1U);
    Tree(2, {{1, 2, 5}});
    EXPECT_EQ(MinimalSpanningTree().Pictures().size(), 1U);
    EXPECT_EQ(MinimalSpanningTree().Steps().size(), 2U);
    EXPECT_EQ(MinimalSpanningTree().Meaning().size(), 1U);
}

}  // namespace
