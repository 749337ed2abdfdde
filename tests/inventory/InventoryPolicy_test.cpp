// Each order quantity is held against a numeric minimum of the cost that it is to make small, and against
// worked problems of textbooks.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <random>

#include "basic/error.h"
#include "inventory/InventoryPolicy.h"
#include "inventory/InventoryReport.h"
#include "inventory/problems.h"
#include "support/minimum.h"
#include "support/report_lines.h"

namespace {

using VtInvent::Problem;
using VtInvent::Result;
using VtInvent::SolveProblem;

constexpr double kClose = 1e-6;  // relative

class Draws {
public:
    explicit Draws(unsigned seed) : random_(seed) {}
    double Between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(random_);
    }
    Demand AnyDemand()
    {
        return {Between(10, 50000), Between(1, 500), Between(0.1, 90), std::floor(Between(1, 366))};
    }

private:
    std::mt19937 random_;
};

ErrorNumber FailureOfSolve()
{
    try {
        SolveProblem();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{0};
}

// z with the area between 0 and z, by bisection.
double ExactZ(double area)
{
    double low = 0;
    double high = 8;
    for (int step = 0; step < 100; ++step) {
        const double middle = (low + high) / 2;
        (std::erf(middle / std::sqrt(2.0)) / 2 < area ? low : high) = middle;
    }
    return low;
}

double SafetyFactor(double stockoutProbability)
{
    GivenService({}, 100, 1);  // one unit of deviation: the stock is the factor
    GivenStockoutProbability(stockoutProbability);
    SolveProblem();
    return Result.SafetyStock;
}

}  // namespace

// ---- economic order quantity ----

// By hand: 2 * 1000 * 32 / 5 = 12800.
TEST(EconomicOrderQuantity, IsTheRootOf12800InTheWorkedProblem)
{
    GivenModel(VtInvent::kOrderQuantity);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.OrderQuantity, std::sqrt(12800.0));
    EXPECT_NEAR(Result.AnnualHoldingCost, Result.AnnualOrderingCost, 1e-9);
    EXPECT_NEAR(Result.TotalAnnualCost, 5 * Result.OrderQuantity, 1e-9);
    EXPECT_EQ(Result.MaximumInventory, Result.OrderQuantity);
    EXPECT_EQ(Result.AverageInventory, Result.OrderQuantity / 2);
}

// Printed answers: 1824 cases, $3,649 a year, 57 orders, an order every 4.39 days, reorder at 832.
TEST(EconomicOrderQuantity, GivesThePrintedAnswersOfATextbookWholesaler)
{
    GivenModel(VtInvent::kOrderQuantity, {104000, 32, 2, 250});
    GivenLeadTime(2);
    SolveProblem();
    EXPECT_NEAR(Result.OrderQuantity, 1824, 0.5);
    EXPECT_NEAR(Result.TotalAnnualCost, 3649, 0.5);
    EXPECT_NEAR(Result.OrdersPerYear, 57.01, 0.005);
    EXPECT_NEAR(Result.CycleTimeDays, 4.39, 0.005);
    EXPECT_DOUBLE_EQ(Result.ReorderPoint, 832);
}

TEST(EconomicOrderQuantity, IsTheCheapestQuantity)
{
    Draws draws(61);
    for (int round = 0; round < 100; ++round) {
        const Demand d = draws.AnyDemand();
        GivenModel(VtInvent::kOrderQuantity, d);
        SolveProblem();
        const auto cost = [&d](double q) { return d.HoldingCost * q / 2 + d.OrderCost * d.Annual / q; };
        EXPECT_NEAR(Result.OrderQuantity, ArgMin(cost, 0.01, 1e6), 1e-4 * Result.OrderQuantity);
        EXPECT_NEAR(Result.TotalAnnualCost, Minimum(cost, 0.01, 1e6), kClose * Result.TotalAnnualCost);
    }
}

