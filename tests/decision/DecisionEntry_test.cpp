#include <gmock/gmock.h>

#include "decision/VtDecisionAnalysis.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"
#include "tableau/Criterion.h"

using Decision::FeatureBox;
using Decision::Problem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* kNotAProbability = "NOTE:  THE PROBABILITY MUST BE BETWEEN 0 AND 1.";
constexpr const char* kNotAPayoff = "NOTE:  THE PAYOFF MUST BE A NUMERICAL VALUE.";

const ShownMessage kIncomplete{"Problem is incomplete.  Zeroes will be entered for empty cells",
                               "Problem Incomplete", Icon::Exclamation, Buttons::OKCancel};

class DecisionEntry : public testing::Test {
protected:
    void SetUp() override
    {
        Commands::Start();
        Commands::SelectModule(10);
        Commands::ChooseModule();
    }

    // Two alternatives, two states and, with a strategy, three outcomes.
    void NewProblem(bool states, bool strategy)
    {
        desktop.forms.onModal["frmDecisionFeatures"] = [states, strategy] {
            Decision::TakeFeatures({.Alternatives = "2",
                                    .States = "2",
                                    .Indicators = strategy ? "3" : "",
                                    .StateProbabilities = states,
                                    .Strategy = strategy});
        };
        Commands::New();
    }

    void Fill(int pass, const std::vector<std::vector<std::string>>& rows)
    {
        for (std::size_t row = 0; row < rows.size(); ++row)
            for (std::size_t column = 0; column < rows[row].size(); ++column)
                Grid(pass).SetText(static_cast<int>(row) + 1, static_cast<int>(column) + 1,
                                   rows[row][column]);
    }

    FakeForm& Form() { return desktop.forms.Loaded("frmDecisionProblem"); }
    FakeGrid& Grid(int pass) { return Form().GridOf("Grid(" + std::to_string(pass) + ")"); }

    FakeDesktop desktop;
};

struct CountRow {
    const char* Text;
    const char* Message;  // empty: taken
};

void ExpectCounts(FakeDesktop& desktop, bool (*take)(std::string_view), const std::string& what)
{
    const std::string whole = "NOTE:  THE NUMBER OF " + what + " MUST BE AN INTEGER.";
    const std::string range = "NOTE:  THE NUMBER OF " + what + " MUST BE BETWEEN 1 AND 10.";
    for (const char* text : {"", "2", "10", " 3", "4.0", "1E1"}) {
        desktop.dialogs.messages.clear();
        EXPECT_TRUE(take(text)) << text;
        EXPECT_THAT(desktop.dialogs.messages, IsEmpty()) << text;
    }
    for (const char* text : {"2.5", "0.5", "10.5", "-1.5"}) {
        EXPECT_FALSE(take(text)) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(whole)) << text;
    }
    for (const char* text : {"0", "11", "-1", "99999999", "abc", " "}) {
        EXPECT_FALSE(take(text)) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(range)) << text;
    }
}

}  // namespace

TEST_F(DecisionEntry, TheNumberOfAlternativesIsAWholeOneTo10)
{
    ExpectCounts(desktop, Decision::TakeAlternativeCount, "DECISION ALTERNATIVES");
    EXPECT_TRUE(Decision::TakeAlternativeCount("1"));
}

TEST_F(DecisionEntry, TheNumberOfStatesIsAWholeOneTo10)
{
    ExpectCounts(desktop, Decision::TakeStateCount, "STATES OF NATURE");
    EXPECT_TRUE(Decision::TakeStateCount("1"));
}

TEST_F(DecisionEntry, TheNumberOfOutcomesIsAWholeOneTo10)
{
    ExpectCounts(desktop, Decision::TakeIndicatorCount, "INDICATOR OUTCOMES");
}

TEST_F(DecisionEntry, OneOutcomeIsWarnedOfAndTaken)
{
    EXPECT_TRUE(Decision::TakeIndicatorCount("1"));
    EXPECT_THAT(desktop.dialogs.messages,
                ElementsAre(ShownMessage{"With one indicator outcome the sample carries no information.",
                                         "WARNING!!", Icon::Exclamation, Buttons::OK}));
}

