#include <gmock/gmock.h>

#include "picture/picture.h"

using namespace picture;
using testing::Contains;

namespace {

std::vector<std::string> Told(std::string title, std::variant<Chart, Diagram> body,
                              std::vector<std::string> notes = {})
{
    return Describe({.Title = std::move(title), .Body = std::move(body), .Notes = std::move(notes)});
}

Chart Plan()
{
    Chart chart;
    chart.X = {.Title = "TABLES", .From = 0, .To = 60};
    chart.Y = {.Title = "CHAIRS", .From = 0, .To = 50};
    chart.Curves = {{.Kind = SeriesKind::Area, .Name = "region", .Points = {{0, 0}, {40, 0}, {0, 40}}},
                    // 2 TABLES + CHAIRS <= 80, forbidden on the side away from the origin
                    {.Kind = SeriesKind::Line,
                     .As = Role::Limit,
                     .Name = "limit 1",
                     .Points = {{0, 80}, {40, 0}},
                     .Forbidden = Side::Left}};
    chart.Marks = {{.As = Role::Best, .At = {40, 0}, .Text = "40.000, 0.000"}};
    return chart;
}

}  // namespace

TEST(Describe, NamesTheProblemWhereItIsKnown)
{
    EXPECT_EQ(Describe({.Title = "Network", .Body = Chart{}, .Problem = "Shortest Route"})[0],
              "Chart: Network, Shortest Route.");
    EXPECT_EQ(Describe({.Title = "Network", .Body = Chart{}})[0], "Chart: Network.");
}

TEST(Describe, BeginsWithWhatItIsAndTheMainThing)
{
    const auto lines = Told("Plan", Plan(), {"The best corner is 40.000, 0.000.", "Limit 2 bounds nothing."});
    EXPECT_EQ(lines[0], "Chart: Plan.");
    EXPECT_EQ(lines[1], "The best corner is 40.000, 0.000.");
    EXPECT_EQ(lines[2], "The x axis is TABLES and runs from 0 to 60.");
    EXPECT_THAT(lines, Contains("It has 1 line, 1 area and 1 mark."));
    EXPECT_THAT(lines, Contains("Limit 2 bounds nothing."));
}

TEST(Describe, TellsALimitAsAnInequality)
{
    EXPECT_THAT(Told("Plan", Plan()), Contains("limit 1: TABLES + 0.5 CHAIRS at most 40."));
    Chart other = Plan();
    other.Curves[1].Forbidden = Side::Right;
    EXPECT_THAT(Told("Plan", other), Contains("limit 1: TABLES + 0.5 CHAIRS at least 40."));
    std::swap(other.Curves[1].Points.front(),
              other.Curves[1].Points.back());  // the other way, the other side
    EXPECT_THAT(Told("Plan", other), Contains("limit 1: TABLES + 0.5 CHAIRS at most 40."));
}

TEST(Describe, TellsTheCornersInOrder)
{
    EXPECT_THAT(Told("Plan", Plan()), Contains("Area with the corners region: 0, 0; 40, 0; 0, 40."));
}

TEST(Describe, TellsTheLargestAndTheSmallestBar)
{
    Chart chart;
    chart.X = {.Names = {"winter", "spring", "summer"}};
    chart.Curves = {{.Kind = SeriesKind::Bars, .Name = "seasons", .Points = {{1, 0.8}, {2, 1}, {3, 1.2}}}};
    chart.BarsFrom = 1;
    EXPECT_THAT(
        Told("Seasons", chart),
        Contains("seasons: the largest is summer with 1.2, the smallest winter with 0.8; bars begin at 1."));
}

// As the report has them, on an axis that says with how many decimals.
TEST(Describe, TellsValuesWithTheDecimalsOfTheReport)
{
    Chart chart;
    chart.X = {.Title = "Period", .From = 0.5, .To = 3.5, .Counts = true};
    chart.Y = {.Title = "Value", .From = 0, .To = 1250, .Places = 2};
    chart.Curves = {{.Name = "fitted", .Points = {{1, 97.6416}, {2, 1250}, {3, 0.005}}}};
    chart.Rules = {{.Value = 2.5}, {.Across = Direction::Y, .Value = 7.0 / 3, .Text = "mean"}};
    chart.Bands = {{.Across = Direction::Y, .From = 1.0 / 3, .To = std::nullopt, .Text = "near"}};
    const auto lines = Told("Series", chart);
    EXPECT_EQ(lines[2], "The y axis is Value and runs from 0.00 to 1,250.00.");
    EXPECT_THAT(lines, Contains("Line fitted: 1, 97.64; 2, 1,250.00; 3, 0.01."));
    EXPECT_THAT(lines, Contains("Reference line without a name at x 2.5."));
    EXPECT_THAT(lines, Contains("Reference line mean at y 2.33."));
    EXPECT_THAT(lines, Contains("Band near along y: 0.33 to no limit."));
}

