// The report of a linear or integer program, on the screen and in full. An integer program has values only:
// no reduced costs, no dual prices, no ranges.
#pragma once

#include "shell/report.h"

// Both cut the variables' names to 14 characters for good. "Invalid procedure call or argument" when a number
// of the problem has more than 13 decimals.

void ShowLpReport();  // leaves the simplex tableau in the coefficients

// Nothing when the last solve did not end in a solution. For a linear program ShowLpReport must have run on
// the same solution. Pages hold 55 lines; in a text file a
// line with a form feed stands for a new page.
void WriteLpReport(ReportChannel& out);
