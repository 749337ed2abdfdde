#include "inventory/InventoryPicture.h"

#include <algorithm>
#include <cmath>

#include "basic/format.h"
#include "inventory/InventoryCosts.h"
#include "picture/words.h"

namespace VtInvent {
namespace {

using picture::Axis;
using picture::Chart;
using picture::Direction;
using picture::Mark;
using picture::Picture;
using picture::Point;
using picture::Role;
using picture::Rule;
using picture::Series;
using picture::SeriesKind;

constexpr int kPlaces = 2;  // of quantities, days and dollars in the report

// The axis takes in everything that is drawn against it.
void Take(Axis& axis, double value)
{
    axis.From = std::min(axis.From, value);
    axis.To = std::max(axis.To, value);
}

void TakeHeights(Chart& chart)
{
    for (const Series& series : chart.Curves)
        for (const Point& point : series.Points)
            Take(chart.Y, point.Y);
    for (const Mark& mark : chart.Marks)
        Take(chart.Y, mark.At.Y);
    for (const Rule& rule : chart.Rules)
        if (rule.Across == Direction::Y) Take(chart.Y, rule.Value);
}

// ---- costs ----

constexpr double kWindow = 12;  // from a quarter of the best quantity to three times it
// Of a curve; their quantities grow by equal factors, as it bends most on the left.
constexpr int kSteps = 48;

using Cost = double (CostCurve::*)(double) const;

// The curve between two quantities, and the best quantity exactly.
std::vector<Point> Sampled(const CostCurve& curve, Cost cost, double best, double from, double to)
{
    std::vector<Point> points{{from, (curve.*cost)(from)}};
    double last = from;
    const auto add = [&](double q) {
        if (q <= last || q >= to) return;
        points.push_back({q, (curve.*cost)(q)});
        last = q;
    };
    for (int step = 1; step < kSteps; ++step) {
        const double q = best / 4 * std::pow(kWindow, static_cast<double>(step) / kSteps);
        if (q > best) add(best);
        add(q);
    }
    points.push_back({to, (curve.*cost)(to)});
    return points;
}

class CostPicture {
public:
    CostPicture(const InventoryProblem& problem, const InventoryResult& result)
        : problem_(problem), result_(result), best_(result.OrderQuantity), from_(best_ / 4), to_(best_ * 3)
    {
    }

    Picture Draw()
    {
        const bool lots = IsModel(problem_, kLotSize);
        chart_.X = {.Title = lots ? "Lot size (units)" : "Order quantity (units)",
                    .From = from_,
                    .To = to_,
                    .Places = kPlaces};
        chart_.Y = {.Title = "Cost per year ($)", .From = 0, .To = 0, .Places = kPlaces};
        Notes();
        if (IsModel(problem_, kDiscounts))
            Discounts();
        else
            Curves();
        CheapBands();
        TakeHeights(chart_);
        return {.Title = "Costs", .Body = chart_, .Notes = notes_};
    }

private:
    void Notes()
    {
        const std::string total = Money(result_.TotalAnnualCost);
        notes_.push_back("The least cost, " + total + " a year, is at " + Units(best_) + " units" +
                         (IsModel(problem_, kDiscounts)
                              ? " at the price of category " + std::to_string(result_.BestCategory) + "."
                              : "."));
        if (IsModel(problem_, kShortages))
            notes_.emplace_back("Each quantity has the backorders that suit it best.");
        if (result_.SafetyStockCost > 0)
            notes_.push_back("Holding includes the safety stock, " + Money(result_.SafetyStockCost) +
                             " a year for any quantity.");
    }

    void Curve(Role role, const std::string& name, Cost cost)
    {
        chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                 .As = role,
                                 .Name = name,
                                 .Points = Sampled(CurveOf(problem_, result_), cost, best_, from_, to_),
                                 .Id = name});
    }

    void Curves()
    {
        Curve(Role::Plain, "holding", &CostCurve::HoldingAt);
        Curve(Role::Second, IsModel(problem_, kLotSize) ? "setups" : "ordering", &CostCurve::OrderingAt);
        if (IsModel(problem_, kShortages)) Curve(Role::Limit, "backorders", &CostCurve::BackorderAt);
        Curve(Role::Chosen, "total", &CostCurve::TotalAt);
        BestMark(Role::Best, Units(best_) + ": " + Money(result_.TotalAnnualCost));
    }

