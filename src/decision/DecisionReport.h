// The decision report: the recommendation and the strategy on screen; the full report begins with the
// payoffs and probabilities as they were entered.
#pragma once

#include "shell/report.h"

namespace Decision {

void WritePage(ReportChannel& out);
void WriteReport(ReportChannel& out);  // nothing when nothing has been solved

}  // namespace Decision
