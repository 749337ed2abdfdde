// The Markov report: results on screen; the full report begins with the transition matrix.
#pragma once

#include "shell/report.h"

namespace Markov {

void WriteReport(ReportChannel& out);

}  // namespace Markov
