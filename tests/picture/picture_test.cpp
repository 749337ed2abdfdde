#include "picture/picture.h"

#include <gmock/gmock.h>

using namespace picture;
using testing::ElementsAre;

TEST(Listing, OfAChartNamesEveryThingInIt)
{
    Chart chart;
    chart.X = {.Title = "TABLES", .From = 0, .To = 60};
    chart.Y = {.Title = "", .From = 0.5, .To = 2.5, .Names = {"A \"1\"", "B"}};
    chart.Curves = {
        {.Kind = SeriesKind::Line, .As = Role::Limit, .Name = "limit 1", .Points = {{0, 1.5}, {-2, 1e15}}},
        {.Kind = SeriesKind::Interval,
         .As = Role::Plain,
         .Name = "range",
         .Intervals = {{1, 2.0, std::nullopt}, {2, std::nullopt, 3.25}}},
        {.Kind = SeriesKind::Steps, .As = Role::NotTaken, .Points = {{1, 1}}}};
    chart.Bands = {
        {.As = Role::Forecast, .Across = Direction::Y, .From = 1, .To = std::nullopt, .Text = "band"}};
    chart.Rules = {{.Across = Direction::X, .As = Role::Spare, .Value = -0.0, .Text = "now"}};
    chart.Marks = {{.As = Role::Best, .At = {3, 0.25}, .Text = "two\nlines"}};
    EXPECT_THAT(
        Listing({.Title = "Plan", .Body = chart, .Notes = {"First.", "Second."}}, 2, 3),
        ElementsAre("picture 2 of 3 chart \"Plan\"", "axis x \"TABLES\" 0 60",
                    "axis y \"\" 0.5 2.5 \"A \"\"1\"\"\" \"B\"", "line limit \"limit 1\" 0,1.5 -2,1E+15",
                    "interval plain \"range\" 1,2,open 2,open,3.25", "steps nottaken \"\" 1,1",
                    "band forecast y 1 open \"band\"", "rule x spare 0 \"now\"",
                    "mark best 3,0.25 \"two\\nlines\"", "note \"First.\"", "note \"Second.\""));
}

TEST(Listing, OfADiagramNamesItsNodesAndArcs)
{
    Diagram diagram;
    diagram.Nodes = {{.Id = "1", .Lines = {"A", "5.000\t3"}, .Form = Shape::Ring, .As = Role::Critical},
                     {.Id = "2", .Form = Shape::Triangle, .Folded = true}};
    diagram.Arcs = {{.From = "1", .To = "2", .As = Role::Second, .Weight = 0.5, .Text = ".500"},
                    {.From = "2", .To = "1", .Directed = false}};
    EXPECT_THAT(Listing({.Title = "Tree", .Body = diagram}, 1, 1),
                ElementsAre("picture 1 of 1 diagram \"Tree\"", "node ring critical \"1\" \"A\\n5.000\t3\"",
                            "node triangle plain \"2\" \"\" folded", "arc second \"1\" \"2\" 0.5 \".500\"",
                            "edge plain \"2\" \"1\" 1 \"\""));
}

TEST(Listing, OfStepsHasTheirFiguresAndReasons)
{
    EXPECT_THAT(Listing(std::vector<Step>{{.Heading = "Start", .Figures = {"a  1"}, .Why = "It begins."},
                                          {.Heading = "End", .Arithmetic = {"1 + 1 = 2"}}}),
                ElementsAre("steps 2", "step 1 \"Start\"", "|a  1", "why \"It begins.\"", "step 2 \"End\"",
                            "|1 + 1 = 2", "why \"\""));
}

TEST(Kept, StepsAreAllUpToAThousand)
{
    EXPECT_EQ(Kept(std::vector<Step>(1000)).size(), 1000U);
}

TEST(Kept, StepsBeyondAThousandAreTheFirstAndTheLast)
{
    std::vector<Step> steps(1003);
    for (std::size_t i = 0; i < steps.size(); ++i)
        steps[i].Heading = std::to_string(i + 1);
    const std::vector<Step> kept = Kept(steps);
    ASSERT_EQ(kept.size(), 1001U);
    EXPECT_EQ(kept[499].Heading, "500");
    EXPECT_EQ(kept[500].Heading, "3 steps left out");
    EXPECT_EQ(kept[501].Heading, "504");
    EXPECT_EQ(kept.back().Heading, "1003");
}

TEST(Words, ForRolesAndShapesAreOneWordEach)
{
    EXPECT_EQ(WordFor(Role::Plain), "plain");
    EXPECT_EQ(WordFor(Role::NotTaken), "nottaken");
    EXPECT_EQ(WordFor(Shape::Box), "box");
    EXPECT_EQ(WordFor(Shape::Diamond), "diamond");
}
