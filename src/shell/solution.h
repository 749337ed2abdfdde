// The report on screen: a page of text lines, shown by `frmSolution`.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/report.h"

void ShowSolution();  // shows the page and gives the focus to the main window

// The page as a report channel; its first line begins it.
class SolutionPage : public ReportChannel {
public:
    void NewPage() override {}
    [[nodiscard]] bool OnScreen() const override { return true; }
    [[nodiscard]] bool OnPaper() const override { return false; }

private:
    void Write(std::string_view text) override;

    bool begun_ = false;
};

// The page as `frmSolution` shows it.
const std::vector<std::string>& SolutionLines();

void UnloadSolution();  // and disables Print and Save As Text File
void HideSolution();    // the same, but the page stays loaded
