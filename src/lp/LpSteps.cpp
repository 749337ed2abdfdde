#include "lp/LpSteps.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "basic/format.h"
#include "lp/LostNodes.h"
#include "lp/LpFigures.h"
#include "lp/LpPicture.h"
#include "lp/LpReplay.h"
#include "lp/Ranges.h"
#include "picture/words.h"

namespace LP_Engine {
namespace {

using picture::Capital;
using picture::Step;
using Row = std::vector<std::string>;
using RowList = std::vector<Row>;

constexpr int kMostColumns = 12;            // of a table that is shown whole
constexpr std::size_t kMostCandidates = 6;  // reduced costs that are shown of a larger one
constexpr const char* kLost =
    "The method finds no column that would bring its basis back within these bounds and gives the node up, "
    "although a plan keeps to them.";
constexpr std::size_t kMostTold = 1100;  // more than are kept; a cycle has no end

// Columns under each other, flush right but the first.
std::vector<std::string> Aligned(const RowList& rows)
{
    std::vector<std::size_t> widths;
    for (const Row& row : rows)
        for (std::size_t c = 0; c < row.size(); ++c) {
            if (c == widths.size()) widths.push_back(0);
            widths[c] = std::max(widths[c], row[c].size());
        }
    std::vector<std::string> lines;
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t c = 0; c < row.size(); ++c) {
            const std::string fill(widths[c] - row[c].size(), ' ');
            line += c == 0 ? row[c] + fill : "  " + fill + row[c];
        }
        lines.push_back(line.substr(0, line.find_last_not_of(' ') + 1));
    }
    return lines;
}

// Behind an empty line.
void Append(std::vector<std::string>& lines, const std::vector<std::string>& more)
{
    if (!lines.empty() && !more.empty()) lines.emplace_back();
    lines.insert(lines.end(), more.begin(), more.end());
}

class Words {
public:
    explicit Words(const VtLP::LpProblem& problem) : problem_(problem) {}

    [[nodiscard]] std::string Number(double value) const
    {
        if (std::abs(value) >= EngineInfinity) return "no limit";
        return NumberText(problem_, value);
    }

private:
    const VtLP::LpProblem& problem_;
};

// The tableau as it stands, with its basis in front and the values behind; nothing when it is too wide.
std::vector<std::string> TableOf(const LpResult& at, const Words& words)
{
    if (at.NumColumns > kMostColumns) return {};
    const Array2<double> tableau = Tableau(at);
    RowList rows{{"basis"}};
    for (int j = 1; j <= at.NumColumns; ++j)
        rows[0].push_back(ColumnName(at, j));
    rows[0].emplace_back("value");
    for (int r = 1; r <= at.Problem.NumConstraints; ++r) {
        Row row{ColumnName(at, at.Basis.BasisList(r))};
        for (int j = 1; j <= at.NumColumns; ++j)
            row.push_back(words.Number(std::abs(tableau(r, j)) < 1e-12 ? 0 : tableau(r, j)));
        row.push_back(words.Number(at.Basis.BasicValues(r)));
        rows.push_back(row);
    }
    return Aligned(rows);
}

// ---- a linear program ----

class Story : public Replay {
public:
    explicit Story(const LpResult& result) : words_(result.Problem) {}

    std::vector<Step> steps;

    bool GoesOn(const LpResult& at) override { return steps.size() < kMostTold && Replay::GoesOn(at); }

    void Started(const LpResult& at) override
    {
        Step step{.Heading = "Standard form", .Figures = StandardForm(at)};
        step.Why = at.ArtificialCount == 0
                       ? "Each limit gets a slack column, and the slacks are the first basis."
                       : "Slacks and artificials are the first basis; an artificial stands in for a limit "
                         "with = or > and "
                         "has to leave it.";
        if (at.ClearedArtificials < at.ArtificialCount)
            step.Why += " Phase 1 counts the artificials alone, with -1 each.";
        if (at.Minimize) step.Why += " To minimise, the negated objective is maximised.";
        Mark(at, step);
        steps.push_back(step);
    }

    void Turns(const LpResult& at, const Pivot& pivot) override
    {
        Step step = pivot.Dual ? DualStep(at, pivot) : PrimalStep(at, pivot);
        Append(step.Figures, TableOf(at, words_));
        Mark(at, step);
        steps.push_back(step);
    }

