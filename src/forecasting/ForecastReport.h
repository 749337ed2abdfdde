// The forecasting report: the method, the fitted series and its forecasts.
#pragma once

#include "shell/report.h"

namespace VtForecasting {

void WriteReport(ReportChannel& out);

}  // namespace VtForecasting
