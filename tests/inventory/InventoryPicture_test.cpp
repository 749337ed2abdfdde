// Pictures of policies, held against the cost formulas, a walk through the stock day by day, and the normal
// distribution integrated by sums.
#include "inventory/InventoryPicture.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <random>

#include "inventory/InventoryCosts.h"
#include "inventory/InventoryMeaning.h"
#include "inventory/InventorySteps.h"
#include "inventory/problems.h"
#include "picture/words.h"
#include "support/beside.h"

using picture::Chart;
using picture::Direction;
using picture::Picture;
using picture::Point;
using picture::Series;
using testing::ElementsAre;
using testing::HasSubstr;
using VtInvent::Problem;
using VtInvent::Result;

namespace {

std::vector<Picture> Solved()
{
    VtInvent::SolveProblem();
    return VtInvent::Pictures(Problem, Result);
}

const Chart& ChartOf(const Picture& picture)
{
    return std::get<Chart>(picture.Body);
}

const Series* Find(const Chart& chart, const std::string& name)
{
    for (const Series& series : chart.Curves)
        if (series.Name == name) return &series;
    return nullptr;
}

const picture::Mark* FindMark(const Chart& chart, const std::string& id)
{
    for (const picture::Mark& mark : chart.Marks)
        if (mark.Id == id) return &mark;
    return nullptr;
}

void ExpectCurve(const Chart& chart, const std::string& name, const std::function<double(double)>& cost)
{
    const Series* series = Find(chart, name);
    ASSERT_NE(series, nullptr) << name;
    for (const Point& point : series->Points)
        EXPECT_NEAR(point.Y, cost(point.X), 1e-9 * (1 + std::abs(point.Y))) << name << " at " << point.X;
}

// The area beyond z by sums of thin bars.
double Tail(double z)
{
    constexpr double kWidth = 1e-4;
    double sum = 0;
    double x = z + kWidth / 2;
    while (x < 9) {
        sum += std::exp(-x * x / 2) * kWidth;
        x += kWidth;
    }
    return sum / std::sqrt(2 * std::acos(-1.0));
}

bool Inside(const Chart& chart, const Point& point)
{
    const double roomX = 1e-9 * (1 + std::abs(chart.X.To));
    const double roomY = 1e-9 * (1 + std::abs(chart.Y.To));
    return std::isfinite(point.X) && std::isfinite(point.Y) && point.X >= chart.X.From - roomX &&
           point.X <= chart.X.To + roomX && point.Y >= chart.Y.From - roomY && point.Y <= chart.Y.To + roomY;
}

void ExpectAllInside(const Chart& chart)
{
    EXPECT_LT(chart.X.From, chart.X.To);
    EXPECT_LT(chart.Y.From, chart.Y.To);
    for (const Series& series : chart.Curves) {
        for (const Point& point : series.Points)
            EXPECT_TRUE(Inside(chart, point)) << series.Name << " " << point.X << "," << point.Y;
        EXPECT_TRUE(series.Tips.empty() || series.Kind == picture::SeriesKind::Area ||
                    series.Tips.size() == series.Points.size());
    }
    for (const picture::Mark& mark : chart.Marks)
        EXPECT_TRUE(Inside(chart, mark.At)) << mark.Id << " " << mark.At.X << "," << mark.At.Y;
    for (const picture::Rule& rule : chart.Rules)
        EXPECT_TRUE(Inside(chart, rule.Across == Direction::X ? Point{rule.Value, chart.Y.From}
                                                              : Point{chart.X.From, rule.Value}))
            << rule.Text;
    for (const picture::Band& band : chart.Bands)
        EXPECT_LT(*band.From, *band.To);
}

}  // namespace

TEST(InventoryPictures, EachModelHasItsOwn)
{
    GivenModel(VtInvent::kOrderQuantity);
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Costs", "Stock"));
    GivenDiscounts({}, 20, {{5, 0}});
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Costs", "Stock"));
    GivenService({}, 100, 10);
    GivenStockoutProbability(0.05);
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Costs", "Stock", "Demand"));
    GivenSinglePeriod(1, 3);
    GivenUniform(0, 100);
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Demand"));
    VtInvent::MakeArrays();
    EXPECT_TRUE(Solved().empty());
}

