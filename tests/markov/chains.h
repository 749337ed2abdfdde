// Transition matrices for the Markov tests.
#pragma once

#include <cmath>
#include <random>
#include <vector>

#include "markov/Markov.h"

using Rows = std::vector<std::vector<double>>;

inline void Given(const Rows& rows)
{
    Markov::Problem.StateCount = static_cast<int>(rows.size());
    Markov::MakeArrays();
    for (int from = 1; from <= Markov::Problem.StateCount; ++from)
        for (int to = 1; to <= Markov::Problem.StateCount; ++to)
            Markov::Problem.TransitionMatrix(from, to) =
                rows[static_cast<std::size_t>(from) - 1][static_cast<std::size_t>(to) - 1];
}

// What a solve leaves for the report.
inline void Analyse()
{
    Markov::Result = Markov::Solve(Markov::Problem);
}

// n states, each of which goes to the next and the last to the first.
inline Rows Ring(int n)
{
    Rows rows(static_cast<std::size_t>(n), std::vector<double>(static_cast<std::size_t>(n), 0.0));
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i][(i + 1) % rows.size()] = 1;
    return rows;
}

// The first states go to the last ones, which are never left, each with the same probability.
inline Rows Absorbing(int leaving, int absorbing)
{
    const auto first = static_cast<std::size_t>(leaving);
    const std::size_t n = first + static_cast<std::size_t>(absorbing);
    Rows rows(n, std::vector<double>(n, 0.0));
    for (std::size_t i = 0; i < n; ++i) {
        if (i >= first)
            rows[i][i] = 1;
        else
            for (std::size_t j = first; j < n; ++j)
                rows[i][j] = 1.0 / absorbing;
    }
    return rows;
}

// A chain of 1 to 10 states: dense or thin, now and then with states that are never left, with rows of two
// decimals.
inline Rows RandomChain(std::mt19937& random)
{
    const std::size_t n = 1 + random() % 10;
    const unsigned thin = random() % 4;
    Rows rows(n, std::vector<double>(n, 0.0));
    for (std::size_t i = 0; i < n; ++i) {
        int left = 100;
        if (random() % 6 == 0) {
            rows[i][i] = 1;
            continue;
        }
        for (std::size_t j = 0; j < n && left > 0; ++j) {
            if (random() % 4 < thin) continue;
            const int part =
                static_cast<int>(random() % static_cast<unsigned>(left + 1)) / (thin == 0 ? 3 : 1);
            rows[i][j] = part / 100.0;
            left -= part;
        }
        const std::size_t rest = random() % n;
        rows[i][rest] = (std::round(rows[i][rest] * 100) + left) / 100.0;
    }
    return rows;
}
