// The formulas are held against the balance equations of the chains behind them, Little's law, Erlang's
// recursion and the tables and worked problems of textbooks.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <random>

#include "basic/error.h"
#include "shell/solution.h"
#include "support/birth_death.h"
#include "support/fake_desktop.h"
#include "waiting/WaitingReport.h"
#include "waiting/lines.h"

namespace {

using VtWait::Problem;
using VtWait::Result;

double Mean(const Row& p)
{
    double mean = 0;
    for (std::size_t n = 0; n < p.size(); ++n)
        mean += static_cast<double>(n) * p[n];
    return mean;
}

double MeanBeyond(const Row& p, int k)
{
    double mean = 0;
    for (auto n = static_cast<std::size_t>(k); n < p.size(); ++n)
        mean += (static_cast<double>(n) - k) * p[n];
    return mean;
}

double From(const Row& p, int k)
{
    double sum = 0;
    for (auto n = static_cast<std::size_t>(k); n < p.size(); ++n)
        sum += p[n];
    return sum;
}

// Service rates in the states 1 to `states` of a line with k channels.
Row ServiceRates(int k, double services, int states)
{
    Row rates;
    for (int n = 1; n <= states; ++n)
        rates.push_back(std::min(n, k) * services);
    return rates;
}

void ExpectStates(const Row& p, int last)
{
    for (int n = 0; n <= last; ++n)
        EXPECT_NEAR(Result.StateProbability(n), p[static_cast<std::size_t>(n)], 1e-9) << n;
}

// Erlang's loss probability by his recursion over the number of channels.
double ErlangB(int k, double load)
{
    double blocked = 1;
    for (int i = 1; i <= k; ++i)
        blocked = load * blocked / (i + load * blocked);
    return blocked;
}

double ErlangC(int k, double load)
{
    const double blocked = ErlangB(k, load);
    return blocked / (1 - load / k * (1 - blocked));
}

ErrorNumber FailureOfSolve()
{
    try {
        SolveGiven();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{0};
}

// One channel whose service is `phases` exponential phases one after the other. The flow over each cut
// between the numbers of phases in the system must balance; its mean number of units is the answer.
double UnitsWithPhases(double arrivals, double services, int phases)
{
    Row p{1.0};
    double total = 1;
    double units = 0;
    for (int j = 0; j < 40000; ++j) {
        double flowUp = 0;
        for (int i = std::max(0, j - phases + 1); i <= j; ++i)
            flowUp += arrivals * p[static_cast<std::size_t>(i)];
        p.push_back(flowUp / (phases * services));
        total += p.back();
        units += p.back() * std::ceil(static_cast<double>(j + 1) / phases);
    }
    return units / total;
}

}  // namespace

// ---- several exponential channels ----

TEST(ExponentialChannels, OneChannelAtTwoThirds)
{
    GivenExponential(1, 2, 3);
    SolveGiven();
    EXPECT_NEAR(Result.ProbabilityNone, 1.0 / 3, 1e-12);
    EXPECT_NEAR(Result.UnitsInLine, 4.0 / 3, 1e-12);
    EXPECT_NEAR(Result.UnitsInSystem, 2, 1e-12);
    EXPECT_NEAR(Result.TimeInLine, 2.0 / 3, 1e-12);
    EXPECT_NEAR(Result.TimeInSystem, 1, 1e-12);
    EXPECT_NEAR(Result.ProbabilityWait, 2.0 / 3, 1e-12);
    EXPECT_NEAR(Result.StateProbability(3), 8.0 / 81, 1e-12);
}

// Printed answers of a hamburger stand: 45 customers an hour, 60 served, times in minutes.
TEST(ExponentialChannels, GiveThePrintedAnswersOfATextbookStand)
{
    GivenExponential(1, 0.75, 1);
    SolveGiven();
    EXPECT_DOUBLE_EQ(Result.ProbabilityNone, 0.25);
    EXPECT_DOUBLE_EQ(Result.UnitsInLine, 2.25);
    EXPECT_DOUBLE_EQ(Result.TimeInSystem, 4);
    GivenExponential(2, 0.75, 1);
    SolveGiven();
    EXPECT_NEAR(Result.ProbabilityNone, 0.4545, 0.00005);
    EXPECT_NEAR(Result.UnitsInLine, 0.1227, 0.00005);
    EXPECT_NEAR(Result.UnitsInSystem, 0.8727, 0.00005);
    EXPECT_NEAR(Result.TimeInLine, 0.1636, 0.00005);
    EXPECT_NEAR(Result.TimeInSystem, 1.1636, 0.00005);
    EXPECT_NEAR(Result.ProbabilityWait, 0.2045, 0.00005);
}

// From a printed table of P0 for several channels.
TEST(ExponentialChannels, GiveTheProbabilitiesOfAPublishedTable)
{
    struct Printed {
        double Load;
        int Channels;
        double None;
    };
    for (const Printed& row :
         {Printed{0.5, 2, 0.6000}, Printed{1.0, 2, 0.3333}, Printed{1.0, 3, 0.3636}, Printed{2.0, 3, 0.1111},
          Printed{2.0, 4, 0.1304}, Printed{3.0, 4, 0.0377}, Printed{4.0, 5, 0.0130}}) {
        GivenExponential(row.Channels, row.Load, 1);
        SolveGiven();
        EXPECT_NEAR(Result.ProbabilityNone, row.None, 0.00005) << row.Load << " on " << row.Channels;
    }
}

TEST(ExponentialChannels, SatisfyTheBalanceEquations)
{
    std::mt19937 random(71);
    std::uniform_real_distribution<double> uniform(0.1, 0.85);
    for (int round = 0; round < 12; ++round) {
        const int k = 1 + round * 2;
        const double services = 10 * uniform(random);
        const double arrivals = k * services * uniform(random);
        GivenExponential(k, arrivals, services);
        SolveGiven();
        constexpr int kStates = 220;
        const Row p = BirthDeath(Row(kStates, arrivals), ServiceRates(k, services, kStates));
        EXPECT_NEAR(Result.ProbabilityNone, p[0], 1e-9);
        EXPECT_NEAR(Result.UnitsInLine, MeanBeyond(p, k), 1e-8);
        EXPECT_NEAR(Result.UnitsInSystem, Mean(p), 1e-8);
        EXPECT_NEAR(Result.ProbabilityWait, From(p, k), 1e-9);
        ExpectStates(p, Result.RowCount - 1);
        EXPECT_NEAR(Result.TailProbability, From(p, Result.RowCount), 1e-9);
    }
}

TEST(ExponentialChannels, ObeyLittlesLawAndErlangsFormula)
{
    for (int k = 1; k <= 25; ++k) {
        for (const double use : {0.05, 0.5, 0.9, 0.99}) {
            const double services = 1.7;
            const double arrivals = use * k * services;
            GivenExponential(k, arrivals, services);
            SolveGiven();
            EXPECT_NEAR(Result.UnitsInSystem, arrivals * Result.TimeInSystem, 1e-9 * Result.UnitsInSystem);
            EXPECT_NEAR(Result.UnitsInLine, arrivals * Result.TimeInLine, 1e-9 * Result.UnitsInSystem);
            EXPECT_NEAR(Result.ProbabilityWait, ErlangC(k, arrivals / services), 1e-9);
        }
    }
}

TEST(ExponentialChannels, LeaveTheNumberOfOtherChannelsInPopulation)
{
    GivenExponential(4, 3, 1);
    Problem.Population = 20;
    SolveGiven();
    EXPECT_EQ(Problem.Population.Value(), 3.0);
}

TEST(ExponentialChannels, ListStatesUntilTheTailIsBelowAHundredth)
{
    GivenExponential(1, 1, 2);  // tail behind state n: 0.5 to the power n + 1
    SolveGiven();
    EXPECT_EQ(Result.RowCount, 7);
    EXPECT_NEAR(Result.TailProbability, 1.0 / 128, 1e-12);
}

TEST(ExponentialChannels, ListAtMost101States)
{
    GivenExponential(1, 0.999, 1);
    SolveGiven();
    EXPECT_EQ(Result.RowCount, 101);
    EXPECT_NEAR(Result.TailProbability, std::pow(0.999, 101), 1e-9);
    EXPECT_NEAR(Result.StateProbability(100), 0.001 * std::pow(0.999, 100), 1e-12);
}

TEST(ExponentialChannels, ForgetTheStatesOfALongerTable)
{
    GivenExponential(1, 0.999, 1);
    SolveGiven();
    Problem.ArrivalRate = 0.1;
    SolveGiven();
    EXPECT_EQ(Result.StateProbability(Result.RowCount), 0.0);
    EXPECT_EQ(Result.StateProbability(100), 0.0);
}

TEST(ExponentialChannels, FailWithoutSpareCapacity)
{
    GivenExponential(2, 6, 3);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::DivisionByZero);
    GivenExponential(2, 6, 0);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::DivisionByZero);
}

