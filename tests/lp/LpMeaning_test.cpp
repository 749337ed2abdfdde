#include "lp/LpMeaning.h"

#include <gmock/gmock.h>

#include "lp/LpSteps.h"
#include "lp/VtLP.h"
#include "lp/lp_problem.h"
#include "support/fake_desktop.h"

namespace {

using LP_Engine::Outcome;
using LP_Engine::Result;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// A user who breaks off what has not ended after half a second, and leaves alone what comes after it.
class ImpatientScreen : public FakeScreen {
public:
    bool Interrupted() override { return ++asked == 5; }  // asked every 100 ms

    int asked = 0;
};

class LpMeaning : public testing::Test {
protected:
    LpMeaning() { desktop::Install({&desktop.dialogs, &screen, &desktop.forms, &desktop.printer}); }

    static std::vector<std::string> Told()
    {
        std::vector<std::string> texts;
        for (const picture::Sentence& sentence : LP_Engine::Meaning(Result))
            texts.push_back(sentence.Text);
        return texts;
    }

    static void ExpectSaid(const std::string& text) { EXPECT_THAT(Told(), Contains(HasSubstr(text))); }
    static void ExpectNotSaid(const std::string& text)
    {
        EXPECT_THAT(Told(), Not(Contains(HasSubstr(text))));
    }

    FakeDesktop desktop;
    ImpatientScreen screen;
};

const Lp kDoors{false, {3, 5}, {{{1, 0}, '<', 4}, {{0, 2}, '<', 12}, {{3, 2}, '<', 18}}};

TEST_F(LpMeaning, OfTheDoorsAndWindows)
{
    Solve(kDoors);
    EXPECT_THAT(
        Told(),
        ElementsAre(
            "Make 2.000 of X1 and 6.000 of X2; the value is 36.000.",
            "Limits 2 and 3 are used up; limit 1 has 2.000 to spare.",
            "Up to 18.000, each further unit on the right of limit 2 improves the value by 1.500; beyond "
            "that by less.",
            "Up to 24.000, each further unit on the right of limit 3 improves the value by 1.000; beyond "
            "that by less."));
}

TEST_F(LpMeaning, AMinimisationImprovesDownwards)
{
    Solve({true, {5, 2}, {{{1, 1}, '>', 1}}});
    EXPECT_THAT(Told(),
                ElementsAre("Make 1.000 of X2 and nothing of X1; the value is 2.000.", "Limit 1 is used up.",
                            "Down to 0.000, each unit less on the right of limit 1 improves the value by "
                            "2.000; beyond that by less."));
}

TEST_F(LpMeaning, APlanOfNothingSaysSo)
{
    Solve({false, {-1}, {{{1}, '<', 4}}});
    ExpectSaid("Make nothing: all variables are 0; the value is 0.000.");
    ExpectSaid("No limit is used up; limit 1 has 4.000 to spare.");
}

// The range of a degenerate corner ends at the present value on the side that would gain.
TEST_F(LpMeaning, ARangeWithoutRoomPromisesNothing)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 0}, '<', 4}, {{0, 1}, '<', 0}}});
    ExpectSaid("cannot be told from its price: the range ends at the present");
    Solve(kDoors);
    ExpectNotSaid("cannot be told");
}

TEST_F(LpMeaning, LessThanAUnitOfRoomIsARate)
{
    Solve({false, {1, 1}, {{{1, 0}, '<', 1}, {{1, 1}, '<', 1.5}}});
    ExpectNotSaid("at a rate of");
    Solve({false, {2, 1}, {{{1, 0}, '<', 1}, {{1, 1}, '<', 1.5}}});
    ExpectSaid("Up to 1.500, more on the right of limit 1 improves the value at a rate of 1.000 a unit");
}

TEST_F(LpMeaning, AnotherPlanIsToldWhereAColumnCanComeIn)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}}});
    ExpectSaid("Another plan is just as good: X2 can come in without a change of the value.");
    Solve(kDoors);
    ExpectNotSaid("Another plan");
}

// y could come in at no cost, but the second row keeps it at 0.
TEST_F(LpMeaning, AZeroReducedCostWithoutRoomIsNoOtherPlan)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{0, 1}, '<', 0}}});
    ExpectNotSaid("Another plan");
}

TEST_F(LpMeaning, MeetingLimitsAreToldWhereABasicColumnIsZero)
{
    Solve({false, {1, 0}, {{{1, 1}, '<', 4}, {{1, 0}, '<', 4}}});
    ExpectSaid("More limits meet in this plan");
    Solve(kDoors);
    ExpectNotSaid("More limits meet");
}

