#include "lp/LpReport.h"

#include <algorithm>
#include <string>

#include "basic/error.h"
#include "basic/format.h"
#include "lp/LP_Engine.h"
#include "lp/Ranges.h"
#include "lp/VtLP.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "tableau/Criterion.h"

namespace {

using LP_Engine::Range;
using LP_Engine::State;
using LP_Engine::ZeroRounded;
using VtLP::Problem;

constexpr int kLongestName = 14;
constexpr int kPatternDigits = 13;  // in front of the point and behind it, all in all
constexpr int kNumberWidth = 15;
constexpr int kNameWidth = 14;  // of the solution tables
constexpr int kValueColumn = 22;
constexpr int kRangeNameWidth = 12;
constexpr std::string_view kConstraintMargin = "         ";
constexpr std::string_view kRangeMargin = "     ";
constexpr std::string_view kNoLowerLimit = " No Lower Limit";
constexpr std::string_view kNoUpperLimit = " No Upper Limit";

bool IsInteger()
{
    return Session.IntegerProblem == 1;
}

// ---- figures ----

struct Figures {
    std::string Pattern;
    Array1<std::int16_t> BasicRowOf;
};

void CutNames()
{
    for (int j = 1; j <= Problem.NumVariables; ++j) {
        std::string& name = Problem.LpVariableNames(j);
        if (name.size() > kLongestName) name.resize(kLongestName);
    }
}

std::string ReportPattern()
{
    const int decimals = Problem.LpDecimalPlaces;
    if (decimals > kPatternDigits) Raise(ErrorNumber::InvalidProcedureCall);
    return std::string(static_cast<std::size_t>(kPatternDigits - decimals), '#') + "0." +
           std::string(static_cast<std::size_t>(decimals), '0');
}

Figures StartReport()
{
    CutNames();
    Figures figures{ReportPattern(), LP_Engine::BasicRows()};
    LP_Engine::ComputeObjective();
    return figures;
}

double BasicValue(int row)
{
    return std::max(State.BasicValues(row), 0.0);
}

double VariableValue(const Figures& figures, int variable)
{
    const int row = figures.BasicRowOf(variable);
    if (row > 0) return ZeroRounded(BasicValue(row));
    const bool atLower = State.ColumnStatus(variable) == LP_Engine::kAtLower;
    return ZeroRounded(atLower ? State.LowerBound(variable) : State.UpperBound(variable));
}

double ReducedCost(int variable)
{
    return std::abs(State.ReducedCosts(variable));
}

// The slack, surplus or artificial that stands first among the logical columns of the constraint.
int LogicalColumn(int constraint)
{
    int column = Problem.NumVariables + constraint;
    for (int i = 1; i < constraint; ++i)
        if (Problem.LpRelations(i) == VtLP::kGreater) ++column;
    return column;
}

double SlackOrSurplus(const Figures& figures, int constraint)
{
    const int row = figures.BasicRowOf(LogicalColumn(constraint));
    return row > 0 ? ZeroRounded(BasicValue(row)) : 0.0;
}

double DualPrice(int constraint)
{
    return ZeroRounded(State.DualVector(constraint));
}

// ---- lines ----

std::string PaddedTo(std::string line, int column)
{
    const auto length = static_cast<std::size_t>(column);
    if (line.size() < length) line.resize(length, ' ');
    return line;
}

std::string Centred(const std::string& name, int width)
{
    const int margin = (width - static_cast<int>(name.size())) / 2;
    return " " + Blanks(std::max(margin, 0)) + Trimmed(name);
}

std::string Number(const Figures& figures, double value, int width)
{
    return FlushRight(Format(value, figures.Pattern), width);
}

// What differs between the screen and the full report: field widths, and where the next field begins.
struct Layout {
    int ValueWidth;
    int ValueEnd;
    int PriceWidth;
    int CurrentWidth;
    int RangeNameFill;      // of a variable's name in the ranges
    int RangeNameGap;       // blanks behind it
    int LowerGap;           // blanks behind the lower limit
    int CurrentGap;         // blanks behind the current value
    bool PadsIntegerLines;  // the gap behind the value is there without a price, too
};

constexpr Layout kScreen{.ValueWidth = 14,
                         .ValueEnd = 43,
                         .PriceWidth = 16,
                         .CurrentWidth = 14,
                         .RangeNameFill = 16,
                         .RangeNameGap = 0,
                         .LowerGap = 4,
                         .CurrentGap = 3,
                         .PadsIntegerLines = false};
constexpr Layout kFull{.ValueWidth = 15,
                       .ValueEnd = 43,
                       .PriceWidth = 18,
                       .CurrentWidth = 15,
                       .RangeNameFill = 12,
                       .RangeNameGap = 3,
                       .LowerGap = 4,
                       .CurrentGap = 2,
                       .PadsIntegerLines = true};

std::string ObjectiveLine(const Figures& figures)
{
    const double value = MinimizeFlag == 1 ? -State.ObjectiveValue : State.ObjectiveValue;
    return "Objective Function Value = " + Number(figures, value, kNumberWidth);
}

// A line of the tables of variables and constraints; the price is left out for an integer program.
std::string TableLine(const Figures& figures, const Layout& layout, const std::string& start, double value,
                      double price)
{
    std::string line = PaddedTo(start, kValueColumn) + Number(figures, value, layout.ValueWidth);
    if (!IsInteger() || layout.PadsIntegerLines) line = PaddedTo(line, layout.ValueEnd);
    if (!IsInteger()) line += Number(figures, price, layout.PriceWidth);
    return line;
}

std::string VariableLine(const Figures& figures, const Layout& layout, int variable)
{
    return TableLine(figures, layout, Centred(Problem.LpVariableNames(variable), kNameWidth),
                     VariableValue(figures, variable), ReducedCost(variable));
}

std::string ConstraintLine(const Figures& figures, const Layout& layout, int constraint)
{
    return TableLine(figures, layout, std::string(kConstraintMargin) + std::to_string(constraint),
                     SlackOrSurplus(figures, constraint), DualPrice(constraint));
}

std::string RangeLine(const Figures& figures, const Layout& layout, const std::string& start,
                      const Range& range)
{
    std::string line = start;
    line += range.Lower ? Number(figures, *range.Lower, kNumberWidth) : std::string(kNoLowerLimit);
    line += Blanks(layout.LowerGap) + Number(figures, range.Current, layout.CurrentWidth);
    line += Blanks(layout.CurrentGap);
    line += range.Upper ? Number(figures, *range.Upper, kNumberWidth) : std::string(kNoUpperLimit);
    return line;
}

std::string ObjectiveRangeLine(const Figures& figures, const Layout& layout, int variable)
{
    const std::string name = Centred(Problem.LpVariableNames(variable), kRangeNameWidth);
    return RangeLine(figures, layout, PaddedTo(name, layout.RangeNameFill) + Blanks(layout.RangeNameGap),
                     LP_Engine::ObjectiveRange(variable, figures.BasicRowOf(variable)));
}

std::string RightHandSideLine(const Figures& figures, const Layout& layout, int constraint)
{
    constexpr int kGap = 8;
    const std::string number = std::string(kRangeMargin) + Format(std::to_string(constraint), "@@@");
    return RangeLine(figures, layout, number + Blanks(kGap), LP_Engine::RightHandSideRange(constraint));
}

// ---- headings ----

void VariableHeading(ReportChannel& out)
{
    out.Line(IsInteger() ? "      Variable             Value"
                         : "      Variable             Value             Reduced Costs   ");
    out.Line(IsInteger() ? "   --------------     ---------------  "
                         : "   --------------     ---------------      ------------------ ");
}

void ConstraintHeading(ReportChannel& out)
{
    out.Line(IsInteger() ? "     Constraint        Slack/Surplus"
                         : "     Constraint        Slack/Surplus           Dual Prices    ");
    out.Line(IsInteger() ? "   --------------     --------------- "
                         : "   --------------     ---------------      ------------------");
}

void ObjectiveRangeHeading(ReportChannel& out)
{
    out.Line("OBJECTIVE COEFFICIENT RANGES");
    out.Line();
    out.Line("   Variable       Lower Limit       Current Value     Upper Limit");
    out.Line(" ------------   ---------------    ---------------  ---------------");
}

void RightHandSideHeading(ReportChannel& out)
{
    out.Line("RIGHT HAND SIDE RANGES");
    out.Line();
    out.Line("  Constraint      Lower Limit       Current Value     Upper Limit");
    out.Line(" ------------   ---------------    ---------------  ---------------");
}

// ---- the screen ----

void ShowTables(ReportChannel& page, const Figures& figures)
{
    constexpr int kCloseTables = 12;  // with more lines than these the tables stand further apart
    page.Line(ObjectiveLine(figures));
    page.Line();
    VariableHeading(page);
    for (int j = 1; j <= Problem.NumVariables; ++j)
        page.Line(VariableLine(figures, kScreen, j));
    page.Line();
    if (Problem.NumVariables + Problem.NumConstraints > kCloseTables) {
        page.Line();
        page.Line();
    }
    ConstraintHeading(page);
    for (int i = 1; i <= Problem.NumConstraints; ++i)
        page.Line(ConstraintLine(figures, kScreen, i));
}

void ShowRanges(ReportChannel& page, const Figures& figures)
{
    page.Line();
    page.Line();
    ObjectiveRangeHeading(page);
    for (int j = 1; j <= Problem.NumVariables; ++j)
        page.Line(ObjectiveRangeLine(figures, kScreen, j));
    page.Line();
    RightHandSideHeading(page);
    for (int i = 1; i <= Problem.NumConstraints; ++i)
        page.Line(RightHandSideLine(figures, kScreen, i));
}

// ---- the full report ----

// Counts lines to break pages; the count is the report's own and not that of the lines on paper.
class FullReport {
public:
    explicit FullReport(ReportChannel& out) : out_(out), figures_(StartReport()) {}

