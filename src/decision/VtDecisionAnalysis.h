// Decision analysis: a payoff table, the criteria that pick an alternative from it, what information is worth
// and which alternative follows each outcome of a sample.
//
// Payoffs are in the user's own unit, gains or costs alike; all probabilities lie between 0 and 1. Tables are
// indexed from 1: alternatives i, states of nature j, indicator (sample) outcomes k.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/array.h"
#include "basic/variant.h"
#include "desktop/dialogs.h"
#include "shell/modaldialog.h"

namespace Decision {

constexpr int kMost = 10;  // alternatives, states, outcomes

// The sense of the payoffs: a code, not a factor.
constexpr int kGains = 1;
constexpr int kCosts = 2;

enum Criteria { kOptimistic = 1, kConservative, kMinimaxRegret, kExpectedValue };

struct DecisionProblem {
    std::int16_t AlternativeCount = 0;
    std::int16_t NatureStateCount = 0;
    std::int16_t IndicatorCount = 0;                                    // 0 without a strategy
    Array2<double> Payoff = Array2<double>(kMost, kMost);               // (i, j)
    Array1<double> StatePrior = Array1<double>(kMost);                  // (j)
    Array2<double> IndicatorGivenState = Array2<double>(kMost, kMost);  // (j, k)
    std::string HasStateProbabilities = "NO";
    std::string ComputeStrategy = "NO";
    std::string Maximize = "YES";  // "NO": the payoffs are costs
    int Criterion = kOptimistic;
    Variant PayoffDecimals = 0.0;  // 0, 1 or 2: the most that a payoff entered so far needs
};

struct DecisionResult {
    bool Solved = false;
    int Criterion = kOptimistic;  // of the scores; with state probabilities always the expected value
    bool HasStrategy = false;     // the fields from JointProbability on are filled

    int PayoffSign = kGains;
    Array2<double> SignedPayoff;      // (i, j): the payoff, negated for costs, so that more is always better
    Array1<double> AlternativeValue;  // (i): the score, on the payoffs' own scale
    Array1<int> Recommended;          // (i): 1 for every alternative with the best score, else 0
    double BestValue = 0;             // on the signed scale
    Array1<double> ColumnBest;        // (j): the best signed payoff of a state
    Array2<double> Regret;            // (i, j)
    double ExpectedBestPayoff = 0;    // with the state known beforehand; on the signed scale
    double PerfectInformationValue = 0;  // not negative

    Array2<double> JointProbability;      // (j, k)
    Array1<double> IndicatorProbability;  // (k)
    Array2<double> PosteriorProbability;  // (j, k): of the state, once the outcome is known
    Array1<int> StrategyDecision;         // (k): alternative
    Array1<double> StrategyValue;         // (k): on the signed scale
    double ExpectedStrategyValue = 0;     // on the payoffs' own scale
    double SampleInformationValue = 0;    // not negative
    double SampleEfficiency = 0;          // percent of the value of perfect information, when that is not 0
};

extern DecisionProblem Problem;
extern DecisionResult Result;

// ---- the problem ----

bool HasStateProbabilities(const DecisionProblem& problem = Problem);
bool ComputesStrategy(const DecisionProblem& problem = Problem);
bool Maximizes(const DecisionProblem& problem = Problem);

// How an alternative, a state or an outcome is called: its number.
std::string LabelOf(int index);

// ---- entry: `frmDecisionFeatures` ----

// What leaving a box checks; an empty box passes. False: refused, and told.
bool TakeAlternativeCount(std::string_view text);
bool TakeStateCount(std::string_view text);
bool TakeIndicatorCount(std::string_view text);  // warns of a single outcome

struct Features {
    std::string Alternatives = {};
    std::string States = {};
    std::string Indicators = {};
    bool StateProbabilities = false;
    bool Strategy = false;
};
enum class FeatureBox { None, Alternatives, States, Indicators };

struct FeatureCounts {
    std::int16_t AlternativeCount = 0;
    std::int16_t NatureStateCount = 0;
    std::int16_t IndicatorCount = 0;
    bool StateProbabilities = false;
    bool Strategy = false;
};

extern ModalDialog<NoQuestion, FeatureCounts> TheFeatures;
// OK: the box that is refused, and told; none: the counts are given.
FeatureBox TakeFeatures(const Features& features, const BoxPointer& point = {});

// ---- entry: `frmDecisionProblem` and `frmdecnopt` ----

bool Ask();   // asks for the features, of a new problem then; false: cancelled, nothing has changed
void Fill();  // puts the tables on `frmDecisionProblem`

// The grids, as passes of the problem check.
enum Pass { kPayoffs, kStateProbabilities, kIndicatorProbabilities };

bool Runs(int pass);
int CommitCell(int pass, int row, int column, std::string_view text);
double Probability(int pass, int row, int column);  // of the two grids that hold some
int Count(int pass);                                // of the probabilities in one row

// What the grids hold, in a row, and back (shell/module.h).
std::vector<double> Numbers();
void TakeNumbers(const std::vector<double>& numbers);

// What `frmdecnopt` shows, and what it is left with.
struct SenseAndCriterion {
    bool Maximize = true;
    int Criterion = kOptimistic;
};

extern ModalDialog<SenseAndCriterion, SenseAndCriterion> TheSenseAndCriterion;
// Asks for the sense and, without state probabilities, for the criterion. False: cancelled.
bool AskSenseAndCriterion();

// ---- solving ----

// The engine on the problem; leaves the result, and the criterion that it has used in the problem. A run-time
// error of the engine leaves a result that is not solved.
void SolveProblem();

}  // namespace Decision
