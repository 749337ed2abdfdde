#include "lp/VtLP.h"

#include <gmock/gmock.h>

#include "basic/error.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/fake_desktop.h"
#include "tableau/Criterion.h"
#include "tableau/tanumchk.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using VtLP::Problem;

class LpModel : public testing::Test {
protected:
    LpModel()
    {
        Session = {};
        Session.CurrentModule = 1;
        Menus.Reset();
        VtLP::AllocateLpModel();
    }

    FakeGrid& Objective() { return desktop.forms.Loaded("frmLPproblem").GridOf("Grid(0)"); }
    FakeGrid& Constraints() { return desktop.forms.Loaded("frmLPproblem").GridOf("Grid(1)"); }
    std::string Type() { return desktop.forms.Loaded("frmLPproblem").Text("lblopttype"); }

    // An empty problem on the grids.
    void Start(int constraints, int variables)
    {
        Problem.NumConstraints = static_cast<std::int16_t>(constraints);
        Problem.NumVariables = static_cast<std::int16_t>(variables);
        Session.NewProblem = true;
        DisplayProblem();
        Session.NewProblem = false;
    }

    void Fill(FakeGrid& grid, int row, const std::vector<std::string>& cells)
    {
        for (std::size_t i = 0; i < cells.size(); ++i)
            grid.SetText(row, static_cast<int>(i) + 1, cells[i]);
    }

    // Types the text into the cell and leaves it.
    int Enter(int index, int row, int column, const std::string& text)
    {
        (index == 0 ? Objective() : Constraints()).SetText(row, column, text);
        return VtLP::ValidateCell(index, row, column, text);
    }

    FakeDesktop desktop;
};

// ---- the form of the sizes ----

