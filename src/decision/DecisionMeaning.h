// What a decision analysis says, in sentences.
#pragma once

#include <vector>

#include "decision/VtDecisionAnalysis.h"
#include "picture/picture.h"

namespace Decision {

std::vector<picture::Sentence> Meaning(const DecisionProblem& problem, const DecisionResult& result);

}  // namespace Decision