TEST_F(LpMeaning, AValueWithoutLimitIsTold)
{
    Solve({false, {1}, {{{1e-6}, '<', 4}}});
    ExpectSaid(
        "X1 stands at a number that only the largest one of the method explains: in truth nothing limits it");
    ExpectNotSaid("further unit");
    Solve({false,
           {17, 8, 14, 7},
           {{{3, -1, 1, 12}, '>', 0},
            {{3, 2, 0, 0}, '=', 53},
            {{0, 4, -1, 1}, '>', 48},
            {{1, 3, 0, 0}, '<', 41}}});
    ExpectSaid("X3 and X4 stand at numbers that only the largest one of the method explains");
    ExpectNotSaid("further unit");
    Solve(kDoors);
    ExpectNotSaid("largest");
    ExpectSaid("further unit");
}

// A large value that a limit allows is no such number.
TEST_F(LpMeaning, ALargeValueWithinALimitIsNoCaution)
{
    Solve({false, {1}, {{{1}, '<', 5e14}}});
    ExpectNotSaid("largest");
    ExpectSaid("further unit");
}

TEST_F(LpMeaning, FiguresThatAreCutAreTold)
{
    SetProblem(kDoors);
    VtLP::Problem.LpDecimalPlaces = 13;
    SolveModel();
    ExpectSaid("longer than their fields");
    SetProblem(kDoors);
    VtLP::Problem.LpDecimalPlaces = 11;
    SolveModel();
    ExpectNotSaid("longer than their fields");
}

// ---- without a plan ----

TEST_F(LpMeaning, LimitsThatExcludeEachOtherAreNamed)
{
    Solve({false, {1, 1, 1}, {{{1, 1, 0}, '<', 4}, {{0, 0, 1}, '<', 7}, {{1, 1, 0}, '>', 6}}});
    ASSERT_EQ(Result.End, Outcome::Infeasible);
    ExpectSaid("Limits 1 and 3 exclude each other: without any one of them the others leave a plan.");
    Solve({false, {1}, {{{1}, '<', -3}, {{1}, '<', 5}}});
    ExpectSaid("Limit 1 alone cannot be kept by any plan.");
}

TEST_F(LpMeaning, AnUnboundedProblemWithAnArtificialAtZeroIsDoubted)
{
    Solve({false, {1, 1}, {{{1, -1}, '<', 4}}});
    ASSERT_EQ(Result.End, Outcome::Unbounded);
    ExpectSaid("grow without end");
    ExpectNotSaid("can be wrong here");
    // x = y + z and x <= 5: max 3z is 15. The entering z has no entry above 0 in row 1.
    Solve({false, {0, 0, 3}, {{{1, -1, -1}, '=', 0}, {{1, 0, 0}, '<', 5}}});
    ASSERT_EQ(Result.End, Outcome::Unbounded);
    ExpectSaid(
        "the artificial column of limit 1 was still in the basis at 0; with the signs of limit 1 turned "
        "round there is a plan with the value 15.000.");
}

// ---- integer programs ----

const Lp kTables{false, {8, 5}, {{{1, 1}, '<', 6}, {{9, 5}, '<', 45}}};

TEST_F(LpMeaning, OfTheTablesAndChairs)
{
    SolveInteger(kTables, {"DIN"});
    EXPECT_THAT(Told(),
                ElementsAre("Make 5.000 of X1 and nothing of X2; the value is 40.000.",
                            "The best whole-number plan found is worth 40.000; without the whole-number "
                            "condition it would be 41.250.",
                            "The search looked at 7 nodes and branched at 3; of the other 4, 3 gave a whole "
                            "plan and 1 had no plan.",
                            "Limit 2 is used up; limit 1 has 1.000 to spare.",
                            "Prices and ranges are not given: they do not hold for whole-number plans."));
}

// (1, 1) is worth 1.5, but a gain of exactly 1 is not followed; one of 1.03 is.
TEST_F(LpMeaning, APlanThatMayBePassedByIsTold)
{
    SolveInteger({false, {.5, 1}, {{{10, 2}, '<', 20}, {{0, 2}, '<', 3}}}, {"DIN"});
    ExpectSaid("A plan that is better by 1 or less may have been passed by.");
    SolveInteger(kTables, {"DIN"});
    ExpectNotSaid("passed by");
}

