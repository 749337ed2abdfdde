// Two sides: a block for each node, as high as its amount, and ribbons between them.
#include <algorithm>
#include <array>

#include "picture/layouts.h"

namespace picture::layouts {
namespace {

constexpr double kBlockGap = 8;
constexpr double kMostFurtherGap = 24;
constexpr double kLineGap = 16;  // between nodes without an amount
constexpr double kTextGap = 6;
constexpr double kLeastBetween = 120;
constexpr double kLeastWhole = 160;  // height of the larger side, before the gaps
constexpr double kLeastWidth = 1;    // of a ribbon

class SidesPlacer {
public:
    SidesPlacer(const Sized& sized, const Extent& room, const Measure& measure) : sized_(sized), room_(room)
    {
        placement_.Nodes.resize(sized.Count());
        placement_.Arcs.resize(sized.From.size());
        for (std::size_t i = 0; i < sized.Count(); ++i) {
            const Node& node = sized.Of.Nodes[i];
            texts_.push_back(SizeOfLines(node.Lines, measure));
            hasAmounts_ = hasAmounts_ || node.Amount > 1;  // one to one: lines, not ribbons
            sides_.at(node.Rank > 0 ? 1 : 0).push_back(i);
        }
    }

    Placement Make()
    {
        SetScale();
        double width = 2 * kMargin + kLeastBetween;
        for (const auto& side : sides_)
            width += SideWidth(side);
        width = std::max(width, room_.Width);
        double height = std::max(SideHeight(0), SideHeight(1));
        if (hasAmounts_) height = std::max(height, room_.Height);
        placement_.Size = {width, height};
        PlaceSide(0, height);
        PlaceSide(1, height);
        PlaceRibbons();
        PlaceLabels(sized_, placement_);
        return std::move(placement_);
    }

private:
    [[nodiscard]] double SlotHeight(std::size_t node) const
    {
        if (!hasAmounts_) return sized_.Nodes[node].Height + kLineGap - kBlockGap;
        return std::max(BlockHeight(node), texts_[node].Height);
    }

    [[nodiscard]] double BlockHeight(std::size_t node) const
    {
        return std::max(2.0, scale_ * sized_.Of.Nodes[node].Amount);
    }

    [[nodiscard]] double SideHeight(std::size_t side) const
    {
        double height = 2 * kMargin;
        for (const std::size_t node : sides_.at(side))
            height += SlotHeight(node) + kBlockGap;
        return height;
    }

    [[nodiscard]] double SideWidth(const std::vector<std::size_t>& side) const
    {
        double widest = 0;
        for (const std::size_t node : side)
            widest = std::max(widest, hasAmounts_ ? texts_[node].Width : sized_.Nodes[node].Width);
        return hasAmounts_ ? widest + kTextGap + kStrip : widest;
    }

    // So many pixels an amount of 1 that the larger side fills the room.
    void SetScale()
    {
        if (!hasAmounts_) return;
        double most = 0;
        std::size_t blocks = 0;
        for (const auto& side : sides_) {
            double total = 0;
            for (const std::size_t node : side)
                total += sized_.Of.Nodes[node].Amount;
            most = std::max(most, total);
            blocks = std::max(blocks, side.size());
        }
        const double gaps = 2 * kMargin + static_cast<double>(blocks) * kBlockGap;
        double whole = std::max(kLeastWhole, room_.Height - gaps);
        // Texts that are higher than their blocks take room from the scale.
        for (int i = 0; i < 20; ++i) {
            scale_ = whole / most;
            const double height = std::max(SideHeight(0), SideHeight(1));
            if (height <= std::max(room_.Height, kLeastWhole + gaps) || whole <= kLeastWhole / 2) break;
            whole *= 0.9;
        }
    }

    void PlaceSide(std::size_t side, double height)
    {
        const auto& nodes = sides_.at(side);
        const double width = SideWidth(nodes);
        const double used = SideHeight(side);
        double top = kMargin + kBlockGap / 2;
        double gap = kBlockGap;
        if (hasAmounts_ && !nodes.empty()) {
            const auto gaps = static_cast<double>(nodes.size() - 1);
            if (gaps > 0) gap += std::min(kMostFurtherGap, (height - used) / (gaps + 1));
            top += (height - used - (gap - kBlockGap) * gaps) / 2;
        }
        for (const std::size_t node : nodes) {
            const double slot = SlotHeight(node);
            PlaceNode(node, side, top, width);
            top += slot + gap;
        }
    }