    void Write()
    {
        Echo();
        NewPage();
        Variables();
        BreakTables();
        Constraints();
        if (IsInteger()) return;
        NewPage();
        ObjectiveRanges();
        BreakTables();
        RightHandSides();
    }

private:
    static constexpr int kPageLines = 55;

    void NewPage()
    {
        if (out_.OnPaper())
            out_.NewPage();
        else
            out_.Line("\f");
    }

    // The pieces of the text; the first stands behind `start`. Their number.
    int Pieces(const std::string& start, const std::string& text, std::size_t length)
    {
        int count = 0;
        for (std::size_t first = 0; first < text.size(); first += length, ++count)
            out_.Line((count == 0 ? start : std::string()) + text.substr(first, length));
        return count;
    }

    void Echo()
    {
        constexpr std::size_t kObjectivePiece = 80;
        out_.Line(IsInteger() ? "INTEGER LINEAR PROGRAMMING PROBLEM" : "LINEAR PROGRAMMING PROBLEM");
        out_.Line();
        lines_ = Pieces({}, Problem.LpObjectiveLine, kObjectivePiece) + 3;
        out_.Line();
        out_.Line("     S.T.");
        out_.Line();
        lines_ += 2;
        for (int i = 1; i <= Problem.NumConstraints; ++i)
            EchoConstraint(i);
    }

