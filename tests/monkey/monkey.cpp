// Keys and clicks at random over every screen of the real program: it must neither crash nor hang, and its
// menus and its session must stay what they can be.
//
//   monkey SEED ACTIONS FOLDER PROBLEMS    FOLDER is for what is saved, PROBLEMS is opened from
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
#include <QTimerEvent>
#include <array>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "play/alarm.h"
#include "play/controls.h"
#include "play/hands.h"
#include "play/listener.h"
#include "program.h"
#include "qt/application.h"
#include "shell/menus.h"
#include "shell/session.h"

namespace {

constexpr unsigned kPatienceSeconds = 30;
constexpr int kMostModules = 12;

void Demand(bool holds, const char* what)
{
    if (holds) return;
    std::cerr << "monkey: " << what << std::endl;
    std::_Exit(EXIT_FAILURE);
}

class Monkey : public QObject {
public:
    Monkey(unsigned seed, int actions, QString folder, const QString& problems, const Program& program)
        : random_(seed),
          actions_(actions),
          folder_(std::move(folder)),
          problems_(QDir(problems).entryInfoList(QDir::Files)),
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
        --actions_;
        timer_.start(0, this);
        play::SetAlarm("monkey: the program hangs\n", kPatienceSeconds);
        ++running_;
        Act();
        --running_;
        CheckSession();
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
        if (auto* box = qobject_cast<QMessageBox*>(screen))
            AnswerBox(*box);
        else if (auto* dialog = qobject_cast<QFileDialog*>(screen))
            AnswerFile(*dialog);
        else if (qobject_cast<QPrintDialog*>(screen) != nullptr)
            play::Press({.Key = "Escape"});
        else if (Chance(30))
            Type();
        else if (Chance(25) && play::ModalInFront() == nullptr)
            ChooseFromMenus();
        else if (Chance(60))
            ClickSomewhere(*screen);
        else
            PressSomeKey();
    }

    void AnswerBox(const QMessageBox& box)
    {
        QAbstractButton* button = OneOf(box.buttons());
        play::Click(button, button->rect().center());
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

    void Type()
    {
        static const std::array<std::string, 16> kTexts = {"1", "2",  "3",      "5",       "10", "0.5",
                                                           "0", "-1", ".25",    "1000000", "X1", "<",
                                                           ">", "=",  "12.345", "a b"};
        play::TypeCharacters(OneOf(kTexts));
        if (Chance(70)) play::Press({.Key = Chance(50) ? "Tab" : "Enter"});
    }

    void PressSomeKey()
    {
        static const std::array<std::string, 18> kKeys = {
            "Enter",  "Tab", "Backtab", "Left", "Right",     "Up",     "Down", "Home", "End",
            "Delete", "F1",  " ",       "a",    "Backspace", "Escape", "9",    "-",    "."};
        static const std::array<std::string, 6> kAccessKeys = {"f", "e", "s", "n", "o", "d"};
        if (Chance(15))
            play::Press({.Alt = true, .Key = OneOf(kAccessKeys)});
        else
            play::Press({.Shift = Chance(10), .Key = OneOf(kKeys)});
    }

    // Any spot of any control, also of one that is disabled.
    void ClickSomewhere(const QWidget& screen)
    {
        std::vector<QWidget*> controls;
        for (QWidget* control : screen.findChildren<QWidget*>())
            if (control->isVisible() && !control->size().isEmpty()) controls.push_back(control);
        if (controls.empty()) return;
        QWidget* control = OneOf(controls);
        const QPoint spot(Pick(control->width()), Pick(control->height()));
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
            item->objectName() == "mnuFileExit")
            return;
        play::ChooseItem(menu, item);
        if (item->menu() != nullptr && item->menu()->isVisible()) ChooseFrom(item->menu());
    }

    static void CheckSession()
    {
        Demand(Session.CurrentModule >= 0 && Session.CurrentModule <= kMostModules,
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
    const Program& program_;
    QBasicTimer timer_;
    int running_ = 0;
};

}  // namespace

int main(int argc, char* argv[])
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() != 4) return EXIT_FAILURE;
    const qt::Application application(argc, argv);
    play::Transcript transcript(std::cout);
    const play::Listener listener(transcript);
    Program program;
    program.Start();
    const auto seed = static_cast<unsigned>(std::stoul(arguments[0]));
    const Monkey monkey(seed, std::stoi(arguments[1]), QString::fromStdString(arguments[2]),
                        QString::fromStdString(arguments[3]), program);
    while (!monkey.IsDone())
        QApplication::exec();  // it may have found its way to Exit
    return EXIT_SUCCESS;
}
