#include "lp/LP_Engine.h"

#include <gmock/gmock.h>

#include <cmath>
#include <optional>
#include <random>
#include <utility>

#include "lp/VtLP.h"
#include "lp/lp_problem.h"
#include "support/fake_desktop.h"

namespace {

using LP_Engine::Outcome;
using LP_Engine::Result;
using testing::DoubleNear;
using testing::ElementsAre;

constexpr double kNear = 1e-6;

class LpEngine : public testing::Test {
protected:
    static bool HasSolution() { return Result.End == Outcome::Optimal; }

    FakeDesktop desktop;
};

auto Near(double a, double b)
{
    return ElementsAre(DoubleNear(a, kNear), DoubleNear(b, kNear));
}

auto Near(double a, double b, double c)
{
    return ElementsAre(DoubleNear(a, kNear), DoubleNear(b, kNear), DoubleNear(c, kNear));
}

// ---- problems worked by hand ----

// Doors and windows: a batch of doors earns 3, one of windows 5 (thousand dollars); plant 1 has 4 hours and
// makes doors, plant 2 has 12 and needs 2 a batch of windows, plant 3 has 18 and needs 3 and 2. The corners
// are (0,0), (4,0), (4,3), (2,6), (0,6) with the profits 0, 12, 27, 36, 30: two batches of doors, six of
// windows. An hour more in plant 2 is worth 3/2, one in plant 3 worth 1.
const Lp kDoors{false, {3, 5}, {{{1, 0}, '<', 4}, {{0, 2}, '<', 12}, {{3, 2}, '<', 18}}};

TEST_F(LpEngine, SolvesTheDoorsAndWindows)
{
    Solve(kDoors);
    EXPECT_THAT(Values(), Near(2, 6));
    EXPECT_NEAR(Objective(), 36, kNear);
    EXPECT_NEAR(Result.DualVector(1), 0, kNear);
    EXPECT_NEAR(Result.DualVector(2), 1.5, kNear);
    EXPECT_NEAR(Result.DualVector(3), 1, kNear);
}

// Desks, tables and chairs at 60, 30, 20 dollars: lumber 8, 6, 1 of 48; finishing 4, 2, 1.5 of 20; carpentry
// 2, 1.5, 0.5 of 8 hours. The best plan is 2 desks and 8 chairs for 280; 24 of the lumber are left; a table
// loses 5; an hour of finishing and one of carpentry are worth 10 each.
const Lp kFurniture{
    false, {60, 30, 20}, {{{8, 6, 1}, '<', 48}, {{4, 2, 1.5}, '<', 20}, {{2, 1.5, .5}, '<', 8}}};

TEST_F(LpEngine, SolvesTheFurnitureMix)
{
    Solve(kFurniture);
    EXPECT_THAT(Values(), Near(2, 0, 8));
    EXPECT_NEAR(Objective(), 280, kNear);
    EXPECT_NEAR(Result.ReducedCosts(2), -5, kNear);
    EXPECT_NEAR(Result.DualVector(1), 0, kNear);
    EXPECT_NEAR(Result.DualVector(2), 10, kNear);
    EXPECT_NEAR(Result.DualVector(3), 10, kNear);
}

// The cheapest diet of four foods at 50, 20, 30, 80 cents, with at least 500 calories, 6 ounces of chocolate,
// 10 of sugar and 8 of fat: 3 of the second and 1 of the third for 90 cents. An ounce of chocolate less saves
// 2.5, one of sugar 7.5.
const Lp kDiet{true,
               {50, 20, 30, 80},
               {{{400, 200, 150, 500}, '>', 500},
                {{3, 2, 0, 0}, '>', 6},
                {{2, 2, 4, 4}, '>', 10},
                {{2, 4, 1, 5}, '>', 8}}};

TEST_F(LpEngine, SolvesTheDiet)
{
    Solve(kDiet);
    EXPECT_THAT(Values(), ElementsAre(DoubleNear(0, kNear), DoubleNear(3, kNear), DoubleNear(1, kNear),
                                      DoubleNear(0, kNear)));
    EXPECT_NEAR(Objective(), 90, kNear);
    EXPECT_NEAR(Result.DualVector(2), -2.5, kNear);
    EXPECT_NEAR(Result.DualVector(3), -7.5, kNear);
}

// Minimise 2x + 3y, x/2 + y/4 <= 4, x + 3y >= 20, x + y = 10: (5, 5) for 25.
TEST_F(LpEngine, SolvesAProblemWithAllThreeRelations)
{
    Solve({true, {2, 3}, {{{.5, .25}, '<', 4}, {{1, 3}, '>', 20}, {{1, 1}, '=', 10}}});
    EXPECT_THAT(Values(), Near(5, 5));
    EXPECT_NEAR(Objective(), 25, kNear);
}

// ---- columns ----

TEST_F(LpEngine, LogicalColumnsStandInTheOrderOfTheRows)
{
    Solve({true, {1, 1}, {{{1, 0}, '>', 1}, {{0, 1}, '<', 3}, {{1, 1}, '=', 4}}});
    EXPECT_EQ(Result.NumColumns, 6);
    EXPECT_EQ(Result.Coefficients(1, 3), -1);  // the surplus
    for (const auto& [row, column] : {std::pair(1, 4), std::pair(2, 5), std::pair(3, 6)})
        EXPECT_EQ(Result.Coefficients(row, column), 1);
    EXPECT_EQ(Result.ConstraintColumn(1), 4);
    EXPECT_EQ(Result.ConstraintColumn(2), 5);
    EXPECT_EQ(Result.ConstraintColumn(3), 6);
}

TEST_F(LpEngine, MinimisingNegatesTheObjectiveOfTheModel)
{
    Solve(kDiet);
    EXPECT_EQ(Result.Coefficients(0, 1), -50);
    EXPECT_EQ(VtLP::Problem.LpCoefficients(0, 1), 50);
    Solve(kDoors);
    EXPECT_EQ(Result.Coefficients(0, 1), 3);
}

TEST_F(LpEngine, ASlackBasisStartsInTheSecondPhase)
{
    SetProblem(kDoors);
    VtLP::Problem.LpCoefficients(0, 1) = VtLP::Problem.LpCoefficients(0, 2) = -1;  // nothing enters
    SolveModel();
    EXPECT_EQ(Result.SolvePhase, 2);
    EXPECT_EQ(Result.PivotCount, 0);
    EXPECT_EQ(Result.Basis.BasicValues(3), 18);
}

// 150 columns behind 100 variables still fit; 100 variables with 51 more columns than that do not.
TEST_F(LpEngine, ColumnsBeyondTheTablesAreARunTimeError)
{
    Lp lp{true, std::vector<double>(100, 1.0), {}};
    for (int i = 0; i < 50; ++i)
        lp.Rows.push_back({std::vector<double>(100, 1.0), '>', 1});
    Solve(lp);
    EXPECT_EQ(Result.End, Outcome::Optimal);
    EXPECT_EQ(Result.NumColumns, 200);
    lp.Objective.push_back(1);
    for (LpRow& row : lp.Rows)
        row.Coefficients.push_back(1);
    Solve(lp);
    EXPECT_EQ(Result.End, Outcome::OutOfRoom);
    EXPECT_EQ(Result.Error, ErrorNumber::SubscriptOutOfRange);
}

// The bounds of the first 100 columns only are open: a variable that was added beyond them stays at zero.
TEST_F(LpEngine, AVariableBeyondTheHundredthIsFixedAtZero)
{
    Lp lp{false, std::vector<double>(101, 0.0), {{std::vector<double>(101, 0.0), '<', 7}}};
    lp.Objective[100] = lp.Rows[0].Coefficients[100] = 1;
    Solve(lp);
    EXPECT_EQ(Objective(), 0);
    lp.Objective[99] = lp.Rows[0].Coefficients[99] = 1;
    Solve(lp);
    EXPECT_EQ(Objective(), 7);
}

// ---- rules of the steps ----

// Both columns gain 1 a unit; in the first pricing of phase 1 the second has the larger objective
// coefficient.
TEST_F(LpEngine, EqualReducedCostsAreDecidedByTheObjectiveCoefficient)
{
    Solve({false, {1, 2}, {{{1, 1}, '=', 4}}});
    EXPECT_EQ(Result.PivotCount, 1);
    EXPECT_THAT(Values(), Near(0, 4));
}

TEST_F(LpEngine, EqualReducedCostsWithEqualCoefficientsLeaveTheEarlierColumn)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}}});
    EXPECT_EQ(Result.PivotCount, 1);
    EXPECT_THAT(Values(), Near(4, 0));
}