TEST(Describe, TellsTheEndsOfBarsBesideWhichSomethingElseIsWritten)
{
    Chart chart;
    chart.X = {.Title = "Time", .From = 0, .To = 5, .Places = 1};
    chart.Y = {.Names = {"A"}};
    chart.Curves = {
        {.Kind = SeriesKind::Interval, .Name = "critical", .Intervals = {{1, 0.5, 2.0, "", "0.5 to 2.0"}}}};
    EXPECT_THAT(Told("Schedule", chart), Contains("Intervals critical: A from 0.5 to 2.0."));
}

TEST(Describe, TellsOpenEndsInWords)
{
    Chart chart;
    chart.OwnScales = true;
    chart.Y = {.Names = {"limit 1", "limit 2"}};
    chart.Curves = {{.Kind = SeriesKind::Interval,
                     .Name = "range",
                     .Intervals = {{1, 2.5, std::nullopt}, {2, 4, 4, "4.000", "4.000"}}}};
    const auto lines = Told("Ranges", chart);
    EXPECT_THAT(lines,
                Contains("Intervals range: limit 1 from 2.5 to no limit; limit 2 from 4.000 to 4.000."));
    EXPECT_THAT(lines, Contains("Without a limit on a side: limit 1."));
    EXPECT_THAT(lines, Contains("Without room: limit 2."));
}

TEST(Describe, TellsWhereCurvesCross)
{
    Chart chart;
    chart.Curves = {{.Kind = SeriesKind::Line, .Name = "A", .Points = {{0, 0}, {1, 10}}},
                    {.Kind = SeriesKind::Line, .Name = "B", .Points = {{0, 8}, {1, 2}}}};
    EXPECT_THAT(Told("Sensitivity", chart), Contains("A and B cross at 0.5, 5."));
}

TEST(Describe, TellsATreeByDepthAndLeaves)
{
    Diagram tree{.Kind = Layout::Tree};
    tree.Nodes = {{.Id = "r", .Lines = {"5.00"}, .As = Role::Best},
                  {.Id = "a", .Lines = {"5.00"}},
                  {.Id = "b", .Lines = {"3.00"}}};
    tree.Arcs = {{.From = "r", .To = "a", .As = Role::Best, .Text = "first"},
                 {.From = "r", .To = "b", .As = Role::NotTaken, .Text = "second"}};
    const auto lines = Told("Tree", tree);
    EXPECT_EQ(lines[0], "Tree: Tree.");
    EXPECT_THAT(lines, Contains("The tree has 3 nodes and 2 leaves; it is 1 branch deep."));
    EXPECT_THAT(lines, Contains("5.00 (best): branches to 5.00, first (best); 3.00, second (not taken)."));
}

TEST(Describe, TellsANetworkWithARunningSum)
{
    Diagram net{.Kind = Layout::Free};
    net.Nodes = {{.Id = "1", .Lines = {"1"}}, {.Id = "2", .Lines = {"2"}}, {.Id = "3", .Lines = {"3"}}};
    net.Arcs = {{.From = "1", .To = "2", .As = Role::Chosen, .Weight = 4, .Text = "4"},
                {.From = "2", .To = "3", .As = Role::Chosen, .Weight = 3, .Text = "3"}};
    const auto lines = Told("Network", net);
    EXPECT_THAT(lines, Contains("It has 3 nodes and 2 arcs with a direction."));
    EXPECT_THAT(lines, Contains("Chosen: 2 to 3, 3; 7 so far."));
    EXPECT_THAT(lines, Contains("3: no way out."));
}

// Entered in the order of the nodes; the way is 1, 3, 2, 4.
TEST(Describe, TellsAWayFromItsBeginning)
{
    Diagram net{.Kind = Layout::Free};
    for (const char* id : {"1", "2", "3", "4"})
        net.Nodes.push_back({.Id = id, .Lines = {id}});
    net.Arcs = {{.From = "1", .To = "2", .Directed = false, .As = Role::Spare, .Weight = 9, .Text = "9.0"},
                {.From = "1", .To = "3", .As = Role::Chosen, .Weight = 4.5, .Text = "4.5"},
                {.From = "2", .To = "4", .As = Role::Chosen, .Weight = 2, .Text = "2.0"},
                {.From = "3", .To = "2", .As = Role::Chosen, .Weight = 0.5, .Text = "0.5"}};
    const auto lines = Told("Network", net);
    EXPECT_EQ(lines[1], "It has 4 nodes, 3 arcs with a direction and 1 edge without direction.");
    EXPECT_EQ(lines[2], "Chosen: 1 to 3, 4.5; 4.5 so far.");
    EXPECT_EQ(lines[3], "Chosen: 3 to 2, 0.5; 5.0 so far.");
    EXPECT_EQ(lines[4], "Chosen: 2 to 4, 2.0; 7.0 so far.");
}

