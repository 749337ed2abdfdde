#include "shell/commands.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "shell/beside.h"
#include "shell/menus.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

ShownMessage Question(std::string_view text, std::string_view title)
{
    return {std::string(text), std::string(title), Icon::Question, Buttons::YesNo};
}

const ShownMessage kFileInputError{"File Input Error.  Make sure this is a file for the current module.",
                                   "Error Opening File", Icon::Critical, Buttons::OK};

// Sessions with the Markov module, whose problem form is the tableau.
class CommandsOfTheShell : public testing::Test {
protected:
    void SetUp() override
    {
        folder = std::filesystem::temp_directory_path() /
                 ("vantrel-commands-" +
                  std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
        std::filesystem::create_directories(folder);
        Commands::Start();
        Commands::SelectModule(12);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    // The states of New, Open, Save, Change Modules, Edit, Solution, Print and Save As Text, '1' for on.
    static std::string MenuStates()
    {
        std::string states;
        for (const char* item :
             {"mnuFileNew", "mnuFileOpen", "mnuFileSave", "mnuFileChangeModules", "mnudispedit",
              "mnuSolution", "mnuSolutionPrinttoPrinter", "mnuSolutionPrinttoText"})
            states += Menus.Item(item).Enabled ? '1' : '0';
        return states;
    }

    static MenuItem DisplayItem() { return Menus.Item("mnudispeditsubs(0)"); }

    void NewProblem(const std::string& states = "2")
    {
        desktop.forms.onModal["frmUserInput"] = [states] { UserInput::TakeSizes({states}); };
        Commands::New();
    }

    void FillCells(const std::vector<std::string>& cells)
    {
        FakeGrid& grid = desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit");
        const int n = grid.Rows() - 1;
        for (int i = 0; i < n * n; ++i)
            grid.SetText(1 + i / n, 1 + i % n, cells[static_cast<std::size_t>(i)]);
    }

    void SolvedProblem()
    {
        Commands::ChooseModule();
        NewProblem();
        FillCells({"0.9", "0.1", "0.3", "0.7"});
        Commands::Solve();
    }

    [[nodiscard]] std::string Path(const std::string& name) const { return (folder / name).string(); }

    [[nodiscard]] std::string Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Path(name), std::ios::binary) << text;
        return Path(name);
    }

    [[nodiscard]] std::string Read(const std::string& name) const
    {
        std::ostringstream text;
        text << std::ifstream(Path(name), std::ios::binary).rdbuf();
        return text.str();
    }

    std::filesystem::path folder;
    FakeDesktop desktop;
};

}  // namespace

TEST_F(CommandsOfTheShell, WithoutAChoiceTheSelectionStays)
{
    Commands::Start();
    EXPECT_FALSE(Commands::ChooseModule());
    EXPECT_THAT(desktop.dialogs.messages,
                ElementsAre(ShownMessage{"You Must Select A Problem Module", "Invalid Selection",
                                         Icon::Exclamation, Buttons::OK}));
    EXPECT_TRUE(desktop.forms.IsLoaded("frmModuleSelection"));
}

TEST_F(CommandsOfTheShell, MenusFollowTheStatesOfASession)
{
    EXPECT_EQ(MenuStates(), "00000000");
    EXPECT_EQ(DisplayItem().Caption, "");

    Commands::ChooseModule();
    EXPECT_EQ(MenuStates(), "11010000");
    EXPECT_EQ(DisplayItem().Caption, "");
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(1)").Visible);
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(2)").Visible);

    NewProblem();
    EXPECT_EQ(MenuStates(), "11111100");
    EXPECT_EQ(DisplayItem().Caption, "&Display/Edit the Problem");
    EXPECT_FALSE(DisplayItem().Enabled);

    FillCells({"0.9", "0.1", "0.3", "0.7"});
    Commands::Solve();
    EXPECT_EQ(MenuStates(), "11111111");
    EXPECT_TRUE(DisplayItem().Enabled);

    Commands::EditItem(0);
    EXPECT_EQ(MenuStates(), "11111100");
    EXPECT_FALSE(DisplayItem().Enabled);
    EXPECT_FALSE(desktop.forms.Loaded("frmSolution").shown);

    Commands::ChangeModules();
    EXPECT_EQ(MenuStates(), "00000000");
    EXPECT_EQ(DisplayItem().Caption, "&Display/Edit the Problem");
    EXPECT_FALSE(desktop.forms.IsLoaded("frmProblem"));
    EXPECT_TRUE(desktop.forms.IsLoaded("frmModuleSelection"));
    EXPECT_EQ(Session.CurrentModule, 0);
    EXPECT_EQ(desktop.screen.indicator, "");

    Commands::SelectModule(12);
    Commands::ChooseModule();
    EXPECT_EQ(MenuStates(), "11010000");
    EXPECT_EQ(DisplayItem().Caption, "");
}

