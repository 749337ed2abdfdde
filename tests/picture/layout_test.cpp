#include "picture/layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "picture/networks.h"

using namespace picture;
using networks::LetterSize;

namespace {

Node Named(const std::string& id, Shape shape = Shape::Box, int rank = 0)
{
    return {.Id = id, .Lines = {id}, .Form = shape, .Rank = rank};
}

double Middle(const PlacedNode& node)
{
    return node.Place.Y + node.Place.Height / 2;
}

void ExpectApart(const Placement& placement)
{
    for (std::size_t i = 0; i < placement.Nodes.size(); ++i)
        for (std::size_t j = i + 1; j < placement.Nodes.size(); ++j)
            EXPECT_FALSE(networks::BoxesMeet(placement.Nodes[i].Place, placement.Nodes[j].Place))
                << i << " " << j;
}

Diagram RandomTree(unsigned seed, int nodes)
{
    std::mt19937 random(seed);
    Diagram tree{.Kind = Layout::Tree};
    for (int i = 0; i < nodes; ++i) {
        tree.Nodes.push_back(Named("n" + std::to_string(i), i % 3 == 0 ? Shape::Circle : Shape::Box));
        if (i > 0)
            tree.Arcs.push_back({.From = "n" + std::to_string(random() % static_cast<unsigned>(i)),
                                 .To = "n" + std::to_string(i),
                                 .Text = i % 2 == 0 ? "branch" : ""});
    }
    return tree;
}

}  // namespace

// The measure of the networks; bench/ takes 1,000 of them.
TEST(FreeLayout, OfTheLargestNetworksIsClean)
{
    constexpr int kNetworks = 60;
    int clean = 0;
    for (unsigned seed = 1; seed <= kNetworks; ++seed) {
        const Diagram diagram = networks::Random(seed, 20, 40);
        const networks::Faults faults = networks::FaultsOf(diagram, Place(diagram, {560, 480}, LetterSize));
        EXPECT_EQ(faults.NodeOverNode, 0) << seed;
        EXPECT_EQ(faults.Outside, 0) << seed;
        clean += faults.None();
    }
    EXPECT_GE(clean, kNetworks - 1);
}

// The head of an arrow is 14 pixels long: no label covers it where there is room beside the line.
TEST(FreeLayout, LabelsLeaveTheHeadsOfArrowsFree)
{
    for (unsigned seed = 1; seed <= 10; ++seed) {
        Diagram diagram = networks::Random(seed, 12, 16);
        for (picture::Arc& arc : diagram.Arcs)
            arc.Directed = true;
        const Placement placement = Place(diagram, {560, 480}, LetterSize);
        int covered = 0;
        for (const picture::PlacedArc& arc : placement.Arcs) {
            ASSERT_TRUE(arc.Label);
            const picture::Point& tip = arc.Path.back();
            const picture::Point& from = arc.Path.front();
            const double length = std::hypot(tip.X - from.X, tip.Y - from.Y);
            for (const double back : {1.0, 5.0, 9.0, 13.0})
                covered += arc.Label->Holds(picture::Point{tip.X - (tip.X - from.X) * back / length,
                                                           tip.Y - (tip.Y - from.Y) * back / length});
        }
        EXPECT_EQ(covered, 0) << seed;
    }
}

TEST(FreeLayout, IsTheSameEachTime)
{
    const Diagram diagram = networks::Random(5, 12, 20);
    const Placement first = Place(diagram, {400, 300}, LetterSize);
    const Placement second = Place(diagram, {400, 300}, LetterSize);
    for (std::size_t i = 0; i < first.Nodes.size(); ++i) {
        EXPECT_EQ(first.Nodes[i].Place.X, second.Nodes[i].Place.X);
        EXPECT_EQ(first.Nodes[i].Place.Y, second.Nodes[i].Place.Y);
    }
}

