#include "network/NetworkSolver.h"

#include <algorithm>

#include "basic/error.h"
#include "basic/number.h"
#include "network/vtshrtrt.h"

namespace Network {

NetworkResult Result;

namespace {

// A problem file can give any number of nodes, and the matrices grow with its square.
constexpr int kMostMatrixNodes = 500;

void FillRawDistances()
{
    const int n = Problem.NumNodes;
    Result = {};
    if (n > kMostMatrixNodes) Raise(ErrorNumber::Overflow);
    Result.RawDistance = Array2<std::int32_t>(n, n);
    Result.RawDistance.Fill(kNoArc);
    for (int k = 1; k <= Problem.NumArcs; ++k) {
        const int a = Problem.ArcTable(kStart, k);
        const int b = Problem.ArcTable(kEnd, k);
        const std::int32_t length = Problem.ArcTable(kLength, k);
        Result.RawDistance(a, b) = length;  // of two arcs between the same nodes the later one counts
        Result.RawDistance(b, a) = length;
    }
}

void PrepareLabels()
{
    const int n = Problem.NumNodes;
    FillRawDistances();
    Result.NodeDistance = Result.RawDistance;
    Result.NodeLabel = Array2<std::int32_t>(kPredecessor, n);
    for (int node = 1; node <= n; ++node) {
        Result.NodeDistance(node, node) = 0;
        Result.NodeLabel(kDistance, node) = kNoArc;
        Result.NodeLabel(kPredecessor, node) = node;
    }
}

void LabelFromStart()
{
    const int s = Problem.StartNode;
    Result.NodeLabel(kPermanent, s) = 1;
    Result.NodeLabel(kDistance, s) = 0;
    for (int n = 1; n <= Problem.NumNodes; ++n) {
        if (n == s || Result.NodeDistance(n, s) == kNoArc) continue;
        Result.NodeLabel(kDistance, n) = Result.NodeDistance(n, s);
        Result.NodeLabel(kPredecessor, n) = s;
    }
}

bool IsPermanent(int node)
{
    return Result.NodeLabel(kPermanent, node) == 1;
}

// The lowest number among the nearest; 0 when none can be reached.
int NearestTemporary()
{
    std::int32_t best = kNoArc;
    int chosen = 0;
    for (int n = 1; n <= Problem.NumNodes; ++n) {
        if (IsPermanent(n) || Result.NodeLabel(kDistance, n) >= best) continue;
        best = Result.NodeLabel(kDistance, n);
        chosen = n;
    }
    return chosen;
}

bool AllPermanent()
{
    for (int n = 1; n <= Problem.NumNodes; ++n)
        if (!IsPermanent(n)) return false;
    return true;
}

void LabelFrom(int chosen)
{
    for (int n = 1; n <= Problem.NumNodes; ++n) {
        if (IsPermanent(n) || Result.NodeDistance(n, chosen) == kNoArc) continue;
        const std::int32_t through = ToInt32(static_cast<double>(Result.NodeDistance(n, chosen)) +
                                             Result.NodeLabel(kDistance, chosen));
        if (through >= Result.NodeLabel(kDistance, n)) continue;
        Result.NodeLabel(kDistance, n) = through;
        Result.NodeLabel(kPredecessor, n) = chosen;
    }
}

void ReadRouteBack()
{
    int node = Problem.EndNode;
    do {
        node = Result.NodeLabel(kPredecessor, node);
        Result.RoutePath.push_back(node);
    } while (node != Problem.StartNode);
}

struct TreeArc {
    std::int32_t Start = 0;
    std::int32_t End = 0;
    std::int32_t Length = kNoArc;
};

// The earliest tree node and then the lowest number win among equals. Where nothing can join, the nodes of
// the arc before stay.
void FindJoiningArc(TreeArc& arc)
{
    arc.Length = kNoArc;
    for (const std::int32_t treeNode : Result.TreeNodes)
        for (int n = 1; n <= Problem.NumNodes; ++n)
            if (Result.RawDistance(n, treeNode) < arc.Length)
                arc = {treeNode, n, Result.RawDistance(n, treeNode)};
}

// No later step may join two nodes of the tree.
void ForgetArcsInside()
{
    for (const std::int32_t a : Result.TreeNodes)
        for (const std::int32_t b : Result.TreeNodes)
            Result.RawDistance(a, b) = kNoArc;
}

void AddUpTree()
{
    Result.Reached = true;
    for (int k = 1; k < Problem.NumNodes; ++k) {
        const std::int32_t length = Result.TreeArcs(kLength, k);
        Result.TreeLength = ToInt32(static_cast<double>(Result.TreeLength) + length);
        if (length < kNoArc) continue;
        Result.Reached = false;
        return;
    }
}

}  // namespace

void FindShortestRoute()
{
    PrepareLabels();
    LabelFromStart();
    for (;;) {
        const int chosen = NearestTemporary();
        Result.NodeLabel(kPermanent, chosen) = 1;  // nobody reads the label of node 0
        if (AllPermanent()) break;
        if (chosen == 0) return;
        LabelFrom(chosen);
    }
    Result.Reached = true;
    ReadRouteBack();
}

void FindSpanningTree()
{
    FillRawDistances();
    Result.TreeArcs = Array2<std::int32_t>(kLength, std::max(Problem.NumNodes - 1, 0));
    Result.TreeNodes = {1};
    TreeArc arc;
    for (int m = 2; m <= Problem.NumNodes; ++m) {
        FindJoiningArc(arc);
        Result.TreeArcs(kStart, m - 1) = arc.Start;
        Result.TreeArcs(kEnd, m - 1) = arc.End;
        Result.TreeArcs(kLength, m - 1) = arc.Length;
        Result.TreeNodes.push_back(arc.End);
        ForgetArcsInside();
    }
    AddUpTree();
}

}  // namespace Network
