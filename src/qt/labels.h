// Places for the labels of a chart: each has places to try in order, and takes the first at which it covers
// no mark, no bar and no other label; among those one that cuts no line is better.
#pragma once

#include <QLineF>
#include <QPainterPath>
#include <QRectF>
#include <QString>
#include <optional>
#include <vector>

#include "qt/look.h"

class QPainter;

namespace qt {

struct Label {
    QString Text;
    picture::Role As = picture::Role::Plain;
    std::vector<QRectF> Candidates;
    bool Quiet = false;                  // a figure: plain type whatever its role
    std::optional<QPointF> Anchor = {};  // the mark that it names: a line leads to it from afar
};

class Labels {
public:
    explicit Labels(const Look& look) : look_(look) {}

    void SetRoom(const QRectF& room, const QRectF& plot);
    void Avoid(const QRectF& area) { taken_.push_back(area); }
    void AvoidLine(const QPainterPath& path) { lines_.push_back(path.toSubpathPolygons()); }
    void Add(Label label);
    void Draw(QPainter& painter);  // the chosen ones are placed first
    [[nodiscard]] int LeftOut() const { return leftOut_; }

    // Places to try.
    [[nodiscard]] std::vector<QRectF> AroundPoint(const QString& text, picture::Role role,
                                                  const QPointF& at) const;
    [[nodiscard]] std::vector<QRectF> AlongLine(const QString& text, picture::Role role,
                                                const QPainterPath& path) const;
    [[nodiscard]] std::vector<QRectF> AtRule(const QString& text, picture::Role role,
                                             const QLineF& line) const;
    [[nodiscard]] std::vector<QRectF> Inside(const QString& text, picture::Role role,
                                             const QRectF& area) const;

private:
    void DrawLeader(QPainter& painter, const QRectF& place, const Label& label) const;
    [[nodiscard]] bool IsFree(const QRectF& place) const;
    [[nodiscard]] int LinesCut(const QRectF& place) const;
    [[nodiscard]] QSizeF Size(const QString& text, picture::Role role) const;

    const Look& look_;
    QRectF room_;
    QRectF plot_;
    std::vector<QRectF> taken_;
    std::vector<QList<QPolygonF>> lines_;
    std::vector<Label> labels_;
    int leftOut_ = 0;
};

}  // namespace qt
