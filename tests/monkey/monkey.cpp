// Keys and clicks at random over every screen of the real program: it must neither crash nor hang, its menus
// and its session must stay what they can be, and what invariants.h says holds after each of them.
//
//   monkey SEED ACTIONS FOLDER PROBLEMS [MODULE]
//
// FOLDER is for what is saved, PROBLEMS is opened from. With a module it stays there.
#include <QAbstractButton>
#include <QApplication>
#include <QBasicTimer>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QScrollBar>
#include <QTimerEvent>
#include <array>
#include <cstdlib>
#include <deque>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "invariants.h"
#include "play/alarm.h"
#include "play/controls.h"
#include "play/hands.h"
#include "play/listener.h"
#include "program.h"
#include "qt/application.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"

namespace {

constexpr unsigned kPatienceSeconds = 30;
constexpr int kProject = 7;
constexpr int kMostKeyless = 50;

void Demand(bool holds, const char* what)
{
    if (holds) return;
    std::cerr << "monkey: " << what << std::endl;
    std::_Exit(EXIT_FAILURE);
}

// Tells what it has done last, so that a fault can be played again.
class Diary {
public:
    void Write(const std::string& action)
    {
        lines_.push_back(action);
        if (lines_.size() > kKept) lines_.pop_front();
    }
    void Show() const
    {
        for (const std::string& line : lines_)
            std::cerr << "  " << line << "\n";
    }

private:
    static constexpr std::size_t kKept = 30;
    std::deque<std::string> lines_;
};

class Monkey : public QObject {
public:
    Monkey(unsigned seed, int actions, QString folder, const QString& problems, int module, Program& program)
        : random_(seed),
          actions_(actions),
          folder_(std::move(folder)),
          problems_(QDir(problems).entryInfoList(QDir::Files)),
          module_(module),
          program_(program)
    {
        timer_.start(0, this);
    }

    [[nodiscard]] bool IsDone() const { return actions_ <= 0; }

protected:
    // The next action is due before this one is begun: it may run into a dialog and not come back until that
    // is closed.
    void timerEvent(QTimerEvent* /*event*/) override
    {
        timer_.stop();
        if (IsDone()) {
            End();
            return;
        }
        if (WaitsForKeys()) return;
        --actions_;
        timer_.start(0, this);
        play::SetAlarm("monkey: the program hangs\n", kPatienceSeconds);
        ++running_;
        Act();
        --running_;
        CheckSession();
        if (!IsAsked() && Session.CurrentModule != kProject) Hold(WhatBoxesDoNotHold());
        if (running_ > 0) return;  // a command waits for an answer
        Hold(WhatDoesNotHold());
        if (!IsAsked()) Hold(WhatBoxesDoNotHold());
    }

private:
    // Within a dialog there is no way out that does not answer it.
    void End() const
    {
        play::StopAlarm();
        std::cout << "monkey: done, " << play::DialogsShown() << " dialogs seen" << std::endl;
        if (running_ > 0) std::_Exit(EXIT_SUCCESS);
        QCoreApplication::exit();
    }

    // A window that has come up or gone needs some turns until another one is active.
    bool WaitsForKeys()
    {
        const QWidget* modal = play::ModalInFront();
        const bool comesUp = modal != nullptr && !modal->isActiveWindow();
        keyless_ = SomethingTakesTheNextKey() && !comesUp ? 0 : keyless_ + 1;
        if (keyless_ == 0) return false;
        Hold(keyless_ > kMostKeyless ? "nothing takes the next key" : "");
        if (QWidget* screen = play::ScreenInFront()) screen->window()->activateWindow();
        timer_.start(1, this);
        return true;
    }

    void Hold(const std::string& fault) const
    {
        if (fault.empty()) return;
        diary_.Show();
        Demand(false, fault.c_str());
    }

    // A message or a menu is up: what it speaks of may be half done.
    static bool IsAsked()
    {
        return qobject_cast<QMessageBox*>(play::ModalInFront()) != nullptr ||
               QApplication::activePopupWidget() != nullptr;
    }

    int Pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    bool Chance(int percent) { return Pick(100) < percent; }

    template <typename List>
    auto& OneOf(const List& list)
    {
        return list[static_cast<typename List::size_type>(Pick(static_cast<int>(list.size())))];
    }

    void Act()
    {
        if (program_.Screen().IsWorking()) {
            play::Press({.Key = "Escape"});
            return;
        }
        QWidget* screen = play::ScreenInFront();
        if (screen == nullptr) return;
        if (!screen->isActiveWindow()) screen->window()->activateWindow();
        if (module_ != 0 && GoesToModule(*screen)) return;
        if (auto* box = qobject_cast<QMessageBox*>(screen))
            AnswerBox(*box);
        else if (auto* dialog = qobject_cast<QFileDialog*>(screen))
            AnswerFile(*dialog);
        else if (qobject_cast<QPrintDialog*>(screen) != nullptr)
            play::Press({.Key = "Escape"});
        else if (Chance(30))
            Type();
        else if (Chance(12))
            UseTable();
        else if (Chance(2))
            ResizeWindow();
        else if (Chance(25) && play::ModalInFront() == nullptr)
            ChooseFromMenus();
        else if (Chance(60))
            ClickSomewhere(*screen);
        else
            PressSomeKey();
    }

