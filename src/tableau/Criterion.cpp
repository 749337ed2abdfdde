#include "tableau/Criterion.h"

#include "desktop/desktop.h"
#include "shell/session.h"

std::string MaximizeFlag = "NO";

namespace {

Criterion proposal = Criterion::Maximize;
Criterion inForce = Criterion::None;

}  // namespace

void ProposeCriterion(Criterion proposed)
{
    proposal = proposed;
}

void BeginCriterion()
{
    MaximizeFlag = proposal == Criterion::Maximize ? "YES" : "NO";
}

Criterion CriterionInForce()
{
    return inForce;
}

bool TakeCriterion(Criterion chosen)
{
    if (chosen == Criterion::None) return Refuse("You must select an optimization criteria.");
    MaximizeFlag = chosen == Criterion::Maximize ? "YES" : "NO";
    LeaveDialog(false);
    return true;
}

bool AskCriterion(const CriterionWords& words, std::optional<Criterion> ofProblem)
{
    Form& form = desktop::TheForms().Loaded("frmTransObj");
    form.SetText("optMinimize", words.Minimize);
    form.SetText("optMaximize", words.Maximize);
    inForce = ofProblem.value_or(MaximizeFlag == "YES" ? Criterion::Maximize : Criterion::Minimize);
    desktop::TheForms().ShowModal("frmTransObj");
    return !Session.DialogCancelled;
}
