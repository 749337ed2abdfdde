// Inventory: the problem as its six forms fill it, and the policy that answers it.
//
// Years are the unit of time but for WorkingDays, LeadTimeDays and CycleTimeDays. Fields that were never
// entered are empty and count as 0. Categories are indexed from 1.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "basic/array.h"
#include "basic/variant.h"

namespace VtInvent {

// The values of ModelKind.
constexpr int kOrderQuantity = 1;
constexpr int kLotSize = 2;
constexpr int kShortages = 3;
constexpr int kDiscounts = 4;
constexpr int kReorderPoint = 5;
constexpr int kSinglePeriod = 6;
constexpr int kModelCount = 6;

constexpr int kAmountMethod = 0;  // values of HoldingCostMethod
constexpr int kPercentMethod = 1;
constexpr int kAllowedStockouts = 1;  // values of ServiceMethod
constexpr int kStockoutProbability = 2;
constexpr int kUniform = 1;  // values of DistributionKind
constexpr int kNormal = 2;

constexpr int kMostCategories = 5;  // that a user can ask for; a file may bring one more
constexpr int kCategoryRows = 6;

// Boxes whose text is read up to the first character that is no part of a number.
enum class Box {
    AnnualDemand,
    OrderCost,
    ProductionRate,
    BackorderCost,
    WorkingDays,
    HoldingAmount,
    CarryingPercent,
    UnitCost,
    CategoryUnitCost,
    StockoutProbability,
    AllowedStockouts,
    UnderCost,
    LowestDemand,
    HighestDemand,
    MeanDemand,
    DemandStdDev,
};

struct TypedNumber {
    std::string Text = {};
    double Value = 0;  // as it was read
};

struct InventoryProblem {
    int ModelKind = 0;   // 1 to 6; 0: there is no problem
    bool Saved = false;  // it is in a file, or has come from one

    Variant AnnualDemand;
    Variant OrderCost;  // per order; per setup of a lot; per unit of overestimated demand
    Variant HoldingCost;
    // Beside HoldingCost in the file. It equals HoldingCost when the cost was entered as an amount: that is
    // how a form finds its method again.
    std::string HoldingText;
    Variant CarryingPercent;  // of the unit cost, a year
    Variant UnitCost;
    Variant HoldingCostMethod;  // empty until a form with the choice is shown
    Variant BackorderCost;      // per unit and year
    Variant WorkingDays;        // 1 to 366
    Variant LeadTimeDays;
    double ComputeReorderPoint = 0;  // a flag: -1 or 0
    Variant ProductionRate;
    Variant ServiceMethod;
    Variant StockoutProbability;  // per cycle
    Variant AllowedStockouts;     // per year
    Variant MeanDemand;           // during the lead time, or of the single period
    Variant DemandStdDev;
    Variant UnderCost;  // per unit of underestimated demand
    Variant DistributionKind;
    Variant LowestDemand;
    Variant HighestDemand;
    Variant CategoryCount;
    Array1<Variant> CategoryUnitCost{kCategoryRows};
    Array1<Variant> CategoryMinimum{kCategoryRows};
    Array1<std::string> CategoryUnitCostText{kCategoryRows};  // beside the values in the file
    Array1<std::string> CategoryMinimumText{kCategoryRows};
    double ReorderMark = 0;   // has a place in the file and no use
    double ReorderPoint = 0;  // of the last policy that has one; stands in the file
    // "1,000" counts as 1; it is not refused, but told with the policy.
    std::map<Box, TypedNumber> ReadUpToComma;
};

// What a look into the table of normal areas found.
struct AreaLookup {
    double Area = 0;  // looked for, under the curve between 0 and z
    int Row = 0;      // the first one that reaches it; 0: none does
    double Z = 0;
};

struct InventoryResult {
    bool Solved = false;
    double OrderQuantity = 0;
    double AnnualHoldingCost = 0;
    double AnnualOrderingCost = 0;
    double AnnualBackorderCost = 0;
    double AnnualPurchaseCost = 0;
    double TotalAnnualCost = 0;
    double MaximumInventory = 0;
    double AverageInventory = 0;
    double MaximumBackorders = 0;
    double ReorderPoint = 0;
    double OrdersPerYear = 0;
    double CycleTimeDays = 0;
    double SafetyStock = 0;
    double SafetyStockCost = 0;
    Variant StockoutProbability;  // per cycle, as given or as derived from the allowed stockouts
    Variant AllowedStockouts;     // per year
    double CriticalRatio = 0;
    AreaLookup Lookup;     // of the safety factor, or of the factor of a single period
    int BestCategory = 0;  // 0: none
    Array1<double> CategoryHolding{kCategoryRows};  // cost per unit and year
    Array1<double> CategoryQuantity{kCategoryRows};
    Array1<double> CategoryPurchase{kCategoryRows};
    Array1<double> CategoryHoldingCost{kCategoryRows};
    Array1<double> CategoryOrdering{kCategoryRows};
    Array1<double> CategoryTotal{kCategoryRows};
};

extern InventoryProblem Problem;
extern InventoryResult Result;

// ---- the problem and its form ----

void MakeArrays();        // an empty problem and an empty result
bool Ask();               // asks for the model; false: cancelled, nothing has changed
void Fill();              // runs the form of the problem; nothing for a kind without a form
void ShowModelCaption();  // the model into the status text
bool HasModel();          // false without a problem, or with one of a kind that does not exist

// ---- entry ----
//
// Each routine stores the value of a box that is left, or tells why not and answers false; an empty box is
// passed over, because only Solve and Save ask for it. A text that is no number counts as 0.

bool TakeAnnualDemand(std::string_view text);
bool TakeOrderCost(std::string_view text);
bool TakeSetupCost(std::string_view text);
// Also warns of a rate that is not above the demand; it is stored, and the focus still comes back.
bool TakeProductionRate(std::string_view text);
bool StoreProductionRate(std::string_view text);  // without its warnings about the demand
bool TakeBackorderCost(std::string_view text);
bool TakeWorkingDays(std::string_view text);
bool TakeHoldingAmount(std::string_view text);
bool TakeCarryingPercent(std::string_view text);
bool TakeUnitCost(std::string_view text);
bool TakeLeadTime(std::string_view text);
bool TakeCategoryUnitCost(int category, std::string_view text);
bool TakeCategoryMinimum(int category, std::string_view text);
bool TakeStockoutProbability(std::string_view text);
bool TakeAllowedStockouts(std::string_view text);
bool TakeOverCost(std::string_view text);
bool TakeUnderCost(std::string_view text);
bool TakeLowestDemand(std::string_view text);
bool TakeHighestDemand(std::string_view text);
bool TakeMeanDemand(std::string_view text);
bool TakeDemandStdDev(std::string_view text);

// The choices of a form. Values that a choice hides stay as they are.
void ChooseHoldingMethod(int method);
void ChooseReorderPoint(bool compute);
void ChooseServiceMethod(int method);
void ChooseDistribution(int kind);

// What a form opens with.
int OpeningHoldingMethod();
int OpeningServiceMethod();
int OpeningDistribution();
std::string OpeningWorkingDays();

// What Solve and Save do when no box is empty any more.
void KeepWorkingDays(std::string_view text);
void KeepHoldingCost(std::string_view percent, std::string_view unitCost);
void KeepFirstMinimum(std::string_view text);

// ---- solving ----

// The engine on the problem; leaves the result, and in the problem what a later solve or the file shows of
// it. Run-time errors of the engine leave a result that is not solved.
void SolveProblem();

}  // namespace VtInvent
