#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "basic/format.h"
#include "picture/describing.h"
#include "picture/words.h"

namespace picture::describing {
namespace {

bool AlongX(const Chart& chart)  // whether bars and intervals lie in named rows
{
    return !chart.Y.Names.empty();
}

// With the decimals of the report.
std::string ValueOn(const Axis& axis, double value)
{
    if (axis.Places < 0) return Figure(value);
    const std::string pattern = axis.Places == 0 ? "#,##0" : "#,##0.";
    return Format(value, pattern + std::string(static_cast<std::size_t>(axis.Places), '0'));
}

std::string NameOf(const Axis& axis, double position)
{
    const auto index = static_cast<std::size_t>(std::max(0.0, std::round(position)));
    if (index >= 1 && index <= axis.Names.size() && static_cast<double>(index) == position)
        return axis.Names[index - 1];
    return ValueOn(axis, position);
}

std::string AxisSentence(std::string_view name, const Axis& axis)
{
    std::string sentence = "The " + std::string(name) + " axis";
    if (!axis.Title.empty()) sentence += " is " + axis.Title + " and";
    if (!axis.Names.empty())
        return sentence + " has " + Counted(static_cast<int>(axis.Names.size()), "position") + ": " +
               Listed(axis.Names) + ".";
    return sentence + " runs from " + ValueOn(axis, axis.From) + " to " + ValueOn(axis, axis.To) +
           (axis.Counts ? " in whole numbers." : ".");
}

std::string CountSentence(const Chart& chart)
{
    std::array<int, 6> counts{};
    for (const Series& series : chart.Curves)
        ++counts.at(static_cast<std::size_t>(series.Kind));
    std::vector<std::string> parts;
    const auto add = [&parts](int count, std::string_view one, std::string_view many) {
        if (count > 0) parts.push_back(Counted(count, one, many));
    };
    add(counts[0], "line", "lines");
    add(counts[1], "area", "areas");
    add(counts[2], "row of bars", "rows of bars");
    add(counts[3], "row of points", "rows of points");
    add(counts[4], "line of steps", "lines of steps");
    add(counts[5], "row of intervals", "rows of intervals");
    add(static_cast<int>(chart.Bands.size()), "band", "bands");
    add(static_cast<int>(chart.Rules.size()), "reference line", "reference lines");
    add(static_cast<int>(chart.Marks.size()), chart.Cells ? "cell" : "mark", chart.Cells ? "cells" : "marks");
    return parts.empty() ? "There is nothing in it." : "It has " + Listed(parts) + ".";
}

std::string At(const Chart& chart, const Point& point)
{
    return NameOf(chart.X, point.X) + ", " + NameOf(chart.Y, point.Y);
}

std::string MarkText(const Chart& chart, const Mark& mark)
{
    if (chart.Cells)
        return chart.Y.Title + " " + NameOf(chart.Y, mark.At.Y) + ", " + chart.X.Title + " " +
               NameOf(chart.X, mark.At.X) + ": " + (mark.Text.empty() ? "none" : mark.Text);
    return (mark.Text.empty() ? "a mark" : mark.Text) + " at " + At(chart, mark.At);
}

// "A x + B y at most C", from a line with a forbidden side.
std::string Inequality(const Chart& chart, const Series& line)
{
    const Point& p = line.Points.front();
    const Point& q = line.Points.back();
    double a = q.Y - p.Y;
    double b = p.X - q.X;
    double c = a * p.X + b * p.Y;
    // On the way from p to q the left side has a x + b y < c.
    bool below = line.Forbidden == Side::Right;
    const double scale = std::max(std::abs(a), std::abs(b));
    if (scale == 0) return line.Name;
    const double sign = a < 0 || (a == 0 && b < 0) ? -1 : 1;
    a *= sign / scale;
    b *= sign / scale;
    c *= sign / scale;
    if (sign < 0) below = !below;
    const auto named = [](const Axis& axis, std::string_view letter) {
        return axis.Title.empty() ? std::string(letter) : axis.Title;
    };
    std::string sum;
    const auto add = [&sum](double factor, const std::string& name) {
        if (std::abs(factor) < 1e-9) return;
        const std::string size = std::abs(std::abs(factor) - 1) < 1e-9 ? "" : Figure(std::abs(factor)) + " ";
        if (sum.empty())
            sum = (factor < 0 ? "-" : "") + size + name;
        else
            sum += (factor < 0 ? " - " : " + ") + size + name;
    };
    add(a, named(chart.X, "x"));
    add(b, named(chart.Y, "y"));
    return (line.Name.empty() ? "A limit" : line.Name) + ": " + sum + (below ? " at most " : " at least ") +
           Figure(c);
}

void TellLine(const Chart& chart, const Series& series, Lines& lines)
{
    if (series.Points.size() < 2) return;
    const std::string name = WithRole(series.Name.empty() ? "A line" : series.Name, series.As);
    const auto lower = [](const Point& a, const Point& b) { return a.Y < b.Y; };
    const auto [least, most] = std::minmax_element(series.Points.begin(), series.Points.end(), lower);
    std::string sentence =
        name + " runs from " + At(chart, series.Points.front()) + " to " + At(chart, series.Points.back());
    if (series.Points.size() > 2)
        sentence += "; it is lowest at " + At(chart, *least) + " and highest at " + At(chart, *most);
    const bool isLimit = series.As == Role::Limit || series.As == Role::Infeasible;
    if (isLimit && series.Tips.size() == 1 && series.Tips.front().find(series.Name) != std::string::npos &&
        series.Tips.front() != series.Name)
        sentence += "; it is " + series.Tips.front();
    lines.push_back(sentence + ".");
}

void TellBars(const Chart& chart, const Series& series, Lines& lines)
{
    if (series.Points.empty()) return;
    const bool along = AlongX(chart);
    const Axis& axis = along ? chart.X : chart.Y;
    const auto length = [along](const Point& point) { return along ? point.X : point.Y; };
    const auto place = [&](const Point& point) {
        return along ? NameOf(chart.Y, point.Y) : NameOf(chart.X, point.X);
    };
    const auto shorter = [&](const Point& a, const Point& b) { return length(a) < length(b); };
    const auto [least, most] = std::minmax_element(series.Points.begin(), series.Points.end(), shorter);
    std::string sentence = (series.Name.empty() ? std::string("The bars") : series.Name) +
                           ": the largest is " + place(*most) + " with " + ValueOn(axis, length(*most));
    if (series.Points.size() > 1)
        sentence += ", the smallest " + place(*least) + " with " + ValueOn(axis, length(*least));
    lines.push_back(sentence +
                    (chart.BarsFrom == 0 ? "." : "; bars begin at " + ValueOn(axis, chart.BarsFrom) + "."));
}

std::string IntervalText(const Chart& chart, const Interval& interval)
{
    const std::string name = AlongX(chart) ? NameOf(chart.Y, interval.At) : NameOf(chart.X, interval.At);
    const Axis& axis = AlongX(chart) ? chart.X : chart.Y;
    const auto end = [&axis](const std::optional<double>& value, const std::string& text) {
        if (!value) return std::string("no limit");
        return text.empty() || axis.Places >= 0 ? ValueOn(axis, *value) : text;
    };
    return name + " from " + end(interval.From, interval.FromText) + " to " +
           end(interval.To, interval.ToText);
}

bool IsCurve(const Series& series)
{
    return series.Kind == SeriesKind::Line && series.Points.size() > 1 && series.Forbidden == Side::None &&
           !series.Name.empty();
}

// Where two pieces cross; the last point of each belongs to the next piece.
std::optional<Point> Crossing(const Point& a0, const Point& a1, const Point& b0, const Point& b1)
{
    const double det = (a1.X - a0.X) * (b1.Y - b0.Y) - (a1.Y - a0.Y) * (b1.X - b0.X);
    if (det == 0) return std::nullopt;
    const double s = ((b0.X - a0.X) * (b1.Y - b0.Y) - (b0.Y - a0.Y) * (b1.X - b0.X)) / det;
    const double t = ((b0.X - a0.X) * (a1.Y - a0.Y) - (b0.Y - a0.Y) * (a1.X - a0.X)) / det;
    if (s < 0 || s >= 1 || t < 0 || t >= 1) return std::nullopt;
    return Point{a0.X + s * (a1.X - a0.X), a0.Y + s * (a1.Y - a0.Y)};
}

std::vector<Point> Crossings(const Series& a, const Series& b)
{
    std::vector<Point> crossings;
    for (std::size_t p = 0; p + 1 < a.Points.size(); ++p)
        for (std::size_t q = 0; q + 1 < b.Points.size(); ++q)
            if (const auto at = Crossing(a.Points[p], a.Points[p + 1], b.Points[q], b.Points[q + 1]))
                crossings.push_back(*at);
    return crossings;
}

void TellCrossings(const Chart& chart, Lines& lines)
{
    constexpr int kMost = 12;
    int told = 0;
    for (std::size_t i = 0; i < chart.Curves.size(); ++i)
        for (std::size_t j = i + 1; j < chart.Curves.size(); ++j) {
            const Series& a = chart.Curves[i];
            const Series& b = chart.Curves[j];
            if (!IsCurve(a) || !IsCurve(b)) continue;
            for (const Point& at : Crossings(a, b))
                if (++told <= kMost)
                    lines.push_back(a.Name + " and " + b.Name + " cross at " + At(chart, at) + ".");
        }
}

void TellChosen(const Chart& chart, Lines& lines)
{
    std::string marks;  // with commas of their own
    for (const Mark& mark : chart.Marks)
        if (IsChosen(mark.As)) marks += (marks.empty() ? "" : "; ") + MarkText(chart, mark);
    if (!marks.empty()) lines.push_back("Chosen: " + marks + ".");
    for (const Series& series : chart.Curves)
        if (series.Forbidden != Side::None && series.Points.size() > 1)
            lines.push_back(Inequality(chart, series) + (series.Thin ? " (bounds nothing)." : "."));
    for (const Series& series : chart.Curves)
        if ((series.Kind == SeriesKind::Line || series.Kind == SeriesKind::Steps) &&
            series.Forbidden == Side::None)
            TellLine(chart, series, lines);
    for (const Series& series : chart.Curves)
        if (series.Kind == SeriesKind::Bars) TellBars(chart, series, lines);
    TellCrossings(chart, lines);
}

// Areas that reach the edge of the window go on there; intervals without an end; those without room.
void TellUnusual(const Chart& chart, Lines& lines)
{
    for (const Series& series : chart.Curves) {
        if (series.Kind == SeriesKind::Area && series.Points.empty()) lines.push_back("The area is empty.");
        std::vector<std::string> open;
        std::vector<std::string> closed;
        for (const Interval& interval : series.Intervals) {
            const std::string name =
                AlongX(chart) ? NameOf(chart.Y, interval.At) : NameOf(chart.X, interval.At);
            if (!interval.From || !interval.To)
                open.push_back(name);
            else if (*interval.From == *interval.To)
                closed.push_back(name);
        }
        if (!open.empty()) lines.push_back("Without a limit on a side: " + Listed(open) + ".");
        if (!closed.empty()) lines.push_back("Without room: " + Listed(closed) + ".");
    }
}

std::string PointsText(const Chart& chart, const Series& series)
{
    std::string text;
    for (const Point& point : series.Points)
        text += (text.empty() ? "" : "; ") + At(chart, point);
    for (const Interval& interval : series.Intervals)
        text += (text.empty() ? "" : "; ") + IntervalText(chart, interval);
    return text.empty() ? "none" : text;
}

std::string_view NameFor(SeriesKind kind)
{
    constexpr std::array<std::string_view, 6> names{
        "Line", "Area with the corners", "Bars", "Points", "Steps", "Intervals"};
    return names.at(static_cast<std::size_t>(kind));
}

}  // namespace

std::string_view KindOf(const Chart& chart)
{
    return chart.Cells ? "Table" : "Chart";
}

void Tell(const Chart& chart, Lines& lines)
{
    lines.push_back(AxisSentence(chart.Cells ? "column" : "x", chart.X));
    lines.push_back(AxisSentence(chart.Cells ? "row" : "y", chart.Y));
    if (chart.OwnScales) lines.push_back("Each row has a scale of its own.");
    lines.push_back(CountSentence(chart));
    TellChosen(chart, lines);
    TellUnusual(chart, lines);
}

void TellAll(const Chart& chart, Lines& lines)
{
    for (const Series& series : chart.Curves)
        lines.push_back(std::string(NameFor(series.Kind)) + " " +
                        WithRole(series.Name.empty() ? "without a name" : series.Name, series.As) + ": " +
                        PointsText(chart, series) + ".");
    const auto axis = [&chart](Direction across) -> const Axis& {
        return across == Direction::X ? chart.X : chart.Y;
    };
    const auto end = [&axis](const Band& band, const std::optional<double>& value) {
        return value ? ValueOn(axis(band.Across), *value) : "no limit";
    };
    for (const Band& band : chart.Bands)
        lines.push_back("Band " + WithRole(band.Text, band.As) + " along " +
                        (band.Across == Direction::X ? "x" : "y") + ": " + end(band, band.From) + " to " +
                        end(band, band.To) + ".");
    for (const Rule& rule : chart.Rules)
        lines.push_back(
            "Reference line " + WithRole(rule.Text.empty() ? "without a name" : rule.Text, rule.As) + " at " +
            (rule.Across == Direction::X ? "x " : "y ") + ValueOn(axis(rule.Across), rule.Value) + ".");
    for (const Mark& mark : chart.Marks)
        lines.push_back((chart.Cells ? "Cell " : "Mark ") + WithRole(MarkText(chart, mark), mark.As) + ".");
}

}  // namespace picture::describing
