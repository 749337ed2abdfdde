#include "inventory/InventoryReport.h"

#include <gmock/gmock.h>

#include "inventory/problems.h"
#include "support/fake_desktop.h"
#include "support/report_lines.h"

using testing::ElementsAre;

namespace {

using Lines = std::vector<std::string>;
using VtInvent::Problem;
using VtInvent::Result;

constexpr const char* kNone = "(no line)";

class InventoryReports : public testing::Test {
protected:
    static Lines Screen()
    {
        VtInvent::SolveProblem();
        return ScreenLines(VtInvent::WritePage);
    }

    // The report of what was solved last.
    static Lines File() { return FileLines(VtInvent::WriteReport); }

    static Lines SolvedFile()
    {
        VtInvent::SolveProblem();
        return File();
    }

    static Lines Policy(const Lines& file) { return LinesFrom(file, "                   INVENTORY POLICY"); }

    FakeDesktop desktop;
};

// 2 * 400 * 25 / 8 = 50 squared.
void GivenFiftyAtATime(int kind)
{
    GivenModel(kind, {400, 25, 8, 200});
}

void GivenShortages(double leadTime)
{
    GivenModel(VtInvent::kShortages, {100, 1, 1, 250});
    Problem.BackorderCost = 4;
    GivenLeadTime(leadTime);
}

}  // namespace

TEST_F(InventoryReports, OrderQuantityOnScreen)
{
    GivenFiftyAtATime(VtInvent::kOrderQuantity);
    EXPECT_THAT(Screen(), ElementsAre("                           INVENTORY POLICY",
                                      "                           ****************", "",
                                      "    OPTIMAL ORDER QUANTITY                        50.00", "",
                                      "    ANNUAL INVENTORY HOLDING COST               $200.00",
                                      "    ANNUAL ORDERING COST                        $200.00",
                                      "    TOTAL ANNUAL COST                           $400.00",
                                      "    MAXIMUM INVENTORY LEVEL                       50.00",
                                      "    AVERAGE INVENTORY LEVEL                       25.00",
                                      "    NUMBER OF ORDERS PER YEAR                      8.00",
                                      "    CYCLE TIME (DAYS)                             25.00", ""));
}

TEST_F(InventoryReports, OrderQuantityInFull)
{
    GivenFiftyAtATime(VtInvent::kOrderQuantity);
    GivenLeadTime(12.5);
    EXPECT_THAT(
        SolvedFile(),
        ElementsAre("", "", "     INVENTORY MODEL", "     ***************", "",
                    "     ECONOMIC ORDER QUANTITY", "     ***********************", "", "",
                    "     YOU HAVE INPUT THE FOLLOWING DATA:", "     **********************************", "",
                    "", "     ANNUAL DEMAND = 400 UNITS PER YEAR", "", "     ORDERING COST = $25 PER ORDER",
                    "", "     INVENTORY HOLDING COST = $8 PER UNIT PER YEAR", "",
                    "     WORKING DAYS PER YEAR = 200 DAYS", "", "     LEAD TIME FOR A NEW ORDER = 12.5 DAYS",
                    "", "", "", "                   INVENTORY POLICY", "                   ****************",
                    "", "", "    OPTIMAL ORDER QUANTITY                        50.00", "",
                    "    ANNUAL INVENTORY HOLDING COST               $200.00", "",
                    "    ANNUAL ORDERING COST                        $200.00", "",
                    "    TOTAL ANNUAL COST                           $400.00", "",
                    "    MAXIMUM INVENTORY LEVEL                       50.00", "",
                    "    AVERAGE INVENTORY LEVEL                       25.00", "",
                    "    REORDER POINT                                 25.00", "",
                    "    NUMBER OF ORDERS PER YEAR                      8.00", "",
                    "    CYCLE TIME (DAYS)                             25.00", ""));
}

TEST_F(InventoryReports, AReorderPointIsListedWhenItIsAskedFor)
{
    GivenFiftyAtATime(VtInvent::kOrderQuantity);
    Problem.LeadTimeDays = 10;
    EXPECT_EQ(LineWith(Screen(), "REORDER"), kNone);
    EXPECT_EQ(LineWith(File(), "LEAD TIME"), kNone);
    VtInvent::ChooseReorderPoint(true);
    EXPECT_EQ(LineWith(Screen(), "REORDER"), "    REORDER POINT                                 20.00");
    EXPECT_EQ(LineWith(File(), "LEAD TIME"), "     LEAD TIME FOR A NEW ORDER = 10 DAYS");
}

