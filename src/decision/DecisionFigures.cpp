#include "decision/DecisionFigures.h"

#include <algorithm>
#include <array>

#include "basic/format.h"
#include "picture/words.h"

namespace Decision {
namespace {

// The alternatives that nothing beats at this chance; lines that meet there but part elsewhere do not count.
std::vector<int> BestAtChance(const DecisionProblem& problem, double chance)
{
    int best = 1;
    const auto better = [&](int i, int than) {
        const double a = ValueAtChance(problem, i, chance);
        const double b = ValueAtChance(problem, than, chance);
        return Maximizes(problem) ? a > b : a < b;
    };
    for (int i = 2; i <= problem.AlternativeCount; ++i)
        if (better(i, best)) best = i;
    std::vector<int> all;
    for (int i = 1; i <= problem.AlternativeCount; ++i)
        if (problem.Payoff(i, 1) == problem.Payoff(best, 1) &&
            problem.Payoff(i, 2) == problem.Payoff(best, 2))
            all.push_back(i);
    return all;
}

}  // namespace

std::string PayoffText(const DecisionProblem& problem, double payoff)
{
    constexpr DecimalPatterns kPatterns{"#########0", "#######0.0", "######0.00"};
    return Format(payoff, kPatterns.For(problem.PayoffDecimals.Value()));
}

std::string ValueText(double value)
{
    return Format(value, "#,####0.00");
}

std::string ProbabilityText(double value)
{
    return Format(value, "##0.000");
}

std::string ScoreText(const DecisionProblem& problem, const DecisionResult& result, double score)
{
    constexpr DecimalPatterns kPatterns{"#,######0", "#,####0.0", "#,####0.00"};
    if (result.Criterion != kOptimistic && result.Criterion != kConservative) return ValueText(score);
    return Format(score, kPatterns.For(problem.PayoffDecimals.Value()));
}

std::string CriterionName(int criterion)
{
    constexpr std::array<const char*, 4> kNames{"optimistic", "conservative", "minimax regret",
                                                "expected value"};
    return kNames.at(static_cast<std::size_t>(std::clamp(criterion, 1, 4)) - 1);
}

double OwnScale(const DecisionResult& result, double signedValue)
{
    return result.PayoffSign == kCosts ? -signedValue : signedValue;
}

double BestScore(const DecisionResult& result)
{
    return result.Criterion == kMinimaxRegret ? result.BestValue : OwnScale(result, result.BestValue);
}

std::vector<int> RecommendedOf(const DecisionResult& result)
{
    std::vector<int> recommended;
    for (int i = 1; i <= result.Recommended.Upper(); ++i)
        if (result.Recommended(i) == 1) recommended.push_back(i);
    return recommended;
}

double SignedValueAt(const DecisionProblem& problem, const DecisionResult& result, int alternative,
                     int outcome)
{
    double value = 0;
    for (int j = 1; j <= problem.NatureStateCount; ++j)
        value += result.SignedPayoff(alternative, j) * result.PosteriorProbability(j, outcome);
    return value;
}

std::vector<int> BestAt(const DecisionProblem& problem, const DecisionResult& result, int outcome)
{
    std::vector<int> best;
    for (int i = 1; i <= problem.AlternativeCount; ++i)
        if (SignedValueAt(problem, result, i, outcome) == result.StrategyValue(outcome)) best.push_back(i);
    return best;
}

bool CanHappen(const DecisionResult& result, int outcome)
{
    return result.IndicatorProbability(outcome) != 0;
}

std::string Numbers(const std::vector<int>& numbers)
{
    std::vector<std::string> names;
    names.reserve(numbers.size());
    for (const int number : numbers)
        names.push_back(LabelOf(number));
    return picture::Listed(names);
}

std::string Called(const std::string& what, const std::vector<int>& numbers)
{
    return what + (numbers.size() == 1 ? " " : "s ") + Numbers(numbers);
}

double ValueAtChance(const DecisionProblem& problem, int alternative, double chance)
{
    return problem.Payoff(alternative, 1) * chance + problem.Payoff(alternative, 2) * (1 - chance);
}

double CrossingOf(const DecisionProblem& problem, int one, int other)
{
    const double first = problem.Payoff(one, 1) - problem.Payoff(other, 1);
    const double second = problem.Payoff(other, 2) - problem.Payoff(one, 2);
    if (first + second == 0) return -1;
    const double chance = second / (first + second);
    return chance > 0 && chance < 1 ? chance : -1;
}

std::vector<Stretch> Stretches(const DecisionProblem& problem)
{
    std::vector<double> ends{0, 1};
    for (int i = 1; i <= problem.AlternativeCount; ++i)
        for (int other = i + 1; other <= problem.AlternativeCount; ++other)
            if (const double chance = CrossingOf(problem, i, other); chance > 0) ends.push_back(chance);
    std::sort(ends.begin(), ends.end());
    std::vector<Stretch> stretches;
    for (std::size_t i = 0; i + 1 < ends.size(); ++i) {
        constexpr double kNoWidth = 1e-12;  // between crossings that are one but for rounding
        if (ends[i + 1] - ends[i] < kNoWidth) continue;
        const std::vector<int> best = BestAtChance(problem, (ends[i] + ends[i + 1]) / 2);
        if (!stretches.empty() && stretches.back().Best == best)
            stretches.back().To = ends[i + 1];
        else
            stretches.push_back({.From = ends[i], .To = ends[i + 1], .Best = best});
    }
    return stretches;
}

}  // namespace Decision
