// The walk over the grids of `frmLPproblem` that Solve and Save begin with.
#pragma once

namespace VtLP {

// Names, relations and right-hand sides are there; what is missing is told and selected. Coefficients were
// checked when they were typed, an empty one is 0.
bool Check();

}  // namespace VtLP
