#include "lp/LpCheck.h"

#include "desktop/dialogs.h"
#include "shell/checks.h"

namespace VtLP {
namespace {

constexpr std::string_view kForm = "frmLPproblem";

// Whether the cell holds a text; an empty one is reported and selected.
bool HasText(int gridIndex, int row, int column, std::string_view message)
{
    Grid& grid = GridOn(kForm, ArrayGrid(gridIndex));
    if (!grid.Text(row, column).empty()) return true;
    grid.Select(row, column);
    return Refuse(message);
}

// The grid of the first cell that is missing; -1: none is.
int GridOfMissingCell()
{
    const int names = GridOn(kForm, ArrayGrid(0)).Columns();
    for (int column = 1; column < names; ++column)
        if (!HasText(0, 0, column, "Variable Name Not Entered.")) return 0;

    const Grid& constraints = GridOn(kForm, ArrayGrid(1));
    const int rightHandSide = constraints.Columns() - 1;
    for (int row = 1; row < constraints.Rows(); ++row) {
        if (!HasText(1, row, rightHandSide - 1, "Relation Not Entered.")) return 1;
        if (!HasText(1, row, rightHandSide, "RHS Value Not Entered.")) return 1;
    }
    return -1;
}

}  // namespace

bool Check()
{
    int missing = -1;
    {
        const CheckingIndicator indicator;
        missing = GridOfMissingCell();
    }
    if (missing >= 0) GridOn(kForm, ArrayGrid(missing)).SetFocus();
    return missing < 0;
}

}  // namespace VtLP
