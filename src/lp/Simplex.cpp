// The steps of the simplex method. Which of several optimal bases is found depends on the order of every
// comparison and sum here.
#include <algorithm>
#include <cmath>
#include <string>

#include "basic/number.h"
#include "desktop/screen.h"
#include "lp/LP_Engine.h"
#include "lp/VtLP.h"
#include "shell/menus.h"
#include "tableau/Criterion.h"

namespace LP_Engine {

using VtLP::ColumnCapacity;
using VtLP::RowCapacity;

EngineState State;

namespace {

VtLP::LpProblem& Model()
{
    return VtLP::Problem;
}

int Rows()
{
    return Model().NumConstraints;
}

// Scratch of a run: made once, so that no step allocates.
Array1<double> columnEntries(RowCapacity);
Array1<double> basicCosts(RowCapacity);
Array2<double> candidateBlock(RowCapacity, ColumnCapacity);
Array1<std::int16_t> candidates(ColumnCapacity);

bool IsOutsideBounds(std::int16_t status)
{
    return status == kBelowLower || status == kAboveUpper;
}

bool RestsAtBound(std::int16_t status)
{
    return status == kAtLower || status == kAtUpper;
}

double CutToZero(double value)
{
    return std::abs(value) < EngineTolerance ? 0.0 : value;
}

// ---- columns ----

void AddLogicalColumn(int column, int row, const char* name, std::int16_t kind, double coefficient)
{
    Model().LpVariableNames(column) = std::string(name) + " " + std::to_string(row);
    Model().LpCoefficients(row, column) = coefficient;
    State.ColumnKind(column) = kind;
    State.UpperBound(column) = EngineInfinity;
}

void StartBasic(int column, int row)
{
    State.ColumnStatus(column) = kBasic;
    State.ConstraintColumn(row) = static_cast<std::int16_t>(column);
    State.BasisList(row) = static_cast<std::int16_t>(column);
}

void AddSlack(int column, int row)
{
    AddLogicalColumn(column, row, "Slack", kSlack, 1);
    StartBasic(column, row);
}

void AddSurplus(int column, int row)
{
    AddLogicalColumn(column, row, "Splus", -kSurplus, -1);
    State.ColumnStatus(column) = kAtLower;
}

void AddArtificial(int column, int row)
{
    AddLogicalColumn(column, row, "Equal", kArtificial, 1);
    Model().LpCoefficients(0, column) = -1;
    StartBasic(column, row);
    ++State.ArtificialCount;
}

void BuildDecisionColumns()
{
    for (int j = 1; j <= Model().NumVariables; ++j) {
        State.ColumnStatus(j) = kAtLower;
        State.ColumnKind(j) = -kDecision;
        if (MinimizeFlag == 1) Model().LpCoefficients(0, j) = -Model().LpCoefficients(0, j);
    }
}

// The last column of all.
int BuildLogicalColumns()
{
    int column = Model().NumVariables;
    for (int i = 1; i <= Rows(); ++i) {
        const std::int16_t relation = Model().LpRelations(i);
        if (relation == VtLP::kLess) {
            AddSlack(++column, i);
        } else {
            if (relation == VtLP::kGreater) AddSurplus(++column, i);
            AddArtificial(++column, i);
        }
        State.RightHandSide(i) = Model().LpCoefficients(i, 0);
    }
    return column;
}

void SetInitialValues()
{
    for (int i = 1; i <= Rows(); ++i) {
        double value = State.RightHandSide(i);
        for (int j = 1; j <= Model().NumVariables; ++j) {
            const double bound =
                State.ColumnStatus(j) == kAtUpper ? State.UpperBound(j) : State.LowerBound(j);
            value -= Model().LpCoefficients(i, j) * bound;
        }
        State.BasicValues(i) = value;
    }
}

// Artificials that have left, and those that are basic at zero.
void CountClearedArtificials()
{
    int count = 0;
    for (int j = Model().NumVariables + 1; j <= State.NumColumns; ++j)
        if (State.ColumnKind(j) == kRetired && RestsAtBound(State.ColumnStatus(j))) ++count;
    for (int i = 1; i <= Rows(); ++i)
        if (State.ColumnKind(State.BasisList(i)) == kArtificial && State.BasicValues(i) < EngineTolerance)
            ++count;
    State.ClearedArtificials = count;
}

// ---- pricing ----

void SetPhaseCosts()
{
    const double* objective = Model().LpCoefficients.Row(0);
    double* costs = State.CostVector.Data();
    State.SolvePhase = State.ClearedArtificials < State.ArtificialCount ? 1 : 2;
    for (int j = 1; j <= State.NumColumns; ++j) {
        if (State.SolvePhase == 1)
            costs[j] = State.ColumnKind.Data()[j] == kArtificial ? -1 : 0;
        else
            costs[j] = objective[j];
    }
}

void SolvePrices()
{
    for (int i = 1; i <= Rows(); ++i)
        basicCosts(i) = State.CostVector(State.BasisList(i));
    State.Factors.SolveTransposed(basicCosts.Data(), State.PriceVector.Data());
    State.Factors.MultiplyTransposed(State.PriceVector.Data(), State.DualVector.Data());
}

void PriceColumns()
{
    double* reduced = State.ReducedCosts.Data();
    std::copy_n(State.CostVector.Data() + 1, State.NumColumns, reduced + 1);
    for (int i = 1; i <= Rows(); ++i) {
        const double dual = State.DualVector(i);
        const double* row = Model().LpCoefficients.Row(i);
        if (dual == 0) continue;
        for (int j = 1; j <= State.NumColumns; ++j)
            reduced[j] -= dual * row[j];
    }
    for (int j = 1; j <= State.NumColumns; ++j)
        if (State.ColumnStatus.Data()[j] == kBasic || State.ColumnKind.Data()[j] == kRetired) reduced[j] = 0;
}

// The largest gain enters; among equal ones that with the larger objective coefficient, else the first.
void ChooseEntering()
{
    const double* objective = Model().LpCoefficients.Row(0);
    State.LargestReducedCost = -EngineInfinity;
    State.EnteringColumn = 0;
    for (int j = 1; j <= State.NumColumns; ++j) {
        const std::int16_t status = State.ColumnStatus.Data()[j];
        if (!RestsAtBound(status)) continue;
        const double reduced = State.ReducedCosts.Data()[j];
        const double gain = status == kAtLower ? reduced : -reduced;
        const bool tie = gain == State.LargestReducedCost;
        if (gain > State.LargestReducedCost || (tie && objective[j] > objective[State.EnteringColumn])) {
            State.LargestReducedCost = gain;
            State.EnteringColumn = j;
            State.Direction = status == kAtLower ? 1 : -1;
        }
    }
}

void Price()
{
    SetPhaseCosts();
    SolvePrices();
    PriceColumns();
    ChooseEntering();
}

// ---- the primal step ----

// How far the entering column may go before the basic column of a row reaches one of its bounds.
struct RowLimit {
    double Ratio = 0;
    int Kind = kBoundFlip;  // kBoundFlip: never
};

RowLimit LimitOf(int row)
{
    const int j = State.BasisList(row);
    const double x = State.BasicValues(row);
    const double entry = State.PivotColumn(row);
    const double falling = State.Direction == 1 ? entry : -entry;  // positive: the value goes down
    if (falling > EngineTolerance) {
        const double ratio = Divide(x - State.LowerBound(j), entry);
        return {State.Direction == 1 ? ratio : -ratio, kToLower};
    }
    if (-falling > EngineTolerance) {
        const double ratio = Divide(x - State.UpperBound(j), entry);
        return {State.Direction == 1 ? ratio : -ratio, kToUpper};
    }
    return {};
}

bool IsClearedArtificial(int row)
{
    return State.ClearedArtificials == State.ArtificialCount &&
           State.ColumnKind(State.BasisList(row)) == kArtificial && State.BasicValues(row) < EngineTolerance;
}

void TakeLimit(int row, const RowLimit& limit)
{
    if (limit.Kind == kBoundFlip) return;
    const bool artificialTie = limit.Kind == kToLower && limit.Ratio == State.Step &&
                               State.ColumnKind(State.BasisList(row)) == kArtificial;
    if (!(limit.Ratio < State.Step) && !artificialTie) return;
    State.Step = limit.Ratio;
    State.LeavingRow = row;
    State.LeavingKind = limit.Kind;
}

// An artificial that is basic at zero once all are cleared leaves at the first chance, with no step.
void ChooseLeaving()
{
    State.Step = State.UpperBound(State.EnteringColumn) - State.LowerBound(State.EnteringColumn);
    State.LeavingKind = kBoundFlip;
    for (int i = 1; i <= Rows(); ++i) {
        if (!IsClearedArtificial(i)) {
            TakeLimit(i, LimitOf(i));
        } else if (std::abs(State.PivotColumn(i)) > EngineTolerance) {
            State.Step = 0;
            State.LeavingRow = i;
            State.LeavingKind = kToLower;
            return;
        }
    }
}

// No entry of the column is above zero, and nothing bounds the column itself.
bool IsUnbounded()
{
    if (State.Direction != 1 || State.UpperBound(State.EnteringColumn) != EngineInfinity) return false;
    double largest = 0;
    for (int i = 1; i <= Rows(); ++i)
        largest = std::max(largest, State.PivotColumn(i));
    if (largest == 0) return true;
    const char* print = "mnuSolutionPrinttoPrinter";
    if (!Menus.Item(print).Enabled) Menus.EnablePrinting(true);
    return false;
}

// False: the objective grows without end.
bool RatioTest()
{
    TransformColumn(State.EnteringColumn);
    if (IsUnbounded()) return false;
    ChooseLeaving();
    return true;
}

// ---- the dual step ----

void MarkBoundViolations()
{
    for (int i = 1; i <= Rows(); ++i) {
        const int j = State.BasisList(i);
        const double x = State.BasicValues(i);
        const bool below = x < State.LowerBound(j);
        const bool above = x > State.UpperBound(j);
        if (IsOutsideBounds(State.ColumnStatus(j)) && !below && !above) State.ColumnStatus(j) = kBasic;
        if (below)
            State.ColumnStatus(j) = kBelowLower;
        else if (above)
            State.ColumnStatus(j) = kAboveUpper;
    }
}

// The test and the stored step differ in sign above an upper bound, so that such a row gives way to any row
// below its lower bound.
void PickInfeasibleRow()
{
    State.LeavingRow = 0;
    State.InfeasibleStep = EngineInfinity;
    for (int i = 1; i <= Rows(); ++i) {
        const int j = State.BasisList(i);
        const double x = State.BasicValues(i);
        const std::int16_t status = State.ColumnStatus(j);
        if (status == kBelowLower && x - State.LowerBound(j) < State.InfeasibleStep) {
            State.LeavingRow = i;
            State.InfeasibleStep = x - State.LowerBound(j);
            State.LeavingKind = kToLower;
        } else if (status == kAboveUpper && State.UpperBound(j) - x < State.InfeasibleStep) {
            State.LeavingRow = i;
            State.InfeasibleStep = x - State.UpperBound(j);
            State.LeavingKind = kToUpper;
        }
    }
}

// The side on which the basic column of the leaving row lies outside of its bounds.
int ViolatedSide()
{
    const int j = State.BasisList(State.LeavingRow);
    const double x = State.BasicValues(State.LeavingRow);
    if (x < State.LowerBound(j)) return kToLower;
    return x > State.UpperBound(j) ? kToUpper : State.LeavingKind;
}

void DualStepLength()
{
    const int j = State.EnteringColumn;
    TransformColumn(j);
    const bool fromLower = State.ColumnStatus(j) == kAtLower;
    State.Step = State.UpperBound(j) - State.LowerBound(j);
    State.Direction = fromLower ? 1 : -1;
    State.LeavingKind = kBoundFlip;
    const double quotient = Divide(State.InfeasibleStep, State.PivotColumn(State.LeavingRow));
    if (!(quotient < State.Step)) return;
    State.Step = fromLower ? quotient : -quotient;
    State.LeavingKind = ViolatedSide();
}

// The columns that may enter, side by side in the block: all that are nonbasic and not retired.
int GatherCandidates()
{
    int count = 0;
    for (int j = 1; j <= State.NumColumns; ++j)
        if (State.ColumnKind(j) < 0) candidates(count++) = static_cast<std::int16_t>(j);
    for (int i = 1; i <= Rows(); ++i) {
        const double* row = Model().LpCoefficients.Row(i);
        double* entries = candidateBlock.Row(i);
        for (int k = 0; k < count; ++k)
            entries[k] = row[candidates.Data()[k]];
    }
    return count;
}

// The ratio of a column with the entry `a` in the leaving row; EngineInfinity when it may not enter.
double DualRatio(double a, std::int16_t status, double reduced)
{
    const bool below = State.LeavingKind == kToLower;
    if (a < -EngineTolerance && status == (below ? kAtLower : kAtUpper)) return -reduced / a;
    if (a > EngineTolerance && status == (below ? kAtUpper : kAtLower)) return reduced / a;
    return EngineInfinity;
}

// The smallest ratio enters, the first of equal ones.
void DualRatioTest()
{
    const int count = GatherCandidates();
    State.Factors.SolveBlock(State.LeavingRow, count, candidateBlock);
    const double* entries = candidateBlock.Row(State.LeavingRow);
    double best = EngineInfinity;
    State.EnteringColumn = 0;
    for (int k = 0; k < count; ++k) {
        const int j = candidates(k);
        const double ratio = DualRatio(entries[k], State.ColumnStatus(j), State.ReducedCosts(j));
        if (ratio < best) {
            best = ratio;
            State.EnteringColumn = j;
        }
    }
    if (State.EnteringColumn == 0)
        State.RunStatus = kNoEntering;
    else
        DualStepLength();
}

// ---- the pivot ----

void ChangeStatus()
{
    const int entering = State.EnteringColumn;
    if (State.LeavingKind == kBoundFlip) {
        State.ColumnStatus(entering) = static_cast<std::int16_t>(State.Direction);
        return;
    }
    State.ColumnStatus(entering) = kBasic;
    const int leaving = State.BasisList(State.LeavingRow);
    State.ColumnStatus(leaving) = State.LeavingKind == kToLower ? kAtLower : kAtUpper;
}

void ChangeValues()
{
    const double step = State.Direction * State.Step;
    for (int i = 1; i <= Rows(); ++i) {
        const double x = State.BasicValues(i) - step * State.PivotColumn(i);
        if (!std::isfinite(x)) Raise(ErrorNumber::Overflow);
        State.BasicValues(i) = CutToZero(x);
    }
}

void ChangeKinds()
{
    std::int16_t& entering = State.ColumnKind(State.EnteringColumn);
    entering = static_cast<std::int16_t>(std::abs(entering));
    std::int16_t& leaving = State.ColumnKind(State.BasisList(State.LeavingRow));
    leaving = leaving == kArtificial ? kRetired : static_cast<std::int16_t>(-leaving);
}

// The positions behind the leaving one move up; the entering column takes the last.
void ShiftBasis()
{
    const int last = Rows();
    for (int r = State.LeavingRow; r < last; ++r) {
        State.BasisList(r) = State.BasisList(r + 1);
        State.BasicValues(r) = State.BasicValues(r + 1);
    }
    const int entering = State.EnteringColumn;
    State.BasisList(last) = static_cast<std::int16_t>(entering);
    State.BasicValues(last) = State.Direction == 1 ? State.LowerBound(entering) + State.Step
                                                   : State.UpperBound(entering) - State.Step;
}

void UpdateBasis()
{
    ChangeStatus();
    ChangeValues();
    if (State.LeavingKind == kBoundFlip) return;
    ChangeKinds();
    ShiftBasis();
    CountClearedArtificials();
    State.Factors.ReplaceColumn(State.LeavingRow, State.WorkColumn.Data());
}

}  // namespace

void BuildColumns()
{
    BuildDecisionColumns();
    State.NumColumns = ToInt16(BuildLogicalColumns());
    SetInitialValues();
    State.Factors.Reset(Rows(), RowCapacity);
    CountClearedArtificials();
}

void TransformColumn(int column)
{
    for (int i = 1; i <= Rows(); ++i)
        columnEntries(i) = Model().LpCoefficients(i, column);
    State.Factors.Multiply(columnEntries.Data(), State.WorkColumn.Data());
    State.Factors.Solve(State.WorkColumn.Data(), State.PivotColumn.Data());
}

void DualSteps()
{
    State.RunStatus = kRunning;
    MarkBoundViolations();
    PickInfeasibleRow();
    while (State.LeavingRow != 0 && State.RunStatus != kNoEntering) {
        LetUserInterrupt();
        SetPhaseCosts();
        SolvePrices();
        PriceColumns();
        DualRatioTest();
        if (State.RunStatus != kNoEntering) UpdateBasis();
        MarkBoundViolations();
        PickInfeasibleRow();
    }
}

bool PrimalSteps()
{
    Price();
    while (State.LargestReducedCost >= PricingThreshold) {
        LetUserInterrupt();
        ++State.PivotCount;
        if (!RatioTest()) return false;
        UpdateBasis();
        Price();
    }
    State.RunStatus = kRunning;
    return true;
}

void ComputeObjective()
{
    double sum = 0;
    for (int i = 1; i <= Rows(); ++i)
        sum += State.BasicValues(i) * State.CostVector(State.BasisList(i));
    for (int j = 1; j <= State.NumColumns; ++j) {
        const std::int16_t status = State.ColumnStatus(j);
        if (status == kAtLower) sum += State.CostVector(j) * State.LowerBound(j);
        if (status == kAtUpper) sum += State.CostVector(j) * State.UpperBound(j);
    }
    State.ObjectiveValue = sum;
}

}  // namespace LP_Engine
