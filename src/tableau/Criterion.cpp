#include "tableau/Criterion.h"

#include "desktop/desktop.h"

std::string MaximizeFlag = "NO";

ModalDialog<CriterionQuestion, Criterion> TheCriterion{{.StaysLoaded = true}};

namespace {

constexpr std::string_view kForm = "frmTransObj";
Criterion proposal = Criterion::Maximize;

}  // namespace

void ProposeCriterion(Criterion proposed)
{
    proposal = proposed;
}

void BeginCriterion()
{
    MaximizeFlag = proposal == Criterion::Maximize ? "YES" : "NO";
}

bool TakeCriterion(Criterion chosen)
{
    if (chosen == Criterion::None) return Refuse("You must select an optimization criteria.");
    TheCriterion.Give(chosen);
    return true;
}

std::optional<Criterion> AskCriterion(const CriterionWords& words, std::optional<Criterion> ofProblem)
{
    desktop::TheForms().Load(kForm);
    const Criterion last = MaximizeFlag == "YES" ? Criterion::Maximize : Criterion::Minimize;
    const auto chosen = TheCriterion.Ask(kForm, {.Words = words, .InForce = ofProblem.value_or(last)});
    if (chosen) MaximizeFlag = *chosen == Criterion::Maximize ? "YES" : "NO";
    return chosen;
}
