#include "markov/MarkovMeaning.h"

#include <gmock/gmock.h>

#include <random>

#include "markov/chains.h"

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

std::vector<std::string> Said(const Rows& chain)
{
    Given(chain);
    Analyse();
    std::vector<std::string> texts;
    for (const picture::Sentence& sentence : Markov::Meaning(Markov::Problem, Markov::Result))
        texts.push_back(sentence.Text);
    return texts;
}

}  // namespace

TEST(MarkovMeaning, NothingIsSaidBeforeASolve)
{
    Given({{0.9, 0.1}, {0.3, 0.7}});
    EXPECT_THAT(Markov::Meaning(Markov::Problem, {}), IsEmpty());
}

TEST(MarkovMeaning, TwoBrandsShareTheTime)
{
    EXPECT_THAT(Said({{0.9, 0.1}, {0.3, 0.7}}),
                ElementsAre("In the long run 0.750 of the time is spent in state 1 and 0.250 in state 2.",
                            "These shares do not depend on the state in which the units start."));
}

TEST(MarkovMeaning, EqualSharesAreToldOnce)
{
    EXPECT_THAT(Said(Ring(3)),
                ElementsAre("In the long run each of the 3 states has the same share, 0.333."));
}

// Four states are listed, five have their largest and smallest share told.
TEST(MarkovMeaning, ManyStatesHaveTheirExtremesTold)
{
    Rows chain(5, {0.4, 0.3, 0.1, 0.1, 0.1});
    EXPECT_EQ(Said(chain)[0],
              "In the long run the largest share, 0.400, is that of state 1 and the smallest, 0.100, that of "
              "states 3, 4 and 5.");
    Rows four(4, {0.4, 0.3, 0.2, 0.1});
    EXPECT_EQ(Said(four)[0],
              "In the long run 0.400 of the time is spent in state 1, 0.300 in state 2, 0.200 in state 3 and "
              "0.100 in state 4.");
}

TEST(MarkovMeaning, GroupsMakeTheSharesDependOnTheStart)
{
    const Rows apart{{0.5, 0.5, 0, 0}, {0.5, 0.5, 0, 0}, {0, 0, 0.9, 0.1}, {0, 0, 0.3, 0.7}};
    EXPECT_THAT(Said(apart),
                Contains("The chain falls into the groups (1, 2) and (3, 4) that are never left: the "
                         "shares depend on the start, here equal."));
    EXPECT_THAT(Said(apart), Not(Contains(HasSubstr("do not depend"))));
    EXPECT_THAT(Said({{0.9, 0.1}, {0.3, 0.7}}), Not(Contains(HasSubstr("groups"))));
}

TEST(MarkovMeaning, StatesThatAreLeftForGoodAreNamed)
{
    EXPECT_THAT(Said({{0.5, 0.5, 0}, {0.5, 0.5, 0}, {0.2, 0.2, 0.6}}),
                Contains("Sooner or later state 3 is left for good, with a share that goes to 0."));
}

TEST(MarkovMeaning, AChainThatStillMovesIsACaution)
{
    const auto said = Said({{0, 1, 0}, {1, 0, 0}, {1, 0, 0}});
    EXPECT_EQ(said[0],
              "After 150 steps from equal shares 0.333 of the units are in state 1, 0.667 in state 2 and "
              "0.000 in state 3.");
    EXPECT_THAT(said,
                Contains("After 150 steps the shares still changed, by up to 0.333333 in the last one; the "
                         "report shows the shares behind that step."));
    EXPECT_THAT(
        said, Contains("The group (1, 2) comes round every 2 steps, so that its shares need not settle; over "
                       "many steps state 1 has 0.500 of the time on average."));
}

// A periodic chain whose shares stand still at once is right.
TEST(MarkovMeaning, APeriodicChainThatStandsStillHasNoCaution)
{
    EXPECT_THAT(Said({{0, 1}, {1, 0}}),
                ElementsAre("In the long run each of the 2 states has the same share, 0.500."));
}

// Of 0.00005 and 0.0001 the shares go to 2/3 and 1/3, but the first step moves no share by more than 0.00003.
TEST(MarkovMeaning, AChainThatMovesSlowlyIsACaution)
{
    const auto said = Said({{0.99999, 0.00001}, {0.00002, 0.99998}});
    EXPECT_EQ(said[0], "After 1 step from equal shares each of the 2 states has the same share, 0.500.");
    EXPECT_THAT(
        said,
        Contains("The shares changed by less than 0.00001 in a step and the repetition stopped, but this "
                 "chain moves slowly: in the long run state 1 has 0.667, not 0.500."));
    EXPECT_THAT(Said({{0.999, 0.001}, {0.002, 0.998}}),
                Contains(HasSubstr("too slowly to settle in 150 steps")));
}

