#include "shell/checks.h"

#include "basic/format.h"
#include "desktop/desktop.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"

namespace {

constexpr std::string_view kTableauForm = "frmProblem";
constexpr std::string_view kTableauGrid = "gridDisplayEdit";

// Walks the tableau; false: a cell or (where there is a probability) a row was not accepted.
bool WalkTableau(const std::function<double(int row, int column)>& probability, bool& focusGrid)
{
    Grid& grid = GridOn(kTableauForm, kTableauGrid);
    const int rows = grid.Rows();
    const int columns = grid.Columns();
    for (int row = 1; row < rows; ++row) {
        double rowSum = 0;
        for (int column = 1; column < columns; ++column) {
            grid.Select(row, column);
            const int code = CommitCell(row, column, grid.Text(row, column));
            focusGrid = code == kCellRefused;
            if (!AcceptCell(code, kTableauForm, kTableauGrid, row, column)) return false;
            if (probability) rowSum += probability(row, column);
        }
        if (probability && !IsWholeProbability(rowSum)) {
            TellRowSum("The sum of the probabilities for the states", rowSum,
                       ".  PLEASE REENTER THE PROBABILITIES.");
            grid.Select(row, columns - 1);
            focusGrid = true;
            return false;
        }
    }
    return true;
}

}  // namespace

int EmptyCell()
{
    return Session.AskIncomplete ? kCellEmpty : kCellStored;
}

int RefuseCell(std::string_view message)
{
    Refuse(message);
    return kCellRefused;
}

CheckingIndicator::CheckingIndicator() : before_(desktop::TheScreen().Indicator())
{
    desktop::TheScreen().SetIndicator("Checking Problem Data. . .");
    desktop::TheScreen().Refresh();
}

CheckingIndicator::~CheckingIndicator()
{
    desktop::TheScreen().SetIndicator(before_);
    desktop::TheScreen().Refresh();
}

Grid& GridOn(std::string_view form, std::string_view grid)
{
    return desktop::TheForms().Loaded(form).GridOf(grid);
}

std::string ArrayGrid(int index)
{
    return "Grid(" + std::to_string(index) + ")";
}

// A row may miss 1 by rounding; the bounds are not alike on both sides.
bool IsWholeProbability(double rowSum)
{
    constexpr double kLeast = 0.9990001;
    constexpr double kMost = 1.001;
    return rowSum >= kLeast && rowSum <= kMost;
}

void TellRowSum(const std::string& beginning, double rowSum, std::string_view end)
{
    MsgBox(beginning + " must equal 1!!!  The probabilities that you have input sum to " +
               Format(rowSum, "0.000") + std::string(end),
           "WARNING");
}

bool AcceptCell(int code, std::string_view form, std::string_view grid, int row, int column)
{
    if (code == kCellEmpty && Session.AskIncomplete) {
        const Answer answer = MsgBox("Problem is incomplete.  Zeroes will be entered for empty cells",
                                     "Problem Incomplete", Icon::Exclamation, Buttons::OKCancel);
        if (answer != Answer::OK) return false;
        Session.AskIncomplete = false;
    }
    if (code != kCellRefused) return true;
    GridOn(form, grid).Reject(row, column);
    return false;
}

bool FinishTyping()
{
    const std::string& form = CurrentModule().ProblemForm;
    return !desktop::TheForms().IsLoaded(form) || desktop::TheForms().Loaded(form).FinishEdit();
}

bool CheckTableau()
{
    return CheckProbabilityTableau({});
}

bool CheckProbabilityTableau(const std::function<double(int row, int column)>& probability)
{
    bool focusGrid = false;
    bool accepted = false;
    {
        const CheckingIndicator indicator;
        accepted = WalkTableau(probability, focusGrid);
    }
    if (focusGrid) GridOn(kTableauForm, kTableauGrid).SetFocus();
    return accepted;
}
