// The formulas of the six models.
#include "basic/number.h"
#include "inventory/VtInvent.h"

namespace VtInvent {
namespace {

constexpr double kNoTotalIsAbove = 99999999999.0;  // a category with a larger total is never chosen
constexpr double kMostUsedProbability = 0.5;
constexpr double kBeyondTable = 4.0;  // z of an area that no row reaches

double Squared(double value)
{
    return value * value;
}

// Wilson's lot size for the demand and order cost of the problem.
double LotSize(double holdingCost)
{
    return SquareRoot(Divide(2 * Problem.AnnualDemand.Value() * Problem.OrderCost.Value(), holdingCost));
}

double OrderingCost(double quantity)
{
    return Divide(Problem.OrderCost.Value() * Problem.AnnualDemand.Value(), quantity);
}

double LeadTimeDemand()
{
    return Divide(Problem.LeadTimeDays.Value() * Problem.AnnualDemand.Value(), Problem.WorkingDays.Value());
}

void CountCycles()
{
    Result.OrdersPerYear = Divide(Problem.AnnualDemand.Value(), Result.OrderQuantity);
    Result.CycleTimeDays = Divide(Problem.WorkingDays.Value(), Result.OrdersPerYear);
}

void EconomicOrderQuantity()
{
    const double holding = Problem.HoldingCost.Value();
    Result.OrderQuantity = LotSize(holding);
    Result.AnnualHoldingCost = holding * Result.OrderQuantity / 2;
    Result.AnnualOrderingCost = OrderingCost(Result.OrderQuantity);
    Result.TotalAnnualCost = Result.AnnualHoldingCost + Result.AnnualOrderingCost;
    Result.MaximumInventory = Result.OrderQuantity;
    Result.AverageInventory = Result.OrderQuantity / 2;
    Result.ReorderPoint = LeadTimeDemand();
    CountCycles();
}

// Stock builds up at the share of the production that is not used at once.
void ProductionLotSize()
{
    const double holding = Problem.HoldingCost.Value();
    const double share = 1 - Divide(Problem.AnnualDemand.Value(), Problem.ProductionRate.Value());
    Result.OrderQuantity = LotSize(holding * share);
    Result.AnnualHoldingCost = holding * Result.OrderQuantity * share / 2;
    Result.AnnualOrderingCost = OrderingCost(Result.OrderQuantity);
    Result.TotalAnnualCost = Result.AnnualHoldingCost + Result.AnnualOrderingCost;
    Result.MaximumInventory = Result.OrderQuantity * share;
    Result.AverageInventory = Result.MaximumInventory / 2;
    CountCycles();
    Result.ReorderPoint = LeadTimeDemand();
}

// A negative point is rounded to two decimals, away from zero: it is told as a number of backorders.
double RoundedReorderPoint(double point)
{
    return point < 0 ? Int(100 * point - 0.5) / 100 : point;
}

void PlannedShortages()
{
    const double holding = Problem.HoldingCost.Value();
    const double backorder = Problem.BackorderCost.Value();
    const double both = backorder + holding;
    Result.OrderQuantity = SquareRoot(Divide(
        2 * Problem.AnnualDemand.Value() * Problem.OrderCost.Value() * Divide(both, backorder), holding));
    Result.MaximumBackorders = Divide(holding * Result.OrderQuantity, both);
    Result.MaximumInventory = Result.OrderQuantity - Result.MaximumBackorders;
    const double twoLots = 2 * Result.OrderQuantity;
    Result.AnnualHoldingCost = Divide(holding * Squared(Result.MaximumInventory), twoLots);
    Result.AnnualOrderingCost = OrderingCost(Result.OrderQuantity);
    Result.AnnualBackorderCost = Divide(backorder * Squared(Result.MaximumBackorders), twoLots);
    Result.TotalAnnualCost =
        Result.AnnualHoldingCost + Result.AnnualOrderingCost + Result.AnnualBackorderCost;
    Result.AverageInventory = Divide(Squared(Result.MaximumInventory), twoLots);
    Result.ReorderPoint = RoundedReorderPoint(LeadTimeDemand() - Result.MaximumBackorders);
    CountCycles();
}

// The cheapest quantity that has the category's price; it may lie in a later category.
void PriceCategory(int k)
{
    const double unitCost = Problem.CategoryUnitCost(k).Value();
    const double holding = unitCost * Problem.CarryingPercent.Value() / 100;
    const double minimum = Problem.CategoryMinimum(k).Value();
    double quantity = LotSize(holding);
    if (quantity < minimum) quantity = minimum;
    Result.CategoryHolding(k) = holding;
    Result.CategoryQuantity(k) = quantity;
    Result.CategoryPurchase(k) = unitCost * Problem.AnnualDemand.Value();
    Result.CategoryHoldingCost(k) = holding * quantity / 2;
    Result.CategoryOrdering(k) = OrderingCost(quantity);
    Result.CategoryTotal(k) =
        Result.CategoryPurchase(k) + Result.CategoryHoldingCost(k) + Result.CategoryOrdering(k);
}

// On a tie the later category wins. None at all leaves row 0, which is all zero.
void ChooseCategory()
{
    double bestCost = kNoTotalIsAbove;
    int best = 0;
    for (int k = 1; k <= Problem.CategoryCount.Value(); ++k) {
        if (Result.CategoryTotal(k) > bestCost) continue;
        bestCost = Result.CategoryTotal(k);
        best = k;
    }
    Result.OrderQuantity = Result.CategoryQuantity(best);
    Result.TotalAnnualCost = bestCost;
    Result.AnnualPurchaseCost = Result.CategoryPurchase(best);
    Result.AnnualHoldingCost = Result.CategoryHoldingCost(best);
    Result.AnnualOrderingCost = Result.CategoryOrdering(best);
}

void QuantityDiscounts()
{
    for (int k = 1; k <= Problem.CategoryCount.Value(); ++k)
        PriceCategory(k);
    ChooseCategory();
    Result.MaximumInventory = Result.OrderQuantity;
    Result.AverageInventory = Result.OrderQuantity / 2;
    CountCycles();
    Result.ReorderPoint = LeadTimeDemand();
}

// The one of the two service measures that the user did not give.
void DeriveService()
{
    const double orders = Result.OrdersPerYear;
    const double method = Problem.ServiceMethod.Value();
    if (method == kStockoutProbability)
        Problem.AllowedStockouts = orders * Problem.StockoutProbability.Value();
    else if (method == kAllowedStockouts)
        Problem.StockoutProbability = Divide(Problem.AllowedStockouts.Value(), orders);
    if (Problem.StockoutProbability.Value() > kMostUsedProbability)
        Problem.StockoutProbability = kMostUsedProbability;
}

void OrderQuantityReorderPoint()
{
    const double holding = Problem.HoldingCost.Value();
    Result.OrderQuantity = LotSize(holding);
    CountCycles();
    DeriveService();
    FillNormalAreaTable();
    SafetyFactorLookup();
    Result.AnnualHoldingCost = holding * Result.SafetyStock + holding * Result.OrderQuantity / 2;
    Result.SafetyStockCost = Result.SafetyStock * holding;
    Result.AnnualOrderingCost = OrderingCost(Result.OrderQuantity);
    Result.TotalAnnualCost = Result.AnnualHoldingCost + Result.AnnualOrderingCost;
    Result.MaximumInventory = Result.SafetyStock + Result.OrderQuantity;
    Result.AverageInventory = Result.SafetyStock + Result.OrderQuantity / 2;
    Result.ReorderPoint = Result.SafetyStock + Problem.MeanDemand.Value();
}

// z of the first row that reaches the area, without a look at the row before it.
double FirstReaching(double area)
{
    for (int i = 1; i <= NormalAreaTable.Upper(); ++i)
        if (NormalAreaTable(i) >= area) return (i - 1) / 100.0;
    return kBeyondTable;
}

void NormalSinglePeriod()
{
    FillNormalAreaTable();
    const double ratio = Result.CriticalRatio;
    const double mean = Problem.MeanDemand.Value();
    const double deviation = Problem.DemandStdDev.Value();
    Result.OrderQuantity = ratio >= 0.5 ? mean + deviation * FirstReaching(ratio - 0.5)
                                        : mean - deviation * FirstReaching(0.5 - ratio);
    if (deviation == 0) Result.CriticalRatio = 0;
}

void UniformSinglePeriod()
{
    const double lowest = Problem.LowestDemand.Value();
    const double highest = Problem.HighestDemand.Value();
    Result.OrderQuantity = lowest + (highest - lowest) * Result.CriticalRatio;
    if (highest == lowest) Result.CriticalRatio = 0;
}

void SinglePeriod()
{
    const double under = Problem.UnderCost.Value();
    Result.CriticalRatio = Divide(under, under + Problem.OrderCost.Value());
    if (Problem.DistributionKind.Value() == kNormal)
        NormalSinglePeriod();
    else
        UniformSinglePeriod();
}

}  // namespace

// z is a hundredth above what its row stands for, which errs on the side of more stock. An area beyond the
// table gives no safety stock at all.
void SafetyFactorLookup()
{
    const double area = 0.5 - Problem.StockoutProbability.Value();
    double z = 0;
    for (int i = 1; i <= NormalAreaTable.Upper(); ++i) {
        if (NormalAreaTable(i) < area) continue;
        const bool upper = NormalAreaTable(i) - area <= area - NormalAreaTable(i - 1);
        z = (upper ? i : i - 1) / 100.0;
        break;
    }
    Result.SafetyStock = Problem.DemandStdDev.Value() * z;
}

void Solve()
{
    switch (Problem.ModelKind) {
        case kOrderQuantity:
            return EconomicOrderQuantity();
        case kLotSize:
            return ProductionLotSize();
        case kShortages:
            return PlannedShortages();
        case kDiscounts:
            return QuantityDiscounts();
        case kReorderPoint:
            return OrderQuantityReorderPoint();
        case kSinglePeriod:
            return SinglePeriod();
        default:
            return;
    }
}

}  // namespace VtInvent