TEST(InventoryPictures, CostsFollowTheirFormulas)
{
    GivenModel(VtInvent::kOrderQuantity);
    const auto pictures = Solved();
    const Chart& chart = ChartOf(pictures[0]);
    ExpectCurve(chart, "holding", [](double q) { return 5 * q / 2; });
    ExpectCurve(chart, "ordering", [](double q) { return 32 * 1000 / q; });
    ExpectCurve(chart, "total", [](double q) { return 5 * q / 2 + 32 * 1000 / q; });
    const double best = std::sqrt(12800.0);
    EXPECT_NEAR(chart.X.From, best / 4, 1e-9);
    EXPECT_NEAR(chart.X.To, best * 3, 1e-9);
    EXPECT_NEAR(FindMark(chart, "best")->At.X, best, 1e-9);
    EXPECT_NEAR(FindMark(chart, "best")->At.Y, 5 * best, 1e-9);
    EXPECT_EQ(pictures[0].Notes[0], "The least cost, $565.69 a year, is at 113.14 units.");
}

// (x + 1 / x) / 2 = 1.01 has the roots 0.86823 and 1.15177.
TEST(InventoryPictures, TheBandEndsWhereTheCostIsAHundredthHigher)
{
    GivenModel(VtInvent::kOrderQuantity, {12000, 12, 1.2, 250});
    const auto pictures = Solved();
    const auto& band = ChartOf(pictures[0]).Bands.at(0);
    EXPECT_NEAR(*band.From, 425.34, 0.005);
    EXPECT_NEAR(*band.To, 564.25, 0.005);
}

TEST(InventoryPictures, LotsRiseWhileTheyAreMade)
{
    GivenModel(VtInvent::kLotSize);
    Problem.ProductionRate = 4000;
    const auto pictures = Solved();
    ExpectCurve(ChartOf(pictures[0]), "setups", [](double q) { return 32 * 1000 / q; });
    ExpectCurve(ChartOf(pictures[0]), "holding", [](double q) { return 5 * 0.75 * q / 2; });
    const Series* stock = Find(ChartOf(pictures[1]), "stock");
    ASSERT_EQ(stock->Points.size(), 9U);
    // A lot takes Q / 4000 of a year of 250 days, and a quarter of it is used meanwhile.
    EXPECT_NEAR(stock->Points[1].X, Result.OrderQuantity / 4000 * 250, 1e-9);
    EXPECT_NEAR(stock->Points[1].Y, Result.OrderQuantity * 0.75, 1e-9);
    EXPECT_EQ(stock->Points[2].Y, 0);
    EXPECT_NEAR(stock->Points[8].X, 3 * Result.CycleTimeDays, 1e-9);
}

TEST(InventoryPictures, ShortagesLieBelowZero)
{
    GivenModel(VtInvent::kShortages, {100, 1, 1, 250});
    Problem.BackorderCost = 4;
    GivenLeadTime(0);
    const auto pictures = Solved();
    // Of each quantity a fifth is backordered: S = Ch / (Ch + Cb) Q.
    ExpectCurve(ChartOf(pictures[0]), "holding", [](double q) { return 0.8 * q * 0.8 / 2; });
    ExpectCurve(ChartOf(pictures[0]), "backorders", [](double q) { return 4 * 0.2 * q * 0.2 / 2; });
    const Chart& stock = ChartOf(pictures[1]);
    const Series* area = Find(stock, "backorders");
    ASSERT_EQ(area->Points.size(), 3U);
    EXPECT_TRUE(area->Hatched);
    EXPECT_NEAR(area->Points[0].X, 0.8 * Result.CycleTimeDays, 1e-9);
    EXPECT_NEAR(area->Points[1].Y, -0.2 * Result.OrderQuantity, 1e-9);
    EXPECT_LE(stock.Y.From, Result.ReorderPoint);
    EXPECT_THAT(pictures[1].Notes.back(), HasSubstr("below 0"));
}

TEST(InventoryPictures, WithoutAReorderPointThereIsNoRule)
{
    GivenModel(VtInvent::kOrderQuantity);
    EXPECT_TRUE(ChartOf(Solved()[1]).Rules.empty());
    GivenLeadTime(5);
    const auto pictures = Solved();
    ASSERT_EQ(ChartOf(pictures[1]).Rules.size(), 1U);
    EXPECT_EQ(ChartOf(pictures[1]).Rules[0].Value, 20);  // 5 of 250 days of 1000 a year
}

