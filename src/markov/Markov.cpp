#include "markov/Markov.h"

#include "basic/entrytext.h"
#include "basic/format.h"
#include "basic/numberrow.h"
#include "desktop/desktop.h"
#include "shell/checks.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/userinput.h"
#include "tableau/tanumchk.h"

namespace Markov {

MarkovProblem Problem;
MarkovResult Result;

namespace {

int RefuseProbability()
{
    return RefuseCell("PROBABILITIES MUST BE BETWEEN 0 AND 1!  PLEASE REENTER.");
}

void FillGrid(Grid& grid)
{
    const int n = Problem.StateCount;
    grid.Resize(n + 1, n + 1);
    grid.SetText(0, 0, "From State");
    for (int i = 1; i <= n; ++i) {
        grid.SetText(0, i, std::to_string(i));
        grid.SetText(i, 0, std::to_string(i));
    }
    if (Session.NewProblem) return;
    for (int i = 1; i <= n; ++i)
        for (int j = 1; j <= n; ++j)
            grid.SetText(i, j, EntryText(Problem.TransitionMatrix(i, j)));
}

}  // namespace

void MakeArrays()
{
    Problem.TransitionMatrix = Array2<Variant>(kMostStates, kMostStates);
    Result = {};
}

bool Ask()
{
    const auto answers =
        AskSizes({.Caption = " Markov Process",
                  .Questions = {{.Question = "Enter the Number of States (1 to 10):",
                                 .Least = 1,
                                 .Most = kMostStates,
                                 .RangeMessage = "YOU MAY ONLY SELECT A NUMBER BETWEEN 1 AND 10.  "
                                                 "PLEASE TRY AGAIN."}}});
    if (answers.empty()) return false;
    Problem.StateCount = answers[0];
    MakeArrays();
    return true;
}

void Fill()
{
    Form& form = desktop::TheForms().Loaded("frmProblem");
    const std::string n = std::to_string(Problem.StateCount);
    form.SetText("lblTitle", "Transition Matrix");
    form.SetText("lblInfo", "Enter/Edit data:  Transition probabilities in rows 1-" + n + " and columns 1-" +
                                n + "  NOTE:  Probabilities must sum to 1 for each row.");
    form.SetText("lblgridcaption", "To State");
    for (const char* control : {"lblInfo", "lblTitle", "lblgridcaption"})
        form.SetVisible(control, true);

    FillGrid(form.GridOf("gridDisplayEdit"));
    form.SetVisible("gridDisplayEdit", true);
}

int CommitCell(int row, int column, std::string_view text)
{
    if (text.empty()) {
        NoteEmptyText();
        Problem.TransitionMatrix(row, column) = 0.0;
        return EmptyCell();
    }
    const NumberText number = CheckNumber(UpperCase(text), BehindFailure::Passing);
    if (!number.IsNumber) return RefuseProbability();
    const double probability = number.Value();
    if (probability < 0) return RefuseProbability();
    Problem.TransitionMatrix(row, column) = probability;
    return kCellStored;
}

double Probability(int from, int to)
{
    return Problem.TransitionMatrix(from, to).Value();
}

std::vector<double> Numbers()
{
    NumberRow row;
    row.Write(Problem.StateCount);
    for (int from = 1; from <= Problem.StateCount; ++from)
        for (int to = 1; to <= Problem.StateCount; ++to)
            row.Write(Problem.TransitionMatrix(from, to));
    return row.Take();
}

void TakeNumbers(const std::vector<double>& numbers)
{
    NumberRowReader row(numbers);
    row.ReadInto(Problem.StateCount);
    for (int from = 1; from <= Problem.StateCount; ++from)
        for (int to = 1; to <= Problem.StateCount; ++to)
            Problem.TransitionMatrix(from, to) = row.ReadVariant();
}

}  // namespace Markov
