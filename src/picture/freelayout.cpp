// Networks without an order. From several fixed starts: positions whose distances agree with the number of
// arcs between the nodes (stress majorisation: E. Gansner, Y. Koren, S. North, 2004), fitted to the room;
// then nodes pushed from each other and off lines that are not theirs; then labels. The first clean results
// are compared by their crossings.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <queue>

#include "picture/layouts.h"

namespace picture::layouts {
namespace {

constexpr int kStarts = 24;
constexpr int kCleanResults = 3;  // among which the one with the fewest crossings is taken
constexpr int kSweeps = 50;
constexpr int kPushes = 160;
constexpr double kNodeGap = 20;  // between two nodes
constexpr double kLineGap = 9;   // between a node and a line that passes
constexpr double kFrameRoom = 14;

// Fixed numbers from 0 to 1: the same on every machine.
class Numbers {
public:
    explicit Numbers(std::uint64_t seed) : state_(seed * 2654435761U + 1) {}
    double Next()
    {
        state_ = state_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<double>(state_ >> 11U) / 9007199254740992.0;
    }

private:
    std::uint64_t state_;
};

struct Link {
    std::size_t From;
    std::size_t To;
    double Label;  // width
    double Head;   // length of the arrowhead
};

// Nodes that are laid out together.
struct Part {
    std::vector<std::size_t> Nodes = {};
    bool Framed = false;
};

std::vector<Part> PartsOf(const Sized& sized)
{
    std::vector<Part> parts(1);
    std::vector<bool> framed(sized.Count());
    for (const Frame& frame : sized.Of.Frames) {
        Part part{.Framed = true};
        for (std::size_t i = 0; i < sized.Count(); ++i)
            if (!framed[i] &&
                std::find(frame.Ids.begin(), frame.Ids.end(), sized.Of.Nodes[i].Id) != frame.Ids.end()) {
                framed[i] = true;
                part.Nodes.push_back(i);
            }
        if (!part.Nodes.empty()) parts.push_back(part);
    }
    for (std::size_t i = 0; i < sized.Count(); ++i)
        if (!framed[i]) parts.front().Nodes.push_back(i);
    if (parts.front().Nodes.empty()) parts.erase(parts.begin());
    return parts;
}

// One part, laid out in a box.
class Network {
public:
    Network(const Sized& sized, const std::vector<std::size_t>& nodes, const Box& room)
        : room_(room), place_(nodes.size())
    {
        std::vector<std::size_t> local(sized.Count(), kNobody);
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            local[nodes[i]] = i;
            sizes_.push_back(sized.Nodes[nodes[i]]);
        }
        for (std::size_t arc = 0; arc < sized.From.size(); ++arc) {
            if (!sized.HasEnds(arc) || sized.From[arc] == sized.To[arc]) continue;
            const std::size_t from = local[sized.From[arc]];
            const std::size_t to = local[sized.To[arc]];
            if (from != kNobody && to != kNobody)
                links_.push_back({from, to, sized.Labels[arc].Width, HeadOf(sized.Of.Arcs[arc])});
        }
        MeasureHops();
    }

    void Start(std::uint64_t seed)
    {
        Numbers numbers(seed);
        for (Point& point : place_)
            point = {numbers.Next(), numbers.Next()};
        for (int i = 0; i < kSweeps; ++i)
            Majorise();
        FitToRoom();
        for (int i = 0; i < kPushes; ++i)
            if (!Push()) break;
    }

    [[nodiscard]] const std::vector<Point>& Places() const { return place_; }

    // Nodes that cover each other and lines through foreign nodes.
    [[nodiscard]] int Faults() const
    {
        int faults = 0;
        for (std::size_t i = 0; i < place_.size(); ++i) {
            for (std::size_t j = i + 1; j < place_.size(); ++j)
                faults += Overlap(BoxOf(i).Grown(2), BoxOf(j));
            for (const Link& link : links_)
                if (link.From != i && link.To != i)
                    faults +=
                        DistanceToSegment(place_[i], place_[link.From], place_[link.To]) < Radius(i) + 2;
        }
        return faults;
    }

