// Minimise or maximise: what the form `frmTransObj` asks, for every module that has no form of its own for
// it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The answer: "YES" when the objective is to maximise, "NO" when to minimise.
extern std::string MaximizeFlag;

// The objective of the linear program, 1 minimise, 0 maximise. The form starts with it.
extern std::int16_t MinimizeFlag;

enum class Criterion { None, Minimize, Maximize };

// The choice that the form opens with; sets MaximizeFlag as well.
Criterion FirstCriterion();
// False when none is chosen, and told; otherwise the answer stands in MaximizeFlag, and DialogCancelled is
// cleared.
bool TakeCriterion(Criterion chosen);

// What the two options say.
struct CriterionWords {
    std::string_view Minimize = "Minimization Objective";
    std::string_view Maximize = "Maximization Objective";
};

// Shows the form. False when it was cancelled.
bool AskCriterion(const CriterionWords& words = {});
