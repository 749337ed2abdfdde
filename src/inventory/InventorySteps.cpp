#include "inventory/InventorySteps.h"

#include <algorithm>

#include "basic/format.h"
#include "inventory/InventoryCosts.h"
#include "inventory/InventoryPolicy.h"
#include "picture/words.h"

namespace VtInvent {
namespace {

using picture::Step;

using Lines = std::vector<std::string>;

// A number as it was typed.
std::string Given(const Variant& field)
{
    return PlainText(field.Value());
}

// "Q = formula", and below it the numbers and the result, each behind its "=".
Lines Formula(const std::string& name, const std::string& formula, const std::string& numbers,
              const std::string& result)
{
    const std::string below = Blanks(static_cast<int>(name.size())) + " = ";
    return {name + " = " + formula, below + numbers, below + result};
}

// Names flush left, values flush right, two blanks between.
Lines Table(const std::vector<std::pair<std::string, std::string>>& rows)
{
    std::size_t names = 0;
    std::size_t values = 0;
    for (const auto& [name, value] : rows) {
        names = std::max(names, name.size());
        values = std::max(values, value.size());
    }
    Lines lines;
    for (const auto& [name, value] : rows)
        lines.push_back(FlushLeft(name, static_cast<int>(names)) + "  " +
                        FlushRight(value, static_cast<int>(values)));
    return lines;
}

std::string Category(int k)
{
    return "category " + std::to_string(k);
}

class Board {
public:
    Board(const InventoryProblem& problem, const InventoryResult& result) : p_(problem), r_(result) {}

    std::vector<Step> Write()
    {
        Data();
        if (IsModel(p_, kSinglePeriod)) {
            SinglePeriod();
            return steps_;
        }
        if (IsModel(p_, kDiscounts)) {
            for (int k = 1; k <= Categories(); ++k)
                CategoryStep(k);
            Choice();
        } else {
            Quantity();
            Costs();
        }
        Cycles();
        if (IsModel(p_, kReorderPoint)) {
            Service();
            Lookup();
            SafetyStock();
        }
        Stock();
        if (HasReorderPoint(p_)) ReorderPoint();
        Proof();
        return steps_;
    }

private:
    [[nodiscard]] int Categories() const { return static_cast<int>(p_.CategoryCount.Value()); }
    [[nodiscard]] std::string D() const { return Given(p_.AnnualDemand); }
    [[nodiscard]] std::string Co() const { return Given(p_.OrderCost); }
    [[nodiscard]] std::string Ch() const { return Given(p_.HoldingCost); }
    [[nodiscard]] std::string Cb() const { return Given(p_.BackorderCost); }
    [[nodiscard]] std::string Q() const { return Units(r_.OrderQuantity); }
    [[nodiscard]] std::string S() const { return Units(r_.MaximumBackorders); }
    [[nodiscard]] std::string Ordering() const { return IsModel(p_, kLotSize) ? "setup" : "ordering"; }
    [[nodiscard]] double Share() const { return 1 - p_.AnnualDemand.Value() / p_.ProductionRate.Value(); }
    [[nodiscard]] std::string ShareText() const { return Format(Share(), "0.0000"); }

    void Add(const std::string& heading, Lines figures, const std::string& why,
             const std::string& picture = {}, std::vector<std::string> marks = {})
    {
        steps_.push_back({.Heading = heading,
                          .Figures = std::move(figures),
                          .Why = why,
                          .Picture = picture,
                          .Marks = std::move(marks)});
    }

    // ---- the data ----

    void Data()
    {
        std::vector<std::pair<std::string, std::string>> rows;
        if (IsModel(p_, kSinglePeriod)) {
            rows = {{"Co  cost of a unit too many", "$" + Co()},
                    {"Cu  cost of a unit too few", "$" + Given(p_.UnderCost)}};
            for (const auto& row : Distribution())
                rows.push_back(row);
            return Add("The data", Table(rows), "One order has to do for the whole period.");
        }
        rows = {{"D   demand per year", D()},
                {"Co  cost of " + std::string(IsModel(p_, kLotSize) ? "a setup" : "an order"), "$" + Co()}};
        if (IsModel(p_, kDiscounts))
            rows.emplace_back("i   holding, percent of the unit cost", Given(p_.CarryingPercent));
        else
            HoldingRows(rows);
        if (IsModel(p_, kLotSize)) rows.emplace_back("P   production per year", Given(p_.ProductionRate));
        if (IsModel(p_, kShortages)) rows.emplace_back("Cb  backorder, per unit and year", "$" + Cb());
        rows.emplace_back("W   working days per year", Given(p_.WorkingDays));
        if (IsModel(p_, kReorderPoint))
            for (const auto& row : Distribution())
                rows.push_back(row);
        else if (HasReorderPoint(p_))
            rows.emplace_back("L   lead time in days", Given(p_.LeadTimeDays));
        Add("The data", Table(rows), "Rates and costs are per year; the working days turn them into days.");
    }