    [[nodiscard]] int Crossings() const
    {
        const auto side = [this](std::size_t a, std::size_t b, std::size_t c) {
            return (place_[b].X - place_[a].X) * (place_[c].Y - place_[a].Y) -
                   (place_[b].Y - place_[a].Y) * (place_[c].X - place_[a].X);
        };
        int crossings = 0;
        for (std::size_t i = 0; i < links_.size(); ++i)
            for (std::size_t j = i + 1; j < links_.size(); ++j) {
                const Link& a = links_[i];
                const Link& b = links_[j];
                if (a.From == b.From || a.From == b.To || a.To == b.From || a.To == b.To) continue;
                crossings += side(a.From, a.To, b.From) * side(a.From, a.To, b.To) < 0 &&
                             side(b.From, b.To, a.From) * side(b.From, b.To, a.To) < 0;
            }
        return crossings;
    }

private:
    static double HeadOf(const Arc& arc)
    {
        constexpr double kHead = 14;
        return arc.Directed && arc.Head ? kHead : 0;
    }

    // The number of arcs between each two nodes; between pieces that do not hang together a little more than
    // the longest way.
    void MeasureHops()
    {
        const std::size_t n = place_.size();
        std::vector<std::vector<std::size_t>> neighbours(n);
        for (const Link& link : links_) {
            neighbours[link.From].push_back(link.To);
            neighbours[link.To].push_back(link.From);
        }
        hops_.assign(n * n, 0);
        double longest = 1;
        for (std::size_t start = 0; start < n; ++start) {
            std::queue<std::size_t> next;
            next.push(start);
            while (!next.empty()) {
                const std::size_t node = next.front();
                next.pop();
                for (const std::size_t other : neighbours[node]) {
                    double& hops = hops_[start * n + other];
                    if (other == start || hops > 0) continue;
                    hops = hops_[start * n + node] + 1;
                    longest = std::max(longest, hops);
                    next.push(other);
                }
            }
        }
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j)
                if (i != j && hops_[i * n + j] == 0) hops_[i * n + j] = std::sqrt(longest) + 1;
    }

    void Majorise()
    {
        const std::size_t n = place_.size();
        for (std::size_t i = 0; i < n; ++i) {
            Point sum;
            double weights = 0;
            for (std::size_t j = 0; j < n; ++j) {
                if (i == j) continue;
                const double wanted = hops_[i * n + j];
                const double weight = 1 / (wanted * wanted);
                const double distance = std::max(1e-6, Distance(place_[i], place_[j]));
                sum.X += weight * (place_[j].X + wanted * (place_[i].X - place_[j].X) / distance);
                sum.Y += weight * (place_[j].Y + wanted * (place_[i].Y - place_[j].Y) / distance);
                weights += weight;
            }
            if (weights > 0) place_[i] = {sum.X / weights, sum.Y / weights};
        }
    }

    // The widest way of the points lies along the room's, and the first node rather left than right.
    void FitToRoom()
    {
        if (place_.empty()) return;
        Turn();
        const auto byX = [](const Point& a, const Point& b) { return a.X < b.X; };
        const auto byY = [](const Point& a, const Point& b) { return a.Y < b.Y; };
        const auto [left, right] = std::minmax_element(place_.begin(), place_.end(), byX);
        const auto [top, bottom] = std::minmax_element(place_.begin(), place_.end(), byY);
        const Point least{left->X, top->Y};
        const Point most{right->X, bottom->Y};
        double wide = 0;
        double high = 0;
        for (const Extent& size : sizes_) {
            wide = std::max(wide, size.Width);
            high = std::max(high, size.Height);
        }
        const auto fitted = [](double value, double from, double to, double start, double length) {
            return to > from ? start + (value - from) / (to - from) * length : start + length / 2;
        };
        const double width = std::max(0.0, room_.Width - wide - 4);
        const double height = std::max(0.0, room_.Height - high - 4);
        for (Point& point : place_)
            point = {fitted(point.X, least.X, most.X, room_.X + wide / 2 + 2, width),
                     fitted(point.Y, least.Y, most.Y, room_.Y + high / 2 + 2, height)};
    }

