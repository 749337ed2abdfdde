// The module under the commands of the main window.
#include "forecasting/module.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "forecasting/VtForecasting.h"
#include "forecasting/forecasting_support.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

using namespace VtForecasting;
using ::testing::Contains;
using ::testing::IsEmpty;

namespace {

constexpr int kModule = 11;

std::string Written()
{
    RecordWriter file;
    Forecasting().Write(file);
    return file.Text();
}

class ForecastModule : public ::testing::Test {
protected:
    ForecastModule()
    {
        Commands::Start();
        Commands::SelectModule(kModule);
        Commands::ChooseModule();
    }

    void New(const std::string& periods)
    {
        desktop.forms.onModal["frmUserInput"] = [periods] { UserInput::TakeSizes({periods}); };
        Commands::New();
    }

    void Type(const std::vector<std::string>& values)
    {
        int row = 0;
        for (const std::string& value : values)
            TheGrid().SetText(++row, 1, value);
    }

    void Choose(int method, const std::string& first, const std::string& second = "")
    {
        desktop.forms.onModal["frmForecastingModels"] = [=] { TakeMethod(method, {first, second}); };
    }

    void Open(const std::string& text)
    {
        const std::filesystem::path path =
            std::filesystem::path(::testing::TempDir()) /
            (std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + ".FOR");
        std::ofstream(path, std::ios::binary) << text;
        desktop.dialogs.files = {path.string()};
        Commands::Open();
        std::filesystem::remove(path);
    }

