#include "invariants.h"

#include <QApplication>
#include <QMenuBar>
#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "decision/VtDecisionAnalysis.h"
#include "desktop/desktop.h"
#include "forecasting/VtForecasting.h"
#include "lp/VtLP.h"
#include "markov/Markov.h"
#include "network/vtshrtrt.h"
#include "shell/session.h"
#include "tableau/VtTanda.h"

namespace {

// The tables to type in. That of a project is filled from the field below it.
std::vector<qt::EntryGrid*> GridsOnScreen()
{
    constexpr int kProject = 7;
    std::vector<qt::EntryGrid*> grids;
    if (Session.CurrentModule == kProject) return grids;
    for (QWidget* window : QApplication::topLevelWidgets())
        for (auto* grid : window->findChildren<qt::EntryGrid*>())
            if (grid->isVisible()) grids.push_back(grid);
    return grids;
}

std::string Place(const Grid& cells, int row, int column)
{
    return " in row " + std::to_string(row) + ", column " + std::to_string(column) + ": \"" +
           cells.Text(row, column) + "\"";
}

// The number that a text of a cell means; an empty one is 0.
double NumberIn(std::string text)
{
    std::erase(text, ',');
    return Val(text);
}

// Texts have 15 digits, so they need not be the number to the last bit.
bool Shows(double shown, double held, double tolerance = 0)
{
    constexpr double kFifteenDigits = 1e-14;
    return std::abs(shown - held) <= tolerance + kFifteenDigits * std::abs(held);
}

// A cost that needs a second decimal is kept within the range of the reports.
bool ShowsCost(double shown, double held)
{
    constexpr double kMost = 999999;
    constexpr double kMostWithTwoPlaces = 999.99;
    return Shows(shown, held) || (shown < -kMost && held == -kMost) ||
           (std::abs(shown) > kMostWithTwoPlaces && std::abs(held) == kMostWithTwoPlaces);
}

bool IsCellOfTableau(const Grid& cells, int row, int column)
{
    using Tableau::Problem;
    const double shown = NumberIn(cells.Text(row, column));
    const bool inRows = row <= Problem.NumOrigins;
    const bool inColumns = column <= Problem.NumDestinations;
    if (inRows && inColumns)
        return ShowsCost(shown, Problem.ArcCost(Tableau::ArcNumber(row, column)).Value());
    if (inRows) return Shows(Int(shown + 0.5), Problem.NodeSupply(row));
    return !inColumns || Shows(Int(shown + 0.5), -Problem.NodeSupply(Problem.NumOrigins + column));
}

// Lengths are kept in thousandths and drawn with two decimals.
bool IsCellOfNetwork(const Grid& cells, int row, int column)
{
    constexpr double kThousand = 1000;
    constexpr double kHalfHundredth = 0.00501;
    const double shown = NumberIn(cells.Text(row, column));
    const double held = Network::Problem.ArcTable(column, row);
    return column == Network::kLength ? Shows(shown, held / kThousand, kHalfHundredth) : Int(shown) == held;
}

bool IsCellOfForm(const Grid& cells, int row, int column)
{
    switch (Session.CurrentModule) {
        case 2:
        case 3:
            return IsCellOfTableau(cells, row, column);
        case 5:
        case 6:
            return IsCellOfNetwork(cells, row, column);
        case 11:
            return Shows(NumberIn(cells.Text(row, column)), VtForecasting::Problem.TimeSeries(row).Value());
        case 12:
            return Shows(NumberIn(cells.Text(row, column)), Markov::Probability(row, column));
        default:
            return true;
    }
}

bool IsDecisionCell(const QString& grid, const Grid& cells, int row, int column)
{
    const double shown = NumberIn(cells.Text(row, column));
    if (grid == "Grid(0)") return Shows(shown, Decision::Problem.Payoff(row, column));
    const int pass = grid == "Grid(1)" ? Decision::kStateProbabilities : Decision::kIndicatorProbabilities;
    return Shows(shown, Decision::Probability(pass, row, column));
}

bool IsCell(qt::EntryGrid& grid, int row, int column)
{
    const Grid& cells = grid.Cells();
    const bool typed = grid.IsEditing() && row == cells.Row() && column == cells.Column();
    if (typed) return true;
    if (grid.objectName() == "gridDisplayEdit") return IsCellOfForm(cells, row, column);
    if (Session.CurrentModule == 10) return IsDecisionCell(grid.objectName(), cells, row, column);
    return true;
}

std::string WrongCell(qt::EntryGrid& grid)
{
    const Grid& cells = grid.Cells();
    for (int row = 1; row < cells.Rows(); ++row)
        for (int column = 1; column < cells.Columns(); ++column)
            if (!IsCell(grid, row, column))
                return "a cell is not what the record holds" + Place(cells, row, column) + " of " +
                       grid.objectName().toStdString();
    return {};
}

std::string Trimmed(const std::string& text)
{
    return QString::fromStdString(text).trimmed().toStdString();
}

// The grids of a linear program are its record; what they share is the names and the sizes.
std::string WrongProgram(const Grid& objective, const Grid& constraints)
{
    if (objective.Columns() - 1 != VtLP::Problem.NumVariables)
        return "there are other variables than counted";
    if (constraints.Rows() - 1 != VtLP::Problem.NumConstraints)
        return "there are other constraints than counted";
    for (int column = 1; column < objective.Columns(); ++column)
        if (Trimmed(constraints.Text(0, column)) != objective.Text(0, column))
            return "a heading is not the name" + Place(objective, 0, column);
    return {};
}

std::string WrongTables()
{
    const auto grids = GridsOnScreen();
    const auto edits = [](const qt::EntryGrid* grid) { return grid->IsEditing(); };
    if (std::count_if(grids.begin(), grids.end(), edits) > 1) return "two cells are being typed at once";
    for (qt::EntryGrid* grid : grids)
        if (std::string wrong = WrongCell(*grid); !wrong.empty()) return wrong;
    const bool linear = Session.CurrentModule == 1 || Session.CurrentModule == 4;
    if (!linear || grids.size() != 2) return {};
    const bool inOrder = grids[0]->objectName() == "Grid(0)";
    return WrongProgram(grids[inOrder ? 0 : 1]->Cells(), grids[inOrder ? 1 : 0]->Cells());
}

bool TakesKeys(const QWidget* widget)
{
    return widget != nullptr && widget->isVisible() && widget->isEnabled();
}

}  // namespace

