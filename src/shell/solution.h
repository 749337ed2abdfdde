// The report on screen: a page of text lines, shown by `frmSolution`.
//
// A module's solve-and-show routine calls BeginSolution with the first line, AddLine for the others and
// ShowSolution at the end.
#pragma once

#include <string>
#include <string_view>
#include <vector>

void BeginSolution(std::string_view firstLine);
void AddLine(std::string_view text = {});
void ShowSolution();  // shows the page and gives the focus to the main window

// The page as `frmSolution` shows it.
const std::vector<std::string>& SolutionLines();

void UnloadSolution();  // and disables Print and Save As Text File
void HideSolution();    // the same, but the page stays loaded
