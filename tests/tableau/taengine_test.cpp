// The solver against other methods: successive shortest paths on the same network, all permutations of small
// assignments, the optimality conditions of the final tree, and published schedules.
#include "tableau/taengine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "tableau/tables.h"
#include "tableau/transout.h"

namespace {

using Tableau::Problem;
using Tableau::Result;
using Whole = std::int64_t;

Whole Scaled(double cost)
{
    const auto scaled = static_cast<Whole>(std::floor(100000 * cost));
    return MaximizeFlag == "YES" ? -scaled : scaled;
}

Whole DearestCost()
{
    Whole dearest = 0;
    for (int e = 1; e <= Problem.NumArcs; ++e)
        dearest = std::max(dearest, std::abs(Scaled(Problem.ArcCost(e).Value())));
    return dearest * Problem.NumNodes;
}

// Minimum cost flow by successive shortest paths (Bellman-Ford on the residual network).
class CheapestFlow {
public:
    explicit CheapestFlow(int nodes) : nodes_(nodes) {}

    void Join(int from, int to, Whole cost)
    {
        arcs_.push_back({from, to, std::numeric_limits<Whole>::max() / 4, cost});
        arcs_.push_back({to, from, 0, -cost});
    }

    // What it costs to bring the excesses (by node) to the deficits.
    Whole Cost(std::vector<Whole> excess)
    {
        Whole cost = 0;
        for (;;) {
            const auto from = std::find_if(excess.begin(), excess.end(), [](Whole e) { return e > 0; });
            if (from == excess.end()) return cost;
            cost += SendFrom(static_cast<int>(from - excess.begin()), excess);
        }
    }

private:
    struct Arc {
        int From, To;
        Whole Room, Cost;
    };

    // Sends along a cheapest path to some deficit.
    Whole SendFrom(int source, std::vector<Whole>& excess)
    {
        constexpr Whole kFar = std::numeric_limits<Whole>::max() / 4;
        std::vector<Whole> distance(static_cast<std::size_t>(nodes_), kFar);
        std::vector<int> by(static_cast<std::size_t>(nodes_), -1);
        const auto at = [](auto& list, int i) -> auto&
        {
            return list[static_cast<std::size_t>(i)];
        };
        at(distance, source) = 0;
        for (bool changed = true; changed;) {
            changed = false;
            for (int k = 0; k < static_cast<int>(arcs_.size()); ++k) {
                const Arc& arc = at(arcs_, k);
                if (arc.Room == 0 || at(distance, arc.From) == kFar) continue;
                if (at(distance, arc.From) + arc.Cost >= at(distance, arc.To)) continue;
                at(distance, arc.To) = at(distance, arc.From) + arc.Cost;
                at(by, arc.To) = k;
                changed = true;
            }
        }
        int sink = -1;
        for (int n = 0; n < nodes_; ++n)
            if (at(excess, n) < 0 && (sink < 0 || at(distance, n) < at(distance, sink))) sink = n;
        Whole units = std::min(at(excess, source), -at(excess, sink));
        for (int n = sink; n != source; n = at(arcs_, at(by, n)).From)
            units = std::min(units, at(arcs_, at(by, n)).Room);
        for (int n = sink; n != source; n = at(arcs_, at(by, n)).From) {
            at(arcs_, at(by, n)).Room -= units;
            at(arcs_, at(by, n) ^ 1).Room += units;
        }
        at(excess, source) -= units;
        at(excess, sink) += units;
        return units * at(distance, sink);
    }

