#include "lp/LpPicture.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "lp/LpFigures.h"
#include "lp/LpPlanPicture.h"
#include "lp/LpReplay.h"
#include "lp/Ranges.h"
#include "picture/words.h"

namespace LP_Engine {
namespace {

using picture::Chart;
using picture::Diagram;
using picture::Interval;
using picture::Picture;
using picture::Role;
using picture::Series;
using picture::SeriesKind;
using picture::Shape;

constexpr double kLabelRoom = 1.15;  // for the figure at the end of the longest bar
constexpr int kMostZeroRows = 30;    // with more variables those at 0 are counted in a note

std::string LimitName(int constraint)
{
    return "limit " + std::to_string(constraint);
}

picture::Axis Positions(std::vector<std::string> names, std::string title = {})
{
    const auto count = static_cast<double>(names.size());
    return {.Title = std::move(title), .From = 0.5, .To = count + 0.5, .Names = std::move(names)};
}

// ---- values ----

Picture ValuesPicture(const LpResult& result, const Figures& figures)
{
    const VtLP::LpProblem& problem = result.Problem;
    const int n = problem.NumVariables;
    Series bars{.Kind = SeriesKind::Bars, .As = Role::Chosen, .Name = "value", .Id = "values"};
    std::vector<std::string> names;
    int zeros = 0;
    int largest = 1;
    for (int j = 1; j <= n; ++j) {
        const double value = figures.Values(j);
        if (value > figures.Values(largest)) largest = j;
        if (value == 0) ++zeros;
        if (value == 0 && n > kMostZeroRows) continue;
        names.push_back(problem.LpVariableNames(j));
        bars.Points.push_back({value, static_cast<double>(names.size())});
        bars.Tips.push_back(problem.LpVariableNames(j) + ": " + NumberText(problem, value));
    }
    Picture picture{.Title = "Values"};
    if (zeros == n)
        picture.Notes.emplace_back("All variables are 0.");
    else
        picture.Notes.push_back("The largest value is that of " + problem.LpVariableNames(largest) + ": " +
                                NumberText(problem, figures.Values(largest)) + ".");
    if (zeros > 0 && zeros < n)
        picture.Notes.push_back(picture::Counted(zeros, "variable is", "variables are") + " 0" +
                                (n > kMostZeroRows ? " and left out." : "."));
    if (names.empty()) return picture;
    Chart chart{.X = {.Title = "Value",
                      .From = 0,
                      .To = zeros == n ? 1 : kLabelRoom * figures.Values(largest),
                      .Places = PlacesOf(problem)},
                .Y = Positions(std::move(names))};
    for (std::size_t i = 0; i < bars.Points.size(); ++i)
        chart.Marks.push_back(
            {.At = bars.Points[i], .Text = NumberText(problem, bars.Points[i].X), .Tip = bars.Tips[i]});
    chart.Curves.push_back(std::move(bars));
    picture.Body = std::move(chart);
    return picture;
}

// ---- use of limits ----

class LimitsPicture {
public:
    LimitsPicture(const LpResult& result, const Figures& figures) : result_(result), figures_(figures)
    {
        for (int i = 1; i <= Count(); ++i)
            shares_ = shares_ && Right(i) > 0 && Used(i) <= kMostShare * Right(i);
    }

    Picture Draw()
    {
        const char* unit = shares_ ? "Share of the right side (%)" : "Amount";
        chart_.X = {
            .Title = unit, .From = 0, .To = shares_ ? 100.0 : 0.0, .Places = PlacesOf(result_.Problem)};
        std::vector<std::string> names;
        for (int i = 1; i <= Count(); ++i) {
            names.push_back("Limit " + std::to_string(i));
            DrawLimit(i);
        }
        chart_.Y = Positions(std::move(names));
        if (chart_.X.To == chart_.X.From) chart_.X.To = 1;
        if (shares_)
            chart_.Rules.push_back(
                {.Across = picture::Direction::X, .As = Role::Limit, .Value = 100, .Text = "right side"});
        for (Series* series : {&usedUp_, &used_, &spare_, &surplus_})
            if (!series->Points.empty() || !series->Intervals.empty())
                chart_.Curves.push_back(std::move(*series));
        return {.Title = "Use of limits", .Body = std::move(chart_), .Notes = Notes()};
    }

private:
    static constexpr double kMostShare = 3;

