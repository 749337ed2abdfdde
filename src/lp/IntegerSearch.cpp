#include "lp/IntegerSearch.h"

#include <bit>
#include <cmath>

#include "basic/format.h"
#include "basic/number.h"
#include "desktop/screen.h"
#include "lp/IntegerTypes.h"
#include "lp/LP_Engine.h"
#include "lp/VtLP.h"

namespace LP_Engine {
namespace {

constexpr int kNodeCapacity = 100;
constexpr double kLeastGain = 1;  // in the objective's units

int Rows()
{
    return VtLP::Problem.NumConstraints;
}

// ---- nodes ----

struct NodeTables {
    Array1<std::int16_t> NodeBound = Array1<std::int16_t>(kNodeCapacity);
    Array1<std::int16_t> NodeVariable = Array1<std::int16_t>(kNodeCapacity);  // negative: a lower bound
    Array1<std::int16_t> NodeNumber = Array1<std::int16_t>(kNodeCapacity);
    Array1<double> NodeParentValue = Array1<double>(kNodeCapacity);  // in the minimising sense
    Array1<std::int16_t> NodeClosed = Array1<std::int16_t>(kNodeCapacity);
    std::int16_t RecordCount = 1;  // record 0 is the root, record 1 is not used

    int CurrentNode = 1;
    int CurrentRecord = 0;

