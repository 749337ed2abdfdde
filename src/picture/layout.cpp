#include "picture/layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

#include "picture/layouts.h"

namespace picture {
namespace {

constexpr double kFieldRoom = 10;  // beside a field of a box
constexpr double kTriangle = 14;

std::vector<std::string_view> Fields(std::string_view line)
{
    std::vector<std::string_view> fields;
    for (std::size_t from = 0; from <= line.size();) {
        const std::size_t to = std::min(line.find('\t', from), line.size());
        fields.push_back(line.substr(from, to - from));
        from = to + 1;
    }
    return fields;
}

bool IsChosen(Role role)
{
    return role == Role::Chosen || role == Role::Critical || role == Role::Best;
}

}  // namespace

Extent SizeOfLines(const std::vector<std::string>& lines, const Measure& measure)
{
    Extent size;
    double field = 0;
    std::size_t most = 1;
    for (const std::string& line : lines) {
        const auto fields = Fields(line);
        for (const std::string_view text : fields) {
            const Extent part = measure(text);
            size.Width = std::max(size.Width, part.Width);
            if (fields.size() > 1) field = std::max(field, part.Width);
        }
        most = std::max(most, fields.size());
        size.Height += measure("0").Height;
    }
    if (most > 1) size.Width = std::max(size.Width, static_cast<double>(most) * (field + kFieldRoom));
    return size;
}

Extent SizeOfNode(const Node& node, const Measure& measure)
{
    constexpr double kLeast = 22;
    const Extent text = SizeOfLines(node.Lines, measure);
    const double across = std::hypot(text.Width, text.Height);
    switch (node.Form) {
        case Shape::Box:
            return {std::max(kLeast, text.Width + 12), std::max(kLeast, text.Height + 6)};
        case Shape::Square: {
            const double side = std::max(kLeast, std::max(text.Width, text.Height) + 8);
            return {side, side};
        }
        case Shape::Circle:
            return {std::max(kLeast, across + 6), std::max(kLeast, across + 6)};
        case Shape::Ring:
            return {std::max(kLeast, across + 14), std::max(kLeast, across + 14)};
        case Shape::Diamond:
            return {std::max(kLeast, text.Width + 2 * text.Height), std::max(kLeast, 2 * text.Height + 4)};
        case Shape::Triangle:
            break;
    }
    if (node.Lines.empty()) return {kTriangle, kTriangle};
    return {kTriangle + 6 + text.Width, std::max(kTriangle, text.Height)};
}

Box BadgeAt(const Box& node, const Extent& text)
{
    const double side = std::max(text.Width, text.Height) + 2;
    return {node.Right() - side * 0.45, node.Y - side * 0.55, side, side};
}

bool Covers(Shape shape, const Box& place, const Point& point, double grown)
{
    const Box box = place.Grown(grown);
    if (!box.Holds(point)) return false;
    const Point middle = box.Middle();
    const double x = std::abs(point.X - middle.X) / (box.Width / 2);
    const double y = std::abs(point.Y - middle.Y) / (box.Height / 2);
    if (shape == Shape::Circle || shape == Shape::Ring) return x * x + y * y <= 1;
    if (shape == Shape::Diamond) return x + y <= 1;
    return true;
}

Placement Place(const Diagram& diagram, const Extent& room, const Measure& measure)
{
    const layouts::Sized sized(diagram, measure);
    Placement placement;
    switch (diagram.Kind) {
        case Layout::Tree:
            placement = layouts::Tree(sized, room);
            break;
        case Layout::TwoSides:
            placement = layouts::TwoSides(sized, room, measure);
            break;
        case Layout::Ring:
            placement = layouts::Ring(sized, room);
            break;
        case Layout::Ranks:
            placement = layouts::Ranks(sized, room);
            break;
        case Layout::Free:
            placement = layouts::Free(sized, room);
            break;
    }
    for (const Frame& frame : diagram.Frames)
        placement.Frames.push_back(layouts::FrameAround(frame, sized, placement));
    return placement;
}

Extent LeastRoom(const Diagram& diagram, const Measure& measure)
{
    const layouts::Sized sized(diagram, measure);
    if (diagram.Kind == Layout::Free) return layouts::LeastFree(sized);
    if (diagram.Kind == Layout::Ring) return layouts::LeastRing(sized);
    return Place(diagram, {}, measure).Size;
}

namespace layouts {

Sized::Sized(const Diagram& diagram, const Measure& measure) : Of(diagram), Line(measure("0").Height)
{
    std::map<std::string_view, std::size_t> known;
    for (const Node& node : diagram.Nodes) {
        known.emplace(node.Id, Nodes.size());
        Nodes.push_back(SizeOfNode(node, measure));
        Badges.push_back(node.Badge.empty() ? Extent{} : measure(node.Badge));
    }
    const auto index = [&known](const std::string& id) {
        const auto found = known.find(id);
        return found == known.end() ? kNobody : found->second;
    };
    for (const Arc& arc : diagram.Arcs) {
        From.push_back(index(arc.From));
        To.push_back(index(arc.To));
        Labels.push_back(arc.Text.empty() ? Extent{} : measure(arc.Text));
    }
}

std::vector<Point> Curve(const Point& a, const Point& b, double bend)
{
    if (bend == 0) return {a, b};
    constexpr int kParts = 16;
    const double length = std::max(1e-9, Distance(a, b));
    const Point across{(b.Y - a.Y) / length, -(b.X - a.X) / length};
    const Point control{(a.X + b.X) / 2 + 2 * bend * across.X, (a.Y + b.Y) / 2 + 2 * bend * across.Y};
    std::vector<Point> path;
    for (int i = 0; i <= kParts; ++i) {
        const double t = static_cast<double>(i) / kParts;
        const double u = 1 - t;
        path.push_back({u * u * a.X + 2 * u * t * control.X + t * t * b.X,
                        u * u * a.Y + 2 * u * t * control.Y + t * t * b.Y});
    }
    return path;
}

namespace {

// The point of the segment where it leaves the shape, to a tenth of a pixel.
Point EdgeOf(Shape shape, const Box& place, Point inside, Point outside)
{
    constexpr int kHalvings = 12;
    for (int i = 0; i < kHalvings; ++i) {
        const Point middle{(inside.X + outside.X) / 2, (inside.Y + outside.Y) / 2};
        (Covers(shape, place, middle) ? inside : outside) = middle;
    }
    return outside;
}

void TrimStart(std::vector<Point>& path, Shape shape, const Box& place)
{
    std::size_t first = 0;
    while (first + 1 < path.size() && Covers(shape, place, path[first + 1]))
        ++first;
    if (first + 1 >= path.size() || !Covers(shape, place, path[first])) return;
    path[first] = EdgeOf(shape, place, path[first], path[first + 1]);
    path.erase(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(first));
}

}  // namespace

std::vector<Point> Trimmed(const std::vector<Point>& path, const Sized& sized, const Placement& placement,
                           std::size_t arc)
{
    std::vector<Point> trimmed = path;
    const std::size_t from = sized.From[arc];
    const std::size_t to = sized.To[arc];
    TrimStart(trimmed, sized.Of.Nodes[from].Form, placement.Nodes[from].Place);
    std::reverse(trimmed.begin(), trimmed.end());
    TrimStart(trimmed, sized.Of.Nodes[to].Form, placement.Nodes[to].Place);
    std::reverse(trimmed.begin(), trimmed.end());
    return trimmed;
}

std::vector<Parallel> Parallels(const Sized& sized)
{
    std::map<std::pair<std::size_t, std::size_t>, int> counts;
    std::vector<Parallel> parallels(sized.From.size());
    const auto key = [&sized](std::size_t arc) { return std::minmax(sized.From[arc], sized.To[arc]); };
    for (std::size_t arc = 0; arc < sized.From.size(); ++arc)
        parallels[arc].Before = counts[key(arc)]++;
    for (std::size_t arc = 0; arc < sized.From.size(); ++arc)
        parallels[arc].Count = counts[key(arc)];
    return parallels;
}

// ---- labels ----

namespace {

struct Along {
    Point At;
    Point Direction;
};

double LengthOf(const std::vector<Point>& path)
{
    double length = 0;
    for (std::size_t i = 0; i + 1 < path.size(); ++i)
        length += Distance(path[i], path[i + 1]);
    return length;
}

Along PointAlong(const std::vector<Point>& path, double share)
{
    double rest = share * LengthOf(path);
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        const Point& a = path[i];
        const Point& b = path[i + 1];
        const double length = Distance(a, b);
        if (rest <= length && length > 0) {
            const double part = rest / length;
            return {{a.X + part * (b.X - a.X), a.Y + part * (b.Y - a.Y)},
                    {(b.X - a.X) / length, (b.Y - a.Y) / length}};
        }
        rest -= length;
    }
    return {path.back(), {1, 0}};
}

class LabelPlacer {
public:
    LabelPlacer(const Sized& sized, Placement& placement) : sized_(sized), placement_(placement) {}

