// The forecasting report: the method, the fitted series and its forecasts.
#pragma once

#include <string_view>

#include "forecasting/VtForecasting.h"
#include "shell/report.h"

namespace VtForecasting {

// How a row of the series is written.
struct SeriesFields {
    std::string_view ValuePattern;
    int ValueWidth;
    int ForecastWidth;
    int ErrorWidth;
};

const SeriesFields& FieldsOf(const ForecastProblem& problem);

int WidthOfForecast(const ForecastResult& result);  // behind the last period

void WriteReport(ReportChannel& out);

}  // namespace VtForecasting
