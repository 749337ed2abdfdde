// Queues as Markov chains: the balance equations of a chain, solved as they stand. What the closed formulas
// of the waiting lines are held against.
#pragma once

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

using Row = std::vector<double>;

// The solution of p * generator = 0 with the sum 1, by elimination with the largest pivot. generator[i][j] is
// the rate from state i to state j, i != j.
inline Row BalanceEquations(const std::vector<Row>& generator)
{
    const std::size_t n = generator.size();
    std::vector<Row> a(n, Row(n + 1, 0.0));
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < n; ++j) {
            if (i == j) continue;
            a[j][i] += generator[i][j];  // into j
            a[i][i] -= generator[i][j];  // out of i
        }
    }
    a[n - 1].assign(n + 1, 1.0);  // one balance follows from the others
    for (std::size_t pivot = 0; pivot < n; ++pivot) {
        std::size_t largest = pivot;
        for (std::size_t row = pivot; row < n; ++row)
            if (std::abs(a[row][pivot]) > std::abs(a[largest][pivot])) largest = row;
        std::swap(a[pivot], a[largest]);
        for (std::size_t row = 0; row < n; ++row) {
            const double factor = row == pivot ? 0 : a[row][pivot] / a[pivot][pivot];
            for (std::size_t column = pivot; factor != 0 && column <= n; ++column)
                a[row][column] -= factor * a[pivot][column];
        }
    }
    Row p(n);
    for (std::size_t i = 0; i < n; ++i)
        p[i] = a[i][n] / a[i][i];
    return p;
}

// States 0 to the size of `up`: up[n] is the rate from n to n + 1, down[n] that from n + 1 to n.
inline Row BirthDeath(const Row& up, const Row& down)
{
    std::vector<Row> generator(up.size() + 1, Row(up.size() + 1, 0.0));
    for (std::size_t n = 0; n < up.size(); ++n) {
        generator[n][n + 1] = up[n];
        generator[n + 1][n] = down[n];
    }
    return BalanceEquations(generator);
}
