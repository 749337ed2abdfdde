// Repeated multiplication of a probability row by the transition matrix, stopped by a tolerance or a count.
#include <algorithm>
#include <cmath>
#include <utility>

#include "markov/Markov.h"

namespace Markov {
namespace {

class Analysis {
public:
    Analysis(const MarkovProblem& problem, const StepListener& listener);
    MarkovResult Run();

private:
    void Classify();
    double Step(Array1<double>& row) const;
    [[nodiscard]] Array1<double> Settle(Array1<double> row, int start) const;
    [[nodiscard]] Array1<double> SpreadEvenly() const;
    [[nodiscard]] Array1<double> StartIn(int state) const;
    void FillAbsorptionTable();

    int n_;
    Array2<double> matrix_;
    const StepListener& listener_;
    MarkovResult result_;
};

Analysis::Analysis(const MarkovProblem& problem, const StepListener& listener)
    : n_(problem.StateCount), matrix_(n_, n_), listener_(listener)
{
    for (int from = 1; from <= n_; ++from)
        for (int to = 1; to <= n_; ++to)
            matrix_(from, to) = problem.TransitionMatrix(from, to).Value();
}

void Analysis::Classify()
{
    for (int state = 1; state <= n_; ++state) {
        const bool leaves = matrix_(state, state) < 1;
        (leaves ? result_.NonAbsorbingList : result_.AbsorbingList).push_back(state);
    }
}

// One step of the chain; answers how far the probability that moves most has moved.
double Analysis::Step(Array1<double>& row) const
{
    Array1<double> next(n_);
    double largestChange = 0;
    for (int to = 1; to <= n_; ++to) {
        for (int from = 1; from <= n_; ++from)
            next(to) += row(from) * matrix_(from, to);
        largestChange = std::max(largestChange, std::abs(row(to) - next(to)));
    }
    row = std::move(next);
    return largestChange;
}

Array1<double> Analysis::Settle(Array1<double> row, int start) const
{
    for (int number = 1; number <= kStepLimit; ++number) {
        const double change = Step(row);
        if (listener_) listener_({.Start = start, .Number = number, .Row = row, .LargestChange = change});
        if (change <= kTolerance) break;
    }
    return row;
}

Array1<double> Analysis::SpreadEvenly() const
{
    Array1<double> row(n_);
    row.Fill(1.0 / n_);
    return row;
}

Array1<double> Analysis::StartIn(int state) const
{
    Array1<double> row(n_);
    row(state) = 1;
    return row;
}

void Analysis::FillAbsorptionTable()
{
    const int nonAbsorbing = static_cast<int>(result_.NonAbsorbingList.size());
    const int absorbing = static_cast<int>(result_.AbsorbingList.size());
    result_.AbsorptionTable = Array2<double>(nonAbsorbing, absorbing);
    int k = 0;
    for (const int start : result_.NonAbsorbingList) {
        const Array1<double> row = Settle(StartIn(start), start);
        ++k;
        for (int a = 1; a <= absorbing; ++a)
            result_.AbsorptionTable(k, a) = row(result_.AbsorbingList[static_cast<std::size_t>(a) - 1]);
    }
}

MarkovResult Analysis::Run()
{
    Classify();
    if (result_.AbsorbingList.empty())
        result_.Distribution = Settle(SpreadEvenly(), 0);
    else
        FillAbsorptionTable();
    result_.Solved = true;
    return std::move(result_);
}

}  // namespace

MarkovResult Solve(const MarkovProblem& problem, const StepListener& listener)
{
    return Analysis(problem, listener).Run();
}

}  // namespace Markov