    void PlaceNode(std::size_t node, std::size_t side, double top, double width)
    {
        PlacedNode& placed = placement_.Nodes[node];
        const double right = placement_.Size.Width - kMargin;
        const double slot = SlotHeight(node);
        if (!hasAmounts_) {
            const Extent& size = sized_.Nodes[node];
            placed.Place = {side == 0 ? kMargin + width - size.Width : right - width, top, size.Width,
                            size.Height};
            return;
        }
        const double block = BlockHeight(node);
        const Extent& text = texts_[node];
        const double blockX = side == 0 ? kMargin + width - kStrip : right - width;
        placed.Place = {blockX, top + (slot - block) / 2, kStrip, block};
        const double textX = side == 0 ? blockX - kTextGap - text.Width : blockX + kStrip + kTextGap;
        placed.Text = Box{textX, top + (slot - text.Height) / 2, text.Width, text.Height};
        const Node& of = sized_.Of.Nodes[node];
        placed.Used = of.Amount > 0 ? std::clamp(of.Used / of.Amount, 0.0, 1.0) : 0;
    }

    // At each node the ribbons stand in the order of the other side, so that two of one node never cross.
    void PlaceRibbons()
    {
        std::vector<std::size_t> order;
        for (std::size_t arc = 0; arc < sized_.From.size(); ++arc)
            if (sized_.HasEnds(arc)) order.push_back(arc);
        std::vector<double> starts(sized_.From.size());
        std::vector<double> ends(sized_.From.size());
        SpreadPorts(order, sized_.From, sized_.To, starts);
        SpreadPorts(order, sized_.To, sized_.From, ends);
        for (const std::size_t arc : order) {
            const Box& from = placement_.Nodes[sized_.From[arc]].Place;
            const Box& to = placement_.Nodes[sized_.To[arc]].Place;
            const bool rightwards = from.X < to.X;
            PlacedArc& placed = placement_.Arcs[arc];
            placed.Path = Bow({rightwards ? from.Right() : from.X, starts[arc]},
                              {rightwards ? to.X : to.Right(), ends[arc]});
            if (!hasAmounts_) continue;
            const double width = scale_ * sized_.Of.Arcs[arc].Weight;
            placed.Width = std::max(kLeastWidth, width);
            placement_.TooThin += width < kLeastWidth ? 1 : 0;
        }
    }

    void SpreadPorts(std::vector<std::size_t> order, const std::vector<std::size_t>& own,
                     const std::vector<std::size_t>& other, std::vector<double>& ports) const
    {
        std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
            return placement_.Nodes[other[a]].Place.Y < placement_.Nodes[other[b]].Place.Y;
        });
        std::vector<double> at(sized_.Count());
        std::vector<int> count(sized_.Count());
        for (const std::size_t arc : order)
            ++count[own[arc]];
        std::vector<int> seen(sized_.Count());
        for (const std::size_t arc : order) {
            const std::size_t node = own[arc];
            const Box& box = placement_.Nodes[node].Place;
            if (hasAmounts_) {
                const double width = scale_ * sized_.Of.Arcs[arc].Weight;
                ports[arc] = box.Y + at[node] + width / 2;
                at[node] += width;
            } else {
                ++seen[node];
                ports[arc] = box.Y + box.Height * seen[node] / (count[node] + 1);
            }
        }
    }

    // Level at both ends.
    static std::vector<Point> Bow(const Point& a, const Point& b)
    {
        constexpr int kParts = 20;
        std::vector<Point> path;
        for (int i = 0; i <= kParts; ++i) {
            const double t = static_cast<double>(i) / kParts;
            path.push_back({a.X + t * (b.X - a.X), a.Y + t * t * (3 - 2 * t) * (b.Y - a.Y)});
        }
        return path;
    }

    const Sized& sized_;
    Extent room_;
    Placement placement_;
    std::vector<Extent> texts_;
    std::array<std::vector<std::size_t>, 2> sides_;
    bool hasAmounts_ = false;
    double scale_ = 1;
};

}  // namespace

Placement TwoSides(const Sized& sized, const Extent& room, const Measure& measure)
{
    return SidesPlacer(sized, room, measure).Make();
}

}  // namespace picture::layouts