TEST(ExponentialChannels, FailForACountBeyondAllNumbers)
{
    GivenExponential(1, 1, 1);
    Problem.Channels = 2e9;  // only a file can bring it
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::Overflow);
    Problem.Channels = 1e300;
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::Overflow);
}

// ---- one channel ----

// Printed answers of a shop with one clerk: 21 customers an hour, 2 minutes each, deviation 1.2 minutes.
TEST(SingleChannel, GivesThePrintedAnswersOfATextbookShop)
{
    GivenArbitrary(0.35, 0.5, 1.2);
    SolveGiven();
    EXPECT_NEAR(Result.ProbabilityNone, 0.30, 1e-12);
    EXPECT_NEAR(Result.UnitsInLine, 1.1107, 0.00005);
    EXPECT_NEAR(Result.UnitsInSystem, 1.8107, 0.00005);
    EXPECT_NEAR(Result.TimeInLine, 3.1733, 0.00005);
    EXPECT_NEAR(Result.TimeInSystem, 5.1733, 0.00005);
    EXPECT_NEAR(Result.ProbabilityWait, 0.70, 1e-12);
    EXPECT_EQ(Result.StateProbability(0), Result.ProbabilityNone);
}

TEST(SingleChannel, BalancesWithAServiceInPhases)
{
    for (const int phases : {1, 2, 3, 8}) {
        for (const double use : {0.2, 0.6, 0.9}) {
            const double services = 4;
            GivenArbitrary(use * services, services, 1 / (services * std::sqrt(phases)));
            SolveGiven();
            EXPECT_NEAR(Result.UnitsInSystem, UnitsWithPhases(use * services, services, phases), 1e-7)
                << phases << " phases at " << use;
        }
    }
}

