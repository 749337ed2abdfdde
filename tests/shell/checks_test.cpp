#include "shell/checks.h"

#include <gmock/gmock.h>

#include "markov/Markov.h"
#include "shell/commands.h"
#include "shell/session.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const ShownMessage kIncomplete{"Problem is incomplete.  Zeroes will be entered for empty cells",
                               "Problem Incomplete", Icon::Exclamation, Buttons::OKCancel};

ShownMessage RowSumWarning(std::string_view sum)
{
    return {
        "The sum of the probabilities for the states must equal 1!!!  The probabilities that you have input "
        "sum to " +
            std::string(sum) + ".  PLEASE REENTER THE PROBABILITIES.",
        "WARNING", Icon::Critical, Buttons::OK};
}

// A Markov problem of two states on the tableau form.
class TableauChecks : public testing::Test {
protected:
    void SetUp() override
    {
        Commands::Start();
        Commands::SelectModule(12);
        Commands::ChooseModule();
        desktop.forms.onModal["frmUserInput"] = [] { UserInput::TakeSizes({"2"}); };
        Commands::New();
        Fill({"0.5", "0.5", "0", "1"});
        Session.AskIncomplete = true;
    }

    FakeGrid& Grid() { return desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit"); }

    void Fill(const std::vector<std::string>& cells)
    {
        Grid().SetText(1, 1, cells[0]);
        Grid().SetText(1, 2, cells[1]);
        Grid().SetText(2, 1, cells[2]);
        Grid().SetText(2, 2, cells[3]);
    }

    static bool Check() { return CheckProbabilityTableau(Markov::Probability); }

    FakeDesktop desktop;
};

}  // namespace

TEST_F(TableauChecks, AFullProblemPassesAndTheIndicatorComesBack)
{
    EXPECT_TRUE(Check());
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_EQ(desktop.screen.indicator, "Markov Processes Module");
    EXPECT_THAT(desktop.screen.indicators, testing::Contains("Checking Problem Data. . ."));
    EXPECT_EQ(Grid().Row(), 2);
    EXPECT_EQ(Grid().Column(), 2);
}

TEST_F(TableauChecks, TwoEmptyCellsAreAskedAboutOnce)
{
    Fill({"", "1", "", "1"});
    EXPECT_TRUE(Check());
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(kIncomplete));
    EXPECT_EQ(Markov::Probability(1, 1), 0);
    EXPECT_EQ(Grid().Text(1, 1), "");  // a later Save asks again
}

TEST_F(TableauChecks, CancelAtTheQuestionEndsAtTheEmptyCell)
{
    Fill({"0.5", "0.5", "", "1"});
    desktop.dialogs.answers = {Answer::Cancel};
    EXPECT_FALSE(Check());
    EXPECT_EQ(Grid().Row(), 2);
    EXPECT_EQ(Grid().Column(), 1);
    EXPECT_EQ(desktop.screen.indicator, "Markov Processes Module");
}

TEST_F(TableauChecks, ARefusedCellIsSelectedAndTheGridHasTheFocus)
{
    Fill({"0.5", "-0.5", "0", "1"});
    const int before = Grid().focused;
    EXPECT_FALSE(Check());
    EXPECT_EQ(Grid().Row(), 1);
    EXPECT_EQ(Grid().Column(), 2);
    EXPECT_EQ(Grid().focused, before + 1);
    EXPECT_EQ(Grid().Text(1, 2), "");
    EXPECT_EQ(desktop.dialogs.messages.size(), 1U);
}

TEST_F(TableauChecks, RowSumsPassFromJustAboveZeroPointNineNineNineToOnePointZeroZeroOne)
{
    struct Row {
        const char* first;
        bool passes;
        const char* sum;
    };
    for (const Row& row :
         {Row{"0.9990001", true, ""}, Row{"0.999", false, "0.999"}, Row{"0.99900009", false, "0.999"},
          Row{"1.001", true, ""}, Row{"1.0011", false, "1.001"}, Row{"1.00100001", false, "1.001"},
          Row{"0", false, "0.000"}, Row{"2.5", false, "2.500"}}) {
        Fill({row.first, "0", "0", "1"});
        desktop.dialogs.messages.clear();
        EXPECT_EQ(Check(), row.passes) << row.first;
        if (!row.passes) {
            EXPECT_THAT(desktop.dialogs.messages, ElementsAre(RowSumWarning(row.sum))) << row.first;
        }
    }
}

TEST_F(TableauChecks, AWrongSumSelectsTheLastCellOfItsRow)
{
    Fill({"0.5", "0.5", "0.3", "0.3"});
    const int before = Grid().focused;
    EXPECT_FALSE(Check());
    EXPECT_EQ(Grid().focused, before + 1);
    EXPECT_EQ(Grid().Row(), 2);
    EXPECT_EQ(Grid().Column(), 2);
    EXPECT_EQ(desktop.dialogs.Last(), RowSumWarning("0.600"));
}

TEST_F(TableauChecks, WithoutProbabilitiesSumsAreNotLookedAt)
{
    Fill({"7", "8", "9", "10"});
    EXPECT_TRUE(CheckTableau());
}
