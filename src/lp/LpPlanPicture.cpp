#include "lp/LpPlanPicture.h"

#include <algorithm>
#include <cmath>

#include "lp/LpFigures.h"
#include "lp/LpPicture.h"
#include "lp/LpPlane.h"
#include "lp/LpReplay.h"
#include "picture/words.h"

namespace LP_Engine {
namespace {

using picture::Chart;
using picture::Mark;
using picture::Picture;
using picture::Point;
using picture::Role;
using picture::Series;
using picture::SeriesKind;
using picture::Side;

constexpr std::size_t kLongestLabel = 24;
constexpr int kMostWholePoints = 2000;
constexpr int kMostLimitTexts = 5;  // with more limits each line has its number alone
constexpr std::size_t kMostCornerTexts = 12;
constexpr std::size_t kMostCornersAmongMany = 5;

std::string CapitalStart(std::string text)
{
    if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

class Plan {
public:
    explicit Plan(const LpResult& result) : result_(result), plane_(result)
    {
        const double* objective = result.Problem.LpCoefficients.Row(0);
        p_ = objective[1];
        q_ = objective[2];
    }

    Picture Draw()
    {
        picture_.Title = "Plan";
        chart_.X = {
            .Title = Name(1), .From = 0, .To = plane_.Window().X, .Places = PlacesOf(result_.Problem)};
        chart_.Y = {
            .Title = Name(2), .From = 0, .To = plane_.Window().Y, .Places = PlacesOf(result_.Problem)};
        picture_.Notes.emplace_back();  // the main thing to see
        FindBest();
        DrawRegion();
        DrawLimits();
        DrawObjective();
        DrawCorners();
        if (result_.Integer)
            DrawWholePlans();
        else
            DrawWay();
        DrawOpenSide();
        TellUnusual();
        picture_.Notes.front() = MainThing();
        picture_.Body = std::move(chart_);
        return std::move(picture_);
    }

private:
    [[nodiscard]] const std::string& Name(int j) const { return result_.Problem.LpVariableNames(j); }
    [[nodiscard]] std::string Text(double value) const { return NumberText(result_.Problem, value); }
    [[nodiscard]] std::string Text(const Point& at) const
    {
        return "(" + Text(at.X) + ", " + Text(at.Y) + ")";
    }
    [[nodiscard]] double ValueAt(const Point& at) const { return p_ * at.X + q_ * at.Y; }
    [[nodiscard]] double Better(double value) const { return result_.Minimize ? -value : value; }
    [[nodiscard]] bool IsOptimal() const { return result_.End == Outcome::Optimal; }

    [[nodiscard]] std::vector<std::string> NamesOf(const std::vector<std::size_t>& limits) const
    {
        std::vector<std::string> names;
        names.reserve(limits.size());
        for (const std::size_t limit : limits)
            names.push_back(plane_.Limits()[limit].Name);
        return names;
    }

    // The best corners: those of the whole region, without the condition of whole numbers.
    void FindBest()
    {
        if (plane_.Corners().empty()) return;
        if (const auto along = plane_.OpenDirection(p_, q_);
            along && Better(p_ * along->X + q_ * along->Y) > 1e-9 * (std::abs(p_) + std::abs(q_))) {
            gainsWithoutEnd_ = true;
            return;
        }
        double best = -EngineInfinity;
        for (const Corner& corner : plane_.Corners())
            best = std::max(best, Better(ValueAt(corner.At)));
        for (const Corner& corner : plane_.Corners())
            if (Better(ValueAt(corner.At)) >= best - 1e-9 * (1 + std::abs(best))) best_.push_back(corner.At);
    }

    void DrawRegion()
    {
        const std::vector<Point>& region = plane_.Region();
        if (region.size() >= 3) {
            chart_.Curves.push_back({.Kind = SeriesKind::Area,
                                     .As = Role::Plain,
                                     .Name = "plans that all limits allow",
                                     .Points = region,
                                     .Tips = {"All limits allow these plans."},
                                     .Id = "region"});
        } else if (region.size() == 2) {
            chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                     .As = Role::Chosen,
                                     .Name = "plans that all limits allow",
                                     .Points = region,
                                     .Tips = {},
                                     .Id = "region"});
            Note("The limits leave a segment without area.");
        } else if (region.size() == 1) {
            Note("The limits leave a single point.");
        }
    }

