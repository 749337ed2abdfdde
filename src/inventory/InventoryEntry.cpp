// What the boxes of the six forms accept.
#include "basic/entrytext.h"
#include "basic/format.h"
#include "basic/number.h"
#include "desktop/dialogs.h"
#include "inventory/VtInvent.h"
#include "tableau/tanumchk.h"

namespace VtInvent {
namespace {

constexpr double kCommonWorkingDays = 250;
constexpr double kMostWorkingDays = 366;  // the message says 365
constexpr double kMostStockoutProbability = 0.5;

constexpr std::string_view kMinimumRefused = "NOTE:  THE MINIMUM QUANTITY MUST BE AT LEAST 0.";

// An empty box waits for Solve and Save.
bool IsLeftOut(std::string_view text)
{
    return text.empty();
}

// What a box holds; an unchanged one is the stored value to its last bit.
double ValueOf(const Variant& field, std::string_view text)
{
    return text == EntryText(field) ? field.Value() : Val(text);
}

// Remembers a text of which a comma has cut a part.
void Keep(Variant& field, Box box, std::string_view text, double value)
{
    field = value;
    std::string whole(text);
    std::erase(whole, ',');
    if (Val(whole) == value)
        Problem.ReadUpToComma.erase(box);
    else
        Problem.ReadUpToComma[box] = {std::string(text), value};
}

bool TakePositive(Variant& field, Box box, std::string_view text, std::string_view refusal)
{
    if (IsLeftOut(text)) return true;
    const double value = ValueOf(field, text);
    if (!(value > 0)) return Refuse(refusal);
    Keep(field, box, text, value);
    return true;
}

bool TakeNotNegative(Variant& field, Box box, std::string_view text, std::string_view refusal)
{
    if (IsLeftOut(text)) return true;
    const double value = ValueOf(field, text);
    if (value < 0) return Refuse(refusal);
    Keep(field, box, text, value);
    return true;
}

// The same for the boxes that also refuse a text that is no number; the check drops the commas.
bool TakeCheckedNotNegative(Variant& field, std::string_view text, std::string_view refusal)
{
    if (IsLeftOut(text)) return true;
    const NumberText number = CheckNumber(text);
    if (!number.IsNumber) return Refuse(kMinimumRefused);
    const double value = Val(number.Text);
    if (value < 0) return Refuse(refusal);
    field = value;
    return true;
}

// The text of another writer may say the same number in another way.
bool HoldingTextIsTheCost()
{
    const std::string cost = EntryText(Problem.HoldingCost);
    return Problem.HoldingText == cost ||
           (!Problem.HoldingText.empty() && EntryText(Val(Problem.HoldingText)) == cost);
}

bool WarnEqualRates(const Variant& demand)
{
    MsgBox(
        "The production rate and the demand rate are EQUAL.  "
        "The production line will run continuously!!!  "
        "The production lot size inventory model is meaningful only "
        "if the production rate is greater than the demand rate.  "
        "PLEASE INCREASE THE ANNUAL PRODUCTION RATE TO MORE THAN " +
            PlainText(demand.Value()) + " UNITS.",
        "WARNING");
    return false;
}

bool WarnLowRate(const Variant& rate, const Variant& demand)
{
    MsgBox("The production rate of " + rate.Text() +
               " units per year is insufficient to handle the demand of " + PlainText(demand.Value()) +
               " units per year!!!",
           "WARNING!!!");
    return false;
}

}  // namespace

bool TakeAnnualDemand(std::string_view text)
{
    return TakePositive(Problem.AnnualDemand, Box::AnnualDemand, text,
                        "NOTE:  ANNUAL DEMAND MUST BE GREATER THAN 0.");
}

bool TakeOrderCost(std::string_view text)
{
    return TakePositive(Problem.OrderCost, Box::OrderCost, text,
                        "NOTE:  ORDERING COST MUST BE GREATER THAN 0.");
}

bool TakeSetupCost(std::string_view text)
{
    return TakePositive(Problem.OrderCost, Box::OrderCost, text, "NOTE:  SETUP COST MUST BE GREATER THAN 0.");
}

bool StoreProductionRate(std::string_view text)
{
    return TakePositive(Problem.ProductionRate, Box::ProductionRate, text,
                        "NOTE:  PRODUCTION RATE MUST BE GREATER THAN 0.");
}

bool TakeProductionRate(std::string_view text)
{
    if (IsLeftOut(text)) return true;
    if (!StoreProductionRate(text)) return false;
    const double rate = Problem.ProductionRate.Value();
    const double demand = Problem.AnnualDemand.Value();
    if (rate == demand) return WarnEqualRates(Problem.AnnualDemand);
    return rate > demand || WarnLowRate(Problem.ProductionRate, Problem.AnnualDemand);
}

bool TakeBackorderCost(std::string_view text)
{
    return TakePositive(Problem.BackorderCost, Box::BackorderCost, text,
                        "NOTE:  BACKORDER COST MUST BE GREATER THAN 0.");
}

bool TakeWorkingDays(std::string_view text)
{
    if (IsLeftOut(text)) return true;
    const double days = ValueOf(Problem.WorkingDays, text);
    if (days < 1 || days > kMostWorkingDays)
        return Refuse("NOTE:  THE NUMBER OF WORKING DAYS MUST BE BETWEEN 1 AND 365.");
    Keep(Problem.WorkingDays, Box::WorkingDays, text, days);
    return true;
}

bool TakeHoldingAmount(std::string_view text)
{
    return TakePositive(Problem.HoldingCost, Box::HoldingAmount, text,
                        "NOTE:  THE HOLDING COST MUST BE GREATER THAN 0.");
}

bool TakeCarryingPercent(std::string_view text)
{
    return TakePositive(Problem.CarryingPercent, Box::CarryingPercent, text,
                        "NOTE:  THE PERCENTAGE MUST BE GREATER THAN 0.");
}

bool TakeUnitCost(std::string_view text)
{
    return TakePositive(Problem.UnitCost, Box::UnitCost, text,
                        "NOTE:  THE COST PER UNIT MUST BE GREATER THAN 0.");
}

bool TakeLeadTime(std::string_view text)
{
    return TakeCheckedNotNegative(Problem.LeadTimeDays, text, "NOTE:  THE LEAD TIME MUST BE AT LEAST 0.");
}

bool TakeCategoryUnitCost(int category, std::string_view text)
{
    Variant& cost = Problem.CategoryUnitCost(category);
    if (!TakePositive(cost, Box::CategoryUnitCost, text, "NOTE:  THE COST PER UNIT MUST BE GREATER THAN 0."))
        return false;
    Problem.CategoryUnitCostText(category) = EntryText(cost);
    return true;
}

bool TakeCategoryMinimum(int category, std::string_view text)
{
    Variant& minimum = Problem.CategoryMinimum(category);
    if (!TakeCheckedNotNegative(minimum, text, kMinimumRefused)) return false;
    Problem.CategoryMinimumText(category) = EntryText(minimum);
    return true;
}

bool TakeStockoutProbability(std::string_view text)
{
    if (IsLeftOut(text)) return true;
    const double probability = ValueOf(Problem.StockoutProbability, text);
    if (probability < 0 || probability > kMostStockoutProbability)
        return Refuse(
            "NOTE:  IN THIS INVENTORY MODEL, THE PROBABILITY OF A STOCKOUT MUST BE BETWEEN .00 AND .50.");
    Keep(Problem.StockoutProbability, Box::StockoutProbability, text, probability);
    return true;
}

bool TakeAllowedStockouts(std::string_view text)
{
    return TakeNotNegative(Problem.AllowedStockouts, Box::AllowedStockouts, text,
                           "NOTE:  THE NUMBER OF STOCKOUTS MUST BE AT LEAST 0.");
}

bool TakeOverCost(std::string_view text)
{
    return TakePositive(Problem.OrderCost, Box::OrderCost, text,
                        "THE COST OF OVERESTIMATING DEMAND MUST BE GREATER THAN 0.");
}

bool TakeUnderCost(std::string_view text)
{
    return TakePositive(Problem.UnderCost, Box::UnderCost, text,
                        "THE COST OF UNDERESTIMATING DEMAND MUST BE GREATER THAN 0.");
}

bool TakeLowestDemand(std::string_view text)
{
    return TakeNotNegative(Problem.LowestDemand, Box::LowestDemand, text,
                           "NOTE:  THE LOWEST VALUE MUST BE AT LEAST 0.");
}

bool TakeHighestDemand(std::string_view text)
{
    if (IsLeftOut(text)) return true;
    const double highest = ValueOf(Problem.HighestDemand, text);
    const double lowest = Problem.LowestDemand.Value();
    if (highest < lowest)
        return Refuse("NOTE:  THE HIGHEST VALUE MUST BE AT LEAST " + PlainText(lowest) + " UNITS.");
    Keep(Problem.HighestDemand, Box::HighestDemand, text, highest);
    return true;
}

bool TakeMeanDemand(std::string_view text)
{
    return TakeNotNegative(Problem.MeanDemand, Box::MeanDemand, text,
                           "NOTE:  THE MEAN DEMAND MUST BE AT LEAST 0.");
}

bool TakeDemandStdDev(std::string_view text)
{
    return TakeNotNegative(Problem.DemandStdDev, Box::DemandStdDev, text,
                           "NOTE:  THE STANDARD DEVIATION MUST BE AT LEAST 0.");
}

void ChooseHoldingMethod(int method)
{
    Problem.HoldingCostMethod = method;
}

void ChooseReorderPoint(bool compute)
{
    Problem.ComputeReorderPoint = compute ? -1 : 0;
}

void ChooseServiceMethod(int method)
{
    Problem.ServiceMethod = method;
}

void ChooseDistribution(int kind)
{
    Problem.DistributionKind = kind;
}

int OpeningHoldingMethod()
{
    const bool isNew = Problem.HoldingCostMethod.IsEmpty();
    return !isNew && HoldingTextIsTheCost() ? kAmountMethod : kPercentMethod;
}

int OpeningServiceMethod()
{
    return Problem.ServiceMethod.Value() == kAllowedStockouts ? kAllowedStockouts : kStockoutProbability;
}

int OpeningDistribution()
{
    return Problem.DistributionKind.Value() == kNormal ? kNormal : kUniform;
}

std::string OpeningWorkingDays()
{
    return Problem.WorkingDays.IsEmpty() ? PlainText(kCommonWorkingDays) : Problem.WorkingDays.Text();
}

void KeepWorkingDays(std::string_view text)
{
    if (text == PlainText(kCommonWorkingDays)) Problem.WorkingDays = kCommonWorkingDays;
}

void KeepHoldingCost(std::string_view percent, std::string_view unitCost)
{
    if (Problem.HoldingCostMethod.Value() == kPercentMethod) {
        Problem.CarryingPercent = Val(percent);
        Problem.UnitCost = Val(unitCost);
        Problem.HoldingCost = Problem.UnitCost.Value() * Problem.CarryingPercent.Value() / 100;
    } else {
        Problem.HoldingText = EntryText(Problem.HoldingCost);
    }
}

void KeepFirstMinimum(std::string_view text)
{
    if (text != "0") return;
    Problem.CategoryMinimum(1) = 0;
    Problem.CategoryMinimumText(1) = text;
}

}  // namespace VtInvent