    void EchoConstraint(int constraint)
    {
        constexpr std::size_t kConstraintPiece = 68;
        const std::string number = Format(std::to_string(constraint), "@@@");
        const int pieces = Pieces(std::string(kRangeMargin) + number + ")  ",
                                  Problem.LpLines(VtLP::kObjectiveLine + constraint), kConstraintPiece);
        lines_ += pieces + 1;
        if (constraint >= Problem.NumConstraints || lines_ + pieces + 1 <= kPageLines) return;
        NewPage();
        out_.Line("CONSTRAINTS (continued)");
        out_.Line("=======================");
        out_.Line();
        lines_ = 3;
    }

    void StartVariables()
    {
        out_.Line("OPTIMAL SOLUTION");
        out_.Line();
        out_.Line(ObjectiveLine(figures_));
        out_.Line();
        VariableHeading(out_);
        lines_ = 6;
    }

    // Whether a table goes on, on a new page, behind its line `index`.
    [[nodiscard]] bool TurnsPage(int index, int last, int ahead) const
    {
        return index > 1 && index < last && lines_ + ahead > kPageLines;
    }

    void Variables()
    {
        StartVariables();
        for (int j = 1; j <= Problem.NumVariables; ++j) {
            out_.Line(VariableLine(figures_, kFull, j));
            ++lines_;
            if (!TurnsPage(j, Problem.NumVariables, 1)) continue;
            NewPage();
            StartVariables();
        }
    }

    void BreakTables()
    {
        constexpr int kLongTables = 40;
        if (Problem.NumVariables + Problem.NumConstraints >= kLongTables) {
            NewPage();
            lines_ = 0;
        } else {
            out_.Line();
            out_.Line();
            lines_ += 2;
        }
    }

    void Constraints()
    {
        ConstraintHeading(out_);
        lines_ += 2;
        for (int i = 1; i <= Problem.NumConstraints; ++i) {
            out_.Line(ConstraintLine(figures_, kFull, i));
            ++lines_;
            if (!TurnsPage(i, Problem.NumConstraints, 1)) continue;
            NewPage();
            ConstraintHeading(out_);
            lines_ = 2;
        }
    }

    void ObjectiveRanges()
    {
        ObjectiveRangeHeading(out_);
        lines_ = 4;
        for (int j = 1; j <= Problem.NumVariables; ++j) {
            out_.Line(ObjectiveRangeLine(figures_, kFull, j));
            ++lines_;
            if (!TurnsPage(j, Problem.NumVariables, 0)) continue;
            NewPage();
            ObjectiveRangeHeading(out_);
            lines_ = 4;
        }
    }

    // A long table repeats its heading here without a new page.
    void RightHandSides()
    {
        RightHandSideHeading(out_);
        lines_ += 4;
        for (int i = 1; i <= Problem.NumConstraints; ++i) {
            out_.Line(RightHandSideLine(figures_, kFull, i));
            ++lines_;
            if (i >= Problem.NumConstraints || lines_ + 1 <= kPageLines) continue;
            RightHandSideHeading(out_);
            lines_ = 4;
        }
    }

    ReportChannel& out_;
    Figures figures_;
    int lines_ = 0;
};

}  // namespace

void ShowLpReport()
{
    const Figures figures = StartReport();
    BeginSolution("Optimal Solution");
    SolutionChannel page;
    ShowTables(page, figures);
    if (!IsInteger()) {
        LP_Engine::BuildTableau();
        ShowRanges(page, figures);
    }
    ShowSolution();
}

void WriteLpReport(ReportChannel& out)
{
    if (State.Solved) FullReport(out).Write();
}
