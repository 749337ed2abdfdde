// Which of several optimal bases is found depends on the order of every comparison and sum here.
#include "lp/Simplex.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "desktop/screen.h"

namespace LP_Engine {
namespace {

constexpr int kBoundedColumns = 100;  // whatever the number of variables: the screen's limit

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

int CountColumns(const VtLP::LpProblem& problem)
{
    int count = problem.NumVariables;
    for (int i = 1; i <= problem.NumConstraints; ++i)
        count += problem.LpRelations(i) == VtLP::kGreater ? 2 : 1;
    return count;
}

// The ratio of a column with the entry `a` in the leaving row; EngineInfinity when it may not enter.
double DualRatio(int kind, double a, std::int16_t status, double reduced)
{
    const bool below = kind == kToLower;
    if (a < -EngineTolerance && status == (below ? kAtLower : kAtUpper)) return -reduced / a;
    if (a > EngineTolerance && status == (below ? kAtUpper : kAtLower)) return reduced / a;
    return EngineInfinity;
}

}  // namespace

// How far the entering column may go before the basic column of a row reaches one of its bounds.
struct Simplex::RowLimit {
    double Ratio = 0;
    int Kind = kBoundFlip;  // kBoundFlip: never
};

// ---- columns ----

void Simplex::MakeTables()
{
    const int columns = CountColumns(at_.Problem);
    if (columns > VtLP::ColumnCapacity) Raise(ErrorNumber::SubscriptOutOfRange);
    const int rows = Rows();
    at_.NumColumns = static_cast<std::int16_t>(columns);
    at_.Coefficients = Array2<double>(rows, columns);
    at_.CostVector = at_.ReducedCosts = Array1<double>(columns);
    at_.IntegerColumn = Array1<std::int16_t>(columns);
    at_.ConstraintColumn = Array1<std::int16_t>(rows);
    at_.DualVector = Array1<double>(rows);
    at_.Basis.UpperBound = at_.Basis.LowerBound = Array1<double>(columns);
    at_.Basis.ColumnStatus = at_.Basis.ColumnKind = Array1<std::int16_t>(columns);
    at_.Basis.BasisList = Array1<std::int16_t>(rows);
    at_.Basis.BasicValues = Array1<double>(rows);
    priceVector_ = basicCosts_ = columnEntries_ = workColumn_ = pivotColumn_ = Array1<double>(rows);
    for (int j = 1; j <= std::min(kBoundedColumns, columns); ++j)
        at_.Basis.UpperBound(j) = EngineInfinity;
}

void Simplex::AddLogicalColumn(int column, int row, std::int16_t kind, double coefficient)
{
    at_.Coefficients(row, column) = coefficient;
    at_.Basis.ColumnKind(column) = kind;
    at_.Basis.UpperBound(column) = EngineInfinity;
}

void Simplex::StartBasic(int column, int row)
{
    at_.Basis.ColumnStatus(column) = kBasic;
    at_.ConstraintColumn(row) = static_cast<std::int16_t>(column);
    at_.Basis.BasisList(row) = static_cast<std::int16_t>(column);
}

void Simplex::AddArtificial(int column, int row)
{
    AddLogicalColumn(column, row, kArtificial, 1);
    at_.Coefficients(0, column) = -1;
    StartBasic(column, row);
    ++at_.ArtificialCount;
}

void Simplex::BuildDecisionColumns()
{
    const int n = Variables();
    for (int i = 0; i <= Rows(); ++i)
        std::copy_n(at_.Problem.LpCoefficients.Row(i), n + 1, at_.Coefficients.Row(i));
    for (int j = 1; j <= n; ++j) {
        at_.Basis.ColumnStatus(j) = kAtLower;
        at_.Basis.ColumnKind(j) = -kDecision;
        if (at_.Minimize) at_.Coefficients(0, j) = -at_.Coefficients(0, j);
    }
}

void Simplex::BuildLogicalColumns()
{
    int column = Variables();
    for (int i = 1; i <= Rows(); ++i) {
        const std::int16_t relation = at_.Problem.LpRelations(i);
        if (relation == VtLP::kLess) {
            AddLogicalColumn(++column, i, kSlack, 1);
            StartBasic(column, i);
            continue;
        }
        if (relation == VtLP::kGreater) {
            AddLogicalColumn(++column, i, -kSurplus, -1);
            at_.Basis.ColumnStatus(column) = kAtLower;
        }
        AddArtificial(++column, i);
    }
}

// Column by column, so that no sum waits for its last term.
void Simplex::SetInitialValues()
{
    BasisState& basis = at_.Basis;
    double* values = basis.BasicValues.Data();
    for (int i = 1; i <= Rows(); ++i)
        values[i] = at_.Coefficients(i, 0);
    for (int j = 1; j <= Variables(); ++j) {
        const double bound = basis.ColumnStatus(j) == kAtUpper ? basis.UpperBound(j) : basis.LowerBound(j);
        for (int i = 1; i <= Rows(); ++i)
            values[i] -= at_.Coefficients.Row(i)[j] * bound;
    }
}

// Artificials that have left, and those that are basic at zero.
void Simplex::CountClearedArtificials()
{
    const BasisState& basis = at_.Basis;
    int count = 0;
    for (int j = Variables() + 1; j <= at_.NumColumns; ++j)
        if (basis.ColumnKind(j) == kRetired && RestsAtBound(basis.ColumnStatus(j))) ++count;
    for (int i = 1; i <= Rows(); ++i)
        if (basis.ColumnKind(basis.BasisList(i)) == kArtificial && basis.BasicValues(i) < EngineTolerance)
            ++count;
    at_.ClearedArtificials = count;
}

void Simplex::BuildColumns()
{
    BuildDecisionColumns();
    BuildLogicalColumns();
    SetInitialValues();
    at_.Basis.Factors.Reset(Rows(), Rows());
    CountClearedArtificials();
    if (recorder_ != nullptr) recorder_->Started(at_);
}

// ---- pricing ----

void Simplex::SetPhaseCosts()
{
    const double* objective = at_.Coefficients.Row(0);
    double* costs = at_.CostVector.Data();
    at_.SolvePhase = at_.ClearedArtificials < at_.ArtificialCount ? 1 : 2;
    for (int j = 1; j <= at_.NumColumns; ++j) {
        if (at_.SolvePhase == 1)
            costs[j] = at_.Basis.ColumnKind.Data()[j] == kArtificial ? -1 : 0;
        else
            costs[j] = objective[j];
    }
}

void Simplex::SolvePrices()
{
    for (int i = 1; i <= Rows(); ++i)
        basicCosts_(i) = at_.CostVector(at_.Basis.BasisList(i));
    at_.Basis.Factors.SolveTransposed(basicCosts_.Data(), priceVector_.Data());
    at_.Basis.Factors.MultiplyTransposed(priceVector_.Data(), at_.DualVector.Data());
}

void Simplex::PriceColumns()
{
    double* reduced = at_.ReducedCosts.Data();
    std::copy_n(at_.CostVector.Data() + 1, at_.NumColumns, reduced + 1);
    for (int i = 1; i <= Rows(); ++i) {
        const double dual = at_.DualVector(i);
        const double* row = at_.Coefficients.Row(i);
        if (dual == 0) continue;
        for (int j = 1; j <= at_.NumColumns; ++j)
            reduced[j] -= dual * row[j];
    }
    const BasisState& basis = at_.Basis;
    for (int j = 1; j <= at_.NumColumns; ++j)
        if (basis.ColumnStatus.Data()[j] == kBasic || basis.ColumnKind.Data()[j] == kRetired) reduced[j] = 0;
}

// The largest gain enters; among equal ones that with the larger objective coefficient, else the first.
Entering Simplex::ChooseEntering() const
{
    const double* objective = at_.Coefficients.Row(0);
    Entering best{.Gain = -EngineInfinity};
    for (int j = 1; j <= at_.NumColumns; ++j) {
        const std::int16_t status = at_.Basis.ColumnStatus.Data()[j];
        if (!RestsAtBound(status)) continue;
        const double reduced = at_.ReducedCosts.Data()[j];
        const double gain = status == kAtLower ? reduced : -reduced;
        const bool tie = gain == best.Gain;
        if (gain > best.Gain || (tie && objective[j] > objective[best.Column]))
            best = {.Column = j, .Direction = status == kAtLower ? 1 : -1, .Gain = gain};
    }
    return best;
}

Entering Simplex::Price()
{
    SetPhaseCosts();
    SolvePrices();
    PriceColumns();
    return ChooseEntering();
}

// ---- the primal step ----

void Simplex::TransformColumn(int column)
{
    for (int i = 1; i <= Rows(); ++i)
        columnEntries_(i) = at_.Coefficients(i, column);
    at_.Basis.Factors.Multiply(columnEntries_.Data(), workColumn_.Data());
    at_.Basis.Factors.Solve(workColumn_.Data(), pivotColumn_.Data());
}

Simplex::RowLimit Simplex::LimitOf(int row, int direction) const
{
    const int j = at_.Basis.BasisList(row);
    const double x = at_.Basis.BasicValues(row);
    const double entry = pivotColumn_(row);
    const double falling = direction == 1 ? entry : -entry;  // positive: the value goes down
    if (falling > EngineTolerance) {
        const double ratio = Divide(x - at_.Basis.LowerBound(j), entry);
        return {direction == 1 ? ratio : -ratio, kToLower};
    }
    if (-falling > EngineTolerance) {
        const double ratio = Divide(x - at_.Basis.UpperBound(j), entry);
        return {direction == 1 ? ratio : -ratio, kToUpper};
    }
    return {};
}

bool Simplex::IsClearedArtificial(int row) const
{
    return at_.ClearedArtificials == at_.ArtificialCount &&
           at_.Basis.ColumnKind(at_.Basis.BasisList(row)) == kArtificial &&
           at_.Basis.BasicValues(row) < EngineTolerance;
}

// Whether the row limits the step more than what was found so far; an artificial wins ties.
bool Simplex::IsNearer(int row, const RowLimit& limit, double step) const
{
    if (limit.Kind == kBoundFlip) return false;
    const bool artificialTie = limit.Kind == kToLower && limit.Ratio == step &&
                               at_.Basis.ColumnKind(at_.Basis.BasisList(row)) == kArtificial;
    return limit.Ratio < step || artificialTie;
}

// An artificial that is basic at zero once all are cleared leaves at the first chance, with no step.
Leaving Simplex::ChooseLeaving(const Entering& entering) const
{
    Leaving leaving{.Step = at_.Basis.UpperBound(entering.Column) - at_.Basis.LowerBound(entering.Column)};
    for (int i = 1; i <= Rows(); ++i) {
        if (!IsClearedArtificial(i)) {
            const RowLimit limit = LimitOf(i, entering.Direction);
            if (IsNearer(i, limit, leaving.Step)) leaving = {i, limit.Kind, limit.Ratio};
        } else if (std::abs(pivotColumn_(i)) > EngineTolerance) {
            return {i, kToLower, 0};
        }
    }
    return leaving;
}

// No entry of the column is above zero, and nothing bounds the column itself.
bool Simplex::IsUnbounded(const Entering& entering) const
{
    if (entering.Direction != 1 || at_.Basis.UpperBound(entering.Column) != EngineInfinity) return false;
    double largest = 0;
    for (int i = 1; i <= Rows(); ++i)
        largest = std::max(largest, pivotColumn_(i));
    return largest == 0;
}

// ---- the dual step ----

void Simplex::MarkBoundViolations()
{
    BasisState& basis = at_.Basis;
    for (int i = 1; i <= Rows(); ++i) {
        const int j = basis.BasisList(i);
        const double x = basis.BasicValues(i);
        const bool below = x < basis.LowerBound(j);
        const bool above = x > basis.UpperBound(j);
        if (IsOutsideBounds(basis.ColumnStatus(j)) && !below && !above) basis.ColumnStatus(j) = kBasic;
        if (below)
            basis.ColumnStatus(j) = kBelowLower;
        else if (above)
            basis.ColumnStatus(j) = kAboveUpper;
    }
}

// The test and the stored step differ in sign above an upper bound, so that such a row gives way to any row
// below its lower bound.
BoundViolation Simplex::PickInfeasibleRow() const
{
    const BasisState& basis = at_.Basis;
    BoundViolation worst;
    for (int i = 1; i <= Rows(); ++i) {
        const int j = basis.BasisList(i);
        const double x = basis.BasicValues(i);
        const std::int16_t status = basis.ColumnStatus(j);
        if (status == kBelowLower && x - basis.LowerBound(j) < worst.Step)
            worst = {i, kToLower, x - basis.LowerBound(j)};
        else if (status == kAboveUpper && basis.UpperBound(j) - x < worst.Step)
            worst = {i, kToUpper, x - basis.UpperBound(j)};
    }
    return worst;
}

// The side on which the basic column of the row lies outside of its bounds.
int Simplex::ViolatedSide(int row) const
{
    const int j = at_.Basis.BasisList(row);
    const double x = at_.Basis.BasicValues(row);
    if (x < at_.Basis.LowerBound(j)) return kToLower;
    return x > at_.Basis.UpperBound(j) ? kToUpper : kBoundFlip;
}

Pivot Simplex::DualStep(int column, const BoundViolation& violation)
{
    TransformColumn(column);
    const bool fromLower = at_.Basis.ColumnStatus(column) == kAtLower;
    Pivot pivot{
        .Dual = true,
        .In = {.Column = column, .Direction = fromLower ? 1 : -1},
        .Out = {.Row = violation.Row, .Step = at_.Basis.UpperBound(column) - at_.Basis.LowerBound(column)},
        .Column = &pivotColumn_};
    const double quotient = Divide(violation.Step, pivotColumn_(violation.Row));
    if (!(quotient < pivot.Out.Step)) return pivot;
    pivot.Out.Step = fromLower ? quotient : -quotient;
    pivot.Out.Kind = ViolatedSide(violation.Row);
    return pivot;
}

// The columns that may enter, side by side in the block: all that are nonbasic and not retired.
int Simplex::GatherCandidates()
{
    if (candidateBlock_.Stride() == 0) candidateBlock_ = Array2<double>(Rows(), at_.NumColumns);
    candidates_.clear();
    for (int j = 1; j <= at_.NumColumns; ++j)
        if (at_.Basis.ColumnKind(j) < 0) candidates_.push_back(j);
    for (int i = 1; i <= Rows(); ++i) {
        const double* row = at_.Coefficients.Row(i);
        double* entries = candidateBlock_.Row(i);
        for (const int j : candidates_)
            *entries++ = row[j];
    }
    return static_cast<int>(candidates_.size());
}

// The smallest ratio enters, the first of equal ones; 0 when there is none.
int Simplex::DualRatioTest(const BoundViolation& violation)
{
    const int count = GatherCandidates();
    at_.Basis.Factors.SolveBlock(violation.Row, count, candidateBlock_);
    const double* entries = candidateBlock_.Row(violation.Row);
    double best = EngineInfinity;
    int entering = 0;
    for (const int j : candidates_) {
        const double ratio =
            DualRatio(violation.Kind, *entries++, at_.Basis.ColumnStatus(j), at_.ReducedCosts(j));
        if (ratio < best) {
            best = ratio;
            entering = j;
        }
    }
    return entering;
}

// ---- the pivot ----

void Simplex::ChangeStatus(const Entering& entering, const Leaving& leaving)
{
    BasisState& basis = at_.Basis;
    if (leaving.Kind == kBoundFlip) {
        basis.ColumnStatus(entering.Column) = static_cast<std::int16_t>(entering.Direction);
        return;
    }
    basis.ColumnStatus(entering.Column) = kBasic;
    basis.ColumnStatus(basis.BasisList(leaving.Row)) = leaving.Kind == kToLower ? kAtLower : kAtUpper;
}

void Simplex::ChangeValues(double step)
{
    for (int i = 1; i <= Rows(); ++i) {
        const double x = at_.Basis.BasicValues(i) - step * pivotColumn_(i);
        if (!std::isfinite(x)) Raise(ErrorNumber::Overflow);
        at_.Basis.BasicValues(i) = CutToZero(x);
    }
}

void Simplex::ChangeKinds(int entering, int leavingRow)
{
    std::int16_t& in = at_.Basis.ColumnKind(entering);
    in = static_cast<std::int16_t>(std::abs(in));
    std::int16_t& out = at_.Basis.ColumnKind(at_.Basis.BasisList(leavingRow));
    out = out == kArtificial ? kRetired : static_cast<std::int16_t>(-out);
}

// The positions behind the leaving one move up; the entering column takes the last.
void Simplex::ShiftBasis(const Entering& entering, const Leaving& leaving)
{
    BasisState& basis = at_.Basis;
    const int last = Rows();
    for (int r = leaving.Row; r < last; ++r) {
        basis.BasisList(r) = basis.BasisList(r + 1);
        basis.BasicValues(r) = basis.BasicValues(r + 1);
    }
    basis.BasisList(last) = static_cast<std::int16_t>(entering.Column);
    basis.BasicValues(last) = entering.Direction == 1 ? basis.LowerBound(entering.Column) + leaving.Step
                                                      : basis.UpperBound(entering.Column) - leaving.Step;
}

void Simplex::UpdateBasis(const Pivot& pivot)
{
    if (recorder_ != nullptr) recorder_->Turns(at_, pivot);
    ChangeStatus(pivot.In, pivot.Out);
    ChangeValues(pivot.In.Direction * pivot.Out.Step);
    if (pivot.Out.Kind == kBoundFlip) return;
    ChangeKinds(pivot.In.Column, pivot.Out.Row);
    ShiftBasis(pivot.In, pivot.Out);
    CountClearedArtificials();
    at_.Basis.Factors.ReplaceColumn(pivot.Out.Row, workColumn_.Data());
}

// ---- runs of steps ----

void Simplex::LetBreakOff() const
{
    LetUserInterrupt();
    if (recorder_ != nullptr && !recorder_->GoesOn(at_)) Raise(ErrorNumber::UserInterrupt);
}

bool Simplex::DualSteps()
{
    MarkBoundViolations();
    for (BoundViolation violation = PickInfeasibleRow(); violation.Row != 0;
         violation = PickInfeasibleRow()) {
        LetBreakOff();
        SetPhaseCosts();
        SolvePrices();
        PriceColumns();
        const int entering = DualRatioTest(violation);
        if (entering == 0) {
            if (recorder_ != nullptr) recorder_->NoEntering(at_, violation);
            MarkBoundViolations();
            return false;
        }
        UpdateBasis(DualStep(entering, violation));
        MarkBoundViolations();
    }
    return true;
}

bool Simplex::PrimalSteps()
{
    Entering entering = Price();
    while (entering.Gain >= PricingThreshold) {
        LetBreakOff();
        ++at_.PivotCount;
        TransformColumn(entering.Column);
        if (IsUnbounded(entering)) {
            if (recorder_ != nullptr) recorder_->Unlimited(at_, entering);
            return false;
        }
        UpdateBasis({.In = entering, .Out = ChooseLeaving(entering), .Column = &pivotColumn_});
        entering = Price();
    }
    return true;
}

void Simplex::MoveRestingColumn(int column, double change)
{
    TransformColumn(column);
    for (int i = 1; i <= Rows(); ++i)
        at_.Basis.BasicValues(i) = CutToZero(at_.Basis.BasicValues(i) - pivotColumn_(i) * change);
}

void Simplex::ComputeObjective()
{
    double sum = 0;
    for (int i = 1; i <= Rows(); ++i)
        sum += at_.Basis.BasicValues(i) * at_.CostVector(at_.Basis.BasisList(i));
    for (int j = 1; j <= at_.NumColumns; ++j) {
        const std::int16_t status = at_.Basis.ColumnStatus(j);
        if (status == kAtLower) sum += at_.CostVector(j) * at_.Basis.LowerBound(j);
        if (status == kAtUpper) sum += at_.CostVector(j) * at_.Basis.UpperBound(j);
    }
    at_.ObjectiveValue = sum;
}

}  // namespace LP_Engine
