#include "markov/MarkovPicture.h"

#include <algorithm>
#include <string>

#include "markov/ChainShape.h"
#include "picture/words.h"

namespace Markov {
namespace {

using picture::Arc;
using picture::Axis;
using picture::Chart;
using picture::Diagram;
using picture::Mark;
using picture::Node;
using picture::Picture;
using picture::Role;
using picture::Series;

constexpr int kMostArcs = 24;  // with more the matrix comes first, and small arcs are not drawn
constexpr double kSmallArc = 0.05;
constexpr double kHalf = 0.5;  // named positions reach half a step to both sides

bool Absorbs(const MarkovResult& result, int state)
{
    const Group& absorbing = result.AbsorbingList;
    return std::find(absorbing.begin(), absorbing.end(), state) != absorbing.end();
}

// The states with the largest share, as it is printed; none where all have the same.
Group LargestShares(const MarkovResult& result)
{
    const int n = result.Distribution.Upper();
    double largest = 0;
    for (int state = 1; state <= n; ++state)
        largest = std::max(largest, result.Distribution(state));
    Group states;
    for (int state = 1; state <= n; ++state)
        if (ShareText(result.Distribution(state)) == ShareText(largest)) states.push_back(state);
    return static_cast<int>(states.size()) == n && n > 1 ? Group{} : states;
}

Axis StateAxis(std::string title, const Group& states)
{
    Axis axis{.Title = std::move(title), .From = kHalf, .To = static_cast<double>(states.size()) + kHalf};
    for (const int state : states)
        axis.Names.push_back(std::to_string(state));
    return axis;
}

Group AllStates(int n)
{
    Group states;
    for (int state = 1; state <= n; ++state)
        states.push_back(state);
    return states;
}

// The beginning of a tip.
std::string Way(int from, int to)
{
    return "From state " + std::to_string(from) + " to state " + std::to_string(to) + ": ";
}

// ---- states ----

std::string ResultNote(const MarkovProblem& problem, const MarkovResult& result)
{
    if (!result.AbsorbingList.empty()) {
        std::string list = StateList(result.AbsorbingList);
        list.front() = 'S';
        return list + (result.AbsorbingList.size() == 1 ? " absorbs." : " absorb.");
    }
    const Group largest = LargestShares(result);
    if (largest.empty())
        return "All " + std::to_string(problem.StateCount) + " states have the same share, " +
               ShareText(result.Distribution(1)) + ".";
    std::string list = StateList(largest);
    list.front() = 'S';
    return list + (largest.size() == 1 ? " has" : " have") + " the largest share, " +
           ShareText(result.Distribution(largest.front())) + ".";
}

void NoteGroups(const ChainShape& shape, std::vector<std::string>& notes)
{
    for (const Group& group : shape.Groups()) {
        const int period = shape.Period(group);
        if (group.size() > 1 && static_cast<int>(group.size()) < shape.States())
            notes.push_back("The group " + GroupText(group) + " is never left.");
        if (period > 1)
            notes.push_back("The group " + GroupText(group) + " is periodic: it comes round every " +
                            std::to_string(period) + " steps.");
    }
    if (shape.Passing().empty()) return;
    const Group& passing = shape.Passing();
    notes.push_back("Left for good sooner or later: " + StateList(passing) + ".");
}

Node StateNode(const MarkovResult& result, int state, const Group& largest)
{
    const std::string number = std::to_string(state);
    if (Absorbs(result, state))
        return {.Id = number,
                .Lines = {number},
                .Form = picture::Shape::Ring,
                .As = Role::Chosen,
                .Tip = "State " + number + " absorbs"};
    Node node{.Id = number, .Lines = {number}, .Form = picture::Shape::Circle, .Tip = "State " + number};
    if (!result.AbsorbingList.empty()) return node;
    const std::string share = ShareText(result.Distribution(state));
    node.Lines.push_back(share);
    node.Tip += ": share " + share;
    if (std::find(largest.begin(), largest.end(), state) != largest.end()) node.As = Role::Chosen;
    return node;
}

// The ways out of a state, the largest first.
Group WaysOut(const ChainShape& shape, int from)
{
    Group ways;
    for (int to = 1; to <= shape.States(); ++to)
        if (shape.Chance(from, to) > 0) ways.push_back(to);
    std::stable_sort(ways.begin(), ways.end(),
                     [&](int a, int b) { return shape.Chance(from, a) > shape.Chance(from, b); });
    return ways;
}

Arc ArcBetween(const ChainShape& shape, int from, int to)
{
    const std::string chance = ShareText(shape.Chance(from, to));
    const std::string start = std::to_string(from);
    const std::string end = std::to_string(to);
    return {.From = start,
            .To = end,
            .Weight = shape.Chance(from, to),
            .Text = chance,
            .Tip = from == to ? "Stays in state " + start + ": " + chance : Way(from, to) + chance,
            .Id = start + "-" + end};
}

Picture StatesPicture(const MarkovProblem& problem, const MarkovResult& result, const ChainShape& shape)
{
    Diagram ring{.Kind = picture::Layout::Ring};
    const Group largest = result.AbsorbingList.empty() ? LargestShares(result) : Group{};
    const double least = shape.ArcCount() > kMostArcs ? kSmallArc : 0;
    int leftOut = 0;
    for (int from = 1; from <= shape.States(); ++from) {
        ring.Nodes.push_back(StateNode(result, from, largest));
        for (const int to : WaysOut(shape, from)) {
            if (shape.Chance(from, to) >= least)
                ring.Arcs.push_back(ArcBetween(shape, from, to));
            else
                ++leftOut;
        }
    }
    Picture states{.Title = "States", .Notes = {ResultNote(problem, result)}};
    NoteGroups(shape, states.Notes);
    if (leftOut > 0)
        states.Notes.push_back(picture::Counted(leftOut, "arc") + " with a probability below 0.050 " +
                               (leftOut == 1 ? "is" : "are") + " not drawn.");
    for (const Group& group : shape.Groups())
        if (group.size() > 1 && static_cast<int>(group.size()) < shape.States()) {
            picture::Frame frame{.Text = "never left"};
            for (const int state : group)
                frame.Ids.push_back(std::to_string(state));
            ring.Frames.push_back(frame);
        }
    states.Body = std::move(ring);
    return states;
}

// ---- matrix ----

Picture MatrixPicture(const ChainShape& shape)
{
    const Group states = AllStates(shape.States());
    Chart table{.X = StateAxis("To state", states), .Y = StateAxis("From state", states), .Cells = true};
    int largestFrom = 1;
    int largestTo = 1;
    for (const int from : states)
        for (const int to : states)
            if (shape.Chance(from, to) > shape.Chance(largestFrom, largestTo)) {
                largestFrom = from;
                largestTo = to;
            }
    const double largest = shape.Chance(largestFrom, largestTo);  // above 0: there are many arcs
    for (const int from : states)
        for (const int to : states) {
            const std::string chance = ShareText(shape.Chance(from, to));
            table.Marks.push_back({.At = {.X = static_cast<double>(to), .Y = static_cast<double>(from)},
                                   .Text = chance,
                                   .Tip = Way(from, to) + chance,
                                   .Id = std::to_string(from) + "-" + std::to_string(to),
                                   .Shade = shape.Chance(from, to) / largest});
        }
    Picture matrix{.Title = "Matrix"};
    matrix.Notes = {picture::Counted(shape.ArcCount(), "probability", "probabilities") +
                    " above 0; the largest, " + ShareText(shape.Chance(largestFrom, largestTo)) +
                    ", is from state " + std::to_string(largestFrom) + " to state " +
                    std::to_string(largestTo) + "."};
    matrix.Body = std::move(table);
    return matrix;
}

// ---- absorption ----

// Added up, not taken from 1: rows may add up to a little less or more, step by step.
double NotAbsorbed(const MarkovResult& result, const Course& course)
{
    double rest = 0;
    for (const int state : result.NonAbsorbingList)
        rest += course.Rows.back()(state);
    return rest;
}

Mark AbsorptionCell(int column, int row, double chance, const std::string& tip, bool largest)
{
    return {.As = largest ? Role::Chosen : Role::Plain,
            .At = {.X = static_cast<double>(column), .Y = static_cast<double>(row)},
            .Text = ShareText(chance),
            .Tip = tip + ShareText(chance),
            .Id = std::to_string(row) + "-" + std::to_string(column),
            .Shade = std::clamp(chance, 0.0, 1.0)};
}

Picture AbsorptionPicture(const MarkovResult& result, const std::vector<Course>& courses)
{
    const int columns = static_cast<int>(result.AbsorbingList.size());
    Chart table{.X = StateAxis("Ends in state", result.AbsorbingList),
                .Y = StateAxis("Starts in state", result.NonAbsorbingList),
                .Cells = true};
    const int rows = static_cast<int>(result.NonAbsorbingList.size());
    double most = 0;
    for (const Course& course : courses)
        most = std::max(most, NotAbsorbed(result, course));
    const bool tellsRest = ShareText(most) != ShareText(0);
    for (int k = 1; k <= rows; ++k) {
        const int start = result.NonAbsorbingList[static_cast<std::size_t>(k) - 1];
        double largest = 0;
        for (int a = 1; a <= columns; ++a)
            largest = std::max(largest, result.AbsorptionTable(k, a));
        for (int a = 1; a <= columns; ++a) {
            const double chance = result.AbsorptionTable(k, a);
            table.Marks.push_back(AbsorptionCell(
                a, k, chance, Way(start, result.AbsorbingList[static_cast<std::size_t>(a) - 1]),
                ShareText(chance) == ShareText(largest) && chance > 0));
        }
        if (tellsRest)
            table.Marks.push_back(
                AbsorptionCell(columns + 1, k, NotAbsorbed(result, courses[static_cast<std::size_t>(k) - 1]),
                               "From state " + std::to_string(start) + ", not yet absorbed: ", false));
    }
    Picture absorption{.Title = "Absorption",
                       .Notes = {"For each state in which units start: the chance to end in each state that "
                                 "absorbs."}};
    if (tellsRest) {
        table.X.Names.emplace_back("none yet");
        table.X.To += 1;
        absorption.Notes.push_back("Up to " + ShareText(most) +
                                   " of the units had not been absorbed when the steps ended.");
    }
    absorption.Body = std::move(table);
    return absorption;
}

// ---- course ----

int LongestCourse(const std::vector<Course>& courses)
{
    int steps = 0;
    for (const Course& course : courses)
        steps = std::max(steps, course.Steps());
    return steps;
}

double AbsorbedBy(const MarkovResult& result, const Array1<double>& row)
{
    double absorbed = 0;
    for (const int state : result.AbsorbingList)
        absorbed += row(state);
    return absorbed;
}

template <typename Value>
Series CourseLine(const Course& course, const std::string& name, Value value)
{
    Series line{.Name = name, .Id = name};
    int step = 0;
    for (const Array1<double>& row : course.Rows) {
        const double y = value(row);
        line.Points.push_back({.X = static_cast<double>(step), .Y = y});
        line.Tips.push_back(name + ", step " + std::to_string(step) + ": " + ShareText(y));
        ++step;
    }
    return line;
}

Chart CourseChart(std::string title, int steps)
{
    return {.X = {.Title = "Step", .From = 0, .To = static_cast<double>(steps), .Counts = true},
            .Y = {.Title = std::move(title), .From = 0, .To = 1, .Places = 3}};
}

// Shares of many states are small: the axis ends at the largest.
void FitHeight(Chart& chart)
{
    double highest = 0;
    for (const Series& line : chart.Curves)
        for (const picture::Point& point : line.Points)
            highest = std::max(highest, point.Y);
    if (highest > 0) chart.Y.To = highest;
}

std::string EndOf(const Course& course)
{
    return course.Settled()
               ? "Settled after " + picture::Counted(course.Steps(), "step") + "."
               : "Still changing at step " + std::to_string(course.Steps()) + ", the last that is made.";
}

Picture SteadyCourse(const MarkovResult& result, const Course& course)
{
    Chart chart = CourseChart("Chance of the state", course.Steps());
    const Group largest = LargestShares(result);
    for (int state = 1; state <= result.Distribution.Upper(); ++state) {
        Series line = CourseLine(course, "state " + std::to_string(state),
                                 [state](const Array1<double>& row) { return row(state); });
        if (std::find(largest.begin(), largest.end(), state) != largest.end()) line.As = Role::Chosen;
        chart.Curves.push_back(std::move(line));
    }
    FitHeight(chart);
    chart.Rules.push_back({.As = course.Settled() ? Role::Plain : Role::Limit,
                           .Value = static_cast<double>(course.Steps()),
                           .Text = course.Settled() ? "settled" : "still changing"});
    Picture picture{.Title = "Course", .Notes = {EndOf(course), "The start has equal shares."}};
    picture.Body = std::move(chart);
    return picture;
}

Picture AbsorptionCourse(const MarkovResult& result, const std::vector<Course>& courses)
{
    Chart chart = CourseChart("Chance to have been absorbed", LongestCourse(courses));
    Picture picture{.Title = "Course", .Notes = {"Each line begins with all units in one state."}};
    Group moving;
    for (const Course& course : courses) {
        chart.Curves.push_back(
            CourseLine(course, "from " + std::to_string(course.Start),
                       [&result](const Array1<double>& row) { return AbsorbedBy(result, row); }));
        if (!course.Settled()) moving.push_back(course.Start);
    }
    FitHeight(chart);
    picture.Notes.push_back(moving.empty() ? "All lines settled, the last after " +
                                                 picture::Counted(LongestCourse(courses), "step") + "."
                                           : "Still changing at step " + std::to_string(kStepLimit) +
                                                 ", the last that is made: from " + StateList(moving) + ".");
    picture.Body = std::move(chart);
    return picture;
}

}  // namespace

std::vector<Picture> Pictures(const MarkovProblem& problem, const MarkovResult& result)
{
    std::vector<Picture> pictures;
    if (!result.Solved || problem.StateCount < 1) return pictures;
    const ChainShape shape(problem);
    if (shape.ArcCount() > kMostArcs) pictures.push_back(MatrixPicture(shape));
    pictures.push_back(StatesPicture(problem, result, shape));
    const std::vector<Course> courses = CoursesOf(problem);
    if (courses.empty()) return pictures;  // every state absorbs
    if (result.AbsorbingList.empty()) {
        pictures.push_back(SteadyCourse(result, courses.front()));
        return pictures;
    }
    pictures.push_back(AbsorptionPicture(result, courses));
    pictures.push_back(AbsorptionCourse(result, courses));
    return pictures;
}

}  // namespace Markov
