#include "decision/frmDecisionProblem.h"

#include <string>

#include "decision/VtDecisionAnalysis.h"
#include "qt/card.h"
#include "qt/fields.h"
#include "qt/icon.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"

frmDecisionProblem::frmDecisionProblem(QWidget* parent) : qt::ChildForm(parent)
{
    QVBoxLayout* page = qt::MakePage(this);
    page->setSpacing(2 * page->spacing());  // the tables stand apart
    AddIntroduction(page);
    AddGrid(page, 0, "Payoffs");
    AddGrid(page, 1, "State of Nature Probabilities");
    AddGrid(page, 2, "Probabilities of Indicator Outcomes");
    page->addStretch();
    setFocusProxy(Grid[0]);
    auto* history = new qt::GridHistory(
        {.Numbers = Decision::Numbers, .TakeNumbers = Decision::TakeNumbers, .Display = DisplayProblem},
        this);
    for (qt::EntryGrid* grid : Grid)
        history->Watch(*grid);
}

// The shell fills it and takes it away with the first problem.
void frmDecisionProblem::AddIntroduction(QVBoxLayout* page)
{
    QBoxLayout* card = qt::AddCard(page, qt::ModuleIcon(Session.CurrentModule));
    qt::PassClickToMenu(qt::AddText(card, "txtLoadInfo", "What the module does"));
    qt::AddLabel(card, "lblLoadInfo", "");
}

void frmDecisionProblem::AddGrid(QVBoxLayout* page, int index, std::string_view description)
{
    const std::string name = "Grid(" + std::to_string(index) + ")";
    auto* grid = new qt::EntryGrid(name.c_str(), description, Rules(index));
    grid->ShowRows(Decision::kMost);
    grid->hide();
    page->addWidget(grid);
    Grid.at(static_cast<std::size_t>(index)) = grid;
}

qt::EntryRules frmDecisionProblem::Rules(int index)
{
    qt::EntryRules rules;
    rules.Key = [](int, int, char, bool) { return qt::KeyAnswer::Taken; };
    rules.Commit = [index](int row, int column, std::string_view text) {
        return Decision::CommitCell(index, row, column, text) != kCellRefused;
    };
    rules.LeaveForward = [this, index] { EnterNextGrid(index, 1); };
    rules.LeaveBackward = [this, index] { EnterNextGrid(index, -1); };
    return rules;
}

void frmDecisionProblem::EnterNextGrid(int from, int step)
{
    const int count = static_cast<int>(Grid.size());
    for (int i = 1; i <= count; ++i) {
        qt::EntryGrid* grid = Grid.at(static_cast<std::size_t>((from + count + i * step) % count));
        if (grid->isHidden()) continue;
        ::Grid& cells = grid->Cells();
        const bool forward = step > 0;
        cells.Select(forward ? 1 : cells.Rows() - 1, forward ? 1 : cells.Columns() - 1);
        cells.SetFocus();
        return;
    }
}
