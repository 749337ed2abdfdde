// Plays one script: does a step whenever the program has nothing left to do and waits for its user.
//
// A step that brings up a dialog does not return before the dialog is closed; the steps that follow run
// inside the dialog's own event loop, on top of it.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <istream>
#include <memory>
#include <optional>
#include <string>

#include "play/arrivals.h"
#include "play/display.h"
#include "play/listener.h"
#include "play/steps.h"

namespace play {

enum class Ending { Done = 0, NotDone = 1 };

class Player : public QObject {
public:
    // The name is the script's, as messages give it; "-" is standard input.
    Player(std::string name, std::istream& file, Stage stage, Listener& listener);

    // Begins to play; the event loop does the rest and ends with the script.
    void Start();
    // After the event loop: steps that are left when the program has ended by itself cannot be done.
    [[nodiscard]] Ending Finish();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void Fetch();         // the next step, where it has arrived
    void StepsArrived();  // from standard input
    [[nodiscard]] bool EscapeIsNext() const;
    void ProgramWaits();
    void BreakIn();
    bool BringToFront();
    void DoNext();
    void Do(const Step& step);
    void Fail(int line, const Outcome& why);
    void End(Ending ending);
    void SetAlarm() const;

    std::string name_;
    std::unique_ptr<Arrivals> script_;
    std::optional<Step> next_;  // the step that waits its turn
    bool waitsForLine_ = false;
    int line_ = 0;  // of the last step that has begun
    Stage stage_;
    Listener& listener_;
    Display display_;
    int running_ = 0;  // steps that have begun and not yet returned
    Ending ending_ = Ending::Done;
    bool ended_ = false;

    QBasicTimer idleCheck_;
    unsigned long eventsBefore_ = 0;
    int activations_ = 0;
    QBasicTimer escapeTimer_;
    int busyRounds_ = 0;
};

}  // namespace play
