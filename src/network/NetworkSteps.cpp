#include "network/NetworkSteps.h"

#include <string>

#include "network/NetworkFacts.h"
#include "picture/words.h"

namespace Network {
namespace {

using picture::Step;
using Labels = Array2<std::int32_t>;
using Rows = std::vector<std::vector<std::string>>;

const std::string kTitle = "Network";

// ---- the route ----

std::string LabelText(const NetworkProblem& problem, const Labels& labels, int node)
{
    const std::int32_t distance = labels(kDistance, node);
    return distance < kNoArc ? LengthOf(problem, distance) : "none";
}

std::vector<std::string> LabelRow(const NetworkProblem& problem, const Labels& labels, int node)
{
    const bool labelled = labels(kDistance, node) < kNoArc;
    return {std::to_string(node), LabelText(problem, labels, node),
            labelled ? std::to_string(labels(kPredecessor, node)) : "none",
            labels(kPermanent, node) == 1 ? "permanent" : "temporary"};
}

// All labels, or those that changed.
std::vector<std::string> LabelTable(const NetworkProblem& problem, const Labels& labels, const Labels* before)
{
    Rows rows{{"node", "distance", "from", "label"}};
    for (int n = 1; n <= problem.NumNodes; ++n) {
        const bool changed = before == nullptr || (*before)(kDistance, n) != labels(kDistance, n) ||
                             (*before)(kPermanent, n) != labels(kPermanent, n);
        if (changed) rows.push_back(LabelRow(problem, labels, n));
    }
    return picture::Aligned(rows);
}

// What it was compared with: the best of the other temporary labels.
std::string WhyPermanent(const NetworkProblem& problem, const Labels& before, int node)
{
    int next = 0;
    for (int n = 1; n <= problem.NumNodes; ++n) {
        if (n == node || before(kPermanent, n) == 1 || before(kDistance, n) >= kNoArc) continue;
        if (next == 0 || before(kDistance, n) < before(kDistance, next)) next = n;
    }
    const std::string label = LabelText(problem, before, node);
    if (next == 0) return label + " is the only temporary label.";
    if (before(kDistance, next) == before(kDistance, node))
        return label + " is the smallest temporary label; node " + std::to_string(next) +
               " has the same, and the lower number goes first.";
    return label + " is the smallest temporary label; the next is " + LabelText(problem, before, next) +
           " at node " + std::to_string(next) + ".";
}

std::string Against(const NetworkProblem& problem, const Labels& before, int node, std::int32_t through)
{
    if (before(kDistance, node) >= kNoArc) return ", its first label";
    return (through < before(kDistance, node) ? " is less than " : " is not less than ") +
           LabelText(problem, before, node);
}

std::vector<std::string> Through(const NetworkProblem& problem, const NetworkResult& result,
                                 const LabelStep& step, const Labels& before)
{
    std::vector<std::string> lines;
    for (int n = 1; n <= problem.NumNodes; ++n) {
        if (before(kPermanent, n) == 1 || n == step.Node) continue;
        const std::int32_t length = result.NodeDistance(n, step.Node);
        if (length >= kNoArc) continue;
        const std::int32_t through = before(kDistance, step.Node) + length;
        lines.push_back("node " + std::to_string(n) + ": " + LabelText(problem, before, step.Node) + " + " +
                        LengthOf(problem, length) + " = " + LengthOf(problem, through) +
                        Against(problem, before, n, through));
    }
    return lines;
}

Step FirstLabels(const NetworkProblem& problem, const LabelStep& step)
{
    return {.Heading = "Node " + std::to_string(step.Node) + " starts with " +
                       LabelText(problem, step.NodeLabel, step.Node),
            .Figures = LabelTable(problem, step.NodeLabel, nullptr),
            .Why = "The start is 0 away from itself, and each neighbour gets the length of its arc.",
            .Picture = kTitle,
            .Marks = {std::to_string(step.Node)}};
}

Step NextLabel(const NetworkProblem& problem, const NetworkResult& result, const LabelStep& step,
               const Labels& before)
{
    const int from = before(kPredecessor, step.Node);
    return {.Heading = "Node " + std::to_string(step.Node) + " becomes permanent with " +
                       LabelText(problem, before, step.Node),
            .Figures = LabelTable(problem, step.NodeLabel, &before),
            .Why = WhyPermanent(problem, before, step.Node),
            .Arithmetic = Through(problem, result, step, before),
            .Picture = kTitle,
            .Marks = {std::to_string(step.Node), LinkId(from, step.Node)}};
}

Step RouteProof(const NetworkProblem& problem, const NetworkResult& result)
{
    const std::vector<int> route = RouteNodes(problem, result);
    Step step{.Heading = "The route is read back from node " + std::to_string(problem.EndNode),
              .Picture = kTitle};
    Rows rows{{"from", "to", "length", "so far"}};
    std::string sum;
    for (std::size_t i = 1; i < route.size(); ++i) {
        const std::string length = LengthOf(problem, result.NodeDistance(route[i - 1], route[i]));
        rows.push_back({std::to_string(route[i - 1]), std::to_string(route[i]), length,
                        LengthOf(problem, result.NodeLabel(kDistance, route[i]))});
        sum += (sum.empty() ? "" : " + ") + length;
        step.Marks.push_back(LinkId(route[i - 1], route[i]));
    }
    if (rows.size() > 1) step.Figures = picture::Aligned(rows);
    const std::string total = LengthOf(problem, result.NodeLabel(kDistance, problem.EndNode));
    step.Figures.push_back((sum.empty() ? "0" : sum) + " = " + total);
    step.Why = route.size() > 1 ? "Each label names the node that it came from, and the lengths add up to it."
                                : "Start and end are the same node, so that there is nothing to add up.";
    return step;
}

Step NothingLeft(const NetworkProblem& problem, const LabelStep& last)
{
    std::vector<std::string> nodes;
    for (int n = 1; n <= problem.NumNodes; ++n)
        if (last.NodeLabel(kDistance, n) >= kNoArc) nodes.push_back(std::to_string(n));
    return {.Heading = "No node can be reached any more",
            .Figures = {"without a label: " + picture::Listed(nodes, nodes.size())},
            .Why =
                "No arc leads from a labelled node to one of these, and the method gives no route unless "
                "every node has a label.",
            .Picture = kTitle,
            .Marks = nodes};
}

// ---- the tree ----

Rows ComparedRows(const NetworkProblem& problem, const JoinStep& step)
{
    Rows rows{{"from", "to", "length"}};
    for (const TreeArc& arc : step.Compared) {
        const bool joins = arc.Start == step.Joined.Start && arc.End == step.Joined.End;
        rows.push_back({std::to_string(arc.Start), std::to_string(arc.End), LengthOf(problem, arc.Length)});
        if (joins) rows.back().emplace_back("joins");
    }
    return rows;
}

std::string WhyJoins(const NetworkProblem& problem, const JoinStep& step)
{
    const TreeArc* next = nullptr;
    for (const TreeArc& arc : step.Compared) {
        if (arc.Start == step.Joined.Start && arc.End == step.Joined.End) continue;
        if (next == nullptr || arc.Length < next->Length) next = &arc;
    }
    const std::string length = LengthOf(problem, step.Joined.Length);
    if (next == nullptr) return "It is the only arc that leads out of the tree.";
    const std::string other = PairName(next->Start, next->End);
    if (next->Length == step.Joined.Length)
        return "No arc that leads out of the tree is shorter than " + length + "; " + other +
               " is as short and is met later.";
    return length + " is the shortest of " + std::to_string(step.Compared.size()) +
           " arcs that lead out of the tree; the next is " + other + " with " +
           LengthOf(problem, next->Length) + ".";
}

Step Joining(const NetworkProblem& problem, const JoinStep& step, std::int32_t sum)
{
    Step told{.Heading = "Arc " + PairName(step.Joined.Start, step.Joined.End) + " joins node " +
                         std::to_string(step.Joined.End),
              .Figures = picture::Aligned(ComparedRows(problem, step)),
              .Why = WhyJoins(problem, step),
              .Picture = kTitle};
    told.Figures.push_back("length so far: " + LengthOf(problem, sum));
    told.Marks = {std::to_string(step.Joined.End)};
    if (step.Joined.Start != step.Joined.End)
        told.Marks.push_back(LinkId(step.Joined.Start, step.Joined.End));
    else
        told.Why =
            "It is the shortest arc at hand, though it leads from node 1 to itself: a node stays "
            "outside.";
    return told;
}

Step NothingJoins(const NetworkProblem& problem)
{
    const auto pieces = PiecesOf(problem, 1);
    Step step{.Heading = "No arc leads out of the tree any more",
              .Why = "The nodes of the other pieces cannot be joined, so that there is no tree of all nodes.",
              .Picture = kTitle};
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        std::vector<std::string> names;
        for (const int node : pieces[i])
            names.push_back(std::to_string(node));
        step.Figures.push_back("apart: " + picture::Listed(names, names.size()));
        step.Marks.insert(step.Marks.end(), names.begin(), names.end());
    }
    return step;
}

Step TreeProof(const NetworkProblem& problem, const NetworkResult& result)
{
    const std::size_t joined = JoinedArcs(problem, result).size() + 1;
    const bool all = joined == static_cast<std::size_t>(problem.NumNodes);
    Step step{.Heading = all ? "All nodes are joined" : "As many arcs have joined as a tree needs",
              .Picture = kTitle};
    std::string sum;
    for (int k = 1; k < problem.NumNodes; ++k) {
        sum += (sum.empty() ? "" : " + ") + LengthOf(problem, result.TreeArcs(kLength, k));
        if (result.TreeArcs(kStart, k) != result.TreeArcs(kEnd, k))
            step.Marks.push_back(LinkId(result.TreeArcs(kStart, k), result.TreeArcs(kEnd, k)));
    }
    step.Figures = {(sum.empty() ? "0" : sum) + " = " + LengthOf(problem, result.TreeLength)};
    step.Why = "The lengths of the arcs that joined add up to the length of the tree.";
    return step;
}

}  // namespace

