#include "lp/VtLP.h"

#include <algorithm>

#include "basic/entrytext.h"
#include "basic/error.h"
#include "basic/format.h"
#include "basic/number.h"
#include "basic/numberrow.h"
#include "desktop/desktop.h"
#include "shell/checks.h"
#include "shell/module.h"
#include "shell/session.h"
#include "tableau/Criterion.h"
#include "tableau/tanumchk.h"

namespace VtLP {

LpProblem Problem;
std::int16_t MinimizeFlag = 0;
ModalDialog<NoQuestion, bool> TheFeatures;

namespace {

constexpr int kLastLine = 255;
constexpr std::int16_t kLeastDecimals = 3;

constexpr std::string_view kForm = "frmLPproblem";
constexpr std::string_view kNameMargin = "           ";
constexpr int kMirroredNameWidth = 12;
constexpr std::size_t kLongestName = 8;
constexpr int kLongestRelation = 1;
constexpr std::string_view kRelations = "<=>";  // in the order of their codes

bool rebuildingGrid = false;

// The cells are not checked while it lives.
class GridRebuild {
public:
    GridRebuild() { rebuildingGrid = true; }
    ~GridRebuild() { rebuildingGrid = false; }
    GridRebuild(const GridRebuild&) = delete;
    GridRebuild& operator=(const GridRebuild&) = delete;
};

Form& ProblemForm()
{
    return desktop::TheForms().Loaded(kForm);
}

Grid& ObjectiveGrid()
{
    return ProblemForm().GridOf("Grid(0)");
}

Grid& ConstraintGrid()
{
    return ProblemForm().GridOf("Grid(1)");
}

int RelationColumn()
{
    return ConstraintGrid().Columns() - 2;
}

int RightHandSideColumn()
{
    return ConstraintGrid().Columns() - 1;
}

// ---- the model onto the grids ----

std::string RelationText(std::int16_t code)
{
    const bool known = code >= kLess && code <= kGreater;
    return known ? std::string(1, kRelations[static_cast<std::size_t>(code - kLess)]) : std::string();
}

std::string NameText(int column)
{
    return Session.NewProblem ? "X" + std::to_string(column) : Problem.LpVariableNames(column);
}

std::string ObjectiveText(int column)
{
    const double coefficient = Problem.LpCoefficients(0, column);
    return Session.NewProblem || coefficient == 0 ? std::string() : EntryText(coefficient);
}

void FillObjectiveGrid()
{
    Grid& grid = ObjectiveGrid();
    grid.Resize(2, Problem.NumVariables + 1, 0, 1);
    grid.SetText(0, 0, "Variable Names:");
    grid.SetText(1, 0, "Coefficients:");
    for (int column = 1; column <= Problem.NumVariables; ++column) {
        grid.SetText(0, column, NameText(column));
        grid.SetText(1, column, ObjectiveText(column));
    }
}

void FillConstraintHeading(Grid& grid)
{
    const int n = Problem.NumVariables;
    grid.SetText(0, 0, "Subject To:");
    for (int column = 1; column <= n; ++column)
        grid.SetText(0, column, std::string(kNameMargin) + NameText(column));
    grid.SetText(0, n + 1, "Relation(<,=,>)");
    grid.SetText(0, n + 2, "Right-Hand-Side");
}

void FillConstraint(Grid& grid, int row)
{
    const int n = Problem.NumVariables;
    for (int column = 1; column <= n; ++column)
        grid.SetText(row, column, EntryText(Problem.LpCoefficients(row, column)));
    grid.SetText(row, n + 1, RelationText(Problem.LpRelations(row)));
    grid.SetText(row, n + 2, EntryText(Problem.LpCoefficients(row, 0)));
}

void FillConstraintGrid()
{
    Grid& grid = ConstraintGrid();
    grid.Resize(Problem.NumConstraints + 1, Problem.NumVariables + 3);
    FillConstraintHeading(grid);
    for (int row = 1; row <= Problem.NumConstraints; ++row) {
        grid.SetText(row, 0, "           Constraint " + std::to_string(row));
        if (!Session.NewProblem) FillConstraint(grid, row);
    }
}

// ---- the grids into model and text ----

// The decimals of a number as it was typed count for all numbers of the report.
void CountDecimals(std::string_view text)
{
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) return;
    const std::int16_t decimals = ToInt16(static_cast<double>(text.size() - point - 1));
    Problem.LpDecimalPlaces = std::max(Problem.LpDecimalPlaces, decimals);
}

void ReadObjective(const Grid& grid)
{
    for (int column = 1; column < grid.Columns(); ++column) {
        const std::string text = grid.Text(1, column);
        Problem.LpCoefficients(0, column) = Val(text);
        CountDecimals(text);
        Problem.LpVariableNames(column) = grid.Text(0, column);
    }
}

// A line that is more than its opening is no longer empty.
void AddTerm(std::string& line, std::size_t opening, double coefficient, std::string_view term)
{
    if (coefficient >= 0 && line.size() > opening) line += '+';
    line += term;
}

// The file needs every variable, in order; the report leaves out those without a coefficient.
void WriteObjectiveLines(int variables)
{
    const std::string opening = MinimizeFlag == 1 ? "MIN " : "MAX ";
    std::string full = opening;
    std::string shown = opening;
    for (int column = 1; column <= variables; ++column) {
        const double coefficient = Problem.LpCoefficients(0, column);
        const std::string term = EntryText(coefficient) + Problem.LpVariableNames(column);
        AddTerm(full, opening.size(), coefficient, term);
        if (coefficient != 0) AddTerm(shown, opening.size(), coefficient, term);
    }
    Problem.LpLines(kObjectiveLine) = std::move(full);
    Problem.LpObjectiveLine = std::move(shown);
}

void ReadCoefficient(int row, int column, const std::string& text, std::string& line)
{
    const double value = Val(text);
    Problem.LpCoefficients(row, column) = value;
    if (value == 0) return;
    if (text.front() != '-' && !line.empty()) line += '+';
    line.append(text).append(Problem.LpVariableNames(column));
    CountDecimals(text);
}

std::int16_t RelationCode(std::string_view text)
{
    if (text == "<") return kLess;
    return text == "=" ? kEqual : kGreater;
}

void ReadConstraint(const Grid& grid, int row)
{
    const int relation = grid.Columns() - 2;
    std::string line;
    line.reserve(Problem.LpLines(kObjectiveLine).size());
    for (int column = 1; column < relation; ++column)
        ReadCoefficient(row, column, grid.Text(row, column), line);

    const std::string relationText = grid.Text(row, relation);
    line += relationText;
    Problem.LpRelations(row) = RelationCode(relationText);

    const std::string rightHandSide = grid.Text(row, relation + 1);
    line += rightHandSide;
    Problem.LpCoefficients(row, 0) = Val(rightHandSide);
    CountDecimals(rightHandSide);
    Problem.LpLines(kObjectiveLine + row) = std::move(line);
}

void MakeTables()
{
    Problem.LpVariableNames = Array1<std::string>(ColumnCapacity);
    Problem.LpCoefficients = Array2<double>(RowCapacity, ColumnCapacity);
    Problem.LpRelations = Array1<std::int16_t>(RowCapacity);
}

// ---- cells ----

int Judge(bool accepted, std::string_view message)
{
    return accepted ? kCellStored : RefuseCell(message);
}

bool PassesNumberCheck(std::string_view text, bool whole)
{
    const NumberText number = CheckNumber(UpperCase(text), BehindFailure::Passing);
    return number.IsNumber && !(whole && number.HasPoint);
}

int ValidateConstraintCell(int column, std::string_view text)
{
    if (column == RelationColumn())
        return Judge(text.size() == kLongestRelation, "Relation is Invalid.  Please enter <, >, or =.");
    if (!PassesNumberCheck(text, false)) return Judge(false, "Constraint Values Must Be Numeric.");
    if (column == RightHandSideColumn()) return Judge(Val(text) >= 0, "Right Hand Sides Must be Positive");
    return kCellStored;
}

// The limit is one higher than its message says.
int ValidateName(int column, std::string_view text)
{
    const int code =
        Judge(text.size() <= kLongestName, "Variable Names must be less than 8 Characters Long.");
    if (code == kCellStored) MirrorName(column);
    return code;
}

bool IsDigit(char key)
{
    return key >= '0' && key <= '9';
}

bool IsLetter(char key)
{
    return (key >= 'a' && key <= 'z') || (key >= 'A' && key <= 'Z');
}

Key JudgeNameKey(char key, bool first)
{
    if (first && IsDigit(key)) {
        Refuse("The first position of a variable cannot contain a number.");
        return Key::Refused;
    }
    return key == '_' || IsLetter(key) || IsDigit(key) ? Key::Taken : Key::Beeps;
}

// The whole number in a box of `frmLPFeatures`.
bool TakeCount(std::string_view text, int most, std::string_view tooMany, std::int16_t& count)
{
    const double value = CheckNumber(text).Value();
    if (value > most) return Refuse(tooMany);
    count = ToInt16(Int(value));
    return true;
}

}  // namespace

