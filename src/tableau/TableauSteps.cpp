#include "tableau/TableauSteps.h"

#include <cstdlib>
#include <string>

#include "basic/format.h"
#include "picture/words.h"
#include "tableau/TableauPlan.h"

namespace Tableau {
namespace {

using picture::Step;
using Rows = std::vector<std::vector<std::string>>;

// The run that is told: the arcs by their names, prices in the units in which costs are entered.
class Story {
public:
    Story(const TableauProblem& problem, const TableauResult& result, const SideNames& names)
        : problem_(problem), result_(result), names_(names)
    {
        TaSolve(problem, result.Maximize, &trace_);
    }

    [[nodiscard]] std::vector<Step> Steps() const
    {
        std::vector<Step> steps{FirstTree()};
        const TreeState* before = &trace_.First;
        int number = 0;
        for (const Change& change : trace_.Changes) {
            steps.push_back(ChangeStep(++number, change, *before));
            before = &change.After;
        }
        steps.push_back(Proof(*before));
        return picture::Kept(std::move(steps));
    }

private:
    [[nodiscard]] bool IsRoute(int arc) const { return arc <= problem_.NumArcs; }

    [[nodiscard]] std::string NodeName(int node) const
    {
        if (node <= problem_.NumOrigins) return LeftId(names_, node);
        if (node <= problem_.NumNodes) return RightId(names_, node - problem_.NumOrigins);
        return "root";
    }

    [[nodiscard]] std::string ArcName(int arc) const
    {
        if (IsRoute(arc)) return RouteId(OriginOf(problem_, arc), DestinationOf(problem_, arc));
        return "arc " + NodeName(TailOf(problem_, arc)) + " to " + NodeName(HeadOf(problem_, arc));
    }

    // Revenues are solved as negative costs.
    [[nodiscard]] double Sense() const { return result_.Maximize ? -1 : 1; }
    [[nodiscard]] std::string Price(double scaled) const { return CostText(problem_, scaled / kCostScale); }
    [[nodiscard]] std::string Potential(const TreeState& state, int node) const
    {
        return Price(Sense() * state.NodePotential(node));
    }

    [[nodiscard]] double ScaledCost(int arc) const { return CostInRun(problem_, result_, arc); }

    // Of the routes alone, as entered.
    [[nodiscard]] std::string ValueSoFar(const TreeState& state) const
    {
        double value = 0;
        for (int n = 1; n <= problem_.NumNodes; ++n)
            if (const int arc = std::abs(state.BasicArc(n)); IsRoute(arc))
                value += state.BasicFlow(n) * problem_.ArcCost(arc).Value();
        return PlainText(value);
    }

    [[nodiscard]] std::int64_t NotYetShipped(const TreeState& state) const
    {
        std::int64_t units = 0;
        for (int n = 1; n <= problem_.NumNodes; ++n)
            if (const int arc = std::abs(state.BasicArc(n)); !IsRoute(arc) && problem_.NodeSupply(n) < 0)
                units += state.BasicFlow(n);
        return units;
    }

    [[nodiscard]] Step FirstTree() const
    {
        Step step;
        step.Heading = "The first tree";
        Rows rows{{"node", "amount", "potential"}};
        for (int n = 1; n <= problem_.NumNodes; ++n)
            rows.push_back(
                {NodeName(n), std::to_string(std::abs(problem_.NodeSupply(n))), Potential(trace_.First, n)});
        step.Figures = picture::Aligned(rows);
        step.Why = "Nothing is shipped yet: every " + std::string(names_.Left) + " and " + names_.Right +
                   " is joined to a root that takes what is unused at no cost and gives what is missing at a "
                   "penalty dearer than any route.";
        step.Picture = Title();
        return step;
    }

    [[nodiscard]] std::string Title() const
    {
        return names_.Left == kAssignmentSides.Left ? "Assignment" : "Shipments";
    }

    // How the arc's ends and its cost make the gain.
    [[nodiscard]] std::vector<std::string> GainArithmetic(const Change& change, const TreeState& before) const
    {
        const int tail = TailOf(problem_, change.EnteringArc);
        const int head = HeadOf(problem_, change.EnteringArc);
        const std::string cost = Price(Sense() * ScaledCost(change.EnteringArc));
        const std::string prices = Potential(before, tail) + " - " + Potential(before, head);
        return {result_.Maximize ? cost + " - (" + prices + ") = " + Price(change.Gain)
                                 : prices + " - " + cost + " = " + Price(change.Gain)};
    }

    [[nodiscard]] Rows CycleRows(const Change& change) const
    {
        Rows rows{{"arc of the cycle", "sign", "before", "after"}};
        for (const CycleArc& arc : change.Cycle)
            rows.push_back({ArcName(arc.Arc), arc.Sign > 0 ? "+" : "-", std::to_string(arc.Flow),
                            std::to_string(arc.Flow + arc.Sign * change.Step)});
        return rows;
    }

