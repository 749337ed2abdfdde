#include "waiting/module.h"

#include "basic/entrytext.h"
#include "basic/error.h"
#include "basic/number.h"
#include "shell/modelform.h"
#include "waiting/VtWait.h"
#include "waiting/WaitingMeaning.h"
#include "waiting/WaitingPicture.h"
#include "waiting/WaitingReport.h"
#include "waiting/WaitingSteps.h"

namespace VtWait {
namespace {

// The form and the file show what a solve leaves in the fields that its model does not ask for.
void LeaveInProblem(WaitingProblem& problem)
{
    if (problem.WaitingModel == kExponential) problem.Population = ToInt16(problem.Channels.Value()) - 1;
    if (problem.WaitingModel == kDeterministic) problem.ServiceStdDev = 0;
}

SolveOutcome SolveProblem()
{
    Result = {};  // a run-time error leaves nothing solved
    LeaveInProblem(Problem);
    Result = Solve(Problem);
    return {};
}

void Write(RecordWriter& file)
{
    const WaitingProblem& p = Problem;
    file.Write({static_cast<double>(p.WaitingModel), p.Channels, p.ArrivalRate, p.ServiceRate, p.Population,
                p.ServiceStdDev, p.EconomicAnalysis, p.CostPerUnitInSystem, p.CostPerChannel,
                EntryText(p.Channels), EntryText(p.ArrivalRate), EntryText(p.ServiceRate),
                EntryText(p.Population), EntryText(p.CostPerUnitInSystem), EntryText(p.CostPerChannel)});
}

void Read(RecordReader& file)
{
    constexpr int kTexts = 6;  // they say nothing new
    MakeArrays();
    Problem.WaitingModel = file.ReadCount();
    if (!HasModel()) Raise(ErrorNumber::SubscriptOutOfRange);
    Problem.Channels = file.ReadVariant();
    Problem.ArrivalRate = file.ReadVariant();
    Problem.ServiceRate = file.ReadVariant();
    Problem.Population = file.ReadVariant();
    Problem.ServiceStdDev = file.ReadVariant();
    Problem.EconomicAnalysis = file.ReadString();
    Problem.CostPerUnitInSystem = file.ReadVariant();
    Problem.CostPerChannel = file.ReadVariant();
    for (int i = 0; i < kTexts; ++i)
        file.ReadString();
    Problem.Saved = true;
    ShowModelCaption();
}

}  // namespace
}  // namespace VtWait

const ModuleRoutines& WaitingLines()
{
    static const ModuleRoutines routines{
        .Ask = VtWait::Ask,
        .Fill = VtWait::Fill,
        .FillRunsForm = true,
        .Prepare = VtWait::HasModel,
        .Solve = VtWait::SolveProblem,
        .Page = VtWait::WriteReport,
        .ReturnToProblem = ReturnToModelForm,
        .ReloadResetsIndicator = true,
        .Reports = {VtWait::WriteReport},
        .Pictures = [] { return VtWait::Pictures(VtWait::Problem, VtWait::Result); },
        .Steps = [] { return VtWait::Steps(VtWait::Problem, VtWait::Result); },
        .Meaning = [] { return VtWait::Meaning(VtWait::Problem, VtWait::Result); },
        .Write = VtWait::Write,
        .Read = VtWait::Read,
        .Saved = [] { VtWait::Problem.Saved = true; },
    };
    return routines;
}
