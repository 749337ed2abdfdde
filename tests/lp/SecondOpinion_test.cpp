#include "lp/SecondOpinion.h"

#include <gmock/gmock.h>

#include <chrono>
#include <cmath>
#include <random>
#include <stop_token>
#include <thread>

#include "lp/lp_problem.h"
#include "support/fake_desktop.h"

namespace {

using LP_Engine::OtherEnd;
using LP_Engine::OtherResult;
using LP_Engine::Outcome;
using LP_Engine::Result;
using testing::ElementsAre;
using testing::HasSubstr;

class SecondOpinion : public testing::Test {
protected:
    static std::vector<std::string> Told(const OtherResult& other)
    {
        std::vector<std::string> texts;
        for (const picture::Sentence& sentence : LP_Engine::Compared(Result, other))
            texts.push_back(sentence.Text);
        return texts;
    }

    static OtherResult Plan(std::vector<double> values, double objective)
    {
        return {OtherEnd::Optimal, true, std::move(values), objective};
    }

    FakeDesktop desktop;
};

const Lp kDoors{false, {3, 5}, {{{1, 0}, '<', 4}, {{0, 2}, '<', 12}, {{3, 2}, '<', 18}}};

// ---- what is told ----

TEST_F(SecondOpinion, TheSamePlan)
{
    Solve(kDoors);
    EXPECT_THAT(Told(Plan({2, 6}, 36)), ElementsAre("A second solver found the same plan."));
}

TEST_F(SecondOpinion, AnotherPlanWithTheSameValue)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}}});
    EXPECT_THAT(
        Told(Plan({1, 3}, 4)),
        ElementsAre("A second solver found another plan with the same value: 1.000 of X1 and 3.000 of X2."));
}

// Values count as the same up to a millionth.
TEST_F(SecondOpinion, ABetterPlanIsOneByMoreThanAMillionth)
{
    Solve(kDoors);
    EXPECT_THAT(Told(Plan({2, 6}, 36.00003)), ElementsAre("A second solver found the same plan."));
    EXPECT_THAT(Told(Plan({2, 6.1}, 36.0001)).front(), HasSubstr("a better plan, with the value 36.000"));
    EXPECT_THAT(Told(Plan({2, 5}, 31)).front(), HasSubstr("nothing better than 31.000"));
}

TEST_F(SecondOpinion, AMinimisationIsBetterBelow)
{
    Solve({true, {5, 2}, {{{1, 1}, '>', 1}}});
    EXPECT_THAT(Told(Plan({0, .5}, 1)).front(), HasSubstr("a better plan"));
    EXPECT_THAT(Told(Plan({1, 0}, 5)).front(), HasSubstr("nothing better"));
}

TEST_F(SecondOpinion, EndsWithoutAPlan)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 1}, '>', 6}}});
    EXPECT_THAT(Told({.End = OtherEnd::Infeasible}),
                ElementsAre("A second solver says the same: no plan keeps to all limits."));
    EXPECT_THAT(Told({.End = OtherEnd::Unbounded}),
                ElementsAre("A second solver says that the value improves without end."));
    EXPECT_THAT(Told({.End = OtherEnd::TimeOut}),
                ElementsAre("Two seconds were not enough for a second opinion."));
    EXPECT_THAT(Told({.End = OtherEnd::NotInstalled}),
                ElementsAre("Nothing was checked by a second solver: none is installed."));
}

TEST_F(SecondOpinion, APlanThatWasNotConfirmedIsNotTold)
{
    Solve(kDoors);
    EXPECT_THAT(Told({.End = OtherEnd::Optimal, .HasPlan = false, .Values = {9, 9}, .Objective = 72}),
                ElementsAre(HasSubstr("nothing is told of it")));
}

// x = y + z and x <= 5: max 3z is 15, which the method takes for unbounded until the first row is turned
// round.
TEST_F(SecondOpinion, AnOptimumOfAProblemToldUnboundedNamesTheRowsToTurnRound)
{
    Solve({false, {0, 0, 3}, {{{1, -1, -1}, '=', 0}, {{1, 0, 0}, '<', 5}, {{0, 1, 0}, '>', 0}}});
    ASSERT_EQ(Result.End, Outcome::Unbounded);
    EXPECT_THAT(
        Told(Plan({5, 0, 5}, 15)),
        ElementsAre("A second solver found a best plan, with the value 15.000: 5.000 of X1 and 5.000 of X3.",
                    "With all signs of limit 1 turned round the method finds it, too."));
}

// ---- what is checked ----