std::vector<Step> RouteSteps(const NetworkProblem& problem, const NetworkResult& result)
{
    if (!HasNetwork(problem, result)) return {};
    std::vector<LabelStep> trace;
    FindShortestRoute(problem, &trace);
    std::vector<Step> steps{FirstLabels(problem, trace.front())};
    for (std::size_t i = 1; i < trace.size(); ++i)
        steps.push_back(NextLabel(problem, result, trace[i], trace[i - 1].NodeLabel));
    steps.push_back(result.Reached ? RouteProof(problem, result) : NothingLeft(problem, trace.back()));
    return picture::Kept(std::move(steps));
}

std::vector<Step> TreeSteps(const NetworkProblem& problem, const NetworkResult& result)
{
    if (!HasNetwork(problem, result)) return {};
    std::vector<JoinStep> trace;
    FindSpanningTree(problem, &trace);
    std::vector<Step> steps;
    std::int32_t sum = 0;
    for (const JoinStep& step : trace) {
        if (step.Joined.Length >= kNoArc) break;
        sum += step.Joined.Length;
        steps.push_back(Joining(problem, step, sum));
    }
    steps.push_back(result.Reached ? TreeProof(problem, result) : NothingJoins(problem));
    return picture::Kept(std::move(steps));
}

}  // namespace Network
