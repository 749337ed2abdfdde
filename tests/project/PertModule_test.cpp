// The module under the commands of the main window.
#include "project/module.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "project/VtPert_CPM.h"
#include "project/project_support.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"

using namespace VtPert_CPM;
using ::testing::IsEmpty;

namespace {

constexpr int kPert = 7;

std::string Written()
{
    RecordWriter file;
    PertCpm().Write(file);
    return file.Text();
}

class PertModule : public ::testing::Test {
protected:
    PertModule()
    {
        Commands::Start();
        Commands::SelectModule(kPert);
        Commands::ChooseModule();
        CheckTimeBoxes = {};
    }
    void TearDown() override { CheckTimeBoxes = {}; }

    // New, with the count typed and OK pressed.
    void New(std::string_view count, int timeMode)
    {
        desktop.forms.onModal["frmPERTCPM_Init"] = [count, timeMode] {
            TakeActivityCount(count);
            TakeParameters(count, timeMode);
        };
        Commands::New();
    }

    void Open(const std::string& text)
    {
        const std::filesystem::path path =
            std::filesystem::path(::testing::TempDir()) /
            (std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + ".CPM");
        std::ofstream(path, std::ios::binary) << text;
        desktop.dialogs.files = {path.string()};
        Commands::Open();
        std::filesystem::remove(path);
    }

    [[nodiscard]] static bool Enabled(const char* item) { return Menus.Item(item).Enabled; }

    FakeDesktop desktop;
};

TEST_F(PertModule, NewShowsTheEntryFormOfAnEmptyTable)
{
    New("5", kThreeEstimates);
    EXPECT_TRUE(desktop.forms.IsLoaded("frmPERT_CPM"));
    EXPECT_TRUE(desktop.forms.Loaded("frmPERT_CPM").shown);
    EXPECT_EQ(Problem.NumActivities, 5);
    EXPECT_TRUE(HasThreeEstimates());
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
    EXPECT_TRUE(Session.NewProblem);
    EXPECT_TRUE(Enabled("mnuFileSave"));
    EXPECT_TRUE(Enabled("mnuSolution"));
    EXPECT_FALSE(Enabled("mnudispeditsubs(0)"));
}

TEST_F(PertModule, ACancelledDialogLeavesNoProblem)
{
    desktop.forms.onModal["frmPERTCPM_Init"] = [] { TheParameters.Cancel(); };
    const int before = desktop.forms.menuFocused;
    Commands::New();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmPERT_CPM"));
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    EXPECT_FALSE(Enabled("mnuFileSave"));
    EXPECT_GT(desktop.forms.menuFocused, before);
}

TEST_F(PertModule, ASecondNewAsksFirstAndStartsAfresh)
{
    New("2", kKnownTimes);
    TakeExpectedTime("2.5");
    New("3", kThreeEstimates);
    EXPECT_EQ(desktop.dialogs.Last().Text, "Are you sure you wish to create a new problem?");
    EXPECT_EQ(Problem.NumActivities, 3);
    EXPECT_EQ(Problem.ActivityTime(1).Value(), 0);
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 0);
}

