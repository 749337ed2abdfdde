#include "inventory/InventoryReport.h"

#include <array>

#include "basic/format.h"
#include "inventory/VtInvent.h"

namespace VtInvent {
namespace {

constexpr int kValueWidth = 20;
constexpr std::string_view kQuantityPattern = "###,###,###,###.00";
constexpr std::string_view kCostPattern = "##,###,###.00";
constexpr std::string_view kValuePattern = "###,###,###.00";  // also of the larger costs
constexpr std::string_view kYearPattern = "#,###,###.00";

std::string Value(std::string_view text, double value, std::string_view pattern)
{
    return std::string(text) + FlushRight(Format(value, pattern), kValueWidth);
}

std::string Cost(std::string_view text, double cost, std::string_view pattern)
{
    return std::string(text) + FlushRight("$" + Format(cost, pattern), kValueWidth);
}

bool IsModel(int kind)
{
    return Problem.ModelKind == kind;
}

bool ComputesReorderPoint()
{
    return Problem.ComputeReorderPoint != 0;
}

bool DemandVaries()
{
    return Problem.DemandStdDev.Value() > 0;
}

// ---- the policy ----

// In full each line has an empty one behind it, on screen only the last of the list.
class PolicyList {
public:
    explicit PolicyList(ReportChannel& out) : out_(out) {}

