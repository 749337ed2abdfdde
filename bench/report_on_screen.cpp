// Vantrel with the report of a Markov problem of ten states on screen, ended when it is painted.
//
//     report_on_screen [picture]
//
// With the picture beside the report; else the side pane is folded away before anybody looks at it.
#include <QAbstractButton>
#include <QTimer>
#include <string_view>

#include "firstpaint.h"
#include "problems.h"
#include "program.h"
#include "qt/application.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"

namespace {

constexpr int kModule = 12;
constexpr int kStates = 10;

void SolveProblem()
{
    const ModuleRoutines& routines = *ModuleOf(kModule).Routines;
    RecordReader file(bench::ProblemText(kModule, kStates));
    routines.Read(file);
    Session.NewProblem = false;
    DisplayProblem();
    QApplication::processEvents();
    Commands::Solve();
}

void FoldPane(const QWidget& window)
{
    window.findChild<QAbstractButton*>(QStringLiteral("cmdBeside"))->click();
}

void WaitUntilQuiet()
{
    constexpr int kMilliseconds = 100;
    QEventLoop loop;
    QTimer::singleShot(kMilliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

}  // namespace

int main(int argc, char* argv[])
{
    const bool withPicture = argc > 1 && std::string_view(argv[1]) == "picture";
    qt::Application application(argc, argv);
    Program program;
    program.Forms().Show("frmMenu");
    Commands::Start();
    Commands::SelectModule(kModule);
    Commands::ChooseModule();
    SolveProblem();
    if (!withPicture) FoldPane(*program.Forms().MainWindow());
    WaitUntilQuiet();
    FirstPaint paint;
    program.Forms().Show("frmSolution");
    for (QWidget* window : QApplication::topLevelWidgets())
        window->update();
    return QApplication::exec();
}
