#include "tableau/frmProblem.h"

#include "qt/card.h"
#include "qt/fields.h"
#include "qt/icon.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"

frmProblem::frmProblem(QWidget* parent) : qt::ChildForm(parent)
{
    QVBoxLayout* page = qt::MakePage(this);
    AddIntroduction(page);
    AddProblem(page);
    page->addStretch();
    setFocusProxy(gridDisplayEdit);
    const ModuleRoutines* routines = CurrentModule().Routines;
    if (routines == nullptr || !routines->Numbers) return;
    auto* history = new qt::GridHistory(
        {.Numbers = routines->Numbers, .TakeNumbers = routines->TakeNumbers, .Display = DisplayProblem},
        this);
    history->Watch(*gridDisplayEdit);
}

// The shell fills it and takes it away with the first problem.
void frmProblem::AddIntroduction(QVBoxLayout* page)
{
    QBoxLayout* card = qt::AddCard(page, qt::ModuleIcon(Session.CurrentModule));
    qt::PassClickToMenu(qt::AddText(card, "txtLoadInfo", "What the module does"));
    qt::AddLabel(card, "lblLoadInfo", "");
}

void frmProblem::AddProblem(QLayout* page)
{
    for (const char* name : {"lblTitle", "lblgridcaption"}) {
        QLabel* heading = qt::AddLabel(page, name, "");
        if (heading->objectName() == "lblTitle") qt::ShowAsTitle(heading);
        heading->hide();
    }
    gridDisplayEdit = new qt::EntryGrid("gridDisplayEdit", "Problem data", Rules());
    gridDisplayEdit->hide();
    page->addWidget(gridDisplayEdit);
    page->setAlignment(gridDisplayEdit, Qt::AlignLeft);
    QLabel* advice = qt::AddLabel(page, "lblInfo", "");
    qt::PassClickToMenu(advice);
    qt::ShowAsNote(advice);
    advice->hide();
}

bool frmProblem::IsClosed(int row, int column) const
{
    Grid& cells = gridDisplayEdit->Cells();
    return CurrentModule().Routines->CornerIsClosed && row == cells.Rows() - 1 &&
           column == cells.Columns() - 1;
}

qt::EntryRules frmProblem::Rules() const
{
    qt::EntryRules rules;
    rules.Key = [](int, int, char character, bool) { return qt::NumberKey(character); };
    rules.Commit = [](int row, int column, std::string_view text) {
        return CommitCell(row, column, text) != kCellRefused;
    };
    rules.ClickAlwaysCommits = true;
    rules.Closed = [this](int row, int column) { return IsClosed(row, column); };
    return rules;
}