// The artificial of the "=" row stands at zero and counts as cleared: no phase 1. The first entering column
// drives it out without a step.
TEST_F(LpEngine, AnEqualRowWithZeroNeedsNoFirstPhase)
{
    Solve({false, {1, 1}, {{{1, -1}, '=', 0}, {{1, 1}, '<', 6}}});
    EXPECT_EQ(Result.PivotCount, 2);
    EXPECT_THAT(Values(), Near(3, 3));
    EXPECT_EQ(Result.Basis.ColumnKind(3), LP_Engine::kRetired);
}

// x + y >= 4. The dual step takes the column that loses the most; a primal step puts that right.
TEST_F(LpEngine, ANegativeRightHandSideIsRepairedByADualStep)
{
    Solve({true, {2, 3}, {{{-1, -1}, '<', -4}}});
    EXPECT_THAT(Values(), Near(4, 0));
    EXPECT_EQ(Result.PivotCount, 1);
}

TEST_F(LpEngine, ANegativeRightHandSideWithoutACandidateIsInfeasible)
{
    Solve({true, {2, 3}, {{{1, 1}, '<', -4}}});
    EXPECT_EQ(Result.End, Outcome::Infeasible);
    EXPECT_EQ(Result.PivotCount, 0);
    EXPECT_EQ(Result.Basis.ColumnStatus(3), LP_Engine::kBelowLower);
}

