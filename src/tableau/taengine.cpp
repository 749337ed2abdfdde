#include "tableau/taengine.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "basic/number.h"
#include "tableau/VtTanda.h"

namespace Tableau {

namespace {

using Node = std::int16_t;

// The tree and the prices of one run. Preorder: a node, then its subtrees one after the other.
struct Work {
    const TableauProblem& Problem;
    TableauResult Result = {};
    Node Root = 0;               // N + 1
    std::int32_t FlowBound = 0;  // no arc carries more

    // Those of the problem, with the arcs and the difference of the root behind them.
    Array1<std::int32_t> TailNode = Problem.TailNode;
    Array1<std::int16_t> HeadNode = Problem.HeadNode;
    Array1<std::int32_t> NodeSupply = Problem.NodeSupply;

    Array1<Node> NodeParent = {};  // 0 for the root
    Array1<Node> NodeDepth = {};   // arcs from the root
    Array1<Node> NodeThread = {};  // the next node in preorder; the last one's is the root
    Array1<Node> NodeRevThread = {};
    Array1<Node> NodeLast = {};  // the last node of the subtree in preorder
    Array1<Node> NodeSubtreeSize = {};
    Array1<double> NodePotential = {};  // whole numbers, as the scaled costs are
    Array1<double> ScaledCost = {};
    Array1<Node> StemChild = {};  // the way back along a path that is being turned round
};

struct Entering {
    int Arc = 0;
    double Violation = 0;  // gain per unit
};

// What a pivot changes: `Arc` of the cycle leaves, and the part of the tree below it, which holds U, is hung
// under V by the entering arc.
struct Leaving {
    Node Apex = 0;
    std::int32_t Step = 0;
    int Arc = 0;
    bool OnTailSide = false;
    Node U = 0;
    Node V = 0;
    Node Q = 0;          // top of the part that is cut off
    int OldSize = 0;     // of the part
    int DepthShift = 0;  // of U
};

// One of the two ways from the ends of the entering arc up to the apex.
struct Side {
    Node At = 0;
    std::int64_t Bound = 0;  // the smallest flow that the step would take away
    int Arc = 0;             // that carries it; 0: none so far
};

void Add(Node& target, int amount)
{
    target = static_cast<Node>(target + amount);
}

// Of an arc that joins a node to its parent: its number, and so never 0.
int Sign(std::int32_t arc)
{
    return arc > 0 ? 1 : -1;
}

// ---- the start of a run ----

void AllocateWork(Work& work)
{
    const int nodes = work.Problem.NumNodes + 1;
    const int arcs = work.Problem.NumArcs + work.Problem.NumNodes;
    work.Root = static_cast<Node>(nodes);
    for (Array1<Node>* table : {&work.NodeParent, &work.NodeDepth, &work.NodeThread, &work.NodeRevThread,
                                &work.NodeLast, &work.NodeSubtreeSize, &work.StemChild})
        *table = Array1<Node>(nodes);
    work.NodePotential = Array1<double>(nodes);
    work.ScaledCost = Array1<double>(arcs);
    work.Result.BasicArc = Array1<std::int32_t>(nodes);
    // As many as there are arcs, never fewer than there are nodes.
    work.Result.BasicFlow = Array1<std::int32_t>(work.Problem.NumArcs + 1);
}

// The floor comes before the sign: revenues with more than five decimals round the other way.
void ScaleCosts(Work& work)
{
    const double sign = work.Result.Maximize ? -1 : 1;
    for (int e = 1; e <= work.Problem.NumArcs; ++e)
        work.ScaledCost(e) = sign * Int(kCostScale * work.Problem.ArcCost(e).Value());
}

void AddUpTotals(Work& work)
{
    double supply = 0;
    double demand = 0;
    for (int i = 1; i <= work.Problem.NumNodes; ++i) {
        const std::int32_t units = work.NodeSupply(i);
        (units > 0 ? supply : demand) += std::abs(static_cast<double>(units));
    }
    work.Result.TotalSupply = ToInt32(supply);
    work.Result.TotalDemand = ToInt32(demand);
    work.FlowBound = std::max(work.Result.TotalSupply, work.Result.TotalDemand);
}

// Dearer than any route through the table.
double BigCost(const Work& work)
{
    double largest = -99999;
    for (int e = 1; e <= work.Problem.NumArcs; ++e)
        largest = std::max(largest, std::abs(work.ScaledCost(e)));
    return largest * work.Problem.NumNodes;
}

// A node without supply or demand is joined like an origin: each arc that carries nothing points at the root,
// as the leaving rule needs.
void AddRootArcs(Work& work)
{
    const double bigCost = BigCost(work);
    const Node root = work.Root;
    for (Node i = 1; i < root; ++i) {
        const int e = work.Problem.NumArcs + i;
        const bool towardsRoot = work.NodeSupply(i) >= 0;
        work.ScaledCost(e) = towardsRoot ? 0 : bigCost;
        work.TailNode(e) = towardsRoot ? i : root;
        work.HeadNode(e) = towardsRoot ? root : i;
    }
}

void PlantRoot(Work& work)
{
    const Node root = work.Root;
    const auto last = static_cast<Node>(root - 1);
    work.NodeThread(root) = 1;
    work.NodeRevThread(root) = last;
    work.NodeLast(root) = last;
    work.NodeSubtreeSize(root) = root;
}

void HangNodesUnderRoot(Work& work)
{
    const Node root = work.Root;
    for (Node i = 1; i < root; ++i) {
        work.NodeParent(i) = root;
        work.NodeDepth(i) = 1;
        work.NodeThread(i) = static_cast<Node>(i + 1);
        work.NodeRevThread(i) = static_cast<Node>(i - 1);
        work.NodeLast(i) = i;
        work.NodeSubtreeSize(i) = 1;
        const int arc = work.Problem.NumArcs + i;
        work.Result.BasicArc(i) = work.NodeSupply(i) >= 0 ? arc : -arc;
    }
    work.NodeRevThread(1) = root;
}

// All nodes hang under the root, whose potential is 0.
void SetFirstPotentials(Work& work)
{
    for (Node x = work.NodeThread(work.Root); x < work.Root; x = work.NodeThread(x)) {
        const std::int32_t arc = work.Result.BasicArc(x);
        work.NodePotential(x) = work.ScaledCost(std::abs(arc)) * Sign(arc);
    }
}

void SetFirstFlows(Work& work)
{
    for (Node x = work.NodeRevThread(work.Root); x < work.Root; x = work.NodeRevThread(x))
        work.Result.BasicFlow(x) = std::abs(work.NodeSupply(x));
}

void BuildFirstTree(Work& work)
{
    PlantRoot(work);
    HangNodesUnderRoot(work);
    SetFirstPotentials(work);
    SetFirstFlows(work);
}

// ---- a pivot ----

void PriceArc(const Work& work, int e, Entering& best)
{
    const double tail = work.NodePotential.Data()[work.TailNode.Data()[e]];
    const double head = work.NodePotential.Data()[work.HeadNode.Data()[e]];
    const double violation = tail - head - work.ScaledCost.Data()[e];
    if (violation > best.Violation) best = {e, violation};
}

// The arc with the largest violation, the first one met among equals. An arc from the root to a destination
// does not come back once it has left.
Entering Price(const Work& work)
{
    Entering best;
    for (int i = 1; i < work.Root; ++i) {
        for (int e = work.Problem.FirstArc(i); work.TailNode(e) == i; ++e)
            PriceArc(work, e, best);
        if (work.NodeSupply(i) >= 0) PriceArc(work, work.Problem.NumArcs + i, best);
    }
    return best;
}

// The deepest of the smallest flows stays.
void ClimbTailSide(const Work& work, Side& side)
{
    const std::int32_t arc = work.Result.BasicArc(side.At);
    const std::int32_t flow = work.Result.BasicFlow(side.At);
    if (arc > 0 && flow < side.Bound) {
        side.Bound = flow;
        side.Arc = arc;
    }
    side.At = work.NodeParent(side.At);
}

// The smallest flow nearest the apex takes its place.
void ClimbHeadSide(const Work& work, Side& side)
{
    const std::int32_t arc = work.Result.BasicArc(side.At);
    const std::int32_t flow = work.Result.BasicFlow(side.At);
    if (arc < 0 && flow <= side.Bound) {
        side.Bound = flow;
        side.Arc = -arc;
    }
    side.At = work.NodeParent(side.At);
}

// Of equal blocking flows the last one on the cycle is chosen, seen from the apex down to the entering arc's
// tail, across it and up again: so every arc that carries nothing keeps pointing at the root, and degenerate
// pivots cannot cycle (Cunningham's rule). Both bounds start above any flow, so that a side whose only
// blocking flow is the largest possible one is seen as well.
Leaving FindCycle(const Work& work, const Entering& entering)
{
    const std::int64_t aboveAnyFlow = std::int64_t{work.FlowBound} + 1;
    const auto a = static_cast<Node>(work.TailNode(entering.Arc));
    const Node b = work.HeadNode(entering.Arc);
    Side tail{a, aboveAnyFlow, 0};
    Side head{b, aboveAnyFlow, 0};
    while (tail.At != head.At) {
        const int deeper = work.NodeDepth(tail.At) - work.NodeDepth(head.At);
        if (deeper >= 0) ClimbTailSide(work, tail);
        if (deeper <= 0) ClimbHeadSide(work, head);
    }
    Leaving leaving;
    leaving.Apex = tail.At;
    leaving.OnTailSide = tail.Bound < head.Bound;
    leaving.Step = static_cast<std::int32_t>(leaving.OnTailSide ? tail.Bound : head.Bound);
    leaving.Arc = leaving.OnTailSide ? tail.Arc : head.Arc;
    leaving.U = leaving.OnTailSide ? a : b;
    leaving.V = leaving.OnTailSide ? b : a;
    return leaving;
}

// From a node up to the apex; arcs of the sign `losing` lose the step, the others gain it.
void ChangeFlowsOn(Work& work, Node from, int losing, const Leaving& leaving)
{
    for (Node x = from; work.NodeDepth(x) > work.NodeDepth(leaving.Apex); x = work.NodeParent(x))
        work.Result.BasicFlow(x) -= losing * Sign(work.Result.BasicArc(x)) * leaving.Step;
}

void ChangeFlows(Work& work, const Entering& entering, const Leaving& leaving)
{
    ChangeFlowsOn(work, static_cast<Node>(work.TailNode(entering.Arc)), 1, leaving);
    ChangeFlowsOn(work, work.HeadNode(entering.Arc), -1, leaving);
}

void PrepareExchange(const Work& work, Leaving& leaving)
{
    leaving.DepthShift = work.NodeDepth(leaving.V) - work.NodeDepth(leaving.U) + 1;
    const auto tail = static_cast<Node>(work.TailNode(leaving.Arc));
    const Node head = work.HeadNode(leaving.Arc);
    leaving.Q = work.NodeDepth(tail) > work.NodeDepth(head) ? tail : head;
    leaving.OldSize = work.NodeSubtreeSize(leaving.Q);
}

// The stem is the path from U up to Q: each of its arcs moves one node towards Q and changes its direction.
void ReverseStem(Work& work, const Entering& entering, const Leaving& leaving)
{
    for (Node x = leaving.U; x != leaving.Q; x = work.NodeParent(x))
        work.StemChild(work.NodeParent(x)) = x;
    for (Node x = leaving.Q; x != leaving.U; x = work.StemChild(x)) {
        work.Result.BasicArc(x) = -work.Result.BasicArc(work.StemChild(x));
        work.Result.BasicFlow(x) = work.Result.BasicFlow(work.StemChild(x));
    }
    work.Result.BasicArc(leaving.U) = leaving.OnTailSide ? entering.Arc : -entering.Arc;
    work.Result.BasicFlow(leaving.U) = leaving.Step;
}

// Before the thread changes: it still lists the part that is cut off.
void UpdatePotentials(Work& work, const Entering& entering, const Leaving& leaving)
{
    const double change = leaving.OnTailSide ? -entering.Violation : entering.Violation;
    Node x = leaving.Q;
    for (int count = 0; count < leaving.OldSize; ++count, x = work.NodeThread(x))
        work.NodePotential(x) += change;
}

void Cut(Work& work, const Leaving& leaving)
{
    const Node q = leaving.Q;
    const Node p = work.NodeParent(q);
    const Node before = work.NodeRevThread(q);
    const Node after = work.NodeThread(work.NodeLast(q));
    work.NodeThread(before) = after;
    work.NodeRevThread(after) = before;
    for (Node x = p; x != 0; x = work.NodeParent(x))
        Add(work.NodeSubtreeSize(x), -leaving.OldSize);
    const Node stop = work.NodeParent(after);
    for (Node x = p; x != stop; x = work.NodeParent(x))
        work.NodeLast(x) = work.NodeLast(p) == work.NodeLast(q) ? before : work.NodeLast(p);
}

// Moves the nodes on the thread from the first to the last one down by so much.
void ShiftDepths(Work& work, Node first, Node last, int shift)
{
    for (Node x = first;; x = work.NodeThread(x)) {
        Add(work.NodeDepth(x), shift);
        if (x == last) return;
    }
}

// U is Q itself: the part keeps its shape.
void KeepShape(Work& work, const Leaving& leaving)
{
    ShiftDepths(work, leaving.U, work.NodeLast(leaving.U), leaving.DepthShift);
}

// The place on the stem while its thread is rebuilt from U to Q.
struct StemWalk {
    Node Child = 0;         // X, done already
    Node Top = 0;           // Y, its old parent
    Node End = 0;           // last node of the new thread so far
    Node Next = 0;          // what followed the child's subtree in the old thread
    int Shift = 0;          // of the depths of Top and of what stays below it
    Node LastEarlier = 0;   // end of the subtrees of Top that stood before Child; 0: there are none
    bool HasLater = false;  // subtrees of Top stood behind Child
};

// Where the thread goes on behind what hangs under Top.
Node Onward(const Work& work, const StemWalk& walk, const Leaving& leaving)
{
    return walk.Top == leaving.Q ? leaving.U : work.NodeParent(walk.Top);
}

void KeepEarlierSubtrees(Work& work, StemWalk& walk)
{
    walk.LastEarlier = 0;
    for (Node w = work.NodeThread(walk.Top); w != walk.Child; w = work.NodeThread(walk.LastEarlier))
        walk.LastEarlier = work.NodeLast(w);
    if (walk.LastEarlier != 0) ShiftDepths(work, work.NodeThread(walk.Top), walk.LastEarlier, walk.Shift);
}

void LinkLaterSubtrees(Work& work, StemWalk& walk, const Leaving& leaving)
{
    work.NodeThread(walk.LastEarlier != 0 ? walk.LastEarlier : walk.Top) = walk.Next;
    walk.End = work.NodeLast(walk.Top);
    ShiftDepths(work, walk.Next, walk.End, walk.Shift);
    walk.Next = work.NodeThread(walk.End);
    work.NodeThread(walk.End) = Onward(work, walk, leaving);
}

// Without later subtrees. The last link of all is overwritten when the part is hung up again.
void LinkOnward(Work& work, const StemWalk& walk, const Leaving& leaving)
{
    if (walk.LastEarlier != 0)
        work.NodeThread(walk.LastEarlier) = Onward(work, walk, leaving);
    else
        work.NodeThread(walk.Top) = work.NodeParent(walk.Top);
}

void ClimbStem(Work& work, StemWalk& walk)
{
    const Node child = walk.Child;
    walk.Child = walk.Top;
    walk.Top = work.NodeParent(walk.Child);
    work.NodeParent(walk.Child) = child;
}

StemWalk WalkStem(Work& work, const Leaving& leaving)
{
    StemWalk walk;
    walk.Child = leaving.U;
    walk.Top = work.NodeParent(leaving.U);
    walk.End = work.NodeLast(leaving.U);
    walk.Next = work.NodeThread(walk.End);
    walk.Shift = leaving.DepthShift;
    work.NodeThread(walk.End) = walk.Top;
    do {
        walk.Shift += 2;  // one arc more below U, one arc less above it
        KeepEarlierSubtrees(work, walk);
        walk.HasLater = work.NodeDepth(walk.Next) > work.NodeDepth(walk.Top);
        if (walk.HasLater)
            LinkLaterSubtrees(work, walk, leaving);
        else
            LinkOnward(work, walk, leaving);
        Add(work.NodeDepth(walk.Top), walk.Shift);
        ClimbStem(work, walk);
    } while (walk.Child != leaving.Q);
    return walk;
}

Node LastOfWalk(const StemWalk& walk, Node q)
{
    if (walk.HasLater) return walk.End;
    return walk.LastEarlier != 0 ? walk.LastEarlier : q;
}

void CountStem(Work& work, const Leaving& leaving, Node last)
{
    for (Node y = leaving.Q; y != leaving.U; y = work.NodeParent(y)) {
        work.NodeLast(y) = last;
        work.NodeSubtreeSize(y) =
            static_cast<Node>(leaving.OldSize - work.NodeSubtreeSize(work.NodeParent(y)));
    }
    work.NodeLast(leaving.U) = last;
    work.NodeSubtreeSize(leaving.U) = static_cast<Node>(leaving.OldSize);
}

// Rebuilds the thread of the part so that its stem runs down from U to Q.
void Rethread(Work& work, const Leaving& leaving)
{
    const StemWalk walk = WalkStem(work, leaving);
    const Node u = leaving.U;
    ShiftDepths(work, u, work.NodeLast(u), leaving.DepthShift);
    CountStem(work, leaving, LastOfWalk(walk, leaving.Q));
    for (Node x = u; x != work.NodeLast(u); x = work.NodeThread(x))
        work.NodeRevThread(work.NodeThread(x)) = x;
}

void Hang(Work& work, const Leaving& leaving)
{
    const Node u = leaving.U;
    const Node v = leaving.V;
    const Node end = work.NodeLast(v);
    const Node next = work.NodeThread(end);
    const Node stop = work.NodeParent(next);
    work.NodeParent(u) = v;
    work.NodeThread(end) = u;
    work.NodeRevThread(u) = end;
    work.NodeThread(work.NodeLast(u)) = next;
    work.NodeRevThread(next) = work.NodeLast(u);
    for (Node x = v; x != stop; x = work.NodeParent(x))
        work.NodeLast(x) = work.NodeLast(u);
    for (Node x = v; x != 0; x = work.NodeParent(x))
        Add(work.NodeSubtreeSize(x), work.NodeSubtreeSize(u));
}

void Pivot(Work& work, const Entering& entering)
{
    Leaving leaving = FindCycle(work, entering);
    ChangeFlows(work, entering, leaving);
    PrepareExchange(work, leaving);
    ReverseStem(work, entering, leaving);
    UpdatePotentials(work, entering, leaving);
    Cut(work, leaving);
    if (leaving.U == leaving.Q)
        KeepShape(work, leaving);
    else
        Rethread(work, leaving);
    Hang(work, leaving);
}

// ---- what is told to who watches ----

TreeState StateOf(const Work& work)
{
    return {.BasicArc = work.Result.BasicArc,
            .BasicFlow = work.Result.BasicFlow,
            .NodePotential = work.NodePotential};
}

double ViolationOf(const Work& work, int e)
{
    return work.NodePotential(work.TailNode(e)) - work.NodePotential(work.HeadNode(e)) - work.ScaledCost(e);
}

// An arc that may enter: not the one from the root to a destination.
bool MayEnter(const Work& work, int e)
{
    const int node = e - work.Problem.NumArcs;
    return node <= 0 || work.NodeSupply(node) >= 0;
}

// The most promising of the arcs that did not enter.
void FindRunnerUp(const Work& work, Change& change)
{
    for (int e = 1; e <= work.Problem.NumArcs + work.Problem.NumNodes; ++e) {
        if (e == change.EnteringArc || !MayEnter(work, e)) continue;
        const double gain = ViolationOf(work, e);
        if (gain <= 0) continue;
        ++change.OthersWithGain;
        if (gain <= change.RunnerUpGain) continue;
        change.RunnerUpGain = gain;
        change.RunnerUp = e;
    }
}

// From a node up to the apex; arcs of the sign `losing` lose flow.
void ListSide(const Work& work, Node from, Node apex, int losing, std::vector<CycleArc>& cycle)
{
    for (Node x = from; x != apex; x = work.NodeParent(x)) {
        const std::int32_t arc = work.Result.BasicArc(x);
        cycle.push_back({std::abs(arc), -losing * Sign(arc), work.Result.BasicFlow(x)});
    }
}

// Before the pivot.
Change ChangeBy(const Work& work, const Entering& entering)
{
    const Leaving leaving = FindCycle(work, entering);
    Change change;
    change.EnteringArc = entering.Arc;
    change.Gain = entering.Violation;
    change.LeavingArc = leaving.Arc;
    change.Step = leaving.Step;
    change.Cycle = {{entering.Arc, 1, 0}};
    ListSide(work, work.HeadNode(entering.Arc), leaving.Apex, -1, change.Cycle);
    std::vector<CycleArc> tailSide;
    ListSide(work, static_cast<Node>(work.TailNode(entering.Arc)), leaving.Apex, 1, tailSide);
    change.Cycle.insert(change.Cycle.end(), tailSide.rbegin(), tailSide.rend());
    FindRunnerUp(work, change);
    return change;
}

#ifndef NDEBUG

// The subtree sizes and ends that the parents and the thread tell.
bool SubtreesAgree(const Work& work)
{
    Array1<int> size(work.Root);
    for (Node x = work.NodeRevThread(work.Root);; x = work.NodeRevThread(x)) {
        ++size(x);
        if (size(x) != work.NodeSubtreeSize(x)) return false;
        Node last = x;
        for (int count = 1; count < size(x); ++count)
            last = work.NodeThread(last);
        if (last != work.NodeLast(x)) return false;
        if (x == work.Root) return true;
        size(work.NodeParent(x)) += size(x);
    }
}

// Each node once, behind its parent and one deeper, with both threads telling the same.
bool ThreadAgrees(const Work& work)
{
    Array1<char> seen(work.Root);
    Node x = work.Root;
    for (int count = 1; count <= work.Root; ++count, x = work.NodeThread(x)) {
        if (seen(x) != 0 || work.NodeRevThread(work.NodeThread(x)) != x) return false;
        seen(x) = 1;
        if (x == work.Root) continue;
        const Node parent = work.NodeParent(x);
        if (seen(parent) == 0 || work.NodeDepth(x) != work.NodeDepth(parent) + 1) return false;
    }
    return x == work.Root && work.NodeDepth(x) == 0 && work.NodeParent(x) == 0;
}

// What leaves each node less what enters it is its supply, and an arc that carries nothing points at the
// root.
bool FlowsAgree(const Work& work)
{
    Array1<std::int32_t> left(work.Root);
    for (Node x = 1; x < work.Root; ++x) {
        const std::int32_t flow = work.Result.BasicFlow(x);
        if (flow < 0 || (flow == 0 && work.Result.BasicArc(x) < 0)) return false;
        left(x) += Sign(work.Result.BasicArc(x)) * flow;
        left(work.NodeParent(x)) -= Sign(work.Result.BasicArc(x)) * flow;
    }
    for (Node x = 1; x < work.Root; ++x)
        if (left(x) != work.NodeSupply(x)) return false;
    return true;
}

// Each basic arc joins its node and the parent, and prices at nothing.
bool ArcsAgree(const Work& work)
{
    for (Node x = 1; x < work.Root; ++x) {
        const int e = std::abs(work.Result.BasicArc(x));
        const bool up = work.Result.BasicArc(x) > 0;
        const int tail = work.TailNode(e);
        const int head = work.HeadNode(e);
        if ((up ? tail : head) != x || (up ? head : tail) != work.NodeParent(x)) return false;
        if (work.NodePotential(tail) - work.NodePotential(head) != work.ScaledCost(e)) return false;
    }
    return true;
}

bool TreeIsSound(const Work& work)
{
    const bool rootAlone = work.Root == 1;  // a file may hold a tableau without lines
    return rootAlone || (ThreadAgrees(work) && SubtreesAgree(work) && FlowsAgree(work) && ArcsAgree(work));
}

#endif

}  // namespace

TableauResult TaSolve(const TableauProblem& problem, bool maximize, Trace* trace)
{
    Work work{problem};
    work.Result.Maximize = maximize;
    AllocateWork(work);
    ScaleCosts(work);
    AddUpTotals(work);
    AddRootArcs(work);
    BuildFirstTree(work);
    assert(TreeIsSound(work));
    if (trace != nullptr) *trace = {.First = StateOf(work), .Changes = {}};
    for (Entering entering = Price(work); entering.Violation > 0; entering = Price(work)) {
        if (trace != nullptr) trace->Changes.push_back(ChangeBy(work, entering));
        Pivot(work, entering);
        assert(TreeIsSound(work));
        if (trace != nullptr) trace->Changes.back().After = StateOf(work);
    }
    work.Result.Solved = true;
    return std::move(work.Result);
}

int TailOf(const TableauProblem& problem, int arc)
{
    const int node = arc - problem.NumArcs;
    if (node <= 0) return problem.TailNode(arc);
    return problem.NodeSupply(node) >= 0 ? node : problem.NumNodes + 1;
}

int HeadOf(const TableauProblem& problem, int arc)
{
    const int node = arc - problem.NumArcs;
    if (node <= 0) return problem.HeadNode(arc);
    return problem.NodeSupply(node) >= 0 ? problem.NumNodes + 1 : node;
}

}  // namespace Tableau
