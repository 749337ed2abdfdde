// Trees from left to right: children by their place, a parent at the middle of its children, columns as wide
// as their widest text.
#include <algorithm>

#include "picture/layouts.h"

namespace picture::layouts {
namespace {

constexpr double kColumnGap = 24;
constexpr double kLeafGap = 6;
constexpr double kFamilyGap = 14;
constexpr double kSlant = 24;      // the part of a branch that is not level
constexpr double kLeastSlant = 8;  // where the room is too narrow for more

class TreePlacer {
public:
    TreePlacer(const Sized& sized, double room)
        : sized_(sized),
          room_(room),
          children_(sized.Count()),
          parentArc_(sized.Count(), kNobody),
          depth_(sized.Count(), 0)
    {
        placement_.Nodes.resize(sized.Count());
        placement_.Arcs.resize(sized.From.size());
    }

    Placement Make()
    {
        FindFamilies();
        SetColumns();
        double top = kMargin;
        for (std::size_t node = 0; node < sized_.Count(); ++node)
            if (parentArc_[node] == kNobody) top = PlaceFamily(node, top) + kFamilyGap;
        placement_.Size = {columns_.empty() ? 0 : columns_.back() + widths_.back() + kMargin,
                           std::max(0.0, top - kFamilyGap + kMargin)};
        for (std::size_t arc = 0; arc < sized_.From.size(); ++arc)
            if (sized_.HasEnds(arc)) DrawBranch(arc);
        return std::move(placement_);
    }

private:
    // The first arc into a node makes it a child, unless it would be its own ancestor.
    void FindFamilies()
    {
        for (std::size_t arc = 0; arc < sized_.From.size(); ++arc) {
            const std::size_t to = sized_.To[arc];
            if (!sized_.HasEnds(arc) || parentArc_[to] != kNobody || IsAncestor(to, sized_.From[arc]))
                continue;
            parentArc_[to] = arc;
            children_[sized_.From[arc]].push_back(to);
        }
        for (std::size_t node = 0; node < sized_.Count(); ++node)
            for (std::size_t up = node; parentArc_[up] != kNobody; up = sized_.From[parentArc_[up]])
                ++depth_[node];
    }

    [[nodiscard]] bool IsAncestor(std::size_t ancestor, std::size_t node) const
    {
        while (node != ancestor && parentArc_[node] != kNobody)
            node = sized_.From[parentArc_[node]];
        return node == ancestor;
    }

    void SetColumns()
    {
        for (std::size_t node = 0; node < sized_.Count(); ++node) {
            widths_.resize(std::max(widths_.size(), depth_[node] + 1));
            widths_[depth_[node]] = std::max(widths_[depth_[node]], sized_.Nodes[node].Width);
        }
        std::vector<double> labels(widths_.size() + 1);
        for (std::size_t node = 0; node < sized_.Count(); ++node)
            if (parentArc_[node] != kNobody)
                labels[depth_[node]] = std::max(labels[depth_[node]], sized_.Labels[parentArc_[node]].Width);
        const double slant = SlantFor(labels);
        double left = kMargin;
        for (std::size_t depth = 0; depth < widths_.size(); ++depth) {
            if (depth > 0) left += kColumnGap + labels[depth] + (labels[depth] > 0 ? slant : 0);
            columns_.push_back(left);
            left += widths_[depth];
        }
    }

    // As much as the room leaves beside the columns and the texts between them.
    [[nodiscard]] double SlantFor(const std::vector<double>& labels) const
    {
        double level = 2 * kMargin;
        int slanted = 0;
        for (std::size_t depth = 0; depth < widths_.size(); ++depth) {
            level += widths_[depth] + labels[depth] + (depth > 0 ? kColumnGap : 0);
            if (labels[depth] > 0) ++slanted;
        }
        return slanted == 0 ? kSlant : std::clamp((room_ - level) / slanted, kLeastSlant, kSlant);
    }

    [[nodiscard]] bool IsLeaf(std::size_t node) const { return children_[node].empty(); }

    // Places the node and all below it from `top` on; where they end.
    double PlaceFamily(std::size_t node, double top)
    {
        const Extent& size = sized_.Nodes[node];
        const double label = parentArc_[node] == kNobody ? 0 : sized_.Labels[parentArc_[node]].Height;
        const double own = std::max(size.Height, label);
        double bottom = top;
        for (std::size_t i = 0; i < children_[node].size(); ++i) {
            if (i > 0) {
                const bool leaves = IsLeaf(children_[node][i - 1]) && IsLeaf(children_[node][i]);
                bottom += leaves ? kLeafGap : kFamilyGap;
            }
            bottom = PlaceFamily(children_[node][i], bottom);
        }
        double middle = top + own / 2;
        if (!IsLeaf(node)) {
            const double span = bottom - top;
            if (span < own) {
                for (const std::size_t child : children_[node])
                    Move(child, (own - span) / 2);
                bottom = top + own;
            }
            const double first = placement_.Nodes[children_[node].front()].Place.Middle().Y;
            const double last = placement_.Nodes[children_[node].back()].Place.Middle().Y;
            middle = std::clamp((first + last) / 2, top + own / 2, bottom - own / 2);
        }
        placement_.Nodes[node].Place = {columns_[depth_[node]], middle - size.Height / 2, size.Width,
                                        size.Height};
        return std::max(bottom, top + own);
    }

    void Move(std::size_t node, double down)
    {
        placement_.Nodes[node].Place.Y += down;
        for (const std::size_t child : children_[node])
            Move(child, down);
    }

    // Slanted out of the parent, then level to the child, with its text on the level part.
    void DrawBranch(std::size_t arc)
    {
        const Box& parent = placement_.Nodes[sized_.From[arc]].Place;
        const Box& child = placement_.Nodes[sized_.To[arc]].Place;
        const Extent& label = sized_.Labels[arc];
        const Point end{child.X, child.Middle().Y};
        const double bend = child.X - label.Width - (label.Width > 0 ? kColumnGap / 2 : kColumnGap / 4);
        PlacedArc& placed = placement_.Arcs[arc];
        placed.Path = {{parent.Right(), parent.Middle().Y}, {std::max(bend, parent.Right()), end.Y}, end};
        if (label.Width > 0) placed.Label = Around({end.X - label.Width / 2 - kColumnGap / 4, end.Y}, label);
    }

    const Sized& sized_;
    double room_;
    Placement placement_;
    std::vector<std::vector<std::size_t>> children_;
    std::vector<std::size_t> parentArc_;
    std::vector<std::size_t> depth_;
    std::vector<double> widths_;
    std::vector<double> columns_;
};

}  // namespace

Placement Tree(const Sized& sized, const Extent& room)
{
    return TreePlacer(sized, room.Width).Make();
}

}  // namespace picture::layouts