    void HoldingRows(std::vector<std::pair<std::string, std::string>>& rows) const
    {
        if (p_.HoldingCostMethod.Value() == kPercentMethod) {
            rows.emplace_back("i   holding, percent of the unit cost", Given(p_.CarryingPercent));
            rows.emplace_back("C   unit cost", "$" + Given(p_.UnitCost));
        }
        rows.emplace_back("Ch  holding, per unit and year", "$" + Ch());
    }

    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Distribution() const
    {
        if (IsModel(p_, kSinglePeriod) && p_.DistributionKind.Value() != kNormal)
            return {{"a   lowest demand", Given(p_.LowestDemand)},
                    {"b   highest demand", Given(p_.HighestDemand)}};
        const std::string where = IsModel(p_, kSinglePeriod) ? "" : " in the lead time";
        return {{"m   mean demand" + where, Given(p_.MeanDemand)},
                {"s   standard deviation", Given(p_.DemandStdDev)}};
    }

    // ---- the order quantity ----

    void Quantity()
    {
        const std::vector<std::string> best{"best"};
        if (IsModel(p_, kLotSize)) {
            Add("Share of the production that goes into stock",
                Formula("r", "1 - D / P", "1 - " + D() + " / " + Given(p_.ProductionRate), ShareText()),
                "What is used while a lot is made is never held.");
            Add("Production lot size",
                Formula("Q", "root of (2 D Co / (Ch r))",
                        "root of (2 x " + D() + " x " + Co() + " / (" + Ch() + " x " + ShareText() + "))",
                        Q()),
                "At this lot holding and setups cost the same; a smaller or a larger one costs more.",
                "Costs", best);
        } else if (IsModel(p_, kShortages)) {
            Add("Order quantity with planned shortages",
                Formula("Q", "root of (2 D Co (Cb + Ch) / (Cb Ch))",
                        "root of (2 x " + D() + " x " + Co() + " x (" + Cb() + " + " + Ch() + ") / (" + Cb() +
                            " x " + Ch() + "))",
                        Q()),
                "It is larger than without shortages, as backorders save a part of the holding.", "Costs",
                best);
            Add("Most backorders",
                Formula("S", "Ch Q / (Cb + Ch)", Ch() + " x " + Q() + " / (" + Cb() + " + " + Ch() + ")",
                        S()),
                "The dearer a backorder is beside a unit held, the fewer are let up.", "Stock", {"lowest"});
        } else {
            Add("Economic order quantity (Wilson's formula)",
                Formula("Q", "root of (2 D Co / Ch)",
                        "root of (2 x " + D() + " x " + Co() + " / " + Ch() + ")", Q()),
                IsModel(p_, kReorderPoint)
                    ? "The quantity is that of a steady demand; the spread of the demand goes into the "
                      "safety stock."
                    : "At this quantity holding and ordering cost the same; any other one costs more.",
                "Costs", best);
        }
    }

    void Costs()
    {
        if (IsModel(p_, kReorderPoint)) return;  // the safety stock comes first
        const std::vector<std::string> best{"best"};
        if (IsModel(p_, kShortages))
            Add("Annual holding cost",
                Formula("H", "Ch (Q - S)^2 / (2 Q)",
                        Ch() + " x (" + Q() + " - " + S() + ")^2 / (2 x " + Q() + ")",
                        Money(r_.AnnualHoldingCost)),
                "Only the part of the quantity that is not owed already goes into stock.");
        else if (IsModel(p_, kLotSize))
            Add("Annual holding cost",
                Formula("H", "Ch Q r / 2", Ch() + " x " + Q() + " x " + ShareText() + " / 2",
                        Money(r_.AnnualHoldingCost)),
                "On average half of the highest stock is held.");
        else
            Add("Annual holding cost",
                Formula("H", "Ch Q / 2", Ch() + " x " + Q() + " / 2", Money(r_.AnnualHoldingCost)),
                "On average half of the quantity is held.");
        OrderingCost();
        if (IsModel(p_, kShortages))
            Add("Annual backorder cost",
                Formula("B", "Cb S^2 / (2 Q)", Cb() + " x " + S() + "^2 / (2 x " + Q() + ")",
                        Money(r_.AnnualBackorderCost)),
                "On average S / 2 units are owed during S / Q of the time.");
        TotalCost();
    }