TEST_F(LpMeaning, AWholeRelaxationNeedsNoSearch)
{
    SolveInteger(kDoors, {"DIN"});
    ExpectSaid("The search looked at 1 node: the linear program is whole by itself.");
    SolveInteger(kDoors, {"INT", ""});
    ExpectSaid("No variable must be whole");
}

TEST_F(LpMeaning, ANameWithSmallLettersIsNotWhole)
{
    SetProblem(kTables);
    VtLP::Problem.LpVariableNames(1) = "desk";
    int line = VtLP::kObjectiveLine + 2;
    for (const char* text : {"INT", "desk", "X2", ""})
        VtLP::Problem.LpLines(++line) = text;
    SolveModel(true);
    ExpectSaid("desk was not treated as whole: names with small letters are not found.");
    SolveInteger(kTables, {"INT", "X1", "X2", ""});
    ExpectNotSaid("small letters");
}

// 9 of X5 keep to all limits (45 = 45, 27 < 43, -9 < 0) and are worth 135; the node that holds them, behind 1
// of X2 and 0 of X1, is given up.
const Lp kLosing{false,
                 {4, 11, 13, 9, 15},
                 {{{3, -2, 9, 11, 5}, '=', 45},
                  {{9, 2, 5, -1, 3}, '<', 43},
                  {{0, 4, 1, 2, -1}, '<', 0},
                  {{8, 1, 8, 0, 0}, '<', 23},
                  {{8, 0, 0, 8, 0}, '<', 48}}};

TEST_F(LpMeaning, ANodeThatTheMethodLosesIsTold)
{
    SolveInteger(kLosing, {"DIN"});
    ExpectSaid("the value is 133.000.");
    ExpectSaid("14 had no plan and 2 were given up as without a plan although they have one.");
    ExpectSaid(
        "The search gave up 1 node as without a plan although it has one: a better whole-number plan may be "
        "there.");
    const std::vector<picture::Step> steps = LP_Engine::Steps(Result);
    EXPECT_EQ(
        std::count_if(steps.begin(), steps.end(),
                      [](const picture::Step& step) { return step.Why == "No plan keeps to these bounds."; }),
        14);
    EXPECT_EQ(std::count_if(steps.begin(), steps.end(),
                            [](const picture::Step& step) {
                                return step.Why.find("gives the node up, although") != std::string::npos;
                            }),
              2);
    SolveInteger(kTables, {"DIN"});
    ExpectNotSaid("gave up");
    ExpectNotSaid("given up");
}

// 8X1 - 2X2 is even and never 19.
TEST_F(LpMeaning, AnUnboundedRelaxationSaysNothingOfWholePlans)
{
    const Lp even{false, {9, 9}, {{{8, -2}, '=', 19}}};
    SolveInteger(even, {"DIN"});
    ASSERT_EQ(Result.End, Outcome::Unbounded);
    ExpectSaid("Whether any whole-number plan exists was not looked at");
    Solve(even);
    ASSERT_EQ(Result.End, Outcome::Unbounded);
    ExpectNotSaid("whole-number");
}

TEST_F(LpMeaning, ASearchOutOfRoomTellsWhatItHad)
{
    SolveInteger({false, {4, 4, 2, 12, 10}, {{{16, 15, 7, 7, 20}, '<', 73}}}, {"DIN"});
    ExpectSaid("The search ran out of room after 49 branchings");
    ExpectSaid("The best whole-number plan found until then is worth");
    SolveInteger({false, {1}, {{{2}, '<', 65535}}}, {"DIN"});
    ExpectSaid("above 32767");
}

TEST_F(LpMeaning, ASearchWithoutAWholePlanSaysWhyItDidNotEnd)
{
    SolveInteger({false, {1}, {{{-2}, '<', -1}, {{2}, '<', 1}}}, {"DIN"});
    ASSERT_EQ(Result.End, Outcome::Interrupted);
    ExpectSaid("Every node of the search was closed and none gave a whole-number plan");
}

TEST_F(LpMeaning, ACycleIsRecognised)
{
    Solve({false,
           {.75, -150, .02, -6},
           {{{.25, -60, -.04, 9}, '<', 0}, {{.5, -90, -.02, 3}, '<', 0}, {{0, 0, 1, 0}, '<', 1}}});
    ASSERT_EQ(Result.End, Outcome::Interrupted);
    ExpectSaid("The method came back to a basis it had left");
}

// ---- steps ----