TEST_F(CommandsOfTheShell, AClosedReportLeavesTheProblem)
{
    SolvedProblem();
    Commands::SolutionClosed();
    EXPECT_EQ(MenuStates(), "11111100");
    EXPECT_FALSE(DisplayItem().Enabled);
    EXPECT_FALSE(desktop.forms.Loaded("frmSolution").shown);
    EXPECT_EQ(desktop.forms.focusedForm, "frmProblem");
}

TEST_F(CommandsOfTheShell, TheProblemFormIntroducesItsModule)
{
    Commands::ChooseModule();
    FakeForm& form = desktop.forms.Loaded("frmProblem");
    EXPECT_EQ(
        form.Text("txtLoadInfo"),
        "This module will analyze Markov processes with up to 10 states.  Both Markov processes involving "
        "steady-state behavior and absorbing states can be analyzed.");
    EXPECT_EQ(form.Text("lblLoadInfo"), "  Select 'File' and click 'New' or 'Open' to work with a problem.");
    NewProblem();
    EXPECT_FALSE(form.visible.at("txtLoadInfo"));
    EXPECT_FALSE(form.visible.at("lblLoadInfo"));
}

TEST_F(CommandsOfTheShell, NewAsksOnlyWithAProblemOnDisplay)
{
    Commands::ChooseModule();
    NewProblem();
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    desktop.dialogs.answers = {Answer::No};
    NewProblem("3");
    EXPECT_THAT(
        desktop.dialogs.messages,
        ElementsAre(Question("Are you sure you wish to create a new problem?", "Create New Problem")));
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
    NewProblem("3");
    EXPECT_EQ(desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit").Rows(), 4);
}

TEST_F(CommandsOfTheShell, ANewProblemAfterAReportStartsWithoutIt)
{
    SolvedProblem();
    NewProblem("2");
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_EQ(MenuStates(), "11111100");
}

TEST_F(CommandsOfTheShell, NewProblemStaysTrueAfterACancelledDialog)
{
    Commands::ChooseModule();
    desktop.forms.onModal["frmUserInput"] = [] { UserInput::CancelSizes(); };
    Commands::New();
    EXPECT_TRUE(Session.NewProblem);
    Commands::ChangeModules();
    EXPECT_THAT(desktop.dialogs.messages,
                ElementsAre(Question("Are you sure you wish to cancel the current problem?",
                                     "Cancel Current Problem")));
    EXPECT_FALSE(Session.NewProblem);
}

TEST_F(CommandsOfTheShell, ChangeModulesAsksWithAProblemOnDisplay)
{
    Commands::ChooseModule();
    NewProblem();
    desktop.dialogs.answers = {Answer::No, Answer::Yes};
    Commands::ChangeModules();
    EXPECT_EQ(desktop.dialogs.Last(),
              Question("Are you sure you wish to select a new module?", "Select New Module"));
    EXPECT_EQ(Session.CurrentModule, 12);
    Commands::ChangeModules();
    EXPECT_EQ(Session.CurrentModule, 0);
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
}

TEST_F(CommandsOfTheShell, OpenAsksThenLosesTheOldProblemEvenWhenCancelled)
{
    Commands::ChooseModule();
    NewProblem();
    Commands::Open();
    EXPECT_THAT(desktop.dialogs.messages,
                ElementsAre(Question("Are you sure you wish to retrieve another problem?",
                                     "Retrieve Another Problem")));
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    EXPECT_EQ(MenuStates(), "11010000");
}

TEST_F(CommandsOfTheShell, TheFileDialogsCarryTheModulesExtension)
{
    SetProgramFolder("/opt/program");
    Commands::SelectModule(12);
    Commands::ChooseModule();
    NewProblem();
    FillCells({"1", "0", "0", "1"});
    Commands::Save();
    Commands::Open();
    ASSERT_EQ(desktop.dialogs.fileQuestions.size(), 2U);
    const FileQuestion& save = desktop.dialogs.fileQuestions[0];
    EXPECT_TRUE(save.Saving);
    EXPECT_EQ(save.Title, "Save the Current Problem");
    EXPECT_EQ(save.Extension, "MRK");
    EXPECT_EQ(save.Filter, "MRK File|*.MRK|All Files (*.*)|*.*");
    EXPECT_EQ(save.Folder, "/opt/program/Problems");
    const FileQuestion& open = desktop.dialogs.fileQuestions[1];
    EXPECT_FALSE(open.Saving);
    EXPECT_EQ(open.Title, "Select a Previously Saved Problem");
}

TEST_F(CommandsOfTheShell, ASavedProblemComesBack)
{
    Commands::ChooseModule();
    NewProblem();
    FillCells({"0.25", ".75", "", "1"});
    desktop.dialogs.files = {Path("a.MRK"), Path("a.MRK")};
    Commands::Save();
    EXPECT_EQ(Read("a.MRK"), "2\r\n0.25\r\n0.75\r\n0\r\n1\r\n");
    EXPECT_EQ(Session.ProblemFileName, Path("a.MRK"));
    Commands::Open();
    FakeGrid& grid = desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit");
    EXPECT_THAT(grid.RowTexts(1), ElementsAre("1", "0.25", "0.75"));
    EXPECT_THAT(grid.RowTexts(2), ElementsAre("2", "0", "1"));
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
}

TEST_F(CommandsOfTheShell, AFailedCheckSavesNothing)
{
    Commands::ChooseModule();
    NewProblem();
    FillCells({"0.5", "0.4", "0", "1"});
    Commands::Save();
    EXPECT_EQ(desktop.dialogs.Last().Title, "WARNING");
    EXPECT_THAT(desktop.dialogs.fileQuestions, IsEmpty());
}

TEST_F(CommandsOfTheShell, FilesThatCannotBeReadLeaveTheFormEmpty)
{
    Commands::ChooseModule();
    const std::vector<std::string> files = {
        Write("short.MRK", "2\r\n0.5\r\n0.5\r\n"),
        Write("letters.MRK", "2\r\n0.5\r\nhalf\r\n0\r\n1\r\n"),
        Write("nul.MRK", std::string("2\r\n0.5\r\n0\0.5\r\n", 14)),
        Write("wide.MRK", "40000\r\n1\r\n"),
        Write("beyond.MRK", "11\r\n" + std::string(3000, '1') + "\r\n"),
        Write("negative.MRK", "-3\r\n"),
        Write("many.MRK",
              [] {
                  std::string text = "11\r\n";
                  for (int i = 0; i < 121; ++i)
                      text += "0.5\r\n";
                  return text;
              }()),
        Path("missing.MRK"),
    };
    for (const std::string& file : files) {
        desktop.dialogs.messages.clear();
        desktop.dialogs.files = {file};
        Commands::Open();
        EXPECT_THAT(desktop.dialogs.messages, ElementsAre(kFileInputError)) << file;
        EXPECT_EQ(Session.ProblemOnDisplay, "NO") << file;
        EXPECT_EQ(MenuStates(), "11010000") << file;
        EXPECT_EQ(desktop.screen.pointer, Pointer::Normal) << file;
    }
}

TEST_F(CommandsOfTheShell, AFolderThatIsMissingShowsTheErrorBox)
{
    Commands::ChooseModule();
    NewProblem();
    FillCells({"1", "0", "0", "1"});
    desktop.dialogs.files = {Path("no/such/folder/a.MRK")};
    Commands::Save();
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"Path not found", "Error # 76", Icon::Critical, Buttons::OK}));
}

