#include "shell/modelform.h"

#include <gmock/gmock.h>

#include "shell/beside.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const ShownMessage kGiveUp{"Are you sure you wish to cancel the current problem?", "Cancel Current Problem",
                           Icon::Question, Buttons::YesNo};

class ModelForms : public testing::Test {
protected:
    void SetUp() override
    {
        Commands::Start();
        Commands::SelectModule(12);
        Commands::ChooseModule();
        for (const char* menu : {"mnudispedit", "mnuSolution"})
            Menus.SetEnabled(menu, true);
        Menus.SetEnabled("mnudispeditsubs(0)", false);
    }

    // The states of File, Edit and Solution, '1' for on.
    static std::string BarStates()
    {
        std::string states;
        for (const char* menu : {"mnuFile", "mnudispedit", "mnuSolution"})
            states += Menus.Item(menu).Enabled ? '1' : '0';
        return states;
    }

    FormExit Run(const std::function<void()>& user, bool problemIsInFile = false)
    {
        desktop.forms.onModal["frmModel"] = [&user, this] {
            during = BarStates();
            user();
        };
        return RunModelForm("frmModel", problemIsInFile);
    }

    std::string during;  // the menus while the form is open
    FakeDesktop desktop;
};

}  // namespace

TEST_F(ModelForms, TurnTheMenusOffWhileTheyAreOpen)
{
    EXPECT_EQ(Run([] { LeaveModelForm(FormExit::Closed); }), FormExit::Closed);
    EXPECT_EQ(during, "000");
    EXPECT_EQ(BarStates(), "111");
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(0)").Enabled);
    EXPECT_EQ(desktop.screen.indicator, "Markov Processes Module");
    EXPECT_THAT(desktop.dialogs.fileQuestions, IsEmpty());
}

TEST_F(ModelForms, AreFollowedByTheCommandOfTheirButton)
{
    desktop.screen.indicators.clear();
    EXPECT_EQ(Run([] { LeaveModelForm(FormExit::Closed); }), FormExit::Closed);
    EXPECT_THAT(desktop.screen.indicators, IsEmpty());
    EXPECT_EQ(Run([] { LeaveModelForm(FormExit::Save); }), FormExit::Save);
    EXPECT_EQ(desktop.dialogs.fileQuestions.size(), 1U);
    EXPECT_THAT(desktop.screen.indicators, testing::Not(testing::Contains("Solving Problem . . .")));
    EXPECT_EQ(Run([] { LeaveModelForm(FormExit::Solve); }), FormExit::Solve);
    EXPECT_EQ(desktop.dialogs.fileQuestions.size(), 1U);
    EXPECT_THAT(desktop.screen.indicators, testing::Contains("Solving Problem . . ."));
}

TEST_F(ModelForms, AskBeforeAProblemIsGivenUp)
{
    desktop.dialogs.answers = {Answer::No, Answer::Yes};
    const FormExit exit = Run([this] {
        CancelModelForm();
        EXPECT_TRUE(desktop.forms.IsLoaded("frmModel"));
        CancelModelForm();
        EXPECT_FALSE(desktop.forms.IsLoaded("frmModel"));
    });
    EXPECT_EQ(exit, FormExit::GivenUp);
    EXPECT_THAT(desktop.dialogs.messages, ElementsAre(kGiveUp, kGiveUp));
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(0)").Enabled);
    EXPECT_EQ(BarStates(), "111");
}

TEST_F(ModelForms, KeepAProblemThatIsInAFileWithoutAQuestion)
{
    Session.DialogCancelled = false;
    const FormExit exit = Run(
        [this] {
            CancelModelForm();
            EXPECT_FALSE(desktop.forms.IsLoaded("frmModel"));
        },
        true);
    EXPECT_EQ(exit, FormExit::Closed);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_FALSE(Session.DialogCancelled);
}

TEST_F(ModelForms, LeaveNoMenusOfAProblemBehind)
{
    Session.ProblemOnDisplay = "YES";
    ShowDisplayItem(true);
    Menus.SetEnabled("mnuFileSave", true);
    LeaveNoProblem();
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    EXPECT_EQ(BarStates(), "100");
    EXPECT_FALSE(Menus.Item("mnuFileSave").Enabled);
    EXPECT_EQ(Menus.Item("mnudispeditsubs(0)").Caption, "");
}

TEST_F(ModelForms, ComeBackInThePlaceOfTheReport)
{
    desktop.forms.Load("frmSolution");
    Menus.SetEnabled("mnudispeditsubs(0)", true);
    Menus.EnablePrinting(true);
    TheLastSolve.Set(SolveEnd::Report);
    ReturnToModelForm();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(0)").Enabled);
    EXPECT_FALSE(Menus.Item("mnuSolutionPrinttoText").Enabled);
    EXPECT_EQ(TheLastSolve.End(), SolveEnd::None);
    EXPECT_GT(desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit").Rows(), 0);  // filled anew
}

TEST_F(ModelForms, NeedAValueInEveryBox)
{
    EXPECT_TRUE(RequireValue("0"));
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_FALSE(RequireValue(""));
    EXPECT_EQ(desktop.dialogs.Last(), Refused("A Value Must be Entered"));
}
