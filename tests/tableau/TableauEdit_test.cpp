// The tableau on the problem form: new, lines added and deleted, files, the solve command.
#include "tableau/TableauEdit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/solution.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"
#include "tableau/module.h"
#include "tableau/tables.h"

namespace {

using Tableau::Problem;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

enum LowerItems { kAddOrigin, kAddDestination, kDeleteOrigin, kDeleteDestination };

class TableauForm : public testing::Test {
protected:
    FakeGrid& TheGrid() { return desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit"); }

    std::vector<Texts> Cells()
    {
        std::vector<Texts> rows;
        rows.reserve(static_cast<std::size_t>(TheGrid().Rows()));
        for (int row = 0; row < TheGrid().Rows(); ++row)
            rows.push_back(TheGrid().RowTexts(row));
        return rows;
    }

    // The user's answers to the dialog of the size.
    void AnswerSizes(const std::string& first, const std::string& second)
    {
        desktop.forms.onModal["frmUserInput"] = [this, first, second] {
            dialog = UserInput::Sizes.Question();
            refused = UserInput::TakeSizes({first, second});
        };
    }

    void GiveSmallTransportation()
    {
        GiveTransportation({{1, 2, 3}, {4, 5, 6}}, {10, 20}, {7, 8, 9});
        DisplayProblem();
        TheGrid().commit = [](int row, int column, std::string_view text) {
            return Tableau::EnterCell(row, column, text) != kCellRefused;
        };
    }

    FakeDesktop desktop;
    SizeDialog dialog;
    int refused = -1;
};

void Begin(int module)
{
    Session = {};
    Session.CurrentModule = static_cast<std::int16_t>(module);
    Session.ProblemTitle = CurrentModule().Title;
    Session.NewProblem = true;
}

TEST_F(TableauForm, ANewTransportationIsEmpty)
{
    Begin(2);
    Problem.DecimalPlaces = 2.0;
    Tableau::Result.Solved = true;
    AnswerSizes("2", "3");
    BeginProblem();
    EXPECT_FALSE(Tableau::Result.Solved);
    EXPECT_EQ(dialog.Caption, " Origins and Destinations");
    EXPECT_EQ(dialog.Questions[0].Question, "Enter the number of ORIGINS (MAX=30):");
    EXPECT_EQ(dialog.Questions[1].Question, "Enter the number of DESTINATIONS (MAX=30):");
    EXPECT_THAT(Cells(), ElementsAre(Texts{"Origin", "1", "2", "3", "Supply"}, Texts{"1", "", "", "", ""},
                                     Texts{"2", "", "", "", ""}, Texts{"Demand", "", "", "", "***********"}));
    const FakeForm& form = desktop.forms.Loaded("frmProblem");
    EXPECT_EQ(form.Text("lblTitle"), "TRANSPORTATION TABLEAU");
    EXPECT_EQ(form.Text("lblgridcaption"), "Destination");
    EXPECT_EQ(form.Text("lblInfo"),
              "Enter/Edit data:  Supply data in last column; Demand data in last row; Cost/Revenue data in "
              "rows 1-2 and columns 1-3  NOTE: If an origin-destination combination is unacceptable, enter a "
              "relatively large cost in a minimization problem or enter a relatively small revenue in a "
              "maximization problem.");
    EXPECT_EQ(TheGrid().Row(), 1);
    EXPECT_EQ(TheGrid().Column(), 1);
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 0);
    EXPECT_EQ(Problem.NumNodes, 5);
    EXPECT_EQ(Problem.NumArcs, 6);
    EXPECT_EQ(Problem.FirstArc(2), 4);
    EXPECT_EQ(Problem.FirstArc(3), 0);
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
}

TEST_F(TableauForm, ANewAssignmentHasCostsOnly)
{
    Begin(3);
    AnswerSizes("1", "2");
    BeginProblem();
    EXPECT_EQ(dialog.Caption, " Agents and Tasks");
    EXPECT_EQ(dialog.Questions[0].Question, "Enter the number of AGENTS (MAX=30):");
    EXPECT_EQ(dialog.Questions[1].Question, "Enter the number of TASKS (MAX=30):");
    EXPECT_THAT(Cells(), ElementsAre(Texts{"Agent", "1", "2"}, Texts{"1", "", ""}));
    const FakeForm& form = desktop.forms.Loaded("frmProblem");
    EXPECT_EQ(form.Text("lblTitle"), "ASSIGNMENT TABLEAU");
    EXPECT_EQ(form.Text("lblgridcaption"), "Task");
    EXPECT_EQ(
        form.Text("lblInfo"),
        "Enter/Edit data:  Cost/Revenue data in rows 1-1 and columns 1-2  NOTE: If an agent-task "
        "combination is unacceptable, enter a relatively large cost in a minimization problem or enter a "
        "relatively small revenue in a maximization problem.");
    EXPECT_EQ(Problem.NodeSupply(1), 1);
    EXPECT_EQ(Problem.NodeSupply(2), -1);
    EXPECT_EQ(Problem.NodeSupply(3), -1);
}

TEST_F(TableauForm, SizesAreWholeNumbersFrom1To30)
{
    struct Row {
        const char* first;
        const char* second;
        int refused;
        const char* message;
    };
    constexpr const char* kRange = "You may only select a number between 1 and 30.  PLEASE TRY AGAIN.";
    for (const Row& row :
         {Row{"0", "5", 0, kRange}, Row{"31", "5", 0, kRange}, Row{"5", "0", 1, kRange},
          Row{"5", "31", 1, kRange}, Row{"1.5", "5", 0, "Number of origins must be an integer."},
          Row{"5", "1.5", 1, "Number of destinations must be an integer."}}) {
        Begin(3);
        AnswerSizes(row.first, row.second);
        BeginProblem();
        EXPECT_EQ(refused, row.refused) << row.first << " " << row.second;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(row.message));
    }
    Begin(3);
    AnswerSizes("30", "1");
    BeginProblem();
    EXPECT_EQ(refused, -1);
    EXPECT_EQ(Problem.NumOrigins, 30);
}