    void Turn()
    {
        Point middle;
        for (const Point& point : place_)
            middle = {middle.X + point.X / static_cast<double>(place_.size()),
                      middle.Y + point.Y / static_cast<double>(place_.size())};
        double xx = 0;
        double yy = 0;
        double xy = 0;
        for (const Point& point : place_) {
            const double x = point.X - middle.X;
            const double y = point.Y - middle.Y;
            xx += x * x;
            yy += y * y;
            xy += x * y;
        }
        double angle = std::atan2(2 * xy, xx - yy) / 2;
        if (room_.Height > room_.Width) angle += std::numbers::pi / 2;
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        for (Point& point : place_) {
            const double x = point.X - middle.X;
            const double y = point.Y - middle.Y;
            point = {c * x + s * y, c * y - s * x};
        }
        const double mirror = place_.front().X > 0 ? -1 : 1;
        for (Point& point : place_)
            point.X *= mirror;
    }

    [[nodiscard]] double Radius(std::size_t node) const
    {
        return std::max(sizes_[node].Width, sizes_[node].Height) / 2;
    }

    [[nodiscard]] Box BoxOf(std::size_t node) const { return Around(place_[node], sizes_[node]); }

    // One round of pushing; false when nothing had to move.
    bool Push()
    {
        std::vector<Point> moves(place_.size());
        bool moved = PushNodes(moves);
        moved = PushOffLines(moves) || moved;
        moved = StretchLinks(moves) || moved;
        if (!moved) return false;
        for (std::size_t i = 0; i < place_.size(); ++i) {
            const double x = sizes_[i].Width / 2 + 2;
            const double y = sizes_[i].Height / 2 + 2;
            place_[i].X = Kept(place_[i].X + moves[i].X, room_.X + x, room_.Right() - x);
            place_[i].Y = Kept(place_[i].Y + moves[i].Y, room_.Y + y, room_.Bottom() - y);
        }
        return true;
    }

    static double Kept(double value, double from, double to)
    {
        return from > to ? (from + to) / 2 : std::clamp(value, from, to);
    }

    static void Move(Point& move, const Point& direction, double by)
    {
        move.X += by * direction.X;
        move.Y += by * direction.Y;
    }

    // From a to b, of length 1; two points at one place part to different sides.
    static Point Way(const Point& a, const Point& b, std::size_t i)
    {
        const double distance = Distance(a, b);
        if (distance > 1e-6) return {(b.X - a.X) / distance, (b.Y - a.Y) / distance};
        const auto angle = static_cast<double>(i);
        return {std::cos(angle), std::sin(angle)};
    }

    bool PushNodes(std::vector<Point>& moves) const
    {
        bool moved = false;
        for (std::size_t i = 0; i < place_.size(); ++i)
            for (std::size_t j = i + 1; j < place_.size(); ++j) {
                const double missing = Radius(i) + Radius(j) + kNodeGap - Distance(place_[i], place_[j]);
                if (missing <= 0) continue;
                const Point way = Way(place_[i], place_[j], i);
                Move(moves[i], way, -0.3 * missing);
                Move(moves[j], way, 0.3 * missing);
                moved = true;
            }
        return moved;
    }

