// What stands beside the inventory report has in common: figures as the report writes them, the yearly cost
// as a function of the quantity, and the normal distribution itself beside its table.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "inventory/VtInvent.h"

namespace VtInvent {

std::string Units(double value);
std::string Money(double value);
std::string Probability(double value);  // four decimals

bool IsModel(const InventoryProblem& problem, int kind);
bool HasReorderPoint(const InventoryProblem& problem);  // in the report
bool DemandIsCertain(const InventoryProblem& problem);  // of the probabilistic models
double LeadTimeDemand(const InventoryProblem& problem);
std::string OrderWord(const InventoryProblem& problem);  // "order", or "setup" of a lot

// Cost a year of the quantity q: Purchase + SafetyStock + (Holding + Backorder) q + Ordering / q.
struct CostCurve {
    double Purchase = 0;
    double SafetyStock = 0;
    double Holding = 0;
    double Backorder = 0;
    double Ordering = 0;

    [[nodiscard]] double HoldingAt(double q) const { return SafetyStock + Holding * q; }
    [[nodiscard]] double BackorderAt(double q) const { return Backorder * q; }
    [[nodiscard]] double OrderingAt(double q) const { return Ordering / q; }
    [[nodiscard]] double TotalAt(double q) const
    {
        return Purchase + HoldingAt(q) + BackorderAt(q) + OrderingAt(q);
    }
};

// Of planned shortages each quantity has the backorders that suit it best. With discounts: at the price of
// the category.
CostCurve CurveOf(const InventoryProblem& problem, const InventoryResult& result);
CostCurve CurveOfCategory(const InventoryProblem& problem, int category);

struct Span {
    double From = 0;
    std::optional<double> To = {};  // excluded; nothing: no end
};

// The quantities that have the category's price; nothing when a later one has the same minimum.
std::optional<Span> PriceSpan(const InventoryProblem& problem, int category);
bool InsideOwnPrice(const InventoryProblem& problem, int category, double quantity);
int CategoryAt(const InventoryProblem& problem, double quantity);  // 0: below all of them

// The quantities whose cost is at most a hundredth above the least one; with discounts one span for each
// piece of the cost that has some.
std::vector<Span> NearlyCheapest(const InventoryProblem& problem, const InventoryResult& result);

double NormalTail(double z);       // the area beyond z
double NormalFactor(double tail);  // the z with this area beyond it

}  // namespace VtInvent