TEST_F(TableauForm, ACancelledSizeChangesNothing)
{
    GiveSmallTransportation();
    Session.ProblemOnDisplay = "NO";
    AnswerSizes("0", "0");
    BeginProblem();
    EXPECT_EQ(Problem.NumArcs, 6);
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
}

TEST_F(TableauForm, AStoredTransportationIsShown)
{
    GiveTransportation({{1, -2.5}, {1000, 0.00001}}, {10, 20}, {7, 8});
    Problem.ArcCost(1) = Variant();
    DisplayProblem();
    EXPECT_THAT(Cells(),
                ElementsAre(Texts{"Origin", "1", "2", "Supply"}, Texts{"1", "", "-2.5", "10"},
                            Texts{"2", "1000", "0.00001", "20"}, Texts{"Demand", "7", "8", "***********"}));
}

TEST_F(TableauForm, ADestinationIsAddedAtTheEndOfEachRow)
{
    GiveSmallTransportation();
    Tableau::AddDestination();
    EXPECT_THAT(Cells(),
                ElementsAre(Texts{"Origin", "1", "2", "3", "4", "Supply"},
                            Texts{"1", "1", "2", "3", "0", "10"}, Texts{"2", "4", "5", "6", "0", "20"},
                            Texts{"Demand", "7", "8", "9", "0", "***********"}));
    EXPECT_EQ(Problem.TailNode(8), 2);
    EXPECT_EQ(Problem.HeadNode(8), 6);
    EXPECT_TRUE(desktop.forms.Loaded("frmProblem").visible["gridDisplayEdit"]);
}

TEST_F(TableauForm, AnOriginIsAddedBelow)
{
    GiveSmallTransportation();
    Tableau::AddOrigin();
    EXPECT_THAT(Cells(),
                ElementsAre(Texts{"Origin", "1", "2", "3", "Supply"}, Texts{"1", "1", "2", "3", "10"},
                            Texts{"2", "4", "5", "6", "20"}, Texts{"3", "0", "0", "0", "0"},
                            Texts{"Demand", "7", "8", "9", "***********"}));
    EXPECT_EQ(Problem.TailNode(9), 3);
    EXPECT_EQ(Problem.HeadNode(9), 6);
}