    void BestMark(Role role, const std::string& text)
    {
        chart_.Marks.push_back({.As = role,
                                .At = {best_, result_.TotalAnnualCost},
                                .Text = text,
                                .Tip = Units(best_) + " units: " + CostParts(),
                                .Id = "best"});
    }

    [[nodiscard]] std::string CostParts() const
    {
        std::string parts = "holding " + Money(result_.AnnualHoldingCost) + ", " + OrderWord(problem_) +
                            "s " + Money(result_.AnnualOrderingCost);
        if (IsModel(problem_, kShortages)) parts += ", backorders " + Money(result_.AnnualBackorderCost);
        if (IsModel(problem_, kDiscounts)) parts += ", purchases " + Money(result_.AnnualPurchaseCost);
        return parts + ", total " + Money(result_.TotalAnnualCost) + " a year";
    }

    // ---- discounts ----

    void Discounts()
    {
        const int count = static_cast<int>(problem_.CategoryCount.Value());
        chart_.Y.From = chart_.Y.To = result_.TotalAnnualCost;
        for (int k = 1; k <= count; ++k)
            CategoryCurve(k);
        for (int k = 1; k <= count; ++k)
            CategoryMark(k);
        for (int k = 1; k <= count; ++k)
            PriceStep(k);
        if (!InsideOwnPrice(problem_, result_.BestCategory, best_)) OutsideNote();
    }

    // Strong where the price applies, faint on both sides of it.
    void CategoryCurve(int k)
    {
        const CostCurve curve = CurveOfCategory(problem_, k);
        const std::string name = "category " + std::to_string(k);
        const std::optional<Span> price = PriceSpan(problem_, k);
        const double low = price ? std::clamp(price->From, from_, to_) : to_;
        const double high = price && price->To ? std::clamp(*price->To, from_, to_) : to_;
        const bool strong = high > low;
        if (!strong || low > from_) Piece(curve, from_, strong ? low : to_, strong ? "" : name, {});
        if (strong) Piece(curve, low, high, name, k == result_.BestCategory ? Role::Chosen : Role::Plain);
        if (strong && high < to_) Piece(curve, high, to_, "", {});
    }

    void Piece(const CostCurve& curve, double low, double high, const std::string& name,
               std::optional<Role> strong)
    {
        chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                 .As = strong.value_or(Role::Spare),
                                 .Name = name,
                                 .Points = Sampled(curve, &CostCurve::TotalAt, best_, low, high),
                                 .Thin = !strong});
    }

    void CategoryMark(int k)
    {
        const std::string text = Money(result_.CategoryTotal(k));
        const double quantity = result_.CategoryQuantity(k);
        if (k == result_.BestCategory) {
            BestMark(InsideOwnPrice(problem_, k, best_) ? Role::Best : Role::Limit, text);
        } else if (quantity >= from_ && quantity <= to_) {
            chart_.Marks.push_back({.As = Role::Plain,
                                    .At = {quantity, result_.CategoryTotal(k)},
                                    .Text = text,
                                    .Tip = "category " + std::to_string(k) + ": " + text + " a year at " +
                                           Units(quantity) + " units",
                                    .Id = "category " + std::to_string(k)});
        } else {
            notes_.push_back("Category " + std::to_string(k) + " would cost " +
                             Money(result_.CategoryTotal(k)) + " a year at " + Units(quantity) +
                             " units, outside of the picture.");
        }
    }

    void PriceStep(int k)
    {
        const double minimum = problem_.CategoryMinimum(k).Value();
        if (minimum <= from_ || minimum >= to_) return;
        chart_.Rules.push_back(
            {.Across = Direction::X,
             .As = Role::Spare,
             .Value = minimum,
             .Text = "$" + Format(problem_.CategoryUnitCost(k).Value(), "#######0.00") + " a unit"});
    }

    void OutsideNote()
    {
        const int applies = CategoryAt(problem_, best_);
        notes_.push_back(Units(best_) + " units have the price of category " + std::to_string(applies) +
                         ", not that of category " + std::to_string(result_.BestCategory) +
                         " with which the cost is reckoned.");
    }

    void CheapBands()
    {
        for (const Span& span : NearlyCheapest(problem_, result_)) {
            const double low = std::max(span.From, from_);
            const double high = span.To ? std::min(*span.To, to_) : to_;
            if (high <= low) continue;
            chart_.Bands.push_back(
                {.As = Role::Best, .Across = Direction::X, .From = low, .To = high, .Text = "within 1 %"});
            notes_.push_back("From " + Units(low) + " to " + Units(high) +
                             " units the cost is within 1 % of the least.");
        }
    }

    const InventoryProblem& problem_;
    const InventoryResult& result_;
    double best_;
    double from_;
    double to_;
    Chart chart_;
    std::vector<std::string> notes_;
};