    void NoEntering(const LpResult& at, const BoundViolation& violation) override
    {
        const int j = at.Basis.BasisList(violation.Row);
        steps.push_back(
            {.Heading = "No column can repair " + ColumnName(at, j),
             .Figures = TableOf(at, words_),
             .Why = Capital(ColumnName(at, j)) + " stands at " +
                    words_.Number(at.Basis.BasicValues(violation.Row)) +
                    ", outside of its bounds, and no column has an entry in its row that would bring it "
                    "back: the limits exclude each other."});
    }

    void Unlimited(const LpResult& at, const Entering& entering) override
    {
        ReachCorner(at);
        steps.push_back({.Heading = "Without end: " + ColumnName(at, entering.Column),
                         .Figures = TableOf(at, words_),
                         .Why = Capital(ColumnName(at, entering.Column)) + " improves the value by " +
                                words_.Number(entering.Gain) +
                                " a unit, and no entry of its column is above 0 to stop it."});
    }

    // The corner where the method stands; the last step has led to it.
    void ReachCorner(const LpResult& at)
    {
        if (at.Problem.NumVariables != 2) return;
        const std::pair here(ColumnValue(at, 1), ColumnValue(at, 2));
        if (corners_ > 0 && here == last_) return;
        last_ = here;
        ++corners_;
        if (!steps.empty()) steps.back().Marks.push_back(WayId(corners_ - 1));
    }

private:
    static std::vector<std::string> Kinds(const LpResult& at)
    {
        int slacks = 0;
        int surpluses = 0;
        for (int i = 1; i <= at.Problem.NumConstraints; ++i) {
            slacks += at.Problem.LpRelations(i) == VtLP::kLess ? 1 : 0;
            surpluses += at.Problem.LpRelations(i) == VtLP::kGreater ? 1 : 0;
        }
        return {picture::Counted(at.Problem.NumVariables, "variable") + ", " +
                picture::Counted(slacks, "slack") + ", " +
                picture::Counted(surpluses, "surplus", "surpluses") + ", " +
                picture::Counted(at.ArtificialCount, "artificial")};
    }

    [[nodiscard]] std::vector<std::string> StandardForm(const LpResult& at) const
    {
        std::vector<std::string> lines = Kinds(at);
        if (at.NumColumns > kMostColumns) return lines;
        RowList rows{{""}};
        for (int j = 1; j <= at.NumColumns; ++j)
            rows[0].push_back(ColumnName(at, j));
        rows[0].emplace_back("right side");
        for (int i = 0; i <= at.Problem.NumConstraints; ++i) {
            Row row{i == 0 ? "maximise" : "limit " + std::to_string(i)};
            for (int j = 1; j <= at.NumColumns; ++j)
                row.push_back(words_.Number(at.Coefficients(i, j)));
            if (i > 0) row.push_back(words_.Number(at.Coefficients(i, 0)));
            rows.push_back(row);
        }
        Append(lines, Aligned(rows));
        return lines;
    }

    static double GainOf(const LpResult& at, int column)
    {
        return at.Basis.ColumnStatus(column) == kAtLower ? at.ReducedCosts(column)
                                                         : 0 - at.ReducedCosts(column);
    }

    static bool Rests(const LpResult& at, int column)
    {
        const std::int16_t status = at.Basis.ColumnStatus(column);
        return (status == kAtLower || status == kAtUpper) && at.Basis.ColumnKind(column) != kRetired;
    }

    // The columns that could enter, the largest gain first.
    static std::vector<int> Candidates(const LpResult& at)
    {
        std::vector<int> columns;
        for (int j = 1; j <= at.NumColumns; ++j)
            if (Rests(at, j)) columns.push_back(j);
        std::stable_sort(columns.begin(), columns.end(),
                         [&at](int p, int q) { return GainOf(at, p) > GainOf(at, q); });
        return columns;
    }

    [[nodiscard]] double ValueOf(const LpResult& at) const
    {
        double sum = 0;
        for (int j = 1; j <= at.NumColumns; ++j)
            if (at.CostVector(j) != 0) sum += at.CostVector(j) * ColumnValue(at, j);
        return sum;
    }