TEST_F(CommandsOfTheShell, SolvingShowsThatItSolvesAndPutsTheIndicatorBack)
{
    SolvedProblem();
    EXPECT_THAT(desktop.screen.indicators,
                testing::IsSupersetOf({"Checking Problem Data. . .", "Solving Problem . . ."}));
    EXPECT_EQ(desktop.screen.indicator, "Markov Processes Module");
    EXPECT_THAT(desktop.screen.pointers, testing::Contains(Pointer::Hourglass));
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
    EXPECT_EQ(SolutionLines()[0], "Markov Processes Solution");
}

TEST_F(CommandsOfTheShell, AFailedCheckOfSolveTakesTheOldReportAway)
{
    SolvedProblem();
    FillCells({"0.9", "0.9", "0.3", "0.7"});
    Commands::Solve();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmSolution"));
    EXPECT_EQ(MenuStates(), "11111100");
    EXPECT_FALSE(DisplayItem().Enabled);
    EXPECT_EQ(desktop.screen.indicator, "Markov Processes Module");
}

TEST_F(CommandsOfTheShell, WhatStandsBesideTheReportComesAndGoesWithIt)
{
    Commands::ChooseModule();
    NewProblem();
    EXPECT_EQ(TheLastSolve.End(), SolveEnd::None);
    std::vector<SolveEnd> told;
    std::vector<bool> pageIsShown;
    TheLastSolve.Changed = [&] {
        told.push_back(TheLastSolve.End());
        pageIsShown.push_back(desktop.forms.IsLoaded("frmSolution"));
    };
    const int before = TheLastSolve.Number();
    FillCells({"0.9", "0.1", "0.3", "0.7"});
    Commands::Solve();
    EXPECT_EQ(TheLastSolve.Number(), before + 1);
    Commands::EditItem(0);
    Commands::Solve();
    Commands::SolutionClosed();
    Commands::Solve();
    NewProblem();
    EXPECT_EQ(TheLastSolve.Number(), before + 3);
    EXPECT_THAT(told, ElementsAre(SolveEnd::Report, SolveEnd::None, SolveEnd::Report, SolveEnd::None,
                                  SolveEnd::Report, SolveEnd::None));
    EXPECT_TRUE(pageIsShown[0] && pageIsShown[2] && pageIsShown[4]);
    TheLastSolve.Changed = {};
}