TEST(MarkovMeaning, RowsThatDoNotAddUpAreACaution)
{
    EXPECT_THAT(
        Said({{0.5, 0.4995}, {0.5, 0.5}}),
        Contains("The row of state 1 adds up to 0.9995, not to 1, and is used as it stands: with every step "
                 "the shares drift."));
    EXPECT_THAT(Said({{0.5, 0.4995}, {0.5, 0.4995}}), Contains(HasSubstr("The rows of states 1 and 2")));
    EXPECT_THAT(Said({{0.1, 0.2, 0.7}, {0.3, 0.3, 0.4}, {0.1, 0.8, 0.1}}),
                Not(Contains(HasSubstr("add up"))));
}

// ---- absorption ----

TEST(MarkovMeaning, OneAbsorbingStateTakesEveryUnit)
{
    EXPECT_THAT(Said({{0.5, 0.5}, {0, 1}}),
                ElementsAre("Sooner or later every unit ends in state 2, the only state that is never left.",
                            "A unit from state 1 is absorbed after 2.000 steps on average."));
}

TEST(MarkovMeaning, EachStartHasItsEnds)
{
    EXPECT_THAT(
        Said({{0.5, 0.25, 0.25, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0.5, 0.5}}),
        ElementsAre("From state 1, 0.500 of the units end in state 2 and 0.500 in state 3.",
                    "From state 4, more than 0.999 of the units end in state 3.",
                    "It takes longest from state 1: 2.000 steps on average until a unit is absorbed."));
}

TEST(MarkovMeaning, ManyStartsAreGroupedByTheirLikeliestEnd)
{
    Rows chain(7, std::vector<double>(7, 0.0));
    for (std::size_t i = 0; i < 5; ++i) {
        chain[i][5] = i < 2 ? 0.9 : 0.2;
        chain[i][6] = i < 2 ? 0.1 : 0.8;
    }
    chain[5][5] = chain[6][6] = 1;
    EXPECT_EQ(
        Said(chain)[0],
        "The likeliest end is state 6 for units from states 1 and 2 and state 7 for units from states 3, 4 "
        "and 5.");
}

TEST(MarkovMeaning, StatesThatAllAbsorb)
{
    EXPECT_THAT(Said({{1, 0}, {0, 1}}),
                ElementsAre("Each of the 2 states absorbs: every unit stays where it starts."));
    EXPECT_THAT(Said({{1}}), ElementsAre("The only state absorbs: every unit stays in it."));
}

TEST(MarkovMeaning, UnitsThatCannotBeAbsorbedAreACaution)
{
    const auto said = Said({{1, 0, 0}, {0, 0, 1}, {0, 1, 0}});
    EXPECT_THAT(
        said, ElementsAre("State 1 absorbs, but units from states 2 and 3 never get there: not all units end "
                          "in it."));
    EXPECT_THAT(
        Said({{1, 0, 0, 0}, {0, 0, 1, 0}, {0, 1, 0, 0}, {0.5, 0.5, 0, 0}}),
        Contains("Some of the units from state 4 fall into (2, 3), which is never left, and are never "
                 "absorbed."));
    EXPECT_THAT(Said({{0.5, 0.5}, {0, 1}}), Not(Contains(HasSubstr("never get there"))));
}

TEST(MarkovMeaning, UnitsThatAreStillOnTheirWayAreACaution)
{
    EXPECT_THAT(
        Said({{0.99, 0.01}, {0, 1}}),
        Contains("After 150 steps 0.221 of the units from state 1 had not been absorbed; of all that start "
                 "there, 1.000 end in state 2, not 0.779."));
    EXPECT_THAT(Said({{0.5, 0.5}, {0, 1}}), Not(Contains(HasSubstr("had not been absorbed"))));
}

TEST(MarkovMeaning, AnAbsorbingStateThatLeadsElsewhereIsACaution)
{
    EXPECT_THAT(Said({{1, 0.0005}, {0.5, 0.5}}),
                Contains("State 1 counts as absorbing, although its row also leads elsewhere."));
    EXPECT_THAT(Said({{1, 0}, {0.5, 0.5}}), Not(Contains(HasSubstr("counts as absorbing"))));
}

TEST(MarkovMeaning, EveryChainHasAResultAndAtMost12Sentences)
{
    std::mt19937 random(1203);
    for (int round = 0; round < 500; ++round) {
        const auto said = Said(RandomChain(random));
        EXPECT_FALSE(said.empty()) << round;
        EXPECT_LE(said.size(), 12U) << round;
        EXPECT_THAT(said, Each(testing::EndsWith("."))) << round;
        EXPECT_THAT(said, Each(Not(HasSubstr("nan")))) << round;
    }
}
