#include "waiting/WaitingPicture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "basic/format.h"
#include "waiting/LineFacts.h"
#include "waiting/lines.h"

using picture::Chart;
using picture::Picture;
using picture::Role;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using VtWait::Problem;
using VtWait::Result;

std::vector<Picture> Drawn()
{
    SolveGiven();
    return VtWait::Pictures(Problem, Result);
}

std::vector<std::string> Titles(const std::vector<Picture>& pictures)
{
    std::vector<std::string> titles;
    titles.reserve(pictures.size());
    for (const Picture& drawn : pictures)
        titles.push_back(drawn.Title);
    return titles;
}

const Chart& ChartOf(const std::vector<Picture>& pictures, std::string_view title)
{
    for (const Picture& drawn : pictures)
        if (drawn.Title == title) return std::get<Chart>(drawn.Body);
    throw std::runtime_error("no picture " + std::string(title));
}

double ErlangB(int k, double load)
{
    double blocked = 1;
    for (int i = 1; i <= k; ++i)
        blocked = load * blocked / (i + load * blocked);
    return blocked;
}

// Units in a line of exponential channels, by Erlang's recursion.
double UnitsOf(int k, double load)
{
    const double blocked = ErlangB(k, load);
    const double wait = blocked / (1 - load / k * (1 - blocked));
    return wait * load / (k - load) + load;
}

void ExpectInside(const Chart& chart)
{
    for (const picture::Series& series : chart.Curves) {
        EXPECT_EQ(series.Points.size(), series.Tips.size());
        for (const picture::Point& point : series.Points) {
            EXPECT_TRUE(std::isfinite(point.Y));
            EXPECT_GE(point.X, chart.X.From);
            EXPECT_LE(point.X, chart.X.To);
            EXPECT_GE(point.Y, chart.Y.From);
            EXPECT_LE(point.Y, chart.Y.To);
        }
    }
    for (const picture::Mark& mark : chart.Marks) {
        EXPECT_GE(mark.At.X, chart.X.From);
        EXPECT_LE(mark.At.X, chart.X.To);
        EXPECT_GE(mark.At.Y, chart.Y.From);
        EXPECT_LE(mark.At.Y, chart.Y.To);
    }
}

}  // namespace

TEST(WaitingPicture, NothingIsDrawnBeforeASolve)
{
    GivenExponential(1, 2, 3);
    EXPECT_THAT(VtWait::Pictures(Problem, {}), IsEmpty());
}

// At a load of 1/2 the chance of n is 0.5^(n + 1); the seventh state leaves 1/128.
TEST(WaitingPicture, BarsOfExponentialServiceEndInOneOfNOrMore)
{
    GivenExponential(1, 1, 2);
    const auto pictures = Drawn();
    EXPECT_THAT(Titles(pictures), ElementsAre("Chance of n units"));
    const Chart& chart = ChartOf(pictures, "Chance of n units");
    ASSERT_EQ(chart.Curves.size(), 2U);
    ASSERT_EQ(chart.Curves[0].Points.size(), 7U);
    for (int n = 0; n < 7; ++n) {
        EXPECT_EQ(chart.Curves[0].Points[static_cast<std::size_t>(n)].X, n);
        EXPECT_NEAR(chart.Curves[0].Points[static_cast<std::size_t>(n)].Y, std::pow(0.5, n + 1), 1e-12);
    }
    EXPECT_EQ(chart.Curves[1].Name, "7 or more");
    EXPECT_TRUE(chart.Curves[1].Hatched);
    EXPECT_EQ(chart.Curves[1].Points[0].X, 7);
    EXPECT_NEAR(chart.Curves[1].Points[0].Y, 1.0 / 128, 1e-12);
    EXPECT_EQ(chart.X.From, -0.5);
    EXPECT_EQ(chart.X.To, 7.5);
    EXPECT_EQ(chart.Rules[0].Value, 0.5);  // from 1 unit on the channel is busy
    EXPECT_THAT(pictures[0].Notes,
                ElementsAre("The system is empty with a chance of 0.5000 and holds 1.0000 units on average.",
                            "Chance of 7 or more units: 0.0078."));
}

TEST(WaitingPicture, AFinitePopulationHasNoOpenEnd)
{
    GivenPopulation(1, 0.05, 0.5, 6);
    const Chart chart = ChartOf(Drawn(), "Chance of n units");
    EXPECT_EQ(chart.Curves.size(), 1U);
    EXPECT_EQ(chart.Curves[0].Points.size(), 7U);
    EXPECT_EQ(chart.X.To, 6.5);
    EXPECT_NEAR(chart.Curves[0].Points[0].Y, 0.4845, 0.00005);
}

TEST(WaitingPicture, MoreChannelsThanMembersAreNeverAllBusy)
{
    GivenPopulation(6, 2, 3, 2);
    EXPECT_THAT(ChartOf(Drawn(), "Chance of n units").Rules, IsEmpty());
    GivenPopulation(2, 2, 3, 2);
    EXPECT_EQ(ChartOf(Drawn(), "Chance of n units").Rules.size(), 1U);
}

