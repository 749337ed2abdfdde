// How Dijkstra's and Prim's methods found the answer, node by node.
#pragma once

#include <vector>

#include "network/NetworkSolver.h"
#include "picture/picture.h"

namespace Network {

// Both solve once more and watch.
std::vector<picture::Step> RouteSteps(const NetworkProblem& problem, const NetworkResult& result);
std::vector<picture::Step> TreeSteps(const NetworkProblem& problem, const NetworkResult& result);

}  // namespace Network
