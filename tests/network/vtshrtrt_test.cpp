// The arc table, the two nodes of a route, and both solvers: against all simple routes and all spanning trees
// of small networks, and a published network.
#include "network/vtshrtrt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <random>
#include <set>

#include "network/module.h"
#include "network/networks.h"
#include "shell/menus.h"
#include "shell/solution.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

namespace {

using Network::Problem;
using Network::Result;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

// ---- entry ----

class ArcCells : public testing::Test {
protected:
    ArcCells() { GiveTree(5, {{0, 0, 0}, {0, 0, 0}}); }

    FakeDesktop desktop;
};

TEST_F(ArcCells, NodesAreStoredAsWholeNumbers)
{
    EXPECT_EQ(Network::EnterCell(2, 1, "1"), kCellStored);
    EXPECT_EQ(Network::EnterCell(2, 2, "5"), kCellStored);
    EXPECT_EQ(Problem.ArcTable(1, 2), 1);
    EXPECT_EQ(Problem.ArcTable(2, 2), 5);
    EXPECT_EQ(Network::EnterCell(2, 1, "4.9"), kCellStored);
    EXPECT_EQ(Problem.ArcTable(1, 2), 4);
}

TEST_F(ArcCells, NodesOutsideTheNetworkAreRefused)
{
    for (const int column : {1, 2})
        for (const char* text : {"0", "0.9", "5.1", "6", "-1", "-", "."}) {
            Problem.ArcTable(column, 1) = 3;
            EXPECT_EQ(Network::EnterCell(1, column, text), kCellRefused) << text;
            EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  THE NODE NUMBER MUST BE BETWEEN 1 AND 5"));
            EXPECT_EQ(Problem.ArcTable(column, 1), 3);
        }
}

TEST_F(ArcCells, DistancesAreStoredInThousandths)
{
    struct Row {
        const char* text;
        int stored;
    };
    for (const Row& row :
         {Row{"2", 2000}, Row{"0", 0}, Row{"2.037", 2037}, Row{"0.0004", 0}, Row{"0.0005", 1},
          Row{"  1.5 ", 1500}, Row{"1,000", 1000000}, Row{"+3", 3000}, Row{".25", 250}}) {
        EXPECT_EQ(Network::EnterCell(1, 3, row.text), kCellStored) << row.text;
        EXPECT_EQ(Problem.ArcTable(3, 1), row.stored) << row.text;
    }
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(ArcCells, DistancesThatAreNoneAreRefused)
{
    Problem.ArcTable(3, 1) = 7;
    for (const char* text : {"1.2.3", "abc", "1-", "1e3"}) {
        EXPECT_EQ(Network::EnterCell(1, 3, text), kCellRefused) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  DISTANCE MUST BE A NUMBER."));
    }
    EXPECT_EQ(Network::EnterCell(1, 3, "-0.1"), kCellRefused);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  DISTANCE CANNOT BE NEGATIVE."));
    EXPECT_EQ(Problem.ArcTable(3, 1), 7);
}

TEST_F(ArcCells, DistancesBeyond32BitsOverflow)
{
    EXPECT_EQ(Network::EnterCell(1, 3, "2147483.647"), kCellStored);
    EXPECT_THROW(Network::EnterCell(1, 3, "2147483.648"), RuntimeError);
}

TEST_F(ArcCells, BlankCellsAreAskedAboutAndStoredAsZero)
{
    for (const int column : {1, 2, 3}) {
        Problem.ArcTable(column, 1) = 3;
        Session.AskIncomplete = true;
        EXPECT_EQ(Network::EnterCell(1, column, ""), kCellEmpty);
        EXPECT_EQ(Problem.ArcTable(column, 1), 0);
        Session.AskIncomplete = false;
        EXPECT_EQ(Network::EnterCell(1, column, " "), kCellStored);
    }
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(ArcCells, DecimalPlacesFollowTheDistances)
{
    struct Row {
        const char* text;
        double places;
    };
    for (const Row& row :
         {Row{"3", 0}, Row{"2.5", 1}, Row{"0.3", 1}, Row{"2.55", 2}, Row{"3.001", 2}, Row{"0.0004", 2}}) {
        Problem.DecimalPlaces = 0.0;
        Network::EnterCell(1, 3, row.text);
        EXPECT_EQ(Problem.DecimalPlaces.Value(), row.places) << row.text;
    }
    Network::EnterCell(1, 3, "2.5");
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 2);  // it only grows
}

TEST_F(ArcCells, RouteNodesAreCheckedStartFirst)
{
    struct Row {
        const char* start;
        const char* end;
        int refused;
        const char* message;
    };
    constexpr const char* kRange = "You may only select a number between 1 and 5.  PLEASE TRY AGAIN.";
    Problem.StartNode = 2;
    for (const Row& row : {Row{"", "x", 0, "Starting Node must be an integer."},
                           Row{"1.0", "1", 0, "Starting Node must be an integer."},
                           Row{"a", "1", 0, "Starting Node must be an integer."}, Row{"0", "x", 0, kRange},
                           Row{"6", "x", 0, kRange}, Row{"-1", "x", 0, kRange},
                           Row{"1", "", 1, "Ending Node must be an integer."},
                           Row{"1", "2.", 1, "Ending Node must be an integer."}, Row{"5", "0", 1, kRange},
                           Row{"5", "99999999999", 1, kRange}}) {
        Session.DialogCancelled = true;
        EXPECT_EQ(Network::TakeNodes(row.start, row.end), row.refused) << row.start << " " << row.end;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(row.message)) << row.start << " " << row.end;
        EXPECT_EQ(Problem.StartNode, 2);
        EXPECT_TRUE(Session.DialogCancelled);
    }
    EXPECT_EQ(Network::TakeNodes("5", "+1"), -1);
    EXPECT_EQ(Problem.StartNode, 5);
    EXPECT_EQ(Problem.EndNode, 1);
    EXPECT_FALSE(Session.DialogCancelled);
    EXPECT_EQ(Network::TakeNodes("3", "3"), -1);
}

// ---- the form ----

class ArcForm : public testing::Test {
protected:
    std::vector<Texts> Cells()
    {
        const FakeGrid& grid = desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit");
        std::vector<Texts> rows;
        rows.reserve(static_cast<std::size_t>(grid.Rows()));
        for (int row = 0; row < grid.Rows(); ++row)
            rows.push_back(grid.RowTexts(row));
        return rows;
    }

