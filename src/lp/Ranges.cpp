#include "lp/Ranges.h"

#include <algorithm>
#include <cmath>

namespace LP_Engine {
namespace {

constexpr double RangeInfinity = 1e15;

Range NonbasicRange(bool minimize, double c, double d)
{
    if (minimize) return {ZeroRounded(d - c), ZeroRounded(-c), std::nullopt};
    return {std::nullopt, ZeroRounded(c), ZeroRounded(-d + c)};
}

// How far a coefficient may go up and down.
struct Allowance {
    double Increase = RangeInfinity;
    double Decrease = -RangeInfinity;
};

Allowance AllowanceOf(const LpResult& result, const double* row, Array1<double>& reducedCosts)
{
    Allowance allowed;
    const std::int16_t* kinds = result.Basis.ColumnKind.Data();
    for (int k = 1; k <= result.NumColumns; ++k) {
        double& d = reducedCosts.Data()[k];
        if (d > 0) d = 0;
        const std::int16_t kind = kinds[k];
        if (kind >= 0 || kind == -kArtificial) continue;
        if (row[k] < -RangeTolerance)
            allowed.Increase = std::min(allowed.Increase, d / row[k]);
        else if (row[k] > RangeTolerance)
            allowed.Decrease = std::max(allowed.Decrease, d / row[k]);
    }
    return allowed;
}

Range BasicRange(bool minimize, double c, const Allowance& allowed)
{
    std::optional<double> down;
    std::optional<double> up;
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

Array1<std::int16_t> BasicRows(const LpResult& result)
{
    Array1<std::int16_t> rows(result.NumColumns);
    for (int r = 1; r <= result.Problem.NumConstraints; ++r)
        rows(result.Basis.BasisList(r)) = static_cast<std::int16_t>(r);
    return rows;
}

Array2<double> Tableau(const LpResult& result)
{
    Array2<double> block = result.Coefficients;
    result.Basis.Factors.SolveBlock(1, result.NumColumns + 1, block);
    return block;
}

Range ObjectiveRange(const LpResult& result, const Array2<double>& tableau, int variable, int basicRow,
                     Array1<double>& reducedCosts)
{
    const double c = result.Coefficients(0, variable);
    if (result.Basis.ColumnKind(variable) < 0)
        return NonbasicRange(result.Minimize, c, reducedCosts(variable));
    return BasicRange(result.Minimize, c, AllowanceOf(result, tableau.Row(basicRow), reducedCosts));
}

Range RightHandSideRange(const LpResult& result, const Array2<double>& tableau, int constraint)
{
    const int column = result.ConstraintColumn(constraint);
    double first = RangeInfinity;
    double second = -RangeInfinity;
    const double* values = result.Basis.BasicValues.Data();
    for (int r = 1; r <= result.Problem.NumConstraints; ++r) {
        const double x = std::max(values[r], 0.0);
        const double a = tableau.Row(r)[column];
        if (a > RangeTolerance)
            first = std::min(first, x / a);
        else if (a < -RangeTolerance)
            second = std::max(second, x / a);
    }
    const double b = result.Coefficients(constraint, 0);
    Range range{std::nullopt, ZeroRounded(b), std::nullopt};
    if (first < RangeInfinity) range.Lower = ZeroRounded(b - first);
    if (-second < RangeInfinity) range.Upper = ZeroRounded(b - second);
    return range;
}

}  // namespace LP_Engine
