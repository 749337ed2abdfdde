// A decision problem as pictures: its tree, what its criterion looks at, and how far the choice holds.
#pragma once

#include <string>
#include <vector>

#include "decision/VtDecisionAnalysis.h"
#include "picture/picture.h"

namespace Decision {

// None for a problem that is not solved.
std::vector<picture::Picture> Pictures(const DecisionProblem& problem, const DecisionResult& result);

// Ids of the tree's nodes; outcome 0: without a sample. "root" is the first node.
std::string OutcomeId(int outcome);
std::string AlternativeId(int outcome, int alternative);  // also of the marks of the criteria
std::string LeafId(int outcome, int alternative, int state);

}  // namespace Decision