TEST(EconomicOrderQuantity, HasNoReorderPointWithoutALeadTime)
{
    GivenModel(VtInvent::kOrderQuantity);
    SolveProblem();
    EXPECT_EQ(Result.ReorderPoint, 0.0);
}

TEST(EconomicOrderQuantity, ComputesAReorderPointThatIsNotAskedFor)
{
    GivenModel(VtInvent::kOrderQuantity);
    GivenLeadTime(5);
    VtInvent::ChooseReorderPoint(false);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.ReorderPoint, 20);
}

TEST(EconomicOrderQuantity, FailsWithoutDemand)
{
    GivenModel(VtInvent::kOrderQuantity, {0, 32, 5, 250});
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::Overflow);  // 0 / 0
    GivenModel(VtInvent::kOrderQuantity, {1000, 32, 0, 250});
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::DivisionByZero);
}

// ---- production lot size ----

// Printed answer: 3,710 units a lot. The two costs are equal, and 34 of 60 units made are stored.
TEST(ProductionLotSize, GivesTheLotOfATextbookSoapPlant)
{
    GivenModel(VtInvent::kLotSize, {26000, 135, 0.9, 250});
    Problem.ProductionRate = 60000;
    SolveProblem();
    EXPECT_NEAR(Result.OrderQuantity, 3710, 0.5);
    EXPECT_NEAR(Result.AnnualHoldingCost, Result.AnnualOrderingCost, 1e-6);
    EXPECT_NEAR(Result.MaximumInventory, 3710 * 34.0 / 60, 0.5);
}

TEST(ProductionLotSize, IsTheCheapestLot)
{
    Draws draws(62);
    for (int round = 0; round < 100; ++round) {
        const Demand d = draws.AnyDemand();
        const double rate = d.Annual * draws.Between(1.05, 6);
        GivenModel(VtInvent::kLotSize, d);
        Problem.ProductionRate = rate;
        SolveProblem();
        // During a lot the stock grows at (rate - demand) for lot / rate years.
        const auto cost = [&d, rate](double lot) {
            const double highest = (rate - d.Annual) * (lot / rate);
            return d.HoldingCost * highest / 2 + d.OrderCost * (d.Annual / lot);
        };
        EXPECT_NEAR(Result.OrderQuantity, ArgMin(cost, 0.01, 1e6), 1e-4 * Result.OrderQuantity);
        EXPECT_NEAR(Result.TotalAnnualCost, Minimum(cost, 0.01, 1e6), kClose * Result.TotalAnnualCost);
        EXPECT_NEAR(Result.AverageInventory * d.HoldingCost, Result.AnnualHoldingCost,
                    kClose * Result.AnnualHoldingCost);
    }
}

// A quarter is used at once: 2 * 400 * 25 / (8 * 3 / 4) = 10000 / 3.
TEST(ProductionLotSize, HasCyclesAndAReorderPoint)
{
    GivenModel(VtInvent::kLotSize, {400, 25, 8, 200});
    Problem.ProductionRate = 1600;
    GivenLeadTime(5);
    SolveProblem();
    EXPECT_NEAR(Result.OrdersPerYear, 4 * std::sqrt(3.0), 1e-12);
    EXPECT_NEAR(Result.CycleTimeDays, 50 / std::sqrt(3.0), 1e-12);
    EXPECT_DOUBLE_EQ(Result.ReorderPoint, 10);
}

TEST(ProductionLotSize, FailsWhenTheRateIsTheDemand)
{
    GivenModel(VtInvent::kLotSize);
    Problem.ProductionRate = 1000;
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::DivisionByZero);
}

TEST(ProductionLotSize, FailsWhenTheRateIsBelowTheDemand)
{
    GivenModel(VtInvent::kLotSize);
    Problem.ProductionRate = 999;
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::InvalidProcedureCall);
}

// ---- planned shortages ----