TEST_F(InventoryReports, PercentMethodNamesBothOfItsParts)
{
    GivenFiftyAtATime(VtInvent::kOrderQuantity);
    VtInvent::ChooseHoldingMethod(VtInvent::kPercentMethod);
    VtInvent::KeepHoldingCost("20", "40");
    const Lines data = LinesFrom(SolvedFile(), "INVENTORY HOLDING");
    EXPECT_EQ(data[0], "     INVENTORY HOLDING COST:");
    EXPECT_EQ(data[1], "        A. ANNUAL INVENTORY CARRYING CHARGE = 20.0%");
    EXPECT_EQ(data[2], "        B. COST PER UNIT = $40 PER UNIT");
    EXPECT_EQ(data[3], "");
    EXPECT_EQ(data[4], "     WORKING DAYS PER YEAR = 200 DAYS");
}

TEST_F(InventoryReports, PercentTextHasFiveColumns)
{
    const auto percentLine = [](double percent) {
        GivenDiscounts({400, 25, 0, 200}, percent, {{10, 0}});
        return LineWith(SolvedFile(), "CARRYING CHARGE");
    };
    EXPECT_EQ(percentLine(7.25), "     ANNUAL INVENTORY CARRYING CHARGE =  7.3%");
    EXPECT_EQ(percentLine(0.5), "     ANNUAL INVENTORY CARRYING CHARGE =   .5%");
    EXPECT_EQ(percentLine(99.94), "     ANNUAL INVENTORY CARRYING CHARGE = 99.9%");
    EXPECT_EQ(percentLine(100), "     ANNUAL INVENTORY CARRYING CHARGE = 100.0");
}

// Twice the demand is made while it is used: half of a lot of 50 / sqrt(1/2) is in stock at most.
TEST_F(InventoryReports, LotSizeSpeaksOfSetups)
{
    GivenFiftyAtATime(VtInvent::kLotSize);
    Problem.ProductionRate = 800;
    EXPECT_THAT(Screen(), ElementsAre("                           INVENTORY POLICY",
                                      "                           ****************", "",
                                      "    PRODUCTION LOT SIZE                           70.71", "",
                                      "    ANNUAL INVENTORY HOLDING COST               $141.42",
                                      "    ANNUAL SETUP COST                           $141.42",
                                      "    TOTAL ANNUAL COST                           $282.84",
                                      "    MAXIMUM INVENTORY LEVEL                       35.36",
                                      "    AVERAGE INVENTORY LEVEL                       17.68",
                                      "    NUMBER OF SETUPS PER YEAR                      5.66",
                                      "    CYCLE TIME (DAYS)                             35.36", ""));
    const Lines file = File();
    EXPECT_EQ(file[5], "     ECONOMIC PRODUCTION LOT SIZE");
    EXPECT_EQ(file[6], "     ****************************");
    EXPECT_EQ(LineWith(file, "RATE"), "     ANNUAL PRODUCTION RATE = 800 UNITS PER YEAR");
    EXPECT_EQ(LineWith(file, "SETUP COST = "), "     SETUP COST = $25 PER SETUP");
    EXPECT_EQ(LineWith(file, "ORDER"), kNone);
}

TEST_F(InventoryReports, ShortagesListBackorders)
{
    GivenShortages(25);
    EXPECT_THAT(Screen(), ElementsAre("                           INVENTORY POLICY",
                                      "                           ****************", "",
                                      "    OPTIMAL ORDER QUANTITY                        15.81", "",
                                      "    ANNUAL INVENTORY HOLDING COST                 $5.06",
                                      "    ANNUAL ORDERING COST                          $6.32",
                                      "    ANNUAL BACKORDER COST                         $1.26",
                                      "    TOTAL ANNUAL COST                            $12.65",
                                      "    MAXIMUM INVENTORY LEVEL                       12.65",
                                      "    AVERAGE INVENTORY LEVEL                        5.06",
                                      "    MAXIMUM BACKORDERS                             3.16",
                                      "    REORDER POINT                                  6.84",
                                      "    NUMBER OF ORDERS PER YEAR                      6.32",
                                      "    CYCLE TIME (DAYS)                             39.53", ""));
    const Lines file = File();
    EXPECT_EQ(file[5], "     ECONOMIC ORDER QUANTITY WITH PLANNED SHORTAGES");
    EXPECT_EQ(file[6], "     **********************************************");
    EXPECT_EQ(LineWith(file, "BACKORDER COST = "), "     BACKORDER COST = $4 PER UNIT PER YEAR");
}

