#include "network/NetworkFacts.h"

#include <algorithm>
#include <map>
#include <set>

#include "basic/format.h"

namespace Network {
namespace {

// What the links lead to, node by node.
class Ways {
public:
    explicit Ways(const NetworkProblem& problem) : Ways(problem.NumNodes, LinksOf(problem)) {}
    Ways(int nodes, const std::vector<Link>& links) : ways_(static_cast<std::size_t>(nodes) + 1)
    {
        for (const Link& link : links) {
            ways_[static_cast<std::size_t>(link.A)].push_back(link.B);
            ways_[static_cast<std::size_t>(link.B)].push_back(link.A);
        }
    }

    // All nodes that can be reached, ascending.
    template <typename Passes>
    [[nodiscard]] std::set<int> From(int start, Passes passes) const
    {
        std::set<int> reached{start};
        std::vector<int> open{start};
        while (!open.empty()) {
            const int node = open.back();
            open.pop_back();
            for (const int next : ways_[static_cast<std::size_t>(node)])
                if (passes(node, next) && reached.insert(next).second) open.push_back(next);
        }
        return reached;
    }

private:
    std::vector<std::vector<int>> ways_;
};

bool IsTight(const NetworkResult& result, int from, int to)
{
    const std::int32_t length = result.NodeDistance(from, to);
    return length < kNoArc && result.NodeLabel(kDistance, from) + length == result.NodeLabel(kDistance, to);
}

// The tree's arcs as links.
std::vector<Link> TreeLinks(const NetworkProblem& problem, const NetworkResult& result)
{
    std::vector<Link> links;
    for (const TreeArc& arc : JoinedArcs(problem, result))
        links.push_back({std::min(arc.Start, arc.End), std::max(arc.Start, arc.End), arc.Length});
    return links;
}

// The longest arc of the tree on the way between two nodes; nothing where there is none.
std::optional<Link> LongestBetween(const std::vector<Link>& tree, int nodes, int a, int b)
{
    std::optional<Link> longest;
    for (const Link& cut : tree) {
        std::vector<Link> rest;
        for (const Link& link : tree)
            if (link.A != cut.A || link.B != cut.B) rest.push_back(link);
        const auto anywhere = [](int, int) { return true; };
        const std::set<int> side = Ways(nodes, rest).From(a, anywhere);
        if (side.contains(b)) continue;  // not on the way
        if (!Ways(nodes, tree).From(a, anywhere).contains(b)) return std::nullopt;
        if (!longest || cut.Length > longest->Length) longest = cut;
    }
    return longest;
}

}  // namespace

std::vector<Link> LinksOf(const NetworkProblem& problem)
{
    std::map<std::pair<int, int>, Link> links;
    for (int k = 1; k <= problem.NumArcs; ++k) {
        const int a = std::min(problem.ArcTable(kStart, k), problem.ArcTable(kEnd, k));
        const int b = std::max(problem.ArcTable(kStart, k), problem.ArcTable(kEnd, k));
        if (a < 1 || a == b) continue;
        Link& link = links[{a, b}];
        if (link.Number != 0) link.Replaced.push_back(link.Number);
        link.A = a;
        link.B = b;
        link.Length = problem.ArcTable(kLength, k);
        link.Number = k;
    }
    std::vector<Link> list;
    list.reserve(links.size());
    for (auto& [ends, link] : links)
        list.push_back(std::move(link));
    return list;
}

std::vector<int> LoopsOf(const NetworkProblem& problem)
{
    std::vector<int> loops;
    for (int k = 1; k <= problem.NumArcs; ++k)
        if (problem.ArcTable(kStart, k) == problem.ArcTable(kEnd, k) && problem.ArcTable(kStart, k) != 0)
            loops.push_back(k);
    return loops;
}

std::vector<int> LostArcs(const NetworkProblem& problem)
{
    std::vector<int> lost;
    for (int k = 1; k <= problem.NumArcs; ++k)
        if (problem.ArcTable(kStart, k) == 0 || problem.ArcTable(kEnd, k) == 0) lost.push_back(k);
    return lost;
}

std::string LengthOf(const NetworkProblem& problem, std::int32_t length)
{
    constexpr DecimalPatterns kPatterns = {"0", "0.0", "0.00"};
    return Format(length / kThousand, kPatterns.For(problem.DecimalPlaces.Value()));
}

std::string PairName(int from, int to)
{
    return std::to_string(from) + " to " + std::to_string(to);
}

std::string LinkId(int a, int b)
{
    return std::to_string(std::min(a, b)) + "-" + std::to_string(std::max(a, b));
}

std::vector<std::vector<int>> PiecesOf(const NetworkProblem& problem, int from)
{
    const Ways ways(problem);
    std::vector<std::vector<int>> pieces;
    std::set<int> told;
    const auto add = [&](int node) {
        if (node < 1 || node > problem.NumNodes || told.contains(node)) return;
        const std::set<int> piece = ways.From(node, [](int, int) { return true; });
        told.insert(piece.begin(), piece.end());
        pieces.emplace_back(piece.begin(), piece.end());
    };
    add(from);
    for (int node = 1; node <= problem.NumNodes; ++node)
        add(node);
    return pieces;
}

std::vector<int> RouteNodes(const NetworkProblem& problem, const NetworkResult& result)
{
    std::vector<int> nodes(result.RoutePath.rbegin(), result.RoutePath.rend());
    if (!nodes.empty() && problem.StartNode != problem.EndNode) nodes.push_back(problem.EndNode);
    return nodes;
}

// Seen from the end, two routes are the same up to a node that they reach from different ones; before it the
// other one keeps clear of what they share.
std::optional<Detour> OtherRoute(const NetworkProblem& problem, const NetworkResult& result)
{
    const std::vector<int> route = RouteNodes(problem, result);
    const Ways ways(problem);
    std::set<int> shared;
    for (std::size_t i = route.size(); i-- > 1;) {
        const int node = route[i];
        shared.insert(node);
        const std::set<int> reached = ways.From(problem.StartNode, [&](int from, int to) {
            return !shared.contains(to) && IsTight(result, from, to);
        });
        for (const int from : reached)
            if (from != route[i - 1] && from != node && IsTight(result, from, node))
                return Detour{node, from};
    }
    return std::nullopt;
}

std::vector<Substitute> SubstitutesOf(const NetworkProblem& problem, const NetworkResult& result)
{
    const std::vector<Link> tree = TreeLinks(problem, result);
    std::vector<Substitute> substitutes;
    for (const Link& link : LinksOf(problem)) {
        if (std::any_of(tree.begin(), tree.end(),
                        [&](const Link& arc) { return arc.A == link.A && arc.B == link.B; }))
            continue;
        const auto longest = LongestBetween(tree, problem.NumNodes, link.A, link.B);
        if (longest && longest->Length == link.Length) substitutes.push_back({link, *longest});
    }
    return substitutes;
}

std::vector<TreeArc> JoinedArcs(const NetworkProblem& problem, const NetworkResult& result)
{
    std::vector<TreeArc> arcs;
    for (int k = 1; k < problem.NumNodes; ++k) {
        const TreeArc arc{result.TreeArcs(kStart, k), result.TreeArcs(kEnd, k), result.TreeArcs(kLength, k)};
        if (arc.Length < kNoArc && arc.Start != arc.End) arcs.push_back(arc);
    }
    return arcs;
}

std::vector<int> NotJoined(const NetworkProblem& problem, const std::vector<TreeArc>& joined)
{
    std::vector<int> nodes;
    for (int n = 2; n <= problem.NumNodes; ++n)
        if (std::none_of(joined.begin(), joined.end(), [n](const TreeArc& arc) { return arc.End == n; }))
            nodes.push_back(n);
    return nodes;
}

bool HasNetwork(const NetworkProblem& problem, const NetworkResult& result)
{
    return result.Solved && problem.NumNodes > 0;
}

}  // namespace Network
