#include "lp/LpPlane.h"

#include <algorithm>
#include <cmath>

#include "lp/LpFigures.h"

namespace LP_Engine {
namespace {

using picture::Point;

constexpr double kNear = 1e-9;  // of a limit's own size
constexpr double kRoom = 1.15;  // of the window beyond what it must show
constexpr double kFarCut = 4;   // a line that cuts an axis further out than this many corners is left out

struct HalfPlane {
    double A, B, C;  // a x + b y <= c
};

std::vector<HalfPlane> HalvesOf(const PlaneLimit& limit)
{
    std::vector<HalfPlane> halves;
    if (limit.Relation != '>') halves.push_back({limit.A, limit.B, limit.C});
    if (limit.Relation != '<') halves.push_back({-limit.A, -limit.B, -limit.C});
    return halves;
}

double SizeOf(double a, double b, double c, const Point& at)
{
    return std::abs(a * at.X) + std::abs(b * at.Y) + std::abs(c) + std::abs(a) + std::abs(b);
}

bool Holds(const HalfPlane& half, const Point& at, double tolerance = kNear)
{
    return half.A * at.X + half.B * at.Y <= half.C + tolerance * SizeOf(half.A, half.B, half.C, at);
}

bool Same(const Point& p, const Point& q, double size)
{
    return std::abs(p.X - q.X) <= 1e-7 * (size + std::abs(p.X)) &&
           std::abs(p.Y - q.Y) <= 1e-7 * (size + std::abs(p.Y));
}

std::optional<Point> Crossing(const PlaneLimit& p, const PlaneLimit& q)
{
    const double determinant = p.A * q.B - p.B * q.A;
    const double size = (std::abs(p.A) + std::abs(p.B)) * (std::abs(q.A) + std::abs(q.B));
    if (std::abs(determinant) <= 1e-12 * size) return std::nullopt;
    return Point{(p.C * q.B - p.B * q.C) / determinant + 0.0, (p.A * q.C - p.C * q.A) / determinant + 0.0};
}

// What of the polygon lies in the half plane.
std::vector<Point> Clipped(const std::vector<Point>& polygon, const HalfPlane& half)
{
    std::vector<Point> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& from = polygon[i];
        const Point& to = polygon[(i + 1) % polygon.size()];
        const bool fromIn = Holds(half, from);
        const bool toIn = Holds(half, to);
        if (fromIn) kept.push_back(from);
        if (fromIn == toIn) continue;
        const double d = half.A * (to.X - from.X) + half.B * (to.Y - from.Y);
        if (d == 0) continue;
        const double t = std::clamp((half.C - half.A * from.X - half.B * from.Y) / d, 0.0, 1.0);
        kept.push_back({from.X + t * (to.X - from.X), from.Y + t * (to.Y - from.Y)});
    }
    return kept;
}

// Whether no point fulfils all of the halves (three at most), by a sum of them that says 0 <= less than 0.
bool Exclude(const std::vector<HalfPlane>& h)
{
    std::array<double, 3> weight = {1, 1, 1};
    if (h.size() == 1 && (h[0].A != 0 || h[0].B != 0)) return false;
    if (h.size() == 2) {
        const double cross = h[0].A * h[1].B - h[0].B * h[1].A;
        const double dot = h[0].A * h[1].A + h[0].B * h[1].B;
        const double size = std::hypot(h[0].A, h[0].B) * std::hypot(h[1].A, h[1].B);
        if (dot >= 0 || std::abs(cross) > 1e-12 * size) return false;
        weight = {std::hypot(h[1].A, h[1].B), std::hypot(h[0].A, h[0].B), 0};
    }
    if (h.size() == 3) {
        for (std::size_t i = 0; i < 3; ++i) {
            const HalfPlane& next = h[(i + 1) % 3];
            const HalfPlane& last = h[(i + 2) % 3];
            weight[i] = next.A * last.B - next.B * last.A;
        }
        if (weight[0] < 0)
            for (double& w : weight)
                w = -w;
        if (*std::min_element(weight.begin(), weight.end()) <= 0) return false;
    }
    double sum = 0;
    double size = 0;
    for (std::size_t i = 0; i < h.size(); ++i) {
        sum += weight[i] * h[i].C;
        size += std::abs(weight[i] * h[i].C);
    }
    return sum < -kNear * size;
}

}  // namespace

LpPlane::LpPlane(const LpResult& result)
{
    const VtLP::LpProblem& problem = result.Problem;
    for (int i = 1; i <= problem.NumConstraints; ++i) {
        const std::int16_t code = problem.LpRelations(i);
        const char relation = code == VtLP::kLess ? '<' : code == VtLP::kEqual ? '=' : '>';
        limits_.push_back({problem.LpCoefficients(i, 1), problem.LpCoefficients(i, 2),
                           problem.LpCoefficients(i, 0), relation, "limit " + std::to_string(i), i});
    }
    for (int j = 1; j <= 2; ++j)
        limits_.push_back({j == 1 ? 1.0 : 0.0, j == 2 ? 1.0 : 0.0, 0, '>',
                           problem.LpVariableNames(j) + " of at least 0", 0});
    const Array1<std::int16_t> binary = BinaryVariables(result);
    for (int j = 1; j <= 2; ++j)
        if (binary(j) == 1)
            limits_.push_back({j == 1 ? 1.0 : 0.0, j == 2 ? 1.0 : 0.0, 1, '<',
                               problem.LpVariableNames(j) + " of at most 1", 0});
    FindCorners();
    ChooseWindow(result);
    ClipRegion();
}

