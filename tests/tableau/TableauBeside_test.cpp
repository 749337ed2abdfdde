// Pictures, steps and meaning of transportation and assignment: against all plans of small tables, and by
// hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>

#include "basic/number.h"
#include "support/sound_pictures.h"
#include "tableau/TableauMeaning.h"
#include "tableau/TableauPicture.h"
#include "tableau/TableauPlan.h"
#include "tableau/TableauSteps.h"
#include "tableau/module.h"
#include "tableau/tables.h"

namespace {

using Tableau::Problem;
using Tableau::Result;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Texts = std::vector<std::string>;

std::vector<picture::Picture> TransportPictures()
{
    return Tableau::TransportationPictures(Problem, Result);
}

Texts TransportMeaning()
{
    return TextsOf(Tableau::TransportationMeaning(Problem, Result));
}

Texts AssignMeaning()
{
    return TextsOf(Tableau::AssignmentMeaning(Problem, Result));
}

const picture::Diagram& DiagramOf(const picture::Picture& picture)
{
    return std::get<picture::Diagram>(picture.Body);
}

const picture::Chart& ChartOf(const picture::Picture& picture)
{
    return std::get<picture::Chart>(picture.Body);
}

// Every way to ship as much as can be shipped: the best value and how many plans have it.
struct BestPlans {
    double Value = 0;
    int Count = 0;
};

class AllPlans {
public:
    AllPlans(Rows costs, std::vector<int> supplies, std::vector<int> demands)
        : costs_(std::move(costs)), supplies_(std::move(supplies)), demands_(std::move(demands))
    {
        const int supply = std::accumulate(supplies_.begin(), supplies_.end(), 0);
        const int demand = std::accumulate(demands_.begin(), demands_.end(), 0);
        Fill(0, std::min(supply, demand), 0);
    }

    [[nodiscard]] BestPlans Best() const { return best_; }

private:
    void Fill(std::size_t cell, int left, double value)
    {
        const std::size_t columns = demands_.size();
        if (cell == supplies_.size() * columns) {
            if (left == 0) Take(value);
            return;
        }
        int& supply = supplies_[cell / columns];
        int& demand = demands_[cell % columns];
        const int most = std::min({supply, demand, left});
        for (int units = 0; units <= most; ++units) {
            supply -= units;
            demand -= units;
            Fill(cell + 1, left - units, value + units * costs_[cell / columns][cell % columns]);
            supply += units;
            demand += units;
        }
    }

    void Take(double value)
    {
        if (best_.Count == 0 || value < best_.Value) best_ = {value, 0};
        if (value == best_.Value) ++best_.Count;
    }

