#include "desk.h"

#include "problems.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/report.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "support/answers.h"

namespace bench {

Desk::Desk(int module, int size)
{
    AnswerSolveDialogs(desktop_.forms);
    Commands::Start();
    Commands::SelectModule(module);
    Commands::ChooseModule();
    const ModuleRoutines& routines = *CurrentModule().Routines;
    RecordReader file(ProblemText(module, size));
    routines.Read(file);
    Session.NewProblem = false;
    DisplayProblem();
}

void Desk::Solve()
{
    Commands::Solve();
}

std::string Desk::Report()
{
    const ModuleRoutines& routines = *CurrentModule().Routines;
    TextFileChannel file;
    if (routines.BeforeReport) routines.BeforeReport();
    if (routines.SolvesBeforeReport) {
        SolutionPage page;
        routines.Solve();
        routines.Page(page);
    }
    for (const auto& report : routines.Reports)
        report(file);
    return file.Text();
}

}  // namespace bench
