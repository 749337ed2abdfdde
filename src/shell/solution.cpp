#include "shell/solution.h"

#include "desktop/desktop.h"
#include "shell/beside.h"
#include "shell/menus.h"

namespace {

constexpr std::string_view kForm = "frmSolution";

std::vector<std::string> lines;

}  // namespace

void SolutionPage::Write(std::string_view text)
{
    if (!begun_) lines.clear();
    lines.emplace_back(text);
    begun_ = true;
}

void ShowSolution()
{
    desktop::TheForms().Load(kForm);
    desktop::TheForms().Show(kForm);
    desktop::TheForms().FocusMenu();
}

const std::vector<std::string>& SolutionLines()
{
    return lines;
}

void UnloadSolution()
{
    desktop::TheForms().Unload(kForm);
    lines.clear();
    Menus.EnablePrinting(false);
    TheLastSolve.Set(SolveEnd::None);
}

void HideSolution()
{
    if (desktop::TheForms().IsLoaded(kForm)) desktop::TheForms().Hide(kForm);
    Menus.EnablePrinting(false);
    TheLastSolve.Set(SolveEnd::None);
}
