#include "markov/MarkovPicture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

#include "basic/format.h"
#include "markov/ChainShape.h"
#include "markov/chains.h"

using picture::Chart;
using picture::Diagram;
using picture::Picture;
using picture::Role;
using picture::Shape;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<Picture> Drawn(const Rows& chain)
{
    Given(chain);
    Analyse();
    return Markov::Pictures(Markov::Problem, Markov::Result);
}

std::vector<std::string> Titles(const std::vector<Picture>& pictures)
{
    std::vector<std::string> titles;
    titles.reserve(pictures.size());
    for (const Picture& drawn : pictures)
        titles.push_back(drawn.Title);
    return titles;
}

const Picture& Titled(const std::vector<Picture>& pictures, std::string_view title)
{
    for (const Picture& drawn : pictures)
        if (drawn.Title == title) return drawn;
    throw std::runtime_error("no picture " + std::string(title));
}

const Diagram& DiagramOf(const std::vector<Picture>& pictures)
{
    return std::get<Diagram>(Titled(pictures, "States").Body);
}

const Chart& ChartOf(const std::vector<Picture>& pictures, std::string_view title)
{
    return std::get<Chart>(Titled(pictures, title).Body);
}

// The chain's row after some steps, by squaring the matrix instead of repeating the steps.
std::vector<double> After(Rows power, std::vector<double> row, int steps)
{
    const std::size_t n = power.size();
    for (; steps > 0; steps /= 2) {
        if (steps % 2 == 1) {
            std::vector<double> next(n, 0.0);
            for (std::size_t i = 0; i < n; ++i)
                for (std::size_t j = 0; j < n; ++j)
                    next[j] += row[i] * power[i][j];
            row = next;
        }
        Rows square(n, std::vector<double>(n, 0.0));
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < n; ++j)
                for (std::size_t k = 0; k < n; ++k)
                    square[i][j] += power[i][k] * power[k][j];
        power = square;
    }
    return row;
}

void ExpectInside(const Chart& chart, int round)
{
    for (const picture::Series& line : chart.Curves)
        for (const picture::Point& point : line.Points) {
            EXPECT_GE(point.X, chart.X.From) << round;
            EXPECT_LE(point.X, chart.X.To) << round;
            EXPECT_GE(point.Y, chart.Y.From) << round;
            EXPECT_LE(point.Y, chart.Y.To) << round;
        }
    for (const picture::Mark& mark : chart.Marks) {
        EXPECT_GT(mark.At.X, chart.X.From) << round;
        EXPECT_LT(mark.At.X, chart.X.To) << round;
        EXPECT_GT(mark.At.Y, chart.Y.From) << round;
        EXPECT_LT(mark.At.Y, chart.Y.To) << round;
        EXPECT_GE(mark.Shade, 0) << round;
        EXPECT_LE(mark.Shade, 1) << round;
    }
}

}  // namespace

TEST(MarkovPicture, NothingIsDrawnBeforeASolve)
{
    Given({{0.9, 0.1}, {0.3, 0.7}});
    EXPECT_THAT(Markov::Pictures(Markov::Problem, {}), IsEmpty());
}

TEST(MarkovPicture, TwoBrandsAreARingWithTheirSharesAndArrows)
{
    const auto pictures = Drawn({{0.9, 0.1}, {0.3, 0.7}});
    EXPECT_THAT(Titles(pictures), ElementsAre("States", "Course"));
    EXPECT_THAT(
        picture::Listing(pictures[0], 1, 2),
        ElementsAre(R"(picture 1 of 2 diagram "States")", R"(node circle chosen "1" "1\n0.750")",
                    R"(node circle plain "2" "2\n0.250")", R"(arc plain "1" "1" 0.9 "0.900")",
                    R"(arc plain "1" "2" 0.1 "0.100")", R"(arc plain "2" "2" 0.7 "0.700")",
                    R"(arc plain "2" "1" 0.3 "0.300")", R"(note "State 1 has the largest share, 0.750.")"));
}

