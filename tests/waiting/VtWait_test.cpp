// From the list of models to the form and back, and the problem file.
#include "waiting/VtWait.h"

#include <gmock/gmock.h>

#include <utility>

#include "basic/records.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/modelform.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"
#include "waiting/lines.h"
#include "waiting/module.h"

using testing::ElementsAre;

namespace {

using VtWait::Problem;
using VtWait::Result;

constexpr int kModule = 9;

class WaitingModule : public testing::Test {
protected:
    WaitingModule()
    {
        Commands::Start();
        Commands::SelectModule(kModule);
        Commands::ChooseModule();
        VtWait::MakeArrays();
    }

    // The user takes this line of the list, or cancels it (0).
    void ListAnswers(int item)
    {
        desktop.forms.onModal["frmuserlistinput"] = [item] {
            if (item == 0)
                UserInput::List.Cancel();
            else
                UserInput::TakeListItem(item);
        };
    }

    // What the user does on the form, once; a second showing is left alone.
    void OnForm(const std::function<void()>& doing)
    {
        desktop.forms.onModal["frmWL_Model"] = [doing, done = false]() mutable {
            if (std::exchange(done, true)) return;
            doing();
        };
    }

    static std::string Written()
    {
        RecordWriter file;
        WaitingLines().Write(file);
        return file.Text();
    }

    static void ReadBack(const std::string& text)
    {
        RecordReader reader(text);
        WaitingLines().Read(reader);
    }

    FakeDesktop desktop;
};

}  // namespace

TEST_F(WaitingModule, ListsItsFiveModels)
{
    ListAnswers(0);
    BeginProblem();
    EXPECT_EQ(UserInput::List.Question().Caption, " Waiting Lines");
    EXPECT_THAT(UserInput::List.Question().Items,
                ElementsAre("Poisson Arrivals / Exponential Service",
                            "Poisson Arrivals / Arbitrary Service (1 Channel)",
                            "Poisson Arrivals / Deterministic Service (1 Channel)",
                            "Poisson Arrivals / Arbitrary Service (No Waiting)",
                            "Poisson Arrivals / Exponential Service (Finite Pop.)"));
    EXPECT_EQ(UserInput::List.Question().EmptyMessage, "You Must Select a Waiting Line Model");
    EXPECT_EQ(desktop.screen.indicator, "Waiting Lines Module");
    EXPECT_EQ(Problem.WaitingModel, 0);
}

TEST_F(WaitingModule, ANewProblemHoldsNothingOfTheLast)
{
    GivenExponential(3, 2, 1);
    GivenCosts(1, 2);
    WaitingLines().Solve();
    ListAnswers(VtWait::kFinitePopulation);
    Commands::New();
    EXPECT_EQ(Problem.WaitingModel, VtWait::kFinitePopulation);
    EXPECT_TRUE(Problem.Channels.IsEmpty());
    EXPECT_TRUE(Problem.Population.IsEmpty());
    EXPECT_EQ(Problem.EconomicAnalysis, "NO");
    EXPECT_EQ(Result.RowCount, 0);
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmuserlistinput", "frmWL_Model"));
    EXPECT_EQ(VtWait::Title(), "Poisson Arrivals / Exponential Service (Finite Pop.)");
}

TEST_F(WaitingModule, SolveClosesTheFormAndShowsTheReport)
{
    ListAnswers(VtWait::kExponential);
    OnForm([] {
        EXPECT_FALSE(Menus.Item("mnuFile").Enabled);
        GivenExponential(1, 2, 3);
        LeaveModelForm(FormExit::Solve);
    });
    Commands::New();
    EXPECT_TRUE(desktop.forms.Loaded("frmSolution").shown);
    EXPECT_EQ(SolutionLines()[1], "  SUMMARY OF A 1 CHANNEL WAITING LINE WITH");
    EXPECT_THAT(desktop.screen.indicators, testing::Contains("Solving Problem . . ."));
    EXPECT_EQ(desktop.screen.indicator, "Waiting Lines Module");
    EXPECT_TRUE(Menus.Item("mnuSolutionPrinttoText").Enabled);
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(0)").Enabled);
    EXPECT_TRUE(Menus.Item("mnuFile").Enabled);
}

TEST_F(WaitingModule, CancelListsTheModelsAgain)
{
    ListAnswers(VtWait::kExponential);
    OnForm([this] {
        desktop.screen.indicator = "Waiting Line Model:  M/M/K";
        CancelModelForm();
        desktop.forms.onModal["frmuserlistinput"] = [this] {
            EXPECT_EQ(desktop.screen.indicator, "Waiting Lines Module");
            UserInput::List.Cancel();
        };
    });
    BeginProblem();
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmuserlistinput", "frmWL_Model", "frmuserlistinput"));
    EXPECT_EQ(Problem.WaitingModel, 0);
    EXPECT_EQ(desktop.screen.indicator, "Waiting Lines Module");
    Commands::Solve();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
}

