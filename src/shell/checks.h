// The cells of the entry grids: what a commit answers, and the walks over all of them that Solve and Save
// begin with. Each walk answers whether the problem may be used; a failed one has told the user why.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "desktop/grid.h"

// Commits what is being typed into a grid of the problem form; every command that uses the problem begins
// with it. False: it was refused, and told; the cell has the focus.
bool FinishTyping();

// Every cell of `gridDisplayEdit` through the module's CommitCell.
bool CheckTableau();

// The same, and every row of stored probabilities (row, column) must add up to 1.
bool CheckProbabilityTableau(const std::function<double(int row, int column)>& probability);

// ---- what cell commits are made of ----

int EmptyCell();                           // the code of a cell without a text, which has stored a 0
int RefuseCell(std::string_view message);  // the code of a cell that is refused, once it has been told

// ---- what checks are made of ----

// "Checking Problem Data. . ." on the indicator while it lives.
class CheckingIndicator {
public:
    CheckingIndicator();
    ~CheckingIndicator();
    CheckingIndicator(const CheckingIndicator&) = delete;
    CheckingIndicator& operator=(const CheckingIndicator&) = delete;

private:
    std::string before_;
};

Grid& GridOn(std::string_view form, std::string_view grid);
std::string ArrayGrid(int index);  // "Grid(0)", of a control array

bool IsWholeProbability(double rowSum);
void TellRowSum(const std::string& beginning, double rowSum, std::string_view end);

// One cell's code: asks about the first empty cell; a refused one is blank then and waits to be entered
// again. False: the command ends. The indicator is not touched.
bool AcceptCell(int code, std::string_view form, std::string_view grid, int row, int column);
