// The formulas of the six models.
#include "inventory/InventoryPolicy.h"

#include "basic/number.h"

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
double LotSize(const InventoryProblem& problem, double holdingCost)
{
    return SquareRoot(Divide(2 * problem.AnnualDemand.Value() * problem.OrderCost.Value(), holdingCost));
}

double CategoryHoldingCost(const InventoryProblem& problem, int k)
{
    return problem.CategoryUnitCost(k).Value() * problem.CarryingPercent.Value() / 100;
}

// A negative point is rounded to two decimals, away from zero: it is told as a number of backorders.
double RoundedReorderPoint(double point)
{
    return point < 0 ? Int(100 * point - 0.5) / 100 : point;
}

// z of the first row that reaches the area, without a look at the row before it.
AreaLookup FirstReaching(double area)
{
    const Array1<double>& table = NormalAreaTable();
    for (int i = 1; i <= table.Upper(); ++i)
        if (table(i) >= area) return {.Area = area, .Row = i, .Z = (i - 1) / 100.0};
    return {.Area = area, .Row = 0, .Z = kBeyondTable};
}

class Policy {
public:
    explicit Policy(const InventoryProblem& problem) : problem_(problem) {}

    InventoryResult Of(int model);

private:
    [[nodiscard]] double OrderingCost(double quantity) const;
    [[nodiscard]] double LeadTimeDemand() const;
    void CountCycles();

    void EconomicOrderQuantity();
    void ProductionLotSize();
    void PlannedShortages();
    void PriceCategory(int k);
    void ChooseCategory();
    void QuantityDiscounts();
    void DeriveService();
    void OrderQuantityReorderPoint();
    void NormalSinglePeriod();
    void UniformSinglePeriod();
    void SinglePeriod();

    const InventoryProblem& problem_;
    InventoryResult result_;
};

double Policy::OrderingCost(double quantity) const
{
    return Divide(problem_.OrderCost.Value() * problem_.AnnualDemand.Value(), quantity);
}

double Policy::LeadTimeDemand() const
{
    return Divide(problem_.LeadTimeDays.Value() * problem_.AnnualDemand.Value(),
                  problem_.WorkingDays.Value());
}

void Policy::CountCycles()
{
    result_.OrdersPerYear = Divide(problem_.AnnualDemand.Value(), result_.OrderQuantity);
    result_.CycleTimeDays = Divide(problem_.WorkingDays.Value(), result_.OrdersPerYear);
}

void Policy::EconomicOrderQuantity()
{
    const double holding = problem_.HoldingCost.Value();
    result_.OrderQuantity = LotSize(problem_, holding);
    result_.AnnualHoldingCost = holding * result_.OrderQuantity / 2;
    result_.AnnualOrderingCost = OrderingCost(result_.OrderQuantity);
    result_.TotalAnnualCost = result_.AnnualHoldingCost + result_.AnnualOrderingCost;
    result_.MaximumInventory = result_.OrderQuantity;
    result_.AverageInventory = result_.OrderQuantity / 2;
    result_.ReorderPoint = LeadTimeDemand();
    CountCycles();
}

// Stock builds up at the share of the production that is not used at once.
void Policy::ProductionLotSize()
{
    const double holding = problem_.HoldingCost.Value();
    const double share = 1 - Divide(problem_.AnnualDemand.Value(), problem_.ProductionRate.Value());
    result_.OrderQuantity = LotSize(problem_, holding * share);
    result_.AnnualHoldingCost = holding * result_.OrderQuantity * share / 2;
    result_.AnnualOrderingCost = OrderingCost(result_.OrderQuantity);
    result_.TotalAnnualCost = result_.AnnualHoldingCost + result_.AnnualOrderingCost;
    result_.MaximumInventory = result_.OrderQuantity * share;
    result_.AverageInventory = result_.MaximumInventory / 2;
    CountCycles();
    result_.ReorderPoint = LeadTimeDemand();
}

