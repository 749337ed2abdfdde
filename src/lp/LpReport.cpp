#include "lp/LpReport.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "basic/format.h"
#include "lp/LpFigures.h"
#include "lp/Ranges.h"

namespace {

using LP_Engine::LpResult;
using LP_Engine::Range;

constexpr std::size_t kLongestName = 14;
constexpr std::size_t kLineLength = 80;  // enough for any line of the tables
constexpr int kNumberWidth = 15;
constexpr int kNameWidth = 14;  // of the solution tables
constexpr int kValueColumn = 22;
constexpr int kRangeNameWidth = 12;
constexpr std::string_view kConstraintMargin = "         ";
constexpr std::string_view kRangeMargin = "     ";
constexpr std::string_view kNoLowerLimit = " No Lower Limit";
constexpr std::string_view kNoUpperLimit = " No Upper Limit";

// ---- lines ----

void PadTo(std::string& line, int column)
{
    const auto length = static_cast<std::size_t>(column);
    if (line.size() < length) line.resize(length, ' ');
}

// The beginning of a line.
std::string Centred(std::string_view name, int width)
{
    const int margin = (width - static_cast<int>(name.size())) / 2;
    std::string line;
    line.reserve(kLineLength);
    line.append(static_cast<std::size_t>(std::max(margin, 0)) + 1, ' ');
    return line.append(Trimmed(name));
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

// The lines that stand on the screen and in the full report alike.
class Lines {
public:
    Lines(const LpResult& result, const Layout& layout)
        : result_(result),
          layout_(layout),
          pattern_(LP_Engine::ReportPattern(result.Problem)),
          figures_(LP_Engine::FiguresOf(result)),
          reducedCosts_(result.ReducedCosts)
    {
    }

    [[nodiscard]] bool IsInteger() const { return result_.Integer; }
    [[nodiscard]] int Variables() const { return result_.Problem.NumVariables; }
    [[nodiscard]] int Constraints() const { return result_.Problem.NumConstraints; }

    [[nodiscard]] std::string Objective() const
    {
        return "Objective Function Value = " + Number(figures_.Objective, kNumberWidth);
    }

    [[nodiscard]] std::string Variable(int j) const
    {
        return TableLine(Centred(Name(j), kNameWidth), figures_.Values(j), std::abs(reducedCosts_(j)));
    }

    [[nodiscard]] std::string Constraint(int i) const
    {
        return TableLine(std::string(kConstraintMargin) + std::to_string(i), figures_.Slacks(i),
                         figures_.Prices(i));
    }

    void MakeTableau() { tableau_ = LP_Engine::Tableau(result_); }

    // These need the tableau; the variables in order.
    std::string ObjectiveRange(int j)
    {
        std::string line = Centred(Name(j), kRangeNameWidth);
        PadTo(line, layout_.RangeNameFill);
        line.append(static_cast<std::size_t>(layout_.RangeNameGap), ' ');
        return RangeLine(std::move(line), LP_Engine::ObjectiveRange(result_, tableau_, j,
                                                                    figures_.BasicRowOf(j), reducedCosts_));
    }

    [[nodiscard]] std::string RightHandSide(int i) const
    {
        constexpr int kGap = 8;
        const std::string number = std::string(kRangeMargin) + Format(std::to_string(i), "@@@");
        return RangeLine(number + Blanks(kGap), LP_Engine::RightHandSideRange(result_, tableau_, i));
    }

    // The screen's ranges stand before those on paper, and what they cut stays cut.
    void CutReducedCosts()
    {
        bool some = false;
        for (int j = 1; j <= Variables(); ++j)
            some = some || result_.Basis.ColumnKind(j) > 0;
        for (int j = 1; some && j <= result_.NumColumns; ++j)
            reducedCosts_(j) = std::min(reducedCosts_(j), 0.0);
    }

private:
    [[nodiscard]] std::string_view Name(int j) const
    {
        return std::string_view(result_.Problem.LpVariableNames(j)).substr(0, kLongestName);
    }

    [[nodiscard]] std::string Number(double value, int width) const
    {
        return FlushRight(Format(value, pattern_), width);
    }

    // A line of the tables of variables and constraints; the price is left out for an integer program.
    [[nodiscard]] std::string TableLine(std::string line, double value, double price) const
    {
        PadTo(line, kValueColumn);
        line += Number(value, layout_.ValueWidth);
        if (!IsInteger() || layout_.PadsIntegerLines) PadTo(line, layout_.ValueEnd);
        if (!IsInteger()) line += Number(price, layout_.PriceWidth);
        return line;
    }

    [[nodiscard]] std::string RangeLine(std::string line, const Range& range) const
    {
        line += range.Lower ? Number(*range.Lower, kNumberWidth) : std::string(kNoLowerLimit);
        line.append(static_cast<std::size_t>(layout_.LowerGap), ' ');
        line += Number(range.Current, layout_.CurrentWidth);
        line.append(static_cast<std::size_t>(layout_.CurrentGap), ' ');
        line += range.Upper ? Number(*range.Upper, kNumberWidth) : std::string(kNoUpperLimit);
        return line;
    }

    const LpResult& result_;
    const Layout& layout_;
    std::string pattern_;
    LP_Engine::Figures figures_;
    Array1<double> reducedCosts_;
    Array2<double> tableau_;
};

// ---- headings ----

void VariableHeading(ReportChannel& out, bool integer)
{
    out.Line(integer ? "      Variable             Value"
                     : "      Variable             Value             Reduced Costs   ");
    out.Line(integer ? "   --------------     ---------------  "
                     : "   --------------     ---------------      ------------------ ");
}

void ConstraintHeading(ReportChannel& out, bool integer)
{
    out.Line(integer ? "     Constraint        Slack/Surplus"
                     : "     Constraint        Slack/Surplus           Dual Prices    ");
    out.Line(integer ? "   --------------     --------------- "
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

void ShowTables(ReportChannel& page, const Lines& lines)
{
    constexpr int kCloseTables = 12;  // with more lines than these the tables stand further apart
    page.Line(lines.Objective());
    page.Line();
    VariableHeading(page, lines.IsInteger());
    for (int j = 1; j <= lines.Variables(); ++j)
        page.Line(lines.Variable(j));
    page.Line();
    if (lines.Variables() + lines.Constraints() > kCloseTables) {
        page.Line();
        page.Line();
    }
    ConstraintHeading(page, lines.IsInteger());
    for (int i = 1; i <= lines.Constraints(); ++i)
        page.Line(lines.Constraint(i));
}

void ShowRanges(ReportChannel& page, Lines& lines)
{
    lines.MakeTableau();
    page.Line();
    page.Line();
    ObjectiveRangeHeading(page);
    for (int j = 1; j <= lines.Variables(); ++j)
        page.Line(lines.ObjectiveRange(j));
    page.Line();
    RightHandSideHeading(page);
    for (int i = 1; i <= lines.Constraints(); ++i)
        page.Line(lines.RightHandSide(i));
}

// ---- the full report ----

// Counts lines to break pages; the count is the report's own and not that of the lines on paper.
class FullReport {
public:
    FullReport(ReportChannel& out, const LpResult& result)
        : out_(out), problem_(result.Problem), report_(result, kFull)
    {
        report_.CutReducedCosts();
    }

    void Write()
    {
        Echo();
        NewPage();
        Variables();
        BreakTables();
        Constraints();
        if (report_.IsInteger()) return;
        NewPage();
        report_.MakeTableau();
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
        out_.Line(report_.IsInteger() ? "INTEGER LINEAR PROGRAMMING PROBLEM" : "LINEAR PROGRAMMING PROBLEM");
        out_.Line();
        lines_ = Pieces({}, problem_.LpObjectiveLine, kObjectivePiece) + 3;
        out_.Line();
        out_.Line("     S.T.");
        out_.Line();
        lines_ += 2;
        for (int i = 1; i <= problem_.NumConstraints; ++i)
            EchoConstraint(i);
    }

    void EchoConstraint(int constraint)
    {
        constexpr std::size_t kConstraintPiece = 68;
        const std::string number = Format(std::to_string(constraint), "@@@");
        const int pieces = Pieces(std::string(kRangeMargin) + number + ")  ",
                                  problem_.LpLines(VtLP::kObjectiveLine + constraint), kConstraintPiece);
        lines_ += pieces + 1;
        if (constraint >= problem_.NumConstraints || lines_ + pieces + 1 <= kPageLines) return;
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
        out_.Line(report_.Objective());
        out_.Line();
        VariableHeading(out_, report_.IsInteger());
        lines_ = 6;
    }

    // Whether a table goes on, on a new page, behind its line `index`.
    [[nodiscard]] bool TurnsPage(int index, int last, int ahead) const
    {
        return index < last && lines_ + ahead > kPageLines;
    }

    void Variables()
    {
        StartVariables();
        for (int j = 1; j <= problem_.NumVariables; ++j) {
            out_.Line(report_.Variable(j));
            ++lines_;
            if (!TurnsPage(j, problem_.NumVariables, 1)) continue;
            NewPage();
            StartVariables();
        }
    }

    void BreakTables()
    {
        constexpr int kLongTables = 40;
        if (problem_.NumVariables + problem_.NumConstraints >= kLongTables) {
            NewPage();
        } else {
            out_.Line();
            out_.Line();
        }
    }

    // All that there can be fit on their page, here and in the ranges.
    void Constraints()
    {
        ConstraintHeading(out_, report_.IsInteger());
        for (int i = 1; i <= problem_.NumConstraints; ++i)
            out_.Line(report_.Constraint(i));
    }

    void ObjectiveRanges()
    {
        ObjectiveRangeHeading(out_);
        lines_ = 4;
        for (int j = 1; j <= problem_.NumVariables; ++j) {
            out_.Line(report_.ObjectiveRange(j));
            ++lines_;
            if (!TurnsPage(j, problem_.NumVariables, 0)) continue;
            NewPage();
            ObjectiveRangeHeading(out_);
            lines_ = 4;
        }
    }

    void RightHandSides()
    {
        RightHandSideHeading(out_);
        for (int i = 1; i <= problem_.NumConstraints; ++i)
            out_.Line(report_.RightHandSide(i));
    }

    ReportChannel& out_;
    const VtLP::LpProblem& problem_;
    Lines report_;
    int lines_ = 0;
};

}  // namespace

void ShowLpReport(ReportChannel& page, const LpResult& result)
{
    Lines lines(result, kScreen);
    page.Line("Optimal Solution");
    ShowTables(page, lines);
    if (!result.Integer) ShowRanges(page, lines);
}

void WriteLpReport(ReportChannel& out, const LpResult& result)
{
    if (result.End == LP_Engine::Outcome::Optimal && result.Solved) FullReport(out, result).Write();
}