TEST_F(SecondOpinion, APlanKeepsToLimitsUpToAMillionth)
{
    Solve(kDoors);
    EXPECT_TRUE(LP_Engine::KeepsToLimits(Result, {2, 6}));
    EXPECT_TRUE(LP_Engine::KeepsToLimits(Result, {2, 6.000001}));
    EXPECT_FALSE(LP_Engine::KeepsToLimits(Result, {2, 6.0001}));
    EXPECT_FALSE(LP_Engine::KeepsToLimits(Result, {-0.001, 6}));
}

TEST_F(SecondOpinion, APlanIsWholeWhereItMustBe)
{
    SolveInteger(kDoors, {"INT", "X1", ""});
    EXPECT_TRUE(LP_Engine::KeepsToLimits(Result, {2, 5.5}));
    EXPECT_FALSE(LP_Engine::KeepsToLimits(Result, {1.5, 5}));
    SolveInteger(kDoors, {"DBI"});
    EXPECT_TRUE(LP_Engine::KeepsToLimits(Result, {1, 1}));
    EXPECT_FALSE(LP_Engine::KeepsToLimits(Result, {2, 1}));
}

TEST_F(SecondOpinion, RowsWithEqualAndGreaterAreKeptOnBothSides)
{
    Solve({true, {1, 1}, {{{1, 1}, '=', 4}, {{1, 0}, '>', 1}}});
    EXPECT_TRUE(LP_Engine::KeepsToLimits(Result, {1, 3}));
    EXPECT_FALSE(LP_Engine::KeepsToLimits(Result, {1, 3.1}));
    EXPECT_FALSE(LP_Engine::KeepsToLimits(Result, {0.9, 3.1}));
    EXPECT_FALSE(LP_Engine::KeepsToLimits(Result, {1, 2.9}));
}

// ---- the solver itself ----

#ifdef VANTREL_OPINION_FOLDER

TEST_F(SecondOpinion, TheOtherSolverTellsOptimumInfeasibleAndUnbounded)
{
    LP_Engine::SetOpinionFolder(VANTREL_OPINION_FOLDER);
    Solve(kDoors);
    const OtherResult doors = LP_Engine::AskOther(Result);
    ASSERT_EQ(doors.End, OtherEnd::Optimal);
    EXPECT_TRUE(doors.HasPlan);
    EXPECT_NEAR(doors.Objective, 36, 1e-6);
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 1}, '>', 6}}});
    EXPECT_EQ(LP_Engine::AskOther(Result).End, OtherEnd::Infeasible);
    Solve({false, {1, 1}, {{{1, -1}, '<', 4}}});
    EXPECT_EQ(LP_Engine::AskOther(Result).End, OtherEnd::Unbounded);
    SolveInteger({false, {4, 4, 2, 12, 10}, {{{16, 15, 7, 7, 20}, '<', 73}}}, {"DIN"});
    EXPECT_EQ(LP_Engine::AskOther(Result).Objective, 120);
}

// Equal halves of random weights, in five rows at once: many seconds for any branch and bound (G. Cornuejols,
// M. Dawande, 1998).
Lp MarketSplit()
{
    constexpr int kRows = 5;
    constexpr int kColumns = 40;
    std::mt19937 random(5);
    Lp lp{false, std::vector<double>(kColumns, 1), {}};
    for (int i = 0; i < kRows; ++i) {
        LpRow row{{}, '=', 0};
        double sum = 0;
        for (int j = 0; j < kColumns; ++j) {
            row.Coefficients.push_back(std::uniform_int_distribution<int>(0, 99)(random));
            sum += row.Coefficients.back();
        }
        row.RightHandSide = std::floor(sum / 2);
        lp.Rows.push_back(row);
    }
    return lp;
}

TEST_F(SecondOpinion, AnInquiryEndsAtOnceWhenItIsToldToStop)
{
    LP_Engine::SetOpinionFolder(VANTREL_OPINION_FOLDER);
    desktop.screen.escapePressed = true;  // the search itself does not matter
    SolveInteger(MarketSplit(), {"DBI"});
    const auto begun = std::chrono::steady_clock::now();
    std::stop_source stop;
    std::thread patience([&stop] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        stop.request_stop();
    });
    const OtherResult other = LP_Engine::AskOther(Result, stop.get_token());
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begun;
    patience.join();
    EXPECT_EQ(other.End, OtherEnd::Failed);
    EXPECT_GE(taken.count(), 0.2);
    EXPECT_LT(taken.count(), 1);  // the solver would take two seconds
    EXPECT_EQ(LP_Engine::AskOther(Result, stop.get_token()).End, OtherEnd::Failed);
}

#endif

}  // namespace
