#include "waiting/WaitingSteps.h"

#include <gmock/gmock.h>

#include <random>

#include "waiting/LineFacts.h"
#include "waiting/lines.h"

using picture::Step;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using VtWait::Problem;
using VtWait::Result;

std::vector<Step> Told()
{
    SolveGiven();
    return VtWait::Steps(Problem, Result);
}

std::vector<std::string> Headings(const std::vector<Step>& steps)
{
    std::vector<std::string> headings;
    headings.reserve(steps.size());
    for (const Step& step : steps)
        headings.push_back(step.Heading);
    return headings;
}

const Step& Headed(const std::vector<Step>& steps, std::string_view start)
{
    for (const Step& step : steps)
        if (step.Heading.starts_with(start)) return step;
    throw std::runtime_error("no step " + std::string(start));
}

}  // namespace

TEST(WaitingSteps, NothingIsToldBeforeASolve)
{
    GivenExponential(1, 2, 3);
    EXPECT_THAT(VtWait::Steps(Problem, {}), IsEmpty());
}

// By hand, two channels at load 1.5 of 2: S = 1 + 1.5, T = 2 / (4 - 3) * 2.25 / 1, P0 = 1 / 7.
TEST(WaitingSteps, ExponentialChannelsFollowErlang)
{
    GivenExponential(2, 3, 2);
    const auto steps = Told();
    EXPECT_THAT(Headings(steps),
                ElementsAre("Load", "Chance of an empty system (P0)", "Units in the waiting line (Lq)",
                            "Units in the system (L)", "Time in the waiting line (Wq, Little's law)",
                            "Time in the system (W)", "Chance to wait (Pw, Erlang's formula C)",
                            "Chances of n units", "Proof"));
    EXPECT_THAT(steps[0].Figures,
                ElementsAre("r = arrivals / services = 3 / 2 = 1.5000", "r / k = 1.5000 / 2 = 0.7500"));
    EXPECT_THAT(steps[1].Figures,
                ElementsAre("   n  r^n / n!", "   0  r^0 / 0!                                      1.0000",
                            "   1  r^1 / 1!                                      1.5000", "S = 2.5000",
                            "T = 2 / (2 x 2 - 3) x r^2 / 1! = 4.5000", "P0 = 1 / (T + S) = 0.1429"));
    EXPECT_THAT(steps[2].Figures, Contains("   = 1.9286"));
    EXPECT_THAT(steps[6].Figures, Contains("   = 0.6429"));
    EXPECT_THAT(steps.back().Figures, ElementsAre("sum of all chances = 1.0000",
                                                  "arrivals x W = 3 x 1.1429 = 3.4286, and L = 3.4286"));
}

TEST(WaitingSteps, TheTableTellsWhereItEnds)
{
    GivenExponential(1, 1, 2);
    EXPECT_EQ(Headed(Told(), "Chances").Why, "The table ends where less than 0.0100 is left: 0.0078.");
    GivenExponential(1, 0.999, 1);
    EXPECT_EQ(Headed(Told(), "Chances").Why,
              "The table ends at 100 units, before what is left has come below 0.0100.");
}

TEST(WaitingSteps, OneChannelFollowsPollaczekAndKhinchin)
{
    GivenArbitrary(0.35, 0.5, 1.2);
    const auto steps = Told();
    EXPECT_THAT(Headed(steps, "Units in the waiting line").Figures,
                ElementsAre("Lq = (r^2 + deviation^2 x arrivals^2) / (2 x (1 - r))",
                            "   = (0.7000^2 + 1.2^2 x 0.35^2) / (2 x 0.3000)", "   = 1.1107"));
    EXPECT_EQ(Headed(steps, "Units in the waiting line").Picture, "Wait");
    GivenDeterministic(2, 3);
    EXPECT_THAT(Headed(Told(), "Units in the waiting line").Why, HasSubstr("half of the line"));
}

