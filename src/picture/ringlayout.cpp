// A ring of nodes: arcs between two nodes bend apart, a loop stands outside of the ring.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <set>

#include "picture/layouts.h"

namespace picture::layouts {
namespace {

constexpr double kLoop = 20;     // radius of a loop
constexpr double kBetween = 56;  // between two neighbours

double WidestNode(const Sized& sized)
{
    double widest = 0;
    for (const Extent& size : sized.Nodes)
        widest = std::max({widest, size.Width, size.Height});
    return widest;
}

Extent LoopRoom(const Sized& sized)  // what stands outside of the circle of the nodes' middles
{
    Extent label;
    bool loops = false;
    for (std::size_t arc = 0; arc < sized.From.size(); ++arc)
        if (sized.From[arc] == sized.To[arc]) {
            loops = true;
            label.Width = std::max(label.Width, sized.Labels[arc].Width);
            label.Height = std::max(label.Height, sized.Labels[arc].Height);
        }
    const double half = WidestNode(sized) / 2 + kMargin;
    if (!loops) return {half, half};
    return {half + 2 * kLoop + label.Width, half + 2 * kLoop + label.Height};
}

double LeastRadius(const Sized& sized)
{
    const auto n = static_cast<double>(std::max<std::size_t>(2, sized.Count()));
    return (WidestNode(sized) + kBetween) / (2 * std::sin(std::numbers::pi / n));
}

std::vector<Point> LoopAt(const Point& middle, double reach)
{
    constexpr int kParts = 24;
    std::vector<Point> path;
    for (int i = 0; i <= kParts; ++i) {
        const double angle = 2 * std::numbers::pi * i / kParts;
        path.push_back({middle.X + reach * std::cos(angle), middle.Y + reach * std::sin(angle)});
    }
    return path;
}

bool MeetsForeignNode(const std::vector<Point>& path, const Sized& sized, const Placement& placement,
                      std::size_t arc)
{
    for (std::size_t node = 0; node < sized.Count(); ++node) {
        if (node == sized.From[arc] || node == sized.To[arc]) continue;
        const Box& place = placement.Nodes[node].Place;
        const double reach = std::max(place.Width, place.Height) / 2 + 2;
        for (std::size_t k = 0; k + 1 < path.size(); ++k)
            if (DistanceToSegment(place.Middle(), path[k], path[k + 1]) < reach) return true;
    }
    return false;
}

// Bent to the left of its way. Where it would run through a node that is not its end: less or more, straight,
// or a little to the right; the other arc of the pair, bent the other way, is still apart from it.
std::vector<Point> BentClear(const Sized& sized, const Placement& placement, std::size_t arc)
{
    constexpr std::array<double, 7> kBends{0.11, 0.08, 0.14, 0.05, 0, -0.04, 0.18};  // of the distance
    constexpr double kLeast = 12;                                                    // pixels
    const Point a = placement.Nodes[sized.From[arc]].Place.Middle();
    const Point b = placement.Nodes[sized.To[arc]].Place.Middle();
    std::vector<Point> first;
    for (const double bend : kBends) {
        const double off = bend * Distance(a, b);
        auto path = Trimmed(Curve(a, b, bend > 0 ? std::max(kLeast, off) : off), sized, placement, arc);
        if (!MeetsForeignNode(path, sized, placement, arc)) return path;
        if (first.empty()) first = std::move(path);
    }
    return first;
}

}  // namespace

Extent LeastRing(const Sized& sized)
{
    if (sized.Count() == 0) return {};
    const double radius = sized.Count() == 1 ? 0 : LeastRadius(sized);
    const Extent outside = LoopRoom(sized);
    return {2 * (radius + outside.Width), 2 * (radius + outside.Height)};
}

Placement Ring(const Sized& sized, const Extent& room)
{
    Placement placement;
    placement.Nodes.resize(sized.Count());
    placement.Arcs.resize(sized.From.size());
    const Extent least = LeastRing(sized);
    placement.Size = {std::max(least.Width, room.Width), std::max(least.Height, room.Height)};
    const Point middle{placement.Size.Width / 2, placement.Size.Height / 2};
    const Extent outside = LoopRoom(sized);
    // Not much flatter than a circle.
    double across = placement.Size.Width / 2 - outside.Width;
    double down = placement.Size.Height / 2 - outside.Height;
    across = std::min(across, 1.5 * down);
    down = std::min(down, 1.5 * across);
    if (sized.Count() == 1) across = down = 0;

    const auto n = static_cast<double>(sized.Count());
    std::vector<Point> outwards(sized.Count());
    for (std::size_t i = 0; i < sized.Count(); ++i) {
        const double angle = -std::numbers::pi / 2 + 2 * std::numbers::pi * static_cast<double>(i) / n;
        outwards[i] = {std::cos(angle), std::sin(angle)};
        placement.Nodes[i].Place =
            Around({middle.X + across * outwards[i].X, middle.Y + down * outwards[i].Y}, sized.Nodes[i]);
    }
    std::set<std::pair<std::size_t, std::size_t>> pairs;
    for (std::size_t arc = 0; arc < sized.From.size(); ++arc)
        pairs.insert({sized.From[arc], sized.To[arc]});
    for (std::size_t arc = 0; arc < sized.From.size(); ++arc) {
        if (!sized.HasEnds(arc)) continue;
        const std::size_t from = sized.From[arc];
        const std::size_t to = sized.To[arc];
        const Point a = placement.Nodes[from].Place.Middle();
        const Point b = placement.Nodes[to].Place.Middle();
        if (from == to) {
            // A circle that begins and ends inside of the node.
            const double reach = sized.Nodes[from].Width / 2 + 0.72 * kLoop;
            std::vector<Point> loop =
                LoopAt({a.X + reach * outwards[from].X, a.Y + reach * outwards[from].Y}, kLoop);
            const auto inmost = std::min_element(
                loop.begin(), loop.end() - 1,
                [&](const Point& p, const Point& q) { return Distance(p, a) < Distance(q, a); });
            loop.pop_back();
            std::rotate(loop.begin(), inmost, loop.end());
            loop.push_back(loop.front());
            placement.Arcs[arc].Path = Trimmed(loop, sized, placement, arc);
            continue;
        }
        const bool both = sized.Of.Arcs[arc].Directed && pairs.contains({to, from});
        placement.Arcs[arc].Path =
            both ? BentClear(sized, placement, arc) : Trimmed(Curve(a, b, 0), sized, placement, arc);
    }
    PlaceLabels(sized, placement);
    return placement;
}

}  // namespace picture::layouts