TEST_F(WaitingModule, DisplayEditShowsTheFormAgain)
{
    GivenExponential(1, 2, 3);
    DisplayProblem();
    Commands::Solve();
    desktop.forms.modals.clear();
    Commands::EditItem(0);
    EXPECT_THAT(desktop.forms.modals, ElementsAre("frmWL_Model"));
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
}

TEST_F(WaitingModule, TheEconomicAnalysisIsYesOrNo)
{
    VtWait::ChooseEconomicAnalysis(true);
    EXPECT_EQ(Problem.EconomicAnalysis, "YES");
    EXPECT_TRUE(VtWait::HasEconomicAnalysis());
    VtWait::ChooseEconomicAnalysis(false);
    EXPECT_EQ(Problem.EconomicAnalysis, "NO");
    EXPECT_FALSE(VtWait::HasEconomicAnalysis());
}

TEST_F(WaitingModule, WithoutAModelThereAreNoBoxes)
{
    EXPECT_THROW(VtWait::Boxes(), RuntimeError);
}

// ---- files ----

TEST_F(WaitingModule, WritesFieldsThatWereLeftEmptyAsNothing)
{
    GivenExponential(4, 15.25, 7);
    EXPECT_EQ(Written(), "1,4,15.25,7,,,\"NO\",,,\"4\",\"15.25\",\"7\",\"\",\"\",\"\"\r\n");
}

TEST_F(WaitingModule, WritesTheTextsOfSmallValuesWithoutAnExponent)
{
    GivenExponential(1, 0.00002, 0.00005);
    EXPECT_EQ(Written(), "1,1,0.00002,0.00005,,,\"NO\",,,\"1\",\"0.00002\",\"0.00005\",\"\",\"\",\"\"\r\n");
}

TEST_F(WaitingModule, WritesASolvedProblemWithItsCosts)
{
    GivenExponential(4, 15, 7);
    GivenCosts(2.5, 300);
    WaitingLines().Solve();
    EXPECT_EQ(Written(), "1,4,15,7,3,,\"YES\",2.5,300,\"4\",\"15\",\"7\",\"3\",\"2.5\",\"300\"\r\n");
}

TEST_F(WaitingModule, ReadsWhatItWrote)
{
    GivenArbitrary(18, 19, 0.05);
    GivenCosts(2.5, 300);
    const std::string text = Written();
    VtWait::MakeArrays();
    ReadBack(text);
    EXPECT_EQ(Problem.WaitingModel, VtWait::kArbitrary);
    EXPECT_EQ(Problem.Channels.Value(), 1.0);
    EXPECT_EQ(Problem.ArrivalRate.Value(), 18.0);
    EXPECT_EQ(Problem.ServiceRate.Value(), 19.0);
    EXPECT_TRUE(Problem.Population.IsEmpty());
    EXPECT_EQ(Problem.ServiceStdDev.Value(), 0.05);
    EXPECT_TRUE(VtWait::HasEconomicAnalysis());
    EXPECT_EQ(Problem.CostPerUnitInSystem.Value(), 2.5);
    EXPECT_EQ(Problem.CostPerChannel.Value(), 300.0);
    EXPECT_TRUE(Problem.Saved);
    EXPECT_EQ(Written(), text);
}

TEST_F(WaitingModule, TheTextsOfAFileSayNothing)
{
    ReadBack("1,4,15,7,,,\"NO\",,,\"a\",\"b\",\"c\",\"d\",\"e\",\"f\"\r\n");
    EXPECT_EQ(Written(), "1,4,15,7,,,\"NO\",,,\"4\",\"15\",\"7\",\"\",\"\",\"\"\r\n");
}

TEST_F(WaitingModule, EachModelNamesItselfWhenItIsOpened)
{
    const std::vector<std::string> names{"M/M/K", "M/G/1", "M/D/1", "No Wait", "Finite Population"};
    for (int model = 1; model <= VtWait::kModelCount; ++model) {
        GivenChannels(model, 2, 1, 1);
        ReadBack(Written());
        EXPECT_EQ(desktop.screen.indicator,
                  "Waiting Line Model:  " + names[static_cast<std::size_t>(model) - 1]);
    }
}

TEST_F(WaitingModule, AShortFileFails)
{
    EXPECT_THROW(ReadBack("1,4,15,7,,,\"NO\",,,\"4\",\"15\",\"7\",\"\",\"\"\r\n"), RuntimeError);
    EXPECT_THROW(ReadBack("M/M/1,4,15,7\r\n"), RuntimeError);
    EXPECT_THROW(ReadBack(""), RuntimeError);
}

TEST_F(WaitingModule, AModelThatDoesNotExistOpensNoForm)
{
    for (const int model : {0, 6, -1, 32000}) {
        GivenChannels(model, 1, 1, 2);
        EXPECT_THROW(ReadBack(Written()), RuntimeError);
        DisplayProblem();
        Commands::Solve();
    }
    EXPECT_TRUE(desktop.forms.modals.empty());
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
}