TEST(WaitingSteps, WithoutWaitingTheStatesAreWeighed)
{
    GivenNoWaiting(3, 2, 1);
    const auto steps = Told();
    EXPECT_THAT(steps[1].Figures, Contains("T = 6.3333"));
    EXPECT_THAT(Headed(steps, "Chance to be blocked").Figures, ElementsAre("P3 = (r^3 / 3!) / T = 0.2105"));
    EXPECT_THAT(Headed(steps, "Units in the system").Figures,
                ElementsAre("L = (1 - P3) x r = (1 - 0.2105) x 2.0000 = 1.5789"));
}

TEST(WaitingSteps, AChannelForEachMemberLeavesNothingToAddUp)
{
    GivenPopulation(3, 0.5, 1, 3);
    auto steps = Told();
    EXPECT_THAT(Headed(steps, "Units in the waiting line").Figures, ElementsAre("Lq = 0.0000"));
    // (1/3)^3: each of three members is out for a third of the time
    EXPECT_THAT(Headed(steps, "Chance to wait").Figures,
                ElementsAre("Pw = sum of Pn for n from 3 on = 0.0370", "of the arrivals: 0.0000"));
    GivenPopulation(4, 0.5, 1, 3);
    steps = Told();
    EXPECT_THAT(Headed(steps, "Chance to wait").Figures, ElementsAre("Pw = 0.0000"));
    EXPECT_EQ(Headed(steps, "Chance to wait").Why,
              "There are more channels than members, so that they are never all busy.");
}

// Of six machines with one repairer 5 others are seen on arrival.
TEST(WaitingSteps, AFinitePopulationCountsTheArrivalsThatTakePlace)
{
    GivenPopulation(1, 0.05, 0.5, 6);
    const auto steps = Told();
    EXPECT_THAT(Headed(steps, "Arrivals that").Figures,
                ElementsAre("e = (N - L) x arrivals = (6 - 0.8451) x 0.05 = 0.2577"));
    GivenPopulation(1, 0.05, 0.5, 5);
    SolveGiven();
    const double othersBusy = Result.ProbabilityWait;
    GivenPopulation(1, 0.05, 0.5, 6);
    SolveGiven();
    EXPECT_NEAR(VtWait::WaitOnArrival(Problem, Result), othersBusy, 1e-12);
}

TEST(WaitingSteps, TheCostIsAStepOfItsOwn)
{
    GivenExponential(2, 0.75, 1);
    GivenCosts(10, 7);
    EXPECT_THAT(Headed(Told(), "Total cost").Figures, ElementsAre("$7.00 x 2 + $10.00 x 0.8727 = $22.73"));
    VtWait::ChooseEconomicAnalysis(false);
    for (const Step& step : Told())
        EXPECT_NE(step.Heading, "Total cost per time period");
}

TEST(WaitingSteps, EveryLineIsToldToItsProof)
{
    std::mt19937 random(902);
    std::uniform_real_distribution<double> uniform(0.01, 0.99);
    for (int round = 0; round < 250; ++round) {
        const int model = 1 + round % 5;
        const int k = model == 2 || model == 3 ? 1 : 1 + static_cast<int>(random() % 25);
        const double services = 20 * uniform(random);
        GivenChannels(model, k, k * services * uniform(random), services);
        if (model == VtWait::kArbitrary) Problem.ServiceStdDev = uniform(random);
        if (model == VtWait::kFinitePopulation) Problem.Population = 1 + static_cast<int>(random() % 30);
        const auto steps = Told();
        EXPECT_EQ(steps.back().Heading, "Proof");
        for (const Step& step : steps) {
            EXPECT_FALSE(step.Why.empty());
            EXPECT_FALSE(step.Figures.empty());
        }
        if (VtWait::HasStates(Problem)) {
            EXPECT_EQ(steps.back().Figures[0], "sum of all chances = 1.0000") << round;
        }
        EXPECT_THAT(Headed(steps, "Units in the system").Figures[0],
                    testing::EndsWith(" = " + VtWait::AverageText(Result.UnitsInSystem)));
    }
}
