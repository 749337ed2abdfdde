#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "markov/chains.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

// Solves a set of n linear equations by elimination with row exchange; the last column is the right-hand
// side.
std::vector<double> SolveEquations(Rows a)
{
    const std::size_t n = a.size();
    for (std::size_t column = 0; column < n; ++column) {
        std::size_t pivot = column;
        for (std::size_t row = column; row < n; ++row)
            if (std::abs(a[row][column]) > std::abs(a[pivot][column])) pivot = row;
        std::swap(a[pivot], a[column]);
        for (std::size_t row = 0; row < n; ++row) {
            if (row == column) continue;
            const double factor = a[row][column] / a[column][column];
            for (std::size_t k = column; k <= n; ++k)
                a[row][k] -= factor * a[column][k];
        }
    }
    std::vector<double> x;
    for (std::size_t row = 0; row < n; ++row)
        x.push_back(a[row][n] / a[row][row]);
    return x;
}

// Balance equations, the last one replaced by "the probabilities add up to 1".
std::vector<double> StationaryDistribution(const Rows& chain)
{
    const std::size_t n = chain.size();
    Rows equations(n, std::vector<double>(n + 1, 0.0));
    for (std::size_t state = 0; state < n; ++state)
        for (std::size_t from = 0; from < n; ++from)
            equations[state][from] = chain[from][state] - (from == state ? 1.0 : 0.0);
    equations[n - 1].assign(n + 1, 1.0);
    return SolveEquations(equations);
}

// Chance of ending in `target` from each of the first `leaving` states: x = Q x + r.
std::vector<double> EndingIn(const Rows& chain, std::size_t leaving, std::size_t target)
{
    Rows equations(leaving, std::vector<double>(leaving + 1, 0.0));
    for (std::size_t i = 0; i < leaving; ++i) {
        for (std::size_t j = 0; j < leaving; ++j)
            equations[i][j] = (i == j ? 1.0 : 0.0) - chain[i][j];
        equations[i][leaving] = chain[i][target];
    }
    return SolveEquations(equations);
}

std::vector<double> RandomRow(std::mt19937& random, std::size_t n)
{
    std::uniform_real_distribution<double> weight(0.1, 1.0);
    std::vector<double> row;
    double sum = 0;
    for (std::size_t j = 0; j < n; ++j)
        sum += row.emplace_back(weight(random));
    for (double& probability : row)
        probability /= sum;
    return row;
}

double SumOf(const Array1<double>& row)
{
    double sum = 0;
    for (int i = 1; i <= row.Upper(); ++i)
        sum += row(i);
    return sum;
}

}  // namespace

// By hand: x = 0.9x + 0.3y and x + y = 1 give x = 3/4.
TEST(MarkovAnalysis, TwoBrandsSettleAtThreeQuarters)
{
    Given({{0.9, 0.1}, {0.3, 0.7}});
    Analyse();
    EXPECT_THAT(Markov::Result.AbsorbingList, IsEmpty());
    EXPECT_THAT(Markov::Result.NonAbsorbingList, ElementsAre(1, 2));
    EXPECT_NEAR(Markov::Result.Distribution(1), 0.75, 0.0001);
}

TEST(MarkovAnalysis, OneCertainStateAbsorbsAndLeavesNoRows)
{
    Given({{1}});
    Analyse();
    EXPECT_THAT(Markov::Result.AbsorbingList, ElementsAre(1));
    EXPECT_THAT(Markov::Result.NonAbsorbingList, IsEmpty());
    EXPECT_EQ(Markov::Result.AbsorptionTable.UpperRow(), 0);
}

TEST(MarkovAnalysis, AnEvenStartOfARingStays)
{
    for (int n = 2; n <= 10; ++n) {
        Given(Ring(n));
        Analyse();
        for (int state = 1; state <= n; ++state)
            EXPECT_EQ(Markov::Result.Distribution(state), 1.0 / n);
    }
}

// States 1 and 2 swap, state 3 feeds both alike: from thirds the chain goes to (1/2, 1/2, 0) and stays.
// With unequal feeding, (1/3, 1/3, 1/3) -> (2/3, 1/3, 0) -> (1/3, 2/3, 0) -> ... never settles: after an even
// number of steps, here 150, the second of the two rows is the answer.
TEST(MarkovAnalysis, APeriodicChainReportsTheRowOfTheLastStep)
{
    Given({{0, 1, 0}, {1, 0, 0}, {1, 0, 0}});
    Analyse();
    EXPECT_NEAR(Markov::Result.Distribution(1), 1.0 / 3, 1e-12);
    EXPECT_NEAR(Markov::Result.Distribution(2), 2.0 / 3, 1e-12);
}

