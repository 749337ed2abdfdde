// The Edit menu: constraints and variables added and deleted, the type of the objective changed.
#include <limits>
#include <optional>
#include <string>

#include "basic/error.h"
#include "basic/format.h"
#include "basic/number.h"
#include "desktop/desktop.h"
#include "lp/VtLP.h"
#include "shell/commands.h"
#include "tableau/Criterion.h"
#include "tableau/tanumchk.h"

namespace VtLP {
namespace {

struct WholeQuestion {
    std::string_view Prompt;
    std::string_view Title;
    std::string_view NotWhole;
    std::string_view Negative;
    double Most;  // a larger answer is refused with TooLarge
    std::string_view TooLarge;
};

bool Accepts(const WholeQuestion& question, const NumberText& number)
{
    if (!number.IsWholeNumeral()) return Refuse(question.NotWhole);
    const double value = number.Value();
    if (value < 0) return Refuse(question.Negative);
    return value <= question.Most || Refuse(question.TooLarge);
}

// The box comes back until the answer is taken; nothing when it was left empty.
std::optional<std::int16_t> AskWhole(const WholeQuestion& question)
{
    for (;;) {
        const std::string text = InputBox(question.Prompt, question.Title);
        if (text.empty()) {
            desktop::TheForms().FocusMenu();
            return std::nullopt;
        }
        const NumberText number = CheckNumber(UpperCase(text), BehindFailure::Passing);
        if (Accepts(question, number)) return ToInt16(number.Value());
    }
}

constexpr double kAnyNumber = std::numeric_limits<double>::infinity();

Grid& GridOf(std::string_view name)
{
    return desktop::TheForms().Loaded("frmLPproblem").GridOf(name);
}

// The count with what is added to it; the problem is left as it was when the tables could not hold it.
std::int16_t Grown(std::int16_t count, std::int16_t added, int capacity)
{
    const std::int16_t sum = Add16(count, added);
    if (sum > capacity) Raise(ErrorNumber::SubscriptOutOfRange);
    return sum;
}

// The model without one of its rows or columns.
template <typename Copy>
void CopyAround(int first, int last, int left, Copy copy)
{
    for (int i = first; i < left; ++i)
        copy(i, i);
    for (int i = left + 1; i <= last; ++i)
        copy(i, i - 1);
}

void RemoveConstraint(int constraint)
{
    Array2<double> coefficients(RowCapacity, ColumnCapacity);
    Array1<std::int16_t> relations(RowCapacity);
    CopyAround(0, Problem.NumConstraints, constraint, [&](int from, int to) {
        for (int column = 0; column <= Problem.NumVariables; ++column)
            coefficients(to, column) = Problem.LpCoefficients(from, column);
        relations(to) = Problem.LpRelations(from);
    });
    Problem.LpCoefficients = std::move(coefficients);
    Problem.LpRelations = std::move(relations);
    --Problem.NumConstraints;
}

void RemoveVariable(int variable)
{
    Array2<double> coefficients(RowCapacity, ColumnCapacity);
    Array1<std::string> names(ColumnCapacity);
    CopyAround(0, Problem.NumVariables, variable, [&](int from, int to) {
        for (int row = 0; row <= Problem.NumConstraints; ++row)
            coefficients(row, to) = Problem.LpCoefficients(row, from);
        names(to) = Problem.LpVariableNames(from);
    });
    Problem.LpCoefficients = std::move(coefficients);
    Problem.LpVariableNames = std::move(names);
    --Problem.NumVariables;
}

// 0 when there is none of that name.
int VariableNamed(const std::string& name)
{
    for (int column = 1; column <= Problem.NumVariables; ++column)
        if (Problem.LpVariableNames(column) == name) return column;
    return 0;
}

}  // namespace

void AddConstraints()
{
    const auto added = AskWhole({.Prompt = "Enter the Number of Constraints to Add:",
                                 .Title = "Add Constraints",
                                 .NotWhole = "The Number of Constraints must be an Integer!!",
                                 .Negative = "Constraints to Add Must be Positive",
                                 .Most = kAnyNumber,
                                 .TooLarge = {}});
    if (!added) return;
    const int before = Problem.NumConstraints;
    const std::int16_t total = Grown(Problem.NumConstraints, *added, RowCapacity);
    GridToModel();
    Problem.NumConstraints = total;
    DisplayProblem();
    if (*added == 0 || Problem.NumVariables == 0) return;
    GridOf("Grid(1)").Select(before + 1, 1);
    GridOf("Grid(1)").SetFocus();
}

void AddVariables()
{
    const auto added = AskWhole({.Prompt = "Enter the Number of Variables to Add:",
                                 .Title = "Add Variables",
                                 .NotWhole = "The Number of Variables must be an Integer!!",
                                 .Negative = "Variables to Add Must be Positive",
                                 .Most = kAnyNumber,
                                 .TooLarge = {}});
    if (!added) return;
    const int before = Problem.NumVariables;
    const std::int16_t total = Grown(Problem.NumVariables, *added, ColumnCapacity);
    GridToModel();
    Problem.NumVariables = total;
    DisplayProblem();
    if (*added > 0) GridOf("Grid(0)").Select(1, before + 1);
}

// Constraint 0 is not refused: the objective goes, and the first constraint takes its place.
void DeleteConstraint()
{
    const auto constraint = AskWhole({.Prompt = "Enter the Number of the Constraint to Delete:",
                                      .Title = "Delete Constraint",
                                      .NotWhole = "The Constraint Number must be an Integer!!",
                                      .Negative = "Constraint Number Must be Positive",
                                      .Most = static_cast<double>(Problem.NumConstraints),
                                      .TooLarge = "Constraint Number Doesn't Exist!"});
    if (!constraint) return;
    if (Problem.NumConstraints == 0) Raise(ErrorNumber::SubscriptOutOfRange);
    GridToModel();
    RemoveConstraint(*constraint);
    DisplayProblem();
}

void DeleteVariable()
{
    const std::string answer = InputBox("Enter the Name of the Variable to Delete:", "Delete Variable");
    if (answer.empty()) {
        desktop::TheForms().FocusMenu();
        return;
    }
    GridToModel();
    const int variable = VariableNamed(Trimmed(answer));
    if (variable == 0) {
        Refuse("The Variable Named " + answer + " does not Exist.");
        return;
    }
    RemoveVariable(variable);
    DisplayProblem();
}

// The grids stay as they are: the next text of the objective begins with the new word.
void ChangeOptimizationType()
{
    const auto chosen = AskCriterion({}, MinimizeFlag == 1 ? Criterion::Minimize : Criterion::Maximize);
    if (!chosen) return;
    const bool maximize = *chosen == Criterion::Maximize;
    SetMinimizeFlag(!maximize);
    desktop::TheForms()
        .Loaded("frmLPproblem")
        .SetText("lblopttype", maximize ? "Optimization Type:  Maximize" : "Optimization Type:  Minimize");
}

}  // namespace VtLP
