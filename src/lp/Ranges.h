// Sensitivity of an optimal linear program: reduced costs, dual prices, and how far a coefficient of the
// objective or a right-hand side may move before another basis becomes optimal. All figures come from the
// state that LP_Engine leaves.
#pragma once

#include <cstdint>
#include <optional>

#include "basic/array.h"

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
Array1<std::int16_t> BasicRows();

// Writes the simplex tableau over the rows 1 to M of the coefficients, all columns.
void BuildTableau();

// These need the tableau. The range of a basic variable cuts reduced costs above zero to zero for good.
Range ObjectiveRange(int variable, int basicRow);
Range RightHandSideRange(int constraint);

}  // namespace LP_Engine
