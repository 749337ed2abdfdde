// The reports of both networks: the answer on the screen, and the full report that begins with the arcs.
// Lengths are shown in the units in which they were entered.
#pragma once

#include <cstdint>
#include <string>

#include "basic/format.h"
#include "shell/module.h"

namespace Network {

// The page's caption, or a warning that not all nodes can be reached.
SolveOutcome RouteOutcome();
SolveOutcome TreeOutcome();

// On screen.
void WriteRoute(ReportChannel& out);
void WriteTree(ReportChannel& out);

void PrintShortestRoute(ReportChannel& out);
void PrintSpanningTree(ReportChannel& out);

// Thousandths under the pattern for the decimals of the problem.
std::string LengthText(std::int32_t length, const DecimalPatterns& patterns);

}  // namespace Network
