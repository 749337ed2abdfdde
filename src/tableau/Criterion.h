// Minimise or maximise: what the form `frmTransObj` asks, for every module that has no form of its own for
// it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The answer: "YES" when the objective is to maximise, "NO" when to minimise.
extern std::string MaximizeFlag;

// The objective of the linear program, 1 minimise, 0 maximise. The form starts with it when it is loaded.
extern std::int16_t MinimizeFlag;

enum class Criterion { None, Minimize, Maximize };

// The form has been loaded: MaximizeFlag follows the linear program.
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
