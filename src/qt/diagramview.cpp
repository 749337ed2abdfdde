#include "qt/diagramview.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <optional>

#include "qt/text.h"

namespace qt {
namespace {

using picture::Arc;
using picture::Diagram;
using picture::Layout;
using picture::Node;
using picture::PlacedArc;
using picture::PlacedNode;
using picture::Placement;
using picture::Role;
using picture::Shape;

QPainterPath PathOf(const PlacedArc& placed)
{
    QPainterPath path;
    for (const picture::Point& point : placed.Path)
        path.elementCount() == 0 ? path.moveTo(ToQt(point)) : path.lineTo(ToQt(point));
    return path;
}

QPainterPath OutlineOf(Shape shape, const QRectF& place)
{
    QPainterPath path;
    switch (shape) {
        case Shape::Circle:
        case Shape::Ring:
            path.addEllipse(place);
            break;
        case Shape::Diamond:
            path.addPolygon(QPolygonF{
                QPointF(place.center().x(), place.top()), QPointF(place.right(), place.center().y()),
                QPointF(place.center().x(), place.bottom()), QPointF(place.left(), place.center().y())});
            path.closeSubpath();
            break;
        case Shape::Triangle: {
            const double side = std::min({14.0, place.height(), place.width()});
            const double top = place.center().y() - side / 2;
            path.addPolygon(QPolygonF{QPointF(place.left(), place.center().y()),
                                      QPointF(place.left() + side, top),
                                      QPointF(place.left() + side, top + side)});
            path.closeSubpath();
            break;
        }
        case Shape::Box:
        case Shape::Square:
            path.addRect(place);
            break;
    }
    return path;
}

bool IsChosen(Role role)
{
    return role == Role::Chosen || role == Role::Critical || role == Role::Best;
}

// One painting of a diagram that has been laid out.
class Sheet {
public:
    Sheet(const Diagram& diagram, const Placement& placement, QPainter& painter, const Look& look)
        : diagram_(diagram), placement_(placement), painter_(painter), look_(look)
    {
        for (const Arc& arc : diagram.Arcs)
            heaviest_ = std::max(heaviest_, arc.Weight);
        nodeItems_.resize(diagram.Nodes.size());
        arcItems_.resize(diagram.Arcs.size());
        constexpr double kAround = 40;  // what a badge, a fold or an arrowhead adds
        if (painter.hasClipping())
            shown_ = painter.clipBoundingRect().adjusted(-kAround, -kAround, kAround, kAround);
    }

    std::vector<Item> Paint()
    {
        DrawFrames();
        for (const bool strong : {false, true})
            for (std::size_t i = 0; i < diagram_.Arcs.size(); ++i)
                if (IsChosen(diagram_.Arcs[i].As) == strong) DrawArc(i);
        for (std::size_t i = 0; i < diagram_.Nodes.size(); ++i)
            DrawNode(i);
        SetEndsAside();
        for (std::size_t i = 0; i < diagram_.Arcs.size(); ++i)
            if (placement_.Arcs[i].Label && IsShown(ToQt(*placement_.Arcs[i].Label)))
                DrawOnPlate(painter_, ToQt(*placement_.Arcs[i].Label), ToQt(diagram_.Arcs[i].Text), look_,
                            diagram_.Arcs[i].As);
        std::vector<Item> items = std::move(nodeItems_);
        items.insert(items.end(), std::make_move_iterator(arcItems_.begin()),
                     std::make_move_iterator(arcItems_.end()));
        std::erase_if(items, [](const Item& item) { return item.Shape.isEmpty(); });
        return items;
    }

private:
    // A large diagram is mostly outside of its window.
    [[nodiscard]] bool IsShown(const QRectF& area) const
    {
        return !shown_ || (area.left() <= shown_->right() && area.right() >= shown_->left() &&
                           area.top() <= shown_->bottom() && area.bottom() >= shown_->top());
    }

    void DrawFrames()
    {
        for (std::size_t i = 0; i < placement_.Frames.size(); ++i) {
            const QRectF frame = ToQt(placement_.Frames[i]);
            QPen pen(look_.Axis, 1);
            pen.setDashPattern({6, 4});
            painter_.setPen(pen);
            painter_.setBrush(Qt::NoBrush);
            painter_.drawRoundedRect(frame, 6, 6);
            const QString text = ToQt(diagram_.Frames[i].Text);
            if (text.isEmpty()) continue;
            const QSizeF size = SizeOf(text, look_.Plain);
            DrawOnPlate(painter_, QRectF(frame.topLeft() + QPointF(10, -size.height() / 2), size), text,
                        look_, Role::Spare);
        }
    }

