#include "lp/Factors.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <span>
#include <vector>

#include "basic/number.h"

namespace {

constexpr int kStrip = 8;

using Sums = std::array<double, kStrip>;

std::size_t Index(int k)
{
    return static_cast<std::size_t>(k);
}

std::uint64_t ColumnBit(int column)
{
    return std::uint64_t{1} << column;
}

// The columns of a row that are not zero.
std::uint64_t FilledColumns(const double* row, int last)
{
    std::uint64_t filled = 0;
    for (int c = 1; c <= last; ++c)
        if (row[c] != 0) filled |= ColumnBit(c);
    return filled;
}

// Calls `use` for the columns of a set in ascending order.
template <typename Use>
void ForEachColumn(std::uint64_t columns, Use use)
{
    for (; columns != 0; columns &= columns - 1)
        use(std::countr_zero(columns));
}

// target -= factor * source, element by element. Adding nothing is left out.
void Subtract(double factor, const double* source, double* target, int first, int last)
{
    if (factor == 0) return;
    for (int i = first; i <= last; ++i)
        target[i] -= factor * source[i];
}

void Add(double factor, const double* source, double* target, int first, int last)
{
    if (factor == 0) return;
    for (int i = first; i <= last; ++i)
        target[i] += factor * source[i];
}

// The entries of some rows of a table that are not zero, in ascending order of their columns: a zero adds
// nothing to a sum.
class Entries {
public:
    struct Entry {
        int Column;
        double Value;
    };

    Entries(int rows, int columns)
    {
        entries_.reserve(Index(rows) * Index(columns));
        ends_.reserve(Index(rows));
    }

    void AddRow(const double* row, int first, int last)
    {
        for (int c = first; c <= last; ++c)
            if (row[c] != 0) entries_.push_back({c, row[c]});
        ends_.push_back(entries_.size());
    }
    // Rows count from 0, in the order in which they were added.
    [[nodiscard]] std::span<const Entry> Row(int row) const
    {
        const std::size_t begin = row == 0 ? 0 : ends_[Index(row - 1)];
        return std::span(entries_).subspan(begin, ends_[Index(row)] - begin);
    }

private:
    std::vector<Entry> entries_;
    std::vector<std::size_t> ends_;
};

// Both tables from a row on, for a few columns side by side.
class StripSolver {
public:
    StripSolver(const Array2<double>& r, const Array2<double>& u, int firstRow, int lastRow)
        : u_(u),
          first_(firstRow),
          last_(lastRow),
          factors_(lastRow - firstRow + 1, lastRow),
          above_(lastRow - firstRow + 1, lastRow)
    {
        for (int i = firstRow; i <= lastRow; ++i) {
            factors_.AddRow(r.Row(i), 1, lastRow);
            above_.AddRow(u.Row(i), i + 1, lastRow);
        }
    }

    void Multiply(const Array2<double>& strip, Array2<double>& product) const
    {
        for (int i = first_; i <= last_; ++i) {
            Sums sums = {};
            for (const Entries::Entry& factor : factors_.Row(i - first_)) {
                const double* entries = strip.Row(factor.Column);
                for (int k = 0; k < kStrip; ++k)
                    sums[Index(k)] += factor.Value * entries[k];
            }
            std::copy_n(sums.data(), kStrip, product.Row(i));
        }
    }

    void Solve(const Array2<double>& product, Array2<double>& strip) const
    {
        for (int r = last_; r >= first_; --r) {
            Sums rest;
            std::copy_n(product.Row(r), kStrip, rest.data());
            for (const Entries::Entry& factor : above_.Row(r - first_)) {
                const double* solved = strip.Row(factor.Column);
                for (int k = 0; k < kStrip; ++k)
                    rest[Index(k)] -= factor.Value * solved[k];
            }
            const double diagonal = u_(r, r);
            if (diagonal == 0) Raise(ErrorNumber::DivisionByZero);
            double* solution = strip.Row(r);
            for (int k = 0; k < kStrip; ++k)
                solution[k] = rest[Index(k)] / diagonal;
        }
    }

private:
    const Array2<double>& u_;
    int first_;
    int last_;
    Entries factors_;
    Entries above_;  // the diagonal
};

}  // namespace

