// The assignment report: who does what, what it costs, and who is left over.
//
// It reads Problem and the tree in Result. The assignments stand in the order of the tree's nodes: agents
// whose own node holds the assigned arc first, then tasks that hold one.
#pragma once

#include "shell/report.h"

namespace Tableau {

// On screen and in the full report.
void WriteAssignment(ReportChannel& out);

}  // namespace Tableau
