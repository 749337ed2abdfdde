#include "play/screentext.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableView>
#include <QTextBlock>
#include <QTextEdit>
#include <algorithm>

#include "play/listener.h"
#include "play/transcript.h"
#include "shell/menus.h"
#include "shell/session.h"

namespace play {
namespace {

using Lines = std::vector<std::string>;

struct Description {
    const char* Kind;
    QString Text;
};

// A caption as the program states it; the toolkit wants its ampersands doubled.
QString Stated(QString caption)
{
    return caption.replace("&&", "&");
}

// The kinds of controls and the text that each shows; no kind for what only holds other controls.
Description Describe(const QWidget* control)
{
    if (const auto* option = qobject_cast<const QRadioButton*>(control))
        return {"option", Stated(option->text())};
    if (const auto* check = qobject_cast<const QCheckBox*>(control)) return {"check", Stated(check->text())};
    if (const auto* button = qobject_cast<const QAbstractButton*>(control))
        return {"button", Stated(button->text())};
    if (const auto* box = qobject_cast<const QLineEdit*>(control)) return {"text", box->text()};
    if (const auto* page = qobject_cast<const QPlainTextEdit*>(control)) return {"text", page->toPlainText()};
    if (const auto* page = qobject_cast<const QTextEdit*>(control)) return {"text", page->toPlainText()};
    if (const auto* label = qobject_cast<const QLabel*>(control)) return {"label", label->text()};
    if (const auto* combo = qobject_cast<const QComboBox*>(control)) return {"combo", combo->currentText()};
    if (const auto* frame = qobject_cast<const QGroupBox*>(control)) return {"frame", Stated(frame->title())};
    if (qobject_cast<const QListView*>(control) != nullptr) return {"list", {}};
    return {"", {}};
}

const QTableView* AsGrid(const QWidget* control)
{
    return qobject_cast<const QTableView*>(control);
}

// The page of the report: a grid of one column to those who read it.
const QPlainTextEdit* AsPage(const QWidget* control)
{
    return control->objectName().startsWith("grid") ? qobject_cast<const QPlainTextEdit*>(control) : nullptr;
}

// The control itself, or a part of it (the text of a combo box, the viewport of a list).
bool HasFocus(const QWidget* control)
{
    const QWidget* focused = QApplication::focusWidget();
    return focused != nullptr && (focused == control || control->isAncestorOf(focused)) &&
           qobject_cast<const QGroupBox*>(control) == nullptr;
}

bool IsOn(const QWidget* control)
{
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    return button != nullptr && button->isCheckable() && button->isChecked();
}

std::string Marks(const QWidget* control)
{
    std::string marks;
    if (!control->isEnabled()) marks += " disabled";
    if (IsOn(control)) marks += " on";
    if (HasFocus(control)) marks += " focus";
    return marks;
}

void AddEntries(const QComboBox& combo, Lines& lines)
{
    for (int i = 0; i < combo.count(); ++i)
        lines.push_back((i == combo.currentIndex() ? " * " : " - ") + combo.itemText(i).toStdString());
}

void AddEntries(const QListView& list, Lines& lines)
{
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        const QModelIndex entry = list.model()->index(row, 0);
        const bool chosen = list.selectionModel()->isSelected(entry);
        lines.push_back((chosen ? " * " : " - ") + entry.data().toString().toStdString());
    }
}

std::string GridRow(const QAbstractItemModel& model, int row)
{
    std::string line = "|";
    for (int column = 0; column < model.columnCount(); ++column) {
        if (column > 0) line += '\t';
        line += model.index(row, column).data().toString().toStdString();
    }
    return line;
}

std::string GridHeading(const QWidget& grid, std::size_t rows, int columns, int row, int column)
{
    return grid.objectName().toStdString() + " grid " + std::to_string(rows) + " x " +
           std::to_string(columns) + " at " + std::to_string(row) + "," + std::to_string(column) +
           Marks(&grid);
}

void AddGrid(const QTableView& grid, Lines& lines)
{
    const QAbstractItemModel& model = *grid.model();
    const QModelIndex at = grid.currentIndex();
    const auto rows = static_cast<std::size_t>(model.rowCount());
    lines.push_back(GridHeading(grid, rows, model.columnCount(), at.row(), at.column()));
    for (int row = 0; row < model.rowCount(); ++row)
        lines.push_back(GridRow(model, row));
}

void AddPage(const QPlainTextEdit& page, Lines& lines)
{
    const Lines rows = LinesOf(&page);
    lines.push_back(GridHeading(page, rows.size(), 1, 0, 0));
    for (const std::string& row : rows)
        lines.push_back("|" + row);
}

void AddControl(const QWidget* control, Lines& lines)
{
    if (const QTableView* grid = AsGrid(control)) {
        AddGrid(*grid, lines);
        return;
    }
    if (const QPlainTextEdit* page = AsPage(control)) {
        AddPage(*page, lines);
        return;
    }
    const auto [kind, text] = Describe(control);
    std::string line = control->objectName().toStdString() + " " + kind;
    if (qobject_cast<const QListView*>(control) == nullptr)
        line.append(" ").append(Quote(text.toStdString()));
    lines.push_back(line + Marks(control));
    if (const auto* combo = qobject_cast<const QComboBox*>(control)) AddEntries(*combo, lines);
    if (const auto* list = qobject_cast<const QListView*>(control)) AddEntries(*list, lines);
}

bool IsControl(const QWidget* widget)
{
    const QString name = widget->objectName();
    if (name.isEmpty() || name.startsWith("qt_") || !widget->isVisible()) return false;
    return AsGrid(widget) != nullptr || *Describe(widget).Kind != '\0';
}

// Controls inside of a form; what is inside of a control belongs to it, save for the contents of a frame.
void Collect(const QWidget* parent, std::vector<const QWidget*>& controls)
{
    for (const QObject* child : parent->children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (widget == nullptr || widget->isWindow()) continue;
        if (IsControl(widget)) controls.push_back(widget);
        const bool holds =
            *Describe(widget).Kind == '\0' || qobject_cast<const QGroupBox*>(widget) != nullptr;
        if (AsGrid(widget) == nullptr && holds) Collect(widget, controls);
    }
}

// Where the eye meets a control: at the middle of its first line.
QPoint ReadingPoint(const QWidget* control, const QWidget* screen)
{
    const int line = control->fontMetrics().height() * 3 / 2;
    const QPoint corner = control->mapTo(screen, QPoint(0, 0));
    if (qobject_cast<const QGroupBox*>(control) != nullptr) return corner;
    return corner + QPoint(0, std::min(control->height(), line) / 2);
}

// Rows from top to bottom; what stands less than half a line lower is still in the row.
void SortAsRead(std::vector<const QWidget*>& controls, const QWidget* screen)
{
    const auto lower = [screen](const QWidget* a, const QWidget* b) {
        return ReadingPoint(a, screen).y() < ReadingPoint(b, screen).y();
    };
    const auto further = [screen](const QWidget* a, const QWidget* b) {
        return ReadingPoint(a, screen).x() < ReadingPoint(b, screen).x();
    };
    std::stable_sort(controls.begin(), controls.end(), lower);
    for (auto row = controls.begin(); row != controls.end();) {
        const int limit = ReadingPoint(*row, screen).y() + (*row)->fontMetrics().height() / 2;
        const auto next = std::find_if(row, controls.end(),
                                       [&](const QWidget* w) { return ReadingPoint(w, screen).y() > limit; });
        std::stable_sort(row, next, further);
        row = next;
    }
}

std::string Flag(bool flag)
{
    return flag ? "-1" : "0";
}

std::string MenuLine(const MenuItem& item)
{
    std::string line = item.Name + " " + Quote(item.Caption);
    if (!item.Enabled) line += " disabled";
    if (!item.Visible) line += " hidden";
    return line;
}

}  // namespace

