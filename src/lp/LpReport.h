// The report of a linear or integer program, on the screen and in full. An integer program has values only:
// no reduced costs, no dual prices, no ranges. Names stand with 14 characters at most. "Invalid procedure
// call or argument" when a number of the problem has more than 13 decimals.
#pragma once

#include "lp/LP_Engine.h"
#include "shell/report.h"

void ShowLpReport(ReportChannel& page, const LP_Engine::LpResult& result);

// Nothing when the solve did not end in a solution. Pages hold 55 lines; in a text file a line with a form
// feed stands for a new page.
void WriteLpReport(ReportChannel& out, const LP_Engine::LpResult& result);
