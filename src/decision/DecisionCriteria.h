// The engine of decision problems: scores and recommendations from a problem.
#pragma once

#include "decision/VtDecisionAnalysis.h"

namespace Decision {

// By the problem's criterion (1 to 3), with state probabilities by the expected value. All alternatives with
// the best score are recommended; of alternatives that tie at an outcome of the sample the last one is taken.
// An outcome that cannot come has no posterior probabilities and the value 0.
DecisionResult Analyse(const DecisionProblem& problem);

}  // namespace Decision
