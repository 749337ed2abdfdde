#include "lp/LpPicture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "basic/format.h"
#include "lp/LpFigures.h"
#include "lp/LpMeaning.h"
#include "lp/LpPlane.h"
#include "lp/LpSteps.h"
#include "lp/lp_problem.h"
#include "support/fake_desktop.h"

namespace {

using LP_Engine::LpPlane;
using LP_Engine::Outcome;
using LP_Engine::Result;
using picture::Chart;
using picture::Diagram;
using picture::Picture;
using picture::Point;
using picture::Role;
using picture::Series;
using picture::SeriesKind;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class LpPicture : public testing::Test {
protected:
    static std::vector<std::string> Titles()
    {
        std::vector<std::string> titles;
        for (const Picture& picture : LP_Engine::Pictures(Result))
            titles.push_back(picture.Title);
        return titles;
    }

    static Picture Titled(const std::string& title)
    {
        for (const Picture& picture : LP_Engine::Pictures(Result))
            if (picture.Title == title) return picture;
        ADD_FAILURE() << "no picture " << title;
        return {};
    }

    static Chart ChartOf(const std::string& title) { return std::get<Chart>(Titled(title).Body); }

    static const Series* Named(const Chart& chart, const std::string& name)
    {
        for (const Series& series : chart.Curves)
            if (series.Name == name) return &series;
        return nullptr;
    }

    FakeDesktop desktop;
};

const Lp kDoors{false, {3, 5}, {{{1, 0}, '<', 4}, {{0, 2}, '<', 12}, {{3, 2}, '<', 18}}};

// ---- the plan ----

bool Near(const Point& p, double x, double y)
{
    return std::abs(p.X - x) < 1e-9 && std::abs(p.Y - y) < 1e-9;
}

TEST_F(LpPicture, TheRegionOfTheDoorsHasItsFiveCornersAround)
{
    Solve(kDoors);
    const LpPlane plane(Result);
    ASSERT_EQ(plane.Region().size(), 5U);
    const std::vector<Point> expected{{0, 0}, {4, 0}, {4, 3}, {2, 6}, {0, 6}};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_TRUE(Near(plane.Region()[i], expected[i].X, expected[i].Y)) << i;
    EXPECT_EQ(plane.Corners().size(), 5U);
    EXPECT_FALSE(plane.IsOpen());
    EXPECT_NEAR(plane.Window().X, 1.15 * 6, 1e-9);
    EXPECT_NEAR(plane.Window().Y, 1.15 * 9, 1e-9);
}

TEST_F(LpPicture, ThePlanTellsTheBestCornerAndTheWayToIt)
{
    Solve(kDoors);
    const Picture plan = Titled("Plan");
    EXPECT_EQ(plan.Notes.front(), "The best corner is (2.000, 6.000) with a value of 36.000.");
    const Chart chart = std::get<Chart>(plan.Body);
    const Series* way = Named(chart, "way of the method");
    ASSERT_NE(way, nullptr);
    ASSERT_EQ(way->Points.size(), 3U);
    EXPECT_TRUE(Near(way->Points[1], 0, 6));
    EXPECT_TRUE(Near(way->Points[2], 2, 6));
    for (const char* value : {"value 12.000", "value 24.000", "value 36.000"})
        EXPECT_NE(Named(chart, value), nullptr);
}

// x + y <= 4 forbids what lies above: left of the way from (0, 4) to (4, 0) is above.
TEST_F(LpPicture, TheStrokesOfALimitStandOnItsForbiddenSide)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}}});
    Series line = *Named(ChartOf("Plan"), "1: 1X1+1X2<4");
    EXPECT_TRUE(Near(line.Points[0], 0, 4));
    EXPECT_EQ(line.Forbidden, picture::Side::Left);
    Solve({true, {1, 1}, {{{1, 1}, '>', 4}}});
    line = *Named(ChartOf("Plan"), "1: 1X1+1X2>4");
    EXPECT_EQ(line.Forbidden, picture::Side::Right);
    Solve({true, {1, 1}, {{{1, 1}, '=', 4}}});
    EXPECT_EQ(Named(ChartOf("Plan"), "1: 1X1+1X2=4")->Forbidden, picture::Side::None);
}

TEST_F(LpPicture, ALimitThatBoundsNothingIsThin)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 1}, '<', 5}}});
    const Picture plan = Titled("Plan");
    const Chart chart = std::get<Chart>(plan.Body);
    EXPECT_FALSE(Named(chart, "1: 1X1+1X2<4")->Thin);
    EXPECT_TRUE(Named(chart, "2: 1X1+1X2<5")->Thin);
    EXPECT_THAT(plan.Notes, Contains("Limit 2 bounds nothing."));
}