    [[nodiscard]] std::string ValueLine(const LpResult& at) const
    {
        if (at.SolvePhase == 1) return "artificials still add up to " + words_.Number(0 - ValueOf(at));
        return "value " + words_.Number(at.Minimize ? 0 - ValueOf(at) : ValueOf(at));
    }

    [[nodiscard]] RowList GainRows(const LpResult& at, int entering) const
    {
        RowList rows{{"outside the basis", "gain a unit"}};
        for (const int j : Candidates(at)) {
            if (rows.size() > kMostCandidates && at.NumColumns > kMostColumns) break;
            rows.push_back({ColumnName(at, j), words_.Number(GainOf(at, j))});
            if (j == entering) rows.back().emplace_back("<- enters");
        }
        return rows;
    }

    struct Ratio {
        std::string Text = "-";
        double Value = EngineInfinity;
    };

    // How far the column may go until the row's basic column is at a bound.
    [[nodiscard]] Ratio RatioOf(const LpResult& at, const Pivot& pivot, int row) const
    {
        const int j = at.Basis.BasisList(row);
        const double falling = pivot.In.Direction * (*pivot.Column)(row);
        const double x = at.Basis.BasicValues(row);
        if (falling > EngineTolerance) {
            const double ratio = (x - at.Basis.LowerBound(j)) / falling;
            return {words_.Number(ratio), ratio};
        }
        const bool isBounded = at.Basis.UpperBound(j) < EngineInfinity;
        const bool leaves = row == pivot.Out.Row && pivot.Out.Kind != kBoundFlip;
        if (falling < -EngineTolerance && (isBounded || leaves)) {
            const double ratio = (x - at.Basis.UpperBound(j)) / falling;
            return {words_.Number(ratio), ratio};
        }
        return {};
    }

    [[nodiscard]] RowList RatioRows(const LpResult& at, const Pivot& pivot) const
    {
        RowList rows{{"basis", "value", "entry", "ratio"}};
        for (int r = 1; r <= at.Problem.NumConstraints; ++r) {
            const Ratio ratio = RatioOf(at, pivot, r);
            rows.push_back({ColumnName(at, at.Basis.BasisList(r)), words_.Number(at.Basis.BasicValues(r)),
                            words_.Number((*pivot.Column)(r)), ratio.Text});
            if (r == pivot.Out.Row && pivot.Out.Kind != kBoundFlip) rows.back().emplace_back("<- leaves");
        }
        return rows;
    }

    [[nodiscard]] std::string Change(const LpResult& at, const Pivot& pivot) const
    {
        const std::string in = ColumnName(at, pivot.In.Column);
        if (pivot.Out.Kind == kBoundFlip) return in + " goes to its other bound";
        return in + " enters, " + ColumnName(at, at.Basis.BasisList(pivot.Out.Row)) + " leaves";
    }

    Step PrimalStep(const LpResult& at, const Pivot& pivot)
    {
        Step step{.Heading = "Step " + std::to_string(++pivots_) + ", phase " +
                             std::to_string(at.SolvePhase) + ": " + Change(at, pivot)};
        step.Figures.push_back(ValueLine(at));
        Append(step.Figures, Aligned(GainRows(at, pivot.In.Column)));
        Append(step.Figures, Aligned(RatioRows(at, pivot)));
        step.Why = Capital(WhyEntering(at, pivot)) + " " + Capital(WhyLeaving(at, pivot));
        return step;
    }

    [[nodiscard]] std::string WhyEntering(const LpResult& at, const Pivot& pivot) const
    {
        std::string name = ColumnName(at, pivot.In.Column);
        for (const int other : Candidates(at)) {
            if (other == pivot.In.Column) continue;
            const std::string rival = ColumnName(at, other);
            if (GainOf(at, other) < PricingThreshold)
                return name + " is the only column that gains anything, " + words_.Number(pivot.In.Gain) +
                       " a unit.";
            if (GainOf(at, other) < pivot.In.Gain) return WhyMost(at, pivot, other);
            const bool larger = at.Coefficients(0, pivot.In.Column) > at.Coefficients(0, other);
            return name.append(" and ")
                .append(rival)
                .append(" gain the same, ")
                .append(words_.Number(pivot.In.Gain))
                .append(larger ? "; the one with the larger coefficient enters."
                               : "; the first of them enters.");
        }
        return name + " is the only column that can enter.";
    }

