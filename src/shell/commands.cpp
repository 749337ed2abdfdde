#include "shell/commands.h"

#include <cctype>
#include <optional>

#include "basic/files.h"
#include "basic/records.h"
#include "desktop/desktop.h"
#include "shell/beside.h"
#include "shell/checks.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/solution.h"

namespace {

constexpr std::string_view kSelectionForm = "frmModuleSelection";

std::string programFolder;
int lastModule = 0;

const ModuleRoutines* Routines()
{
    return Session.CurrentModule == 0 ? nullptr : CurrentModule().Routines;
}

// The trap of a command. A dialog's cancel ends it silently; any other failure goes to `failed`.
template <typename Steps, typename Failed>
void Trap(Steps steps, Failed failed)
{
    try {
        steps();
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::CancelSelected) failed(error);
    }
}

template <typename Steps>
void TrapSilently(Steps steps)
{
    Trap(steps, [](const RuntimeError&) {});
}

bool ProblemIsOnDisplay()
{
    return Session.ProblemOnDisplay == "YES";
}

// ---- the problem form ----

void LoadProblemForm()
{
    const Module& module = CurrentModule();
    desktop::TheForms().Load(module.ProblemForm);
    Form& form = desktop::TheForms().Loaded(module.ProblemForm);
    form.SetText("txtLoadInfo", module.Description);
    form.SetText("lblLoadInfo", "  Select 'File' and click 'New' or 'Open' to work with a problem.");
    for (const char* item : {"mnuFileNew", "mnuFileOpen", "mnuFileChangeModules"})
        Menus.SetEnabled(item, true);

    Menus.SetCaption(EditItemName(0), "");  // there is no problem yet to go back to

    const ModuleRoutines* routines = module.Routines;
    const bool hasSubmenu = routines != nullptr && !routines->SubmenuCaption.empty();
    Menus.SetVisible(EditItemName(1), hasSubmenu || (routines != nullptr && routines->SeparatesEditItems));
    Menus.SetVisible(EditItemName(2), hasSubmenu);
    if (routines == nullptr) return;
    if (hasSubmenu) Menus.SetCaption(EditItemName(2), routines->SubmenuCaption);
    for (std::size_t i = 0; i < routines->LowerItems.size(); ++i)
        Menus.SetLowerItem(static_cast<int>(i), routines->LowerItems[i]);
    for (std::size_t i = 0; i < routines->EditItems.size(); ++i)
        Menus.SetEditItem(3 + static_cast<int>(i), routines->EditItems[i]);
    if (routines->FormLoaded) routines->FormLoaded();
}

void UnloadProblemForms()
{
    const ModuleRoutines* routines = Routines();
    if (routines != nullptr && !routines->SecondForm.empty())
        desktop::TheForms().Unload(routines->SecondForm);
    UnloadSolution();
    desktop::TheForms().Unload(CurrentModule().ProblemForm);
    for (const char* item :
         {"mnuFileNew", "mnuFileOpen", "mnuFileSave", "mnuFileChangeModules", "mnudispedit", "mnuSolution"})
        Menus.SetEnabled(item, false);
    Menus.RemoveEditItems();
}

void HideIntroduction()
{
    const std::string& name = CurrentModule().ProblemForm;
    if (!desktop::TheForms().IsLoaded(name)) return;
    Form& form = desktop::TheForms().Loaded(name);
    form.SetVisible("txtLoadInfo", false);
    form.SetVisible("lblLoadInfo", false);
}

Form& ProblemForm()
{
    return desktop::TheForms().Loaded(CurrentModule().ProblemForm);
}

// What an Edit command does to the problem is undone in one step.
class EditStep {
public:
    EditStep() { ProblemForm().BeginStep(); }
    ~EditStep() { ProblemForm().EndStep(); }
    EditStep(const EditStep&) = delete;
    EditStep& operator=(const EditStep&) = delete;
};

// The old problem goes, its form comes back empty.
void ReloadProblemForm()
{
    UnloadProblemForms();
    LoadProblemForm();
    desktop::TheForms().Show(CurrentModule().ProblemForm);
    HideIntroduction();
    const ModuleRoutines* routines = Routines();
    if (routines != nullptr && routines->ReloadResetsIndicator)
        desktop::TheScreen().SetIndicator(CurrentModule().Indicator);
}

