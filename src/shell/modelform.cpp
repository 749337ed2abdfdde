#include "shell/modelform.h"

#include "desktop/desktop.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/solution.h"

namespace {

FormExit formExit = FormExit::Closed;

void EnableMenus(bool enabled)
{
    for (const char* menu : {"mnuFile", "mnudispedit", "mnuSolution"})
        Menus.SetEnabled(menu, enabled);
}

}  // namespace

FormExit RunModelForm(std::string_view form)
{
    formExit = FormExit::Closed;
    EnableMenus(false);
    desktop::TheForms().ShowModal(form);
    desktop::TheForms().Unload(form);
    EnableMenus(true);
    const FormExit exit = formExit;
    if (exit == FormExit::Cancelled) return exit;
    Menus.SetEnabled(EditItemName(0), true);  // the only way back to the form
    if (exit == FormExit::Solve) Commands::Solve();
    if (exit == FormExit::Save) Commands::Save();
    return exit;
}

void ReturnToModelForm()
{
    UnloadSolution();
    Menus.SetEnabled(EditItemName(0), false);
    CurrentModule().Routines->Fill();
}

void LeaveNoProblem()
{
    Session.ProblemOnDisplay = "NO";
    for (const char* item : {"mnuFileSave", "mnudispedit", "mnuSolution"})
        Menus.SetEnabled(item, false);
    Menus.SetCaption(EditItemName(0), "");
}

void LeaveModelForm(FormExit exit)
{
    formExit = exit;
}

bool CancelModelForm(bool problemIsInFile)
{
    if (problemIsInFile) {
        LeaveModelForm(FormExit::Closed);
        return true;
    }
    const Answer answer = MsgBox("Are you sure you wish to cancel the current problem?",
                                 "Cancel Current Problem", Icon::Question, Buttons::YesNo);
    if (answer != Answer::Yes) return false;
    LeaveModelForm(FormExit::Cancelled);
    return true;
}

bool RequireValue(std::string_view text)
{
    return !text.empty() || Refuse("A Value Must be Entered");
}