TEST_F(CommandsOfTheShell, AFailedCheckLeavesNothingBesideTheProblem)
{
    SolvedProblem();
    FillCells({"0.9", "0.9", "0.3", "0.7"});
    Commands::Solve();
    EXPECT_EQ(TheLastSolve.End(), SolveEnd::None);
}

TEST_F(CommandsOfTheShell, TheReportGoesToPaper)
{
    SolvedProblem();
    Commands::Print();
    EXPECT_EQ(desktop.printer.font, "Courier New");
    EXPECT_EQ(desktop.printer.pointSize, 12);
    EXPECT_EQ(desktop.printer.Lines().at(0), "MARKOV PROCESSES");
    EXPECT_EQ(Session.OutputDestination, "Printer");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
}

TEST_F(CommandsOfTheShell, ACancelledPrinterDialogChangesNothing)
{
    SolvedProblem();
    Session.OutputDestination = "File";
    desktop.printer.accepts = false;
    Commands::Print();
    EXPECT_THAT(desktop.printer.pages, IsEmpty());
    EXPECT_EQ(Session.OutputDestination, "File");
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(CommandsOfTheShell, AFailingPrinterShowsTheErrorBoxAndKeepsTheHourglass)
{
    SolvedProblem();
    desktop.printer.failure = ErrorNumber::PathFileAccess;
    Commands::Print();
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"Path/File access error", "Error # 75", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(desktop.screen.pointer, Pointer::Hourglass);
}

TEST_F(CommandsOfTheShell, TheReportGoesToATextFile)
{
    SolvedProblem();
    desktop.dialogs.files = {Write("a.OUT", "an older and longer file\n")};
    Commands::SaveAsText();
    const FileQuestion& question = desktop.dialogs.fileQuestions.back();
    EXPECT_TRUE(question.Saving);
    EXPECT_EQ(question.Title, "Print Current Problem to TEXT File");
    EXPECT_EQ(question.Extension, "OUT");
    EXPECT_EQ(question.Filter, "OUT File|*.OUT|All Files (*.*)|*.*");
    EXPECT_TRUE(Read("a.OUT").starts_with("MARKOV PROCESSES"));
    EXPECT_EQ(Read("a.OUT").find("older"), std::string::npos);
    EXPECT_EQ(Read("a.OUT").substr(0, 17), "MARKOV PROCESSES\n");
    EXPECT_EQ(Session.OutputDestination, "File");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
}

TEST_F(CommandsOfTheShell, NothingIsBegunForATextFileInAFolderThatIsNotThere)
{
    SolvedProblem();
    Session.OutputDestination = "Printer";
    desktop.dialogs.files = {"/no such folder/a.OUT"};
    Commands::SaveAsText();
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{"Path not found", "Error # 76", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(Session.OutputDestination, "Printer");
    EXPECT_EQ(desktop.screen.pointer, Pointer::Normal);
}

TEST_F(CommandsOfTheShell, AFullDiskIsFoundWhenTheTextIsWritten)
{
    if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no device here that is always full";
    SolvedProblem();
    desktop.dialogs.files = {"/dev/full"};
    Commands::SaveAsText();
    EXPECT_EQ(desktop.dialogs.Last(), (ShownMessage{"Disk full", "Error # 61", Icon::Critical, Buttons::OK}));
    EXPECT_EQ(Session.OutputDestination, "File");
}

TEST_F(CommandsOfTheShell, AModuleThatIsNotInThisBuildSaysSo)
{
    for (int number = 1; number <= kModuleCount; ++number) {
        if (ModuleOf(number).Routines != nullptr) continue;
        Commands::Start();
        Commands::SelectModule(number);
        Commands::ChooseModule();
        desktop.dialogs.messages.clear();
        Commands::New();
        EXPECT_THAT(desktop.dialogs.messages,
                    ElementsAre(ShownMessage{"The " + ModuleOf(number).Indicator + " is not in this build.",
                                             "Vantrel", Icon::Information, Buttons::OK}));
        EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    }
}

TEST_F(CommandsOfTheShell, TheSelectionGivesWayToTheProblemFormAndComesBack)
{
    EXPECT_TRUE(desktop.forms.Loaded("frmMenu").shown);
    EXPECT_TRUE(desktop.forms.Loaded("frmModuleSelection").shown);
    int focused = desktop.forms.menuFocused;
    Commands::ChooseModule();
    EXPECT_FALSE(desktop.forms.IsLoaded("frmModuleSelection"));
    EXPECT_TRUE(desktop.forms.Loaded("frmProblem").shown);
    EXPECT_EQ(desktop.forms.menuFocused, ++focused);
    Commands::ChangeModules();
    EXPECT_TRUE(desktop.forms.Loaded("frmModuleSelection").shown);
    EXPECT_EQ(desktop.forms.menuFocused, ++focused);
    EXPECT_EQ(Commands::LastModule(), 12);
    EXPECT_FALSE(Commands::ChooseModule());
    EXPECT_EQ(desktop.forms.menuFocused, ++focused);
}

TEST_F(CommandsOfTheShell, AStartPutsTheMenusBack)
{
    SolvedProblem();
    Commands::Start();
    EXPECT_EQ(MenuStates(), "00000000");
    EXPECT_EQ(DisplayItem().Caption, "");
}

TEST_F(CommandsOfTheShell, TheGuideOpensAtThePageOfTheModule)
{
    for (int number = 0; number <= kModuleCount; ++number) {
        Session.CurrentModule = static_cast<std::int16_t>(number);
        Commands::Help();
    }
    EXPECT_THAT(
        desktop.dialogs.guidePages,
        ElementsAre("index", "linear-programming", "transportation", "assignment",
                    "integer-linear-programming", "shortest-route", "minimal-spanning-tree", "pert-cpm",
                    "inventory", "waiting-lines", "decision-analysis", "forecasting", "markov-processes"));
}

TEST_F(CommandsOfTheShell, ANewProblemHasTheFocusOnItsFirstCell)
{
    Commands::ChooseModule();
    const int focused = desktop.forms.menuFocused;
    NewProblem();
    FakeGrid& grid = desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit");
    EXPECT_EQ(grid.focused, 1);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Column(), 1);
    EXPECT_FALSE(Session.NewProblem);
    EXPECT_EQ(desktop.forms.menuFocused, focused + 1);
    EXPECT_THAT(desktop.screen.pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
    EXPECT_FALSE(Menus.Item("mnudispeditsubs(1)").Visible);
}

TEST_F(CommandsOfTheShell, AStoredProblemLeavesTheFocusWithTheMenu)
{
    Commands::ChooseModule();
    Session.NewProblem = true;
    desktop.dialogs.files = {Write("a.MRK", "2\r\n0.25\r\n0.75\r\n0\r\n1\r\n")};
    Commands::Open();
    EXPECT_FALSE(Session.NewProblem);
    EXPECT_EQ(desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit").focused, 0);
}

TEST_F(CommandsOfTheShell, ACancelledNewBehindAProblemLeavesAnEmptyForm)
{
    Commands::ChooseModule();
    NewProblem();
    desktop.forms.onModal["frmUserInput"] = [] { UserInput::Sizes.Cancel(); };
    const int focused = desktop.forms.menuFocused;
    Commands::New();
    FakeForm& form = desktop.forms.Loaded("frmProblem");
    EXPECT_TRUE(form.shown);
    EXPECT_FALSE(form.visible.at("txtLoadInfo"));
    EXPECT_FALSE(form.visible.at("lblLoadInfo"));
    EXPECT_EQ(desktop.forms.menuFocused, focused + 1);
}

TEST_F(CommandsOfTheShell, ACancelledOpenHidesTheIntroductionToo)
{
    Commands::ChooseModule();
    Commands::Open();
    EXPECT_FALSE(desktop.forms.Loaded("frmProblem").visible.at("txtLoadInfo"));
}

TEST_F(CommandsOfTheShell, FilesAreWrittenAndReportsMadeUnderTheHourglass)
{
    SolvedProblem();
    desktop.screen.pointers.clear();
    Commands::Solve();
    EXPECT_THAT(desktop.screen.pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
    desktop.dialogs.files = {Path("a.MRK"), Path("a.OUT")};
    desktop.screen.pointers.clear();
    Commands::Save();
    EXPECT_THAT(desktop.screen.pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
    desktop.screen.pointers.clear();
    Commands::SaveAsText();
    EXPECT_THAT(desktop.screen.pointers, ElementsAre(Pointer::Hourglass, Pointer::Normal));
}

TEST_F(CommandsOfTheShell, SolveAndSaveAskAgainAboutEmptyCells)
{
    Commands::ChooseModule();
    NewProblem();
    FillCells({"", "1", "0", "1"});
    Session.AskIncomplete = false;
    Commands::Solve();
    EXPECT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.Last().Title, "Problem Incomplete");
    FillCells({"", "1", "0", "1"});
    Session.AskIncomplete = false;
    Commands::Save();
    EXPECT_EQ(desktop.dialogs.messages.size(), 2U);
    EXPECT_EQ(desktop.dialogs.Last().Title, "Problem Incomplete");
}

TEST_F(CommandsOfTheShell, TheReportHasAWindowOfItsOwnWithItsLinesAlone)
{
    SolvedProblem();
    const std::size_t lines = SolutionLines().size();
    const int focused = desktop.forms.menuFocused;
    EXPECT_TRUE(desktop.forms.Loaded("frmSolution").shown);
    EXPECT_EQ(desktop.forms.Loaded("frmSolution").caption, "Solution");
    Commands::Solve();
    EXPECT_EQ(SolutionLines().size(), lines);
    EXPECT_EQ(desktop.forms.menuFocused, focused + 2);  // with the page, and behind the solve
    Commands::ChangeModules();
    EXPECT_THAT(SolutionLines(), IsEmpty());
}

namespace {

// Keeps what its user has seen, and fails once when it is told to.
class WatchedScreen : public FakeScreen {
public:
    std::vector<std::string> seen;  // the indicator at each refresh
    int pointersUntilFailure = -1;
    int indicatorsUntilFailure = -1;

    void Refresh() override { seen.push_back(indicator); }
    void SetPointer(Pointer shape) override
    {
        FakeScreen::SetPointer(shape);
        if (pointersUntilFailure-- == 0) Raise(ErrorNumber::Overflow);
    }
    void SetIndicator(std::string_view text) override
    {
        FakeScreen::SetIndicator(text);
        if (indicatorsUntilFailure-- == 0) Raise(ErrorNumber::Overflow);
    }
};

class CommandsOnAWatchedScreen : public CommandsOfTheShell {
protected:
    void SetUp() override
    {
        desktop::Install({&desktop.dialogs, &screen, &desktop.forms, &desktop.printer});
        CommandsOfTheShell::SetUp();
        SolvedProblem();
        screen.seen.clear();
    }

    WatchedScreen screen;
};

}  // namespace

TEST_F(CommandsOnAWatchedScreen, TheUserSeesWhatIsDone)
{
    Commands::Solve();
    EXPECT_THAT(screen.seen, ElementsAre("Checking Problem Data. . .", "Markov Processes Module",
                                         "Solving Problem . . .", "Markov Processes Module"));
}

TEST_F(CommandsOnAWatchedScreen, ACheckThatFailsEndsTheSolveWithoutAReport)
{
    screen.indicatorsUntilFailure = 0;
    screen.SetPointer(Pointer::Hourglass);
    Commands::Solve();
    EXPECT_EQ(screen.pointer, Pointer::Normal);
    EXPECT_EQ(screen.indicator, "Markov Processes Module");
    EXPECT_EQ(MenuStates(), "11111100");
    EXPECT_FALSE(DisplayItem().Enabled);
    EXPECT_EQ(TheLastSolve.End(), SolveEnd::WithoutReport);
}

TEST_F(CommandsOnAWatchedScreen, AnEngineThatFailsEndsTheSolveWithNothing)
{
    screen.pointersUntilFailure = 0;
    const int focused = desktop.forms.menuFocused;
    Commands::Solve();
    EXPECT_EQ(screen.pointer, Pointer::Normal);
    EXPECT_EQ(screen.indicator, "Markov Processes Module");
    EXPECT_EQ(MenuStates(), "11111100");
    EXPECT_FALSE(DisplayItem().Enabled);
    EXPECT_EQ(TheLastSolve.End(), SolveEnd::None);
    EXPECT_EQ(desktop.forms.menuFocused, focused);
}

TEST_F(CommandsOnAWatchedScreen, AProblemThatCannotBeShownIsNone)
{
    desktop.dialogs.files = {Write("a.MRK", "2\r\n0.25\r\n0.75\r\n0\r\n1\r\n")};
    screen.pointersUntilFailure = 1;  // of the reading, of the display
    Commands::Open();
    EXPECT_EQ(desktop.dialogs.Last(), kFileInputError);
    EXPECT_EQ(Session.ProblemOnDisplay, "NO");
    EXPECT_EQ(MenuStates(), "11010000");
    EXPECT_EQ(desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit").Rows(), 0);
}

TEST_F(CommandsOfTheShell, AFileThatIsRefusedGivesTheFocusToTheMenu)
{
    Commands::ChooseModule();
    desktop.dialogs.files = {Path("missing.MRK")};
    const int focused = desktop.forms.menuFocused;
    Commands::Open();
    EXPECT_EQ(desktop.forms.menuFocused, focused + 1);
}

namespace {

void Choose(int module)
{
    Commands::Start();
    Commands::SelectModule(module);
    Commands::ChooseModule();
}

}  // namespace

TEST_F(CommandsOfTheShell, LinearProgramsHaveTheirOwnEditItems)
{
    for (const int module : {1, 4}) {
        Choose(module);
        EXPECT_TRUE(Menus.Item("mnudispeditsubs(1)").Visible);
        EXPECT_FALSE(Menus.Item("mnudispeditsubs(2)").Visible);
        EXPECT_EQ(DisplayItem().Caption, "&Display/Edit the Problem");
        EXPECT_EQ(Menus.Item("mnudispeditsubs(3)").Caption, "Add Constraints");
        EXPECT_EQ(Menus.Item("mnudispeditsubs(4)").Caption, "Delete Constraint");
        EXPECT_EQ(Menus.Item("mnudispeditsubs(5)").Caption, "Add Variables");
        EXPECT_EQ(Menus.Item("mnudispeditsubs(6)").Caption, "Delete Variable");
        EXPECT_EQ(Menus.Item("mnudispeditsubs(7)").Caption, "Change Optimization Type");
        EXPECT_EQ(CommitCell(1, 1, "5"), kCellStored);  // cells of their own grids
        Commands::ChangeModules();
        EXPECT_THROW((void)Menus.Item("mnudispeditsubs(3)"), RuntimeError);
    }
}

TEST_F(CommandsOfTheShell, TransportationHasASubmenu)
{
    Choose(2);
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(1)").Visible);
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(2)").Visible);
    EXPECT_EQ(Menus.Item("mnudispeditsubs(2)").Caption, "&Add/Delete Origins or Destinations");
    EXPECT_EQ(Menus.Item("mnudispeditsubslower(0)").Caption, "Add an Origin");
    EXPECT_EQ(Menus.Item("mnudispeditsubslower(1)").Caption, "Add a Destination");
    EXPECT_EQ(Menus.Item("mnudispeditsubslower(2)").Caption, "Delete an Origin");
    EXPECT_EQ(Menus.Item("mnudispeditsubslower(3)").Caption, "Delete a Destination");
}

TEST_F(CommandsOfTheShell, ProjectsTakeTheirEntryFormWithThem)
{
    Choose(7);
    const std::string entryForm = ModuleOf(7).Routines->SecondForm;
    desktop.forms.Load(entryForm);
    Commands::ChangeModules();
    EXPECT_FALSE(desktop.forms.IsLoaded(entryForm));
}

TEST_F(CommandsOfTheShell, ANewForecastPutsTheIndicatorBack)
{
    Choose(11);
    Session.ProblemOnDisplay = "YES";
    desktop.screen.indicator = "a method";
    Commands::New();
    EXPECT_EQ(desktop.screen.indicator, "Forecasting Module");
    Choose(12);
    Session.ProblemOnDisplay = "YES";
    desktop.screen.indicator = "as it was";
    Commands::New();
    EXPECT_EQ(desktop.screen.indicator, "as it was");
}

namespace {

// With a linear program on display, which does more at each command than a tableau.
class CommandsOfLinearPrograms : public CommandsOfTheShell {
protected:
    void SetUp() override
    {
        CommandsOfTheShell::SetUp();
        Choose(1);
        desktop.dialogs.files = {Write("a.LPM", "3\r\n\"MAX 5A+4B\"\r\n\"1A<10\"\r\n\"1B<3\"\r\n")};
        Commands::Open();
    }

    FakeForm& Form() { return desktop.forms.Loaded("frmLPproblem"); }
    FakeGrid& Objective() { return Form().GridOf("Grid(0)"); }
    FakeGrid& Constraints() { return Form().GridOf("Grid(1)"); }

    // The states of the items 3 to 7 of the Edit menu.
    static std::string EditStates()
    {
        std::string states;
        for (int index = 3; index <= 7; ++index)
            states += Menus.Item(EditItemName(index)).Enabled ? '1' : '0';
        return states;
    }
};

}  // namespace

TEST_F(CommandsOfLinearPrograms, AStoredOneHasTheFocusToo)
{
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_EQ(Objective().focused, 1);
    EXPECT_EQ(Objective().Row(), 1);
    EXPECT_EQ(Objective().Column(), 1);
}

TEST_F(CommandsOfLinearPrograms, EditItemsAreOffWhileAReportIsShown)
{
    EXPECT_EQ(EditStates(), "11111");
    Commands::Solve();
    EXPECT_EQ(MenuStates(), "11111111");
    EXPECT_EQ(EditStates(), "00000");
    Commands::EditItem(0);
    EXPECT_EQ(EditStates(), "11111");
}

// 5 * 10 + 4 * 3 = 62, with 6 for 5 in the objective 72.
TEST_F(CommandsOfLinearPrograms, PrintingSolvesWhatIsInTheGrids)
{
    Commands::Solve();
    const std::string before = testing::PrintToString(SolutionLines());
    const std::size_t lines = SolutionLines().size();
    EXPECT_THAT(before, testing::HasSubstr("62"));
    Objective().SetText(1, 1, "6");
    Commands::Print();
    EXPECT_THAT(testing::PrintToString(desktop.printer.Lines()), testing::HasSubstr("72"));
    EXPECT_THAT(testing::PrintToString(SolutionLines()), testing::HasSubstr("72"));
    EXPECT_EQ(SolutionLines().size(), lines);
}

TEST_F(CommandsOfLinearPrograms, AMenuThatOpensTakesTheNameThatIsBeingTyped)
{
    Objective().SetText(0, 1, "CHAIRS");
    Objective().Select(0, 1);
    Commands::OpenMenu(TopMenu::Solution);
    EXPECT_THAT(Constraints().Text(0, 1), testing::EndsWith(" CHAIRS"));
    Choose(12);
    EXPECT_NO_THROW(Commands::OpenMenu(TopMenu::Solution));  // has nothing to take
}

TEST_F(CommandsOfLinearPrograms, AnEditCommandIsOneStepOfTheHistory)
{
    const int rows = Constraints().Rows();
    const int focused = desktop.forms.menuFocused;
    const int steps = Form().steps;
    desktop.dialogs.inputs = {"2"};
    Commands::EditItem(3);
    EXPECT_EQ(Constraints().Rows(), rows + 2);
    EXPECT_EQ(Form().steps, steps + 1);
    EXPECT_GT(desktop.forms.menuFocused, focused);
    EXPECT_FALSE(Session.EditDialogActive);
}

TEST_F(CommandsOfLinearPrograms, AnEditCommandWaitsForARefusedCell)
{
    Constraints().commit = [](int, int, std::string_view) { return false; };
    Constraints().Type(1, 1, "x");
    Commands::EditItem(3);
    EXPECT_THAT(desktop.dialogs.prompts, IsEmpty());
    EXPECT_EQ(Constraints().focused, 1);
}

TEST_F(CommandsOfTheShell, TheSubmenuOfTransportationIsOnWithEveryProblem)
{
    Choose(2);
    desktop.dialogs.files = {Write("a.TRN", "0,1,1\r\n7\r\n5\r\n5\r\n")};
    Menus.SetEnabled("mnudispeditsubs(2)", false);  // as behind a report
    Commands::Open();
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_TRUE(Menus.Item("mnudispeditsubs(2)").Enabled);
    FakeGrid& grid = desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit");
    const int rows = grid.Rows();
    grid.commit = [](int, int, std::string_view) { return false; };
    grid.Type(1, 1, "x");
    Commands::LowerItem(0);
    EXPECT_EQ(grid.Rows(), rows);  // a refused cell comes first
    Commands::LowerItem(0);
    EXPECT_EQ(desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit").Rows(), rows + 1);
}