    int New(const char* nodes, const char* arcs)
    {
        int refused = -1;
        Session = {};
        Session.NewProblem = true;
        desktop.forms.onModal["frmUserInput"] = [&] {
            dialog = UserInput::CurrentSizes();
            refused = UserInput::TakeSizes({nodes, arcs});
            if (refused >= 0) Session.DialogCancelled = true;
        };
        Network::NewNetwork();
        return refused;
    }

    FakeDesktop desktop;
    SizeDialog dialog;
};

TEST_F(ArcForm, ANewNetworkIsEmpty)
{
    Problem.DecimalPlaces = 2.0;
    EXPECT_EQ(New("3", "2"), -1);
    EXPECT_EQ(dialog.Caption, " Nodes and Arcs");
    EXPECT_EQ(dialog.Questions[0].Question, "Enter the number of NODES (MAX=20):");
    EXPECT_EQ(dialog.Questions[1].Question, "Enter the number of ARCS (MAX=40):");
    EXPECT_THAT(Cells(), ElementsAre(Texts{"Arc", "Start Node", "End Node", "Distance/Cost"},
                                     Texts{"1", "", "", ""}, Texts{"2", "", "", ""}));
    EXPECT_EQ(desktop.forms.Loaded("frmProblem").Text("lblTitle"),
              "Network Description:  3 NODES and 2 ARCS");
    EXPECT_EQ(desktop.forms.Loaded("frmProblem").Text("lblInfo"),
              "Enter Start Node, End Node, and Distance/Cost for each Arc.");
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 0);
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
}