    int nodes_;
    std::vector<Arc> arcs_;
};

// The cost of the whole network, root included, by the other method.
Whole OtherCost()
{
    const int root = Problem.NumNodes + 1;
    CheapestFlow flow(root + 1);
    std::vector<Whole> excess(static_cast<std::size_t>(root) + 1);
    for (int e = 1; e <= Problem.NumArcs; ++e)
        flow.Join(Problem.TailNode(e), Problem.HeadNode(e), Scaled(Problem.ArcCost(e).Value()));
    for (int n = 1; n < root; ++n) {
        const Whole supply = Problem.NodeSupply(n);
        excess[static_cast<std::size_t>(n)] = supply;
        excess[static_cast<std::size_t>(root)] -= supply;
        if (supply >= 0)
            flow.Join(n, root, 0);
        else
            flow.Join(root, n, DearestCost());
    }
    return flow.Cost(excess);
}

// The cost of an arc, those of the root included.
Whole CostOf(int arc)
{
    if (arc <= Problem.NumArcs) return Scaled(Problem.ArcCost(arc).Value());
    return Problem.NodeSupply(arc - Problem.NumArcs) >= 0 ? 0 : DearestCost();
}

Whole TreeCost()
{
    Whole cost = 0;
    for (int n = 1; n <= Problem.NumNodes; ++n)
        cost += Result.BasicFlow(n) * CostOf(std::abs(Result.BasicArc(n)));
    return cost;
}

int OtherEnd(int node)
{
    const int arc = Result.BasicArc(node);
    return arc > 0 ? Tableau::HeadOf(Problem, arc) : Tableau::TailOf(Problem, -arc);
}

// The price of a node: the cost of its way to the root in the tree.
Whole PriceOf(int node)
{
    Whole price = 0;
    for (; node != Problem.NumNodes + 1; node = OtherEnd(node))
        price += Result.BasicArc(node) > 0 ? CostOf(Result.BasicArc(node)) : -CostOf(-Result.BasicArc(node));
    return price;
}

// No route, and no way from a node to the root, is cheaper than what the tree's prices say. Arcs of the tree
// price at exactly their cost by the way prices are made, so flow stands only where that holds.
void ExpectPricesFit()
{
    std::vector<Whole> price(static_cast<std::size_t>(Problem.NumNodes) + 2);
    for (int n = 1; n <= Problem.NumNodes; ++n)
        price[static_cast<std::size_t>(n)] = PriceOf(n);
    for (int e = 1; e <= Problem.NumArcs + Problem.NumNodes; ++e) {
        if (e > Problem.NumArcs && Problem.NodeSupply(e - Problem.NumArcs) < 0) continue;
        const Whole saving = price[static_cast<std::size_t>(Tableau::TailOf(Problem, e))] -
                             price[static_cast<std::size_t>(Tableau::HeadOf(Problem, e))] - CostOf(e);
        ASSERT_LE(saving, 0) << "arc " << e;
    }
}

void ExpectFlowsFit()
{
    std::vector<Whole> left(static_cast<std::size_t>(Problem.NumNodes) + 2);
    for (int n = 1; n <= Problem.NumNodes; ++n) {
        const int arc = std::abs(Result.BasicArc(n));
        ASSERT_GE(Result.BasicFlow(n), 0);
        left[static_cast<std::size_t>(Tableau::TailOf(Problem, arc))] += Result.BasicFlow(n);
        left[static_cast<std::size_t>(Tableau::HeadOf(Problem, arc))] -= Result.BasicFlow(n);
    }
    for (int n = 1; n <= Problem.NumNodes; ++n)
        ASSERT_EQ(left[static_cast<std::size_t>(n)], Problem.NodeSupply(n)) << "node " << n;
}

void ExpectOptimal()
{
    Solve();
    ExpectFlowsFit();
    ExpectPricesFit();
    EXPECT_EQ(TreeCost(), OtherCost());
}

class Draws {
public:
    explicit Draws(unsigned seed) : engine_(seed) {}
    int From(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }

    Rows Costs(int rows, int columns, int low, int high, double unit)
    {
        Rows costs(static_cast<std::size_t>(rows), std::vector<double>(static_cast<std::size_t>(columns)));
        for (auto& row : costs)
            for (double& cost : row)
                cost = From(low, high) * unit;
        return costs;
    }

