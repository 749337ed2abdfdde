// What stands beside the decision report has in common: figures as the report writes them, and what follows
// from the tables of a result.
#pragma once

#include <string>
#include <vector>

#include "decision/VtDecisionAnalysis.h"

namespace Decision {

std::string PayoffText(const DecisionProblem& problem, double payoff);
std::string ValueText(double value);        // an expected value, a regret: two decimals
std::string ProbabilityText(double value);  // three decimals
// A score as the recommendation shows it.
std::string ScoreText(const DecisionProblem& problem, const DecisionResult& result, double score);

std::string CriterionName(int criterion);  // "optimistic", ...

// On the payoffs' own scale.
double OwnScale(const DecisionResult& result, double signedValue);
double BestScore(const DecisionResult& result);

std::vector<int> RecommendedOf(const DecisionResult& result);

// Of the signed payoffs under the probabilities behind an outcome, added up as the engine does.
double SignedValueAt(const DecisionProblem& problem, const DecisionResult& result, int alternative,
                     int outcome);
std::vector<int> BestAt(const DecisionProblem& problem, const DecisionResult& result, int outcome);
bool CanHappen(const DecisionResult& result, int outcome);

std::string Numbers(const std::vector<int>& numbers);  // "1, 2 and 4"
// "alternative 2", "alternatives 1 and 3".
std::string Called(const std::string& what, const std::vector<int>& numbers);

// Expected values against the chance of the first of two states.
struct Stretch {
    double From = 0;
    double To = 1;
    std::vector<int> Best = {};  // all that are best all along
};
double ValueAtChance(const DecisionProblem& problem, int alternative, double chance);
// Where two lines meet inside of (0, 1); below 0: nowhere.
double CrossingOf(const DecisionProblem& problem, int one, int other);
std::vector<Stretch> Stretches(const DecisionProblem& problem);

}  // namespace Decision