TEST_F(InventoryReports, ANegativeReorderPointHasAStarAndANote)
{
    GivenShortages(0);
    const Lines page = LinesFrom(Screen(), "REORDER POINT *");
    EXPECT_THAT(page,
                ElementsAre("    REORDER POINT *                               -3.17",
                            "    NUMBER OF ORDERS PER YEAR                      6.32",
                            "    CYCLE TIME (DAYS)                             39.53", "", "",
                            "   * NOTE:  THE NEGATIVE REORDER POINT INDICATES THAT THE ORDER  ",
                            "            SHOULD BE PLACED WHEN THE NUMBER OF BACKORDERS =3.17", "", ""));
    EXPECT_THAT(LinesFrom(File(), "REORDER POINT *"),
                ElementsAre("    REORDER POINT *                               -3.17", "",
                            "    NUMBER OF ORDERS PER YEAR                      6.32", "",
                            "    CYCLE TIME (DAYS)                             39.53", "", "",
                            "   * NOTE:  THE NEGATIVE REORDER POINT INDICATES THAT THE ORDER  ",
                            "            SHOULD BE PLACED WHEN THE NUMBER OF BACKORDERS =3.17", "", ""));
}

TEST_F(InventoryReports, ANegativeReorderPointThatIsNotAskedForHasNoNote)
{
    GivenShortages(0);
    VtInvent::ChooseReorderPoint(false);
    const Lines page = Screen();
    ASSERT_LT(Result.ReorderPoint, 0);
    EXPECT_EQ(LineWith(page, "REORDER"), kNone);
}

TEST_F(InventoryReports, AReorderPointOfZeroHasNoStar)
{
    GivenShortages(0);
    VtInvent::SolveProblem();
    for (const double point : {0.0, 0.5}) {
        Result.ReorderPoint = point;
        EXPECT_EQ(LineWith(File(), "REORDER POINT"),
                  point == 0 ? "    REORDER POINT                                   .00"
                             : "    REORDER POINT                                   .50");
        EXPECT_EQ(LineWith(File(), "NEGATIVE REORDER POINT"), kNone);
    }
    Result.ReorderPoint = -0.01;
    EXPECT_EQ(LineWith(File(), "REORDER POINT *"), "    REORDER POINT *                                -.01");
}

TEST_F(InventoryReports, DiscountsEchoTheirCategories)
{
    GivenDiscounts({400, 25, 0, 200}, 20, {{40, 0}, {38.5, 99.5}, {12345678.905, 12345678}});
    const Lines file = SolvedFile();
    EXPECT_EQ(file[5], "     ECONOMIC ORDER QUANTITY WITH QUANTITY DISCOUNTS");
    EXPECT_EQ(file[6], "     ***********************************************");
    const Lines data(file.begin() + 13, file.begin() + 28);
    EXPECT_THAT(
        data, ElementsAre("     QUANTITY DISCOUNT INFORMATION", "",
                          "     CATEGORY        UNIT COST         MINIMUM QUANTITY",
                          "     --------        ---------         ----------------",
                          "         1              $40.00                    0",
                          "         2              $38.50                  100",
                          "         3         $12345678.9             12345678", "",
                          "     ANNUAL DEMAND = 400 UNITS PER YEAR", "", "     ORDERING COST = $25 PER ORDER",
                          "", "     ANNUAL INVENTORY CARRYING CHARGE = 20.0%", "",
                          "     WORKING DAYS PER YEAR = 200 DAYS"));
    EXPECT_EQ(LineWith(file, "INVENTORY HOLDING COST ="), kNone);
}

TEST_F(InventoryReports, DiscountsListThePurchaseCost)
{
    GivenDiscounts({400, 25, 0, 200}, 20, {{40, 0}});
    EXPECT_THAT(Screen(), ElementsAre("                           INVENTORY POLICY",
                                      "                           ****************", "",
                                      "    OPTIMAL ORDER QUANTITY                        50.00", "",
                                      "    ANNUAL INVENTORY HOLDING COST               $200.00",
                                      "    ANNUAL ORDERING COST                        $200.00",
                                      "    ANNUAL PURCHASE COST                     $16,000.00",
                                      "    TOTAL ANNUAL COST                        $16,400.00",
                                      "    MAXIMUM INVENTORY LEVEL                       50.00",
                                      "    AVERAGE INVENTORY LEVEL                       25.00",
                                      "    NUMBER OF ORDERS PER YEAR                      8.00",
                                      "    CYCLE TIME (DAYS)                             25.00", ""));
}

