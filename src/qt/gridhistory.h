// Undo and redo of what is done to the grids of a form and to the record behind them, back to the opening of
// the problem.
//
// A step is everything between Begin and End: a cell that was committed, a block that was pasted, a line that
// was added. Grids and record go back and forth together.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QUndoStack>
#include <functional>
#include <optional>
#include <vector>

namespace qt {

class EntryGrid;

// The record that a form's cells are stored in.
struct RecordAccess {
    std::function<std::vector<double>()> Numbers = {};  // sizes and cells; NaN for one never entered
    std::function<void(const std::vector<double>&)> TakeNumbers = {};
    std::function<void()> Display = {};  // shows the record afresh, in grids of its size
};

// What a grid shows.
struct GridState {
    int Rows = 0;
    int Columns = 0;
    QList<QString> Texts;  // row by row
    int Row = 0;           // the current cell
    int Column = 0;
};

class GridHistory : public QObject {
    Q_OBJECT

public:
    explicit GridHistory(RecordAccess record, QObject* parent);

    void Watch(EntryGrid& grid);

    // Nothing happens when a step is open already.
    void Begin();
    // A step in which no cell has changed is none. While a cell is being typed the step goes on.
    void End();
    // Commits what is being typed in another grid than this one. False: it was refused, and has the focus.
    bool FinishOthers(const EntryGrid& grid);

    // The record as it was at Begin; no step. The grids are the caller's.
    void GiveUp();
    // A problem has been opened: there is nothing before it.
    void Forget();

    [[nodiscard]] bool CanUndo() const { return stack_.canUndo(); }
    [[nodiscard]] bool CanRedo() const { return stack_.canRedo(); }
    void Undo();
    void Redo();
    // Whether what happens to the grids belongs to a step, or to the undoing of one.
    [[nodiscard]] bool IsAtWork() const { return before_.has_value() || applying_; }

private:
    struct State {
        std::vector<GridState> Grids;
        std::vector<double> Numbers;
    };
    class CellStep;
    class ShapeStep;

    [[nodiscard]] State Remember() const;
    void ShowWhole(const State& state);

    RecordAccess record_;
    std::vector<EntryGrid*> grids_;
    std::optional<State> before_;  // of the open step
    bool applying_ = false;
    QUndoStack stack_;
};

}  // namespace qt