// Printed answers: an order of 115, 29 units on backorder, $866 a year.
TEST(PlannedShortages, GivesThePrintedAnswersOfATextbookShop)
{
    GivenModel(VtInvent::kShortages, {2000, 25, 10, 250});
    Problem.BackorderCost = 30;
    SolveProblem();
    EXPECT_NEAR(Result.OrderQuantity, 115, 0.5);
    EXPECT_NEAR(Result.MaximumBackorders, 29, 0.5);
    EXPECT_NEAR(Result.TotalAnnualCost, 866, 0.5);
}

TEST(PlannedShortages, AreTheCheapestPairOfOrderAndBackorders)
{
    Draws draws(63);
    for (int round = 0; round < 30; ++round) {
        const Demand d = draws.AnyDemand();
        const double backorder = draws.Between(0.5, 300);
        GivenModel(VtInvent::kShortages, d);
        Problem.BackorderCost = backorder;
        SolveProblem();
        const auto cost = [&](double q, double share) {
            const double s = share * q;
            return d.HoldingCost * (q - s) * (q - s) / (2 * q) + d.OrderCost * d.Annual / q +
                   backorder * s * s / (2 * q);
        };
        const auto bestShare = [&](double q) {
            return ArgMin([&](double share) { return cost(q, share); }, 0, 1);
        };
        const auto bestCost = [&](double q) { return cost(q, bestShare(q)); };
        const double q = ArgMin(bestCost, 0.01, 1e6);
        EXPECT_NEAR(Result.OrderQuantity, q, 1e-4 * q);
        EXPECT_NEAR(Result.MaximumBackorders, q * bestShare(q), 1e-3 * q);
        EXPECT_NEAR(Result.TotalAnnualCost, bestCost(q), kClose * bestCost(q));
        EXPECT_NEAR(Result.AverageInventory * d.HoldingCost, Result.AnnualHoldingCost,
                    kClose * Result.AnnualHoldingCost);
        EXPECT_NEAR(Result.MaximumInventory + Result.MaximumBackorders, Result.OrderQuantity, 1e-6);
    }
}

// The lead time demand is 0.0001, so the point is -S and a hair: S = sqrt(2 * 100 * 1 * 1 / (4 * 5))
// = 3.1623.
TEST(PlannedShortages, RoundANegativeReorderPointAwayFromZero)
{
    GivenModel(VtInvent::kShortages, {100, 1, 1, 250});
    Problem.BackorderCost = 4;
    SolveProblem();
    ASSERT_NEAR(Result.MaximumBackorders, 3.16228, 0.00001);
    EXPECT_DOUBLE_EQ(Result.ReorderPoint, -3.17);
    Problem.LeadTimeDays = 0.0532;  // 0.02128 units: -3.141 becomes -3.15
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.ReorderPoint, -3.15);
}

// Q is 20, S is 10; 0.4 are used a day.
TEST(PlannedShortages, RoundOnlyAPointBelowZero)
{
    GivenModel(VtInvent::kShortages, {100, 1, 1, 250});
    Problem.BackorderCost = 1;
    GivenLeadTime(25);
    SolveProblem();
    EXPECT_EQ(Result.ReorderPoint, 0);
    EXPECT_DOUBLE_EQ(Result.OrdersPerYear, 5);
    EXPECT_DOUBLE_EQ(Result.CycleTimeDays, 50);
    GivenLeadTime(26.2625);
    SolveProblem();
    EXPECT_NEAR(Result.ReorderPoint, 0.505, 1e-12);
}

TEST(PlannedShortages, LeaveAReorderPointOfZeroOrMoreUnrounded)
{
    GivenModel(VtInvent::kShortages, {100, 1, 1, 250});
    Problem.BackorderCost = 4;
    Problem.LeadTimeDays = 25;  // 10 units
    SolveProblem();
    EXPECT_NEAR(Result.ReorderPoint, 10 - 3.16227766, 1e-7);
}

// ---- quantity discounts ----

