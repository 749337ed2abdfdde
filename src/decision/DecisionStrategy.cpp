#include "decision/DecisionStrategy.h"

#include <cmath>

#include "basic/number.h"
#include "decision/VtDecisionAnalysis.h"

namespace Decision {
namespace {

void MakeTables(int states, int outcomes)
{
    Result.JointProbability = Array2<double>(states, outcomes);
    Result.IndicatorProbability = Array1<double>(outcomes);
    Result.PosteriorProbability = Array2<double>(states, outcomes);
    Result.StrategyDecision = Array1<int>(outcomes);
    Result.StrategyValue = Array1<double>(outcomes);
}

void ReviseProbabilities(int states, int outcomes)
{
    for (int j = 1; j <= states; ++j) {
        for (int k = 1; k <= outcomes; ++k) {
            Result.JointProbability(j, k) = Problem.IndicatorGivenState(j, k) * Problem.StatePrior(j);
            Result.IndicatorProbability(k) += Result.JointProbability(j, k);
        }
    }
    for (int j = 1; j <= states; ++j)
        for (int k = 1; k <= outcomes; ++k)
            if (Result.IndicatorProbability(k) != 0)
                Result.PosteriorProbability(j, k) =
                    Result.JointProbability(j, k) / Result.IndicatorProbability(k);
}

double ExpectedValue(int alternative, int outcome)
{
    double value = 0;
    for (int j = 1; j <= Problem.NatureStateCount; ++j)
        value += Result.SignedPayoff(alternative, j) * Result.PosteriorProbability(j, outcome);
    return value;
}

// Of alternatives that tie, the last one.
void ChooseFor(int outcome)
{
    double best = 0;
    for (int i = 1; i <= Problem.AlternativeCount; ++i) {
        const double value = ExpectedValue(i, outcome);
        if (i == 1 || value > best) best = value;
        if (value == best) Result.StrategyDecision(outcome) = i;
    }
    Result.StrategyValue(outcome) = best;
}

void ValueStrategy(int outcomes)
{
    for (int k = 1; k <= outcomes; ++k)
        Result.ExpectedStrategyValue += Result.IndicatorProbability(k) * Result.StrategyValue(k);
    Result.SampleInformationValue = std::abs(Result.ExpectedStrategyValue - Result.BestValue);
    if (Result.PayoffSign == kCosts) Result.ExpectedStrategyValue = -Result.ExpectedStrategyValue;
    if (Result.PerfectInformationValue != 0)
        Result.SampleEfficiency = Divide(100 * Result.SampleInformationValue, Result.PerfectInformationValue);
}

}  // namespace

void DevelopStrategy()
{
    const int outcomes = Problem.IndicatorCount;
    MakeTables(Problem.NatureStateCount, outcomes);
    ReviseProbabilities(Problem.NatureStateCount, outcomes);
    for (int k = 1; k <= outcomes; ++k)
        ChooseFor(k);
    ValueStrategy(outcomes);
    Result.HasStrategy = true;
}

}  // namespace Decision