TEST(FreeLayout, ArcsBothWaysBendApart)
{
    Diagram diagram{.Kind = Layout::Free};
    diagram.Nodes = {Named("1", Shape::Circle), Named("2", Shape::Circle)};
    diagram.Arcs = {{.From = "1", .To = "2", .Text = "5"}, {.From = "2", .To = "1", .Text = "7"}};
    const Placement placement = Place(diagram, {300, 200}, LetterSize);
    ASSERT_TRUE(placement.Arcs[0].Label && placement.Arcs[1].Label);
    EXPECT_FALSE(networks::BoxesMeet(*placement.Arcs[0].Label, *placement.Arcs[1].Label));
}

TEST(FreeLayout, PutsNodesOfAFrameApart)
{
    Diagram diagram = networks::Random(4, 8, 9);
    diagram.Nodes.push_back(Named("9", Shape::Circle));
    diagram.Nodes.push_back(Named("10", Shape::Circle));
    diagram.Arcs.push_back({.From = "9", .To = "10", .Directed = false, .Text = "3"});
    diagram.Frames = {{.Text = "cannot be reached", .Ids = {"9", "10"}}};
    const Placement placement = Place(diagram, {400, 360}, LetterSize);
    ASSERT_EQ(placement.Frames.size(), 1U);
    for (std::size_t i = 0; i < diagram.Nodes.size(); ++i)
        EXPECT_EQ(networks::BoxesMeet(placement.Frames[0], placement.Nodes[i].Place), i >= 8) << i;
}

TEST(FreeLayout, OfNothingAndOfOneNodeHasRoom)
{
    EXPECT_TRUE(Place(Diagram{}, {300, 200}, LetterSize).Nodes.empty());
    Diagram one{.Kind = Layout::Free};
    one.Nodes = {Named("1", Shape::Circle)};
    const Placement placement = Place(one, {300, 200}, LetterSize);
    EXPECT_TRUE(std::isfinite(placement.Nodes[0].Place.X));
    EXPECT_TRUE((Box{0, 0, 300, 200}.Holds(placement.Nodes[0].Place)));
}

TEST(TreeLayout, KeepsNodesApartAndParentsBetweenTheirChildren)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const Diagram tree = RandomTree(seed, 5 + static_cast<int>(seed));
        const Placement placement = Place(tree, {}, LetterSize);
        ExpectApart(placement);
        for (const Arc& arc : tree.Arcs) {
            const auto index = [](const std::string& id) {
                return static_cast<std::size_t>(std::stoi(id.substr(1)));
            };
            EXPECT_LT(placement.Nodes[index(arc.From)].Place.Right(), placement.Nodes[index(arc.To)].Place.X);
        }
    }
}

TEST(TreeLayout, SetsAParentAtTheMiddleOfItsChildren)
{
    Diagram tree{.Kind = Layout::Tree};
    tree.Nodes = {Named("r"), Named("a"), Named("b"), Named("c")};
    for (const char* child : {"a", "b", "c"})
        tree.Arcs.push_back({.From = "r", .To = child});
    const Placement placement = Place(tree, {}, LetterSize);
    EXPECT_DOUBLE_EQ(Middle(placement.Nodes[0]), Middle(placement.Nodes[2]));
    EXPECT_DOUBLE_EQ(placement.Nodes[2].Place.Y - placement.Nodes[1].Place.Bottom(), 6);  // between leaves
}

// Across 24 pixels where there is room, and 8 at least.
TEST(TreeLayout, BranchesAreSteeperWhereTheRoomIsNarrow)
{
    Diagram tree{.Kind = Layout::Tree};
    tree.Nodes = {Named("root"), Named("child1"), Named("child2")};
    tree.Arcs = {{.From = "root", .To = "child1", .Text = "first"},
                 {.From = "root", .To = "child2", .Text = "other"}};
    const auto width = [&tree](double room) { return Place(tree, {room, 0}, LetterSize).Size.Width; };
    const double wide = width(1000);
    const double least = width(0);
    EXPECT_DOUBLE_EQ(wide - least, 24 - 8);
    EXPECT_DOUBLE_EQ(width(wide - 10), wide - 10);
    EXPECT_DOUBLE_EQ(width(least - 10), least);
    EXPECT_DOUBLE_EQ(LeastRoom(tree, LetterSize).Width, least);
}