    Rows costs_;
    std::vector<int> supplies_;
    std::vector<int> demands_;
    BestPlans best_;
};

struct RandomTable {
    Rows Costs;
    std::vector<int> Supplies;
    std::vector<int> Demands;
};

RandomTable Draw(std::mt19937& random, int mostLines, int mostUnits, int mostCost)
{
    const auto from = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    RandomTable table;
    table.Supplies.resize(static_cast<std::size_t>(from(1, mostLines)));
    table.Demands.resize(static_cast<std::size_t>(from(1, mostLines)));
    for (int& supply : table.Supplies)
        supply = from(0, mostUnits);
    for (int& demand : table.Demands)
        demand = from(1, mostUnits);
    table.Costs.assign(table.Supplies.size(), std::vector<double>(table.Demands.size()));
    for (auto& row : table.Costs)
        for (double& cost : row)
            cost = from(0, mostCost);
    return table;
}

// ---- plans that are as good ----

TEST(TableauPlan, AnotherBestPlanIsToldExactlyWhereThereIsOne)
{
    std::mt19937 random(91);
    int several = 0;
    int one = 0;
    for (int round = 0; round < 1500; ++round) {
        const RandomTable table = Draw(random, 3, 3, 4);
        GiveTransportation(table.Costs, table.Supplies, table.Demands);
        Solve();
        if (Tableau::AllCostsAreZero(Problem)) continue;
        const BestPlans best = AllPlans(table.Costs, table.Supplies, table.Demands).Best();
        ASSERT_EQ(Schedule().TotalCost, best.Value) << "round " << round;
        const auto others = Tableau::FindOtherPlans(Problem, Result);
        (best.Count > 1 ? several : one) += 1;
        ASSERT_EQ(!others.Arcs.empty(), best.Count > 1) << "round " << round;
    }
    EXPECT_GT(several, 200);
    EXPECT_GT(one, 200);
}

TEST(TableauPlan, AnArcNamedUsableIsUsedByAPlanOfTheSameValue)
{
    std::mt19937 random(92);
    int checked = 0;
    for (int round = 0; round < 600; ++round) {
        const RandomTable table = Draw(random, 3, 3, 4);
        GiveTransportation(table.Costs, table.Supplies, table.Demands);
        Solve();
        if (Tableau::AllCostsAreZero(Problem)) continue;
        const double value = Schedule().TotalCost;
        for (const int arc : Tableau::FindOtherPlans(Problem, Result).Arcs) {
            if (arc > Problem.NumArcs) continue;  // another remainder
            // A hair cheaper, it is used.
            GiveTransportation(table.Costs, table.Supplies, table.Demands);
            Problem.ArcCost(arc) = Problem.ArcCost(arc).Value() - 0.0001;
            Solve();
            const auto routes = Tableau::RoutesOf(Problem, Result);
            ASSERT_TRUE(std::any_of(routes.begin(), routes.end(),
                                    [&](const Tableau::Route& route) {
                                        return Tableau::ArcNumber(route.Origin, route.Destination) == arc;
                                    }))
                << "round " << round;
            ASSERT_NEAR(Schedule().TotalCost, value, 0.01);
            ++checked;
        }
    }
    EXPECT_GT(checked, 100);
}

TEST(TableauPlan, TheNearestRouteComesInBehindItsDifferenceAndNotBefore)
{
    std::mt19937 random(93);
    int checked = 0;
    for (int round = 0; round < 600; ++round) {
        const RandomTable table = Draw(random, 4, 6, 9);
        for (const char* sense : {"NO", "YES"}) {
            GiveTransportation(table.Costs, table.Supplies, table.Demands, sense);
            Solve();
            const double value = Schedule().TotalCost;
            const auto others = Tableau::FindOtherPlans(Problem, Result);
            if (others.NearestArc == 0 || Tableau::AllCostsAreZero(Problem)) continue;
            const double sign = Result.Maximize ? 1 : -1;
            Problem.ArcCost(others.NearestArc) =
                Problem.ArcCost(others.NearestArc).Value() + sign * (others.NearestCost - 0.25);
            Solve();
            ASSERT_EQ(Schedule().TotalCost, value) << "round " << round;
            ++checked;
        }
    }
    EXPECT_GT(checked, 500);
}

// ---- pictures ----

TEST(TransportationPicture, ShowsBlocksAndShipments)
{
    GiveTransportation({{4, 2.5}, {1, 3}}, {10, 25}, {15, 15});
    Problem.DecimalPlaces = 1.0;
    Solve();
    const auto pictures = TransportPictures();
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_THAT(Listing(pictures[0], 1, 2),
                ElementsAre("picture 1 of 2 diagram \"Shipments\"",                            //
                            "node box plain \"origin 1\" \"Origin 1\\nsupply 10\"",            //
                            "node box plain \"origin 2\" \"Origin 2\\nsupply 25, 5 unused\"",  //
                            "node box plain \"destination 1\" \"Destination 1\\ndemand 15\"",  //
                            "node box plain \"destination 2\" \"Destination 2\\ndemand 15\"",  //
                            "arc chosen \"origin 1\" \"destination 2\" 10 \"10\"",             //
                            "arc chosen \"origin 2\" \"destination 1\" 15 \"15\"",             //
                            "arc chosen \"origin 2\" \"destination 2\" 5 \"5\"",               //
                            "note \"30 units go over 3 routes; the value is 55.\"",            //
                            "note \"Supply 35, demand 30.\"",                                  //
                            "note \"Origin 2 keeps 5.\""));
    EXPECT_THAT(Listing(pictures[1], 2, 2),
                ElementsAre("picture 2 of 2 chart \"Cost\"",                              //
                            "axis x \"Value\" 0 28.75",                                   //
                            "axis y \"Route\" 0.5 3.5 \"1 to 2\" \"2 to 1\" \"2 to 2\"",  //
                            "bars chosen \"shipments times cost\" 25,1 15,2 15,3",        //
                            "note \"The largest part is route 1 to 2 with 25.0.\"",       //
                            "note \"All routes together: 55.\""));
}

TEST(TransportationPicture, TellsWhoStaysShort)
{
    GiveTransportation({{1, 9}}, {10}, {6, 7});
    Solve();
    const auto pictures = TransportPictures();
    const auto& nodes = DiagramOf(pictures[0]).Nodes;
    EXPECT_THAT(nodes[2].Lines, ElementsAre("Destination 2", "demand 7, 3 short"));
    EXPECT_EQ(nodes[2].Amount, 7);
    EXPECT_EQ(nodes[2].Used, 4);
    EXPECT_EQ(pictures[0].Notes.back(), "Destination 2 stays 3 short.");
}

TEST(TransportationPicture, NothingShippedIsSaid)
{
    GiveTransportation({{0, 0}}, {10}, {6, 7});
    Solve();
    const auto pictures = TransportPictures();
    EXPECT_TRUE(DiagramOf(pictures[0]).Arcs.empty());
    EXPECT_EQ(pictures[0].Notes[0], "Nothing is shipped: every cost counts as 0.");
    EXPECT_EQ(DiagramOf(pictures[0]).Nodes[0].As, picture::Role::Spare);
    EXPECT_TRUE(ChartOf(pictures[1]).Curves.empty());
    EXPECT_EQ(pictures[1].Notes[0], "Nothing is shipped.");
}

TEST(TransportationPicture, ABlockWithoutDemandGrowsWithWhatItReceives)
{
    GiveTransportation({{-3}}, {7}, {0});
    Solve();
    const auto pictures = TransportPictures();
    EXPECT_EQ(DiagramOf(pictures[0]).Nodes[1].Amount, 7);
    EXPECT_EQ(DiagramOf(pictures[0]).Nodes[1].Lines[1], "demand 0, 7 more");
    EXPECT_EQ(ChartOf(pictures[1]).X.From, -24.15);
    EXPECT_EQ(ChartOf(pictures[1]).X.To, 0);
}

TEST(TransportationPicture, MoreThanTwelveLinesOnASideHaveATableFirst)
{
    for (const int lines : {12, 13}) {
        const auto count = static_cast<std::size_t>(lines);
        GiveTransportation(Rows(count, {2.0}), std::vector<int>(count, 1), {lines});
        Solve();
        const auto pictures = TransportPictures();
        ASSERT_EQ(pictures.size(), lines == 13 ? 3U : 2U);
        EXPECT_EQ(pictures[0].Title, lines == 13 ? "Table" : "Shipments");
    }
    const auto pictures = TransportPictures();
    const auto& table = ChartOf(pictures[0]);
    EXPECT_TRUE(table.Cells);
    ASSERT_EQ(table.Marks.size(), 13U);
    EXPECT_EQ(table.Marks[4].As, picture::Role::Chosen);
    EXPECT_EQ(table.Marks[4].Text, "1");
    EXPECT_EQ(table.Marks[4].At.X, 1);
    EXPECT_EQ(table.Marks[4].At.Y, 5);
}

TEST(AssignmentPicture, SetsTasksInTheOrderOfTheirAgents)
{
    GiveAssignment({{9, 2, 9, 9}, {9, 9, 9, 1}, {3, 9, 9, 9}});
    Solve();
    const auto pictures = Tableau::AssignmentPictures(Problem, Result);
    ASSERT_EQ(pictures.size(), 1U);
    Texts ids;
    for (const auto& node : DiagramOf(pictures[0]).Nodes)
        ids.push_back(node.Id);
    EXPECT_THAT(ids, ElementsAre("agent 1", "agent 2", "agent 3", "task 2", "task 4", "task 1", "task 3"));
    EXPECT_EQ(DiagramOf(pictures[0]).Nodes.back().As, picture::Role::Spare);
    EXPECT_THAT(pictures[0].Notes, ElementsAre("3 pairs are chosen, for 6 in all.", "Task 3 is left over."));
    EXPECT_EQ(DiagramOf(pictures[0]).Arcs[1].Text, "1");
    EXPECT_EQ(DiagramOf(pictures[0]).Arcs[1].To, "task 4");
}

TEST(AssignmentPicture, AgentsWithoutATaskStandBelow)
{
    GiveAssignment({{5}, {3}, {4}});
    Solve();
    const auto pictures = Tableau::AssignmentPictures(Problem, Result);
    EXPECT_EQ(DiagramOf(pictures[0]).Nodes[0].Id, "agent 2");
    EXPECT_THAT(pictures[0].Notes,
                ElementsAre("1 pair is chosen, for 3 in all.", "Agents 1 and 3 are left over."));
}

TEST(AssignmentPicture, AWideTableShowsItsCosts)
{
    Rows costs(13, std::vector<double>(13, 5));
    for (std::size_t i = 0; i < 13; ++i)
        costs[i][12 - i] = 1;
    GiveAssignment(costs);
    Solve();
    const auto pictures = Tableau::AssignmentPictures(Problem, Result);
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_EQ(pictures[0].Title, "Table");
    const auto& marks = ChartOf(pictures[0]).Marks;
    ASSERT_EQ(marks.size(), 169U);
    for (const auto& mark : marks) {
        const bool chosen = mark.At.X + mark.At.Y == 14;
        EXPECT_EQ(mark.As, chosen ? picture::Role::Chosen : picture::Role::Plain);
        EXPECT_EQ(mark.Text, chosen ? "1" : "5");
    }
}

TEST(TableauBeside, NothingIsShownBeforeASolve)
{
    GiveTransportation({{1}}, {1}, {1});
    EXPECT_THAT(TransportPictures(), IsEmpty());
    EXPECT_THAT(TransportMeaning(), IsEmpty());
    EXPECT_THAT(Tableau::TransportationSteps(Problem, Result), IsEmpty());
    GiveAssignment({{1}});
    EXPECT_THAT(Tableau::AssignmentPictures(Problem, Result), IsEmpty());
    EXPECT_THAT(AssignMeaning(), IsEmpty());
    EXPECT_THAT(Tableau::AssignmentSteps(Problem, Result), IsEmpty());
}

// ---- steps ----

TEST(TableauSteps, OneRouteTakesOneChange)
{
    GiveTransportation({{4}}, {7}, {5});
    Solve();
    const auto steps = Tableau::TransportationSteps(Problem, Result);
    ASSERT_EQ(steps.size(), 3U);
    // The penalty is the largest cost times the nodes: 4 * 2 = 8.
    EXPECT_THAT(steps[0].Figures, ElementsAre("node           amount  potential",  //
                                              "origin 1            7          0",  //
                                              "destination 1       5         -8"));
    EXPECT_EQ(steps[1].Heading, "Change 1: route 1 to 1 comes in");
    EXPECT_THAT(steps[1].Figures, ElementsAre("gain a unit: 4",                                  //
                                              "arcs that would gain as well: 0",                 //
                                              "arc of the cycle           sign  before  after",  //
                                              "route 1 to 1                  +       0      5",  //
                                              "arc root to destination 1     -       5      0",  //
                                              "arc origin 1 to root          -       7      2",  //
                                              "amount moved: 5",                                 //
                                              "leaves: arc root to destination 1",               //
                                              "changed potential  before  after",                //
                                              "destination 1          -8     -4",                //
                                              "value so far: 20",                                //
                                              "demand not yet served: 0"));
    EXPECT_THAT(steps[1].Arithmetic, ElementsAre("0 - -8 - 4 = 4"));
    EXPECT_EQ(steps[1].Why,
              "It is the only arc that still saves anything; arc root to destination 1 runs empty and limits "
              "the amount.");
    EXPECT_THAT(steps[1].Marks, ElementsAre("origin 1", "destination 1", "route 1 to 1"));
    EXPECT_EQ(steps[2].Heading, "No arc gains any more");
    EXPECT_THAT(steps[2].Figures, ElementsAre("arc in use            amount  cost",  //
                                              "arc origin 1 to root       2     0",  //
                                              "route 1 to 1               5     4",  //
                                              "amounts at their potentials: 20",     //
                                              "shipments times costs:       20"));
}

TEST(TableauSteps, RevenuesBring)
{
    GiveTransportation({{4, 6}}, {3}, {2, 2}, "YES");
    Solve();
    const auto steps = Tableau::TransportationSteps(Problem, Result);
    EXPECT_THAT(steps[1].Why, HasSubstr("It brings most, "));
    EXPECT_THAT(steps.back().Figures, Contains("shipments times costs:       16"));
}

std::string LineWith(const picture::Step& step, const std::string& begin)
{
    for (const auto& line : step.Figures)
        if (line.starts_with(begin)) return line.substr(begin.size());
    return {};
}

// What the whole network costs, in the sense of minimising, with the penalty of unmet demands.
double CostOf(const Tableau::TreeState& state)
{
    const double sense = Result.Maximize ? -1 : 1;
    double dearest = 0;
    for (int e = 1; e <= Problem.NumArcs; ++e)
        dearest = std::max(dearest, Problem.ArcCost(e).Value());
    double sum = 0;
    for (int n = 1; n <= Problem.NumNodes; ++n) {
        const int arc = std::abs(state.BasicArc(n));
        if (arc <= Problem.NumArcs)
            sum += sense * state.BasicFlow(n) * Problem.ArcCost(arc).Value();
        else if (Problem.NodeSupply(arc - Problem.NumArcs) < 0)
            sum += state.BasicFlow(n) * dearest * Problem.NumNodes;
    }
    return sum;
}

// Each change lowers the cost of the whole network, penalty included, by its gain times its amount; its cycle
// keeps what every node gets; the last tree is the result's.
TEST(TableauSteps, RandomRunsAddUpAndEndAtTheResult)
{
    std::mt19937 random(94);
    for (int round = 0; round < 600; ++round) {
        const RandomTable table = Draw(random, 6, 9, 12);
        GiveTransportation(table.Costs, table.Supplies, table.Demands, round % 2 == 0 ? "NO" : "YES");
        Solve();
        Tableau::Trace trace;
        Tableau::TaSolve(Problem, Result.Maximize, &trace);
        double before = CostOf(trace.First);
        for (const auto& change : trace.Changes) {
            ASSERT_GT(change.Gain, 0);
            ASSERT_GE(change.Gain, change.RunnerUpGain);
            ASSERT_NEAR(CostOf(change.After), before - change.Gain / Tableau::kCostScale * change.Step, 1e-6);
            before = CostOf(change.After);
            std::map<int, int> balance;
            for (const auto& arc : change.Cycle) {
                balance[Tableau::TailOf(Problem, arc.Arc)] += arc.Sign;
                balance[Tableau::HeadOf(Problem, arc.Arc)] -= arc.Sign;
                ASSERT_GE(arc.Flow + arc.Sign * change.Step, 0);
            }
            for (const auto& [node, sum] : balance)
                ASSERT_EQ(sum, 0) << node;
        }
        const auto& last = trace.Changes.empty() ? trace.First : trace.Changes.back().After;
        for (int n = 1; n <= Problem.NumNodes; ++n) {
            ASSERT_EQ(last.BasicArc(n), Result.BasicArc(n));
            ASSERT_EQ(last.BasicFlow(n), Result.BasicFlow(n));
        }
        const auto steps = Tableau::TransportationSteps(Problem, Result);
        ASSERT_EQ(steps.size(), trace.Changes.size() + 2);
        ExpectSound(steps, TransportPictures());
        const std::string value = LineWith(steps[steps.size() - 2], "value so far: ");
        ASSERT_EQ(Val(value), Schedule().TotalCost);  // without a change both are nothing
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "round " << round;
    }
}

// ---- meaning ----

TEST(TransportationMeaning, SaysWhatIsShippedAndWhatLimits)
{
    GiveTransportation({{1}, {9}, {8}}, {10, 10, 3}, {12});
    Solve();
    EXPECT_THAT(TransportMeaning(),
                ElementsAre("Ship 12 units over 2 routes; the value is 26.",
                            "Origins 2 and 3 keep 10 and 1 units: supply exceeds demand by 11.",
                            "Route 2 to 1 would have to cost 1 less a unit before it could come in without "
                            "loss."));
}

// Origin 4 has nothing to ship at any price.
TEST(TransportationMeaning, AnOriginWithoutSupplyHasNoNearestRoute)
{
    GiveTransportation({{7, 8}, {3, 10}, {7, 2}, {9, 7}}, {10, 38, 5, 0}, {40, 26});
    Solve();
    ASSERT_NE(Tableau::FindOtherPlans(Problem, Result).NearestArc, 0);
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("Route 4"))));
    GiveTransportation({{7, 8}, {3, 10}, {7, 2}, {9, 7}}, {10, 38, 5, 1}, {40, 26});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains(HasSubstr("Route ")));
}

