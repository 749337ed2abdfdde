// What a shortest route or a minimal spanning tree means, in sentences.
#pragma once

#include <vector>

#include "network/NetworkSolver.h"
#include "picture/picture.h"

namespace Network {

std::vector<picture::Sentence> RouteMeaning(const NetworkProblem& problem, const NetworkResult& result);
std::vector<picture::Sentence> TreeMeaning(const NetworkProblem& problem, const NetworkResult& result);

}  // namespace Network
