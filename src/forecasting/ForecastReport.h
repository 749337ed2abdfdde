// The forecasting report: the method, the fitted series and its forecasts.
#pragma once

#include "shell/report.h"

namespace VtForecasting {

void SolveAndShow();  // asks for the method, then forecasts and shows the report
void WriteReport(ReportChannel& out);

}  // namespace VtForecasting
