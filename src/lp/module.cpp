#include "lp/module.h"

#include <memory>

#include "basic/error.h"
#include "desktop/desktop.h"
#include "lp/IntegerTypes.h"
#include "lp/LP_Engine.h"
#include "lp/LpCheck.h"
#include "lp/LpMeaning.h"
#include "lp/LpPicture.h"
#include "lp/LpReport.h"
#include "lp/LpSteps.h"
#include "lp/SecondOpinion.h"
#include "lp/VtLP.h"
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
    if (!VtLP::AskIntegerChoice()) {
        desktop::TheForms().FocusMenu();
        return false;
    }
    screen.SetPointer(Pointer::Hourglass);
    return true;
}

// What the ends without a report say: a search that is broken off, or that ran out of room, says nothing.
SolveOutcome Told(LP_Engine::Outcome end)
{
    if (end == LP_Engine::Outcome::Optimal) return {};
    if (end == LP_Engine::Outcome::Infeasible) return {.Solved = false, .Before = {{"No Feasible Solution"}}};
    if (end == LP_Engine::Outcome::Unbounded) return {.Solved = false, .Before = {{"Problem is Unbounded."}}};
    return {.Solved = false, .BrokenOff = true};
}

SolveOutcome Solve()
{
    LP_Engine::Result = LP_Engine::Solve(VtLP::Problem, VtLP::MinimizeFlag == 1, Session.IntegerProblem == 1);
    return Told(LP_Engine::Result.End);
}

// The solve before printing may be broken off like any other; the command tells it.
void WriteReport(ReportChannel& out)
{
    const LP_Engine::LpResult& result = LP_Engine::Result;
    if (result.End == LP_Engine::Outcome::Interrupted || result.End == LP_Engine::Outcome::OutOfRoom)
        Raise(result.Error);
    WriteLpReport(out, result);
}

// Asked on a copy, beside the program; told in it.
SecondInquiry SecondOpinion()
{
    const auto result = std::make_shared<const LP_Engine::LpResult>(LP_Engine::Result);
    if (!result->Solved || result->NumColumns == 0) return {};
    return [result](const std::stop_token& stop) -> SecondTelling {
        const LP_Engine::OtherResult other = LP_Engine::AskOther(*result, stop);
        return [result, other] { return LP_Engine::Compared(*result, other); };
    };
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
    return {.Ask = VtLP::AskFeatures,
            .FormLoaded = [] { ShowDisplayItem(true); },
            .Fill = VtLP::ModelToGrid,
            .FirstGrid = "Grid(0)",
            .FocusesStoredToo = true,
            .Numbers = VtLP::Numbers,
            .TakeNumbers = VtLP::TakeNumbers,
            .Check = VtLP::Check,
            .Prepare = Prepare,
            .Solve = Solve,
            .Page = [](ReportChannel& page) { ShowLpReport(page, LP_Engine::Result); },
            .FirstEditItem = 3,
            .LastEditItem = 7,
            .EditItems = {"Add Constraints", "Delete Constraint", "Add Variables", "Delete Variable",
                          "Change Optimization Type"},
            .SeparatesEditItems = true,
            .EditCommand = EditCommand,
            .FinishEdit = [](TopMenu) { VtLP::FinishEdit(); },
            .Reports = {WriteReport},
            .Pictures = [] { return LP_Engine::Pictures(LP_Engine::Result); },
            .Steps = [] { return LP_Engine::Steps(LP_Engine::Result); },
            .Meaning = [] { return LP_Engine::Meaning(LP_Engine::Result); },
            .Opinion = SecondOpinion,
            .Write = Write,
            .Read = Read};
}

ModuleRoutines LinearRoutines()
{
    ModuleRoutines routines = CommonRoutines();
    routines.BeforeReport = VtLP::GridToModel;
    routines.SolvesBeforeReport = true;
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