// Printed answers: 1000 a time from the second category, totals $25,700, $24,980 and $25,036.
TEST(QuantityDiscounts, GiveThePrintedAnswersOfATextbookDealer)
{
    GivenDiscounts({5000, 49, 0, 250}, 20, {{5, 0}, {4.85, 1000}, {4.75, 2500}});
    SolveProblem();
    EXPECT_NEAR(Result.CategoryTotal(1), 25700, 0.5);
    EXPECT_NEAR(Result.CategoryTotal(2), 24980, 0.5);
    EXPECT_NEAR(Result.CategoryTotal(3), 25036, 0.6);
    EXPECT_EQ(Result.OrderQuantity, 1000.0);
    EXPECT_EQ(Result.TotalAnnualCost, Result.CategoryTotal(2));
    EXPECT_EQ(Result.AverageInventory, 500.0);
    EXPECT_DOUBLE_EQ(Result.AnnualPurchaseCost, 4.85 * 5000);
    EXPECT_DOUBLE_EQ(Result.OrdersPerYear, 5);
    EXPECT_DOUBLE_EQ(Result.CycleTimeDays, 50);
}

TEST(QuantityDiscounts, TakeTheCheapestQuantityOfTheCheapestCategory)
{
    Draws draws(64);
    for (int round = 0; round < 60; ++round) {
        const Demand d = draws.AnyDemand();
        const double percent = draws.Between(5, 60);
        std::vector<Category> categories{{draws.Between(5, 80), 0}};
        while (categories.size() < 1U + static_cast<unsigned>(round % 5))
            categories.push_back({categories.back().UnitCost * draws.Between(0.85, 0.999),
                                  categories.back().Minimum + draws.Between(10, 2000)});
        GivenDiscounts(d, percent, categories);
        SolveProblem();
        double best = 1e300;
        for (const Category& category : categories) {
            const auto cost = [&](double q) {
                return category.UnitCost * d.Annual + category.UnitCost * percent / 100 * q / 2 +
                       d.OrderCost * d.Annual / q;
            };
            best = std::min(best, Minimum(cost, std::max(category.Minimum, 0.01), 1e6));
        }
        EXPECT_NEAR(Result.TotalAnnualCost, best, kClose * best) << "round " << round;
    }
}

// By hand: 100 + 20 + 5 for 40 at a price of 1, 82 + 41 + 2 for 100 at 0.82.
TEST(QuantityDiscounts, PreferTheLaterCategoryOnATie)
{
    GivenDiscounts({100, 2, 0, 250}, 100, {{1, 40}, {0.82, 100}, {3, 0}});
    SolveProblem();
    ASSERT_EQ(Result.CategoryTotal(1), 125.0);
    ASSERT_EQ(Result.CategoryTotal(2), 125.0);
    EXPECT_EQ(Result.OrderQuantity, 100.0);
    EXPECT_EQ(Result.AnnualPurchaseCost, 82.0);
}

TEST(QuantityDiscounts, RaiseAQuantityToItsMinimum)
{
    GivenDiscounts({100, 2, 0, 250}, 100, {{1, 40}});
    SolveProblem();
    EXPECT_EQ(Result.OrderQuantity, 40.0);
    EXPECT_EQ(Result.MaximumInventory, 40.0);
    EXPECT_EQ(Result.AverageInventory, 20.0);
}

TEST(QuantityDiscounts, KeepAQuantityBeyondTheNextMinimum)
{
    GivenDiscounts({100, 2, 0, 250}, 100, {{1, 0}, {2, 5}});
    SolveProblem();
    EXPECT_NEAR(Result.OrderQuantity, 20, 1e-9);
}

