#include "play/controlsteps.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMenu>
#include <QPersistentModelIndex>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScrollArea>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTableView>
#include <QTextEdit>

#include "play/controls.h"
#include "play/hands.h"

namespace play {
namespace {

void ScrollIntoView(QWidget* control)
{
    for (QWidget* parent = control->parentWidget(); parent != nullptr; parent = parent->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(parent)) area->ensureWidgetVisible(control);
}

// ---- buttons, options, labels ----

// Options and check boxes are clicked at their mark: the rest of a wide one does not react.
QPoint ClickPoint(const QWidget* control)
{
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    if (button == nullptr || !button->isCheckable()) return control->rect().center();
    QStyleOptionButton option;
    option.initFrom(button);
    const bool isRadio = qobject_cast<const QRadioButton*>(button) != nullptr;
    const auto mark = isRadio ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator;
    return button->style()->subElementRect(mark, &option, button).center();
}

// Where a double click in a list goes: to the chosen entry, if there is one.
QPoint DoubleClickPoint(const QAbstractItemView& view)
{
    const QModelIndex current = view.currentIndex();
    return current.isValid() ? view.visualRect(current).center() : view.viewport()->rect().center();
}

Outcome ClickNamed(const std::string& name)
{
    const auto [control, why] = FindControl(name);
    if (control == nullptr) return why;
    ScrollIntoView(control);
    Click(control, ClickPoint(control));
    return kDone;
}

// ---- menus ----

QAction* FindItem(const QMenu* menu, const QString& name)
{
    for (QAction* action : menu->actions()) {
        if (action->objectName() == name) return action;
        if (action->menu() == nullptr) continue;
        if (QAction* inside = FindItem(action->menu(), name)) return inside;
    }
    return nullptr;
}

QAction* FindTopMenu(const QMenuBar* bar, const QString& name)
{
    for (QAction* action : bar->actions())
        if (action->menu() != nullptr && FindItem(action->menu(), name) != nullptr) return action;
    return nullptr;
}

Outcome CanBeChosen(const QAction* item)
{
    const std::string name = item->objectName().toStdString();
    if (!item->isVisible()) return name + " is hidden";
    if (!item->isEnabled()) return name + " is disabled";
    return kDone;
}

// Chooses the item in the open menu, through its submenus.
Outcome ChooseIn(QMenu* menu, const QString& name)
{
    for (QAction* action : menu->actions()) {
        const bool isItem = action->objectName() == name;
        if (!isItem && (action->menu() == nullptr || FindItem(action->menu(), name) == nullptr)) continue;
        if (Outcome why = CanBeChosen(action); !why.empty()) return why;
        ChooseItem(menu, action);
        return isItem ? kDone : ChooseIn(action->menu(), name);
    }
    return "there is no " + name.toStdString() + " in the menus";
}

Outcome OpenAndChoose(QMenuBar* bar, QAction* top, const QString& name)
{
    const int dialogs = DialogsShown();
    OpenMenu(bar, top);
    if (DialogsShown() != dialogs) {  // what was being typed has been refused
        CloseMenus();
        return kDone;
    }
    Outcome why = ChooseIn(top->menu(), name);
    if (!why.empty()) CloseMenus();
    return why;
}

// ---- texts ----

bool IsReadOnly(const QWidget* control)
{
    return control->property("readOnly").toBool();
}

// The widget that takes the click of a text box, null for other controls.
QWidget* ClickedPart(QWidget* control)
{
    if (qobject_cast<QLineEdit*>(control) != nullptr) return control;
    if (auto* page = qobject_cast<QPlainTextEdit*>(control)) return page->viewport();
    if (auto* page = qobject_cast<QTextEdit*>(control)) return page->viewport();
    return nullptr;
}

void SelectAll(QWidget* control)
{
    QMetaObject::invokeMethod(control, "selectAll");
}

void TypeOrEmpty(const std::string& text)
{
    if (text.empty())
        Press(Qt::Key_Delete, Qt::NoModifier, "\x7f");
    else
        TypeCharacters(text);
}

// The focus is elsewhere when the field that was left has been refused.
void TypeInto(QWidget* box, const std::string& text)
{
    if (box == nullptr || !box->hasFocus()) return;
    SelectAll(box);
    TypeOrEmpty(text);
}

// ---- lists ----

// The row that `#3` or the entry's text means; -1 when there is none.
int EntryRow(const QAbstractItemModel& model, const Word& entry)
{
    if (!entry.Quoted && entry.Text.starts_with('#')) {
        const int row = ReadCount(entry.Text.substr(1)).value_or(0) - 1;
        return row < model.rowCount() ? row : -1;
    }
    for (int row = 0; row < model.rowCount(); ++row)
        if (model.index(row, 0).data().toString().toStdString() == entry.Text) return row;
    return -1;
}

void PickInList(QAbstractItemView& list, int row)
{
    const QModelIndex entry = list.model()->index(row, 0);
    list.scrollTo(entry);
    const bool addsToChoice = list.selectionMode() == QAbstractItemView::ExtendedSelection;
    Click(list.viewport(), list.visualRect(entry).center(),
          addsToChoice ? Qt::ControlModifier : Qt::NoModifier);
}

// Opens the list and goes to the entry with the keys: the open list takes no click that comes too soon.
void PickInCombo(QComboBox& combo, int row)
{
    const int dialogs = DialogsShown();
    Click(&combo, combo.rect().center());
    if (DialogsShown() != dialogs) return;
    Press(Qt::Key_Home);
    for (int i = 0; i < row; ++i)
        Press(Qt::Key_Down);
    Press(Qt::Key_Return, Qt::NoModifier, "\r");
}

Outcome NoEntry(const Step& step)
{
    return step.Argument(1).Text + " has no entry " + step.Argument(2).Text;
}

// ---- grids ----

struct Cell {
    QPointer<QTableView> Grid;
    QPersistentModelIndex Index;
};

Outcome FindCell(const Step& step, Cell& cell)
{
    const auto [grid, why] = FindControlAs<QTableView>(step.Argument(1).Text, "grid");
    if (grid == nullptr) return why;
    const auto row = ReadCount(step.Argument(2).Text);
    const auto column = ReadCount(step.Argument(3).Text);
    if (!row || !column) return "a row or column is not a number";
    cell = {grid, grid->model()->index(*row, *column)};
    if (!cell.Index.isValid()) return step.Argument(1).Text + " has no such cell";
    return kDone;
}

void ClickOn(const Cell& cell)
{
    cell.Grid->scrollTo(cell.Index);
    Click(cell.Grid->viewport(), cell.Grid->visualRect(cell.Index).center());
}

// Another cell is current when the one that was left has been refused.
void TypeIntoCurrent(const Cell& cell, const std::string& text)
{
    if (!cell.Grid.isNull() && cell.Grid->hasFocus() && cell.Grid->currentIndex() == cell.Index)
        TypeOrEmpty(text);
}

}  // namespace

Outcome ChooseModule(const Step& step, Stage&)
{
    const auto number = ReadCount(step.Argument(1).Text);
    if (!number) return "choose takes a number";
    if (FindScreen("frmStartup") != nullptr)
        if (Outcome why = ClickNamed("frmStartup.cmdOK"); !why.empty()) return why;
    if (FindScreen("frmModuleSelection") == nullptr) return "frmModuleSelection is not in front";
    const std::string option = "frmModuleSelection.optProblemType(" + std::to_string(*number) + ")";
    if (Outcome why = ClickNamed(option); !why.empty()) return why;
    return ClickNamed("frmModuleSelection.cmdOK");
}

Outcome TriggerMenuItem(const Step& step, Stage&)
{
    const std::string& name = step.Argument(1).Text;
    if (ModalInFront() != nullptr) return "a dialog is in front of the menus";
    QMenuBar* bar = FindMenuBar();
    QAction* top = bar == nullptr ? nullptr : FindTopMenu(bar, QString::fromStdString(name));
    if (top == nullptr) return "there is no " + name + " in the menus";
    if (Outcome why = CanBeChosen(top); !why.empty()) return why;
    return OpenAndChoose(bar, top, QString::fromStdString(name));
}

Outcome ClickControl(const Step& step, Stage&)
{
    return ClickNamed(step.Argument(1).Text);
}

Outcome DoubleClickControl(const Step& step, Stage&)
{
    const auto [control, why] = FindControl(step.Argument(1).Text);
    if (control == nullptr) return why;
    ScrollIntoView(control);
    if (auto* view = qobject_cast<QAbstractItemView*>(control))
        DoubleClick(view->viewport(), DoubleClickPoint(*view));
    else
        DoubleClick(control, ClickPoint(control));
    return kDone;
}

Outcome TypeText(const Step& step, Stage& stage)
{
    const std::string& name = step.Argument(1).Text;
    const auto [box, why] = FindControl(name);
    if (box == nullptr) return why;
    QWidget* part = ClickedPart(box);
    if (part == nullptr || IsReadOnly(box)) return name + " is not a text box";
    ScrollIntoView(box);
    const int dialogs = DialogsShown();
    Click(part, part->rect().center());
    const auto type = [target = QPointer(box), text = step.Argument(2).Text] { TypeInto(target, text); };
    if (DialogsShown() != dialogs)
        stage.Rest = type;
    else if (!box->hasFocus())
        return name + " does not take the focus";
    else
        type();
    return kDone;
}

Outcome PressKey(const Step& step, Stage&)
{
    const auto stroke = ReadKeyStroke(step.Argument(1).Text);
    if (!stroke) return "there is no key " + step.Argument(1).Text;
    Press(*stroke);
    return kDone;
}

Outcome PressKeys(const Step& step, Stage&)
{
    TypeCharacters(step.Argument(1).Text);
    return kDone;
}

Outcome PickEntry(const Step& step, Stage&)
{
    const auto [control, why] = FindControl(step.Argument(1).Text);
    if (control == nullptr) return why;
    auto* combo = qobject_cast<QComboBox*>(control);
    auto* list = qobject_cast<QListView*>(control);
    if (combo == nullptr && list == nullptr) return step.Argument(1).Text + " is not a list";
    ScrollIntoView(control);
    const int row = EntryRow(combo != nullptr ? *combo->model() : *list->model(), step.Argument(2));
    if (row < 0) return NoEntry(step);
    if (combo != nullptr)
        PickInCombo(*combo, row);
    else
        PickInList(*list, row);
    return kDone;
}

Outcome TypeIntoCell(const Step& step, Stage& stage)
{
    Cell cell;
    if (Outcome why = FindCell(step, cell); !why.empty()) return why;
    const int dialogs = DialogsShown();
    ClickOn(cell);
    const std::string& text = step.Argument(4).Text;
    if (DialogsShown() == dialogs)
        TypeOrEmpty(text);
    else
        stage.Rest = [cell, text] { TypeIntoCurrent(cell, text); };
    return kDone;
}

Outcome ClickCell(const Step& step, Stage&)
{
    Cell cell;
    if (Outcome why = FindCell(step, cell); !why.empty()) return why;
    ClickOn(cell);
    return kDone;
}

}  // namespace play
