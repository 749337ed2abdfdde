#include "lp/IntegerTypes.h"
#include "lp/module.h"

#include <gmock/gmock.h>

#include "basic/error.h"
#include "lp/LP_Engine.h"
#include "lp/VtLP.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"
#include "tableau/Criterion.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using VtLP::Problem;

class LpModule : public testing::Test {
protected:
    LpModule() { Choose(1); }

    static void Choose(int module)
    {
        Session = {};
        Menus.Reset();
        Commands::SelectModule(module);
        Commands::ChooseModule();
    }

    FakeGrid& Objective() { return desktop.forms.Loaded("frmLPproblem").GridOf("Grid(0)"); }
    FakeGrid& Constraints() { return desktop.forms.Loaded("frmLPproblem").GridOf("Grid(1)"); }

    static bool Read(const std::string& text)
    {
        RecordReader reader(text);
        try {
            LinearProgramming().Read(reader);
        } catch (const RuntimeError&) {
            return false;
        }
        return true;
    }

    // max 8 X1 + 5 X2, X1 + X2 < 6, 9 X1 + 5 X2 < 45 on the grids.
    void EnterTables()
    {
        ASSERT_TRUE(Read("3\r\n\"MAX 8X1+5X2\"\r\n\"1X1+1X2<6\"\r\n\"9X1+5X2<45\"\r\n"));
        DisplayProblem();
    }

    static bool IsEnabled(const std::string& item) { return Menus.Item(item).Enabled; }

    FakeDesktop desktop;
};

// ---- files ----

TEST_F(LpModule, WritesTheTextOfTheProblemWithItsLineCount)
{
    EnterTables();
    Constraints().SetText(1, 1, "1.50");
    Constraints().SetText(1, 2, "");
    RecordWriter writer;
    LinearProgramming().Write(writer);
    EXPECT_EQ(writer.Text(), "3\r\n\"MAX 8X1+5X2\"\r\n\"1.50X1<6\"\r\n\"9X1+5X2<45\"\r\n");
}

TEST_F(LpModule, TypeLinesAreNotWritten)
{
    Choose(4);
    EnterTables();
    Problem.LpLines(5) = "DIN";
    RecordWriter writer;
    IntegerLinearProgramming().Write(writer);
    EXPECT_EQ(writer.Text(), "3\r\n\"MAX 8X1+5X2\"\r\n\"1X1+1X2<6\"\r\n\"9X1+5X2<45\"\r\n");
}

TEST_F(LpModule, AFileWithZeroesComesBackAsItWas)
{
    const std::string text = "3\r\n\"MIN 0A-2.5B\"\r\n\"<10\"\r\n\"1B>0\"\r\n";
    ASSERT_TRUE(Read(text));
    DisplayProblem();
    RecordWriter writer;
    LinearProgramming().Write(writer);
    EXPECT_EQ(writer.Text(), text);
}

TEST_F(LpModule, RefusesFilesThatAreNoProblem)
{
    EXPECT_FALSE(Read(""));
    EXPECT_FALSE(Read("A\r\n"));
    EXPECT_FALSE(Read("0\r\n"));
    EXPECT_FALSE(Read("-1\r\n"));
    EXPECT_FALSE(Read("40000\r\n"));
    EXPECT_FALSE(Read("3\r\n\"MAX 1A\"\r\n\"1A<1\"\r\n"));
    EXPECT_FALSE(Read("2\r\n\"MAX 1A\"\r\n\"1A+3<1\"\r\n"));
    EXPECT_TRUE(Read("1\r\n\"MAX 1A\"\r\n"));
}

std::string FileOf(int constraints)
{
    std::string text = std::to_string(constraints + 1) + "\r\n\"MAX 1A\"\r\n";
    for (int i = 0; i < constraints; ++i)
        text += "\"1A<1\"\r\n";
    return text;
}

TEST_F(LpModule, FiftyConstraintsAreReadAndMoreAreNot)
{
    EXPECT_TRUE(Read(FileOf(50)));
    EXPECT_EQ(Problem.NumConstraints, 50);
    EXPECT_FALSE(Read(FileOf(51)));
}

// ---- solving ----

TEST_F(LpModule, ShowsTheOptimumAndEnablesThePrintCommands)
{
    EnterTables();
    Commands::Solve();
    EXPECT_EQ(SolutionLines().at(1), "Objective Function Value =          41.250");
    EXPECT_TRUE(IsEnabled("mnuSolutionPrinttoText"));
    EXPECT_TRUE(IsEnabled("mnudispeditsubs(0)"));
    EXPECT_FALSE(IsEnabled("mnudispeditsubs(3)"));
    EXPECT_FALSE(IsEnabled("mnudispeditsubs(7)"));
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_EQ(desktop.screen.indicator, "Linear Programming Module");
    EXPECT_THAT(desktop.screen.indicators, testing::Contains("Solving Problem . . ."));
    Commands::EditItem(0);
    EXPECT_TRUE(IsEnabled("mnudispeditsubs(3)"));
    EXPECT_FALSE(IsEnabled("mnuSolutionPrinttoText"));
}

TEST_F(LpModule, AMissingCellStopsTheSolve)
{
    EnterTables();
    Constraints().SetText(2, 3, "");
    Commands::Solve();
    EXPECT_EQ(desktop.dialogs.Last(), Refused("Relation Not Entered."));
    EXPECT_FALSE(IsEnabled("mnuSolutionPrinttoText"));
}

