// What a module hands to the shell, and the table of the twelve modules.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "basic/records.h"
#include "desktop/dialogs.h"
#include "picture/picture.h"
#include "shell/report.h"

// Result of a cell commit.
constexpr int kCellStored = 0;
constexpr int kCellEmpty = 888;    // empty, and the user has not yet been asked about it
constexpr int kCellRefused = 999;  // refused, and already reported

enum class TopMenu { File, Edit, Solution };

// A box that a solve wants shown.
struct Notice {
    std::string Text = {};
    std::string Title = "Solution";
    Icon Sign = Icon::Information;
};

// What a solve gave. It is told and shown by the shell.
struct SolveOutcome {
    bool Solved = true;                // there is a page to show
    std::string Caption = "Solution";  // title of the window that shows it
    std::vector<Notice> Before = {};   // boxes before the page, or instead of it
    std::vector<Notice> After = {};    // boxes over the page
    bool BrokenOff = false;            // by the user, or out of room: the cell at work keeps the focus
};

// When "Solving Problem . . ." stays in the indicator behind a solve, until something else is shown there.
enum class StatusStays { Never, BehindReport, WithoutReport };

// A second opinion: an inquiry that runs beside the program, in a thread of its own, until it has come to its
// end or is told to stop, and what is to be told of it, in the program's. An empty inquiry asks nothing.
using SecondTelling = std::function<std::vector<picture::Sentence>()>;
using SecondInquiry = std::function<SecondTelling(const std::stop_token& stop)>;

// The routines of a module. Those marked "may be missing" are left empty where the module has no use for
// them.
struct ModuleRoutines {
    // New: asks for the size and makes the arrays. False: the dialog was cancelled, nothing is displayed;
    // DialogCancelled tells as well.
    std::function<bool()> Ask = {};
    bool LeavesNewProblem = false;  // New does not clear NewProblem: projects show theirs empty until a solve

    // What the module adds when its problem form is loaded. May be missing.
    std::function<void()> FormLoaded = {};

    // Puts the stored problem on its form (empty cells when NewProblem is true). Pointer, menus and focus are
    // the shell's.
    std::function<void()> Fill = {};
    bool FillRunsForm = false;      // the form is modal: it comes last, and has its own end
    std::string FirstGrid = {};     // has the focus on the first cell of a new problem; empty: no grid has
    bool FocusesStoredToo = false;  // linear programs: behind every display, not a new problem's alone

    // Stores one cell of `gridDisplayEdit` (rows and columns as on the grid). May be missing.
    std::function<int(int row, int column, std::string_view text)> CommitCell = {};
    bool CornerIsClosed = false;  // the last row's last cell takes nothing

    // The sizes and cells of the problem in a row, in an order of the module's own, and back into the
    // problem: what undoing an entry restores. Missing where the problem is not entered in grids.
    std::function<std::vector<double>()> Numbers = {};
    std::function<void(const std::vector<double>& numbers)> TakeNumbers = {};

    // The problem check of Solve and Save: one of shell/checks.h. May be missing.
    std::function<bool()> Check = {};

    // Solve. Prepare builds the problem and shows the dialogs that come before the engine; false: one was
    // cancelled, the problem stays as it is. May be missing. Pointer, indicator, menus, boxes and page are
    // the shell's.
    std::function<bool()> Prepare = {};
    std::function<SolveOutcome()> Solve = {};       // the engine on the problem at hand; shows nothing
    std::function<void(ReportChannel&)> Page = {};  // the report on screen, its first line first
    bool PreparesUnderStatus = false;  // "Solving Problem . . ." stands while forecasting asks for its method
    StatusStays Status = StatusStays::Never;  // behind forecasts; where a network has no route
    bool PrintsWithoutReport = false;  // the networks' warning of nodes out of reach has a printed form

    // Items of the Edit menu (3 and above, or 2 with its submenu) that are off while a report is on screen.
    int FirstEditItem = 0;
    int LastEditItem = -1;
    std::vector<std::string> EditItems = {};          // captions of the items 3, 4, ...
    bool SeparatesEditItems = false;                  // item 1 parts them from item 0 (linear programs)
    std::string SubmenuCaption = {};                  // of item 2; empty: items 1 and 2 are hidden
    std::vector<std::string> LowerItems = {};         // captions of its items 0, 1, ...
    std::function<void(int item)> EditCommand = {};   // 3 and above; may be missing
    std::function<void(int item)> LowerCommand = {};  // 0 to 3; may be missing

    // "Display/Edit the Problem", where it does more than hide the report; may be missing.
    std::function<void()> ReturnToProblem = {};

    // Finishes what is being typed when a menu of the bar is opened; may be missing.
    std::function<void(TopMenu menu)> FinishEdit = {};

    // A form of the module besides the problem form, unloaded with it; may be empty.
    std::string SecondForm = {};
    bool ReloadResetsIndicator = false;  // New and Open put the module's indicator text back

    // The full report, routine after routine. BeforeReport may be missing.
    std::function<void()> BeforeReport = {};
    bool SolvesBeforeReport = false;  // solves once more behind it, and shows the page anew
    std::vector<std::function<void(ReportChannel&)>> Reports = {};

    // What stands beside the report, from the records of the problem and of its last result; computed when it
    // is first looked at. May be missing, may be empty; also asked for after a Solve without a report.
    std::function<std::vector<picture::Picture>()> Pictures = {};
    std::function<std::vector<picture::Step>()> Steps = {};
    std::function<std::vector<picture::Sentence>()> Meaning = {};
    std::function<SecondInquiry()> Opinion = {};  // told behind Meaning, once it has come to its end

    // Problem files. Read sizes the arrays afresh; its run-time errors are reported by the command, which
    // displays the problem behind it.
    std::function<void(RecordWriter&)> Write = {};
    std::function<void(RecordReader&)> Read = {};
    std::function<void()> Saved = {};  // the problem is in a file now; may be missing
};

struct Module {
    std::string Option = {};                          // "12. Markov Processes"
    std::string Indicator = {};                       // "Markov Processes Module"
    std::string Title = {};                           // "MARKOV PROCESSES PROBLEM"
    std::string Extension = {};                       // "MRK"
    std::string ProblemForm = {};                     // "frmProblem"
    std::optional<std::int16_t> IntegerProblem = {};  // what a click on the option stores, if anything
    std::string Description = {};  // on the selection screen and as the introduction on the problem form
    const ModuleRoutines* Routines = nullptr;  // null: not in this build
};

constexpr int kModuleCount = 12;

// Defined in modules.cpp, the only place that knows them all. The number is 1 to 12.
const Module& ModuleOf(int number);

// "Markov Processes".
std::string NameOf(const Module& module);

// The module of the session.
const Module& CurrentModule();
