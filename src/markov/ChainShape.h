// The shape of a chain, and what elimination makes of it: groups, periods, the shares and chances that the
// repeated steps go to. What stands beside the report is told by these; the report itself by the steps alone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "markov/Markov.h"

namespace Markov {

using Group = std::vector<int>;  // states, ascending

class ChainShape {
public:
    explicit ChainShape(const MarkovProblem& problem);

    [[nodiscard]] int States() const { return n_; }
    [[nodiscard]] double Chance(int from, int to) const { return matrix_(from, to); }
    [[nodiscard]] bool Reaches(int from, int to) const
    {
        return reach_(from, to) != 0;
    }                                                                           // in 0 steps or more
    [[nodiscard]] const std::vector<Group>& Groups() const { return groups_; }  // that are never left
    [[nodiscard]] const Group& Passing() const { return passing_; }  // left for good sooner or later
    [[nodiscard]] int Period(const Group& group) const;
    [[nodiscard]] double RowSum(int state) const;
    [[nodiscard]] bool RowsAddUp() const;  // to 1, as far as sums of decimals do
    [[nodiscard]] int ArcCount() const;

    // The share of time that each state takes in the long run when units start spread evenly; nothing where
    // rows do not add up.
    [[nodiscard]] std::optional<Array1<double>> LongRunShares() const;

private:
    void FindReach();
    void FindGroups();
    void SpreadInGroup(const Group& group, double weight, Array1<double>& shares) const;

    int n_;
    Array2<double> matrix_;
    Array2<int> reach_;
    std::vector<Group> groups_;
    Group passing_;
};

// The inverse; nothing for a matrix that has none. Rows and columns from 1.
std::optional<Array2<double>> Inverse(Array2<double> matrix);

// (I - Q)^-1 over the states given, and its product with their chances of going to the targets in one step.
struct Fundamental {
    Array2<double> Visits;   // N: steps spent in a state, by where a unit starts
    Array2<double> Endings;  // N R
};
std::optional<Fundamental> FundamentalMatrix(const ChainShape& shape, const Group& leaving,
                                             const Group& targets);

// What the repetition went through from one start.
struct Course {
    int Start;                         // 0: spread evenly
    std::vector<Array1<double>> Rows;  // before the first step, behind each step
    double LastChange = 0;

    [[nodiscard]] int Steps() const { return static_cast<int>(Rows.size()) - 1; }
    [[nodiscard]] bool Settled() const { return LastChange <= kTolerance; }
};
std::vector<Course> CoursesOf(const MarkovProblem& problem);

// ---- words ----

std::string ShareText(double share);         // with the report's decimals
std::string Numbers(const Group& states);    // "1, 2 and 3"
std::string StateList(const Group& states);  // "state 1", "states 1 and 2"
std::string GroupText(const Group& group);   // "(1, 2)"
std::string GroupList(const std::vector<Group>& groups);

}  // namespace Markov