// 2 * 400 * 25 / 8 = 50 squared; 8 orders in 200 days, and 5 days use 10.
TEST(QuantityDiscounts, HaveCyclesAndAReorderPoint)
{
    GivenDiscounts({400, 25, 0, 200}, 20, {{40, 0}});
    GivenLeadTime(5);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.CategoryHolding(1), 8);
    EXPECT_DOUBLE_EQ(Result.OrdersPerYear, 8);
    EXPECT_DOUBLE_EQ(Result.CycleTimeDays, 25);
    EXPECT_DOUBLE_EQ(Result.ReorderPoint, 10);
}

// Holding and ordering cost a quarter each: the root of 2 * 1e-6 * 125000 is a half.
TEST(QuantityDiscounts, CompareTheirTotalsWithTheLimitItself)
{
    GivenDiscounts({1, 1e-6, 0, 250}, 1.25e-4, {{99999999998.0, 0}});
    SolveProblem();
    EXPECT_NEAR(Result.TotalAnnualCost, 99999999998.5, 0.1);
    GivenDiscounts({1, 1e-6, 0, 250}, 1.25e-4, {{99999999999.0, 0}});
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::DivisionByZero);
}

TEST(QuantityDiscounts, FailWhenEveryTotalIsTooLarge)
{
    GivenDiscounts({1e9, 2, 0, 250}, 10, {{99.5, 0}});
    SolveProblem();  // 99,500,000,000 and the rest is still below the limit
    GivenDiscounts({1e9, 2, 0, 250}, 10, {{100, 0}, {101, 0}});
    EXPECT_EQ(FailureOfSolve(), ErrorNumber::DivisionByZero);
    EXPECT_FALSE(Result.Solved);
    EXPECT_EQ(Result.OrderQuantity, 0.0);
}

// ---- order quantity and reorder point ----

// 490 units an order, 24.5 orders a year; one stockout a year is a probability of 0.0408. An exact table
// gives a reorder point of 197; this one is a hundredth of a deviation higher.
TEST(OrderQuantityReorderPoint, FollowsATextbookDistributor)
{
    GivenService({12000, 12, 1.2, 250}, 154, 25);
    GivenAllowedStockouts(1);
    SolveProblem();
    EXPECT_NEAR(Result.OrderQuantity, 490, 0.5);
    EXPECT_NEAR(Result.OrdersPerYear, 24.5, 0.01);
    EXPECT_NEAR(Problem.StockoutProbability.Value(), 0.0408, 0.00005);
    EXPECT_DOUBLE_EQ(Result.SafetyStock, 25 * 1.75);
    EXPECT_DOUBLE_EQ(Result.ReorderPoint, 154 + 43.75);
    EXPECT_DOUBLE_EQ(Result.SafetyStockCost, 52.5);
    EXPECT_NEAR(Result.AnnualHoldingCost, 52.5 + 1.2 * Result.OrderQuantity / 2, 1e-9);
    EXPECT_NEAR(Result.MaximumInventory, 43.75 + Result.OrderQuantity, 1e-9);
    EXPECT_NEAR(Result.AverageInventory, 43.75 + Result.OrderQuantity / 2, 1e-9);
    EXPECT_NEAR(Result.CycleTimeDays * Result.OrdersPerYear, 250, 1e-9);
}

TEST(OrderQuantityReorderPoint, DerivesTheAllowedStockouts)
{
    GivenService({12000, 12, 1.2, 250}, 154, 25);
    GivenStockoutProbability(0.1);
    SolveProblem();
    EXPECT_NEAR(Problem.AllowedStockouts.Value(), 2.4495, 0.0001);
    EXPECT_EQ(Problem.StockoutProbability.Value(), 0.1);
}

TEST(OrderQuantityReorderPoint, UsesAtMostHalfAsProbability)
{
    GivenService({12000, 12, 1.2, 250}, 154, 25);
    GivenAllowedStockouts(20);  // of 24.5 orders
    SolveProblem();
    EXPECT_EQ(Problem.StockoutProbability.Value(), 0.5);
    EXPECT_EQ(Problem.AllowedStockouts.Value(), 20.0);
    EXPECT_DOUBLE_EQ(Result.SafetyStock, 0.25);
}