TEST_F(LpMeaning, TheStepsOfTheDoorsAreItsTwoPivots)
{
    Solve(kDoors);
    const std::vector<picture::Step> steps = LP_Engine::Steps(Result);
    std::vector<std::string> headings;
    headings.reserve(steps.size());
    for (const picture::Step& step : steps)
        headings.push_back(step.Heading);
    EXPECT_THAT(headings, ElementsAre("Standard form", "Step 1, phase 2: X2 enters, slack 2 leaves",
                                      "Step 2, phase 2: X1 enters, slack 3 leaves", "Optimum",
                                      "Ranges of the coefficients", "Ranges of the right sides", "Proof"));
}

TEST_F(LpMeaning, AStepNamesWhatItsColumnsWereComparedWith)
{
    Solve(kDoors);
    EXPECT_EQ(
        LP_Engine::Steps(Result)[1].Why,
        "X2 gains the most a unit, 5.000 against 3.000 for X1. Slack 2 stops it first, after 6.000 against "
        "9.000 for slack 3.");
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 2}, '<', 4}}});
    EXPECT_EQ(
        LP_Engine::Steps(Result)[1].Why,
        "X1 and X2 gain the same, 1.000; the first of them enters. Slack 1 and slack 2 stop it at the same "
        "ratio, 4.000; the upper row goes first.");
}

std::vector<std::string> Reasons()
{
    std::vector<std::string> reasons;
    for (const picture::Step& step : LP_Engine::Steps(Result))
        reasons.push_back(step.Why);
    return reasons;
}

TEST_F(LpMeaning, AStepTellsHowTiesAreBroken)
{
    // X2 gains 2 in both rows as X1 does; the ratios are 4 and 4.
    Solve({false, {2, 3}, {{{1, 1}, '=', 4}, {{1, 1}, '=', 4}}});
    EXPECT_THAT(Reasons(),
                Contains(HasSubstr("Artificial 2 and artificial 1 stop it at the same ratio, 4.000; of "
                                   "artificials the lower row goes first.")));
    Solve({false, {2, 3}, {{{1, 1}, '<', 4}, {{1, 1}, '=', 4}}});
    EXPECT_THAT(Reasons(), Contains(HasSubstr("the artificial goes first.")));
}

TEST_F(LpMeaning, AStepTellsWhenOneColumnOnlyGains)
{
    Solve(kDoors);
    EXPECT_THAT(Reasons(), Contains(HasSubstr("X1 is the only column that gains anything, 3.000 a unit.")));
    EXPECT_THAT(Reasons(), Contains(HasSubstr("X2 gains the most a unit, 5.000 against 3.000 for X1.")));
}

TEST_F(LpMeaning, AStepWithoutEndSaysSo)
{
    Solve({false, {1}, {{{1e-6}, '<', 4}}});
    EXPECT_THAT(Reasons(),
                Contains(HasSubstr("No row stops it before the largest number that the method knows")));
    Solve(kDoors);
    EXPECT_THAT(Reasons(), Not(Contains(HasSubstr("No row stops it"))));
}

TEST_F(LpMeaning, StepsMarkTheCornersOfThePlan)
{
    Solve(kDoors);
    const std::vector<picture::Step> steps = LP_Engine::Steps(Result);
    EXPECT_EQ(steps[1].Picture, "Plan");
    EXPECT_THAT(steps[1].Marks, ElementsAre("way0", "way1"));
    EXPECT_THAT(steps[2].Marks, ElementsAre("way1", "way2"));
}

TEST_F(LpMeaning, TheStepsOfASearchAreItsNodesInOrder)
{
    SolveInteger(kTables, {"DIN"});
    const std::vector<picture::Step> steps = LP_Engine::Steps(Result);
    ASSERT_EQ(steps.size(), 1U + 7U + 1U);
    EXPECT_EQ(steps[1].Heading, "Node 1: the linear optimum");
    EXPECT_EQ(steps[2].Heading, "Node 2: X1 at least 4");
    EXPECT_THAT(steps[2].Marks, ElementsAre("node3"));
    EXPECT_EQ(steps[3].Why, "No plan keeps to these bounds.");
}

// The slack of x1 <= -1 starts at -1, and x1 could only bring it further down.
TEST_F(LpMeaning, TheStepsTellOfARowThatNoColumnRepairs)
{
    Solve({false, {1}, {{{1}, '<', -1}}});
    ASSERT_EQ(Result.End, Outcome::Infeasible);
    const std::vector<picture::Step> steps = LP_Engine::Steps(Result);
    std::vector<std::string> headings;
    headings.reserve(steps.size());
    for (const picture::Step& step : steps)
        headings.push_back(step.Heading);
    EXPECT_THAT(headings, Contains("No column can repair slack 1"));
}

}  // namespace