    void OrderingCost()
    {
        Add("Annual " + Ordering() + " cost",
            Formula("O", "Co D / Q", Co() + " x " + D() + " / " + Q(), Money(r_.AnnualOrderingCost)),
            "There are D / Q " + OrderWord(p_) + "s a year.");
    }

    void TotalCost()
    {
        std::string formula = "H + O";
        std::string numbers = Money(r_.AnnualHoldingCost) + " + " + Money(r_.AnnualOrderingCost);
        if (IsModel(p_, kShortages)) {
            formula += " + B";
            numbers += " + " + Money(r_.AnnualBackorderCost);
        }
        Add("Total annual cost", Formula("T", formula, numbers, Money(r_.TotalAnnualCost)),
            "The quantity makes this sum the least.", "Costs", {"best"});
    }

    // ---- discounts ----

    void CategoryStep(int k)
    {
        const double price = LotSizeOf(p_, k);
        const bool raised = price < p_.CategoryMinimum(k).Value();
        const std::string cost = "$" + Given(p_.CategoryUnitCost(k));
        const std::string minimum = Given(p_.CategoryMinimum(k));
        const std::string holding = "$" + Format(r_.CategoryHolding(k), "0.0000");
        Lines lines = Table({{"unit cost", cost},
                             {"minimum quantity", minimum},
                             {"holding, i percent of it", holding},
                             {"root of (2 D Co / holding)", Units(price)},
                             {"quantity", Units(r_.CategoryQuantity(k))},
                             {"purchases a year", Money(r_.CategoryPurchase(k))},
                             {"holding a year", Money(r_.CategoryHoldingCost(k))},
                             {"ordering a year", Money(r_.CategoryOrdering(k))},
                             {"total a year", Money(r_.CategoryTotal(k))}});
        Add("Category " + std::to_string(k), std::move(lines),
            raised ? "The best quantity at this price, " + Units(price) +
                         ", is below the minimum and is raised to it."
                   : "The best quantity at this price reaches the minimum of " + minimum +
                         "; an upper end is not looked at.",
            "Costs", {k == r_.BestCategory ? "best" : Category(k)});
    }

    void Choice()
    {
        std::vector<std::pair<std::string, std::string>> rows;
        int ties = 0;
        for (int k = 1; k <= Categories(); ++k) {
            const bool best = k == r_.BestCategory;
            ties += !best && r_.CategoryTotal(k) == r_.TotalAnnualCost ? 1 : 0;
            rows.emplace_back(Category(k) + (best ? " *" : ""), Money(r_.CategoryTotal(k)));
        }
        const std::string chosen = "Category " + std::to_string(r_.BestCategory);
        std::string why = chosen + " has the least total.";
        if (ties > 0) why = chosen + " has the least total; of categories that tie the last one is taken.";
        if (Categories() == 1) why = "There is one category only.";
        Add("The cheapest category", Table(rows), why, "Costs", {"best"});
    }

    // ---- time ----

    void Cycles()
    {
        const std::string orders = Units(r_.OrdersPerYear);
        Lines lines = Formula("N", "D / Q", D() + " / " + Q(), orders);
        for (const std::string& line :
             Formula("t", "W / N", Given(p_.WorkingDays) + " / " + orders, Units(r_.CycleTimeDays) + " days"))
            lines.push_back(line);
        const std::string word = IsModel(p_, kLotSize) ? "Setups" : "Orders";
        Add(word + " per year and cycle time", std::move(lines),
            "Between two " + OrderWord(p_) + "s one quantity is used up.", "Stock", {"stock"});
    }

    void Stock()
    {
        std::string highest = "Q";
        std::string average = "Q / 2";
        if (IsModel(p_, kLotSize)) {
            highest = "Q r";
            average = "Q r / 2";
        } else if (IsModel(p_, kShortages)) {
            highest = "Q - S";
            average = "(Q - S)^2 / (2 Q)";
        } else if (IsModel(p_, kReorderPoint)) {
            highest = "SS + Q";
            average = "SS + Q / 2";
        }
        Add("Stock",
            Table({{"highest  " + highest, Units(r_.MaximumInventory)},
                   {"average  " + average, Units(r_.AverageInventory)}}),
            IsModel(p_, kShortages) ? "The average counts the time without stock as 0."
                                    : "The stock falls evenly from its highest to its lowest level.",
            "Stock", {"highest"});
    }