TEST_F(DecisionEntry, TheFeaturesRefuseTheFirstEmptyBox)
{
    int pointed = -1;
    const auto point = [&pointed](int box) { pointed = box; };
    EXPECT_EQ(Decision::TakeFeatures({}, point), FeatureBox::Alternatives);
    EXPECT_EQ(pointed, 0);
    EXPECT_EQ(desktop.dialogs.Last(),
              Refused("NOTE:  THE NUMBER OF DECISION ALTERNATIVES MUST BE AN INTEGER."));
    EXPECT_EQ(Decision::TakeFeatures({.Alternatives = "2"}, point), FeatureBox::States);
    EXPECT_EQ(pointed, 1);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  THE NUMBER OF STATES OF NATURE MUST BE AN INTEGER."));
    EXPECT_EQ(Decision::TakeFeatures(
                  {.Alternatives = "2", .States = "2", .StateProbabilities = true, .Strategy = true}, point),
              FeatureBox::Indicators);
    EXPECT_EQ(pointed, 2);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  THE NUMBER OF INDICATOR OUTCOMES MUST BE AN INTEGER."));
}

TEST_F(DecisionEntry, TheOutcomesAreNotLookedAtWithoutAStrategy)
{
    desktop.forms.onModal["frmDecisionFeatures"] = [] {
        EXPECT_EQ(Decision::TakeFeatures({.Alternatives = "2", .States = "3", .StateProbabilities = true}),
                  FeatureBox::None);
    };
    Commands::New();
    EXPECT_EQ(Problem.AlternativeCount, 2);
    EXPECT_EQ(Problem.NatureStateCount, 3);
    EXPECT_EQ(Problem.IndicatorCount, 0);
    EXPECT_EQ(Problem.HasStateProbabilities, "YES");
    EXPECT_EQ(Problem.ComputeStrategy, "NO");
}

TEST_F(DecisionEntry, TheBoxOfTheOutcomesIsPointedAtForAStrategyOnly)
{
    std::vector<int> pointed;
    const auto point = [&pointed](int box) { pointed.push_back(box); };
    Decision::TakeFeatures({.Alternatives = "2", .States = "2", .StateProbabilities = true}, point);
    EXPECT_EQ(pointed, (std::vector<int>{0, 1, 1}));
}

TEST_F(DecisionEntry, RefusedFeaturesLeaveTheOldProblem)
{
    NewProblem(true, false);
    Problem.Payoff(1, 1) = 7;
    desktop.forms.onModal["frmDecisionFeatures"] = [] {
        Decision::TakeFeatures({.Alternatives = "5", .States = ""});
    };
    Commands::New();
    EXPECT_EQ(Problem.AlternativeCount, 2);
    EXPECT_EQ(Problem.Payoff(1, 1), 7);
}

TEST_F(DecisionEntry, ANewProblemWithoutProbabilitiesShowsThePayoffsOnly)
{
    NewProblem(false, false);
    EXPECT_TRUE(Form().visible["Grid(0)"]);
    EXPECT_FALSE(Form().visible["Grid(1)"]);
    EXPECT_FALSE(Form().visible["Grid(2)"]);
    EXPECT_THAT(Grid(0).RowTexts(0), ElementsAre("Decisions", "S1", "S2"));
    EXPECT_THAT(Grid(0).RowTexts(2), ElementsAre("2", "", ""));
    EXPECT_EQ(Grid(0).Row(), 1);
    EXPECT_EQ(Grid(0).Column(), 1);
    EXPECT_EQ(Grid(0).focused, 1);
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
    EXPECT_FALSE(Session.NewProblem);
    EXPECT_TRUE(Menus.Item("mnuFileSave").Enabled);
}

TEST_F(DecisionEntry, ANewProblemWithAStrategyShowsAllThreeGrids)
{
    NewProblem(true, true);
    EXPECT_TRUE(Form().visible["Grid(1)"]);
    EXPECT_TRUE(Form().visible["Grid(2)"]);
    EXPECT_THAT(Grid(1).RowTexts(1), ElementsAre("Probabilities", "", ""));
    EXPECT_EQ(Grid(1).Rows(), 2);
    EXPECT_THAT(Grid(2).RowTexts(0), ElementsAre("Given State", "I1", "I2", "I3"));
    EXPECT_THAT(Grid(2).RowTexts(2), ElementsAre("2", "", "", ""));
    EXPECT_EQ(Grid(2).Rows(), 3);
    for (const int pass : {0, 1, 2})
        EXPECT_EQ(Grid(pass).widths[0], 13);  // "Probabilities"
}

