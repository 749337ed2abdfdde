#include "tableau/TableauPlan.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "basic/format.h"
#include "basic/number.h"
#include "tableau/transout.h"

namespace Tableau {
namespace {

std::vector<Remainder> Remainders(const TableauProblem& problem, const TableauResult& result, int offset,
                                  int count)
{
    std::vector<Remainder> remainders;
    for (int line = 1; line <= count; ++line) {
        const int node = offset + line;
        if (std::abs(result.BasicArc(node)) != problem.NumArcs + node || result.BasicFlow(node) == 0)
            continue;
        remainders.push_back({line, result.BasicFlow(node)});
    }
    return remainders;
}

// What can flow without a change of the value: arcs that price at nothing, forwards, and those that carry
// something backwards as well. Another best plan is a way round in it.
class FreeWays {
public:
    FreeWays(const TableauProblem& problem, const Trace& trace) : ways_(problem.NumNodes + 2)
    {
        const TreeState& last = trace.Changes.empty() ? trace.First : trace.Changes.back().After;
        for (int n = 1; n <= problem.NumNodes; ++n)
            if (last.BasicFlow(n) > 0) carries_.push_back(std::abs(last.BasicArc(n)));
        std::sort(carries_.begin(), carries_.end());
    }

    [[nodiscard]] bool Carries(int arc) const
    {
        return std::binary_search(carries_.begin(), carries_.end(), arc);
    }

    void Open(int from, int to) { ways_[static_cast<std::size_t>(from)].push_back(to); }

    [[nodiscard]] bool Lead(int from, int to) const
    {
        std::vector<char> seen(ways_.size());
        std::vector<int> open{from};
        while (!open.empty()) {
            const int node = open.back();
            open.pop_back();
            if (node == to) return true;
            if (std::exchange(seen[static_cast<std::size_t>(node)], char{1}) != 0) continue;
            const auto& ways = ways_[static_cast<std::size_t>(node)];
            open.insert(open.end(), ways.begin(), ways.end());
        }
        return false;
    }

private:
    std::vector<std::vector<int>> ways_;
    std::vector<int> carries_;
};

double LargestCost(const TableauProblem& problem)
{
    double largest = 0;
    for (int e = 1; e <= problem.NumArcs; ++e)
        largest = std::max(largest, std::abs(Int(kCostScale * problem.ArcCost(e).Value())));
    return largest;
}

}  // namespace

std::vector<Route> RoutesOf(const TableauProblem& problem, const TableauResult& result)
{
    std::vector<Route> routes;
    for (int n = 1; n <= problem.NumNodes; ++n) {
        const int arc = std::abs(result.BasicArc(n));
        const std::int32_t amount = result.BasicFlow(n);
        if (arc > problem.NumArcs || amount == 0) continue;
        routes.push_back({OriginOf(problem, arc), DestinationOf(problem, arc), amount,
                          amount * problem.ArcCost(arc).Value()});
    }
    std::sort(routes.begin(), routes.end(), [](const Route& a, const Route& b) {
        return a.Origin != b.Origin ? a.Origin < b.Origin : a.Destination < b.Destination;
    });
    return routes;
}

double TotalOf(const TableauProblem& problem, const TableauResult& result)
{
    return ExtractSchedule(problem, result).TotalCost;
}

std::vector<Remainder> UnusedSupplies(const TableauProblem& problem, const TableauResult& result)
{
    return Remainders(problem, result, 0, problem.NumOrigins);
}

std::vector<Remainder> UnmetDemands(const TableauProblem& problem, const TableauResult& result)
{
    auto demands = Remainders(problem, result, problem.NumOrigins, problem.NumDestinations);
    std::erase_if(demands, [&problem](const Remainder& demand) {
        return problem.NodeSupply(problem.NumOrigins + demand.Line) >= 0;
    });
    return demands;
}

std::int64_t Received(const TableauProblem& problem, const TableauResult& result, int destination)
{
    std::int64_t units = 0;
    for (const Route& route : RoutesOf(problem, result))
        if (route.Destination == destination) units += route.Amount;
    return units;
}

double CostOf(const TableauProblem& problem, int origin, int destination)
{
    return problem.ArcCost((origin - 1) * problem.NumDestinations + destination).Value();
}

int OriginOf(const TableauProblem& problem, int arc)
{
    return (arc - 1) / problem.NumDestinations + 1;
}

int DestinationOf(const TableauProblem& problem, int arc)
{
    return (arc - 1) % problem.NumDestinations + 1;
}

std::string CostText(const TableauProblem& problem, double cost)
{
    constexpr DecimalPatterns kPatterns = {"0", "0.0", "0.00"};
    return Format(cost, kPatterns.For(problem.DecimalPlaces.Value()));
}

double CostInRun(const TableauProblem& problem, const TableauResult& result, int arc)
{
    if (arc <= problem.NumArcs)
        return (result.Maximize ? -1 : 1) * Int(kCostScale * problem.ArcCost(arc).Value());
    const bool fromRoot = TailOf(problem, arc) == problem.NumNodes + 1;
    return fromRoot ? LargestCost(problem) * problem.NumNodes : 0;
}

bool AllCostsAreZero(const TableauProblem& problem)
{
    return LargestCost(problem) == 0;
}

bool HasPlan(const TableauProblem& problem, const TableauResult& result)
{
    return result.Solved && problem.NumOrigins > 0 && problem.NumDestinations > 0;
}

OtherPlans FindOtherPlans(const TableauProblem& problem, const TableauResult& result)
{
    Trace trace;
    TaSolve(problem, result.Maximize, &trace);
    const TreeState& last = trace.Changes.empty() ? trace.First : trace.Changes.back().After;
    OtherPlans others;
    FreeWays ways(problem, trace);
    std::vector<int> unused;
    for (int e = 1; e <= problem.NumArcs + problem.NumNodes; ++e) {
        const int tail = TailOf(problem, e);
        const int head = HeadOf(problem, e);
        const bool route = e <= problem.NumArcs;
        const double tooDear =
            CostInRun(problem, result, e) - (last.NodePotential(tail) - last.NodePotential(head));
        if (tooDear == 0) ways.Open(tail, head);
        if (ways.Carries(e)) ways.Open(head, tail);
        if (ways.Carries(e)) continue;
        if (tooDear == 0) unused.push_back(e);
        if (!route || tooDear <= 0 || (others.NearestArc != 0 && tooDear / kCostScale >= others.NearestCost))
            continue;
        others.NearestArc = e;
        others.NearestCost = tooDear / kCostScale;
    }
    for (const int e : unused)
        if (ways.Lead(HeadOf(problem, e), TailOf(problem, e))) others.Arcs.push_back(e);
    return others;
}

}  // namespace Tableau