// Whether the problem on display, if there is one, may go; it is gone then.
bool GiveUpProblem(std::string_view question, std::string_view title)
{
    if (!ProblemIsOnDisplay()) return true;
    if (MsgBox(question, title, Icon::Question, Buttons::YesNo) != Answer::Yes) return false;
    Session.ProblemOnDisplay = "NO";
    return true;
}

void TellNotBuilt()
{
    MsgBox("The " + CurrentModule().Indicator + " is not in this build.", "Vantrel", Icon::Information);
}

// The dispatch behind New. After a cancelled dialog NewProblem stays true until the next command that clears
// it.
void StartNewProblem()
{
    Session.NewProblem = true;
    const ModuleRoutines* routines = Routines();
    if (routines == nullptr) {
        TellNotBuilt();
        Session.NewProblem = false;
        return;
    }
    BeginProblem();
    if (!routines->LeavesNewProblem && !Session.DialogCancelled) Session.NewProblem = false;
}

// "7.  PERT/CPM" has the page "pert-cpm".
std::string GuidePage(const Module& module)
{
    std::string page;
    for (const char character : NameOf(module))
        page += character == ' ' || character == '/'
                    ? '-'
                    : static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    return page;
}

void ShowModuleSelection()
{
    lastModule = Session.CurrentModule;
    Session.CurrentModule = 0;
    desktop::TheScreen().SetIndicator("");
    desktop::TheForms().Load(kSelectionForm);
    desktop::TheForms().Show(kSelectionForm);
    desktop::TheForms().FocusMenu();
}

// ---- problem files ----

FileQuestion ProblemFileQuestion(bool saving, std::string_view title)
{
    const std::string& extension = Session.ProblemFileExtension;
    return {.Saving = saving,
            .Title = std::string(title),
            .Extension = extension,
            .Filter = extension + " File|*." + extension + "|All Files (*.*)|*.*",
            .Folder = Session.ProblemFolder};
}

std::string AskFile(const FileQuestion& question)
{
    const auto path = desktop::TheDialogs().AskFile(question);
    if (!path) Raise(ErrorNumber::CancelSelected);
    return *path;
}

