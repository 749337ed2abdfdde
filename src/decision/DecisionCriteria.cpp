// The scores of the alternatives under a criterion, and what knowing the state beforehand would be worth.
#include "decision/DecisionCriteria.h"

#include <algorithm>

#include "decision/DecisionStrategy.h"

namespace Decision {
namespace {

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

class Analysis {
public:
    explicit Analysis(const DecisionProblem& problem)
        : problem_(problem), m_(problem.AlternativeCount), n_(problem.NatureStateCount)
    {
    }

    DecisionResult Result();

private:
    void MakeTables();
    void FillSignedPayoff();
    void FillColumnBest();
    void FillRegret();
    void ScoreExpectedValue();
    void Score();
    void Recommend();
    void UnsignScores();

    const DecisionProblem& problem_;
    int m_;
    int n_;
    DecisionResult result_;
};

void Analysis::MakeTables()
{
    result_.SignedPayoff = Array2<double>(m_, n_);
    result_.AlternativeValue = Array1<double>(m_);
    result_.Recommended = Array1<int>(m_);
    result_.ColumnBest = Array1<double>(n_);
    result_.Regret = Array2<double>(m_, n_);
}

void Analysis::FillSignedPayoff()
{
    result_.PayoffSign = Maximizes(problem_) ? kGains : kCosts;
    for (int i = 1; i <= m_; ++i)
        for (int j = 1; j <= n_; ++j)
            result_.SignedPayoff(i, j) =
                result_.PayoffSign == kCosts ? -problem_.Payoff(i, j) : problem_.Payoff(i, j);
}

void Analysis::FillColumnBest()
{
    for (int j = 1; j <= n_; ++j) {
        result_.ColumnBest(j) = result_.SignedPayoff(1, j);
        for (int i = 2; i <= m_; ++i)
            result_.ColumnBest(j) = std::max(result_.ColumnBest(j), result_.SignedPayoff(i, j));
    }
}

void Analysis::FillRegret()
{
    FillColumnBest();
    for (int i = 1; i <= m_; ++i)
        for (int j = 1; j <= n_; ++j)
            result_.Regret(i, j) = result_.ColumnBest(j) - result_.SignedPayoff(i, j);
}

void Analysis::ScoreExpectedValue()
{
    for (int i = 1; i <= m_; ++i)
        for (int j = 1; j <= n_; ++j)
            result_.AlternativeValue(i) += result_.SignedPayoff(i, j) * problem_.StatePrior(j);
    FillColumnBest();
    for (int j = 1; j <= n_; ++j)
        result_.ExpectedBestPayoff += result_.ColumnBest(j) * problem_.StatePrior(j);
}

void Analysis::Score()
{
    if (result_.Criterion == kExpectedValue) {
        ScoreExpectedValue();
        return;
    }
    const bool byRegret = result_.Criterion == kMinimaxRegret;
    if (byRegret) FillRegret();
    for (int i = 1; i <= m_; ++i) {
        double& score = result_.AlternativeValue(i);
        if (result_.Criterion == kOptimistic) score = Greatest(result_.SignedPayoff, i, n_);
        if (result_.Criterion == kConservative) score = Least(result_.SignedPayoff, i, n_);
        if (byRegret) score = Greatest(result_.Regret, i, n_);
    }
}

// The least regret, the greatest of any other score; all alternatives that have it, exactly.
void Analysis::Recommend()
{
    const bool least = result_.Criterion == kMinimaxRegret;
    for (int i = 1; i <= m_; ++i) {
        const double score = result_.AlternativeValue(i);
        const bool better = least ? score < result_.BestValue : score > result_.BestValue;
        if (i == 1 || better) result_.BestValue = score;
    }
    for (int i = 1; i <= m_; ++i)
        result_.Recommended(i) = result_.AlternativeValue(i) == result_.BestValue ? 1 : 0;
}

// Costs go back to their own scale; regrets are losses in either sense.
void Analysis::UnsignScores()
{
    if (result_.PayoffSign != kCosts || result_.Criterion == kMinimaxRegret) return;
    for (int i = 1; i <= m_; ++i)
        result_.AlternativeValue(i) = -result_.AlternativeValue(i);
}

DecisionResult Analysis::Result()
{
    result_.Criterion = HasStateProbabilities(problem_) ? kExpectedValue : problem_.Criterion;
    MakeTables();
    FillSignedPayoff();
    Score();
    Recommend();
    UnsignScores();
    if (result_.Criterion == kExpectedValue) {
        result_.PerfectInformationValue = result_.ExpectedBestPayoff - result_.BestValue;
        if (ComputesStrategy(problem_)) DevelopStrategy(problem_, result_);
    }
    result_.Solved = true;
    return result_;
}

}  // namespace

DecisionResult Analyse(const DecisionProblem& problem)
{
    return Analysis(problem).Result();
}

}  // namespace Decision