    [[nodiscard]] std::string WhyMost(const LpResult& at, const Pivot& pivot, int rival) const
    {
        return ColumnName(at, pivot.In.Column) + " gains the most a unit, " + words_.Number(pivot.In.Gain) +
               " against " + words_.Number(GainOf(at, rival)) + " for " + ColumnName(at, rival) + ".";
    }

    [[nodiscard]] std::string WhyLeaving(const LpResult& at, const Pivot& pivot) const
    {
        if (GoesFarAway(at, pivot))
            return "No row stops it before the largest number that the method knows: in truth nothing limits "
                   "it.";
        if (pivot.Out.Kind == kBoundFlip) return "Its own other bound is nearer than any row.";
        const int row = pivot.Out.Row;
        const std::string name = ColumnName(at, at.Basis.BasisList(row));
        const Ratio taken = RatioOf(at, pivot, row);
        double least = EngineInfinity;
        std::string rival;
        int rivalRow = 0;
        for (int r = 1; r <= at.Problem.NumConstraints; ++r) {
            if (r == row) continue;
            const Ratio other = RatioOf(at, pivot, r);
            if (other.Value >= least) continue;
            least = other.Value;
            rivalRow = r;
            rival = ColumnName(at, at.Basis.BasisList(r));
        }
        if (at.Basis.ColumnKind(at.Basis.BasisList(row)) == kArtificial && pivot.Out.Step == 0)
            return name + " is an artificial at 0 and leaves at the first chance, with a step of 0.";
        if (rival.empty())
            return name + " is the only one that stops it, after " + words_.Number(pivot.Out.Step) + ".";
        if (least == taken.Value)
            return name + " and " + rival + " stop it at the same ratio, " + words_.Number(pivot.Out.Step) +
                   "; " + WhyFirst(at, row, rivalRow);
        return name + " stops it first, after " + words_.Number(pivot.Out.Step) + " against " +
               words_.Number(least) + " for " + rival + ".";
    }

    static std::string WhyFirst(const LpResult& at, int row, int rival)
    {
        const auto isArtificial = [&at](int r) {
            return at.Basis.ColumnKind(at.Basis.BasisList(r)) == kArtificial;
        };
        if (!isArtificial(row)) return "the upper row goes first.";
        return isArtificial(rival) ? "of artificials the lower row goes first."
                                   : "the artificial goes first.";
    }

    Step DualStep(const LpResult& at, const Pivot& pivot)
    {
        const int j = at.Basis.BasisList(pivot.Out.Row);
        const double x = at.Basis.BasicValues(pivot.Out.Row);
        const bool below = x < at.Basis.LowerBound(j);
        Step step{.Heading = "Repair step " + std::to_string(++repairs_) + ": " + Change(at, pivot)};
        RowList rows{{"basis", "value", "from", "to"}};
        for (int r = 1; r <= at.Problem.NumConstraints; ++r) {
            const int k = at.Basis.BasisList(r);
            rows.push_back({ColumnName(at, k), words_.Number(at.Basis.BasicValues(r)),
                            words_.Number(at.Basis.LowerBound(k)), words_.Number(at.Basis.UpperBound(k))});
            if (r == pivot.Out.Row) rows.back().emplace_back("<- repaired");
        }
        step.Figures = Aligned(rows);
        step.Why = Capital(ColumnName(at, j)) + " stands at " + words_.Number(x) +
                   (below ? ", below " : ", above ") +
                   words_.Number(below ? at.Basis.LowerBound(j) : at.Basis.UpperBound(j)) + "; " +
                   ColumnName(at, pivot.In.Column) +
                   " has the smallest ratio of reduced cost and entry in its row.";
        return step;
    }

    void Mark(const LpResult& at, Step& step)
    {
        if (at.Problem.NumVariables != 2) return;
        ReachCorner(at);
        step.Picture = "Plan";
        step.Marks = {WayId(corners_ - 1)};
    }

    Words words_;
    int pivots_ = 0;
    int repairs_ = 0;
    int corners_ = 0;
    std::pair<double, double> last_;
};

// ---- the end of a linear program ----

