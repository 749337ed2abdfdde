// The project report: expected times, schedule and critical path on screen; the full report begins with the
// activity list.
#pragma once

#include "project/VtPert_CPM.h"
#include "shell/report.h"

namespace VtPert_CPM {

void WritePertReport(ReportChannel& out);  // on screen
void PrintPertReport(ReportChannel& out);

}  // namespace VtPert_CPM