    void ReorderPoint()
    {
        if (IsModel(p_, kReorderPoint)) {
            Add("Reorder point",
                Formula("R", "m + SS", Given(p_.MeanDemand) + " + " + Units(r_.SafetyStock),
                        Units(r_.ReorderPoint)),
                "The stock has to last for the lead time, and the safety stock is for what comes on top.",
                "Demand", {"quantity"});
            return;
        }
        const std::string lead = Given(p_.LeadTimeDays) + " x " + D() + " / " + Given(p_.WorkingDays);
        if (!IsModel(p_, kShortages)) {
            Add("Reorder point", Formula("R", "L D / W", lead, Units(r_.ReorderPoint)),
                "The stock has to last for the lead time.", "Stock", {"order 1"});
            return;
        }
        const double exact = LeadTimeDemand(p_) - r_.MaximumBackorders;
        Lines lines = Formula("R", "L D / W - S", lead + " - " + S(), Units(exact));
        if (exact < 0) lines.push_back("  rounded down to hundredths: " + Units(r_.ReorderPoint));
        Add("Reorder point", std::move(lines),
            exact < 0 ? "It is below 0, a number of backorders, and a negative point is rounded away from 0."
                      : "The backorders that may come up are taken off what the lead time uses.",
            "Stock", {"order 1"});
    }

    // ---- service ----

    void Service()
    {
        const std::string orders = Units(r_.OrdersPerYear);
        const double method = p_.ServiceMethod.Value();
        const double used = r_.StockoutProbability.Value();
        if (method == kAllowedStockouts) {
            const double share = p_.AllowedStockouts.Value() / r_.OrdersPerYear;
            Lines lines = Formula("p", "stockouts allowed a year / N",
                                  Given(p_.AllowedStockouts) + " / " + orders, Probability(share));
            if (share > used) lines.push_back("  limited to " + Probability(used));
            return Add("Chance of a stockout per cycle", std::move(lines),
                       share > used ? "A chance above a half is not used." : "Each cycle has one lead time.");
        }
        Add("Stockouts allowed per year",
            Formula("A", "N p", orders + " x " + Given(p_.StockoutProbability),
                    Units(r_.AllowedStockouts.Value())),
            "Each cycle has one lead time.");
    }

    [[nodiscard]] Lines RowLines(double area) const
    {
        const Array1<double>& table = NormalAreaTable();
        const int row = r_.Lookup.Row;
        std::vector<std::pair<std::string, std::string>> rows{{"area looked for", Format(area, "0.0000")}};
        if (row > 1)
            rows.emplace_back("area of " + Format((row - 2) / 100.0, "0.00"),
                              Format(table(row - 1), "0.0000"));
        if (row > 0)
            rows.emplace_back("area of " + Format((row - 1) / 100.0, "0.00"), Format(table(row), "0.0000"));
        else
            rows.emplace_back("largest area of the table", Format(table(table.Upper()), "0.0000"));
        rows.emplace_back("z taken", Format(r_.Lookup.Z, "0.00"));
        if (area < 0.5) rows.emplace_back("exact z", Format(NormalFactor(0.5 - area), "0.0000"));
        return Table(rows);
    }

    void Lookup()
    {
        const double area = r_.Lookup.Area;
        const std::string what = "0.5 - p = 0.5 - " + Probability(r_.StockoutProbability.Value());
        Lines lines{what};
        for (const std::string& line : RowLines(area))
            lines.push_back(line);
        Add("Safety factor from the table of normal areas", std::move(lines),
            r_.Lookup.Row == 0 ? "No row of the table reaches this area, so that z stays 0."
                               : "Of the two rows the nearer one is taken, and z is a hundredth above what "
                                 "the row stands for.",
            "Demand", {"runs out"});
    }

    void SafetyStock()
    {
        Add("Safety stock",
            Formula("SS", "s z", Given(p_.DemandStdDev) + " x " + Format(r_.Lookup.Z, "0.00"),
                    Units(r_.SafetyStock)),
            "It is held all year long.", "Stock", {"lowest"});
        Add("Annual holding cost",
            Formula("H", "Ch SS + Ch Q / 2",
                    Ch() + " x " + Units(r_.SafetyStock) + " + " + Ch() + " x " + Q() + " / 2",
                    Money(r_.AnnualHoldingCost)),
            "Of it " + Money(r_.SafetyStockCost) + " is for the safety stock.");
        OrderingCost();
        TotalCost();
    }

    // ---- a single period ----

