// Time series for the tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forecasting/VtForecasting.h"

// An earlier series is gone.
inline void Given(const std::vector<double>& series)
{
    using VtForecasting::Problem;
    VtForecasting::Problem = {};
    VtForecasting::MakeArrays();
    Problem.PeriodCount = static_cast<std::int16_t>(series.size());
    int t = 0;
    for (const double value : series)
        Problem.TimeSeries(++t) = value;
}

// Forecasts by the method, with its inputs as they stand behind the method form.
inline void ForecastBy(int method, std::string_view parameter, std::string_view count = "")
{
    using VtForecasting::Problem;
    Problem.ForecastMethod = static_cast<std::int16_t>(method);
    Problem.MethodParameter = parameter;
    Problem.ForecastCount = count;
    VtForecasting::Result = {};
    VtForecasting::Result = VtForecasting::Forecast(Problem);
}