TEST_F(DecisionEntry, ACancelledDialogChangesNothing)
{
    NewProblem(true, true);
    Problem.Payoff(1, 1) = 7;
    desktop.forms.onModal["frmDecisionFeatures"] = [] { Decision::TheFeatures.Cancel(); };
    BeginProblem();
    EXPECT_EQ(Problem.IndicatorCount, 3);
    EXPECT_EQ(Problem.Payoff(1, 1), 7);
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
}

TEST_F(DecisionEntry, ANewProblemStartsFromAnEmptyRecord)
{
    NewProblem(true, true);
    Decision::CommitCell(0, 1, 1, "2.55");
    Problem.Criterion = 4;
    NewProblem(false, false);
    EXPECT_EQ(Problem.Payoff(1, 1), 0);
    EXPECT_EQ(Problem.PayoffDecimals, Variant(0));
    EXPECT_EQ(Problem.ComputeStrategy, "NO");
    EXPECT_NE(Problem.Criterion, 4);
}

namespace {

struct CellRow {
    const char* Text;
    bool Taken;
    double Stored;  // when it is taken
};

void ExpectCells(FakeDesktop& desktop, int pass, const std::vector<CellRow>& rows, const char* message)
{
    constexpr double kBefore = 0.125;
    for (const CellRow& row : rows) {
        Decision::CommitCell(pass, 1, 2, "0.125");
        desktop.dialogs.messages.clear();
        const int code = Decision::CommitCell(pass, 1, 2, row.Text);
        EXPECT_EQ(code, row.Taken ? kCellStored : kCellRefused) << row.Text;
        const double stored = pass == 0 ? Problem.Payoff(1, 2) : Decision::Probability(pass, 1, 2);
        EXPECT_EQ(stored, row.Taken ? row.Stored : kBefore) << row.Text;
        if (row.Taken)
            EXPECT_THAT(desktop.dialogs.messages, IsEmpty()) << row.Text;
        else
            EXPECT_THAT(desktop.dialogs.messages, ElementsAre(Refused(message))) << row.Text;
    }
}

}  // namespace

TEST_F(DecisionEntry, APayoffIsAnyNumber)
{
    NewProblem(true, true);
    ExpectCells(desktop, 0,
                {{"12", true, 12},
                 {"-12.5", true, -12.5},
                 {"+3", true, 3},
                 {".5", true, 0.5},
                 {"1,250", true, 1250},
                 {"1000000000", true, 1e9},
                 {"abc", false, 0},
                 {"1.2.3", false, 0},
                 {"1-2", false, 0},
                 {"1E3", false, 0},
                 {" 5", false, 0}},
                kNotAPayoff);
}

TEST_F(DecisionEntry, AStateProbabilityLiesBetween0And1)
{
    NewProblem(true, true);
    ExpectCells(desktop, 1,
                {{"0", true, 0},
                 {"1", true, 1},
                 {"0.25", true, 0.25},
                 {".25", true, 0.25},
                 {"1.0", true, 1},
                 {"+1", true, 1},
                 {"1.01", false, 0},
                 {"-0.01", false, 0},
                 {"2", false, 0},
                 {"abc", false, 0},
                 {"1x", false, 0}},
                kNotAProbability);
}

TEST_F(DecisionEntry, AStateProbabilityThatBeginsWithAPointOrZeroIsReadAsItStands)
{
    NewProblem(true, true);
    ExpectCells(desktop, 1,
                {{"0.5x", true, 0.5}, {"0x", true, 0}, {".5.5", true, 0.5}, {".", true, 0}, {"05", false, 0}},
                kNotAProbability);
}

TEST_F(DecisionEntry, AnIndicatorProbabilityIsAlwaysCheckedAsANumber)
{
    NewProblem(true, true);
    ExpectCells(desktop, 2,
                {{"0", true, 0},
                 {"1", true, 1},
                 {".75", true, 0.75},
                 {"1.0001", false, 0},
                 {"-1", false, 0},
                 {"0.5x", false, 0},
                 {"abc", false, 0}},
                kNotAProbability);
}

TEST_F(DecisionEntry, AnEmptyCellIsZeroAndAskedAboutWhileACommandChecks)
{
    NewProblem(true, true);
    for (const int pass : {0, 1, 2}) {
        Decision::CommitCell(pass, 1, 2, "0.5");
        Session.AskIncomplete = true;
        EXPECT_EQ(Decision::CommitCell(pass, 1, 2, ""), kCellEmpty);
        EXPECT_EQ(Decision::Probability(pass, 1, 2), 0);
        Session.AskIncomplete = false;
        EXPECT_EQ(Decision::CommitCell(pass, 1, 2, ""), kCellStored);
    }
}