// Strokes stand on the forbidden side of every line, also of one that bounds nothing.
TEST_F(LpPicture, ALimitThatBoundsNothingHasAForbiddenSide)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 1}, '<', 5}}});
    EXPECT_NE(Named(ChartOf("Plan"), "2: 1X1+1X2<5")->Forbidden, picture::Side::None);
    EXPECT_THAT(Describe(Titled("Plan")), Contains("2: 1X1+1X2<5: X1 + X2 at most 5 (bounds nothing)."));
}

// With six limits the lines have their numbers, and the corners' figures stand at the best one alone.
TEST_F(LpPicture, ManyLimitsAreNumbered)
{
    Lp lp{false,
          {7, 6},
          {{{1, 9}, '<', 90},
           {{2, 8}, '<', 84},
           {{3, 7}, '<', 80},
           {{4, 6}, '<', 78},
           {{5, 5}, '<', 77},
           {{6, 4}, '<', 79}}};
    Solve(lp);
    const Chart chart = ChartOf("Plan");
    EXPECT_NE(Named(chart, "1"), nullptr);
    EXPECT_EQ(Named(chart, "1")->Tips.front(), "limit 1: 1X1+9X2<90");
    int texts = 0;
    for (const picture::Mark& mark : chart.Marks)
        texts += mark.Text.empty() ? 0 : 1;
    EXPECT_EQ(texts, 1);
    lp.Rows.pop_back();
    Solve(lp);
    EXPECT_NE(Named(ChartOf("Plan"), "1: 1X1+9X2<90"), nullptr);
}

// 0, 2 lies above the line's end at 21.08 / 18.78 = 1.12.
TEST_F(LpPicture, TheWindowHoldsAWholePlanBeyondAllCorners)
{
    SolveInteger({true, {15.24, 12.76}, {{{3.81, 18.78}, '>', 21.08}}}, {"DIN"});
    EXPECT_GT(ChartOf("Plan").Y.To, 2);
}

TEST_F(LpPicture, TheEdgeBetweenTwoBestCornersIsDrawn)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}}});
    const Picture plan = Titled("Plan");
    EXPECT_NE(Named(std::get<Chart>(plan.Body), "all best"), nullptr);
    EXPECT_THAT(plan.Notes.front(), HasSubstr("Best are all plans between"));
    Solve(kDoors);
    EXPECT_EQ(Named(ChartOf("Plan"), "all best"), nullptr);
}

TEST_F(LpPicture, LimitsThatExcludeEachOtherAreNamed)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 1}, '>', 6}, {{1, 0}, '<', 9}}});
    EXPECT_THAT(Titles(), ElementsAre("Plan"));
    EXPECT_EQ(Titled("Plan").Notes.front(),
              "Limit 1 and limit 2 exclude each other: no plan fulfils all limits.");
    const Chart chart = ChartOf("Plan");
    EXPECT_EQ(Named(chart, "1: 1X1+1X2<4")->As, Role::Infeasible);
    EXPECT_EQ(Named(chart, "3: 1X1<9")->As, Role::Limit);
    EXPECT_TRUE(Named(chart, "3: 1X1<9")->Thin);
}

// x + y <= 4 and x + 2y >= 10 would meet at x = -2: the sign of x is the third that excludes.
TEST_F(LpPicture, ASignCanBeAmongTheLimitsThatExcludeEachOther)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 2}, '>', 10}}});
    EXPECT_EQ(Titled("Plan").Notes.front(),
              "Limit 1, limit 2 and X1 of at least 0 exclude each other: no plan fulfils all limits.");
    Solve({false, {1, 1}, {{{1, 1}, '<', -4}}});
    EXPECT_THAT(Titled("Plan").Notes.front(), HasSubstr("exclude each other"));
    Solve({false, {1, 1}, {{{0, 0}, '>', 4}}});
    EXPECT_EQ(Titled("Plan").Notes.front(), "Limit 1 cannot be fulfilled by any plan.");
}

TEST_F(LpPicture, AnOpenRegionHasAnArrowAndSaysSo)
{
    Solve({false, {1, 1}, {{{1, -1}, '<', 4}}});
    ASSERT_EQ(Result.End, Outcome::Unbounded);
    const Picture plan = Titled("Plan");
    EXPECT_THAT(plan.Notes.front(), HasSubstr("The value has no end"));
    const Series* arrow = Named(std::get<Chart>(plan.Body), "goes on");
    ASSERT_NE(arrow, nullptr);
    EXPECT_TRUE(arrow->Arrow);
    Solve(kDoors);
    EXPECT_EQ(Named(ChartOf("Plan"), "goes on"), nullptr);
}