// ---- stock ----

constexpr int kCycles = 3;

class StockPicture {
public:
    StockPicture(const InventoryProblem& problem, const InventoryResult& result)
        : problem_(problem), result_(result), cycle_(result.CycleTimeDays)
    {
        if (IsModel(problem, kShortages)) low_ = -result.MaximumBackorders;
        if (IsModel(problem, kReorderPoint)) low_ = result.SafetyStock;
        high_ = result.MaximumInventory;
        if (IsModel(problem, kLotSize))
            rise_ = cycle_ * problem.AnnualDemand.Value() / problem.ProductionRate.Value();
    }

    Picture Draw()
    {
        chart_.X = {.Title = "Time (working days)", .From = 0, .To = kCycles * cycle_, .Places = kPlaces};
        chart_.Y = {.Title = "Stock (units)", .From = 0, .To = 0, .Places = kPlaces};
        Backorders();
        Saw();
        SafetyStock();
        if (HasReorderPoint(problem_)) Reorder();
        TakeHeights(chart_);
        notes_.insert(notes_.begin(), MainNote());
        return {.Title = "Stock", .Body = chart_, .Notes = notes_};
    }

private:
    [[nodiscard]] std::string MainNote() const
    {
        std::string note = "The stock moves between " + Units(low_) + " and " + Units(high_) + " units; " +
                           (IsModel(problem_, kLotSize) ? "a lot is begun" : "an order arrives") + " every " +
                           Units(cycle_) + " working days.";
        if (IsModel(problem_, kReorderPoint)) note += " This is the course with average demand.";
        return note;
    }

    void Saw()
    {
        Series stock{.Kind = SeriesKind::Line, .As = Role::Chosen, .Name = "stock", .Id = "stock"};
        for (int cycle = 0; cycle < kCycles; ++cycle) {
            const double start = cycle * cycle_;
            if (rise_ > 0) stock.Points.push_back({start, low_});
            stock.Points.push_back({start + rise_, high_});
            stock.Points.push_back({(cycle + 1) * cycle_, low_});
        }
        chart_.Curves.push_back(stock);
        chart_.Marks.push_back({.As = Role::Chosen,
                                .At = {rise_, high_},
                                .Text = Units(high_),
                                .Tip = "highest stock " + Units(high_),
                                .Id = "highest"});
        if (low_ == 0) return;
        chart_.Marks.push_back(
            {.As = low_ < 0 ? Role::Limit : Role::Chosen,
             .At = {cycle_, low_},
             .Text = Units(low_),
             .Tip = low_ < 0 ? "backorders " + Units(-low_) : "lowest stock " + Units(low_),
             .Id = "lowest"});
    }

    void Backorders()
    {
        if (low_ >= 0) return;
        const double empty = cycle_ * high_ / (high_ - low_);  // of the cycle, when the stock is used up
        for (int cycle = 0; cycle < kCycles; ++cycle) {
            const double end = (cycle + 1) * cycle_;
            const double start = cycle * cycle_ + empty;
            chart_.Curves.push_back({.Kind = SeriesKind::Area,
                                     .As = Role::Limit,
                                     .Name = "backorders",
                                     .Points = {{start, 0}, {end, low_}, {end, 0}},
                                     .Tips = {"backorders up to " + Units(-low_)},
                                     .Hatched = true});
        }
    }

    void SafetyStock()
    {
        if (!IsModel(problem_, kReorderPoint) || low_ <= 0) return;
        chart_.Bands.push_back({.As = Role::Spare,
                                .Across = Direction::Y,
                                .From = 0.0,
                                .To = low_,
                                .Text = "safety stock " + Units(low_)});
    }

