#include "lp/frmLPproblem.h"

#include <array>

#include "lp/VtLP.h"
#include "qt/card.h"
#include "qt/fields.h"
#include "qt/icon.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"

namespace {

constexpr std::array<const char*, 2> kNames = {"Grid(0)", "Grid(1)"};
constexpr std::array<const char*, 2> kDescriptions = {"Variable names and objective function", "Constraints"};

qt::KeyAnswer AnswerTo(VtLP::Key key)
{
    if (key == VtLP::Key::Taken) return qt::KeyAnswer::Taken;
    return key == VtLP::Key::Beeps ? qt::KeyAnswer::Refused : qt::KeyAnswer::Told;
}

}  // namespace

frmLPproblem::frmLPproblem(QWidget* parent) : qt::ChildForm(parent)
{
    QVBoxLayout* page = qt::MakePage(this);
    AddIntroduction(page);
    AddProblem(page);
    page->addStretch();
    setFocusProxy(grids_[0]);
    auto* history = new qt::GridHistory(
        {.Numbers = VtLP::Numbers, .TakeNumbers = VtLP::TakeNumbers, .Display = DisplayProblem}, this);
    for (qt::EntryGrid* grid : grids_)
        history->Watch(*grid);
}

// The shell fills it and takes it away with the first problem.
void frmLPproblem::AddIntroduction(QVBoxLayout* page)
{
    QBoxLayout* card = qt::AddCard(page, qt::ModuleIcon(Session.CurrentModule));
    qt::PassClickToMenu(qt::AddText(card, "txtLoadInfo", "What the module does"));
    qt::PassClickToMenu(qt::AddLabel(card, "lblLoadInfo", ""));
}

void frmLPproblem::AddProblem(QLayout* page)
{
    QLabel* type = qt::AddLabel(page, "lblopttype", "");
    qt::PassClickToMenu(type);
    qt::ShowAsTitle(type);
    type->hide();
    grids_[0] = AddGrid(page, 0);
    grids_[1] = AddGrid(page, 1);
    grids_[0]->AlignWith(*grids_[1]);
    grids_[0]->ShowRows(2);
    grids_[0]->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);  // the constraints give way
    QLabel* advice = qt::AddLabel(
        page, "lblInfo",
        "Note:  Decision variable names can be changed if desired.  Enter Objective function coefficients in "
        "the objective function portion of the input screen.  In the constraints section, enter constraint "
        "coefficients, constraint relationship (<, =, >), and constraint right-hand-side.  Do not enter "
        "nonnegativity constraints.");
    qt::PassClickToMenu(advice);
    qt::ShowAsNote(advice);
    advice->hide();
}

qt::EntryGrid* frmLPproblem::AddGrid(QLayout* page, int index)
{
    const auto i = static_cast<std::size_t>(index);
    auto* grid = new qt::EntryGrid(kNames.at(i), kDescriptions.at(i), Rules(index));
    grid->hide();
    page->addWidget(grid);
    return grid;
}

// Tab goes round through both grids.
qt::EntryRules frmLPproblem::Rules(int index)
{
    qt::EntryRules rules;
    rules.Key = [index](int row, int column, char character, bool first) {
        return AnswerTo(VtLP::JudgeKey(index, row, column, character, first));
    };
    rules.Commit = [index](int row, int column, std::string_view text) {
        return VtLP::ValidateCell(index, row, column, text) != kCellRefused;
    };
    if (index == 0)
        rules.Edited = [](int row, int column) {
            if (row == 0) VtLP::MirrorName(column);
        };
    rules.RestoresRefused = true;
    rules.BackspaceOnlyTyped = true;
    rules.DeleteNotInEdit = true;
    rules.EnterBeepsAtLastRow = true;
    rules.LeaveForward = [this] { GoToConstraints(); };
    rules.LeaveBackward = [this] { GoToObjective(); };
    return rules;
}

// The cell behind the objective's last one, and behind the last one of the constraints as well.
void frmLPproblem::GoToConstraints()
{
    Grid& cells = grids_[1]->Cells();
    if (cells.Rows() > 1) cells.Select(1, 1);
    cells.SetFocus();
}

void frmLPproblem::GoToObjective()
{
    Grid& cells = grids_[0]->Cells();
    cells.Select(cells.Rows() - 1, cells.Columns() - 1);
    cells.SetFocus();
}