    [[nodiscard]] double WidthOf(std::size_t i) const
    {
        const Arc& arc = diagram_.Arcs[i];
        if (placement_.Arcs[i].Width > 0) return placement_.Arcs[i].Width;
        if (diagram_.Kind == Layout::Ring && heaviest_ > 0)
            return std::clamp(6 * arc.Weight / std::max(1.0, heaviest_), 1.0, arc.From == arc.To ? 4.0 : 6.0);
        return look_.Of(arc.As).Width;
    }

    void DrawArc(std::size_t i)
    {
        const Arc& arc = diagram_.Arcs[i];
        const PlacedArc& placed = placement_.Arcs[i];
        if (placed.Path.size() < 2) return;
        const double width = WidthOf(i);
        const QPainterPath path = PathOf(placed);
        QPainterPathStroker wide;
        wide.setWidth(std::max(8.0, width));
        arcItems_[i] = {wide.createStroke(path), ToQt(TipOf(arc)), ToQt(arc.Id)};
        if (placed.Label) arcItems_[i].Shape.addRect(ToQt(*placed.Label));
        if (IsShown(path.boundingRect().adjusted(-width, -width, width, width)))
            StrokeArc(arc, placed, width);
    }

    void SetEndsAside()
    {
        for (std::size_t i = 0; i < diagram_.Arcs.size(); ++i)
            for (std::size_t node = 0; node < diagram_.Nodes.size(); ++node)
                if (const std::string& id = diagram_.Nodes[node].Id;
                    id == diagram_.Arcs[i].From || id == diagram_.Arcs[i].To)
                    arcItems_[i].Aside.addPath(nodeItems_[node].Shape);
    }

    void StrokeArc(const Arc& arc, const PlacedArc& placed, double width)
    {
        const RoleLook look = look_.Of(arc.As);
        QPainterPath path = PathOf(placed);
        const QPointF tip = ToQt(placed.Path.back());
        painter_.setBrush(Qt::NoBrush);
        if (placed.Width > 0) {
            DrawRibbon(path, width, look);
        } else {
            const bool headed = arc.Directed && arc.Head && diagram_.Kind != Layout::Tree;
            if (headed) path = Shortened(placed.Path, 3 * width + 4);
            QPen pen = look_.Pen(look, width);
            if (arc.As == Role::Second) pen.setDashPattern({3, 2});  // dots are lost beside the others
            painter_.strokePath(path, pen);
            if (headed) painter_.fillPath(Arrowhead(path.currentPosition(), tip, width), look.Stroke);
            if (arc.As == Role::NotTaken) {
                painter_.setPen(QPen(look.Stroke, 1.5));
                CrossOut(placed.Path);
            }
        }
    }

    // In proportion to its amount; what would be thinner than a pixel is dashed.
    void DrawRibbon(const QPainterPath& path, double width, const RoleLook& look)
    {
        QColor color = look.Stroke;
        if (width <= 1) {
            QPen pen(color, 1);
            pen.setDashPattern({4, 3});
            painter_.strokePath(path, pen);
            return;
        }
        color.setAlphaF(width > 4 ? 0.45F : 0.8F);
        QPen pen(color, width);
        pen.setCapStyle(Qt::FlatCap);
        painter_.strokePath(path, pen);
    }

    // Without its last pixels, which an arrowhead covers.
    static QPainterPath Shortened(const std::vector<picture::Point>& points, double by)
    {
        std::vector<picture::Point> rest = points;
        while (rest.size() > 2 && picture::Distance(rest.back(), points.back()) < by &&
               picture::Distance(rest[rest.size() - 2], points.back()) < by)
            rest.pop_back();
        picture::Point& end = rest.back();
        const picture::Point& before = rest[rest.size() - 2];
        const double length = picture::Distance(before, points.back());
        const double share = length > by ? (length - by) / length : 0.05;
        end = {before.X + share * (points.back().X - before.X),
               before.Y + share * (points.back().Y - before.Y)};
        QPainterPath path;
        for (const picture::Point& point : rest)
            path.elementCount() == 0 ? path.moveTo(ToQt(point)) : path.lineTo(ToQt(point));
        return path;
    }

    // Two short strokes across the line: in a tree where it becomes level, else near its start.
    void CrossOut(const std::vector<picture::Point>& points)
    {
        const std::size_t first = points.size() > 2 && diagram_.Kind == Layout::Tree ? 1 : 0;
        const QPointF from = ToQt(points[first]);
        const QPointF to = ToQt(points[first + 1]);
        const QLineF line(from, to);
        if (line.length() < 1) return;
        const QPointF along = (to - from) / line.length();
        const QPointF across(-along.y(), along.x());
        const QPointF middle = from + along * std::min(line.length() / 2, first == 0 ? 12.0 : 5.0);
        for (const double shift : {-2.0, 2.0}) {
            const QPointF at = middle + shift * along;
            painter_.drawLine(at + 5 * (across + 0.4 * along), at - 5 * (across + 0.4 * along));
        }
    }