    void PlaceAll()
    {
        std::vector<std::size_t> order(sized_.Labels.size());
        for (std::size_t i = 0; i < order.size(); ++i)
            order[i] = i;
        std::stable_sort(order.begin(), order.end(), [this](std::size_t a, std::size_t b) {
            return IsChosen(sized_.Of.Arcs[a].As) && !IsChosen(sized_.Of.Arcs[b].As);
        });
        for (const std::size_t arc : order)
            if (sized_.Labels[arc].Width > 0 && placement_.Arcs[arc].Path.size() > 1) PlaceOne(arc);
    }

private:
    // Off its own arrowhead, or over it where there is no other place.
    void PlaceOne(std::size_t arc)
    {
        const std::optional<Box> head = HeadOf(arc);
        std::optional<Box> best = BestPlace(arc, head);
        if (!best && head) best = BestPlace(arc, {});
        placement_.Arcs[arc].Label = best;
        if (best)
            placed_.push_back(*best);
        else
            ++placement_.LeftOut;
    }

    // Around the end of an arc that is drawn with a head; a strong one reaches so far.
    [[nodiscard]] std::optional<Box> HeadOf(std::size_t arc) const
    {
        constexpr double kHead = 14;
        constexpr double kHalf = 4;  // of its width
        const Arc& of = sized_.Of.Arcs[arc];
        const PlacedArc& placed = placement_.Arcs[arc];
        if (!of.Directed || !of.Head || placed.Width > 0) return {};
        const double length = std::max(1e-9, LengthOf(placed.Path));
        const Point from = PointAlong(placed.Path, std::max(0.0, 1 - kHead / length)).At;
        const Point& tip = placed.Path.back();
        return Box{std::min(from.X, tip.X), std::min(from.Y, tip.Y), std::abs(from.X - tip.X),
                   std::abs(from.Y - tip.Y)}
            .Grown(kHalf);
    }