// Both rows miss by 4, and nothing has a cost. The first one takes x in: x = 4, which mends the second too.
// The second one first would take x = 2, which leaves 2 for y and the first: (4/3, 4/3).
TEST_F(LpEngine, TheFirstOfEquallyViolatedRowsIsRepairedFirst)
{
    Solve({true, {0, 0}, {{{-1, -2}, '<', -4}, {{-2, -1}, '<', -4}}});
    EXPECT_THAT(Values(), Near(4, 0));
    Solve({true, {0, 0}, {{{-2, -1}, '<', -4}, {{-1, -2}, '<', -4}}});
    EXPECT_NEAR(Values()[0], 4.0 / 3, kNear);
    EXPECT_NEAR(Values()[1], 4.0 / 3, kNear);
}

// The same with the second row missing by more: it goes first.
TEST_F(LpEngine, OfTwoViolatedRowsTheDeeperOneIsRepairedFirst)
{
    Solve({true, {0, 0}, {{{-1, -2}, '<', -4}, {{-2, -1}, '<', -5}}});
    EXPECT_NEAR(Values()[0], 2, kNear);
    EXPECT_NEAR(Values()[1], 1, kNear);
}

// ---- both sides of the tolerance, 1e-5 ----

TEST_F(LpEngine, AnArtificialOfTheToleranceIsNotCleared)
{
    Solve({false, {1}, {{{1}, '<', 1}, {{0}, '=', 0.00001}}});
    EXPECT_EQ(Result.End, Outcome::Infeasible);
    Solve({false, {1}, {{{1}, '<', 1}, {{0}, '=', 0.0000099}}});
    EXPECT_EQ(Result.End, Outcome::Optimal);
}

// x comes in at 1 and leaves the slack of the second row where it is.
TEST_F(LpEngine, AValueOfTheToleranceIsNotCutToZero)
{
    Solve({false, {1}, {{{1}, '<', 1}, {{0}, '<', 0.00001}}});
    EXPECT_EQ(Result.Basis.BasicValues(1), 0.00001);
    Solve({false, {1}, {{{1}, '<', 1}, {{0}, '<', 0.0000099}}});
    EXPECT_EQ(Result.Basis.BasicValues(1), 0);
}

