// Overhears the program: writes what it shows, and its beeps, to the transcript.
#pragma once

#include <QObject>

#include "play/transcript.h"
#include "qt/dialogs.h"

namespace play {

class Listener : public QObject {
public:
    explicit Listener(Transcript& transcript);

    // Events that reached the program so far.
    [[nodiscard]] unsigned long Events() const { return events_; }
    // Whose events do not count.
    void Ignore(const QObject* object) { ignored_ = object; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Transcript& transcript_;
    unsigned long events_ = 0;
    const QObject* ignored_ = nullptr;
};

// The program's dialogs with an ear at the beep and at the guide.
class OverheardDialogs : public qt::QtDialogs {
public:
    explicit OverheardDialogs(Transcript& transcript) : transcript_(transcript) {}
    void Beep() override;
    void OpenGuide(std::string_view page) override;  // no browser comes up

private:
    Transcript& transcript_;
};

// The line of a dialog that has come up, `msgbox critical OK "..." "..."`; empty for other windows.
std::string Announcement(const QWidget* window);

}  // namespace play