    [[nodiscard]] Rows ChangedPotentials(const TreeState& before, const TreeState& after) const
    {
        Rows rows{{"changed potential", "before", "after"}};
        for (int n = 1; n <= problem_.NumNodes; ++n)
            if (before.NodePotential(n) != after.NodePotential(n))
                rows.push_back({NodeName(n), Potential(before, n), Potential(after, n)});
        return rows;
    }

    [[nodiscard]] std::string WhyEntering(const Change& change) const
    {
        const std::string gain = result_.Maximize ? "brings" : "saves";
        if (change.RunnerUp == 0) return "It is the only arc that still " + gain + " anything";
        const std::string much = Price(change.Gain) + " a unit";
        if (change.RunnerUpGain == change.Gain)
            return "It " + gain + " " + much + ", as much as " + ArcName(change.RunnerUp) +
                   ", and is met first";
        return "It " + gain + " most, " + much + " against " + Price(change.RunnerUpGain) + " on " +
               ArcName(change.RunnerUp);
    }

    [[nodiscard]] Step ChangeStep(int number, const Change& change, const TreeState& before) const
    {
        Step step;
        step.Heading = "Change " + std::to_string(number) + ": " + ArcName(change.EnteringArc) + " comes in";
        step.Figures = {"gain a unit: " + Price(change.Gain),
                        "arcs that would gain as well: " + std::to_string(change.OthersWithGain)};
        const auto add = [&step](const Rows& rows) {
            if (rows.size() < 2) return;
            const auto lines = picture::Aligned(rows);
            step.Figures.insert(step.Figures.end(), lines.begin(), lines.end());
        };
        add(CycleRows(change));
        step.Figures.push_back("amount moved: " + std::to_string(change.Step));
        step.Figures.push_back("leaves: " + ArcName(change.LeavingArc));
        add(ChangedPotentials(before, change.After));
        step.Figures.push_back("value so far: " + ValueSoFar(change.After));
        step.Figures.push_back("demand not yet served: " + std::to_string(NotYetShipped(change.After)));
        step.Why =
            WhyEntering(change) +
            (change.Step == 0 ? "; nothing moves, as " + ArcName(change.LeavingArc) +
                                    " carries nothing, but the prices change."
                              : "; " + ArcName(change.LeavingArc) + " runs empty and limits the amount.");
        step.Arithmetic = GainArithmetic(change, before);
        step.Picture = Title();
        step.Marks = MarksOf(change.EnteringArc);
        return step;
    }

    // The ends of an arc and, where it is drawn in the end, the arc.
    [[nodiscard]] std::vector<std::string> MarksOf(int arc) const
    {
        std::vector<std::string> marks;
        for (const int node : {TailOf(problem_, arc), HeadOf(problem_, arc)})
            if (node <= problem_.NumNodes) marks.push_back(NodeName(node));
        for (int n = 1; n <= problem_.NumNodes; ++n)
            if (IsRoute(arc) && std::abs(result_.BasicArc(n)) == arc && result_.BasicFlow(n) > 0)
                marks.push_back(ArcName(arc));
        return marks;
    }

    // The plan's value is what the amounts are worth at the potentials: no other plan can be better.
    [[nodiscard]] Step Proof(const TreeState& last) const
    {
        double byPotentials = 0;
        double byArcs = 0;
        double penalty = 0;
        Rows rows{{"arc in use", "amount", "cost"}};
        for (int n = 1; n <= problem_.NumNodes; ++n) {
            const int arc = std::abs(last.BasicArc(n));
            byPotentials += problem_.NodeSupply(n) * last.NodePotential(n);
            (IsRoute(arc) ? byArcs : penalty) += last.BasicFlow(n) * ScaledCost(arc);
            if (last.BasicFlow(n) > 0)
                rows.push_back(
                    {ArcName(arc), std::to_string(last.BasicFlow(n)), Price(Sense() * ScaledCost(arc))});
        }
        Step step;
        step.Heading = "No arc gains any more";
        step.Figures = picture::Aligned(rows);
        step.Figures.push_back("amounts at their potentials: " + Price(Sense() * byPotentials));
        step.Figures.push_back("shipments times costs:       " + Price(Sense() * byArcs));
        if (penalty != 0) step.Figures.push_back("penalty of what is missing:  " + Price(Sense() * penalty));
        step.Why = penalty == 0 ? "Supplies and demands at their potentials are worth just what the plan is "
                                  "worth, so that no plan can be better."
                                : "Supplies and demands at their potentials are worth just what the plan and "
                                  "the penalty are worth, so that no plan can be better.";
        step.Picture = Title();
        return step;
    }

    const TableauProblem& problem_;
    const TableauResult& result_;
    const SideNames& names_;
    Trace trace_;
};

}  // namespace

std::vector<Step> TransportationSteps(const TableauProblem& problem, const TableauResult& result)
{
    if (!HasPlan(problem, result)) return {};
    return Story(problem, result, kTransportationSides).Steps();
}

std::vector<Step> AssignmentSteps(const TableauProblem& problem, const TableauResult& result)
{
    if (!HasPlan(problem, result)) return {};
    return Story(problem, result, kAssignmentSides).Steps();
}

}  // namespace Tableau
