// Sensitivity of an optimal linear program: how far a coefficient of the objective or a right-hand side may
// move before another basis becomes optimal. All figures come from the result of the engine.
#pragma once

#include <optional>

#include "lp/LP_Engine.h"

namespace LP_Engine {

// Ten times the engine's own: an entry of 5e-5 may be pivoted on, but counts as zero here.
constexpr double RangeTolerance = 1e-4;

// 0 for a value below the tolerance.
double ZeroRounded(double value);

struct Range {
    std::optional<double> Lower;  // nothing: no limit
    double Current = 0;
    std::optional<double> Upper;
};

// The position of each basic column, 0 for the others. Index: column.
Array1<std::int16_t> BasicRows(const LpResult& result);

// The simplex tableau: rows by position from 1, columns 1 to NumColumns; row 0 and column 0 are not used.
Array2<double> Tableau(const LpResult& result);

// Reading the range of a basic variable cuts the reduced costs above zero to zero, for the variables behind
// it: what one report has cut stays so for the next.
Range ObjectiveRange(const LpResult& result, const Array2<double>& tableau, int variable, int basicRow,
                     Array1<double>& reducedCosts);
Range RightHandSideRange(const LpResult& result, const Array2<double>& tableau, int constraint);

}  // namespace LP_Engine
