#include "lp/LpFigures.h"

#include <algorithm>
#include <cmath>

#include "lp/Ranges.h"

namespace LP_Engine {
namespace {

constexpr int kPatternDigits = 13;  // in front of the point and behind it, all in all

double BasicValue(const LpResult& result, int row)
{
    return std::max(result.Basis.BasicValues(row), 0.0);
}

double VariableValue(const LpResult& result, int variable, int row)
{
    const BasisState& basis = result.Basis;
    if (row > 0) return ZeroRounded(BasicValue(result, row));
    const bool atLower = basis.ColumnStatus(variable) == kAtLower;
    return ZeroRounded(atLower ? basis.LowerBound(variable) : basis.UpperBound(variable));
}

}  // namespace

int LogicalColumn(const LpResult& result, int constraint)
{
    int column = result.Problem.NumVariables + constraint;
    for (int i = 1; i < constraint; ++i)
        if (result.Problem.LpRelations(i) == VtLP::kGreater) ++column;
    return column;
}

Figures FiguresOf(const LpResult& result)
{
    const int n = result.Problem.NumVariables;
    const int m = result.Problem.NumConstraints;
    Figures figures{.Objective = result.Minimize ? -result.ObjectiveValue : result.ObjectiveValue,
                    .Values = Array1<double>(n),
                    .ReducedCosts = Array1<double>(n),
                    .Slacks = Array1<double>(m),
                    .Prices = Array1<double>(m),
                    .BasicRowOf = BasicRows(result)};
    for (int j = 1; j <= n; ++j) {
        figures.Values(j) = VariableValue(result, j, figures.BasicRowOf(j));
        figures.ReducedCosts(j) = std::abs(result.ReducedCosts(j));
    }
    for (int i = 1; i <= m; ++i) {
        const int row = figures.BasicRowOf(LogicalColumn(result, i));
        figures.Slacks(i) = row > 0 ? ZeroRounded(BasicValue(result, row)) : 0.0;
        figures.Prices(i) = ZeroRounded(result.DualVector(i));
    }
    return figures;
}

std::string ReportPattern(const VtLP::LpProblem& problem)
{
    const int decimals = problem.LpDecimalPlaces;
    if (decimals > kPatternDigits) Raise(ErrorNumber::InvalidProcedureCall);
    return std::string(static_cast<std::size_t>(kPatternDigits - decimals), '#') + "0." +
           std::string(static_cast<std::size_t>(decimals), '0');
}

}  // namespace LP_Engine
