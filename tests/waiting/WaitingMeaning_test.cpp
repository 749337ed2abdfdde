#include "waiting/WaitingMeaning.h"

#include <gmock/gmock.h>

#include <random>

#include "waiting/lines.h"

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

using VtWait::Problem;
using VtWait::Result;

std::vector<std::string> Said()
{
    SolveGiven();
    std::vector<std::string> texts;
    for (const picture::Sentence& sentence : VtWait::Meaning(Problem, Result))
        texts.push_back(sentence.Text);
    return texts;
}

}  // namespace

TEST(WaitingMeaning, NothingIsSaidBeforeASolve)
{
    GivenExponential(1, 2, 3);
    EXPECT_THAT(VtWait::Meaning(Problem, {}), IsEmpty());
}

// With a second channel: P0 = 1/2, Lq = 1/12, Wq = 1/24.
TEST(WaitingMeaning, OneExponentialChannel)
{
    GivenExponential(1, 2, 3);
    EXPECT_THAT(
        Said(),
        ElementsAre(
            "A unit waits 0.6667 time periods on average; the line holds 1.3333 units.",
            "With its service a unit stays 1.0000 time periods; the system holds 2.0000 units on average.",
            "The chance that an arriving unit has to wait is 0.6667.",
            "The channel is busy 66.67 % of the time.",
            "With one channel more a unit would wait 0.0417 time periods on average, not 0.6667."));
}

TEST(WaitingMeaning, SeveralChannelsAreBusyOnAverage)
{
    GivenExponential(2, 3, 2);
    EXPECT_THAT(Said(), Contains("Each of the 2 channels is busy 75.00 % of the time on average."));
}

TEST(WaitingMeaning, TwentyFiveChannelsHaveNoMore)
{
    GivenExponential(25, 20, 1);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("one channel more"))));
    GivenExponential(24, 20, 1);
    EXPECT_THAT(Said(), Contains(HasSubstr("one channel more")));
}

TEST(WaitingMeaning, AWaitThatIsPrintedAsZeroIsSmall)
{
    GivenExponential(12, 2, 1);
    const auto said = Said();
    EXPECT_EQ(
        said[0],
        "A unit waits less than 0.0001 time periods on average; the line holds less than 0.0001 units.");
    EXPECT_EQ(said[2], "The chance that an arriving unit has to wait is below 0.0001.");
    EXPECT_THAT(said, Not(Contains(HasSubstr("one channel more"))));
}

// 0.9 and more is heavy: 1 % more of 0.9 on 1 gives 0.909 / 0.091 = 9.989 time periods.
TEST(WaitingMeaning, AHeavyLoadIsACaution)
{
    GivenExponential(1, 0.9, 1);
    EXPECT_THAT(
        Said(),
        Contains("At a load of 0.9000 a little more demand lengthens the wait a lot: 1 % more arrivals "
                 "would make it 9.9890 time periods, not 9.0000."));
    GivenExponential(1, 0.89, 1);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("At a load"))));
    GivenDeterministic(0.995, 1);
    EXPECT_THAT(Said(), Contains(HasSubstr("would let the line grow without limit.")));
}

TEST(WaitingMeaning, ALongTableIsACaution)
{
    GivenExponential(1, 0.999, 1);
    EXPECT_THAT(Said(),
                Contains(HasSubstr("The table of chances ends at 100 units, although more of them are there "
                                   "with a chance of 0.9039.")));
    GivenExponential(1, 0.5, 1);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("table of chances"))));
}

// Constant service at load 0.7: 0.49 / 0.6.
TEST(WaitingMeaning, WhatDifferentServiceTimesCost)
{
    GivenArbitrary(0.35, 0.5, 1.2);
    EXPECT_THAT(
        Said(),
        Contains("If every service took the same time, the line would hold 0.8167 units, not 1.1107."));
    GivenArbitrary(0.35, 0.5, 0);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("same time"))));
    GivenDeterministic(0.35, 0.5);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("same time"))));
}

// ---- no waiting ----

TEST(WaitingMeaning, UnitsAreLostWithoutWaiting)
{
    GivenNoWaiting(3, 2, 1);
    EXPECT_THAT(Said(),
                ElementsAre("The chance that an arriving unit finds all channels busy and is lost is 0.2105.",
                            "Of 2 arrivals per time period 0.4211 are lost on average.",
                            "Each of the 3 channels is busy 52.63 % of the time on average.",
                            "With one channel more the chance to be lost would be 0.0952."));
}

TEST(WaitingMeaning, AHandfulOfLostUnitsIsNotNone)
{
    GivenNoWaiting(3, 0.01, 5);
    const auto said = Said();
    EXPECT_EQ(said[1], "Of 0.01 arrivals per time period less than 0.0001 are lost on average.");
    EXPECT_THAT(said, Not(Contains(HasSubstr("channel more"))));
    GivenExponential(1, 0.0001, 5);
    EXPECT_THAT(Said(), Contains("The channel is busy less than 0.01 % of the time."));
    GivenExponential(1, 9.9999, 10);
    EXPECT_THAT(Said(), Contains(HasSubstr("At a load of more than 0.9999 a little more demand")));
}

// ---- finite population ----