// No price would move anything where there is nothing to move.
TEST(TransportationMeaning, NothingToShipHasNoNearestRoute)
{
    GiveTransportation({{3, 5}, {2, 9}}, {0, 0}, {4, 4});
    Solve();
    EXPECT_THAT(TransportMeaning(), ElementsAre("Nothing is shipped, as there is no supply."));
}

TEST(TransportationMeaning, OneUnitOverOneRoute)
{
    GiveTransportation({{5}}, {1}, {1});
    Solve();
    EXPECT_THAT(TransportMeaning(), ElementsAre("Ship 1 unit over 1 route; the value is 5."));
}

TEST(TransportationMeaning, SaysWhoKeepsAndWhoStaysShort)
{
    GiveTransportation({{1}, {2}}, {10, 51}, {11});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains("Origin 2 keeps 50 units: supply exceeds demand by 50."));
    GiveTransportation({{1, 9}}, {10}, {6, 7});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains("Destination 2 stays 3 units short, as supply does not suffice; "
                                             "who goes short is part of the best plan."));
    GiveTransportation({{1, 9}}, {13}, {6, 7});
    Solve();
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("keeps"))));
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("short"))));
}

TEST(TransportationMeaning, CountsManyRemainders)
{
    GiveTransportation({{1, 2, 3, 4, 5, 6}}, {1}, {3, 3, 3, 3, 3, 3});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains(HasSubstr("6 destinations stay short by 17 units in all, as")));
}

