// The arc table, the two nodes of a route, the form, the files and the solve command.
#include "network/vtshrtrt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "network/module.h"
#include "network/networks.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/solution.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

namespace {

using Network::Problem;
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
        int pointed = -1;
        const auto point = [&pointed](int box) { pointed = box; };
        EXPECT_EQ(Network::TakeNodes(row.start, row.end, point), row.refused) << row.start << " " << row.end;
        EXPECT_EQ(pointed, row.refused) << row.start << " " << row.end;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(row.message)) << row.start << " " << row.end;
        EXPECT_EQ(Problem.StartNode, 2);
        EXPECT_TRUE(Session.DialogCancelled);
    }
    desktop.forms.onModal["frminputnodes"] = [] { EXPECT_EQ(Network::TakeNodes("5", "+1"), -1); };
    EXPECT_TRUE(Network::AskNodes());
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
        Session.CurrentModule = 6;
        Session.NewProblem = true;
        desktop.forms.onModal["frmUserInput"] = [&] {
            dialog = UserInput::Sizes.Question();
            refused = UserInput::TakeSizes({nodes, arcs});
        };
        BeginProblem();
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
    DisplayProblem();
    EXPECT_THAT(Cells(), ElementsAre(testing::_, Texts{"1", "1", "2", "2"}, Texts{"2", "2", "3", "10"}));
    Problem.DecimalPlaces = 1.0;
    DisplayProblem();
    EXPECT_EQ(Cells()[1][3], "    2.0");
    EXPECT_EQ(Cells()[2][3], "    10.0");
    Problem.DecimalPlaces = 2.0;
    DisplayProblem();
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

// ---- the command ----

class NetworkSolve : public testing::Test {
protected:
    // Shows the network that stands in the record and chooses Solve.
    void SolveModule(int number, const char* indicator)
    {
        Session.CurrentModule = static_cast<std::int16_t>(number);
        DisplayProblem();
        Menus.EnablePrinting(false);
        desktop.screen.indicator = indicator;
        desktop.screen.pointers.clear();
        Commands::Solve();
    }
    void SolveRoute() { SolveModule(5, "Shortest Route Module"); }
    void SolveTree() { SolveModule(6, "Minimal Spanning Tree Module"); }

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
    SolveRoute();
    EXPECT_EQ(SolutionLines()[0], "            THE SHORTEST ROUTE FROM NODE 2 TO NODE 1");
    EXPECT_EQ(desktop.forms.Loaded("frmSolution").caption, "Optimal Route");
    EXPECT_EQ(desktop.screen.indicators, (Texts{"Checking Problem Data. . .", "Shortest Route Module",
                                                "Solving Problem . . .", "Shortest Route Module"}));
    EXPECT_EQ(desktop.screen.pointers, (std::vector{Pointer::Hourglass, Pointer::Normal}));
    EXPECT_TRUE(Menus.Item(EditItemName(0)).Enabled);
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoText").Enabled);
}

TEST_F(NetworkSolve, CancelledNodesSolveNothing)
{
    GiveRoute(2, {{1, 2, 5}}, 1, 2);
    desktop.forms.onModal["frminputnodes"] = [] { Network::Ends.Cancel(); };
    SolveRoute();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_EQ(desktop.screen.indicator, "Shortest Route Module");
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoText").Enabled);
}

TEST_F(NetworkSolve, AnUnreachableNodeIsWarnedOfAndTheIndicatorStays)
{
    GiveRoute(3, {{1, 2, 5}}, 0, 0);
    Choose("1", "2");
    SolveRoute();
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
    SolveTree();
    EXPECT_EQ(SolutionLines()[0], "                    MINIMAL SPANNING TREE");
    EXPECT_EQ(desktop.forms.Loaded("frmSolution").caption, "Optimal Solution");
    EXPECT_TRUE(desktop.forms.modals.empty());
}

TEST_F(NetworkSolve, ANetworkInPiecesHasNoTree)
{
    GiveTree(3, {{1, 2, 5}});
    SolveTree();
    EXPECT_EQ(
        desktop.dialogs.Last(),
        (ShownMessage{"Please review the description of the network.  A spanning tree does not exist for the "
                      "network description you have provided.",
                      "WARNING!", Icon::Critical, Buttons::OK}));
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_EQ(desktop.screen.indicator, "Minimal Spanning Tree Module");
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
}

}  // namespace
