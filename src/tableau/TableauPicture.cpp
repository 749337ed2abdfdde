#include "tableau/TableauPicture.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "basic/format.h"
#include "picture/words.h"
#include "tableau/TableauPlan.h"

namespace Tableau {
namespace {

using picture::Arc;
using picture::Chart;
using picture::Counted;
using picture::Diagram;
using picture::Node;
using picture::Picture;
using picture::Role;

constexpr int kMostBlocks = 12;  // of one side, before the table comes first

std::string Capital(std::string text)
{
    text.front() = static_cast<char>(text.front() - 'a' + 'A');
    return text;
}

std::string PairText(const SideNames& names, int left, int right)
{
    return Capital(LeftId(names, left)) + " to " + RightId(names, right);
}

std::string Units(std::int64_t amount)
{
    return Counted(static_cast<int>(amount), "unit");
}

bool IsWide(const TableauProblem& problem)
{
    return std::max(problem.NumOrigins, problem.NumDestinations) > kMostBlocks;
}

// ---- the table ----

std::vector<std::string> Numbers(int count)
{
    std::vector<std::string> numbers;
    for (int i = 1; i <= count; ++i)
        numbers.push_back(std::to_string(i));
    return numbers;
}

picture::Axis NamedAxis(const char* name, int count)
{
    return {.Title = Capital(name), .From = 0.5, .To = count + 0.5, .Names = Numbers(count)};
}

// Every cell with its cost in the tip; the chosen ones are strong.
Chart EmptyTable(const TableauProblem& problem, const SideNames& names, bool showsCosts)
{
    Chart chart{.X = NamedAxis(names.Right, problem.NumDestinations),
                .Y = NamedAxis(names.Left, problem.NumOrigins),
                .Cells = true};
    for (int i = 1; i <= problem.NumOrigins; ++i)
        for (int j = 1; j <= problem.NumDestinations; ++j) {
            const std::string cost = CostText(problem, CostOf(problem, i, j));
            chart.Marks.push_back({.As = Role::Plain,
                                   .At = {static_cast<double>(j), static_cast<double>(i)},
                                   .Text = showsCosts ? cost : "",
                                   .Tip = PairText(names, i, j) + ": " + cost + " a unit, not used",
                                   .Id = RouteId(i, j)});
        }
    return chart;
}

picture::Mark& CellOf(Chart& chart, const TableauProblem& problem, const Route& route)
{
    return chart.Marks.at(
        static_cast<std::size_t>((route.Origin - 1) * problem.NumDestinations + route.Destination - 1));
}

Picture ShipmentTable(const TableauProblem& problem, const std::vector<Route>& routes,
                      const std::vector<std::string>& notes)
{
    Chart chart = EmptyTable(problem, kTransportationSides, false);
    std::int32_t largest = 1;
    for (const Route& route : routes)
        largest = std::max(largest, route.Amount);
    for (const Route& route : routes) {
        picture::Mark& cell = CellOf(chart, problem, route);
        cell.As = Role::Chosen;
        cell.Text = std::to_string(route.Amount);
        cell.Tip = PairText(kTransportationSides, route.Origin, route.Destination) + ": " +
                   Units(route.Amount) + ", value " + CostText(problem, route.Value);
        cell.Shade = static_cast<double>(route.Amount) / largest;
    }
    return {"Table", std::move(chart), notes};
}

Picture AssignmentTable(const TableauProblem& problem, const std::vector<Route>& routes,
                        const std::vector<std::string>& notes)
{
    Chart chart = EmptyTable(problem, kAssignmentSides, true);
    for (const Route& route : routes) {
        picture::Mark& cell = CellOf(chart, problem, route);
        cell.As = Role::Chosen;
        cell.Tip = PairText(kAssignmentSides, route.Origin, route.Destination) + ": " + cell.Text;
        cell.Shade = 1;
    }
    return {"Table", std::move(chart), notes};
}

// ---- shipments ----

// What a block says below its name.
std::string SupplyLine(std::int32_t supply, std::int64_t unused)
{
    std::string line = "supply " + std::to_string(supply);
    if (unused > 0) line += ", " + std::to_string(unused) + " unused";
    return line;
}

std::string DemandLine(std::int32_t demand, std::int64_t received)
{
    std::string line = "demand " + std::to_string(demand);
    if (received < demand) line += ", " + std::to_string(demand - received) + " short";
    if (received > demand) line += ", " + std::to_string(received - demand) + " more";
    return line;
}

Node Block(std::string id, std::string line, int side, std::int64_t amount, std::int64_t used)
{
    Node node;
    node.Id = std::move(id);
    node.Lines = {Capital(node.Id), std::move(line)};
    node.As = used == 0 && amount > 0 ? Role::Spare : Role::Plain;
    node.Tip = node.Lines[0] + ": " + node.Lines[1];
    node.Rank = side;
    node.Amount = static_cast<double>(std::max(amount, used));
    node.Used = static_cast<double>(used);
    return node;
}

void AddBlocks(const TableauProblem& problem, const std::vector<Route>& routes, Diagram& diagram)
{
    std::vector<std::int64_t> sent(static_cast<std::size_t>(problem.NumNodes) + 1);
    for (const Route& route : routes) {
        sent[static_cast<std::size_t>(route.Origin)] += route.Amount;
        sent[static_cast<std::size_t>(problem.NumOrigins) + static_cast<std::size_t>(route.Destination)] +=
            route.Amount;
    }
    for (int n = 1; n <= problem.NumNodes; ++n) {
        const bool left = n <= problem.NumOrigins;
        const std::int64_t moved = sent[static_cast<std::size_t>(n)];
        const std::int32_t amount = std::abs(problem.NodeSupply(n));
        diagram.Nodes.push_back(left ? Block(LeftId(kTransportationSides, n),
                                             SupplyLine(amount, amount - moved), 0, amount, moved)
                                     : Block(RightId(kTransportationSides, n - problem.NumOrigins),
                                             DemandLine(amount, moved), 1, amount, moved));
    }
}

Arc Shipment(const TableauProblem& problem, const Route& route)
{
    Arc arc;
    arc.From = LeftId(kTransportationSides, route.Origin);
    arc.To = RightId(kTransportationSides, route.Destination);
    arc.As = Role::Chosen;
    arc.Weight = route.Amount;
    arc.Text = std::to_string(route.Amount);
    arc.Tip = PairText(kTransportationSides, route.Origin, route.Destination) + ": " + Units(route.Amount) +
              " at " + CostText(problem, CostOf(problem, route.Origin, route.Destination)) + ", value " +
              CostText(problem, route.Value);
    arc.Id = RouteId(route.Origin, route.Destination);
    return arc;
}

std::string RestNote(const TableauProblem& problem, const TableauResult& result)
{
    std::vector<std::string> parts;
    for (const Remainder& rest : UnusedSupplies(problem, result))
        parts.push_back("origin " + std::to_string(rest.Line) + " keeps " + std::to_string(rest.Amount));
    for (const Remainder& rest : UnmetDemands(problem, result))
        parts.push_back("destination " + std::to_string(rest.Line) + " stays " + std::to_string(rest.Amount) +
                        " short");
    return parts.empty() ? "" : Capital(picture::Listed(parts)) + ".";
}

std::vector<std::string> ShipmentNotes(const TableauProblem& problem, const TableauResult& result,
                                       const std::vector<Route>& routes)
{
    std::int64_t shipped = 0;
    for (const Route& route : routes)
        shipped += route.Amount;
    std::vector<std::string> notes;
    if (routes.empty())
        notes.emplace_back(AllCostsAreZero(problem) ? "Nothing is shipped: every cost counts as 0."
                                                    : "Nothing is shipped.");
    else
        notes.push_back(Units(shipped) + (shipped == 1 ? " goes over " : " go over ") +
                        Counted(static_cast<int>(routes.size()), "route") + "; the value is " +
                        PlainText(TotalOf(problem, result)) + ".");
    notes.push_back("Supply " + std::to_string(result.TotalSupply) + ", demand " +
                    std::to_string(result.TotalDemand) + ".");
    if (std::string rest = RestNote(problem, result); !rest.empty()) notes.push_back(std::move(rest));
    return notes;
}

Picture Shipments(const TableauProblem& problem, const std::vector<Route>& routes,
                  const std::vector<std::string>& notes)
{
    Diagram diagram{.Kind = picture::Layout::TwoSides};
    AddBlocks(problem, routes, diagram);
    for (const Route& route : routes)
        diagram.Arcs.push_back(Shipment(problem, route));
    return {"Shipments", std::move(diagram), notes};
}

// ---- cost ----

void SetValueAxis(const std::vector<Route>& routes, Chart& chart)
{
    chart.X = {.Title = "Value", .From = 0, .To = 0};
    for (const Route& route : routes) {
        chart.X.From = std::min(chart.X.From, route.Value);
        chart.X.To = std::max(chart.X.To, route.Value);
    }
    if (chart.X.From == chart.X.To) chart.X.To = 1;
    constexpr double kRoom = 0.15;  // for the figures at the ends of the bars
    const double span = chart.X.To - chart.X.From;
    if (chart.X.To > 0) chart.X.To += kRoom * span;
    if (chart.X.From < 0) chart.X.From -= kRoom * span;
}

Picture Costs(const TableauProblem& problem, std::vector<Route> routes, double total)
{
    std::stable_sort(routes.begin(), routes.end(),
                     [](const Route& a, const Route& b) { return a.Value > b.Value; });
    Chart chart;
    SetValueAxis(routes, chart);
    chart.Y = {.Title = "Route", .From = 0.5, .To = static_cast<double>(routes.size()) + 0.5};
    picture::Series bars{
        .Kind = picture::SeriesKind::Bars, .As = Role::Chosen, .Name = "shipments times cost"};
    for (const Route& route : routes) {
        chart.Y.Names.push_back(std::to_string(route.Origin) + " to " + std::to_string(route.Destination));
        bars.Points.push_back({route.Value, static_cast<double>(chart.Y.Names.size())});
        bars.Tips.push_back(Shipment(problem, route).Tip);
        bars.Texts.push_back(CostText(problem, route.Value));
    }
    std::vector<std::string> notes{"Nothing is shipped."};
    if (!routes.empty()) {
        notes = {"The largest part is route " + chart.Y.Names.front() + " with " +
                     CostText(problem, routes.front().Value) + ".",
                 "All routes together: " + PlainText(total) + "."};
        chart.Curves.push_back(std::move(bars));
    }
    return {"Cost", std::move(chart), std::move(notes)};
}

// ---- assignment ----

// Those who have a partner first, tasks in the order of their agents, so that no line crosses another.
std::vector<int> TaskOrder(const TableauProblem& problem, const std::vector<Route>& pairs)
{
    std::vector<int> order;
    std::set<int> taken;
    for (const Route& pair : pairs) {
        order.push_back(pair.Destination);
        taken.insert(pair.Destination);
    }
    for (int j = 1; j <= problem.NumDestinations; ++j)
        if (!taken.contains(j)) order.push_back(j);
    return order;
}

std::vector<int> AgentOrder(const TableauProblem& problem, const std::vector<Route>& pairs)
{
    std::vector<int> order;
    std::set<int> busy;
    for (const Route& pair : pairs) {
        order.push_back(pair.Origin);
        busy.insert(pair.Origin);
    }
    for (int i = 1; i <= problem.NumOrigins; ++i)
        if (!busy.contains(i)) order.push_back(i);
    return order;
}

Node Person(std::string id, int side, bool paired)
{
    Node node;
    node.Id = std::move(id);
    node.Lines = {Capital(node.Id)};
    node.As = paired ? Role::Plain : Role::Spare;
    node.Tip = node.Lines[0] + (paired ? "" : ": left over");
    node.Rank = side;
    node.Amount = 1;
    node.Used = paired ? 1 : 0;
    return node;
}

Arc Pair(const TableauProblem& problem, const Route& pair)
{
    Arc arc;
    arc.From = LeftId(kAssignmentSides, pair.Origin);
    arc.To = RightId(kAssignmentSides, pair.Destination);
    arc.As = Role::Chosen;
    arc.Text = CostText(problem, pair.Value);
    arc.Tip = PairText(kAssignmentSides, pair.Origin, pair.Destination) + ": " + arc.Text;
    arc.Id = RouteId(pair.Origin, pair.Destination);
    return arc;
}

void AddLeftOver(const char* name, const std::vector<int>& order, std::size_t pairs,
                 std::vector<std::string>& notes)
{
    std::vector<std::string> left;
    for (std::size_t k = pairs; k < order.size(); ++k)
        left.push_back(std::to_string(order[k]));
    if (left.empty()) return;
    std::string note = Capital(name) + (left.size() == 1 ? " " : "s ") + picture::Listed(left);
    notes.push_back(note + (left.size() == 1 ? " is left over." : " are left over."));
}

std::vector<std::string> PairNotes(const TableauProblem& problem, const TableauResult& result,
                                   const std::vector<Route>& pairs)
{
    std::vector<std::string> notes;
    if (pairs.empty())
        notes.emplace_back(AllCostsAreZero(problem) ? "No pair is chosen: every figure counts as 0."
                                                    : "No pair is chosen.");
    else
        notes.push_back(Counted(static_cast<int>(pairs.size()), "pair") +
                        (pairs.size() == 1 ? " is chosen, for " : " are chosen, for ") +
                        CostText(problem, TotalOf(problem, result)) + " in all.");
    AddLeftOver(kAssignmentSides.Left, AgentOrder(problem, pairs), pairs.size(), notes);
    AddLeftOver(kAssignmentSides.Right, TaskOrder(problem, pairs), pairs.size(), notes);
    return notes;
}

Picture Pairs(const TableauProblem& problem, const std::vector<Route>& pairs,
              const std::vector<std::string>& notes)
{
    Diagram diagram{.Kind = picture::Layout::TwoSides};
    std::size_t place = 0;
    for (const int i : AgentOrder(problem, pairs))
        diagram.Nodes.push_back(Person(LeftId(kAssignmentSides, i), 0, place++ < pairs.size()));
    place = 0;
    for (const int j : TaskOrder(problem, pairs))
        diagram.Nodes.push_back(Person(RightId(kAssignmentSides, j), 1, place++ < pairs.size()));
    for (const Route& pair : pairs)
        diagram.Arcs.push_back(Pair(problem, pair));
    return {"Assignment", std::move(diagram), notes};
}

}  // namespace

std::string LeftId(const SideNames& names, int line)
{
    return std::string(names.Left) + " " + std::to_string(line);
}

std::string RightId(const SideNames& names, int line)
{
    return std::string(names.Right) + " " + std::to_string(line);
}

std::string RouteId(int origin, int destination)
{
    return "route " + std::to_string(origin) + " to " + std::to_string(destination);
}

std::vector<Picture> TransportationPictures(const TableauProblem& problem, const TableauResult& result)
{
    std::vector<Picture> pictures;
    if (!HasPlan(problem, result)) return pictures;
    const std::vector<Route> routes = RoutesOf(problem, result);
    const std::vector<std::string> notes = ShipmentNotes(problem, result, routes);
    if (IsWide(problem)) pictures.push_back(ShipmentTable(problem, routes, notes));
    pictures.push_back(Shipments(problem, routes, notes));
    pictures.push_back(Costs(problem, routes, TotalOf(problem, result)));
    return pictures;
}

std::vector<Picture> AssignmentPictures(const TableauProblem& problem, const TableauResult& result)
{
    std::vector<Picture> pictures;
    if (!HasPlan(problem, result)) return pictures;
    const std::vector<Route> pairs = RoutesOf(problem, result);
    const std::vector<std::string> notes = PairNotes(problem, result, pairs);
    if (IsWide(problem)) pictures.push_back(AssignmentTable(problem, pairs, notes));
    pictures.push_back(Pairs(problem, pairs, notes));
    return pictures;
}

}  // namespace Tableau
