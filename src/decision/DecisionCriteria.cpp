// The scores of the alternatives under a criterion, and what knowing the state beforehand would be worth.
#include <algorithm>

#include "decision/DecisionStrategy.h"
#include "decision/VtDecisionAnalysis.h"

namespace Decision {
namespace {

void MakeTables(int m, int n)
{
    Result = {};
    Result.SignedPayoff = Array2<double>(m, n);
    Result.AlternativeValue = Array1<double>(m);
    Result.Recommended = Array1<int>(m);
    Result.ColumnBest = Array1<double>(n);
    Result.Regret = Array2<double>(m, n);
}

void FillSignedPayoff(int m, int n)
{
    Result.PayoffSign = Maximizes() ? kGains : kCosts;
    for (int i = 1; i <= m; ++i)
        for (int j = 1; j <= n; ++j)
            Result.SignedPayoff(i, j) =
                Result.PayoffSign == kCosts ? -Problem.Payoff(i, j) : Problem.Payoff(i, j);
}

// The first of the row's elements, or the one that the others do not beat.
template <typename Beats>
double Extreme(const Array2<double>& table, int i, int n, Beats beats)
{
    double extreme = table(i, 1);
    for (int j = 2; j <= n; ++j)
        if (beats(table(i, j), extreme)) extreme = table(i, j);
    return extreme;
}

double Greatest(const Array2<double>& table, int i, int n)
{
    return Extreme(table, i, n, [](double a, double b) { return a > b; });
}

double Least(const Array2<double>& table, int i, int n)
{
    return Extreme(table, i, n, [](double a, double b) { return a < b; });
}

void FillColumnBest(int m, int n)
{
    for (int j = 1; j <= n; ++j) {
        Result.ColumnBest(j) = Result.SignedPayoff(1, j);
        for (int i = 2; i <= m; ++i)
            Result.ColumnBest(j) = std::max(Result.ColumnBest(j), Result.SignedPayoff(i, j));
    }
}

void FillRegret(int m, int n)
{
    FillColumnBest(m, n);
    for (int i = 1; i <= m; ++i)
        for (int j = 1; j <= n; ++j)
            Result.Regret(i, j) = Result.ColumnBest(j) - Result.SignedPayoff(i, j);
}

void ScoreExpectedValue(int m, int n)
{
    for (int i = 1; i <= m; ++i)
        for (int j = 1; j <= n; ++j)
            Result.AlternativeValue(i) += Result.SignedPayoff(i, j) * Problem.StatePrior(j);
    FillColumnBest(m, n);
    for (int j = 1; j <= n; ++j)
        Result.ExpectedBestPayoff += Result.ColumnBest(j) * Problem.StatePrior(j);
}

void Score(int m, int n)
{
    if (Problem.Criterion == kExpectedValue) {
        ScoreExpectedValue(m, n);
        return;
    }
    const bool byRegret = Problem.Criterion == kMinimaxRegret;
    if (byRegret) FillRegret(m, n);
    for (int i = 1; i <= m; ++i) {
        double& score = Result.AlternativeValue(i);
        if (Problem.Criterion == kOptimistic) score = Greatest(Result.SignedPayoff, i, n);
        if (Problem.Criterion == kConservative) score = Least(Result.SignedPayoff, i, n);
        if (byRegret) score = Greatest(Result.Regret, i, n);
    }
}

// The least regret, the greatest of any other score; all alternatives that have it, exactly.
void Recommend(int m)
{
    const bool least = Problem.Criterion == kMinimaxRegret;
    for (int i = 1; i <= m; ++i) {
        const double score = Result.AlternativeValue(i);
        const bool better = least ? score < Result.BestValue : score > Result.BestValue;
        if (i == 1 || better) Result.BestValue = score;
    }
    for (int i = 1; i <= m; ++i)
        Result.Recommended(i) = Result.AlternativeValue(i) == Result.BestValue ? 1 : 0;
}

// Costs go back to their own scale; regrets are losses in either sense.
void UnsignScores(int m)
{
    if (Result.PayoffSign != kCosts || Problem.Criterion == kMinimaxRegret) return;
    for (int i = 1; i <= m; ++i)
        Result.AlternativeValue(i) = -Result.AlternativeValue(i);
}

}  // namespace

void Analyse()
{
    const int m = Problem.AlternativeCount;
    const int n = Problem.NatureStateCount;
    if (HasStateProbabilities()) Problem.Criterion = kExpectedValue;
    MakeTables(m, n);
    FillSignedPayoff(m, n);
    Score(m, n);
    Recommend(m);
    UnsignScores(m);
    if (Problem.Criterion == kExpectedValue) {
        Result.PerfectInformationValue = Result.ExpectedBestPayoff - Result.BestValue;
        if (ComputesStrategy()) DevelopStrategy();
    }
    Result.Solved = true;
}

}  // namespace Decision
