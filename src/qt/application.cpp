#include "qt/application.h"

#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSettings>
#include <utility>

#include "basic/error.h"
#include "desktop/dialogs.h"
#include "qt/fields.h"

namespace qt {
namespace {

// The widget that takes the focus when `clicked` is pressed, as the toolkit finds it; null when none does.
QWidget* FocusTaker(QWidget& clicked)
{
    for (QWidget* widget = &clicked; widget != nullptr; widget = widget->parentWidget()) {
        QWidget* taker = widget;
        while (taker->focusProxy() != nullptr)
            taker = taker->focusProxy();
        const bool byClick = (widget->focusPolicy() & taker->focusPolicy() & Qt::ClickFocus) != 0;
        if (widget->isEnabled() && byClick) return taker;
        if (widget->isWindow() || taker->hasFocus()) break;
    }
    return nullptr;
}

bool IsWayOut(const QWidget& widget)
{
    return widget.property(kLeavesUnchecked).toBool();
}

// A click on the menu bar takes no focus: the commands themselves look at what is being typed.
bool LeavesByClick(const QWidget& from, QWidget& clicked)
{
    const QWidget* taker = FocusTaker(clicked);
    return taker != nullptr && taker != &from && !from.isAncestorOf(taker) && !taker->isAncestorOf(&from) &&
           !IsWayOut(*taker);
}

bool LeavesByKey(const QKeyEvent& event)
{
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return true;
        default:
            return false;
    }
}

// The toolkit keeps the places and sizes of its dialogs in a file of the user's account, and waits half a
// minute when another process holds that file's lock. Nothing is stored: it is led to where no file can be.
int& KeepingNothing(int& argc)
{
    for (const QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat})
        for (const QSettings::Scope scope : {QSettings::UserScope, QSettings::SystemScope})
            QSettings::setPath(format, scope, QStringLiteral("/dev/null"));
    return argc;
}

}  // namespace

Application::Application(int& argc, char** argv) : QApplication(KeepingNothing(argc), argv)
{
    connect(this, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        const bool opensMenus = qobject_cast<QMenuBar*>(now) != nullptr;
        if (opensMenus && before != nullptr && before != now) behindMenus_ = before;
        if (!opensMenus && now != nullptr) behindMenus_ = nullptr;
    });
}

void Application::Guard(QWidget* widget, Leaving kind, std::function<bool()> mayLeave)
{
    guards_[widget] = {kind, std::move(mayLeave)};
    connect(widget, &QObject::destroyed, this, [this](QObject* gone) { guards_.erase(gone); });
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        if (checking_ && event->type() == QEvent::WindowBlocked) toldMeanwhile_ = true;
        if (AsksForHelp(*receiver, *event)) {
            Help();
            event->accept();
            return true;
        }
        if (Prevents(receiver, *event)) {
            event->accept();
            return true;
        }
        if (std::exchange(losesRelease_, false))
            return NotifyClick(*receiver, *static_cast<QMouseEvent*>(event));
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        ShowError(error);
        return true;
    }
}

// The release of this press went to a message box on top of it; the click is completed here.
bool Application::NotifyClick(QObject& clicked, QMouseEvent& press)
{
    const QPointer<QObject> target = &clicked;
    QMouseEvent release(QEvent::MouseButtonRelease, press.position(), press.scenePosition(),
                        press.globalPosition(), press.button(), Qt::NoButton, press.modifiers(),
                        press.pointingDevice());
    const bool handled = QApplication::notify(&clicked, &press);
    if (!target.isNull()) QApplication::notify(target, &release);
    return handled;
}

// A press that was refused takes its release with it.
bool Application::Prevents(QObject* receiver, const QEvent& event)
{
    if (checking_) return false;
    if (event.type() == QEvent::Shortcut && PreventsCommand(*receiver)) return true;
    if (!receiver->isWidgetType()) return false;
    if (event.type() == QEvent::MouseButtonRelease && dropsRelease_) {
        dropsRelease_ = false;
        return true;
    }
    if (event.type() == QEvent::MouseButtonPress) dropsRelease_ = false;
    const Guarded* guard = FocusGuard();
    if (guard == nullptr) return false;
    if (!Leaves(*guard, *static_cast<QWidget*>(receiver), event)) return false;
    const bool pressed = event.type() == QEvent::MouseButtonPress;
    toldMeanwhile_ = false;
    const bool allowed = Allows(*guard);
    losesRelease_ = pressed && allowed && toldMeanwhile_;
    dropsRelease_ = pressed && !allowed;
    return !allowed;
}

// The shortcut of a menu item comes without a look at the menu: what is being typed is checked here.
bool Application::PreventsCommand(const QObject& item)
{
    return item.objectName().startsWith(QLatin1String("mnu")) && !LeavesTyped();
}

bool Application::LeavesTyped()
{
    const Guarded* guard = FocusGuard();
    return guard == nullptr || Allows(*guard);
}

bool Application::AsksForHelp(const QObject& receiver, const QEvent& event) const
{
    if (event.type() != QEvent::KeyPress || !Help || !receiver.isWidgetType()) return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

// A menu bar that has the keys gives them back: what stands behind it is still being typed.
QWidget* Application::Typed() const
{
    const bool inMenus = qobject_cast<QMenuBar*>(focusWidget()) != nullptr;
    return inMenus && behindMenus_ != nullptr ? behindMenus_.data() : focusWidget();
}

const Application::Guarded* Application::FocusGuard() const
{
    const auto found = guards_.find(Typed());
    return found == guards_.end() ? nullptr : &found->second;
}

bool Application::Leaves(const Guarded& guard, QWidget& receiver, const QEvent& event) const
{
    const QWidget& from = *Typed();
    if (receiver.window() != from.window()) return false;
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            return LeavesByClick(from, receiver);
        case QEvent::KeyPress:
            return guard.Kind == Leaving::Box && &receiver == &from &&
                   LeavesByKey(static_cast<const QKeyEvent&>(event));
        case QEvent::Shortcut:
            if (qobject_cast<QMenuBar*>(&receiver) != nullptr) return guard.Kind == Leaving::Grid;
            return &receiver != &from && !IsWayOut(receiver);
        default:
            return false;
    }
}

bool Application::Allows(const Guarded& guard)
{
    const QScopedValueRollback<bool> once(checking_, true);
    const auto mayLeave = guard.MayLeave;  // the widget may be gone when it returns
    bool allowed = true;
    Trap([&] { allowed = mayLeave(); });
    return allowed;
}

}  // namespace qt
