#include "network/NetworkPicture.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>

#include "network/NetworkFacts.h"
#include "picture/words.h"

namespace Network {
namespace {

using picture::Arc;
using picture::Counted;
using picture::Diagram;
using picture::Listed;
using picture::Node;
using picture::Picture;
using picture::Role;
using Texts = std::vector<std::string>;

Texts Names(const std::vector<int>& numbers)
{
    Texts names;
    for (const int number : numbers)
        names.push_back(std::to_string(number));
    return names;
}

std::string NodesText(const std::vector<int>& nodes)
{
    return (nodes.size() == 1 ? "node " : "nodes ") + Listed(Names(nodes), nodes.size());
}

Node NodeOf(int number, Role role)
{
    Node node;
    node.Id = std::to_string(number);
    node.Lines = {node.Id};
    node.Form = picture::Shape::Circle;
    node.As = role;
    node.Tip = "Node " + node.Id;
    return node;
}

Arc EdgeOf(const NetworkProblem& problem, const Link& link, Role role)
{
    Arc arc;
    arc.From = std::to_string(link.A);
    arc.To = std::to_string(link.B);
    arc.Directed = false;
    arc.As = role;
    arc.Weight = link.Length / kThousand;
    arc.Text = LengthOf(problem, link.Length);
    arc.Tip = PairName(link.A, link.B) + ": " + arc.Text;
    arc.Id = LinkId(link.A, link.B);
    return arc;
}

// ---- what lies apart, what is not drawn ----

// A frame for each piece; nodes without any arc share one.
void FramePieces(const std::vector<std::vector<int>>& pieces, Diagram& diagram)
{
    std::optional<std::size_t> single;
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const std::vector<std::string> names = Names(pieces[i]);
        if (names.size() == 1 && single) {
            diagram.Frames[*single].Ids.push_back(names.front());
            continue;
        }
        if (names.size() == 1) single = diagram.Frames.size();
        diagram.Frames.push_back({"apart", names});
    }
}

std::string PiecesNote(const std::vector<std::vector<int>>& pieces, int from)
{
    std::vector<int> apart;
    for (std::size_t i = 1; i < pieces.size(); ++i)
        apart.insert(apart.end(), pieces[i].begin(), pieces[i].end());
    std::sort(apart.begin(), apart.end());
    std::string text = "Not all nodes can be reached from node " + std::to_string(from) + ": " +
                       NodesText(apart) + (apart.size() == 1 ? " lies" : " lie") + " apart";
    return text +
           (pieces.size() > 2 ? ", in " + Counted(static_cast<int>(pieces.size()) - 1, "piece") + "." : ".");
}

void AddArcNotes(const NetworkProblem& problem, Texts& notes)
{
    for (const Link& link : LinksOf(problem)) {
        if (link.Replaced.empty()) continue;
        Texts lengths;
        for (const int arc : link.Replaced)
            lengths.push_back(LengthOf(problem, problem.ArcTable(kLength, arc)));
        notes.push_back((link.Replaced.size() == 1 ? "Arc " : "Arcs ") + Listed(Names(link.Replaced)) +
                        " between " + std::to_string(link.A) + " and " + std::to_string(link.B) + ", with " +
                        Listed(lengths) + (link.Replaced.size() == 1 ? ", is" : ", are") +
                        " replaced by arc " + std::to_string(link.Number) + ", with " +
                        LengthOf(problem, link.Length) + ".");
    }
    if (const auto loops = LoopsOf(problem); !loops.empty())
        notes.push_back((loops.size() == 1 ? "Arc " : "Arcs ") + Listed(Names(loops)) +
                        (loops.size() == 1 ? " joins" : " join") + " a node to itself and " +
                        (loops.size() == 1 ? "is" : "are") + " not drawn.");
    if (const auto lost = LostArcs(problem); !lost.empty())
        notes.push_back((lost.size() == 1 ? "Arc " : "Arcs ") + Listed(Names(lost)) +
                        (lost.size() == 1 ? " has" : " have") + " an empty end and " +
                        (lost.size() == 1 ? "is" : "are") + " lost.");
}

// ---- the route ----

std::set<std::string> LegsOf(const std::vector<int>& route)
{
    std::set<std::string> legs;
    for (std::size_t i = 1; i < route.size(); ++i)
        legs.insert(LinkId(route[i - 1], route[i]));
    return legs;
}

std::set<std::string> LabelLinks(const NetworkProblem& problem, const NetworkResult& result)
{
    std::set<std::string> links;
    for (int node = 1; node <= problem.NumNodes; ++node)
        links.insert(LinkId(result.NodeLabel(kPredecessor, node), node));
    return links;
}

void AddRouteNodes(const NetworkProblem& problem, const NetworkResult& result, const std::vector<int>& route,
                   Diagram& diagram)
{
    for (int n = 1; n <= problem.NumNodes; ++n) {
        const bool chosen = std::find(route.begin(), route.end(), n) != route.end();
        const std::int32_t distance = result.NodeLabel(kDistance, n);
        Node node = NodeOf(n, chosen ? Role::Chosen : Role::Plain);
        if (distance < kNoArc) {
            node.Lines.push_back(LengthOf(problem, distance));
            node.Tip += ": " + node.Lines[1] + " from node " + std::to_string(problem.StartNode);
        } else {
            node.As = Role::Infeasible;
            node.Tip += ": cannot be reached";
        }
        diagram.Nodes.push_back(std::move(node));
    }
}

// Along the route from its start on, with heads; the rest as it is.
void AddRouteArcs(const NetworkProblem& problem, const NetworkResult& result, const std::vector<int>& route,
                  Diagram& diagram)
{
    const std::set<std::string> legs = LegsOf(route);
    const std::set<std::string> labels = LabelLinks(problem, result);
    for (const Link& link : LinksOf(problem)) {
        const std::string id = LinkId(link.A, link.B);
        Arc arc = EdgeOf(problem, link, labels.contains(id) ? Role::Plain : Role::Spare);
        if (legs.contains(id)) {
            arc.As = Role::Chosen;
            arc.Directed = true;
            const auto at = std::find(route.begin(), route.end(), link.A);
            if (at + 1 == route.end() || *(at + 1) != link.B) std::swap(arc.From, arc.To);
        }
        diagram.Arcs.push_back(std::move(arc));
    }
}

std::string RouteNote(const NetworkProblem& problem, const NetworkResult& result,
                      const std::vector<int>& route)
{
    const std::string ends =
        "from " + std::to_string(problem.StartNode) + " to " + std::to_string(problem.EndNode);
    return "The shortest route " + ends + " is " + Listed(Names(route), route.size()) + " with a length of " +
           LengthOf(problem, result.NodeLabel(kDistance, problem.EndNode)) + ".";
}

// The legs with the distance behind each.
std::string LegsNote(const NetworkProblem& problem, const NetworkResult& result,
                     const std::vector<int>& route)
{
    Texts legs;
    for (std::size_t i = 1; i < route.size(); ++i)
        legs.push_back(PairName(route[i - 1], route[i]) + " brings it to " +
                       LengthOf(problem, result.NodeLabel(kDistance, route[i])));
    return "Leg by leg: " + Listed(legs, legs.size()) + ".";
}

// ---- the tree ----

void AddTreeNodes(const NetworkProblem& problem, const std::vector<TreeArc>& joined, Diagram& diagram)
{
    const auto pieces = PiecesOf(problem, 1);
    for (int n = 1; n <= problem.NumNodes; ++n) {
        const auto at =
            std::find_if(joined.begin(), joined.end(), [n](const TreeArc& arc) { return arc.End == n; });
        Node node = NodeOf(n, n == 1 || at != joined.end() ? Role::Plain : Role::Infeasible);
        if (at != joined.end()) {
            node.Badge = std::to_string(at - joined.begin() + 1);
            node.Tip +=
                ": joined from " + std::to_string(at->Start) + " with arc " + node.Badge + " of the tree";
        } else {
            node.Tip += n == 1 ? ": the tree starts here" : ": not joined";
        }
        diagram.Nodes.push_back(std::move(node));
    }
    FramePieces(pieces, diagram);
}

Role TreeRole(const Link& link, const std::vector<TreeArc>& joined, const std::vector<Substitute>& others)
{
    const auto isLink = [&link](int a, int b) { return LinkId(a, b) == LinkId(link.A, link.B); };
    if (std::any_of(joined.begin(), joined.end(),
                    [&](const TreeArc& arc) { return isLink(arc.Start, arc.End); }))
        return Role::Chosen;
    const bool serves = std::any_of(others.begin(), others.end(), [&](const Substitute& other) {
        return isLink(other.Other.A, other.Other.B);
    });
    return serves ? Role::Second : Role::Spare;
}

std::string JoiningNote(const NetworkProblem& problem, const std::vector<TreeArc>& joined)
{
    Texts arcs;
    for (const TreeArc& arc : joined)
        arcs.push_back(PairName(arc.Start, arc.End) + " (" + LengthOf(problem, arc.Length) + ")");
    return "In the order of joining: " + Listed(arcs, arcs.size()) + ".";
}

std::string SubstituteNote(const std::vector<Substitute>& others)
{
    Texts arcs;
    for (const Substitute& other : others)
        arcs.push_back(PairName(other.Other.A, other.Other.B));
    return (arcs.size() == 1 ? "Arc " : "Arcs ") + Listed(arcs, arcs.size()) +
           " would serve as well, in place of " + (arcs.size() == 1 ? "one" : "some") + " as long.";
}

std::string TreeNote(const NetworkProblem& problem, const NetworkResult& result,
                     const std::vector<TreeArc>& joined)
{
    const auto pieces = PiecesOf(problem, 1);
    if (pieces.size() > 1) return PiecesNote(pieces, 1);
    if (const auto apart = NotJoined(problem, joined); !apart.empty())
        return "The tree takes an arc that joins node 1 to itself; " + NodesText(apart) +
               (apart.size() == 1 ? " is not joined." : " are not joined.");
    if (joined.empty()) return "A network of one node needs no arc.";
    return Counted(static_cast<int>(joined.size()), "arc") + " with a length of " +
           LengthOf(problem, result.TreeLength) + " in all " + (joined.size() == 1 ? "joins" : "join") +
           " the " + Counted(problem.NumNodes, "node") + ".";
}

}  // namespace

