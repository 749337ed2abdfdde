// Blocks of cells of an entry grid: marked, copied, cut, pasted and emptied. A block is told by its corners,
// x counting columns and y rows.
#include <QClipboard>
#include <QGuiApplication>

#include "desktop/desktop.h"
#include "qt/entrygrid.h"
#include "qt/gridmodel.h"
#include "qt/text.h"

namespace qt {
// ---- marking ----

QRect EntryGrid::Block() const
{
    const QPoint current(Column(), Row());
    return {QPoint(qMin(current.x(), corner_.x()), qMin(current.y(), corner_.y())),
            QPoint(qMax(current.x(), corner_.x()), qMax(current.y(), corner_.y()))};
}

bool EntryGrid::HasBlock() const
{
    return Block().size() != QSize(1, 1);
}

void EntryGrid::MarkTo(QPoint corner)
{
    corner_ = corner;
    ShowBlock();
    scrollTo(model_->index(corner.y(), corner.x()));
}

void EntryGrid::MarkAll()
{
    if (!Commit(false) || !model_->Has(model_->FixedRows(), model_->FixedColumns())) return;
    GoTo(model_->FixedRows(), model_->FixedColumns());
    corner_ = {model_->Columns() - 1, model_->Rows() - 1};
    ShowBlock();
}

// The view paints and reads out what its selection holds.
void EntryGrid::ShowBlock()
{
    QItemSelection marked;
    const QRect block = Block();
    if (HasBlock())
        marked.select(model_->index(block.top(), block.left()), model_->index(block.bottom(), block.right()));
    selectionModel()->select(marked, QItemSelectionModel::ClearAndSelect);
}

// ---- the clipboard ----

void EntryGrid::Copy()
{
    const QRect block = Block();
    BlockText texts;
    for (int row = block.top(); row <= block.bottom(); ++row) {
        texts.emplaceBack();
        for (int column = block.left(); column <= block.right(); ++column)
            texts.back().append(model_->Text(row, column));
    }
    PutOnClipboard(texts);
}

void EntryGrid::Cut()
{
    if (!Commit(false)) return;
    Copy();
    EmptyBlock();
}

bool EntryGrid::HasClipboardText()
{
    return !QGuiApplication::clipboard()->text().isEmpty();
}

void EntryGrid::Paste()
{
    if (within_) {
        PasteWithin();
        return;
    }
    if (!Commit(false)) return;
    if (model_->IsFixed(Row(), Column())) {
        ::Beep();
        return;
    }
    const BlockText block = ReadBlock(QGuiApplication::clipboard()->text());
    const QPoint at = Block().topLeft();
    if (block.isEmpty())
        ::Beep();
    else if (HasRoomFor(block, at))
        PasteBlock(block, at);
}

// Into the text of a cell, if all of it can be typed there.
void EntryGrid::PasteWithin()
{
    const BlockText block = ReadBlock(QGuiApplication::clipboard()->text());
    const QString text = block.isEmpty() ? QString() : block[0][0].trimmed();
    const bool single = block.size() == 1 && block[0].size() == 1;
    if (single &&
        JudgeText(Row(), Column(), typed_.left(caret_) + text + typed_.mid(caret_)) == KeyAnswer::Taken)
        TypeText(text);
    else
        ::Beep();
}

bool EntryGrid::HasRoomFor(const BlockText& block, QPoint at) const
{
    const std::string told = TooLargeText(block, model_->Rows() - at.y(), model_->Columns() - at.x());
    if (told.empty()) return true;
    MsgBox(told, "Paste");
    return false;
}

// The cells that are pasted before one is refused stay; all of them are one step.
void EntryGrid::PasteBlock(const BlockText& block, QPoint at)
{
    BeginStep();
    const QList<QString> before = model_->Texts();
    const bool whole = PasteCells(block, at);
    if (whole) {
        GoTo(at.y(), at.x());
        corner_ = at + QPoint(ColumnsOf(block) - 1, static_cast<int>(block.size()) - 1);
        ShowBlock();
    }
    if (history_ != nullptr && model_->Texts() == before) history_->GiveUp();
    EndStep();
    viewport()->update();
}

bool EntryGrid::PasteCells(const BlockText& block, QPoint at)
{
    for (int i = 0; i < block.size(); ++i)
        for (int j = 0; j < block[i].size(); ++j) {
            const int row = at.y() + i;
            const int column = at.x() + j;
            if (PasteCell(row, column, block[i][j].trimmed())) continue;
            if (model_->Has(row, column)) GoTo(row, column);
            return false;
        }
    return true;
}

// As if the text were typed and the cell left.
bool EntryGrid::PasteCell(int row, int column, const QString& text)
{
    if (!model_->Has(row, column) || text == model_->Text(row, column)) return true;
    if (IsClosed(row, column) && text.isEmpty()) return true;
    const KeyAnswer answer = JudgeText(row, column, text);
    if (answer == KeyAnswer::Refused) Refuse("\"" + FromQt(text) + "\" cannot be entered in this cell.");
    return answer == KeyAnswer::Taken && EnterText(row, column, text);
}

// A refused text leaves the cell blank, or as it was.
bool EntryGrid::EnterText(int row, int column, const QString& text)
{
    const QString former = model_->Text(row, column);
    model_->SetText(row, column, text);
    Widen(column, text);
    const bool stored = Store(row, column, text);
    if (!stored) {
        model_->SetText(row, column, rules_.RestoresRefused ? former : QString());
        if (!rules_.RestoresRefused) static_cast<void>(Store(row, column, {}));
    }
    if (rules_.Edited) rules_.Edited(row, column);
    return stored;
}

void EntryGrid::EmptyBlock()
{
    BeginStep();
    const QRect block = Block();
    for (int row = block.top(); row <= block.bottom(); ++row)
        for (int column = block.left(); column <= block.right(); ++column)
            if (!IsClosed(row, column) && !model_->Text(row, column).isEmpty()) EnterText(row, column, {});
    EndStep();
    viewport()->update();
}

}  // namespace qt
