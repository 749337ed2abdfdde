#include "lp/LpReplay.h"

#include "lp/IntegerSearch.h"
#include "lp/LpFigures.h"

namespace LP_Engine {
namespace {

using picture::Point;

class Trail : public Replay {
public:
    void Started(const LpResult& at) override { Add(at); }
    void Turns(const LpResult& at, const Pivot& /*pivot*/) override { Add(at); }
    void Unlimited(const LpResult& at, const Entering& /*column*/) override { Add(at); }
    bool GoesOn(const LpResult& at) override { return points.size() < kMostPoints && Replay::GoesOn(at); }

    void Add(const LpResult& at)
    {
        const Point here{ColumnValue(at, 1), ColumnValue(at, 2)};
        if (points.empty() || points.back().X != here.X || points.back().Y != here.Y) points.push_back(here);
    }

    std::vector<Point> points;

private:
    static constexpr std::size_t kMostPoints = 200;
};

class Course : public Replay {
public:
    void Settled(const LpResult& at, int record) override
    {
        const SearchTree& tree = at.Tree;
        if (!marks.empty()) Finish(at);
        std::optional<double> bound;
        for (int k = 0; k <= tree.RecordCount; ++k) {
            const SearchNode& node = tree.Nodes(k);
            if (k == 1 || (node.Closed && k != record)) continue;
            const double value = k == 0 ? node.Value : node.ParentValue;
            if (!bound || value < *bound) bound = value;
        }
        marks.push_back({std::nullopt, Told(at, bound)});
    }

    // The plan that the visit before left.
    void Finish(const LpResult& at)
    {
        const SearchTree& tree = at.Tree;
        if (marks.empty() || tree.IncumbentNode == 0) return;
        marks.back().Plan = Told(at, tree.Incumbent);
    }

    std::vector<SearchMark> marks;

private:
    static std::optional<double> Told(const LpResult& at, std::optional<double> value)
    {
        if (value && !at.Minimize) *value = 0 - *value;
        return value;
    }
};

}  // namespace

bool Replay::GoesOn(const LpResult& at)
{
    return !at.Tree.Exhausted && ++steps_ < kMostSteps;
}

bool GoesFarAway(const LpResult& at, const Pivot& pivot)
{
    if (pivot.Out.Kind == kBoundFlip) return at.Basis.UpperBound(pivot.In.Column) >= EngineInfinity;
    return pivot.Out.Kind == kToUpper &&
           at.Basis.UpperBound(at.Basis.BasisList(pivot.Out.Row)) >= EngineInfinity;
}

std::vector<Point> WayOf(const LpResult& result)
{
    Trail trail;
    const LpResult again = Solve(result.Problem, result.Minimize, false, &trail);
    if (again.End == Outcome::Optimal) trail.Add(again);
    return trail.points;
}

std::vector<SearchMark> CourseOf(const LpResult& result)
{
    Course course;
    const LpResult again = Solve(result.Problem, result.Minimize, true, &course);
    course.Finish(again);
    return course.marks;
}

}  // namespace LP_Engine
