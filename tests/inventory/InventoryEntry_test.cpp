#include <gtest/gtest.h>

#include "basic/error.h"
#include "inventory/VtInvent.h"
#include "support/fake_desktop.h"

namespace {

using VtInvent::Problem;

using Take = bool (*)(std::string_view);

struct Row {
    const char* Text;
    bool Taken;
    double Value;  // what the field holds behind it; it held 7 before
};

constexpr double kBefore = 7;

const std::vector<Row>& Positive()
{
    static const std::vector<Row> rows{
        {"1", true, 1},          {"0.001", true, 0.001},     {".5", true, 0.5},        {"1e9", true, 1e9},
        {"12 500", true, 12500}, {"1,500", true, 1},         {"3 units", true, 3},     {"0", false, kBefore},
        {"-1", false, kBefore},  {"-0.001", false, kBefore}, {"many", false, kBefore}, {" ", false, kBefore},
        {"$5", false, kBefore},  {"", true, kBefore},
    };
    return rows;
}

const std::vector<Row>& NotNegative()
{
    static const std::vector<Row> rows{
        {"0", true, 0},      {"0.25", true, 0.25},       {"1e9", true, 1e9},
        {"many", true, 0},   {"-0.001", false, kBefore}, {"-5", false, kBefore},
        {"", true, kBefore},
    };
    return rows;
}

class InventoryEntry : public testing::Test {
protected:
    InventoryEntry() { VtInvent::MakeArrays(); }

    void Check(Take take, Variant& field, const std::vector<Row>& rows, std::string_view refusal)
    {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.Text);
            field = kBefore;
            desktop.dialogs.messages.clear();
            EXPECT_EQ(take(row.Text), row.Taken);
            EXPECT_EQ(field.Value(), row.Value);
            if (row.Taken)
                EXPECT_TRUE(desktop.dialogs.messages.empty());
            else
                EXPECT_EQ(desktop.dialogs.Last(), Refused(refusal));
        }
    }

    FakeDesktop desktop;
};

ShownMessage Warning(std::string_view title, std::string_view text)
{
    return {.Text = std::string(text),
            .Title = std::string(title),
            .icon = Icon::Critical,
            .buttons = Buttons::OK};
}

}  // namespace

TEST_F(InventoryEntry, ANumberThatACommaCutsIsRemembered)
{
    EXPECT_TRUE(VtInvent::TakeAnnualDemand("1,000"));
    EXPECT_EQ(Problem.AnnualDemand.Value(), 1);
    ASSERT_TRUE(Problem.ReadUpToComma.contains(VtInvent::Box::AnnualDemand));
    EXPECT_EQ(Problem.ReadUpToComma[VtInvent::Box::AnnualDemand].Text, "1,000");
    EXPECT_TRUE(VtInvent::TakeAnnualDemand("1000"));
    EXPECT_TRUE(Problem.ReadUpToComma.empty());
    EXPECT_TRUE(VtInvent::TakeLeadTime("1,000"));  // this box drops its commas
    EXPECT_EQ(Problem.LeadTimeDays.Value(), 1000);
    EXPECT_TRUE(Problem.ReadUpToComma.empty());
}

TEST_F(InventoryEntry, DemandAndCostsAreAboveZero)
{
    Check(VtInvent::TakeAnnualDemand, Problem.AnnualDemand, Positive(),
          "NOTE:  ANNUAL DEMAND MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeOrderCost, Problem.OrderCost, Positive(),
          "NOTE:  ORDERING COST MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeSetupCost, Problem.OrderCost, Positive(),
          "NOTE:  SETUP COST MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeBackorderCost, Problem.BackorderCost, Positive(),
          "NOTE:  BACKORDER COST MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeHoldingAmount, Problem.HoldingCost, Positive(),
          "NOTE:  THE HOLDING COST MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeCarryingPercent, Problem.CarryingPercent, Positive(),
          "NOTE:  THE PERCENTAGE MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeUnitCost, Problem.UnitCost, Positive(),
          "NOTE:  THE COST PER UNIT MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeOverCost, Problem.OrderCost, Positive(),
          "THE COST OF OVERESTIMATING DEMAND MUST BE GREATER THAN 0.");
    Check(VtInvent::TakeUnderCost, Problem.UnderCost, Positive(),
          "THE COST OF UNDERESTIMATING DEMAND MUST BE GREATER THAN 0.");
}

