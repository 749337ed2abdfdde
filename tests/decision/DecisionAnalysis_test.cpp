// The criteria and the value of information, against answers worked by hand and against all decision rules
// tried one by one.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

#include "decision/decision_support.h"

using Decision::Problem;
using Decision::Result;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

namespace {

constexpr double kNear = 1e-9;

void ExpectAnswer(const std::vector<double>& values, const std::vector<int>& recommended)
{
    EXPECT_THAT(ListOf(Result.AlternativeValue), Pointwise(testing::DoubleEq(), values));
    EXPECT_EQ(ListOf(Result.Recommended), recommended);
}

// A stall at a fair: ice cream, drinks or soup, on a cold, a mild or a hot day.
const Table kStall = {{-40, 60, 200}, {10, 80, 120}, {90, 50, 5}};

}  // namespace

TEST(DecisionCriteria, OptimismLooksAtTheBestState)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    Decision::SolveProblem();
    ExpectAnswer({200, 120, 90}, {1, 0, 0});
}

TEST(DecisionCriteria, OptimismAboutCostsLooksAtTheLeastCost)
{
    GivenPayoffs(kStall, false, Decision::kOptimistic);
    Decision::SolveProblem();
    ExpectAnswer({-40, 10, 5}, {1, 0, 0});
}

TEST(DecisionCriteria, CautionLooksAtTheWorstState)
{
    GivenPayoffs(kStall, true, Decision::kConservative);
    Decision::SolveProblem();
    ExpectAnswer({-40, 10, 5}, {0, 1, 0});
}

TEST(DecisionCriteria, CautionAboutCostsLooksAtTheGreatestCost)
{
    GivenPayoffs(kStall, false, Decision::kConservative);
    Decision::SolveProblem();
    ExpectAnswer({200, 120, 90}, {0, 0, 1});
}

// Best of the states: 90, 80, 200. Regrets 130 20 0, 80 0 80, 0 30 195.
TEST(DecisionCriteria, MinimaxRegretTakesTheSmallestOfTheGreatestLosses)
{
    GivenPayoffs(kStall, true, Decision::kMinimaxRegret);
    Decision::SolveProblem();
    ExpectAnswer({130, 80, 195}, {0, 1, 0});
    EXPECT_EQ(Result.Regret(1, 2), 20);
    EXPECT_EQ(Result.BestValue, 80);
}

// Least of the states: -40, 50, 5. Regrets 0 10 195, 50 30 115, 130 0 0.
TEST(DecisionCriteria, RegretsOfCostsArePositiveLosses)
{
    GivenPayoffs(kStall, false, Decision::kMinimaxRegret);
    Decision::SolveProblem();
    ExpectAnswer({195, 115, 130}, {0, 1, 0});
}

TEST(DecisionCriteria, CostsOfOneStateAreReportedAsTheyWereEntered)
{
    GivenPayoffs({{10}, {20}}, false, Decision::kOptimistic);
    Decision::SolveProblem();
    ExpectAnswer({10, 20}, {1, 0});
    EXPECT_EQ(Result.BestValue, -10);

    GivenPayoffs({{10}, {20}}, false, Decision::kMinimaxRegret);
    Decision::SolveProblem();
    ExpectAnswer({0, 10}, {1, 0});
}

TEST(DecisionCriteria, AllAlternativesWithTheBestScoreAreRecommended)
{
    GivenPayoffs({{5, 1}, {3, 5}, {4, 4}}, true, Decision::kOptimistic);
    Decision::SolveProblem();
    ExpectAnswer({5, 5, 4}, {1, 1, 0});
}

TEST(DecisionCriteria, AScoreThatMissesTheBestByAHairIsNotRecommended)
{
    GivenPayoffs({{0.3}, {0.1 + 0.2}}, true, Decision::kOptimistic);
    Decision::SolveProblem();
    EXPECT_THAT(ListOf(Result.Recommended), ElementsAre(0, 1));
}

