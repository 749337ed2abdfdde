// Shortest route and minimal spanning tree as pictures.
#pragma once

#include <vector>

#include "network/NetworkSolver.h"
#include "picture/picture.h"

namespace Network {

// "Network" with the distances: the route strong, with heads; the other arcs by which nodes got their
// distance at medium weight. Nodes that cannot be reached stand apart.
std::vector<picture::Picture> RoutePictures(const NetworkProblem& problem, const NetworkResult& result);

// "Network" with the tree strong and the order of joining at the nodes; arcs that would serve as well are
// dotted.
std::vector<picture::Picture> TreePictures(const NetworkProblem& problem, const NetworkResult& result);

}  // namespace Network
