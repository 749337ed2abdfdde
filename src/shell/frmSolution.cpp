#include "shell/frmSolution.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "desktop/desktop.h"
#include "shell/commands.h"
#include "shell/solution.h"

namespace {

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

}  // namespace

frmSolution::frmSolution(QWidget* parent) : qt::ChildForm(parent)
{
    setObjectName("frmSolution");
    setWindowTitle("Solution");
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(0, 0, 0, 0);

    gridSolution = new QPlainTextEdit;
    gridSolution->setObjectName("gridSolution");
    gridSolution->setAccessibleName("Solution");
    gridSolution->setFont(PageFont());
    gridSolution->setReadOnly(true);
    gridSolution->setLineWrapMode(QPlainTextEdit::NoWrap);
    gridSolution->setUndoRedoEnabled(false);
    gridSolution->setFocusPolicy(
        Qt::NoFocus);  // the menus keep the keys; frmMenu passes the scrolling ones on
    gridSolution->viewport()->installEventFilter(this);
    page->addWidget(gridSolution);
}

void frmSolution::showEvent(QShowEvent* event)
{
    gridSolution->setPlainText(PageText());
    ChildForm::showEvent(event);
}

void frmSolution::ClosedByHand()
{
    Commands::SolutionClosed();
}

bool frmSolution::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick)
        desktop::TheForms().FocusMenu();
    return ChildForm::eventFilter(watched, event);
}