TEST_F(LpEngine, AnEntryOfTheToleranceRepairsNoRow)
{
    Solve({true, {1}, {{{-0.00001}, '<', -1}}});
    EXPECT_EQ(Result.End, Outcome::Infeasible);
    Solve({true, {1}, {{{-0.00002}, '<', -1}}});
    EXPECT_EQ(Result.End, Outcome::Optimal);
    EXPECT_THAT(Values(), ElementsAre(DoubleNear(50000, kNear)));
}

// The first row has room for x = 1 only, and is not looked at.
TEST_F(LpEngine, AnEntryOfTheToleranceLimitsNoStep)
{
    Solve({false, {1}, {{{0.00001}, '<', 0.00001}, {{1}, '<', 5}}});
    EXPECT_EQ(Result.Basis.BasisList(2), 1);
    EXPECT_EQ(Result.Basis.BasicValues(2), 5);
    Solve({false, {1}, {{{0.000011}, '<', 0.000011}, {{1}, '<', 5}}});
    EXPECT_THAT(Values(), ElementsAre(DoubleNear(1, kNear)));
}

// ---- what the costs of artificials leave behind ----

// 5x >= 0 starts with its artificial at zero, which costs 1 in the second phase too: the row's price is -1,
// and x is worth -6 + 5.
TEST_F(LpEngine, AnArtificialAtZeroCostsOne)
{
    Solve({true, {6}, {{{5}, '>', 0}}});
    EXPECT_EQ(Result.DualVector(1), -1);
    EXPECT_EQ(Result.ReducedCosts(1), -1);
    EXPECT_EQ(Result.ReducedCosts(2), -1);
}

// x = 4 leaves 2 of the second row to its artificial. A unit more of the first row would save 1 of them.
TEST_F(LpEngine, TheFirstPhaseEndsWithThePricesOfItsOwnCosts)
{
    Solve({false, {1}, {{{1}, '<', 4}, {{1}, '>', 6}}});
    EXPECT_EQ(Result.End, Outcome::Infeasible);
    EXPECT_EQ(Result.DualVector(1), 1);
    EXPECT_EQ(Result.DualVector(2), -1);
    EXPECT_EQ(Result.ReducedCosts(2), -1);
}

// 0.3 - 0.1 * (0.3 / 0.1) is not zero for the machine.
TEST_F(LpEngine, ABasicColumnHasNoReducedCost)
{
    Solve({false, {0.3}, {{{0.1}, '<', 1}}});
    EXPECT_THAT(Values(), ElementsAre(DoubleNear(10, kNear)));
    EXPECT_EQ(Result.ReducedCosts(1), 0);
}

// Its entry -3 would let x go on to 11/6; the artificial gives way without a step, and that is all.
TEST_F(LpEngine, AClearedArtificialLeavesAtOnce)
{
    Solve({false, {5}, {{{-3}, '=', 0}, {{6}, '<', 11}}});
    EXPECT_EQ(Result.PivotCount, 1);
    EXPECT_THAT(Values(), ElementsAre(0));
}

TEST_F(LpEngine, TheProblemStaysAsItWas)
{
    SetProblem(kDiet);
    const VtLP::LpProblem before = VtLP::Problem;
    SolveModel();
    for (int i = 0; i <= before.NumConstraints; ++i)
        for (int j = 0; j <= VtLP::ColumnCapacity; ++j)
            EXPECT_EQ(VtLP::Problem.LpCoefficients(i, j), before.LpCoefficients(i, j));
    for (int j = 0; j <= VtLP::ColumnCapacity; ++j)
        EXPECT_EQ(VtLP::Problem.LpVariableNames(j), before.LpVariableNames(j));
}

// Its artificial starts below zero, so that the dual steps come first: x + y <= 4 in other words.
TEST_F(LpEngine, AGreaterRowWithANegativeRightHandSideIsActedOnByTheDualSteps)
{
    Solve({false, {3, 2}, {{{-1, -1}, '>', -4}}});
    ASSERT_TRUE(HasSolution());
    EXPECT_THAT(Values(), Near(4, 0));
}