TEST_F(LpPicture, ARegionWithoutAreaIsASegmentOrAPoint)
{
    Solve({false, {1, 2}, {{{1, 1}, '=', 4}}});
    EXPECT_THAT(Titled("Plan").Notes, Contains("The limits leave a segment without area."));
    const Chart chart = ChartOf("Plan");
    const Series* segment = Named(chart, "plans that all limits allow");
    ASSERT_NE(segment, nullptr);
    EXPECT_EQ(segment->Kind, SeriesKind::Line);
    Solve({false, {1, 2}, {{{1, 1}, '=', 4}, {{1, -1}, '=', 0}}});
    EXPECT_THAT(Titled("Plan").Notes, Contains("The limits leave a single point."));
}

TEST_F(LpPicture, MoreThanTwoLimitsInACornerAreTold)
{
    Solve({false, {1, 1}, {{{1, 1}, '<', 4}, {{1, 0}, '<', 4}}});
    EXPECT_THAT(Titled("Plan").Notes, Contains(HasSubstr("At (4.000, 0.000) more than two limits meet")));
}

TEST_F(LpPicture, WithoutAnObjectiveEveryPlanIsAsGood)
{
    Solve({false, {0, 0}, {{{1, 1}, '<', 4}}});
    EXPECT_EQ(Titled("Plan").Notes.front(), "Every plan of the region has the value 0.000.");
}

// ---- limits and ranges ----

TEST_F(LpPicture, TheUseOfLimitsParts)
{
    Solve(kDoors);
    const Chart chart = ChartOf("Use of limits");
    const Series* usedUp = Named(chart, "used up");
    ASSERT_NE(usedUp, nullptr);
    EXPECT_EQ(usedUp->Points.size(), 2U);
    const Series* spare = Named(chart, "to spare");
    ASSERT_NE(spare, nullptr);
    ASSERT_EQ(spare->Intervals.size(), 1U);
    EXPECT_EQ(spare->Intervals[0].At, 1);
    EXPECT_NEAR(*spare->Intervals[0].From, 50, 1e-9);  // 2 of 4
    EXPECT_NEAR(*spare->Intervals[0].To, 100, 1e-9);
    EXPECT_EQ(Titled("Use of limits").Notes.front(), "Limits 2 and 3 are used up.");
}

// A right side of 0 has no share: all limits stand in amounts.
TEST_F(LpPicture, WithARightSideOfZeroTheLimitsStandInAmounts)
{
    Solve({false, {1, 1}, {{{1, -1}, '<', 0}, {{1, 1}, '<', 6}}});
    EXPECT_EQ(ChartOf("Use of limits").X.Title, "Amount");
    Solve(kDoors);
    EXPECT_EQ(ChartOf("Use of limits").X.Title, "Share of the right side (%)");
}

TEST_F(LpPicture, RangesHaveTheReportsEndsAndOpenOnesNone)
{
    Solve(kDoors);
    const Chart chart = ChartOf("Ranges");
    EXPECT_TRUE(chart.OwnScales);
    EXPECT_THAT(chart.Y.Names, ElementsAre("X1", "X2", "Limit 1", "Limit 2", "Limit 3"));
    const Series& ranges = chart.Curves.front();
    ASSERT_EQ(ranges.Intervals.size(), 5U);
    EXPECT_NEAR(*ranges.Intervals[0].To, 7.5, 1e-9);
    EXPECT_EQ(ranges.Intervals[0].ToText, "7.500");
    EXPECT_FALSE(ranges.Intervals[1].To);
    EXPECT_FALSE(ranges.Intervals[2].To);
}

TEST_F(LpPicture, ThreeVariablesHaveBarsInsteadOfAPlan)
{
    Solve({false, {60, 30, 20}, {{{8, 6, 1}, '<', 48}, {{4, 2, 1.5}, '<', 20}, {{2, 1.5, .5}, '<', 8}}});
    EXPECT_THAT(Titles(), ElementsAre("Values", "Use of limits", "Ranges"));
    const Chart chart = ChartOf("Values");
    ASSERT_EQ(chart.Curves.front().Points.size(), 3U);
    EXPECT_NEAR(chart.Curves.front().Points[2].X, 8, 1e-9);
    EXPECT_THAT(Titled("Values").Notes,
                ElementsAre("The largest value is that of X3: 8.000.", "1 variable is 0."));
}