void BasisFactors::Reset(int size, int capacity)
{
    if (capacity > kLargest) Raise(ErrorNumber::SubscriptOutOfRange);
    size_ = size;
    u_ = r_ = Array2<double>(capacity, capacity);
    uFilled_ = rFilled_ = Array1<Columns>(capacity);
    for (int i = 1; i <= size; ++i) {
        u_(i, i) = r_(i, i) = 1;
        uFilled_(i) = rFilled_(i) = ColumnBit(i);
    }
}

void BasisFactors::Multiply(const double* column, double* work) const
{
    const Columns filled = FilledColumns(column, size_);
    for (int i = 1; i <= size_; ++i) {
        const double* row = r_.Row(i);
        double sum = 0;
        ForEachColumn(filled & rFilled_(i), [&](int c) { sum += row[c] * column[c]; });
        work[i] = sum;
    }
}

void BasisFactors::Solve(const double* work, double* solution) const
{
    Columns filled = 0;  // of the solution
    for (int r = size_; r >= 1; --r) {
        const double* row = u_.Row(r);
        double rest = work[r];
        ForEachColumn(filled & uFilled_(r), [&](int c) { rest -= row[c] * solution[c]; });
        solution[r] = Divide(rest, row[r]);
        if (solution[r] != 0) filled |= ColumnBit(r);
    }
}

void BasisFactors::SolveTransposed(const double* costs, double* prices) const
{
    std::copy_n(costs + 1, size_, prices + 1);
    for (int k = 1; k <= size_; ++k) {
        const double* row = u_.Row(k);
        prices[k] = Divide(prices[k], row[k]);
        Subtract(prices[k], row, prices, k + 1, size_);
    }
}

void BasisFactors::MultiplyTransposed(const double* prices, double* duals) const
{
    std::fill_n(duals + 1, size_, 0.0);
    for (int r = 1; r <= size_; ++r)
        Add(prices[r], r_.Row(r), duals, 1, size_);
}

// The columns go through in strips that stay in the nearest cache, their sums in registers.
void BasisFactors::SolveBlock(int firstRow, int count, Array2<double>& block) const
{
    const StripSolver solver(r_, u_, firstRow, size_);
    Array2<double> strip(size_, kStrip - 1);
    Array2<double> product(size_, kStrip - 1);
    for (int first = 0; first < count; first += kStrip) {
        const int width = std::min(kStrip, count - first);
        for (int i = 1; i <= size_; ++i)
            std::copy_n(block.Row(i) + first, width, strip.Row(i));
        solver.Multiply(strip, product);
        solver.Solve(product, strip);
        for (int i = firstRow; i <= size_; ++i)
            std::copy_n(strip.Row(i), width, block.Row(i) + first);
    }
}

void BasisFactors::ReplaceColumn(int leaving, const double* work)
{
    const Columns before = ColumnBit(leaving) - 1;
    for (int i = 1; i <= size_; ++i) {
        double* row = u_.Row(i);
        std::copy(row + leaving + 1, row + size_ + 1, row + leaving);
        row[size_] = work[i];
        Columns& filled = uFilled_(i);
        filled = (filled & before) | (filled >> 1 & ~before);
        if (work[i] != 0) filled |= ColumnBit(size_);
    }
    for (int k = leaving; k < size_; ++k)
        RestoreTriangle(k);
}

// Clears the entry below the diagonal in the column `k`. In front of it both rows of U are zero.
void BasisFactors::RestoreTriangle(int k)
{
    double* upper = u_.Row(k);
    double* lower = u_.Row(k + 1);
    double* upperR = r_.Row(k);
    double* lowerR = r_.Row(k + 1);
    if (std::abs(lower[k]) > std::abs(upper[k])) {
        std::swap_ranges(upper + k, upper + size_ + 1, lower + k);
        std::swap_ranges(upperR + 1, upperR + size_ + 1, lowerR + 1);
        std::swap(uFilled_(k), uFilled_(k + 1));
        std::swap(rFilled_(k), rFilled_(k + 1));
    }
    const double factor = Divide(lower[k], upper[k]);
    lower[k] = 0;
    if (factor != 0) {
        Subtract(factor, upperR, lowerR, 1, size_);
        Subtract(factor, upper, lower, k + 1, size_);
        rFilled_(k + 1) |= rFilled_(k);
        uFilled_(k + 1) |= uFilled_(k);
    }
    uFilled_(k + 1) &= ~ColumnBit(k);
}
