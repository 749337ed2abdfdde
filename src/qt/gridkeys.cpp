// The keys and clicks of an entry grid: where they lead, and what they start.
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>

#include "desktop/desktop.h"
#include "qt/entrygrid.h"
#include "qt/forms.h"
#include "qt/gridmodel.h"

namespace qt {
namespace {

bool IsModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Meta || key == Qt::Key_AltGr ||
           key == Qt::Key_CapsLock || key == Qt::Key_NumLock;
}

bool IsMovement(int key)
{
    switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return true;
        default:
            return false;
    }
}

bool Marks(int key, Qt::KeyboardModifiers modifiers)
{
    const bool leads =
        key != Qt::Key_Tab && key != Qt::Key_Backtab && key != Qt::Key_Return && key != Qt::Key_Enter;
    return modifiers.testFlag(Qt::ShiftModifier) && leads;
}

bool MovesCaret(int key)
{
    return key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Home || key == Qt::Key_End;
}

}  // namespace

void EntryGrid::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    const int key = event->key();
    if (key == Qt::Key_Alt || (event->modifiers() & Qt::AltModifier) != 0) {
        if (FinishEdit()) desktop::TheForms().FocusMenu();
        return;
    }
    if (IsModifier(key) || !model_->Has(Row(), Column())) return;
    if (history_ != nullptr && !history_->FinishOthers(*this)) return;
    scrollTo(currentIndex());  // nobody edits or leaves a cell that is out of sight
    if (RunShortcut(*event)) return;
    if (key == Qt::Key_Delete)
        DeleteKey();
    else if (key == Qt::Key_Backspace)
        TakeBack();
    else if (IsMovement(key))
        Move(key, event->modifiers());
    else
        TypeText(event->text());
}

// The keys that every table of a desktop has.
bool EntryGrid::RunShortcut(const QKeyEvent& event)
{
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const int key = event.key();
    if (control && key == Qt::Key_Z && !shift)
        Undo();
    else if (control && (key == Qt::Key_Y || (key == Qt::Key_Z && shift)))
        Redo();
    else if (event.matches(QKeySequence::Copy))
        Copy();
    else if (event.matches(QKeySequence::Cut))
        Cut();
    else if (event.matches(QKeySequence::Paste))
        Paste();
    else if (event.matches(QKeySequence::SelectAll))
        MarkAll();
    else if (key == Qt::Key_F2)
        EditWithin(static_cast<int>((editing_ ? typed_ : model_->Text(Row(), Column())).size()));
    else if (key == Qt::Key_F10 && shift)
        ShowMenu(viewport()->mapToGlobal(visualRect(currentIndex()).center()));
    else if (key == Qt::Key_Escape && editing_)
        GiveBack();
    else if (key == Qt::Key_Escape && HasBlock())
        GoTo(Row(), Column());
    else
        return false;
    return true;
}

// Of several grids the one that was used last goes on.
void EntryGrid::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    LeadKeysTo(this);
}

bool EntryGrid::IsInUse() const
{
    for (const QWidget* parent = parentWidget(); parent != nullptr; parent = parent->parentWidget())
        if (qobject_cast<const ChildForm*>(parent) != nullptr) return parent->focusProxy() == this;
    return true;
}

// ---- the mouse ----

void EntryGrid::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    dragging_ = false;
    const QModelIndex clicked = indexAt(event->position().toPoint());
    if (!clicked.isValid()) return;
    const QPoint cell(clicked.column(), clicked.row());
    const bool left = event->button() == Qt::LeftButton;
    const bool inBlock = Block().contains(cell);
    if (!left && (event->button() != Qt::RightButton || inBlock)) return;
    if (history_ != nullptr && !history_->FinishOthers(*this)) return;
    if (left && event->modifiers().testFlag(Qt::ShiftModifier)) {
        if (Commit(false)) MarkTo(cell);
        return;
    }
    const bool leaves = cell != QPoint(Column(), Row());
    if (!Commit(leaves && rules_.ClickAlwaysCommits) || !model_->Has(cell.y(), cell.x())) return;
    GoTo(cell.y(), cell.x());
    dragging_ = left;
}

void EntryGrid::mouseMoveEvent(QMouseEvent* event)
{
    if (!dragging_ || !event->buttons().testFlag(Qt::LeftButton)) return;
    const QModelIndex over = indexAt(event->position().toPoint());
    if (over.isValid() && !editing_) MarkTo({over.column(), over.row()});
}

void EntryGrid::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    dragging_ = false;
}

void EntryGrid::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint where = event->position().toPoint();
    const QModelIndex clicked = indexAt(where);
    if (event->button() == Qt::LeftButton && clicked.isValid() && clicked == currentIndex())
        EditWithin(CaretAt(where.x()));
    else
        mousePressEvent(event);
}

// The texts stand at the right edges of their cells.
int EntryGrid::CaretAt(int x) const
{
    const QString text = model_->Text(Row(), Column());
    const int right = visualRect(currentIndex()).right() -
                      style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this);
    for (int caret = 0; caret < text.size(); ++caret) {
        const int middle = fontMetrics().horizontalAdvance(text.mid(caret)) -
                           fontMetrics().horizontalAdvance(text[caret]) / 2;
        if (x < right - middle) return caret;
    }
    return static_cast<int>(text.size());
}

// ---- movement ----

