#include "lp/IntegerSearch.h"

#include <bit>
#include <cmath>

#include "basic/format.h"
#include "basic/number.h"
#include "desktop/screen.h"
#include "lp/IntegerTypes.h"

namespace LP_Engine {
namespace {

constexpr int kNodeCapacity = 100;

bool IsWholeNumber(double x)
{
    return std::abs(x - std::nearbyint(x)) <= EngineTolerance;
}

struct Branching {
    int Column = 0;
    double Value = 0;
};

class Search {
public:
    Search(LpResult& result, Simplex& simplex, Recorder* recorder)
        : at_(result), tree_(result.Tree), simplex_(simplex), recorder_(recorder)
    {
        tree_.Nodes = Array1<SearchNode>(kNodeCapacity);
    }

    // False: a relaxation is unbounded.
    bool Run()
    {
        while (!finished_) {
            LetUserInterrupt();
            if (recorder_ != nullptr && !recorder_->GoesOn(at_)) Raise(ErrorNumber::UserInterrupt);
            const bool repaired = simplex_.DualSteps();
            if (repaired && !simplex_.PrimalSteps()) return false;
            SettleNode(repaired);
            SelectNode();
            GoOn();
        }
        return true;
    }

private:
    [[nodiscard]] int Rows() const { return at_.Problem.NumConstraints; }
    [[nodiscard]] double Value() const { return -at_.ObjectiveValue; }  // in the minimising sense
    SearchNode& Current() { return tree_.Nodes(currentRecord_); }

    // ---- jumps ----

    void ApplyNode(const SearchNode& node)
    {
        const int j = std::abs(node.Variable);
        const double bound = node.Bound;
        const bool upper = node.Variable > 0;
        double& current = upper ? at_.Basis.UpperBound(j) : at_.Basis.LowerBound(j);
        if (upper ? current <= bound : current >= bound) return;
        if (at_.Basis.ColumnStatus(j) == (upper ? kAtUpper : kAtLower))
            simplex_.MoveRestingColumn(j, bound - current);
        current = bound;
    }

    [[nodiscard]] const SearchNode& NodeNumbered(int number) const
    {
        int record = 1;
        while (tree_.Nodes(record).Number != number)
            ++record;
        return tree_.Nodes(record);
    }

    // From the root, with the bounds of the node and of those above it, from the node up.
    void JumpTo(int number)
    {
        at_.Basis = root_;
        const int depth = static_cast<int>(std::bit_width(static_cast<unsigned>(number))) - 1;
        for (int level = 1; level <= depth; ++level, number /= 2)
            ApplyNode(NodeNumbered(number));
    }

    // ---- branching ----

    // A basic value a hair below a whole number moves up to it, be its column an integer variable or not.
    void SnapValues()
    {
        for (int i = 1; i <= Rows(); ++i) {
            double& x = at_.Basis.BasicValues(i);
            const double above = Int(x + EngineTolerance);
            if (Int(x) != above) x = above;
        }
    }

    [[nodiscard]] int CountWholeColumns() const
    {
        int count = 0;
        for (int j = 1; j <= at_.Problem.NumVariables; ++j) {
            const std::int16_t status = at_.Basis.ColumnStatus(j);
            if (at_.IntegerColumn(j) == 1 && (status == kAtLower || status == kAtUpper)) ++count;
        }
        for (int i = 1; i <= Rows(); ++i)
            if (at_.IntegerColumn(at_.Basis.BasisList(i)) == 1 && IsWholeNumber(at_.Basis.BasicValues(i)))
                ++count;
        return count;
    }

    // The largest fraction, not the one nearest to a half; among equal ones the larger value.
    [[nodiscard]] Branching FindBranching() const
    {
        Branching best;
        double bestFraction = -EngineInfinity;
        for (int i = 1; i <= Rows(); ++i) {
            const int j = at_.Basis.BasisList(i);
            if (j > at_.Problem.NumVariables || at_.IntegerColumn(j) != 1) continue;
            const double x = at_.Basis.BasicValues(i);
            const double fraction = std::abs(x - Int(x));
            const bool tie = std::abs(bestFraction - fraction) < EngineTolerance;
            if (tie ? x > best.Value : fraction > bestFraction) {
                best = {j, x};
                bestFraction = fraction;
            }
        }
        return best;
    }

    void AddNode(double bound, int variable, int number)
    {
        SearchNode node;
        node.Bound = ToInt16(bound);
        node.Variable = static_cast<std::int16_t>(variable);
        node.Number = ToInt16(number);
        node.ParentValue = Value();
        tree_.Nodes(tree_.RecordCount + 1) = node;
        ++tree_.RecordCount;
    }

    void Branch(const Branching& branching)
    {
        Current().Closed = true;
        Current().BranchingColumn = branching.Column;
        Current().BranchingValue = branching.Value;
        if (currentNode_ == 1) root_ = at_.Basis;
        AddNode(Int(branching.Value), branching.Column, 2 * currentNode_);
        AddNode(Int(branching.Value + 1), -branching.Column, 2 * currentNode_ + 1);
    }

