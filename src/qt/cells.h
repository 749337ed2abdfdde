// Charts that are tables: rows, columns, a shaded cell for each mark.
#pragma once

#include "qt/drawing.h"

namespace qt {

[[nodiscard]] QSizeF LeastOfCells(const picture::Chart& chart, const Look& look);
std::vector<Item> PaintCells(const picture::Chart& chart, QPainter& painter, const QRectF& room,
                             const Look& look);

}  // namespace qt