TEST_F(PertModule, SolveClosesTheEntryFormAndShowsTheReport)
{
    New("2", kKnownTimes);
    TakeExpectedTime("3");
    Commands::Solve();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmPERT_CPM"));
    EXPECT_FALSE(Session.NewProblem);
    EXPECT_EQ(SolutionLines().back(), "        PROJECT COMPLETION TIME = 3");
    EXPECT_TRUE(Enabled("mnuSolutionPrinttoPrinter"));
    EXPECT_TRUE(Enabled("mnuSolutionPrinttoText"));
    EXPECT_TRUE(Enabled("mnudispeditsubs(0)"));
    EXPECT_THAT(desktop.screen.indicators, ::testing::Contains("Solving Problem . . ."));
    EXPECT_THAT(desktop.screen.indicators, ::testing::Not(::testing::Contains("Checking Problem Data. . .")));
    EXPECT_EQ(desktop.screen.indicator, "PERT/CPM Module");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(PertModule, DisplayEditTheProblemBringsTheEntryFormBack)
{
    New("2", kKnownTimes);
    Commands::Solve();
    Commands::EditItem(0);
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_TRUE(desktop.forms.Loaded("frmPERT_CPM").shown);
    EXPECT_FALSE(Enabled("mnudispeditsubs(0)"));
    EXPECT_FALSE(Enabled("mnuSolutionPrinttoText"));
}

TEST_F(PertModule, TheFileAndSolutionMenusCheckTheTimeBoxes)
{
    int checks = 0;
    CheckTimeBoxes = [&checks] { ++checks; };
    Commands::OpenMenu(TopMenu::File);
    EXPECT_EQ(checks, 1);
    Commands::OpenMenu(TopMenu::Solution);
    EXPECT_EQ(checks, 2);
    Commands::OpenMenu(TopMenu::Edit);
    EXPECT_EQ(checks, 2);
}

TEST_F(PertModule, WithoutTheEntryFormTheMenusCheckNothing)
{
    Commands::OpenMenu(TopMenu::Solution);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(PertModule, ANinthPredecessorEndsSolveWithoutAMessage)
{
    New("10", kKnownTimes);
    Problem.CurrentActivity = 10;
    EXPECT_THROW(TakePredecessors({1, 2, 3, 4, 5, 6, 7, 8, 9}), RuntimeError);
    Commands::Solve();
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_FALSE(Enabled("mnuSolutionPrinttoText"));
    EXPECT_EQ(desktop.screen.indicator, "PERT/CPM Module");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_TRUE(Enabled("mnudispeditsubs(0)"));
}

// ---- files ----

TEST_F(PertModule, AFileOfKnownTimes)
{
    Given({{"", {2.5}}, {"A", {4}}, {"AB", {0.25}}});
    Problem.DecimalPlaces = 2.0;
    Session.NewProblem = true;
    EXPECT_EQ(Written(), "2,0,3,1\r\n2.5,0\r\n4,1\r\n0.25,2\r\n1\r\n1\r\n2\r\n");
    EXPECT_FALSE(Session.NewProblem);
}

TEST_F(PertModule, AFileOfThreeEstimatesHoldsWhatTheSolveComputed)
{
    Given({{"", {1, 2, 3}}, {"A", {2, 2, 8}}});
    EXPECT_EQ(Written(), "0,0,2,2\r\n0,0\r\n0,1\r\n1\r\n1,2\r\n3,0\r\n2,2\r\n8,0\r\n");
    Calculate();
    EXPECT_EQ(Written(), "0,0,2,2\r\n2,0\r\n3,1\r\n1\r\n1,2\r\n3,0.1111111111111111\r\n2,2\r\n8,1\r\n");
}

TEST_F(PertModule, AFileComesBackAsItWasWritten)
{
    Given(kHouseEstimated);
    Calculate();
    const std::string text = Written();
    Given({{"", {9}}});
    Open(text);
    EXPECT_TRUE(desktop.forms.Loaded("frmPERT_CPM").shown);
    EXPECT_FALSE(Session.NewProblem);
    EXPECT_EQ(Written(), text);
    Commands::Solve();
    EXPECT_EQ(SolutionLines().back(), "        VARIANCE OF PROJECT COMPLETION TIME = 9");
}

TEST_F(PertModule, NothingOfAnEarlierProblemIsLeftAfterOpen)
{
    Given(kHouseEstimated);
    Open("0,0,2,1\r\n1,0\r\n2,1\r\n1\r\n");
    EXPECT_EQ(Problem.NumActivities, 2);
    EXPECT_EQ(Problem.OptimisticTime(1).Value(), 0);
    EXPECT_EQ(Problem.PredTable(1, 8).Value(), 0);
}

TEST_F(PertModule, FieldsThatAreMissingInAFileStayEmpty)
{
    Open("0,0,2,1\r\n,0\r\n2,1\r\n1\r\n");
    EXPECT_TRUE(Problem.ActivityTime(1).IsEmpty());
    EXPECT_EQ(Written(), "0,0,2,1\r\n,0\r\n2,1\r\n1\r\n");
}

TEST_F(PertModule, FilesThatDoNotFitAreRefused)
{
    std::string tooMany = "0,0,26,1\r\n";
    for (int i = 1; i <= 26; ++i)
        tooMany += "1,0\r\n";
    const std::vector<std::string> files = {
        "",
        "0,0,2,1\r\n1,0\r\n",                                               // an activity is missing
        "0,0,1,2\r\n1,0\r\n1,2\r\n3\r\n",                                   // a variance is missing
        "0,0,2,1\r\n1,0\r\nx,0\r\n",                                        // no number
        "0,0,40000,1\r\n",                                                  // beyond 16 bits
        "0,0,1,1\r\n1,9\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n",  // nine predecessors
        tooMany,
    };
    for (const std::string& file : files) {
        desktop.dialogs.messages.clear();
        Open(file);
        EXPECT_EQ(desktop.dialogs.Last().Text,
                  "File Input Error.  Make sure this is a file for the current module.")
            << file;
        EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    }
}

}  // namespace