TEST(MarkovPicture, AbsorbingStatesAreRingsInRings)
{
    const Diagram ring = DiagramOf(Drawn(Absorbing(2, 2)));
    EXPECT_EQ(ring.Nodes[0].Form, Shape::Circle);
    EXPECT_EQ(ring.Nodes[2].Form, Shape::Ring);
    EXPECT_EQ(ring.Nodes[2].As, Role::Chosen);
    EXPECT_EQ(Titled(Drawn(Absorbing(2, 2)), "States").Notes[0], "States 3 and 4 absorb.");
    EXPECT_EQ(Titled(Drawn(Absorbing(2, 1)), "States").Notes[0], "State 3 absorbs.");
}

TEST(MarkovPicture, OneStateIsOneNode)
{
    const auto pictures = Drawn({{1}});
    EXPECT_THAT(Titles(pictures), ElementsAre("States"));
    EXPECT_EQ(DiagramOf(pictures).Nodes.size(), 1U);
    EXPECT_EQ(DiagramOf(pictures).Arcs.size(), 1U);
}

TEST(MarkovPicture, StatesWithEqualSharesAreNotChosen)
{
    const auto pictures = Drawn(Ring(3));
    for (const picture::Node& node : DiagramOf(pictures).Nodes)
        EXPECT_EQ(node.As, Role::Plain);
    EXPECT_THAT(Titled(pictures, "States").Notes,
                ElementsAre("All 3 states have the same share, 0.333.",
                            "The group (1, 2, 3) is periodic: it comes round every 3 steps."));
}

// 24 arcs: 4 states with all arcs have 16, 5 have 25.
TEST(MarkovPicture, TheMatrixComesFirstBeyond24Arcs)
{
    Rows chain(5, std::vector<double>(5, 0.2));
    EXPECT_THAT(Titles(Drawn(chain)), ElementsAre("Matrix", "States", "Course"));
    chain[0] = {0.4, 0.2, 0.2, 0.2, 0};
    EXPECT_THAT(Titles(Drawn(chain)), ElementsAre("States", "Course"));
}

TEST(MarkovPicture, TheMatrixShowsEachProbabilityInItsCell)
{
    Rows chain(5, std::vector<double>(5, 0.2));
    chain[1] = {0.1, 0.3, 0.2, 0.2, 0.2};
    const auto pictures = Drawn(chain);
    const Chart& matrix = ChartOf(pictures, "Matrix");
    ASSERT_EQ(matrix.Marks.size(), 25U);
    EXPECT_EQ(matrix.Marks[6].At.X, 2);  // to
    EXPECT_EQ(matrix.Marks[6].At.Y, 2);  // from
    EXPECT_EQ(matrix.Marks[5].Text, "0.100");
    EXPECT_NEAR(matrix.Marks[5].Shade, 1.0 / 3, 1e-12);  // of the darkest, 0.3
    EXPECT_THAT(Titled(pictures, "Matrix").Notes,
                ElementsAre("25 probabilities above 0; the largest, 0.300, is from state 2 to state 2."));
}

// 0.05 is drawn, 0.04 is not.
TEST(MarkovPicture, SmallArcsOfADenseChainAreLeftOut)
{
    Rows chain(5, std::vector<double>(5, 0.2));
    chain[0] = {0.05, 0.04, 0.31, 0.3, 0.3};
    const auto pictures = Drawn(chain);
    EXPECT_EQ(DiagramOf(pictures).Arcs.size(), 24U);
    EXPECT_EQ(Titled(pictures, "States").Notes.back(), "1 arc with a probability below 0.050 is not drawn.");
}

TEST(MarkovPicture, GroupsThatAreNeverLeftHaveAFrame)
{
    const auto pictures = Drawn(
        {{0.5, 0.5, 0, 0, 0}, {0.5, 0.5, 0, 0, 0}, {0, 0, 0, 1, 0}, {0, 0, 1, 0, 0}, {0.2, 0, 0.2, 0, 0.6}});
    const Diagram& ring = DiagramOf(pictures);
    ASSERT_EQ(ring.Frames.size(), 2U);
    EXPECT_THAT(ring.Frames[0].Ids, ElementsAre("1", "2"));
    EXPECT_THAT(ring.Frames[1].Ids, ElementsAre("3", "4"));
    const auto& notes = Titled(pictures, "States").Notes;
    EXPECT_THAT(std::vector<std::string>(notes.begin() + 1, notes.end()),
                ElementsAre("The group (1, 2) is never left.", "The group (3, 4) is never left.",
                            "The group (3, 4) is periodic: it comes round every 2 steps.",
                            "Left for good sooner or later: state 5."));
}

