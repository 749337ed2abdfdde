#include "lp/lp_problem.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "lp/LP_Engine.h"
#include "lp/VtLP.h"

void SetProblem(const Lp& lp)
{
    VtLP::AllocateLpModel();
    VtLP::LpProblem& problem = VtLP::Problem;
    problem.NumVariables = static_cast<std::int16_t>(lp.Objective.size());
    problem.NumConstraints = static_cast<std::int16_t>(lp.Rows.size());
    VtLP::MinimizeFlag = lp.Minimize ? 1 : 0;
    for (int j = 1; j <= problem.NumVariables; ++j) {
        problem.LpVariableNames(j) = "X" + std::to_string(j);
        problem.LpCoefficients(0, j) = lp.Objective[static_cast<std::size_t>(j) - 1];
    }
    for (int i = 1; i <= problem.NumConstraints; ++i) {
        const LpRow& row = lp.Rows[static_cast<std::size_t>(i) - 1];
        problem.LpRelations(i) = row.Relation == '<'   ? VtLP::kLess
                                 : row.Relation == '=' ? VtLP::kEqual
                                                       : VtLP::kGreater;
        problem.LpCoefficients(i, 0) = row.RightHandSide;
        for (int j = 1; j <= problem.NumVariables; ++j)
            problem.LpCoefficients(i, j) = row.Coefficients[static_cast<std::size_t>(j) - 1];
    }
}

void SolveModel(bool integer)
{
    LP_Engine::Result = LP_Engine::Solve(VtLP::Problem, VtLP::MinimizeFlag == 1, integer);
}

void Solve(const Lp& lp)
{
    SetProblem(lp);
    SolveModel();
}

void SolveInteger(const Lp& lp, const std::vector<std::string>& typeLines)
{
    SetProblem(lp);
    int line = VtLP::kObjectiveLine + VtLP::Problem.NumConstraints;
    for (const std::string& text : typeLines)
        VtLP::Problem.LpLines(++line) = text;
    SolveModel(true);
}

std::vector<double> Values()
{
    const LP_Engine::BasisState& basis = LP_Engine::Result.Basis;
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(VtLP::Problem.NumVariables));
    for (int j = 1; j <= VtLP::Problem.NumVariables; ++j)
        values.push_back(basis.ColumnStatus(j) == LP_Engine::kAtUpper ? basis.UpperBound(j)
                                                                      : basis.LowerBound(j));
    for (int r = 1; r <= VtLP::Problem.NumConstraints; ++r)
        if (basis.BasisList(r) <= VtLP::Problem.NumVariables)
            values[static_cast<std::size_t>(basis.BasisList(r)) - 1] = basis.BasicValues(r);
    return values;
}

double Objective()
{
    const LP_Engine::LpResult& result = LP_Engine::Result;
    return result.Minimize ? -result.ObjectiveValue : result.ObjectiveValue;
}

double Activity(const LpRow& row, const std::vector<double>& values)
{
    return std::inner_product(row.Coefficients.begin(), row.Coefficients.end(), values.begin(), 0.0);
}

double Violation(const Lp& lp, const std::vector<double>& values)
{
    double worst = 0;
    for (const double value : values)
        worst = std::max(worst, -value);
    for (const LpRow& row : lp.Rows) {
        const double over = Activity(row, values) - row.RightHandSide;
        if (row.Relation == '<') worst = std::max(worst, over);
        if (row.Relation == '>') worst = std::max(worst, -over);
        if (row.Relation == '=') worst = std::max(worst, std::abs(over));
    }
    return worst;
}