    double Incumbent = EngineInfinity;  // in the minimising sense
    int IncumbentNode = 0;
    int IncumbentIndex = 0;
    bool Finished = false;
};

NodeTables Nodes;

// What a jump to another node starts from.
struct RootState {
    BasisFactors Factors;
    Array1<double> WorkColumn;
    Array1<double> PivotColumn;
    Array1<std::int16_t> BasisList;
    Array1<double> BasicValues;
    Array1<double> PriceVector;
    Array1<std::int16_t> ColumnStatus;
    Array1<std::int16_t> ColumnKind;
    Array1<double> UpperBound;
    Array1<double> LowerBound;
};

RootState Root;

void SaveRoot()
{
    Root = {State.Factors,     State.WorkColumn,   State.PivotColumn, State.BasisList,  State.BasicValues,
            State.PriceVector, State.ColumnStatus, State.ColumnKind,  State.UpperBound, State.LowerBound};
}

void RestoreRoot()
{
    State.Factors = Root.Factors;
    State.WorkColumn = Root.WorkColumn;
    State.PivotColumn = Root.PivotColumn;
    State.BasisList = Root.BasisList;
    State.BasicValues = Root.BasicValues;
    State.PriceVector = Root.PriceVector;
    State.ColumnStatus = Root.ColumnStatus;
    State.ColumnKind = Root.ColumnKind;
    State.UpperBound = Root.UpperBound;
    State.LowerBound = Root.LowerBound;
    for (int j = VtLP::Problem.NumVariables + 1; j <= State.NumColumns; ++j) {
        State.UpperBound(j) = EngineInfinity;
        State.LowerBound(j) = 0;
    }
}

// The basic values follow when the bound that column `j` rests at moves.
void MoveRestingColumn(int j, double change)
{
    TransformColumn(j);
    for (int i = 1; i <= Rows(); ++i) {
        const double x = State.BasicValues(i) - State.PivotColumn(i) * change;
        State.BasicValues(i) = std::abs(x) < EngineTolerance ? 0 : x;
    }
}

void ApplyRecord(int record)
{
    const int variable = Nodes.NodeVariable(record);
    const int j = std::abs(variable);
    const double bound = Nodes.NodeBound(record);
    const bool upper = variable > 0;
    double& current = upper ? State.UpperBound(j) : State.LowerBound(j);
    if (upper ? current <= bound : current >= bound) return;
    if (State.ColumnStatus(j) == (upper ? kAtUpper : kAtLower)) MoveRestingColumn(j, bound - current);
    current = bound;
}

int RecordOf(int node)
{
    int record = 1;
    while (Nodes.NodeNumber(record) != node)
        ++record;
    return record;
}

// The bounds of the node and of those above it, from the node up.
void ApplyBounds(int node)
{
    const int depth = static_cast<int>(std::bit_width(static_cast<unsigned>(node))) - 1;
    for (int level = 1; level <= depth; ++level, node /= 2)
        ApplyRecord(RecordOf(node));
}

void JumpTo(int node)
{
    RestoreRoot();
    ApplyBounds(node);
}

// ---- branching ----

bool IsWholeNumber(double x)
{
    return std::abs(x - std::nearbyint(x)) <= EngineTolerance;
}

// A basic value a hair below a whole number moves up to it, be its column an integer variable or not.
void SnapValues()
{
    for (int i = 1; i <= Rows(); ++i) {
        double& x = State.BasicValues(i);
        const double above = Int(x + EngineTolerance);
        if (Int(x) != above) x = above;
    }
}

int CountWholeColumns()
{
    int count = 0;
    for (int j = 1; j <= VtLP::Problem.NumVariables; ++j) {
        const std::int16_t status = State.ColumnStatus(j);
        if (State.IntegerColumn(j) == 1 && (status == kAtLower || status == kAtUpper)) ++count;
    }
    for (int i = 1; i <= Rows(); ++i)
        if (State.IntegerColumn(State.BasisList(i)) == 1 && IsWholeNumber(State.BasicValues(i))) ++count;
    return count;
}

struct Branching {
    int Column = 0;
    double Value = 0;
};

// The largest fraction, not the one nearest to a half; among equal ones the larger value.
Branching FindBranching()
{
    Branching best;
    double bestFraction = -EngineInfinity;
    for (int i = 1; i <= Rows(); ++i) {
        const int j = State.BasisList(i);
        if (j > VtLP::Problem.NumVariables || State.IntegerColumn(j) != 1) continue;
        const double x = State.BasicValues(i);
        const double fraction = std::abs(x - Int(x));
        const bool tie = std::abs(bestFraction - fraction) < EngineTolerance;
        if (tie ? x > best.Value : fraction > bestFraction) {
            best = {j, x};
            bestFraction = fraction;
        }
    }
    return best;
}

void AddRecord(double bound, int variable, int number)
{
    const int record = ++Nodes.RecordCount;
    Nodes.NodeBound(record) = ToInt16(bound);
    Nodes.NodeVariable(record) = static_cast<std::int16_t>(variable);
    Nodes.NodeNumber(record) = ToInt16(number);
    Nodes.NodeParentValue(record) = -State.ObjectiveValue;
    Nodes.NodeClosed(record) = 0;
}

void Branch(const Branching& branching)
{
    Nodes.NodeClosed(Nodes.CurrentRecord) = 1;
    if (Nodes.CurrentNode == 1) SaveRoot();
    const double x = branching.Value;
    AddRecord(Int(x), branching.Column, 2 * Nodes.CurrentNode);
    AddRecord(Int(x + 1), -branching.Column, 2 * Nodes.CurrentNode + 1);
}

bool PromisesGain()
{
    return -State.ObjectiveValue < Nodes.Incumbent - kLeastGain ||
           std::abs(State.ObjectiveValue) >= EngineInfinity;
}

void TakeWholeSolution()
{
    const double value = -State.ObjectiveValue;
    if (value < Nodes.Incumbent || (value == Nodes.Incumbent && Nodes.IncumbentNode == 0)) {
        Nodes.NodeClosed(Nodes.IncumbentIndex) = 1;
        Nodes.Incumbent = value;
        Nodes.IncumbentIndex = Nodes.CurrentRecord;
        Nodes.IncumbentNode = Nodes.CurrentNode;
    }
    Nodes.NodeClosed(Nodes.CurrentRecord) = 1;
    for (int record = 2; record <= Nodes.RecordCount; ++record)
        if (Nodes.NodeParentValue(record) > value) Nodes.NodeClosed(record) = 1;
}

void SettleNode()
{
    SnapValues();
    if (CountWholeColumns() == State.IntegerCount && State.RunStatus != kNoEntering)
        State.RunStatus = kIntegral;
    const Branching branching = FindBranching();
    if (State.RunStatus != kNoEntering) ComputeObjective();
    if (State.RunStatus == kIntegral)
        TakeWholeSolution();
    else if (State.RunStatus == kRunning && PromisesGain())
        Branch(branching);
    else
        Nodes.NodeClosed(Nodes.CurrentRecord) = 1;
}

// The open record with the largest node number. Without one the current record stays.
void SelectNode()
{
    Nodes.CurrentNode = 1;
    for (int record = 1; record <= Nodes.RecordCount; ++record) {
        if (Nodes.NodeClosed(record) == 1 || Nodes.NodeNumber(record) <= Nodes.CurrentNode) continue;
        Nodes.CurrentNode = Nodes.NodeNumber(record);
        Nodes.CurrentRecord = record;
    }
}

void FinishSearch()
{
    Nodes.Finished = true;
    Nodes.CurrentRecord = Nodes.IncumbentIndex;
    Nodes.CurrentNode = Nodes.IncumbentNode;
    if (Nodes.IncumbentNode != 1) JumpTo(Nodes.IncumbentNode);
}

// With all nodes closed and no whole solution nothing is done: the search goes round on the same state.
void GoOn()
{
    if (Nodes.CurrentNode > 1)
        JumpTo(Nodes.CurrentNode);
    else if (Nodes.IncumbentNode > 0)
        FinishSearch();
}

// ---- types ----

void MakeAllInteger(bool binary)
{
    State.IntegerCount = VtLP::Problem.NumVariables;
    for (int j = 1; j <= VtLP::Problem.NumVariables; ++j) {
        State.IntegerColumn(j) = 1;
        if (binary) State.UpperBound(j) = 1;
    }
}

// Names are compared in capitals with the names as they are stored: one with small letters is never found.
void MakeInteger(const std::string& name, bool binary)
{
    const std::string capitals = UpperCase(name);
    for (int j = 1; j <= VtLP::Problem.NumVariables; ++j) {
        if (VtLP::Problem.LpVariableNames(j) != capitals) continue;
        if (State.IntegerColumn(j) != 1) ++State.IntegerCount;
        State.IntegerColumn(j) = 1;
        State.UpperBound(j) = binary ? 1 : EngineInfinity;
        return;
    }
}

}  // namespace

void ReadIntegerTypes()
{
    const std::string& word = VtLP::Problem.LpLines(VtLP::TypeLine());
    if (word == "DBI") MakeAllInteger(true);
    if (word == "DIN") MakeAllInteger(false);
    if (word == "BIN" || word == "INT") VtLP::ForEachListedName(MakeInteger);
}

bool SearchIntegers()
{
    Nodes = {};
    Nodes.Finished = State.IntegerCount == 0;
    while (!Nodes.Finished) {
        LetUserInterrupt();
        DualSteps();
        if (State.RunStatus != kNoEntering && !PrimalSteps()) return false;
        SettleNode();
        SelectNode();
        GoOn();
    }
    DualSteps();
    return PrimalSteps();
}

}  // namespace LP_Engine
