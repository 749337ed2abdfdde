#include "qt/screen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScopedValueRollback>

#include "qt/forms.h"
#include "qt/text.h"

namespace qt {
namespace {

bool IsInput(const QEvent& event)
{
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

bool IsEscape(const QEvent& event)
{
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

void QtScreen::SetPointer(Pointer pointer)
{
    const bool shown = QGuiApplication::overrideCursor() != nullptr;
    escapePressed_ = false;  // a command begins or ends
    if (pointer == Pointer::Hourglass && !shown) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (pointer == Pointer::Normal && shown) QGuiApplication::restoreOverrideCursor();
}

QLabel* QtScreen::Label() const
{
    const QWidget* main = forms_.MainWindow();
    return main == nullptr ? nullptr : main->findChild<QLabel*>(QStringLiteral("lblmoduleindicator"));
}

void QtScreen::SetIndicator(std::string_view text)
{
    indicator_ = text;
    if (QLabel* label = Label()) label->setText(ToQt(text).replace(QLatin1String("&&"), QLatin1String("&")));
}

// Painted at once, without a look at the events that wait: nothing else may happen inside a command.
void QtScreen::Refresh()
{
    if (QWidget* main = forms_.MainWindow(); main != nullptr && main->isVisible()) main->repaint();
}

bool QtScreen::Interrupted()
{
    if (working_) return false;
    const QScopedValueRollback<bool> working(working_, true);
    qApp->installEventFilter(this);
    QApplication::processEvents();
    qApp->removeEventFilter(this);
    return std::exchange(escapePressed_, false);
}

// Input is dropped while a command runs, but for the Escape key, which is noticed.
bool QtScreen::eventFilter(QObject* /*watched*/, QEvent* event)
{
    if (!IsInput(*event)) return false;
    if (IsEscape(*event)) escapePressed_ = true;
    event->ignore();
    return true;
}

}  // namespace qt
