// The waiting line report: the characteristics and states on screen; the full report begins with the data.
#pragma once

#include "shell/report.h"

namespace VtWait {

void WriteReport(ReportChannel& out);

}  // namespace VtWait
