// The walks over the entry grids that Solve and Save begin with. Each answers whether the problem may be
// used; a failed one has told the user why.
#pragma once

#include <functional>
#include <string>
#include <string_view>

// Commits what is being typed into a grid of the problem form; every command that uses the problem begins
// with it. False: it was refused, and told; the cell has the focus.
bool FinishTyping();

// Grid(0) and Grid(1) of `frmLPproblem`: names, relations and right-hand sides are there.
bool CheckLinearProgram();

// Every cell of `gridDisplayEdit` through the module's CommitCell.
bool CheckTableau();

// The same, and every row of stored probabilities (row, column) must add up to 1.
bool CheckProbabilityTableau(const std::function<double(int row, int column)>& probability);

// The grids of `frmDecisionProblem`.
struct DecisionGrids {
    std::function<int(int pass, int row, int column, std::string_view text)> Commit = {};
    std::function<bool(int pass)> Runs = {};                                // pass 0 always does
    std::function<double(int pass, int row, int column)> Probability = {};  // passes 1 and 2
    std::function<int(int pass)> Count = {};  // what the warning names: states (pass 1), outcomes (pass 2)
};
bool CheckDecision(const DecisionGrids& grids);

// One cell's code: asks about the first empty cell; a refused one is blank then and waits to be entered
// again. False: the command ends. The indicator is not touched.
bool AcceptCell(int code, std::string_view form, std::string_view grid, int row, int column);
