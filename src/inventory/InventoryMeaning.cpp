#include "inventory/InventoryMeaning.h"

#include <algorithm>
#include <array>

#include "basic/format.h"
#include "inventory/InventoryCosts.h"
#include "inventory/InventoryPolicy.h"
#include "picture/words.h"

namespace VtInvent {
namespace {

using picture::Chance;
using picture::Filling;
using picture::Sentence;
using picture::SentenceKind;

constexpr double kYearLong = 1;  // orders a year

// Cautions; the guide's list of them follows this one. What stands in braces is filled in.
constexpr const char* kTableEnds =
    "No safety stock: the table of normal areas ends before a chance of {chance}, and the factor is 0.";
constexpr const char* kHalfOfTheCycles =
    "With this reorder point the demand of the lead time exceeds the stock in about every second cycle.";
constexpr const char* kTableDiffers =
    "The factor from the table makes the chance of running out {chance}, not {asked}.";
constexpr const char* kAtMostAHalf =
    "The stockouts allowed come to a chance above 0.5000 per cycle; 0.5000 is used, and fewer stockouts are "
    "expected than were allowed.";
constexpr const char* kCertainLeadTime =
    "The demand of the lead time has no spread: safety stock and stockouts are shown as 0.";
constexpr const char* kNegativePoint = "Order when {units} are short, not when stock is left.";
constexpr const char* kPointAboveStock =
    "The reorder point is above the highest stock: count what is on order.";
constexpr const char* kPointBelowNothing =
    "The reorder point is below the deepest shortage by its rounding to hundredths: order when the "
    "shortage is at its deepest.";
constexpr const char* kForeignPrice =
    "An order of {units} has the price of category {applies}, not that of category {best} with which the "
    "report reckons.";
constexpr const char* kLongCycle =
    "One {order} lasts longer than a year: demand and costs have to stay that long.";
constexpr const char* kCertainPeriod =
    "The demand is certain: the report's chances of 0.0000 and 1.0000 mean nothing, an order of {units} "
    "meets the demand exactly.";
constexpr const char* kPeriodTableEnds =
    "The table of normal areas ends before a critical ratio of {ratio}; the order is put 4 standard "
    "deviations from the mean.";
constexpr const char* kNegativeOrder =
    "An order below 0 cannot be placed: with these costs it is best to order nothing.";
constexpr const char* kNegativeDemand =
    "The normal distribution gives a chance of {chance} to a demand below 0, which cannot come.";
constexpr const char* kCutPercent =
    "The full report has room for five characters of the carrying charge and prints {cut}.";
constexpr const char* kCutCosts =
    "A figure is wider than its field of 20 columns, and the report cuts its end.";
constexpr const char* kReadUpToComma =
    "The {field} was typed as {typed} and read as {read}, up to the comma.";

constexpr std::array<const char*, 16> kBoxNames{
    "annual demand",           "ordering cost",        "production rate",     "backorder cost",
    "number of working days",  "holding cost",         "percentage",          "unit cost",
    "unit cost of a category", "stockout probability", "number of stockouts", "cost of underestimating",
    "lowest demand",           "highest demand",       "mean demand",         "standard deviation"};

class Reading {
public:
    Reading(const InventoryProblem& problem, const InventoryResult& result) : p_(problem), r_(result) {}

    std::vector<Sentence> Read()
    {
        if (IsModel(p_, kSinglePeriod)) {
            SinglePeriod();
        } else {
            WhatToDo();
            if (IsModel(p_, kReorderPoint)) SafetyStock();
            if (HasReorderPoint(p_)) WhenToOrder();
            if (IsModel(p_, kDiscounts)) OtherCategories();
            Flatness();
            if (r_.OrdersPerYear < kYearLong)
                Caution(kLongCycle, {{"order", IsModel(p_, kLotSize) ? "lot" : "order"}});
        }
        CutFigures();
        Commas();
        // Results first, then limits, changes and cautions.
        picture::SortByKind(said_);
        return said_;
    }

private:
    void Say(SentenceKind kind, std::string text)
    {
        said_.push_back({.Kind = kind, .Text = std::move(text)});
    }
    void Result(std::string text) { Say(SentenceKind::Result, std::move(text)); }
    void Caution(const char* text, const std::vector<Filling>& fillings = {})
    {
        Say(SentenceKind::Caution, picture::Filled(text, fillings));
    }

    // ---- orders ----

