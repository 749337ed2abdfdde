#include "tableau/TableauMeaning.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <string>

#include "basic/format.h"
#include "basic/number.h"
#include "picture/words.h"
#include "tableau/TableauPicture.h"
#include "tableau/TableauPlan.h"

namespace Tableau {
namespace {

using picture::Counted;
using picture::Listed;
using picture::OneOrMany;
using picture::Sentence;
using picture::SentenceKind;
using Sentences = std::vector<Sentence>;

// ---- the cautions ----

const std::string kZeroCosts =
    "Every figure counts as 0, so that no arc is worth using: enter one that is not 0 to get a plan.";
const std::string kFiveDecimals =
    "Figures are compared to five decimals; what stands behind them does not decide.";
const std::string kDemandListFails =
    "The full report of this problem ends in an error: its list of more than 24 demands goes by the number "
    "of origins.";
const std::string kListOfBothSides =
    "With every figure 0 the report's list of those left over also holds the other side.";
constexpr int kFieldWidth = 7;  // of a figure in the printed table

std::string TakesSurplus(const std::vector<std::string>& destinations)
{
    const int count = static_cast<int>(destinations.size());
    return std::string(OneOrMany(count, "Destination ", "Destinations ")) + Listed(destinations) +
           std::string(
               OneOrMany(count, " asks for nothing and yet receives", " ask for nothing and yet receive")) +
           " a shipment: where the demand is 0, supply that is left over may go if that pays.";
}

std::string IsCut(const std::string& route)
{
    return "The printed table cuts figures at " + std::to_string(kFieldWidth) + " characters, as that of " +
           route + ".";
}

// ---- conditions ----

bool NeedsMoreThanFiveDecimals(const TableauProblem& problem)
{
    constexpr double kTolerance = 1e-4;  // of a hundred-thousandth
    for (int e = 1; e <= problem.NumArcs; ++e) {
        const double scaled = kCostScale * problem.ArcCost(e).Value();
        if (std::abs(scaled - std::round(scaled)) > kTolerance) return true;
    }
    return false;
}

// The first figure that is wider than its field; 0: none is.
int CutArc(const TableauProblem& problem)
{
    for (int e = 1; e <= problem.NumArcs; ++e)
        if (CostText(problem, problem.ArcCost(e).Value()).size() > kFieldWidth) return e;
    return 0;
}

bool DemandListFails(const TableauProblem& problem)
{
    constexpr int kTwoColumns = 24;
    const int origins = problem.NumOrigins;
    const int destinations = problem.NumDestinations;
    return destinations > kTwoColumns && (origins < kTwoColumns || origins > destinations + 1);
}

void AddCommonCautions(const TableauProblem& problem, Sentences& sentences)
{
    if (NeedsMoreThanFiveDecimals(problem)) sentences.push_back({SentenceKind::Caution, kFiveDecimals});
    if (const int arc = CutArc(problem); arc != 0)
        sentences.push_back({SentenceKind::Caution, IsCut(std::to_string(OriginOf(problem, arc)) + " to " +
                                                          std::to_string(DestinationOf(problem, arc)))});
}

// ---- transportation ----

std::string PairName(const TableauProblem& problem, int arc)
{
    return std::to_string(OriginOf(problem, arc)) + " to " + std::to_string(DestinationOf(problem, arc));
}

std::string ShipmentSentence(const TableauProblem& problem, const TableauResult& result)
{
    const std::vector<Route> routes = RoutesOf(problem, result);
    if (routes.empty()) {
        if (result.TotalSupply == 0) return "Nothing is shipped, as there is no supply.";
        if (result.TotalDemand == 0) return "Nothing is shipped, as there is no demand.";
        return "Nothing is shipped; the value is 0.";
    }
    const int units = std::accumulate(routes.begin(), routes.end(), 0,
                                      [](int sum, const Route& route) { return sum + route.Amount; });
    return "Ship " + Counted(units, "unit") + " over " + Counted(static_cast<int>(routes.size()), "route") +
           "; the value is " + PlainText(TotalOf(problem, result)) + ".";
}

constexpr std::size_t kMostNamed = 4;  // lines that are told one by one

// "Origin 2 keeps 50 units", "Origins 1 and 3 keep 20 and 30 units", "7 origins keep 210 units in all".
std::string RemainderText(const std::vector<Remainder>& rest, const std::string& name, const char* one,
                          const char* many)
{
    std::vector<std::string> lines;
    std::vector<std::string> amounts;
    int total = 0;
    for (const Remainder& remainder : rest) {
        lines.push_back(std::to_string(remainder.Line));
        amounts.push_back(std::to_string(remainder.Amount));
        total += remainder.Amount;
    }
    const std::string capital = std::string(1, static_cast<char>(name.front() - 'a' + 'A')) + name.substr(1);
    const int count = static_cast<int>(rest.size());
    if (count == 1) return capital + " " + lines[0] + " " + one + " " + Counted(total, "unit");
    if (rest.size() > kMostNamed)
        return Counted(count, name) + " " + many + " " + Counted(total, "unit") + " in all";
    return capital + "s " + Listed(lines) + " " + many + " " + Listed(amounts) + " units";
}

void AddRemainders(const TableauProblem& problem, const TableauResult& result, Sentences& sentences)
{
    const std::vector<Route> routes = RoutesOf(problem, result);
    if (routes.empty()) return;
    const auto unused = UnusedSupplies(problem, result);
    const std::int32_t more = result.TotalSupply - result.TotalDemand;
    if (!unused.empty() && more > 0)
        sentences.push_back({SentenceKind::Limit, RemainderText(unused, "origin", "keeps", "keep") +
                                                      ": supply exceeds demand by " + std::to_string(more) +
                                                      "."});
    const auto unmet = UnmetDemands(problem, result);
    if (unmet.empty()) return;
    // Many are counted: "7 destinations stay short by 210 units in all".
    const bool many = unmet.size() > kMostNamed;
    const std::string text = RemainderText(unmet, "destination", "stays", many ? "stay short by" : "stay") +
                             (many ? "" : " short");
    sentences.push_back({SentenceKind::Limit,
                         text + ", as supply does not suffice; who goes short is part of the best plan."});
}

// What another best schedule would do that this one does not.
std::string Alternative(const TableauProblem& problem, int arc)
{
    if (arc <= problem.NumArcs) return "route " + PairName(problem, arc) + " could be used.";
    const int node = arc - problem.NumArcs;
    if (node <= problem.NumOrigins) return "origin " + std::to_string(node) + " could keep some units.";
    const std::string destination = "destination " + std::to_string(node - problem.NumOrigins);
    return destination +
           (problem.NodeSupply(node) < 0 ? " could stay short instead." : " could take some of the surplus.");
}

// Solved again with the route a little better than that: one from an origin without supply, or where a tree
// has another way for its price, stays empty all the same.
bool ComesIn(const TableauProblem& problem, const TableauResult& result, const OtherPlans& others)
{
    constexpr double kLittle = 0.0001;
    TableauProblem better = problem;
    const double change = others.NearestCost + kLittle;
    better.ArcCost(others.NearestArc) =
        problem.ArcCost(others.NearestArc).Value() + (result.Maximize ? change : -change);
    const std::vector<Route> routes = RoutesOf(better, TaSolve(better, result.Maximize));
    return std::any_of(routes.begin(), routes.end(), [&](const Route& route) {
        return route.Origin == OriginOf(problem, others.NearestArc) &&
               route.Destination == DestinationOf(problem, others.NearestArc);
    });
}

void AddOthers(const TableauProblem& problem, const TableauResult& result, Sentences& sentences)
{
    if (result.TotalSupply == 0 || result.TotalDemand == 0) return;  // no price would move anything
    const OtherPlans others = FindOtherPlans(problem, result);
    if (!others.Arcs.empty())
        sentences.push_back({SentenceKind::Change, "Another schedule has the same value: " +
                                                       Alternative(problem, others.Arcs.front())});
    if (others.NearestArc == 0 || !ComesIn(problem, result, others)) return;
    sentences.push_back({SentenceKind::Change,
                         "Route " + PairName(problem, others.NearestArc) + " would have to " +
                             (result.Maximize ? "bring " : "cost ") + CostText(problem, others.NearestCost) +
                             (result.Maximize ? " more" : " less") +
                             " a unit before it could come in without loss."});
}

void AddSurplusCaution(const TableauProblem& problem, const TableauResult& result, Sentences& sentences)
{
    std::vector<std::string> takers;
    for (int j = 1; j <= problem.NumDestinations; ++j)
        if (problem.NodeSupply(problem.NumOrigins + j) == 0 && Received(problem, result, j) > 0)
            takers.push_back(std::to_string(j));
    if (!takers.empty()) sentences.push_back({SentenceKind::Caution, TakesSurplus(takers)});
}

// ---- assignment ----

std::string PairsSentence(const TableauProblem& problem, const TableauResult& result,
                          const std::vector<Route>& pairs)
{
    const int count = static_cast<int>(pairs.size());
    const std::string total = CostText(problem, TotalOf(problem, result));
    if (count == 0)
        return AllCostsAreZero(problem) ? "No pair was chosen, as all figures are 0." : "No pair was chosen.";
    if (count == 1) return "1 agent gets one task, for " + total + ".";
    return std::to_string(count) + " agents get one task each, for " + total + " in all.";
}

// Who does what, as long as it can be read.
void AddPairs(const std::vector<Route>& pairs, Sentences& sentences)
{
    if (pairs.empty() || pairs.size() > 2 * kMostNamed) return;
    std::vector<std::string> told;
    told.reserve(pairs.size());
    for (const Route& pair : pairs)
        told.push_back((told.empty() ? "Agent " : "agent ") + std::to_string(pair.Origin) +
                       (told.empty() ? " takes task " : " task ") + std::to_string(pair.Destination));
    sentences.push_back({SentenceKind::Result, Listed(told) + "."});
}

std::vector<std::string> LeftOver(int count, const std::vector<Route>& pairs, int Route::*line)
{
    std::vector<std::string> left;
    for (int i = 1; i <= count; ++i)
        if (std::none_of(pairs.begin(), pairs.end(), [&](const Route& pair) { return pair.*line == i; }))
            left.push_back(std::to_string(i));
    return left;
}

void AddLeftOver(const TableauProblem& problem, const std::vector<Route>& pairs, Sentences& sentences)
{
    const int more = problem.NumDestinations - problem.NumOrigins;
    if (more == 0 || pairs.empty()) return;
    const std::string side = more > 0 ? "task" : "agent";
    const std::string other = more > 0 ? "agents" : "tasks";
    const auto left = more > 0 ? LeftOver(problem.NumDestinations, pairs, &Route::Destination)
                               : LeftOver(problem.NumOrigins, pairs, &Route::Origin);
    const int count = static_cast<int>(left.size());
    sentences.push_back({SentenceKind::Limit,
                         std::string(more > 0 ? "Task" : "Agent") + (count == 1 ? " " : "s ") + Listed(left) +
                             (count == 1 ? " remains" : " remain") + " unassigned: there " +
                             (count == 1 ? "is one " + side : "are " + Counted(count, side)) + " more than " +
                             other + "."});
}

double Compared(const TableauProblem& problem, int agent, int task)
{
    return Int(kCostScale * CostOf(problem, agent, task));
}

// Two agents whose tasks can change hands without a change of the total.
std::optional<std::pair<int, int>> FreeExchange(const TableauProblem& problem,
                                                const std::vector<Route>& pairs)
{
    for (std::size_t a = 0; a < pairs.size(); ++a)
        for (std::size_t b = a + 1; b < pairs.size(); ++b) {
            const Route& one = pairs[a];
            const Route& two = pairs[b];
            if (Compared(problem, one.Origin, one.Destination) +
                    Compared(problem, two.Origin, two.Destination) ==
                Compared(problem, one.Origin, two.Destination) +
                    Compared(problem, two.Origin, one.Destination))
                return std::pair{one.Origin, two.Origin};
        }
    return std::nullopt;
}

void AddExchange(const TableauProblem& problem, const TableauResult& result, const std::vector<Route>& pairs,
                 Sentences& sentences)
{
    if (const auto exchange = FreeExchange(problem, pairs)) {
        sentences.push_back({SentenceKind::Change, "Exchanging agents " + std::to_string(exchange->first) +
                                                       " and " + std::to_string(exchange->second) +
                                                       " would not change the total."});
        return;
    }
    const OtherPlans others = FindOtherPlans(problem, result);
    if (others.Arcs.empty() || others.Arcs.front() > problem.NumArcs) return;
    const int arc = others.Arcs.front();
    sentences.push_back({SentenceKind::Change, "Another assignment has the same total: agent " +
                                                   std::to_string(OriginOf(problem, arc)) +
                                                   " could take task " +
                                                   std::to_string(DestinationOf(problem, arc)) + "."});
}

}  // namespace

Sentences TransportationMeaning(const TableauProblem& problem, const TableauResult& result)
{
    if (!HasPlan(problem, result)) return {};
    Sentences sentences{{SentenceKind::Result, ShipmentSentence(problem, result)}};
    AddRemainders(problem, result, sentences);
    if (AllCostsAreZero(problem))
        sentences.push_back({SentenceKind::Caution, kZeroCosts});
    else
        AddOthers(problem, result, sentences);
    AddSurplusCaution(problem, result, sentences);
    AddCommonCautions(problem, sentences);
    if (DemandListFails(problem)) sentences.push_back({SentenceKind::Caution, kDemandListFails});
    return sentences;
}

Sentences AssignmentMeaning(const TableauProblem& problem, const TableauResult& result)
{
    if (!HasPlan(problem, result)) return {};
    const std::vector<Route> pairs = RoutesOf(problem, result);
    Sentences sentences{{SentenceKind::Result, PairsSentence(problem, result, pairs)}};
    AddPairs(pairs, sentences);
    AddLeftOver(problem, pairs, sentences);
    if (AllCostsAreZero(problem)) {
        sentences.push_back({SentenceKind::Caution, kZeroCosts});
        if (problem.NumOrigins != problem.NumDestinations)
            sentences.push_back({SentenceKind::Caution, kListOfBothSides});
    } else {
        AddExchange(problem, result, pairs, sentences);
    }
    AddCommonCautions(problem, sentences);
    return sentences;
}

}  // namespace Tableau
