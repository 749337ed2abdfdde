// Damaged problem files through the real screens: each is opened, solved, saved as text and saved again in
// every module of its extension. The program must come through all of them.
//
//   damaged VARIANTS FOLDER FILE...
//
// Each file is taken as it is and damaged in so many ways, the same ones every time.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <array>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "endurance/hand.h"
#include "play/alarm.h"
#include "program.h"
#include "qt/application.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"

namespace {

constexpr unsigned kPatienceSeconds = 60;

QByteArray Contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool IsPartOfNumber(char character)
{
    return (character >= '0' && character <= '9') || character == '.' || character == '-';
}

class Damage {
public:
    explicit Damage(unsigned seed) : random_(seed) {}

    QByteArray Done(QByteArray text)
    {
        if (text.isEmpty()) return text;
        const auto at = static_cast<qsizetype>(random_() % static_cast<unsigned>(text.size()));
        switch (random_() % 5) {
            case 0:
                return text.left(at);
            case 1:
                text[at] = static_cast<char>(random_() % 256);
                return text;
            case 2:
                return text.remove(at, static_cast<qsizetype>(random_() % 12));
            case 3:
                return text.insert(at, text.mid(static_cast<qsizetype>(at / 2), 20));
            default:
                return WithOtherNumber(text, at);
        }
    }

private:
    QByteArray WithOtherNumber(QByteArray text, qsizetype at)
    {
        static const std::array kNumbers = {"-1", "0",  "1",    "32767",  "32768", "2147483648", "1e308",
                                            "",   "\"", "0.49", "999999", "nan",   "101",        "-0.001"};
        while (at > 0 && !IsPartOfNumber(text[at]))
            --at;
        qsizetype end = at;
        while (end < text.size() && IsPartOfNumber(text[end]))
            ++end;
        while (at > 0 && IsPartOfNumber(text[at - 1]))
            --at;
        return text.replace(at, end - at, kNumbers[random_() % kNumbers.size()]);
    }

    std::mt19937 random_;
};

std::vector<int> ModulesOf(const QString& extension)
{
    std::vector<int> modules;
    for (int number = 1; number <= 12; ++number) {
        Commands::SelectModule(number);
        if (extension.compare(QString::fromStdString(Session.ProblemFileExtension), Qt::CaseInsensitive) == 0)
            modules.push_back(number);
    }
    return modules;
}

bool IsOn(const char* item)
{
    return Menus.Item(item).Enabled;
}

// The module's whole road, and back to the choice of modules.
void Try(int module, const QString& file, const QString& folder, Hand& hand)
{
    play::SetAlarm(file.toStdString() + " does not come to an end", kPatienceSeconds);
    Commands::SelectModule(module);
    Commands::ChooseModule();
    hand.File = file;
    Commands::Open();
    QCoreApplication::processEvents();
    hand.File = folder + "/saved";
    if (Session.ProblemOnDisplay == "YES" && IsOn("mnuSolutionSolve")) Commands::Solve();
    QCoreApplication::processEvents();
    if (IsOn("mnuSolutionPrinttoText")) Commands::SaveAsText();
    if (Session.ProblemOnDisplay == "YES" && IsOn("mnuFileSave")) Commands::Save();
    Commands::ChangeModules();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void Write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) file.write(text);
}

}  // namespace

int main(int argc, char* argv[])
{
    const qt::Application application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 4) return EXIT_FAILURE;
    const int variants = arguments[1].toInt();
    const QString folder = QDir(arguments[2]).absolutePath();
    Program program;
    Hand hand;
    Commands::Start();
    int tried = 0;
    for (const QString& given : arguments.mid(3)) {
        const QString extension = QFileInfo(given).suffix();
        const QByteArray text = Contents(given);
        Damage damage(static_cast<unsigned>(tried + 1));
        for (int variant = 0; variant <= variants; ++variant) {
            const QString file = folder + "/damaged." + extension;
            Write(file, variant == 0 ? text : damage.Done(text));
            for (const int module : ModulesOf(extension)) {
                Try(module, file, folder, hand);
                ++tried;
            }
        }
    }
    play::StopAlarm();
    std::cout << tried << " files tried, " << hand.FileDialogs() << " file dialogs\n";
    return hand.FileDialogs() >= tried ? EXIT_SUCCESS : EXIT_FAILURE;
}