// x = .4 and z = 1.29 (row 130 holds .4015, row 129 .3997, the nearer): 1.29 * 10 deviations of a unit.
TEST_F(InventoryReports, ReorderPointModelAddsTheSafetyStock)
{
    GivenService({400, 25, 8, 200}, 30, 10);
    GivenStockoutProbability(0.1);
    EXPECT_THAT(Screen(), ElementsAre("                           INVENTORY POLICY",
                                      "                           ****************", "",
                                      "    OPTIMAL ORDER QUANTITY                        50.00", "",
                                      "    ANNUAL INVENTORY HOLDING COST               $303.20",
                                      "    ANNUAL ORDERING COST                        $200.00",
                                      "    TOTAL ANNUAL COST                           $503.20",
                                      "    MAXIMUM INVENTORY LEVEL                       62.90",
                                      "    AVERAGE INVENTORY LEVEL                       37.90",
                                      "    REORDER POINT                                 42.90",
                                      "    NUMBER OF ORDERS PER YEAR                      8.00",
                                      "    CYCLE TIME (DAYS)                             25.00", "",
                                      "    SAFETY STOCK                                  12.90",
                                      "    ANNUAL SAFETY STOCK COST                    $103.20",
                                      "    EXPECTED STOCKOUTS PER YEAR                     .80",
                                      "    PROBABILITY OF A STOCKOUT PER CYCLE          0.1000"));
}

TEST_F(InventoryReports, ReorderPointModelInFull)
{
    GivenService({400, 25, 8, 200}, 30, 10);
    GivenStockoutProbability(0.1);
    const Lines file = SolvedFile();
    EXPECT_EQ(file[5], "     ORDER QUANTITY-REORDER POINT WITH PROBABILISTIC DEMAND");
    EXPECT_EQ(file[6], "     ******************************************************");
    const Lines data = LinesFrom(file, "WORKING DAYS");
    EXPECT_THAT(
        Lines(data.begin(), data.begin() + 11),
        ElementsAre("     WORKING DAYS PER YEAR = 200 DAYS", "",
                    "     LEAD TIME DEMAND DISTRIBUTION IS NORMAL WITH", "        A. MEAN = 30 UNITS",
                    "        B. STANDARD DEVIATION = 10 UNITS", "", "     PROBABILITY OF A STOCKOUT = 0.1",
                    "", "", "", "                   INVENTORY POLICY"));
    EXPECT_THAT(LinesFrom(file, "CYCLE TIME"),
                ElementsAre("    CYCLE TIME (DAYS)                             25.00", "",
                            "    SAFETY STOCK                                  12.90", "",
                            "    ANNUAL SAFETY STOCK COST                    $103.20", "",
                            "    EXPECTED STOCKOUTS PER YEAR                     .80", "",
                            "    PROBABILITY OF A STOCKOUT PER CYCLE           .1000", ""));
}

TEST_F(InventoryReports, ReorderPointModelEchoesTheAllowedStockouts)
{
    GivenService({400, 25, 8, 200}, 30, 10);
    GivenAllowedStockouts(1.5);
    EXPECT_EQ(LineWith(SolvedFile(), "ALLOWABLE"), "     ALLOWABLE NUMBER OF STOCKOUTS = 1.5 PER YEAR");
    EXPECT_EQ(LineWith(File(), "     PROBABILITY OF A STOCKOUT = "), kNone);
}

TEST_F(InventoryReports, CertainDemandHasNoSafetyStockAndNoStockouts)
{
    GivenService({400, 25, 8, 200}, 30, 0);
    GivenStockoutProbability(0.1);
    EXPECT_THAT(LinesFrom(Screen(), "SAFETY STOCK"),
                ElementsAre("    SAFETY STOCK                                    .00",
                            "    ANNUAL SAFETY STOCK COST                       $.00",
                            "    EXPECTED STOCKOUTS PER YEAR                     .00",
                            "    PROBABILITY OF A STOCKOUT PER CYCLE          0.0000"));
    EXPECT_EQ(LinesFrom(File(), "PER CYCLE").front(),
              "    PROBABILITY OF A STOCKOUT PER CYCLE           .0000");
}

