#include "shell/frmSolution.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "desktop/desktop.h"
#include "shell/commands.h"
#include "shell/solution.h"

namespace {

constexpr int kLeastPoints = 5;
constexpr int kMostPoints = 48;

int zoom = 0;  // points above the size that the page begins with; lasts until the program ends

QString PageText()
{
    QStringList lines;
    for (const std::string& line : SolutionLines())
        lines.append(QString::fromStdString(line));
    return lines.join('\n');
}

QFont PageFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setStyleHint(QFont::Monospace);
    return font;
}

// What is chosen is seen although the page has not the focus.
void ShowSelectionAlways(QWidget& page)
{
    QPalette colors = page.palette();
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText})
        colors.setColor(QPalette::Inactive, role, colors.color(QPalette::Active, role));
    page.setPalette(colors);
}

bool IsScrollKey(int key)
{
    switch (key) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

QToolButton* AddFindButton(QLayout* row, const char* name, const QString& caption, const QString& tip)
{
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(caption);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoRaise(true);
    row->addWidget(button);
    return button;
}

}  // namespace

frmSolution::frmSolution(QWidget* parent)
    : qt::ChildForm(parent), gridSolution(MakePage()), findBar_(MakeFindBar())
{
    setObjectName("frmSolution");
    setWindowTitle("Solution");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(gridSolution);
    layout->addWidget(findBar_);
    findBar_->hide();
    ShowZoom();
    gridSolution->viewport()->installEventFilter(this);
    findText_->installEventFilter(this);
}

QPlainTextEdit* frmSolution::MakePage()
{
    constexpr int kMargin = 16;
    auto* page = new QPlainTextEdit;
    page->setObjectName("gridSolution");
    page->document()->setDocumentMargin(kMargin);
    page->setAccessibleName("Solution");
    page->setReadOnly(true);
    page->setLineWrapMode(QPlainTextEdit::NoWrap);
    page->setUndoRedoEnabled(false);
    page->setFocusPolicy(Qt::NoFocus);  // the menus keep the keys
    ShowSelectionAlways(*page);
    return page;
}

QWidget* frmSolution::MakeFindBar()
{
    constexpr int kMargin = 6;
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    findText_ = new QLineEdit;
    findText_->setObjectName("txtFind");
    findText_->setAccessibleName("Find");
    findText_->setPlaceholderText("Find in the report");
    row->addWidget(findText_, 1);
    connect(findText_, &QLineEdit::textEdited, this, [this] { FindTyped(); });
    connect(
        AddFindButton(row, "cmdFindPrevious", QStringLiteral("\u2191"), "Find the one before (Shift+Enter)"),
        &QToolButton::clicked, this, [this] { Find(true); });
    connect(AddFindButton(row, "cmdFindNext", QStringLiteral("\u2193"), "Find the next one (Enter)"),
            &QToolButton::clicked, this, [this] { Find(false); });
    connect(AddFindButton(row, "cmdFindClose", QStringLiteral("\u2715"), "Close (Escape)"),
            &QToolButton::clicked, this, [this] { CloseFindBar(); });
    return bar;
}

void frmSolution::showEvent(QShowEvent* event)
{
    gridSolution->setPlainText(PageText());
    ChildForm::showEvent(event);
}

void frmSolution::changeEvent(QEvent* event)
{
    ChildForm::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && gridSolution != nullptr) ShowSelectionAlways(*gridSolution);
}

void frmSolution::ClosedByHand()
{
    Commands::SolutionClosed();
}

// ---- keys ----

bool frmSolution::TakeKey(QKeyEvent& key)
{
    if (IsScrollKey(key.key())) return Scroll(key);
    if (key.matches(QKeySequence::Copy)) {
        gridSolution->copy();
    } else if (key.matches(QKeySequence::SelectAll)) {
        gridSolution->selectAll();
    } else if (key.matches(QKeySequence::Find)) {
        OpenFindBar();
    } else {
        return key.modifiers().testFlag(Qt::ControlModifier) && ZoomByKey(key.key());
    }
    return true;
}

// A key that the page has no use for, at its ends, comes back.
bool frmSolution::Scroll(QKeyEvent& key)
{
    if (scrolls_) return false;
    const QScopedValueRollback<bool> once(scrolls_, true);
    QCoreApplication::sendEvent(gridSolution, &key);
    return true;
}

// ---- size ----

void frmSolution::ShowZoom()
{
    QFont font = PageFont();
    font.setPointSize(qBound(kLeastPoints, font.pointSize() + zoom, kMostPoints));
    gridSolution->setFont(font);
}

void frmSolution::Zoom(int steps)
{
    const int usual = PageFont().pointSize();
    zoom = steps == 0 ? 0 : qBound(kLeastPoints - usual, zoom + steps, kMostPoints - usual);
    ShowZoom();
}

// A key with Ctrl. Plus may come as the key that it shares.
bool frmSolution::ZoomByKey(int key)
{
    switch (key) {
        case Qt::Key_0:
            Zoom(0);
            return true;
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            Zoom(1);
            return true;
        case Qt::Key_Minus:
            Zoom(-1);
            return true;
        default:
            return false;
    }
}

// ---- finding ----

void frmSolution::OpenFindBar()
{
    findBar_->show();
    findText_->setFocus(Qt::ShortcutFocusReason);
    findText_->selectAll();
}

void frmSolution::CloseFindBar()
{
    findBar_->hide();
    desktop::TheForms().FocusMenu();
}

// While the text is being typed, what has been found grows with it.
void frmSolution::FindTyped()
{
    QTextCursor at = gridSolution->textCursor();
    at.setPosition(at.selectionStart());
    gridSolution->setTextCursor(at);
    Find(false);
}

// Around the ends of the page. A text that is not there is marked.
void frmSolution::Find(bool backward)
{
    const QTextDocument::FindFlags flags =
        backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QString text = findText_->text();
    bool found = text.isEmpty() || gridSolution->find(text, flags);
    if (!found) {
        const QTextCursor before = gridSolution->textCursor();
        gridSolution->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = gridSolution->find(text, flags);
        if (!found) gridSolution->setTextCursor(before);
    }
    QFont font = findText_->font();
    font.setStrikeOut(!found);
    findText_->setFont(font);
}

// ---- events of the page and of the bar ----

bool frmSolution::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == findText_ && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
        if (enter) Find(key.modifiers().testFlag(Qt::ShiftModifier));
        if (key.key() == Qt::Key_Escape) CloseFindBar();
        if (enter || key.key() == Qt::Key_Escape) return true;
    }
    if (watched != gridSolution->viewport()) return ChildForm::eventFilter(watched, event);
    if (event->type() == QEvent::Wheel) {
        const auto& wheel = static_cast<const QWheelEvent&>(*event);
        if (wheel.modifiers().testFlag(Qt::ControlModifier)) {
            if (wheel.angleDelta().y() != 0) Zoom(wheel.angleDelta().y() > 0 ? 1 : -1);
            return true;
        }
    }
    if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick)
        desktop::TheForms().FocusMenu();
    return ChildForm::eventFilter(watched, event);
}