    // What waits for the answer goes on with it before anything else happens.
    void AnswerBox(const QMessageBox& box)
    {
        QAbstractButton* button = OneOf(box.buttons());
        diary_.Write("answer " + button->text().toStdString());
        timer_.stop();
        play::Click(button, button->rect().center());
        timer_.start(0, this);
    }

    void AnswerFile(const QFileDialog& dialog)
    {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        if (name == nullptr || problems_.isEmpty() || Chance(20)) {
            play::Press({.Key = "Escape"});
            return;
        }
        const bool saving = dialog.acceptMode() == QFileDialog::AcceptSave;
        name->setFocus();
        name->setText(saving ? folder_ + "/" + QString::number(Pick(20))
                             : SomeProblem(dialog.defaultSuffix()));
        play::Press({.Key = "Enter"});
    }

    // Mostly one of the module's own.
    QString SomeProblem(const QString& extension)
    {
        QFileInfo problem = OneOf(problems_);
        for (int tries = 0; problem.suffix() != extension && tries < 20; ++tries)
            problem = OneOf(problems_);
        return problem.absoluteFilePath();
    }

    // The start-up notice and the choice of a module are passed in the shortest way.
    bool GoesToModule(const QWidget& screen)
    {
        const QString option = QString("optProblemType(%1)").arg(module_);
        for (const QString& name : {option, QString("cmdOK")}) {
            auto* button = screen.findChild<QAbstractButton*>(name);
            const bool here =
                screen.objectName() == "frmStartup" || screen.objectName() == "frmModuleSelection";
            if (!here || button == nullptr || (name == option && button->isChecked())) continue;
            diary_.Write("click " + name.toStdString());
            play::Click(button, QPoint(10, button->height() / 2));
            return true;
        }
        return false;
    }

    // The keys of spreadsheets, and the wheel.
    void UseTable()
    {
        static const std::array<play::KeyStroke, 15> kKeys = {{{.Control = true, .Key = "z"},
                                                               {.Control = true, .Key = "z"},
                                                               {.Control = true, .Key = "y"},
                                                               {.Control = true, .Key = "c"},
                                                               {.Control = true, .Key = "x"},
                                                               {.Control = true, .Key = "v"},
                                                               {.Control = true, .Key = "v"},
                                                               {.Control = true, .Key = "a"},
                                                               {.Control = true, .Key = "End"},
                                                               {.Control = true, .Key = "Home"},
                                                               {.Shift = true, .Key = "Right"},
                                                               {.Shift = true, .Key = "Down"},
                                                               {.Shift = true, .Key = "Left"},
                                                               {.Key = "F2"},
                                                               {.Key = "Escape"}}};
        if (Chance(15)) {
            TurnWheel();
            return;
        }
        const play::KeyStroke& stroke = OneOf(kKeys);
        diary_.Write("key " + std::string(stroke.Control ? "Ctrl+" : "") + (stroke.Shift ? "Shift+" : "") +
                     stroke.Key);
        play::Press(stroke);
    }

    void TurnWheel()
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            for (auto* grid : window->findChildren<qt::EntryGrid*>()) {
                if (!grid->isVisible()) continue;
                diary_.Write("scroll " + grid->objectName().toStdString());
                grid->verticalScrollBar()->setValue(Pick(grid->verticalScrollBar()->maximum() + 1));
                grid->horizontalScrollBar()->setValue(Pick(grid->horizontalScrollBar()->maximum() + 1));
            }
    }

    void ResizeWindow()
    {
        constexpr int kLeast = 300;
        constexpr int kMore = 1200;
        diary_.Write("resize");
        if (QWidget* main = program_.Forms().MainWindow())
            main->resize(kLeast + Pick(kMore), kLeast + Pick(kMore));
    }

    // Character by character: each of them goes where the user sees the cursor.
    void TypeAndWatch(const std::string& text)
    {
        const int dialogs = play::DialogsShown();
        diary_.Write("keys \"" + text + "\"");
        for (const char character : text) {
            const TypedKey watched;
            play::TypeCharacters(std::string(1, character));
            if (play::DialogsShown() != dialogs) return;
            Hold(watched.WhatDoesNotHold());
        }
    }

