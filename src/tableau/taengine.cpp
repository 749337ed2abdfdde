#include "tableau/taengine.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdlib>

#include "basic/number.h"
#include "tableau/Criterion.h"
#include "tableau/VtTanda.h"

namespace Tableau {

TableauResult Result;

namespace {

using Node = std::int16_t;

constexpr double kCostScale = 100000;  // costs are compared as whole numbers of these

// The tree and the prices of one run. Preorder: a node, then its subtrees one after the other.
struct Work {
    Node Root = 0;               // N + 1
    std::int32_t FlowBound = 0;  // no arc carries more

    Array1<Node> NodeParent;  // 0 for the root
    Array1<Node> NodeDepth;   // arcs from the root
    Array1<Node> NodeThread;  // the next node in preorder; the last one's is the root
    Array1<Node> NodeRevThread;
    Array1<Node> NodeLast;  // the last node of the subtree in preorder
    Array1<Node> NodeSubtreeSize;
    Array1<double> NodePotential;  // whole numbers, as the scaled costs are
    Array1<double> ScaledCost;
    Array1<Node> StemChild;  // the way back along a path that is being turned round
};

Work work;

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

int Sign(std::int32_t value)
{
    return value > 0 ? 1 : (value < 0 ? -1 : 0);
}

// ---- the start of a run ----

void AllocateWork()
{
    const int nodes = Problem.NumNodes + 1;
    const int arcs = Problem.NumArcs + Problem.NumNodes;
    work = {};
    work.Root = static_cast<Node>(nodes);
    for (Array1<Node>* table : {&work.NodeParent, &work.NodeDepth, &work.NodeThread, &work.NodeRevThread,
                                &work.NodeLast, &work.NodeSubtreeSize, &work.StemChild})
        *table = Array1<Node>(nodes);
    work.NodePotential = Array1<double>(nodes);
    work.ScaledCost = Array1<double>(arcs);
    Result = {};
    Result.BasicArc = Array1<std::int32_t>(nodes);
    // As many as there are arcs, never fewer than there are nodes.
    Result.BasicFlow = Array1<std::int32_t>(Problem.NumArcs + 1);
}

// The floor comes before the sign: revenues with more than five decimals round the other way.
void ScaleCosts()
{
    const double sign = MaximizeFlag == "YES" ? -1 : 1;
    for (int e = 1; e <= Problem.NumArcs; ++e)
        work.ScaledCost(e) = sign * Int(kCostScale * Problem.ArcCost(e).Value());
}

void AddUpTotals()
{
    double supply = 0;
    double demand = 0;
    for (int i = 1; i <= Problem.NumNodes; ++i) {
        const std::int32_t units = Problem.NodeSupply(i);
        (units > 0 ? supply : demand) += std::abs(static_cast<double>(units));
    }
    Result.TotalSupply = ToInt32(supply);
    Result.TotalDemand = ToInt32(demand);
    work.FlowBound = std::max(Result.TotalSupply, Result.TotalDemand);
    for (int e = 1; e <= Problem.NumArcs; ++e)
        Problem.ArcCap(e) = work.FlowBound;
    Problem.NodeSupply(work.Root) = Result.TotalDemand - Result.TotalSupply;
}

// Dearer than any route through the table.
double BigCost()
{
    double largest = -99999;
    for (int e = 1; e <= Problem.NumArcs; ++e)
        largest = std::max(largest, std::abs(work.ScaledCost(e)));
    return largest * Problem.NumNodes;
}

// A node without supply or demand is joined like an origin: each arc that carries nothing points at the root,
// as the leaving rule needs.
void AddRootArcs()
{
    const double bigCost = BigCost();
    const Node root = work.Root;
    for (Node i = 1; i < root; ++i) {
        const int e = Problem.NumArcs + i;
        const bool towardsRoot = Problem.NodeSupply(i) >= 0;
        Problem.ArcCap(e) = work.FlowBound;
        work.ScaledCost(e) = towardsRoot ? 0 : bigCost;
        Problem.TailNode(e) = towardsRoot ? i : root;
        Problem.HeadNode(e) = towardsRoot ? root : i;
    }
}

void PlantRoot()
{
    const Node root = work.Root;
    const auto last = static_cast<Node>(root - 1);
    work.NodeThread(root) = 1;
    work.NodeRevThread(root) = last;
    work.NodeLast(root) = last;
    work.NodeSubtreeSize(root) = root;
}

void HangNodesUnderRoot()
{
    const Node root = work.Root;
    for (Node i = 1; i < root; ++i) {
        work.NodeParent(i) = root;
        work.NodeDepth(i) = 1;
        work.NodeThread(i) = static_cast<Node>(i + 1);
        work.NodeRevThread(i) = static_cast<Node>(i - 1);
        work.NodeLast(i) = i;
        work.NodeSubtreeSize(i) = 1;
        const int arc = Problem.NumArcs + i;
        Result.BasicArc(i) = Problem.NodeSupply(i) >= 0 ? arc : -arc;
    }
    work.NodeRevThread(1) = root;
}

void SetFirstPotentials()
{
    for (Node x = work.NodeThread(work.Root); x < work.Root; x = work.NodeThread(x)) {
        const std::int32_t arc = Result.BasicArc(x);
        work.NodePotential(x) =
            work.ScaledCost(std::abs(arc)) * Sign(arc) + work.NodePotential(work.NodeParent(x));
    }
}

// The root is left with 0; the entries of the other nodes stay as entered.
void SetFirstFlows()
{
    for (Node x = work.NodeRevThread(work.Root); x < work.Root; x = work.NodeRevThread(x)) {
        Result.BasicFlow(x) = std::abs(Problem.NodeSupply(x));
        Problem.NodeSupply(work.NodeParent(x)) += Sign(Result.BasicArc(x)) * Result.BasicFlow(x);
    }
}

void BuildFirstTree()
{
    PlantRoot();
    HangNodesUnderRoot();
    SetFirstPotentials();
    SetFirstFlows();
}

// ---- a pivot ----

void PriceArc(int e, Entering& best)
{
    const double tail = work.NodePotential.Data()[Problem.TailNode.Data()[e]];
    const double head = work.NodePotential.Data()[Problem.HeadNode.Data()[e]];
    const double violation = tail - head - work.ScaledCost.Data()[e];
    if (violation > best.Violation) best = {e, violation};
}

// The arc with the largest violation, the first one met among equals. An arc from the root to a destination
// does not come back once it has left.
Entering Price()
{
    Entering best;
    for (int i = 1; i < work.Root; ++i) {
        for (int e = Problem.FirstArc(i); Problem.TailNode(e) == i; ++e)
            PriceArc(e, best);
        if (Problem.NodeSupply(i) >= 0) PriceArc(Problem.NumArcs + i, best);
    }
    return best;
}

// The deepest of the smallest flows stays.
void ClimbTailSide(Side& side)
{
    const std::int32_t arc = Result.BasicArc(side.At);
    const std::int32_t flow = Result.BasicFlow(side.At);
    if (arc > 0 && flow < side.Bound) {
        side.Bound = flow;
        side.Arc = arc;
    }
    side.At = work.NodeParent(side.At);
}

// The smallest flow nearest the apex takes its place.
void ClimbHeadSide(Side& side)
{
    const std::int32_t arc = Result.BasicArc(side.At);
    const std::int32_t flow = Result.BasicFlow(side.At);
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
Leaving FindCycle(const Entering& entering)
{
    const std::int64_t aboveAnyFlow = std::int64_t{work.FlowBound} + 1;
    const auto a = static_cast<Node>(Problem.TailNode(entering.Arc));
    const Node b = Problem.HeadNode(entering.Arc);
    Side tail{a, aboveAnyFlow, 0};
    Side head{b, aboveAnyFlow, 0};
    while (tail.At != head.At) {
        const int deeper = work.NodeDepth(tail.At) - work.NodeDepth(head.At);
        if (deeper >= 0) ClimbTailSide(tail);
        if (deeper <= 0) ClimbHeadSide(head);
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
void ChangeFlowsOn(Node from, int losing, const Leaving& leaving)
{
    for (Node x = from; work.NodeDepth(x) > work.NodeDepth(leaving.Apex); x = work.NodeParent(x))
        Result.BasicFlow(x) -= losing * Sign(Result.BasicArc(x)) * leaving.Step;
}

void ChangeFlows(const Entering& entering, const Leaving& leaving)
{
    ChangeFlowsOn(static_cast<Node>(Problem.TailNode(entering.Arc)), 1, leaving);
    ChangeFlowsOn(Problem.HeadNode(entering.Arc), -1, leaving);
}

void PrepareExchange(Leaving& leaving)
{
    leaving.DepthShift = work.NodeDepth(leaving.V) - work.NodeDepth(leaving.U) + 1;
    const auto tail = static_cast<Node>(Problem.TailNode(leaving.Arc));
    const Node head = Problem.HeadNode(leaving.Arc);
    leaving.Q = work.NodeDepth(tail) > work.NodeDepth(head) ? tail : head;
    leaving.OldSize = work.NodeSubtreeSize(leaving.Q);
}

// The stem is the path from U up to Q: each of its arcs moves one node towards Q and changes its direction.
void ReverseStem(const Entering& entering, const Leaving& leaving)
{
    for (Node x = leaving.U; x != leaving.Q; x = work.NodeParent(x))
        work.StemChild(work.NodeParent(x)) = x;
    for (Node x = leaving.Q; x != leaving.U; x = work.StemChild(x)) {
        Result.BasicArc(x) = -Result.BasicArc(work.StemChild(x));
        Result.BasicFlow(x) = Result.BasicFlow(work.StemChild(x));
    }
    Result.BasicArc(leaving.U) = leaving.OnTailSide ? entering.Arc : -entering.Arc;
    Result.BasicFlow(leaving.U) = leaving.Step;
}

// Before the thread changes: it still lists the part that is cut off.
void UpdatePotentials(const Entering& entering, const Leaving& leaving)
{
    const double change = leaving.OnTailSide ? -entering.Violation : entering.Violation;
    Node x = leaving.Q;
    for (int count = 0; count < leaving.OldSize; ++count, x = work.NodeThread(x))
        work.NodePotential(x) += change;
}

void Cut(const Leaving& leaving)
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
void ShiftDepths(Node first, Node last, int shift)
{
    for (Node x = first;; x = work.NodeThread(x)) {
        Add(work.NodeDepth(x), shift);
        if (x == last) return;
    }
}

// U is Q itself: the part keeps its shape.
void KeepShape(const Leaving& leaving)
{
    const Node u = leaving.U;
    work.NodeThread(work.NodeLast(u)) = u;
    ShiftDepths(u, work.NodeLast(u), leaving.DepthShift);
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
Node Onward(const StemWalk& walk, const Leaving& leaving)
{
    return walk.Top == leaving.Q ? leaving.U : work.NodeParent(walk.Top);
}

void KeepEarlierSubtrees(StemWalk& walk)
{
    walk.LastEarlier = 0;
    for (Node w = work.NodeThread(walk.Top); w != walk.Child; w = work.NodeThread(walk.LastEarlier))
        walk.LastEarlier = work.NodeLast(w);
    if (walk.LastEarlier != 0) ShiftDepths(work.NodeThread(walk.Top), walk.LastEarlier, walk.Shift);
}

void LinkLaterSubtrees(StemWalk& walk, const Leaving& leaving)
{
    work.NodeThread(walk.LastEarlier != 0 ? walk.LastEarlier : walk.Top) = walk.Next;
    walk.End = work.NodeLast(walk.Top);
    ShiftDepths(walk.Next, walk.End, walk.Shift);
    walk.Next = work.NodeThread(walk.End);
    work.NodeThread(walk.End) = Onward(walk, leaving);
}

// Without later subtrees. The last link of all is overwritten when the part is hung up again.
void LinkOnward(const StemWalk& walk, const Leaving& leaving)
{
    if (walk.LastEarlier != 0)
        work.NodeThread(walk.LastEarlier) = Onward(walk, leaving);
    else
        work.NodeThread(walk.Top) = work.NodeParent(walk.Top);
}

void ClimbStem(StemWalk& walk)
{
    const Node child = walk.Child;
    walk.Child = walk.Top;
    walk.Top = work.NodeParent(walk.Child);
    work.NodeParent(walk.Child) = child;
}

StemWalk WalkStem(const Leaving& leaving)
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
        KeepEarlierSubtrees(walk);
        walk.HasLater = work.NodeDepth(walk.Next) > work.NodeDepth(walk.Top);
        if (walk.HasLater)
            LinkLaterSubtrees(walk, leaving);
        else
            LinkOnward(walk, leaving);
        Add(work.NodeDepth(walk.Top), walk.Shift);
        ClimbStem(walk);
    } while (walk.Child != leaving.Q);
    return walk;
}

Node LastOfWalk(const StemWalk& walk, Node q)
{
    if (walk.HasLater) return walk.End;
    return walk.LastEarlier != 0 ? walk.LastEarlier : q;
}

void CountStem(const Leaving& leaving, Node last)
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
void Rethread(const Leaving& leaving)
{
    const StemWalk walk = WalkStem(leaving);
    const Node u = leaving.U;
    ShiftDepths(u, work.NodeLast(u), leaving.DepthShift);
    CountStem(leaving, LastOfWalk(walk, leaving.Q));
    for (Node x = u; x != work.NodeLast(u); x = work.NodeThread(x))
        work.NodeRevThread(work.NodeThread(x)) = x;
}

void Hang(const Leaving& leaving)
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

void Pivot(const Entering& entering)
{
    Leaving leaving = FindCycle(entering);
    ChangeFlows(entering, leaving);
    PrepareExchange(leaving);
    ReverseStem(entering, leaving);
    UpdatePotentials(entering, leaving);
    Cut(leaving);
    if (leaving.U == leaving.Q)
        KeepShape(leaving);
    else
        Rethread(leaving);
    Hang(leaving);
}

#ifndef NDEBUG

// The subtree sizes and ends that the parents and the thread tell.
bool SubtreesAgree()
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
bool ThreadAgrees()
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
bool FlowsAgree()
{
    Array1<std::int32_t> left(work.Root);
    for (Node x = 1; x < work.Root; ++x) {
        const std::int32_t flow = Result.BasicFlow(x);
        if (flow < 0 || (flow == 0 && Result.BasicArc(x) < 0)) return false;
        left(x) += Sign(Result.BasicArc(x)) * flow;
        left(work.NodeParent(x)) -= Sign(Result.BasicArc(x)) * flow;
    }
    for (Node x = 1; x < work.Root; ++x)
        if (left(x) != Problem.NodeSupply(x)) return false;
    return true;
}

// Each basic arc joins its node and the parent, and prices at nothing.
bool ArcsAgree()
{
    for (Node x = 1; x < work.Root; ++x) {
        const int e = std::abs(Result.BasicArc(x));
        const bool up = Result.BasicArc(x) > 0;
        const int tail = Problem.TailNode(e);
        const int head = Problem.HeadNode(e);
        if ((up ? tail : head) != x || (up ? head : tail) != work.NodeParent(x)) return false;
        if (work.NodePotential(tail) - work.NodePotential(head) != work.ScaledCost(e)) return false;
    }
    return true;
}

bool TreeIsSound()
{
    const bool rootAlone = work.Root == 1;  // a file may hold a tableau without lines
    return rootAlone || (ThreadAgrees() && SubtreesAgree() && FlowsAgree() && ArcsAgree());
}

#endif

}  // namespace

void TaSolve()
{
    AllocateWork();
    ScaleCosts();
    AddUpTotals();
    AddRootArcs();
    BuildFirstTree();
    assert(TreeIsSound());
    for (Entering entering = Price(); entering.Violation > 0; entering = Price()) {
        Pivot(entering);
        assert(TreeIsSound());
    }
    work = {};
}

}  // namespace Tableau
