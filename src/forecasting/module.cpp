#include "forecasting/module.h"

#include "forecasting/ForecastReport.h"
#include "forecasting/VtForecasting.h"
#include "shell/checks.h"

namespace VtForecasting {
namespace {

constexpr int kAddItem = 3;
constexpr int kDeleteItem = 4;

void EditCommand(int item)
{
    if (item == kAddItem) AddTimePeriods();
    if (item == kDeleteItem) DeleteTimePeriods();
}

void Write(RecordWriter& file)
{
    file.Write({static_cast<double>(Problem.PeriodCount), Problem.DecimalPlaces});
    for (int t = 1; t <= Problem.PeriodCount; ++t)
        file.Write({Problem.TimeSeries(t)});
}

void Read(RecordReader& file)
{
    Problem.PeriodCount = 0;
    MakeArrays();
    Problem.PeriodCount = file.ReadInt16();
    Problem.DecimalPlaces = file.ReadVariant();
    for (int t = 1; t <= Problem.PeriodCount; ++t)
        Problem.TimeSeries(t) = file.ReadVariant();
}

}  // namespace
}  // namespace VtForecasting

const ModuleRoutines& Forecasting()
{
    static const ModuleRoutines routines{
        .Dimension = VtForecasting::NewTimeSeries,
        .Display = VtForecasting::Display,
        .CommitCell = VtForecasting::CommitCell,
        .Check = CheckTableau,
        .SolveAndShow = VtForecasting::SolveAndShow,
        .ShellShowsSolving = true,
        .ShellEnablesPrinting = true,
        .IndicatorComesBack = false,
        .FirstEditItem = VtForecasting::kAddItem,
        .LastEditItem = VtForecasting::kDeleteItem,
        .SolveDisablesEditItems = true,
        .EditItems = {"&Add Time Periods", "&Delete Time Periods"},
        .EditCommand = VtForecasting::EditCommand,
        .ReloadResetsIndicator = true,
        .Reports = {VtForecasting::WriteReport},
        .Write = VtForecasting::Write,
        .Read = VtForecasting::Read,
    };
    return routines;
}
