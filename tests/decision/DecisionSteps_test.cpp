// The steps of a decision, held against tables worked by hand.
#include "decision/DecisionSteps.h"

#include <gmock/gmock.h>

#include "decision/decision_support.h"
#include "support/beside.h"

using Decision::Problem;
using Decision::Result;
using picture::Step;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Lines = std::vector<std::string>;

std::vector<Step> Solved()
{
    Decision::SolveProblem();
    return Decision::Steps(Problem, Result);
}

Step StepOf(const std::vector<Step>& steps, const std::string& heading)
{
    for (const Step& step : steps)
        if (step.Heading == heading) return step;
    ADD_FAILURE() << "no step " << heading;
    return {};
}

const Table kStall = {{-40, 60, 200}, {10, 80, 120}, {90, 50, 5}};

void GivenSurvey(const Table& payoffs = {{100, -50}, {20, 10}})
{
    GivenPayoffs(payoffs, true, Decision::kOptimistic);
    GivenStateProbabilities({0.4, 0.6});
    GivenSample({{0.75, 0.25}, {0.25, 0.75}});
}

}  // namespace

TEST(DecisionSteps, OfOptimism)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    const auto steps = Solved();
    EXPECT_THAT(HeadingsOf(steps),
                ElementsAre("The payoffs", "Best payoff of each alternative", "The choice", "Proof"));
    EXPECT_EQ(steps[1].Figures,
              (Lines{"alternative  best payoff       in", "          1          200  state 3",
                     "          2          120  state 3", "          3           90  state 1"}));
    EXPECT_EQ(steps[2].Why, "Alternative 1 has the largest value; the next one is 120 of alternative 2.");
    EXPECT_EQ(steps[2].Picture, "Criteria");
    EXPECT_THAT(steps[2].Marks, ElementsAre("A1"));
    EXPECT_EQ(steps[3].Figures, (Lines{"      largest value  200", "value of the choice  200"}));
}

TEST(DecisionSteps, OfCautionAboutCosts)
{
    GivenPayoffs(kStall, false, Decision::kConservative);
    const auto steps = Solved();
    EXPECT_THAT(StepOf(steps, "Worst payoff of each alternative").Figures,
                Contains("          3            90  state 1"));
    EXPECT_EQ(steps[2].Why, "Alternative 3 has the smallest value; the next one is 120 of alternative 2.");
    EXPECT_EQ(steps[3].Figures, (Lines{"     smallest value  90", "value of the choice  90"}));
}

TEST(DecisionSteps, OfRegret)
{
    GivenPayoffs(kStall, true, Decision::kMinimaxRegret);
    const auto steps = Solved();
    EXPECT_EQ(StepOf(steps, "Best payoff of each state").Figures,
              (Lines{"             state 1  state 2  state 3", "best payoff       90       80      200"}));
    EXPECT_THAT(StepOf(steps, "Regrets").Figures,
                Contains("          1   130.00    20.00     0.00   130.00"));
    EXPECT_EQ(StepOf(steps, "Proof").Figures[1], "                 0.00     0.00     0.00");
}

TEST(DecisionSteps, OfExpectedValues)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    GivenStateProbabilities({0.2, 0.5, 0.3});
    const auto steps = Solved();
    EXPECT_EQ(StepOf(steps, "Expected value of each alternative").Figures[0],
              "alternative 1: 0.2 x (-40) + 0.5 x 60 + 0.3 x 200 = 82.00");
    // 0.2 * 90 + 0.5 * 80 + 0.3 * 200 = 118.
    EXPECT_THAT(StepOf(steps, "Value of perfect information").Figures,
                Contains("difference:            36.00"));
    EXPECT_EQ(steps.back().Figures, (Lines{"chances of the states  1.000"}));
}

TEST(DecisionSteps, RunBayesRuleForEachOutcome)
{
    GivenSurvey();
    const auto steps = Solved();
    EXPECT_EQ(
        StepOf(steps, "Outcome 1: Bayes' rule").Figures,
        (Lines{"state  prior  conditional  joint  posterior", "    1    0.4         0.75  0.300      0.667",
               "    2    0.6         0.25  0.150      0.333",
               "  sum                      0.450      1.000"}));
    EXPECT_EQ(StepOf(steps, "Outcome 2: the choice").Figures,
              (Lines{"alternative  expected value", "          1          -22.73",
                     "          2           11.82  taken"}));
    EXPECT_THAT(StepOf(steps, "Outcome 2: the choice").Marks, ElementsAre("I2", "I2A2"));
    EXPECT_EQ(StepOf(steps, "Outcome 2: the choice").Why,
              "Alternative 2 is best with the posterior chances; the next one is -22.73 of alternative 1.");
    EXPECT_EQ(StepOf(steps, "Value of the strategy").Figures.back(), "expected value: 29.00");
    // Without: 14 for the second alternative. With the state known: 46.
    EXPECT_EQ(StepOf(steps, "Value of the sample information").Figures,
              (Lines{"with the sample:  29.00", "without:          14.00", "difference:       15.00",
                     "efficiency:       100 x 15.00 / 32.00 = 46.9%"}));
}

TEST(DecisionSteps, TellWhereThereIsNoEfficiency)
{
    GivenSurvey({{3, 3}, {1, 1}});
    EXPECT_THAT(StepOf(Solved(), "Value of the sample information").Why, HasSubstr("there is no efficiency"));
}

TEST(DecisionSteps, TellTies)
{
    GivenSurvey({{1, 1}, {1, 1}, {0, 0}});
    auto steps = Solved();
    EXPECT_EQ(StepOf(steps, "Outcome 1: the choice").Why,
              "Alternatives 1 and 2 tie; the last one, alternative 2, is taken.");
    EXPECT_EQ(StepOf(steps, "The choice").Why,
              "Alternatives 1 and 2 have the largest value; the next one is 0.00 of alternative 3.");
    GivenSurvey({{1, 1}, {1, 1}});
    EXPECT_EQ(StepOf(Solved(), "The choice").Why, "All alternatives have the same value.");
    GivenSurvey({{1, 1}});
    EXPECT_EQ(StepOf(Solved(), "The choice").Why, "There is one alternative only.");
}

TEST(DecisionSteps, TellAnOutcomeThatCannotHappen)
{
    GivenPayoffs({{100, -50}, {20, 10}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0, 1});
    GivenSample({{0, 1}, {1, 0}});
    const auto steps = Solved();
    EXPECT_THAT(StepOf(steps, "Outcome 2: Bayes' rule").Why, HasSubstr("cannot happen"));
    EXPECT_THAT(StepOf(steps, "Outcome 1: Bayes' rule").Why, testing::Not(HasSubstr("cannot happen")));
}

TEST(DecisionSteps, TellASumThatIsNotQuiteOne)
{
    GivenPayoffs({{1, 2}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.4991});
    EXPECT_THAT(Solved().back().Why, HasSubstr("within the thousandth"));
}
