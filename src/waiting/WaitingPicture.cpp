#include "waiting/WaitingPicture.h"

#include <algorithm>
#include <string>

#include "picture/words.h"
#include "waiting/LineFacts.h"

namespace VtWait {
namespace {

using picture::Axis;
using picture::Chart;
using picture::Picture;
using picture::Role;
using picture::Series;
using picture::SeriesKind;

constexpr double kHalf = 0.5;

Axis CountAxis(std::string title, int first, int last)
{
    return {.Title = std::move(title), .From = first - kHalf, .To = last + kHalf, .Counts = true};
}

// Room above the highest point.
double Top(double highest)
{
    constexpr double kRoom = 1.1;
    return highest > 0 ? highest * kRoom : 1;
}

// Room above the highest chance, but none above 1.
double TopOfChances(double highest)
{
    return highest > 1 ? Top(highest) : std::min(1.0, Top(highest));
}

// "a chance of 0.5000", "a chance below 0.0001"
std::string AChance(double chance)
{
    const std::string told = picture::Chance(chance, 4);
    return "a chance " + std::string(told.front() == 'b' ? "" : "of ") + told;
}

// ---- chance of n units ----

std::string UnitsNote(const WaitingProblem& problem, const WaitingResult& result)
{
    if (problem.WaitingModel == kNoWaiting)
        return "All channels are busy, and an arriving unit is lost, with " +
               AChance(result.ProbabilityWait) + ".";
    return "The system is empty with " + AChance(result.ProbabilityNone) + " and holds " +
           AverageTold(result.UnitsInSystem) + " units on average.";
}

Series Bar(Role role, std::string name)
{
    return {.Kind = SeriesKind::Bars, .As = role, .Name = std::move(name)};
}

void Put(Series& bars, int n, double chance, const std::string& what)
{
    bars.Points.push_back({.X = static_cast<double>(n), .Y = chance});
    bars.Tips.push_back(what + ": " + ChanceText(chance));
}

Picture UnitsPicture(const WaitingProblem& problem, const WaitingResult& result)
{
    const bool lost = problem.WaitingModel == kNoWaiting;
    const std::string unit = lost ? "channel" : "unit";
    const int last = LastState(problem, result);
    const int k = ChannelsOf(problem);
    const bool tail = problem.WaitingModel == kExponential;
    Chart chart{.X = CountAxis(lost ? "Channels busy" : "Units in the system", 0, tail ? last + 1 : last),
                .Y = {.Title = "Chance"}};
    Series bars = Bar(Role::Plain, "chance of n");
    bars.Id = "states";
    double highest = 0;
    for (int n = 0; n <= last; ++n) {
        const double chance = result.StateProbability(n);
        highest = std::max(highest, chance);
        if (!lost || n < k) Put(bars, n, chance, picture::Counted(n, unit));
    }
    chart.Curves = {bars};
    if (lost) {
        chart.Curves.push_back(Bar(Role::Limit, "all busy"));
        Put(chart.Curves.back(), k, result.StateProbability(k), "All " + picture::Counted(k, unit) + " busy");
    }
    if (tail) {
        const std::string name = std::to_string(last + 1) + " or more";
        chart.Curves.push_back(Bar(Role::Spare, name));
        chart.Curves.back().Hatched = true;
        Put(chart.Curves.back(), last + 1, std::max(result.TailProbability, 0.0), name + " units");
        highest = std::max(highest, result.TailProbability);
    }
    if (!lost && k <= last)
        chart.Rules.push_back({.As = Role::Limit, .Value = k - kHalf, .Text = "all channels busy"});
    chart.Y.To = TopOfChances(highest);
    Picture units{.Title = "Chance of n units", .Notes = {UnitsNote(problem, result)}};
    if (tail && last > 0)
        units.Notes.push_back("Chance of " + std::to_string(last + 1) +
                              " or more units: " + picture::Chance(result.TailProbability, 4) + ".");
    units.Body = std::move(chart);
    return units;
}

// ---- wait ----

Series LineByLoad(Role role, const std::string& name, double variation, double end)
{
    constexpr int kPoints = 60;
    Series curve{.As = role, .Name = name, .Id = name};
    for (int i = 0; i <= kPoints; ++i) {
        const double load = end * i / kPoints;
        const double line = UnitsInLineAt(load, variation);
        curve.Points.push_back({.X = load, .Y = line});
        curve.Tips.push_back(name + " service, load " + ChanceText(load) + ": " + AverageText(line));
    }
    return curve;
}

// The curves end where the present load is still well to be seen.
double EndOfLoad(double load)
{
    constexpr double kShare = 0.6;  // of the way to full load
    return load + kShare * (1 - load);
}

Picture WaitPicture(const WaitingProblem& problem, const WaitingResult& result)
{
    const double load = LoadOf(problem);
    const double end = EndOfLoad(load);
    Chart chart{.X = {.Title = "Load", .From = 0, .To = 1}, .Y = {.Title = "Units in line"}};
    const bool arbitrary = problem.WaitingModel == kArbitrary;
    chart.Curves = {LineByLoad(arbitrary ? Role::Plain : Role::Chosen, "constant", 0, end)};
    if (arbitrary) chart.Curves.push_back(LineByLoad(Role::Chosen, "given", VariationOf(problem), end));
    chart.Curves.push_back(LineByLoad(Role::Second, "exponential", 1, end));
    double highest = result.UnitsInLine;
    for (const Series& curve : chart.Curves)
        highest = std::max(highest, curve.Points.back().Y);
    chart.Y.To = Top(highest);
    chart.Rules.push_back({.As = Role::Limit, .Value = 1, .Text = "full load"});
    const std::string figures = AverageText(result.UnitsInLine) + " in line";
    chart.Marks.push_back({.As = Role::Chosen,
                           .At = {.X = load, .Y = result.UnitsInLine},
                           .Text = figures,
                           .Tip = "Load " + ChanceText(load) + ": " + figures,
                           .Id = "present"});
    Picture wait{.Title = "Wait"};
    wait.Notes = {"At the present load of " + picture::Chance(load, 4) + " the line holds " +
                  AverageTold(result.UnitsInLine) +
                  " units on average; towards full load it grows without limit."};
    wait.Body = std::move(chart);
    return wait;
}

// ---- cost ----

void MarkCount(Chart& chart, Role role, int channels, double value, const std::string& text,
               const std::string& id)
{
    chart.Marks.push_back({.As = role,
                           .At = {.X = static_cast<double>(channels), .Y = value},
                           .Text = text,
                           .Tip = picture::Counted(channels, "channel") + ", " + text,
                           .Id = id});
}

// Counts below the first that copes.
void BandOfTooFew(Chart& chart, const std::vector<ChannelCost>& costs, std::vector<std::string>& notes)
{
    int tooFew = 0;
    for (const ChannelCost& cost : costs)
        if (!cost.Cost) tooFew = cost.Channels;
    if (tooFew == 0) return;
    chart.Bands.push_back(
        {.As = Role::Infeasible, .From = kHalf, .To = tooFew + kHalf, .Text = "cannot cope"});
    notes.push_back(picture::Counted(tooFew, "channel") + (tooFew == 1 ? "" : " or fewer") +
                    " cannot cope with the arrivals.");
}

Picture CostPicture(const WaitingProblem& problem, const WaitingResult& result,
                    const std::vector<ChannelCost>& costs)
{
    const int k = ChannelsOf(problem);
    const double given = TotalCost(problem, result);
    const ChannelCost* cheapest = Cheapest(problem, costs);
    Chart chart{.X = CountAxis("Channels", 1, costs.back().Channels),
                .Y = {.Title = "Total cost per time period ($)"}};
    Series points{.Kind = SeriesKind::Points, .Name = "total cost"};
    for (const ChannelCost& cost : costs) {
        if (!cost.Cost) continue;
        points.Points.push_back({.X = static_cast<double>(cost.Channels), .Y = *cost.Cost});
        points.Tips.push_back(picture::Counted(cost.Channels, "channel") + ": " + CostText(*cost.Cost));
        chart.Y.From = std::min(chart.Y.From, *cost.Cost);
        chart.Y.To = std::max(chart.Y.To, *cost.Cost);
    }
    if (chart.Y.To > 0) chart.Y.To = Top(chart.Y.To);
    chart.Curves = {points};
    Picture picture{.Title = "Cost"};
    const bool same = cheapest == nullptr || !IsCheaper(*cheapest->Cost, given);
    if (!same) {
        picture.Notes.push_back("Cheapest: " + picture::Counted(cheapest->Channels, "channel") + ", " +
                                CostText(*cheapest->Cost) + " per time period instead of " + CostText(given) +
                                " with " + std::to_string(k) + ".");
        MarkCount(chart, Role::Best, cheapest->Channels, *cheapest->Cost,
                  "cheapest " + CostText(*cheapest->Cost), "cheapest");
    } else if (cheapest != nullptr && cheapest->Channels != k) {
        picture.Notes.push_back("No number of channels is cheaper than the given " + std::to_string(k) +
                                ": " + CostText(given) + " per time period.");
    } else {
        picture.Notes.push_back("The given number of channels, " + std::to_string(k) +
                                ", is the cheapest: " + CostText(given) + " per time period.");
    }
    MarkCount(chart, Role::Chosen, k, given, (same ? "given and cheapest " : "given ") + CostText(given),
              "given");
    BandOfTooFew(chart, costs, picture.Notes);
    picture.Body = std::move(chart);
    return picture;
}

// ---- lost ----

Picture LostPicture(const WaitingProblem& problem, const WaitingResult& result)
{
    const int k = ChannelsOf(problem);
    const int most = std::max(kMostChannels, k);
    Chart chart{.X = CountAxis("Channels", 1, most), .Y = {.Title = "Share that is lost"}};
    Series points{.Kind = SeriesKind::Points, .Name = "share lost"};
    double highest = 0;
    for (int channels = 1; channels <= most; ++channels) {
        const auto other = WithChannels(problem, channels);
        points.Points.push_back({.X = static_cast<double>(channels), .Y = other->ProbabilityWait});
        points.Tips.push_back(picture::Counted(channels, "channel") + ": " +
                              picture::Chance(other->ProbabilityWait, 4));
        highest = std::max(highest, other->ProbabilityWait);
    }
    chart.Y.To = TopOfChances(highest);
    chart.Curves = {points};
    MarkCount(chart, Role::Chosen, k, result.ProbabilityWait, "given " + ChanceText(result.ProbabilityWait),
              "given");
    Picture lost{.Title = "Lost"};
    lost.Notes = {"With " + picture::Counted(k, "channel") + " the share of units that is lost is " +
                  picture::Chance(result.ProbabilityWait, 4) + "."};
    lost.Body = std::move(chart);
    return lost;
}

}  // namespace

std::vector<Picture> Pictures(const WaitingProblem& problem, const WaitingResult& result)
{
    std::vector<Picture> pictures;
    if (!result.Solved) return pictures;
    switch (problem.WaitingModel) {
        case kArbitrary:
        case kDeterministic:
            pictures.push_back(WaitPicture(problem, result));
            break;
        case kNoWaiting:
            pictures = {UnitsPicture(problem, result), LostPicture(problem, result)};
            break;
        case kExponential:
        case kFinitePopulation:
            pictures.push_back(UnitsPicture(problem, result));
            break;
        default:
            return pictures;
    }
    const std::vector<ChannelCost> costs = CostsByChannels(problem);
    if (!costs.empty()) pictures.push_back(CostPicture(problem, result, costs));
    return pictures;
}

}  // namespace VtWait
