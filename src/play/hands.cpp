#include "play/hands.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QPointingDevice>
#include <QSpontaneKeyEvent>
#include <QTest>
#include <map>

namespace play {
namespace {

int dialogsShown = 0;

// As `notify` gets it from the desktop; the toolkit treats events that a program makes itself in other ways.
void Deliver(QWidget* widget, QEvent& event)
{
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
}

void Mouse(QEvent::Type type, QWidget* widget, QPoint where, Qt::KeyboardModifiers modifiers)
{
    const QPoint global = widget->mapToGlobal(where);
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, where, widget->window()->mapFromGlobal(global), global, Qt::LeftButton, held,
                      modifiers, QPointingDevice::primaryPointingDevice());
    Deliver(widget, event);
}

QWidget* KeyTarget()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
    QWidget* focused = QApplication::focusWidget();
    if (focused == nullptr) focused = QApplication::activeWindow();
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || (focused != nullptr && focused->window() == modal)) return focused;
    return modal->focusWidget() != nullptr ? modal->focusWidget() : modal;  // what is behind it takes no keys
}

// Shortcuts and menu keys come first, as on any desktop.
void KeyDown(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QWidget* target = KeyTarget();
    const bool intoPopup = QApplication::activePopupWidget() != nullptr;
    if (target == nullptr || qt_sendShortcutOverrideEvent(target, 0, key, modifiers, text)) return;
    if (intoPopup && QApplication::activePopupWidget() == nullptr)
        return;  // an open list takes Enter this early
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    if (QWidget* focused = KeyTarget()) Deliver(focused, event);
}

void KeyUp(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    QKeyEvent event(QEvent::KeyRelease, key, modifiers, text);
    if (QWidget* target = KeyTarget()) Deliver(target, event);
}

struct NamedKey {
    Qt::Key Key;
    const char* Text;
};

NamedKey KeyOfName(const std::string& name)
{
    static const std::map<std::string, NamedKey> kKeys = {
        {"Enter", {Qt::Key_Return, "\r"}},
        {"Tab", {Qt::Key_Tab, "\t"}},
        {"Backtab", {Qt::Key_Backtab, ""}},
        {"Left", {Qt::Key_Left, ""}},
        {"Right", {Qt::Key_Right, ""}},
        {"Up", {Qt::Key_Up, ""}},
        {"Down", {Qt::Key_Down, ""}},
        {"Home", {Qt::Key_Home, ""}},
        {"End", {Qt::Key_End, ""}},
        {"Delete", {Qt::Key_Delete, "\x7f"}},
        {"Backspace", {Qt::Key_Backspace, "\b"}},
        {"Escape", {Qt::Key_Escape, "\x1b"}},
    };
    if (const auto found = kKeys.find(name); found != kKeys.end()) return found->second;
    return {static_cast<Qt::Key>(Qt::Key_F1 + std::stoi(name.substr(1)) - 1), ""};
}

// A capital letter needs Shift to be typed, but not to be an access key: Alt+F is Alt and the key F.
void PressCharacter(const QString& character, Qt::KeyboardModifiers modifiers)
{
    const QChar letter = character.front();
    const auto key = static_cast<Qt::Key>(letter.toUpper().unicode());
    const bool typesText = (modifiers & (Qt::AltModifier | Qt::ControlModifier)) == 0;
    if (typesText && letter.isLetter() && (modifiers & Qt::ShiftModifier) != 0)
        Press(key, modifiers, character.toUpper());
    else if (typesText && letter.isUpper())
        Press(key, modifiers | Qt::ShiftModifier, character);
    else
        Press(key, modifiers, character);
}

Qt::KeyboardModifiers ModifiersOf(const KeyStroke& stroke)
{
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    modifiers.setFlag(Qt::AltModifier, stroke.Alt);
    modifiers.setFlag(Qt::ControlModifier, stroke.Control);
    modifiers.setFlag(Qt::ShiftModifier, stroke.Shift);
    return modifiers;
}

}  // namespace

int DialogsShown()
{
    return dialogsShown;
}

void CountDialog()
{
    ++dialogsShown;
}

void Click(QWidget* widget, QPoint where, Qt::KeyboardModifiers modifiers)
{
    CloseMenus();
    const QPointer<QWidget> target = widget;
    const int dialogs = DialogsShown();
    Mouse(QEvent::MouseButtonPress, widget, where, modifiers);
    if (!target.isNull() && DialogsShown() == dialogs)
        Mouse(QEvent::MouseButtonRelease, widget, where, modifiers);
}

void DoubleClick(QWidget* widget, QPoint where)
{
    const QPointer<QWidget> target = widget;
    const int dialogs = DialogsShown();
    Click(widget, where);
    for (const QEvent::Type type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease})
        if (!target.isNull() && target->isVisible() && DialogsShown() == dialogs)
            Mouse(type, widget, where, Qt::NoModifier);
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    if ((modifiers & Qt::AltModifier) != 0) KeyDown(Qt::Key_Alt, Qt::AltModifier, {});
    KeyDown(key, modifiers, text);
    KeyUp(key, modifiers, text);
    if ((modifiers & Qt::AltModifier) != 0) KeyUp(Qt::Key_Alt, Qt::NoModifier, {});
}

void Press(const KeyStroke& stroke)
{
    const QString key = QString::fromStdString(stroke.Key);
    if (Characters(stroke.Key).size() == 1) {
        PressCharacter(key, ModifiersOf(stroke));
        return;
    }
    const NamedKey named = KeyOfName(stroke.Key);
    Press(named.Key, ModifiersOf(stroke), named.Text);
}

void TypeCharacters(const std::string& text)
{
    const int dialogs = DialogsShown();
    for (const std::string& character : Characters(text)) {
        PressCharacter(QString::fromStdString(character), Qt::NoModifier);
        if (DialogsShown() != dialogs) return;
    }
}

void OpenMenu(QMenuBar* bar, QAction* menu)
{
    Click(bar, bar->actionGeometry(menu).center());
}

void ChooseItem(QMenu* menu, QAction* item)
{
    menu->setActiveAction(item);
    Press(Qt::Key_Return, Qt::NoModifier, "\r");
}

void CloseMenus()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        if (!popup->close()) return;
}

}  // namespace play
