#include "decision/DecisionCheck.h"

#include "decision/VtDecisionAnalysis.h"
#include "shell/checks.h"
#include "shell/module.h"

namespace Decision {
namespace {

constexpr std::string_view kForm = "frmDecisionProblem";

void TellWrongSum(int pass, double rowSum)
{
    const char* what = pass == kStateProbabilities ? " states of nature" : " indicator outcomes";
    TellRowSum("The sum of the probabilities for the " + std::to_string(Count(pass)) + what, rowSum, ".");
}

// One pass over its grid.
bool Walk(int pass, bool& focusGrid)
{
    const std::string name = ArrayGrid(pass);
    Grid& grid = GridOn(kForm, name);
    const bool sums = pass != kPayoffs;
    for (int row = 1; row < grid.Rows(); ++row) {
        double rowSum = 0;
        for (int column = 1; column < grid.Columns(); ++column) {
            grid.Select(row, column);
            const int code = CommitCell(pass, row, column, grid.Text(row, column));
            focusGrid = code == kCellRefused;
            if (!AcceptCell(code, kForm, name, row, column)) return false;
            if (sums) rowSum += Probability(pass, row, column);
        }
        if (!sums || IsWholeProbability(rowSum)) continue;
        TellWrongSum(pass, rowSum);
        grid.Select(row, grid.Columns() - 1);
        focusGrid = true;
        return false;
    }
    return true;
}

}  // namespace

bool Check()
{
    bool focusGrid = false;
    int failed = -1;
    {
        const CheckingIndicator indicator;
        for (const int pass : {kPayoffs, kStateProbabilities, kIndicatorProbabilities})
            if (failed < 0 && Runs(pass) && !Walk(pass, focusGrid)) failed = pass;
    }
    if (focusGrid) GridOn(kForm, ArrayGrid(failed)).SetFocus();
    return failed < 0;
}

}  // namespace Decision
