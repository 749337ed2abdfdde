#include "qt/gridmodel.h"

#include "basic/error.h"

namespace qt {

void GridModel::Resize(int rows, int columns, int fixedRows, int fixedColumns)
{
    if (rows < 0 || columns < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    beginResetModel();
    rows_ = rows;
    columns_ = columns;
    fixedRows_ = fixedRows;
    fixedColumns_ = fixedColumns;
    texts_ = QList<QString>(static_cast<qsizetype>(rows) * columns);
    endResetModel();
}

bool GridModel::Has(int row, int column) const
{
    return row >= 0 && row < rows_ && column >= 0 && column < columns_;
}

qsizetype GridModel::Place(int row, int column) const
{
    if (!Has(row, column)) Raise(ErrorNumber::SubscriptOutOfRange);
    return static_cast<qsizetype>(row) * columns_ + column;
}

const QString& GridModel::Text(int row, int column) const
{
    return texts_[Place(row, column)];
}

void GridModel::SetText(int row, int column, const QString& text)
{
    QString& held = texts_[Place(row, column)];
    if (held == text) return;
    held = text;
    const QModelIndex at = index(row, column);
    emit dataChanged(at, at, {Qt::DisplayRole});
    if (row < fixedRows_) emit headerDataChanged(Qt::Horizontal, column, column);
    if (column < fixedColumns_) emit headerDataChanged(Qt::Vertical, row, row);
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (!Has(index.row(), index.column())) return {};
    if (role == Qt::DisplayRole) return Text(index.row(), index.column());
    if (role == Qt::AccessibleTextRole && !IsFixed(index.row(), index.column()))
        return SpokenText(index.row(), index.column());
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

// What stands beside the cell and above it, and then its text: "Origin 1, Supply: 40".
QString GridModel::SpokenText(int row, int column) const
{
    QString place = HeaderText(row, Qt::Vertical);
    if (fixedRows_ > 0 && fixedColumns_ > 0) place = HeadingOf(0) + QLatin1Char(' ') + place;
    const QString where = (place + QLatin1String(", ") + HeadingOf(column)).simplified();
    const QString& text = Text(row, column);
    return text.isEmpty() ? where : where + QLatin1String(": ") + text;
}

QString GridModel::HeadingOf(int column) const
{
    QStringList lines;
    for (int row = 0; row < fixedRows_ && Has(row, column); ++row)
        lines.append(Text(row, column));
    return lines.join(QLatin1Char('\n'));
}

// The headers show what the fixed rows, one below the other, and the last fixed column hold.
QString GridModel::HeaderText(int section, Qt::Orientation orientation) const
{
    if (orientation == Qt::Horizontal) return HeadingOf(section);
    const int column = fixedColumns_ - 1;
    return Has(section, column) ? Text(section, column) : QString();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::DisplayRole) return HeaderText(section, orientation).trimmed();
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue((orientation == Qt::Horizontal ? Qt::AlignRight : Qt::AlignLeft) |
                                   Qt::AlignVCenter);
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const
{
    if (IsFixed(index.row(), index.column())) return Qt::ItemIsEnabled;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

}  // namespace qt
