// Charts that are tables: rows, columns, a shaded cell for each mark.
#pragma once

#include "qt/drawing.h"

namespace qt {

struct CellSizes {
    QFont Of = {};
    double Head = 0;  // width of the column with the rows' names
    double Cell = 0;  // the least width
    double Row = 0;
    double Titles = 0;  // height of the line with the titles of both axes
};

// Takes the widest text of all cells: to be kept as long as the font stays.
[[nodiscard]] CellSizes SizesOfCells(const picture::Chart& chart, const Look& look);
[[nodiscard]] QSizeF LeastOfCells(const picture::Chart& chart, const CellSizes& sizes);
std::vector<Item> PaintCells(const picture::Chart& chart, const CellSizes& sizes, QPainter& painter,
                             const QRectF& room, const Look& look);

}  // namespace qt
