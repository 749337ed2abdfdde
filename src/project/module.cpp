#include "project/module.h"

#include "basic/error.h"
#include "desktop/desktop.h"
#include "project/PertMeaning.h"
#include "project/PertPicture.h"
#include "project/PertReport.h"
#include "project/PertSteps.h"
#include "project/VtPert_CPM.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "shell/solution.h"

namespace VtPert_CPM {
namespace {

constexpr std::string_view kEntryForm = "frmPERT_CPM";

bool CloseEntryForm()
{
    desktop::TheForms().Unload(kEntryForm);
    Session.NewProblem = false;
    return true;
}

SolveOutcome Solve()
{
    Calculate();
    return {};
}

void ReturnToProblem()
{
    UnloadSolution();
    Fill();
    Menus.SetEnabled(EditItemName(0), false);
    desktop::TheForms().FocusMenu();
}

void FinishEdit(TopMenu menu)
{
    if (menu != TopMenu::Edit && CheckTimeBoxes) CheckTimeBoxes();
}

void Write(RecordWriter& file)
{
    Session.NewProblem = false;
    const int n = Problem.NumActivities;
    file.Write({Problem.DecimalPlaces, Problem.TimeDecimals, static_cast<double>(n), Problem.TimeMode});
    for (int i = 1; i <= n; ++i)
        file.Write({Problem.ActivityTime(i), Problem.PredCount(i)});
    for (int i = 1; i <= n; ++i)
        for (int position = 1; position <= Problem.PredCount(i).Value(); ++position)
            file.Write({Problem.PredTable(position, i)});
    if (!HasThreeEstimates()) return;
    for (int i = 1; i <= n; ++i) {
        file.Write({Problem.OptimisticTime(i), Problem.ProbableTime(i)});
        file.Write({Problem.PessimisticTime(i), Problem.TimeVariance(i)});
    }
}

void Read(RecordReader& file)
{
    Problem.NumActivities = 0;
    MakeTable();
    Problem.DecimalPlaces = file.ReadVariant();
    Problem.TimeDecimals = file.ReadVariant();
    Problem.NumActivities = file.ReadCount();
    Problem.TimeMode = file.ReadVariant();
    const int n = Problem.NumActivities;
    for (int i = 1; i <= n; ++i) {
        Problem.ActivityTime(i) = file.ReadVariant();
        Problem.PredCount(i) = file.ReadVariant();
        if (Problem.PredCount(i).Value() < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    }
    for (int i = 1; i <= n; ++i)
        for (int position = 1; position <= Problem.PredCount(i).Value(); ++position)
            Problem.PredTable(position, i) = file.ReadVariant();
    if (!HasThreeEstimates()) return;
    for (int i = 1; i <= n; ++i) {
        Problem.OptimisticTime(i) = file.ReadVariant();
        Problem.ProbableTime(i) = file.ReadVariant();
        Problem.PessimisticTime(i) = file.ReadVariant();
        Problem.TimeVariance(i) = file.ReadVariant();
    }
}

}  // namespace
}  // namespace VtPert_CPM

const ModuleRoutines& PertCpm()
{
    static const ModuleRoutines routines{
        .Ask = VtPert_CPM::Ask,
        .LeavesNewProblem = true,
        .Fill = VtPert_CPM::Fill,
        .Prepare = VtPert_CPM::CloseEntryForm,
        .Solve = VtPert_CPM::Solve,
        .Page = VtPert_CPM::WritePertReport,
        .ReturnToProblem = VtPert_CPM::ReturnToProblem,
        .FinishEdit = VtPert_CPM::FinishEdit,
        .SecondForm = std::string(VtPert_CPM::kEntryForm),
        .Reports = {VtPert_CPM::PrintPertReport},
        .Pictures = [] { return VtPert_CPM::PertPictures(VtPert_CPM::Problem, VtPert_CPM::Result); },
        .Steps = [] { return VtPert_CPM::PertSteps(VtPert_CPM::Problem, VtPert_CPM::Result); },
        .Meaning = [] { return VtPert_CPM::PertMeaning(VtPert_CPM::Problem, VtPert_CPM::Result); },
        .Write = VtPert_CPM::Write,
        .Read = VtPert_CPM::Read,
    };
    return routines;
}
