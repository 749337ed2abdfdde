// The grid in which problems are typed: text goes straight into the current cell, a key that moves on or a
// click elsewhere commits it. Blocks of cells are marked, copied and pasted as in a spreadsheet.
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
#include "qt/blocktext.h"
#include "qt/gridhistory.h"

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
    // Whether the current cell holds text that has not been committed, or waits for one after a refusal.
    [[nodiscard]] bool IsEditing() const { return editing_; }
    // Whether its form gives the keys to it.
    [[nodiscard]] bool IsInUse() const;

    // Not higher than this number of rows, however much room there is.
    void ShowRows(int most);
    // This column takes the width that the others leave, and gives way down to what its texts need.
    void FillWidthWith(int column);
    // Two grids, one above the other, whose columns stand in line and scroll together.
    void AlignWith(EntryGrid& other);

    // ---- for its history ----
    void KeepIn(GridHistory* history) { history_ = history; }
    [[nodiscard]] GridState State() const;
    void ShowState(const GridState& state);
    void ShowText(int row, int column, const QString& text);
    // Makes it the current cell, with the focus; false: nobody can go there.
    bool Arrive(int row, int column);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool /*next*/) override { return false; }  // Tab is a key of the grid
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class CellsOfGrid;
    class CellPainter;

    // ---- contents (entrygrid.cpp) ----
    void Resize(int rows, int columns, int fixedRows, int fixedColumns);
    void SetText(int row, int column, const QString& text);
    void SetColumnWidth(int column, int characters);
    void Select(int row, int column);
    void Reject(int row, int column);
    [[nodiscard]] int Row() const;
    [[nodiscard]] int Column() const;
    void GoTo(int row, int column);
    [[nodiscard]] bool IsClosed(int row, int column) const;
    void BeginStep();
    void EndStep();

    // ---- one cell (gridediting.cpp) ----
    bool Commit(bool always);
    bool Passes(int row, int column, const QString& text);
    [[nodiscard]] bool Store(int row, int column, const QString& text) const;
    void TakeRefusal(int row, int column, const QString& former);
    void TypeText(const QString& text);
    void TypeCharacter(QChar character);
    [[nodiscard]] KeyAnswer Judge(int row, int column, QChar character, bool first) const;
    [[nodiscard]] KeyAnswer JudgeText(int row, int column, const QString& text) const;
    void TakeBack();   // Backspace
    void DeleteKey();  // of the cell, the block or what is behind the caret
    void EmptyCell();
    void EditWithin(int caret);
    void MoveCaret(int key);
    void GiveBack();  // Escape
    void BeginEdit();
    void EndEdit();
    void ShowEdit();

    // ---- keys and clicks (gridkeys.cpp) ----
    bool RunShortcut(const QKeyEvent& event);
    void Move(int key, Qt::KeyboardModifiers modifiers);
    void MoveBy(int rows, int columns);
    void MoveForward();
    void MoveBackward();
    void MoveDownByEnter();
    [[nodiscard]] int RowsOfPage() const;
    [[nodiscard]] QPoint Destination(int key, bool control, QPoint from) const;
    [[nodiscard]] int CaretAt(int x) const;
    void Undo();
    void Redo();
    void ShowMenu(QPoint global);

    // ---- blocks (gridblocks.cpp); x counts columns, y rows ----
    [[nodiscard]] QRect Block() const;
    [[nodiscard]] bool HasBlock() const;
    void MarkTo(QPoint corner);
    void MarkAll();
    void ShowBlock();
    void Copy();
    void Cut();
    void Paste();
    void PasteWithin();
    [[nodiscard]] static bool HasClipboardText();
    [[nodiscard]] bool HasRoomFor(const BlockText& block, QPoint at) const;
    void PasteBlock(const BlockText& block, QPoint at);
    bool PasteCells(const BlockText& block, QPoint at);
    bool PasteCell(int row, int column, const QString& text);
    bool EnterText(int row, int column, const QString& text);
    void EmptyBlock();

    // ---- sizes (gridsizes.cpp) ----
    void Measure();  // everything that follows the font
    void FitColumn(int column);
    void FillWidth();
    [[nodiscard]] int TextWidth(int column) const;
    void Widen(int column, const QString& text);
    void SetWidth(int column, int width);
    void ApplyWidth(int column, int width);
    [[nodiscard]] int NeededWidth(int column) const;
    void FollowScrollingOf(const EntryGrid& other);
    [[nodiscard]] int AskedWidth(int column) const;
    [[nodiscard]] int WidthOf(const QString& text) const;
    [[nodiscard]] int HeightOfRows(int rows) const;

    // ---- painting (gridpainting.cpp) ----
    void InstallPainter();
    void PaintCorner(QWidget& corner) const;

    GridModel* model_;
    std::unique_ptr<CellsOfGrid> cells_;
    EntryRules rules_;
    std::vector<int> characters_;  // the width of each column
    int shownRows_ = 0;            // 0: no limit
    int filling_ = -1;             // the column that takes what is left of the width; -1: none

    EntryGrid* partner_ = nullptr;
    bool following_ = false;

    bool editing_ = false;
    bool within_ = false;   // arrows move the caret
    bool refused_ = false;  // the cell was refused, and leaving it commits it in any case
    QString typed_;         // the text that the edit has made so far
    int caret_ = 0;         // characters before it
    QString former_;        // the text of the cell before

    QPoint corner_;  // of the marked block, opposite to the current cell
    bool dragging_ = false;

    GridHistory* history_ = nullptr;
};

}  // namespace qt