void SetMinimizeFlag(bool minimize)
{
    MinimizeFlag = minimize ? 1 : 0;
    ProposeCriterion(minimize ? Criterion::Minimize : Criterion::Maximize);
}

void AllocateLpModel()
{
    Problem = {};
    Problem.LpLines = Array1<std::string>(kLastLine);
    MakeTables();
    SetMinimizeFlag(false);
}

// The form stores into the arrays, so they are made first; the problem before it is gone by then.
bool AskFeatures()
{
    AllocateLpModel();
    const auto minimize = TheFeatures.Ask("frmLPFeatures");
    if (!minimize) return false;
    SetMinimizeFlag(*minimize);
    if (Problem.NumConstraints < 0 || Problem.NumVariables < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    return true;
}

void ModelToGrid()
{
    const GridRebuild rebuild;
    ProblemForm().SetText("lblopttype",
                          MinimizeFlag == 1 ? "Optimization Type:  Min" : "Optimization Type:  Max");
    FillObjectiveGrid();
    FillConstraintGrid();
    for (const char* control : {"lblopttype", "Grid(0)", "Grid(1)", "lblInfo"})
        ProblemForm().SetVisible(control, true);
}

void GridToModel()
{
    MakeTables();
    Problem.LpDecimalPlaces = kLeastDecimals;
    const Grid& objective = ObjectiveGrid();
    ReadObjective(objective);
    WriteObjectiveLines(objective.Columns() - 1);

    const Grid& constraints = ConstraintGrid();
    for (int row = 1; row < constraints.Rows(); ++row)
        ReadConstraint(constraints, row);
}

bool TakeFeatures(std::string_view constraints, std::string_view variables, bool minimize, bool maximize,
                  const BoxPointer& point)
{
    PointAtBox(point, 0);
    if (!PassesNumberCheck(constraints, true)) return Refuse("Number of Constraints Must be an Integer.");
    PointAtBox(point, 1);
    if (!PassesNumberCheck(variables, true)) return Refuse("Number of Variables Must be an Integer.");
    PointAtBox(point, 0);
    if (!TakeCount(constraints, kMostConstraints,
                   "You may only solve a problem with a maximum of 50 constraints.", Problem.NumConstraints))
        return false;
    PointAtBox(point, 1);
    if (!TakeCount(variables, kMostVariables, "You may only solve a problem with a maximum of 100 variables.",
                   Problem.NumVariables))
        return false;
    PointAtBox(point, 2);
    if (!minimize && !maximize) return Refuse("An optimization type must be selected.");
    TheFeatures.Give(!maximize);
    return true;
}

int ValidateCell(int index, int row, int column, std::string_view text)
{
    if (rebuildingGrid || text.empty()) return kCellStored;
    if (index == 1) return ValidateConstraintCell(column, text);
    if (row == 0) return ValidateName(column, text);
    return Judge(PassesNumberCheck(text, false), "Objective Function Coefficients Must Be Numeric.");
}

void MirrorName(int column)
{
    const std::string name = ObjectiveGrid().Text(0, column);
    const bool fits = name.size() < kMirroredNameWidth;
    ConstraintGrid().SetText(0, column, fits ? FlushRight(name, kMirroredNameWidth) : name);
}

void FinishEdit()
{
    const Grid& objective = ObjectiveGrid();
    const bool atName = Session.ProblemOnDisplay == "YES" && objective.Row() == 0 && objective.Column() > 0;
    if (atName) MirrorName(objective.Column());
}

std::vector<double> Numbers()
{
    NumberRow row;
    row.Write(Problem.NumConstraints);
    row.Write(Problem.NumVariables);
    return row.Take();
}

void TakeNumbers(const std::vector<double>& numbers)
{
    NumberRowReader row(numbers);
    row.ReadInto(Problem.NumConstraints);
    row.ReadInto(Problem.NumVariables);
}

Key JudgeKey(int index, int row, int column, char key, bool first)
{
    if (index == 1 && column == RelationColumn())
        return kRelations.find(key) != std::string_view::npos ? Key::Taken : Key::Beeps;
    if (index == 0 && row == 0) return JudgeNameKey(key, first);
    return key == '-' || key == '.' || IsDigit(key) ? Key::Taken : Key::Beeps;
}

}  // namespace VtLP
