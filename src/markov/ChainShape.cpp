#include "markov/ChainShape.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "basic/format.h"
#include "picture/words.h"

namespace Markov {

// ---- shape ----

ChainShape::ChainShape(const MarkovProblem& problem) : n_(problem.StateCount), matrix_(n_, n_), reach_(n_, n_)
{
    for (int from = 1; from <= n_; ++from)
        for (int to = 1; to <= n_; ++to)
            matrix_(from, to) = problem.TransitionMatrix(from, to).Value();
    FindReach();
    FindGroups();
}

void ChainShape::FindReach()
{
    for (int from = 1; from <= n_; ++from)
        for (int to = 1; to <= n_; ++to)
            reach_(from, to) = from == to || matrix_(from, to) > 0 ? 1 : 0;
    for (int by = 1; by <= n_; ++by)
        for (int from = 1; from <= n_; ++from)
            for (int to = 1; to <= n_; ++to)
                if (Reaches(from, by) && Reaches(by, to)) reach_(from, to) = 1;
}

void ChainShape::FindGroups()
{
    for (int state = 1; state <= n_; ++state) {
        Group group;
        bool comesBack = true;
        for (int other = 1; other <= n_; ++other) {
            if (!Reaches(state, other)) continue;
            group.push_back(other);
            comesBack = comesBack && Reaches(other, state);
        }
        if (!comesBack)
            passing_.push_back(state);
        else if (group.front() == state)
            groups_.push_back(group);
    }
}

// The greatest common divisor of the lengths of all ways round.
int ChainShape::Period(const Group& group) const
{
    std::vector<int> level(static_cast<std::size_t>(n_) + 1, -1);
    const auto levelOf = [&level](int state) -> int& { return level[static_cast<std::size_t>(state)]; };
    std::vector<int> found{group.front()};
    levelOf(group.front()) = 0;
    int period = 0;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const int from = found[i];
        for (const int to : group) {
            if (!(matrix_(from, to) > 0)) continue;
            if (levelOf(to) < 0) {
                levelOf(to) = levelOf(from) + 1;
                found.push_back(to);
            }
            period = std::gcd(period, std::abs(levelOf(from) + 1 - levelOf(to)));
        }
    }
    return std::max(period, 1);
}

double ChainShape::RowSum(int state) const
{
    double sum = 0;
    for (int to = 1; to <= n_; ++to)
        sum += matrix_(state, to);
    return sum;
}

bool ChainShape::RowsAddUp() const
{
    constexpr double kRounding = 1e-9;
    for (int state = 1; state <= n_; ++state)
        if (std::abs(RowSum(state) - 1) > kRounding) return false;
    return true;
}

int ChainShape::ArcCount() const
{
    int count = 0;
    for (int from = 1; from <= n_; ++from)
        for (int to = 1; to <= n_; ++to)
            if (matrix_(from, to) > 0) ++count;
    return count;
}

// ---- elimination ----

std::optional<Array2<double>> Inverse(Array2<double> matrix)
{
    constexpr double kNothing = 1e-12;
    const int n = matrix.UpperRow();
    Array2<double> inverse(n, n);
    for (int i = 1; i <= n; ++i)
        inverse(i, i) = 1;
    for (int pivot = 1; pivot <= n; ++pivot) {
        int largest = pivot;
        for (int row = pivot; row <= n; ++row)
            if (std::abs(matrix(row, pivot)) > std::abs(matrix(largest, pivot))) largest = row;
        const double divisor = matrix(largest, pivot);
        if (!(std::abs(divisor) > kNothing)) return std::nullopt;
        for (int column = 1; column <= n; ++column) {
            std::swap(matrix(pivot, column), matrix(largest, column));
            std::swap(inverse(pivot, column), inverse(largest, column));
            matrix(pivot, column) /= divisor;
            inverse(pivot, column) /= divisor;
        }
        for (int row = 1; row <= n; ++row) {
            const double factor = row == pivot ? 0 : matrix(row, pivot);
            for (int column = 1; factor != 0 && column <= n; ++column) {
                matrix(row, column) -= factor * matrix(pivot, column);
                inverse(row, column) -= factor * inverse(pivot, column);
            }
        }
    }
    return inverse;
}