    void WhatToDo()
    {
        const std::string days = Units(r_.CycleTimeDays) + " working days";
        const std::string half = Money(r_.AnnualOrderingCost) + " a year";
        std::string text =
            (IsModel(p_, kLotSize) ? "Make " : "Order ") + Units(r_.OrderQuantity) +
            (IsModel(p_, kLotSize) ? " in each lot, with a setup every " : " each time, every ") + days;
        if (IsModel(p_, kLotSize))
            text += "; holding and setups cost the same, " + half + " each";
        else if (IsModel(p_, kShortages))
            text += ", and let up to " + Units(r_.MaximumBackorders) +
                    " wait; holding and backorders together cost as much as ordering, " + half;
        else if (IsModel(p_, kDiscounts))
            text += ", at the $" + Format(p_.CategoryUnitCost(r_.BestCategory).Value(), "0.00") +
                    " a unit of category " + std::to_string(r_.BestCategory);
        else if (IsModel(p_, kOrderQuantity))
            text += "; holding and ordering cost the same, " + half + " each";
        Result(text + ".");
        Result("In all this costs " + Money(r_.TotalAnnualCost) + " a year" +
               (IsModel(p_, kDiscounts) ? ", purchases of " + Money(r_.AnnualPurchaseCost) + " included."
                                        : "."));
    }

    void Flatness()
    {
        for (const Span& span : NearlyCheapest(p_, r_)) {
            const bool holds = r_.OrderQuantity >= span.From && (!span.To || r_.OrderQuantity <= *span.To);
            if (!holds || !span.To) continue;
            Say(SentenceKind::Limit, "Between " + Units(span.From) + " and " + Units(*span.To) +
                                         " the cost rises by at most 1 %: a round quantity will do.");
        }
    }

    void WhenToOrder()
    {
        const double point = r_.ReorderPoint;
        const double lowest = IsModel(p_, kShortages) ? -r_.MaximumBackorders : 0;
        if (point < lowest)
            Caution(kPointBelowNothing);
        else if (point < 0)
            Caution(kNegativePoint, {{"units", Units(-point)}});
        else if (point > r_.MaximumInventory)
            Caution(kPointAboveStock);
        if (point >= 0)
            Result((IsModel(p_, kLotSize) ? "Prepare the next lot when " : "Order when ") + Units(point) +
                   " are left" + (point > r_.MaximumInventory ? " in stock and on order." : "."));
    }

    // ---- discounts ----

    void OtherCategories()
    {
        const int best = r_.BestCategory;
        std::vector<std::string> ties;
        int next = 0;
        for (int k = 1; k <= p_.CategoryCount.Value(); ++k) {
            if (k == best) continue;
            if (r_.CategoryTotal(k) == r_.TotalAnnualCost)
                ties.push_back(std::to_string(k));
            else if (next == 0 || r_.CategoryTotal(k) < r_.CategoryTotal(next))
                next = k;
        }
        if (!ties.empty()) {
            const bool one = ties.size() == 1;
            Say(SentenceKind::Limit, (one ? "Category " : "Categories ") + picture::Listed(ties) +
                                         (one ? " costs" : " cost") +
                                         " just as much; of categories that tie " + "the last one is taken.");
        }
        if (next > 0)
            Say(SentenceKind::Change, "The next best is category " + std::to_string(next) + " with " +
                                          Units(r_.CategoryQuantity(next)) + " each time; it costs " +
                                          Money(r_.CategoryTotal(next) - r_.TotalAnnualCost) +
                                          " a year more.");
        const double own = LotSizeOf(p_, best);
        if (own < p_.CategoryMinimum(best).Value())
            Say(SentenceKind::Limit, "The quantity is the minimum of category " + std::to_string(best) +
                                         "; at its price " + Units(own) +
                                         " would be cheaper, if so few had it.");
        if (!InsideOwnPrice(p_, best, r_.OrderQuantity))
            Caution(kForeignPrice, {{"units", Units(r_.OrderQuantity)},
                                    {"applies", std::to_string(CategoryAt(p_, r_.OrderQuantity))},
                                    {"best", std::to_string(best)}});
    }

    // ---- service ----

