#include "markov/MarkovSteps.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>
#include <sstream>

#include "basic/format.h"
#include "markov/chains.h"

using picture::Step;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::vector<Step> Told(const Rows& chain)
{
    Given(chain);
    Analyse();
    return Markov::Steps(Markov::Problem, Markov::Result);
}

// The figures of a line behind its first word.
std::vector<double> FiguresOf(const std::string& line)
{
    std::istringstream words(line);
    std::string word;
    words >> word;
    std::vector<double> figures;
    for (double figure = 0; words >> figure;)
        figures.push_back(figure);
    return figures;
}

const std::string& LineOf(const Step& step, std::string_view start)
{
    for (const std::string& line : step.Figures)
        if (line.starts_with(start)) return line;
    throw std::runtime_error("no line " + std::string(start));
}

const Step* Headed(const std::vector<Step>& steps, std::string_view heading)
{
    for (const Step& step : steps)
        if (step.Heading == heading) return &step;
    return nullptr;
}

}  // namespace

TEST(MarkovSteps, NothingIsToldBeforeASolve)
{
    Given({{0.9, 0.1}, {0.3, 0.7}});
    EXPECT_THAT(Markov::Steps(Markov::Problem, {}), IsEmpty());
}

// By hand: (0.5, 0.5) goes to (0.6, 0.4).
TEST(MarkovSteps, TheFirstStepShowsTheStartAndEachChange)
{
    const auto steps = Told({{0.9, 0.1}, {0.3, 0.7}});
    EXPECT_EQ(steps[0].Heading, "Which states absorb");
    EXPECT_THAT(steps[0].Marks, IsEmpty());
    EXPECT_EQ(steps[1].Heading, "Step 1");
    EXPECT_THAT(steps[1].Figures,
                ElementsAre("state            1         2", "before       0.500     0.500",
                            "after        0.600     0.400", "change    0.100000 -0.100000"));
    EXPECT_THAT(steps[1].Arithmetic, ElementsAre("state  1: 0.500 x 0.900 + 0.500 x 0.300 = 0.600",
                                                 "state  2: 0.500 x 0.100 + 0.500 x 0.700 = 0.400"));
    EXPECT_EQ(steps[1].Why,
              "State 1 moved most, by 0.100000, which is more than 0.00001: another step follows.");
    EXPECT_THAT(steps[1].Marks, ElementsAre("state 1"));
    EXPECT_EQ(steps[2].Figures.size(), 3U);
}

// Each step takes 0.6 of the last change: 0.1 * 0.6^(k - 1) comes to 0.00001 or below at k = 20 first
// (0.0000102 at 19, 0.0000061 at 20), and the shares add up to 1.
TEST(MarkovSteps, TheLastStepTellsWhyItIsTheLast)
{
    const auto steps = Told({{0.9, 0.1}, {0.3, 0.7}});
    ASSERT_EQ(steps.size(), 1U + 20 + 1);
    EXPECT_THAT(steps[19].Why, HasSubstr("another step follows"));
    EXPECT_EQ(steps[20].Why, "No share moved by more than 0.00001: the repetition stops.");
    EXPECT_THAT(steps[21].Figures, ElementsAre("0.750 + 0.250 = 1.000"));
}

TEST(MarkovSteps, AChainThatMovesOnStopsAtTheLimit)
{
    const auto steps = Told({{0, 1, 0}, {1, 0, 0}, {1, 0, 0}});
    ASSERT_EQ(steps.size(), 1U + 150 + 1);
    EXPECT_EQ(steps[150].Why,
              "This is step 150, the last that is made, although state 1 moved most, by 0.333333.");
}

TEST(MarkovSteps, AbsorptionIsCheckedByElimination)
{
    const auto steps = Told({{0.5, 0.25, 0.25}, {0, 1, 0}, {0, 0, 1}});
    EXPECT_THAT(steps[0].Marks, ElementsAre("2", "3"));
    const Step* check = Headed(steps, "Check by elimination");
    ASSERT_NE(check, nullptr);
    EXPECT_THAT(check->Figures, ElementsAre("N = (I - Q)^-1: steps spent in each state", "state            1",
                                            "    1        2.000", "N R: chances in the end",
                                            "state            2         3", "    1        0.500     0.500"));
    EXPECT_EQ(check->Why, "Elimination gives the printed chances too.");
}

// 0.99^150 = 0.2215 are still on their way: the check gives 1.
TEST(MarkovSteps, TheCheckTellsADifference)
{
    const auto steps = Told({{0.99, 0.01}, {0, 1}});
    const Step* check = Headed(steps, "Check by elimination");
    ASSERT_NE(check, nullptr);
    EXPECT_THAT(check->Why, HasSubstr("from state 1 to state 2, is 0.221."));
}

TEST(MarkovSteps, ThereIsNoCheckWhereUnitsCannotBeAbsorbed)
{
    const auto steps = Told({{0, 1, 0}, {1, 0, 0}, {0, 0, 1}});
    EXPECT_EQ(Headed(steps, "Check by elimination"), nullptr);
}

TEST(MarkovSteps, StatesThatAllAbsorbTakeNoStep)
{
    const auto steps = Told({{1, 0}, {0, 1}});
    ASSERT_EQ(steps.size(), 1U);
    EXPECT_THAT(steps[0].Why, HasSubstr("nothing moves"));
}

TEST(MarkovSteps, MoreThanAThousandStepsAreCut)
{
    Rows chain(10, std::vector<double>(10, 0.0));
    for (std::size_t i = 0; i < 9; ++i) {
        chain[i][i] = 0.99;
        chain[i][9] = 0.01;
    }
    chain[9][9] = 1;
    const auto steps = Told(chain);  // 1 + 9 * 150 + 2
    EXPECT_EQ(steps.size(), 1001U);
    EXPECT_EQ(steps[500].Heading, "353 steps left out");
}

TEST(MarkovSteps, TheStepsOfEveryChainFollowItsMatrixToTheResult)
{
    std::mt19937 random(1202);
    for (int round = 0; round < 60; ++round) {
        const Rows chain = RandomChain(random);
        const auto steps = Told(chain);
        const std::size_t n = chain.size();
        std::vector<double> before;
        std::vector<double> last;
        for (const Step& step : steps) {
            EXPECT_FALSE(step.Why.empty());
            if (step.Heading.ends_with("left out")) before.clear();
            if (step.Heading.find("tep ") == std::string::npos) continue;
            if (step.Figures.size() == 4) before = FiguresOf(LineOf(step, "before"));
            const std::vector<double> after = FiguresOf(LineOf(step, "after"));
            ASSERT_EQ(after.size(), n);
            for (std::size_t to = 0; to < n && !before.empty(); ++to) {
                double sum = 0;
                for (std::size_t from = 0; from < n; ++from)
                    sum += before[from] * chain[from][to];
                EXPECT_NEAR(after[to], sum, 0.0025) << round << step.Heading;
            }
            before = after;
            last = after;
        }
        for (std::size_t state = 0; state < n && Markov::Result.AbsorbingList.empty(); ++state)
            EXPECT_EQ(Format(last[state], "0.000"),
                      Format(Markov::Result.Distribution(static_cast<int>(state) + 1), "0.000"));
    }
}
