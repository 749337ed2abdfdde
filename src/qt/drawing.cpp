#include "qt/drawing.h"

#include <QFontMetricsF>
#include <QLineF>
#include <QPainter>
#include <QtMath>
#include <cmath>

#include "qt/chartview.h"
#include "qt/diagramview.h"
#include "qt/text.h"

namespace qt {

std::unique_ptr<Drawing> DrawingOf(const picture::Picture& picture)
{
    if (const auto* chart = std::get_if<picture::Chart>(&picture.Body))
        return std::make_unique<ChartView>(*chart);
    return std::make_unique<DiagramView>(std::get<picture::Diagram>(picture.Body));
}

QSizeF SizeOf(const QString& text, const QFont& font)
{
    const QFontMetricsF metrics(font);
    return {std::ceil(metrics.horizontalAdvance(text)), std::ceil(metrics.height())};
}

picture::Measure MeasureIn(const QFont& font)
{
    return [font](std::string_view text) {
        const QSizeF size = SizeOf(ToQt(text), font);
        return picture::Extent{size.width(), size.height()};
    };
}

QRectF ToQt(const picture::Box& box)
{
    return {box.X, box.Y, box.Width, box.Height};
}

QPointF ToQt(const picture::Point& point)
{
    return {point.X, point.Y};
}

void DrawOnPlate(QPainter& painter, const QRectF& place, const QString& text, const Look& look,
                 picture::Role role)
{
    painter.fillRect(place.adjusted(-1, 0, 1, 0), look.Ground);
    painter.setFont(look.FontOf(role));
    painter.setPen(look.Of(role).Text);
    painter.drawText(place, Qt::AlignCenter | Qt::TextDontClip, text);
}

QPainterPath Arrowhead(const QPointF& from, const QPointF& tip, double width)
{
    const double length = 3 * width + 5;
    const double half = length / 3;
    const QLineF line(from, tip);
    QPainterPath head;
    if (line.length() == 0) return head;
    const QPointF along = (tip - from) / line.length();
    const QPointF across(-along.y(), along.x());
    head.moveTo(tip);
    head.lineTo(tip - length * along + half * across);
    head.lineTo(tip - length * along - half * across);
    head.closeSubpath();
    return head;
}

void StrokesAlong(QPainter& painter, const QPainterPath& path, double apart, double left, double right,
                  double slant)
{
    const double length = path.length();
    const int strokes = qCeil(length / apart - 0.5);
    for (int stroke = 0; stroke < strokes; ++stroke) {
        const double at = (stroke + 0.5) * apart;
        const double share = path.percentAtLength(at);
        const QPointF middle = path.pointAtPercent(share);
        const double angle = path.angleAtPercent(share) * M_PI / 180;
        const QPointF along(std::cos(angle), -std::sin(angle));
        const QPointF toTheLeft(along.y(), -along.x());
        painter.drawLine(middle + left * (toTheLeft - slant * along),
                         middle - right * (toTheLeft - slant * along));
    }
}

}  // namespace qt
