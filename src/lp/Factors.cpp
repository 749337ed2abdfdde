#include "lp/Factors.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "basic/number.h"

namespace {

constexpr int kStrip = 8;

using Sums = std::array<double, kStrip>;

std::size_t Index(int k)
{
    return static_cast<std::size_t>(k);
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

}  // namespace

void BasisFactors::Reset(int size, int capacity)
{
    size_ = size;
    u_ = Array2<double>(capacity, capacity);
    r_ = Array2<double>(capacity, capacity);
    for (int i = 1; i <= size; ++i)
        u_(i, i) = r_(i, i) = 1;
}

void BasisFactors::Multiply(const double* column, double* work) const
{
    for (int i = 1; i <= size_; ++i) {
        const double* row = r_.Row(i);
        double sum = 0;
        for (int c = 1; c <= size_; ++c)
            sum += row[c] * column[c];
        work[i] = sum;
    }
}

void BasisFactors::Solve(const double* work, double* solution) const
{
    for (int r = size_; r >= 1; --r) {
        const double* row = u_.Row(r);
        double rest = work[r];
        for (int c = r + 1; c <= size_; ++c)
            rest -= row[c] * solution[c];
        solution[r] = Divide(rest, row[r]);
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
    Array2<double> strip(size_, kStrip - 1);
    Array2<double> product(size_, kStrip - 1);
    for (int first = 0; first < count; first += kStrip) {
        const int width = std::min(kStrip, count - first);
        for (int i = 1; i <= size_; ++i)
            std::copy_n(block.Row(i) + first, width, strip.Row(i));
        MultiplyStrip(firstRow, strip, product);
        SolveStrip(firstRow, product, strip);
        for (int i = firstRow; i <= size_; ++i)
            std::copy_n(strip.Row(i), width, block.Row(i) + first);
    }
}

void BasisFactors::MultiplyStrip(int firstRow, const Array2<double>& strip, Array2<double>& product) const
{
    for (int i = firstRow; i <= size_; ++i) {
        const double* factors = r_.Row(i);
        Sums sums = {};
        for (int c = 1; c <= size_; ++c) {
            const double* entries = strip.Row(c);
            for (int k = 0; k < kStrip; ++k)
                sums[Index(k)] += factors[c] * entries[k];
        }
        std::copy_n(sums.data(), kStrip, product.Row(i));
    }
}

void BasisFactors::SolveStrip(int firstRow, const Array2<double>& product, Array2<double>& strip) const
{
    for (int r = size_; r >= firstRow; --r) {
        const double* factors = u_.Row(r);
        Sums rest;
        std::copy_n(product.Row(r), kStrip, rest.data());
        for (int c = r + 1; c <= size_; ++c) {
            const double* solved = strip.Row(c);
            for (int k = 0; k < kStrip; ++k)
                rest[Index(k)] -= factors[c] * solved[k];
        }
        const double diagonal = factors[r];
        if (diagonal == 0) Raise(ErrorNumber::DivisionByZero);
        double* solution = strip.Row(r);
        for (int k = 0; k < kStrip; ++k)
            solution[k] = rest[Index(k)] / diagonal;
    }
}

void BasisFactors::ReplaceColumn(int leaving, const double* work)
{
    for (int i = 1; i <= size_; ++i) {
        double* row = u_.Row(i);
        std::copy(row + leaving + 1, row + size_ + 1, row + leaving);
        row[size_] = work[i];
    }
    for (int k = leaving; k < size_; ++k)
        RestoreTriangle(k);
}

// Clears the entry below the diagonal in the column `k`.
void BasisFactors::RestoreTriangle(int k)
{
    double* upper = u_.Row(k);
    double* lower = u_.Row(k + 1);
    double* upperR = r_.Row(k);
    double* lowerR = r_.Row(k + 1);
    if (std::abs(lower[k]) > std::abs(upper[k])) {
        std::swap_ranges(upper + 1, upper + size_ + 1, lower + 1);
        std::swap_ranges(upperR + 1, upperR + size_ + 1, lowerR + 1);
    }
    const double factor = Divide(lower[k], upper[k]);
    lower[k] = 0;
    Subtract(factor, upperR, lowerR, 1, size_);
    Subtract(factor, upper, lower, k + 1, size_);
}