TEST_F(LpEngine, AGreaterRowThatTheDualStepsCannotRepairIsInfeasible)
{
    Solve({false, {0}, {{{0}, '=', -4}}});
    EXPECT_EQ(Result.End, Outcome::Infeasible);
    EXPECT_EQ(Result.PivotCount, 0);
}

TEST_F(LpEngine, TwoRowsThatExcludeEachOtherAreInfeasible)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 1}, '>', 6}}});
    EXPECT_EQ(Result.End, Outcome::Infeasible);
    EXPECT_EQ(Result.SolvePhase, 1);
}

TEST_F(LpEngine, AnEnteringColumnWithoutAPositiveEntryIsUnbounded)
{
    Solve({false, {1, 1}, {{{1, -1}, '<', 4}}});
    EXPECT_EQ(Result.End, Outcome::Unbounded);
}

// Entries that are positive but too small to pivot on: the column flips to its bound of ten to the 15.
TEST_F(LpEngine, EntriesAboveZeroButBelowTheToleranceFlipTheColumn)
{
    Solve({false, {1}, {{{1e-6}, '<', 4}}});
    ASSERT_TRUE(HasSolution());
    EXPECT_EQ(Result.Basis.ColumnStatus(1), LP_Engine::kAtUpper);
    EXPECT_THAT(Values(), ElementsAre(1e15));
}

TEST_F(LpEngine, AResidueBelowTheToleranceIsCutToZero)
{
    Solve({false, {1, 0}, {{{1, 0}, '<', 1}, {{1, 1}, '<', 1.000004}}});
    EXPECT_THAT(Values(), Near(1, 0));
    EXPECT_EQ(Result.Basis.BasicValues(1), 0);  // the slack of the second row
}

TEST_F(LpEngine, AReducedCostBelowTheThresholdDoesNotEnter)
{
    Solve({false, {0.99e-7}, {{{1}, '<', 1}}});
    EXPECT_EQ(Result.PivotCount, 0);
    Solve({false, {1.01e-7}, {{{1}, '<', 1}}});
    EXPECT_EQ(Result.PivotCount, 1);
}

// Without rows a gain is unbounded, and without a gain all variables stay at zero.
TEST_F(LpEngine, AProblemWithoutConstraintsIsSolvedLikeAnyOther)
{
    Solve({false, {1, -1}, {}});
    EXPECT_EQ(Result.End, Outcome::Unbounded);
    Solve({true, {1, 2}, {}});
    EXPECT_TRUE(HasSolution());
    EXPECT_THAT(Values(), ElementsAre(0, 0));
}

TEST_F(LpEngine, ARunKeepsNothingOfTheOneBefore)
{
    Solve(kFurniture);
    const double before = Objective();
    Solve(kDiet);
    Solve({false, {1}, {{{-1}, '<', 1}}});
    Solve(kFurniture);
    EXPECT_EQ(Objective(), before);
    EXPECT_EQ(Result.NumColumns, 6);
}

// A slack of 1e308 is above the bound of 1e15; x1 would have to go to 1e312 for it.
TEST_F(LpEngine, AValueBeyondADoubleEndsTheSolve)
{
    Solve({false, {1}, {{{1e-4}, '<', 1e308}}});
    EXPECT_EQ(Result.End, Outcome::OutOfRoom);
    EXPECT_EQ(Result.Error, ErrorNumber::Overflow);
}

// ---- cycles ----

void ExpectCycles(const Lp& lp, FakeDesktop& desktop)
{
    desktop.screen.escapePressed = true;
    Solve(lp);
    EXPECT_EQ(Result.End, Outcome::Interrupted);
    EXPECT_EQ(Result.Error, ErrorNumber::UserInterrupt);
}

// E. M. L. Beale's example of 1955.
TEST_F(LpEngine, BealesExampleCyclesUntilTheUserBreaksItOff)
{
    ExpectCycles({false,
                  {.75, -150, .02, -6},
                  {{{.25, -60, -.04, 9}, '<', 0}, {{.5, -90, -.02, 3}, '<', 0}, {{0, 0, 1, 0}, '<', 1}}},
                 desktop);
}