TEST(WaitingPicture, WithoutWaitingTheBusyStateAndTheShareLostAreShown)
{
    GivenNoWaiting(3, 2, 1);
    const auto pictures = Drawn();
    EXPECT_THAT(Titles(pictures), ElementsAre("Chance of n units", "Lost"));
    const Chart& states = ChartOf(pictures, "Chance of n units");
    EXPECT_EQ(states.Curves[0].Points.size(), 3U);
    EXPECT_EQ(states.Curves[1].As, Role::Limit);
    EXPECT_NEAR(states.Curves[1].Points[0].Y, 4.0 / 19, 1e-12);  // 1 + 2 + 2 + 4/3 = 19/3
    const Chart& lost = ChartOf(pictures, "Lost");
    ASSERT_EQ(lost.Curves[0].Points.size(), 25U);
    for (int k = 1; k <= 25; ++k)
        EXPECT_NEAR(lost.Curves[0].Points[static_cast<std::size_t>(k) - 1].Y, ErlangB(k, 2), 1e-12);
    EXPECT_EQ(lost.Marks[0].At.X, 3);
    EXPECT_EQ(lost.Marks[0].Text, "given 0.2105");
}

// By hand at load 0.7: constant 0.49 / 0.6, given (0.49 + 1.44 * 0.1225) / 0.6, exponential twice the first.
TEST(WaitingPicture, ArbitraryServiceShowsItsLineAgainstTheLoad)
{
    GivenArbitrary(0.35, 0.5, 1.2);
    const auto pictures = Drawn();
    EXPECT_THAT(Titles(pictures), ElementsAre("Wait"));
    const Chart& chart = ChartOf(pictures, "Wait");
    ASSERT_EQ(chart.Curves.size(), 3U);
    EXPECT_EQ(chart.Curves[1].Name, "given");
    EXPECT_EQ(chart.Curves[1].As, Role::Chosen);
    EXPECT_NEAR(chart.Marks[0].At.X, 0.7, 1e-12);
    EXPECT_NEAR(chart.Marks[0].At.Y, 1.1107, 0.00005);
    EXPECT_NEAR(VtWait::UnitsInLineAt(0.7, 0), 0.49 / 0.6, 1e-12);
    EXPECT_NEAR(VtWait::UnitsInLineAt(0.7, 1), 0.98 / 0.6, 1e-12);
    EXPECT_NEAR(VtWait::UnitsInLineAt(0.7, VtWait::VariationOf(Problem)), Result.UnitsInLine, 1e-12);
    const picture::Point& last = chart.Curves[0].Points.back();
    EXPECT_NEAR(last.X, 0.88, 1e-12);
    EXPECT_NEAR(last.Y, 0.88 * 0.88 / 0.24, 1e-9);
}

TEST(WaitingPicture, ConstantServiceHasNoCurveOfItsOwn)
{
    GivenDeterministic(2, 3);
    const Chart chart = ChartOf(Drawn(), "Wait");
    ASSERT_EQ(chart.Curves.size(), 2U);
    EXPECT_EQ(chart.Curves[0].Name, "constant");
    EXPECT_EQ(chart.Curves[0].As, Role::Chosen);
    EXPECT_EQ(chart.Curves[1].Name, "exponential");
}

TEST(WaitingPicture, CostMarksTheGivenAndTheCheapestCount)
{
    GivenExponential(3, 3.5, 2);  // 1 channel cannot cope
    GivenCosts(10, 1);
    const auto pictures = Drawn();
    EXPECT_THAT(Titles(pictures), ElementsAre("Chance of n units", "Cost"));
    const Chart& chart = ChartOf(pictures, "Cost");
    ASSERT_EQ(chart.Curves[0].Points.size(), 24U);
    int cheapest = 0;
    double least = 1e300;
    for (int k = 2; k <= 25; ++k) {
        const double cost = 1 * k + 10 * UnitsOf(k, 1.75);
        EXPECT_NEAR(chart.Curves[0].Points[static_cast<std::size_t>(k) - 2].Y, cost, 1e-9);
        if (cost < least) cheapest = k;
        least = std::min(least, cost);
    }
    ASSERT_EQ(chart.Marks.size(), 2U);
    EXPECT_EQ(chart.Marks[0].Id, "cheapest");
    EXPECT_EQ(chart.Marks[0].At.X, cheapest);
    EXPECT_NE(cheapest, 3);
    EXPECT_EQ(chart.Marks[1].At.X, 3);
    ASSERT_EQ(chart.Bands.size(), 1U);
    EXPECT_EQ(chart.Bands[0].To, 1.5);
    EXPECT_EQ(pictures[1].Notes[1], "1 channel cannot cope with the arrivals.");
    GivenExponential(cheapest, 3.5, 2);
    GivenCosts(10, 1);
    const Chart best = ChartOf(Drawn(), "Cost");
    ASSERT_EQ(best.Marks.size(), 1U);
    EXPECT_EQ(best.Marks[0].Text, "given and cheapest " + VtWait::CostText(least));
}