TEST(TransportationMeaning, AnotherScheduleOnlyWhereThereIsOne)
{
    GiveTransportation({{1, 1}, {1, 1}}, {5, 5}, {5, 5});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains(HasSubstr("Another schedule has the same value: route ")));
    GiveTransportation({{1, 2}, {3, 1}}, {5, 5}, {5, 5});
    Solve();
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("Another schedule"))));
}

// 3 units for 2 destinations that ask for 2 each, at one cost: whoever is short, the value is the same.
TEST(TransportationMeaning, AnotherRemainderIsAnotherSchedule)
{
    GiveTransportation({{1, 1}}, {3}, {2, 2});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains(testing::MatchesRegex(
                                        "Another schedule has the same value: destination . could stay "
                                        "short instead.")));
    GiveTransportation({{2}, {2}}, {2, 2}, {3});
    Solve();
    EXPECT_THAT(TransportMeaning(),
                Contains(testing::MatchesRegex("Another schedule has the same value: origin . could keep "
                                               "some units.")));
}

TEST(TransportationMeaning, RevenuesWouldHaveToBringMore)
{
    GiveTransportation({{4}, {6}}, {3, 3}, {3}, "YES");
    Solve();
    EXPECT_THAT(TransportMeaning(),
                Contains("Route 1 to 1 would have to bring 2 more a unit before it could come in without "
                         "loss."));
}