    void Type()
    {
        static const std::array<std::string, 16> kTexts = {"1", "2",  "3",      "5",       "10", "0.5",
                                                           "0", "-1", ".25",    "1000000", "X1", "<",
                                                           ">", "=",  "12.345", "a b"};
        TypeAndWatch(OneOf(kTexts));
        if (Chance(70)) {
            const std::string key = Chance(50) ? "Tab" : "Enter";
            diary_.Write("key " + key);
            play::Press({.Key = key});
        }
    }

    void PressSomeKey()
    {
        static const std::array<std::string, 18> kKeys = {
            "Enter",  "Tab", "Backtab", "Left", "Right",     "Up",     "Down", "Home", "End",
            "Delete", "F1",  " ",       "a",    "Backspace", "Escape", "9",    "-",    "."};
        static const std::array<std::string, 6> kAccessKeys = {"f", "e", "s", "n", "o", "d"};
        const bool access = Chance(15);
        const std::string& key = access ? OneOf(kAccessKeys) : OneOf(kKeys);
        const bool shift = !access && Chance(10);
        diary_.Write("key " + std::string(access ? "Alt+" : "") + (shift ? "Shift+" : "") + key);
        play::Press({.Alt = access, .Shift = shift, .Key = key});
    }

    // As a click beside an open menu does; the box that had the keys has them again.
    static void LeaveMenus()
    {
        constexpr int kDeepest = 4;
        for (int i = 0; i < kDeepest; ++i) {
            const bool inBar = qobject_cast<QMenuBar*>(QApplication::focusWidget()) != nullptr;
            if (!inBar && QApplication::activePopupWidget() == nullptr) return;
            play::Press({.Key = "Escape"});
        }
    }

    // Any spot of any control, also of one that is disabled.
    void ClickSomewhere(const QWidget& screen)
    {
        LeaveMenus();
        std::vector<QWidget*> controls;
        for (QWidget* control : screen.findChildren<QWidget*>())
            if (control->isVisible() && !control->size().isEmpty()) controls.push_back(control);
        if (controls.empty()) return;
        QWidget* control = OneOf(controls);
        const QPoint spot(Pick(control->width()), Pick(control->height()));
        diary_.Write("click " + control->objectName().toStdString() + " in " +
                     control->parentWidget()->objectName().toStdString());
        if (Chance(10))
            play::DoubleClick(control, spot);
        else
            play::Click(control, spot);
    }

    void ChooseFromMenus()
    {
        QMenuBar* bar = play::FindMenuBar();
        if (bar == nullptr) return;
        const auto menus = bar->actions();
        QAction* top = OneOf(menus);
        if (!top->isEnabled() || top->menu() == nullptr) return;
        const int dialogs = play::DialogsShown();
        play::OpenMenu(bar, top);
        if (play::DialogsShown() == dialogs) ChooseFrom(top->menu());
        play::CloseMenus();
    }

    void ChooseFrom(QMenu* menu)
    {
        QAction* item = OneOf(menu->actions());
        if (!menu->isVisible() || !item->isVisible() || !item->isEnabled() ||
            item->objectName() == "mnuFileExit" ||
            (module_ != 0 && item->objectName() == "mnuFileChangeModules"))
            return;
        diary_.Write("menu " + item->objectName().toStdString());
        play::ChooseItem(menu, item);
        if (item->menu() != nullptr && item->menu()->isVisible()) ChooseFrom(item->menu());
    }

    static void CheckSession()
    {
        Demand(Session.CurrentModule >= 0 && Session.CurrentModule <= kModuleCount,
               "there is no such module");
        Demand(Session.ProblemOnDisplay == "YES" || Session.ProblemOnDisplay == "NO",
               "a flag is neither yes nor no");
        const QMenuBar* bar = play::FindMenuBar();
        if (bar == nullptr) return;
        for (const QAction* top : bar->actions()) {
            const MenuItem& item = Menus.Item(top->objectName().toStdString());
            Demand(top->isEnabled() == item.Enabled, "a menu is not what its table says");
        }
    }

    std::mt19937 random_;
    int actions_;
    QString folder_;
    QFileInfoList problems_;
    int module_;  // 0: any
    Program& program_;
    QBasicTimer timer_;
    int running_ = 0;
    Diary diary_;
    int keyless_ = 0;  // turns in a row in which no key would go anywhere
};

}  // namespace

int main(int argc, char* argv[])
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() != 4 && arguments.size() != 5) return EXIT_FAILURE;
    const qt::Application application(argc, argv);
    play::Transcript transcript(std::cout);
    const play::Listener listener(transcript);
    Program program;
    program.Start();
    const auto seed = static_cast<unsigned>(std::stoul(arguments[0]));
    const int module = arguments.size() == 5 ? std::stoi(arguments[4]) : 0;
    const Monkey monkey(seed, std::stoi(arguments[1]), QString::fromStdString(arguments[2]),
                        QString::fromStdString(arguments[3]), module, program);
    while (!monkey.IsDone())
        QApplication::exec();  // it may have found its way to Exit
    return EXIT_SUCCESS;
}