TEST_F(ArcForm, SizesHaveTheirLimits)
{
    constexpr const char* kNodes = "You may only select between 2 and 20 Nodes.  Please Try Again.";
    constexpr const char* kArcs = "You may only have between 1 and 40 arcs.  Please Try Again.";
    EXPECT_EQ(New("1", "1"), 0);
    EXPECT_EQ(desktop.dialogs.Last(), Refused(kNodes));
    EXPECT_EQ(New("21", "1"), 0);
    EXPECT_EQ(desktop.dialogs.Last(), Refused(kNodes));
    EXPECT_EQ(New("2", "0"), 1);
    EXPECT_EQ(desktop.dialogs.Last(), Refused(kArcs));
    EXPECT_EQ(New("2", "41"), 1);
    EXPECT_EQ(desktop.dialogs.Last(), Refused(kArcs));
    EXPECT_EQ(New("2", "1"), -1);
    EXPECT_EQ(New("20", "40"), -1);
    EXPECT_EQ(desktop.dialogs.messages.size(), 4u);
}

TEST_F(ArcForm, DistancesAreShownWithTheDecimalsOfTheProblem)
{
    GiveTree(3, {{1, 2, 2.037}, {2, 3, 10}});
    Network::ShowNetwork();
    EXPECT_THAT(Cells(), ElementsAre(testing::_, Texts{"1", "1", "2", "2"}, Texts{"2", "2", "3", "10"}));
    Problem.DecimalPlaces = 1.0;
    Network::ShowNetwork();
    EXPECT_EQ(Cells()[1][3], "    2.0");
    EXPECT_EQ(Cells()[2][3], "    10.0");
    Problem.DecimalPlaces = 2.0;
    Network::ShowNetwork();
    EXPECT_EQ(Cells()[1][3], "    2.04");
    EXPECT_EQ(Cells()[2][3], "    10.00");
}

TEST_F(ArcForm, AFileHoldsTheArcs)
{
    GiveTree(3, {{1, 2, 2.037}, {0, 3, 0}});
    Problem.DecimalPlaces = 2.0;
    const std::string file = "2,3,2\r\n1\r\n2\r\n2.037\r\n0\r\n3\r\n0\r\n";
    RecordWriter writer;
    MinimalSpanningTree().Write(writer);
    EXPECT_EQ(writer.Text(), file);
    RecordReader reader(file);
    ShortestRoute().Read(reader);
    RecordWriter again;
    ShortestRoute().Write(again);
    EXPECT_EQ(again.Text(), file);
}

TEST_F(ArcForm, FilesThatDoNotFitAreErrors)
{
    std::string tooLong = "0,5,41\r\n";
    for (int k = 1; k <= 41; ++k)
        tooLong += "1\r\n2\r\n3\r\n";
    for (const std::string& text :
         {std::string(), std::string("0,2,1\r\n1\r\n2\r\n"), tooLong, std::string("0,2,1\r\n1\r\n2\r\nx\r\n"),
          std::string("0,2,-1\r\n"), std::string("0,2,1\r\n1\r\n2\r\n3000000\r\n")}) {
        RecordReader reader(text);
        EXPECT_THROW(ShortestRoute().Read(reader), RuntimeError) << text;
    }
}

// ---- the solvers ----

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
        Network::FindShortestRoute();
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
        Network::FindSpanningTree();
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
    Network::FindSpanningTree();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.TreeLength, 3000);
    EXPECT_EQ(Result.TreeArcs(Network::kStart, 1), 1);
    EXPECT_EQ(Result.TreeArcs(Network::kEnd, 1), 1);
    GiveTree(3, {{1, 1, 3}, {1, 2, 2}, {2, 3, 3}, {2, 2, 0}});
    Network::FindSpanningTree();
    EXPECT_EQ(Result.TreeLength, 5000);
}

TEST(ShortestRoute, ThroughThePublishedParkIs13Miles)
{
    GiveRoute(7, ParkRoads(), 1, 7);
    Network::FindShortestRoute();
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 7), 13000);
    EXPECT_EQ(RouteNodes(), (std::vector<int>{1, 2, 3, 5, 7}));
}

TEST(SpanningTree, OfThePublishedParkHas14Miles)
{
    GiveTree(7, ParkRoads());
    Network::FindSpanningTree();
    EXPECT_EQ(Result.TreeLength, 14000);
}