void EntryGrid::Move(int key, Qt::KeyboardModifiers modifiers)
{
    const bool control = modifiers.testFlag(Qt::ControlModifier);
    if (within_ && MovesCaret(key) && !control) {
        MoveCaret(key);
        return;
    }
    const bool leads = model_->Has(model_->FixedRows(), model_->FixedColumns());
    if (leads && Marks(key, modifiers)) {
        if (Commit(false)) MarkTo(Destination(key, control, corner_));
        return;
    }
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!Commit(enter)) return;
    switch (key) {
        case Qt::Key_Left:
            return MoveBy(0, -1);
        case Qt::Key_Right:
            return MoveBy(0, 1);
        case Qt::Key_Up:
            return MoveBy(-1, 0);
        case Qt::Key_Down:
            return MoveBy(1, 0);
        case Qt::Key_Tab:
            return MoveForward();
        case Qt::Key_Backtab:
            return MoveBackward();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return MoveDownByEnter();
        default:
            break;
    }
    if (!leads) return;
    const QPoint to = Destination(key, control, {Column(), Row()});
    GoTo(to.y(), to.x());
}

// Where a key leads from a cell, within the table; x counts columns, y rows.
QPoint EntryGrid::Destination(int key, bool control, QPoint from) const
{
    const QPoint first(model_->FixedColumns(), model_->FixedRows());
    const QPoint last(model_->Columns() - 1, model_->Rows() - 1);
    QPoint to = from;
    if (key == Qt::Key_Left) --to.rx();
    if (key == Qt::Key_Right) ++to.rx();
    if (key == Qt::Key_Up) --to.ry();
    if (key == Qt::Key_Down) ++to.ry();
    if (key == Qt::Key_Home) to = {first.x(), control ? first.y() : from.y()};
    if (key == Qt::Key_End) to = {last.x(), control ? last.y() : from.y()};
    if (key == Qt::Key_PageUp) to.ry() -= RowsOfPage();
    if (key == Qt::Key_PageDown) to.ry() += RowsOfPage();
    return {qBound(first.x(), to.x(), last.x()), qBound(first.y(), to.y(), last.y())};
}

void EntryGrid::MoveBy(int rows, int columns)
{
    const int row = Row() + rows;
    const int column = Column() + columns;
    if (!model_->Has(row, column) || model_->IsFixed(row, column)) {
        ::Beep();
        GoTo(Row(), Column());
    } else {
        GoTo(row, column);
    }
}

void EntryGrid::MoveDownByEnter()
{
    if (Row() + 1 < model_->Rows())
        GoTo(Row() + 1, Column());
    else if (rules_.EnterBeepsAtLastRow)
        ::Beep();
}

void EntryGrid::MoveForward()
{
    if (Column() + 1 < model_->Columns())
        GoTo(Row(), Column() + 1);
    else if (Row() + 1 < model_->Rows())
        GoTo(Row() + 1, model_->FixedColumns());
    else if (rules_.LeaveForward)
        rules_.LeaveForward();
    else
        GoTo(model_->FixedRows(), model_->FixedColumns());
}

void EntryGrid::MoveBackward()
{
    if (Column() > model_->FixedColumns())
        GoTo(Row(), Column() - 1);
    else if (Row() > model_->FixedRows())
        GoTo(Row() - 1, model_->Columns() - 1);
    else if (rules_.LeaveBackward)
        rules_.LeaveBackward();
    else
        GoTo(model_->Rows() - 1, model_->Columns() - 1);
}

int EntryGrid::RowsOfPage() const
{
    return qMax(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
}

// ---- undo and the menu of a cell ----

// What is being typed is the first thing to be taken back.
void EntryGrid::Undo()
{
    if (editing_)
        GiveBack();
    else if (history_ != nullptr && history_->CanUndo())
        history_->Undo();
    else
        ::Beep();
}

void EntryGrid::Redo()
{
    if (!editing_ && history_ != nullptr && history_->CanRedo())
        history_->Redo();
    else
        ::Beep();
}

void EntryGrid::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    ShowMenu(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).center()) : event->globalPos());
}

void EntryGrid::ShowMenu(QPoint global)
{
    if (!model_->Has(Row(), Column()) || model_->IsFixed(Row(), Column())) return;
    auto* menu = new QMenu(this);
    menu->setObjectName("menuOfCell");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char* text, const QKeySequence& keys, bool enabled, void (EntryGrid::*run)()) {
        QAction* action = menu->addAction(QString::fromUtf8(text), this, run);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);  // the grid itself listens to them
        action->setEnabled(enabled);
    };
    const bool open = !IsClosed(Row(), Column()) || HasBlock();
    const bool canUndo = editing_ || (history_ != nullptr && history_->CanUndo());
    add("&Undo", Qt::CTRL | Qt::Key_Z, canUndo, &EntryGrid::Undo);
    add("&Redo", Qt::CTRL | Qt::SHIFT | Qt::Key_Z, !editing_ && history_ != nullptr && history_->CanRedo(),
        &EntryGrid::Redo);
    menu->addSeparator();
    add("Cu&t", Qt::CTRL | Qt::Key_X, open, &EntryGrid::Cut);
    add("&Copy", Qt::CTRL | Qt::Key_C, true, &EntryGrid::Copy);
    add("&Paste", Qt::CTRL | Qt::Key_V, open && HasClipboardText(), &EntryGrid::Paste);
    add("&Delete", Qt::Key_Delete, open, &EntryGrid::DeleteKey);
    menu->popup(global);
}

}  // namespace qt