TEST_F(TableauForm, WhatIsBeingTypedCountsBeforeALineIsAdded)
{
    GiveSmallTransportation();
    TheGrid().Type(2, 3, "66");
    Commands::LowerItem(kAddDestination);
    EXPECT_EQ(Cells()[2], (Texts{"2", "4", "5", "66", "0", "20"}));
}

TEST_F(TableauForm, ACellThatIsEmptiedAndNotLeftIsZeroWhenALineIsAddedOrDeleted)
{
    desktop.dialogs.inputs = {"2", "3"};
    for (const int change : {kAddOrigin, kAddDestination, kDeleteOrigin, kDeleteDestination}) {
        GiveSmallTransportation();
        TheGrid().Type(1, 2, "");
        Commands::LowerItem(change);
        EXPECT_EQ(Cells()[1][2], "0");
        EXPECT_EQ(Cells()[1][1], "1");
    }
    GiveSmallTransportation();
    TheGrid().Type(3, 1, "");
    Commands::LowerItem(kAddOrigin);
    EXPECT_EQ(Cells()[4], (Texts{"Demand", "0", "8", "9", "***********"}));
}

TEST_F(TableauForm, ACellThatIsOnlyGoneToKeepsItsValueWhenALineIsAdded)
{
    GiveSmallTransportation();
    TheGrid().Select(1, 2);
    Commands::LowerItem(kAddOrigin);
    EXPECT_EQ(Cells()[1], (Texts{"1", "1", "2", "3", "10"}));
}

TEST_F(TableauForm, ARefusedCellIsEnteredAgainBeforeALineIsAddedOrDeleted)
{
    for (const int change : {kAddOrigin, kAddDestination, kDeleteOrigin, kDeleteDestination}) {
        GiveSmallTransportation();
        TheGrid().Type(1, 4, "1.5");
        Commands::LowerItem(change);
        EXPECT_EQ(desktop.dialogs.Last(), Refused("Supply Must Have A Numeric Value."));
        EXPECT_EQ(Problem.NumArcs, 6);
        EXPECT_EQ(Cells()[1], (Texts{"1", "1", "2", "3", ""}));
        EXPECT_EQ(Problem.NodeSupply(1), 10);
    }
    EXPECT_TRUE(desktop.dialogs.prompts.empty());
}

TEST_F(TableauForm, AnAgentIsAddedWithASupplyOfOne)
{
    GiveAssignment({{1, 2}});
    DisplayProblem();
    Tableau::AddOrigin();
    EXPECT_THAT(Cells(), ElementsAre(Texts{"Agent", "1", "2"}, Texts{"1", "1", "2"}, Texts{"2", "0", "0"}));
    EXPECT_EQ(Problem.NodeSupply(2), 1);
    EXPECT_EQ(Problem.NodeSupply(3), -1);
    Tableau::AddDestination();
    EXPECT_EQ(Problem.NodeSupply(2), 1);
    EXPECT_EQ(Problem.NodeSupply(5), -1);
}

TEST_F(TableauForm, TheThirtiethLineIsTheLast)
{
    struct Row {
        const char* line;
        bool assignment;
        void (*add)();
    };
    for (const Row& row :
         {Row{"origins", false, Tableau::AddOrigin}, Row{"destinations", false, Tableau::AddDestination},
          Row{"agents", true, Tableau::AddOrigin}, Row{"tasks", true, Tableau::AddDestination}}) {
        const Rows costs(29, std::vector<double>(29, 1));
        if (row.assignment)
            GiveAssignment(costs);
        else
            GiveTransportation(costs, std::vector<int>(29, 1), std::vector<int>(29, 1));
        DisplayProblem();
        row.add();
        EXPECT_EQ(Problem.NumNodes, 59) << row.line;
        const auto shown = desktop.dialogs.messages.size();
        row.add();
        EXPECT_EQ(Problem.NumNodes, 59) << row.line;
        ASSERT_EQ(desktop.dialogs.messages.size(), shown + 1);
        EXPECT_EQ(desktop.dialogs.Last(), (ShownMessage{"There are currently 30 " + std::string(row.line) +
                                                            " in this problem.  This is the maximum allowed.",
                                                        "Maximum Capacity", Icon::Exclamation, Buttons::OK}));
    }
}