std::vector<std::string> DescribeScreen(const QWidget* screen)
{
    if (!screen->objectName().startsWith("frm")) return {Announcement(screen)};
    std::vector<const QWidget*> controls;
    Collect(screen, controls);
    SortAsRead(controls, screen);
    Lines lines{"form " + screen->objectName().toStdString() + " " +
                Quote(screen->windowTitle().toStdString())};
    for (const QWidget* control : controls)
        AddControl(control, lines);
    return lines;
}

std::vector<std::string> LinesOf(const QWidget* page)
{
    Lines lines;
    if (const auto* view = qobject_cast<const QAbstractItemView*>(page)) {
        for (int row = 0; row < view->model()->rowCount(); ++row)
            lines.push_back(view->model()->index(row, 0).data().toString().toStdString());
    } else if (const auto* text = qobject_cast<const QPlainTextEdit*>(page)) {
        for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next())
            lines.push_back(block.text().toStdString());
    }
    return lines;
}

std::vector<std::string> DescribeSession()
{
    Lines lines{
        "CurrentModule " + std::to_string(Session.CurrentModule),
        "ProblemTitle " + Quote(Session.ProblemTitle),
        "ProblemFileExtension " + Quote(Session.ProblemFileExtension),
        "ProblemFolder " + Quote(Session.ProblemFolder),
        "ProblemFileName " + Quote(Session.ProblemFileName),
        "ProblemOnDisplay " + Quote(Session.ProblemOnDisplay),
        "NewProblem " + Flag(Session.NewProblem),
        "DialogCancelled " + Flag(Session.DialogCancelled),
        "AskIncomplete " + Flag(Session.AskIncomplete),
        "IntegerProblem " + std::to_string(Session.IntegerProblem),
        "OutputDestination " + Quote(Session.OutputDestination),
        "CheckText " + Quote(Session.CheckText),
        "IsNumber " + Quote(Session.IsNumber),
        "EditDialogActive " + Flag(Session.EditDialogActive),
    };
    for (const MenuItem& item : Menus.Items())
        lines.push_back(MenuLine(item));
    return lines;
}

}  // namespace play
