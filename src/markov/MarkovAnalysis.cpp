// Repeated multiplication of a probability row by the transition matrix, stopped by a tolerance or a count.
#include <algorithm>
#include <cmath>
#include <utility>

#include "markov/Markov.h"

namespace Markov {
namespace {

constexpr double kTolerance = 0.00001;
constexpr int kStepLimit = 150;

void Classify()
{
    for (int state = 1; state <= Problem.StateCount; ++state) {
        const bool leaves = Probability(state, state) < 1;
        (leaves ? Result.NonAbsorbingList : Result.AbsorbingList).push_back(state);
    }
}

Array2<double> Matrix()
{
    const int n = Problem.StateCount;
    Array2<double> matrix(n, n);
    for (int from = 1; from <= n; ++from)
        for (int to = 1; to <= n; ++to)
            matrix(from, to) = Probability(from, to);
    return matrix;
}

// One step of the chain; true while some probability still moves.
bool Step(const Array2<double>& matrix, Array1<double>& row)
{
    const int n = row.Upper();
    Array1<double> next(n);
    bool moves = false;
    for (int to = 1; to <= n; ++to) {
        for (int from = 1; from <= n; ++from)
            next(to) += row(from) * matrix(from, to);
        moves = moves || std::abs(row(to) - next(to)) > kTolerance;
    }
    row = std::move(next);
    return moves;
}

Array1<double> Settle(const Array2<double>& matrix, Array1<double> row)
{
    for (int step = 1; step <= kStepLimit; ++step)
        if (!Step(matrix, row)) break;
    return row;
}

Array1<double> SpreadEvenly()
{
    Array1<double> row(Problem.StateCount);
    row.Fill(1.0 / Problem.StateCount);
    return row;
}

Array1<double> StartIn(int state)
{
    Array1<double> row(Problem.StateCount);
    row(state) = 1;
    return row;
}

void FillAbsorptionTable(const Array2<double>& matrix)
{
    const int nonAbsorbing = static_cast<int>(Result.NonAbsorbingList.size());
    const int absorbing = static_cast<int>(Result.AbsorbingList.size());
    Result.AbsorptionTable = Array2<double>(nonAbsorbing, absorbing);
    for (int k = 1; k <= nonAbsorbing; ++k) {
        const Array1<double> row =
            Settle(matrix, StartIn(Result.NonAbsorbingList[static_cast<std::size_t>(k) - 1]));
        for (int a = 1; a <= absorbing; ++a)
            Result.AbsorptionTable(k, a) = row(Result.AbsorbingList[static_cast<std::size_t>(a) - 1]);
    }
}

}  // namespace

void Analyse()
{
    Result = {};
    Classify();
    const Array2<double> matrix = Matrix();
    if (Result.AbsorbingList.empty())
        Result.Distribution = Settle(matrix, SpreadEvenly());
    else
        FillAbsorptionTable(matrix);
}

}  // namespace Markov