// Shows the hourglass while it lives.
class Hourglass {
public:
    Hourglass() { desktop::TheScreen().SetPointer(Pointer::Hourglass); }
    ~Hourglass() { desktop::TheScreen().SetPointer(Pointer::Normal); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

void WriteProblemFile()
{
    const Hourglass hourglass;
    RecordWriter writer;
    CurrentModule().Routines->Write(writer);
    writer.Save(Session.ProblemFileName);
}

// A problem that could not be read or shown leaves its form as it is without one.
void RefuseProblemFile()
{
    Session.ProblemOnDisplay = "NO";
    ReloadProblemForm();
    desktop::TheForms().FocusMenu();
    MsgBox("File Input Error.  Make sure this is a file for the current module.", "Error Opening File");
}

void ReadProblemFile()
{
    Trap(
        [] {
            const Hourglass hourglass;
            RecordReader reader = RecordReader::FromFile(Session.ProblemFileName);
            CurrentModule().Routines->Read(reader);
            Session.NewProblem = false;
            DisplayProblem();
        },
        [](const RuntimeError&) { RefuseProblemFile(); });
}

// ---- the problem on display ----

void ShowMenusOfDisplay(const ModuleRoutines& routines)
{
    Session.ProblemOnDisplay = "YES";
    for (const char* item :
         {"mnudispedit", "mnuFileOpen", "mnuFileSave", "mnuFileChangeModules", "mnuSolution"})
        Menus.SetEnabled(item, true);
    ShowDisplayItem(false);
    Menus.EnableEditItems(routines.FirstEditItem, routines.LastEditItem, true);
}

void FocusFirstCell(const ModuleRoutines& routines)
{
    if (routines.FirstGrid.empty()) return;
    if (!Session.NewProblem && !routines.FocusesStoredToo) return;
    Grid& grid = ProblemForm().GridOf(routines.FirstGrid);
    if (grid.Columns() > 1) grid.Select(1, 1);  // a linear program may have no variables
    grid.SetFocus();
}

// ---- solving ----

// The Edit menu while the problem itself is on screen: its commands are on, there is nothing to go back to.
void ShowMenusOfProblem(const ModuleRoutines& routines)
{
    Menus.SetEnabled(EditItemName(0), false);
    Menus.EnableEditItems(routines.FirstEditItem, routines.LastEditItem, true);
}

// The same behind a solve that gave no report. A problem whose form is gone by then keeps the way back to it.
void ShowMenusWithoutReport(const ModuleRoutines& routines)
{
    ShowMenusOfProblem(routines);
    Menus.SetEnabled(EditItemName(0), static_cast<bool>(routines.ReturnToProblem));
    Menus.EnablePrinting(false);
}

void ShowNotices(const std::vector<Notice>& notices)
{
    for (const Notice& notice : notices)
        MsgBox(notice.Text, notice.Title, notice.Sign);
}

void ShowPage(const ModuleRoutines& routines, const std::string& caption)
{
    SolutionPage page;
    routines.Page(page);
    desktop::TheForms().Loaded("frmSolution").SetCaption(caption);
    ShowSolution();
}

void ShowStatus(const ModuleRoutines& routines)
{
    Menus.SetEnabled(EditItemName(0), true);
    Menus.EnableEditItems(routines.FirstEditItem, routines.LastEditItem, false);
    desktop::TheScreen().SetIndicator("Solving Problem . . .");
    desktop::TheScreen().Refresh();
}

// What stands behind every end of a solve: the normal pointer, the menus of the problem or of its report, the
// indicator's own text.
void LeaveSolving(const ModuleRoutines& routines, const std::string& indicator, SolveEnd end)
{
    Screen& screen = desktop::TheScreen();
    screen.SetPointer(Pointer::Normal);
    const bool keepsStatus = end == SolveEnd::Report          ? routines.Status == StatusStays::BehindReport
                             : end == SolveEnd::WithoutReport ? routines.Status == StatusStays::WithoutReport
                                                              : false;
    if (!keepsStatus) {
        screen.SetIndicator(indicator);
        screen.Refresh();
    }
    if (end != SolveEnd::Report) ShowMenusWithoutReport(routines);
    if (end == SolveEnd::Report || (end == SolveEnd::WithoutReport && routines.PrintsWithoutReport))
        Menus.EnablePrinting(true);
}

bool Prepared(const ModuleRoutines& routines)
{
    if (routines.PreparesUnderStatus) ShowStatus(routines);
    if (routines.Prepare && !routines.Prepare()) return false;
    if (!routines.PreparesUnderStatus) ShowStatus(routines);
    return true;
}

// The engine, its page and its boxes.
SolveOutcome SolveAndShow(const ModuleRoutines& routines)
{
    desktop::TheScreen().SetPointer(Pointer::Hourglass);
    SolveOutcome outcome = routines.Solve();
    ShowNotices(outcome.Before);
    if (outcome.Solved) ShowPage(routines, outcome.Caption);
    ShowNotices(outcome.After);
    return outcome;
}

// The problem as the user sees it is the one that is stored, and passes its check.
bool IsReady(const ModuleRoutines& routines)
{
    return FinishTyping() && (!routines.Check || routines.Check());
}

void SolveProblem()
{
    const ModuleRoutines& routines = *CurrentModule().Routines;
    UnloadSolution();
    Session.AskIncomplete = true;
    if (!IsReady(routines)) {
        ShowMenusOfProblem(routines);
        return;
    }
    const std::string indicator = desktop::TheScreen().Indicator();
    SolveEnd end = SolveEnd::None;
    bool failed = false;
    bool brokenOff = false;
    Trap(
        [&] {
            if (!Prepared(routines)) return;
            const SolveOutcome outcome = SolveAndShow(routines);
            end = outcome.Solved ? SolveEnd::Report : SolveEnd::WithoutReport;
            brokenOff = outcome.BrokenOff;
        },
        [&failed](const RuntimeError&) { failed = true; });
    LeaveSolving(routines, indicator, failed ? SolveEnd::None : end);
    if (!failed && !brokenOff) desktop::TheForms().FocusMenu();
    // The problem is still on screen, or there is none.
    if (!failed && end == SolveEnd::None) Menus.SetEnabled(EditItemName(0), false);
    TheLastSolve.Set(end);
}

void RunReports(ReportChannel& channel)
{
    const ModuleRoutines& routines = *CurrentModule().Routines;
    if (routines.BeforeReport) routines.BeforeReport();
    if (routines.SolvesBeforeReport && !SolveAndShow(routines).Solved) Menus.EnablePrinting(false);
    for (const auto& report : routines.Reports)
        report(channel);
}

// ---- the Edit menu ----

// An Edit command's failure is shown without an icon and under the program's own title.
void TellEditError(const RuntimeError& error)
{
    MsgBox(error.Text(), "Vantrel", Icon::None);
}

void ReturnToProblem()
{
    const ModuleRoutines& routines = *CurrentModule().Routines;
    if (routines.ReturnToProblem) {
        routines.ReturnToProblem();
        return;
    }
    HideSolution();
    ShowMenusOfProblem(routines);
    desktop::TheForms().FocusForm(CurrentModule().ProblemForm);  // the keys go to the table at once
}

}  // namespace

void SetProgramFolder(std::string_view folder)
{
    programFolder = folder;
}

int CommitCell(int row, int column, std::string_view text)
{
    const ModuleRoutines* routines = Routines();
    return routines != nullptr && routines->CommitCell ? routines->CommitCell(row, column, text)
                                                       : kCellStored;
}

void ShowDisplayItem(bool enabled)
{
    Menus.SetCaption(EditItemName(0), "&Display/Edit the Problem");
    Menus.SetVisible(EditItemName(0), true);
    Menus.SetEnabled(EditItemName(0), enabled);
}

void BeginProblem()
{
    if (CurrentModule().Routines->Ask())
        DisplayProblem();
    else
        desktop::TheForms().FocusMenu();
}

void DisplayProblem()
{
    const ModuleRoutines& routines = *CurrentModule().Routines;
    ShowMenusOfDisplay(routines);
    desktop::TheScreen().SetPointer(Pointer::Hourglass);
    if (!routines.FillRunsForm) routines.Fill();
    desktop::TheForms().FocusMenu();
    desktop::TheScreen().SetPointer(Pointer::Normal);
    if (routines.FillRunsForm) routines.Fill();
    FocusFirstCell(routines);
}

namespace Commands {

void Start()
{
    Session = {};
    Menus.Reset();
    desktop::TheForms().Load("frmMenu");
    desktop::TheForms().Show("frmMenu");
    ShowModuleSelection();
}

void SelectModule(int number)
{
    Session.CurrentModule = static_cast<std::int16_t>(number);
    const Module& module = CurrentModule();
    desktop::TheScreen().SetIndicator(module.Indicator);
    Session.ProblemTitle = module.Title;
    Session.ProblemFileExtension = module.Extension;
    if (module.IntegerProblem) Session.IntegerProblem = *module.IntegerProblem;
    Session.ProblemFolder = programFolder + "/Problems";
}

int LastModule()
{
    return lastModule;
}

bool ChooseModule()
{
    if (Session.CurrentModule == 0) {
        MsgBox("You Must Select A Problem Module", "Invalid Selection", Icon::Exclamation);
        desktop::TheForms().FocusMenu();
        return false;
    }
    desktop::TheForms().Unload(kSelectionForm);
    LoadProblemForm();
    desktop::TheForms().Show(CurrentModule().ProblemForm);
    desktop::TheForms().FocusMenu();
    return true;
}

void OpenMenu(TopMenu menu)
{
    if (desktop::TheForms().IsLoaded(kSelectionForm)) return;
    TrapSilently([menu] {
        const ModuleRoutines* routines = Routines();
        if (routines != nullptr && routines->FinishEdit) routines->FinishEdit(menu);
    });
}

void New()
{
    TrapSilently([] {
        HideIntroduction();
        const bool hadProblem = ProblemIsOnDisplay();
        if (!GiveUpProblem("Are you sure you wish to create a new problem?", "Create New Problem")) return;
        if (hadProblem) ReloadProblemForm();
        StartNewProblem();
    });
}

void Open()
{
    Trap(
        [] {
            HideIntroduction();
            const bool hadProblem = ProblemIsOnDisplay();
            if (!GiveUpProblem("Are you sure you wish to retrieve another problem?",
                               "Retrieve Another Problem"))
                return;
            if (hadProblem) ReloadProblemForm();
            if (Routines() == nullptr) {
                TellNotBuilt();
                return;
            }
            Session.ProblemFileName =
                AskFile(ProblemFileQuestion(false, "Select a Previously Saved Problem"));
            ReadProblemFile();
        },
        ShowError);
}

void Save()
{
    Trap(
        [] {
            Session.AskIncomplete = true;
            const ModuleRoutines& routines = *CurrentModule().Routines;
            if (!IsReady(routines)) return;
            Session.ProblemFileName = AskFile(ProblemFileQuestion(true, "Save the Current Problem"));
            WriteProblemFile();
            if (routines.Saved) routines.Saved();
        },
        ShowError);
}

void ChangeModules()
{
    TrapSilently([] {
        HideIntroduction();
        if (!ProblemIsOnDisplay())
            Session.NewProblem = false;
        else if (!GiveUpProblem("Are you sure you wish to select a new module?", "Select New Module"))
            return;
        UnloadProblemForms();
        ShowModuleSelection();
    });
}

void Solve()
{
    const std::string indicator = desktop::TheScreen().Indicator();
    Trap(SolveProblem, [&indicator](const RuntimeError&) {
        desktop::TheScreen().SetPointer(Pointer::Normal);
        desktop::TheScreen().SetIndicator(indicator);
        ShowMenusWithoutReport(*CurrentModule().Routines);
        TheLastSolve.Set(SolveEnd::WithoutReport);
    });
}

// Neither this nor the next brings the hourglass back behind an error: it stays, as it always has, until
// another command sets the pointer.
void Print()
{
    Trap(
        [] {
            Printer& printer = desktop::ThePrinter();
            if (!printer.Ask()) return;
            printer.Begin("Courier New", 12);
            desktop::TheScreen().SetPointer(Pointer::Hourglass);
            Session.OutputDestination = "Printer";
            PrinterChannel channel;
            RunReports(channel);
            printer.EndDoc();
            desktop::TheScreen().SetPointer(Pointer::Normal);
        },
        ShowError);
}

void SaveAsText()
{
    Trap(
        [] {
            const std::string path = AskFile({.Saving = true,
                                              .Title = "Print Current Problem to TEXT File",
                                              .Extension = "OUT",
                                              .Filter = "OUT File|*.OUT|All Files (*.*)|*.*",
                                              .Folder = Session.ProblemFolder});
            RequireWritable(path);  // nothing is begun for a file that cannot be had
            desktop::TheScreen().SetPointer(Pointer::Hourglass);
            Session.OutputDestination = "File";
            TextFileChannel channel;
            std::optional<ErrorNumber> failure;
            Trap([&] { RunReports(channel); }, [&](const RuntimeError& error) { failure = error.Number(); });
            channel.Save(path);  // a report that stops leaves the lines that it has come to
            if (failure) Raise(*failure);
            desktop::TheScreen().SetPointer(Pointer::Normal);
        },
        ShowError);
}

void EditItem(int index)
{
    Trap(
        [index] {
            if (index == 0) {
                ReturnToProblem();
                return;
            }
            const ModuleRoutines& routines = *CurrentModule().Routines;
            if (!routines.EditCommand || !FinishTyping()) return;
            const EditStep step;
            Session.EditDialogActive = true;
            routines.EditCommand(index);
            Session.EditDialogActive = false;
            desktop::TheForms().FocusMenu();
        },
        TellEditError);
}

void LowerItem(int index)
{
    Trap(
        [index] {
            const ModuleRoutines& routines = *CurrentModule().Routines;
            if (!routines.LowerCommand || !FinishTyping()) return;
            const EditStep step;
            routines.LowerCommand(index);
        },
        TellEditError);
}

void Help()
{
    desktop::TheDialogs().OpenGuide(Session.CurrentModule == 0 ? "index" : GuidePage(CurrentModule()));
}

void SolutionClosed()
{
    EditItem(0);
}

}  // namespace Commands