TEST(DecisionCriteria, OneStateMakesOptimismAndCautionAlike)
{
    for (const int criterion : {Decision::kOptimistic, Decision::kConservative}) {
        GivenPayoffs({{3}, {-2}}, true, criterion);
        Decision::SolveProblem();
        ExpectAnswer({3, -2}, {1, 0});
    }
}

TEST(DecisionCriteria, AllPayoffsBelowZeroStillHaveABest)
{
    GivenPayoffs({{-9, -5}, {-7, -6}}, true, Decision::kConservative);
    Decision::SolveProblem();
    ExpectAnswer({-9, -7}, {0, 1});
}

TEST(DecisionCriteria, ASecondSolveForgetsTheFirst)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    Decision::SolveProblem();
    Problem.Criterion = Decision::kConservative;
    Decision::SolveProblem();
    EXPECT_THAT(ListOf(Result.Recommended), ElementsAre(0, 1, 0));
    EXPECT_EQ(Result.PerfectInformationValue, 0);
}

// 0.2, 0.5 and 0.3: 82, 78, 44.5. Knowing the day beforehand: 18 + 40 + 60 = 118, 36 more than 82.
TEST(ExpectedValue, WeighsTheStatesByTheirProbabilities)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    GivenStateProbabilities({0.2, 0.5, 0.3});
    Decision::SolveProblem();
    EXPECT_EQ(Problem.Criterion, Decision::kExpectedValue);
    EXPECT_THAT(ListOf(Result.AlternativeValue), Pointwise(DoubleNear(kNear), {82.0, 78.0, 44.5}));
    EXPECT_THAT(ListOf(Result.Recommended), ElementsAre(1, 0, 0));
    EXPECT_NEAR(Result.ExpectedBestPayoff, 118, kNear);
    EXPECT_NEAR(Result.PerfectInformationValue, 36, kNear);
    EXPECT_FALSE(Result.HasStrategy);
}

// As costs: the soup at 44.5 is the least; knowing the day, -8 + 25 + 1.5 = 18.5, 26 less.
TEST(ExpectedValue, OfCostsIsSmallestAtTheRecommendation)
{
    GivenPayoffs(kStall, false, Decision::kOptimistic);
    GivenStateProbabilities({0.2, 0.5, 0.3});
    Decision::SolveProblem();
    EXPECT_THAT(ListOf(Result.AlternativeValue), Pointwise(DoubleNear(kNear), {82.0, 78.0, 44.5}));
    EXPECT_THAT(ListOf(Result.Recommended), ElementsAre(0, 0, 1));
    EXPECT_NEAR(Result.PerfectInformationValue, 26, kNear);
}