    // A limit bounds something when two corners, or one and an open side, lie on its line.
    [[nodiscard]] bool Bounds(std::size_t limit) const
    {
        if (plane_.Region().empty()) return false;
        int touching = 0;
        for (const Point& point : plane_.Region())
            if (plane_.Touches(limit, point)) ++touching;
        return touching >= std::min<int>(2, static_cast<int>(plane_.Region().size()));
    }

    void DrawLimits()
    {
        const std::vector<std::size_t> excluding =
            plane_.Region().empty() ? plane_.Excluding() : std::vector<std::size_t>();
        std::vector<std::string> outside;
        std::vector<std::string> loose;
        for (std::size_t i = 0; i < plane_.Limits().size(); ++i) {
            const PlaneLimit& limit = plane_.Limits()[i];
            const bool excludes = std::find(excluding.begin(), excluding.end(), i) != excluding.end();
            if (limit.Constraint == 0 && !excludes) continue;
            const bool strong = excludes || Bounds(i);
            if (!DrawLimit(limit, excludes, strong))
                outside.push_back(std::to_string(limit.Constraint));
            else if (!strong)
                loose.push_back(std::to_string(limit.Constraint));
        }
        if (!loose.empty() && !plane_.Region().empty())
            Note((loose.size() == 1 ? "Limit " : "Limits ") + picture::Listed(loose) +
                 (loose.size() == 1 ? " bounds nothing." : " bound nothing."));
        if (!outside.empty())
            Note((outside.size() == 1 ? "Limit " : "Limits ") + picture::Listed(outside) +
                 (outside.size() == 1 ? " lies" : " lie") + " outside of the picture.");
    }

    [[nodiscard]] bool IsCrowded() const { return result_.Problem.NumConstraints > kMostLimitTexts; }

    [[nodiscard]] std::string NameOnLine(const PlaneLimit& limit, const std::string& told) const
    {
        const bool fits = told.size() <= kLongestLabel && !IsCrowded();
        return fits || limit.Constraint == 0 ? told : std::to_string(limit.Constraint);
    }

    bool DrawLimit(const PlaneLimit& limit, bool excludes, bool strong)
    {
        const auto ends = plane_.LineOf(limit.A, limit.B, limit.C);
        if (!ends) return false;
        const auto& [from, to] = *ends;
        // Left of the way from the first end to the second a x + b y grows when this is above zero.
        const double left = -limit.A * (to.Y - from.Y) + limit.B * (to.X - from.X);
        const Side grows = left > 0 ? Side::Left : Side::Right;
        const Side falls = left > 0 ? Side::Right : Side::Left;
        const Side forbidden = limit.Relation == '<' ? grows : limit.Relation == '>' ? falls : Side::None;
        const std::string told =
            limit.Constraint == 0
                ? limit.Name
                : std::to_string(limit.Constraint) + ": " + ConstraintText(result_.Problem, limit.Constraint);
        chart_.Curves.push_back(
            {.Kind = SeriesKind::Line,
             .As = excludes ? Role::Infeasible : Role::Limit,
             .Name = NameOnLine(limit, told),
             .Points = {from, to},
             .Tips = {(limit.Constraint == 0 ? "" : "limit ") + told},
             .Id = limit.Constraint == 0 ? "" : "limit" + std::to_string(limit.Constraint),
             .Forbidden = forbidden,
             .Thin = !strong});
        return true;
    }

