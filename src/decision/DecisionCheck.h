// The walk over the grids of `frmDecisionProblem` that Solve and Save begin with.
#pragma once

#include <functional>
#include <string_view>

namespace Decision {

struct Grids {
    std::function<int(int pass, int row, int column, std::string_view text)> Commit = {};
    std::function<bool(int pass)> Runs = {};                                // pass 0 always does
    std::function<double(int pass, int row, int column)> Probability = {};  // passes 1 and 2
    std::function<int(int pass)> Count = {};  // what the warning names: states (pass 1), outcomes (pass 2)
};
bool CheckGrids(const Grids& grids);

bool Check();  // the same on the problem

}  // namespace Decision
