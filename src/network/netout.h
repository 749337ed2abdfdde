// The reports of both networks: the answer on the screen, and the full report that begins with the arcs.
// Lengths are shown in the units in which they were entered.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/report.h"

namespace Network {

void ShowShortestRoute();
void ShowSpanningTree();

void PrintShortestRoute(ReportChannel& out);
void PrintSpanningTree(ReportChannel& out);

// One pattern for each count of decimals.
struct LengthPatterns {
    std::string_view Whole;
    std::string_view OnePlace;
    std::string_view TwoPlaces;
};

// Thousandths under the pattern for the decimals of the problem.
std::string LengthText(std::int32_t length, const LengthPatterns& patterns);

}  // namespace Network