    std::vector<int> Quantities(int count, int most)
    {
        std::vector<int> quantities(static_cast<std::size_t>(count));
        for (int& quantity : quantities)
            quantity = From(0, 3) == 0 ? 0 : From(0, most);
        return quantities;
    }

private:
    std::mt19937 engine_;
};

const char* Sense(int round)
{
    return round % 2 == 0 ? "NO" : "YES";
}

// Adds to the smaller side until both are equal.
void Balance(std::vector<int>& supplies, std::vector<int>& demands)
{
    const int difference = std::accumulate(supplies.begin(), supplies.end(), 0) -
                           std::accumulate(demands.begin(), demands.end(), 0);
    (difference > 0 ? demands : supplies).back() += std::abs(difference);
}

TEST(taengine, RandomTablesCostWhatSuccessiveShortestPathsCost)
{
    Draws draws(31);
    for (int round = 0; round < 3000; ++round) {
        const int rows = draws.From(1, 7);
        const int columns = draws.From(1, 7);
        const int low = draws.From(0, 2) == 0 ? -50 : 0;
        GiveTransportation(draws.Costs(rows, columns, low, 60, 0.25), draws.Quantities(rows, 25),
                           draws.Quantities(columns, 25), Sense(round));
        ExpectOptimal();
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "round " << round;
    }
}

TEST(taengine, BalancedDegenerateTablesCostWhatSuccessiveShortestPathsCost)
{
    Draws draws(32);
    for (int round = 0; round < 2000; ++round) {
        const int rows = draws.From(1, 8);
        const int columns = draws.From(1, 8);
        auto supplies = draws.Quantities(rows, 3);
        auto demands = draws.Quantities(columns, 3);
        Balance(supplies, demands);
        GiveTransportation(draws.Costs(rows, columns, 0, 3, 1), supplies, demands, Sense(round));
        ExpectOptimal();
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "round " << round;
    }
}

TEST(taengine, LargestTablesWithManyTiesEndAndAreOptimal)
{
    Draws draws(33);
    for (int round = 0; round < 4; ++round) {
        GiveTransportation(draws.Costs(30, 30, 0, 2, 1), draws.Quantities(30, 2), draws.Quantities(30, 2),
                           Sense(round));
        ExpectOptimal();
        GiveAssignment(draws.Costs(30, 30, 0, round, 1), Sense(round));
        ExpectOptimal();
    }
}

TEST(taengine, LargestCostsAndSuppliesStayExact)
{
    Draws draws(34);
    for (int round = 0; round < 20; ++round) {
        GiveTransportation(draws.Costs(6, 6, -999999, 999999, 1), draws.Quantities(6, 999999),
                           draws.Quantities(6, 999999), Sense(round));
        ExpectOptimal();
    }
}

// The best of all ways to give each line of the shorter side a line of its own.
double BestPermutation(const Rows& costs, bool maximize)
{
    const std::size_t rows = costs.size();
    const std::size_t columns = costs[0].size();
    std::vector<std::size_t> order(std::max(rows, columns));
    std::iota(order.begin(), order.end(), 0u);
    double best = maximize ? -1e300 : 1e300;
    do {
        double total = 0;
        for (std::size_t i = 0; i < order.size(); ++i)
            if (i < rows && order[i] < columns) total += costs[i][order[i]];
        best = maximize ? std::max(best, total) : std::min(best, total);
    } while (std::next_permutation(order.begin(), order.end()));
    return best;
}

TEST(taengine, AssignmentsCostWhatTheBestPermutationCosts)
{
    Draws draws(35);
    for (int round = 0; round < 1500; ++round) {
        const Rows costs = draws.Costs(draws.From(1, 6), draws.From(1, 6), 1, 40, 1);
        GiveAssignment(costs, Sense(round));
        ExpectOptimal();
        EXPECT_EQ(Schedule().TotalCost, BestPermutation(costs, round % 2 != 0)) << "round " << round;
    }
}

// Two canneries and three markets (Dantzig, Linear Programming and Extensions): 153.675 thousand dollars.
TEST(taengine, PublishedCanneriesCost153675Dollars)
{
    GiveTransportation({{0.225, 0.153, 0.162}, {0.225, 0.162, 0.126}}, {350, 600}, {325, 300, 275});
    ExpectOptimal();
    EXPECT_NEAR(Schedule().TotalCost, 153.675, 1e-9);
}

// Three canneries and four warehouses of peas (Hillier and Lieberman), 152535 dollars.
TEST(taengine, PublishedPeasAreShippedAsPublished)
{
    GiveTransportation({{464, 513, 654, 867}, {352, 416, 690, 791}, {995, 682, 388, 685}}, {75, 125, 100},
                       {80, 65, 70, 85});
    ExpectOptimal();
    const auto schedule = Schedule();
    EXPECT_EQ(schedule.TotalCost, 152535);
    EXPECT_EQ(schedule.Shipment(1, 2), 20);
    EXPECT_EQ(schedule.Shipment(1, 4), 55);
    EXPECT_EQ(schedule.Shipment(2, 1), 80);
    EXPECT_EQ(schedule.Shipment(2, 2), 45);
    EXPECT_EQ(schedule.Shipment(3, 3), 70);
    EXPECT_EQ(schedule.Shipment(3, 4), 30);
}

// Three children bid for three chores (Taha): 27.
TEST(taengine, PublishedChoresCost27)
{
    GiveAssignment({{15, 10, 9}, {9, 15, 10}, {10, 12, 8}});
    ExpectOptimal();
    EXPECT_EQ(Schedule().TotalCost, 27);
}

TEST(taengine, NothingIsShippedWhenEveryCostIsZero)
{
    GiveTransportation({{0, 0}, {0, 0}}, {5, 6}, {7, 4});
    Solve();
    for (int n = 1; n <= 4; ++n) {
        EXPECT_EQ(std::abs(Result.BasicArc(n)), Problem.NumArcs + n);
        EXPECT_EQ(Result.BasicFlow(n), std::abs(Problem.NodeSupply(n)));
    }
}

TEST(taengine, CostsThatScaleToZeroCountAsZero)
{
    GiveTransportation({{0.000009}}, {5}, {5});
    Solve();
    EXPECT_EQ(Schedule().Shipment(1, 1), 0);
    GiveTransportation({{0.00001}}, {5}, {5});
    Solve();
    EXPECT_EQ(Schedule().Shipment(1, 1), 5);
}

TEST(taengine, OneNonzeroCostGivesARealSchedule)
{
    GiveTransportation({{0, 0}, {0, 1}}, {5, 6}, {7, 4});
    ExpectOptimal();
    const auto schedule = Schedule();
    EXPECT_EQ(schedule.TotalCost, 0);
    EXPECT_EQ(schedule.Shipment(1, 1) + schedule.Shipment(1, 2), 5);
    EXPECT_EQ(schedule.Shipment(2, 1), 6);
}

TEST(taengine, BalancedTablesLeaveNothingOnTheArcsToTheRoot)
{
    GiveTransportation({{3, 1, 2}, {2, 4, 1}}, {10, 20}, {5, 15, 10});
    ExpectOptimal();
    const auto schedule = Schedule();
    for (int n = 1; n <= 5; ++n)
        EXPECT_EQ(schedule.UnusedFlow(n), 0);
}

TEST(taengine, ExcessSupplyStaysWhereShippingIsDear)
{
    GiveTransportation({{1}, {9}}, {10, 10}, {12});
    ExpectOptimal();
    const auto schedule = Schedule();
    EXPECT_EQ(Result.TotalSupply, 20);
    EXPECT_EQ(Result.TotalDemand, 12);
    EXPECT_EQ(schedule.UnusedFlow(1), 0);
    EXPECT_EQ(schedule.UnusedFlow(2), 8);
}

TEST(taengine, ShortageStaysWhereShippingIsDear)
{
    GiveTransportation({{1, 9}}, {10}, {6, 7});
    ExpectOptimal();
    const auto schedule = Schedule();
    EXPECT_EQ(schedule.UnusedFlow(2), 0);
    EXPECT_EQ(schedule.UnusedFlow(3), 3);
}

TEST(taengine, AnAssignmentCountsItsLinesWhateverTheTotals)
{
    GiveAssignment({{1, 2, 3}, {4, 5, 6}});
    Solve();
    EXPECT_EQ(Result.TotalSupply, 2);
    EXPECT_EQ(Result.TotalDemand, 3);
}

TEST(taengine, WithoutSuppliesAndDemandsTheFirstTreeStays)
{
    GiveTransportation({{1, 2}, {3, 4}}, {0, 0}, {0, 0});
    ExpectOptimal();
    for (int n = 1; n <= 4; ++n)
        EXPECT_EQ(Result.BasicArc(n), Problem.NumArcs + n);
}

// The whole supply goes through a destination without demand: the only flow that blocks is the largest
// possible one.
TEST(taengine, ABlockingFlowOfTheWholeSupplyIsFound)
{
    GiveTransportation({{-3}}, {7}, {0});
    ExpectOptimal();
    EXPECT_EQ(Schedule().Shipment(1, 1), 7);
}

TEST(taengine, WholeSuppliesThroughDestinationsWithoutDemandAreOptimal)
{
    Draws draws(36);
    for (int round = 0; round < 500; ++round) {
        const int rows = draws.From(1, 3);
        const int columns = draws.From(1, 3);
        std::vector<int> supplies(static_cast<std::size_t>(rows), 0);
        supplies[static_cast<std::size_t>(draws.From(0, rows - 1))] = 5;
        GiveTransportation(draws.Costs(rows, columns, -4, 4, 1), supplies,
                           std::vector<int>(static_cast<std::size_t>(columns), 0), Sense(round));
        ExpectOptimal();
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "round " << round;
    }
}

// Only a file can hold them. Nothing goes beyond an array.
TEST(taengine, TablesWithoutLinesEndOneWayOrAnother)
{
    for (const auto& [rows, columns] :
         {std::pair{0, 0}, std::pair{0, 1}, std::pair{1, 0}, std::pair{0, 4}, std::pair{4, 0}}) {
        Session.ProblemTitle = "TRANSPORTATION PROBLEM";
        Problem = {};
        Tableau::Allocate(rows, columns);
        try {
            Solve();
            EXPECT_EQ(Schedule().TotalCost, 0);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
        }
    }
}

TEST(taengine, ASecondRunGivesTheSameTree)
{
    Draws draws(37);
    GiveTransportation(draws.Costs(5, 6, 1, 30, 0.5), draws.Quantities(5, 20), draws.Quantities(6, 20));
    Solve();
    const auto first = Result;
    Solve();
    for (int n = 1; n <= Problem.NumNodes; ++n) {
        EXPECT_EQ(Result.BasicArc(n), first.BasicArc(n));
        EXPECT_EQ(Result.BasicFlow(n), first.BasicFlow(n));
    }
}

// In binary 100000 * 4.35 is a hair below 435000, so that 4.35 and 4.34999 are the same cost: the tie goes to
// the first arc although it is entered as dearer.
TEST(taengine, CostsAreComparedAsWholeUnitsByTheFloor)
{
    GiveTransportation({{4.35, 4.34999}}, {1}, {1, 1});
    Solve();
    const auto schedule = Schedule();
    EXPECT_EQ(schedule.Shipment(1, 1), 1);
    EXPECT_EQ(schedule.TotalCost, 4.35);
}

// Revenues are floored before their sign changes: 1.000009 and 1.00000 are the same revenue.
TEST(taengine, RevenuesAreFlooredBeforeTheirSign)
{
    GiveTransportation({{1.0, 1.000009}}, {1}, {1, 1}, "YES");
    Solve();
    EXPECT_EQ(Schedule().Shipment(1, 1), 1);
}

// Routes 2 and 3 save as much as each other, more than 1 and 4: the first of them ships.
TEST(taengine, OfEqualRoutesTheFirstIsTaken)
{
    GiveTransportation({{5}, {1}, {1}, {5}}, {1, 1, 1, 1}, {1});
    Solve();
    EXPECT_EQ(Schedule().Shipment(2, 1), 1);
    EXPECT_EQ(Schedule().Shipment(3, 1), 0);
}

// What a unit over the arc saves at these potentials.
double SavingOver(int arc, const Array1<double>& potential)
{
    return potential(Tableau::TailOf(Problem, arc)) - potential(Tableau::HeadOf(Problem, arc)) -
           static_cast<double>(CostOf(arc));
}

// Against all arcs but those from the root to destinations, which do not come back; costs of a few hundred
// thousandths have savings of a single unit, and many that are equal.
TEST(taengine, AWatchedRunTellsTheArcsThatWouldSaveToo)
{
    Draws draws(77);
    int others = 0;
    for (int round = 0; round < 300; ++round) {
        const int rows = draws.From(1, 5);
        const int columns = draws.From(1, 5);
        GiveTransportation(draws.Costs(rows, columns, 0, 4, 1e-5), draws.Quantities(rows, 3),
                           draws.Quantities(columns, 3));
        Tableau::Trace trace;
        Tableau::TaSolve(Problem, false, &trace);
        const Tableau::TreeState* before = &trace.First;
        for (const Tableau::Change& change : trace.Changes) {
            int count = 0;
            int best = 0;
            double most = 0;
            for (int arc = 1; arc <= Problem.NumArcs + Problem.NumNodes; ++arc) {
                if (arc == change.EnteringArc || Tableau::TailOf(Problem, arc) > Problem.NumNodes) continue;
                const double saving = SavingOver(arc, before->NodePotential);
                if (saving > 0) ++count;
                if (saving > most) {
                    most = saving;
                    best = arc;
                }
            }
            EXPECT_EQ(change.OthersWithGain, count);
            EXPECT_EQ(change.RunnerUp, best);
            EXPECT_EQ(change.RunnerUpGain, most);
            EXPECT_EQ(change.Gain, SavingOver(change.EnteringArc, before->NodePotential));
            others += count;
            before = &change.After;
        }
    }
    EXPECT_GT(others, 500);
}

TEST(taengine, TheRootsArcsJoinEachNodeByItsSupply)
{
    GiveTransportation({{1, 2}}, {9}, {3, 0});
    EXPECT_EQ(Tableau::TailOf(Problem, 2), 1);
    EXPECT_EQ(Tableau::HeadOf(Problem, 2), 3);
    EXPECT_EQ(Tableau::TailOf(Problem, 3), 1);  // a supply
    EXPECT_EQ(Tableau::HeadOf(Problem, 3), 4);
    EXPECT_EQ(Tableau::TailOf(Problem, 4), 4);  // a demand
    EXPECT_EQ(Tableau::HeadOf(Problem, 4), 2);
    EXPECT_EQ(Tableau::TailOf(Problem, 5), 3);  // neither
    EXPECT_EQ(Tableau::HeadOf(Problem, 5), 4);
}

TEST(taengine, AResultTellsWhetherThereIsOne)
{
    GiveTransportation({{1, 2}}, {9}, {3, 4});
    EXPECT_FALSE(Result.Solved);
    Solve();
    EXPECT_TRUE(Result.Solved);
    EXPECT_FALSE(Result.Maximize);
}

}  // namespace
