// The formulas of the five models: Erlang's for several channels, Pollaczek's and Khinchin's for one.
#include <cmath>

#include "basic/error.h"
#include "basic/number.h"
#include "waiting/VtWait.h"

namespace VtWait {
namespace {

constexpr int kLastListedState = 100;
constexpr double kTailLimit = 0.01;
constexpr int kMostBusy = 26;

double Finite(double value)
{
    if (!std::isfinite(value)) Raise(ErrorNumber::Overflow);
    return value;
}

double Power(double base, int exponent)
{
    return Finite(std::pow(base, exponent));
}

double Factorial(int n)
{
    double product = 1;
    for (int j = 2; j <= n; ++j)
        product = Finite(product * j);
    return product;
}

// n * (n - 1) * ... of `count` factors; 0 when it runs through 0.
double FallingProduct(int n, int count)
{
    double product = 1;
    for (int below = count - 1; below >= 0; --below)
        product *= n - below;
    return product;
}

double Load()
{
    return Divide(Problem.ArrivalRate.Value(), Problem.ServiceRate.Value());
}

// Little's law.
void TimesFromLine()
{
    Result.TimeInLine = Divide(Result.UnitsInLine, Problem.ArrivalRate.Value());
    Result.TimeInSystem = Divide(1, Problem.ServiceRate.Value()) + Result.TimeInLine;
}

void ListExponentialStates(int k, double load)
{
    const double none = Result.ProbabilityNone;
    double listed = none;
    Result.StateProbability(0) = none;
    for (int n = 1; n <= kLastListedState; ++n) {
        const double ways = n > k ? Finite(Factorial(k) * Power(k, n - k)) : Factorial(n);
        Result.StateProbability(n) = Finite(none * Power(load, n)) / ways;
        listed += Result.StateProbability(n);
        Result.RowCount = n + 1;
        Result.TailProbability = 1 - listed;
        if (Result.TailProbability < kTailLimit) break;
    }
}

void ExponentialChannels()
{
    const int k = ToInt16(Problem.Channels.Value());
    const double arrivals = Problem.ArrivalRate.Value();
    const double services = Problem.ServiceRate.Value();
    const double load = Load();
    const double capacity = k * services;
    const double spare = capacity - arrivals;
    double sum = 0;
    for (int i = 1; i <= k; ++i)
        sum += Power(load, i - 1) / Factorial(i - 1);
    Problem.Population = k - 1;
    const double factorial = Factorial(k - 1);
    const double allBusy = Power(load, k);
    Result.ProbabilityNone = Divide(1, Divide(services, spare) * (allBusy / factorial) + sum);
    Result.UnitsInLine =
        Divide(Result.ProbabilityNone * (services * arrivals * allBusy), spare * spare * factorial);
    Result.UnitsInSystem = load + Result.UnitsInLine;
    TimesFromLine();
    Result.ProbabilityWait =
        Result.ProbabilityNone * Divide(capacity, spare) * allBusy * Divide(1, k * factorial);
    ListExponentialStates(k, load);
}

void SingleChannel()
{
    const double load = Load();
    const double arrivals = Problem.ArrivalRate.Value();
    const double deviation = Problem.ServiceStdDev.Value();
    Result.ProbabilityNone = 1 - load;
    Result.StateProbability(0) = Result.ProbabilityNone;
    Result.UnitsInLine = Divide(load * load + deviation * deviation * (arrivals * arrivals), 2 * (1 - load));
    Result.UnitsInSystem = load + Result.UnitsInLine;
    TimesFromLine();
    Result.ProbabilityWait = load;
}

// Erlang's loss formula: the service times matter only by their mean.
void NoWaiting()
{
    const int k = ToInt16(Problem.Channels.Value());
    const double load = Load();
    Array1<double> busyWeight(kMostBusy);
    busyWeight(0) = 1;
    double total = 1;
    for (int i = 1; i <= k; ++i) {
        busyWeight(i) = Finite(load * busyWeight(i - 1) / i);
        total += busyWeight(i);
    }
    for (int j = 0; j <= k; ++j)
        Result.StateProbability(j) = busyWeight(j) / total;
    Result.ProbabilityNone = Result.StateProbability(0);
    Result.ProbabilityWait = Result.StateProbability(k);
    Result.UnitsInSystem = (1 - Result.StateProbability(k)) * load;
}

// States relative to the empty one, which has weight 1.
Array1<double> PopulationWeights(int k, int population, double load)
{
    Array1<double> weight(kLastState);
    weight(0) = 1;
    for (int n = 1; n <= k; ++n)
        weight(n) = Power(load, n) * FallingProduct(population, n) / Factorial(n);
    for (int n = k + 1; n <= population; ++n)
        weight(n) = Power(load, n) * FallingProduct(population, n) / (Power(k, n - k) * Factorial(k));
    return weight;
}

double Sum(const Array1<double>& terms, int first, int last)
{
    double sum = 0;
    for (int n = first; n <= last; ++n)
        sum += terms(n);
    return sum;
}

void FinitePopulation()
{
    const int k = ToInt16(Problem.Channels.Value());
    const int population = ToInt16(Problem.Population.Value());
    const Array1<double> weight = PopulationWeights(k, population, Load());
    Array1<double>& probability = Result.StateProbability;
    Result.RowCount = population + 1;
    Result.ProbabilityNone = Divide(1, Sum(weight, 0, k - 1) + Sum(weight, k, population));
    for (int n = 0; n <= population; ++n)
        probability(n) = Result.ProbabilityNone * weight(n);
    Result.UnitsInLine = 0;
    for (int n = k; n <= population; ++n)
        Result.UnitsInLine += probability(n) * (n - k);
    double unitsInService = 0;  // while a channel is free
    for (int n = 0; n <= k - 1; ++n)
        unitsInService += probability(n) * n;
    const double channelFree = Sum(probability, 0, k - 1);
    Result.UnitsInSystem = (1 - channelFree) * k + Result.UnitsInLine + unitsInService;
    const double arrivals = (population - Result.UnitsInSystem) * Problem.ArrivalRate.Value();
    Result.TimeInLine = Divide(Result.UnitsInLine, arrivals);
    Result.TimeInSystem = Divide(Result.UnitsInSystem, arrivals);
    Result.ProbabilityWait = 1 - channelFree;
}

}  // namespace

void Solve()
{
    Result.StateProbability.Fill(0);
    switch (Problem.WaitingModel) {
        case kExponential:
            return ExponentialChannels();
        case kDeterministic:
            Problem.ServiceStdDev = 0;
            [[fallthrough]];
        case kArbitrary:
            return SingleChannel();
        case kNoWaiting:
            return NoWaiting();
        case kFinitePopulation:
            return FinitePopulation();
        default:
            return;
    }
}

double TotalCost()
{
    return Problem.CostPerChannel.Value() * Problem.Channels.Value() +
           Problem.CostPerUnitInSystem.Value() * Result.UnitsInSystem;
}

}  // namespace VtWait
