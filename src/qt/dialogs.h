// The dialogs of the toolkit: message boxes, the input box, the file dialog, the beep.
#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

#include "desktop/dialogs.h"

class QWidget;

namespace qt {

class QtDialogs : public Dialogs {
public:
    Answer MsgBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) override;
    std::string InputBox(std::string_view prompt, std::string_view title) override;
    // The dialog is named "dialogFile". Its properties "filter" and "folder" hold what it was asked with.
    std::optional<std::string> AskFile(const FileQuestion& question) override;
    void OpenGuide(std::string_view page) override;
    void Beep() override;  // a session player overrides it, to hear it
};

// What a message speaks of: the box or the cell that has the focus behind it. On the whole screen; nothing
// where there is none.
QRect SpokenOf(const QWidget* behind);
// Moves a window that has just come up to where it does not cover what it speaks of.
void StepAside(QWidget& window, const QRect& spoken);

// Where a window stands in `room` without covering `of`: below it, above it or beside it. As it stood where
// there is no such place.
QRect StandClear(const QRect& window, const QRect& of, const QRect& room);

// The name filters of "OUT File|*.OUT|All Files (*.*)|*.*": each pattern in any case, "*.*" for every file.
QStringList NameFilters(std::string_view filter);

}  // namespace qt
