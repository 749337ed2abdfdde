#include "waiting/LineFacts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "basic/format.h"
#include "basic/number.h"
#include "picture/words.h"

namespace VtWait {

int ChannelsOf(const WaitingProblem& problem)
{
    return ToInt16(problem.Channels.Value());
}

int PopulationOf(const WaitingProblem& problem)
{
    return ToInt16(problem.Population.Value());
}

double LoadOf(const WaitingProblem& problem)
{
    return Divide(problem.ArrivalRate.Value(), problem.ServiceRate.Value());
}

double Utilisation(const WaitingProblem& problem, const WaitingResult& result)
{
    if (problem.WaitingModel == kNoWaiting) return result.UnitsInSystem / ChannelsOf(problem);
    if (problem.WaitingModel == kFinitePopulation)
        return (result.UnitsInSystem - result.UnitsInLine) / ChannelsOf(problem);
    return LoadOf(problem) / ChannelsOf(problem);
}

bool HasStates(const WaitingProblem& problem)
{
    return problem.WaitingModel == kExponential || problem.WaitingModel == kNoWaiting ||
           problem.WaitingModel == kFinitePopulation;
}

int LastState(const WaitingProblem& problem, const WaitingResult& result)
{
    return problem.WaitingModel == kNoWaiting ? ChannelsOf(problem) : result.RowCount - 1;
}

namespace {

// Only in these two models a line may grow without limit; the others have room for so many.
bool Copes(const WaitingProblem& problem)
{
    if (problem.WaitingModel == kNoWaiting || problem.WaitingModel == kFinitePopulation) return true;
    return problem.ArrivalRate.Value() < problem.Channels.Value() * problem.ServiceRate.Value();
}

std::optional<WaitingResult> Solved(const WaitingProblem& problem)
{
    if (!Copes(problem)) return std::nullopt;
    return Solve(problem);
}

}  // namespace

std::optional<WaitingResult> WithChannels(const WaitingProblem& problem, int channels)
{
    WaitingProblem other = problem;
    other.Channels = channels;
    return Solved(other);
}

std::optional<WaitingResult> WithArrivals(const WaitingProblem& problem, double arrivals)
{
    WaitingProblem other = problem;
    other.ArrivalRate = arrivals;
    return Solved(other);
}

std::vector<ChannelCost> CostsByChannels(const WaitingProblem& problem)
{
    std::vector<ChannelCost> costs;
    const bool population = problem.WaitingModel == kFinitePopulation;
    if (problem.EconomicAnalysis != "YES" || !(population || problem.WaitingModel == kExponential))
        return costs;
    const int most = std::max(population ? PopulationOf(problem) : kMostChannels, ChannelsOf(problem));
    for (int channels = 1; channels <= most; ++channels) {
        const auto result = WithChannels(problem, channels);
        WaitingProblem other = problem;
        other.Channels = channels;
        costs.push_back({.Channels = channels, .Cost = {}});
        if (result) costs.back().Cost = TotalCost(other, *result);
    }
    return costs;
}

const ChannelCost* Cheapest(const WaitingProblem& problem, const std::vector<ChannelCost>& costs)
{
    const int most =
        problem.WaitingModel == kFinitePopulation ? PopulationOf(problem) : std::numeric_limits<int>::max();
    const ChannelCost* cheapest = nullptr;
    for (const ChannelCost& cost : costs)
        if (cost.Channels <= most && cost.Cost && (cheapest == nullptr || *cost.Cost < *cheapest->Cost))
            cheapest = &cost;
    return cheapest;
}

bool IsCheaper(double cost, double than)
{
    return cost < than && CostText(cost) != CostText(than);
}

double WaitOnArrival(const WaitingProblem& problem, const WaitingResult& result)
{
    const int population = PopulationOf(problem);
    double arrivals = 0;
    double waiting = 0;
    for (int n = 0; n < population; ++n) {
        const double arriving = (population - n) * result.StateProbability(n);
        arrivals += arriving;
        if (n >= ChannelsOf(problem)) waiting += arriving;
    }
    return Divide(waiting, arrivals);
}

double UnitsInLineAt(double load, double variation)
{
    return load * load * (1 + variation * variation) / (2 * (1 - load));
}

double VariationOf(const WaitingProblem& problem)
{
    if (problem.WaitingModel == kDeterministic) return 0;
    return problem.ServiceStdDev.Value() * problem.ServiceRate.Value();
}

std::string ChanceText(double chance)
{
    return Format(chance, "0.0000");
}

std::string AverageText(double average)
{
    return Format(average, "###,##0.0000");
}

std::string CostText(double cost)
{
    return (cost < 0 ? "-$" : "$") + Format(cost < 0 ? -cost : cost, "###,###,##0.00");
}

std::string AverageTold(double average)
{
    const std::string text = AverageText(average);
    return average > 0 && text == AverageText(0) ? "less than 0.0001" : text;
}

namespace {

// Sums of chances that rounding took to 0 or 1.
double Inside(const WaitingProblem& problem, double share)
{
    if (problem.WaitingModel != kFinitePopulation) return share;
    return std::clamp(share, std::numeric_limits<double>::min(), std::nextafter(1.0, 0.0));
}

}  // namespace

std::string AllBusyTold(const WaitingProblem& problem, const WaitingResult& result)
{
    return picture::Chance(Inside(problem, result.ProbabilityWait), 4);
}

std::string ShareBusyTold(const WaitingProblem& problem, const WaitingResult& result)
{
    return picture::PercentOf(Inside(problem, Utilisation(problem, result)), 4);
}

}  // namespace VtWait
