// The grid in which problems are typed: text goes straight into the current cell, a key that moves on or a
// click elsewhere commits it.
//
// What a cell takes, how it is committed and how the cursor moves differ from form to form: EntryRules.
// Rows and columns count from 0, the fixed ones included. The fixed row and column stand in the headers of
// the view, so that they stay in sight.
#pragma once

#include <QString>
#include <QTableView>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/grid.h"

namespace qt {

class GridModel;

enum class KeyAnswer {
    Taken,
    Refused,  // beeps
    Told,     // dropped; the rule has shown its message
};

struct EntryRules {
    // A character is typed into the cell; `first` when nothing of its new text stands there yet.
    std::function<KeyAnswer(int row, int column, char character, bool first)> Key;
    // Stores the text of a cell that is left after a change, or with Enter; a click can ask for it always.
    // False: refused, and told.
    std::function<bool(int row, int column, std::string_view text)> Commit;
    // The text of a cell has changed under the user's hands. May be missing.
    std::function<void(int row, int column)> Edited;
    // A cell that takes no entry at all: every key that would change it beeps. May be missing.
    std::function<bool(int row, int column)> Closed;

    bool RestoresRefused = false;     // the former text comes back; otherwise the cell is blanked
    bool DeleteNotInEdit = false;     // Delete empties only a cell that is as it was
    bool BackspaceOnlyTyped = false;  // Backspace takes nothing from a text that stood in the cell before
    bool EnterBeepsAtLastRow = false;
    bool ClickAlwaysCommits = false;  // a click commits the cell it leaves even if nothing was typed there
    // Tab behind the last cell and Backtab before the first one; missing: to the other end of the grid.
    std::function<void()> LeaveForward;
    std::function<void()> LeaveBackward;
};

// The characters of numbers as a Key rule: digits, "-" and "."; others beep.
KeyAnswer NumberKey(char character);

class EntryGrid : public QTableView {
    Q_OBJECT

public:
    EntryGrid(const char* name, std::string_view description, EntryRules rules);
    ~EntryGrid() override;

    // What the logic sees of it.
    [[nodiscard]] Grid& Cells();

    // Commits what is being typed. False: refused and told; the cell stays the current one.
    bool FinishEdit();
    // Whether the current cell holds text that has not been committed.
    [[nodiscard]] bool IsEditing() const { return editing_; }

    // Not higher than this number of rows, however much room there is.
    void ShowRows(int most);
    // Two grids, one above the other, whose columns stand in line and scroll together.
    void AlignWith(EntryGrid& other);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* /*event*/) override {}
    void mouseReleaseEvent(QMouseEvent* /*event*/) override {}
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    bool focusNextPrevChild(bool /*next*/) override { return false; }  // Tab is a key of the grid
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class CellsOfGrid;
    class CellPainter;

    void Resize(int rows, int columns, int fixedRows, int fixedColumns);
    void SetText(int row, int column, const QString& text);
    void SetColumnWidth(int column, int characters);
    void Select(int row, int column);
    [[nodiscard]] int Row() const;
    [[nodiscard]] int Column() const;

    bool Commit(bool always);
    void TypeText(const QString& text);
    void TypeCharacter(QChar character);
    [[nodiscard]] KeyAnswer Judge(QChar character) const;
    void TakeBack();   // Backspace
    void EmptyCell();  // Delete
    void BeginEdit();
    void ShowEdit();
    [[nodiscard]] bool IsClosed() const;

    void Move(int key);
    void MoveBy(int rows, int columns);
    void MoveForward();
    void MoveBackward();
    void MoveDownByEnter();
    [[nodiscard]] int RowsOfPage() const;
    void GoTo(int row, int column);

    void Measure();  // everything that follows the font
    void FitColumn(int column);
    void Widen(int column, const QString& text);
    void SetWidth(int column, int width);
    void ApplyWidth(int column, int width);
    [[nodiscard]] int NeededWidth(int column) const;
    void FollowScrollingOf(const EntryGrid& other);
    [[nodiscard]] int AskedWidth(int column) const;
    [[nodiscard]] int WidthOf(const QString& text) const;
    [[nodiscard]] int HeightOfRows(int rows) const;
    void PaintCorner(QWidget& corner) const;

    GridModel* model_;
    std::unique_ptr<CellsOfGrid> cells_;
    EntryRules rules_;
    std::vector<int> characters_;  // the width of each column
    int shownRows_ = 0;            // 0: no limit

    EntryGrid* partner_ = nullptr;
    bool following_ = false;

    bool editing_ = false;
    QString typed_;   // the text that the edit has made so far
    QString former_;  // the text of the cell before
};

}  // namespace qt
