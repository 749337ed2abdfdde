#include "markov/MarkovSteps.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "basic/format.h"
#include "markov/ChainShape.h"
#include "picture/words.h"

namespace Markov {
namespace {

using picture::Step;

constexpr int kField = 10;
constexpr int kLabel = 8;
constexpr std::string_view kChangePattern = "0.000000";  // changes count down to a hundred-thousandth

std::string Label(std::string_view text)
{
    return FlushLeft(text, kLabel);
}

std::string Field(std::string_view text)
{
    return FlushRight(text, kField);
}

std::string StateHeads(const Group& states)
{
    std::string line = Label("state");
    for (const int state : states)
        line += Field(std::to_string(state));
    return line;
}

Group AllStates(int n)
{
    Group states;
    for (int state = 1; state <= n; ++state)
        states.push_back(state);
    return states;
}

std::string RowLine(std::string_view label, const Array1<double>& row)
{
    std::string line = Label(label);
    for (int state = 1; state <= row.Upper(); ++state)
        line += Field(ShareText(row(state)));
    return line;
}

std::string ChangeLine(const Array1<double>& before, const Array1<double>& after)
{
    std::string line = Label("change");
    for (int state = 1; state <= after.Upper(); ++state)
        line += Field(Format(after(state) - before(state), kChangePattern));
    return line;
}

// ---- classification ----

Step Classification(const ChainShape& shape, const MarkovResult& result)
{
    Step step{.Heading = "Which states absorb", .Picture = "States"};
    step.Figures.emplace_back("   state  stays with");
    for (const int state : AllStates(shape.States())) {
        const double stays = shape.Chance(state, state);
        step.Figures.push_back(FlushRight(std::to_string(state), 8) + FlushRight(ShareText(stays), 12) +
                               (stays < 1 ? "" : "  absorbs"));
    }
    for (const int state : result.AbsorbingList)
        step.Marks.push_back(std::to_string(state));
    const std::size_t absorbing = result.AbsorbingList.size();
    if (absorbing == 0)
        step.Why =
            "No state stays with a probability of 1, so none absorbs: the shares are followed from an "
            "equal start.";
    else if (result.NonAbsorbingList.empty())
        step.Why = "Every state stays with a probability of 1, so nothing moves and there are no steps.";
    else
        step.Why =
            "A state that stays with a probability of 1 absorbs: the units are followed from each of "
            "the others.";
    return step;
}

// ---- the repetition ----

// The first of those that moved alike.
int MostMoved(const Array1<double>& before, const Array1<double>& after)
{
    constexpr double kRounding = 1e-12;
    int most = 1;
    for (int state = 2; state <= after.Upper(); ++state)
        if (std::abs(after(state) - before(state)) > std::abs(after(most) - before(most)) + kRounding)
            most = state;
    return most;
}

using Texts = std::vector<std::string>;

Texts ShareTexts(const Array1<double>& row)
{
    Texts texts;
    for (int state = 1; state <= row.Upper(); ++state)
        texts.push_back(ShareText(row(state)));
    return texts;
}

// For each state the arcs into it, as factors with a place for the share in front.
struct ArcsInto {
    std::vector<std::size_t> From;
    Texts Factors;
};

std::vector<ArcsInto> ArcsOf(const ChainShape& shape)
{
    std::vector<ArcsInto> arcs(static_cast<std::size_t>(shape.States()));
    for (const int to : AllStates(shape.States()))
        for (const int from : AllStates(shape.States())) {
            if (!(shape.Chance(from, to) > 0)) continue;
            ArcsInto& into = arcs[static_cast<std::size_t>(to) - 1];
            into.From.push_back(static_cast<std::size_t>(from) - 1);
            into.Factors.push_back(" x " + ShareText(shape.Chance(from, to)));
        }
    return arcs;
}

Texts Products(const std::vector<ArcsInto>& arcs, const Texts& before, const Texts& after)
{
    Texts lines;
    for (std::size_t to = 0; to < arcs.size(); ++to) {
        std::string line = "state " + FlushRight(std::to_string(to + 1), 2) + ": ";
        for (std::size_t i = 0; i < arcs[to].From.size(); ++i)
            line += (i == 0 ? "" : " + ") + before[arcs[to].From[i]] + arcs[to].Factors[i];
        if (arcs[to].From.empty()) line += "nothing";
        lines.push_back(line + " = " + after[to]);
    }
    return lines;
}

std::string WhyOf(const Course& course, int number, int most, double change)
{
    const std::string moved =
        "state " + std::to_string(most) + " moved most, by " + Format(change, kChangePattern);
    if (change <= kTolerance) return "No share moved by more than 0.00001: the repetition stops.";
    if (number == course.Steps())
        return "This is step " + std::to_string(number) + ", the last that is made, although " + moved + ".";
    std::string why = moved + ", which is more than 0.00001: another step follows.";
    why.front() = 'S';
    return why;
}

Step RepetitionStep(const std::vector<ArcsInto>& arcs, const Course& course, int number)
{
    const Array1<double>& before = course.Rows[static_cast<std::size_t>(number) - 1];
    const Array1<double>& after = course.Rows[static_cast<std::size_t>(number)];
    const int most = MostMoved(before, after);
    const double change = std::abs(after(most) - before(most));
    Step step{.Heading = course.Start == 0 ? "Step " + std::to_string(number)
                                           : "From state " + std::to_string(course.Start) + ", step " +
                                                 std::to_string(number),
              .Why = WhyOf(course, number, most, change),
              .Arithmetic = Products(arcs, ShareTexts(before), ShareTexts(after)),
              .Picture = "Course"};
    step.Figures.push_back(StateHeads(AllStates(after.Upper())));
    if (number == 1) step.Figures.push_back(RowLine("before", before));
    step.Figures.push_back(RowLine("after", after));
    step.Figures.push_back(ChangeLine(before, after));
    step.Marks = {course.Start == 0 ? "state " + std::to_string(most)
                                    : "from " + std::to_string(course.Start)};
    return step;
}

// ---- the check by elimination ----

std::string TableLine(int state, const Array2<double>& table, int row)
{
    std::string line = Label("   " + FlushRight(std::to_string(state), 2));
    for (int column = 1; column <= table.UpperColumn(); ++column)
        line += Field(ShareText(table(row, column)));
    return line;
}

void AddTable(std::vector<std::string>& lines, std::string_view name, const Group& rows, const Group& columns,
              const Array2<double>& table)
{
    lines.emplace_back(name);
    lines.push_back(StateHeads(columns));
    int row = 0;
    for (const int state : rows)
        lines.push_back(TableLine(state, table, ++row));
}

struct Difference {
    double Size = 0;
    int From = 0;
    int To = 0;
};

// The largest one that a printed figure shows.
Difference LargestDifference(const MarkovResult& result, const Array2<double>& endings)
{
    Difference difference;
    for (int k = 1; k <= endings.UpperRow(); ++k) {
        for (int a = 1; a <= endings.UpperColumn(); ++a) {
            const double size = std::abs(endings(k, a) - result.AbsorptionTable(k, a));
            if (ShareText(endings(k, a)) == ShareText(result.AbsorptionTable(k, a))) continue;
            if (size > difference.Size)
                difference = {.Size = size,
                              .From = result.NonAbsorbingList[static_cast<std::size_t>(k) - 1],
                              .To = result.AbsorbingList[static_cast<std::size_t>(a) - 1]};
        }
    }
    return difference;
}

bool AllAreAbsorbed(const ChainShape& shape, const MarkovResult& result)
{
    return std::all_of(result.NonAbsorbingList.begin(), result.NonAbsorbingList.end(), [&](int from) {
        return std::any_of(result.AbsorbingList.begin(), result.AbsorbingList.end(),
                           [&](int to) { return shape.Reaches(from, to); });
    });
}

void AddCheck(const ChainShape& shape, const MarkovResult& result, std::vector<Step>& steps)
{
    if (!AllAreAbsorbed(shape, result)) return;
    const auto fundamental = FundamentalMatrix(shape, result.NonAbsorbingList, result.AbsorbingList);
    if (!fundamental) return;
    Step step{.Heading = "Check by elimination", .Picture = "Absorption"};
    AddTable(step.Figures, "N = (I - Q)^-1: steps spent in each state", result.NonAbsorbingList,
             result.NonAbsorbingList, fundamental->Visits);
    AddTable(step.Figures, "N R: chances in the end", result.NonAbsorbingList, result.AbsorbingList,
             fundamental->Endings);
    const Difference difference = LargestDifference(result, fundamental->Endings);
    step.Why = difference.From == 0
                   ? "Elimination gives the printed chances too."
                   : "Elimination gives where the units end when nothing is cut short; the largest "
                     "difference, from state " +
                         std::to_string(difference.From) + " to state " + std::to_string(difference.To) +
                         ", is " + ShareText(difference.Size) + ".";
    steps.push_back(std::move(step));
}

// ---- the proof ----

std::string SumLine(const Array1<double>& row)
{
    std::string line;
    double sum = 0;
    for (int state = 1; state <= row.Upper(); ++state) {
        line += (state == 1 ? "" : " + ") + ShareText(row(state));
        sum += row(state);
    }
    return line + " = " + ShareText(sum);
}

Step Proof(const ChainShape& shape, const std::vector<Course>& courses)
{
    Step step{.Heading = "Proof"};
    for (const Course& course : courses)
        step.Figures.push_back(
            (course.Start == 0 ? "" : "from state " + FlushRight(std::to_string(course.Start), 2) + ": ") +
            SumLine(course.Rows.back()));
    step.Why = shape.RowsAddUp()
                   ? "The shares of all states add up to 1 behind the last step, as the units do."
                   : "Not every row of the table adds up to exactly 1, so the shares need not "
                     "either.";
    return step;
}

}  // namespace

std::vector<Step> Steps(const MarkovProblem& problem, const MarkovResult& result)
{
    std::vector<Step> steps;
    if (!result.Solved || problem.StateCount < 1) return steps;
    const ChainShape shape(problem);
    steps.push_back(Classification(shape, result));
    const std::vector<Course> courses = CoursesOf(problem);
    if (courses.empty()) return steps;
    const std::vector<ArcsInto> arcs = ArcsOf(shape);
    for (const Course& course : courses)
        for (int number = 1; number <= course.Steps(); ++number)
            steps.push_back(RepetitionStep(arcs, course, number));
    if (!result.AbsorbingList.empty()) AddCheck(shape, result, steps);
    steps.push_back(Proof(shape, courses));
    return picture::Kept(std::move(steps));
}

}  // namespace Markov