TEST(ShortestRoute, FromANodeToItselfHasOneEntry)
{
    GiveRoute(3, {{1, 2, 5}, {2, 3, 4}}, 2, 2);
    Network::FindShortestRoute();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.RoutePath, std::vector<std::int32_t>{2});
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 0);
}

TEST(ShortestRoute, ANodeWithoutArcsFailsEveryRun)
{
    GiveRoute(3, {{1, 2, 5}}, 1, 2);
    Network::FindShortestRoute();
    EXPECT_FALSE(Result.Reached);
    Network::Problem.StartNode = 3;
    Network::FindShortestRoute();
    EXPECT_FALSE(Result.Reached);
}

TEST(ShortestRoute, TheLaterOfTwoArcsCountsAlsoWhenItIsLonger)
{
    GiveRoute(2, {{1, 2, 5}, {2, 1, 9}}, 1, 2);
    Network::FindShortestRoute();
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 9000);
}

TEST(ShortestRoute, AnArcOfLengthZeroIsAnArc)
{
    GiveRoute(2, {{1, 2, 0.0004}}, 1, 2);
    Network::FindShortestRoute();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 0);
}

TEST(ShortestRoute, AnArcFromANodeToItselfIsOverwritten)
{
    GiveRoute(2, {{1, 1, 5}, {1, 2, 3}}, 1, 1);
    Network::FindShortestRoute();
    EXPECT_EQ(Result.RawDistance(1, 1), 5000);
    EXPECT_EQ(Result.NodeDistance(1, 1), 0);
}

// 1-2-4 and 1-3-4 are equally long: node 2 is made permanent first and keeps node 4.
TEST(ShortestRoute, TiesKeepTheEarlierPredecessor)
{
    GiveRoute(4, {{3, 4, 1}, {1, 3, 1}, {2, 4, 1}, {1, 2, 1}}, 1, 4);
    Network::FindShortestRoute();
    EXPECT_EQ(RouteNodes(), (std::vector<int>{1, 2, 4}));
}

TEST(ShortestRoute, AnArcAsLongAsNoArcIsNone)
{
    GiveRoute(2, {{1, 2, 100000}}, 1, 2);
    Network::FindShortestRoute();
    EXPECT_FALSE(Result.Reached);
    GiveRoute(2, {{1, 2, 99999.999}}, 1, 2);
    Network::FindShortestRoute();
    EXPECT_TRUE(Result.Reached);
    GiveRoute(2, {{1, 2, 200000}}, 1, 2);
    Network::FindShortestRoute();
    EXPECT_FALSE(Result.Reached);
}

TEST(ShortestRoute, DistancesBeyond32BitsOverflow)
{
    GiveRoute(3, {{1, 2, 1}, {2, 3, 2147483}}, 1, 3);
    EXPECT_THROW(Network::FindShortestRoute(), RuntimeError);
}

TEST(ShortestRoute, AnArcWithAnEmptyNodeIsLost)
{
    GiveRoute(2, {{1, 2, 3}, {0, 2, 1}, {1, 0, 1}}, 1, 2);
    Network::FindShortestRoute();
    EXPECT_EQ(Result.NodeLabel(Network::kDistance, 2), 3000);
    EXPECT_EQ(RouteNodes(), (std::vector<int>{1, 2}));
}

TEST(SpanningTree, OfOneNodeIsEmpty)
{
    GiveTree(1, {});
    Network::FindSpanningTree();
    EXPECT_TRUE(Result.Reached);
    EXPECT_EQ(Result.TreeLength, 0);
}

TEST(SpanningTree, ANodeWithoutArcsFails)
{
    GiveTree(3, {{1, 2, 5}});
    Network::FindSpanningTree();
    EXPECT_FALSE(Result.Reached);
    GiveTree(3, {{2, 3, 5}});
    Network::FindSpanningTree();
    EXPECT_FALSE(Result.Reached);
}