TEST_F(InventoryEntry, APercentageHasNoUpperLimit)
{
    EXPECT_TRUE(VtInvent::TakeCarryingPercent("250"));
    EXPECT_EQ(Problem.CarryingPercent.Value(), 250.0);
}

TEST_F(InventoryEntry, SomeFieldsMayBeZero)
{
    Check(VtInvent::TakeAllowedStockouts, Problem.AllowedStockouts, NotNegative(),
          "NOTE:  THE NUMBER OF STOCKOUTS MUST BE AT LEAST 0.");
    Check(VtInvent::TakeLowestDemand, Problem.LowestDemand, NotNegative(),
          "NOTE:  THE LOWEST VALUE MUST BE AT LEAST 0.");
    Check(VtInvent::TakeMeanDemand, Problem.MeanDemand, NotNegative(),
          "NOTE:  THE MEAN DEMAND MUST BE AT LEAST 0.");
    Check(VtInvent::TakeDemandStdDev, Problem.DemandStdDev, NotNegative(),
          "NOTE:  THE STANDARD DEVIATION MUST BE AT LEAST 0.");
}

TEST_F(InventoryEntry, WorkingDaysRunFrom1To366)
{
    Check(VtInvent::TakeWorkingDays, Problem.WorkingDays,
          {{"1", true, 1},
           {"250", true, 250},
           {"366", true, 366},
           {"1.5", true, 1.5},
           {"", true, kBefore},
           {"0.99", false, kBefore},
           {"366.5", false, kBefore},
           {"367", false, kBefore},
           {"-1", false, kBefore},
           {"all", false, kBefore}},
          "NOTE:  THE NUMBER OF WORKING DAYS MUST BE BETWEEN 1 AND 365.");
}

TEST_F(InventoryEntry, StockoutProbabilityEndsAtAHalf)
{
    Check(VtInvent::TakeStockoutProbability, Problem.StockoutProbability,
          {{"0", true, 0},
           {".5", true, 0.5},
           {"0.05", true, 0.05},
           {"none", true, 0},
           {"", true, kBefore},
           {"0.5001", false, kBefore},
           {"-0.001", false, kBefore},
           {"5", false, kBefore}},
          "NOTE:  IN THIS INVENTORY MODEL, THE PROBABILITY OF A STOCKOUT MUST BE BETWEEN .00 AND .50.");
}

TEST_F(InventoryEntry, LeadTimeIsANumberOfAtLeastZero)
{
    Check(VtInvent::TakeLeadTime, Problem.LeadTimeDays,
          {{"0", true, 0},
           {"12.5", true, 12.5},
           {"1,000", true, 1000},
           {"", true, kBefore},
           {"-1", false, kBefore}},
          "NOTE:  THE LEAD TIME MUST BE AT LEAST 0.");
    Check(VtInvent::TakeLeadTime, Problem.LeadTimeDays,
          {{"soon", false, kBefore},
           {"5 days", false, kBefore},
           {"1.2.3", false, kBefore},
           {"1-", false, kBefore},
           {" ", false, kBefore}},
          "NOTE:  THE MINIMUM QUANTITY MUST BE AT LEAST 0.");
}

TEST_F(InventoryEntry, CategoriesHaveACostAboveZeroAndAMinimumOfAtLeastZero)
{
    for (int k = 1; k <= VtInvent::kCategoryRows; ++k) {
        EXPECT_TRUE(VtInvent::TakeCategoryUnitCost(k, "4.750"));
        EXPECT_EQ(Problem.CategoryUnitCost(k).Value(), 4.75);
        EXPECT_EQ(Problem.CategoryUnitCostText(k), "4.75");
        EXPECT_FALSE(VtInvent::TakeCategoryUnitCost(k, "0"));
        EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  THE COST PER UNIT MUST BE GREATER THAN 0."));
        EXPECT_TRUE(VtInvent::TakeCategoryMinimum(k, "1,000"));
        EXPECT_EQ(Problem.CategoryMinimum(k).Value(), 1000.0);
        EXPECT_EQ(Problem.CategoryMinimumText(k), "1000");
        EXPECT_TRUE(VtInvent::TakeCategoryMinimum(k, "0"));
        for (const char* text : {"-1", "some", "10 or so"}) {
            EXPECT_FALSE(VtInvent::TakeCategoryMinimum(k, text));
            EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  THE MINIMUM QUANTITY MUST BE AT LEAST 0."));
        }
        EXPECT_EQ(Problem.CategoryMinimum(k).Value(), 0.0);
    }
}

