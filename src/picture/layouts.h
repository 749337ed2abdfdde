// The kinds of layout, and what they share.
#pragma once

#include <cstddef>
#include <vector>

#include "picture/layout.h"

namespace picture::layouts {

constexpr double kMargin = 4;     // around the whole diagram
constexpr double kLabelRoom = 2;  // around a label
constexpr std::size_t kNobody = static_cast<std::size_t>(-1);

// A diagram with its ends as indices and its texts measured.
struct Sized {
    const Diagram& Of;
    std::vector<Extent> Nodes;
    std::vector<Extent> Badges;
    std::vector<Extent> Labels;  // of the arcs; nothing wide where there is no text
    std::vector<std::size_t> From;
    std::vector<std::size_t> To;
    double Line = 0;  // height of a line of text

    Sized(const Diagram& diagram, const Measure& measure);
    [[nodiscard]] std::size_t Count() const { return Nodes.size(); }
    [[nodiscard]] bool HasEnds(std::size_t arc) const { return From[arc] != kNobody && To[arc] != kNobody; }
};

Placement Tree(const Sized& sized, const Extent& room);
Placement TwoSides(const Sized& sized, const Extent& room, const Measure& measure);
Placement Ring(const Sized& sized, const Extent& room);
Placement Ranks(const Sized& sized, const Extent& room);
Placement Free(const Sized& sized, const Extent& room);

Extent LeastFree(const Sized& sized);
Extent LeastRing(const Sized& sized);

// The part of a line between two nodes that neither of them covers.
std::vector<Point> Trimmed(const std::vector<Point>& path, const Sized& sized, const Placement& placement,
                           std::size_t arc);

// A curve from a to b through a bend: `bend` is how far its middle stands off the straight line, to the left
// of the way.
std::vector<Point> Curve(const Point& a, const Point& b, double bend);

// Places the labels of all arcs: on the line first, from the middle outwards, then beside it; chosen arcs
// first. None covers a node or another label; one that finds no place is left out and counted.
void PlaceLabels(const Sized& sized, Placement& placement);

// How many arcs of the same two nodes come before this one, and how many there are.
struct Parallel {
    int Before = 0;
    int Count = 1;
};
std::vector<Parallel> Parallels(const Sized& sized);

Box FrameAround(const Frame& frame, const Sized& sized, const Placement& placement);

}  // namespace picture::layouts
