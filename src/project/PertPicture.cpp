#include "project/PertPicture.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "basic/format.h"
#include "picture/words.h"
#include "project/PertChains.h"

namespace VtPert_CPM {
namespace {

using picture::Chart;
using picture::Diagram;
using picture::Listed;
using picture::Picture;
using picture::Role;
using picture::Series;
using picture::SeriesKind;
using Texts = std::vector<std::string>;

constexpr double kNoTime = 1e-9;

std::string Name(const PertProblem& problem, int activity)
{
    return problem.ActivityName(activity);
}

Role RoleOf(const PertResult& result, int activity)
{
    return IsCritical(result, activity) ? Role::Critical : Role::Plain;
}

// "0 to 2, critical", "2 to 5, latest 4 to 7, slack 2, 1 of it shared".
std::string Figures(const PertProblem& problem, const PertResult& result, int i)
{
    const auto time = [&problem](double value) { return TimeOf(problem, value); };
    std::string text = time(result.EarliestStart(i)) + " to " + time(result.EarliestFinish(i));
    if (IsCritical(result, i)) return text + ", critical";
    text += ", latest " + time(result.LatestStart(i)) + " to " + time(result.LatestFinish(i)) + ", slack " +
            time(result.ActivitySlack(i));
    const double shared = result.ActivitySlack(i) - FreeSlack(problem, result, i);
    return text + (shared > kNoTime ? ", " + time(shared) + " of it shared" : "");
}

std::string Waits(const PertProblem& problem, const PertResult& result, int i)
{
    std::vector<int> tight;
    for (const int predecessor : PredecessorsIn(problem, i))
        if (IsTight(result, {predecessor, i})) tight.push_back(predecessor);
    return tight.empty() ? "" : ", waits for " + Listed(NamesOf(problem, tight));
}

std::string Tip(const PertProblem& problem, const PertResult& result, int i)
{
    return Name(problem, i) + ": " + Figures(problem, result, i) + Waits(problem, result, i);
}

// ---- what both say below ----

Texts Notes(const PertProblem& problem, const PertResult& result)
{
    const auto chain = CriticalChain(problem, result);
    const std::string names = Listed(NamesOf(problem, chain), chain.size());
    const std::string end = CompletionText(problem, result);
    Texts notes{"The project ends at " + end + "; " +
                (chain.size() == 1 ? "activity " + names + " alone takes that long."
                                   : "the chain " + names + " takes that long.")};
    if (CountChains(problem, result) > 1)
        notes.push_back("There are " + PlainText(CountChains(problem, result)) + " critical chains.");
    const auto path = WalkedPath(problem, result);
    if (const auto gaps = GapsOf(result, path); !gaps.empty())
        notes.push_back("The path " + result.PathText +
                        " in the report is no chain: " + Name(problem, gaps.front().To) +
                        " does not wait for " + Name(problem, gaps.front().From) + ".");
    return notes;
}

// ---- the schedule ----

Series Bar(int row, double from, double to, Role role, const char* name)
{
    Series bar{.Kind = SeriesKind::Interval, .As = role, .Name = name};
    bar.Intervals = {{.At = static_cast<double>(row), .From = from, .To = to}};
    return bar;
}

// Slack as a thin line to the latest finish; the part that successors share is hatched.
void AddSlack(const PertProblem& problem, const PertResult& result, int i, Chart& chart)
{
    if (IsCritical(result, i)) return;
    const double finish = result.EarliestFinish(i);
    const double free = finish + FreeSlack(problem, result, i);
    const double latest = result.LatestFinish(i);
    const std::string tip = Tip(problem, result, i);
    if (free - finish > kNoTime) {
        Series slack = Bar(i, finish, free, Role::Past, "slack");
        slack.Thin = true;
        slack.Tips = {tip};
        chart.Curves.push_back(std::move(slack));
    }
    if (latest - free > kNoTime) {
        Series shared = Bar(i, free, latest, Role::Spare, "slack shared with successors");
        shared.Thin = true;
        shared.Hatched = true;
        shared.Tips = {tip};
        chart.Curves.push_back(std::move(shared));
    }
}

void AddActivity(const PertProblem& problem, const PertResult& result, int i, Chart& chart)
{
    const double start = result.EarliestStart(i);
    const double finish = result.EarliestFinish(i);
    const bool critical = IsCritical(result, i);
    const std::string tip = Tip(problem, result, i);
    if (std::abs(finish - start) <= kNoTime) {
        chart.Marks.push_back({.As = RoleOf(result, i),
                               .At = {start, static_cast<double>(i)},
                               .Text = TimeOf(problem, start),
                               .Tip = tip,
                               .Id = Name(problem, i),
                               .Diamond = true});
    } else {
        Series bar = Bar(i, start, finish, RoleOf(result, i), critical ? "critical" : "with slack");
        bar.Tips = {tip};
        bar.Id = Name(problem, i);
        chart.Curves.push_back(std::move(bar));
    }
    AddSlack(problem, result, i, chart);
    Series& last = chart.Curves.empty() ? chart.Curves.emplace_back() : chart.Curves.back();
    if (!last.Intervals.empty() && last.Intervals[0].At == i)
        last.Intervals[0].ToText = TimeOf(problem, start) + " to " + TimeOf(problem, finish);
}

// Always those of the tight links; the others while one of their activities has the focus.
void AddArrows(const PertProblem& problem, const PertResult& result, Chart& chart)
{
    for (const Link& link : LinksIn(problem)) {
        if (!IsTight(result, link)) {
            chart.FocusArrows.push_back(
                {.From = {result.EarliestFinish(link.From), static_cast<double>(link.From)},
                 .To = {result.EarliestStart(link.To), static_cast<double>(link.To)},
                 .FromId = Name(problem, link.From),
                 .ToId = Name(problem, link.To)});
            continue;
        }
        Series arrow{.Kind = SeriesKind::Line,
                     .As = IsStrong(result, link) ? Role::Critical : Role::Spare,
                     .Name = {}};
        arrow.Points = {{result.EarliestFinish(link.From), static_cast<double>(link.From)},
                        {result.EarliestStart(link.To), static_cast<double>(link.To)}};
        const std::string text = Name(problem, link.To) + " waits for " + Name(problem, link.From);
        arrow.Tips = {text, text};
        arrow.Id = LinkName(problem, link.From, link.To);
        arrow.Arrow = true;
        chart.Curves.push_back(std::move(arrow));
    }
}

// With room behind the end for the figures of the last bars.
void SetTimeAxis(const PertProblem& problem, const PertResult& result, Chart& chart)
{
    constexpr double kRoom = 0.2;
    double first = 0;
    double last = result.ProjectTime;
    for (int i = 1; i <= problem.NumActivities; ++i) {
        first = std::min({first, result.EarliestStart(i), result.EarliestFinish(i)});
        last = std::max({last, result.EarliestFinish(i), result.LatestFinish(i)});
    }
    const double span = last > first ? last - first : 1;
    chart.X = {.Title = "Time",
               .From = first,
               .To = first + span * (1 + kRoom),
               .Places = ShownDecimals(problem.TimeDecimals.Value())};
}

Picture ScheduleOf(const PertProblem& problem, const PertResult& result)
{
    Chart chart;
    SetTimeAxis(problem, result, chart);
    chart.Y = {.Title = "Activity", .From = 0.5, .To = problem.NumActivities + 0.5};
    for (int i = 1; i <= problem.NumActivities; ++i) {
        chart.Y.Names.push_back(Name(problem, i));
        AddActivity(problem, result, i, chart);
    }
    std::erase_if(chart.Curves,
                  [](const Series& series) { return series.Intervals.empty() && series.Points.empty(); });
    AddArrows(problem, result, chart);
    chart.Rules.push_back(
        {.As = Role::Limit, .Value = result.ProjectTime, .Text = "end " + CompletionText(problem, result)});
    return {"Schedule", std::move(chart), Notes(problem, result)};
}

// ---- the network ----

// Columns by earliest start; an activity that starts with a predecessor of no time stands behind it.
std::vector<int> Columns(const PertProblem& problem, const PertResult& result)
{
    const auto count = static_cast<std::size_t>(problem.NumActivities) + 1;
    std::vector<std::pair<double, int>> keys(count);
    for (int i = 1; i <= problem.NumActivities; ++i) {
        auto& key = keys[static_cast<std::size_t>(i)];
        key = {result.EarliestStart(i), 0};
        for (const int predecessor : PredecessorsIn(problem, i)) {
            const auto& before = keys[static_cast<std::size_t>(predecessor)];
            if (before.first >= key.first) key = {before.first, std::max(key.second, before.second + 1)};
        }
    }
    std::map<std::pair<double, int>, int> places;
    for (std::size_t i = 1; i < count; ++i)
        places[keys[i]] = 0;
    int place = 0;
    for (auto& [key, column] : places)
        column = place++;
    std::vector<int> columns(count);
    for (std::size_t i = 1; i < count; ++i)
        columns[i] = places[keys[i]];
    return columns;
}

Diagram BoxesOf(const PertProblem& problem, const PertResult& result)
{
    const auto time = [&problem](double value) { return TimeOf(problem, value); };
    const std::vector<int> columns = Columns(problem, result);
    Diagram diagram{.Kind = picture::Layout::Ranks};
    for (int i = 1; i <= problem.NumActivities; ++i) {
        picture::Node node;
        node.Id = Name(problem, i);
        node.Lines = {time(result.EarliestStart(i)) + "\t" + time(problem.ActivityTime(i).Value()) + "\t" +
                          time(result.EarliestFinish(i)),
                      node.Id,
                      time(result.LatestStart(i)) + "\t" + time(result.ActivitySlack(i)) + "\t" +
                          time(result.LatestFinish(i))};
        node.As = RoleOf(result, i);
        node.Tip = Tip(problem, result, i);
        node.Rank = columns[static_cast<std::size_t>(i)];
        diagram.Nodes.push_back(std::move(node));
    }
    return diagram;
}

Picture NetworkOf(const PertProblem& problem, const PertResult& result)
{
    Diagram diagram = BoxesOf(problem, result);
    for (const Link& link : LinksIn(problem)) {
        const double gap = result.EarliestStart(link.To) - result.EarliestFinish(link.From);
        picture::Arc arc;
        arc.From = Name(problem, link.From);
        arc.To = Name(problem, link.To);
        const Role loose = IsTight(result, link) ? Role::Plain : Role::Spare;
        arc.As = IsStrong(result, link) ? Role::Critical : loose;
        arc.Tip = arc.To + (IsTight(result, link)
                                ? " waits for " + arc.From
                                : " starts " + TimeOf(problem, gap) + " after the end of " + arc.From);
        arc.Id = LinkName(problem, link.From, link.To);
        diagram.Arcs.push_back(std::move(arc));
    }
    diagram.Start = Name(problem, CriticalChain(problem, result).front());
    Texts notes = Notes(problem, result);
    notes.emplace_back(
        "Above: earliest start, time, earliest finish; below: latest start, slack, latest "
        "finish.");
    return {"Network", std::move(diagram), std::move(notes)};
}

// ---- the chance ----

constexpr int kChancePlaces = 4;

Series ChanceCurve(double mean, double variance, const picture::Axis& axis)
{
    constexpr int kPieces = 80;
    Series curve{.Kind = SeriesKind::Line, .As = Role::Chosen, .Name = "chance to be done"};
    for (int k = 0; k <= kPieces; ++k) {
        const double time = axis.From + (axis.To - axis.From) * k / kPieces;
        const double chance = ChanceBy(time, mean, variance);
        curve.Points.push_back({time, chance});
        curve.Tips.push_back("by " + Format(time, "0.00") + ": " + picture::Chance(chance, kChancePlaces));
    }
    return curve;
}

Picture ChanceOf(const PertProblem& problem, const PertResult& result)
{
    constexpr double kReach = 4;  // standard deviations on each side
    const double mean = result.RoundedProjectTime;
    const double variance = result.RoundedProjectVariance;
    const std::string time = CompletionText(problem, result);
    Chart chart;
    const double reach = variance > 0 ? kReach * std::sqrt(variance) : std::max(1.0, mean / 2);
    chart.X = {.Title = "Time", .From = std::max(0.0, mean - reach), .To = mean + reach, .Places = 2};
    chart.Y = {.Title = "Chance", .From = 0, .To = 1, .Places = kChancePlaces};
    if (variance <= 0) {
        chart.Rules.push_back({.As = Role::Chosen, .Value = mean, .Text = "completion time " + time});
        return {"Chance", std::move(chart), {"The variance is 0, so that no chances can be told."}};
    }
    chart.Curves.push_back(ChanceCurve(mean, variance, chart.X));
    chart.Marks.push_back({.As = Role::Chosen,
                           .At = {mean, ChanceBy(mean, mean, variance)},
                           .Text = "completion time " + time,
                           .Tip = "by " + time + ": 0.5000",
                           .Id = "completion"});
    chart.Start = "completion";
    Texts notes{"The project is done by " + time + " with a chance of 0.5000.",
                "Normal distribution with mean " + time + " and variance " + PlainText(variance) +
                    ", both of the path " + result.PathText + "."};
    if (CountChains(problem, result) > 1)
        notes.emplace_back("There is more than one critical chain: the chance is smaller.");
    return {"Chance", std::move(chart), std::move(notes)};
}

}  // namespace

std::string LinkName(const PertProblem& problem, int from, int to)
{
    return problem.ActivityName(from) + "-" + problem.ActivityName(to);
}

std::vector<Picture> PertPictures(const PertProblem& problem, const PertResult& result)
{
    if (!HasSchedule(problem, result)) return {};
    std::vector<Picture> pictures{ScheduleOf(problem, result), NetworkOf(problem, result)};
    if (problem.TimeMode.Value() == kThreeEstimates) pictures.push_back(ChanceOf(problem, result));
    return pictures;
}

}  // namespace VtPert_CPM