    [[nodiscard]] bool PromisesGain() const
    {
        return Value() < tree_.Incumbent - kLeastGain || std::abs(Value()) >= EngineInfinity;
    }

    void TakeWholeSolution()
    {
        const double value = Value();
        if (value < tree_.Incumbent || (value == tree_.Incumbent && tree_.IncumbentNode == 0)) {
            tree_.Incumbent = value;
            tree_.IncumbentIndex = currentRecord_;
            tree_.IncumbentNode = currentNode_;
            Current().TookOver = true;
        }
        Current().Closed = true;
        for (int record = 2; record <= tree_.RecordCount; ++record) {
            SearchNode& node = tree_.Nodes(record);
            if (!(node.ParentValue > value)) continue;
            if (node.Became == Fate::Open && node.Visit == 0) node.Became = Fate::PassedOver;
            node.Closed = true;
        }
    }

    // An exhausted tree is gone round without end; the records keep what they told the first time.
    void Visit(bool repaired)
    {
        SearchNode& node = Current();
        node.Visit = ++tree_.Visits;
        node.InPhaseOne = at_.SolvePhase == 1;
        if (repaired) node.Value = Value();
        if (recorder_ != nullptr) recorder_->Settled(at_, currentRecord_);
    }

    void Mark(Fate fate)
    {
        if (!tree_.Exhausted) Current().Became = fate;
    }

    void SettleNode(bool repaired)
    {
        SnapValues();
        const bool whole = repaired && CountWholeColumns() == at_.IntegerCount;
        const Branching branching = FindBranching();
        if (repaired) simplex_.ComputeObjective();
        if (!tree_.Exhausted) Visit(repaired);
        if (whole) {
            Mark(Fate::Whole);
            TakeWholeSolution();
        } else if (repaired && PromisesGain()) {
            Mark(Fate::Branched);
            Branch(branching);
        } else {
            Mark(!repaired                   ? Fate::NoPlan
                 : Value() < tree_.Incumbent ? Fate::NotBetterByGain
                                             : Fate::NotBetter);
            Current().Closed = true;
        }
    }

    // The open record with the largest node number. Without one the current record stays.
    void SelectNode()
    {
        currentNode_ = 1;
        for (int record = 1; record <= tree_.RecordCount; ++record) {
            const SearchNode& node = tree_.Nodes(record);
            if (node.Closed || node.Number <= currentNode_) continue;
            currentNode_ = node.Number;
            currentRecord_ = record;
        }
    }

    // With all nodes closed and no whole solution nothing is done: the search goes round on the same state.
    void GoOn()
    {
        if (currentNode_ > 1) {
            JumpTo(currentNode_);
        } else if (tree_.IncumbentNode > 0) {
            finished_ = true;
            if (tree_.IncumbentNode != 1) JumpTo(tree_.IncumbentNode);
        } else {
            tree_.Exhausted = true;
        }
    }

    LpResult& at_;
    SearchTree& tree_;
    Simplex& simplex_;
    Recorder* recorder_;
    BasisState root_;
    int currentNode_ = 1;
    int currentRecord_ = 0;
    bool finished_ = false;
};

// ---- types ----

void MakeAllInteger(LpResult& at, bool binary)
{
    at.IntegerCount = at.Problem.NumVariables;
    for (int j = 1; j <= at.Problem.NumVariables; ++j) {
        at.IntegerColumn(j) = 1;
        if (binary) at.Basis.UpperBound(j) = 1;
    }
}

// Names are compared in capitals with the names as they are stored: one with small letters is never found.
void MakeInteger(LpResult& at, const std::string& name, bool binary)
{
    const std::string capitals = UpperCase(name);
    for (int j = 1; j <= at.Problem.NumVariables; ++j) {
        if (at.Problem.LpVariableNames(j) != capitals) continue;
        if (at.IntegerColumn(j) != 1) ++at.IntegerCount;
        at.IntegerColumn(j) = 1;
        at.Basis.UpperBound(j) = binary ? 1 : EngineInfinity;
        return;
    }
}

}  // namespace

void ReadIntegerTypes(LpResult& at)
{
    const std::string& word = at.Problem.LpLines(VtLP::TypeLine(at.Problem));
    if (word == VtLP::kAllBinary) MakeAllInteger(at, true);
    if (word == VtLP::kAllGeneral) MakeAllInteger(at, false);
    if (VtLP::IsListWord(word))
        VtLP::ForEachListedName(
            at.Problem, [&at](const std::string& name, bool binary) { MakeInteger(at, name, binary); });
}

bool SearchIntegers(LpResult& at, Simplex& simplex, Recorder* recorder)
{
    if (at.IntegerCount > 0 && !Search(at, simplex, recorder).Run()) return false;
    simplex.DualSteps();
    return simplex.PrimalSteps();
}

}  // namespace LP_Engine