TEST(MarkovPicture, TheCourseOfASlowChainIsStillChanging)
{
    // Two states that swap, fed unequally: never settles.
    const auto pictures = Drawn({{0, 1, 0}, {1, 0, 0}, {1, 0, 0}});
    const Chart& course = ChartOf(pictures, "Course");
    EXPECT_EQ(course.X.To, 150);
    EXPECT_EQ(course.Rules[0].Text, "still changing");
    EXPECT_EQ(Titled(pictures, "Course").Notes[0], "Still changing at step 150, the last that is made.");
}

TEST(MarkovPicture, TheCourseEndsWhereItSettled)
{
    const auto pictures = Drawn(Ring(4));
    EXPECT_EQ(ChartOf(pictures, "Course").X.To, 1);
    EXPECT_EQ(ChartOf(pictures, "Course").Y.To, 0.25);
    EXPECT_THAT(Titled(pictures, "Course").Notes,
                ElementsAre("Settled after 1 step.", "The start has equal shares."));
}

// With one half lost in each step nothing is left but the 0.5^17 behind the last one.
TEST(MarkovPicture, AbsorptionIsATableAndALineForEachStart)
{
    const auto pictures = Drawn({{0.5, 0.5}, {0, 1}});
    EXPECT_THAT(Titles(pictures), ElementsAre("States", "Absorption", "Course"));
    const Chart& table = ChartOf(pictures, "Absorption");
    ASSERT_EQ(table.Marks.size(), 1U);
    EXPECT_EQ(table.Marks[0].Text, "1.000");
    EXPECT_THAT(table.X.Names, ElementsAre("2"));
    EXPECT_THAT(table.Y.Names, ElementsAre("1"));
    const Chart& course = ChartOf(pictures, "Course");
    ASSERT_EQ(course.Curves.size(), 1U);
    EXPECT_EQ(course.Curves[0].Name, "from 1");
    ASSERT_EQ(course.Curves[0].Points.size(), 18U);
    EXPECT_EQ(course.Curves[0].Points[2].Y, 0.75);
}

TEST(MarkovPicture, UnitsThatAreNotAbsorbedHaveAColumnOfTheirOwn)
{
    const auto pictures = Drawn({{0.99, 0.01}, {0, 1}});
    const Chart& table = ChartOf(pictures, "Absorption");
    EXPECT_THAT(table.X.Names, ElementsAre("2", "none yet"));
    EXPECT_EQ(table.Marks[1].Text, Format(std::pow(0.99, 150), "0.000"));
    EXPECT_EQ(Titled(pictures, "Course").Notes[1],
              "Still changing at step 150, the last that is made: from state 1.");
}

// A row that adds up to 0.9991 loses a little in each step: 0.0991 / 0.1 end in state 2, and nobody is left.
TEST(MarkovPicture, WhatARowLosesIsNotAUnitStillUnderWay)
{
    const auto pictures = Drawn({{0.9, 0.0991}, {0, 1}});
    const Chart& table = ChartOf(pictures, "Absorption");
    EXPECT_THAT(table.X.Names, ElementsAre("2"));
    ASSERT_EQ(table.Marks.size(), 1U);
    EXPECT_EQ(table.Marks[0].Text, "0.991");
    EXPECT_EQ(Titled(pictures, "Absorption").Notes.size(), 1U);
}

