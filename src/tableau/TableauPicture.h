// Transportation and assignment as pictures.
#pragma once

#include <string>
#include <vector>

#include "picture/picture.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

namespace Tableau {

// "Shipments" (origins left, destinations right) and "Cost" (by route, largest first); "Table" before them
// where one side has more than twelve lines.
std::vector<picture::Picture> TransportationPictures(const TableauProblem& problem,
                                                     const TableauResult& result);

// "Assignment", with "Table" before it where one side has more than twelve lines.
std::vector<picture::Picture> AssignmentPictures(const TableauProblem& problem, const TableauResult& result);

// The names of the blocks on both sides.
struct SideNames {
    const char* Left = "";
    const char* Right = "";
};
constexpr SideNames kTransportationSides = {"origin", "destination"};
constexpr SideNames kAssignmentSides = {"agent", "task"};

// The ids of the things in the pictures.
std::string LeftId(const SideNames& names, int line);
std::string RightId(const SideNames& names, int line);
std::string RouteId(int origin, int destination);

}  // namespace Tableau