    void SafetyStock()
    {
        if (DemandIsCertain(p_)) return Caution(kCertainLeadTime);
        const double asked = r_.StockoutProbability.Value();
        const double chance = NormalTail(r_.Lookup.Z);
        if (r_.Lookup.Row == 0) {
            Caution(kTableEnds, {{"chance", Chance(asked, 4)}});
            Caution(kHalfOfTheCycles);
            return;
        }
        Result("The safety stock of " + Units(r_.SafetyStock) + " costs " + Money(r_.SafetyStockCost) +
               " a year.");
        Result("The demand of the lead time exceeds the reorder point in " +
               picture::Percent(Probability(chance)) + " of the cycles, " + Units(chance * r_.OrdersPerYear) +
               " times a year on average.");
        if (p_.ServiceMethod.Value() == kAllowedStockouts &&
            p_.AllowedStockouts.Value() / r_.OrdersPerYear > asked)
            Caution(kAtMostAHalf);
        if (Chance(chance, 4) != Chance(asked, 4))
            Caution(kTableDiffers, {{"chance", Chance(chance, 4)}, {"asked", Chance(asked, 4)}});
        NegativeDemand();
    }

    void NegativeDemand()
    {
        const double below = NormalTail(p_.MeanDemand.Value() / p_.DemandStdDev.Value());
        if (Probability(below) != Probability(0)) Caution(kNegativeDemand, {{"chance", Chance(below, 4)}});
    }

    // ---- a single period ----

    void SinglePeriod()
    {
        const std::string quantity = Units(r_.OrderQuantity);
        Result("Order " + quantity + " for the period.");
        if (DemandIsCertain(p_)) return Caution(kCertainPeriod, {{"units", quantity}});
        Result("Something is left over with a chance of " + Chance(r_.CriticalRatio, 4) +
               ", and the order runs out with a chance of " + Chance(1 - r_.CriticalRatio, 4) + ".");
        const double under = p_.UnderCost.Value();
        const double over = p_.OrderCost.Value();
        if (under == over)
            Say(SentenceKind::Limit,
                "A unit too few costs as much as one too many, so that both are equally "
                "likely.");
        else
            Say(SentenceKind::Limit, std::string("A unit too few costs ") + (under > over ? "more" : "less") +
                                         " than one too many, so that a surplus is the " +
                                         (under > over ? "more" : "less") + " likely end.");
        if (p_.DistributionKind.Value() != kNormal) return;
        if (r_.Lookup.Row == 0) Caution(kPeriodTableEnds, {{"ratio", Chance(r_.CriticalRatio, 4)}});
        if (r_.OrderQuantity < 0) Caution(kNegativeOrder);
        const double chance =
            NormalTail((r_.OrderQuantity - p_.MeanDemand.Value()) / p_.DemandStdDev.Value());
        if (r_.Lookup.Row > 0 && Chance(chance, 4) != Chance(1 - r_.CriticalRatio, 4))
            Caution(kTableDiffers,
                    {{"chance", Chance(chance, 4)}, {"asked", Chance(1 - r_.CriticalRatio, 4)}});
        NegativeDemand();
    }

    // ---- figures ----

    void CutFigures()
    {
        constexpr std::size_t kField = 20;
        constexpr std::size_t kPercentField = 5;
        const bool percent = IsModel(p_, kDiscounts) ||
                             (!IsModel(p_, kSinglePeriod) && p_.HoldingCostMethod.Value() == kPercentMethod);
        const std::string charge = Format(p_.CarryingPercent.Value(), "##.0") + "%";
        if (percent && charge.size() > kPercentField)
            Caution(kCutPercent, {{"cut", charge.substr(0, kPercentField)}});
        const double most = std::max({r_.AnnualHoldingCost, r_.AnnualOrderingCost, r_.TotalAnnualCost});
        if (Money(most).size() > kField || Units(r_.OrderQuantity).size() > kField) Caution(kCutCosts);
    }

    void Commas()
    {
        for (const auto& [field, typed] : p_.ReadUpToComma)
            Caution(kReadUpToComma,
                    {{"field", NameOf(field)}, {"typed", typed.Text}, {"read", PlainText(typed.Value)}});
    }

    [[nodiscard]] std::string NameOf(Box box) const
    {
        if (box == Box::OrderCost && IsModel(p_, kLotSize)) return "setup cost";
        if (box == Box::OrderCost && IsModel(p_, kSinglePeriod)) return "cost of overestimating";
        return kBoxNames.at(static_cast<std::size_t>(box));
    }

    const InventoryProblem& p_;
    const InventoryResult& r_;
    std::vector<Sentence> said_;
};

}  // namespace

std::vector<Sentence> Meaning(const InventoryProblem& problem, const InventoryResult& result)
{
    if (!result.Solved) return {};
    return Reading(problem, result).Read();
}

}  // namespace VtInvent
