// Draws diagrams: nodes, arcs, frames.
#pragma once

#include <optional>

#include "picture/layout.h"
#include "qt/drawing.h"

namespace qt {

class DiagramView : public Drawing {
public:
    explicit DiagramView(picture::Diagram diagram);

    [[nodiscard]] QSizeF Least(const Look& look) override;
    [[nodiscard]] double HeightIn(const QSizeF& room, const Look& look) override;
    std::vector<Item> Paint(QPainter& painter, const QRectF& room, const Look& look) override;
    [[nodiscard]] int LeftOut() const override { return placement_.LeftOut; }
    [[nodiscard]] int TooThin() const override { return placement_.TooThin; }
    [[nodiscard]] int MostTooThin() const override { return mostTooThin_; }
    [[nodiscard]] QPointF Start() const override;

private:
    void PlaceIn(const QSizeF& room, const Look& look);

    picture::Diagram diagram_;
    picture::Placement placement_;  // for the room and the font below
    QSizeF placedFor_;
    QFont placedIn_;
    std::optional<QSizeF> least_;  // in the font below
    QFont leastIn_;
    int mostTooThin_ = 0;
};

}  // namespace qt