TEST(SingleChannel, WithTheDeviationOfAnExponentialServiceIsTheExponentialChannel)
{
    GivenArbitrary(2, 3, 1.0 / 3);
    SolveGiven();
    const double line = Result.UnitsInLine;
    GivenExponential(1, 2, 3);
    SolveGiven();
    EXPECT_NEAR(line, Result.UnitsInLine, 1e-12);
}

TEST(SingleChannel, ConstantServiceIsArbitraryServiceWithoutDeviation)
{
    GivenArbitrary(32, 34.3, 0);
    SolveGiven();
    const VtWait::WaitingResult arbitrary = Result;
    GivenDeterministic(32, 34.3);
    Problem.ServiceStdDev = 5;
    SolveGiven();
    EXPECT_EQ(Problem.ServiceStdDev.Value(), 0.0);
    EXPECT_FALSE(Problem.ServiceStdDev.IsEmpty());
    EXPECT_EQ(Result.ProbabilityNone, arbitrary.ProbabilityNone);
    EXPECT_EQ(Result.UnitsInLine, arbitrary.UnitsInLine);
    EXPECT_EQ(Result.UnitsInSystem, arbitrary.UnitsInSystem);
    EXPECT_EQ(Result.TimeInLine, arbitrary.TimeInLine);
    EXPECT_EQ(Result.TimeInSystem, arbitrary.TimeInSystem);
    EXPECT_EQ(Result.ProbabilityWait, arbitrary.ProbabilityWait);
}