// From V. Chvatal's textbook of 1983.
TEST_F(LpEngine, ChvatalsExampleCyclesUntilTheUserBreaksItOff)
{
    ExpectCycles({false,
                  {10, -57, -9, -24},
                  {{{.5, -5.5, -2.5, 9}, '<', 0}, {{.5, -1.5, -.5, 1}, '<', 0}, {{1, 0, 0, 0}, '<', 1}}},
                 desktop);
}

// H. W. Kuhn's.
TEST_F(LpEngine, KuhnsExampleCyclesUntilTheUserBreaksItOff)
{
    ExpectCycles(
        {false,
         {2, 3, -1, -12},
         {{{-2, -9, 1, 9}, '<', 0}, {{1.0 / 3, 1, -1.0 / 3, -2}, '<', 0}, {{2, 3, -1, -12}, '<', 2}}},
        desktop);
}

// ---- random problems ----

struct Shape {
    int MostRows;
    int MostVariables;
    double Density;
};

Lp RandomLp(std::mt19937& random, const Shape& shape)
{
    const auto whole = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    std::bernoulli_distribution filled(shape.Density);
    Lp lp;
    lp.Minimize = whole(0, 1) == 1;
    const int n = whole(1, shape.MostVariables);
    for (int j = 0; j < n; ++j)
        lp.Objective.push_back(whole(-5, 40));
    const int m = whole(1, shape.MostRows);
    for (int i = 0; i < m; ++i) {
        LpRow row;
        for (int j = 0; j < n; ++j)
            row.Coefficients.push_back(filled(random) ? whole(-3, 20) : 0);
        const std::string relations = lp.Minimize ? ">>>=<" : "<<<=>";
        row.Relation = relations[static_cast<std::size_t>(whole(0, 4))];
        row.RightHandSide = whole(0, 9) == 0 ? 0 : whole(1, 200);
        lp.Rows.push_back(row);
    }
    return lp;
}

// Signs of prices and reduced costs, and that nothing is paid for what is left over: together with
// feasibility this proves that the solution is optimal.
void ExpectOptimal(const Lp& lp)
{
    constexpr double kTolerance = 1e-4;
    const std::vector<double> values = Values();
    for (const double value : values)
        if (value > 1e9) return;  // an open ray that rounding has closed: it ends at the bound of 10^15
    ASSERT_LE(Violation(lp, values), 1e-3);
    const double sense = lp.Minimize ? -1 : 1;
    double primal = 0;
    for (std::size_t j = 0; j < values.size(); ++j) {
        double reduced = sense * lp.Objective[j];
        for (std::size_t i = 0; i < lp.Rows.size(); ++i)
            reduced -= Result.DualVector(static_cast<int>(i) + 1) * lp.Rows[i].Coefficients[j];
        EXPECT_LE(reduced, kTolerance) << "variable " << j + 1;
        EXPECT_LE(std::abs(reduced * values[j]), 1e-2 * (1 + std::abs(values[j]))) << "variable " << j + 1;
        EXPECT_NEAR(Result.ReducedCosts(static_cast<int>(j) + 1), reduced, kTolerance);
        primal += lp.Objective[j] * values[j];
    }
    double dual = 0;
    for (std::size_t i = 0; i < lp.Rows.size(); ++i) {
        const double price = Result.DualVector(static_cast<int>(i) + 1);
        const LpRow& row = lp.Rows[i];
        if (row.Relation == '<') {
            EXPECT_GE(price, -kTolerance) << "row " << i + 1;
        }
        if (row.Relation == '>') {
            EXPECT_LE(price, kTolerance) << "row " << i + 1;
        }
        EXPECT_LE(std::abs(price * (row.RightHandSide - Activity(row, values))), 1e-2) << "row " << i + 1;
        dual += price * row.RightHandSide;
    }
    const double scale = 1 + std::abs(primal);
    EXPECT_NEAR(Objective(), primal, 1e-6 * scale);
    EXPECT_NEAR(sense * primal, dual, 1e-5 * scale);
}

