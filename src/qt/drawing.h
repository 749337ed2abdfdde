// What charts and diagrams have in common when they are drawn: their items, texts on plates, arrowheads.
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <memory>
#include <vector>

#include "picture/picture.h"
#include "picture/plane.h"
#include "qt/look.h"

class QPainter;

namespace qt {

// Something in a picture that can be pointed at, reached by keys and marked by a step.
struct Item {
    QPainterPath Shape;
    QString Tip;
    QString Id;
    QPainterPath Aside = {};  // what a frame around it leaves free: the nodes at the ends of an arc
};

class Drawing {
public:
    virtual ~Drawing() = default;
    // The smallest size at which all of it can be read.
    [[nodiscard]] virtual QSizeF Least(const Look& look) = 0;
    // How much of the room's height it uses; the notes come below.
    [[nodiscard]] virtual double HeightIn(const QSizeF& room, const Look& look) = 0;
    // Draws into the room and tells what stands where.
    virtual std::vector<Item> Paint(QPainter& painter, const QRectF& room, const Look& look) = 0;
    // Of the item in focus; empty: none. What belongs to it alone is drawn with it.
    virtual void SetFocus(const QString& /*id*/) {}
    // What the last Paint had no place for.
    [[nodiscard]] virtual int LeftOut() const { return 0; }
    // Lines that it draws dashed, as they would be thinner than a pixel in proportion to their amounts.
    [[nodiscard]] virtual int TooThin() const { return 0; }
    [[nodiscard]] virtual int MostTooThin() const { return 0; }  // at the smallest size, once that is known
    // Where to begin when the picture is larger than its window.
    [[nodiscard]] virtual QPointF Start() const { return {}; }
};

std::unique_ptr<Drawing> DrawingOf(const picture::Picture& picture);

QSizeF SizeOf(const QString& text, const QFont& font);
picture::Measure MeasureIn(const QFont& font);
QRectF ToQt(const picture::Box& box);
QPointF ToQt(const picture::Point& point);

// A text on a plate of the ground's colour.
void DrawOnPlate(QPainter& painter, const QRectF& place, const QString& text, const Look& look,
                 picture::Role role);

// The head of an arrow whose line of this width ends in `tip`: as long as three widths and 5 more, two
// thirds as wide.
QPainterPath Arrowhead(const QPointF& from, const QPointF& tip, double width);

// Strokes across or beside a path, every `apart` pixels: from `left` to `right` of it (below 0: on the other
// side).
void StrokesAlong(QPainter& painter, const QPainterPath& path, double apart, double left, double right,
                  double slant);

}  // namespace qt