// A constant service time halves the line of an exponential one.
TEST(SingleChannel, ConstantServiceHalvesTheLine)
{
    GivenExponential(1, 5, 6);
    SolveGiven();
    const double line = Result.UnitsInLine;
    GivenDeterministic(5, 6);
    SolveGiven();
    EXPECT_NEAR(Result.UnitsInLine, line / 2, 1e-12);
}

TEST(SingleChannel, FailsAtFullUse)
{
    GivenArbitrary(3, 3, 1);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::DivisionByZero);
}

// ---- no waiting ----

TEST(NoWaiting, OneChannelIsBlockedInProportion)
{
    GivenNoWaiting(1, 2, 8);
    SolveGiven();
    EXPECT_DOUBLE_EQ(Result.ProbabilityNone, 0.8);
    EXPECT_DOUBLE_EQ(Result.ProbabilityWait, 0.2);
    EXPECT_DOUBLE_EQ(Result.UnitsInSystem, 0.2);
}

// Printed in the tables of telephone traffic: 10 erlangs on 10 lines, 5 on 10, 2 on 3, 1 on 1.
TEST(NoWaiting, GivesTheBlockingOfPublishedTables)
{
    struct Printed {
        double Load;
        int Lines;
        double Blocked;
    };
    for (const Printed& row : {Printed{10, 10, 0.2146}, Printed{5, 10, 0.0184}, Printed{2, 3, 0.2105},
                               Printed{1, 1, 0.5}, Printed{3, 5, 0.1101}}) {
        GivenNoWaiting(row.Lines, row.Load * 2, 2);
        SolveGiven();
        EXPECT_NEAR(Result.ProbabilityWait, row.Blocked, 0.00006) << row.Load << " on " << row.Lines;
    }
}

TEST(NoWaiting, SatisfiesTheBalanceEquationsAndErlangsRecursion)
{
    for (int k = 1; k <= 25; ++k) {
        const double services = 2.5;
        const double arrivals = 0.7 * k * services;
        GivenNoWaiting(k, arrivals, services);
        SolveGiven();
        const Row p = BirthDeath(Row(static_cast<std::size_t>(k), arrivals), ServiceRates(k, services, k));
        ExpectStates(p, k);
        EXPECT_NEAR(Result.ProbabilityWait, ErlangB(k, arrivals / services), 1e-12);
        EXPECT_NEAR(Result.UnitsInSystem, Mean(p), 1e-9);
        EXPECT_EQ(Result.ProbabilityNone, Result.StateProbability(0));
    }
}

TEST(NoWaiting, FailsBeyondTheChannelsOfItsTable)
{
    GivenNoWaiting(26, 2, 1);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber{0});
    GivenNoWaiting(27, 2, 1);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::SubscriptOutOfRange);
}

// 1e13 to the power 26 over 26! is 2.5e311 and beyond all numbers, 1e13 to the power 25 over 25! is 6.4e299.
TEST(NoWaiting, FailsForALoadBeyondAllNumbers)
{
    GivenNoWaiting(26, 1e13, 1);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::Overflow);
    GivenNoWaiting(25, 1e13, 1);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber{0});
}

// ---- finite population ----