    // Three lines of one value each, the best one last, and an arrow over them.
    void DrawObjective()
    {
        if ((p_ == 0 && q_ == 0) || plane_.Region().empty()) return;
        double worst = Better(ValueAt(plane_.Region().front()));
        double best = worst;
        for (const Point& point : plane_.Region()) {
            worst = std::min(worst, Better(ValueAt(point)));
            best = std::max(best, Better(ValueAt(point)));
        }
        if (!(best > worst)) return;
        if (gainsWithoutEnd_) best = worst + 0.8 * (best - worst);
        std::vector<Point> middles;
        for (int k = 1; k <= 3; ++k) {
            const double value = Better(worst + (best - worst) * k / 3);
            if (result_.Integer && IsOptimal() && Text(value) == Text(FiguresOf(result_).Objective)) continue;
            const auto ends = plane_.LineOf(p_, q_, value);
            if (!ends) continue;
            const bool last = k == 3 && !gainsWithoutEnd_ && !result_.Integer;
            chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                     .As = last ? Role::Best : Role::Second,
                                     .Name = "value " + Text(value),
                                     .Points = {(*ends)[0], (*ends)[1]},
                                     .Tips = {"On this line the value is " + Text(value) + "."},
                                     .Id = "value" + std::to_string(k),
                                     .Thin = !last});
            middles.push_back({((*ends)[0].X + (*ends)[1].X) / 2, ((*ends)[0].Y + (*ends)[1].Y) / 2});
        }
        if (middles.size() < 2) return;
        chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                 .As = Role::Second,
                                 .Name = "to better values",
                                 .Points = {middles.front(), middles[1]},
                                 .Tips = {},
                                 .Id = "better",
                                 .Arrow = true});
    }

    [[nodiscard]] bool IsBest(const Point& at) const
    {
        return std::any_of(best_.begin(), best_.end(),
                           [&at](const Point& best) { return best.X == at.X && best.Y == at.Y; });
    }

    void DrawCorners()
    {
        if (best_.size() == 2 && !result_.Integer)
            chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                     .As = Role::Best,
                                     .Name = "all best",
                                     .Points = {best_[0], best_[1]},
                                     .Tips = {"All plans between these two corners are best."},
                                     .Id = "best"});
        int number = 0;
        for (const Corner& corner : plane_.Corners()) {
            const bool best = IsBest(corner.At);
            const bool told =
                best || plane_.Corners().size() <= (IsCrowded() ? kMostCornersAmongMany : kMostCornerTexts);
            const std::string value = "value " + Text(ValueAt(corner.At));
            std::string tip =
                Name(1) + " " + Text(corner.At.X) + ", " + Name(2) + " " + Text(corner.At.Y) + ": " + value;
            if (corner.Limits.size() > 2) {
                tip += "; " + picture::Listed(NamesOf(corner.Limits)) + " meet here";
                Note("At " + Text(corner.At) +
                     " more than two limits meet: " + picture::Listed(NamesOf(corner.Limits)) + ".");
            }
            chart_.Marks.push_back({.As = best ? (result_.Integer ? Role::Second : Role::Best) : Role::Plain,
                                    .At = corner.At,
                                    .Text = !told  ? ""
                                            : best ? Text(corner.At) + ": " + Text(ValueAt(corner.At))
                                                   : Text(corner.At),
                                    .Tip = tip,
                                    .Id = "corner" + std::to_string(++number)});
        }
    }

    // From corner to corner, as the method went.
    void DrawWay()
    {
        const std::vector<Point> way = WayOf(result_);
        std::vector<Point> shown;
        for (std::size_t i = 0; i < way.size(); ++i) {
            const bool inside =
                way[i].X >= 0 && way[i].Y >= 0 && way[i].X <= chart_.X.To && way[i].Y <= chart_.Y.To;
            if (!inside) break;
            shown.push_back(way[i]);
            chart_.Marks.push_back(
                {.As = Role::Forecast,
                 .At = way[i],
                 .Text = "",
                 .Tip = i == 0 ? "The method starts at " + Text(way[i]) + "."
                               : "Corner " + std::to_string(i + 1) + " on the way: " + Text(way[i]) + ".",
                 .Id = WayId(static_cast<int>(i))});
        }
        if (shown.size() < 2) return;
        chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                 .As = Role::Forecast,
                                 .Name = "way of the method",
                                 .Points = shown,
                                 .Tips = {},
                                 .Id = "way",
                                 .Arrow = true});
    }

    void DrawWholePlans()
    {
        if (plane_.Region().empty()) return;
        const bool firstWhole = result_.IntegerColumn(1) == 1;
        const bool secondWhole = result_.IntegerColumn(2) == 1;
        if (firstWhole && secondWhole)
            DrawWholePoints();
        else if (firstWhole || secondWhole)
            DrawWholeLines(firstWhole);
        if (!IsOptimal()) return;
        const Figures figures = FiguresOf(result_);
        const Point plan{figures.Values(1), figures.Values(2)};
        for (Mark& mark : chart_.Marks)
            if (mark.At.X == plan.X && mark.At.Y == plan.Y) mark.Text.clear();
        if (const auto ends = plane_.LineOf(p_, q_, ValueAt(plan)); ends && (p_ != 0 || q_ != 0))
            chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                     .As = Role::Best,
                                     .Name = "value " + Text(figures.Objective),
                                     .Points = {(*ends)[0], (*ends)[1]},
                                     .Tips = {},
                                     .Id = "value"});
        chart_.Marks.push_back({.As = Role::Best,
                                .At = plan,
                                .Text = Text(plan) + ": " + Text(figures.Objective),
                                .Tip = "The best whole-number plan that was found: " + Name(1) + " " +
                                       Text(plan.X) + ", " + Name(2) + " " + Text(plan.Y) + ".",
                                .Id = "plan"});
    }

    void DrawWholePoints()
    {
        if (chart_.X.To * chart_.Y.To > kMostWholePoints) {
            Note("The whole-number plans lie too close to be drawn one by one.");
            return;
        }
        Series points{
            .Kind = SeriesKind::Points, .As = Role::Plain, .Name = "whole-number plans", .Id = "whole"};
        for (int x = 0; x <= chart_.X.To; ++x)
            for (int y = 0; y <= chart_.Y.To; ++y) {
                const picture::Point at{static_cast<double>(x), static_cast<double>(y)};
                if (!plane_.Fulfils(at)) continue;
                points.Points.push_back(at);
                points.Tips.push_back("(" + std::to_string(x) + ", " + std::to_string(y) + "): value " +
                                      Text(ValueAt(at)));
            }
        if (points.Points.empty())
            Note("No whole-number plan lies in the picture.");
        else
            chart_.Curves.push_back(std::move(points));
    }

    void DrawWholeLines(bool first)
    {
        const double last = first ? chart_.X.To : chart_.Y.To;
        Note("Only " + Name(first ? 1 : 2) + " must be whole: the plans lie on the thin lines.");
        if (last > 60) return;
        for (int at = 0; at <= last; ++at) {
            const auto ends = plane_.LineOf(first ? 1 : 0, first ? 0 : 1, at);
            if (!ends) continue;
            chart_.Curves.push_back(
                {.Kind = SeriesKind::Line,
                 .As = Role::Plain,
                 .Name = "",
                 .Points = {(*ends)[0], (*ends)[1]},
                 .Tips = {Name(first ? 1 : 2) + " = " + std::to_string(static_cast<int>(at))},
                 .Id = "whole" + std::to_string(static_cast<int>(at)),
                 .Thin = true});
        }
    }

    void DrawOpenSide()
    {
        if (plane_.Region().empty() || !plane_.IsOpen()) return;
        const auto along = gainsWithoutEnd_ ? plane_.OpenDirection(p_, q_) : plane_.OpenDirection(0, 0);
        if (!along) return;
        Point middle;
        for (const Point& point : plane_.Region()) {
            middle.X += point.X / static_cast<double>(plane_.Region().size());
            middle.Y += point.Y / static_cast<double>(plane_.Region().size());
        }
        double length = 1e300;
        if (along->X > 0) length = std::min(length, (chart_.X.To - middle.X) / along->X);
        if (along->Y > 0) length = std::min(length, (chart_.Y.To - middle.Y) / along->Y);
        length *= 0.9;
        chart_.Curves.push_back(
            {.Kind = SeriesKind::Line,
             .As = Role::Plain,
             .Name = "goes on",
             .Points = {middle, {middle.X + length * along->X, middle.Y + length * along->Y}},
             .Tips = {"On this side the region has no end."},
             .Id = "open",
             .Arrow = true});
        Note("The region is open: it goes on beyond the picture.");
    }

    void Note(const std::string& text) { picture_.Notes.push_back(text); }

    void TellUnusual()
    {
        for (int i = 1; i <= result_.Problem.NumConstraints; ++i) {
            const PlaneLimit& limit = plane_.Limits()[static_cast<std::size_t>(i) - 1];
            if (limit.A == 0 && limit.B == 0)
                Note("Limit " + std::to_string(i) + " has no variable in it and is no line.");
            for (int k = 1; k < i; ++k)
                if (SameLine(limit, plane_.Limits()[static_cast<std::size_t>(k) - 1]))
                    Note("Limits " + std::to_string(k) + " and " + std::to_string(i) +
                         " have the same line.");
        }
        if (p_ == 0 && q_ == 0) Note("The objective is 0 everywhere: every plan is as good as another.");
    }

    static bool SameLine(const PlaneLimit& p, const PlaneLimit& q)
    {
        if ((p.A == 0 && p.B == 0) || (q.A == 0 && q.B == 0)) return false;
        return p.A * q.B == p.B * q.A && p.A * q.C == p.C * q.A && p.B * q.C == p.C * q.B;
    }

    [[nodiscard]] std::string MainThing() const
    {
        if (plane_.Region().empty()) return NoRegion();
        if (gainsWithoutEnd_)
            return "The value has no end: the region is open on the side to which the value improves.";
        if (result_.End == Outcome::Unbounded)
            return "The method told an unbounded problem, but in the picture no way to better values is "
                   "open.";
        if (result_.End == Outcome::Infeasible)
            return "No plan was found, but the limits leave the region that is drawn.";
        if (result_.Integer) return WholeThing();
        if (best_.empty()) return "The limits leave the region that is drawn.";
        if (p_ == 0 && q_ == 0) return "Every plan of the region has the value " + Text(0) + ".";
        if (best_.size() > 1)
            return "Best are all plans between " + Text(best_[0]) + " and " + Text(best_[1]) +
                   ", with a value of " + Text(ValueAt(best_[0])) + ".";
        return "The best corner is " + Text(best_[0]) + " with a value of " + Text(ValueAt(best_[0])) + ".";
    }

    [[nodiscard]] std::string NoRegion() const
    {
        const std::vector<std::string> names = NamesOf(plane_.Excluding());
        if (names.empty()) return "No plan fulfils all limits.";
        if (names.size() == 1) return CapitalStart(names[0]) + " cannot be fulfilled by any plan.";
        return CapitalStart(picture::Listed(names)) + " exclude each other: no plan fulfils all limits.";
    }

    [[nodiscard]] std::string WholeThing() const
    {
        const std::string relaxed = best_.empty() ? std::string()
                                                  : " Without the whole-number condition " + Text(best_[0]) +
                                                        " is worth " + Text(ValueAt(best_[0])) + ".";
        if (!IsOptimal()) return "The search ended without a report." + relaxed;
        const Figures figures = FiguresOf(result_);
        return "The best whole-number plan found is " + Text(Point{figures.Values(1), figures.Values(2)}) +
               " with a value of " + Text(figures.Objective) + "." + relaxed;
    }

    const LpResult& result_;
    LpPlane plane_;
    double p_ = 0;
    double q_ = 0;
    bool gainsWithoutEnd_ = false;
    std::vector<Point> best_;
    Picture picture_;
    Chart chart_;
};

}  // namespace

Picture PlanPicture(const LpResult& result)
{
    return Plan(result).Draw();
}

}  // namespace LP_Engine