    bool PushOffLines(std::vector<Point>& moves) const
    {
        bool moved = false;
        for (const Link& link : links_)
            for (std::size_t i = 0; i < place_.size(); ++i) {
                if (i == link.From || i == link.To) continue;
                const Point& a = place_[link.From];
                const Point& b = place_[link.To];
                const double missing = Radius(i) + kLineGap - DistanceToSegment(place_[i], a, b);
                if (missing <= 0) continue;
                const Point along = Way(a, b, i);
                const double off = (place_[i].X - a.X) * along.Y - (place_[i].Y - a.Y) * along.X;
                const double side = off >= 0 ? 1 : -1;
                const Point away{side * along.Y, -side * along.X};
                Move(moves[i], away, 0.5 * missing);
                Move(moves[link.From], away, -0.2 * missing);
                Move(moves[link.To], away, -0.2 * missing);
                moved = true;
            }
        return moved;
    }

    // A line has room for its label and its head.
    bool StretchLinks(std::vector<Point>& moves) const
    {
        bool moved = false;
        for (const Link& link : links_) {
            const Point way = Way(place_[link.From], place_[link.To], link.From);
            const double label =
                link.Label == 0 ? 0 : std::abs(way.X) * link.Label + std::abs(way.Y) * 16 + 8;
            const double missing = Radius(link.From) + Radius(link.To) + label + link.Head -
                                   Distance(place_[link.From], place_[link.To]);
            if (missing <= 0) continue;
            Move(moves[link.From], way, -0.25 * missing);
            Move(moves[link.To], way, 0.25 * missing);
            moved = true;
        }
        return moved;
    }

    Box room_;
    std::vector<Point> place_;
    std::vector<Extent> sizes_;
    std::vector<Link> links_;
    std::vector<double> hops_;
};

void DrawLinks(const Sized& sized, Placement& placement)
{
    constexpr double kApart = 14;
    const std::vector<Parallel> parallels = Parallels(sized);
    for (std::size_t arc = 0; arc < sized.From.size(); ++arc) {
        if (!sized.HasEnds(arc) || sized.From[arc] == sized.To[arc]) continue;
        const std::size_t from = sized.From[arc];
        const std::size_t to = sized.To[arc];
        // Measured on the way from the lower index to the higher one, so that arcs both ways bend apart.
        double bend = (parallels[arc].Before - (parallels[arc].Count - 1) / 2.0) * kApart;
        if (from > to) bend = -bend;
        placement.Arcs[arc].Path =
            Trimmed(Curve(placement.Nodes[from].Place.Middle(), placement.Nodes[to].Place.Middle(), bend),
                    sized, placement, arc);
    }
}

std::size_t FramesInRow(double width)
{
    constexpr double kFrame = 110;
    return static_cast<std::size_t>(std::max(1.0, std::floor(width / kFrame)));
}

// The rooms of the parts: the first has the most of the height, those in frames stand in rows below.
std::vector<Box> RoomsOf(const Sized& sized, const std::vector<Part>& parts, const Extent& size)
{
    constexpr double kBadge = 10;  // reaches so far out of its node, to the right and up
    const auto& nodes = sized.Of.Nodes;
    const bool badges =
        std::any_of(nodes.begin(), nodes.end(), [](const Node& n) { return !n.Badge.empty(); });
    const double badge = badges ? kBadge : 0;
    const Box whole{kMargin, kMargin + badge, size.Width - 2 * kMargin - badge,
                    size.Height - 2 * kMargin - badge};
    if (parts.size() == 1 && !parts.front().Framed) return {whole};
    const std::size_t framedFrom = parts.front().Framed ? 0 : 1;
    double all = 0;
    double framed = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        all += static_cast<double>(parts[i].Nodes.size());
        if (i >= framedFrom) framed += static_cast<double>(parts[i].Nodes.size());
    }
    const double share = framedFrom == 0 ? 1 : std::clamp(framed / all, 0.22, 0.6);
    const double top = whole.Y + (1 - share) * whole.Height;
    std::vector<Box> rooms;
    if (framedFrom == 1) rooms.push_back({whole.X, whole.Y, whole.Width, top - whole.Y});
    const std::size_t inRow = FramesInRow(whole.Width);
    const std::size_t rows = (parts.size() - framedFrom + inRow - 1) / inRow;
    const double height = (whole.Bottom() - top) / static_cast<double>(rows);
    for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t first = framedFrom + row * inRow;
        const std::size_t last = std::min(parts.size(), first + inRow);
        double shares = 0;
        for (std::size_t i = first; i < last; ++i)
            shares += 1 + static_cast<double>(parts[i].Nodes.size());
        double left = whole.X;
        for (std::size_t i = first; i < last; ++i) {
            const double width = whole.Width * (1 + static_cast<double>(parts[i].Nodes.size())) / shares;
            rooms.push_back(
                Box{left, top + static_cast<double>(row) * height, width, height}.Grown(-kFrameRoom));
            left += width;
        }
    }
    return rooms;
}