// ---- the search ----

const Lp kTables{false, {8, 5}, {{{1, 1}, '<', 6}, {{9, 5}, '<', 45}}};

TEST_F(LpPicture, TheSearchHasANodeForEachThatWasMadeAndItsFate)
{
    SolveInteger(kTables, {"DIN"});
    EXPECT_THAT(Titles(), ElementsAre("Plan", "Use of limits", "Search", "Bounds"));
    const Diagram diagram = std::get<Diagram>(Titled("Search").Body);
    ASSERT_EQ(diagram.Nodes.size(), 7U);
    EXPECT_EQ(diagram.Arcs.size(), 6U);
    EXPECT_THAT(diagram.Nodes.front().Lines, ElementsAre("1: 41.250", "X1 = 3.750"));
    int best = 0;
    for (const picture::Node& node : diagram.Nodes) {
        if (node.As != Role::Best) continue;
        ++best;
        EXPECT_THAT(node.Lines, ElementsAre("5: 40.000", "whole"));
    }
    EXPECT_EQ(best, 1);
    EXPECT_EQ(Titled("Search").Notes.front(),
              "The search visited 7 nodes; the best whole-number plan has the value 40.000.");
}

TEST_F(LpPicture, ASearchOfOneNodeHasNoCourse)
{
    SolveInteger({false, {1, 2}, {{{1, 1}, '<', 4}}}, {"DIN"});
    EXPECT_THAT(Titles(), ElementsAre("Plan", "Use of limits", "Search"));
}

// At 4, 3 the sum is 7: 2 below 9 and 5 above 2.
TEST_F(LpPicture, WhatIsToSpareStandsAtItsBar)
{
    Solve({false, {1, 1}, {{{1, 0}, '<', 4}, {{0, 1}, '<', 3}, {{1, 1}, '>', 2}, {{1, 1}, '<', 9}}});
    const Chart chart = ChartOf("Use of limits");
    const Series* spare = Named(chart, "to spare");
    ASSERT_NE(spare, nullptr);
    EXPECT_EQ(spare->Intervals.front().ToText, "2.000 to spare");
    EXPECT_EQ(Named(chart, "above the limit")->Intervals.front().ToText, "5.000 above");
}

TEST_F(LpPicture, ThePlanOfAnIntegerProgramHasItsWholePointsAndBothOptima)
{
    SolveInteger(kTables, {"DIN"});
    const Chart chart = ChartOf("Plan");
    const Series* points = Named(chart, "whole-number plans");
    ASSERT_NE(points, nullptr);
    // By hand: y up to 6, 5, 4, 3, 1 and 0 for x = 0 to 5.
    EXPECT_EQ(points->Points.size(), 7U + 6U + 5U + 4U + 2U + 1U);
    bool relaxed = false;
    bool whole = false;
    for (const picture::Mark& mark : chart.Marks) {
        relaxed = relaxed || mark.Text == "(3.750, 2.250): 41.250";
        whole = whole || mark.Text == "(5.000, 0.000): 40.000";
    }
    EXPECT_TRUE(relaxed);
    EXPECT_TRUE(whole);
}

TEST_F(LpPicture, ASearchThatRanOutOfRoomKeepsItsTree)
{
    SolveInteger({false, {4, 4, 2, 12, 10}, {{{16, 15, 7, 7, 20}, '<', 73}}}, {"DIN"});
    ASSERT_EQ(Result.End, Outcome::OutOfRoom);
    EXPECT_THAT(Titles(), ElementsAre("Search", "Bounds"));
    EXPECT_THAT(Titled("Search").Notes, Contains("It ended when its table was full."));
}

TEST_F(LpPicture, WithoutASolveThereIsNothing)
{
    EXPECT_THAT(LP_Engine::Pictures({}), IsEmpty());
    EXPECT_THAT(LP_Engine::Steps({}), IsEmpty());
    EXPECT_THAT(LP_Engine::Meaning({}), IsEmpty());
}

// ---- random problems ----

Lp RandomLp(std::mt19937& random, int mostVariables)
{
    const auto whole = [&random](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    };
    Lp lp;
    lp.Minimize = whole(0, 1) == 1;
    const int n = mostVariables == 2 ? 2 : whole(1, mostVariables);
    for (int j = 0; j < n; ++j)
        lp.Objective.push_back(whole(-3, 9));
    const int m = whole(0, 5);
    for (int i = 0; i < m; ++i) {
        LpRow row;
        for (int j = 0; j < n; ++j)
            row.Coefficients.push_back(whole(0, 4) == 0 ? 0 : whole(-3, 9));
        row.Relation = "<<>="[whole(0, 3)];
        row.RightHandSide = whole(0, 5) == 0 ? 0 : whole(1, 30);
        lp.Rows.push_back(row);
    }
    return lp;
}