TEST(TransportationMeaning, NothingToShipHasItsReason)
{
    GiveTransportation({{4}}, {0}, {3});
    Solve();
    EXPECT_EQ(TransportMeaning()[0], "Nothing is shipped, as there is no supply.");
    GiveTransportation({{4}}, {3}, {0});
    Solve();
    EXPECT_EQ(TransportMeaning()[0], "Nothing is shipped, as there is no demand.");
    GiveTransportation({{0}}, {3}, {3});
    Solve();
    EXPECT_EQ(TransportMeaning()[0], "Nothing is shipped; the value is 0.");
    EXPECT_THAT(TransportMeaning(), Contains(HasSubstr("Every figure counts as 0")));
    GiveTransportation({{0, 1}}, {3}, {3, 0});
    Solve();
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("Every figure counts as 0"))));
}

TEST(TransportationMeaning, CautionsStandWhereTheyApply)
{
    GiveTransportation({{-3}}, {7}, {0});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains(HasSubstr("Destination 1 asks for nothing and yet receives")));
    GiveTransportation({{-3}}, {7}, {7});
    Solve();
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("asks for nothing"))));

    GiveTransportation({{0.123456}}, {1}, {1});
    Solve();
    EXPECT_THAT(TransportMeaning(), Contains(HasSubstr("compared to five decimals")));
    GiveTransportation({{0.12345}}, {1}, {1});
    Solve();
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("compared to five decimals"))));

    GiveTransportation({{99999.5}}, {1}, {1});
    Problem.DecimalPlaces = 1.0;
    Solve();
    EXPECT_THAT(TransportMeaning(), Not(Contains(HasSubstr("cuts figures"))));
    Problem.ArcCost(1) = 100000.5;
    EXPECT_THAT(TransportMeaning(),
                Contains("The printed table cuts figures at 7 characters, as that of 1 to 1."));
}