class Ending {
public:
    explicit Ending(const LpResult& result)
        : result_(result), words_(result.Problem), figures_(FiguresOf(result)), tableau_(Tableau(result))
    {
    }

    void Tell(std::vector<Step>& steps) const
    {
        steps.push_back(Optimum());
        steps.push_back(ObjectiveRanges());
        steps.push_back(RightSideRanges());
        steps.push_back(Proof());
    }

private:
    [[nodiscard]] int Rows() const { return result_.Problem.NumConstraints; }
    [[nodiscard]] int Variables() const { return result_.Problem.NumVariables; }

    [[nodiscard]] Step Optimum() const
    {
        Step step{.Heading = "Optimum"};
        step.Figures = TableOf(result_, words_);
        RowList table{{"column", "reduced cost"}};
        for (int j = 1; j <= Variables(); ++j)
            table.push_back({ColumnName(result_, j), words_.Number(figures_.ReducedCosts(j))});
        Append(step.Figures, Aligned(table));
        table = {{"limit", "dual price"}};
        for (int i = 1; i <= Rows(); ++i)
            table.push_back({std::to_string(i), words_.Number(figures_.Prices(i))});
        Append(step.Figures, Aligned(table));
        step.Why = "No column gains any more by entering, so no plan is better.";
        return step;
    }

    [[nodiscard]] std::string End(const std::optional<double>& end) const
    {
        return end ? words_.Number(*end) : std::string("no limit");
    }

    [[nodiscard]] Step ObjectiveRanges() const
    {
        RowList table{{"coefficient", "from", "now", "to", "by"}};
        Array1<double> reducedCosts = result_.ReducedCosts;
        Step step{.Heading = "Ranges of the coefficients"};
        for (int j = 1; j <= Variables(); ++j) {
            const int row = figures_.BasicRowOf(j);
            const Range range = ObjectiveRange(result_, tableau_, j, row, reducedCosts);
            table.push_back({ColumnName(result_, j), End(range.Lower), words_.Number(range.Current),
                             End(range.Upper), row == 0 ? "its reduced cost" : "the ratios of its row"});
            if (row > 0) Append(step.Arithmetic, RatiosOfRow(j, row));
        }
        step.Figures = Aligned(table);
        step.Why =
            "A coefficient may move until the reduced cost of a column outside of the basis reaches 0 and "
            "another plan becomes best.";
        return step;
    }

    // Reduced cost over entry, for each column outside of the basis.
    [[nodiscard]] std::vector<std::string> RatiosOfRow(int variable, int row) const
    {
        std::vector<std::string> lines;
        for (int k = 1; k <= result_.NumColumns; ++k) {
            if (result_.Basis.ColumnKind(k) >= 0) continue;
            const double a = tableau_(row, k);
            if (std::abs(a) <= RangeTolerance) continue;
            const double d = std::min(result_.ReducedCosts(k), 0.0);
            lines.push_back(ColumnName(result_, variable) + ", " + ColumnName(result_, k) + ": " +
                            words_.Number(d) + " / " + words_.Number(a) + " = " + words_.Number(d / a));
        }
        return lines;
    }

    [[nodiscard]] Step RightSideRanges() const
    {
        RowList table{{"limit", "from", "now", "to"}};
        Step step{.Heading = "Ranges of the right sides"};
        for (int i = 1; i <= Rows(); ++i) {
            const Range range = RightHandSideRange(result_, tableau_, i);
            table.push_back(
                {std::to_string(i), End(range.Lower), words_.Number(range.Current), End(range.Upper)});
            for (int r = 1; r <= Rows(); ++r) {
                const double a = tableau_(r, result_.ConstraintColumn(i));
                if (std::abs(a) <= RangeTolerance) continue;
                const double x = std::max(result_.Basis.BasicValues(r), 0.0);
                step.Arithmetic.push_back(
                    "limit " + std::to_string(i) + ", " + ColumnName(result_, result_.Basis.BasisList(r)) +
                    ": " + words_.Number(x) + " / " + words_.Number(a) + " = " + words_.Number(x / a));
            }
        }
        step.Figures = Aligned(table);
        step.Why = "A right side may move until a column of the basis reaches 0 and has to leave.";
        return step;
    }

