#include "decision/DecisionCheck.h"

#include <gmock/gmock.h>

#include "decision/VtDecisionAnalysis.h"
#include "shell/session.h"
#include "support/fake_desktop.h"

using Decision::Problem;
using testing::ElementsAre;

namespace {

const ShownMessage kIncomplete{"Problem is incomplete.  Zeroes will be entered for empty cells",
                               "Problem Incomplete", Icon::Exclamation, Buttons::OKCancel};

// Two alternatives, two states of nature and three outcomes.
class DecisionChecks : public testing::Test {
protected:
    void SetUp() override
    {
        Problem = {};
        Problem.AlternativeCount = 2;
        Problem.NatureStateCount = 2;
        Problem.IndicatorCount = 3;
        GridOf(0).Resize(3, 3);
        GridOf(1).Resize(2, 3);
        GridOf(2).Resize(3, 4);
        Fill(0, {"1", "2", "3", "4"});
        Fill(1, {"0.5", "0.5"});
        Fill(2, {"0.1", "0.9", "0", "1", "0", "0"});
        Session.AskIncomplete = true;
    }

    FakeGrid& GridOf(int pass)
    {
        return desktop.forms.Loaded("frmDecisionProblem").GridOf("Grid(" + std::to_string(pass) + ")");
    }

    void Fill(int pass, const std::vector<std::string>& cells)
    {
        const int columns = GridOf(pass).Columns() - 1;
        for (int i = 0; i < static_cast<int>(cells.size()); ++i)
            GridOf(pass).SetText(1 + i / columns, 1 + i % columns, cells[static_cast<std::size_t>(i)]);
    }

    static bool Check(bool states, bool outcomes)
    {
        Problem.HasStateProbabilities = states ? "YES" : "NO";
        Problem.ComputeStrategy = outcomes ? "YES" : "NO";
        return Decision::Check();
    }

    FakeDesktop desktop;
};

}  // namespace

TEST_F(DecisionChecks, PassesFollowTheFeaturesOfTheProblem)
{
    Fill(1, {"0.5", "2"});
    Fill(2, {"0.1", "0.9", "3"});
    EXPECT_TRUE(Check(false, false));
    EXPECT_EQ(Problem.Payoff(2, 1), 3);
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(GridOf(1).focused, 1);
    EXPECT_EQ(GridOf(2).focused, 0);

    Fill(1, {"0.25", "0.75"});
    EXPECT_TRUE(Check(true, false));
    EXPECT_EQ(Problem.StatePrior(2), 0.75);
    EXPECT_EQ(Problem.IndicatorGivenState(1, 1), 0);
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(Problem.IndicatorGivenState(1, 2), 0.9);
    EXPECT_EQ(GridOf(2).focused, 1);
}

TEST_F(DecisionChecks, PayoffsAreNotSummed)
{
    Fill(0, {"100", "0", "0", "0"});
    EXPECT_TRUE(Check(true, true));
}

TEST_F(DecisionChecks, WrongSumsNameTheStatesOrTheOutcomes)
{
    Fill(1, {"0.5", "0.4"});
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"The sum of the probabilities for the 2 states of nature must equal 1!!!  The "
                            "probabilities that you have input sum to 0.900.",
                            "WARNING", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(GridOf(1).Column(), 2);
    EXPECT_EQ(GridOf(1).focused, 1);

    Fill(1, {"0.5", "0.5"});
    Fill(2, {"0.1", "0.9", "0", "1", "1", "0"});
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"The sum of the probabilities for the 3 indicator outcomes must equal 1!!!  The "
                            "probabilities that you have input sum to 2.000.",
                            "WARNING", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(GridOf(2).Row(), 2);
}

TEST_F(DecisionChecks, ARefusedCellBringsTheFocusToItsGridAndACancelledQuestionDoesNot)
{
    Fill(0, {"many", "2", "3", "4"});
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(GridOf(0).focused, 1);
    Fill(0, {"", "2", "3", "4"});
    desktop.dialogs.answers = {Answer::Cancel};
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(desktop.dialogs.Last(), kIncomplete);
    EXPECT_EQ(GridOf(0).focused, 1);
}

TEST_F(DecisionChecks, EmptyCellsAreAskedAboutOnceOverAllPasses)
{
    Fill(0, {"", "", "3", "4"});
    Fill(1, {"", "1"});
    EXPECT_TRUE(Check(true, false));
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(kIncomplete));
}
