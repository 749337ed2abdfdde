// Blocks of cells as spreadsheets put them on the clipboard.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <string>

namespace qt {

// Row by row. A row may be shorter than others.
using BlockText = QList<QStringList>;

// Cells parted by tabs, rows by line ends of any system; a cell in quotes may hold all of them, and two
// quotes in it are one. A line end behind the last row begins no further one. An empty text is no block.
[[nodiscard]] BlockText ReadBlock(const QString& text);
[[nodiscard]] QString WriteBlock(const BlockText& block);
// As a table.
[[nodiscard]] QString WriteHtml(const BlockText& block);
// In both ways.
void PutOnClipboard(const BlockText& block);

// Of its longest row.
[[nodiscard]] int ColumnsOf(const BlockText& block);

// What the user is told of a block that does not fit into so many rows and columns; empty when it does.
[[nodiscard]] std::string TooLargeText(const BlockText& block, int rows, int columns);

}  // namespace qt