    [[nodiscard]] Step Proof() const
    {
        RowList table{{"limit", "price", "right side", "product"}};
        double sum = 0;
        for (int i = 1; i <= Rows(); ++i) {
            const double price = result_.DualVector(i);
            const double b = result_.Coefficients(i, 0);
            sum += price * b;
            table.push_back(
                {std::to_string(i), words_.Number(price), words_.Number(b), words_.Number(price * b)});
        }
        Step step{.Heading = "Proof", .Figures = Aligned(table)};
        const double own = result_.Minimize ? 0 - sum : sum;
        const bool equal = std::abs(own - figures_.Objective) <= 1e-6 * (1 + std::abs(own));
        step.Figures.push_back("prices times right sides: " + words_.Number(own) +
                               ", value of the plan: " + words_.Number(figures_.Objective));
        step.Why = equal ? "Prices times right sides equal the value of the plan: nothing better is possible."
                         : "The two differ by what rests at an upper bound or by rounding.";
        if (equal && result_.Minimize)
            step.Why =
                "Prices times right sides, with the sign of a minimisation, equal the value of the plan: "
                "nothing better is possible.";
        return step;
    }

    const LpResult& result_;
    Words words_;
    Figures figures_;
    Array2<double> tableau_;
};

// ---- an integer program ----

// The values at each node when its relaxation was solved.
class Visits : public Replay {
public:
    void Settled(const LpResult& at, int record) override
    {
        std::vector<double>& values = valuesOf[record];
        for (int j = 1; j <= at.Problem.NumVariables; ++j)
            values.push_back(ColumnValue(at, j));
    }

    std::map<int, std::vector<double>> valuesOf;
};

class SearchStory {
public:
    SearchStory(const LpResult& result, const Visits& visits)
        : result_(result), tree_(result.Tree), visits_(visits), words_(result.Problem)
    {
        for (const LostNode& node : LostNodes(result))
            lost_.insert(node.Record);
    }

    void Tell(std::vector<Step>& steps) const
    {
        for (int visit = 1; visit <= tree_.Visits; ++visit)
            for (int k = 0; k <= tree_.RecordCount; ++k)
                if (tree_.Nodes(k).Visit == visit) steps.push_back(NodeStep(k));
        steps.push_back(Proof());
    }

private:
    [[nodiscard]] double Own(double value) const { return result_.Minimize ? value : 0 - value; }
    [[nodiscard]] const std::string& Name(int j) const { return result_.Problem.LpVariableNames(j); }

    [[nodiscard]] std::string BoundText(const SearchNode& node) const
    {
        return Name(std::abs(node.Variable)) + (node.Variable > 0 ? " at most " : " at least ") +
               std::to_string(node.Bound);
    }

    // The bounds on the way from the root.
    [[nodiscard]] std::vector<std::string> Bounds(int number) const
    {
        std::vector<std::string> bounds;
        for (; number > 1; number /= 2)
            for (int k = 2; k <= tree_.RecordCount; ++k)
                if (tree_.Nodes(k).Number == number) bounds.insert(bounds.begin(), BoundText(tree_.Nodes(k)));
        return bounds;
    }

    [[nodiscard]] Step NodeStep(int record) const
    {
        const SearchNode& node = tree_.Nodes(record);
        const int number = record == 0 ? 1 : node.Number;
        Step step{.Heading = record == 0 ? "Node 1: the linear optimum"
                                         : "Node " + std::to_string(node.Visit) + ": " + BoundText(node)};
        if (number > 1) step.Figures.push_back("bounds: " + picture::Listed(Bounds(number)));
        if (node.Became != Fate::NoPlan) {
            step.Figures.push_back((node.InPhaseOne ? "artificials: " : "value: ") +
                                   words_.Number(Own(node.Value)));
            Append(step.Figures, Aligned(Values(record)));
        }
        if (node.Became == Fate::Branched) {
            const auto below = static_cast<int>(std::floor(node.BranchingValue));
            step.Figures.push_back("branches: " + Name(node.BranchingColumn) + " at most " +
                                   std::to_string(below) + ", " + Name(node.BranchingColumn) + " at least " +
                                   std::to_string(below + 1));
        }
        step.Why = lost_.contains(record) ? kLost : WhyOf(node);
        step.Picture = "Search";
        step.Marks = {NodeId(number)};
        return step;
    }

