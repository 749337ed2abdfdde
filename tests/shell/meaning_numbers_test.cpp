// Every number in a sentence of the meaning stands in the report or in the data, is a small count or the
// number of a thing, or is derived by one of the rules below, which reckon it again.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <optional>
#include <random>
#include <regex>
#include <set>
#include <utility>

#include "basic/format.h"
#include "basic/records.h"
#include "decision/VtDecisionAnalysis.h"
#include "desktop/desktop.h"
#include "forecasting/VtForecasting.h"
#include "inventory/VtInvent.h"
#include "lp/LP_Engine.h"
#include "markov/Markov.h"
#include "project/VtPert_CPM.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/answers.h"
#include "support/fake_desktop.h"
#include "support/report_lines.h"
#include "tableau/TableauPlan.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"
#include "waiting/LineFacts.h"

namespace {

using Numbers = std::vector<double>;

constexpr int kSmall = 200;  // counts and numbers of things; steps of a chain

// "1,234.50", ".75", "$3.00", "40 %": the numbers of a text. A digit behind a letter belongs to a name.
Numbers NumbersOf(const std::string& text)
{
    static const std::regex kNumber(R"((^|[^A-Za-z0-9_.])(\d[\d,]*(\.\d+)?|\.\d+))");
    Numbers numbers;
    for (std::sregex_iterator at(text.begin(), text.end(), kNumber), end; at != end; ++at) {
        std::string digits = (*at)[2].str();
        digits.erase(std::remove(digits.begin(), digits.end(), ','), digits.end());
        numbers.push_back(std::stod(digits));
    }
    return numbers;
}

bool Same(double p, double q)
{
    return std::abs(p - q) <= 1e-9 * (1 + std::abs(p));
}

bool IsAmong(const Numbers& numbers, double value)
{
    return std::any_of(numbers.begin(), numbers.end(),
                       [value](double number) { return Same(number, value); });
}

// ---- problems ----

class Draws {
public:
    int Whole(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random_); }
    bool Chance(int of) { return Whole(1, of) == 1; }

private:
    std::mt19937 random_{15};
};

using Lines = std::vector<std::string>;

std::string Text(double value)
{
    return PlainText(value);
}