TEST_F(InventoryEntry, HighestValueReachesTheLowest)
{
    ASSERT_TRUE(VtInvent::TakeLowestDemand("20.5"));
    Check(VtInvent::TakeHighestDemand, Problem.HighestDemand,
          {{"20.5", true, 20.5},
           {"100", true, 100},
           {"", true, kBefore},
           {"20.4", false, kBefore},
           {"-1", false, kBefore},
           {"many", false, kBefore}},
          "NOTE:  THE HIGHEST VALUE MUST BE AT LEAST 20.5 UNITS.");
}

TEST_F(InventoryEntry, HighestValueIsHeldAgainstZeroBeforeTheLowestIsKnown)
{
    EXPECT_TRUE(VtInvent::TakeHighestDemand("0"));
    EXPECT_FALSE(VtInvent::TakeHighestDemand("-1"));
    EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  THE HIGHEST VALUE MUST BE AT LEAST 0 UNITS."));
}

TEST_F(InventoryEntry, ProductionRateAboveTheDemandIsTaken)
{
    Problem.AnnualDemand = 1000;
    EXPECT_TRUE(VtInvent::TakeProductionRate("1000.5"));
    EXPECT_TRUE(VtInvent::TakeProductionRate(""));
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_EQ(Problem.ProductionRate.Value(), 1000.5);
}

TEST_F(InventoryEntry, ProductionRateIsAboveZero)
{
    for (const char* text : {"0", "-4", "fast"}) {
        EXPECT_FALSE(VtInvent::TakeProductionRate(text));
        EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  PRODUCTION RATE MUST BE GREATER THAN 0."));
        EXPECT_TRUE(Problem.ProductionRate.IsEmpty());
    }
}

TEST_F(InventoryEntry, ProductionRateEqualToTheDemandIsStoredWithAWarning)
{
    Problem.AnnualDemand = 1000.5;
    EXPECT_FALSE(VtInvent::TakeProductionRate("1000.5"));
    EXPECT_EQ(desktop.dialogs.Last(),
              Warning("WARNING",
                      "The production rate and the demand rate are EQUAL.  The production line will run "
                      "continuously!!!  The production lot size inventory model is meaningful only if the "
                      "production rate is greater than the demand rate.  PLEASE INCREASE THE ANNUAL "
                      "PRODUCTION RATE TO MORE THAN 1000.5 UNITS."));
    EXPECT_EQ(Problem.ProductionRate.Value(), 1000.5);
}

TEST_F(InventoryEntry, ProductionRateBelowTheDemandIsStoredWithAWarning)
{
    Problem.AnnualDemand = 1000;
    EXPECT_FALSE(VtInvent::TakeProductionRate("999.5"));
    EXPECT_EQ(desktop.dialogs.Last(),
              Warning("WARNING!!!",
                      "The production rate of 999.5 units per year is insufficient to handle the "
                      "demand of 1000 units per year!!!"));
    EXPECT_EQ(Problem.ProductionRate.Value(), 999.5);
}

TEST_F(InventoryEntry, ANumberThatDoesNotFitIsAFailureOfTheMachine)
{
    try {
        VtInvent::TakeAnnualDemand("1e999");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
    EXPECT_TRUE(Problem.AnnualDemand.IsEmpty());
}

// ---- what a form opens with ----

TEST_F(InventoryEntry, ANewProblemOpensWithPercentAndTheCommonValues)
{
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kPercentMethod);
    EXPECT_EQ(VtInvent::OpeningServiceMethod(), VtInvent::kStockoutProbability);
    EXPECT_EQ(VtInvent::OpeningDistribution(), VtInvent::kUniform);
    EXPECT_EQ(VtInvent::OpeningWorkingDays(), "250");
}

TEST_F(InventoryEntry, AStoredProblemOpensWithItsOwnChoices)
{
    Problem.ServiceMethod = VtInvent::kAllowedStockouts;
    Problem.DistributionKind = VtInvent::kNormal;
    Problem.WorkingDays = 300.5;
    EXPECT_EQ(VtInvent::OpeningServiceMethod(), VtInvent::kAllowedStockouts);
    EXPECT_EQ(VtInvent::OpeningDistribution(), VtInvent::kNormal);
    EXPECT_EQ(VtInvent::OpeningWorkingDays(), "300.5");
}

