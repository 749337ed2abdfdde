// Minimise or maximise: what the form `frmTransObj` asks, for every module that has no form of its own for
// it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "shell/modaldialog.h"

// The answer: "YES" when the objective is to maximise, "NO" when to minimise.
extern std::string MaximizeFlag;

enum class Criterion { None, Minimize, Maximize };

// What the form starts with when it is loaded: linear programs propose their type. Maximize at first.
void ProposeCriterion(Criterion proposed);
// The form has been loaded: MaximizeFlag follows the proposal.
void BeginCriterion();
// What the two options say.
struct CriterionWords {
    std::string_view Minimize = "Minimization Objective";
    std::string_view Maximize = "Maximization Objective";
};

struct CriterionQuestion {
    CriterionWords Words = {};
    Criterion InForce = Criterion::None;  // what the form comes up with
};

extern ModalDialog<CriterionQuestion, Criterion> TheCriterion;
// OK: false when none is chosen, and told.
bool TakeCriterion(Criterion chosen);

// Shows the form, which comes up with the criterion of the problem; where a problem has none, with the one
// that was taken last. MaximizeFlag follows the answer; nothing when it was cancelled.
std::optional<Criterion> AskCriterion(const CriterionWords& words = {},
                                      std::optional<Criterion> ofProblem = {});