// The condition against the report itself.
TEST(TransportationMeaning, TheDemandListFailsWhereItIsSaidTo)
{
    for (const auto& [origins, destinations] :
         {std::pair{23, 24}, std::pair{23, 25}, std::pair{24, 25}, std::pair{1, 30}, std::pair{26, 25},
          std::pair{27, 25}, std::pair{30, 29}, std::pair{30, 28}, std::pair{30, 24}, std::pair{30, 30}}) {
        const auto rows = static_cast<std::size_t>(origins);
        const auto columns = static_cast<std::size_t>(destinations);
        GiveTransportation(Rows(rows, std::vector<double>(columns, 1)), std::vector<int>(rows, 1),
                           std::vector<int>(columns, 1));
        Solve();
        bool fails = false;
        try {
            LinesOf(Tableau::PrintSuppliesAndDemands);
        } catch (const RuntimeError&) {
            fails = true;
        }
        EXPECT_EQ(testing::Value(TransportMeaning(), Contains(HasSubstr("ends in an error"))), fails)
            << origins << " x " << destinations;
    }
}

TEST(AssignmentMeaning, SaysWhoGetsWhat)
{
    GiveAssignment({{15, 10, 9}, {9, 15, 10}, {10, 12, 8}});
    Solve();
    EXPECT_EQ(AssignMeaning()[0], "3 agents get one task each, for 27 in all.");
    EXPECT_EQ(AssignMeaning()[1], "Agent 1 takes task 2, agent 2 task 1 and agent 3 task 3.");
}

