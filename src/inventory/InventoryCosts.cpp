#include "inventory/InventoryCosts.h"

#include <algorithm>
#include <cmath>

#include "basic/format.h"

namespace VtInvent {
namespace {

int CategoriesOf(const InventoryProblem& problem)
{
    return static_cast<int>(problem.CategoryCount.Value());
}

double MinimumOf(const InventoryProblem& problem, int category)
{
    return problem.CategoryMinimum(category).Value();
}

// Where the curve is at or below the limit: between the roots of slope q^2 - (limit - fixed) q + ordering.
std::optional<Span> AtMost(const CostCurve& curve, double limit)
{
    const double slope = curve.Holding + curve.Backorder;
    const double room = limit - curve.Purchase - curve.SafetyStock;
    const double square = room * room - 4 * slope * curve.Ordering;
    if (room <= 0 || square < 0 || slope <= 0) return {};
    const double root = std::sqrt(square);
    return Span{.From = (room - root) / (2 * slope), .To = (room + root) / (2 * slope)};
}

std::optional<Span> Common(const Span& a, const Span& b)
{
    Span common{.From = std::max(a.From, b.From), .To = a.To};
    if (b.To && (!common.To || *b.To < *common.To)) common.To = b.To;
    if (common.To && *common.To <= common.From) return {};
    return common;
}

std::vector<Span> Joined(std::vector<Span> spans)
{
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.From < b.From; });
    std::vector<Span> joined;
    for (const Span& span : spans) {
        if (!joined.empty() && joined.back().To && *joined.back().To >= span.From)
            joined.back().To = span.To;
        else
            joined.push_back(span);
    }
    return joined;
}

}  // namespace

std::string Units(double value)
{
    return Format(value, "###,###,###,##0.00");
}

std::string Money(double value)
{
    return "$" + Format(value, "###,###,##0.00");
}

std::string Probability(double value)
{
    return Format(value, "0.0000");
}

bool IsModel(const InventoryProblem& problem, int kind)
{
    return problem.ModelKind == kind;
}

bool HasReorderPoint(const InventoryProblem& problem)
{
    if (IsModel(problem, kSinglePeriod)) return false;
    return IsModel(problem, kReorderPoint) || problem.ComputeReorderPoint != 0;
}

bool DemandIsCertain(const InventoryProblem& problem)
{
    const bool uniform = IsModel(problem, kSinglePeriod) && problem.DistributionKind.Value() != kNormal;
    return uniform ? problem.LowestDemand.Value() == problem.HighestDemand.Value()
                   : problem.DemandStdDev.Value() <= 0;
}

double LeadTimeDemand(const InventoryProblem& problem)
{
    if (IsModel(problem, kReorderPoint)) return problem.MeanDemand.Value();
    return problem.LeadTimeDays.Value() * problem.AnnualDemand.Value() / problem.WorkingDays.Value();
}

std::string OrderWord(const InventoryProblem& problem)
{
    return IsModel(problem, kLotSize) ? "setup" : "order";
}

CostCurve CurveOf(const InventoryProblem& problem, const InventoryResult& result)
{
    if (IsModel(problem, kDiscounts)) return CurveOfCategory(problem, result.BestCategory);
    const double holding = problem.HoldingCost.Value();
    CostCurve curve{.SafetyStock = result.SafetyStockCost,
                    .Holding = holding / 2,
                    .Ordering = problem.OrderCost.Value() * problem.AnnualDemand.Value()};
    if (IsModel(problem, kLotSize))
        curve.Holding *= 1 - problem.AnnualDemand.Value() / problem.ProductionRate.Value();
    if (IsModel(problem, kShortages)) {
        const double backorder = problem.BackorderCost.Value();
        const double both = backorder + holding;
        curve.Holding = holding / 2 * (backorder / both) * (backorder / both);
        curve.Backorder = backorder / 2 * (holding / both) * (holding / both);
    }
    return curve;
}

CostCurve CurveOfCategory(const InventoryProblem& problem, int category)
{
    const double unitCost = problem.CategoryUnitCost(category).Value();
    return {.Purchase = unitCost * problem.AnnualDemand.Value(),
            .Holding = unitCost * problem.CarryingPercent.Value() / 100 / 2,
            .Ordering = problem.OrderCost.Value() * problem.AnnualDemand.Value()};
}

std::optional<Span> PriceSpan(const InventoryProblem& problem, int category)
{
    Span span{.From = MinimumOf(problem, category)};
    for (int k = 1; k <= CategoriesOf(problem); ++k) {
        const double minimum = MinimumOf(problem, k);
        if (minimum == span.From && k > category) return {};
        if (minimum > span.From && (!span.To || minimum < *span.To)) span.To = minimum;
    }
    return span;
}

bool InsideOwnPrice(const InventoryProblem& problem, int category, double quantity)
{
    return CategoryAt(problem, quantity) == category;
}

int CategoryAt(const InventoryProblem& problem, double quantity)
{
    for (int k = 1; k <= CategoriesOf(problem); ++k) {
        const std::optional<Span> span = PriceSpan(problem, k);
        if (span && quantity >= span->From && (!span->To || quantity < *span->To)) return k;
    }
    return 0;
}

std::vector<Span> NearlyCheapest(const InventoryProblem& problem, const InventoryResult& result)
{
    const double limit = 1.01 * result.TotalAnnualCost;
    std::vector<Span> spans;
    if (!IsModel(problem, kDiscounts)) {
        if (const auto span = AtMost(CurveOf(problem, result), limit)) spans.push_back(*span);
        return spans;
    }
    for (int k = 1; k <= CategoriesOf(problem); ++k) {
        const std::optional<Span> price = PriceSpan(problem, k);
        const std::optional<Span> cheap = AtMost(CurveOfCategory(problem, k), limit);
        if (!price || !cheap) continue;
        if (const auto both = Common(*price, *cheap)) spans.push_back(*both);
    }
    return Joined(spans);
}

double NormalTail(double z)
{
    return std::erfc(z / std::sqrt(2.0)) / 2;
}

double NormalFactor(double tail)
{
    double low = -40;
    double high = 40;
    for (int halving = 0; halving < 100; ++halving) {
        const double middle = (low + high) / 2;
        (NormalTail(middle) > tail ? low : high) = middle;
    }
    return low;
}

}  // namespace VtInvent
