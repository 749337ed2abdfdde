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

}  // namespace LP_Engine