TEST(AssignmentMeaning, SaysWhoIsLeftOver)
{
    GiveAssignment({{5, 3}});
    Solve();
    EXPECT_EQ(AssignMeaning()[0], "1 agent gets one task, for 3.");
    EXPECT_THAT(AssignMeaning(), Contains("Task 1 remains unassigned: there is one task more than agents."));
    GiveAssignment({{5}, {3}, {4}});
    Solve();
    EXPECT_THAT(AssignMeaning(),
                Contains("Agents 1 and 3 remain unassigned: there are 2 agents more than tasks."));
    GiveAssignment({{5}});
    Solve();
    EXPECT_THAT(AssignMeaning(), Not(Contains(HasSubstr("unassigned"))));
}

TEST(AssignmentMeaning, NoPairWhenAllIsZero)
{
    GiveAssignment({{0, 0}});
    Solve();
    EXPECT_EQ(AssignMeaning()[0], "No pair was chosen, as all figures are 0.");
    EXPECT_THAT(AssignMeaning(), Contains(HasSubstr("also holds the other side")));
    GiveAssignment({{0}});
    Solve();
    EXPECT_THAT(AssignMeaning(), Not(Contains(HasSubstr("also holds the other side"))));
}

TEST(AssignmentMeaning, AnExchangeIsToldWhereItIsFree)
{
    GiveAssignment({{1, 2}, {2, 3}});
    Solve();
    EXPECT_THAT(AssignMeaning(), Contains("Exchanging agents 1 and 2 would not change the total."));
    GiveAssignment({{1, 2}, {2, 2}});
    Solve();
    EXPECT_THAT(AssignMeaning(), Not(Contains(HasSubstr("Exchanging"))));
    EXPECT_THAT(AssignMeaning(), Not(Contains(HasSubstr("Another assignment"))));
}