TEST(TreeLayout, AnArcBackToAnAncestorMakesNoFamily)
{
    Diagram tree{.Kind = Layout::Tree};
    tree.Nodes = {Named("a"), Named("b")};
    tree.Arcs = {{.From = "a", .To = "b"}, {.From = "b", .To = "a"}};
    EXPECT_EQ(Place(tree, {}, LetterSize).Nodes.size(), 2U);
}

TEST(TwoSides, BlocksAreAsHighAsTheirAmounts)
{
    Diagram sides{.Kind = Layout::TwoSides};
    sides.Nodes = {{.Id = "o", .Lines = {"o"}, .Rank = 0, .Amount = 300, .Used = 200},
                   {.Id = "d", .Lines = {"d"}, .Rank = 1, .Amount = 100, .Used = 100},
                   {.Id = "e", .Lines = {"e"}, .Rank = 1, .Amount = 100, .Used = 100}};
    sides.Arcs = {{.From = "o", .To = "d", .Weight = 100, .Text = "100"},
                  {.From = "o", .To = "e", .Weight = 100, .Text = "100"}};
    const Placement placement = Place(sides, {400, 340}, LetterSize);
    EXPECT_NEAR(placement.Nodes[0].Place.Height, 3 * placement.Nodes[1].Place.Height, 1e-9);
    EXPECT_NEAR(placement.Arcs[0].Width, placement.Nodes[1].Place.Height, 1e-9);
    EXPECT_NEAR(placement.Nodes[0].Used, 2.0 / 3, 1e-12);
    EXPECT_EQ(placement.TooThin, 0);
    sides.Nodes[0].Amount = 100000;
    sides.Nodes[1].Amount = 99900;
    sides.Arcs[0].Weight = 99900;
    const Placement thin = Place(sides, {400, 340}, LetterSize);
    EXPECT_EQ(thin.TooThin, 1);
    EXPECT_EQ(thin.Arcs[1].Width, 1);
}

// Two lines of one node leave it in the order in which they arrive.
TEST(TwoSides, LinesOfOneNodeNeverCross)
{
    for (unsigned seed = 1; seed <= 50; ++seed) {
        std::mt19937 random(seed);
        Diagram sides{.Kind = Layout::TwoSides};
        for (int i = 0; i < 6; ++i)
            sides.Nodes.push_back(
                {.Id = std::to_string(i), .Lines = {"n"}, .Rank = i / 3, .Amount = 90, .Used = 90});
        for (int i = 0; i < 3; ++i)
            for (int j = 3; j < 6; ++j)
                if (random() % 3 != 0)
                    sides.Arcs.push_back({.From = std::to_string(i), .To = std::to_string(j), .Weight = 30});
        std::shuffle(sides.Arcs.begin(), sides.Arcs.end(), random);
        const Placement placement = Place(sides, {400, 400}, LetterSize);
        for (std::size_t a = 0; a < sides.Arcs.size(); ++a)
            for (std::size_t b = 0; b < sides.Arcs.size(); ++b) {
                if (sides.Arcs[a].From != sides.Arcs[b].From || a == b) continue;
                const bool above = placement.Arcs[a].Path.front().Y < placement.Arcs[b].Path.front().Y;
                EXPECT_EQ(above, placement.Arcs[a].Path.back().Y < placement.Arcs[b].Path.back().Y);
            }
    }
}

