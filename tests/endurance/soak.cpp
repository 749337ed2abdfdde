// Solves and file dialogs over and over: the memory stays under a bound, and the last ones take no longer
// than the first ones.
//
//   soak SOLVES DIALOGS PROBLEM
//
// PROBLEM is a transition matrix.
#include <unistd.h>

#include <QApplication>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <iostream>

#include "endurance/hand.h"
#include "play/alarm.h"
#include "program.h"
#include "qt/application.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/session.h"

namespace {

constexpr int kMarkov = 12;
constexpr double kMostGrowth = 8;    // megabytes between the first quarter and the end
constexpr double kMostSlower = 1.7;  // the last quarter by the second one
constexpr unsigned kPatienceSeconds = 120;

double ResidentMegabytes()
{
    long total = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

void Settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

// The seconds of the processor that a quarter of the rounds takes.
double Quarter(int rounds, const std::function<void()>& round)
{
    const std::clock_t start = std::clock();
    for (int i = 0; i < rounds / 4; ++i) {
        play::SetAlarm("a round does not come to an end", kPatienceSeconds);
        round();
        Settle();
    }
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

bool Endures(const char* what, int rounds, const std::function<void()>& round)
{
    Quarter(rounds, round);  // the caches fill up
    const double before = ResidentMegabytes();
    const double early = Quarter(rounds, round);
    Quarter(rounds, round);
    const double late = Quarter(rounds, round);
    const double growth = ResidentMegabytes() - before;
    std::cout << rounds << " " << what << ": " << growth << " MB more, a quarter took " << early
              << " s and then " << late << " s\n";
    return growth < kMostGrowth && late < kMostSlower * early + 0.5;
}

}  // namespace

int main(int argc, char* argv[])
{
    const qt::Application application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) return EXIT_FAILURE;
    Program program;
    Hand hand;
    Commands::Start();
    Commands::SelectModule(kMarkov);
    Commands::ChooseModule();
    hand.File = arguments[3];
    Commands::Open();
    if (Session.ProblemOnDisplay != "YES") return EXIT_FAILURE;
    int reports = 0;
    bool endures = Endures("solves", arguments[1].toInt(), [&reports] {
        Commands::Solve();
        Settle();
        reports += Menus.Item("mnuSolutionPrinttoText").Enabled ? 1 : 0;
        Commands::EditItem(0);
    });
    endures = endures && reports == arguments[1].toInt() / 4 * 4;
    hand.File.clear();
    endures = Endures("file dialogs", arguments[2].toInt(), Commands::Save) && endures;
    play::StopAlarm();
    return endures && hand.FileDialogs() > arguments[2].toInt() / 4 * 4 ? EXIT_SUCCESS : EXIT_FAILURE;
}
