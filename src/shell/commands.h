// The commands of the main window, told for all modules at once. Each runs under one trap for run-time
// errors.
#pragma once

#include <string_view>

#include "shell/module.h"

namespace Commands {

// Behind the start-up notice: an empty session, the main window with the module selection.
void Start();

// `frmModuleSelection`
void SelectModule(int number);  // a click on an option, 1 to 12
int LastModule();               // the one that was left for the selection; 0: none yet
bool ChooseModule();            // its OK; false: none is chosen, the form stays

// A menu of the bar is opened: what is being typed is finished first.
void OpenMenu(TopMenu menu);

void New();
void Open();
void Save();
void ChangeModules();

void Solve();
void Print();
void SaveAsText();

void EditItem(int index);   // 0: "Display/Edit the Problem"
void LowerItem(int index);  // submenu of item 2

// The guide's page of the module, or its first page while none is chosen.
void Help();

// The window of the report was closed by hand.
void SolutionClosed();

}  // namespace Commands

// The program's own folder, set once at start; the folder of problems stands in it.
void SetProgramFolder(std::string_view folder);

// Edit item 0 with its caption, visible.
void ShowDisplayItem(bool enabled);

// Asks for a new problem and displays it; the focus goes to the main window when the dialog is cancelled.
void BeginProblem();
// Shows the stored problem on its form: it is on display now, and the menus follow.
void DisplayProblem();

// Commits one cell of the tableau form through the current module.
int CommitCell(int row, int column, std::string_view text);