bool LpPlane::Fulfils(const Point& point) const
{
    for (const PlaneLimit& limit : limits_)
        for (const HalfPlane& half : HalvesOf(limit))
            if (!Holds(half, point)) return false;
    return true;
}

bool LpPlane::Touches(std::size_t limit, const Point& point) const
{
    const PlaneLimit& l = limits_[limit];
    return std::abs(l.A * point.X + l.B * point.Y - l.C) <= 1e-8 * SizeOf(l.A, l.B, l.C, point);
}

void LpPlane::AddCorner(const Point& at)
{
    for (const Corner& corner : corners_)
        if (Same(corner.At, at, 1)) return;
    Corner corner{.At = {at.X + 0.0, at.Y + 0.0}, .Limits = {}};
    for (std::size_t i = 0; i < limits_.size(); ++i)
        if ((limits_[i].A != 0 || limits_[i].B != 0) && Touches(i, at)) corner.Limits.push_back(i);
    corners_.push_back(corner);
}

void LpPlane::FindCorners()
{
    for (std::size_t i = 0; i < limits_.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            if (const auto at = Crossing(limits_[i], limits_[k]); at && Fulfils(*at)) AddCorner(*at);
}

// A whole-number plan may lie beyond all corners.
void LpPlane::ChooseWindow(const LpResult& result)
{
    Point most;
    if (result.Integer && result.End == Outcome::Optimal) {
        const Figures figures = FiguresOf(result);
        most = {figures.Values(1), figures.Values(2)};
    }
    for (const Corner& corner : corners_) {
        most.X = std::max(most.X, corner.At.X);
        most.Y = std::max(most.Y, corner.At.Y);
    }
    const Point far{most.X > 0 ? kFarCut * most.X : 1e14, most.Y > 0 ? kFarCut * most.Y : 1e14};
    for (const PlaneLimit& limit : limits_) {
        const double x = limit.A == 0 ? 0 : limit.C / limit.A;
        const double y = limit.B == 0 ? 0 : limit.C / limit.B;
        if (x <= far.X) most.X = std::max(most.X, x);
        if (y <= far.Y) most.Y = std::max(most.Y, y);
    }
    window_ = {most.X > 0 ? kRoom * most.X : 1, most.Y > 0 ? kRoom * most.Y : 1};
}

void LpPlane::ClipRegion()
{
    std::vector<Point> region = {{0, 0}, {window_.X, 0}, window_, {0, window_.Y}};
    for (const PlaneLimit& limit : limits_)
        for (const HalfPlane& half : HalvesOf(limit))
            region = Clipped(region, half);
    const double size = 1e-2 * std::min(window_.X, window_.Y);
    for (const Point& point : region)
        if (region_.empty() || (!Same(region_.back(), point, size) && !Same(region_.front(), point, size)))
            region_.push_back(point);
    open_ = region_.empty() ? std::nullopt : OpenDirection(0, 0);
}

std::optional<Point> LpPlane::OpenDirection(double p, double q) const
{
    std::optional<Point> best;
    const auto consider = [&](double x, double y) {
        const double length = std::hypot(x, y);
        if (length == 0) return;
        const Point along{x / length, y / length};
        for (const PlaneLimit& limit : limits_)
            for (HalfPlane half : HalvesOf(limit)) {
                half.C = 0;
                if (half.A * along.X + half.B * along.Y > 1e-12 * (std::abs(half.A) + std::abs(half.B)))
                    return;
            }
        if (!best || p * along.X + q * along.Y > p * best->X + q * best->Y + kNear) best = along;
    };
    consider(p, q);
    for (const PlaneLimit& limit : limits_) {
        consider(-limit.B, limit.A);
        consider(limit.B, -limit.A);
    }
    return best;
}

std::vector<std::size_t> LpPlane::Excluding() const
{
    struct Half {
        HalfPlane At;
        std::size_t Limit;
    };
    std::vector<Half> halves;
    for (std::size_t i = 0; i < limits_.size(); ++i)
        for (const HalfPlane& half : HalvesOf(limits_[i]))
            halves.push_back({half, i});
    for (const Half& a : halves)
        if (Exclude({a.At})) return {a.Limit};
    for (std::size_t i = 0; i < halves.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            if (Exclude({halves[k].At, halves[i].At})) return {halves[k].Limit, halves[i].Limit};
    for (std::size_t i = 0; i < halves.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            for (std::size_t l = 0; l < k; ++l)
                if (Exclude({halves[l].At, halves[k].At, halves[i].At}))
                    return {halves[l].Limit, halves[k].Limit, halves[i].Limit};
    return {};
}

std::optional<std::array<Point, 2>> LpPlane::LineOf(double a, double b, double c) const
{
    std::vector<Point> ends;
    const auto add = [&](double x, double y) {
        const double room = 1e-9;
        if (x < -room * window_.X || x > (1 + room) * window_.X) return;
        if (y < -room * window_.Y || y > (1 + room) * window_.Y) return;
        const Point point{std::clamp(x, 0.0, window_.X), std::clamp(y, 0.0, window_.Y)};
        for (const Point& end : ends)
            if (std::abs(end.X - point.X) <= 1e-7 * window_.X &&
                std::abs(end.Y - point.Y) <= 1e-7 * window_.Y)
                return;
        ends.push_back(point);
    };
    if (b != 0) {
        add(0, c / b);
        add(window_.X, (c - a * window_.X) / b);
    }
    if (a != 0) {
        add(c / a, 0);
        add((c - b * window_.Y) / a, window_.Y);
    }
    if (ends.size() < 2) return std::nullopt;
    return std::array<Point, 2>{ends[0], ends[1]};
}

}  // namespace LP_Engine
