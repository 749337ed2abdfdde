// How the network simplex method found the plan, step by step.
#pragma once

#include <vector>

#include "picture/picture.h"
#include "tableau/TableauPicture.h"

namespace Tableau {

// The first tree, each change of it, and the proof that the last one is best. Solves once more and watches.
std::vector<picture::Step> TransportationSteps(const TableauProblem& problem, const TableauResult& result);
std::vector<picture::Step> AssignmentSteps(const TableauProblem& problem, const TableauResult& result);

}  // namespace Tableau
