// Pictures of decisions, held against strategies tried one by one and against values at many chances.
#include "decision/DecisionPicture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>
#include <random>

#include "decision/DecisionFigures.h"
#include "decision/DecisionMeaning.h"
#include "decision/DecisionSteps.h"
#include "decision/decision_support.h"
#include "support/beside.h"
#include "support/sound_pictures.h"

using Decision::Problem;
using Decision::Result;
using picture::Chart;
using picture::Diagram;
using picture::Node;
using picture::Picture;
using picture::Role;
using testing::Contains;
using testing::ElementsAre;

namespace {

std::vector<Picture> Solved()
{
    Decision::SolveProblem();
    return Decision::Pictures(Problem, Result);
}

const Diagram& TreeOf(const std::vector<Picture>& pictures)
{
    return std::get<Diagram>(pictures.at(0).Body);
}

const Chart& ChartOf(const Picture& picture)
{
    return std::get<Chart>(picture.Body);
}

const Node& NodeOf(const Diagram& tree, const std::string& id)
{
    for (const Node& node : tree.Nodes)
        if (node.Id == id) return node;
    ADD_FAILURE() << "no node " << id;
    return tree.Nodes.front();
}

const picture::Arc& ArcTo(const Diagram& tree, const std::string& id)
{
    for (const picture::Arc& arc : tree.Arcs)
        if (arc.To == id) return arc;
    ADD_FAILURE() << "no arc to " << id;
    return tree.Arcs.front();
}

const Table kStall = {{-40, 60, 200}, {10, 80, 120}, {90, 50, 5}};

// A lease with a survey: worked by hand below.
void GivenSurvey()
{
    GivenPayoffs({{100, -50}, {20, 10}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.4, 0.6});
    GivenSample({{0.75, 0.25}, {0.25, 0.75}});
}

}  // namespace

TEST(DecisionPictures, FollowTheCriterion)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Criteria"));
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    GivenStateProbabilities({0.2, 0.5, 0.3});
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Tree"));
    GivenSurvey();
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Tree", "Sensitivity"));
    Result = {};
    EXPECT_TRUE(Decision::Pictures(Problem, Result).empty());
}

// 0.2 * -40 + 0.5 * 60 + 0.3 * 200 = 82; 2 + 40 + 36 = 78; 18 + 25 + 1.5 = 44.5.
TEST(DecisionPictures, ATreeRollsItsValuesBack)
{
    GivenPayoffs(kStall, true, Decision::kOptimistic);
    GivenStateProbabilities({0.2, 0.5, 0.3});
    const auto pictures = Solved();
    const Diagram& tree = TreeOf(pictures);
    EXPECT_EQ(tree.Nodes.size(), 1U + 3 + 9);
    EXPECT_EQ(NodeOf(tree, "root").Form, picture::Shape::Square);
    EXPECT_THAT(NodeOf(tree, "root").Lines, ElementsAre("82.00"));
    EXPECT_THAT(NodeOf(tree, "A2").Lines, ElementsAre("78.00"));
    EXPECT_EQ(NodeOf(tree, "A2").Form, picture::Shape::Circle);
    EXPECT_THAT(NodeOf(tree, "A3S3").Lines, ElementsAre("5 (0.300)"));
    EXPECT_EQ(NodeOf(tree, "A3S3").Form, picture::Shape::Triangle);
    EXPECT_EQ(ArcTo(tree, "A1").As, Role::Best);
    EXPECT_EQ(ArcTo(tree, "A1S2").As, Role::Best);
    EXPECT_EQ(ArcTo(tree, "A2").As, Role::NotTaken);
    EXPECT_EQ(NodeOf(tree, "A2S1").As, Role::NotTaken);
    EXPECT_EQ(ArcTo(tree, "A1S2").Text, "state 2: 0.500");
    EXPECT_EQ(pictures[0].Notes[0], "Alternative 1 has the best expected value, 82.00.");
}

TEST(DecisionPictures, CostsStayOnTheirOwnScale)
{
    GivenPayoffs(kStall, false, Decision::kOptimistic);
    GivenStateProbabilities({0.2, 0.5, 0.3});
    const auto pictures = Solved();
    EXPECT_THAT(NodeOf(TreeOf(pictures), "root").Lines, ElementsAre("44.50"));
    EXPECT_EQ(NodeOf(TreeOf(pictures), "A3").As, Role::Best);
}