TEST_F(LpModule, TheIntegerModuleAsksForTheTypes)
{
    Choose(4);
    EnterTables();
    desktop.forms.onModal["frmIP"] = [] {
        VtLP::TheIntegerChoice.Give({.Kind = VtLP::IntegerKind::AllGeneral});
    };
    Commands::Solve();
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmIP"));
    EXPECT_EQ(SolutionLines().at(1), "Objective Function Value =          40.000");
}

TEST_F(LpModule, ACancelledTypeFormEndsTheSolve)
{
    Choose(4);
    EnterTables();
    desktop.forms.onModal["frmIP"] = [] { VtLP::TheIntegerChoice.Cancel(); };
    Commands::Solve();
    EXPECT_THAT(SolutionLines(), IsEmpty());
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
}

TEST_F(LpModule, TheTypesOfASolveAreThereAtTheNext)
{
    Choose(4);
    EnterTables();
    desktop.forms.onModal["frmIP"] = [] {
        VtLP::TheIntegerChoice.Give({.Kind = VtLP::IntegerKind::AllGeneral});
    };
    Commands::Solve();
    desktop.forms.onModal["frmIP"] = [] {
        const VtLP::IntegerQuestion& question = VtLP::TheIntegerChoice.Question();
        EXPECT_THAT(question.Names, ElementsAre("X1", "X2"));
        EXPECT_EQ(question.Stored.Kind, VtLP::IntegerKind::AllGeneral);
        VtLP::TheIntegerChoice.Give(question.Stored);
    };
    Commands::Solve();
    EXPECT_EQ(SolutionLines().at(1), "Objective Function Value =          40.000");
}

TEST_F(LpModule, AnEndlessSearchIsBrokenOffSilentlyAndTheProblemStays)
{
    Choose(4);
    ASSERT_TRUE(Read("3\r\n\"MAX 1X1\"\r\n\"2X1<1\"\r\n\"-2X1<-1\"\r\n"));
    DisplayProblem();
    desktop.forms.onModal["frmIP"] = [] {
        VtLP::TheIntegerChoice.Give({.Kind = VtLP::IntegerKind::AllGeneral});
    };
    desktop.screen.escapePressed = true;
    Commands::Solve();
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_EQ(desktop.screen.indicator, "Integer Linear Programming Module");
    EXPECT_EQ(Constraints().Text(1, 1), "2");
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
}

// ---- printing ----

TEST_F(LpModule, PrintingALinearProgramSolvesItAgainAsTheGridsStand)
{
    EnterTables();
    Commands::Solve();
    Objective().SetText(1, 1, "10");
    Commands::Print();
    const std::vector<std::string> lines = desktop.printer.Lines();
    EXPECT_THAT(lines, testing::Contains("MAX 10X1+5X2"));
    EXPECT_THAT(lines, testing::Contains("Objective Function Value =          50.000"));
    EXPECT_EQ(SolutionLines().at(1), "Objective Function Value =          50.000");
}

TEST_F(LpModule, PrintingAnIntegerProgramTakesTheLastSolution)
{
    Choose(4);
    EnterTables();
    desktop.forms.onModal["frmIP"] = [] {
        VtLP::TheIntegerChoice.Give({.Kind = VtLP::IntegerKind::AllGeneral});
    };
    Commands::Solve();
    Objective().SetText(1, 1, "10");
    Commands::Print();
    EXPECT_THAT(desktop.printer.Lines(), testing::Contains("MAX 8X1+5X2"));
    EXPECT_EQ(desktop.forms.modals.size(), 1U);
}

// ---- the menus ----

TEST_F(LpModule, TheFormBringsTheItemThatGoesBackToTheProblem)
{
    for (const int module : {1, 4}) {
        Choose(module);
        EXPECT_EQ(Menus.Item("mnudispeditsubs(0)").Caption, "&Display/Edit the Problem");
        EXPECT_TRUE(IsEnabled("mnudispeditsubs(0)"));
        EXPECT_FALSE(IsEnabled("mnudispedit"));
    }
    EnterTables();
    EXPECT_FALSE(IsEnabled("mnudispeditsubs(0)"));
}

TEST_F(LpModule, TheEditMenuHasTheFiveCommands)
{
    EnterTables();
    EXPECT_EQ(Menus.Item("mnudispeditsubs(3)").Caption, "Add Constraints");
    EXPECT_EQ(Menus.Item("mnudispeditsubs(4)").Caption, "Delete Constraint");
    EXPECT_EQ(Menus.Item("mnudispeditsubs(5)").Caption, "Add Variables");
    EXPECT_EQ(Menus.Item("mnudispeditsubs(6)").Caption, "Delete Variable");
    EXPECT_EQ(Menus.Item("mnudispeditsubs(7)").Caption, "Change Optimization Type");
    desktop.forms.onModal["frmTransObj"] = [] { TakeCriterion(Criterion::Minimize); };
    for (const int item : {3, 4, 5, 6})
        Commands::EditItem(item);
    EXPECT_EQ(desktop.dialogs.prompts.size(), 4U);
    Commands::EditItem(7);
    EXPECT_EQ(VtLP::MinimizeFlag, 1);
    EXPECT_FALSE(Session.EditDialogActive);
}

TEST_F(LpModule, TooManyConstraintsShowTheErrorOfTheEditMenu)
{
    EnterTables();
    desktop.dialogs.inputs = {"49"};
    Commands::EditItem(3);
    EXPECT_EQ(desktop.dialogs.Last().Text, "Subscript out of range");
    EXPECT_EQ(Problem.NumConstraints, 2);
}

}  // namespace