TEST(MarkovPicture, EveryChainIsDrawnInsideItsAxesAndAlongItsPowers)
{
    std::mt19937 random(1201);
    for (int round = 0; round < 400; ++round) {
        const Rows chain = RandomChain(random);
        const auto pictures = Drawn(chain);
        ASSERT_FALSE(pictures.empty());
        for (const Picture& drawn : pictures) {
            EXPECT_FALSE(drawn.Notes.empty());
            if (const auto* chart = std::get_if<Chart>(&drawn.Body)) ExpectInside(*chart, round);
        }
        const bool absorbs = !Markov::Result.AbsorbingList.empty();
        if (pictures.back().Title != "Course") continue;
        const auto& curves = std::get<Chart>(pictures.back().Body).Curves;
        for (const picture::Series& curve : curves) {
            const int state = std::stoi(curve.Name.substr(curve.Name.find(' ')));
            std::vector<double> start(chain.size(), absorbs ? 0.0 : 1.0 / static_cast<double>(chain.size()));
            if (absorbs) start[static_cast<std::size_t>(state) - 1] = 1;
            const int step = static_cast<int>(curve.Points.size()) / 2;
            const std::vector<double> row = After(chain, start, step);
            double expected = 0;
            if (absorbs)
                for (const int absorbing : Markov::Result.AbsorbingList)
                    expected += row[static_cast<std::size_t>(absorbing) - 1];
            else
                expected = row[static_cast<std::size_t>(state) - 1];
            EXPECT_NEAR(curve.Points[static_cast<std::size_t>(step)].Y, expected, 1e-9) << round;
        }
    }
}

// ---- shape ----

TEST(ChainShape, TellsThePeriodOfEachRing)
{
    for (int n = 1; n <= 10; ++n) {
        Given(Ring(n));
        const Markov::ChainShape shape(Markov::Problem);
        ASSERT_EQ(shape.Groups().size(), 1U);
        EXPECT_EQ(shape.Period(shape.Groups()[0]), n);
    }
    Given({{0, 1, 0}, {0, 0, 1}, {0.5, 0.5, 0}});  // ways round of 3 and of 2 steps
    const Markov::ChainShape shape(Markov::Problem);
    EXPECT_EQ(shape.Period(shape.Groups()[0]), 1);
}

// By hand: the start 5 goes to both groups alike, so each group has 2.5 of the 5 units.
TEST(ChainShape, SharesOfTheLongRunCountWhatFallsIntoEachGroup)
{
    Given(
        {{0.9, 0.1, 0, 0, 0}, {0.3, 0.7, 0, 0, 0}, {0, 0, 0, 1, 0}, {0, 0, 1, 0, 0}, {0.2, 0, 0, 0.2, 0.6}});
    const auto shares = Markov::ChainShape(Markov::Problem).LongRunShares();
    ASSERT_TRUE(shares);
    EXPECT_NEAR((*shares)(1), 0.375, 1e-12);
    EXPECT_NEAR((*shares)(2), 0.125, 1e-12);
    EXPECT_NEAR((*shares)(3), 0.25, 1e-12);
    EXPECT_NEAR((*shares)(5), 0, 1e-12);
}

TEST(ChainShape, RowsThatDoNotAddUpHaveNoLongRun)
{
    Given({{0.5, 0.4999}, {0.5, 0.5}});
    EXPECT_FALSE(Markov::ChainShape(Markov::Problem).RowsAddUp());
    EXPECT_FALSE(Markov::ChainShape(Markov::Problem).LongRunShares());
}

TEST(ChainShape, AMatrixWithoutAnInverseHasNone)
{
    Array2<double> singular(2, 2);
    singular(1, 1) = singular(2, 2) = singular(1, 2) = singular(2, 1) = 3;
    EXPECT_FALSE(Markov::Inverse(singular));
    singular(2, 2) = 1;  // 3 3 / 3 1: the inverse is -1/6 1/2 / 1/2 -1/2
    const auto inverse = Markov::Inverse(singular);
    ASSERT_TRUE(inverse);
    EXPECT_NEAR((*inverse)(1, 1), -1.0 / 6, 1e-12);
    EXPECT_NEAR((*inverse)(2, 1), 0.5, 1e-12);
    EXPECT_NEAR((*inverse)(2, 2), -0.5, 1e-12);
}
