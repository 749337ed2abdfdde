// Random networks and what is wrong with a layout, counted without the layout's own checks.
#pragma once

#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <string>

#include "picture/layout.h"

namespace networks {

// Letters of one width: about those of 9 point type.
inline picture::Extent LetterSize(std::string_view text)
{
    return {7.0 * static_cast<double>(text.size()), 15};
}

// A tree over all nodes first, then arcs between pairs that have none yet.
inline picture::Diagram Random(unsigned seed, int nodes, int arcs)
{
    std::mt19937 random(seed);
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    };
    picture::Diagram diagram;
    for (int i = 1; i <= nodes; ++i)
        diagram.Nodes.push_back(
            {.Id = std::to_string(i), .Lines = {std::to_string(i)}, .Form = picture::Shape::Circle});
    std::set<std::pair<int, int>> joined;
    const auto join = [&](int a, int b) {
        if (a == b || !joined.insert(std::minmax(a, b)).second) return;
        diagram.Arcs.push_back({.From = std::to_string(a),
                                .To = std::to_string(b),
                                .Directed = false,
                                .Text = std::to_string(1 + below(99))});
    };
    for (int i = 2; i <= nodes; ++i)
        join(1 + below(i - 1), i);
    while (static_cast<int>(joined.size()) < std::min(arcs, nodes * (nodes - 1) / 2))
        join(1 + below(nodes), 1 + below(nodes));
    return diagram;
}

struct Faults {
    int NodeOverNode = 0;
    int LabelOverNode = 0;
    int LabelOverLabel = 0;
    int LineThroughNode = 0;
    int LeftOut = 0;
    int Outside = 0;

    [[nodiscard]] bool None() const
    {
        return NodeOverNode + LabelOverNode + LabelOverLabel + LineThroughNode + LeftOut + Outside == 0;
    }
};

inline bool BoxesMeet(const picture::Box& a, const picture::Box& b)
{
    return std::max(a.X, b.X) < std::min(a.X + a.Width, b.X + b.Width) &&
           std::max(a.Y, b.Y) < std::min(a.Y + a.Height, b.Y + b.Height);
}

// Whether a straight line comes nearer to the middle of a round node than its radius, by points along it.
inline bool RunsThrough(const picture::Point& a, const picture::Point& b, const picture::Box& node)
{
    constexpr int kPoints = 400;
    for (int i = 0; i <= kPoints; ++i) {
        const double t = static_cast<double>(i) / kPoints;
        const double x = a.X + t * (b.X - a.X) - (node.X + node.Width / 2);
        const double y = a.Y + t * (b.Y - a.Y) - (node.Y + node.Height / 2);
        if (std::hypot(x, y) < node.Width / 2) return true;
    }
    return false;
}

inline Faults FaultsOf(const picture::Diagram& diagram, const picture::Placement& placement)
{
    Faults faults;
    const auto& nodes = placement.Nodes;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const picture::Box& box = nodes[i].Place;
        faults.Outside += box.X < 0 || box.Y < 0 || box.X + box.Width > placement.Size.Width ||
                          box.Y + box.Height > placement.Size.Height;
        for (std::size_t j = i + 1; j < nodes.size(); ++j)
            faults.NodeOverNode += BoxesMeet(box, nodes[j].Place);
        for (std::size_t arc = 0; arc < diagram.Arcs.size(); ++arc) {
            const bool own =
                diagram.Arcs[arc].From == diagram.Nodes[i].Id || diagram.Arcs[arc].To == diagram.Nodes[i].Id;
            const auto& path = placement.Arcs[arc].Path;
            for (std::size_t k = 0; k + 1 < path.size() && !own; ++k)
                faults.LineThroughNode += RunsThrough(path[k], path[k + 1], box);
            const auto& label = placement.Arcs[arc].Label;
            faults.LabelOverNode += label && BoxesMeet(*label, box);
        }
    }
    for (std::size_t a = 0; a < diagram.Arcs.size(); ++a) {
        const auto& label = placement.Arcs[a].Label;
        if (!label) {
            faults.LeftOut += !diagram.Arcs[a].Text.empty();
            continue;
        }
        for (std::size_t b = a + 1; b < diagram.Arcs.size(); ++b)
            faults.LabelOverLabel += placement.Arcs[b].Label && BoxesMeet(*label, *placement.Arcs[b].Label);
    }
    return faults;
}

}  // namespace networks
