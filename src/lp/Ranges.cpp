#include "lp/Ranges.h"

#include <algorithm>
#include <cmath>

#include "lp/LP_Engine.h"
#include "lp/VtLP.h"
#include "tableau/Criterion.h"

namespace LP_Engine {
namespace {

constexpr double RangeInfinity = 1e15;

int Rows()
{
    return VtLP::Problem.NumConstraints;
}

Range NonbasicRange(double c, double d)
{
    if (MinimizeFlag == 1) return {ZeroRounded(d - c), ZeroRounded(-c), std::nullopt};
    return {std::nullopt, ZeroRounded(c), ZeroRounded(-d + c)};
}

// How far a coefficient may go up and down.
struct Allowance {
    double Increase = RangeInfinity;
    double Decrease = -RangeInfinity;
};

Allowance AllowanceOf(int basicRow)
{
    Allowance allowed;
    const double* row = VtLP::Problem.LpCoefficients.Row(basicRow);
    for (int k = 1; k <= State.NumColumns; ++k) {
        double& d = State.ReducedCosts(k);
        if (d > 0) d = 0;
        const std::int16_t kind = State.ColumnKind(k);
        if (kind >= 0 || kind == -kArtificial) continue;
        if (row[k] < -RangeTolerance)
            allowed.Increase = std::min(allowed.Increase, d / row[k]);
        else if (row[k] > RangeTolerance)
            allowed.Decrease = std::max(allowed.Decrease, d / row[k]);
    }
    return allowed;
}

Range BasicRange(double c, const Allowance& allowed)
{
    std::optional<double> down;
    std::optional<double> up;
    const bool minimize = MinimizeFlag == 1;
    if (allowed.Decrease != -RangeInfinity)
        down = ZeroRounded(minimize ? -allowed.Decrease - c : allowed.Decrease + c);
    if (allowed.Increase != RangeInfinity)
        up = ZeroRounded(minimize ? -allowed.Increase - c : allowed.Increase + c);
    if (minimize) return {up, ZeroRounded(-c), down};  // the row was negated
    return {down, ZeroRounded(c), up};
}

}  // namespace

double ZeroRounded(double value)
{
    return std::abs(value) < RangeTolerance ? 0.0 : value;
}

Array1<std::int16_t> BasicRows()
{
    Array1<std::int16_t> rows(VtLP::ColumnCapacity);
    for (int r = 1; r <= Rows(); ++r)
        rows(State.BasisList(r)) = static_cast<std::int16_t>(r);
    return rows;
}

void BuildTableau()
{
    const int columns = State.NumColumns;
    Array2<double>& coefficients = VtLP::Problem.LpCoefficients;
    Array2<double> block(VtLP::RowCapacity, VtLP::ColumnCapacity);
    for (int i = 1; i <= Rows(); ++i)
        std::copy_n(coefficients.Row(i) + 1, columns, block.Row(i));
    State.Factors.SolveBlock(1, columns, block);
    for (int i = 1; i <= Rows(); ++i)
        std::copy_n(block.Row(i), columns, coefficients.Row(i) + 1);
}

Range ObjectiveRange(int variable, int basicRow)
{
    const double c = VtLP::Problem.LpCoefficients(0, variable);
    if (State.ColumnKind(variable) < 0) return NonbasicRange(c, State.ReducedCosts(variable));
    return BasicRange(c, AllowanceOf(basicRow));
}

Range RightHandSideRange(int constraint)
{
    const int column = State.ConstraintColumn(constraint);
    double first = RangeInfinity;
    double second = -RangeInfinity;
    for (int r = 1; r <= Rows(); ++r) {
        const double x = std::max(State.BasicValues(r), 0.0);
        const double a = VtLP::Problem.LpCoefficients(r, column);
        if (a > RangeTolerance)
            first = std::min(first, x / a);
        else if (a < -RangeTolerance)
            second = std::max(second, x / a);
    }
    const double b = VtLP::Problem.LpCoefficients(constraint, 0);
    Range range{std::nullopt, ZeroRounded(b), std::nullopt};
    if (first < RangeInfinity) range.Lower = ZeroRounded(b - first);
    if (-second < RangeInfinity) range.Upper = ZeroRounded(b - second);
    return range;
}

}  // namespace LP_Engine
