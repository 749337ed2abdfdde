#include "decision/DecisionCheck.h"

#include <gmock/gmock.h>

#include <map>

#include "shell/module.h"
#include "shell/session.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;

namespace {

const ShownMessage kIncomplete{"Problem is incomplete.  Zeroes will be entered for empty cells",
                               "Problem Incomplete", Icon::Exclamation, Buttons::OKCancel};

// Two states of nature and two outcomes; the stored probabilities are what the cells say.
class DecisionChecks : public testing::Test {
protected:
    void SetUp() override
    {
        for (const int pass : {0, 1, 2})
            GridOf(pass).Resize(3, 3);
        Fill(0, {"1", "2", "3", "4"});
        Fill(1, {"0.5", "0.5", "9", "9"});
        Fill(2, {"0.1", "0.9", "1", "0"});
        Session.AskIncomplete = true;
    }

    FakeGrid& GridOf(int pass)
    {
        return desktop.forms.Loaded("frmDecisionProblem").GridOf("Grid(" + std::to_string(pass) + ")");
    }

    void Fill(int pass, const std::vector<std::string>& cells)
    {
        for (int i = 0; i < 4; ++i)
            GridOf(pass).SetText(1 + i / 2, 1 + i % 2, cells[static_cast<std::size_t>(i)]);
    }

    bool Check(bool prior, bool indicators)
    {
        visited.clear();
        return Decision::CheckGrids(
            {.Commit =
                 [this](int pass, int row, int column, std::string_view text) {
                     visited.push_back(std::to_string(pass) + std::to_string(row));
                     stored[{pass, row, column}] = text.empty() ? 0 : std::stod(std::string(text));
                     return text.empty() && Session.AskIncomplete ? kCellEmpty : kCellStored;
                 },
             .Runs = [=](int pass) { return pass == 0 || (pass == 1 ? prior : indicators); },
             .Probability =
                 [this](int pass, int row, int column) {
                     return stored[{pass, row, column}];
                 },
             .Count = [](int pass) { return pass == 1 ? 7 : 3; }});
    }

    std::vector<std::string> visited;
    std::map<std::tuple<int, int, int>, double> stored;
    FakeDesktop desktop;
};

}  // namespace

TEST_F(DecisionChecks, PassesFollowTheFeaturesOfTheProblem)
{
    EXPECT_TRUE(Check(false, false));
    EXPECT_THAT(visited, ElementsAre("01", "01", "02", "02"));
    EXPECT_TRUE(Check(true, true));
    EXPECT_THAT(visited, ElementsAre("01", "01", "02", "02", "11", "11", "21", "21", "22", "22"));
}

TEST_F(DecisionChecks, PayoffsAreNotSummed)
{
    Fill(0, {"100", "0", "0", "0"});
    EXPECT_TRUE(Check(true, true));
}

TEST_F(DecisionChecks, WrongSumsNameTheStatesOrTheOutcomes)
{
    Fill(1, {"0.5", "0.4", "", ""});
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"The sum of the probabilities for the 7 states of nature must equal 1!!!  The "
                            "probabilities that you have input sum to 0.900.",
                            "WARNING", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(GridOf(1).Column(), 2);
    EXPECT_EQ(GridOf(1).focused, 1);

    Fill(1, {"0.5", "0.5", "", ""});
    Fill(2, {"0.1", "0.9", "1", "1"});
    EXPECT_FALSE(Check(true, true));
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"The sum of the probabilities for the 3 indicator outcomes must equal 1!!!  The "
                            "probabilities that you have input sum to 2.000.",
                            "WARNING", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(GridOf(2).Row(), 2);
}

TEST_F(DecisionChecks, ARefusedCellBringsTheFocusToItsGridAndACancelledQuestionDoesNot)
{
    const auto checkWith = [](int code) {
        return Decision::CheckGrids({.Commit = [code](int, int, int, std::string_view) { return code; },
                                     .Runs = [](int) { return true; },
                                     .Probability = [](int, int, int) { return 0.5; },
                                     .Count = [](int) { return 2; }});
    };
    EXPECT_FALSE(checkWith(kCellRefused));
    EXPECT_EQ(GridOf(0).focused, 1);
    desktop.dialogs.answers = {Answer::Cancel};
    EXPECT_FALSE(checkWith(kCellEmpty));
    EXPECT_EQ(GridOf(0).focused, 1);
}

TEST_F(DecisionChecks, EmptyCellsAreAskedAboutOnceOverAllPasses)
{
    Fill(0, {"", "", "3", "4"});
    Fill(1, {"", "1", "", ""});
    EXPECT_TRUE(Check(true, false));
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(kIncomplete));
}