    void Reorder()
    {
        chart_.Rules.push_back({.Across = Direction::Y,
                                .As = Role::Second,
                                .Value = result_.ReorderPoint,
                                .Text = "reorder point " + Units(result_.ReorderPoint)});
        const double demand = LeadTimeDemand(problem_);
        if (demand < 0 || !std::isfinite(demand)) return;
        // A lead time of several cycles: the order for a cycle is placed in an earlier one.
        const double lead = demand / result_.OrderQuantity * cycle_;
        const double first = cycle_ - std::fmod(lead, cycle_);
        const double level = low_ + demand;
        const bool above = result_.ReorderPoint > high_;
        if (above) Position(first, level);
        for (int order = 0; order < kCycles; ++order)
            OrderMark(order, first + order * cycle_, level);
        if (above)
            notes_.emplace_back(
                "The reorder point is above the highest stock: what is in stock and on order meets it.");
        if (result_.ReorderPoint < 0)
            notes_.push_back("The reorder point is below 0: " + Units(-result_.ReorderPoint) +
                             " are short when the " + OrderWord(problem_) + " is placed.");
    }

    // What is in stock and on order falls to the reorder point and rises by the quantity.
    void Position(double first, double level)
    {
        const double quantity = result_.OrderQuantity;
        Series position{.Kind = SeriesKind::Line, .As = Role::Second, .Name = "in stock and on order"};
        position.Points.push_back({0, level + quantity * (first / cycle_)});
        for (int order = 0; order < kCycles; ++order) {
            const double time = first + order * cycle_;
            position.Points.push_back({time, level});
            position.Points.push_back({time, level + quantity});
        }
        const double last = first + (kCycles - 1) * cycle_;
        const double end = kCycles * cycle_;
        if (end > last) position.Points.push_back({end, level + quantity * (1 - (end - last) / cycle_)});
        chart_.Curves.push_back(position);
    }

    void OrderMark(int order, double time, double level)
    {
        chart_.Marks.push_back(
            {.As = Role::Second,
             .At = {time, level},
             .Text = OrderWord(problem_),
             .Tip = OrderWord(problem_) + " on day " + Units(time) + ", at " + Units(level) + " units",
             .Id = "order " + std::to_string(order + 1)});
    }

    const InventoryProblem& problem_;
    const InventoryResult& result_;
    double cycle_;
    double low_ = 0;
    double high_ = 0;
    double rise_ = 0;  // days of production in a cycle
    Chart chart_;
    std::vector<std::string> notes_;
};

// ---- demand ----

class DemandPicture {
public:
    DemandPicture(const InventoryProblem& problem, const InventoryResult& result)
        : problem_(problem), result_(result), single_(IsModel(problem, kSinglePeriod))
    {
        quantity_ = single_ ? result.OrderQuantity : result.ReorderPoint;
    }

    Picture Draw()
    {
        chart_.X.Title = single_ ? "Demand of the period (units)" : "Demand during the lead time (units)";
        chart_.X.Places = kPlaces;
        chart_.Y = {.Title = "Density", .From = 0, .To = 0};
        if (DemandIsCertain(problem_))
            Certain();
        else if (single_ && problem_.DistributionKind.Value() != kNormal)
            Uniform();
        else
            Normal();
        QuantityMark();
        TakeHeights(chart_);
        return {.Title = "Demand", .Body = chart_, .Notes = notes_};
    }

private:
    [[nodiscard]] std::string QuantityName() const { return single_ ? "order quantity" : "reorder point"; }

    void Certain()
    {
        const bool uniform = single_ && problem_.DistributionKind.Value() != kNormal;
        const double demand = uniform ? problem_.LowestDemand.Value() : problem_.MeanDemand.Value();
        const double room = std::max(1.0, std::abs(demand) / 4);
        chart_.X.From = demand - room;
        chart_.X.To = demand + room;
        chart_.Y.Title = "Chance";
        chart_.Curves.push_back({.Kind = SeriesKind::Bars,
                                 .As = Role::Chosen,
                                 .Name = "demand",
                                 .Points = {{demand, 1}},
                                 .Tips = {"demand " + Units(demand) + ", certain"}});
        notes_.push_back("The demand is " + Units(demand) + " for certain; the " + QuantityName() + " is " +
                         Units(quantity_) + ".");
    }

