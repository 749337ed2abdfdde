// Draws charts: axes, curves, bars, areas, intervals, tables.
#pragma once

#include <optional>

#include "qt/cells.h"

namespace qt {

class ChartView : public Drawing {
public:
    explicit ChartView(picture::Chart chart);

    [[nodiscard]] QSizeF Least(const Look& look) override;
    [[nodiscard]] double HeightIn(const QSizeF& room, const Look& look) override;
    std::vector<Item> Paint(QPainter& painter, const QRectF& room, const Look& look) override;
    void SetFocus(const QString& id) override { focus_ = id; }
    [[nodiscard]] int LeftOut() const override { return leftOut_; }

private:
    const CellSizes& Cells(const Look& look);

    picture::Chart chart_;
    std::optional<CellSizes> cells_;  // of a table
    QString focus_;
    int leftOut_ = 0;
};

}  // namespace qt
