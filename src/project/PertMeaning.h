// What a schedule means, in sentences.
#pragma once

#include <vector>

#include "picture/picture.h"
#include "project/VtPert_CPM.h"

namespace VtPert_CPM {

std::vector<picture::Sentence> PertMeaning(const PertProblem& problem, const PertResult& result);

}  // namespace VtPert_CPM
