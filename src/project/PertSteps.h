// How the schedule comes about, pass by pass.
#pragma once

#include <vector>

#include "picture/picture.h"
#include "project/VtPert_CPM.h"

namespace VtPert_CPM {

std::vector<picture::Step> PertSteps(const PertProblem& problem, const PertResult& result);

}  // namespace VtPert_CPM
