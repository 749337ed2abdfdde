// The project report: expected times, schedule and critical path on screen; the full report begins with the
// activity list.
#pragma once

#include "shell/report.h"

namespace VtPert_CPM {

void SolvePert();  // calculates and shows the report
void PrintPertReport(ReportChannel& out);

}  // namespace VtPert_CPM