std::string Joined(const Lines& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

std::string Fields(const Lines& fields)
{
    std::string line;
    for (const std::string& field : fields)
        line += (line.empty() ? "" : ",") + field;
    return line;
}

std::string Program(Draws& draws)
{
    const int rows = draws.Whole(1, 4);
    const int columns = draws.Whole(1, 4);
    const bool minimize = draws.Chance(2);
    const auto expression = [&](int least) {
        std::string text;
        for (int j = 1; j <= columns; ++j)
            text += (j > 1 ? "+" : "") + std::to_string(draws.Whole(least, 12)) + "X" + std::to_string(j);
        return text;
    };
    Lines lines{std::to_string(rows + 1), (minimize ? "\"MIN " : "\"MAX ") + expression(1) + "\""};
    for (int i = 0; i < rows; ++i)
        lines.push_back("\"" + expression(1) +
                        (minimize          ? ">"
                         : draws.Chance(4) ? "="
                                           : "<") +
                        std::to_string(draws.Whole(5, 60)) + "\"");
    return Joined(lines);
}

std::string Tableau(Draws& draws, bool withAmounts)
{
    const int rows = draws.Whole(1, 5);
    const int columns = draws.Whole(1, 5);
    Lines lines{"1," + std::to_string(rows) + "," + std::to_string(columns)};
    for (int k = 0; k < rows * columns; ++k)
        lines.push_back(Text(draws.Whole(0, 99) / 10.0));
    for (int k = 0; withAmounts && k < rows + columns; ++k)
        lines.push_back(std::to_string(draws.Whole(0, 40)));
    return Joined(lines);
}

std::string Network(Draws& draws)
{
    const int nodes = draws.Whole(2, 7);
    const int arcs = draws.Whole(nodes - 1, 2 * nodes);
    Lines lines{"1," + std::to_string(nodes) + "," + std::to_string(arcs)};
    for (int k = 1; k <= arcs; ++k) {
        const int from = k < nodes ? k + 1 : draws.Whole(2, nodes);
        lines.push_back(std::to_string(from));
        lines.push_back(std::to_string(draws.Whole(1, from - 1)));
        lines.push_back(Text(draws.Whole(1, 99) / 10.0));
    }
    return Joined(lines);
}

std::string Project(Draws& draws)
{
    const int count = draws.Whole(1, 8);
    const bool known = draws.Chance(2);
    Lines lines{"0,0," + std::to_string(count) + (known ? ",1" : ",2")};
    Lines predecessors;
    for (int i = 1; i <= count; ++i) {
        int waits = 0;
        for (int p = 1; p < i; ++p)
            if (draws.Chance(3)) {
                predecessors.push_back(std::to_string(p));
                ++waits;
            }
        lines.push_back((known ? std::to_string(draws.Whole(0, 9)) : "0") + "," + std::to_string(waits));
    }
    lines.insert(lines.end(), predecessors.begin(), predecessors.end());
    for (int i = 1; !known && i <= count; ++i) {
        const int least = draws.Whole(1, 9);
        lines.push_back(std::to_string(least) + "," + std::to_string(least + draws.Whole(0, 3)));
        lines.push_back(std::to_string(least + draws.Whole(3, 9)) + ",0");
    }
    return Joined(lines);
}

std::string Both(double value)
{
    return Text(value) + ",\"" + Text(value) + "\"";
}

std::string Inventory(Draws& draws)
{
    const int model = draws.Whole(1, 6);
    const int categories = model == 4 ? draws.Whole(1, 3) : 0;
    const auto amount = [&](int least, int most) { return Both(draws.Whole(least, most)); };
    Lines lines{
        Fields({std::to_string(model), amount(500, 9000), amount(5, 90), amount(1, 9), amount(10, 30),
                Both(0), amount(1, 20), Both(250), amount(0, 60), amount(100, 200)}),
        Fields({amount(0, 30), Both(2), Both(draws.Whole(1, 50) / 100.0), Both(0), amount(9001, 20000),
                "0,\"\"", "0", "0", draws.Chance(2) ? "1" : "0", Both(categories), amount(1, 20),
                std::to_string(draws.Whole(1, 2)) + ",\"\"", amount(0, 100), amount(101, 300)})};
    for (int k = 0; k < categories; ++k)
        lines.push_back(Both(9 - 0.25 * k) + "," + Both(k * draws.Whole(1, 900)));
    // The holding cost under the amount method stands in its own text.
    return Joined(lines);
}

std::string Line(Draws& draws)
{
    const int model = draws.Whole(1, 5);
    const int channels = model == 2 || model == 3 ? 1 : draws.Whole(1, 6);
    const int services = draws.Whole(2, 20);
    const int most = model == 5 ? 3 : channels * services - 1;
    const bool economic = draws.Chance(2);
    return Fields({std::to_string(model), std::to_string(channels), std::to_string(draws.Whole(1, most)),
                   std::to_string(services), std::to_string(draws.Whole(1, 12)),
                   Text(draws.Whole(0, 9) / 10.0), economic ? "\"YES\"" : "\"NO\"",
                   std::to_string(draws.Whole(1, 50)), std::to_string(draws.Whole(1, 50)), "\"\"", "\"\"",
                   "\"\"", "\"\"", "\"\"", "\"\""}) +
           "\r\n";
}

std::string Decisions(Draws& draws)
{
    const int states = draws.Whole(1, 4);
    const int alternatives = draws.Whole(1, 4);
    const bool chances = draws.Chance(2);
    const bool sample = chances && draws.Chance(2);
    Lines lines{Fields({"0", std::to_string(states), std::to_string(alternatives), chances ? "1" : "0",
                        sample ? "1" : "0", chances ? "\"YES\"" : "\"NO\"", sample ? "\"YES\"" : "\"NO\""})};
    const auto spread = [&](int count) {
        int left = 100;
        for (int k = 1; k <= count; ++k) {
            const int part = k == count ? left : draws.Whole(0, left);
            lines.push_back(Text(part / 100.0));
            left -= part;
        }
    };
    for (int k = 0; k < states * alternatives; ++k)
        lines.push_back(std::to_string(draws.Whole(-50, 99)));
    if (chances) spread(states);
    if (!sample) return Joined(lines);
    const int outcomes = draws.Whole(2, 3);
    lines.push_back("1," + std::to_string(outcomes));
    for (int j = 0; j < states; ++j)
        spread(outcomes);
    return Joined(lines);
}

std::string Series(Draws& draws)
{
    const int count = draws.Whole(9, 24);
    Lines lines{std::to_string(count) + ",1"};
    for (int t = 0; t < count; ++t)
        lines.push_back(Text(draws.Whole(10, 999) / 10.0));
    return Joined(lines);
}

std::string Chain(Draws& draws)
{
    const int states = draws.Whole(1, 6);
    Lines lines{std::to_string(states)};
    for (int i = 0; i < states; ++i) {
        const bool absorbs = draws.Chance(5);
        int left = 100;
        for (int j = 0; j < states; ++j) {
            const int part = absorbs ? (i == j ? 100 : 0) : j + 1 == states ? left : draws.Whole(0, left);
            lines.push_back(Text(part / 100.0));
            left -= part;
        }
    }
    return Joined(lines);
}

std::string ProblemOf(int module, Draws& draws)
{
    switch (module) {
        case 1:
        case 4:
            return Program(draws);
        case 2:
        case 3:
            return Tableau(draws, module == 2);
        case 5:
        case 6:
            return Network(draws);
        case 7:
            return Project(draws);
        case 8:
            return Inventory(draws);
        case 9:
            return Line(draws);
        case 10:
            return Decisions(draws);
        case 11:
            return Series(draws);
        default:
            return Chain(draws);
    }
}

// ---- rules ----

// Numbers that a sentence may hold besides those of report and data, reckoned from problem and result by
// formulas of its own or by another solve.
struct Rule {
    const char* Name;
    const char* Sentence;  // a regular expression for a part of it
    std::function<Numbers(const std::string& sentence, const Numbers& known)> Derived;
};

// A printed number is near the exact one by half of its last place.
Numbers Printed(const Numbers& values, int places)
{
    Numbers printed;
    const double scale = std::pow(10.0, places);
    for (const double value : values)
        for (const double nudge : {-1e-9, 1e-9})
            printed.push_back(std::round((std::abs(value) + nudge) * scale) / scale);
    return printed;
}

// The point of a printed chance is moved by two places.
Numbers InPercent(double chance)
{
    Numbers percent;
    for (const double printed : Printed({chance}, 4))
        for (const double moved : Printed({100 * printed}, 2))
            percent.push_back(moved);
    return percent;
}

Numbers Differences(const Numbers& known)
{
    const std::set<double> distinct(known.begin(), known.end());
    Numbers differences;
    for (const double p : distinct)
        for (const double q : distinct)
            if (p > q) differences.push_back(p - q);
    return Printed(differences, 4);
}

// ---- linear and integer programs ----

// Whoever presses Escape does so during a search: what is asked for here is solved to its end.
Numbers ValueOfTheRelaxation()
{
    auto& screen = dynamic_cast<FakeScreen&>(desktop::TheScreen());
    const bool pressed = std::exchange(screen.escapePressed, false);
    const LP_Engine::LpResult& result = LP_Engine::Result;
    const LP_Engine::LpResult linear = LP_Engine::Solve(result.Problem, result.Minimize, false);
    screen.escapePressed = pressed;
    return Printed({linear.ObjectiveValue}, 3);
}

// ---- transportation ----

// How far the cost of a route has to fall before the total does.
Numbers FallOfTheNearestRoute(const std::string& sentence)
{
    const Numbers route = NumbersOf(sentence);
    Tableau::TableauProblem problem = Tableau::Problem;
    const auto total = [](const Tableau::TableauProblem& given) {
        return Tableau::TotalOf(given, Tableau::TaSolve(given, false));
    };
    const double present = total(problem);
    const int arc =
        (static_cast<int>(route.at(0)) - 1) * problem.NumDestinations + static_cast<int>(route.at(1));
    const double cost = problem.ArcCost(arc).Value();
    for (int tenths = 1; tenths < 400; ++tenths) {
        problem.ArcCost(arc) = std::round(cost * 10 - tenths) / 10;
        if (total(problem) < present - 1e-9) return {(tenths - 1) / 10.0};
    }
    return {};
}

// ---- projects ----

Numbers Chances95()
{
    const auto& result = VtPert_CPM::Result;
    return Printed({0.5, 0.95, result.RoundedProjectTime + 1.6449 * std::sqrt(result.RoundedProjectVariance)},
                   2);
}

// "A-C-G": the times of these.
Numbers LengthOfThePath()
{
    double sum = 0;
    for (const char letter : VtPert_CPM::Result.PathText)
        if (letter != '-') sum += VtPert_CPM::Problem.ActivityTime(letter - 'A' + 1).Value();
    Numbers lengths = Printed({sum}, 2);
    for (const int places : {0, 1})
        for (const double length : Printed({sum}, places))
            lengths.push_back(length);
    return lengths;
}

// ---- inventory ----

double Tail(double z)
{
    return 0.5 * std::erfc(z / std::sqrt(2.0));
}

// Holding and ordering at x times the quantity are (x + 1 / x) / 2 of what they are; 1 % more in all.
Numbers EndsOfTheFlatPart()
{
    const VtInvent::InventoryProblem& p = VtInvent::Problem;
    const VtInvent::InventoryResult& r = VtInvent::Result;
    const double fixed = r.AnnualPurchaseCost + r.SafetyStockCost;
    const double rising = r.AnnualHoldingCost + r.AnnualBackorderCost - r.SafetyStockCost;
    const double room = 1.01 * r.TotalAnnualCost - fixed;
    const double root = std::sqrt(room * room - 4 * rising * r.AnnualOrderingCost);
    Numbers ends{r.OrderQuantity * (room - root) / (2 * rising),
                 r.OrderQuantity * (room + root) / (2 * rising)};
    for (int k = 1; k <= static_cast<int>(p.CategoryCount.Value()); ++k)
        ends.push_back(p.CategoryMinimum(k).Value());
    return Printed(ends, 2);
}

Numbers QuantityWithoutItsMinimum()
{
    const VtInvent::InventoryProblem& p = VtInvent::Problem;
    const double holding =
        p.CarryingPercent.Value() / 100 * p.CategoryUnitCost(VtInvent::Result.BestCategory).Value();
    return Printed({std::sqrt(2 * p.AnnualDemand.Value() * p.OrderCost.Value() / holding)}, 2);
}

// Every category on its own: the quantity, and what it costs more than the chosen one.
Numbers OtherCategories()
{
    const VtInvent::InventoryProblem& p = VtInvent::Problem;
    const double demand = p.AnnualDemand.Value();
    Numbers numbers;
    for (int k = 1; k <= static_cast<int>(p.CategoryCount.Value()); ++k) {
        const double price = p.CategoryUnitCost(k).Value();
        const double holding = p.CarryingPercent.Value() / 100 * price;
        const double quantity =
            std::max(std::sqrt(2 * demand * p.OrderCost.Value() / holding), p.CategoryMinimum(k).Value());
        const double total =
            demand * price + holding * quantity / 2 + p.OrderCost.Value() * demand / quantity;
        numbers.push_back(quantity);
        numbers.push_back(total - VtInvent::Result.TotalAnnualCost);
    }
    return Printed(numbers, 2);
}

Numbers ChancesOfRunningOut()
{
    const VtInvent::InventoryProblem& p = VtInvent::Problem;
    const VtInvent::InventoryResult& r = VtInvent::Result;
    const double z = r.Lookup.Z;
    const double over = p.OrderCost.Value() / (p.OrderCost.Value() + p.UnderCost.Value());
    const double deviation = p.DemandStdDev.Value();
    const double below = deviation > 0 ? Tail(p.MeanDemand.Value() / deviation) : 0;
    Numbers chances =
        Printed({Tail(z), 1 - Tail(z), over, 1 - over, below, r.StockoutProbability.Value()}, 4);
    for (const Numbers& more : {InPercent(Tail(z)), Printed({Tail(z) * r.OrdersPerYear}, 2)})
        chances.insert(chances.end(), more.begin(), more.end());
    return chances;
}

// ---- waiting lines ----

Numbers FiguresOf(const std::optional<VtWait::WaitingResult>& line)
{
    if (!line) return {};
    return Printed({line->TimeInLine, line->ProbabilityWait}, 4);
}

Numbers BusyShare()
{
    const VtWait::WaitingResult& r = VtWait::Result;
    const double share = (r.UnitsInSystem - r.UnitsInLine) / VtWait::Problem.Channels.Value();
    Numbers shares = InPercent(share);
    for (const double printed : Printed({share, 0.01}, 4))
        shares.push_back(printed);
    return shares;
}

Numbers LostUnits()
{
    return Printed({VtWait::Problem.ArrivalRate.Value() * VtWait::Result.ProbabilityWait, 0.0001}, 4);
}

// Half of r squared over 1 - r.
Numbers LineOfConstantService()
{
    const double r = VtWait::Problem.ArrivalRate.Value() / VtWait::Problem.ServiceRate.Value();
    return Printed({r * r / (2 * (1 - r))}, 4);
}

Numbers CostsOfChannels()
{
    Numbers costs;
    for (int k = 1; k <= VtWait::kMostChannels; ++k)
        if (const auto line = VtWait::WithChannels(VtWait::Problem, k))
            costs.push_back(VtWait::Problem.CostPerChannel.Value() * k +
                            VtWait::Problem.CostPerUnitInSystem.Value() * line->UnitsInSystem);
    return Printed(costs, 2);
}

// An arriving member sees the others only: the line of a population with one member less.
Numbers ShareOfBusyArrivals()
{
    VtWait::WaitingProblem others = VtWait::Problem;
    others.Population = others.Population.Value() - 1;
    const auto line = VtWait::WithChannels(others, static_cast<int>(others.Channels.Value()));
    return line ? InPercent(line->ProbabilityWait) : Numbers{};
}

// ---- decisions ----

// Where the expected values of two alternatives meet.
Numbers Crossings()
{
    const Decision::DecisionProblem& p = Decision::Problem;
    Numbers chances{0.001, 0.999};
    for (int i = 1; i <= p.AlternativeCount; ++i)
        for (int k = i + 1; k <= p.AlternativeCount; ++k) {
            const double first = p.Payoff(i, 1) - p.Payoff(k, 1);
            const double second = p.Payoff(k, 2) - p.Payoff(i, 2);
            if (first + second != 0) chances.push_back(second / (first + second));
        }
    return Printed(chances, 3);
}

Numbers DifferencesOfValues()
{
    Numbers differences;
    for (int i = 1; i <= Decision::Problem.AlternativeCount; ++i)
        for (int k = 1; k <= Decision::Problem.AlternativeCount; ++k)
            differences.push_back(Decision::Result.AlternativeValue(i) -
                                  Decision::Result.AlternativeValue(k));
    return Printed(differences, 2);
}

// ---- forecasts ----

using VtForecasting::ForecastResult;

int Fitted(const ForecastResult& result)
{
    return result.PeriodCount - result.FirstFittedPeriod + 1;
}

Numbers TypicalErrors()
{
    const ForecastResult& r = VtForecasting::Result;
    double sum = 0;
    double squares = 0;
    for (int t = r.FirstFittedPeriod; t <= r.PeriodCount; ++t) {
        const double error = r.Series(t) - r.Fitted(t);
        sum += error;
        squares += error * error;
    }
    return Printed({sum / Fitted(r), std::sqrt(squares / Fitted(r))}, 2);
}

Numbers WeightOfTheFirstValue()
{
    const ForecastResult& r = VtForecasting::Result;
    return Printed({std::pow(1 - r.Parameter, r.PeriodCount - 1)}, 2);
}

// The line of least squares at the last forecast: mean + slope times the distance from the middle.
Numbers UnroundedLine()
{
    const ForecastResult& r = VtForecasting::Result;
    const double middle = (r.PeriodCount + 1) / 2.0;
    double mean = 0;
    double covariance = 0;
    double spread = 0;
    for (int t = 1; t <= r.PeriodCount; ++t) {
        mean += r.Series(t) / r.PeriodCount;
        covariance += (t - middle) * r.Series(t);
        spread += (t - middle) * (t - middle);
    }
    return Printed({mean + covariance / spread * (r.PeriodCount + r.ForecastCount - middle),
                    r.Forecast(r.ForecastCount)},
                   2);
}

Numbers Slope()
{
    return Printed({VtForecasting::Result.TrendSlope}, 3);
}

// ---- Markov processes ----

using Shares = std::vector<double>;

Shares Moved(const Shares& shares)
{
    Shares next(shares.size());
    for (std::size_t i = 0; i < shares.size(); ++i)
        for (std::size_t j = 0; j < shares.size(); ++j)
            next[j] +=
                shares[i] *
                Markov::Problem.TransitionMatrix(static_cast<int>(i) + 1, static_cast<int>(j) + 1).Value();
    return next;
}

// Means over many steps from equal shares, and the last change of the first 150.
Numbers LongRun()
{
    constexpr int kMany = 20000;
    const auto n = static_cast<std::size_t>(Markov::Problem.StateCount);
    Shares shares(n, 1.0 / static_cast<double>(n));
    Shares mean(n);
    Numbers changes;
    for (int step = 1; step <= kMany; ++step) {
        const Shares next = Moved(shares);
        for (std::size_t j = 0; j < n; ++j) {
            if (step == 150) changes.push_back(next[j] - shares[j]);
            if (step > kMany / 2) mean[j] += next[j] / (kMany / 2.0);
        }
        shares = next;
    }
    Numbers numbers = Printed(mean, 3);
    for (const double change : Printed(changes, 6))
        numbers.push_back(change);
    numbers.push_back(0.00001);
    numbers.push_back(0.001);
    return numbers;
}

// The chances to be still under way, added up step by step.
Numbers StepsUntilAbsorbed()
{
    constexpr int kMany = 20000;
    Numbers steps;
    for (const int start : Markov::Result.NonAbsorbingList) {
        Shares shares(static_cast<std::size_t>(Markov::Problem.StateCount));
        shares[static_cast<std::size_t>(start) - 1] = 1;
        double sum = 0;
        for (int step = 0; step < kMany; ++step) {
            for (const int state : Markov::Result.NonAbsorbingList)
                sum += shares[static_cast<std::size_t>(state) - 1];
            shares = Moved(shares);
        }
        steps.push_back(sum);
    }
    return Printed(steps, 3);
}

// Units that are still under way after the steps that the method makes, and where all end.
Numbers Absorbed()
{
    constexpr int kSteps = 150;
    constexpr int kMany = 20000;
    Numbers numbers;
    for (const int start : Markov::Result.NonAbsorbingList) {
        Shares shares(static_cast<std::size_t>(Markov::Problem.StateCount));
        shares[static_cast<std::size_t>(start) - 1] = 1;
        for (int step = 1; step <= kMany; ++step) {
            shares = Moved(shares);
            if (step != kSteps) continue;
            double rest = 0;
            for (const int state : Markov::Result.NonAbsorbingList)
                rest += shares[static_cast<std::size_t>(state) - 1];
            numbers.push_back(rest);
        }
        numbers.insert(numbers.end(), shares.begin(), shares.end());
    }
    return Printed(numbers, 3);
}

std::vector<Rule> Rules()
{
    using S = const std::string&;
    using K = const Numbers&;
    return {
        {"value of the linear program", "without the whole-number condition",
         [](S, K) { return ValueOfTheRelaxation(); }},
        {"plan of a search broken off", "found until then",
         [](S, K) { return Printed({LP_Engine::Result.Tree.Incumbent}, 3); }},
        {"fall of a route's cost", "would have to cost", [](S s, K) { return FallOfTheNearestRoute(s); }},
        {"chances of a project", "chance to finish", [](S, K) { return Chances95(); }},
        {"length of the path", "in the report adds up", [](S, K) { return LengthOfThePath(); }},
        {"slack less free slack", "shared with", [](S, K known) { return Differences(known); }},
        {"one percent of the cost", "rises by at most", [](S, K) { return EndsOfTheFlatPart(); }},
        {"quantity without its minimum", "would be cheaper, if so few",
         [](S, K) { return QuantityWithoutItsMinimum(); }},
        {"another category", "The next best is", [](S, K) { return OtherCategories(); }},
        {"normal distribution", "cycles|chance of running out|demand below 0|left over with",
         [](S, K) { return ChancesOfRunningOut(); }},
        {"units in service", "busy|At a load", [](S, K) { return BusyShare(); }},
        {"arrivals times the chance to be lost", "are lost on average", [](S, K) { return LostUnits(); }},
        {"another channel", "With one channel more",
         [](S, K) {
             return FiguresOf(VtWait::WithChannels(VtWait::Problem,
                                                   static_cast<int>(VtWait::Problem.Channels.Value()) + 1));
         }},
        {"more arrivals", "1 % more arrivals",
         [](S, K) {
             return FiguresOf(
                 VtWait::WithArrivals(VtWait::Problem, 1.01 * VtWait::Problem.ArrivalRate.Value()));
         }},
        {"constant service", "every service took the same time",
         [](S, K) { return LineOfConstantService(); }},
        {"cost of channels and units", "would be cheaper|Channels and units",
         [](S, K) { return CostsOfChannels(); }},
        {"a member less", "A unit that arrives finds", [](S, K) { return ShareOfBusyArrivals(); }},
        {"difference of two values", "behind by", [](S, K) { return DifferencesOfValues(); }},
        {"the last place", "(below|less than|more than) 0",
         [](S, K) {
             return Numbers{0.0001, 0.001, 0.999, 0.9999};
         }},
        {"the largest whole number", "above 32767", [](S, K) { return Numbers{32767}; }},
        {"under way", "had not been absorbed", [](S, K) { return Absorbed(); }},
        {"where two alternatives meet", "a chance of .* for state 1", [](S, K) { return Crossings(); }},
        {"errors", "root of the mean square error|On average the past forecasts",
         [](S, K) { return TypicalErrors(); }},
        {"weight", "still has a weight", [](S, K) { return WeightOfTheFirstValue(); }},
        {"line of least squares", "unrounded it gives", [](S, K) { return UnroundedLine(); }},
        {"slope", "the trend|The trend", [](S, K) { return Slope(); }},
        {"long run", "long run|still changed|in a step|over many steps", [](S, K) { return LongRun(); }},
        {"steps until absorbed", "steps on average", [](S, K) { return StepsUntilAbsorbed(); }},
    };
}

// What the sentences of the module may hold.
class Meanings : public testing::TestWithParam<int> {
protected:
    // The figures of report, page and problem.
    static Numbers Known(const ModuleRoutines& routines, const std::string& problem)
    {
        std::string text = problem;
        if (Menus.Item("mnuSolutionPrinttoText").Enabled) {
            for (const std::string& line : ScreenLines(routines.Page))
                text += line + "\n";
            for (const auto& report : routines.Reports)
                for (const std::string& line : FileLines(report))
                    text += line + "\n";
        }
        return NumbersOf(text);
    }

    static bool IsDerived(const std::string& sentence, double number, const Numbers& known)
    {
        for (const Rule& rule : Rules())
            if (std::regex_search(sentence, std::regex(rule.Sentence)) &&
                IsAmong(rule.Derived(sentence, known), number))
                return true;
        return false;
    }

    static void Look(const ModuleRoutines& routines, const std::string& problem)
    {
        const Numbers known = Known(routines, problem);
        for (const picture::Sentence& sentence : routines.Meaning())
            for (const double number : NumbersOf(sentence.Text)) {
                const bool isSmall = number <= kSmall && number == std::floor(number);
                EXPECT_TRUE(isSmall || IsAmong(known, number) || IsDerived(sentence.Text, number, known))
                    << number << " in: " << sentence.Text << "\n"
                    << problem;
            }
    }
};

TEST_P(Meanings, HoldNoNumberOfTheirOwn)
{
    constexpr int kRounds = 100;
    FakeDesktop desktop;
    desktop.screen.escapePressed = true;  // a search that does not end is broken off
    AnswerSolveDialogs(desktop.forms);
    Draws draws;
    desktop.forms.onModal["frmForecastingModels"] = [&draws] {
        constexpr std::array<std::array<const char*, 2>, 4> kFields{
            {{"3", ""}, {"0.3", ""}, {"4", ""}, {"4", "4"}}};
        const int method = draws.Whole(1, 4);
        const auto& fields = kFields.at(static_cast<std::size_t>(method) - 1);
        VtForecasting::TakeMethod(method, {fields[0], fields[1]});
    };
    Commands::Start();
    Commands::SelectModule(GetParam());
    Commands::ChooseModule();
    const ModuleRoutines& routines = *CurrentModule().Routines;
    int told = 0;
    for (int round = 0; round < kRounds && !HasFailure(); ++round) {
        const std::string problem = ProblemOf(GetParam(), draws);
        RecordReader reader(problem);
        routines.Read(reader);
        Session.NewProblem = false;
        DisplayProblem();
        Commands::Solve();
        told += routines.Meaning().empty() ? 0 : 1;
        Look(routines, problem);
    }
    EXPECT_GT(told, kRounds / 4);
}

INSTANTIATE_TEST_SUITE_P(Modules, Meanings, testing::Range(1, 13));

}  // namespace