    [[nodiscard]] std::optional<Box> BestPlace(std::size_t arc, const std::optional<Box>& head) const
    {
        std::optional<Box> best;
        int least = 0;
        const auto& path = placement_.Arcs[arc].Path;
        const Extent& size = sized_.Labels[arc];
        for (const double beside : {0.0, 1.0, -1.0}) {
            for (const double share : kShares) {
                const Along along = PointAlong(path, share);
                const double off = beside * (std::abs(along.Direction.Y) * size.Width / 2 +
                                             std::abs(along.Direction.X) * size.Height / 2 + 3);
                const Box label = Around(
                    {along.At.X + off * along.Direction.Y, along.At.Y - off * along.Direction.X}, size);
                if (!IsFree(label) || (head && Overlap(label, *head))) continue;
                const int crossed = beside == 0 ? LinesCut(label, arc) : LinesCut(label, arc) + 1;
                if (best && crossed >= least) continue;
                best = label;
                least = crossed;
                if (crossed == 0) break;
            }
            if (best) break;
        }
        return best;
    }

    [[nodiscard]] bool IsFree(const Box& label) const
    {
        const Box roomy = label.Grown(kLabelRoom);
        if (label.X < 0 || label.Y < 0 || label.Right() > placement_.Size.Width ||
            label.Bottom() > placement_.Size.Height)
            return false;
        for (const Box& other : placed_)
            if (Overlap(roomy, other)) return false;
        for (const PlacedNode& node : placement_.Nodes)
            if (Overlap(roomy, node.Place) || (node.Text && Overlap(label, *node.Text))) return false;
        for (std::size_t i = 0; i < placement_.Nodes.size(); ++i)
            if (sized_.Badges[i].Width > 0 &&
                Overlap(label, BadgeAt(placement_.Nodes[i].Place, sized_.Badges[i])))
                return false;
        return true;
    }

    [[nodiscard]] int LinesCut(const Box& label, std::size_t own) const
    {
        int cut = 0;
        for (std::size_t arc = 0; arc < placement_.Arcs.size(); ++arc) {
            if (arc == own) continue;
            const auto& path = placement_.Arcs[arc].Path;
            const Box wide = label.Grown(placement_.Arcs[arc].Width / 2);
            bool hit = false;
            for (std::size_t i = 0; i + 1 < path.size() && !hit; ++i)
                hit = Crosses(wide, path[i], path[i + 1]);
            cut += hit;
        }
        return cut;
    }

    static constexpr std::array<double, 15> kShares{0.5,  0.44, 0.56, 0.38, 0.62, 0.32, 0.68, 0.26,
                                                    0.74, 0.2,  0.8,  0.15, 0.85, 0.1,  0.9};
    const Sized& sized_;
    Placement& placement_;
    std::vector<Box> placed_;
};

}  // namespace

void PlaceLabels(const Sized& sized, Placement& placement)
{
    LabelPlacer(sized, placement).PlaceAll();
}

Box FrameAround(const Frame& frame, const Sized& sized, const Placement& placement)
{
    constexpr double kRoom = 10;
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
    bool first = true;
    for (std::size_t i = 0; i < sized.Count(); ++i) {
        const auto& ids = frame.Ids;
        if (std::find(ids.begin(), ids.end(), sized.Of.Nodes[i].Id) == ids.end()) continue;
        const Box& box = placement.Nodes[i].Place;
        left = first ? box.X : std::min(left, box.X);
        top = first ? box.Y : std::min(top, box.Y);
        right = first ? box.Right() : std::max(right, box.Right());
        bottom = first ? box.Bottom() : std::max(bottom, box.Bottom());
        first = false;
    }
    return Box{left, top, right - left, bottom - top}.Grown(kRoom);
}

}  // namespace layouts
}  // namespace picture