    [[nodiscard]] int Count() const { return result_.Problem.NumConstraints; }
    [[nodiscard]] double Right(int i) const { return result_.Problem.LpCoefficients(i, 0); }
    [[nodiscard]] bool IsGreater(int i) const { return result_.Problem.LpRelations(i) == VtLP::kGreater; }
    [[nodiscard]] std::string Text(double value) const { return NumberText(result_.Problem, value); }
    [[nodiscard]] double Used(int i) const
    {
        return IsGreater(i) ? Right(i) + figures_.Slacks(i) : Right(i) - figures_.Slacks(i);
    }
    [[nodiscard]] double Scaled(int i, double amount) const
    {
        return shares_ ? 100 * amount / Right(i) : amount;
    }

    [[nodiscard]] std::string Tip(int i) const
    {
        std::string tip = LimitName(i) + " (" + ConstraintText(result_.Problem, i) + "): " + Text(Used(i)) +
                          " against " + Text(Right(i));
        const double slack = figures_.Slacks(i);
        tip += slack == 0 ? ", used up" : ", " + Text(slack) + (IsGreater(i) ? " above it" : " to spare");
        if (!result_.Integer) tip += ", dual price " + Text(figures_.Prices(i));
        return tip;
    }

    void DrawLimit(int i)
    {
        const auto at = static_cast<double>(i);
        const double used = Scaled(i, Used(i));
        const double right = Scaled(i, Right(i));
        const bool tight = figures_.Slacks(i) == 0;
        const double drawn = IsGreater(i) && !tight ? right : used;
        Series& bars = tight ? usedUp_ : used_;
        bars.Points.push_back({drawn, at});
        bars.Tips.push_back(Tip(i));
        if (!tight) {
            Series& rest = IsGreater(i) ? surplus_ : spare_;
            rest.Intervals.push_back(
                {.At = at,
                 .From = std::min(used, right),
                 .To = std::max(used, right),
                 .ToText = Text(figures_.Slacks(i)) + (IsGreater(i) ? " above" : " to spare")});
            rest.Tips.push_back(Tip(i));
        } else if (!result_.Integer) {
            chart_.Marks.push_back({.As = figures_.Prices(i) == 0 ? Role::Plain : Role::Chosen,
                                    .At = {used, at},
                                    .Text = "price " + Text(figures_.Prices(i)),
                                    .Tip = Tip(i),
                                    .Id = "price" + std::to_string(i)});
        }
        chart_.X.From = std::min({chart_.X.From, used, right});
        chart_.X.To = std::max({chart_.X.To, used, right});
    }

    [[nodiscard]] std::vector<std::string> Notes() const
    {
        std::vector<std::string> tight;
        std::vector<std::string> free;
        for (int i = 1; i <= Count(); ++i) {
            if (figures_.Slacks(i) != 0) continue;
            tight.push_back(std::to_string(i));
            if (figures_.Prices(i) == 0 && !result_.Integer) free.push_back(std::to_string(i));
        }
        std::vector<std::string> notes;
        if (tight.empty())
            notes.emplace_back("No limit is used up.");
        else
            notes.push_back((tight.size() == 1 ? "Limit " : "Limits ") + picture::Listed(tight) +
                            (tight.size() == 1 ? " is used up." : " are used up."));
        if (!free.empty())
            notes.push_back(
                (free.size() == 1 ? "Limit " : "Limits ") + picture::Listed(free) +
                (free.size() == 1 ? " is used up at a price of 0." : " are used up at a price of 0."));
        return notes;
    }

