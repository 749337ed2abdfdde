// Decision problems for tests.
#pragma once

#include <vector>

#include "decision/VtDecisionAnalysis.h"

using Table = std::vector<std::vector<double>>;

// A problem without probabilities; alternatives in rows, states in columns.
inline void GivenPayoffs(const Table& payoffs, bool maximize, int criterion)
{
    Decision::Problem = {};
    Decision::Result = {};
    Decision::Problem.AlternativeCount = static_cast<std::int16_t>(payoffs.size());
    Decision::Problem.NatureStateCount = static_cast<std::int16_t>(payoffs[0].size());
    for (std::size_t i = 0; i < payoffs.size(); ++i)
        for (std::size_t j = 0; j < payoffs[i].size(); ++j)
            Decision::Problem.Payoff(static_cast<int>(i) + 1, static_cast<int>(j) + 1) = payoffs[i][j];
    Decision::Problem.Maximize = maximize ? "YES" : "NO";
    Decision::Problem.Criterion = criterion;
}

inline void GivenStateProbabilities(const std::vector<double>& prior)
{
    Decision::Problem.HasStateProbabilities = "YES";
    for (std::size_t j = 0; j < prior.size(); ++j)
        Decision::Problem.StatePrior(static_cast<int>(j) + 1) = prior[j];
}

// States in rows, outcomes in columns.
inline void GivenSample(const Table& likelihood)
{
    Decision::Problem.ComputeStrategy = "YES";
    Decision::Problem.IndicatorCount = static_cast<std::int16_t>(likelihood[0].size());
    for (std::size_t j = 0; j < likelihood.size(); ++j)
        for (std::size_t k = 0; k < likelihood[j].size(); ++k)
            Decision::Problem.IndicatorGivenState(static_cast<int>(j) + 1, static_cast<int>(k) + 1) =
                likelihood[j][k];
}

template <typename T>
std::vector<T> ListOf(const Array1<T>& array)
{
    std::vector<T> list;
    for (int i = 1; i <= array.Upper(); ++i)
        list.push_back(array(i));
    return list;
}
