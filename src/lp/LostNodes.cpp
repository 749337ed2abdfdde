#include "lp/LostNodes.h"

#include <algorithm>
#include <cmath>

#include "lp/IntegerSearch.h"
#include "lp/LpFigures.h"
#include "lp/LpReplay.h"

namespace LP_Engine {
namespace {

constexpr double kRoom = 1e-6;  // relative, of a row that a plan may miss by rounding

// Bounds of the variables at a node.
struct Bounds {
    Array1<double> Lower;
    Array1<double> Upper;
};

// Rows of a linear program whose variables count from 0.
struct RowList {
    std::vector<std::vector<double>> Entries;
    std::vector<std::int16_t> Relations;
    std::vector<double> RightSides;

    void Add(std::vector<double> entries, std::int16_t relation, double rightSide)
    {
        Entries.push_back(std::move(entries));
        Relations.push_back(relation);
        RightSides.push_back(rightSide);
    }
    [[nodiscard]] std::size_t Count() const { return Entries.size(); }
};

class Looker {
public:
    explicit Looker(const LpResult& result)
        : result_(result),
          tree_(result.Tree),
          n_(result.Problem.NumVariables),
          binary_(BinaryVariables(result))
    {
    }

    [[nodiscard]] std::vector<LostNode> Look() const
    {
        std::vector<LostNode> lost;
        for (int k = 2; k <= tree_.RecordCount; ++k) {
            if (tree_.Nodes(k).Became != Fate::NoPlan) continue;
            const RowList rows = RowsOf(BoundsOf(tree_.Nodes(k).Number));
            if (!HasPlan(rows)) continue;
            lost.push_back({k, tree_.IncumbentNode == 0 || HasPlan(BetterRows(tree_.Nodes(k).Number, rows))});
        }
        return lost;
    }

private:
    // Those of the node and of all above it.
    [[nodiscard]] Bounds BoundsOf(int number) const
    {
        Bounds bounds{Array1<double>(n_), Array1<double>(n_)};
        for (int j = 1; j <= n_; ++j)
            bounds.Upper(j) = binary_(j) == 1 ? 1 : EngineInfinity;
        for (; number > 1; number /= 2)
            for (int k = 2; k <= tree_.RecordCount; ++k) {
                const SearchNode& node = tree_.Nodes(k);
                if (node.Number != number) continue;
                const int j = std::abs(node.Variable);
                if (node.Variable > 0)
                    bounds.Upper(j) = std::min<double>(bounds.Upper(j), node.Bound);
                else
                    bounds.Lower(j) = std::max<double>(bounds.Lower(j), node.Bound);
            }
        return bounds;
    }

    // A row over the amounts above the lower bounds.
    [[nodiscard]] double Shifted(double rightSide, int row, const Bounds& bounds) const
    {
        for (int j = 1; j <= n_; ++j)
            rightSide -= result_.Problem.LpCoefficients(row, j) * bounds.Lower(j);
        return rightSide;
    }

    [[nodiscard]] std::vector<double> Entries(int row) const
    {
        const double* first = result_.Problem.LpCoefficients.Row(row) + 1;
        return {first, first + n_};
    }

    [[nodiscard]] RowList RowsOf(const Bounds& bounds) const
    {
        RowList rows;
        for (int i = 1; i <= result_.Problem.NumConstraints; ++i)
            rows.Add(Entries(i), result_.Problem.LpRelations(i),
                     Shifted(result_.Problem.LpCoefficients(i, 0), i, bounds));
        for (int j = 1; j <= n_; ++j) {
            if (bounds.Upper(j) >= EngineInfinity) continue;
            std::vector<double> entries(static_cast<std::size_t>(n_));
            entries[static_cast<std::size_t>(j) - 1] = 1;
            rows.Add(std::move(entries), VtLP::kLess, bounds.Upper(j) - bounds.Lower(j));
        }
        return rows;
    }

    // And better than the best whole plan by more than the search's gain.
    [[nodiscard]] RowList BetterRows(int number, RowList rows) const
    {
        const double least = kLeastGain + kRoom * (1 + std::abs(tree_.Incumbent));
        const double value = tree_.Incumbent - least;  // in the minimising sense
        rows.Add(Entries(0), result_.Minimize ? VtLP::kLess : VtLP::kGreater,
                 Shifted(result_.Minimize ? value : 0 - value, 0, BoundsOf(number)));
        return rows;
    }

    // Solved without an objective; what the method finds is checked.
    [[nodiscard]] bool HasPlan(const RowList& rows) const
    {
        VtLP::LpProblem problem;
        const auto count = static_cast<int>(rows.Count());
        problem.NumConstraints = static_cast<std::int16_t>(count);
        problem.NumVariables = static_cast<std::int16_t>(n_);
        problem.LpCoefficients = Array2<double>(count, n_);
        problem.LpRelations = Array1<std::int16_t>(count);
        for (int i = 1; i <= count; ++i) {
            const auto row = static_cast<std::size_t>(i) - 1;
            const double sign = rows.RightSides[row] < 0 ? -1 : 1;
            problem.LpCoefficients(i, 0) = sign * rows.RightSides[row];
            for (int j = 1; j <= n_; ++j)
                problem.LpCoefficients(i, j) = sign * rows.Entries[row][static_cast<std::size_t>(j) - 1];
            problem.LpRelations(i) = Turned(rows.Relations[row], sign);
        }
        Replay replay;
        const LpResult solved = Solve(problem, false, false, &replay);
        return solved.End == Outcome::Optimal && Keeps(solved, rows);
    }

    static std::int16_t Turned(std::int16_t relation, double sign)
    {
        if (sign > 0 || relation == VtLP::kEqual) return relation;
        return relation == VtLP::kLess ? VtLP::kGreater : VtLP::kLess;
    }

    [[nodiscard]] bool Keeps(const LpResult& solved, const RowList& rows) const
    {
        for (int j = 1; j <= n_; ++j)
            if (ColumnValue(solved, j) < -kRoom) return false;
        for (std::size_t i = 0; i < rows.Count(); ++i) {
            double over = 0 - rows.RightSides[i];
            for (int j = 1; j <= n_; ++j)
                over += rows.Entries[i][static_cast<std::size_t>(j) - 1] * ColumnValue(solved, j);
            const double room = kRoom * (1 + std::abs(rows.RightSides[i]));
            if (rows.Relations[i] != VtLP::kGreater && over > room) return false;
            if (rows.Relations[i] != VtLP::kLess && over < -room) return false;
        }
        return true;
    }

    const LpResult& result_;
    const SearchTree& tree_;
    int n_;
    Array1<std::int16_t> binary_;
};

}  // namespace

std::vector<LostNode> LostNodes(const LpResult& result)
{
    if (!result.Integer || result.Tree.Nodes.Upper() == 0) return {};
    return Looker(result).Look();
}

}  // namespace LP_Engine