    void Uniform()
    {
        const double low = problem_.LowestDemand.Value();
        const double high = problem_.HighestDemand.Value();
        const double height = 1 / (high - low);
        const double room = (high - low) / 10;
        chart_.X.From = low - room;
        chart_.X.To = high + room;
        RunningOut({{quantity_, 0}, {quantity_, height}, {high, height}, {high, 0}},
                   (high - quantity_) / (high - low), 1 - result_.CriticalRatio);
        chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                 .As = Role::Plain,
                                 .Name = "demand",
                                 .Points = {{low, 0}, {low, height}, {high, height}, {high, 0}}});
    }

    void Normal()
    {
        constexpr int kPoints = 36;  // on each side of the mean, an eighth of a deviation apart
        constexpr double kPart = 8;
        const double mean = problem_.MeanDemand.Value();
        const double deviation = problem_.DemandStdDev.Value();
        const double z = (quantity_ - mean) / deviation;
        Series demand{.Kind = SeriesKind::Line, .As = Role::Plain, .Name = "demand"};
        std::vector<Point> beyond{{quantity_, 0}, {quantity_, Density(z)}};
        for (int i = -kPoints; i <= kPoints; ++i) {
            const Point point{mean + i / kPart * deviation, Density(i / kPart)};
            demand.Points.push_back(point);
            if (point.X > quantity_) beyond.push_back(point);
        }
        chart_.X.From = std::min(demand.Points.front().X, quantity_);
        chart_.X.To = std::max(demand.Points.back().X, quantity_);
        beyond.push_back({chart_.X.To, 0});
        const double asked = single_ ? 1 - result_.CriticalRatio : result_.StockoutProbability.Value();
        RunningOut(beyond, NormalTail(z), asked);
        chart_.Curves.push_back(demand);
        chart_.Rules.push_back(
            {.Across = Direction::X, .As = Role::Plain, .Value = mean, .Text = "mean " + Units(mean)});
    }

    [[nodiscard]] double Density(double z) const
    {
        constexpr double kRootOfTwoPi = 2.5066282746310002;
        return std::exp(-z * z / 2) / (kRootOfTwoPi * problem_.DemandStdDev.Value());
    }

    void RunningOut(const std::vector<Point>& area, double chance, double asked)
    {
        const std::string told = picture::Chance(chance, 4);
        chart_.Curves.push_back({.Kind = SeriesKind::Area,
                                 .As = Role::Limit,
                                 .Name = "runs out: " + told,
                                 .Points = area,
                                 .Tips = {"chance of running out " + told},
                                 .Id = "runs out",
                                 .Hatched = true});
        notes_.push_back("The demand is above the " + QuantityName() + " of " + Units(quantity_) +
                         " with a chance of " + told + ".");
        if (told != picture::Chance(asked, 4))
            notes_.push_back("The chance asked for is " + picture::Chance(asked, 4) + "; the factor of " +
                             Format(result_.Lookup.Z, "0.00") +
                             " deviations comes from the table of normal areas.");
    }

    void QuantityMark()
    {
        Take(chart_.X, quantity_);
        chart_.Rules.push_back({.Across = Direction::X,
                                .As = Role::Chosen,
                                .Value = quantity_,
                                .Text = QuantityName() + " " + Units(quantity_)});
        chart_.Marks.push_back({.As = Role::Best,
                                .At = {quantity_, 0},
                                .Text = "",
                                .Tip = QuantityName() + " " + Units(quantity_),
                                .Id = "quantity"});
    }

    const InventoryProblem& problem_;
    const InventoryResult& result_;
    bool single_;
    double quantity_ = 0;
    Chart chart_;
    std::vector<std::string> notes_;
};

// A file may bring rates and costs below 0, of which no form would make a policy.
bool HasCycles(const InventoryProblem& problem, const InventoryResult& result)
{
    const double quantity = result.OrderQuantity;
    if (!(quantity > 0) || !(result.CycleTimeDays > 0)) return false;
    if (IsModel(problem, kLotSize) && problem.ProductionRate.Value() <= problem.AnnualDemand.Value())
        return false;
    return result.MaximumBackorders >= 0 && result.MaximumBackorders <= quantity;
}

}  // namespace

std::vector<Picture> Pictures(const InventoryProblem& problem, const InventoryResult& result)
{
    if (!result.Solved) return {};
    std::vector<Picture> pictures;
    if (!IsModel(problem, kSinglePeriod) && HasCycles(problem, result)) {
        pictures.push_back(CostPicture(problem, result).Draw());
        pictures.push_back(StockPicture(problem, result).Draw());
    }
    if (IsModel(problem, kReorderPoint) || IsModel(problem, kSinglePeriod))
        pictures.push_back(DemandPicture(problem, result).Draw());
    return pictures;
}

}  // namespace VtInvent
