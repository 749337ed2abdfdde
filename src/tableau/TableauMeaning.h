// What a transportation or assignment plan means, in sentences.
#pragma once

#include <vector>

#include "picture/picture.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

namespace Tableau {

std::vector<picture::Sentence> TransportationMeaning(const TableauProblem& problem,
                                                     const TableauResult& result);
std::vector<picture::Sentence> AssignmentMeaning(const TableauProblem& problem, const TableauResult& result);

}  // namespace Tableau
