#include "lp/LpFigures.h"

#include <algorithm>
#include <cmath>

#include "basic/entrytext.h"
#include "basic/format.h"
#include "lp/IntegerTypes.h"
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

int PlacesOf(const VtLP::LpProblem& problem)
{
    return std::min<int>(problem.LpDecimalPlaces, kPatternDigits);
}

std::string NumberText(const VtLP::LpProblem& problem, double value)
{
    return Format(value, "0." + std::string(static_cast<std::size_t>(PlacesOf(problem)), '0'));
}

double ColumnValue(const LpResult& at, int column)
{
    const BasisState& basis = at.Basis;
    for (int r = 1; r <= at.Problem.NumConstraints; ++r)
        if (basis.BasisList(r) == column) return basis.BasicValues(r);
    return basis.ColumnStatus(column) == kAtUpper ? basis.UpperBound(column) : basis.LowerBound(column);
}

int ConstraintOf(const LpResult& at, int column)
{
    int last = at.Problem.NumVariables;
    for (int i = 1; i <= at.Problem.NumConstraints; ++i) {
        last = at.ConstraintColumn(i);
        if (column <= last) return i;
    }
    return 0;
}

std::string ColumnName(const LpResult& at, int column)
{
    if (column <= at.Problem.NumVariables) return at.Problem.LpVariableNames(column);
    const int constraint = ConstraintOf(at, column);
    const std::int16_t relation = at.Problem.LpRelations(constraint);
    const bool isSlack = relation == VtLP::kLess;
    const bool isSurplus = relation == VtLP::kGreater && column != at.ConstraintColumn(constraint);
    return (isSlack ? "slack " : isSurplus ? "surplus " : "artificial ") + std::to_string(constraint);
}

Array1<std::int16_t> BinaryVariables(const LpResult& result)
{
    const VtLP::LpProblem& problem = result.Problem;
    Array1<std::int16_t> binary(problem.NumVariables);
    if (!result.Integer) return binary;
    const std::string& word = problem.LpLines(VtLP::TypeLine(problem));
    if (word == VtLP::kAllBinary) binary.Fill(1);
    if (!VtLP::IsListWord(word)) return binary;
    VtLP::ForEachListedName(problem, [&](const std::string& name, bool isBinary) {
        for (int j = 1; j <= problem.NumVariables; ++j) {
            if (problem.LpVariableNames(j) != UpperCase(name)) continue;
            binary(j) = isBinary ? 1 : 0;
            return;
        }
    });
    return binary;
}

std::string ConstraintText(const VtLP::LpProblem& problem, int constraint)
{
    const std::string& typed = problem.LpLines(VtLP::kObjectiveLine + constraint);
    if (!typed.empty()) return typed;
    std::string text;
    for (int j = 1; j <= problem.NumVariables; ++j) {
        const double a = problem.LpCoefficients(constraint, j);
        if (a == 0) continue;
        if (a > 0 && !text.empty()) text += '+';
        text += EntryText(a) + problem.LpVariableNames(j);
    }
    const std::int16_t relation = problem.LpRelations(constraint);
    text += relation == VtLP::kLess ? '<' : relation == VtLP::kEqual ? '=' : '>';
    return text + EntryText(problem.LpCoefficients(constraint, 0));
}

}  // namespace LP_Engine
