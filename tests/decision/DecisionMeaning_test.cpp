// Each sentence where it is said, and where it is not.
#include "decision/DecisionMeaning.h"

#include <gmock/gmock.h>

#include "decision/decision_support.h"

using Decision::Problem;
using Decision::Result;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

std::vector<std::string> Solved()
{
    Decision::SolveProblem();
    std::vector<std::string> texts;
    for (const picture::Sentence& sentence : Decision::Meaning(Problem, Result))
        texts.push_back(sentence.Text);
    return texts;
}

auto Says(const char* words)
{
    return Contains(HasSubstr(words));
}

const Table kStall = {{-40, 60, 200}, {10, 80, 120}, {90, 50, 5}};

void GivenChances(const Table& payoffs, const std::vector<double>& chances, bool maximize = true)
{
    GivenPayoffs(payoffs, maximize, Decision::kOptimistic);
    GivenStateProbabilities(chances);
}

void GivenSurvey(const Table& payoffs = {{100, -50}, {20, 10}})
{
    GivenChances(payoffs, {0.4, 0.6});
    GivenSample({{0.75, 0.25}, {0.25, 0.75}});
}

}  // namespace

TEST(DecisionMeaning, NamesTheCriterionAndWhatTheOthersWouldSay)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    EXPECT_THAT(Solved(), ElementsAre("Under the optimistic criterion alternative 1 is best with 200.",
                                      "Alternative 2 comes next, behind by 80.",
                                      "Under the conservative criterion it would be alternative 2.",
                                      "Under the minimax regret criterion it would be alternative 2."));
    GivenPayoffs(kStall, true, Decision::kMinimaxRegret);
    EXPECT_THAT(Solved()[0],
                "Under the minimax regret criterion alternative 2 is best with a largest regret of "
                "80.00.");
    EXPECT_THAT(Solved(), Contains("The conservative criterion recommends the same."));
}

TEST(DecisionMeaning, OfSingleEqualAndTyingAlternatives)
{
    GivenPayoffs({{3, 4}}, true, Decision::kOptimistic);
    EXPECT_THAT(Solved(), ElementsAre("Under the optimistic criterion the only alternative has 4."));
    GivenPayoffs({{3, 4}, {4, 1}}, true, Decision::kOptimistic);
    EXPECT_EQ(Solved()[0], "Under the optimistic criterion all alternatives are equal, with 4.");
    GivenPayoffs({{3, 4}, {4, 1}, {0, 0}}, true, Decision::kOptimistic);
    EXPECT_EQ(Solved()[0], "Under the optimistic criterion alternatives 1 and 2 tie with 4.");
    EXPECT_THAT(Solved(), Contains("Alternative 3 can be left out: another one is at least as good in every "
                                   "state and better in some."));
    GivenPayoffs({{3, 4}, {4, 1}}, true, Decision::kOptimistic);
    EXPECT_THAT(Solved(), Not(Says("left out")));
}

TEST(DecisionMeaning, OfASample)
{
    GivenSurvey();
    EXPECT_THAT(
        Solved(),
        ElementsAre("Under the expected value criterion alternative 2 is best with 14.00.",
                    "With the sample take alternative 1 after outcome 1 and alternative 2 after outcome 2; "
                    "the strategy is worth 29.00.",
                    "Knowing the state beforehand is worth at most 32.00; this sample brings 15.00 of "
                    "it.",
                    "Alternative 1 comes next, behind by 4.00.",
                    "Above a chance of 0.429 for state 1 alternative 1 becomes best."));
}

// After either outcome the better alternative has 0.502 instead of 0.5.
TEST(DecisionMeaning, OfASampleThatBringsLessThanIsPrinted)
{
    GivenChances({{1, 0}, {0, 1}}, {0.5, 0.5});
    GivenSample({{0.502, 0.498}, {0.498, 0.502}});
    EXPECT_THAT(Solved(), Contains("Knowing the state beforehand is worth at most 0.50; this sample brings "
                                   "less than 0.01 of it."));
}

