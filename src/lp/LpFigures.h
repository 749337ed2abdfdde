// The figures of a report: values, slacks, reduced costs and dual prices, and how a number of this problem is
// written.
#pragma once

#include <string>

#include "lp/LP_Engine.h"

namespace LP_Engine {

// Of an optimal result.
struct Figures {
    double Objective = 0;         // in the problem's own sense
    Array1<double> Values;        // by variable
    Array1<double> ReducedCosts;  // by variable, without their sign
    Array1<double> Slacks;        // by constraint: slack or surplus
    Array1<double> Prices;  // by constraint: what the objective improves by a unit of the right-hand side
    Array1<std::int16_t> BasicRowOf;  // by column: its row position, or 0
};

Figures FiguresOf(const LpResult& result);

// The slack, surplus or artificial that stands first among the logical columns of the constraint.
int LogicalColumn(const LpResult& result, int constraint);

// Number pattern of 15 characters with the problem's decimals. "Invalid procedure call or argument" when a
// number of the problem has more than 13.
std::string ReportPattern(const VtLP::LpProblem& problem);

// The problem's decimals; more than 13 are 13.
int PlacesOf(const VtLP::LpProblem& problem);
// A number with as many, without blanks.
std::string NumberText(const VtLP::LpProblem& problem, double value);

// What a column is worth where the method stands.
double ColumnValue(const LpResult& at, int column);

// The name of a column: the variable's own, "slack 2", "surplus 3" or "artificial 3".
std::string ColumnName(const LpResult& at, int column);
// The constraint of a logical column.
int ConstraintOf(const LpResult& at, int column);

// Of an integer program, by variable: 1 for those that may be 0 or 1 only.
Array1<std::int16_t> BinaryVariables(const LpResult& result);

// The constraint as it was typed: "3X1+2X2<18".
std::string ConstraintText(const VtLP::LpProblem& problem, int constraint);

}  // namespace LP_Engine