// Outcome 1: joint 0.3 and 0.15, chance 0.45, posteriors 2/3 and 1/3: 50 against 16.67.
// Outcome 2: joint 0.1 and 0.45, chance 0.55, posteriors 2/11 and 9/11: -22.73 against 11.82.
// 0.45 * 50 + 0.55 * 11.8182 = 29.
TEST(DecisionPictures, OutcomesOfASampleComeFirst)
{
    GivenSurvey();
    const auto pictures = Solved();
    const Diagram& tree = TreeOf(pictures);
    EXPECT_EQ(NodeOf(tree, "root").Form, picture::Shape::Circle);
    EXPECT_THAT(NodeOf(tree, "root").Lines, ElementsAre("29.00"));
    EXPECT_EQ(ArcTo(tree, "I1").Text, "outcome 1: 0.450");
    EXPECT_THAT(NodeOf(tree, "I1").Lines, ElementsAre("50.00"));
    EXPECT_THAT(NodeOf(tree, "I1A2").Lines, ElementsAre("16.67"));
    EXPECT_THAT(NodeOf(tree, "I2A1").Lines, ElementsAre("-22.73"));
    EXPECT_EQ(ArcTo(tree, "I1A1").As, Role::Best);
    EXPECT_EQ(ArcTo(tree, "I2A2").As, Role::Best);
    EXPECT_EQ(ArcTo(tree, "I2A1").As, Role::NotTaken);
    EXPECT_EQ(ArcTo(tree, "I1A1S1").Text, "state 1: 0.667");
    EXPECT_THAT(NodeOf(tree, "I1A1S1").Lines, ElementsAre("100 (0.300)"));
    EXPECT_EQ(
        pictures[0].Notes[0],
        "Best strategy, expected value 29.00: after outcome 1 alternative 1, after outcome 2 alternative "
        "2.");
}

TEST(DecisionPictures, WhatCannotHappenIsSpare)
{
    GivenPayoffs({{100, -50}, {20, 10}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0, 1});
    GivenSample({{0, 1}, {1, 0}});
    const auto pictures = Solved();
    const Diagram& tree = TreeOf(pictures);
    EXPECT_EQ(NodeOf(tree, "I2").As, Role::Spare);
    EXPECT_EQ(ArcTo(tree, "I1A2S1").As, Role::Spare);
    EXPECT_EQ(ArcTo(tree, "I1A2S2").As, Role::Best);
    EXPECT_THAT(pictures[0].Notes, Contains("Outcome 2 cannot happen."));
}

