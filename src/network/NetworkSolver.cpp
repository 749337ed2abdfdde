#include "network/NetworkSolver.h"

#include <algorithm>
#include <utility>

#include "basic/error.h"
#include "basic/number.h"

namespace Network {

namespace {

// A problem file can give any number of nodes, and the matrices grow with its square.
constexpr int kMostMatrixNodes = 500;

// Without direction; of two arcs between the same nodes the later one counts.
Array2<std::int32_t> RawDistances(const NetworkProblem& problem)
{
    const int n = problem.NumNodes;
    if (n > kMostMatrixNodes) Raise(ErrorNumber::Overflow);
    Array2<std::int32_t> distances(n, n);
    distances.Fill(kNoArc);
    for (int k = 1; k <= problem.NumArcs; ++k) {
        const int a = problem.ArcTable(kStart, k);
        const int b = problem.ArcTable(kEnd, k);
        const std::int32_t length = problem.ArcTable(kLength, k);
        distances(a, b) = length;
        distances(b, a) = length;
    }
    return distances;
}

// ---- the route ----

NetworkResult WithFirstLabels(const NetworkProblem& problem)
{
    const int n = problem.NumNodes;
    NetworkResult result;
    result.NodeDistance = RawDistances(problem);
    result.NodeLabel = Array2<std::int32_t>(kPredecessor, n);
    for (int node = 1; node <= n; ++node) {
        result.NodeDistance(node, node) = 0;
        result.NodeLabel(kDistance, node) = kNoArc;
        result.NodeLabel(kPredecessor, node) = node;
    }
    return result;
}

void LabelFromStart(NetworkResult& result, int start, int nodes)
{
    result.NodeLabel(kPermanent, start) = 1;
    result.NodeLabel(kDistance, start) = 0;
    for (int n = 1; n <= nodes; ++n) {
        if (result.NodeDistance(n, start) == kNoArc) continue;
        result.NodeLabel(kDistance, n) = result.NodeDistance(n, start);
        result.NodeLabel(kPredecessor, n) = start;
    }
}

bool IsPermanent(const NetworkResult& result, int node)
{
    return result.NodeLabel(kPermanent, node) == 1;
}

// The lowest number among the nearest; 0 when none can be reached.
int NearestTemporary(const NetworkResult& result, int nodes)
{
    std::int32_t best = kNoArc;
    int chosen = 0;
    for (int n = 1; n <= nodes; ++n) {
        if (IsPermanent(result, n) || result.NodeLabel(kDistance, n) >= best) continue;
        best = result.NodeLabel(kDistance, n);
        chosen = n;
    }
    return chosen;
}

bool AllPermanent(const NetworkResult& result, int nodes)
{
    for (int n = 1; n <= nodes; ++n)
        if (!IsPermanent(result, n)) return false;
    return true;
}

void LabelFrom(NetworkResult& result, int chosen, int nodes)
{
    for (int n = 1; n <= nodes; ++n) {
        if (IsPermanent(result, n) || result.NodeDistance(n, chosen) == kNoArc) continue;
        const std::int32_t through = ToInt32(static_cast<double>(result.NodeDistance(n, chosen)) +
                                             result.NodeLabel(kDistance, chosen));
        if (through >= result.NodeLabel(kDistance, n)) continue;
        result.NodeLabel(kDistance, n) = through;
        result.NodeLabel(kPredecessor, n) = chosen;
    }
}

void ReadRouteBack(NetworkResult& result, const NetworkProblem& problem)
{
    int node = problem.EndNode;
    do {
        node = result.NodeLabel(kPredecessor, node);
        result.RoutePath.push_back(node);
    } while (node != problem.StartNode);
}

void Tell(std::vector<LabelStep>* trace, int node, const NetworkResult& result)
{
    if (trace != nullptr) trace->push_back({node, result.NodeLabel});
}

// ---- the tree ----

// The earliest tree node and then the lowest number win among equals. Where nothing can join, the nodes of
// the arc before stay.
void FindJoiningArc(const NetworkResult& result, const Array2<std::int32_t>& open, int nodes, TreeArc& arc)
{
    arc.Length = kNoArc;
    for (const std::int32_t treeNode : result.TreeNodes)
        for (int n = 1; n <= nodes; ++n)
            if (open(n, treeNode) < arc.Length) arc = {treeNode, n, open(n, treeNode)};
}

// No later step may join two nodes of the tree.
void ForgetArcsInside(const NetworkResult& result, Array2<std::int32_t>& open)
{
    for (const std::int32_t a : result.TreeNodes)
        for (const std::int32_t b : result.TreeNodes)
            open(a, b) = kNoArc;
}

void AddUpTree(NetworkResult& result, int nodes)
{
    result.Reached = true;
    for (int k = 1; k < nodes; ++k) {
        const std::int32_t length = result.TreeArcs(kLength, k);
        result.TreeLength = ToInt32(static_cast<double>(result.TreeLength) + length);
        if (length < kNoArc) continue;
        result.Reached = false;
        return;
    }
}

// The arcs that lead out of the tree, as they were compared.
void Tell(std::vector<JoinStep>* trace, const NetworkResult& result, const Array2<std::int32_t>& open,
          int nodes, const TreeArc& arc)
{
    if (trace == nullptr) return;
    JoinStep step{.Joined = arc, .Compared = {}};
    std::vector<std::int32_t> told;  // a node that joined itself stands in the list twice
    for (const std::int32_t treeNode : result.TreeNodes) {
        if (std::find(told.begin(), told.end(), treeNode) != told.end()) continue;
        told.push_back(treeNode);
        for (int n = 1; n <= nodes; ++n)
            if (open(n, treeNode) < kNoArc) step.Compared.push_back({treeNode, n, open(n, treeNode)});
    }
    trace->push_back(std::move(step));
}

}  // namespace

NetworkResult FindShortestRoute(const NetworkProblem& problem, std::vector<LabelStep>* trace)
{
    const int nodes = problem.NumNodes;
    NetworkResult result = WithFirstLabels(problem);
    LabelFromStart(result, problem.StartNode, nodes);
    Tell(trace, problem.StartNode, result);
    for (;;) {
        const int chosen = NearestTemporary(result, nodes);
        result.NodeLabel(kPermanent, chosen) = 1;  // nobody reads the label of node 0
        const bool complete = AllPermanent(result, nodes);
        if (!complete && chosen == 0) break;
        if (!complete) LabelFrom(result, chosen, nodes);
        if (chosen != 0) Tell(trace, chosen, result);
        if (!complete) continue;
        result.Reached = true;
        ReadRouteBack(result, problem);
        break;
    }
    result.Solved = true;
    return result;
}

NetworkResult FindSpanningTree(const NetworkProblem& problem, std::vector<JoinStep>* trace)
{
    const int nodes = problem.NumNodes;
    Array2<std::int32_t> open = RawDistances(problem);
    NetworkResult result;
    result.TreeArcs = Array2<std::int32_t>(kLength, std::max(nodes - 1, 0));
    result.TreeNodes = {1};
    TreeArc arc;
    for (int m = 2; m <= nodes; ++m) {
        FindJoiningArc(result, open, nodes, arc);
        Tell(trace, result, open, nodes, arc);
        result.TreeArcs(kStart, m - 1) = arc.Start;
        result.TreeArcs(kEnd, m - 1) = arc.End;
        result.TreeArcs(kLength, m - 1) = arc.Length;
        result.TreeNodes.push_back(arc.End);
        ForgetArcsInside(result, open);
    }
    AddUpTree(result, nodes);
    result.Solved = true;
    return result;
}

}  // namespace Network