    [[nodiscard]] std::string TipOf(const Arc& arc) const
    {
        if (!arc.Tip.empty()) return arc.Tip;
        return arc.From + (arc.Directed ? " to " : " and ") + arc.To + (arc.Text.empty() ? "" : ": ") +
               arc.Text;
    }

    void DrawNode(std::size_t i)
    {
        const Node& node = diagram_.Nodes[i];
        const PlacedNode& placed = placement_.Nodes[i];
        const QRectF place = ToQt(placed.Place);
        const QPainterPath outline = OutlineOf(node.Form, place);
        QPainterPath shape = outline;
        if (placed.Text) shape.addRect(ToQt(*placed.Text));
        if (!node.Badge.empty()) {
            QPainterPath badge;
            badge.addEllipse(BadgeOf(node, place));
            shape = shape.united(badge);
        }
        nodeItems_[i] = {shape, ToQt(node.Tip.empty() ? Joined(node) : node.Tip), ToQt(node.Id)};
        if (!IsShown(shape.boundingRect())) return;
        const RoleLook look = look_.Of(node.As);
        const bool block = placed.Text.has_value();
        painter_.fillPath(outline, look_.Ground);
        if (block)
            DrawBlock(place, placed.Used, look);
        else if (look.Bold || look.Crossed || node.As == Role::Forecast || node.As == Role::Second)
            painter_.fillPath(outline, look.Fill);
        QPen pen(look.Stroke, look.Bold ? 2.5 : look.Crossed ? 2 : 1.2);
        if (node.As == Role::Spare || node.As == Role::NotTaken || look.Crossed) pen.setDashPattern({4, 3});
        painter_.strokePath(outline, pen);
        if (node.Form == Shape::Ring)
            painter_.strokePath(OutlineOf(Shape::Circle, place.adjusted(4, 4, -4, -4)),
                                QPen(look.Stroke, 1.2));
        if (node.Folded) DrawFold(place, look);
        DrawTexts(node, placed, place);
        if (!node.Badge.empty()) DrawBadge(node, place, look);
    }

    static std::string Joined(const Node& node)
    {
        std::string text;
        for (std::string line : node.Lines) {
            std::replace(line.begin(), line.end(), '\t', ' ');
            text += (text.empty() ? "" : "\n") + line;
        }
        return text;
    }

    // The used part of an amount is filled, the rest hatched.
    void DrawBlock(const QRectF& place, double used, const RoleLook& look)
    {
        const QRectF filled(place.topLeft(), QSizeF(place.width(), place.height() * used));
        painter_.fillRect(filled, look.Bold ? look.Stroke : look.Fill);
        const QRectF rest(filled.bottomLeft(), place.bottomRight());
        if (rest.height() > 0.5) painter_.fillRect(rest, QBrush(look.Stroke, Qt::BDiagPattern));
    }

    // Several lines behind each other: more stands there than is shown.
    void DrawFold(const QRectF& place, const RoleLook& look)
    {
        painter_.setPen(QPen(look.Stroke, 1.2));
        for (const double shift : {3.0, 6.0}) {
            painter_.drawLine(QPointF(place.right() + shift, place.top() + shift),
                              QPointF(place.right() + shift, place.bottom() + shift - 2));
            painter_.drawLine(QPointF(place.left() + shift, place.bottom() + shift - 2),
                              QPointF(place.right() + shift, place.bottom() + shift - 2));
        }
    }

    void DrawTexts(const Node& node, const PlacedNode& placed, const QRectF& place)
    {
        const double line = QFontMetricsF(look_.Bold).height();
        QRectF area = placed.Text ? ToQt(*placed.Text) : place;
        Qt::Alignment align = Qt::AlignCenter;
        if (placed.Text) align = area.x() < place.x() ? Qt::AlignRight : Qt::AlignLeft;
        if (!placed.Text && node.Form == Shape::Triangle) {
            area.setLeft(place.left() + 20);
            align = Qt::AlignLeft;
        }
        painter_.setFont(look_.FontOf(node.As));
        painter_.setPen(look_.Of(node.As).Text);
        double top = area.center().y() - line * static_cast<double>(node.Lines.size()) / 2;
        bool ruled = false;
        for (const std::string& text : node.Lines) {
            const QStringList fields = ToQt(text).split(QLatin1Char('\t'));
            const double width = area.width() / static_cast<double>(fields.size());
            for (qsizetype i = 0; i < fields.size(); ++i)
                painter_.drawText(
                    QRectF(area.left() + static_cast<double>(i) * width, top, width, line),
                    static_cast<int>(align | Qt::AlignVCenter) | static_cast<int>(Qt::TextDontClip),
                    fields[i]);
            ruled = ruled || fields.size() > 1;
            top += line;
        }
        if (ruled && !placed.Text) DrawFields(node, place, line);
    }