void Policy::PlannedShortages()
{
    const double holding = problem_.HoldingCost.Value();
    const double backorder = problem_.BackorderCost.Value();
    const double both = backorder + holding;
    result_.OrderQuantity = SquareRoot(Divide(
        2 * problem_.AnnualDemand.Value() * problem_.OrderCost.Value() * Divide(both, backorder), holding));
    result_.MaximumBackorders = Divide(holding * result_.OrderQuantity, both);
    result_.MaximumInventory = result_.OrderQuantity - result_.MaximumBackorders;
    const double twoLots = 2 * result_.OrderQuantity;
    result_.AnnualHoldingCost = Divide(holding * Squared(result_.MaximumInventory), twoLots);
    result_.AnnualOrderingCost = OrderingCost(result_.OrderQuantity);
    result_.AnnualBackorderCost = Divide(backorder * Squared(result_.MaximumBackorders), twoLots);
    result_.TotalAnnualCost =
        result_.AnnualHoldingCost + result_.AnnualOrderingCost + result_.AnnualBackorderCost;
    result_.AverageInventory = Divide(Squared(result_.MaximumInventory), twoLots);
    result_.ReorderPoint = RoundedReorderPoint(LeadTimeDemand() - result_.MaximumBackorders);
    CountCycles();
}

// The cheapest quantity that has the category's price; it may lie in a later category.
void Policy::PriceCategory(int k)
{
    const double holding = CategoryHoldingCost(problem_, k);
    const double minimum = problem_.CategoryMinimum(k).Value();
    double quantity = LotSize(problem_, holding);
    if (quantity < minimum) quantity = minimum;
    result_.CategoryHolding(k) = holding;
    result_.CategoryQuantity(k) = quantity;
    result_.CategoryPurchase(k) = problem_.CategoryUnitCost(k).Value() * problem_.AnnualDemand.Value();
    result_.CategoryHoldingCost(k) = holding * quantity / 2;
    result_.CategoryOrdering(k) = OrderingCost(quantity);
    result_.CategoryTotal(k) =
        result_.CategoryPurchase(k) + result_.CategoryHoldingCost(k) + result_.CategoryOrdering(k);
}

// On a tie the later category wins. None at all leaves row 0, which is all zero.
void Policy::ChooseCategory()
{
    double bestCost = kNoTotalIsAbove;
    int best = 0;
    for (int k = 1; k <= problem_.CategoryCount.Value(); ++k) {
        if (result_.CategoryTotal(k) > bestCost) continue;
        bestCost = result_.CategoryTotal(k);
        best = k;
    }
    result_.BestCategory = best;
    result_.OrderQuantity = result_.CategoryQuantity(best);
    result_.TotalAnnualCost = bestCost;
    result_.AnnualPurchaseCost = result_.CategoryPurchase(best);
    result_.AnnualHoldingCost = result_.CategoryHoldingCost(best);
    result_.AnnualOrderingCost = result_.CategoryOrdering(best);
}

void Policy::QuantityDiscounts()
{
    for (int k = 1; k <= problem_.CategoryCount.Value(); ++k)
        PriceCategory(k);
    ChooseCategory();
    result_.MaximumInventory = result_.OrderQuantity;
    result_.AverageInventory = result_.OrderQuantity / 2;
    CountCycles();
    result_.ReorderPoint = LeadTimeDemand();
}

// The one of the two service measures that the user did not give.
void Policy::DeriveService()
{
    const double orders = result_.OrdersPerYear;
    const double method = problem_.ServiceMethod.Value();
    result_.StockoutProbability = problem_.StockoutProbability;
    result_.AllowedStockouts = problem_.AllowedStockouts;
    if (method == kStockoutProbability)
        result_.AllowedStockouts = orders * problem_.StockoutProbability.Value();
    else if (method == kAllowedStockouts)
        result_.StockoutProbability = Divide(problem_.AllowedStockouts.Value(), orders);
    if (result_.StockoutProbability.Value() > kMostUsedProbability)
        result_.StockoutProbability = kMostUsedProbability;
}