TEST_F(TableauForm, AnOriginIsDeletedWithItsSupply)
{
    GiveSmallTransportation();
    desktop.dialogs.inputs = {"1"};
    Tableau::DeleteOrigin();
    EXPECT_THAT(Cells(),
                ElementsAre(Texts{"Origin", "1", "2", "3", "Supply"}, Texts{"1", "4", "5", "6", "20"},
                            Texts{"Demand", "7", "8", "9", "***********"}));
    EXPECT_EQ(desktop.dialogs.prompts[0], std::pair(std::string("Enter the number of the ORIGIN to Delete:"),
                                                    std::string("Delete an Origin")));
}

TEST_F(TableauForm, ADestinationIsDeletedWithItsDemand)
{
    for (const auto& [reply, row] : {std::pair{"1", Texts{"Demand", "8", "9", "***********"}},
                                     std::pair{"2", Texts{"Demand", "7", "9", "***********"}},
                                     std::pair{"3", Texts{"Demand", "7", "8", "***********"}}}) {
        GiveSmallTransportation();
        desktop.dialogs.inputs = {reply};
        Tableau::DeleteDestination();
        EXPECT_EQ(Cells()[3], row);
        EXPECT_EQ(Cells().size(), 4u);
    }
    EXPECT_EQ(Cells()[2], (Texts{"2", "4", "5", "20"}));
    EXPECT_EQ(desktop.dialogs.prompts[0],
              std::pair(std::string("Enter the number of the DESTINATION to Delete:"),
                        std::string("Delete a Destination")));
}

TEST_F(TableauForm, AgentsAndTasksAreDeleted)
{
    GiveAssignment({{1, 2}, {3, 4}});
    DisplayProblem();
    desktop.dialogs.inputs = {"1", "2"};
    Tableau::DeleteOrigin();
    Tableau::DeleteDestination();
    EXPECT_THAT(Cells(), ElementsAre(Texts{"Agent", "1"}, Texts{"1", "3"}));
    EXPECT_EQ(desktop.dialogs.prompts[0], std::pair(std::string("Enter the number of the AGENT to Delete:"),
                                                    std::string("Delete an Agent")));
    EXPECT_EQ(desktop.dialogs.prompts[1], std::pair(std::string("Enter the number of the TASK to Delete:"),
                                                    std::string("Delete a Task")));
    EXPECT_EQ(Problem.NodeSupply(1), 1);
    EXPECT_EQ(Problem.NodeSupply(2), -1);
}

TEST_F(TableauForm, NumbersOutsideAreAskedForAgain)
{
    GiveSmallTransportation();
    desktop.dialogs.inputs = {"0", "4", "-1", "abc", "3"};
    Tableau::DeleteDestination();
    EXPECT_EQ(Problem.NumDestinations, 2);
    ASSERT_EQ(desktop.dialogs.messages.size(), 4u);
    for (const auto& message : desktop.dialogs.messages)
        EXPECT_EQ(message, Refused("You may only enter a value between 1 and 3"));
    desktop.dialogs.inputs = {"3", "1.6"};  // rounded to 2
    Tableau::DeleteOrigin();
    EXPECT_EQ(desktop.dialogs.Last(), Refused("You May Only Enter A Value Between 1 and 2"));
    EXPECT_EQ(Cells()[1], (Texts{"1", "1", "2", "10"}));
}