TEST(DecisionMeaning, OfASampleThatBringsNothing)
{
    GivenChances({{100, -50}, {20, 10}}, {0.4, 0.6});
    GivenSample({{0.5, 0.5}, {0.5, 0.5}});
    EXPECT_THAT(Solved(), Says("take alternative 2 after every outcome"));
    EXPECT_THAT(Solved(), Contains("This sample brings nothing of it."));
    EXPECT_THAT(Solved(), Not(Says("With one outcome")));
    GivenChances({{100, -50}, {20, 10}}, {0.4, 0.6});
    GivenSample({{1}, {1}});
    EXPECT_THAT(Solved(), Says("With one outcome the sample carries no information"));
    EXPECT_THAT(Solved(), Says("take alternative 2 after the only outcome; "));
    GivenChances({{100, -50}, {20, 10}}, {0.4, 0.6});
    GivenSample({{1, 0}, {1, 0}});
    EXPECT_THAT(Solved(), Says("take alternative 2 after every outcome that can happen; "));
}

// Vineyards harvest by outcome: what is taken first is told first, whatever its number.
TEST(DecisionMeaning, AStrategyIsToldInTheOrderOfTheOutcomes)
{
    GivenChances({{20, 10}, {100, -50}}, {0.4, 0.6});
    GivenSample({{0.75, 0.25}, {0.25, 0.75}});
    EXPECT_THAT(Solved(), Says("take alternative 2 after outcome 1 and alternative 1 after outcome 2; "));
}

// 1000000 p + 2 (1 - p) = 3 p + 4 (1 - p) at p = 2 / 999999, below the last place.
TEST(DecisionMeaning, AChanceAtTheEndOfTheScaleIsToldAsSuch)
{
    GivenChances({{1000000, 2}, {3, 4}}, {0.5, 0.5});
    EXPECT_THAT(Solved(),
                Contains("Only at a chance of less than 0.001 for state 1 alternative 2 becomes best."));
    GivenChances({{1000000, 2}, {3, 4}}, {0, 1});
    EXPECT_THAT(Solved(),
                Contains("Above a chance of less than 0.001 for state 1 alternative 1 becomes best."));
    GivenChances({{2, 1000000}, {4, 3}}, {0.5, 0.5});
    EXPECT_THAT(Solved(),
                Contains("Only at a chance of more than 0.999 for state 1 alternative 2 becomes best."));
}

TEST(DecisionMeaning, OfInformationWorthNothing)
{
    GivenChances({{3, 3}, {1, 2}}, {0.5, 0.5});
    EXPECT_THAT(Solved(), Says("Knowing the state beforehand is worth nothing"));
    EXPECT_THAT(Solved(), Contains("Whatever the chance of state 1, alternative 1 stays best."));
    GivenSurvey();
    EXPECT_THAT(Solved(), Not(Says("worth nothing")));
    EXPECT_THAT(Solved(), Not(Says("Whatever")));
}

TEST(DecisionMeaning, TellsWhatCannotHappen)
{
    GivenChances({{100, -50}, {20, 10}}, {0, 1});
    GivenSample({{0, 1}, {1, 0}});
    EXPECT_THAT(Solved(), Contains("Outcome 2 cannot happen; its row means nothing."));
    EXPECT_THAT(Solved(), Contains("State 1 has the chance 0: the payoffs there do not count."));
    GivenChances({{100, -50}, {20, 10}}, {0, 1});
    GivenSample({{0, 1, 0}, {1, 0, 0}});
    EXPECT_THAT(Solved(), Contains("Outcomes 2 and 3 cannot happen; their rows mean nothing."));
    GivenSurvey();
    EXPECT_THAT(Solved(), Not(Says("cannot happen")));
    EXPECT_THAT(Solved(), Not(Says("the chance 0")));
}