// A tenth of a unit is a deviation too: 0.1 x 1.29 = 0.129.
TEST_F(InventoryReports, DemandThatHardlyVariesHasASafetyStock)
{
    GivenService({400, 25, 8, 200}, 30, 0.1);
    GivenStockoutProbability(0.1);
    EXPECT_THAT(LinesFrom(Screen(), "SAFETY STOCK"),
                ElementsAre("    SAFETY STOCK                                    .13",
                            "    ANNUAL SAFETY STOCK COST                      $1.03",
                            "    EXPECTED STOCKOUTS PER YEAR                     .80",
                            "    PROBABILITY OF A STOCKOUT PER CYCLE          0.1000"));
}

TEST_F(InventoryReports, SinglePeriodProbabilitiesLoseTheirZeroOnScreenOnly)
{
    GivenSinglePeriod(1, 3);
    GivenUniform(0, 100);
    EXPECT_THAT(Screen(), ElementsAre("                           INVENTORY POLICY",
                                      "                           ****************", "",
                                      "    OPTIMAL ORDER QUANTITY                        75.00", "",
                                      "    PROBABILITY OF SURPLUS                        .7500",
                                      "    PROBABILITY OF STOCKOUT                       .2500", ""));
    EXPECT_THAT(Policy(File()),
                ElementsAre("                   INVENTORY POLICY", "                   ****************", "",
                            "", "    OPTIMAL ORDER QUANTITY                        75.00", "",
                            "    PROBABILITY OF SURPLUS                       0.7500", "",
                            "    PROBABILITY OF STOCKOUT                      0.2500", ""));
}

TEST_F(InventoryReports, SinglePeriodInFullWithAUniformDemand)
{
    GivenSinglePeriod(1.5, 3);
    GivenUniform(0, 100);
    const Lines file = SolvedFile();
    EXPECT_THAT(
        Lines(file.begin(), file.begin() + 23),
        ElementsAre("", "", "     INVENTORY MODEL", "     ***************", "",
                    "     SINGLE-PERIOD INVENTORY WITH PROBABILISTIC DEMAND",
                    "     *************************************************", "", "",
                    "     YOU HAVE INPUT THE FOLLOWING DATA:", "     **********************************", "",
                    "", "     THE COST OF OVERESTIMATING DEMAND IS = $ 1.5  PER UNIT", "",
                    "     THE COST OF UNDERESTIMATING DEMAND IS = $ 3  PER UNIT", "",
                    "     THE DEMAND DISTRIBUTION IS UNIFORM WITH", "        A.  THE LOWEST DEMAND = 0 UNITS",
                    "        B.  THE HIGHEST DEMAND = 100 UNITS", "", "",
                    "                   INVENTORY POLICY"));
}

TEST_F(InventoryReports, SinglePeriodInFullWithANormalDemand)
{
    GivenSinglePeriod(1, 1);
    GivenNormal(80.5, 12);
    const Lines data = LinesFrom(SolvedFile(), "NORMAL");
    EXPECT_THAT(
        Lines(data.begin(), data.begin() + 3),
        ElementsAre("     THE DEMAND DISTRIBUTION IS NORMAL WITH", "        A.  A MEAN DEMAND = 80.5 UNITS",
                    "        B.  A STANDARD DEVIATION = 12 UNITS"));
}

TEST_F(InventoryReports, SinglePeriodOfACertainDemandIsAlwaysOut)
{
    GivenSinglePeriod(1, 3);
    GivenUniform(60, 60);
    const Lines page = Screen();
    EXPECT_EQ(page[5], "    PROBABILITY OF SURPLUS                        .0000");
    EXPECT_EQ(page[6], "    PROBABILITY OF STOCKOUT                      1.0000");
}

TEST_F(InventoryReports, ValuesTooWideForTheirFieldKeepTheirLeftmostCharacters)
{
    GivenModel(VtInvent::kOrderQuantity, {4e15, 5e14, 1e-4, 250});
    const Lines page = Screen();
    EXPECT_EQ(LineWith(page, "ORDER QUANTITY").size(), 55U);
    EXPECT_THAT(LineWith(page, "TOTAL"), testing::StartsWith("    TOTAL ANNUAL COST              $"));
}

TEST_F(InventoryReports, PaperAndFileHaveTheSameLines)
{
    GivenShortages(0);
    VtInvent::SolveProblem();
    desktop.printer.Begin("Courier New", 12);
    PrinterChannel paper;
    VtInvent::WriteReport(paper);
    desktop.printer.EndDoc();
    EXPECT_EQ(desktop.printer.Lines(), File());
    EXPECT_EQ(desktop.printer.pages.size(), 1U);
}