    FakeGrid& TheGrid() { return desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit"); }
    [[nodiscard]] static bool Enabled(const char* item) { return Menus.Item(item).Enabled; }

    FakeDesktop desktop;
};

TEST_F(ForecastModule, TheEditMenuHasTheTwoItemsOfTheModule)
{
    EXPECT_EQ(Menus.Item("mnudispeditsubs(3)").Caption, "&Add Time Periods");
    EXPECT_EQ(Menus.Item("mnudispeditsubs(4)").Caption, "&Delete Time Periods");
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(1)").Visible);
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(2)").Visible);
}

TEST_F(ForecastModule, FromNewToTheReport)
{
    New("3");
    EXPECT_FALSE(Session.NewProblem);
    Type({"1", "2", "3"});
    Choose(kMovingAverages, "1");
    Commands::Solve();
    EXPECT_EQ(SolutionLines().back(), "     THE FORECAST FOR PERIOD 4             3.00");
    EXPECT_TRUE(Enabled("mnuSolutionPrinttoText"));
    EXPECT_TRUE(Enabled("mnudispeditsubs(0)"));
    EXPECT_FALSE(Enabled("mnudispeditsubs(3)"));
    EXPECT_FALSE(Enabled("mnudispeditsubs(4)"));
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_EQ(desktop.screen.indicator, "Forecasting Module - Moving Averages");
    Commands::EditItem(0);
    EXPECT_TRUE(Enabled("mnudispeditsubs(3)"));
    EXPECT_TRUE(Enabled("mnudispeditsubs(4)"));
    EXPECT_FALSE(Enabled("mnudispeditsubs(0)"));
    EXPECT_FALSE(Enabled("mnuSolutionPrinttoText"));
}

TEST_F(ForecastModule, EmptyCellsBecomeZeroesAfterOneQuestion)
{
    New("3");
    Type({"1", "", ""});
    Choose(kMovingAverages, "1");
    Commands::Solve();
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.Last().Title, "Problem Incomplete");
    EXPECT_EQ(SolutionLines().back(), "     THE FORECAST FOR PERIOD 4             0.00");
    EXPECT_EQ(TheGrid().Text(2, 1), "");
}

TEST_F(ForecastModule, CancellingTheQuestionEndsTheCommand)
{
    New("2");
    desktop.dialogs.answers = {Answer::Cancel};
    Commands::Solve();
    EXPECT_THAT(desktop.forms.modals, ::testing::Not(Contains("frmForecastingModels")));
    EXPECT_EQ(desktop.screen.indicator, "Forecasting Module");
}

TEST_F(ForecastModule, ACancelledMethodFormLeavesTheMenusOfTheProblem)
{
    New("2");
    Type({"1", "2"});
    desktop.forms.onModal["frmForecastingModels"] = [] { TheMethod.Cancel(); };
    Commands::Solve();
    EXPECT_FALSE(Enabled("mnuSolutionPrinttoText"));
    EXPECT_FALSE(Enabled("mnudispeditsubs(0)"));
    EXPECT_TRUE(Enabled("mnudispeditsubs(3)"));
    EXPECT_EQ(desktop.screen.indicator, "Forecasting Module");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
}

TEST_F(ForecastModule, AFailureOfTheEngineEndsSolveSilently)
{
    New("2");
    Type({"1", "2"});
    Choose(kMovingAverages, "2");
    Commands::Solve();
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_EQ(desktop.screen.indicator, "Forecasting Module");
    EXPECT_FALSE(Enabled("mnuSolutionPrinttoText"));
}

TEST_F(ForecastModule, TheEditItemsChangeTheSeries)
{
    New("3");
    Type({"1", "2", "3"});
    for (int row = 1; row <= 3; ++row)
        ::CommitCell(row, 1, TheGrid().Text(row, 1));
    desktop.dialogs.inputs = {"1", "2"};
    Commands::EditItem(3);
    EXPECT_EQ(Problem.PeriodCount, 4);
    Commands::EditItem(4);
    EXPECT_EQ(Problem.PeriodCount, 2);
    EXPECT_EQ(TheGrid().Text(1, 1), "3");
    EXPECT_FALSE(Session.EditDialogActive);
}

TEST_F(ForecastModule, NewAndOpenPutTheIndicatorBack)
{
    New("2");
    Type({"1", "2"});
    Choose(kTrendProjection, "1");
    Commands::Solve();
    EXPECT_EQ(desktop.screen.indicator, "Forecasting Module - Trend Projection");
    New("3");
    EXPECT_EQ(desktop.screen.indicator, "Forecasting Module");
    EXPECT_TRUE(Problem.TimeSeries(1).IsEmpty());
}

// ---- files ----

TEST_F(ForecastModule, AFileHoldsTheCountBeforeTheDecimals)
{
    Given({1, 2.5, -0.25});
    Problem.DecimalPlaces = 2.0;
    EXPECT_EQ(Written(), "3,2\r\n1\r\n2.5\r\n-0.25\r\n");
}

TEST_F(ForecastModule, AFileComesBackAsItWasWritten)
{
    const std::string text = "4,1\r\n55.1\r\n\r\n0\r\n-3\r\n";
    Open(text);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_TRUE(Problem.TimeSeries(2).IsEmpty());
    EXPECT_EQ(Written(), text);
    EXPECT_EQ(TheGrid().Text(1, 1), "55.1");
    EXPECT_EQ(TheGrid().Text(2, 1), "");
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
}

TEST_F(ForecastModule, AFileOfAHundredPeriodsIsTheLongest)
{
    const auto file = [](int n) {
        std::string text = std::to_string(n) + ",0\r\n";
        for (int t = 1; t <= n; ++t)
            text += std::to_string(t) + "\r\n";
        return text;
    };
    Open(file(100));
    EXPECT_EQ(Problem.PeriodCount, 100);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    Open(file(101));
    EXPECT_EQ(desktop.dialogs.Last().Text,
              "File Input Error.  Make sure this is a file for the current module.");
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
}

TEST_F(ForecastModule, FilesThatDoNotFitAreRefused)
{
    for (const char* text : {"", "3", "3,0\r\n1\r\n2\r\n", "2,0\r\n1\r\nx\r\n", "99999,0\r\n1\r\n"}) {
        desktop.dialogs.messages.clear();
        Open(text);
        EXPECT_EQ(desktop.dialogs.Last().Title, "Error Opening File") << text;
    }
}

TEST_F(ForecastModule, NothingOfAnEarlierProblemIsLeftAfterOpen)
{
    New("3");
    Type({"1", "2.55", "3"});
    Choose(kMovingAverages, "1");
    Commands::Solve();
    Open("1,0\r\n4\r\n");
    EXPECT_TRUE(Problem.TimeSeries(2).IsEmpty());
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 0);
    EXPECT_EQ(Result.Method, 0);
}

}  // namespace
