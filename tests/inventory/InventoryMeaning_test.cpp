// Each sentence where it is said, and where it is not.
#include "inventory/InventoryMeaning.h"

#include <gmock/gmock.h>

#include "inventory/problems.h"
#include "support/fake_desktop.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using VtInvent::Problem;
using VtInvent::Result;

namespace {

std::vector<std::string> Solved()
{
    VtInvent::SolveProblem();
    std::vector<std::string> texts;
    for (const picture::Sentence& sentence : VtInvent::Meaning(Problem, Result))
        texts.push_back(sentence.Text);
    return texts;
}

auto Says(const char* words)
{
    return Contains(HasSubstr(words));
}

void GivenShop(double leadTime)
{
    GivenModel(VtInvent::kShortages, {100, 1, 1, 250});
    Problem.BackorderCost = 4;
    GivenLeadTime(leadTime);
}

void GivenDistributor(double probability)
{
    GivenService({12000, 12, 1.2, 250}, 154, 25);
    GivenStockoutProbability(probability);
}

}  // namespace

TEST(InventoryMeaning, OfAnOrderQuantity)
{
    GivenModel(VtInvent::kOrderQuantity, {12000, 12, 1.2, 250});
    EXPECT_THAT(Solved(),
                ElementsAre("Order 489.90 each time, every 10.21 working days; holding and ordering cost the "
                            "same, $293.94 a year each.",
                            "In all this costs $587.88 a year.",
                            "Between 425.34 and 564.25 the cost rises by at most 1 %: a round quantity will "
                            "do."));
}

TEST(InventoryMeaning, OfALotSize)
{
    GivenModel(VtInvent::kLotSize);
    Problem.ProductionRate = 4000;
    EXPECT_THAT(Solved()[0], HasSubstr("Make 130.64 in each lot, with a setup every 32.66 working days"));
}

TEST(InventoryMeaning, TellsWhenToOrder)
{
    GivenModel(VtInvent::kOrderQuantity, {5000, 2, 2, 250});  // 100 every 5 days
    EXPECT_THAT(Solved(), Not(Says("left")));
    GivenLeadTime(5);
    EXPECT_THAT(Solved(), Contains("Order when 100.00 are left."));
    EXPECT_THAT(Solved(), Not(Says("above the highest stock")));
    GivenLeadTime(5.01);
    EXPECT_THAT(Solved(), Contains("Order when 100.20 are left in stock and on order."));
    EXPECT_THAT(Solved(), Says("above the highest stock: count what is on order"));
}

// S = 3.162; the lead time uses 0.4 a day.
TEST(InventoryMeaning, TellsANumberOfBackorders)
{
    GivenShop(2.5);
    EXPECT_THAT(Solved(), Contains("Order when 2.17 are short, not when stock is left."));
    GivenShop(8);  // 3.2 are used meanwhile
    EXPECT_THAT(Solved(), Not(Says("short, not")));
    EXPECT_THAT(Solved(), Contains("Order when 0.04 are left."));
    EXPECT_THAT(Solved(), Not(Says("deepest")));
    GivenShop(0);  // rounded to -3.17
    EXPECT_THAT(Solved(), Says("below the deepest shortage"));
}

TEST(InventoryMeaning, ComparesCategories)
{
    GivenDiscounts({1000, 5, 0, 250}, 20, {{5, 0}, {4.5, 150}});
    EXPECT_THAT(Solved(), Contains("The next best is category 1 with 100.00 each time; it costs $499.17 a "
                                   "year more."));
    EXPECT_THAT(Solved(), Says("at its price 105.41 would be cheaper"));
    EXPECT_THAT(Solved(), Not(Says("tie")));
    EXPECT_THAT(Solved(), Not(Says("has the price of category")));

    GivenDiscounts({1000, 5, 0, 250}, 20, {{5, 0}, {6, 50}});
    EXPECT_THAT(Solved(), Says("An order of 100.00 has the price of category 2, not that of category 1"));
    EXPECT_THAT(Solved(), Not(Says("would be cheaper")));

    GivenDiscounts({1000, 5, 0, 250}, 20, {{5, 0}, {5, 0}});
    EXPECT_THAT(Solved(), Says("Category 1 costs just as much"));
    GivenDiscounts({1000, 5, 0, 250}, 20, {{5, 0}, {5, 0}, {5, 0}});
    EXPECT_THAT(Solved(), Says("Categories 1 and 2 cost just as much"));
}

TEST(InventoryMeaning, WarnsOfACycleLongerThanAYear)
{
    GivenModel(VtInvent::kOrderQuantity, {10, 5, 1, 250});  // an order of 10
    EXPECT_THAT(Solved(), Not(Says("longer than a year")));
    GivenModel(VtInvent::kOrderQuantity, {10, 5.1, 1, 250});
    EXPECT_THAT(Solved(), Says("One order lasts longer than a year"));
}