TEST_F(LpModel, TakesTheSizesAndTheType)
{
    Session.DialogCancelled = true;
    desktop.forms.onModal["frmLPFeatures"] = [] { EXPECT_TRUE(VtLP::TakeFeatures("2", "3", true, false)); };
    EXPECT_TRUE(VtLP::AskFeatures());
    EXPECT_EQ(Problem.NumConstraints, 2);
    EXPECT_EQ(Problem.NumVariables, 3);
    EXPECT_EQ(VtLP::MinimizeFlag, 1);
    EXPECT_FALSE(Session.DialogCancelled);
    desktop.forms.onModal["frmLPFeatures"] = [] {
        EXPECT_TRUE(VtLP::TakeFeatures("50", "100", false, true));
    };
    EXPECT_TRUE(VtLP::AskFeatures());
    EXPECT_EQ(VtLP::MinimizeFlag, 0);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

struct FeatureCase {
    const char* Constraints;
    const char* Variables;
    bool Chosen;
    const char* Message;
    int Box;  // 2: the types
};

TEST_F(LpModel, RefusesSizesInTheOrderOfItsChecks)
{
    const std::vector<FeatureCase> cases = {
        {"", "", false, "Number of Constraints Must be an Integer.", 0},
        {"2.5", "3", true, "Number of Constraints Must be an Integer.", 0},
        {"two", "3", true, "Number of Constraints Must be an Integer.", 0},
        {"51", "", true, "Number of Variables Must be an Integer.", 1},
        {"51", "3.0", true, "Number of Variables Must be an Integer.", 1},
        {"51", "101", true, "You may only solve a problem with a maximum of 50 constraints.", 0},
        {"1,000", "3", true, "You may only solve a problem with a maximum of 50 constraints.", 0},
        {"50", "101", false, "You may only solve a problem with a maximum of 100 variables.", 1},
        {"50", "100", false, "An optimization type must be selected.", 2},
    };
    for (const FeatureCase& entry : cases) {
        int pointed = -1;
        EXPECT_FALSE(VtLP::TakeFeatures(entry.Constraints, entry.Variables, entry.Chosen, false,
                                        [&pointed](int box) { pointed = box; }));
        EXPECT_EQ(pointed, entry.Box);
        EXPECT_EQ(desktop.dialogs.Last(), Refused(entry.Message));
        EXPECT_EQ(Session.IsNumber, "YES");  // linear programs leave the verdict passing
    }
}

TEST_F(LpModel, ASizeIsStoredAsSoonAsItHasPassed)
{
    EXPECT_FALSE(VtLP::TakeFeatures("7", "101", true, false));
    EXPECT_EQ(Problem.NumConstraints, 7);
    EXPECT_EQ(Problem.NumVariables, 0);
}

TEST_F(LpModel, AskingForSizesEndsTheProblemBefore)
{
    Problem.LpCoefficients(0, 1) = 4;
    Problem.LpVariableNames(1) = "A";
    desktop.forms.onModal["frmLPFeatures"] = [] { VtLP::TheFeatures.Cancel(); };
    EXPECT_FALSE(VtLP::AskFeatures());
    EXPECT_EQ(Problem.LpCoefficients(0, 1), 0);
    EXPECT_EQ(Problem.LpVariableNames(1), "");
}

TEST_F(LpModel, SizesOfZeroPassAndNegativeOnesDoNot)
{
    desktop.forms.onModal["frmLPFeatures"] = [] { VtLP::TakeFeatures("0", "2", false, true); };
    EXPECT_TRUE(VtLP::AskFeatures());
    EXPECT_EQ(Problem.NumConstraints, 0);
    desktop.forms.onModal["frmLPFeatures"] = [] { VtLP::TakeFeatures("2", "0", false, true); };
    EXPECT_TRUE(VtLP::AskFeatures());
    EXPECT_EQ(Problem.NumVariables, 0);
    desktop.forms.onModal["frmLPFeatures"] = [] { VtLP::TakeFeatures("2", "-1", false, true); };
    EXPECT_THROW(VtLP::AskFeatures(), RuntimeError);
}

TEST_F(LpModel, TheTypeIsProposedToTheCriterionOfOtherModules)
{
    VtLP::SetMinimizeFlag(true);
    BeginCriterion();
    EXPECT_EQ(MaximizeFlag, "NO");
    VtLP::SetMinimizeFlag(false);
    BeginCriterion();
    EXPECT_EQ(MaximizeFlag, "YES");
}

TEST_F(LpModel, ItsSizesAreItsNumbers)
{
    Problem.NumConstraints = 4;
    Problem.NumVariables = 7;
    const std::vector<double> numbers = VtLP::Numbers();
    EXPECT_THAT(numbers, ElementsAre(4, 7));
    VtLP::AllocateLpModel();
    VtLP::TakeNumbers(numbers);
    EXPECT_EQ(Problem.NumConstraints, 4);
    EXPECT_EQ(Problem.NumVariables, 7);
}

TEST_F(LpModel, ItsTextHasLinesTo255)
{
    EXPECT_NO_THROW(Problem.LpLines(255) = "X");
    EXPECT_THROW(Problem.LpLines(256) = "X", RuntimeError);
}

TEST_F(LpModel, NewAsksForTheSizesAndShowsAnEmptyProblem)
{
    desktop.forms.onModal["frmLPFeatures"] = [] { VtLP::TakeFeatures("1", "2", false, true); };
    Session.NewProblem = true;
    BeginProblem();
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmLPFeatures"));
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
    EXPECT_THAT(Objective().RowTexts(0), ElementsAre("Variable Names:", "X1", "X2"));
    EXPECT_THAT(Objective().RowTexts(1), ElementsAre("Coefficients:", "", ""));
}

TEST_F(LpModel, ACancelledNewShowsNothing)
{
    desktop.forms.onModal["frmLPFeatures"] = [] { VtLP::TheFeatures.Cancel(); };
    BeginProblem();
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    EXPECT_EQ(desktop.forms.menuFocused, 1);
}

// ---- onto the grids ----

TEST_F(LpModel, ANewProblemHasStandardNamesAndEmptyCells)
{
    Start(2, 2);
    EXPECT_THAT(Objective().RowTexts(0), ElementsAre("Variable Names:", "X1", "X2"));
    EXPECT_THAT(Constraints().RowTexts(0), ElementsAre("Subject To:", "           X1", "           X2",
                                                       "Relation(<,=,>)", "Right-Hand-Side"));
    EXPECT_THAT(Constraints().RowTexts(2), ElementsAre("           Constraint 2", "", "", "", ""));
    EXPECT_EQ(Objective().Row(), 1);
    EXPECT_EQ(Objective().Column(), 1);
    EXPECT_GT(Objective().focused, 0);
    EXPECT_EQ(Objective().Rows(), 2);
    for (const char* control : {"lblopttype", "Grid(0)", "Grid(1)", "lblInfo"})
        EXPECT_TRUE(desktop.forms.Loaded("frmLPproblem").visible[control]) << control;
}

// A grid that has each text that it gets checked as if it was typed.
class CheckedGrid : public FakeGrid {
public:
    explicit CheckedGrid(int index) : index_(index) {}

    void Resize(int rows, int columns, int fixedRows, int fixedColumns) override
    {
        FakeGrid::Resize(rows, columns, fixedRows, fixedColumns);
        fixed = {fixedRows, fixedColumns};
    }

    void SetText(int row, int column, std::string_view text) override
    {
        FakeGrid::SetText(row, column, text);
        EXPECT_EQ(VtLP::ValidateCell(index_, row, column, text), kCellStored) << text;
    }

    std::pair<int, int> fixed;  // rows, columns

private:
    int index_;
};

class CheckedForm : public FakeForm {
public:
    FakeGrid& GridOf(std::string_view control) override
    {
        return control == "Grid(0)" ? objective : constraints;
    }

    CheckedGrid objective{0};
    CheckedGrid constraints{1};
};

class CheckedForms : public FakeForms {
public:
    FakeForm& Loaded(std::string_view form) override
    {
        return form == "frmLPproblem" ? problem : FakeForms::Loaded(form);
    }

    CheckedForm problem;
};

// Headings are no numbers, and a file may hold a right-hand side below zero and a name of any length.
TEST_F(LpModel, NoCellIsCheckedWhileTheGridsAreFilled)
{
    CheckedForms forms;
    desktop::Install({&desktop.dialogs, &desktop.screen, &forms, &desktop.printer});
    Problem.NumConstraints = 1;
    Problem.NumVariables = 1;
    Problem.LpVariableNames(1) = "NINELETTE";
    Problem.LpCoefficients(1, 0) = -7;
    VtLP::ModelToGrid();
    EXPECT_EQ(forms.problem.constraints.Text(1, 3), "-7");
    EXPECT_EQ(forms.problem.objective.fixed, std::pair(0, 1));  // the names can be edited
    EXPECT_EQ(forms.problem.constraints.fixed, std::pair(1, 1));
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_EQ(VtLP::ValidateCell(1, 1, 3, "-7"), kCellRefused);
}

TEST_F(LpModel, AStoredProblemShowsItsValues)
{
    Problem.NumConstraints = 3;
    Problem.NumVariables = 2;
    VtLP::MinimizeFlag = 1;
    Problem.LpVariableNames(1) = "AB";
    Problem.LpVariableNames(2) = "C";
    Problem.LpCoefficients(0, 1) = 0;
    Problem.LpCoefficients(0, 2) = -0.5;
    Problem.LpCoefficients(1, 1) = 1.25;
    Problem.LpCoefficients(1, 0) = -7;
    Problem.LpRelations(1) = VtLP::kLess;
    Problem.LpRelations(2) = VtLP::kEqual;
    Problem.LpRelations(3) = VtLP::kGreater;
    DisplayProblem();
    EXPECT_EQ(Type(), "Optimization Type:  Min");
    EXPECT_THAT(Objective().RowTexts(0), ElementsAre("Variable Names:", "AB", "C"));
    EXPECT_THAT(Objective().RowTexts(1), ElementsAre("Coefficients:", "", "-0.5"));
    EXPECT_EQ(Constraints().Text(0, 1), "           AB");
    EXPECT_THAT(Constraints().RowTexts(1), ElementsAre("           Constraint 1", "1.25", "0", "<", "-7"));
    EXPECT_EQ(Constraints().Text(2, 3), "=");
    EXPECT_EQ(Constraints().Text(3, 3), ">");
}

TEST_F(LpModel, TheTypeIsShownShort)
{
    VtLP::MinimizeFlag = 0;
    Start(1, 1);
    EXPECT_EQ(Type(), "Optimization Type:  Max");
}

TEST_F(LpModel, NegativeSizesAreARunTimeErrorAndLeaveTheScreenAlone)
{
    desktop.forms.onModal["frmLPFeatures"] = [] { VtLP::TakeFeatures("-1", "2", false, true); };
    EXPECT_THROW(BeginProblem(), RuntimeError);
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
}

TEST_F(LpModel, AProblemWithoutConstraintsHasItsHeadingOnly)
{
    Start(0, 1);
    EXPECT_EQ(Constraints().Rows(), 1);
}

// ---- from the grids ----

TEST_F(LpModel, ReadsTheModelFromTheGrids)
{
    Start(2, 3);
    Fill(Objective(), 1, {"3", "", "-2.5"});
    Fill(Constraints(), 1, {"1", "0", "-4", "<", "10"});
    Fill(Constraints(), 2, {"", "2.1234", "", ">", "8.5"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpCoefficients(0, 1), 3);
    EXPECT_EQ(Problem.LpCoefficients(0, 2), 0);
    EXPECT_EQ(Problem.LpCoefficients(0, 3), -2.5);
    EXPECT_EQ(Problem.LpCoefficients(1, 3), -4);
    EXPECT_EQ(Problem.LpCoefficients(2, 2), 2.1234);
    EXPECT_EQ(Problem.LpCoefficients(1, 0), 10);
    EXPECT_EQ(Problem.LpRelations(1), VtLP::kLess);
    EXPECT_EQ(Problem.LpRelations(2), VtLP::kGreater);
    EXPECT_EQ(Problem.LpVariableNames(3), "X3");
    EXPECT_EQ(Problem.LpDecimalPlaces, 4);
}

TEST_F(LpModel, TheFileLineHoldsEveryVariableAndTheReportLineThoseThatCount)
{
    Start(1, 4);
    Fill(Objective(), 1, {"0", "3", "", "-2.50"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpLines(2), "MAX 0X1+3X2+0X3-2.5X4");
    EXPECT_EQ(Problem.LpObjectiveLine, "MAX 3X2-2.5X4");
}

TEST_F(LpModel, SmallAndLargeCoefficientsStandInTheObjectiveWithoutAnExponent)
{
    Start(1, 3);
    Fill(Objective(), 1, {"0.00001", "-.0000002", "1000000000000000"});
    VtLP::GridToModel();
    const std::string line = "MAX 0.00001X1-0.0000002X2+1000000000000000X3";
    EXPECT_EQ(Problem.LpLines(2), line);
    EXPECT_EQ(Problem.LpObjectiveLine, line);
}

TEST_F(LpModel, AnObjectiveWithoutCoefficientsIsItsWord)
{
    VtLP::MinimizeFlag = 1;
    Start(1, 1);
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpLines(2), "MIN 0X1");
    EXPECT_EQ(Problem.LpObjectiveLine, "MIN ");
}

TEST_F(LpModel, AConstraintLineKeepsTheTextOfItsCells)
{
    Start(1, 4);
    Fill(Constraints(), 1, {"", "-1.50", "0.0", "007", "=", "3.10"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpLines(3), "-1.50X2+007X4=3.10");
}

TEST_F(LpModel, AnEmptyConstraintIsARelationAndARightHandSide)
{
    Start(1, 2);
    Fill(Constraints(), 1, {"", "0", "<", "10"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpLines(3), "<10");
}

TEST_F(LpModel, AnyOtherRelationCountsAsGreater)
{
    Start(1, 1);
    Fill(Constraints(), 1, {"1", "?", "10"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpRelations(1), VtLP::kGreater);
}

TEST_F(LpModel, ADigitAsARelationIsNoCoefficient)
{
    Start(1, 1);
    Fill(Constraints(), 1, {"2", "5", "10"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpLines(3), "2X1510");
    EXPECT_EQ(Problem.LpCoefficients(1, 2), 0);
}

TEST_F(LpModel, DecimalsAreAtLeastThreeAndThoseOfAnyNumberThatCounts)
{
    Start(1, 1);
    Fill(Objective(), 1, {"1.25"});
    Fill(Constraints(), 1, {"1", "<", "1"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpDecimalPlaces, 3);
    Fill(Constraints(), 1, {"1", "<", "1.00000"});
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpDecimalPlaces, 5);
    Fill(Constraints(), 1, {"0.000000", "<", "1"});  // a zero is not read any further
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpDecimalPlaces, 3);
    Fill(Objective(), 1, {"0.000000"});  // but in the objective it is
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpDecimalPlaces, 6);
}

TEST_F(LpModel, ReadingAgainForgetsWhatAnEngineHasChanged)
{
    Start(1, 1);
    Fill(Objective(), 1, {"4"});
    Problem.LpCoefficients(0, 1) = -4;
    Problem.LpCoefficients(1, 2) = 1;
    Problem.LpVariableNames(2) = "Slack 1";
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpCoefficients(0, 1), 4);
    EXPECT_EQ(Problem.LpCoefficients(1, 2), 0);
    EXPECT_EQ(Problem.LpVariableNames(2), "");
}

// ---- cells ----

struct CellCase {
    int Grid;
    int Row;
    int Column;
    const char* Text;
    const char* Message;  // empty: stored
};

TEST_F(LpModel, ChecksEachKindOfCell)
{
    Start(2, 2);
    const std::vector<CellCase> cases = {
        {1, 1, 1, "-3.5", ""},
        {1, 1, 1, "-", ""},
        {1, 1, 1, "", ""},
        {1, 1, 1, "3-5", "Constraint Values Must Be Numeric."},
        {1, 1, 2, "1.2.3", "Constraint Values Must Be Numeric."},
        {1, 1, 3, "<", ""},
        {1, 1, 3, "<=", "Relation is Invalid.  Please enter <, >, or =."},
        {1, 1, 4, "0", ""},
        {1, 1, 4, "12.5", ""},
        {1, 1, 4, "-0.5", "Right Hand Sides Must be Positive"},
        {1, 1, 4, "5-", "Constraint Values Must Be Numeric."},
        {0, 1, 2, "-2.5", ""},
        {0, 1, 2, "--2", "Objective Function Coefficients Must Be Numeric."},
        {0, 0, 2, "EIGHTLET", ""},
        {0, 0, 2, "NINELETTE", "Variable Names must be less than 8 Characters Long."},
    };
    for (const CellCase& entry : cases) {
        desktop.dialogs.messages.clear();
        const int code = Enter(entry.Grid, entry.Row, entry.Column, entry.Text);
        const std::string message = entry.Message;
        EXPECT_EQ(code, message.empty() ? kCellStored : kCellRefused) << entry.Text;
        if (message.empty())
            EXPECT_THAT(desktop.dialogs.messages, IsEmpty()) << entry.Text;
        else
            EXPECT_THAT(desktop.dialogs.messages, ElementsAre(Refused(message))) << entry.Text;
    }
}

TEST_F(LpModel, ANameFollowsIntoTheHeadingOfTheConstraints)
{
    Start(1, 2);
    Enter(0, 0, 1, "DESKS");
    EXPECT_EQ(Constraints().Text(0, 1), "       DESKS");
    Enter(0, 0, 1, "NINELETTE");
    EXPECT_EQ(Constraints().Text(0, 1), "       DESKS");
    Enter(0, 1, 2, "7");
    EXPECT_EQ(Constraints().Text(0, 2), "           X2");
}

TEST_F(LpModel, OpeningAMenuMirrorsTheNameAtTheCursor)
{
    Start(1, 2);
    Objective().SetText(0, 2, "Q");
    Objective().Select(1, 2);
    VtLP::FinishEdit();
    EXPECT_EQ(Constraints().Text(0, 2), "           X2");
    Objective().Select(0, 2);
    VtLP::FinishEdit();
    EXPECT_EQ(Constraints().Text(0, 2), "           Q");
    Objective().SetText(0, 1, "P");
    Objective().Select(0, 1);
    VtLP::FinishEdit();
    EXPECT_EQ(Constraints().Text(0, 1), "           P");
    Objective().Select(0, 0);  // the margin is no name
    VtLP::FinishEdit();
    EXPECT_EQ(Constraints().Text(0, 0), "Subject To:");
}

TEST_F(LpModel, OpeningAMenuWithoutAProblemMirrorsNothing)
{
    EXPECT_NO_THROW(VtLP::FinishEdit());
}

// ---- keys ----

TEST_F(LpModel, TheRelationColumnTakesTheThreeRelations)
{
    Start(1, 1);
    for (const char key : {'<', '=', '>'})
        EXPECT_EQ(VtLP::JudgeKey(1, 1, 2, key, true), VtLP::Key::Taken);
    for (const char key : {';', '?', '1', ' ', '-'})
        EXPECT_EQ(VtLP::JudgeKey(1, 1, 2, key, true), VtLP::Key::Beeps);
}

TEST_F(LpModel, NamesTakeLettersDigitsAndUnderscores)
{
    Start(1, 1);
    for (const char key : {'a', 'z', 'A', 'Z', '_'})
        EXPECT_EQ(VtLP::JudgeKey(0, 0, 1, key, true), VtLP::Key::Taken);
    EXPECT_EQ(VtLP::JudgeKey(0, 0, 1, '0', false), VtLP::Key::Taken);
    for (const char key : {'-', '.', ' ', '@', '[', '`', '{'})
        EXPECT_EQ(VtLP::JudgeKey(0, 0, 1, key, false), VtLP::Key::Beeps);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(LpModel, ANameDoesNotBeginWithADigit)
{
    Start(1, 1);
    EXPECT_EQ(VtLP::JudgeKey(0, 0, 1, '9', true), VtLP::Key::Refused);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("The first position of a variable cannot contain a number."));
}

TEST_F(LpModel, AllOtherCellsTakeDigitsMinusAndPoint)
{
    Start(1, 1);
    for (const char key : {'0', '9', '-', '.'}) {
        EXPECT_EQ(VtLP::JudgeKey(0, 1, 1, key, true), VtLP::Key::Taken);
        EXPECT_EQ(VtLP::JudgeKey(1, 1, 1, key, true), VtLP::Key::Taken);
        EXPECT_EQ(VtLP::JudgeKey(1, 1, 3, key, true), VtLP::Key::Taken);
    }
    for (const char key : {'+', ',', 'x', '<', ' '})
        EXPECT_EQ(VtLP::JudgeKey(1, 1, 1, key, false), VtLP::Key::Beeps);
}

// ---- the Edit menu ----

class LpEdit : public LpModel {
protected:
    LpEdit()
    {
        Start(2, 2);
        Fill(Objective(), 1, {"3", "2"});
        Fill(Constraints(), 1, {"1", "", "<", "4"});
        Fill(Constraints(), 2, {"", "2", ">", "12"});
        desktop.forms.menuFocused = 0;
    }
};

const std::pair<std::string, std::string> kAskConstraints{"Enter the Number of Constraints to Add:",
                                                          "Add Constraints"};
const std::pair<std::string, std::string> kAskVariables{"Enter the Number of Variables to Add:",
                                                        "Add Variables"};
const std::pair<std::string, std::string> kAskConstraint{"Enter the Number of the Constraint to Delete:",
                                                         "Delete Constraint"};
const std::pair<std::string, std::string> kAskVariable{"Enter the Name of the Variable to Delete:",
                                                       "Delete Variable"};

TEST_F(LpEdit, NewConstraintsComeBehindTheOthersWithTheCursorInTheFirst)
{
    desktop.dialogs.inputs = {"2"};
    VtLP::AddConstraints();
    EXPECT_THAT(desktop.dialogs.prompts, ElementsAre(kAskConstraints));
    EXPECT_EQ(Problem.NumConstraints, 4);
    EXPECT_THAT(Constraints().RowTexts(1), ElementsAre("           Constraint 1", "1", "0", "<", "4"));
    EXPECT_THAT(Constraints().RowTexts(3), ElementsAre("           Constraint 3", "0", "0", "", "0"));
    EXPECT_EQ(Constraints().Row(), 3);
    EXPECT_EQ(Constraints().Column(), 1);
    EXPECT_EQ(Constraints().focused, 1);
}

TEST_F(LpEdit, ASingleNewConstraintGetsTheCursorTooEvenOfASingleVariable)
{
    desktop.dialogs.inputs = {"1"};
    VtLP::AddConstraints();
    EXPECT_EQ(Constraints().Row(), 3);
    EXPECT_EQ(Constraints().focused, 1);
    Start(1, 1);
    desktop.dialogs.inputs = {"2"};
    VtLP::AddConstraints();
    EXPECT_EQ(Constraints().Row(), 2);
    EXPECT_EQ(Constraints().focused, 2);
}

TEST_F(LpEdit, NewVariablesComeBehindTheOthersWithoutNames)
{
    desktop.dialogs.inputs = {"1"};
    VtLP::AddVariables();
    EXPECT_THAT(desktop.dialogs.prompts, ElementsAre(kAskVariables));
    EXPECT_EQ(Problem.NumVariables, 3);
    EXPECT_THAT(Objective().RowTexts(0), ElementsAre("Variable Names:", "X1", "X2", ""));
    EXPECT_THAT(Constraints().RowTexts(2), ElementsAre("           Constraint 2", "0", "2", "0", ">", "12"));
    EXPECT_EQ(Objective().Column(), 3);
}

TEST_F(LpEdit, TheBoxComesBackUntilTheAnswerIsTaken)
{
    desktop.dialogs.inputs = {"one", "1.0", "-1", "0"};
    VtLP::AddConstraints();
    EXPECT_THAT(desktop.dialogs.messages,
                ElementsAre(Refused("The Number of Constraints must be an Integer!!"),
                            Refused("The Number of Constraints must be an Integer!!"),
                            Refused("Constraints to Add Must be Positive")));
    EXPECT_EQ(Problem.NumConstraints, 2);
    EXPECT_EQ(Constraints().Rows(), 3);

    desktop.dialogs.messages.clear();
    desktop.dialogs.inputs = {"X", "-2", "0"};
    VtLP::AddVariables();
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(Refused("The Number of Variables must be an Integer!!"),
                                                      Refused("Variables to Add Must be Positive")));
    EXPECT_EQ(Problem.NumVariables, 2);
}

TEST_F(LpEdit, AnEmptyAnswerChangesNothing)
{
    VtLP::AddConstraints();
    VtLP::AddVariables();
    VtLP::DeleteConstraint();
    VtLP::DeleteVariable();
    EXPECT_EQ(desktop.forms.menuFocused, 4);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_EQ(Problem.NumConstraints, 2);
    EXPECT_EQ(Problem.NumVariables, 2);
}

TEST_F(LpEdit, WhatTheTablesCannotHoldIsARunTimeErrorAndTheProblemStays)
{
    desktop.dialogs.inputs = {"49"};
    EXPECT_THROW(VtLP::AddConstraints(), RuntimeError);
    desktop.dialogs.inputs = {"199"};
    EXPECT_THROW(VtLP::AddVariables(), RuntimeError);
    desktop.dialogs.inputs = {"32767"};
    EXPECT_THROW(VtLP::AddVariables(), RuntimeError);
    EXPECT_EQ(Problem.NumConstraints, 2);
    EXPECT_EQ(Problem.NumVariables, 2);
    EXPECT_EQ(Constraints().Rows(), 3);

    desktop.dialogs.inputs = {"48"};
    VtLP::AddConstraints();
    EXPECT_EQ(Problem.NumConstraints, 50);
    desktop.dialogs.inputs = {"198"};
    VtLP::AddVariables();
    EXPECT_EQ(Problem.NumVariables, 200);
}

TEST_F(LpEdit, ADeletedConstraintLetsTheOthersMoveUp)
{
    desktop.dialogs.inputs = {"1"};
    VtLP::DeleteConstraint();
    EXPECT_THAT(desktop.dialogs.prompts, ElementsAre(kAskConstraint));
    EXPECT_EQ(Problem.NumConstraints, 1);
    EXPECT_THAT(Constraints().RowTexts(1), ElementsAre("           Constraint 1", "0", "2", ">", "12"));
    EXPECT_THAT(Objective().RowTexts(1), ElementsAre("Coefficients:", "3", "2"));
}

TEST_F(LpEdit, ADeletedLastConstraintOrVariableLeavesNothing)
{
    desktop.dialogs.inputs = {"2"};
    VtLP::DeleteConstraint();
    EXPECT_EQ(Problem.NumConstraints, 1);
    EXPECT_EQ(Problem.LpCoefficients(2, 0), 0);
    EXPECT_EQ(Problem.LpCoefficients(2, 2), 0);
    EXPECT_EQ(Problem.LpRelations(2), 0);
    desktop.dialogs.inputs = {"X2"};
    VtLP::DeleteVariable();
    EXPECT_EQ(Problem.NumVariables, 1);
    EXPECT_EQ(Problem.LpCoefficients(0, 2), 0);
    EXPECT_EQ(Problem.LpVariableNames(2), "");
    EXPECT_THAT(Constraints().RowTexts(1), ElementsAre("           Constraint 1", "1", "<", "4"));
}

TEST_F(LpEdit, ConstraintNumbersAreCheckedInOrder)
{
    desktop.dialogs.inputs = {"1.5", "-1", "3", "2"};
    VtLP::DeleteConstraint();
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(Refused("The Constraint Number must be an Integer!!"),
                                                      Refused("Constraint Number Must be Positive"),
                                                      Refused("Constraint Number Doesn't Exist!")));
    EXPECT_THAT(Constraints().RowTexts(1), ElementsAre("           Constraint 1", "1", "0", "<", "4"));
}

TEST_F(LpEdit, DeletingConstraintZeroMovesEveryRowUp)
{
    desktop.dialogs.inputs = {"0"};
    VtLP::DeleteConstraint();
    EXPECT_EQ(Problem.NumConstraints, 1);
    EXPECT_THAT(Objective().RowTexts(1), ElementsAre("Coefficients:", "1", ""));
    EXPECT_THAT(Constraints().RowTexts(1), ElementsAre("           Constraint 1", "0", "2", ">", "12"));
}

TEST_F(LpEdit, WithoutConstraintsThereIsNoneToDelete)
{
    desktop.dialogs.inputs = {"1"};
    VtLP::DeleteConstraint();
    desktop.dialogs.inputs = {"1"};
    VtLP::DeleteConstraint();
    EXPECT_EQ(Problem.NumConstraints, 0);
    desktop.dialogs.inputs = {"0"};
    EXPECT_THROW(VtLP::DeleteConstraint(), RuntimeError);
    EXPECT_EQ(Problem.NumConstraints, 0);
}

TEST_F(LpEdit, ADeletedVariableLetsTheOthersMoveLeft)
{
    desktop.dialogs.inputs = {" X1 "};
    VtLP::DeleteVariable();
    EXPECT_THAT(desktop.dialogs.prompts, ElementsAre(kAskVariable));
    EXPECT_EQ(Problem.NumVariables, 1);
    EXPECT_THAT(Objective().RowTexts(0), ElementsAre("Variable Names:", "X2"));
    EXPECT_THAT(Objective().RowTexts(1), ElementsAre("Coefficients:", "2"));
    EXPECT_THAT(Constraints().RowTexts(1), ElementsAre("           Constraint 1", "0", "<", "4"));
    EXPECT_THAT(Constraints().RowTexts(2), ElementsAre("           Constraint 2", "2", ">", "12"));
}

TEST_F(LpEdit, NamesAreLookedUpAsTyped)
{
    desktop.dialogs.inputs = {"x1"};
    VtLP::DeleteVariable();
    EXPECT_EQ(desktop.dialogs.Last(), Refused("The Variable Named x1 does not Exist."));
    EXPECT_EQ(Problem.NumVariables, 2);
}

TEST_F(LpEdit, TheTypeIsChangedByTheCriterionForm)
{
    desktop.forms.onModal["frmTransObj"] = [] { TakeCriterion(Criterion::Minimize); };
    VtLP::ChangeOptimizationType();
    EXPECT_EQ(VtLP::MinimizeFlag, 1);
    EXPECT_EQ(Type(), "Optimization Type:  Minimize");
    desktop.forms.onModal["frmTransObj"] = [] { TakeCriterion(Criterion::Maximize); };
    VtLP::ChangeOptimizationType();
    EXPECT_EQ(VtLP::MinimizeFlag, 0);
    EXPECT_EQ(Type(), "Optimization Type:  Maximize");
    VtLP::GridToModel();
    EXPECT_EQ(Problem.LpObjectiveLine, "MAX 3X1+2X2");
}

TEST_F(LpEdit, TheCriterionFormComesUpWithTheTypeInForce)
{
    for (const bool minimize : {true, false}) {
        VtLP::SetMinimizeFlag(minimize);
        Criterion shown = Criterion::None;
        desktop.forms.onModal["frmTransObj"] = [&shown] {
            shown = TheCriterion.Question().InForce;
            TheCriterion.Cancel();
        };
        VtLP::ChangeOptimizationType();
        EXPECT_EQ(shown, minimize ? Criterion::Minimize : Criterion::Maximize);
    }
}

TEST_F(LpEdit, ACancelledCriterionChangesNothing)
{
    desktop.forms.onModal["frmTransObj"] = [] { TheCriterion.Cancel(); };
    VtLP::ChangeOptimizationType();
    EXPECT_EQ(VtLP::MinimizeFlag, 0);
    EXPECT_EQ(Type(), "Optimization Type:  Max");
}

}  // namespace
