#include "lp/module.h"

#include "basic/error.h"
#include "desktop/desktop.h"
#include "lp/LP_Engine.h"
#include "lp/LpReport.h"
#include "lp/VtLP.h"
#include "shell/checks.h"
#include "shell/commands.h"
#include "shell/session.h"

namespace {

void Write(RecordWriter& file)
{
    VtLP::GridToModel();
    const int lines = VtLP::Problem.NumConstraints + 1;
    file.Write({static_cast<double>(lines)});
    for (int i = 0; i < lines; ++i)
        file.Write({VtLP::Problem.LpLines(VtLP::kObjectiveLine + i)});
}

void Read(RecordReader& file)
{
    VtLP::AllocateLpModel();
    const int lines = file.ReadInt16();
    if (lines < 1 || lines > VtLP::kMostConstraints + 1) Raise(ErrorNumber::SubscriptOutOfRange);
    for (int i = 0; i < lines; ++i)
        VtLP::Problem.LpLines(VtLP::kObjectiveLine + i) = file.ReadString();
    VtLP::Problem.NumConstraints = static_cast<std::int16_t>(lines - 1);
    VtLP::ParseLpLines();
}

// Builds the problem from the grids; the integer module then asks which variables are whole.
bool Prepare()
{
    Screen& screen = desktop::TheScreen();
    screen.SetPointer(Pointer::Hourglass);
    VtLP::GridToModel();
    if (Session.IntegerProblem != 1) return true;
    screen.SetPointer(Pointer::Normal);
    desktop::TheForms().ShowModal("frmIP");
    if (Session.DialogCancelled) {
        desktop::TheForms().FocusMenu();
        return false;
    }
    screen.SetPointer(Pointer::Hourglass);
    return true;
}

// A solve uses the problem up, and the report needs what it leaves behind.
void SolveAgain()
{
    VtLP::GridToModel();
    LP_Engine::Solve();
}

void EditCommand(int item)
{
    if (item == 3) VtLP::AddConstraints();
    if (item == 4) VtLP::DeleteConstraint();
    if (item == 5) VtLP::AddVariables();
    if (item == 6) VtLP::DeleteVariable();
    if (item == 7) VtLP::ChangeOptimizationType();
}

ModuleRoutines CommonRoutines()
{
    return {.Dimension = VtLP::NewLpProblem,
            .FormLoaded = [] { ShowDisplayItem(true); },
            .Display = VtLP::ModelToGrid,
            .Check = CheckLinearProgram,
            .Prepare = Prepare,
            .SolveAndShow = LP_Engine::Solve,
            .ShellShowsSolving = true,
            .FirstEditItem = 3,
            .LastEditItem = 7,
            .SolveDisablesEditItems = true,
            .EditItems = {"Add Constraints", "Delete Constraint", "Add Variables", "Delete Variable",
                          "Change Optimization Type"},
            .EditCommand = EditCommand,
            .FinishEdit = [](TopMenu) { VtLP::FinishEdit(); },
            .Reports = {WriteLpReport},
            .Write = Write,
            .Read = Read};
}

ModuleRoutines LinearRoutines()
{
    ModuleRoutines routines = CommonRoutines();
    routines.BeforeReport = SolveAgain;
    return routines;
}

}  // namespace

const ModuleRoutines& LinearProgramming()
{
    static const ModuleRoutines routines = LinearRoutines();
    return routines;
}

const ModuleRoutines& IntegerLinearProgramming()
{
    static const ModuleRoutines routines = CommonRoutines();
    return routines;
}
