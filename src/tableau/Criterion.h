// Minimise or maximise: what the form `frmTransObj` asks, for every module that has no form of its own for
// it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The answer: "YES" when the objective is to maximise, "NO" when to minimise.
extern std::string MaximizeFlag;

enum class Criterion { None, Minimize, Maximize };

// What the form starts with when it is loaded: linear programs propose their type. Maximize at first.
void ProposeCriterion(Criterion proposed);
// The form has been loaded: MaximizeFlag follows the proposal.
void BeginCriterion();
// The choice that the form comes up with.
Criterion CriterionInForce();
// False when none is chosen, and told; otherwise the answer stands in MaximizeFlag, and DialogCancelled is
// cleared.
bool TakeCriterion(Criterion chosen);

// What the two options say.
struct CriterionWords {
    std::string_view Minimize = "Minimization Objective";
    std::string_view Maximize = "Maximization Objective";
};

// Shows the form, which comes up with the criterion of the problem; where a problem has none, with the one
// that was taken last. False when it was cancelled.
bool AskCriterion(const CriterionWords& words = {}, std::optional<Criterion> ofProblem = {});