// Day by day: what is on the shelf, plus what was ordered and has not come, meets the reorder point when an
// order is placed. 20 a day, an order of 100 every 5 days, 12 days of lead time.
TEST(InventoryPictures, APointAboveTheStockIsMetByWhatIsOnOrder)
{
    GivenModel(VtInvent::kOrderQuantity, {5000, 2, 2, 250});
    GivenLeadTime(12);
    const auto pictures = Solved();
    ASSERT_EQ(Result.OrderQuantity, 100);
    const Chart& chart = ChartOf(pictures[1]);
    const Series* position = Find(chart, "in stock and on order");
    ASSERT_NE(position, nullptr);
    for (const Point& point : position->Points) {
        if (point.X == 0 || point.X == 15) continue;
        EXPECT_NEAR(std::fmod(point.X, 5), 3, 1e-9);  // 12 days before a cycle's end
        EXPECT_TRUE(std::abs(point.Y - 240) < 1e-9 || std::abs(point.Y - 340) < 1e-9) << point.Y;
    }
    EXPECT_NEAR(position->Points.front().Y, 300, 1e-9);
    EXPECT_NEAR(position->Points.back().Y, 300, 1e-9);
    EXPECT_NEAR(FindMark(chart, "order 2")->At.X, 8, 1e-9);

    GivenLeadTime(5);  // the point is the highest stock itself
    EXPECT_EQ(Find(ChartOf(Solved()[1]), "in stock and on order"), nullptr);
}

TEST(InventoryPictures, DiscountsStandInTheirPieces)
{
    // At 5.00 the best is 100, at 4.50 the minimum of 150.
    GivenDiscounts({1000, 5, 0, 250}, 20, {{5, 0}, {4.5, 150}});
    const auto pictures = Solved();
    const Chart& chart = ChartOf(pictures[0]);
    ASSERT_EQ(Result.BestCategory, 2);
    const Series* first = Find(chart, "category 1");
    const Series* second = Find(chart, "category 2");
    EXPECT_EQ(first->Points.back().X, 150);
    EXPECT_EQ(second->Points.front().X, 150);
    EXPECT_EQ(second->As, picture::Role::Chosen);
    EXPECT_FALSE(first->Thin);
    ExpectCurve(chart, "category 1", [](double q) { return 5000 + q / 2 + 5000 / q; });
    ExpectCurve(chart, "category 2", [](double q) { return 4500 + 0.9 * q / 2 + 5000 / q; });
    EXPECT_EQ(chart.Curves.size(), 4U);  // two pieces each
    ASSERT_EQ(chart.Rules.size(), 1U);
    EXPECT_EQ(chart.Rules[0].Value, 150);
    EXPECT_EQ(FindMark(chart, "best")->At.X, 150);
    EXPECT_EQ(FindMark(chart, "category 1")->At.X, 100);
}

TEST(InventoryPictures, AQuantityOutsideOfItsOwnPieceIsTold)
{
    // The cheaper price has no minimum worth the name, but the dearer one begins at 50: 100 would be paid
    // dearly.
    GivenDiscounts({1000, 5, 0, 250}, 20, {{5, 0}, {6, 50}});
    const auto pictures = Solved();
    ASSERT_EQ(Result.BestCategory, 1);
    EXPECT_EQ(FindMark(ChartOf(pictures[0]), "best")->As, picture::Role::Limit);
    EXPECT_THAT(pictures[0].Notes, testing::Contains(HasSubstr("have the price of category 2, not that of")));
}

TEST(InventoryPictures, EqualMinimumsLeaveAPieceToTheLaterCategory)
{
    GivenDiscounts({1000, 5, 0, 250}, 20, {{5, 0}, {4, 0}});
    Solved();
    EXPECT_FALSE(VtInvent::PriceSpan(Problem, 1));
    EXPECT_TRUE(VtInvent::InsideOwnPrice(Problem, 2, 10));
    EXPECT_EQ(VtInvent::CategoryAt(Problem, 10), 2);
}

TEST(InventoryPictures, SafetyStockIsABandBelowTheSaw)
{
    GivenService({12000, 12, 1.2, 250}, 154, 25);
    GivenStockoutProbability(0.05);
    const auto pictures = Solved();
    const Chart& stock = ChartOf(pictures[1]);
    ASSERT_EQ(stock.Bands.size(), 1U);
    EXPECT_EQ(*stock.Bands[0].To, Result.SafetyStock);
    EXPECT_NEAR(FindMark(stock, "order 1")->At.Y, Result.ReorderPoint, 1e-9);
    const Chart& demand = ChartOf(pictures[2]);
    const Series* area = nullptr;
    for (const Series& series : demand.Curves)
        if (series.Hatched) area = &series;
    ASSERT_NE(area, nullptr);
    const double z = (Result.ReorderPoint - 154) / 25;
    EXPECT_EQ(area->Name, "runs out: " + VtInvent::Probability(Tail(z)));
    EXPECT_EQ(area->Points.front().X, Result.ReorderPoint);
    ExpectCurve(demand, "demand", [](double x) {
        const double distance = (x - 154) / 25;
        return std::exp(-distance * distance / 2) / (25 * std::sqrt(2 * std::acos(-1.0)));
    });
    EXPECT_THAT(pictures[2].Notes.back(), HasSubstr("asked for is 0.0500"));
}