bool SomethingTakesTheNextKey()
{
    return QApplication::activePopupWidget() != nullptr || TakesKeys(QApplication::focusWidget()) ||
           TakesKeys(QApplication::activeWindow());
}

std::string WhatDoesNotHold()
{
    return Session.ProblemOnDisplay == "YES" ? WrongTables() : std::string();
}

TypedKey::TypedKey()
{
    for (qt::EntryGrid* grid : GridsOnScreen())
        grids_.push_back({grid, grid->State()});
}

std::string TypedKey::WhatDoesNotHold() const
{
    for (const Before& before : grids_) {
        if (before.Grid == nullptr || !before.Grid->isVisible()) continue;
        const qt::GridState after = before.Grid->State();
        if (after.Rows != before.State.Rows || after.Columns != before.State.Columns) continue;
        for (qsizetype i = 0; i < after.Texts.size(); ++i) {
            if (after.Texts[i] == before.State.Texts[i] || i < after.Columns) continue;  // headings follow
            const QModelIndex current = before.Grid->currentIndex();
            const bool isCurrent =
                i == static_cast<qsizetype>(current.row()) * after.Columns + current.column();
            if (!isCurrent) return "a key has changed another cell than the current one";
            if (!before.Grid->IsInUse()) return "a key has changed a cell of another table";
            const QRect seen = before.Grid->viewport()->rect();
            const QRect cell = before.Grid->visualRect(current);
            if (!seen.intersects(cell)) return "a key has changed a cell that is out of sight";
        }
    }
    return {};
}