// Three agents in a ring: 1-2-3 and 2-3-1 cost 3 each, every exchange of two costs more.
TEST(AssignmentMeaning, ALongerExchangeIsToldByAPair)
{
    GiveAssignment({{1, 1, 9}, {9, 1, 1}, {1, 9, 1}});
    Solve();
    EXPECT_THAT(AssignMeaning(), Contains(HasSubstr("Another assignment has the same total: agent ")));
}

TEST(AssignmentMeaning, AnotherBestIsToldExactlyWhereThereIsOne)
{
    std::mt19937 random(95);
    int several = 0;
    for (int round = 0; round < 1000; ++round) {
        const RandomTable table = Draw(random, 4, 1, 5);
        GiveAssignment(table.Costs);
        Solve();
        if (Tableau::AllCostsAreZero(Problem)) continue;
        const BestPlans best = AllPlans(table.Costs, std::vector<int>(table.Supplies.size(), 1),
                                        std::vector<int>(table.Demands.size(), 1))
                                   .Best();
        ASSERT_EQ(Schedule().TotalCost, best.Value);
        const bool told = testing::Value(
            AssignMeaning(), Contains(testing::AnyOf(HasSubstr("Exchanging"), HasSubstr("Another assign"))));
        ASSERT_EQ(told, best.Count > 1) << "round " << round;
        several += best.Count > 1 ? 1 : 0;
    }
    EXPECT_GT(several, 200);
}

// ---- all sizes ----

TEST(TableauBeside, RandomProblemsAreShownWithoutFault)
{
    std::mt19937 random(96);
    for (int round = 0; round < 400; ++round) {
        RandomTable table = Draw(random, round % 40 == 0 ? 30 : 8, 40, 20);
        for (auto& row : table.Costs)
            for (double& cost : row)
                cost = (cost - 5) / 4;
        if (round % 3 == 0) table.Demands.front() = 0;
        GiveTransportation(table.Costs, table.Supplies, table.Demands, round % 2 == 0 ? "NO" : "YES");
        Problem.DecimalPlaces = 2.0;
        Solve();
        ExpectSound(TransportPictures());
        ExpectSound(Tableau::TransportationMeaning(Problem, Result));
        double sum = 0;
        const auto pictures = TransportPictures();
        for (const auto& arc : DiagramOf(pictures[pictures.size() - 2]).Arcs)
            sum += arc.Weight;
        const auto schedule = Schedule();
        int shipped = 0;
        for (int i = 1; i <= Problem.NumOrigins; ++i)
            for (int j = 1; j <= Problem.NumDestinations; ++j)
                shipped += schedule.Shipment(i, j);
        EXPECT_EQ(sum, shipped);
        GiveAssignment(table.Costs, round % 2 == 0 ? "NO" : "YES");
        Solve();
        ExpectSound(Tableau::AssignmentPictures(Problem, Result));
        ExpectSound(Tableau::AssignmentMeaning(Problem, Result));
        ExpectSound(Tableau::AssignmentSteps(Problem, Result), Tableau::AssignmentPictures(Problem, Result));
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "round " << round;
    }
}

TEST(TableauBeside, TheModulesHandThemOut)
{
    GiveTransportation({{1}}, {1}, {1});
    Solve();
    EXPECT_EQ(Transportation().Pictures().size(), 2U);
    EXPECT_EQ(Transportation().Steps().size(), 3U);
    EXPECT_FALSE(Transportation().Meaning().empty());
    GiveAssignment({{1}});
    Solve();
    EXPECT_EQ(Assignment().Pictures()[0].Title, "Assignment");
    EXPECT_EQ(Assignment().Steps().size(), 3U);
    EXPECT_FALSE(Assignment().Meaning().empty());
}

}  // namespace
