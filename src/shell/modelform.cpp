#include "shell/modelform.h"

#include "desktop/desktop.h"
#include "shell/menus.h"
#include "shell/modaldialog.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/solution.h"

namespace {

struct ModelQuestion {
    bool ProblemIsInFile = false;
};

ModalDialog<ModelQuestion, FormExit> modelForm{{.TellsSession = false}};

void EnableMenus(bool enabled)
{
    for (const char* menu : {"mnuFile", "mnudispedit", "mnuSolution"})
        Menus.SetEnabled(menu, enabled);
}

}  // namespace

FormExit RunModelForm(std::string_view form, bool problemIsInFile)
{
    EnableMenus(false);
    const FormExit exit = modelForm.Ask(form, {problemIsInFile}).value_or(FormExit::Closed);
    EnableMenus(true);
    if (exit == FormExit::GivenUp) return exit;
    Menus.SetEnabled(EditItemName(0), true);  // the only way back to the form
    if (exit == FormExit::Solve) Commands::Solve();
    if (exit == FormExit::Save) Commands::Save();
    return exit;
}

void LeaveNoProblem()
{
    Session.ProblemOnDisplay = "NO";
    for (const char* item : {"mnuFileSave", "mnudispedit", "mnuSolution"})
        Menus.SetEnabled(item, false);
    Menus.SetCaption(EditItemName(0), "");
    desktop::TheScreen().SetIndicator(CurrentModule().Indicator);
}

void ReturnToModelForm()
{
    UnloadSolution();
    Menus.SetEnabled(EditItemName(0), false);
    CurrentModule().Routines->Fill();
}

void LeaveModelForm(FormExit exit)
{
    modelForm.Give(exit);
}

void CancelModelForm()
{
    if (modelForm.Question().ProblemIsInFile) {
        modelForm.Cancel();
        return;
    }
    const Answer answer = MsgBox("Are you sure you wish to cancel the current problem?",
                                 "Cancel Current Problem", Icon::Question, Buttons::YesNo);
    if (answer == Answer::Yes) modelForm.Give(FormExit::GivenUp);
}

bool RequireValue(std::string_view text)
{
    return !text.empty() || Refuse("A Value Must be Entered");
}