TEST_F(DecisionEntry, TheDecimalsOfThePayoffsRiseAndNeverFall)
{
    struct Row {
        const char* Text;
        double Decimals;
    };
    for (const Row& row : {Row{"3", 0}, Row{"2.005", 0}, Row{"2.5", 1}, Row{"2.55", 2}, Row{"-7.25", 2},
                           Row{"0.01", 2}, Row{"-0.5", 1}, Row{"2.51", 2}, Row{"2.509", 1}}) {
        NewProblem(false, false);
        Decision::CommitCell(0, 1, 1, row.Text);
        EXPECT_EQ(Problem.PayoffDecimals, Variant(row.Decimals)) << row.Text;
    }
    Decision::CommitCell(0, 1, 1, "2.55");
    Decision::CommitCell(0, 1, 1, "4");
    Decision::CommitCell(0, 1, 2, "4.5");
    EXPECT_EQ(Problem.PayoffDecimals, Variant(2));
}

TEST_F(DecisionEntry, ARedrawShowsTheStoredValues)
{
    NewProblem(true, true);
    Decision::CommitCell(0, 1, 1, "1,250.50");
    Decision::CommitCell(1, 1, 2, ".25");
    Decision::CommitCell(2, 2, 3, "1");
    DisplayProblem();
    EXPECT_THAT(Grid(0).RowTexts(1), ElementsAre("1", "1250.5", "0"));
    EXPECT_THAT(Grid(1).RowTexts(1), ElementsAre("Probabilities", "0", "0.25"));
    EXPECT_THAT(Grid(2).RowTexts(2), ElementsAre("2", "0", "0", "1"));
}

// ---- the problem check ----

TEST_F(DecisionEntry, SolveAsksOnceAboutEmptyCellsOfAllGrids)
{
    NewProblem(true, true);
    Fill(1, {{"1", ""}});
    Fill(2, {{"1", "", ""}, {"", "1", ""}});
    Commands::Solve();
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(kIncomplete));
    EXPECT_THAT(desktop.forms.modals, testing::Contains("frmTransObj"));
}

TEST_F(DecisionEntry, TheStatesOfNatureMustAddUpTo1)
{
    NewProblem(true, false);
    Fill(0, {{"1", "2"}, {"3", "4"}});
    struct Row {
        const char* First;
        const char* Sum;  // empty: passes
    };
    for (const Row& row : {Row{"0.4990001", ""}, Row{"0.499", "0.999"}, Row{"0.501", ""},
                           Row{"0.5011", "1.001"}, Row{"0", "0.500"}}) {
        Fill(1, {{row.First, "0.5"}});
        desktop.dialogs.messages.clear();
        Commands::Solve();
        if (*row.Sum == '\0') {
            EXPECT_THAT(desktop.dialogs.messages, IsEmpty()) << row.First;
            continue;
        }
        EXPECT_THAT(desktop.dialogs.messages,
                    ElementsAre(ShownMessage{
                        "The sum of the probabilities for the 2 states of nature must equal 1!!!  "
                        "The probabilities that you have input sum to " +
                            std::string(row.Sum) + ".",
                        "WARNING", Icon::Critical, Buttons::OK}))
            << row.First;
        EXPECT_EQ(Grid(1).Row(), 1);
        EXPECT_EQ(Grid(1).Column(), 2);
    }
}

