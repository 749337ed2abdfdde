// The texts of an entry grid. The fixed row and column are ordinary cells of it; the view shows them in its
// headers.
#pragma once

#include <QAbstractTableModel>
#include <QList>

namespace qt {

class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void Resize(int rows, int columns, int fixedRows, int fixedColumns);
    [[nodiscard]] bool Has(int row, int column) const;
    [[nodiscard]] const QString& Text(int row, int column) const;         // "Subscript out of range"
    void SetText(int row, int column, const QString& text);               // likewise
    [[nodiscard]] QString HeadingOf(int column) const;                    // its fixed rows, a line each
    [[nodiscard]] const QList<QString>& Texts() const { return texts_; }  // row by row

    [[nodiscard]] int Rows() const { return rows_; }
    [[nodiscard]] int Columns() const { return columns_; }
    [[nodiscard]] int FixedRows() const { return fixedRows_; }
    [[nodiscard]] int FixedColumns() const { return fixedColumns_; }
    [[nodiscard]] bool IsFixed(int row, int column) const
    {
        return row < fixedRows_ || column < fixedColumns_;
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    [[nodiscard]] qsizetype Place(int row, int column) const;
    [[nodiscard]] QString HeaderText(int section, Qt::Orientation orientation) const;
    [[nodiscard]] QString SpokenText(int row, int column) const;

    int rows_ = 0;
    int columns_ = 0;
    int fixedRows_ = 0;
    int fixedColumns_ = 0;
    QList<QString> texts_;
};

}  // namespace qt
