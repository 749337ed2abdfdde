#include <gmock/gmock.h>

#include "basic/records.h"
#include "markov/chains.h"
#include "markov/module.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::string_view kNotAProbability = "PROBABILITIES MUST BE BETWEEN 0 AND 1!  PLEASE REENTER.";

class MarkovEntry : public testing::Test {
protected:
    void SetUp() override
    {
        Commands::Start();
        Commands::SelectModule(12);
        Commands::ChooseModule();
    }

    void NewWithStates(const std::string& text)
    {
        desktop.forms.onModal["frmUserInput"] = [text] { UserInput::TakeSizes({text}); };
        Commands::New();
    }

    FakeForm& Form() { return desktop.forms.Loaded("frmProblem"); }
    FakeGrid& Grid() { return Form().GridOf("gridDisplayEdit"); }

    FakeDesktop desktop;
};

}  // namespace

TEST_F(MarkovEntry, ANewProblemShowsAnEmptyTable)
{
    NewWithStates("3");
    EXPECT_EQ(Form().Text("lblTitle"), "Transition Matrix");
    EXPECT_EQ(Form().Text("lblInfo"),
              "Enter/Edit data:  Transition probabilities in rows 1-3 and columns 1-3  NOTE:  Probabilities "
              "must sum to 1 for each row.");
    EXPECT_EQ(Form().Text("lblgridcaption"), "To State");
    EXPECT_THAT(Grid().RowTexts(0), ElementsAre("From State", "1", "2", "3"));
    EXPECT_THAT(Grid().RowTexts(3), ElementsAre("3", "", "", ""));
    EXPECT_EQ(Grid().Row(), 1);
    EXPECT_EQ(Grid().Column(), 1);
    EXPECT_GT(Grid().focused, 0);
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
    EXPECT_FALSE(Session.NewProblem);
}

TEST_F(MarkovEntry, AsksForTheStatesUnderItsOwnCaption)
{
    NewWithStates("1");
    const SizeDialog& dialog = UserInput::Sizes.Question();
    EXPECT_EQ(dialog.Caption, " Markov Process");
    ASSERT_EQ(dialog.Questions.size(), 1U);
    EXPECT_EQ(dialog.Questions[0].Question, "Enter the Number of States (1 to 10):");
    EXPECT_EQ(Grid().Rows(), 2);  // one entry cell
}

TEST_F(MarkovEntry, ANewProblemHoldsNothingOfTheLast)
{
    Given({{0.9, 0.1}, {0.3, 0.7}});
    Analyse();
    ASSERT_TRUE(Markov::Result.Solved);
    NewWithStates("2");
    EXPECT_FALSE(Markov::Result.Solved);
    EXPECT_TRUE(Markov::Problem.TransitionMatrix(1, 1).IsEmpty());
}

TEST_F(MarkovEntry, ACancelledDialogMakesNoProblem)
{
    desktop.forms.onModal["frmUserInput"] = [] { UserInput::CancelSizes(); };
    Commands::New();
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    EXPECT_TRUE(Session.NewProblem);
    EXPECT_FALSE(Menus.Item("mnuFileSave").Enabled);
}

TEST_F(MarkovEntry, CellsTakeNumbersOfAnyFormAndStoreThem)
{
    struct Row {
        const char* text;
        double stored;
    };
    NewWithStates("2");
    for (const Row& row : {Row{"0.5", 0.5}, Row{".5", 0.5}, Row{"1", 1}, Row{"+0.25", 0.25}, Row{"0", 0},
                           Row{"1.5", 1.5}, Row{"1,000", 1000}, Row{"-0", 0}, Row{".", 0}}) {
        EXPECT_EQ(Markov::CommitCell(1, 2, row.text), kCellStored) << row.text;
        EXPECT_EQ(Markov::Probability(1, 2), row.stored) << row.text;
    }
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(MarkovEntry, CellsRefuseWhatIsNoNumberOrNegativeAndKeepTheOldValue)
{
    NewWithStates("2");
    Markov::CommitCell(2, 1, "0.4");
    for (const char* text : {"abc", "-0.1", "0.5.", "1-", "1E-2", "0 5"}) {
        EXPECT_EQ(Markov::CommitCell(2, 1, text), kCellRefused) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(kNotAProbability)) << text;
        EXPECT_EQ(Markov::Probability(2, 1), 0.4) << text;
    }
    EXPECT_EQ(Session.IsNumber, "YES");
}

TEST_F(MarkovEntry, AnEmptyCellStoresZeroAndIsAskedAboutOnlyDuringACheck)
{
    NewWithStates("2");
    Markov::CommitCell(1, 1, "0.4");
    Session.AskIncomplete = true;
    EXPECT_EQ(Markov::CommitCell(1, 1, ""), kCellEmpty);
    EXPECT_EQ(Markov::Probability(1, 1), 0);
    Session.AskIncomplete = false;
    EXPECT_EQ(Markov::CommitCell(1, 1, ""), kCellStored);
}

TEST_F(MarkovEntry, TheFileHoldsTheCountAndTheRows)
{
    Given({{0.289, 0.711}, {0, 1}});
    RecordWriter writer;
    MarkovProcesses().Write(writer);
    EXPECT_EQ(writer.Text(), "2\r\n0.289\r\n0.711\r\n0\r\n1\r\n");
}

TEST_F(MarkovEntry, AFileComesBackAsItWasWritten)
{
    Given(Absorbing(2, 1));
    RecordWriter writer;
    MarkovProcesses().Write(writer);
    Given(Ring(5));
    RecordReader reader(writer.Text());
    MarkovProcesses().Read(reader);
    EXPECT_EQ(Markov::Problem.StateCount, 3);
    EXPECT_EQ(Markov::Probability(1, 3), 1);
    EXPECT_EQ(Markov::Probability(1, 2), 0);
    EXPECT_EQ(Markov::Probability(4, 5), 0);  // nothing of the earlier problem is left
}

TEST_F(MarkovEntry, AStoredProblemIsShownWithItsValues)
{
    Given({{0.25, 0.75}, {1, 0}});
    Session.NewProblem = false;
    DisplayProblem();
    EXPECT_THAT(Grid().RowTexts(1), ElementsAre("1", "0.25", "0.75"));
    EXPECT_THAT(Grid().RowTexts(2), ElementsAre("2", "1", "0"));
}

TEST_F(MarkovEntry, FilesThatAreNoneOfItsOwnFail)
{
    for (const char* text :
         {"", "2\r\n0.5\r\n0.5\r\n0.5\r\n", "2\r\nabc\r\n", "11\r\n", "99999\r\n", "\"2\"\r\n"}) {
        RecordReader reader(text);
        EXPECT_THROW(MarkovProcesses().Read(reader), RuntimeError) << text;
    }
}