// The arcs 1-2 and 2-3 join the nodes 2 and 3 as the second and the first.
TEST(Describe, TellsATreeOfANetworkInTheOrderOfJoining)
{
    Diagram net{.Kind = Layout::Free};
    net.Nodes = {{.Id = "1", .Lines = {"1"}, .Badge = "2"},
                 {.Id = "2", .Lines = {"2"}, .Badge = "1"},
                 {.Id = "3", .Lines = {"3"}}};
    net.Arcs = {{.From = "1", .To = "2", .Directed = false, .As = Role::Chosen, .Weight = 4, .Text = "4"},
                {.From = "2", .To = "3", .Directed = false, .As = Role::Chosen, .Weight = 3, .Text = "3"}};
    const auto lines = Told("Network", net);
    EXPECT_EQ(lines[2], "Chosen: 2 and 3, 3; 3 so far.");
    EXPECT_EQ(lines[3], "Chosen: 1 and 2, 4; 7 so far.");
}

TEST(Describe, NamesCellsByTheirRowAndColumn)
{
    Chart table{.X = {.Title = "Task", .From = 0.5, .To = 2.5, .Names = {"1", "2"}},
                .Y = {.Title = "Agent", .From = 0.5, .To = 2.5, .Names = {"1", "2"}},
                .Cells = true};
    table.Marks = {{.As = Role::Chosen, .At = {2, 1}, .Text = "7"},
                   {.As = Role::Chosen, .At = {1, 2}, .Text = "5"},
                   {.At = {1, 1}}};
    const auto lines = Told("Table", table);
    EXPECT_THAT(lines, Contains("Chosen: Agent 1, Task 2: 7; Agent 2, Task 1: 5."));
    EXPECT_THAT(lines, Contains("Cell Agent 1, Task 1: none."));
}

TEST(Describe, TellsWhatIsFoldedBelowItsBranch)
{
    Diagram tree{.Kind = Layout::Tree};
    tree.Nodes = {
        {.Id = "r", .Lines = {"5.00"}},
        {.Id = "k", .Lines = {"5.00"}},
        {.Id = "o", .Lines = {"2: 3.00", "3: 1.00"}, .Folded = true, .Tip = "alternatives 2 and 3"}};
    tree.Arcs = {{.From = "r", .To = "k", .Text = "outcome 1: 0.450"},
                 {.From = "k", .To = "o", .As = Role::NotTaken, .Text = "the others"}};
    const auto lines = Told("Tree", tree);
    EXPECT_THAT(lines, Contains("Folded: below outcome 1: 0.450, alternatives 2 and 3."));
    EXPECT_THAT(lines, Contains("2: 3.00, 3: 1.00, below 5.00 by the others: a leaf."));
}

TEST(Describe, TellsTheTotalsOfBothSides)
{
    Diagram sides{.Kind = Layout::TwoSides};
    sides.Nodes = {{.Id = "o", .Lines = {"Origin 1"}, .Rank = 0, .Amount = 300, .Used = 250},
                   {.Id = "d", .Lines = {"Destination 1"}, .Rank = 1, .Amount = 250, .Used = 250}};
    sides.Arcs = {{.From = "o", .To = "d", .As = Role::Chosen, .Weight = 250, .Text = "250"}};
    const auto lines = Told("Shipments", sides);
    EXPECT_THAT(lines, Contains("On the first side stands 1 block, 300 in all, of which 250 used."));
    EXPECT_THAT(lines, Contains("Origin 1 with Destination 1: 250 (chosen)."));
    EXPECT_THAT(lines, Contains("Left over at Origin 1: 50."));
    sides.Arcs[0].Tip = "Origin 1 to destination 1: 250 units at 4, value 1000";
    EXPECT_THAT(Told("Shipments", sides),
                Contains("Origin 1 to destination 1: 250 units at 4, value 1000 (chosen)."));
}

TEST(Describe, TellsStatesWithTheirLargestWayOutFirst)
{
    Diagram ring{.Kind = Layout::Ring};
    ring.Nodes = {{.Id = "1", .Lines = {"1"}, .Form = Shape::Circle},
                  {.Id = "2", .Lines = {"2"}, .Form = Shape::Ring}};
    ring.Arcs = {{.From = "1", .To = "1", .Weight = 0.2, .Text = "0.200"},
                 {.From = "1", .To = "2", .Weight = 0.8, .Text = "0.800"}};
    const auto lines = Told("States", ring);
    EXPECT_THAT(lines, Contains("Absorbing: 2."));
    EXPECT_THAT(lines, Contains("1: to 2, 0.800; 1, 0.200."));
}

TEST(Describe, OfAnEmptyPictureSaysSo)
{
    EXPECT_THAT(Told("Empty", Chart{}), Contains("There is nothing in it."));
}
