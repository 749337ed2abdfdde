// The basis of a simplex method as two square tables of the size M x M, indexed from 1:
//
//     RFactor times the basis = UFactor, upper triangular
//
// A pivot takes one column out, shifts the columns behind it to the left and puts the new one last; the upper
// Hessenberg form that this leaves is made triangular again by eliminating row by row, two rows changing
// places when the lower one has the larger entry (Bartels and Golub). Nothing is ever rebuilt from scratch.
//
// Sums are taken term by term in ascending order: results are the same to the last bit wherever they are
// computed. Which entries of a row are not zero is kept beside the tables, a bit for each column, and the
// others are left out of sums: a zero adds nothing. Vectors are given by their element 0, which is not used.
// "Division by zero" (0 / 0: "Overflow") when a diagonal entry of UFactor is zero.
#pragma once

#include <cstdint>

#include "basic/array.h"

class BasisFactors {
public:
    static constexpr int kLargest = 63;

    // The identity of the given size, in tables that could hold one of the capacity, at most kLargest.
    void Reset(int size, int capacity);

    // work = R column.
    void Multiply(const double* column, double* work) const;
    // U solution = work.
    void Solve(const double* work, double* solution) const;
    // The transposed triangular system: U' prices = costs.
    void SolveTransposed(const double* costs, double* prices) const;
    // duals = R' prices.
    void MultiplyTransposed(const double* prices, double* duals) const;

    // Multiply and Solve for `count` columns at once: block(i, k), 1 to M by 0 to count - 1. Behind it the
    // rows from `firstRow` on hold the solutions; the rows above are not computed.
    void SolveBlock(int firstRow, int count, Array2<double>& block) const;

    // Takes out the column at the position `leaving`; `work` is R times the new column.
    void ReplaceColumn(int leaving, const double* work);

    [[nodiscard]] const Array2<double>& UFactor() const { return u_; }
    [[nodiscard]] const Array2<double>& RFactor() const { return r_; }

private:
    using Columns = std::uint64_t;  // a set of columns: the bit c for the column c

    void RestoreTriangle(int k);

    int size_ = 0;
    Array2<double> u_;
    Array2<double> r_;
    // By row: the entries that may be other than zero. Those of U below the diagonal are none of them.
    Array1<Columns> uFilled_;
    Array1<Columns> rFilled_;
};