TEST_F(TableauForm, AnEmptyReplyDeletesNothing)
{
    GiveSmallTransportation();
    desktop.dialogs.inputs = {""};
    Tableau::DeleteOrigin();
    desktop.dialogs.inputs = {"9", ""};
    Tableau::DeleteDestination();
    EXPECT_EQ(Problem.NumArcs, 6);
}

TEST_F(TableauForm, AReplyBeyond16BitsOverflows)
{
    GiveSmallTransportation();
    desktop.dialogs.inputs = {"40000"};
    EXPECT_THROW(Tableau::DeleteOrigin(), RuntimeError);
}

TEST_F(TableauForm, TheLastLineStaysWithoutAPrompt)
{
    struct Row {
        const char* line;
        bool assignment;
        void (*remove)();
    };
    for (const Row& row :
         {Row{"origin", false, Tableau::DeleteOrigin}, Row{"destination", false, Tableau::DeleteDestination},
          Row{"agent", true, Tableau::DeleteOrigin}, Row{"task", true, Tableau::DeleteDestination}}) {
        if (row.assignment)
            GiveAssignment({{1}});
        else
            GiveTransportation({{1}}, {1}, {1});
        row.remove();
        EXPECT_EQ(desktop.dialogs.Last(), (ShownMessage{"There is currently 1 " + std::string(row.line) +
                                                            " in this problem.  This is the minimum allowed.",
                                                        "Minimum Capacity", Icon::Critical, Buttons::OK}));
    }
    EXPECT_TRUE(desktop.dialogs.prompts.empty());
}

// ---- files ----

std::string FileOf(const ModuleRoutines& module)
{
    RecordWriter writer;
    module.Write(writer);
    return writer.Text();
}

TEST_F(TableauForm, ATransportationFileHoldsCostsSuppliesAndDemands)
{
    GiveTransportation({{1, 2.25}, {0, -4}}, {10, 20}, {7, 8});
    Problem.DecimalPlaces = 2.0;
    const std::string file = "2,2,2\r\n1\r\n2.25\r\n0\r\n-4\r\n10\r\n20\r\n7\r\n8\r\n";
    EXPECT_EQ(FileOf(Transportation()), file);
    GiveTransportation({{0}}, {0}, {0});
    RecordReader reader(file);
    Transportation().Read(reader);
    EXPECT_EQ(FileOf(Transportation()), file);
    EXPECT_EQ(Problem.NodeSupply(4), -8);
    EXPECT_EQ(Problem.TailNode(3), 2);
    EXPECT_EQ(Problem.HeadNode(3), 3);
}

TEST_F(TableauForm, AnAssignmentFileEndsAfterTheCosts)
{
    GiveAssignment({{1, 2}});
    const std::string file = "0,1,2\r\n1\r\n2\r\n";
    EXPECT_EQ(FileOf(Assignment()), file);
    RecordReader reader(file);
    Assignment().Read(reader);
    EXPECT_EQ(FileOf(Assignment()), file);
    EXPECT_EQ(Problem.NodeSupply(3), -1);
}

TEST_F(TableauForm, EmptyFieldsComeBackEmpty)
{
    Session.ProblemTitle = "ASSIGNMENT PROBLEM";
    RecordReader reader(",1,2\r\n\r\n5\r\n");
    Assignment().Read(reader);
    EXPECT_TRUE(Problem.DecimalPlaces.IsEmpty());
    EXPECT_TRUE(Problem.ArcCost(1).IsEmpty());
    EXPECT_EQ(Problem.ArcCost(2).Value(), 5);
}

TEST_F(TableauForm, FilesThatDoNotFitAreErrors)
{
    Session.ProblemTitle = "TRANSPORTATION PROBLEM";
    for (const char* text : {"", "0,1,1\r\n5\r\n1\r\n", "0,1,1\r\nx\r\n1\r\n1\r\n", "0,0,1\r\n", "0,-2,1\r\n",
                             "0,300,300\r\n", "0,1,1\r\n5\r\n99999999999\r\n1\r\n", "0,1,40000\r\n"}) {
        RecordReader reader(text);
        EXPECT_THROW(Transportation().Read(reader), RuntimeError) << text;
    }
}

