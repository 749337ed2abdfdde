// What a user's hands do: clicks and key presses, sent to the widgets as the desktop sends them.
//
// A dialog that comes up under a key or a click runs inside it: these routines return when it is closed.
#pragma once

#include <QMenuBar>
#include <QPoint>
#include <QString>
#include <QWidget>

#include "play/script.h"

namespace play {

void Click(QWidget* widget, QPoint where, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void DoubleClick(QWidget* widget, QPoint where);

// To whatever has the focus.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});
void Press(const KeyStroke& stroke);

// The characters one by one, as long as no dialog comes up; `IsInterrupted` tells.
void TypeCharacters(const std::string& text);

// Opens the menu of the bar.
void OpenMenu(QMenuBar* bar, QAction* menu);
// Chooses the item in its open menu.
void ChooseItem(QMenu* menu, QAction* item);
void CloseMenus();

// Counts the dialogs that came up so far. What a hand had still to do when one came up is dropped, as the
// user cannot go on either.
int DialogsShown();
void CountDialog();

}  // namespace play
