// The inventory report: the policy on screen; the full report begins with the data.
#pragma once

#include "shell/report.h"

namespace VtInvent {

void WritePage(ReportChannel& out);
void WriteReport(ReportChannel& out);

}  // namespace VtInvent
