// How a decision is found: the table of its criterion, Bayes' rule, the values of information.
#pragma once

#include <vector>

#include "decision/VtDecisionAnalysis.h"
#include "picture/picture.h"

namespace Decision {

std::vector<picture::Step> Steps(const DecisionProblem& problem, const DecisionResult& result);

}  // namespace Decision
