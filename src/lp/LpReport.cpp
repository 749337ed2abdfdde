#include "lp/LpReport.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "basic/format.h"
#include "lp/LpFigures.h"
#include "lp/Ranges.h"

namespace {

using LP_Engine::LpResult;
using LP_Engine::Range;

constexpr std::size_t kLongestName = 14;
constexpr int kNumberWidth = 15;
constexpr int kNameWidth = 14;  // of the solution tables
constexpr int kValueColumn = 22;
constexpr int kRangeNameWidth = 12;
constexpr std::string_view kConstraintMargin = "         ";
constexpr std::string_view kRangeMargin = "     ";
constexpr int kIndexWidth = 3;  // of a constraint's number, in the echo and in the ranges
constexpr std::size_t kRangeIndexGap = 8;
constexpr std::string_view kNoLowerLimit = " No Lower Limit";
constexpr std::string_view kNoUpperLimit = " No Upper Limit";

// ---- lines ----

void PadTo(std::string& line, int column)
{
    const auto length = static_cast<std::size_t>(column);
    if (line.size() < length) line.resize(length, ' ');
}

// The beginning of a line.
void AppendCentred(std::string& line, std::string_view name, int width)
{
    const int margin = (width - static_cast<int>(name.size())) / 2;
    line.append(static_cast<std::size_t>(std::max(margin, 0)) + 1, ' ').append(Trimmed(name));
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

// The lines that stand on the screen and in the full report alike. Each is good until the next one is asked
// for: all are made in one place.
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

    const std::string& Objective()
    {
        Start("Objective Function Value = ");
        AddNumber(figures_.Objective, kNumberWidth);
        return line_;
    }

    const std::string& Variable(int j)
    {
        Start({});
        AppendCentred(line_, Name(j), kNameWidth);
        return TableLine(figures_.Values(j), std::abs(reducedCosts_(j)));
    }

    const std::string& Constraint(int i)
    {
        Start(kConstraintMargin);
        line_ += std::to_string(i);
        return TableLine(figures_.Slacks(i), figures_.Prices(i));
    }

    void MakeTableau() { tableau_ = LP_Engine::Tableau(result_); }

    // These need the tableau; the variables in order.
    const std::string& ObjectiveRange(int j)
    {
        Start({});
        AppendCentred(line_, Name(j), kRangeNameWidth);
        PadTo(line_, layout_.RangeNameFill);
        line_.append(static_cast<std::size_t>(layout_.RangeNameGap), ' ');
        return RangeLine(
            LP_Engine::ObjectiveRange(result_, tableau_, j, figures_.BasicRowOf(j), reducedCosts_));
    }

    const std::string& RightHandSide(int i)
    {
        Start(kRangeMargin);
        AppendFlushRight(line_, std::to_string(i), kIndexWidth);
        line_.append(kRangeIndexGap, ' ');
        return RangeLine(LP_Engine::RightHandSideRange(result_, tableau_, i));
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

    void Start(std::string_view start) { line_ = start; }

    void AddNumber(double value, int width)
    {
        std::string text;
        pattern_.Append(text, value);
        AppendFlushRight(line_, text, width);
    }

    // A line of the tables of variables and constraints; the price is left out for an integer program.
    const std::string& TableLine(double value, double price)
    {
        PadTo(line_, kValueColumn);
        AddNumber(value, layout_.ValueWidth);
        if (!IsInteger() || layout_.PadsIntegerLines) PadTo(line_, layout_.ValueEnd);
        if (!IsInteger()) AddNumber(price, layout_.PriceWidth);
        return line_;
    }

    const std::string& RangeLine(const Range& range)
    {
        AddLimit(range.Lower, kNoLowerLimit);
        line_.append(static_cast<std::size_t>(layout_.LowerGap), ' ');
        AddNumber(range.Current, layout_.CurrentWidth);
        line_.append(static_cast<std::size_t>(layout_.CurrentGap), ' ');
        AddLimit(range.Upper, kNoUpperLimit);
        return line_;
    }

    void AddLimit(std::optional<double> limit, std::string_view none)
    {
        if (limit)
            AddNumber(*limit, kNumberWidth);
        else
            line_ += none;
    }

    const LpResult& result_;
    const Layout& layout_;
    DigitPattern pattern_;
    LP_Engine::Figures figures_;
    Array1<double> reducedCosts_;
    Array2<double> tableau_;
    std::string line_;
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

void ShowTables(ReportChannel& page, Lines& lines)
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
        const std::string number = FlushRight(std::to_string(constraint), kIndexWidth);
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
