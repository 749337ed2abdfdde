// The application object. Everything that happens to a control passes through it first, so it is here that a
// text box or a grid is checked before a click or a key takes the focus away.
#pragma once

#include <QApplication>
#include <QPointer>
#include <functional>
#include <map>

class QKeyEvent;
class QMouseEvent;

namespace qt {

enum class Leaving {
    Box,   // Tab, Backtab and Enter leave it
    Grid,  // these keys are its own; the access key of a menu leaves it
};

class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // What F1 does, wherever the focus is.
    std::function<void()> Help = {};

    // `mayLeave` answers false when the focus must stay, and has told the user why.
    void Guard(QWidget* widget, Leaving kind, std::function<bool()> mayLeave);

    // The check of what has the focus, for what leaves it in another way. False: it must stay, and has been
    // told.
    bool LeavesTyped();

private:
    struct Guarded {
        Leaving Kind = Leaving::Box;
        std::function<bool()> MayLeave;
    };

    bool Prevents(QObject* receiver, const QEvent& event);
    bool PreventsCommand(const QObject& item);
    [[nodiscard]] bool AsksForHelp(const QObject& receiver, const QEvent& event) const;
    [[nodiscard]] QWidget* Typed() const;
    [[nodiscard]] const Guarded* FocusGuard() const;
    [[nodiscard]] bool Leaves(const Guarded& guard, QWidget& receiver, const QEvent& event) const;
    bool Allows(const Guarded& guard);
    bool NotifyClick(QObject& clicked, QMouseEvent& press);

    std::map<const QObject*, Guarded> guards_;
    QPointer<QWidget> behindMenus_;  // what had the focus before the menu bar
    bool checking_ = false;
    bool dropsRelease_ = false;
    bool losesRelease_ = false;
    bool toldMeanwhile_ = false;  // a message box came up during the check
};

}  // namespace qt