TEST(InventoryMeaning, TellsTheChanceThatTheTableGives)
{
    GivenDistributor(0.05);  // z is 1.66: beyond it lie 0.0485
    EXPECT_THAT(Solved(), Says("exceeds the reorder point in 4.85 % of the cycles, 1.19 times a year"));
    EXPECT_THAT(Solved(), Says("makes the chance of running out 0.0485, not 0.0500"));
    EXPECT_THAT(Solved(), Not(Says("No safety stock")));
    GivenDistributor(0.001);
    EXPECT_THAT(Solved(), Says("No safety stock: the table of normal areas ends before a chance of 0.0010"));
    EXPECT_THAT(Solved(), Says("about every second cycle"));
    EXPECT_THAT(Solved(), Not(Says("makes the chance")));
}

TEST(InventoryMeaning, TellsThatAtMostAHalfIsUsed)
{
    GivenService({1000, 32, 5, 250}, 154, 25);
    GivenAllowedStockouts(6);  // of 8.84 cycles
    EXPECT_THAT(Solved(), Says("come to a chance above 0.5000"));
    GivenAllowedStockouts(4);
    EXPECT_THAT(Solved(), Not(Says("come to a chance above 0.5000")));
}

TEST(InventoryMeaning, TellsADemandWithoutSpread)
{
    GivenService({1000, 32, 5, 250}, 154, 0);
    GivenStockoutProbability(0.1);
    EXPECT_THAT(Solved(), Says("has no spread"));
    EXPECT_THAT(Solved(), Not(Says("safety stock of")));
    GivenSinglePeriod(1, 3);
    GivenUniform(60, 60);
    EXPECT_THAT(Solved(), Says("an order of 60.00 meets the demand exactly"));
}

TEST(InventoryMeaning, WarnsOfDemandsBelowZero)
{
    GivenService({1000, 32, 5, 250}, 100, 25);  // 4 deviations: 0.00003
    GivenStockoutProbability(0.1);
    EXPECT_THAT(Solved(), Not(Says("below 0, which cannot come")));
    GivenService({1000, 32, 5, 250}, 50, 25);
    GivenStockoutProbability(0.1);
    EXPECT_THAT(Solved(), Says("a chance of 0.0228 to a demand below 0"));
}

TEST(InventoryMeaning, OfASinglePeriod)
{
    GivenSinglePeriod(1, 3);
    GivenUniform(0, 100);
    EXPECT_THAT(Solved(), ElementsAre("Order 75.00 for the period.",
                                      "Something is left over with a chance of 0.7500, and the order runs "
                                      "out with a chance of 0.2500.",
                                      "A unit too few costs more than one too many, so that a surplus is the "
                                      "more likely end."));
    GivenSinglePeriod(3, 1);
    GivenUniform(0, 100);
    EXPECT_THAT(Solved(), Says("costs less than one too many"));
    GivenSinglePeriod(2, 2);
    GivenUniform(0, 100);
    EXPECT_THAT(Solved(), Says("both are equally likely"));
}

TEST(InventoryMeaning, OfASinglePeriodBeyondTheTable)
{
    GivenSinglePeriod(1, 999);
    GivenNormal(1000, 10);
    EXPECT_THAT(Solved(), Says("ends before a critical ratio of 0.9990"));
    GivenSinglePeriod(1, 99);
    GivenNormal(1000, 10);
    EXPECT_THAT(Solved(), Not(Says("ends before")));
    EXPECT_THAT(Solved(), Not(Says("order nothing")));
    GivenSinglePeriod(99, 1);
    GivenNormal(20, 10);
    EXPECT_THAT(Solved(), Says("it is best to order nothing"));
}

TEST(InventoryMeaning, TellsFiguresThatAreCut)
{
    GivenModel(VtInvent::kOrderQuantity);
    Problem.HoldingCostMethod = VtInvent::kPercentMethod;
    Problem.CarryingPercent = 99.9;
    EXPECT_THAT(Solved(), Not(Says("five characters")));
    Problem.CarryingPercent = 100;
    EXPECT_THAT(Solved(), Says("prints 100.0."));
    Problem.HoldingCostMethod = VtInvent::kAmountMethod;
    EXPECT_THAT(Solved(), Not(Says("five characters")));
    EXPECT_THAT(Solved(), Not(Says("wider than its field")));
    GivenModel(VtInvent::kOrderQuantity, {1e14, 1e14, 1, 250});
    EXPECT_THAT(Solved(), Says("wider than its field"));
}

TEST(InventoryMeaning, TellsANumberReadUpToItsComma)
{
    FakeDesktop desktop;
    GivenModel(VtInvent::kOrderQuantity);
    VtInvent::TakeAnnualDemand("1,000");
    EXPECT_THAT(Solved(), Contains("The annual demand was typed as 1,000 and read as 1, up to the comma."));
    VtInvent::TakeAnnualDemand("1000");
    EXPECT_THAT(Solved(), Not(Says("comma")));
}
