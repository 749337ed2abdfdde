// The grid in which problems are typed: text goes straight into the current cell, a key that moves on or a
// click elsewhere commits it.
//
// What a cell takes, how it is committed and how the cursor moves differ from form to form: EntryRules.
// Rows and columns count from 0, the fixed ones included.
#pragma once

#include <QString>
#include <QTableView>
#include <QTimer>
#include <functional>
#include <string>
#include <string_view>

#include "desktop/grid.h"

namespace qt {

class GridModel;

enum class KeyAnswer {
    Taken,
    Refused,  // beeps
    Told,     // dropped; the rule has shown its message
};

// Where Tab and Backtab go beyond the last or first cell.
enum class TabEnd {
    Wraps,  // to the other end of the grid
    Leaves  // to what EntryRules::LeaveForward and LeaveBackward do
};

struct EntryRules {
    // A character is typed into the cell; `first` when it begins an edit.
    std::function<KeyAnswer(int row, int column, char character, bool first)> Key;
    // Stores the text of a cell that is left after a change, or with Enter. False: refused, and told.
    std::function<bool(int row, int column, std::string_view text)> Commit;
    // The text of a cell has changed under the user's hands. May be missing.
    std::function<void(int row, int column)> Edited;
    // A cell that takes no entry at all: keys and Delete beep. May be missing.
    std::function<bool(int row, int column)> Closed;

    bool RestoresRefused = false;        // the former text comes back; otherwise the cell is blanked
    bool BackspaceEditsCellText = true;  // also of a cell that is not in edit; otherwise only what was typed
    bool EnterBeepsAtLastRow = false;
    TabEnd Tab = TabEnd::Wraps;
    std::function<void()> LeaveForward;
    std::function<void()> LeaveBackward;
};

class EntryGrid : public QTableView {
    Q_OBJECT

public:
    EntryGrid(const char* name, std::string_view description, EntryRules rules, QWidget* parent = nullptr);
    ~EntryGrid() override;

    [[nodiscard]] int Rows() const;
    [[nodiscard]] int Columns() const;
    [[nodiscard]] int Row() const;
    [[nodiscard]] int Column() const;
    [[nodiscard]] std::string Text(int row, int column) const;

    // What the logic sees of it.
    [[nodiscard]] Grid& Cells();

    // Commits what is being typed. False: refused; the cell is current again.
    bool FinishEdit();
    // Whether the cell holds text that has not been committed.
    [[nodiscard]] bool IsEditing() const { return editing_; }

    // No scroll bar and no empty space below while the rows fit `mostRows`.
    void FitHeight(int mostRows);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class CellsOfGrid;
};

}  // namespace qt
