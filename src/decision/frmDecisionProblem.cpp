#include "decision/frmDecisionProblem.h"

#include <string>

#include "decision/VtDecisionAnalysis.h"
#include "qt/fields.h"
#include "shell/module.h"

frmDecisionProblem::frmDecisionProblem(QWidget* parent) : qt::ChildForm(parent)
{
    setObjectName("frmDecisionProblem");
    setWindowTitle("Decision Analysis");
    auto* page = new QVBoxLayout(this);
    AddIntroduction(page);
    constexpr std::array kDescriptions = {"Payoffs", "State of Nature Probabilities",
                                          "Probabilities of Indicator Outcomes"};
    for (int index = 0; index < static_cast<int>(Grid.size()); ++index) {
        qt::EntryGrid*& grid = Grid.at(static_cast<std::size_t>(index));
        grid = MakeGrid(index, kDescriptions.at(static_cast<std::size_t>(index)));
        grid->hide();
        page->addWidget(grid);
    }
    page->addStretch();
}

void frmDecisionProblem::AddIntroduction(QVBoxLayout* page)
{
    for (const char* name : {"txtLoadInfo", "lblLoadInfo"})
        qt::PassClickToMenu(qt::AddLabel(page, name, ""));
}

qt::EntryGrid* frmDecisionProblem::MakeGrid(int index, std::string_view description)
{
    const std::string name = "Grid(" + std::to_string(index) + ")";
    qt::EntryRules rules;
    rules.Key = [](int, int, char, bool) { return qt::KeyAnswer::Taken; };
    rules.Commit = [index](int row, int column, std::string_view text) {
        return Decision::CommitCell(index, row, column, text) != kCellRefused;
    };
    rules.Tab = qt::TabEnd::Leaves;
    rules.LeaveForward = [this, index] { EnterNextGrid(index, 1); };
    rules.LeaveBackward = [this, index] { EnterNextGrid(index, -1); };
    auto* grid = new qt::EntryGrid(name.c_str(), description, rules);
    grid->FitHeight(Decision::kMost + 1);
    return grid;
}

void frmDecisionProblem::EnterNextGrid(int from, int step)
{
    const int count = static_cast<int>(Grid.size());
    for (int i = 1; i <= count; ++i) {
        qt::EntryGrid* grid = Grid.at(static_cast<std::size_t>((from + count + i * step) % count));
        if (!grid->isVisible()) continue;
        const bool forward = step > 0;
        grid->Cells().Select(forward ? 1 : grid->Rows() - 1, forward ? 1 : grid->Columns() - 1);
        grid->setFocus();
        return;
    }
}
