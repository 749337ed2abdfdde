// A grid of texts with fixed rows and columns at its top and left and a current cell. Rows and columns count
// from 0, the fixed ones included. An index outside raises "Subscript out of range", and so does a size below
// 0.
#pragma once

#include <string>
#include <string_view>

class Grid {
public:
    virtual ~Grid() = default;
    // Empties every cell. The current cell becomes (1, 1), or (0, 0) where there is no such cell.
    virtual void Resize(int rows, int columns, int fixedRows = 1, int fixedColumns = 1) = 0;
    [[nodiscard]] virtual int Rows() const = 0;
    [[nodiscard]] virtual int Columns() const = 0;
    [[nodiscard]] virtual std::string Text(int row, int column) const = 0;
    virtual void SetText(int row, int column, std::string_view text) = 0;
    [[nodiscard]] virtual int Row() const = 0;
    [[nodiscard]] virtual int Column() const = 0;
    // Commits what the user has changed in the current cell and not left yet. False: it was refused, and
    // told; the cell stays the current one.
    virtual bool FinishEdit() = 0;
    // The check of the cell has refused it: it becomes the current one, blank, and waits to be entered again.
    virtual void Reject(int row, int column) = 0;
    // Makes the cell the current one, without checking the one that is left; what was being typed stays.
    virtual void Select(int row, int column) = 0;
    // In characters of the grid's font; the default fits ten digits.
    virtual void SetColumnWidth(int column, int characters) = 0;
    virtual void SetFocus() = 0;
};
