#include "tableau/Criterion.h"

#include "desktop/desktop.h"
#include "shell/session.h"

std::string MaximizeFlag = "NO";
std::int16_t MinimizeFlag = 0;

Criterion FirstCriterion()
{
    MaximizeFlag = MinimizeFlag == 0 ? "YES" : "NO";
    return MinimizeFlag == 0 ? Criterion::Maximize : Criterion::Minimize;
}

bool TakeCriterion(Criterion chosen)
{
    if (chosen == Criterion::None) return Refuse("You must select an optimization criteria.");
    MaximizeFlag = chosen == Criterion::Maximize ? "YES" : "NO";
    Session.DialogCancelled = false;
    return true;
}

bool AskCriterion(const CriterionWords& words)
{
    Form& form = desktop::TheForms().Loaded("frmTransObj");
    form.SetText("optMinimize", words.Minimize);
    form.SetText("optMaximize", words.Maximize);
    desktop::TheForms().ShowModal("frmTransObj");
    return !Session.DialogCancelled;
}
