#include "lp/Ranges.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "lp/LP_Engine.h"
#include "lp/lp_problem.h"
#include "support/fake_desktop.h"

namespace {

using LP_Engine::Range;
using LP_Engine::Result;

constexpr double kNear = 1e-6;

class Ranges : public testing::Test {
protected:
    static Range OfObjective(int variable)
    {
        return LP_Engine::ObjectiveRange(Result, LP_Engine::Tableau(Result), variable,
                                         LP_Engine::BasicRows(Result)(variable), Result.ReducedCosts);
    }

    static Range OfRightHandSide(int constraint)
    {
        return LP_Engine::RightHandSideRange(Result, LP_Engine::Tableau(Result), constraint);
    }

    FakeDesktop desktop;
};

void ExpectRange(const Range& range, std::optional<double> lower, double current, std::optional<double> upper)
{
    ASSERT_EQ(range.Lower.has_value(), lower.has_value());
    ASSERT_EQ(range.Upper.has_value(), upper.has_value());
    if (lower) {
        EXPECT_NEAR(*range.Lower, *lower, kNear);
    }
    EXPECT_NEAR(range.Current, current, kNear);
    if (upper) {
        EXPECT_NEAR(*range.Upper, *upper, kNear);
    }
}

constexpr std::nullopt_t kNoLimit = std::nullopt;

// Doors and windows (3 and 5; rows x <= 4, 2y <= 12, 3x + 2y <= 18), with the ranges that its textbook gives.
TEST_F(Ranges, OfTheDoorsAndWindows)
{
    Solve({false, {3, 5}, {{{1, 0}, '<', 4}, {{0, 2}, '<', 12}, {{3, 2}, '<', 18}}});
    ExpectRange(OfObjective(1), 0, 3, 7.5);
    ExpectRange(OfObjective(2), 2, 5, kNoLimit);
    ExpectRange(OfRightHandSide(1), 2, 4, kNoLimit);
    ExpectRange(OfRightHandSide(2), 6, 12, 18);
    ExpectRange(OfRightHandSide(3), 12, 18, 24);
}

// The furniture mix with its published ranges: desks 56 to 80, tables up to 35, chairs 15 to 22.5; lumber
// from 24, finishing 16 to 24, carpentry 6 2/3 to 10.
TEST_F(Ranges, OfTheFurnitureMix)
{
    Solve({false, {60, 30, 20}, {{{8, 6, 1}, '<', 48}, {{4, 2, 1.5}, '<', 20}, {{2, 1.5, .5}, '<', 8}}});
    ExpectRange(OfObjective(1), 56, 60, 80);
    ExpectRange(OfObjective(2), kNoLimit, 30, 35);
    ExpectRange(OfObjective(3), 15, 20, 22.5);
    ExpectRange(OfRightHandSide(1), 24, 48, kNoLimit);
    ExpectRange(OfRightHandSide(2), 16, 20, 24);
    ExpectRange(OfRightHandSide(3), 20.0 / 3, 8, 10);
}

// The diet, a minimisation with ">" rows: the first food is out of it down to 22.5, calories may rise to 750.
TEST_F(Ranges, OfTheDiet)
{
    Solve({true,
           {50, 20, 30, 80},
           {{{400, 200, 150, 500}, '>', 500},
            {{3, 2, 0, 0}, '>', 6},
            {{2, 2, 4, 4}, '>', 10},
            {{2, 4, 1, 5}, '>', 8}}});
    ExpectRange(OfObjective(1), 22.5, 50, kNoLimit);
    ExpectRange(OfObjective(2), 15, 20, 20 + 55.0 / 3);
    ExpectRange(OfObjective(3), 0, 30, 40);
    ExpectRange(OfObjective(4), 30, 80, kNoLimit);
    ExpectRange(OfRightHandSide(1), kNoLimit, 500, 750);
    ExpectRange(OfRightHandSide(2), 22.0 / 7, 6, 10);
    ExpectRange(OfRightHandSide(3), 6, 10, kNoLimit);
    ExpectRange(OfRightHandSide(4), kNoLimit, 8, 13);
}

// max 5x + 8y, x + y <= 1: x stays out with a reduced cost of -3 until its coefficient is 8.
TEST_F(Ranges, ANonbasicVariableOfAMaximisationHasNoLowerLimit)
{
    Solve({false, {5, 8}, {{{1, 1}, '<', 1}}});
    EXPECT_EQ(Result.ReducedCosts(1), -3);
    ExpectRange(OfObjective(1), kNoLimit, 5, 8);
}

// min 5x + 2y, x + y >= 1: x stays out with a reduced cost of -3 until its coefficient is 2.
TEST_F(Ranges, ANonbasicVariableOfAMinimisationHasNoUpperLimit)
{
    Solve({true, {5, 2}, {{{1, 1}, '>', 1}}});
    EXPECT_EQ(Result.ReducedCosts(1), -3);
    ExpectRange(OfObjective(1), 2, 5, kNoLimit);
}

// A single variable on a single "=" row: its artificial has gone, nothing else could enter.
TEST_F(Ranges, ABasicVariableWithoutARivalHasNoLimits)
{
    Solve({false, {4}, {{{2}, '=', 6}}});
    ExpectRange(OfObjective(1), kNoLimit, 4, kNoLimit);
}

TEST_F(Ranges, ABasicValueOfZeroLimitsTheRangeToTheRightHandSide)
{
    Solve({false, {1}, {{{1}, '<', 0}}});
    ExpectRange(OfRightHandSide(1), 0, 0, kNoLimit);
}

TEST_F(Ranges, AReducedCostJustAboveZeroIsCutForGood)
{
    Solve({false, {5, 8}, {{{1, 1}, '<', 1}}});
    Result.ReducedCosts(1) = 5e-8;
    OfObjective(2);
    EXPECT_EQ(Result.ReducedCosts(1), 0);
}

TEST_F(Ranges, ValuesBelowTheToleranceAreZero)
{
    EXPECT_EQ(LP_Engine::ZeroRounded(0.99e-4), 0);
    EXPECT_EQ(LP_Engine::ZeroRounded(-0.99e-4), 0);
    EXPECT_EQ(LP_Engine::ZeroRounded(1e-4), 1e-4);
    EXPECT_EQ(LP_Engine::ZeroRounded(-1.01e-4), -1.01e-4);
}

// An entry that the engine would pivot on may count as zero here.
TEST_F(Ranges, TableauEntriesBelowTheToleranceLimitNothing)
{
    constexpr double kBelow = 0.99e-4;
    constexpr double kAbove = 1.01e-4;
    Solve({false, {0.0001, 8}, {{{0.0002, 1}, '<', 1}}});
    Array2<double> tableau = LP_Engine::Tableau(Result);
    const auto ofSecond = [&tableau] {
        return LP_Engine::ObjectiveRange(Result, tableau, 2, 1, Result.ReducedCosts);
    };
    Result.ReducedCosts(1) = -kAbove;
    tableau(1, 1) = kAbove;
    ExpectRange(ofSecond(), 7, 8, kNoLimit);
    tableau(1, 1) = kBelow;
    ExpectRange(ofSecond(), 0, 8, kNoLimit);  // by the slack alone
    tableau(1, 1) = -kBelow;
    ExpectRange(ofSecond(), 0, 8, kNoLimit);
    tableau(1, 1) = -kAbove;
    ExpectRange(ofSecond(), 0, 8, 9);
    tableau(1, 3) = kBelow;
    ExpectRange(ofSecond(), kNoLimit, 8, 9);
}

// y = 20 comes in with row 1, whose slack has the entry -0.0001 and then 0.0001 in the row of x.
TEST_F(Ranges, TableauEntriesOfTheToleranceLimitNoRightHandSide)
{
    Solve({false, {3, 7}, {{{0, 1}, '<', 20}, {{3, 0}, '<', 1}, {{7, 0.0001}, '<', 20}}});
    ExpectRange(OfRightHandSide(1), 0, 20, kNoLimit);
    Solve({false, {3, 7}, {{{0, 1}, '<', 20}, {{3, 0}, '<', 1}, {{0, -0.0001}, '<', -0.001}}});
    ExpectRange(OfRightHandSide(1), 0, 20, kNoLimit);
    Solve({false, {3, 7}, {{{0, 1}, '<', 20}, {{3, 0}, '<', 1}, {{0, -0.00011}, '<', -0.0011}}});
    ExpectRange(OfRightHandSide(1), 10, 20, kNoLimit);
}

// x = 1 stays the best while it is worth more than y, half of its weight in the row of x: the entry is
// 0.0001.
TEST_F(Ranges, TableauEntriesOfTheToleranceLimitNoCoefficient)
{
    Solve({false, {1, 0.00005}, {{{1, 0.0001}, '<', 1}}});
    ExpectRange(OfObjective(1), 0, 1, kNoLimit);
    Solve({false, {1, 0.0001}, {{{1, 0.0002}, '<', 1}}});
    ExpectRange(OfObjective(1), 0.5, 1, kNoLimit);
    Solve({false, {1, -0.00015}, {{{1, -0.0001}, '<', 1}}});
    ExpectRange(OfObjective(1), 0, 1, kNoLimit);
    Solve({false, {1, -0.0003}, {{{1, -0.0002}, '<', 1}}});
    ExpectRange(OfObjective(1), 0, 1, 1.5);
}

// 2x <= b: b may go down to 0 as long as that is not further than 1e15.
TEST_F(Ranges, ALimitBeyondTheLargestNumberIsNone)
{
    Solve({false, {1}, {{{2}, '<', 1.5e15}}});
    ExpectRange(OfRightHandSide(1), kNoLimit, 1.5e15, kNoLimit);
    Solve({false, {1}, {{{2}, '<', 0.9e15}}});
    ExpectRange(OfRightHandSide(1), 0, 0.9e15, kNoLimit);
}

TEST_F(Ranges, TheTableauHasUnitColumnsForTheBasis)
{
    Solve({false, {60, 30, 20}, {{{8, 6, 1}, '<', 48}, {{4, 2, 1.5}, '<', 20}, {{2, 1.5, .5}, '<', 8}}});
    const Array2<double> tableau = LP_Engine::Tableau(Result);
    for (int r = 1; r <= 3; ++r)
        for (int i = 1; i <= 3; ++i)
            EXPECT_NEAR(tableau(i, Result.Basis.BasisList(r)), i == r ? 1 : 0, 1e-9);
}

// ---- solving again at the ends of the ranges ----

Lp RandomLp(std::mt19937& random)
{
    const auto whole = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    std::uniform_real_distribution<double> real(0.5, 20);
    Lp lp;
    lp.Minimize = whole(0, 1) == 1;
    const int n = whole(2, 5);
    for (int j = 0; j < n; ++j)
        lp.Objective.push_back(real(random));
    const int m = whole(2, 4);
    for (int i = 0; i < m; ++i) {
        LpRow row;
        for (int j = 0; j < n; ++j)
            row.Coefficients.push_back(real(random));
        row.Relation = lp.Minimize ? '>' : '<';
        row.RightHandSide = 10 * real(random);
        lp.Rows.push_back(row);
    }
    return lp;
}

double Cost(const Lp& lp, const std::vector<double>& values)
{
    return Activity({lp.Objective, '=', 0}, values);
}

// Within its range a coefficient leaves the solution optimal, beyond it another solution is better.
void CheckObjectiveRange(const Lp& lp, std::size_t j, const Range& range, const std::vector<double>& values)
{
    constexpr double kBeyond = 0.01;
    const auto isStillBest = [&](double coefficient) {
        Lp moved = lp;
        moved.Objective[j] = coefficient;
        Solve(moved);
        return std::abs(Objective() - Cost(moved, values)) < 1e-7 * (1 + std::abs(Objective()));
    };
    if (range.Lower) {
        EXPECT_TRUE(isStillBest(*range.Lower));
        EXPECT_FALSE(isStillBest(*range.Lower - kBeyond));
    }
    if (range.Upper) {
        EXPECT_TRUE(isStillBest(*range.Upper));
        EXPECT_FALSE(isStillBest(*range.Upper + kBeyond));
    }
}

TEST_F(Ranges, CoefficientsAtTheirLimitsKeepTheSolutionAndBeyondThemDoNot)
{
    std::mt19937 random(31);
    for (int round = 0; round < 120; ++round) {
        const Lp lp = RandomLp(random);
        Solve(lp);
        const std::vector<double> values = Values();
        std::vector<Range> ranges;
        ranges.reserve(lp.Objective.size());
        for (std::size_t j = 1; j <= lp.Objective.size(); ++j)
            ranges.push_back(OfObjective(static_cast<int>(j)));
        for (std::size_t j = 0; j < ranges.size(); ++j)
            CheckObjectiveRange(lp, j, ranges[j], values);
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

// Within its range a right-hand side moves the objective by its price, beyond it by less (or there is no
// solution left).
TEST_F(Ranges, RightHandSidesAtTheirLimitsKeepThePriceAndBeyondThemDoNot)
{
    constexpr double kBeyond = 0.1;
    std::mt19937 random(32);
    for (int round = 0; round < 120; ++round) {
        const Lp lp = RandomLp(random);
        Solve(lp);
        const double objective = Objective();
        const double sense = lp.Minimize ? -1 : 1;
        for (std::size_t i = 0; i < lp.Rows.size(); ++i) {
            Solve(lp);
            const double price = sense * Result.DualVector(static_cast<int>(i) + 1);
            const Range range = OfRightHandSide(static_cast<int>(i) + 1);
            const auto follows = [&](double b) {
                Lp moved = lp;
                moved.Rows[i].RightHandSide = b;
                Solve(moved);
                if (Result.End != LP_Engine::Outcome::Optimal) return false;
                const double expected = objective + price * (b - lp.Rows[i].RightHandSide);
                return std::abs(Objective() - expected) < 1e-7 * (1 + std::abs(expected));
            };
            if (range.Lower && *range.Lower >= 0) {
                EXPECT_TRUE(follows(*range.Lower));
            }
            if (range.Lower && *range.Lower > kBeyond) {
                EXPECT_FALSE(follows(*range.Lower - kBeyond));
            }
            if (range.Upper) {
                EXPECT_TRUE(follows(*range.Upper));
                EXPECT_FALSE(follows(*range.Upper + kBeyond));
            }
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

}  // namespace