    void SinglePeriod()
    {
        const double under = p_.UnderCost.Value();
        const double ratio = under / (under + p_.OrderCost.Value());
        const std::string cu = Given(p_.UnderCost);
        Add("Critical ratio",
            Formula("p", "Cu / (Cu + Co)", cu + " / (" + cu + " + " + Co() + ")", Probability(ratio)),
            "A further unit pays as long as the chance that it is asked for, times Cu, is above the chance "
            "that it is left, times Co.");
        if (p_.DistributionKind.Value() == kNormal)
            NormalQuantity(ratio);
        else
            Add("Order quantity",
                Formula("Q", "a + (b - a) p",
                        Given(p_.LowestDemand) + " + (" + Given(p_.HighestDemand) + " - " +
                            Given(p_.LowestDemand) + ") x " + Probability(ratio),
                        Q()),
                "That share of the demands lies below it.", "Demand", {"quantity"});
        if (DemandIsCertain(p_) && r_.CriticalRatio != ratio)
            Add("Certain demand", Table({{"chance of surplus", Probability(r_.CriticalRatio)}}),
                "For a demand without spread the report sets the ratio to 0.");
        SinglePeriodProof(ratio);
    }

    void NormalQuantity(double ratio)
    {
        const bool above = ratio >= 0.5;
        Lines lines{(above ? "p - 0.5 = " : "0.5 - p = ") + Probability(r_.Lookup.Area)};
        for (const std::string& line : RowLines(r_.Lookup.Area))
            lines.push_back(line);
        Add("Factor from the table of normal areas", std::move(lines),
            r_.Lookup.Row == 0 ? "No row of the table reaches this area, so that z is taken as 4."
                               : "The first row that reaches the area is taken.",
            "Demand", {"runs out"});
        const std::string sign = above ? " + " : " - ";
        Add("Order quantity",
            Formula(
                "Q", "m" + sign + "s z",
                Given(p_.MeanDemand) + sign + Given(p_.DemandStdDev) + " x " + Format(r_.Lookup.Z, "0.00"),
                Q()),
            above ? "Too few cost at least as much as too many, so that more than the mean is ordered."
                  : "Too many cost more than too few, so that less than the mean is ordered.",
            "Demand", {"quantity"});
    }

    void SinglePeriodProof(double ratio)
    {
        const double under = p_.UnderCost.Value();
        const double over = p_.OrderCost.Value();
        Add("Proof",
            Table({{"Cu (1 - p)", Format(under * (1 - ratio), "0.0000")},
                   {"Co p", Format(over * ratio, "0.0000")}}),
            "At the critical ratio one unit more would gain as much as it would lose.");
    }

    // ---- the line of proof ----

    void Proof()
    {
        const std::string ordering = Ordering() + " cost";
        if (IsModel(p_, kShortages))
            return Add(
                "Proof",
                Table({{"holding and backorders", Money(r_.AnnualHoldingCost + r_.AnnualBackorderCost)},
                       {ordering, Money(r_.AnnualOrderingCost)}}),
                "At the best quantity what grows with it costs as much as what falls with it.");
        if (IsModel(p_, kReorderPoint))
            return Add(
                "Proof",
                Table({{"holding without the safety stock", Money(r_.AnnualHoldingCost - r_.SafetyStockCost)},
                       {ordering, Money(r_.AnnualOrderingCost)}}),
                "The quantity makes these two equal; the safety stock costs the same at any quantity.");
        if (IsModel(p_, kDiscounts)) return DiscountProof();
        Add("Proof",
            Table({{"holding cost", Money(r_.AnnualHoldingCost)}, {ordering, Money(r_.AnnualOrderingCost)}}),
            "At the best quantity both are equal.");
    }

    void DiscountProof()
    {
        const int k = r_.BestCategory;
        const bool raised = LotSizeOf(p_, k) < p_.CategoryMinimum(k).Value();
        Add("Proof",
            Table({{"purchases", Money(r_.AnnualPurchaseCost)},
                   {"holding", Money(r_.AnnualHoldingCost)},
                   {"ordering", Money(r_.AnnualOrderingCost)},
                   {"total", Money(r_.TotalAnnualCost)}}),
            raised ? "The parts add up to the total; holding is above ordering, as the quantity was raised."
                   : "The parts add up to the total, and holding equals ordering.",
            "Costs", {"best"});
    }

    const InventoryProblem& p_;
    const InventoryResult& r_;
    std::vector<Step> steps_;
};

}  // namespace

std::vector<Step> Steps(const InventoryProblem& problem, const InventoryResult& result)
{
    if (!result.Solved) return {};
    return Board(problem, result).Write();
}

}  // namespace VtInvent