TEST(OrderQuantityReorderPoint, HoldsNoSafetyStockWithoutStockouts)
{
    GivenService({12000, 12, 1.2, 250}, 154, 25);
    GivenAllowedStockouts(0);
    SolveProblem();
    EXPECT_EQ(Problem.StockoutProbability.Value(), 0.0);
    EXPECT_EQ(Result.SafetyStock, 0.0);
    EXPECT_EQ(Result.ReorderPoint, 154.0);
}

TEST(OrderQuantityReorderPoint, HoldsNoSafetyStockForCertainDemand)
{
    GivenService({12000, 12, 1.2, 250}, 154, 0);
    GivenStockoutProbability(0.05);
    SolveProblem();
    EXPECT_EQ(Result.SafetyStock, 0.0);
    EXPECT_EQ(Result.ReorderPoint, 154.0);
}

// The largest area is .4983, reached at 2.93 first; its neighbour is .4980.
TEST(SafetyFactor, EndsWhereTheTableEnds)
{
    EXPECT_EQ(SafetyFactor(0.0016), 0.0);
    EXPECT_DOUBLE_EQ(SafetyFactor(0.0018), 2.94);
    EXPECT_DOUBLE_EQ(SafetyFactor(0), 0.0);
}

TEST(SafetyFactor, IsAHundredthAtAnEvenChance)
{
    EXPECT_DOUBLE_EQ(SafetyFactor(0.5), 0.01);
    EXPECT_EQ(VtInvent::SafetyFactor(0.5).Row, 1);
}

// Row 166 (z = 1.65) holds .4505, row 165 holds .4495.
TEST(SafetyFactor, TakesTheNearerOfTwoRows)
{
    EXPECT_DOUBLE_EQ(SafetyFactor(0.5 - .4497), 1.65);
    EXPECT_DOUBLE_EQ(SafetyFactor(0.5 - .4503), 1.66);
}

// From .4967 to .4970 (z = 2.72 to 2.75) the dip at 2.76 is passed: the first row that reaches .4971 is 278.
TEST(SafetyFactor, PassesTheDipOfTheTable)
{
    EXPECT_DOUBLE_EQ(SafetyFactor(0.5 - .4971), 2.78);
    EXPECT_DOUBLE_EQ(SafetyFactor(0.5 - .4670), 1.85);
}

TEST(SafetyFactor, IsTheNormalQuantileAndAHundredth)
{
    for (int step = 0; step < 134; ++step) {
        const double probability = 0.005 + 0.0037 * step;
        EXPECT_NEAR(SafetyFactor(probability), ExactZ(0.5 - probability) + 0.01, 0.021) << probability;
    }
}

// ---- single period ----

TEST(SinglePeriod, TakesTheRatioOfAUniformRange)
{
    GivenSinglePeriod(1, 3);
    GivenUniform(0, 100);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.OrderQuantity, 75);
    EXPECT_DOUBLE_EQ(Result.CriticalRatio, 0.75);
}

// Printed answer: 470 pairs; demand between 350 and 650, $30 over, $20 under.
TEST(SinglePeriod, GivesThePrintedAnswerOfATextbookShoeShop)
{
    GivenSinglePeriod(30, 20);
    GivenUniform(350, 650);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.OrderQuantity, 470);
}

TEST(SinglePeriod, MinimisesTheExpectedCostOfAUniformDemand)
{
    Draws draws(65);
    for (int round = 0; round < 40; ++round) {
        const double over = draws.Between(1, 60);
        const double under = draws.Between(1, 60);
        const double lowest = draws.Between(0, 500);
        const double width = draws.Between(1, 500);
        GivenSinglePeriod(over, under);
        GivenUniform(lowest, lowest + width);
        SolveProblem();
        const auto cost = [=](double q) {  // a thousand equally likely demands
            double sum = 0;
            for (int i = 0; i < 1000; ++i) {
                const double demand = lowest + width * (i + 0.5) / 1000;
                sum += demand < q ? over * (q - demand) : under * (demand - q);
            }
            return sum / 1000;
        };
        EXPECT_NEAR(Result.OrderQuantity, ArgMin(cost, lowest, lowest + width), width / 500);
    }
}