TEST(RingLayout, KeepsNodesApartAtEverySize)
{
    for (int n = 1; n <= 10; ++n) {
        Diagram ring{.Kind = Layout::Ring};
        for (int i = 0; i < n; ++i)
            ring.Nodes.push_back(Named("state " + std::to_string(i), Shape::Circle));
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j)
                ring.Arcs.push_back({.From = ring.Nodes[static_cast<std::size_t>(i)].Id,
                                     .To = ring.Nodes[static_cast<std::size_t>(j)].Id,
                                     .Weight = 0.1,
                                     .Text = "0.100"});
        const Placement placement = Place(ring, {300, 300}, LetterSize);
        ExpectApart(placement);
        for (const PlacedNode& node : placement.Nodes)
            EXPECT_TRUE((Box{0, 0, placement.Size.Width, placement.Size.Height}.Holds(node.Place))) << n;
    }
}

// Random chains of the module's largest size, in windows as a pane has them.
TEST(RingLayout, RunsThroughNoNodeThatIsNotAnEnd)
{
    std::mt19937 random(3);
    constexpr int kRounds = 30;
    for (int round = 0; round < kRounds; ++round) {
        Diagram ring{.Kind = Layout::Ring};
        for (int i = 1; i <= 10; ++i)
            ring.Nodes.push_back(
                {.Id = std::to_string(i), .Lines = {std::to_string(i), "0.100"}, .Form = Shape::Circle});
        for (int i = 1; i <= 10; ++i)
            for (int j = 1; j <= 10; ++j)
                if (random() % 3 != 0)
                    ring.Arcs.push_back(
                        {.From = std::to_string(i), .To = std::to_string(j), .Text = "0.100"});
        const double wide = 300 + static_cast<double>(random() % 400);
        const Placement placement = Place(ring, {wide, 480}, LetterSize);
        const auto faults = networks::FaultsOf(ring, placement);
        EXPECT_EQ(faults.LineThroughNode + faults.NodeOverNode, 0) << round;
        EXPECT_EQ(faults.LabelOverNode + faults.LabelOverLabel, 0) << round;
    }
}

TEST(RankLayout, StandsInColumnsByRank)
{
    Diagram ranks{.Kind = Layout::Ranks};
    ranks.Nodes = {Named("A", Shape::Box, 0), Named("B", Shape::Box, 5), Named("C", Shape::Box, 5),
                   Named("D", Shape::Box, 9)};
    ranks.Arcs = {{.From = "A", .To = "B"},
                  {.From = "A", .To = "C"},
                  {.From = "B", .To = "D"},
                  {.From = "A", .To = "D"}};
    const Placement placement = Place(ranks, {500, 200}, LetterSize);
    ExpectApart(placement);
    EXPECT_LT(placement.Nodes[0].Place.Right(), placement.Nodes[1].Place.X);
    EXPECT_DOUBLE_EQ(placement.Nodes[1].Place.X, placement.Nodes[2].Place.X);
    EXPECT_LT(placement.Nodes[1].Place.Right(), placement.Nodes[3].Place.X);
    // The line from A to D passes the column between without touching B or C.
    for (std::size_t k = 0; k + 1 < placement.Arcs[3].Path.size(); ++k)
        for (const std::size_t node : {1U, 2U})
            EXPECT_FALSE(Crosses(placement.Nodes[node].Place, placement.Arcs[3].Path[k],
                                 placement.Arcs[3].Path[k + 1]));
}

TEST(Layout, AnArcToNobodyIsNotDrawn)
{
    for (const Layout kind : {Layout::Free, Layout::Ring, Layout::Ranks, Layout::Tree, Layout::TwoSides}) {
        Diagram diagram{.Kind = kind};
        diagram.Nodes = {Named("a"), Named("b")};
        diagram.Arcs = {{.From = "a", .To = "nobody", .Text = "1"}};
        EXPECT_TRUE(Place(diagram, {300, 300}, LetterSize).Arcs[0].Path.empty());
    }
}
