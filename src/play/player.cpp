#include "play/player.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimerEvent>
#include <cstdlib>
#include <iostream>
#include <utility>

#include "play/alarm.h"
#include "play/controls.h"

namespace play {
namespace {

constexpr unsigned kPatienceSeconds = 30;
// Rounds of the event loop in which the program was at work, before a key is sent into it.
constexpr int kBusyRounds = 2;
constexpr int kMostActivations = 3;

}  // namespace

Player::Player(std::string name, std::istream& file, Stage stage, Listener& listener)
    : name_(std::move(name)), stage_(std::move(stage)), listener_(listener)
{
    listener_.Ignore(this);
    const auto told = [this] {
        QMetaObject::invokeMethod(
            this, [this] { StepsArrived(); }, Qt::QueuedConnection);
    };
    script_ = name_ == "-" ? FromStandardInput(told) : FromFile(file);
    Fetch();
}

void Player::Fetch()
{
    if (!next_) next_ = script_->Next();
}

// The program may be at work with the step before.
void Player::StepsArrived()
{
    if (ended_) return;
    const bool waited = std::exchange(waitsForLine_, false);
    Fetch();
    if (waited && next_) SetAlarm();
    if (running_ > 0 && EscapeIsNext()) escapeTimer_.start(0, this);
}

void Player::Start()
{
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &Player::ProgramWaits);
    SetAlarm();
}

Ending Player::Finish()
{
    play::StopAlarm();
    if (!ended_ && !next_) next_ = script_->Wait();
    if (!ended_ && next_) Fail(next_->Line, "the program has ended");
    return ending_;
}

// Nothing is left to be delivered, save for timers that are due. Those come before the one that is set here.
void Player::ProgramWaits()
{
    busyRounds_ = 0;
    if (ended_ || waitsForLine_ || idleCheck_.isActive()) return;
    eventsBefore_ = listener_.Events();
    idleCheck_.start(0, this);
}

void Player::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == escapeTimer_.timerId()) {
        BreakIn();
        return;
    }
    idleCheck_.stop();
    if (ended_ || listener_.Events() != eventsBefore_ || BringToFront()) return;
    DoNext();
}

// A desktop gives the keyboard to the window that comes to the front when another one is closed.
bool Player::BringToFront()
{
    const QWidget* screen = ScreenInFront();
    QWidget* window = screen == nullptr ? nullptr : screen->window();
    const bool isActive = window == nullptr || QApplication::activePopupWidget() != nullptr ||
                          window == QApplication::activeWindow();
    if (isActive || activations_ == kMostActivations) return false;
    ++activations_;
    window->activateWindow();
    return true;
}

bool Player::EscapeIsNext() const
{
    return next_ && CheckStep(*next_).empty() && next_->Name() == "key" &&
           next_->Argument(1).Text == "Escape";
}

// Escape does not wait for a program that is at work.
void Player::BreakIn()
{
    if (ended_ || !EscapeIsNext()) {
        escapeTimer_.stop();
    } else if (++busyRounds_ > kBusyRounds) {
        escapeTimer_.stop();
        DoNext();
    }
}

void Player::DoNext()
{
    activations_ = 0;
    escapeTimer_.stop();
    display_.Refresh();
    if (stage_.Rest) {
        ++running_;
        std::exchange(stage_.Rest, {})();
        --running_;
        stage_.Out.Flush();
        return;
    }
    Fetch();
    if (!next_) {
        if (script_->HasEnded()) {
            End(Ending::Done);
        } else {
            waitsForLine_ = true;  // as long as it takes
            stage_.Out.Flush();
            play::StopAlarm();
        }
        return;
    }
    const Step step = *std::exchange(next_, std::nullopt);
    Fetch();
    Do(step);
}

void Player::Do(const Step& step)
{
    line_ = step.Line;
    SetAlarm();
    stage_.Out.Echo(step.Source);
    busyRounds_ = 0;
    if (EscapeIsNext()) escapeTimer_.start(0, this);
    ++running_;
    const Outcome check = CheckStep(step);
    const Outcome why = check.empty() ? Perform(step, stage_) : check;
    --running_;
    stage_.Out.Flush();
    if (!ended_ && !why.empty()) Fail(step.Line, why);
}

void Player::Fail(int line, const Outcome& why)
{
    stage_.Out.Flush();
    std::cerr << name_ << ":" << line << ": " << why << std::endl;
    End(Ending::NotDone);
}

// Inside of a dialog there is no orderly way out that does not answer it: the process ends where it stands.
void Player::End(Ending ending)
{
    ended_ = true;
    ending_ = ending;
    play::StopAlarm();
    stage_.Out.Flush();
    if (running_ > 0) std::_Exit(static_cast<int>(ending));
    QCoreApplication::exit();
}

// For the step that waits its turn; behind the last one, for what that has set going.
void Player::SetAlarm() const
{
    const int line = next_ ? next_->Line : line_;
    stage_.Out.Flush();
    play::SetAlarm(name_ + ":" + std::to_string(line) + ": the program is not idle after " +
                       std::to_string(kPatienceSeconds) + " s\n",
                   kPatienceSeconds);
}

}  // namespace play