TEST(MarkovAnalysis, ADiagonalJustBelowOneDoesNotAbsorb)
{
    Given({{0.9999, 0.0001}, {0, 1}});
    Analyse();
    EXPECT_THAT(Markov::Result.NonAbsorbingList, ElementsAre(1));
    EXPECT_THAT(Markov::Result.AbsorbingList, ElementsAre(2));
}

TEST(MarkovAnalysis, ADiagonalAboveOneAbsorbs)
{
    Given({{1.0004, 0}, {0.5, 0.5}});
    Analyse();
    EXPECT_THAT(Markov::Result.AbsorbingList, ElementsAre(1));
}

TEST(MarkovAnalysis, TwoStatesThatOnlyLeadToEachOtherDoNotAbsorb)
{
    Given({{0, 1, 0}, {1, 0, 0}, {0.2, 0.2, 0.6}});
    Analyse();
    EXPECT_THAT(Markov::Result.AbsorbingList, IsEmpty());
}

// After k steps 0.99^k of the units have not yet been absorbed; 150 steps are the limit. The stop comes
// earlier only when a step moves less than 0.00001, which 0.01 * 0.99^k reaches behind step 687.
TEST(MarkovAnalysis, SlowAbsorptionEndsAtTheStepLimit)
{
    Given({{0.99, 0.01}, {0, 1}});
    Analyse();
    EXPECT_NEAR(Markov::Result.AbsorptionTable(1, 1), 1 - std::pow(0.99, 150), 1e-9);
}

// One half stays at each step: step k moves 0.5^k. The 16th moves 0.0000153, the 17th 0.0000076, which ends
// it.
TEST(MarkovAnalysis, StopsBehindTheFirstStepThatMovesLittle)
{
    Given({{0.5, 0.5}, {0, 1}});
    Analyse();
    EXPECT_DOUBLE_EQ(Markov::Result.AbsorptionTable(1, 1), 1 - std::pow(0.5, 17));
}

// A step of exactly 0.00001 is small enough: the other share moves by 0.000005.
TEST(MarkovAnalysis, StopsBehindAStepOfTheToleranceItself)
{
    Given({{0.999995, 0.00001}, {0, 1}});
    Analyse();
    EXPECT_EQ(Markov::Result.AbsorptionTable(1, 1), 0.00001);
}

TEST(MarkovAnalysis, RowsAreNotNormalised)
{
    Given({{1.001}});
    Markov::Problem.TransitionMatrix(1, 1) = 0.9991;
    Analyse();
    EXPECT_NEAR(Markov::Result.Distribution(1), std::pow(0.9991, 150), 1e-12);
}

TEST(MarkovAnalysis, SteadyStatesSolveTheBalanceEquations)
{
    std::mt19937 random(12);
    for (int round = 0; round < 500; ++round) {
        const std::size_t n = 2 + random() % 9;
        Rows chain;
        for (std::size_t i = 0; i < n; ++i)
            chain.push_back(RandomRow(random, n));
        Given(chain);
        Analyse();
        const std::vector<double> expected = StationaryDistribution(chain);
        for (std::size_t i = 0; i < n; ++i)
            EXPECT_NEAR(Markov::Result.Distribution(static_cast<int>(i) + 1), expected[i], 0.0002)
                << "round " << round;
        EXPECT_NEAR(SumOf(Markov::Result.Distribution), 1, 1e-9);
    }
}

TEST(MarkovAnalysis, AbsorptionSolvesTheFirstStepEquations)
{
    std::mt19937 random(34);
    for (int round = 0; round < 500; ++round) {
        const std::size_t n = 2 + random() % 9;
        const std::size_t leaving = 1 + random() % (n - 1);
        Rows chain;
        for (std::size_t i = 0; i < n; ++i) {
            if (i < leaving) {
                chain.push_back(RandomRow(random, n));
            } else {
                chain.emplace_back(n, 0.0);
                chain.back()[i] = 1;
            }
        }
        Given(chain);
        Analyse();
        ASSERT_EQ(Markov::Result.AbsorbingList.size(), n - leaving);
        for (std::size_t target = leaving; target < n; ++target) {
            const std::vector<double> expected = EndingIn(chain, leaving, target);
            for (std::size_t k = 0; k < leaving; ++k)
                EXPECT_NEAR(Markov::Result.AbsorptionTable(static_cast<int>(k) + 1,
                                                           static_cast<int>(target - leaving) + 1),
                            expected[k], 0.001)
                    << "round " << round;
        }
    }
}
