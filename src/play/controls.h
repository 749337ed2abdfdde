// The screens and controls that a user has in front of him, found by their names.
#pragma once

#include <QMenuBar>
#include <QString>
#include <QWidget>
#include <string>
#include <vector>

#include "play/outcome.h"

namespace play {

// The dialog that hides everything behind it, null when there is none.
QWidget* ModalInFront();

// The forms that can be reached, the one in front first. The main window is one of them.
std::vector<QWidget*> ScreensInFront();

// The first of them; a message box or another dialog of the desktop as well; null when nothing is shown.
QWidget* ScreenInFront();

// The form of that name, null when it cannot be reached.
QWidget* FindScreen(const QString& name);

// The main window's menu bar, null when there is none to be reached.
QMenuBar* FindMenuBar();

template <typename T>
struct Found {
    T* Control = nullptr;
    Outcome Why;  // filled when Control is null
};

// A control that can be used now: shown and enabled. The name may have the form's name and a point in front.
Found<QWidget> FindControl(const std::string& name);

// The same, when it must be of one class; `kind` names it in the message.
template <typename T>
Found<T> FindControlAs(const std::string& name, const char* kind)
{
    const auto [control, why] = FindControl(name);
    if (control == nullptr) return {nullptr, why};
    auto* found = qobject_cast<T*>(control);
    if (found == nullptr) return {nullptr, name + " is not a " + kind};
    return {found, {}};
}

}  // namespace play