    void Line(const std::string& text)
    {
        out_.Line(text);
        if (!out_.OnScreen()) out_.Line();
    }
    void End()
    {
        if (out_.OnScreen()) out_.Line();
    }

private:
    ReportChannel& out_;
};

void OrderQuantity(ReportChannel& out)
{
    const std::string_view text =
        IsModel(kLotSize) ? "    PRODUCTION LOT SIZE            " : "    OPTIMAL ORDER QUANTITY         ";
    out.Line(Value(text, Result.OrderQuantity, kQuantityPattern));
    out.Line();
}

void SinglePeriodPolicy(ReportChannel& out)
{
    const std::string_view pattern = out.OnScreen() ? "#######.0000" : "######0.0000";
    PolicyList list(out);
    const double surplus = Result.CriticalRatio;
    list.Line(Value("    PROBABILITY OF SURPLUS         ", surplus, pattern));
    list.Line(Value("    PROBABILITY OF STOCKOUT        ", 1 - surplus, pattern));
    list.End();
}

void AnnualCosts(PolicyList& list)
{
    list.Line(Cost("    ANNUAL INVENTORY HOLDING COST  ", Result.AnnualHoldingCost, kCostPattern));
    list.Line(Cost(
        IsModel(kLotSize) ? "    ANNUAL SETUP COST              " : "    ANNUAL ORDERING COST           ",
        Result.AnnualOrderingCost, kCostPattern));
    if (IsModel(kDiscounts))
        list.Line(Cost("    ANNUAL PURCHASE COST           ", Result.AnnualPurchaseCost, kValuePattern));
    if (IsModel(kShortages))
        list.Line(Cost("    ANNUAL BACKORDER COST          ", Result.AnnualBackorderCost, kValuePattern));
    list.Line(Cost("    TOTAL ANNUAL COST              ", Result.TotalAnnualCost, kValuePattern));
}

void StockLevels(PolicyList& list)
{
    list.Line(Value("    MAXIMUM INVENTORY LEVEL        ", Result.MaximumInventory, kValuePattern));
    list.Line(Value("    AVERAGE INVENTORY LEVEL        ", Result.AverageInventory, kValuePattern));
    if (IsModel(kShortages))
        list.Line(Value("    MAXIMUM BACKORDERS             ", Result.MaximumBackorders, kValuePattern));
    if (!IsModel(kReorderPoint) && !ComputesReorderPoint()) return;
    list.Line(Value(Result.ReorderPoint >= 0 ? "    REORDER POINT                  "
                                             : "    REORDER POINT *                ",
                    Result.ReorderPoint, kValuePattern));
}

void Cycles(PolicyList& list)
{
    list.Line(Value(
        IsModel(kLotSize) ? "    NUMBER OF SETUPS PER YEAR      " : "    NUMBER OF ORDERS PER YEAR      ",
        Result.OrdersPerYear, kValuePattern));
    list.Line(Value("    CYCLE TIME (DAYS)              ", Result.CycleTimeDays, kYearPattern));
}

void NegativePointNote(ReportChannel& out)
{
    if (IsModel(kReorderPoint) || !ComputesReorderPoint() || Result.ReorderPoint >= 0) return;
    out.Line();
    out.Line("   * NOTE:  THE NEGATIVE REORDER POINT INDICATES THAT THE ORDER  ");
    out.Line("            SHOULD BE PLACED WHEN THE NUMBER OF BACKORDERS =" +
             PlainText(-Result.ReorderPoint));
    out.Line();
    out.Line();
}

void SafetyStock(PolicyList& list, std::string_view stockoutPattern)
{
    constexpr int kProbabilityWidth = 12;
    const double stock = DemandVaries() ? Result.SafetyStock : 0;
    const double cost = DemandVaries() ? Result.SafetyStockCost : 0;
    const double probability = DemandVaries() ? Result.StockoutProbability.Value() : 0;
    list.Line(Value("    SAFETY STOCK                   ", stock, kValuePattern));
    list.Line(Cost("    ANNUAL SAFETY STOCK COST       ", cost, kValuePattern));
    list.Line(Value("    EXPECTED STOCKOUTS PER YEAR    ", probability * Result.OrdersPerYear, kYearPattern));
    list.Line("    PROBABILITY OF A STOCKOUT PER CYCLE    " +
              FlushRight(Format(probability, stockoutPattern), kProbabilityWidth));
}

void Policy(ReportChannel& out)
{
    OrderQuantity(out);
    if (IsModel(kSinglePeriod)) return SinglePeriodPolicy(out);
    PolicyList list(out);
    AnnualCosts(list);
    StockLevels(list);
    Cycles(list);
    list.End();
    NegativePointNote(out);
    if (IsModel(kReorderPoint)) SafetyStock(list, out.OnScreen() ? "0.0000" : "#.0000");
}

// ---- the data ----

struct Heading {
    std::string_view Title;
    std::string_view Rule;
};

constexpr std::array<Heading, kModelCount> kHeadings{{
    {"     ECONOMIC ORDER QUANTITY", "     ***********************"},
    {"     ECONOMIC PRODUCTION LOT SIZE", "     ****************************"},
    {"     ECONOMIC ORDER QUANTITY WITH PLANNED SHORTAGES",
     "     **********************************************"},
    {"     ECONOMIC ORDER QUANTITY WITH QUANTITY DISCOUNTS",
     "     ***********************************************"},
    {"     ORDER QUANTITY-REORDER POINT WITH PROBABILISTIC DEMAND",
     "     ******************************************************"},
    {"     SINGLE-PERIOD INVENTORY WITH PROBABILISTIC DEMAND",
     "     *************************************************"},
}};

void TwoEmptyLines(ReportChannel& out)
{
    out.Line();
    out.Line();
}

void DataHeading(ReportChannel& out)
{
    const Heading& heading = kHeadings.at(static_cast<std::size_t>(Problem.ModelKind) - 1);
    TwoEmptyLines(out);
    out.Line("     INVENTORY MODEL");
    out.Line("     ***************");
    out.Line();
    out.Line(heading.Title);
    out.Line(heading.Rule);
    TwoEmptyLines(out);
    out.Line("     YOU HAVE INPUT THE FOLLOWING DATA:");
    out.Line("     **********************************");
    TwoEmptyLines(out);
}

std::string Item(const Variant& field)
{
    return PrintItem(field.Value());
}

void SinglePeriodData(ReportChannel& out)
{
    out.Line("     THE COST OF OVERESTIMATING DEMAND IS = $" + Item(Problem.OrderCost) + " PER UNIT");
    out.Line();
    out.Line("     THE COST OF UNDERESTIMATING DEMAND IS = $" + Item(Problem.UnderCost) + " PER UNIT");
    out.Line();
    if (Problem.DistributionKind.Value() == kNormal) {
        out.Line("     THE DEMAND DISTRIBUTION IS NORMAL WITH");
        out.Line("        A.  A MEAN DEMAND =" + Item(Problem.MeanDemand) + "UNITS");
        out.Line("        B.  A STANDARD DEVIATION =" + Item(Problem.DemandStdDev) + "UNITS");
    } else {
        out.Line("     THE DEMAND DISTRIBUTION IS UNIFORM WITH");
        out.Line("        A.  THE LOWEST DEMAND =" + Item(Problem.LowestDemand) + "UNITS");
        out.Line("        B.  THE HIGHEST DEMAND =" + Item(Problem.HighestDemand) + "UNITS");
    }
}

std::string CategoryRow(int k)
{
    constexpr int kCostWidth = 11;
    constexpr int kMinimumWidth = 21;
    const std::string cost = "$" + Format(Problem.CategoryUnitCost(k).Value(), "########.00");
    const std::string minimum = Format(Problem.CategoryMinimum(k).Value(), "#######0");
    return Format(std::to_string(k), "         @         ") + FlushRight(cost, kCostWidth) +
           FlushRight(minimum, kMinimumWidth);
}

void CategoryTable(ReportChannel& out)
{
    out.Line("     QUANTITY DISCOUNT INFORMATION");
    out.Line();
    out.Line("     CATEGORY        UNIT COST         MINIMUM QUANTITY");
    out.Line("     --------        ---------         ----------------");
    for (int k = 1; k <= Problem.CategoryCount.Value(); ++k)
        out.Line(CategoryRow(k));
    out.Line();
}

std::string PercentText()
{
    constexpr int kWidth = 5;
    return FlushRight(Format(Problem.CarryingPercent.Value(), "##.0") + "%", kWidth);
}

void HoldingData(ReportChannel& out)
{
    if (IsModel(kDiscounts)) {
        out.Line("     ANNUAL INVENTORY CARRYING CHARGE = " + PercentText());
    } else if (Problem.HoldingCostMethod.Value() == kPercentMethod) {
        out.Line("     INVENTORY HOLDING COST:");
        out.Line("        A. ANNUAL INVENTORY CARRYING CHARGE = " + PercentText());
        out.Line("        B. COST PER UNIT = $" + Problem.UnitCost.Text() + " PER UNIT");
    } else {
        out.Line("     INVENTORY HOLDING COST = $" + Problem.HoldingCost.Text() + " PER UNIT PER YEAR");
    }
    out.Line();
}

void LeadTimeDistribution(ReportChannel& out)
{
    out.Line("     LEAD TIME DEMAND DISTRIBUTION IS NORMAL WITH");
    out.Line("        A. MEAN = " + Problem.MeanDemand.Text() + " UNITS");
    out.Line("        B. STANDARD DEVIATION = " + Problem.DemandStdDev.Text() + " UNITS");
    out.Line();
    if (Problem.ServiceMethod.Value() == kAllowedStockouts)
        out.Line("     ALLOWABLE NUMBER OF STOCKOUTS = " + Problem.AllowedStockouts.Text() + " PER YEAR");
    else
        out.Line("     PROBABILITY OF A STOCKOUT = " + Problem.StockoutProbability.Text());
    out.Line();
}

void DemandAndCostData(ReportChannel& out)
{
    const auto spaced = [&out](const std::string& text) {
        out.Line(text);
        out.Line();
    };
    spaced("     ANNUAL DEMAND = " + Problem.AnnualDemand.Text() + " UNITS PER YEAR");
    if (IsModel(kLotSize)) {
        spaced("     ANNUAL PRODUCTION RATE = " + Problem.ProductionRate.Text() + " UNITS PER YEAR");
        spaced("     SETUP COST = $" + Problem.OrderCost.Text() + " PER SETUP");
    } else {
        spaced("     ORDERING COST = $" + Problem.OrderCost.Text() + " PER ORDER");
    }
    HoldingData(out);
    if (IsModel(kShortages))
        spaced("     BACKORDER COST = $" + Problem.BackorderCost.Text() + " PER UNIT PER YEAR");
    spaced("     WORKING DAYS PER YEAR = " + Problem.WorkingDays.Text() + " DAYS");
    if (IsModel(kReorderPoint))
        LeadTimeDistribution(out);
    else if (ComputesReorderPoint())
        spaced("     LEAD TIME FOR A NEW ORDER = " + Problem.LeadTimeDays.Text() + " DAYS");
}

}  // namespace

void WritePage(ReportChannel& out)
{
    out.Line("                           INVENTORY POLICY");
    out.Line("                           ****************");
    out.Line();
    Policy(out);
}

void WriteReport(ReportChannel& out)
{
    DataHeading(out);
    if (IsModel(kDiscounts)) CategoryTable(out);
    if (IsModel(kSinglePeriod))
        SinglePeriodData(out);
    else
        DemandAndCostData(out);
    TwoEmptyLines(out);
    out.Line("                   INVENTORY POLICY");
    out.Line("                   ****************");
    TwoEmptyLines(out);
    Policy(out);
}

}  // namespace VtInvent