    // Thin rules between the fields of a box.
    void DrawFields(const Node& node, const QRectF& place, double line)
    {
        painter_.setPen(QPen(look_.Of(node.As).Stroke, 1));
        const auto count = static_cast<double>(node.Lines.size());
        const double first = place.center().y() - line * count / 2;
        for (std::size_t row = 0; row < node.Lines.size(); ++row) {
            const double top = row == 0 ? place.top() : first + line * static_cast<double>(row);
            const double bottom =
                row + 1 == node.Lines.size() ? place.bottom() : first + line * static_cast<double>(row + 1);
            if (row > 0) painter_.drawLine(QPointF(place.left(), top), QPointF(place.right(), top));
            const auto fields =
                static_cast<int>(std::count(node.Lines[row].begin(), node.Lines[row].end(), '\t')) + 1;
            for (int field = 1; field < fields; ++field) {
                const double x = place.left() + place.width() * field / fields;
                painter_.drawLine(QPointF(x, top), QPointF(x, bottom));
            }
        }
    }

    [[nodiscard]] QRectF BadgeOf(const Node& node, const QRectF& place) const
    {
        const QSizeF size = SizeOf(ToQt(node.Badge), look_.Plain);
        return ToQt(picture::BadgeAt({place.x(), place.y(), place.width(), place.height()},
                                     {size.width(), size.height()}));
    }

    void DrawBadge(const Node& node, const QRectF& place, const RoleLook& look)
    {
        const QString text = ToQt(node.Badge);
        const QRectF badge = BadgeOf(node, place);
        painter_.setPen(QPen(look.Stroke, 1.2));
        painter_.setBrush(look_.Ground);
        painter_.drawEllipse(badge);
        painter_.setFont(look_.Plain);
        painter_.setPen(look_.Text);
        painter_.drawText(badge, Qt::AlignCenter | Qt::TextDontClip, text);
        painter_.setBrush(Qt::NoBrush);
    }

    const Diagram& diagram_;
    const Placement& placement_;
    QPainter& painter_;
    const Look& look_;
    double heaviest_ = 0;
    std::optional<QRectF> shown_;  // nothing: all of it
    std::vector<Item> nodeItems_;
    std::vector<Item> arcItems_;
};

}  // namespace

DiagramView::DiagramView(picture::Diagram diagram) : diagram_(std::move(diagram))
{
}

QSizeF DiagramView::Least(const Look& look)
{
    if (!least_ || leastIn_ != look.Bold) {
        const bool ribbons = diagram_.Kind == Layout::TwoSides;
        const Placement smallest = ribbons ? Place(diagram_, {}, MeasureIn(look.Bold)) : Placement{};
        mostTooThin_ = smallest.TooThin;
        const picture::Extent least =
            ribbons ? smallest.Size : picture::LeastRoom(diagram_, MeasureIn(look.Bold));
        least_ = QSizeF(least.Width, least.Height);
        leastIn_ = look.Bold;
    }
    return *least_;
}

// A lower room that holds all of the last placement has the same one.
void DiagramView::PlaceIn(const QSizeF& room, const Look& look)
{
    const bool holds = room.width() == placedFor_.width() && room.height() <= placedFor_.height() &&
                       room.height() >= placement_.Size.Height;
    if ((room == placedFor_ || holds) && look.Bold == placedIn_) return;
    placement_ = picture::Place(diagram_, {room.width(), room.height()}, MeasureIn(look.Bold));
    placedFor_ = room;
    placedIn_ = look.Bold;
}

double DiagramView::HeightIn(const QSizeF& room, const Look& look)
{
    PlaceIn(room, look);
    return std::min(room.height(), placement_.Size.Height);
}

std::vector<Item> DiagramView::Paint(QPainter& painter, const QRectF& room, const Look& look)
{
    PlaceIn(room.size(), look);
    // What is smaller than the room stands in its middle.
    const QPointF corner =
        room.topLeft() + QPointF(std::max(0.0, room.width() - placement_.Size.Width) / 2,
                                 std::max(0.0, room.height() - placement_.Size.Height) / 2);
    painter.save();
    painter.translate(corner);
    std::vector<Item> items = Sheet(diagram_, placement_, painter, look).Paint();
    painter.restore();
    for (Item& item : items) {
        item.Shape.translate(corner);
        item.Aside.translate(corner);
    }
    return items;
}

QPointF DiagramView::Start() const
{
    for (std::size_t i = 0; i < diagram_.Nodes.size() && i < placement_.Nodes.size(); ++i)
        if (!diagram_.Start.empty() && diagram_.Nodes[i].Id == diagram_.Start)
            return ToQt(placement_.Nodes[i].Place).center();
    return {};
}

}  // namespace qt