TEST(InventoryPictures, AUniformDemandHasTheChanceThatWasAskedFor)
{
    GivenSinglePeriod(1, 3);
    GivenUniform(0, 100);
    const auto pictures = Solved();
    EXPECT_THAT(pictures[0].Notes,
                ElementsAre("The demand is above the order quantity of 75.00 with a chance of 0.2500."));
}

TEST(InventoryPictures, ACertainDemandIsASingleBar)
{
    GivenSinglePeriod(1, 3);
    GivenNormal(60, 0);
    const auto pictures = Solved();
    const Chart& chart = ChartOf(pictures[0]);
    ASSERT_EQ(chart.Curves.size(), 1U);
    EXPECT_EQ(chart.Curves[0].Points[0].X, 60);
    EXPECT_EQ(chart.Curves[0].Points[0].Y, 1);
}

// ---- at random ----

namespace {

class AnyProblem {
public:
    explicit AnyProblem(unsigned seed) : random_(seed) {}

    void Give()
    {
        const int model = Whole(1, 6);
        const Demand demand{Size(), Size(), Size(), static_cast<double>(Whole(1, 366))};
        if (model == VtInvent::kSinglePeriod) return GiveSinglePeriod();
        if (model == VtInvent::kReorderPoint) return GiveService(demand);
        if (model == VtInvent::kDiscounts)
            GiveDiscounts(demand);
        else
            GivenModel(model, demand);
        Problem.ProductionRate = demand.Annual * (1 + Size());
        Problem.BackorderCost = Size();
        if (Whole(0, 1) == 1) GivenLeadTime(Whole(0, 3) == 0 ? 0 : Size());
    }

private:
    int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    // From a hundredth to a million.
    double Size() { return std::pow(10.0, std::uniform_real_distribution<double>(-2, 6)(random_)); }

    void GiveSinglePeriod()
    {
        GivenSinglePeriod(Size(), Size());
        const double mean = Size();
        if (Whole(0, 1) == 1)
            GivenUniform(mean, mean + (Whole(0, 4) == 0 ? 0 : Size()));
        else
            GivenNormal(mean, Whole(0, 4) == 0 ? 0 : Size());
    }

    void GiveService(const Demand& demand)
    {
        GivenService(demand, Whole(0, 4) == 0 ? 0 : Size(), Whole(0, 4) == 0 ? 0 : Size());
        if (Whole(0, 1) == 1)
            GivenStockoutProbability(std::uniform_real_distribution<double>(0, 0.5)(random_));
        else
            GivenAllowedStockouts(Whole(0, 4) == 0 ? 0 : Size());
    }

    void GiveDiscounts(const Demand& demand)
    {
        std::vector<Category> categories;
        for (int k = Whole(1, 5); k > 0; --k)
            categories.push_back({Size() / 1000, Whole(0, 3) == 0 ? 0 : Size()});
        GivenDiscounts(demand, Size() / 1000, categories);
    }

    std::mt19937 random_;
};

}  // namespace

// The forms take no such values, but a file brings them as they are.
TEST(InventoryPictures, ValuesThatNoFormTakesGiveNoCurves)
{
    GivenModel(VtInvent::kLotSize);
    Problem.ProductionRate = -4000;
    EXPECT_TRUE(Solved().empty());
    GivenService({1000, 32, 5, 0}, 100, 10);  // a year without working days
    GivenStockoutProbability(0.1);
    EXPECT_THAT(TitlesOf(Solved()), ElementsAre("Demand"));
    GivenModel(VtInvent::kOrderQuantity, {-1000, 32, -5, 250});
    EXPECT_TRUE(Solved().empty());
}

TEST(InventoryPictures, AreMadeOfEveryProblem)
{
    AnyProblem any(14);
    int made = 0;
    for (int round = 0; round < 500; ++round) {
        any.Give();
        try {
            VtInvent::SolveProblem();
        } catch (const RuntimeError&) {
            EXPECT_FALSE(Result.Solved);
        }
        const auto pictures = VtInvent::Pictures(Problem, Result);
        for (const Picture& picture : pictures) {
            ++made;
            ExpectAllInside(ChartOf(picture));
            ASSERT_FALSE(picture.Notes.empty());
            EXPECT_FALSE(picture::Listing(picture, 1, 1).empty());
        }
        EXPECT_EQ(VtInvent::Steps(Problem, Result).empty(), !Result.Solved);
        EXPECT_EQ(VtInvent::Meaning(Problem, Result).empty(), !Result.Solved);
        EXPECT_LE(VtInvent::Meaning(Problem, Result).size(), 12U);
        if (HasFailure()) FAIL() << "round " << round << ", model " << Problem.ModelKind;
    }
    EXPECT_GT(made, 700);
}