TEST(DecisionPictures, TiesAreTold)
{
    GivenPayoffs({{1, 1}, {1, 1}, {0, 0}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    auto pictures = Solved();
    EXPECT_EQ(pictures[0].Notes[0], "Alternatives 1 and 2 tie with the best expected value, 1.00.");
    EXPECT_EQ(ArcTo(TreeOf(pictures), "A2").As, Role::Best);
    GivenSample({{1, 0}, {0, 1}});
    pictures = Solved();
    EXPECT_EQ(ArcTo(TreeOf(pictures), "I1A1").As, Role::NotTaken);
    EXPECT_EQ(ArcTo(TreeOf(pictures), "I1A2").As, Role::Best);
    EXPECT_THAT(pictures[0].Notes,
                Contains("After outcome 1 alternatives 1 and 2 tie; the last one is taken."));
}

TEST(DecisionPictures, MoreThanSixtyLeavesAreFolded)
{
    const auto given = [](std::size_t m, std::size_t n) {
        Table payoffs(m, std::vector<double>(n));
        for (std::size_t i = 0; i < m; ++i)
            payoffs[i][0] = static_cast<double>(i);
        GivenPayoffs(payoffs, true, Decision::kOptimistic);
        GivenStateProbabilities(std::vector<double>(n, 1 / static_cast<double>(n)));
    };
    given(6, 10);
    EXPECT_EQ(TreeOf(Solved()).Nodes.size(), 1U + 6 + 60);
    given(7, 9);
    const auto pictures = Solved();
    const Diagram& tree = TreeOf(pictures);
    EXPECT_EQ(tree.Nodes.size(), 1U + 1 + 9 + 1);
    EXPECT_TRUE(NodeOf(tree, "others").Folded);
    EXPECT_THAT(NodeOf(tree, "others").Lines,
                ElementsAre("1: 0.00", "2: 0.11", "3: 0.22", "4: 0.33", "5: 0.44", "6: 0.56"));
    EXPECT_EQ(ArcTo(tree, "others").Text, "the others");
    EXPECT_EQ(pictures[0].Notes.back(),
              "Only the best alternative is open; the others are folded into one line with their expected "
              "values.");
}

TEST(DecisionPictures, OptimismAndCautionPickAnEndOfEachLine)
{
    GivenPayoffs(kStall, true, Decision::kConservative);
    const auto pictures = Solved();
    const Chart& chart = ChartOf(pictures[0]);
    ASSERT_EQ(chart.Curves.size(), 2U);
    EXPECT_EQ(chart.Curves[1].As, Role::Best);
    ASSERT_EQ(chart.Curves[1].Intervals.size(), 1U);
    EXPECT_EQ(chart.Curves[1].Intervals[0].At, 2);
    EXPECT_EQ(chart.Curves[1].Intervals[0].From, 10);
    EXPECT_EQ(chart.Curves[1].Intervals[0].To, 120);
    std::map<std::string, double> picked;
    for (const auto& mark : chart.Marks)
        if (mark.Id.find('S') == std::string::npos) picked[mark.Id] = mark.At.X;
    EXPECT_EQ(picked, (std::map<std::string, double>{{"A1", -40}, {"A2", 10}, {"A3", 5}}));
    EXPECT_EQ(chart.Marks.size(), 9U);
}

TEST(DecisionPictures, StatesWithOnePayoffShareAMark)
{
    GivenPayoffs({{3, 3, 1}}, true, Decision::kOptimistic);
    const auto pictures = Solved();
    ASSERT_EQ(ChartOf(pictures[0]).Marks.size(), 2U);
    EXPECT_EQ(ChartOf(pictures[0]).Marks[0].Text, "1 and 2: 3");
}

TEST(DecisionPictures, RegretsAreBars)
{
    GivenPayoffs(kStall, true, Decision::kMinimaxRegret);  // 130, 80, 195
    const auto pictures = Solved();
    const Chart& chart = ChartOf(pictures[0]);
    ASSERT_EQ(chart.Curves.size(), 2U);
    EXPECT_EQ(chart.Curves[0].Points.size(), 2U);
    EXPECT_EQ(chart.Curves[0].Points[1].X, 195);
    EXPECT_EQ(chart.Curves[1].Points[0].X, 80);
    EXPECT_EQ(chart.Curves[1].Points[0].Y, 2);
    EXPECT_EQ(chart.X.To, 195);
}

// 100 p - 50 (1 - p) = 20 p + 10 (1 - p) at p = 60 / 140.
TEST(DecisionPictures, TwoStatesShowWhereTheChoiceChanges)
{
    GivenSurvey();
    const auto pictures = Solved();
    const Chart& chart = ChartOf(pictures[1]);
    ASSERT_EQ(chart.Marks.size(), 1U);
    EXPECT_NEAR(chart.Marks[0].At.X, 60.0 / 140, 1e-12);
    EXPECT_NEAR(chart.Marks[0].At.Y, 10 + 10 * 60.0 / 140, 1e-12);
    EXPECT_EQ(chart.Marks[0].As, Role::Best);
    ASSERT_EQ(chart.Curves.size(), 4U);
    EXPECT_EQ(chart.Curves[2].Name, "best: alternative 2");
    EXPECT_EQ(chart.Curves[3].Name, "best: alternative 1");
    EXPECT_EQ(chart.Rules[0].Value, 0.4);
    EXPECT_THAT(pictures[1].Notes,
                ElementsAre("Best by the chance of state 1: from 0.000 to 0.429 alternative 2, from 0.429 to "
                            "1.000 alternative 1."));
}

TEST(DecisionPictures, OneAlternativeMayBeBestForEveryChance)
{
    GivenPayoffs({{3, 3}, {1, 2}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    EXPECT_THAT(Solved()[1].Notes, ElementsAre("For every chance of state 1 the best is alternative 1."));
    GivenPayoffs({{3, 3}, {3, 3}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    EXPECT_THAT(Solved()[1].Notes,
                ElementsAre("For every chance of state 1 the best are alternatives 1 and 2."));
}

// ---- at random ----

namespace {

class AnyProblem {
public:
    explicit AnyProblem(unsigned seed) : random_(seed) {}

    void Give()
    {
        const auto m = static_cast<std::size_t>(Whole(1, 10));
        const auto n = static_cast<std::size_t>(Whole(1, Whole(0, 2) == 0 ? 2 : 10));
        const int spread = Whole(0, 2) == 0 ? 2 : 500;
        Table payoffs(m, std::vector<double>(n));
        for (auto& row : payoffs)
            for (double& payoff : row)
                payoff = Whole(-spread, spread);
        GivenPayoffs(payoffs, Whole(0, 1) == 1, Whole(1, 3));
        if (Whole(0, 3) == 0) return;
        GivenStateProbabilities(Chances(n));
        if (Whole(0, 1) == 0) return;
        const auto outcomes = static_cast<std::size_t>(Whole(1, 10));
        Table likelihood;
        for (std::size_t j = 0; j < n; ++j)
            likelihood.push_back(Chances(outcomes));
        GivenSample(likelihood);
    }

private:
    int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    // In tenths, with zeros among them.
    std::vector<double> Chances(std::size_t count)
    {
        std::vector<double> chances(count);
        for (int tenth = 0; tenth < 10; ++tenth)
            chances[static_cast<std::size_t>(Whole(0, static_cast<int>(count) - 1))] += 1;
        for (double& chance : chances)
            chance /= 10;
        return chances;
    }

    std::mt19937 random_;
};

double BestAt(double chance)
{
    double best = 0;
    for (int i = 1; i <= Problem.AlternativeCount; ++i) {
        const double value = Problem.Payoff(i, 1) * chance + Problem.Payoff(i, 2) * (1 - chance);
        if (i == 1 || (Decision::Maximizes() ? value > best : value < best)) best = value;
    }
    return best;
}

// The strong stretches against the best value at many chances.
void ExpectEnvelope(const Chart& chart)
{
    double covered = 0;
    for (const picture::Series& series : chart.Curves) {
        if (series.As != Role::Best) continue;
        const picture::Point from = series.Points[0];
        const picture::Point to = series.Points[1];
        covered += to.X - from.X;
        for (const double part : {0.0, 0.25, 0.5, 1.0}) {
            const double chance = from.X + part * (to.X - from.X);
            EXPECT_NEAR(from.Y + part * (to.Y - from.Y), BestAt(chance), 1e-9);
        }
    }
    EXPECT_NEAR(covered, 1, 1e-9);
}

// Rolled back by hand: a decision has the best of its children, a chance their mean.
double RolledBack(const Diagram& tree, const Node& node)
{
    if (node.Form == picture::Shape::Triangle) return std::stod(node.Lines[0]);
    const bool decides = node.Form == picture::Shape::Square;
    double value = 0;
    bool first = true;
    for (const picture::Arc& arc : tree.Arcs) {
        if (arc.From != node.Id) continue;
        const Node& child = NodeOf(tree, arc.To);
        if (child.Folded) continue;  // not better than what is open
        const double below = RolledBack(tree, child);
        if (!decides)
            value += arc.Weight * below;
        else if (first || (Decision::Maximizes() ? below > value : below < value))
            value = below;
        first = false;
    }
    return value;
}

void ExpectRolledBack(const Diagram& tree)
{
    for (const Node& node : tree.Nodes) {
        if (node.Folded || node.Form == picture::Shape::Triangle) continue;
        std::string text = node.Lines[0];
        std::erase(text, ',');
        EXPECT_NEAR(std::stod(text), RolledBack(tree, node), 0.0051) << node.Id;
    }
}

}  // namespace

TEST(DecisionPictures, AreMadeOfEveryProblem)
{
    AnyProblem any(15);
    for (int round = 0; round < 400; ++round) {
        any.Give();
        const auto pictures = Solved();
        ASSERT_FALSE(pictures.empty());
        for (const Picture& picture : pictures) {
            std::visit([](const auto& body) { ExpectSound(body); }, picture.Body);
            ASSERT_FALSE(picture.Notes.empty());
            EXPECT_FALSE(picture::Listing(picture, 1, 1).empty());
        }
        if (Result.Criterion == Decision::kExpectedValue) ExpectRolledBack(TreeOf(pictures));
        if (pictures.size() > 1) ExpectEnvelope(ChartOf(pictures[1]));
        EXPECT_FALSE(Decision::Steps(Problem, Result).empty());
        const auto said = Decision::Meaning(Problem, Result);
        EXPECT_GE(said.size(), 1U);
        EXPECT_LE(said.size(), 12U);
        if (testing::Test::HasFailure()) FAIL() << "round " << round;
    }
}
