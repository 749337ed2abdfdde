#include "lp/LP_Engine.h"

#include <string_view>

#include "desktop/dialogs.h"
#include "lp/IntegerSearch.h"
#include "lp/LpReport.h"
#include "lp/VtLP.h"
#include "shell/menus.h"
#include "shell/session.h"

namespace LP_Engine {
namespace {

constexpr int kBoundedColumns = 100;  // whatever the number of variables: the screen's limit

void MakeTables()
{
    using VtLP::ColumnCapacity;
    using VtLP::RowCapacity;
    State = {};
    State.CostVector = State.ReducedCosts = Array1<double>(ColumnCapacity);
    State.UpperBound = State.LowerBound = Array1<double>(ColumnCapacity);
    State.ColumnStatus = State.ColumnKind = State.IntegerColumn = Array1<std::int16_t>(ColumnCapacity);
    State.RightHandSide = State.BasicValues = Array1<double>(RowCapacity);
    State.PriceVector = State.DualVector = Array1<double>(RowCapacity);
    State.WorkColumn = State.PivotColumn = Array1<double>(RowCapacity);
    State.BasisList = State.ConstraintColumn = Array1<std::int16_t>(RowCapacity);
    for (int j = 1; j <= kBoundedColumns; ++j)
        State.UpperBound(j) = EngineInfinity;
}

bool SomeValueIsNegative()
{
    for (int i = 1; i <= VtLP::Problem.NumConstraints; ++i)
        if (State.BasicValues(i) < 0) return true;
    return false;
}

// False: unbounded.
bool SolveLinear()
{
    DualSteps();
    if (SomeValueIsNegative()) {
        State.SolvePhase = 1;
        return true;
    }
    return PrimalSteps();
}

void TellNoSolution(std::string_view message)
{
    Menus.EnablePrinting(false);
    MsgBox(message, "Solution", Icon::Information);
}

}  // namespace

void Solve()
{
    MakeTables();
    const bool integer = Session.IntegerProblem == 1;
    if (integer) ReadIntegerTypes();
    BuildColumns();
    const bool bounded = integer ? SearchIntegers() : SolveLinear();
    if (!bounded) {
        TellNoSolution("Problem is Unbounded.");
    } else if (State.SolvePhase == 1) {
        TellNoSolution("No Feasible Solution");
    } else {
        State.Solved = true;
        Menus.EnablePrinting(true);
        ShowLpReport();
    }
}

}  // namespace LP_Engine
