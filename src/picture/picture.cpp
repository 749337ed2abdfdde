#include "picture/picture.h"

#include <array>

#include "basic/format.h"

namespace picture {
namespace {

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text) {
        if (character == '"')
            quoted += "\"\"";
        else if (character == '\n')
            quoted += "\\n";
        else
            quoted += character;
    }
    return quoted + '"';
}

std::string Number(double value)
{
    return PlainText(value == 0 ? 0 : value);  // no minus before a zero
}

std::string Number(std::optional<double> end)
{
    return end ? Number(*end) : "open";
}

std::string PointText(const Point& point)
{
    return Number(point.X) + "," + Number(point.Y);
}

std::string IntervalText(const Interval& interval)
{
    return Number(interval.At) + "," + Number(interval.From) + "," + Number(interval.To);
}

std::string_view WordFor(SeriesKind kind)
{
    constexpr std::array<std::string_view, 6> words{"line", "area", "bars", "points", "steps", "interval"};
    return words.at(static_cast<std::size_t>(kind));
}

std::string_view WordFor(Direction direction)
{
    return direction == Direction::X ? "x" : "y";
}

// Words parted by a blank.
class Line {
public:
    explicit Line(std::string_view first) : text_(first) {}
    Line& operator<<(std::string_view word)
    {
        text_ += ' ';
        text_ += word;
        return *this;
    }
    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    std::string text_;
};

std::string AxisLine(std::string_view name, const Axis& axis)
{
    Line line("axis");
    line << name << Quoted(axis.Title) << Number(axis.From) << Number(axis.To);
    for (const std::string& position : axis.Names)
        line << Quoted(position);
    return line.Text();
}

std::string SeriesLine(const Series& series)
{
    Line line(WordFor(series.Kind));
    line << WordFor(series.As) << Quoted(series.Name);
    for (const Point& point : series.Points)
        line << PointText(point);
    for (const Interval& interval : series.Intervals)
        line << IntervalText(interval);
    return line.Text();
}

void List(const Chart& chart, std::vector<std::string>& lines)
{
    lines.push_back(AxisLine("x", chart.X));
    lines.push_back(AxisLine("y", chart.Y));
    for (const Series& series : chart.Curves)
        lines.push_back(SeriesLine(series));
    for (const Band& band : chart.Bands)
        lines.push_back((Line("band") << WordFor(band.As) << WordFor(band.Across) << Number(band.From)
                                      << Number(band.To) << Quoted(band.Text))
                            .Text());
    for (const Rule& rule : chart.Rules)
        lines.push_back((Line("rule") << WordFor(rule.Across) << WordFor(rule.As) << Number(rule.Value)
                                      << Quoted(rule.Text))
                            .Text());
    for (const Mark& mark : chart.Marks)
        lines.push_back((Line("mark") << WordFor(mark.As) << PointText(mark.At) << Quoted(mark.Text)).Text());
}

std::string NodeText(const Node& node)
{
    std::string text;
    for (const std::string& line : node.Lines) {
        if (!text.empty()) text += '\n';
        text += line;
    }
    return text;
}

void List(const Diagram& diagram, std::vector<std::string>& lines)
{
    for (const Node& node : diagram.Nodes) {
        Line line("node");
        line << WordFor(node.Form) << WordFor(node.As) << Quoted(node.Id) << Quoted(NodeText(node));
        if (node.Folded) line << "folded";
        lines.push_back(line.Text());
    }
    for (const Arc& arc : diagram.Arcs)
        lines.push_back((Line(arc.Directed ? "arc" : "edge")
                         << WordFor(arc.As) << Quoted(arc.From) << Quoted(arc.To) << Number(arc.Weight)
                         << Quoted(arc.Text))
                            .Text());
}

}  // namespace

std::string_view WordFor(Role role)
{
    constexpr std::array<std::string_view, 11> words{"plain",  "past",  "chosen",     "critical",
                                                     "best",   "limit", "infeasible", "forecast",
                                                     "second", "spare", "nottaken"};
    return words.at(static_cast<std::size_t>(role));
}

std::string_view WordFor(Shape shape)
{
    constexpr std::array<std::string_view, 6> words{"box", "square", "circle", "ring", "triangle", "diamond"};
    return words.at(static_cast<std::size_t>(shape));
}

std::vector<std::string> Listing(const Picture& picture, int number, int count)
{
    const bool chart = std::holds_alternative<Chart>(picture.Body);
    std::vector<std::string> lines{(Line("picture") << std::to_string(number) << "of" << std::to_string(count)
                                                    << (chart ? "chart" : "diagram") << Quoted(picture.Title))
                                       .Text()};
    std::visit([&lines](const auto& body) { List(body, lines); }, picture.Body);
    for (const std::string& note : picture.Notes)
        lines.push_back("note " + Quoted(note));
    return lines;
}

std::vector<std::string> Listing(const std::vector<Step>& steps)
{
    std::vector<std::string> lines{"steps " + std::to_string(steps.size())};
    int number = 0;
    for (const Step& step : steps) {
        lines.push_back("step " + std::to_string(++number) + " " + Quoted(step.Heading));
        for (const auto* figures : {&step.Figures, &step.Arithmetic})
            for (const std::string& line : *figures)
                lines.push_back("|" + line);
        lines.push_back("why " + Quoted(step.Why));
    }
    return lines;
}

std::vector<Step> Kept(std::vector<Step> steps)
{
    constexpr std::size_t kMost = 1000;
    constexpr auto kEnds = static_cast<std::ptrdiff_t>(kMost / 2);
    if (steps.size() <= kMost) return steps;
    const std::size_t left = steps.size() - kMost;
    std::vector<Step> kept(std::make_move_iterator(steps.begin()),
                           std::make_move_iterator(steps.begin() + kEnds));
    kept.push_back({.Heading = std::to_string(left) + (left == 1 ? " step" : " steps") + " left out",
                    .Why = "Only the first 500 steps and the last 500 are kept."});
    kept.insert(kept.end(), std::make_move_iterator(steps.end() - kEnds),
                std::make_move_iterator(steps.end()));
    return kept;
}

}  // namespace picture