std::vector<Picture> RoutePictures(const NetworkProblem& problem, const NetworkResult& result)
{
    if (!HasNetwork(problem, result)) return {};
    const std::vector<int> route = RouteNodes(problem, result);
    const auto pieces = PiecesOf(problem, problem.StartNode);
    Diagram diagram{.Kind = picture::Layout::Free, .Start = std::to_string(problem.StartNode)};
    AddRouteNodes(problem, result, route, diagram);
    AddRouteArcs(problem, result, route, diagram);
    FramePieces(pieces, diagram);
    Texts notes{result.Reached ? RouteNote(problem, result, route) : PiecesNote(pieces, problem.StartNode)};
    if (route.size() > 2) notes.push_back(LegsNote(problem, result, route));
    AddArcNotes(problem, notes);
    return {{"Network", std::move(diagram), std::move(notes)}};
}

std::vector<Picture> TreePictures(const NetworkProblem& problem, const NetworkResult& result)
{
    if (!HasNetwork(problem, result)) return {};
    const std::vector<TreeArc> joined = JoinedArcs(problem, result);
    const std::vector<Substitute> others = SubstitutesOf(problem, result);
    Diagram diagram{.Kind = picture::Layout::Free, .Start = "1"};
    AddTreeNodes(problem, joined, diagram);
    for (const Link& link : LinksOf(problem))
        diagram.Arcs.push_back(EdgeOf(problem, link, TreeRole(link, joined, others)));
    Texts notes{TreeNote(problem, result, joined)};
    if (!joined.empty()) notes.push_back(JoiningNote(problem, joined));
    if (!others.empty()) notes.push_back(SubstituteNote(others));
    AddArcNotes(problem, notes);
    return {{"Network", std::move(diagram), std::move(notes)}};
}

}  // namespace Network