// A square of equal sides: each node joins the earliest tree node that it can, the lowest number first.
TEST(SpanningTree, EqualLengthsJoinTheEarliestNodeAndTheLowestNumber)
{
    GiveTree(4, {{4, 3, 1}, {3, 2, 1}, {2, 1, 1}, {1, 4, 1}});
    Network::FindSpanningTree();
    const std::vector<std::vector<int>> expected = {{1, 2}, {1, 4}, {2, 3}};
    for (int k = 1; k <= 3; ++k) {
        EXPECT_EQ(Result.TreeArcs(Network::kStart, k), expected[static_cast<std::size_t>(k) - 1][0]);
        EXPECT_EQ(Result.TreeArcs(Network::kEnd, k), expected[static_cast<std::size_t>(k) - 1][1]);
    }
}

TEST(SpanningTree, TheLaterOfTwoArcsCounts)
{
    GiveTree(2, {{1, 2, 1}, {2, 1, 6}});
    Network::FindSpanningTree();
    EXPECT_EQ(Result.TreeLength, 6000);
}

// ---- the command ----

class NetworkSolve : public testing::Test {
protected:
    NetworkSolve()
    {
        Menus.SetEnabled(EditItemName(0), false);
        Menus.EnablePrinting(false);
        desktop.screen.indicator = "Shortest Route Module";
    }

    void Choose(const char* start, const char* end)
    {
        desktop.forms.onModal["frminputnodes"] = [start, end] { Network::TakeNodes(start, end); };
    }

    FakeDesktop desktop;
};

TEST_F(NetworkSolve, ARouteIsShown)
{
    GiveRoute(2, {{1, 2, 5}}, 0, 0);
    Choose("2", "1");
    Network::SolveNetwork();
    EXPECT_EQ(SolutionLines()[0], "            THE SHORTEST ROUTE FROM NODE 2 TO NODE 1");
    EXPECT_EQ(desktop.forms.Loaded("frmSolution").caption, "Optimal Route");
    EXPECT_EQ(desktop.screen.indicators, (Texts{"Solving Problem . . .", "Shortest Route Module"}));
    EXPECT_EQ(desktop.screen.pointers, (std::vector{Pointer::Hourglass, Pointer::Normal}));
    EXPECT_TRUE(Menus.Item(EditItemName(0)).Enabled);
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoText").Enabled);
}

TEST_F(NetworkSolve, CancelledNodesSolveNothing)
{
    GiveRoute(2, {{1, 2, 5}}, 1, 2);
    desktop.forms.onModal["frminputnodes"] = [] { Session.DialogCancelled = true; };
    Network::SolveNetwork();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_TRUE(desktop.screen.indicators.empty());
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoText").Enabled);
}

TEST_F(NetworkSolve, AnUnreachableNodeIsWarnedOfAndTheIndicatorStays)
{
    GiveRoute(3, {{1, 2, 5}}, 0, 0);
    Choose("1", "2");
    Network::SolveNetwork();
    EXPECT_EQ(
        desktop.dialogs.Last(),
        (ShownMessage{"Please review the description of the network.  It is not possible to reach all nodes "
                      "in the network.",
                      "WARNING!", Icon::Critical, Buttons::OK}));
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_EQ(desktop.screen.indicator, "Solving Problem . . .");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
}

TEST_F(NetworkSolve, ATreeIsShownWithoutAQuestion)
{
    GiveTree(2, {{1, 2, 5}});
    Network::SolveNetwork();
    EXPECT_EQ(SolutionLines()[0], "                    MINIMAL SPANNING TREE");
    EXPECT_EQ(desktop.forms.Loaded("frmSolution").caption, "Optimal Solution");
    EXPECT_TRUE(desktop.forms.modals.empty());
}

TEST_F(NetworkSolve, ANetworkInPiecesHasNoTree)
{
    GiveTree(3, {{1, 2, 5}});
    Network::SolveNetwork();
    EXPECT_EQ(
        desktop.dialogs.Last(),
        (ShownMessage{"Please review the description of the network.  A spanning tree does not exist for the "
                      "network description you have provided.",
                      "WARNING!", Icon::Critical, Buttons::OK}));
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
}

}  // namespace