    const LpResult& result_;
    const Figures& figures_;
    bool shares_ = true;
    Chart chart_;
    Series usedUp_{.Kind = SeriesKind::Bars, .As = Role::Chosen, .Name = "used up", .Id = "usedup"};
    Series used_{.Kind = SeriesKind::Bars, .As = Role::Plain, .Name = "used", .Id = "used"};
    Series spare_{
        .Kind = SeriesKind::Interval, .As = Role::Spare, .Name = "to spare", .Id = "spare", .Hatched = true};
    Series surplus_{
        .Kind = SeriesKind::Interval, .As = Role::Second, .Name = "above the limit", .Id = "surplus"};
};

// ---- ranges ----

Picture RangesPicture(const LpResult& result, const Figures& figures)
{
    const VtLP::LpProblem& problem = result.Problem;
    Chart chart{.OwnScales = true};
    Series intervals{.Kind = SeriesKind::Interval, .As = Role::Plain, .Name = "range", .Id = "ranges"};
    Series present{.Kind = SeriesKind::Points, .As = Role::Chosen, .Name = "present value", .Id = "present"};
    std::vector<std::string> names;
    int narrow = 0;
    const auto add = [&](const std::string& name, const Range& range) {
        names.push_back(name);
        const auto at = static_cast<double>(names.size());
        const auto text = [&problem](const std::optional<double>& end, const char* none) {
            return end ? NumberText(problem, *end) : std::string(none);
        };
        const std::string tip = name + ": from " + text(range.Lower, "no lower limit") + " to " +
                                text(range.Upper, "no upper limit") + ", now " +
                                NumberText(problem, range.Current);
        Interval interval{.At = at, .From = range.Lower, .To = range.Upper};
        if (range.Lower) interval.FromText = text(range.Lower, "");
        if (range.Upper) interval.ToText = text(range.Upper, "");
        intervals.Intervals.push_back(interval);
        intervals.Tips.push_back(tip);
        present.Points.push_back({range.Current, at});
        present.Tips.push_back(tip);
        if (range.Lower == range.Current || range.Upper == range.Current) ++narrow;
    };
    const Array2<double> tableau = Tableau(result);
    Array1<double> reducedCosts = result.ReducedCosts;
    for (int j = 1; j <= problem.NumVariables; ++j)
        add(problem.LpVariableNames(j),
            ObjectiveRange(result, tableau, j, figures.BasicRowOf(j), reducedCosts));
    for (int i = 1; i <= problem.NumConstraints; ++i)
        add("Limit " + std::to_string(i), RightHandSideRange(result, tableau, i));
    chart.X.Title = "Range";
    chart.Y = Positions(std::move(names));
    chart.Curves = {std::move(intervals), std::move(present)};
    Picture picture{.Title = "Ranges", .Body = std::move(chart)};
    picture.Notes.emplace_back(
        "Within its range a coefficient leaves the plan, a right side the prices as they are, as long as "
        "nothing else changes.");
    if (narrow > 0)
        picture.Notes.push_back(picture::Counted(narrow, "range ends", "ranges end") +
                                " at the present value.");
    return picture;
}

// ---- the search ----

std::string_view WordFor(const SearchNode& node)
{
    switch (node.Became) {
        case Fate::Open:
            return node.Visit > 0 ? "being searched" : "open";
        case Fate::Branched:
            return "branched";
        case Fate::Whole:
            return node.TookOver ? "whole" : "whole, not better";
        case Fate::NoPlan:
            return "no plan";
        case Fate::NotBetter:
            return "not better";
        case Fate::NotBetterByGain:
            return "not better by more than 1";
        default:
            return "not visited: not better";
    }
}

class SearchPicture {
public:
    explicit SearchPicture(const LpResult& result) : result_(result), tree_(result.Tree) {}

    Picture Draw()
    {
        diagram_.Kind = picture::Layout::Tree;
        diagram_.Start = NodeId(1);
        for (int k = 0; k <= tree_.RecordCount; ++k)
            if (k != 1) DrawNode(k);
        return {.Title = "Search", .Body = std::move(diagram_), .Notes = Notes()};
    }

private:
    [[nodiscard]] std::string Text(double value) const { return NumberText(result_.Problem, value); }
    [[nodiscard]] double Own(double value) const { return result_.Minimize ? value : 0 - value; }

    [[nodiscard]] static Shape ShapeOf(const SearchNode& node)
    {
        if (node.Became == Fate::Whole) return Shape::Square;
        if (node.Became == Fate::NoPlan) return Shape::Diamond;
        return Shape::Box;
    }

    [[nodiscard]] Role RoleOf(const SearchNode& node, int record) const
    {
        if (record == tree_.IncumbentIndex && tree_.IncumbentNode > 0) return Role::Best;
        if (node.Became == Fate::Branched) return Role::Plain;
        if (node.Became == Fate::Whole) return Role::Plain;
        if (node.Became == Fate::NoPlan) return Role::Infeasible;
        return node.Became == Fate::Open ? Role::Forecast : Role::NotTaken;
    }

    void DrawNode(int record)
    {
        const SearchNode& node = tree_.Nodes(record);
        const int number = record == 0 ? 1 : node.Number;
        picture::Node drawn{.Id = NodeId(number), .Form = ShapeOf(node), .As = RoleOf(node, record)};
        std::string first = node.Visit > 0 ? std::to_string(node.Visit) : "-";
        if (node.Visit > 0 && node.Became != Fate::NoPlan && !node.InPhaseOne)
            first += ": " + Text(Own(node.Value));
        drawn.Lines.push_back(first);
        if (node.BranchingColumn > 0)
            drawn.Lines.push_back(result_.Problem.LpVariableNames(node.BranchingColumn) + " = " +
                                  Text(node.BranchingValue));
        else
            drawn.Lines.emplace_back(WordFor(node));
        drawn.Tip = "Node " + std::to_string(number) + ": " + std::string(WordFor(node));
        if (node.InPhaseOne && node.Visit > 0) drawn.Tip += "; its limits have no plan in common";
        diagram_.Nodes.push_back(drawn);
        if (record > 0) DrawBranch(node);
    }

