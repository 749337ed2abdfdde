#include "forecasting/module.h"

#include "basic/format.h"
#include "desktop/desktop.h"
#include "forecasting/ForecastMeaning.h"
#include "forecasting/ForecastPicture.h"
#include "forecasting/ForecastReport.h"
#include "forecasting/ForecastSteps.h"
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

// Asks for the method and its inputs.
bool Prepare()
{
    desktop::TheScreen().SetPointer(Pointer::Normal);
    return AskMethod();
}

std::string ZeroIndexText()
{
    const int zeroes = Result.ZeroIndexCount;
    const std::string nonzero = Format(Result.SeasonCount - zeroes, "@@") + " nonzero seasons.";
    if (zeroes == 1)
        return "1 seasonal index is zero.  The data cannot be deseasonalized for this season.  We suggest "
               "that you remove this seasons from your time series and develop forecasts based on the " +
               nonzero;
    return Format(zeroes, "@@") +
           " seasonal indexes are zero.  The data cannot be deseasonalized for these seasons.  We "
           "suggest that you remove these seasons from your time series and develop forecasts based on the " +
           nonzero;
}

SolveOutcome SolveSeries()
{
    Result = {};  // a run-time error leaves nothing solved
    Result = Forecast(Problem);
    if (Result.ZeroIndexCount == 0) return {};
    return {.After = {{.Text = ZeroIndexText(), .Title = "WARNING!"}}};
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
    Problem.PeriodCount = file.ReadCount();
    Problem.DecimalPlaces = file.ReadVariant();
    for (int t = 1; t <= Problem.PeriodCount; ++t)
        Problem.TimeSeries(t) = file.ReadVariant();
}

}  // namespace
}  // namespace VtForecasting

const ModuleRoutines& Forecasting()
{
    static const ModuleRoutines routines{
        .Ask = VtForecasting::Ask,
        .Fill = VtForecasting::Fill,
        .FirstGrid = "gridDisplayEdit",
        .CommitCell = VtForecasting::CommitCell,
        .Numbers = VtForecasting::Numbers,
        .TakeNumbers = VtForecasting::TakeNumbers,
        .Check = CheckTableau,
        .Prepare = VtForecasting::Prepare,
        .Solve = VtForecasting::SolveSeries,
        .Page = VtForecasting::WriteReport,
        .PreparesUnderStatus = true,
        .Status = StatusStays::BehindReport,  // it names the method
        .FirstEditItem = VtForecasting::kAddItem,
        .LastEditItem = VtForecasting::kDeleteItem,
        .EditItems = {"&Add Time Periods", "&Delete Time Periods"},
        .EditCommand = VtForecasting::EditCommand,
        .ReloadResetsIndicator = true,
        .Reports = {VtForecasting::WriteReport},
        .Pictures = [] { return VtForecasting::Pictures(VtForecasting::Problem, VtForecasting::Result); },
        .Steps = [] { return VtForecasting::Steps(VtForecasting::Problem, VtForecasting::Result); },
        .Meaning = [] { return VtForecasting::Meaning(VtForecasting::Problem, VtForecasting::Result); },
        .Write = VtForecasting::Write,
        .Read = VtForecasting::Read,
    };
    return routines;
}
