#include "decision/DecisionStrategy.h"

#include <cmath>

#include "basic/number.h"

namespace Decision {
namespace {

void MakeTables(DecisionResult& result, int states, int outcomes)
{
    result.JointProbability = Array2<double>(states, outcomes);
    result.IndicatorProbability = Array1<double>(outcomes);
    result.PosteriorProbability = Array2<double>(states, outcomes);
    result.StrategyDecision = Array1<int>(outcomes);
    result.StrategyValue = Array1<double>(outcomes);
}

void ReviseProbabilities(const DecisionProblem& problem, DecisionResult& result, int states, int outcomes)
{
    for (int j = 1; j <= states; ++j) {
        for (int k = 1; k <= outcomes; ++k) {
            result.JointProbability(j, k) = problem.IndicatorGivenState(j, k) * problem.StatePrior(j);
            result.IndicatorProbability(k) += result.JointProbability(j, k);
        }
    }
    for (int j = 1; j <= states; ++j)
        for (int k = 1; k <= outcomes; ++k)
            if (result.IndicatorProbability(k) != 0)
                result.PosteriorProbability(j, k) =
                    result.JointProbability(j, k) / result.IndicatorProbability(k);
}

double ExpectedValue(const DecisionProblem& problem, const DecisionResult& result, int alternative,
                     int outcome)
{
    double value = 0;
    for (int j = 1; j <= problem.NatureStateCount; ++j)
        value += result.SignedPayoff(alternative, j) * result.PosteriorProbability(j, outcome);
    return value;
}

// Of alternatives that tie, the last one.
void ChooseFor(const DecisionProblem& problem, DecisionResult& result, int outcome)
{
    double best = 0;
    for (int i = 1; i <= problem.AlternativeCount; ++i) {
        const double value = ExpectedValue(problem, result, i, outcome);
        if (i == 1 || value > best) best = value;
        if (value == best) result.StrategyDecision(outcome) = i;
    }
    result.StrategyValue(outcome) = best;
}

void ValueStrategy(DecisionResult& result, int outcomes)
{
    for (int k = 1; k <= outcomes; ++k)
        result.ExpectedStrategyValue += result.IndicatorProbability(k) * result.StrategyValue(k);
    result.SampleInformationValue = std::abs(result.ExpectedStrategyValue - result.BestValue);
    if (result.PayoffSign == kCosts) result.ExpectedStrategyValue = -result.ExpectedStrategyValue;
    if (result.PerfectInformationValue != 0)
        result.SampleEfficiency = Divide(100 * result.SampleInformationValue, result.PerfectInformationValue);
}

}  // namespace

void DevelopStrategy(const DecisionProblem& problem, DecisionResult& result)
{
    const int outcomes = problem.IndicatorCount;
    MakeTables(result, problem.NatureStateCount, outcomes);
    ReviseProbabilities(problem, result, problem.NatureStateCount, outcomes);
    for (int k = 1; k <= outcomes; ++k)
        ChooseFor(problem, result, k);
    ValueStrategy(result, outcomes);
    result.HasStrategy = true;
}

}  // namespace Decision