TEST_F(DecisionEntry, EachRowOfOutcomesMustAddUpTo1)
{
    NewProblem(true, true);
    Fill(0, {{"1", "2"}, {"3", "4"}});
    Fill(1, {{"0.5", "0.5"}});
    Fill(2, {{"0.5", "0.25", "0.25"}, {"0.5", "0.25", "0.5"}});
    Commands::Solve();
    EXPECT_THAT(
        desktop.dialogs.messages,
        ElementsAre(ShownMessage{"The sum of the probabilities for the 3 indicator outcomes must equal 1!!!  "
                                 "The probabilities that you have input sum to 1.250.",
                                 "WARNING", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(Grid(2).Row(), 2);
    EXPECT_EQ(Grid(2).Column(), 3);
    EXPECT_GT(Grid(2).focused, 0);
    EXPECT_EQ(desktop.screen.indicator, "Decision Analysis Module");
}

TEST_F(DecisionEntry, ARefusedCellEndsTheCheckWhereItStands)
{
    NewProblem(true, false);
    Fill(0, {{"1", "x"}, {"3", "4"}});
    Commands::Solve();
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(Refused(kNotAPayoff)));
    EXPECT_EQ(Grid(0).Row(), 1);
    EXPECT_EQ(Grid(0).Column(), 2);
    EXPECT_THAT(SolutionLines(), IsEmpty());
}

TEST_F(DecisionEntry, GridsThatAreNotShownAreNotChecked)
{
    NewProblem(false, false);
    Fill(0, {{"1", "2"}, {"3", "4"}});
    Commands::Solve();
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmDecisionFeatures", "frmdecnopt"));
}

// ---- the criterion ----

TEST_F(DecisionEntry, WithoutStateProbabilitiesSenseAndCriterionAreAskedTogether)
{
    NewProblem(false, false);
    Fill(0, {{"1", "2"}, {"3", "4"}});
    desktop.forms.onModal["frmdecnopt"] = [] {
        Decision::TheSenseAndCriterion.Give({.Maximize = false, .Criterion = Decision::kMinimaxRegret});
    };
    Commands::Solve();
    EXPECT_EQ(Problem.Maximize, "NO");
    EXPECT_EQ(Problem.Criterion, 3);
    EXPECT_TRUE(Decision::Result.Solved);
}

TEST_F(DecisionEntry, WithStateProbabilitiesOnlyTheSenseIsAsked)
{
    NewProblem(true, false);
    Fill(0, {{"1", "2"}, {"3", "4"}});
    Fill(1, {{"0.5", "0.5"}});
    desktop.forms.onModal["frmTransObj"] = [] {
        EXPECT_EQ(TheCriterion.Question().Words.Maximize, "Maximize the Payoff");
        EXPECT_EQ(TheCriterion.Question().Words.Minimize, "Minimize the Payoff");
        TakeCriterion(Criterion::Minimize);
    };
    Commands::Solve();
    EXPECT_EQ(Problem.Maximize, "NO");
    EXPECT_EQ(Problem.Criterion, Decision::kExpectedValue);
}

TEST_F(DecisionEntry, OtherProblemsFindTheirOwnWordsOnTheForm)
{
    AskCriterion({.Minimize = "a", .Maximize = "b"});
    AskCriterion();
    EXPECT_EQ(TheCriterion.Question().Words.Minimize, "Minimization Objective");
    EXPECT_EQ(TheCriterion.Question().Words.Maximize, "Maximization Objective");
}

TEST_F(DecisionEntry, ACancelledCriterionSolvesNothing)
{
    for (const bool states : {false, true}) {
        NewProblem(states, false);
        Fill(0, {{"1", "2"}, {"3", "4"}});
        if (states) Fill(1, {{"0.5", "0.5"}});
        desktop.forms.onModal["frmdecnopt"] = [] { Decision::TheSenseAndCriterion.Cancel(); };
        desktop.forms.onModal["frmTransObj"] = [] { TheCriterion.Cancel(); };
        const int before = desktop.forms.menuFocused;
        Commands::Solve();
        EXPECT_FALSE(Decision::Result.Solved);
        EXPECT_GT(desktop.forms.menuFocused, before);
        EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
        EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
        EXPECT_FALSE(Menus.Item("mnudispeditsubs(0)").Enabled);
    }
}

TEST_F(DecisionEntry, ACancelledCriterionTakesTheReportOfAnEarlierSolveAway)
{
    NewProblem(false, false);
    Fill(0, {{"1", "2"}, {"3", "4"}});
    desktop.forms.onModal["frmdecnopt"] = [] { Decision::TheSenseAndCriterion.Give({}); };
    Commands::Solve();
    EXPECT_TRUE(desktop.forms.IsLoaded("frmSolution"));
    desktop.forms.onModal["frmdecnopt"] = [] { Decision::TheSenseAndCriterion.Cancel(); };
    Commands::Solve();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(0)").Enabled);
}

TEST_F(DecisionEntry, ASolvedProblemCanBePrintedAndGoneBackTo)
{
    NewProblem(false, false);
    Fill(0, {{"1", "2"}, {"3", "4"}});
    desktop.forms.onModal["frmdecnopt"] = [] { Decision::TheSenseAndCriterion.Give({}); };
    Commands::Solve();
    EXPECT_TRUE(desktop.forms.Loaded("frmSolution").shown);
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoText").Enabled);
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(0)").Enabled);
    Commands::EditItem(0);
    EXPECT_FALSE(desktop.forms.Loaded("frmSolution").shown);
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoPrinter").Enabled);
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(0)").Enabled);
}
