// The walk over the grids of `frmDecisionProblem` that Solve and Save begin with.
#pragma once

namespace Decision {

// Every cell of the grids that the problem has is committed, and the probabilities of a row add up to 1; what
// is wrong is told and selected.
bool Check();

}  // namespace Decision
