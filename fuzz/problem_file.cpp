// The road of a problem file of one module: read, shown, written, solved, reported. VANTREL_FUZZ_MODULE is
// the module's number.
#include "basic/error.h"
#include "basic/records.h"
#include "input.h"
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

// Whether every quote stands at an end of its field: the format has no way to write one inside a text.
bool QuotesEndFields(const std::string& text)
{
    const auto isEnd = [&text](std::size_t i) {
        return i >= text.size() || text[i] == ',' || text[i] == '\r' || text[i] == '\n';
    };
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '"' && !isEnd(i + 1) && i > 0 && !isEnd(i - 1)) return false;
    return true;
}

// A file that can be read and is written again reads back as the same problem; a linear program only when its
// lines were in order, which its reader does not ask for.
void ClaimRoundTrip(const ModuleRoutines& routines)
{
    const std::string first = Written(routines);
    ReadAndShow(routines, first);
    const bool isLinearProgram = CurrentModule().Extension == "LPM";
    if (QuotesEndFields(first) && !isLinearProgram) Claim(Written(routines) == first);
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
        SolveAndReport(routines);
    } catch (const RuntimeError&) {
        return 0;  // what the command's trap would tell the user
    }
    return 0;
}
