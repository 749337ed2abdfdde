// Inventory problems for the tests.
#pragma once

#include <vector>

#include "inventory/VtInvent.h"

// What most models share.
struct Demand {
    double Annual = 1000;
    double OrderCost = 32;
    double HoldingCost = 5;
    double WorkingDays = 250;
};

inline void GivenModel(int kind, const Demand& demand = {})
{
    VtInvent::MakeArrays();
    VtInvent::InventoryProblem& p = VtInvent::Problem;
    p.ModelKind = kind;
    p.AnnualDemand = demand.Annual;
    p.OrderCost = demand.OrderCost;
    p.HoldingCost = demand.HoldingCost;
    p.HoldingCostMethod = VtInvent::kAmountMethod;
    p.WorkingDays = demand.WorkingDays;
}

inline void GivenLeadTime(double days)
{
    VtInvent::ChooseReorderPoint(true);
    VtInvent::Problem.LeadTimeDays = days;
}

struct Category {
    double UnitCost = 0;
    double Minimum = 0;
};

inline void GivenDiscounts(const Demand& demand, double percent, const std::vector<Category>& categories)
{
    GivenModel(VtInvent::kDiscounts, demand);
    VtInvent::Problem.HoldingCostMethod = {};
    VtInvent::Problem.CarryingPercent = percent;
    VtInvent::Problem.CategoryCount = static_cast<double>(categories.size());
    int k = 0;
    for (const Category& category : categories) {
        VtInvent::Problem.CategoryUnitCost(++k) = category.UnitCost;
        VtInvent::Problem.CategoryMinimum(k) = category.Minimum;
    }
}

inline void GivenService(const Demand& demand, double mean, double deviation)
{
    GivenModel(VtInvent::kReorderPoint, demand);
    VtInvent::Problem.MeanDemand = mean;
    VtInvent::Problem.DemandStdDev = deviation;
}

inline void GivenStockoutProbability(double probability)
{
    VtInvent::Problem.ServiceMethod = VtInvent::kStockoutProbability;
    VtInvent::Problem.StockoutProbability = probability;
}

inline void GivenAllowedStockouts(double count)
{
    VtInvent::Problem.ServiceMethod = VtInvent::kAllowedStockouts;
    VtInvent::Problem.AllowedStockouts = count;
}

inline void GivenSinglePeriod(double over, double under)
{
    VtInvent::MakeArrays();
    VtInvent::Problem.ModelKind = VtInvent::kSinglePeriod;
    VtInvent::Problem.OrderCost = over;
    VtInvent::Problem.UnderCost = under;
}

inline void GivenUniform(double lowest, double highest)
{
    VtInvent::Problem.DistributionKind = VtInvent::kUniform;
    VtInvent::Problem.LowestDemand = lowest;
    VtInvent::Problem.HighestDemand = highest;
}

inline void GivenNormal(double mean, double deviation)
{
    VtInvent::Problem.DistributionKind = VtInvent::kNormal;
    VtInvent::Problem.MeanDemand = mean;
    VtInvent::Problem.DemandStdDev = deviation;
}