std::optional<Fundamental> FundamentalMatrix(const ChainShape& shape, const Group& leaving,
                                             const Group& targets)
{
    const int rows = static_cast<int>(leaving.size());
    const int columns = static_cast<int>(targets.size());
    const auto at = [](const Group& group, int i) { return group[static_cast<std::size_t>(i) - 1]; };
    Array2<double> away(rows, rows);
    for (int i = 1; i <= rows; ++i)
        for (int j = 1; j <= rows; ++j)
            away(i, j) = (i == j ? 1.0 : 0.0) - shape.Chance(at(leaving, i), at(leaving, j));
    const auto visits = Inverse(std::move(away));
    if (!visits) return std::nullopt;
    Array2<double> endings(rows, columns);
    for (int i = 1; i <= rows; ++i)
        for (int a = 1; a <= columns; ++a)
            for (int j = 1; j <= rows; ++j)
                endings(i, a) += (*visits)(i, j) * shape.Chance(at(leaving, j), at(targets, a));
    return Fundamental{.Visits = *visits, .Endings = endings};
}

// The balance of a group with itself: states are taken out one by one, what went through them is kept.
void ChainShape::SpreadInGroup(const Group& group, double weight, Array1<double>& shares) const
{
    const int m = static_cast<int>(group.size());
    Array2<double> rate(m, m);
    for (int i = 1; i <= m; ++i)
        for (int j = 1; j <= m; ++j)
            rate(i, j) =
                matrix_(group[static_cast<std::size_t>(i) - 1], group[static_cast<std::size_t>(j) - 1]);
    for (int last = m; last > 1; --last) {
        double out = 0;
        for (int j = 1; j < last; ++j)
            out += rate(last, j);
        for (int i = 1; i < last; ++i)
            rate(i, last) /= out;
        for (int i = 1; i < last; ++i)
            for (int j = 1; j < last; ++j)
                rate(i, j) += rate(i, last) * rate(last, j);
    }
    Array1<double> share(m);
    share(1) = 1;
    double sum = 1;
    for (int j = 2; j <= m; ++j) {
        for (int i = 1; i < j; ++i)
            share(j) += share(i) * rate(i, j);
        sum += share(j);
    }
    for (int i = 1; i <= m; ++i)
        shares(group[static_cast<std::size_t>(i) - 1]) = weight * share(i) / sum;
}

std::optional<Array1<double>> ChainShape::LongRunShares() const
{
    if (!RowsAddUp()) return std::nullopt;
    Array1<double> shares(n_);
    for (const Group& group : groups_) {
        auto arrivals = static_cast<double>(group.size());
        const auto fundamental = FundamentalMatrix(*this, passing_, group);
        if (!fundamental) return std::nullopt;
        for (int i = 1; i <= fundamental->Endings.UpperRow(); ++i)
            for (int a = 1; a <= fundamental->Endings.UpperColumn(); ++a)
                arrivals += fundamental->Endings(i, a);
        SpreadInGroup(group, arrivals / n_, shares);
    }
    return shares;
}

// ---- courses ----

std::vector<Course> CoursesOf(const MarkovProblem& problem)
{
    std::vector<Course> courses;
    Solve(problem, [&](const ChainStep& step) {
        if (step.Number == 1) {
            Array1<double> start(problem.StateCount);
            if (step.Start == 0)
                start.Fill(1.0 / problem.StateCount);
            else
                start(step.Start) = 1;
            courses.push_back({.Start = step.Start, .Rows = {start}});
        }
        courses.back().Rows.push_back(step.Row);
        courses.back().LastChange = step.LargestChange;
    });
    return courses;
}

// ---- words ----

std::string ShareText(double share)
{
    return Format(share, "0.000");
}

namespace {

std::vector<std::string> Texts(const Group& states)
{
    std::vector<std::string> texts;
    for (const int state : states)
        texts.push_back(std::to_string(state));
    return texts;
}

}  // namespace

std::string Numbers(const Group& states)
{
    return picture::Listed(Texts(states));
}

std::string StateList(const Group& states)
{
    return (states.size() == 1 ? "state " : "states ") + Numbers(states);
}

std::string GroupText(const Group& group)
{
    std::string text = "(";
    for (const std::string& state : Texts(group))
        text += (text.size() > 1 ? ", " : "") + state;
    return text + ")";
}

std::string GroupList(const std::vector<Group>& groups)
{
    std::vector<std::string> texts;
    texts.reserve(groups.size());
    for (const Group& group : groups)
        texts.push_back(GroupText(group));
    return picture::Listed(texts);
}

}  // namespace Markov
