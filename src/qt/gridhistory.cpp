#include "qt/gridhistory.h"

#include <QScopedValueRollback>
#include <QUndoCommand>
#include <cmath>

#include "qt/entrygrid.h"

namespace qt {
namespace {

bool IsSameNumber(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool HaveOneShape(const GridState& a, const GridState& b)
{
    return a.Rows == b.Rows && a.Columns == b.Columns;
}

}  // namespace

// Cells of tables that keep their size: what differs, and nothing else.
class GridHistory::CellStep : public QUndoCommand {
public:
    CellStep(GridHistory& history, const State& before, const State& after) : history_(history)
    {
        for (std::size_t grid = 0; grid < before.Grids.size(); ++grid)
            Compare(grid, before.Grids[grid], after.Grids[grid]);
        for (std::size_t at = 0; at < before.Numbers.size(); ++at)
            if (!IsSameNumber(before.Numbers[at], after.Numbers[at]))
                numbers_.push_back({at, before.Numbers[at], after.Numbers[at]});
    }

    [[nodiscard]] bool IsEmpty() const { return cells_.empty(); }
    void undo() override { Apply(&CellChange::Before, &NumberChange::Before); }
    void redo() override
    {
        if (done_) Apply(&CellChange::After, &NumberChange::After);
        done_ = true;
    }

private:
    struct CellChange {
        EntryGrid* Grid;
        int Row, Column;
        QString Before, After;
    };
    struct NumberChange {
        std::size_t At;
        double Before, After;
    };

    void Compare(std::size_t grid, const GridState& before, const GridState& after)
    {
        if (before.Texts.constData() == after.Texts.constData()) return;  // shared: nothing was written
        for (qsizetype i = 0; i < before.Texts.size(); ++i)
            if (before.Texts[i] != after.Texts[i])
                cells_.push_back({history_.grids_[grid], static_cast<int>(i / before.Columns),
                                  static_cast<int>(i % before.Columns), before.Texts[i], after.Texts[i]});
    }

    void Apply(QString CellChange::*text, double NumberChange::*number)
    {
        if (!numbers_.empty()) {
            std::vector<double> numbers = history_.record_.Numbers();
            for (const NumberChange& change : numbers_)
                if (change.At < numbers.size()) numbers[change.At] = change.*number;
            history_.record_.TakeNumbers(numbers);
        }
        for (const CellChange& change : cells_)
            change.Grid->ShowText(change.Row, change.Column, change.*text);
        Arrive();
    }

    // At the first cell that can be gone to: a heading may follow a cell.
    void Arrive() const
    {
        for (const CellChange& change : cells_)
            if (change.Grid->Arrive(change.Row, change.Column)) return;
    }

    GridHistory& history_;
    std::vector<CellChange> cells_;
    std::vector<NumberChange> numbers_;
    bool done_ = false;  // the step itself has been done when it is told
};

// Lines were added or deleted: everything before and after.
class GridHistory::ShapeStep : public QUndoCommand {
public:
    ShapeStep(GridHistory& history, State before, State after)
        : history_(history), before_(std::move(before)), after_(std::move(after))
    {
    }

    void undo() override { history_.ShowWhole(before_); }
    void redo() override
    {
        if (done_) history_.ShowWhole(after_);
        done_ = true;
    }

private:
    GridHistory& history_;
    State before_;
    State after_;
    bool done_ = false;
};

GridHistory::GridHistory(RecordAccess record, QObject* parent) : QObject(parent), record_(std::move(record))
{
}

void GridHistory::Watch(EntryGrid& grid)
{
    grids_.push_back(&grid);
    grid.KeepIn(this);
}

GridHistory::State GridHistory::Remember() const
{
    State state;
    state.Grids.reserve(grids_.size());
    for (const EntryGrid* grid : grids_)
        state.Grids.push_back(grid->State());
    state.Numbers = record_.Numbers();
    return state;
}

void GridHistory::Begin()
{
    if (!IsAtWork()) before_ = Remember();
}

void GridHistory::End()
{
    if (!before_) return;
    for (const EntryGrid* grid : grids_)
        if (grid->IsEditing()) return;
    const State before = *std::exchange(before_, std::nullopt);
    const State after = Remember();
    bool sameShape = before.Numbers.size() == after.Numbers.size();
    for (std::size_t i = 0; i < before.Grids.size(); ++i)
        sameShape = sameShape && HaveOneShape(before.Grids[i], after.Grids[i]);
    if (!sameShape) {
        stack_.push(new ShapeStep(*this, before, after));
        return;
    }
    auto step = std::make_unique<CellStep>(*this, before, after);
    if (!step->IsEmpty()) stack_.push(step.release());
}

bool GridHistory::FinishOthers(const EntryGrid& grid)
{
    for (EntryGrid* other : grids_) {
        if (other == &grid || other->FinishEdit()) continue;
        other->Cells().SetFocus();
        return false;
    }
    return true;
}

void GridHistory::GiveUp()
{
    if (before_) record_.TakeNumbers(before_->Numbers);
    before_.reset();
}

void GridHistory::Forget()
{
    before_.reset();
    stack_.clear();
}

void GridHistory::Undo()
{
    const QScopedValueRollback<bool> applying(applying_, true);
    stack_.undo();
}

void GridHistory::Redo()
{
    const QScopedValueRollback<bool> applying(applying_, true);
    stack_.redo();
}

// The form fills its grids from the record and leaves the focus with the menus; cells that were empty are so
// again.
void GridHistory::ShowWhole(const State& state)
{
    record_.TakeNumbers(state.Numbers);
    record_.Display();
    EntryGrid* used = nullptr;
    for (std::size_t i = 0; i < grids_.size(); ++i) {
        grids_[i]->ShowState(state.Grids[i]);
        if (grids_[i]->IsInUse()) used = grids_[i];
    }
    if (used != nullptr) used->Cells().SetFocus();
}

}  // namespace qt
