// The second half of the analysis: which alternative follows each outcome of a sample, by Bayes' rule, and
// what the sample is worth.
#pragma once

#include "decision/VtDecisionAnalysis.h"

namespace Decision {

// Reads the problem and the expected value half of the result, fills the rest of it.
void DevelopStrategy(const DecisionProblem& problem, DecisionResult& result);

}  // namespace Decision
