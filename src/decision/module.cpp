#include "decision/module.h"

#include "basic/error.h"
#include "decision/DecisionCheck.h"
#include "decision/DecisionMeaning.h"
#include "decision/DecisionPicture.h"
#include "decision/DecisionReport.h"
#include "decision/DecisionSteps.h"
#include "decision/VtDecisionAnalysis.h"

namespace Decision {
namespace {

SolveOutcome Answer()
{
    SolveProblem();
    return {};
}

void Write(RecordWriter& file)
{
    const bool states = HasStateProbabilities();
    const bool outcomes = ComputesStrategy();
    const double stateFlag = states ? 1 : 0;
    const double outcomeFlag = outcomes ? 1 : 0;
    const int m = Problem.AlternativeCount;
    const int n = Problem.NatureStateCount;
    file.Write({Problem.PayoffDecimals, n, m, stateFlag, outcomeFlag, Problem.HasStateProbabilities,
                Problem.ComputeStrategy});
    for (int i = 1; i <= m; ++i)
        for (int j = 1; j <= n; ++j)
            file.Write({Problem.Payoff(i, j)});
    if (!states) return;
    for (int j = 1; j <= n; ++j)
        file.Write({Problem.StatePrior(j)});
    if (!outcomes) return;
    file.Write({outcomeFlag, Problem.IndicatorCount});
    for (int j = 1; j <= n; ++j)
        for (int k = 1; k <= Problem.IndicatorCount; ++k)
            file.Write({Problem.IndicatorGivenState(j, k)});
}

// More than the tables hold, or fewer than none, cannot be shown.
std::int16_t ReadCount(RecordReader& file)
{
    const std::int16_t count = file.ReadInt16();
    if (count < 0 || count > kMost) Raise(ErrorNumber::SubscriptOutOfRange);
    return count;
}

void ReadTable(RecordReader& file, Array2<double>& table, int rows, int columns)
{
    for (int row = 1; row <= rows; ++row)
        for (int column = 1; column <= columns; ++column)
            table(row, column) = file.ReadVariant().Value();
}

void Read(RecordReader& file)
{
    Problem = {};
    Result = {};
    Problem.PayoffDecimals = file.ReadVariant();
    const int n = Problem.NatureStateCount = ReadCount(file);
    const int m = Problem.AlternativeCount = ReadCount(file);
    const bool states = file.ReadVariant().Value() == 1;
    const bool outcomes = file.ReadVariant().Value() == 1;
    Problem.HasStateProbabilities = file.ReadString();
    Problem.ComputeStrategy = file.ReadString();
    ReadTable(file, Problem.Payoff, m, n);
    if (!states) return;
    for (int j = 1; j <= n; ++j)
        Problem.StatePrior(j) = file.ReadVariant().Value();
    if (!outcomes) return;
    file.ReadVariant();  // the flag once more
    Problem.IndicatorCount = ReadCount(file);
    ReadTable(file, Problem.IndicatorGivenState, n, Problem.IndicatorCount);
}

}  // namespace
}  // namespace Decision

const ModuleRoutines& DecisionAnalysis()
{
    static const ModuleRoutines routines{
        .Ask = Decision::Ask,
        .Fill = Decision::Fill,
        .FirstGrid = "Grid(0)",
        .Numbers = Decision::Numbers,
        .TakeNumbers = Decision::TakeNumbers,
        .Check = Decision::Check,
        .Prepare = Decision::AskSenseAndCriterion,
        .Solve = Decision::Answer,
        .Page = Decision::WritePage,
        .Reports = {Decision::WriteReport},
        .Pictures = [] { return Decision::Pictures(Decision::Problem, Decision::Result); },
        .Steps = [] { return Decision::Steps(Decision::Problem, Decision::Result); },
        .Meaning = [] { return Decision::Meaning(Decision::Problem, Decision::Result); },
        .Write = Decision::Write,
        .Read = Decision::Read,
    };
    return routines;
}
