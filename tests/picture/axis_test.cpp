#include "picture/axis.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

using picture::RoundedOut;
using picture::Ticks;
using picture::TicksOf;
using testing::ElementsAre;

namespace {

std::vector<std::string> Texts(const Ticks& ticks)
{
    std::vector<std::string> texts;
    for (auto i = ticks.First; i <= ticks.Last; ++i)
        texts.push_back(ticks.Text(i));
    return texts;
}

// 1, 2, 2.5 or 5 times a power of ten, found by dividing the power out.
bool IsNice(double step)
{
    const double factor = step / std::pow(10, std::floor(std::log10(step) + 1e-9));
    for (const double nice : {1.0, 2.0, 2.5, 5.0})
        if (std::abs(factor - nice) < 1e-6) return true;
    return false;
}

}  // namespace

TEST(Ticks, StandAtRoundNumbers)
{
    EXPECT_THAT(Texts(TicksOf(0, 50, false)), ElementsAre("0", "10", "20", "30", "40", "50"));
    EXPECT_THAT(Texts(TicksOf(0, 0.38, false)),
                ElementsAre("0.00", "0.05", "0.10", "0.15", "0.20", "0.25", "0.30", "0.35"));
    EXPECT_THAT(Texts(TicksOf(0, 16, false)),
                ElementsAre("0.0", "2.5", "5.0", "7.5", "10.0", "12.5", "15.0"));
}

TEST(Ticks, HaveTheSameDecimals)
{
    EXPECT_THAT(Texts(TicksOf(-1, 1, false, 4)), ElementsAre("-1", "0", "1"));
    EXPECT_THAT(Texts(TicksOf(-0.3, 0.3, false, 7)),
                ElementsAre("-0.3", "-0.2", "-0.1", "0.0", "0.1", "0.2", "0.3"));
}

TEST(Ticks, OfCountsAreWhole)
{
    EXPECT_THAT(Texts(TicksOf(0, 3, true)), ElementsAre("0", "1", "2", "3"));
    EXPECT_THAT(Texts(TicksOf(0, 16, true)), ElementsAre("0", "5", "10", "15"));
    EXPECT_THAT(Texts(TicksOf(0.5, 1.4, true)), ElementsAre("1"));
}

TEST(Ticks, AreWholeMultiplesNotSums)
{
    const Ticks ticks = TicksOf(0, 0.7, false);
    EXPECT_EQ(ticks.At(ticks.Last), static_cast<double>(ticks.Last) * ticks.Step);
    EXPECT_EQ(ticks.Text(ticks.Last), "0.7");
}

TEST(Ticks, OfOneValueHaveRoomAroundIt)
{
    const Ticks ticks = TicksOf(7, 7, false);
    EXPECT_GE(ticks.Count(), 3);
    EXPECT_LE(ticks.At(ticks.First), 7);
    EXPECT_GE(ticks.At(ticks.Last), 7);
}

TEST(Ticks, OfAnyRangeAreFourToEightNiceSteps)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> exponent(-6, 9);
    std::uniform_real_distribution<double> share(-1, 1);
    for (int i = 0; i < 20000; ++i) {
        const double size = std::pow(10, exponent(random));
        const double from = share(random) * size;
        const double to = from + size * (1.001 + share(random)) / 2;
        const Ticks ticks = TicksOf(from, to, false);
        ASSERT_TRUE(IsNice(ticks.Step)) << from << " to " << to;
        ASSERT_LE(ticks.Count(), 8) << from << " to " << to;
        // The next smaller step gives 9 or more and is at least half as long.
        ASSERT_GE(ticks.Count(), 4) << from << " to " << to;
        ASSERT_GE(ticks.At(ticks.First), from - ticks.Step * 1e-6);
        ASSERT_LE(ticks.At(ticks.Last), to + ticks.Step * 1e-6);
        ASSERT_LT(from, ticks.At(ticks.First - 1) + ticks.Step * (1 + 1e-6));
    }
}

TEST(RoundedOut, EndsAtTicks)
{
    const picture::Range range = RoundedOut(120, 236, false);
    EXPECT_EQ(range.From, 120);
    EXPECT_EQ(range.To, 240);
    EXPECT_EQ(RoundedOut(0, 0, false).From, 0);
    EXPECT_EQ(RoundedOut(0, 0, false).To, 1);
}

TEST(RoundedOut, HoldsTheRange)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> value(-1000, 1000);
    for (int i = 0; i < 5000; ++i) {
        const double from = value(random);
        const double to = from + std::abs(value(random));
        const picture::Range range = RoundedOut(from, to, false);
        ASSERT_LE(range.From, from + 1e-6);
        ASSERT_GE(range.To, to - 1e-6);
        ASSERT_LE(TicksOf(range.From, range.To, false).Count(), 8);
    }
}
