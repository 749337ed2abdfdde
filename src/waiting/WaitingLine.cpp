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

class Line {
public:
    explicit Line(const WaitingProblem& problem) : problem_(problem) {}
    WaitingResult Solve();

private:
    [[nodiscard]] int Channels() const { return ToInt16(problem_.Channels.Value()); }
    [[nodiscard]] double Load() const;
    void TimesFromLine();
    void ListExponentialStates(int k, double load);
    void ExponentialChannels();
    void SingleChannel(double deviation);
    void NoWaiting();
    void FinitePopulation();

    const WaitingProblem& problem_;
    WaitingResult result_;
};

double Line::Load() const
{
    return Divide(problem_.ArrivalRate.Value(), problem_.ServiceRate.Value());
}

// Little's law.
void Line::TimesFromLine()
{
    result_.TimeInLine = Divide(result_.UnitsInLine, problem_.ArrivalRate.Value());
    result_.TimeInSystem = Divide(1, problem_.ServiceRate.Value()) + result_.TimeInLine;
}

void Line::ListExponentialStates(int k, double load)
{
    const double none = result_.ProbabilityNone;
    double listed = none;
    result_.StateProbability(0) = none;
    for (int n = 1; n <= kLastListedState; ++n) {
        const double ways = n > k ? Finite(Factorial(k) * Power(k, n - k)) : Factorial(n);
        result_.StateProbability(n) = Finite(none * Power(load, n)) / ways;
        listed += result_.StateProbability(n);
        result_.RowCount = n + 1;
        result_.TailProbability = 1 - listed;
        if (result_.TailProbability < kTailLimit) break;
    }
}

void Line::ExponentialChannels()
{
    const int k = Channels();
    const double arrivals = problem_.ArrivalRate.Value();
    const double services = problem_.ServiceRate.Value();
    const double load = Load();
    const double capacity = k * services;
    const double spare = capacity - arrivals;
    double sum = 0;
    for (int i = 1; i <= k; ++i)
        sum += Power(load, i - 1) / Factorial(i - 1);
    const double factorial = Factorial(k - 1);
    const double allBusy = Power(load, k);
    result_.ProbabilityNone = Divide(1, Divide(services, spare) * (allBusy / factorial) + sum);
    result_.UnitsInLine =
        Divide(result_.ProbabilityNone * (services * arrivals * allBusy), spare * spare * factorial);
    result_.UnitsInSystem = load + result_.UnitsInLine;
    TimesFromLine();
    result_.ProbabilityWait =
        result_.ProbabilityNone * Divide(capacity, spare) * allBusy * Divide(1, k * factorial);
    ListExponentialStates(k, load);
}

void Line::SingleChannel(double deviation)
{
    const double load = Load();
    const double arrivals = problem_.ArrivalRate.Value();
    result_.ProbabilityNone = 1 - load;
    result_.StateProbability(0) = result_.ProbabilityNone;
    result_.UnitsInLine = Divide(load * load + deviation * deviation * (arrivals * arrivals), 2 * (1 - load));
    result_.UnitsInSystem = load + result_.UnitsInLine;
    TimesFromLine();
    result_.ProbabilityWait = load;
}

// Erlang's loss formula: the service times matter only by their mean.
void Line::NoWaiting()
{
    const int k = Channels();
    const double load = Load();
    Array1<double> busyWeight(kMostBusy);
    busyWeight(0) = 1;
    double total = 1;
    for (int i = 1; i <= k; ++i) {
        busyWeight(i) = Finite(load * busyWeight(i - 1) / i);
        total += busyWeight(i);
    }
    for (int j = 0; j <= k; ++j)
        result_.StateProbability(j) = busyWeight(j) / total;
    result_.ProbabilityNone = result_.StateProbability(0);
    result_.ProbabilityWait = result_.StateProbability(k);
    result_.UnitsInSystem = (1 - result_.StateProbability(k)) * load;
}

void Line::FinitePopulation()
{
    const int k = Channels();
    const int population = ToInt16(problem_.Population.Value());
    const Array1<double> weight = PopulationWeights(k, population, Load());
    Array1<double>& probability = result_.StateProbability;
    result_.RowCount = population + 1;
    result_.ProbabilityNone = Divide(1, Sum(weight, 0, k - 1) + Sum(weight, k, population));
    for (int n = 0; n <= population; ++n)
        probability(n) = result_.ProbabilityNone * weight(n);
    for (int n = k; n <= population; ++n)
        result_.UnitsInLine += probability(n) * (n - k);
    double unitsInService = 0;  // while a channel is free
    for (int n = 0; n <= k - 1; ++n)
        unitsInService += probability(n) * n;
    const double channelFree = Sum(probability, 0, k - 1);
    result_.UnitsInSystem = (1 - channelFree) * k + result_.UnitsInLine + unitsInService;
    const double arrivals = (population - result_.UnitsInSystem) * problem_.ArrivalRate.Value();
    result_.TimeInLine = Divide(result_.UnitsInLine, arrivals);
    result_.TimeInSystem = Divide(result_.UnitsInSystem, arrivals);
    result_.ProbabilityWait = 1 - channelFree;
}

WaitingResult Line::Solve()
{
    switch (problem_.WaitingModel) {
        case kExponential:
            ExponentialChannels();
            break;
        case kArbitrary:
            SingleChannel(problem_.ServiceStdDev.Value());
            break;
        case kDeterministic:
            SingleChannel(0);
            break;
        case kNoWaiting:
            NoWaiting();
            break;
        case kFinitePopulation:
            FinitePopulation();
            break;
        default:
            break;
    }
    result_.Solved = true;
    return std::move(result_);
}

}  // namespace

WaitingResult Solve(const WaitingProblem& problem)
{
    return Line(problem).Solve();
}

double TotalCost(const WaitingProblem& problem, const WaitingResult& result)
{
    return problem.CostPerChannel.Value() * problem.Channels.Value() +
           problem.CostPerUnitInSystem.Value() * result.UnitsInSystem;
}

}  // namespace VtWait
