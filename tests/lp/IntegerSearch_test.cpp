#include "lp/IntegerSearch.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "lp/IntegerTypes.h"
#include "lp/LP_Engine.h"
#include "lp/VtLP.h"
#include "lp/lp_problem.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "support/fake_desktop.h"

namespace {

using LP_Engine::Outcome;
using LP_Engine::Result;
using testing::ElementsAre;

// A user who breaks off what has not ended after half a second.
class ImpatientScreen : public FakeScreen {
public:
    bool Interrupted() override { return ++asked > 5; }  // asked every 100 ms

    int asked = 0;
};

class IntegerSearch : public testing::Test {
protected:
    IntegerSearch()
    {
        Session = {};
        Menus.Reset();
        desktop::Install({&desktop.dialogs, &screen, &desktop.forms, &desktop.printer});
    }

    ErrorNumber ErrorOf(const Lp& lp, const std::vector<std::string>& types)
    {
        screen.asked = 0;
        SolveInteger(lp, types);
        const bool broken = Result.End == Outcome::Interrupted || Result.End == Outcome::OutOfRoom;
        return broken ? Result.Error : kNoError;
    }

    static constexpr ErrorNumber kNoError = ErrorNumber::AlreadyLoaded;  // none of the engine's
    FakeDesktop desktop;
    ImpatientScreen screen;
};

// Tables and chairs at 8 and 5: x + y <= 6 hours, 9x + 5y <= 45 feet. Relaxed it is 3.75 and 2.25 for 41.25;
// in whole numbers five tables for 40.
const Lp kTables{false, {8, 5}, {{{1, 1}, '<', 6}, {{9, 5}, '<', 45}}};

TEST_F(IntegerSearch, SolvesTheTablesAndChairsInWholeNumbers)
{
    SolveInteger(kTables, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(5, 0));
    EXPECT_EQ(Objective(), 40);
}

// Four investments worth 16, 22, 12, 8 that cost 5, 7, 4, 3 of 14: the last three for 42.
const Lp kInvestments{false, {16, 22, 12, 8}, {{{5, 7, 4, 3}, '<', 14}}};

TEST_F(IntegerSearch, SolvesTheInvestmentsAsYesOrNo)
{
    SolveInteger(kInvestments, {"DBI"});
    EXPECT_THAT(Values(), ElementsAre(0, 1, 1, 1));
    EXPECT_EQ(Objective(), 42);
}

// Six towns, a fire station within reach of each: towns 2 and 4 are enough.
TEST_F(IntegerSearch, CoversTheTownsWithTwoStations)
{
    SolveInteger({true,
                  {1, 1, 1, 1, 1, 1},
                  {{{1, 1, 0, 0, 0, 0}, '>', 1},
                   {{1, 1, 0, 0, 0, 1}, '>', 1},
                   {{0, 0, 1, 1, 0, 0}, '>', 1},
                   {{0, 0, 1, 1, 1, 0}, '>', 1},
                   {{0, 0, 0, 1, 1, 1}, '>', 1},
                   {{0, 1, 0, 0, 1, 1}, '>', 1}}},
                 {"DBI"});
    EXPECT_NEAR(Objective(), 2, 1e-9);
    EXPECT_NEAR(Values()[1] + Values()[3], 2, 1e-9);
}

// ---- type lines ----

TEST_F(IntegerSearch, TheWordsForAllVariablesMakeAllWhole)
{
    SolveInteger(kTables, {"DIN"});
    EXPECT_EQ(Result.IntegerCount, 2);
    EXPECT_EQ(Result.Basis.UpperBound(3), LP_Engine::EngineInfinity);  // the first slack
    SolveInteger(kTables, {"DBI"});
    EXPECT_EQ(Result.IntegerCount, 2);
    EXPECT_THAT(Values(), ElementsAre(1, 1));
}

// Relaxed and with x whole alone: x = 3 or 4; 4 leaves y = 1.8 for 41, which is more than 3 and 3.
TEST_F(IntegerSearch, AListMakesItsVariablesWholeAndNoOther)
{
    SolveInteger(kTables, {"INT", "X1", ""});
    EXPECT_EQ(Result.IntegerCount, 1);
    EXPECT_NEAR(Values()[0], 4, 1e-9);
    EXPECT_NEAR(Values()[1], 1.8, 1e-9);
}

TEST_F(IntegerSearch, AListMaySwitchItsKindBothWays)
{
    SolveInteger(kTables, {"BIN", "X1", "INT", "X2", ""});
    EXPECT_EQ(Result.IntegerCount, 2);
    EXPECT_THAT(Values(), ElementsAre(1, 5));
    SolveInteger(kTables, {"INT", "X2", "BIN", "X1", ""});
    EXPECT_THAT(Values(), ElementsAre(1, 5));
}

TEST_F(IntegerSearch, ANameThatIsListedTwiceCountsOnceWithItsLastKind)
{
    SolveInteger(kTables, {"BIN", "X1", "INT", "X1", ""});
    EXPECT_EQ(Result.IntegerCount, 1);
    EXPECT_EQ(Values()[0], 4);
}

TEST_F(IntegerSearch, NamesAreReadInCapitalsAndUnknownOnesPassedOver)
{
    SolveInteger(kTables, {"INT", "x1", "Q", ""});
    EXPECT_EQ(Result.IntegerCount, 1);
}

TEST_F(IntegerSearch, AStoredNameWithSmallLettersIsNeverFound)
{
    SetProblem(kTables);
    VtLP::Problem.LpVariableNames(1) = "desk";
    VtLP::Problem.LpLines(5) = "INT";
    VtLP::Problem.LpLines(6) = "desk";
    SolveModel(true);
    EXPECT_EQ(Result.IntegerCount, 0);
    EXPECT_NEAR(Objective(), 41.25, 1e-9);
}

TEST_F(IntegerSearch, AnotherWordOrNoneLeavesALinearProgram)
{
    SolveInteger(kTables, {"ALL"});
    EXPECT_NEAR(Objective(), 41.25, 1e-9);
    EXPECT_EQ(Result.Tree.Visits, 0);
    SolveInteger(kTables, {});
    EXPECT_NEAR(Objective(), 41.25, 1e-9);
    SolveInteger(kTables, {"BIN", "INT", ""});
    EXPECT_NEAR(Objective(), 41.25, 1e-9);
}

TEST_F(IntegerSearch, AnIntegerProgramHasNoTypeLinesOfALinearOne)
{
    SetProblem(kTables);
    VtLP::Problem.LpLines(5) = "DIN";
    SolveModel();
    EXPECT_NEAR(Objective(), 41.25, 1e-9);
}

// ---- the choice on the form ----

using VtLP::IntegerChoice;
using VtLP::IntegerKind;

std::vector<std::string> TypeLines(int count)
{
    std::vector<std::string> lines;
    lines.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        lines.push_back(VtLP::Problem.LpLines(VtLP::TypeLine() + i));
    return lines;
}

TEST_F(IntegerSearch, AChoiceOfSeveralTypesIsStoredAsTwoLists)
{
    SetProblem(kInvestments);
    VtLP::StoreIntegerChoice(
        {IntegerKind::Multiple, {true, false, true, false}, {false, true, false, false}});
    EXPECT_THAT(TypeLines(6), ElementsAre("BIN", "X1", "X3", "INT", "X2", ""));
    const IntegerChoice stored = VtLP::StoredIntegerChoice();
    EXPECT_EQ(stored.Kind, IntegerKind::Multiple);
    EXPECT_THAT(stored.Binary, ElementsAre(true, false, true, false));
    EXPECT_THAT(stored.General, ElementsAre(false, true, false, false));
}

TEST_F(IntegerSearch, AShorterChoiceLeavesNothingOfALongerOne)
{
    SetProblem(kInvestments);
    VtLP::StoreIntegerChoice({IntegerKind::Multiple, {true, true, true, true}, std::vector<bool>(4)});
    VtLP::StoreIntegerChoice({IntegerKind::Multiple, std::vector<bool>(4), {true, false, false, false}});
    EXPECT_THAT(VtLP::StoredIntegerChoice().Binary, ElementsAre(false, false, false, false));
    EXPECT_THAT(VtLP::StoredIntegerChoice().General, ElementsAre(true, false, false, false));
}

TEST_F(IntegerSearch, OfANameInBothListsTheLastCounts)
{
    SetProblem(kInvestments);
    VtLP::StoreIntegerChoice({IntegerKind::Multiple, {true, false, false, true}, {true, false, false, true}});
    EXPECT_THAT(TypeLines(7), ElementsAre("BIN", "X1", "X4", "INT", "X1", "X4", ""));
    const IntegerChoice stored = VtLP::StoredIntegerChoice();
    EXPECT_THAT(stored.Binary, ElementsAre(false, false, false, false));
    EXPECT_THAT(stored.General, ElementsAre(true, false, false, true));
}

TEST_F(IntegerSearch, AChoiceForAllVariablesIsOneWord)
{
    SetProblem(kInvestments);
    VtLP::StoreIntegerChoice({IntegerKind::AllBinary, {}, {}});
    EXPECT_THAT(TypeLines(1), ElementsAre("DBI"));
    EXPECT_EQ(VtLP::StoredIntegerChoice().Kind, IntegerKind::AllBinary);
    VtLP::StoreIntegerChoice({IntegerKind::AllGeneral, {}, {}});
    EXPECT_THAT(TypeLines(1), ElementsAre("DIN"));
    EXPECT_EQ(VtLP::StoredIntegerChoice().Kind, IntegerKind::AllGeneral);
}

TEST_F(IntegerSearch, WithoutAnEarlierAnswerNothingIsChosen)
{
    SetProblem(kInvestments);
    const IntegerChoice stored = VtLP::StoredIntegerChoice();
    EXPECT_EQ(stored.Kind, IntegerKind::Multiple);
    EXPECT_THAT(stored.Binary, ElementsAre(false, false, false, false));
}

// ---- the search ----

TEST_F(IntegerSearch, AWholeRelaxationNeedsNoBranch)
{
    SolveInteger({false, {3, 5}, {{{1, 0}, '<', 4}, {{0, 2}, '<', 12}, {{3, 2}, '<', 18}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(2, 6));
    EXPECT_EQ(Result.Basis.UpperBound(1), LP_Engine::EngineInfinity);
}

// Both are 1/2 above a whole number: 7.5 is branched on first, and its upper branch is taken first. x >= 8
// leaves nothing for either row, so that its bound stays at the other branch.
TEST_F(IntegerSearch, AmongEqualFractionsTheLargerValueIsBranchedOn)
{
    SolveInteger({false, {1, 10}, {{{2, 0}, '<', 5}, {{0, 2}, '<', 15}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(2, 7));
    EXPECT_EQ(Result.Basis.UpperBound(1), 2);
    EXPECT_EQ(Result.Basis.UpperBound(2), 7);
    EXPECT_EQ(Result.Tree.Nodes(0).BranchingColumn, 2);
    SolveInteger({false, {10, 1}, {{{2, 0}, '<', 5}, {{0, 2}, '<', 15}}},
                 {"DIN"});  // now it is the second position
    EXPECT_EQ(Result.Tree.Nodes(0).BranchingColumn, 2);
}

TEST_F(IntegerSearch, AmongEqualFractionsOfEqualValuesTheFirstIsBranchedOn)
{
    SolveInteger({false, {1, 1}, {{{2, 0}, '<', 5}, {{0, 2}, '<', 5}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(2, 2));
    EXPECT_EQ(Result.Tree.Nodes(0).BranchingColumn, 1);
}

// y = 7.5 stays a fraction.
TEST_F(IntegerSearch, AVariableThatNeedNotBeWholeIsNotBranchedOn)
{
    SolveInteger({false, {1, 10}, {{{2, 0}, '<', 5}, {{0, 2}, '<', 15}}}, {"INT", "X1"});
    EXPECT_THAT(Values(), ElementsAre(2, 7.5));
    EXPECT_EQ(Result.Tree.Nodes(0).BranchingColumn, 1);
}

// x + y - z = 2.5, and nothing has a cost. The root has x = 2.5; x >= 3 is seen first and leaves z = 0.5, x
// <= 2 leaves y = 0.5.
const Lp kTwoRoads{false, {0, 0, 0}, {{{1, 1, -1}, '=', 2.5}}};

TEST_F(IntegerSearch, OfEqualWholeSolutionsTheFirstStays)
{
    SolveInteger(kTwoRoads, {"INT", "X1"});
    EXPECT_THAT(Values(), ElementsAre(3, 0, 0.5));
    EXPECT_EQ(Result.Tree.IncumbentNode, 3);
    EXPECT_EQ(Result.Tree.IncumbentIndex, 3);
    EXPECT_EQ(Result.Tree.Nodes(2).Became, LP_Engine::Fate::Whole);
    EXPECT_FALSE(Result.Tree.Nodes(2).TookOver);
}

TEST_F(IntegerSearch, ANodeThatIsOnlyAsGoodIsNotBetterNotEvenByLittle)
{
    SolveInteger(kTwoRoads, {"INT", "X1", "X2"});
    EXPECT_THAT(Values(), ElementsAre(3, 0, 0.5));
    EXPECT_EQ(Result.Tree.Nodes(2).Became, LP_Engine::Fate::NotBetter);
}

// x must be 1 and may be no more: it goes to its bound at once, and comes in from there with the first pivot.
TEST_F(IntegerSearch, ADualStepAsLongAsTheRoomGoesToTheBound)
{
    SolveInteger({false, {-2}, {{{-1}, '<', -1}}}, {"DBI"});
    EXPECT_THAT(Values(), ElementsAre(1));
    EXPECT_EQ(Result.PivotCount, 1);
}

// Nothing but its own bound keeps x from growing.
TEST_F(IntegerSearch, AColumnWithABoundIsNotUnbounded)
{
    SolveInteger({false, {5}, {{{0}, '<', 10}}}, {"DBI"});
    EXPECT_EQ(Result.End, Outcome::Optimal);
    EXPECT_THAT(Values(), ElementsAre(1));
}

// 0.9 and 3.5: the larger fraction is branched on, though 0.5 is further from a whole number. With x >= 1
// infeasible and x <= 0, y <= 3 follow; the last bound on the way is that of y.
TEST_F(IntegerSearch, TheLargestFractionIsBranchedOnFirst)
{
    SolveInteger({false, {1, 1}, {{{10, 0}, '<', 9}, {{0, 2}, '<', 7}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(0, 3));
}

// 10x + 2y <= 20 and 2y <= 3: relaxed it is (1.7, 1.5), and x is branched on. x >= 2 gives the whole (2, 0),
// worth 1. x <= 1 promises (1, 1.5), behind which (1, 1) lies.
Lp PromiseOf(double y)
{
    return {false, {.5, y}, {{{10, 2}, '<', 20}, {{0, 2}, '<', 3}}};
}

// 0.5 + 1.5 = 2 is a gain of exactly 1: not enough, though (1, 1) would be worth 1.5.
TEST_F(IntegerSearch, ANodeThatPromisesAGainOfOneIsCutOff)
{
    SolveInteger(PromiseOf(1), {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(2, 0));
    EXPECT_EQ(Objective(), 1);
    EXPECT_EQ(Result.Tree.Nodes(2).Became, LP_Engine::Fate::NotBetterByGain);
}

// 0.5 + 1.5 * 1.02 = 2.03 is more.
TEST_F(IntegerSearch, ANodeThatPromisesAGainOfMoreThanOneIsSearched)
{
    SolveInteger(PromiseOf(1.02), {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(1, 1));
    EXPECT_NEAR(Objective(), 1.52, 1e-9);
    EXPECT_EQ(Result.Tree.Nodes(2).Became, LP_Engine::Fate::Branched);
}

TEST_F(IntegerSearch, ValuesAHairBelowAWholeNumberMoveUpToIt)
{
    SolveInteger({false, {1}, {{{1}, '<', 2.999995}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(3));
    SolveInteger({false, {1}, {{{1}, '<', 2.9999}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(2));
}

TEST_F(IntegerSearch, AValueAsFarFromAWholeNumberAsTheToleranceIsWhole)
{
    SolveInteger({false, {1}, {{{1}, '<', 0.00001}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(0.00001));
    SolveInteger({false, {1}, {{{1}, '<', 0.000011}}}, {"DIN"});
    EXPECT_THAT(Values(), ElementsAre(0));
}

// ---- ends ----

TEST_F(IntegerSearch, AnUnboundedRelaxationIsTold)
{
    SolveInteger({false, {1, 1}, {{{1, -1}, '<', 4}}}, {"DIN"});
    EXPECT_EQ(Result.End, Outcome::Unbounded);
}

TEST_F(IntegerSearch, ARootWithoutAFeasiblePointIsTold)
{
    SolveInteger({false, {1}, {{{1}, '<', 4}, {{1}, '>', 6}}}, {"DIN"});
    EXPECT_EQ(Result.End, Outcome::Infeasible);
    EXPECT_TRUE(Result.Tree.Nodes(0).InPhaseOne);
}

// 2x = 1 has no whole solution: the tree is exhausted, and the search goes round until it is broken off.
TEST_F(IntegerSearch, WithoutAWholeSolutionItGoesOnUntilTheUserBreaksItOff)
{
    EXPECT_EQ(ErrorOf({false, {1}, {{{-2}, '<', -1}, {{2}, '<', 1}}}, {"DIN"}), ErrorNumber::UserInterrupt);
    EXPECT_TRUE(Result.Tree.Exhausted);
    // 6x - 3y = 20 with 3y <= 1: x = 10/3, and x <= 3 is tried last.
    EXPECT_EQ(ErrorOf({true, {8, 7}, {{{6, -3}, '=', 20}, {{0, 3}, '<', 1}}}, {"DIN"}),
              ErrorNumber::UserInterrupt);
    EXPECT_EQ(Result.Basis.ColumnStatus(1), LP_Engine::kAboveUpper);
}

TEST_F(IntegerSearch, ABoundBeyondSixteenBitsIsAnOverflow)
{
    EXPECT_EQ(ErrorOf({false, {1}, {{{2}, '<', 65533}}}, {"DIN"}), kNoError);  // 32766.5
    EXPECT_THAT(Values(), ElementsAre(32766));
    EXPECT_EQ(ErrorOf({false, {1}, {{{2}, '<', 65535}}}, {"DIN"}), ErrorNumber::Overflow);  // 32767.5
}

// Many variables with half a unit each: a chain of upper branches runs into the node numbers' 16 bits.
TEST_F(IntegerSearch, ANodeNumberBeyondSixteenBitsIsAnOverflow)
{
    Lp lp{false, std::vector<double>(20, 100.0), {}};
    for (std::size_t j = 0; j < 20; ++j) {
        LpRow row{std::vector<double>(20, 0.0), '<', 3};
        row.Coefficients[j] = 2;
        lp.Rows.push_back(row);
    }
    EXPECT_EQ(ErrorOf(lp, {"DIN"}), ErrorNumber::Overflow);
}

// One row that much fits into: the search goes wide.
TEST_F(IntegerSearch, TheFiftiethBranchingIsASubscriptOutOfRange)
{
    EXPECT_EQ(ErrorOf({false, {4, 4, 2, 12, 10}, {{{16, 15, 7, 7, 20}, '<', 73}}}, {"DIN"}),
              ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(Result.Tree.RecordCount, 100);  // the room is for 100, and the first is not used
}

// ---- exhaustive search ----

// The best whole point of a box; all rows are "<" with coefficients of zero or more, so that zero is
// feasible.
double BestWholePoint(const Lp& lp, int most)
{
    double best = 0;
    std::vector<double> point(lp.Objective.size(), 0.0);
    for (;;) {
        if (Violation(lp, point) <= 1e-9) best = std::max(best, Activity({lp.Objective, '=', 0}, point));
        std::size_t j = 0;
        while (j < point.size() && ++point[j] > most)
            point[j++] = 0;
        if (j == point.size()) return best;
    }
}

Lp RandomKnapsacks(std::mt19937& random, bool binary)
{
    const auto whole = [&random](int least, int most) {
        return static_cast<double>(std::uniform_int_distribution<int>(least, most)(random));
    };
    Lp lp;
    const int n = static_cast<int>(whole(2, binary ? 8 : 3));
    const int m = static_cast<int>(whole(1, 3));
    for (int j = 0; j < n; ++j)
        lp.Objective.push_back(whole(1, 30));
    for (int i = 0; i < m; ++i) {
        LpRow row;
        for (int j = 0; j < n; ++j)
            row.Coefficients.push_back(whole(binary ? 0 : 4, 15));
        row.RightHandSide = whole(10, 40);
        lp.Rows.push_back(row);
    }
    return lp;
}

// Solutions are whole and feasible, and fall short of the best by 1 at most: so much may be cut off. Bounds
// are compared without a tolerance, so that now and then a value that misses its own by the last bit closes a
// node for nothing.
class AllPoints : public IntegerSearch {
protected:
    void Compare(unsigned seed, bool binary)
    {
        std::mt19937 random(seed);
        int solved = 0;
        int missed = 0;
        for (int round = 0; round < 600; ++round) {
            const Lp lp = RandomKnapsacks(random, binary);
            if (ErrorOf(lp, {binary ? "DBI" : "DIN"}) != kNoError) continue;
            if (Result.End != Outcome::Optimal) continue;  // bounds of basic columns stop no ray
            ++solved;
            const std::vector<double> values = Values();
            for (const double value : values)
                ASSERT_NEAR(value, std::round(value), 1e-4) << "round " << round;
            ASSERT_LE(Violation(lp, values), 1e-3) << "round " << round;
            const double best = BestWholePoint(lp, binary ? 1 : 10);
            ASSERT_LE(Objective(), best + 1e-3) << "round " << round;
            if (Objective() < best - 1 - 1e-3) ++missed;
        }
        EXPECT_GT(solved, 500);
        EXPECT_LE(missed, 3);
    }
};

TEST_F(AllPoints, WholeSolutionsAreWithinOneOfTheBestOfAllPoints)
{
    Compare(41, false);
}

TEST_F(AllPoints, YesOrNoSolutionsAreWithinOneOfTheBestOfAllPoints)
{
    Compare(42, true);
}

}  // namespace
