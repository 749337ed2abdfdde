// Vantrel with the report of a Markov problem of ten states on screen, ended when it is painted.
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

}  // namespace

int main(int argc, char* argv[])
{
    qt::Application application(argc, argv);
    Program program;
    program.Forms().Show("frmMenu");
    Commands::Start();
    Commands::SelectModule(kModule);
    Commands::ChooseModule();
    SolveProblem();
    QApplication::processEvents();
    FirstPaint paint;
    program.Forms().Show("frmSolution");
    for (QWidget* window : QApplication::topLevelWidgets())
        window->update();
    return QApplication::exec();
}