TEST_F(InventoryEntry, AHoldingTextThatEqualsTheCostMeansAnAmount)
{
    VtInvent::ChooseHoldingMethod(VtInvent::kAmountMethod);
    ASSERT_TRUE(VtInvent::TakeHoldingAmount("5.50"));
    VtInvent::KeepHoldingCost("5.50", "");
    EXPECT_EQ(Problem.HoldingText, "5.5");
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kAmountMethod);
    Problem.HoldingText = "5.6";
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kPercentMethod);
    Problem.HoldingText = "";
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kPercentMethod);
}

// The text of an earlier amount stays, and stands for an amount once the product happens to equal it.
TEST_F(InventoryEntry, APercentageThatGivesTheOldAmountComesBackAsAnAmount)
{
    VtInvent::ChooseHoldingMethod(VtInvent::kAmountMethod);
    ASSERT_TRUE(VtInvent::TakeHoldingAmount("6"));
    VtInvent::KeepHoldingCost("6", "");
    VtInvent::ChooseHoldingMethod(VtInvent::kPercentMethod);
    VtInvent::KeepHoldingCost("20", "40");
    EXPECT_EQ(Problem.HoldingText, "6");
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kPercentMethod);
    VtInvent::KeepHoldingCost("20", "30");
    EXPECT_EQ(VtInvent::OpeningHoldingMethod(), VtInvent::kAmountMethod);
}

TEST_F(InventoryEntry, APercentageOfTheUnitCostGivesTheHoldingCost)
{
    VtInvent::ChooseHoldingMethod(VtInvent::kPercentMethod);
    VtInvent::KeepHoldingCost("12.5", "80");
    EXPECT_EQ(Problem.CarryingPercent.Value(), 12.5);
    EXPECT_EQ(Problem.UnitCost.Value(), 80.0);
    EXPECT_EQ(Problem.HoldingCost.Value(), 10.0);
    EXPECT_EQ(Problem.HoldingText, "");
}

TEST_F(InventoryEntry, AnAmountIsNotTakenFromTheBoxesAgain)
{
    VtInvent::ChooseHoldingMethod(VtInvent::kAmountMethod);
    ASSERT_TRUE(VtInvent::TakeHoldingAmount("6"));
    VtInvent::KeepHoldingCost("6", "");
    EXPECT_EQ(Problem.HoldingCost.Value(), 6.0);
    EXPECT_TRUE(Problem.CarryingPercent.IsEmpty());
}

TEST_F(InventoryEntry, UntouchedWorkingDaysAre250)
{
    VtInvent::KeepWorkingDays("250");
    EXPECT_EQ(Problem.WorkingDays.Value(), 250.0);
    ASSERT_TRUE(VtInvent::TakeWorkingDays("300"));
    VtInvent::KeepWorkingDays("300");
    EXPECT_EQ(Problem.WorkingDays.Value(), 300.0);
}

TEST_F(InventoryEntry, TheFirstMinimumIsZeroWhenItsBoxSaysSo)
{
    ASSERT_TRUE(VtInvent::TakeCategoryMinimum(1, "30"));
    VtInvent::KeepFirstMinimum("30");
    EXPECT_EQ(Problem.CategoryMinimum(1).Value(), 30.0);
    VtInvent::KeepFirstMinimum("0");
    EXPECT_EQ(Problem.CategoryMinimum(1).Value(), 0.0);
    EXPECT_EQ(Problem.CategoryMinimumText(1), "0");
}

TEST_F(InventoryEntry, AChoiceLeavesHiddenValuesAlone)
{
    ASSERT_TRUE(VtInvent::TakeCarryingPercent("20"));
    ASSERT_TRUE(VtInvent::TakeLeadTime("9"));
    VtInvent::ChooseHoldingMethod(VtInvent::kAmountMethod);
    VtInvent::ChooseReorderPoint(true);
    EXPECT_EQ(Problem.ComputeReorderPoint, -1.0);
    VtInvent::ChooseReorderPoint(false);
    EXPECT_EQ(Problem.ComputeReorderPoint, 0.0);
    EXPECT_EQ(Problem.CarryingPercent.Value(), 20.0);
    EXPECT_EQ(Problem.LeadTimeDays.Value(), 9.0);
    VtInvent::ChooseServiceMethod(VtInvent::kAllowedStockouts);
    VtInvent::ChooseDistribution(VtInvent::kNormal);
    EXPECT_EQ(Problem.ServiceMethod.Value(), 1.0);
    EXPECT_EQ(Problem.DistributionKind.Value(), 2.0);
}
