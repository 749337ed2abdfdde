#include "picture/plane.h"

#include <algorithm>
#include <cmath>

namespace picture {
namespace {

double Beyond(const HalfPlane& half, const Point& point)
{
    return half.A * point.X + half.B * point.Y - half.C;
}

Point Between(const Point& a, const Point& b, double share)
{
    return {a.X + share * (b.X - a.X), a.Y + share * (b.Y - a.Y)};
}

// One side of a window for a segment: narrows the shares between which it is inside.
bool Narrow(double towards, double room, double& from, double& to)
{
    if (towards == 0) return room >= 0;
    const double share = room / towards;
    if (towards < 0)
        from = std::max(from, share);
    else
        to = std::min(to, share);
    return from <= to;
}

}  // namespace

bool Box::Holds(const Point& point) const
{
    return point.X >= X && point.X <= Right() && point.Y >= Y && point.Y <= Bottom();
}

bool Box::Holds(const Box& other) const
{
    return other.X >= X && other.Right() <= Right() && other.Y >= Y && other.Bottom() <= Bottom();
}

Box Around(const Point& middle, const Extent& size)
{
    return {middle.X - size.Width / 2, middle.Y - size.Height / 2, size.Width, size.Height};
}

bool Overlap(const Box& a, const Box& b)
{
    return a.X < b.Right() && b.X < a.Right() && a.Y < b.Bottom() && b.Y < a.Bottom();
}

double Distance(const Point& a, const Point& b)
{
    return std::hypot(a.X - b.X, a.Y - b.Y);
}

double DistanceToSegment(const Point& point, const Point& a, const Point& b)
{
    const double dx = b.X - a.X;
    const double dy = b.Y - a.Y;
    const double square = dx * dx + dy * dy;
    if (square == 0) return Distance(point, a);
    const double share = ((point.X - a.X) * dx + (point.Y - a.Y) * dy) / square;
    return Distance(point, Between(a, b, std::clamp(share, 0.0, 1.0)));
}

bool Crosses(const Box& box, const Point& a, const Point& b)
{
    return ClipSegment({a, b}, box).has_value();
}

std::optional<Segment> ClipSegment(const Segment& segment, const Box& window)
{
    const Point& a = segment.From;
    const double dx = segment.To.X - a.X;
    const double dy = segment.To.Y - a.Y;
    double from = 0;
    double to = 1;
    const bool inside = Narrow(-dx, a.X - window.X, from, to) && Narrow(dx, window.Right() - a.X, from, to) &&
                        Narrow(-dy, a.Y - window.Y, from, to) && Narrow(dy, window.Bottom() - a.Y, from, to);
    if (!inside) return std::nullopt;
    return Segment{Between(a, segment.To, from), to == 1 ? segment.To : Between(a, segment.To, to)};
}

std::vector<Point> ClipPolygon(const std::vector<Point>& polygon, const HalfPlane& half, double slack)
{
    const double allowed = slack * std::hypot(half.A, half.B);
    std::vector<Point> kept;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& here = polygon[i];
        const Point& next = polygon[(i + 1) % polygon.size()];
        const double beyond = Beyond(half, here);
        const double nextBeyond = Beyond(half, next);
        if (beyond <= allowed) kept.push_back(here);
        if ((beyond < -allowed && nextBeyond > allowed) || (beyond > allowed && nextBeyond < -allowed))
            kept.push_back(Between(here, next, beyond / (beyond - nextBeyond)));
    }
    return kept;
}

std::vector<Point> Region(const Box& window, const std::vector<HalfPlane>& halves, double slack)
{
    std::vector<Point> region{{window.X, window.Y},
                              {window.Right(), window.Y},
                              {window.Right(), window.Bottom()},
                              {window.X, window.Bottom()}};
    for (const HalfPlane& half : halves)
        region = ClipPolygon(region, half, slack);
    return region;
}

}  // namespace picture