TEST_F(LpEngine, RandomSolutionsFulfilTheOptimalityConditions)
{
    std::mt19937 random(21);
    int solved = 0;
    for (int round = 0; round < 4000; ++round) {
        const Shape shape = round % 2 == 0 ? Shape{5, 6, 0.8} : Shape{10, 14, 0.5};
        const Lp lp = RandomLp(random, shape);
        Solve(lp);
        if (!HasSolution()) continue;
        ++solved;
        ExpectOptimal(lp);
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_GT(solved, 1000);
}

TEST_F(LpEngine, LargeRandomSolutionsFulfilTheOptimalityConditions)
{
    std::mt19937 random(22);
    int solved = 0;
    for (int round = 0; round < 30; ++round) {
        Lp lp = RandomLp(random, {50, 100, 0.3});
        for (LpRow& row : lp.Rows) {
            row.Relation = lp.Minimize ? '>' : '<';
            for (double& coefficient : row.Coefficients)
                coefficient = std::abs(coefficient) + (lp.Minimize ? 1 : 0);
        }
        Solve(lp);
        if (!HasSolution()) continue;
        ++solved;
        ExpectOptimal(lp);
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_GT(solved, 10);
}

// Solves a square system by elimination; nothing when it has no single solution.
std::optional<std::vector<double>> SolveSquare(std::vector<std::vector<double>> a, std::vector<double> b)
{
    const std::size_t n = b.size();
    for (std::size_t k = 0; k < n; ++k) {
        std::size_t pivot = k;
        for (std::size_t i = k; i < n; ++i)
            if (std::abs(a[i][k]) > std::abs(a[pivot][k])) pivot = i;
        if (std::abs(a[pivot][k]) < 1e-9) return std::nullopt;
        std::swap(a[k], a[pivot]);
        std::swap(b[k], b[pivot]);
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            const double factor = a[i][k] / a[k][k];
            for (std::size_t j = k; j < n; ++j)
                a[i][j] -= factor * a[k][j];
            b[i] -= factor * b[k];
        }
    }
    for (std::size_t k = 0; k < n; ++k)
        b[k] /= a[k][k];
    return b;
}

// The best corner of a two-variable problem: every crossing of two lines that is feasible.
std::optional<double> BestCorner(const Lp& lp)
{
    std::vector<LpRow> lines = lp.Rows;
    lines.push_back({{1, 0}, '>', 0});
    lines.push_back({{0, 1}, '>', 0});
    std::optional<double> best;
    for (std::size_t i = 0; i < lines.size(); ++i)
        for (std::size_t k = 0; k < i; ++k) {
            const auto corner = SolveSquare({lines[i].Coefficients, lines[k].Coefficients},
                                            {lines[i].RightHandSide, lines[k].RightHandSide});
            if (!corner || Violation(lp, *corner) > 1e-7) continue;
            const double value = lp.Objective[0] * (*corner)[0] + lp.Objective[1] * (*corner)[1];
            if (!best || (lp.Minimize ? value < *best : value > *best)) best = value;
        }
    return best;
}

TEST_F(LpEngine, TwoVariableProblemsHaveTheValueOfTheirBestCorner)
{
    std::mt19937 random(23);
    int solved = 0;
    int infeasible = 0;
    for (int round = 0; round < 2000; ++round) {
        Lp lp = RandomLp(random, {5, 2, 0.9});
        if (lp.Objective.size() != 2) continue;
        Solve(lp);
        const std::optional<double> best = BestCorner(lp);
        if (HasSolution()) {
            ++solved;
            ASSERT_TRUE(best) << "round " << round;
            EXPECT_NEAR(Objective(), *best, 1e-4 * (1 + std::abs(*best))) << "round " << round;
        } else if (Result.End == Outcome::Infeasible) {
            ++infeasible;
            EXPECT_FALSE(best) << "round " << round;
        }
    }
    EXPECT_GT(solved, 400);
    EXPECT_GT(infeasible, 100);
}

}  // namespace
