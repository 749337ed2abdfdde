// The plane in which pictures are laid out: boxes, lines, and what of them lies inside of a window.
#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "picture/picture.h"

namespace picture {

struct Extent {
    double Width = 0;
    double Height = 0;
};

struct Box {
    double X = 0;  // left
    double Y = 0;  // top, or the lower value where the axis points up
    double Width = 0;
    double Height = 0;

    [[nodiscard]] double Right() const { return X + Width; }
    [[nodiscard]] double Bottom() const { return Y + Height; }
    [[nodiscard]] Point Middle() const { return {X + Width / 2, Y + Height / 2}; }
    [[nodiscard]] Box Grown(double by) const { return {X - by, Y - by, Width + 2 * by, Height + 2 * by}; }
    [[nodiscard]] bool Holds(const Point& point) const;
    [[nodiscard]] bool Holds(const Box& other) const;
};

Box Around(const Point& middle, const Extent& size);
bool Overlap(const Box& a, const Box& b);

double Distance(const Point& a, const Point& b);
double DistanceToSegment(const Point& point, const Point& a, const Point& b);
bool Crosses(const Box& box, const Point& a, const Point& b);  // whether the segment touches the box

// The part of the segment inside of the window; nothing when it misses it.
struct Segment {
    Point From = {};
    Point To = {};
};
std::optional<Segment> ClipSegment(const Segment& segment, const Box& window);

// All points with A x + B y <= C.
struct HalfPlane {
    double A = 0;
    double B = 0;
    double C = 0;
};

// The convex polygon without what lies beyond the half-plane's edge; empty when nothing is left. A polygon
// that only touches the edge keeps the touching point or side. `slack` is how far beyond the edge a point
// still counts as on it, as a distance.
std::vector<Point> ClipPolygon(const std::vector<Point>& polygon, const HalfPlane& half, double slack = 0);

// The window's corners in order, cut by all of the half-planes.
std::vector<Point> Region(const Box& window, const std::vector<HalfPlane>& halves, double slack = 0);

// The size of a line of text as it will be written.
using Measure = std::function<Extent(std::string_view)>;

}  // namespace picture