TEST(DecisionMeaning, TellsATieBehindAnOutcome)
{
    GivenSurvey({{1, 1}, {1, 1}});
    EXPECT_THAT(Solved(),
                Contains("After outcomes 1 and 2 alternatives 1 and 2 tie; the report names the last one "
                         "only."));
    // With chances of 0.5 each after outcome 1 both are worth 2; after outcome 2 state 1 is certain.
    GivenChances({{1, 3}, {2, 2}}, {0.5, 0.5});
    GivenSample({{0.5, 0.5}, {0.5, 0.5}});
    EXPECT_THAT(Solved(), Says("After outcomes 1 and 2 alternatives 1 and 2 tie"));
    GivenSurvey();
    EXPECT_THAT(Solved(), Not(Says("the last one only")));
}

TEST(DecisionMeaning, TellsAnEfficiencyThatRoundingMakes)
{
    GivenChances({{0.3, 0.1}, {0.2, 0.1}}, {0.1, 0.9});
    GivenSample({{0.5, 0.5}, {0.5, 0.5}});
    Decision::SolveProblem();
    Result.PerfectInformationValue = 1e-17;  // what sums of products may leave of nothing
    std::vector<std::string> texts;
    for (const auto& sentence : Decision::Meaning(Problem, Result))
        texts.push_back(sentence.Text);
    EXPECT_THAT(texts, Says("the efficiency in the report means nothing"));
    GivenSurvey();
    EXPECT_THAT(Solved(), Not(Says("the efficiency in the report means nothing")));
}

TEST(DecisionMeaning, TellsChancesThatDoNotAddUp)
{
    GivenChances({{100, -50}, {20, 10}}, {0.4, 0.5995});
    EXPECT_THAT(Solved(),
                Contains("The chances of the states add up to 0.9995; they are taken as they are."));
    GivenChances({{10, 10}, {0, 0}}, {0.5, 0.5});
    GivenSample({{0.9991}, {0.9991}});
    EXPECT_THAT(Solved(), Says("the report shows the difference without its sign"));
    EXPECT_THAT(Solved(), Not(Says("add up to 0.")));
    GivenSurvey();
    EXPECT_THAT(Solved(), Not(Says("without its sign")));
}

TEST(DecisionMeaning, TellsANearTie)
{
    GivenPayoffs({{0.3}, {0.1 + 0.2}}, true, Decision::kOptimistic);
    Problem.PayoffDecimals = 1.0;
    EXPECT_THAT(Solved(),
                Contains("Alternative 1 has the same printed value as the recommended one and differs "
                         "from it by rounding only."));
    GivenPayoffs({{3}, {4}}, true, Decision::kOptimistic);
    EXPECT_THAT(Solved(), Not(Says("rounding only")));
}

TEST(DecisionMeaning, TellsFiguresThatAreCut)
{
    GivenPayoffs({{12345678}}, true, Decision::kOptimistic);  // 12,345,678 has ten columns
    EXPECT_THAT(Solved(), Says("wider than its field of 9 columns"));
    GivenPayoffs({{1234567}}, true, Decision::kOptimistic);
    EXPECT_THAT(Solved(), Not(Says("wider than its field")));
    EXPECT_THAT(Solved(), Not(Says("more decimals")));
    GivenPayoffs({{2.005}}, true, Decision::kOptimistic);
    EXPECT_THAT(Solved(), Says("Some payoffs have more decimals than the report shows"));
}

TEST(DecisionMeaning, OfCostsLooksTheOtherWay)
{
    GivenChances({{100, -50}, {20, 10}}, {0.4, 0.6}, false);  // 10 against 14
    EXPECT_THAT(Solved(), ElementsAre("Under the expected value criterion alternative 1 is best with 10.00.",
                                      "Knowing the state beforehand is worth at most 32.00.",
                                      "Alternative 2 comes next, behind by 4.00.",
                                      "Above a chance of 0.429 for state 1 alternative 2 becomes best."));
}
