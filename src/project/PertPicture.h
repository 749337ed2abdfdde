// The project as pictures.
#pragma once

#include <string>
#include <vector>

#include "picture/picture.h"
#include "project/VtPert_CPM.h"

namespace VtPert_CPM {

// "Schedule" (bars with their slack, tight links), "Network" (boxes of six fields in columns by earliest
// start), and with three estimates "Chance" (done by a time).
std::vector<picture::Picture> PertPictures(const PertProblem& problem, const PertResult& result);

// The id of a link in the pictures: "A-C".
std::string LinkName(const PertProblem& problem, int from, int to);

}  // namespace VtPert_CPM