void ExpectInsideAxes(const Chart& chart)
{
    if (chart.OwnScales) return;
    const double roomX = 1e-6 * (1 + chart.X.To - chart.X.From);
    const double roomY = 1e-6 * (1 + chart.Y.To - chart.Y.From);
    const auto inside = [&](const Point& point) {
        EXPECT_GE(point.X, chart.X.From - roomX);
        EXPECT_LE(point.X, chart.X.To + roomX);
        EXPECT_GE(point.Y, chart.Y.From - roomY);
        EXPECT_LE(point.Y, chart.Y.To + roomY);
    };
    for (const Series& series : chart.Curves)
        for (const Point& point : series.Points)
            inside(point);
    for (const picture::Mark& mark : chart.Marks)
        inside(mark.At);
}

void CheckAll()
{
    for (const Picture& picture : LP_Engine::Pictures(Result)) {
        EXPECT_FALSE(picture.Notes.empty()) << picture.Title;
        EXPECT_FALSE(picture::Describe(picture).empty());
        if (const Chart* chart = std::get_if<Chart>(&picture.Body)) ExpectInsideAxes(*chart);
    }
    const std::vector<picture::Sentence> meaning = LP_Engine::Meaning(Result);
    EXPECT_FALSE(meaning.empty());
    EXPECT_LE(meaning.size(), 12U);
    const std::vector<picture::Step> steps = LP_Engine::Steps(Result);
    ASSERT_FALSE(steps.empty());
    for (const picture::Step& step : steps)
        EXPECT_FALSE(step.Why.empty()) << step.Heading;
    if (Result.End != Outcome::Optimal) return;
    const std::string value = LP_Engine::NumberText(Result.Problem, Objective());
    EXPECT_THAT(meaning.front().Text, HasSubstr("the value is " + value + "."));
    EXPECT_THAT(picture::Listing(steps), Contains(HasSubstr(value)));
}

TEST_F(LpPicture, RandomProblemsOfTwoVariablesHaveARegionWhereTheyHaveAPlan)
{
    std::mt19937 random(61);
    int solved = 0;
    int infeasible = 0;
    for (int round = 0; round < 1000; ++round) {
        Solve(RandomLp(random, 2));
        const LpPlane plane(Result);
        if (Result.End == Outcome::Optimal && Values()[0] < 1e9 && Values()[1] < 1e9) {
            ++solved;
            EXPECT_FALSE(plane.Region().empty()) << "round " << round;
            EXPECT_TRUE(plane.Excluding().empty()) << "round " << round;
            bool found = false;
            for (const LP_Engine::Corner& corner : plane.Corners())
                found = found || (std::abs(corner.At.X - Values()[0]) < 1e-4 &&
                                  std::abs(corner.At.Y - Values()[1]) < 1e-4);
            EXPECT_TRUE(found) << "round " << round;
        } else if (Result.End == Outcome::Infeasible) {
            ++infeasible;
            EXPECT_EQ(plane.Region().empty(), !plane.Excluding().empty()) << "round " << round;
        }
        CheckAll();
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_GT(solved, 200);
    EXPECT_GT(infeasible, 50);
}

TEST_F(LpPicture, RandomProblemsOfAnySizeAreToldWithoutFault)
{
    std::mt19937 random(62);
    for (int round = 0; round < 300; ++round) {
        Solve(RandomLp(random, 8));
        CheckAll();
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

// A user who is not patient with searches that go round.
class Hasty : public FakeScreen {
public:
    bool Interrupted() override { return true; }  // asked every 100 ms
};

TEST_F(LpPicture, RandomIntegerProgramsAreToldWithoutFault)
{
    Hasty screen;
    desktop::Install({&desktop.dialogs, &screen, &desktop.forms, &desktop.printer});
    std::mt19937 random(63);
    for (int round = 0; round < 150; ++round) {
        Lp lp = RandomLp(random, 4);
        for (LpRow& row : lp.Rows)
            if (row.Relation == '=') row.Relation = '<';
        SolveInteger(lp, {round % 3 == 0 ? "DBI" : "DIN"});
        CheckAll();
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

}  // namespace