TEST(SinglePeriod, MinimisesTheExpectedCostOfANormalDemand)
{
    Draws draws(66);
    for (int round = 0; round < 40; ++round) {
        const double over = draws.Between(1, 40);
        const double under = draws.Between(1, 40);
        const double mean = draws.Between(500, 900);
        const double deviation = draws.Between(10, 100);
        GivenSinglePeriod(over, under);
        GivenNormal(mean, deviation);
        SolveProblem();
        const auto cost = [=](double q) {
            double sum = 0;
            for (int i = -600; i <= 600; ++i) {
                const double z = i / 100.0;
                const double demand = mean + deviation * z;
                sum += std::exp(-z * z / 2) * (demand < q ? over * (q - demand) : under * (demand - q));
            }
            return sum;
        };
        const double best = ArgMin(cost, mean - 5 * deviation, mean + 5 * deviation);
        EXPECT_NEAR(Result.OrderQuantity, best, 0.025 * deviation) << over << " over, " << under << " under";
    }
}

TEST(SinglePeriod, OrdersTheMeanWhenBothCostsAreEqual)
{
    GivenSinglePeriod(7, 7);
    GivenNormal(400, 50);
    SolveProblem();
    EXPECT_EQ(Result.OrderQuantity, 400.0);
}

// .3413 is the row of z = 1; the ratio .8414 needs the row behind it.
TEST(SinglePeriod, TakesTheFirstRowThatReachesTheArea)
{
    GivenSinglePeriod(1 - .8413, .8413);
    GivenNormal(0, 1);
    SolveProblem();
    EXPECT_NEAR(Result.OrderQuantity, 1.0, 0.011);
    GivenSinglePeriod(1 - .8414, .8414);
    GivenNormal(0, 1);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.OrderQuantity, 1.01);
    GivenSinglePeriod(.8414, 1 - .8414);
    GivenNormal(0, 1);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.OrderQuantity, -1.01);
}

TEST(SinglePeriod, GoesFourDeviationsBeyondTheTable)
{
    GivenSinglePeriod(1, 999);
    GivenNormal(1000, 100);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.OrderQuantity, 1400);
    EXPECT_EQ(Result.Lookup.Row, 0);
    GivenSinglePeriod(999, 1);
    GivenNormal(1000, 100);
    SolveProblem();
    EXPECT_DOUBLE_EQ(Result.OrderQuantity, 600);
}

TEST(SinglePeriod, HasNoSurplusWhenTheDemandIsCertain)
{
    GivenSinglePeriod(1, 3);
    GivenNormal(80, 0);
    SolveProblem();
    EXPECT_EQ(Result.OrderQuantity, 80.0);
    EXPECT_EQ(Result.CriticalRatio, 0.0);
    GivenSinglePeriod(1, 3);
    GivenUniform(60, 60);
    SolveProblem();
    EXPECT_EQ(Result.OrderQuantity, 60.0);
    EXPECT_EQ(Result.CriticalRatio, 0.0);
}

TEST(Policy, OfNoModelIsNothing)
{
    VtInvent::MakeArrays();
    SolveProblem();
    EXPECT_EQ(Result.OrderQuantity, 0.0);
}

// A solve with its page takes well below a millisecond; the limit leaves room for a busy machine.
TEST(Policy, IsThereBeforeTheUserNotices)
{
    GivenService({12000, 12, 1.2, 250}, 154, 25);
    GivenStockoutProbability(0.0018);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i) {
        SolveProblem();
        ScreenLines(VtInvent::WritePage);
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    EXPECT_LT(seconds.count() / 100, 0.02);
}
