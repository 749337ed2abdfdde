#include "waiting/module.h"

#include "basic/entrytext.h"
#include "waiting/VtWait.h"
#include "waiting/WaitingReport.h"

namespace VtWait {
namespace {

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
    Problem.WaitingModel = file.ReadInt16();
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
        .Dimension = VtWait::NewProblem,
        .Display = VtWait::Display,
        .Prepare = VtWait::HasModel,
        .SolveAndShow = VtWait::SolveAndShow,
        .ShellShowsSolving = true,
        .ShellEnablesPrinting = true,
        .ReturnToProblem = VtWait::ReturnToProblem,
        .ReloadResetsIndicator = true,
        .Reports = {VtWait::WriteReport},
        .Write = VtWait::Write,
        .Read = VtWait::Read,
    };
    return routines;
}