    [[nodiscard]] RowList Values(int record) const
    {
        RowList rows;
        const auto found = visits_.valuesOf.find(record);
        if (found == visits_.valuesOf.end()) return rows;
        for (std::size_t j = 0; j < found->second.size(); ++j)
            if (found->second[j] != 0)
                rows.push_back({Name(static_cast<int>(j) + 1), words_.Number(found->second[j])});
        return rows;
    }

    [[nodiscard]] std::string WhyOf(const SearchNode& node) const
    {
        switch (node.Became) {
            case Fate::Branched:
                return Name(node.BranchingColumn) + " stands at " + words_.Number(node.BranchingValue) +
                       ", which has the largest fraction of all that must be whole; the upper branch is "
                       "searched first.";
            case Fate::Whole:
                return node.TookOver
                           ? "All that must be whole is whole, and the plan is the best so far: open nodes "
                             "that promise less are closed."
                           : "All that must be whole is whole, but an earlier plan is at least as good.";
            case Fate::NoPlan:
                return "No plan keeps to these bounds.";
            case Fate::NotBetter:
                return "Its value is not better than the best whole plan, so nothing behind it can be.";
            case Fate::NotBetterByGain:
                return "Its value is better than the best whole plan by 1 or less, which the search does not "
                       "follow.";
            default:
                return "The search ended here.";
        }
    }

    [[nodiscard]] Step Proof() const
    {
        int open = 0;
        for (int k = 0; k <= tree_.RecordCount; ++k)
            if (k != 1 && !tree_.Nodes(k).Closed) ++open;
        Step step{.Heading = "End of the search"};
        step.Figures = {
            picture::Counted(tree_.Visits, "node") + " visited, " + std::to_string(open) + " open",
            tree_.IncumbentNode > 0 ? "best whole plan: " + words_.Number(Own(tree_.Incumbent))
                                    : std::string("no whole plan")};
        if (result_.End == Outcome::Optimal)
            step.Why = "No node is open any more: no plan that was left is better by more than 1.";
        else if (result_.End == Outcome::OutOfRoom)
            step.Why = "The table of nodes or its numbers are full: the search ends without a report.";
        else if (tree_.Exhausted)
            step.Why = "No node is open and none gave a whole plan: the search goes round without end.";
        else
            step.Why = "The search ended before its last node.";
        step.Picture = "Search";
        if (tree_.IncumbentNode > 0) step.Marks = {NodeId(tree_.IncumbentNode)};
        return step;
    }

    const LpResult& result_;
    const SearchTree& tree_;
    const Visits& visits_;
    Words words_;
    std::set<int> lost_;  // records
};

std::vector<Step> LinearSteps(const LpResult& result)
{
    Story story(result);
    const LpResult again = Solve(result.Problem, result.Minimize, false, &story);
    if (result.End == Outcome::Optimal) {
        story.ReachCorner(again);
        Ending(result).Tell(story.steps);
    }
    if (result.End == Outcome::Infeasible && result.Basis.ColumnKind.Upper() > 0 &&
        result.ArtificialCount > 0)
        story.steps.push_back(
            {.Heading = "No plan",
             .Figures = TableOf(result, Words(result.Problem)),
             .Why = "Nothing gains any more, but an artificial still stands above 0: its limit "
                    "cannot be kept together with the others."});
    return std::move(story.steps);
}

std::vector<Step> SearchSteps(const LpResult& result)
{
    Visits visits;
    Solve(result.Problem, result.Minimize, true, &visits);
    std::vector<Step> steps;
    Story story(result);
    Solve(result.Problem, result.Minimize, false, &story);
    if (!story.steps.empty()) steps.push_back(story.steps.front());
    steps.front().Picture.clear();
    steps.front().Marks.clear();
    SearchStory(result, visits).Tell(steps);
    return steps;
}

}  // namespace

std::vector<Step> Steps(const LpResult& result)
{
    if (!result.Solved || result.NumColumns == 0) return {};
    const bool searched = result.Integer && result.Tree.Visits > 0;
    return picture::Kept(searched ? SearchSteps(result) : LinearSteps(result));
}

}  // namespace LP_Engine