struct Attempt {
    Placement Placed;
    int Faults = 0;
    int Crossings = 0;
};

Attempt Try(const Sized& sized, const std::vector<Part>& parts, const Extent& size, std::uint64_t seed)
{
    Attempt attempt;
    attempt.Placed.Size = size;
    attempt.Placed.Nodes.resize(sized.Count());
    attempt.Placed.Arcs.resize(sized.From.size());
    const std::vector<Box> rooms = RoomsOf(sized, parts, size);
    for (std::size_t part = 0; part < parts.size(); ++part) {
        Network network(sized, parts[part].Nodes, rooms[part]);
        network.Start(seed);
        for (std::size_t i = 0; i < parts[part].Nodes.size(); ++i) {
            const std::size_t node = parts[part].Nodes[i];
            attempt.Placed.Nodes[node].Place = Around(network.Places()[i], sized.Nodes[node]);
        }
        attempt.Faults += 10 * network.Faults();
        attempt.Crossings += network.Crossings();
    }
    DrawLinks(sized, attempt.Placed);
    PlaceLabels(sized, attempt.Placed);
    attempt.Faults += attempt.Placed.LeftOut;
    return attempt;
}

bool IsBetter(const Attempt& a, const Attempt& b)
{
    return a.Faults < b.Faults || (a.Faults == b.Faults && a.Crossings < b.Crossings);
}

}  // namespace

Extent LeastFree(const Sized& sized)
{
    if (sized.Count() == 0) return {};
    double widest = 0;
    for (const Extent& size : sized.Nodes)
        widest = std::max({widest, size.Width, size.Height});
    double label = 0;
    for (const Extent& size : sized.Labels)
        label = std::max(label, size.Width);
    const double cell = widest + std::max(50.0, label + 24);
    const double side = cell * std::sqrt(static_cast<double>(sized.Count()));
    const double frames = sized.Of.Frames.empty() ? 0 : 4 * kFrameRoom;
    const double width = std::max(140.0, 1.18 * side) + frames;
    const auto rows = sized.Of.Frames.size() / FramesInRow(width);
    return {width, std::max(100.0, side) + frames + static_cast<double>(rows) * (widest + 4 * kFrameRoom)};
}

Placement Free(const Sized& sized, const Extent& room)
{
    const Extent least = LeastFree(sized);
    const Extent size{std::max(room.Width, least.Width), std::max(room.Height, least.Height)};
    if (sized.Count() == 0) return {.Size = size};
    const std::vector<Part> parts = PartsOf(sized);
    Attempt best = Try(sized, parts, size, 1);
    int clean = best.Faults == 0 ? 1 : 0;
    for (std::uint64_t seed = 2; seed <= kStarts && clean < kCleanResults; ++seed) {
        if (clean > 0 && best.Crossings == 0) break;
        Attempt next = Try(sized, parts, size, seed);
        clean += next.Faults == 0;
        if (IsBetter(next, best)) best = std::move(next);
    }
    return std::move(best.Placed);
}

}  // namespace picture::layouts