// With free channels each further one up to the size of the population is cheaper by its part of the wait,
// and beyond it only rounding differs; to the cent many counts cost the same.
TEST(WaitingPicture, CountsThatCostTheSameAreNotTakenForCheaper)
{
    GivenPopulation(5, 1, 3, 2);
    GivenCosts(10, 0);
    const auto pictures = Drawn();
    EXPECT_THAT(pictures[1].Notes, ElementsAre("No number of channels is cheaper than the given 5: $5.00 "
                                               "per time period."));  // 2 members, each out 1/4 of the time
    EXPECT_EQ(ChartOf(pictures, "Cost").Marks.size(), 1U);
    GivenPopulation(2, 1, 3, 4);
    GivenCosts(10, 0);
    EXPECT_EQ(ChartOf(Drawn(), "Cost").Marks[0].At.X, 4);
    GivenPopulation(25, 1, 3, 4);
    GivenCosts(10, -1);  // each channel brings something: more than there are members bring most
    EXPECT_EQ(ChartOf(Drawn(), "Cost").Marks[0].Text, "given and cheapest -$15.00");
}

TEST(WaitingPicture, AChanceThatIsPrintedAsZeroIsSmall)
{
    GivenExponential(25, 240, 10);
    EXPECT_THAT(Drawn()[0].Notes[0],
                testing::StartsWith("The system is empty with a chance below 0.0001 and holds "));
    GivenNoWaiting(12, 1, 1);
    EXPECT_EQ(Drawn()[0].Notes[0],
              "All channels are busy, and an arriving unit is lost, with a chance below 0.0001.");
    GivenExponential(2, 0.001, 1);
    EXPECT_EQ(Drawn()[0].Notes[1], "Chance of 2 or more units: below 0.0001.");
    GivenDeterministic(0.001, 1);
    EXPECT_EQ(Drawn()[0].Notes[0],
              "At the present load of 0.0010 the line holds less than 0.0001 units on "
              "average; towards full load it grows without limit.");
}

// 1 / 1.001 of the time nobody is there.
TEST(WaitingPicture, AnAxisOfChancesEndsAtOne)
{
    GivenExponential(2, 0.001, 1);
    EXPECT_EQ(ChartOf(Drawn(), "Chance of n units").Y.To, 1);
    GivenNoWaiting(25, 20, 1);
    EXPECT_EQ(ChartOf(Drawn(), "Lost").Y.To, 1);
}

TEST(WaitingPicture, CostsOfAPopulationGoToItsSize)
{
    GivenPopulation(2, 1, 4, 7);
    GivenCosts(10, 1);
    EXPECT_EQ(ChartOf(Drawn(), "Cost").X.To, 7.5);
    GivenPopulation(9, 1, 4, 7);
    GivenCosts(10, 1);
    EXPECT_EQ(ChartOf(Drawn(), "Cost").X.To, 9.5);
}

TEST(WaitingPicture, OneChannelHasNoOtherCost)
{
    GivenArbitrary(1, 2, 0.1);
    GivenCosts(10, 1);
    EXPECT_THAT(Titles(Drawn()), ElementsAre("Wait"));
}

TEST(WaitingPicture, EveryLineIsDrawnInsideItsAxes)
{
    std::mt19937 random(901);
    std::uniform_real_distribution<double> uniform(0.01, 1);
    for (int round = 0; round < 400; ++round) {
        const int model = 1 + round % 5;
        const int k = model == 2 || model == 3 ? 1 : 1 + static_cast<int>(random() % 25);
        const double services = 20 * uniform(random);
        GivenChannels(model, k, k * services * std::min(uniform(random), 0.999), services);
        if (model == VtWait::kArbitrary) Problem.ServiceStdDev = uniform(random);
        if (model == VtWait::kFinitePopulation) Problem.Population = 1 + static_cast<int>(random() % 30);
        if (model != VtWait::kNoWaiting && random() % 2 == 0)
            GivenCosts(50 * uniform(random), 50 * uniform(random));
        const auto pictures = Drawn();
        ASSERT_FALSE(pictures.empty());
        for (const Picture& drawn : pictures) {
            EXPECT_FALSE(drawn.Notes.empty());
            ExpectInside(std::get<Chart>(drawn.Body));
        }
        if (!VtWait::HasStates(Problem)) continue;
        double sum = 0;
        for (const picture::Series& bars : std::get<Chart>(pictures[0].Body).Curves)
            for (const picture::Point& point : bars.Points)
                sum += point.Y;
        EXPECT_NEAR(sum, 1, 1e-9) << round;
    }
}
