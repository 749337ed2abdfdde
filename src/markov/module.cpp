#include "markov/module.h"

#include "markov/Markov.h"
#include "markov/MarkovMeaning.h"
#include "markov/MarkovPicture.h"
#include "markov/MarkovReport.h"
#include "markov/MarkovSteps.h"
#include "shell/checks.h"

namespace Markov {
namespace {

SolveOutcome SolveProblem()
{
    Result = {};  // a run-time error leaves nothing solved
    Result = Solve(Problem);
    return {};
}

void Write(RecordWriter& file)
{
    const int n = Problem.StateCount;
    file.Write({static_cast<double>(n)});
    for (int from = 1; from <= n; ++from)
        for (int to = 1; to <= n; ++to)
            file.Write({Problem.TransitionMatrix(from, to)});
}

void Read(RecordReader& file)
{
    MakeArrays();
    const int n = file.ReadCount();
    Problem.StateCount = n;
    for (int from = 1; from <= n; ++from)
        for (int to = 1; to <= n; ++to)
            Problem.TransitionMatrix(from, to) = file.ReadVariant();
}

}  // namespace
}  // namespace Markov

const ModuleRoutines& MarkovProcesses()
{
    static const ModuleRoutines routines{
        .Ask = Markov::Ask,
        .Fill = Markov::Fill,
        .FirstGrid = "gridDisplayEdit",
        .CommitCell = Markov::CommitCell,
        .Numbers = Markov::Numbers,
        .TakeNumbers = Markov::TakeNumbers,
        .Check = [] { return CheckProbabilityTableau(Markov::Probability); },
        .Solve = Markov::SolveProblem,
        .Page = Markov::WriteReport,
        .Reports = {Markov::WriteReport},
        .Pictures = [] { return Markov::Pictures(Markov::Problem, Markov::Result); },
        .Steps = [] { return Markov::Steps(Markov::Problem, Markov::Result); },
        .Meaning = [] { return Markov::Meaning(Markov::Problem, Markov::Result); },
        .Write = Markov::Write,
        .Read = Markov::Read,
    };
    return routines;
}