    void DrawBranch(const SearchNode& node)
    {
        const std::string& name = result_.Problem.LpVariableNames(std::abs(node.Variable));
        diagram_.Arcs.push_back(
            {.From = NodeId(node.Number / 2),
             .To = NodeId(node.Number),
             .As = OnBestPath(node.Number) ? Role::Best : Role::Plain,
             .Text = name + (node.Variable > 0 ? " at most " : " at least ") + std::to_string(node.Bound),
             .Head = false});
    }

    [[nodiscard]] bool OnBestPath(int number) const
    {
        for (int on = tree_.IncumbentNode; on > 1; on /= 2)
            if (on == number) return true;
        return false;
    }

    [[nodiscard]] std::vector<std::string> Notes() const
    {
        std::vector<std::string> notes;
        notes.push_back("The search visited " + picture::Counted(tree_.Visits, "node") +
                        (tree_.IncumbentNode > 0 ? "; the best whole-number plan has the value " +
                                                       Text(Own(tree_.Incumbent)) + "."
                                                 : " and found no whole-number plan."));
        if (result_.End == Outcome::OutOfRoom) notes.emplace_back("It ended when its table was full.");
        if (result_.End == Outcome::Interrupted) notes.emplace_back("It was broken off.");
        int open = 0;
        for (int k = 2; k <= tree_.RecordCount; ++k)
            if (!tree_.Nodes(k).Closed) ++open;
        if (open > 0) notes.push_back(picture::Counted(open, "node was", "nodes were") + " still open.");
        notes.emplace_back("Each node: order of visit, bound, branching variable or what became of it.");
        return notes;
    }

    const LpResult& result_;
    const SearchTree& tree_;
    Diagram diagram_;
};

// Nothing before the search has gone from one node to another.
std::optional<Picture> BoundsPicture(const LpResult& result)
{
    const std::vector<SearchMark> course = CourseOf(result);
    Series plans{.Kind = SeriesKind::Steps, .As = Role::Best, .Name = "best plan", .Id = "plans"};
    Series bounds{.Kind = SeriesKind::Steps, .As = Role::Limit, .Name = "best open bound", .Id = "bounds"};
    double least = EngineInfinity;
    double most = -EngineInfinity;
    double visit = 0;
    for (const SearchMark& mark : course) {
        ++visit;
        const auto add = [&](Series& series, const std::optional<double>& value) {
            if (!value || std::abs(*value) >= EngineInfinity) return;
            series.Points.push_back({visit, *value});
            series.Tips.push_back("node " + std::to_string(static_cast<int>(visit)) + ": " +
                                  NumberText(result.Problem, *value));
            least = std::min(least, *value);
            most = std::max(most, *value);
        };
        add(plans, mark.Plan);
        add(bounds, mark.Bound);
    }
    if (visit < 2 || (plans.Points.empty() && bounds.Points.empty())) return std::nullopt;
    if (!(least < most)) {
        least -= 1;
        most += 1;
    }
    Chart chart{.X = {.Title = "Nodes visited", .From = 1, .To = visit, .Counts = true},
                .Y = {.Title = "Value", .From = least, .To = most, .Places = PlacesOf(result.Problem)}};
    for (Series* series : {&plans, &bounds})
        if (!series->Points.empty()) chart.Curves.push_back(std::move(*series));
    const bool found = result.Tree.IncumbentNode > 0;
    return Picture{
        .Title = "Bounds",
        .Body = std::move(chart),
        .Notes = {found ? "The best plan against what the open nodes still promised."
                        : "No whole-number plan was found; the line shows what the open nodes promised."}};
}

}  // namespace

std::string WayId(int step)
{
    return "way" + std::to_string(step);
}

std::string NodeId(int number)
{
    return "node" + std::to_string(number);
}

std::vector<Picture> Pictures(const LpResult& result)
{
    std::vector<Picture> pictures;
    if (!result.Solved || result.NumColumns == 0) return pictures;
    const bool optimal = result.End == Outcome::Optimal;
    if (result.Problem.NumVariables == 2) pictures.push_back(PlanPicture(result));
    if (optimal) {
        const Figures figures = FiguresOf(result);
        if (result.Problem.NumVariables != 2 && result.Problem.NumVariables > 0)
            pictures.push_back(ValuesPicture(result, figures));
        if (result.Problem.NumConstraints > 0) pictures.push_back(LimitsPicture(result, figures).Draw());
        if (!result.Integer) pictures.push_back(RangesPicture(result, figures));
    }
    if (result.Integer && result.Tree.Visits > 0) {
        pictures.push_back(SearchPicture(result).Draw());
        if (auto bounds = BoundsPicture(result)) pictures.push_back(std::move(*bounds));
    }
    return pictures;
}

}  // namespace LP_Engine
