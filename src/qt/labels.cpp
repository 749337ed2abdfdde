#include "qt/labels.h"

#include <QPainter>
#include <algorithm>

#include "picture/plane.h"
#include "qt/drawing.h"

namespace qt {
namespace {

constexpr double kAway = 5;  // of a label from its point or line

bool Cuts(const QRectF& place, const QPolygonF& line)
{
    const picture::Box box{place.x(), place.y(), place.width(), place.height()};
    for (qsizetype i = 0; i + 1 < line.size(); ++i)
        if (picture::Crosses(box, {line[i].x(), line[i].y()}, {line[i + 1].x(), line[i + 1].y()}))
            return true;
    return false;
}

}  // namespace

void Labels::SetRoom(const QRectF& room, const QRectF& plot)
{
    room_ = room;
    plot_ = plot;
}

void Labels::Add(Label label)
{
    if (!label.Text.isEmpty()) labels_.push_back(std::move(label));
}

QSizeF Labels::Size(const QString& text, picture::Role role) const
{
    return SizeOf(text, look_.FontOf(role));
}

std::vector<QRectF> Labels::AroundPoint(const QString& text, picture::Role role, const QPointF& at) const
{
    const QSizeF size = Size(text, role);
    const double w = size.width();
    const double h = size.height();
    std::vector<QRectF> places;
    for (const double away : {kAway, 3 * kAway, 6 * kAway, 10 * kAway})
        for (const QPointF& corner :
             {QPointF(away, -h - away / 2), QPointF(away, away / 2), QPointF(-w - away, -h - away / 2),
              QPointF(-w - away, away / 2), QPointF(-w / 2, -h - away - 1), QPointF(-w / 2, away + 1),
              QPointF(away + 3, -h / 2), QPointF(-w - away - 3, -h / 2),
              // Flush with the point, above or below it: beside an axis, or where others stand to both sides.
              QPointF(-kAway, -h - away - 1), QPointF(kAway - w, -h - away - 1), QPointF(-kAway, away + 1),
              QPointF(kAway - w, away + 1)})
            places.emplace_back(at + corner, size);
    return places;
}

// At the end of the line, else above or below it, from its end backwards.
std::vector<QRectF> Labels::AlongLine(const QString& text, picture::Role role, const QPainterPath& path) const
{
    const QSizeF size = Size(text, role);
    std::vector<QRectF> places;
    const QPointF end = path.pointAtPercent(1);
    for (const double lift : {0.0, -0.6, 0.6, -1.1, 1.1})
        places.emplace_back(end + QPointF(kAway, (lift - 0.5) * size.height()), size);
    for (const double share : {0.97, 0.9, 0.82, 0.74, 0.66, 0.55, 0.45, 0.35, 0.25, 0.15, 0.06}) {
        const QPointF at = path.pointAtPercent(share);
        places.emplace_back(at + QPointF(kAway, -size.height() - 2), size);
        places.emplace_back(at + QPointF(-size.width() - kAway, -size.height() - 2), size);
        places.emplace_back(at + QPointF(kAway, 2), size);
        places.emplace_back(at + QPointF(-size.width() - kAway, 2), size);
        places.emplace_back(at + QPointF(-size.width() / 2, -size.height() - kAway), size);
        places.emplace_back(at + QPointF(-size.width() / 2, kAway), size);
    }
    for (const double share : {0.8, 0.65, 0.5, 0.35, 0.2})
        places.emplace_back(path.pointAtPercent(share) - QPointF(size.width() / 2, size.height() / 2), size);
    return places;
}

std::vector<QRectF> Labels::AtRule(const QString& text, picture::Role role, const QLineF& line) const
{
    const QSizeF size = Size(text, role);
    std::vector<QRectF> places;
    if (line.dx() == 0) {
        for (const double away : {kAway, 7 * kAway}) {  // the second beside a bar that stands on the line
            double y = line.y1() + 1;
            while (y + size.height() < line.y2()) {
                places.emplace_back(QPointF(line.x1() + away, y), size);
                places.emplace_back(QPointF(line.x1() - away - size.width(), y), size);
                y += size.height() + 2;
            }
        }
        return places;
    }
    places.emplace_back(QPointF(line.x2() + kAway, line.y1() - size.height() / 2), size);
    constexpr double kOverMarks = 7;  // of a label that stands above or below the marks on the line
    for (const double away : {2.0, kOverMarks}) {
        double x = line.x2() - size.width() - 1;
        while (x > line.x1()) {
            places.emplace_back(QPointF(x, line.y1() - size.height() - away), size);
            places.emplace_back(QPointF(x, line.y1() + away), size);
            x -= size.width() / 6 + 2;
        }
    }
    return places;
}

std::vector<QRectF> Labels::Inside(const QString& text, picture::Role role, const QRectF& area) const
{
    const QSizeF size = Size(text, role);
    std::vector<QRectF> places;
    const QRectF shown = area & plot_;
    double y = shown.top() + 2;
    while (y + size.height() <= plot_.bottom()) {
        const double middle = shown.center().x() - size.width() / 2;
        places.emplace_back(QPointF(std::max(plot_.left() + 2, middle), y), size);
        places.emplace_back(QPointF(shown.left() + 2, y), size);
        places.emplace_back(QPointF(shown.right() + 3, y), size);
        y += size.height() + 2;
    }
    return places;
}

bool Labels::IsFree(const QRectF& place) const
{
    if (!room_.contains(place)) return false;
    return std::none_of(taken_.begin(), taken_.end(),
                        [&](const QRectF& taken) { return taken.intersects(place); });
}

int Labels::LinesCut(const QRectF& place) const
{
    int cut = 0;
    for (const auto& line : lines_)
        cut +=
            std::any_of(line.begin(), line.end(), [&](const QPolygonF& part) { return Cuts(place, part); });
    return cut;
}

// From the edge of a label that stands far from its mark to the mark's own edge.
void Labels::DrawLeader(QPainter& painter, const QRectF& place, const Label& label) const
{
    constexpr double kFar = 20;
    constexpr double kMark = 6;
    if (!label.Anchor) return;
    const QPointF mark = *label.Anchor;
    const QPointF edge(std::clamp(mark.x(), place.left(), place.right()),
                       std::clamp(mark.y(), place.top(), place.bottom()));
    QLineF line(edge, mark);
    if (line.length() < kFar) return;
    line.setLength(line.length() - kMark);
    painter.setPen(QPen(look_.Of(label.As).Stroke, 1));
    painter.drawLine(line);
}

void Labels::Draw(QPainter& painter)
{
    std::stable_sort(labels_.begin(), labels_.end(), [this](const Label& a, const Label& b) {
        return look_.Of(a.As).Bold && !look_.Of(b.As).Bold;
    });
    for (const Label& label : labels_) {
        const QRectF* best = nullptr;
        int least = 0;
        for (const QRectF& place : label.Candidates) {
            if (!IsFree(place)) continue;
            const int cut = LinesCut(place);
            if (best != nullptr && cut >= least) continue;
            best = &place;
            least = cut;
            if (cut == 0) break;
        }
        if (best == nullptr) {
            ++leftOut_;
            continue;
        }
        constexpr double kBetween = 3;  // labels beside each other are told apart
        taken_.push_back(best->adjusted(-kBetween, 0, kBetween, 0));
        DrawLeader(painter, *best, label);
        DrawOnPlate(painter, *best, label.Text, look_, label.As);
    }
}

}  // namespace qt