// ---- the solve command ----

class TableauSolve : public TableauForm {
protected:
    // Shows the tableau that stands in the record and chooses Solve.
    void SolveModule(int number, const char* indicator)
    {
        Session.CurrentModule = static_cast<std::int16_t>(number);
        DisplayProblem();
        Menus.EnablePrinting(false);
        desktop.screen.indicator = indicator;
        desktop.screen.indicators.clear();
        desktop.screen.pointers.clear();
        Commands::Solve();
    }

    void Choose(Criterion maximize)
    {
        desktop.forms.onModal["frmTransObj"] = [this, maximize] {
            submenuWasOn = Menus.Item(EditItemName(2)).Enabled;
            TakeCriterion(maximize);
        };
    }

    bool submenuWasOn = false;
};

TEST_F(TableauSolve, ShowsTheReportAndPutsTheIndicatorBack)
{
    GiveTransportation({{5, 7}}, {3}, {3, 3});
    Choose(Criterion::Maximize);
    SolveModule(2, "Transportation Module");
    EXPECT_EQ(SolutionLines()[3], "    1          0      3");
    EXPECT_EQ(desktop.screen.indicators, (Texts{"Checking Problem Data. . .", "Transportation Module",
                                                "Solving Problem . . .", "Transportation Module"}));
    EXPECT_EQ(desktop.screen.pointers, (std::vector{Pointer::Hourglass, Pointer::Normal}));
    EXPECT_TRUE(Menus.Item(EditItemName(0)).Enabled);
    EXPECT_TRUE(submenuWasOn);
    EXPECT_FALSE(Menus.Item(EditItemName(2)).Enabled);
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoText").Enabled);
    EXPECT_EQ(desktop.forms.Loaded("frmSolution").caption, "Optimal Transportation Schedule");
    EXPECT_TRUE(desktop.forms.Loaded("frmSolution").shown);
    EXPECT_EQ(desktop.dialogs.Last().Title, "Warning:  INSUFFICIENT SUPPLY");
    EXPECT_TRUE(Tableau::Result.Maximize);
}

TEST_F(TableauSolve, ShowsTheAssignmentReport)
{
    GiveAssignment({{5, 7}});
    Choose(Criterion::Minimize);
    SolveModule(3, "Assignment Module");
    EXPECT_EQ(SolutionLines()[2], "       ASSIGN AGENT  1 TO TASK  1               5");
    EXPECT_EQ(desktop.forms.Loaded("frmSolution").caption, "Solution");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(TableauSolve, TheCriterionBeginsAsProposed)
{
    ProposeCriterion(Criterion::Minimize);
    BeginCriterion();
    EXPECT_EQ(MaximizeFlag, "NO");
    ProposeCriterion(Criterion::Maximize);
    BeginCriterion();
    EXPECT_EQ(MaximizeFlag, "YES");
}

TEST_F(TableauSolve, ACancelledCriterionSolvesNothing)
{
    GiveTransportation({{5, 7}}, {3}, {3, 3});
    desktop.forms.onModal["frmTransObj"] = [] { TheCriterion.Cancel(); };
    SolveModule(2, "Transportation Module");
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_EQ(desktop.screen.indicator, "Transportation Module");
    EXPECT_FALSE(Menus.Item(EditItemName(0)).Enabled);
    EXPECT_TRUE(Menus.Item(EditItemName(2)).Enabled);
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
}

// Only a file can hold supplies that add up beyond 32 bits.
TEST_F(TableauSolve, AnOverflowLeavesNoResult)
{
    GiveTransportation({{5}, {7}}, {1, 1}, {3});
    Choose(Criterion::Minimize);
    SolveModule(2, "Transportation Module");
    EXPECT_TRUE(Tableau::Result.Solved);
    Problem.NodeSupply(1) = Problem.NodeSupply(2) = 2000000000;
    EXPECT_THROW(Transportation().Solve(), RuntimeError);
    EXPECT_FALSE(Tableau::Result.Solved);
}

}  // namespace
