#include "lp/LpCheck.h"

#include "desktop/dialogs.h"
#include "shell/checks.h"

namespace VtLP {
namespace {

constexpr std::string_view kForm = "frmLPproblem";

// Whether the cell holds a text; an empty one is reported and selected.
bool HasText(Grid& grid, int row, int column, std::string_view message)
{
    if (!grid.Text(row, column).empty()) return true;
    grid.Select(row, column);
    return Refuse(message);
}

// The grid with the first cell that is missing; null: none is.
Grid* GridOfMissingCell()
{
    Grid& objective = GridOn(kForm, ArrayGrid(0));
    for (int column = 1; column < objective.Columns(); ++column)
        if (!HasText(objective, 0, column, "Variable Name Not Entered.")) return &objective;

    Grid& constraints = GridOn(kForm, ArrayGrid(1));
    const int rightHandSide = constraints.Columns() - 1;
    for (int row = 1; row < constraints.Rows(); ++row) {
        if (!HasText(constraints, row, rightHandSide - 1, "Relation Not Entered.")) return &constraints;
        if (!HasText(constraints, row, rightHandSide, "RHS Value Not Entered.")) return &constraints;
    }
    return nullptr;
}

}  // namespace

bool Check()
{
    Grid* missing = nullptr;
    {
        const CheckingIndicator indicator;
        missing = GridOfMissingCell();
    }
    if (missing != nullptr) missing->SetFocus();
    return missing == nullptr;
}

}  // namespace VtLP