// Printed answers of a repair shop: 6 machines, 0.05 failures and 0.5 repairs an hour.
TEST(FinitePopulation, GivesThePrintedAnswersOfATextbookRepairShop)
{
    GivenPopulation(1, 0.05, 0.5, 6);
    SolveGiven();
    EXPECT_NEAR(Result.ProbabilityNone, 0.4845, 0.00005);
    EXPECT_NEAR(Result.UnitsInLine, 0.3297, 0.00005);
    EXPECT_NEAR(Result.UnitsInSystem, 0.8451, 0.00005);
    EXPECT_NEAR(Result.TimeInLine, 1.2791, 0.0001);
    EXPECT_NEAR(Result.TimeInSystem, 3.2791, 0.0001);
    EXPECT_NEAR(Result.ProbabilityWait, 0.5155, 0.00005);
    EXPECT_EQ(Result.RowCount, 7);
}

TEST(FinitePopulation, SatisfiesTheBalanceEquations)
{
    std::mt19937 random(72);
    std::uniform_real_distribution<double> uniform(0.05, 3);
    for (int round = 0; round < 60; ++round) {
        const int population = 1 + round % 30;
        const int k = 1 + round * 7 % 25;
        const double services = uniform(random);
        const double arrivals = uniform(random) * services;
        GivenPopulation(k, arrivals, services, population);
        SolveGiven();
        Row up;
        for (int n = 0; n < population; ++n)
            up.push_back((population - n) * arrivals);
        const Row p = BirthDeath(up, ServiceRates(k, services, population));
        ExpectStates(p, population);
        EXPECT_NEAR(Result.UnitsInLine, MeanBeyond(p, k), 1e-8);
        EXPECT_NEAR(Result.UnitsInSystem, Mean(p), 1e-8);
        EXPECT_NEAR(Result.ProbabilityWait, From(p, k), 1e-8);
        const double entering = (population - Mean(p)) * arrivals;
        EXPECT_NEAR(Result.TimeInSystem * entering, Mean(p), 1e-7);
        EXPECT_NEAR(Result.TimeInLine * entering, MeanBeyond(p, k), 1e-7);
    }
}

TEST(FinitePopulation, WithAChannelForEachMemberHasNoLine)
{
    GivenPopulation(5, 2, 3, 5);
    SolveGiven();
    EXPECT_EQ(Result.UnitsInLine, 0.0);
    EXPECT_NEAR(Result.UnitsInSystem, 5 * 0.4, 1e-12);
    EXPECT_EQ(Result.TimeInLine, 0.0);
}

TEST(FinitePopulation, MayBeSmallerThanTheChannels)
{
    GivenPopulation(6, 2, 3, 2);
    SolveGiven();
    EXPECT_NEAR(Result.ProbabilityNone, 0.36, 1e-12);
    EXPECT_NEAR(Result.UnitsInSystem, 0.8, 1e-12);
    EXPECT_NEAR(Result.ProbabilityWait, 0, 1e-12);
    EXPECT_EQ(Result.StateProbability(3), 0.0);
}

TEST(FinitePopulation, FailsBeyondItsTable)
{
    GivenPopulation(1, 2, 3, 201);
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::SubscriptOutOfRange);
}

// ---- economic analysis ----

TEST(TotalCost, CountsChannelsAndUnits)
{
    GivenExponential(2, 0.75, 1);
    GivenCosts(10, 7);
    SolveGiven();
    EXPECT_NEAR(VtWait::TotalCost(Problem, Result), 14 + 8.727, 0.001);
}

// A solve with its page takes well below a millisecond; the limit leaves room for a busy machine.
TEST(WaitingLine, IsThereBeforeTheUserNotices)
{
    FakeDesktop desktop;
    GivenExponential(25, 24.99, 1);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i) {
        SolveGiven();
        SolutionPage page;
        VtWait::WriteReport(page);
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    EXPECT_LT(seconds.count() / 100, 0.02);
}