// Six machines, one repairer: an arriving one sees 5 others, with which the repairer is busy 43.60 %.
TEST(WaitingMeaning, AMemberOfAPopulationIsNotAmongTheOthers)
{
    GivenPopulation(1, 0.05, 0.5, 6);
    const auto said = Said();
    EXPECT_EQ(said[0], "A unit waits 1.2790 time periods on average; the line holds 0.3297 units.");
    EXPECT_THAT(said, Contains("The channel is busy 51.55 % of the time."));
    EXPECT_THAT(
        said, Contains("A unit that arrives finds it busy less often, in 43.60 % of the cases, as it is not "
                       "itself among the others."));
    GivenExponential(1, 2, 3);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("among the others"))));
    GivenPopulation(2, 0.05, 0.5, 6);
    EXPECT_THAT(Said(), Contains(HasSubstr("finds all channels busy less often")));
}

TEST(WaitingMeaning, AChannelForEachMemberLeavesNobodyWaiting)
{
    GivenPopulation(5, 2, 3, 5);
    const auto said = Said();
    EXPECT_EQ(
        said[0],
        "No unit ever waits; there are 2.0000 units in the system on average, each for 0.3333 time periods.");
    EXPECT_THAT(said, Not(Contains(HasSubstr("never needed"))));
    GivenPopulation(6, 2, 3, 5);
    EXPECT_THAT(Said(), Contains("1 channel is never needed: the population has 5 members only."));
    GivenPopulation(3, 2, 3, 1);
    EXPECT_THAT(Said(), Contains("2 channels are never needed: the population has 1 member only."));
}

// One channel for 30 members that come as fast as they are served is free in one of 30! e periods only; and 3
// members that hardly ever come are hardly ever all there.
TEST(WaitingMeaning, InAPopulationNoShareIsWhole)
{
    GivenPopulation(1, 1, 1, 30);
    EXPECT_THAT(Said(), Contains("The channel is busy more than 99.99 % of the time."));
    GivenPopulation(2, 1, 1, 30);
    EXPECT_THAT(Said(), Contains("The chance that all channels are busy is more than 0.9999."));
    GivenPopulation(2, 1e-9, 1, 3);
    EXPECT_THAT(Said(), Contains("The chance that all channels are busy is below 0.0001."));
}

TEST(WaitingMeaning, OneMemberHasNoOtherNumberOfChannels)
{
    GivenPopulation(1, 1, 2, 1);
    GivenCosts(10, 1);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("No other number"))));
    GivenPopulation(1, 1, 2, 2);
    GivenCosts(1, 10);
    EXPECT_THAT(Said(), Contains("No other number of channels from 1 to 2 would be cheaper than 1."));
}

TEST(WaitingMeaning, ALastChannelThatEndsAllWaitingIsTold)
{
    GivenPopulation(2, 1, 2, 3);
    EXPECT_THAT(Said(), Contains("With one channel more no unit would ever wait."));
    GivenPopulation(1, 1, 2, 3);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("no unit would ever wait"))));
}

// ---- costs ----

TEST(WaitingMeaning, ACheaperNumberOfChannelsIsTold)
{
    GivenExponential(3, 3.5, 2);
    GivenCosts(10, 1);
    const auto said = Said();
    EXPECT_THAT(said, Contains(HasSubstr("Channels and units in the system cost $")));
    EXPECT_THAT(said, Contains(HasSubstr("channels would be cheaper: $")));
    GivenExponential(2, 0.5, 1);
    GivenCosts(10, 1);
    EXPECT_THAT(Said(), Contains("No other number of channels from 1 to 25 would be cheaper than 2."));
    GivenArbitrary(1, 2, 0.1);
    GivenCosts(10, 1);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("cheaper"))));
    GivenExponential(3, 3.5, 2);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("cost"))));
}

// 12 columns hold 999,999.0000 and cut a figure of one digit more.
TEST(WaitingMeaning, FiguresThatDoNotFitAreTold)
{
    GivenArbitrary(0.0009, 0.001, 1000);
    EXPECT_THAT(Said(), Not(Contains(HasSubstr("cuts figures"))));
    GivenArbitrary(0.0000009, 0.000001, 1000000);
    EXPECT_THAT(Said(), Contains(HasSubstr(
                            "The report cuts figures that do not fit their field: the average time in the "
                            "waiting line is 9,000,000.0000 and the average time in the system is")));
}

TEST(WaitingMeaning, EveryLineHasAResultAndAtMost12Sentences)
{
    std::mt19937 random(903);
    std::uniform_real_distribution<double> uniform(0.01, 0.999);
    for (int round = 0; round < 400; ++round) {
        const int model = 1 + round % 5;
        const int k = model == 2 || model == 3 ? 1 : 1 + static_cast<int>(random() % 25);
        const double services = 20 * uniform(random);
        GivenChannels(model, k, k * services * uniform(random), services);
        if (model == VtWait::kArbitrary) Problem.ServiceStdDev = uniform(random);
        if (model == VtWait::kFinitePopulation) Problem.Population = 1 + static_cast<int>(random() % 30);
        if (model != VtWait::kNoWaiting && random() % 2 == 0)
            GivenCosts(50 * uniform(random), 50 * uniform(random));
        const auto said = Said();
        EXPECT_FALSE(said.empty());
        EXPECT_LE(said.size(), 12U);
        EXPECT_THAT(said, Each(testing::EndsWith(".")));
        EXPECT_THAT(said, Each(Not(HasSubstr("nan"))));
    }
}