void Policy::OrderQuantityReorderPoint()
{
    const double holding = problem_.HoldingCost.Value();
    result_.OrderQuantity = LotSize(problem_, holding);
    CountCycles();
    DeriveService();
    result_.Lookup = SafetyFactor(result_.StockoutProbability.Value());
    result_.SafetyStock = problem_.DemandStdDev.Value() * result_.Lookup.Z;
    result_.AnnualHoldingCost = holding * result_.SafetyStock + holding * result_.OrderQuantity / 2;
    result_.SafetyStockCost = result_.SafetyStock * holding;
    result_.AnnualOrderingCost = OrderingCost(result_.OrderQuantity);
    result_.TotalAnnualCost = result_.AnnualHoldingCost + result_.AnnualOrderingCost;
    result_.MaximumInventory = result_.SafetyStock + result_.OrderQuantity;
    result_.AverageInventory = result_.SafetyStock + result_.OrderQuantity / 2;
    result_.ReorderPoint = result_.SafetyStock + problem_.MeanDemand.Value();
}

void Policy::NormalSinglePeriod()
{
    const double ratio = result_.CriticalRatio;
    const double mean = problem_.MeanDemand.Value();
    const double deviation = problem_.DemandStdDev.Value();
    const bool above = ratio >= 0.5;
    result_.Lookup = FirstReaching(above ? ratio - 0.5 : 0.5 - ratio);
    const double distance = deviation * result_.Lookup.Z;
    result_.OrderQuantity = above ? mean + distance : mean - distance;
    if (deviation == 0) result_.CriticalRatio = 0;
}

void Policy::UniformSinglePeriod()
{
    const double lowest = problem_.LowestDemand.Value();
    const double highest = problem_.HighestDemand.Value();
    result_.OrderQuantity = lowest + (highest - lowest) * result_.CriticalRatio;
    if (highest == lowest) result_.CriticalRatio = 0;
}

void Policy::SinglePeriod()
{
    const double under = problem_.UnderCost.Value();
    result_.CriticalRatio = Divide(under, under + problem_.OrderCost.Value());
    if (problem_.DistributionKind.Value() == kNormal)
        NormalSinglePeriod();
    else
        UniformSinglePeriod();
}

InventoryResult Policy::Of(int model)
{
    switch (model) {
        case kOrderQuantity:
            EconomicOrderQuantity();
            break;
        case kLotSize:
            ProductionLotSize();
            break;
        case kShortages:
            PlannedShortages();
            break;
        case kDiscounts:
            QuantityDiscounts();
            break;
        case kReorderPoint:
            OrderQuantityReorderPoint();
            break;
        case kSinglePeriod:
            SinglePeriod();
            break;
        default:
            return {};
    }
    result_.Solved = true;
    return result_;
}

}  // namespace

double LotSizeOf(const InventoryProblem& problem, int category)
{
    return LotSize(problem, CategoryHoldingCost(problem, category));
}

// z is a hundredth above what its row stands for, which errs on the side of more stock. An area beyond the
// table gives no safety stock at all.
AreaLookup SafetyFactor(double stockoutProbability)
{
    const Array1<double>& table = NormalAreaTable();
    const double area = 0.5 - stockoutProbability;
    for (int i = 1; i <= table.Upper(); ++i) {
        if (table(i) < area) continue;
        const bool upper = table(i) - area <= area - table(i - 1);
        return {.Area = area, .Row = i, .Z = (upper ? i : i - 1) / 100.0};
    }
    return {.Area = area, .Row = 0, .Z = 0};
}

InventoryResult Solve(const InventoryProblem& problem)
{
    return Policy(problem).Of(problem.ModelKind);
}

}  // namespace VtInvent