TEST(ExpectedValue, OfPerfectInformationIsZeroWhenOneAlternativeIsAlwaysBest)
{
    GivenPayoffs({{5, 9}, {4, 8}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    GivenSample({{0.75, 0.25}, {0.25, 0.75}});
    Decision::SolveProblem();
    EXPECT_EQ(Result.PerfectInformationValue, 0);
    EXPECT_EQ(Result.SampleEfficiency, 0);
}

// An oil lease by hand: drill (70, -30) or sell (20, 20), oil with 0.4. A test says "yes" with 0.9 when there
// is oil and with 0.2 when there is none: "yes" comes with 0.36 + 0.12 = 0.48, then oil has 0.75.
// Drilling after "yes" brings 45, selling after "no" 20: 0.48 * 45 + 0.52 * 20 = 32; without the test 20.
// With the state known: 0.4 * 70 + 0.6 * 20 = 40, so the test brings 12 of 20, or 60 %.
TEST(Strategy, FollowsASampleWhereItChangesTheDecision)
{
    GivenPayoffs({{70, -30}, {20, 20}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.4, 0.6});
    GivenSample({{0.9, 0.1}, {0.2, 0.8}});
    Decision::SolveProblem();
    EXPECT_TRUE(Result.HasStrategy);
    EXPECT_NEAR(Result.IndicatorProbability(1), 0.48, kNear);
    EXPECT_NEAR(Result.PosteriorProbability(1, 1), 0.75, kNear);
    EXPECT_THAT(ListOf(Result.StrategyDecision), ElementsAre(1, 2));
    EXPECT_THAT(ListOf(Result.StrategyValue), Pointwise(DoubleNear(kNear), {45.0, 20.0}));
    EXPECT_NEAR(Result.ExpectedStrategyValue, 32, kNear);
    EXPECT_NEAR(Result.SampleInformationValue, 12, kNear);
    EXPECT_NEAR(Result.SampleEfficiency, 60, 1e-6);
}

TEST(Strategy, OfCostsIsValuedOnTheirOwnScale)
{
    GivenPayoffs({{-70, 30}, {-20, -20}}, false, Decision::kOptimistic);
    GivenStateProbabilities({0.4, 0.6});
    GivenSample({{0.9, 0.1}, {0.2, 0.8}});
    Decision::SolveProblem();
    EXPECT_THAT(ListOf(Result.StrategyDecision), ElementsAre(1, 2));
    EXPECT_NEAR(Result.StrategyValue(1), 45, kNear);  // the signed scale
    EXPECT_NEAR(Result.ExpectedStrategyValue, -32, kNear);
    EXPECT_NEAR(Result.SampleInformationValue, 12, kNear);
}

TEST(Strategy, OfLossesHasAPositiveValueOfTheSample)
{
    GivenPayoffs({{-10, -90}, {-50, -60}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    GivenSample({{1, 0}, {0, 1}});
    Decision::SolveProblem();
    EXPECT_NEAR(Result.ExpectedStrategyValue, -35, kNear);
    EXPECT_NEAR(Result.SampleInformationValue, 15, kNear);
}

TEST(Strategy, ASampleThatSaysNothingIsWorthNothing)
{
    GivenPayoffs({{8, 2}, {3, 6}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    GivenSample({{0.25, 0.75}, {0.25, 0.75}});
    Decision::SolveProblem();
    EXPECT_EQ(Result.SampleInformationValue, 0);
    EXPECT_EQ(Result.SampleEfficiency, 0);
    EXPECT_EQ(Result.PosteriorProbability(1, 2), 0.5);
}

TEST(Strategy, APerfectSampleIsWorthPerfectInformation)
{
    GivenPayoffs({{8, 2}, {3, 6}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    GivenSample({{1, 0}, {0, 1}});
    Decision::SolveProblem();
    EXPECT_EQ(Result.SampleInformationValue, 2);
    EXPECT_EQ(Result.PerfectInformationValue, 2);
    EXPECT_EQ(Result.SampleEfficiency, 100);
}

TEST(Strategy, TakesTheLastOfTheAlternativesThatTie)
{
    GivenPayoffs({{5, 1}, {5, 1}, {1, 3}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    GivenSample({{1, 0}, {0, 1}});
    Decision::SolveProblem();
    EXPECT_THAT(ListOf(Result.StrategyDecision), ElementsAre(2, 3));
    EXPECT_THAT(ListOf(Result.Recommended), ElementsAre(1, 1, 0));
}

TEST(Strategy, AnOutcomeThatCannotComeHasTheValueZeroAndTheLastAlternative)
{
    GivenPayoffs({{8, 2}, {3, 6}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    GivenSample({{1, 0}, {1, 0}});
    Decision::SolveProblem();
    EXPECT_EQ(Result.IndicatorProbability(2), 0);
    EXPECT_EQ(Result.PosteriorProbability(1, 2), 0);
    EXPECT_EQ(Result.StrategyDecision(2), 2);
    EXPECT_EQ(Result.StrategyValue(2), 0);
    EXPECT_NEAR(Result.ExpectedStrategyValue, 5, kNear);
}

namespace {

// ---- problems at random, and every decision rule there is ----

int Draw(std::mt19937& random, int least, int most)
{
    return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
}

std::vector<double> RandomDistribution(std::mt19937& random, int count)
{
    std::vector<double> weights;
    double sum = 0;
    for (int i = 0; i < count; ++i) {
        weights.push_back(Draw(random, 0, 9) + (i == 0 ? 1 : 0));
        sum += weights.back();
    }
    for (double& weight : weights)
        weight /= sum;
    return weights;
}

Table RandomTable(std::mt19937& random, int rows, int columns)
{
    Table table(static_cast<std::size_t>(rows));
    for (auto& row : table)
        for (int j = 0; j < columns; ++j)
            row.push_back(Draw(random, -100, 100));
    return table;
}

// What the best rule "take alternative rule[signal] when the signal comes" brings, over all of them; `joint`
// is the probability of state and signal together.
double BestOfAllRules(const Table& payoffs, const Table& joint)
{
    const std::size_t signals = joint[0].size();
    std::vector<std::size_t> rule(signals, 0);
    double best = -1e300;
    for (;;) {
        double value = 0;
        for (std::size_t k = 0; k < signals; ++k)
            for (std::size_t j = 0; j < joint.size(); ++j)
                value += joint[j][k] * payoffs[rule[k]][j];
        best = std::max(best, value);
        std::size_t k = 0;
        while (k < signals && ++rule[k] == payoffs.size())
            rule[k++] = 0;
        if (k == signals) return best;
    }
}

Table Negated(Table table)
{
    for (auto& row : table)
        for (double& value : row)
            value = -value;
    return table;
}

}  // namespace

TEST(DecisionAnalysis, ValuesInformationLikeTheBestOfAllDecisionRules)
{
    std::mt19937 random(31);
    for (int round = 0; round < 300; ++round) {
        const int m = Draw(random, 1, 4);
        const int n = Draw(random, 1, 4);
        const int outcomes = Draw(random, 1, 4);
        const Table payoffs = RandomTable(random, m, n);
        const std::vector<double> prior = RandomDistribution(random, n);
        Table likelihood;
        Table joint;
        Table perfect;
        Table none;
        for (int j = 0; j < n; ++j) {
            const auto state = static_cast<std::size_t>(j);
            likelihood.push_back(RandomDistribution(random, outcomes));
            joint.push_back(likelihood.back());
            for (double& probability : joint.back())
                probability *= prior[state];
            perfect.emplace_back(n);
            perfect.back()[state] = prior[state];
            none.push_back({prior[state]});
        }
        const bool maximize = round % 2 == 0;
        GivenPayoffs(payoffs, maximize, Decision::kOptimistic);
        GivenStateProbabilities(prior);
        GivenSample(likelihood);
        Decision::SolveProblem();

        const Table gains = maximize ? payoffs : Negated(payoffs);
        const double blind = BestOfAllRules(gains, none);
        const double informed = BestOfAllRules(gains, joint);
        const double clairvoyant = BestOfAllRules(gains, perfect);
        EXPECT_NEAR(Result.BestValue, blind, kNear) << "round " << round;
        EXPECT_NEAR(Result.PerfectInformationValue, clairvoyant - blind, kNear) << "round " << round;
        EXPECT_NEAR(Result.ExpectedStrategyValue, maximize ? informed : -informed, kNear)
            << "round " << round;
        EXPECT_NEAR(Result.SampleInformationValue, informed - blind, kNear) << "round " << round;
    }
}

TEST(DecisionAnalysis, TurningTheSignOfEveryPayoffTurnsGainsIntoCosts)
{
    std::mt19937 random(37);
    for (int round = 0; round < 200; ++round) {
        const Table payoffs = RandomTable(random, Draw(random, 1, 10), Draw(random, 1, 10));
        const int criterion = Draw(random, 1, 3);
        GivenPayoffs(payoffs, true, criterion);
        Decision::SolveProblem();
        const auto recommended = ListOf(Result.Recommended);
        const auto values = ListOf(Result.AlternativeValue);
        GivenPayoffs(Negated(payoffs), false, criterion);
        Decision::SolveProblem();
        EXPECT_EQ(ListOf(Result.Recommended), recommended) << "round " << round;
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_EQ(std::abs(Result.AlternativeValue(static_cast<int>(i) + 1)), std::abs(values[i]));
    }
}
