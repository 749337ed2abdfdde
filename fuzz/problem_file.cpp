// The road of a problem file of one module: read, shown, written, solved, reported. VANTREL_FUZZ_MODULE is
// the module's number.
#include "basic/error.h"
#include "basic/records.h"
#include "input.h"
#include "network/vtshrtrt.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/report.h"
#include "shell/session.h"
#include "support/answers.h"

namespace {

std::string Written(const ModuleRoutines& routines)
{
    RecordWriter writer;
    routines.Write(writer);
    return writer.Text();
}

void ReadAndShow(const ModuleRoutines& routines, const std::string& text)
{
    RecordReader reader(text);
    routines.Read(reader);
    Session.NewProblem = false;
    DisplayProblem();
}

// The work on a network grows with the cube of its nodes, of which a file may give any number. Inputs with
// many would take all the time; those with more than the matrices have room for are refused at once.
bool TakesLong()
{
    constexpr int kManyNodes = 30;
    constexpr int kRefusedNodes = 500;
    const int nodes = Network::Problem.NumNodes;
    return CurrentModule().Extension == "S&S" && nodes > kManyNodes && nodes <= kRefusedNodes;
}

// A file that can be read and is written again reads back as the same problem; a linear program only when its
// lines were in order, which its reader does not ask for.
void ClaimRoundTrip(const ModuleRoutines& routines)
{
    const std::string first = Written(routines);
    ReadAndShow(routines, first);
    if (CurrentModule().Extension != "LPM") Claim(Written(routines) == first);
}

void SolveAndReport(const ModuleRoutines& routines)
{
    Commands::Solve();
    if (!Menus.Item("mnuSolutionPrinttoText").Enabled) return;
    TextFileChannel channel;
    if (routines.BeforeReport) routines.BeforeReport();
    for (const auto& report : routines.Reports)
        report(channel);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FakeDesktop desktop;
    desktop.screen.escapePressed = true;  // a solve that does not end is broken off
    AnswerSolveDialogs(desktop.forms);
    Commands::Start();
    Commands::SelectModule(VANTREL_FUZZ_MODULE);
    Commands::ChooseModule();
    const ModuleRoutines& routines = *CurrentModule().Routines;
    try {
        ReadAndShow(routines, TextOf(data, size));
        ClaimRoundTrip(routines);
        if (TakesLong()) return 0;
        SolveAndReport(routines);
    } catch (const RuntimeError&) {
        return 0;  // what the command's trap would tell the user
    }
    return 0;
}
