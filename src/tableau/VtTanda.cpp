#include "tableau/VtTanda.h"

#include <algorithm>
#include <string>

#include "basic/error.h"
#include "basic/number.h"
#include "basic/numberrow.h"
#include "shell/checks.h"
#include "shell/module.h"
#include "shell/session.h"
#include "tableau/ErrorMsg.h"
#include "tableau/decimals.h"
#include "tableau/tanumchk.h"

namespace Tableau {

TableauProblem Problem;

namespace {

constexpr double kValueLimit = 1000000;          // a cost, supply or demand must be below
constexpr double kLargestCost = 999999;          // in size
constexpr double kLargestTwoPlaceCost = 999.99;  // in size, of a cost that needs a second decimal

// The cost as it is kept. A cost that needs two decimals is cut to the range that the reports can show.
double TrackDecimals(double cost)
{
    Variant places = 0.0;
    RaiseDecimalPlaces(places, cost);
    Problem.DecimalPlaces = std::max(Problem.DecimalPlaces.Value(), places.Value());
    if (places.Value() < 2) return cost;
    return std::clamp(cost, -kLargestTwoPlaceCost, kLargestTwoPlaceCost);
}

struct SizeWords {
    std::string_view Capitals;  // "COST/REVENUE"
    std::string_view Plain;     // "cost/revenue"
    std::string_view Example;   // "cost"
};

int RefuseTooLarge(const SizeWords& words, std::string_view text)
{
    const std::string plain(words.Plain);
    const std::string module = IsAssignment() ? "assignment" : "transportation";
    ShowErrorLines({
        "WARNING:  YOUR " + std::string(words.Capitals) + " VALUE IS TOO LARGE!!!",
        "This module is designed to handle " + module + " cost/revenue values ",
        "up to one million (1000000).",
        "Your " + plain + " value of " + std::string(text) + " is too large.",
        "Rescale the data so that",
        "     1.  all data are less than 1000000 and",
        "     2.  the rescaled data do not require more than two decimal places.",
        "For example, a " + std::string(words.Example) + " of 2520000 could be rescaled to 2.52",
        "Please rescale your cost/revenue data and reenter the problem.",
    });
    return kCellRefused;
}

struct QuantityRule {
    int Sign;  // of the stored supply
    std::string_view NotWhole;
    std::string_view Negative;
};

// A whole number of units. One of the wrong sign is told, but stays stored until the cell is entered again.
int EnterQuantity(int node, std::string_view text, const QuantityRule& rule)
{
    constexpr SizeWords kWords = {"SUPPLY/DEMAND", "supply/demand", "supply"};
    const NumberText number = CheckNumber(text);
    std::int32_t& stored = Problem.NodeSupply(node);
    if (number.IsBlank) {
        stored = 0;
        return EmptyCell();
    }
    if (!number.IsWholeNumeral()) return RefuseCell(rule.NotWhole);
    const double value = number.Value();
    if (value >= kValueLimit) return RefuseTooLarge(kWords, text);
    stored = ToInt32(rule.Sign * Int(value + 0.5));
    return stored * rule.Sign < 0 ? RefuseCell(rule.Negative) : kCellStored;
}

}  // namespace

bool IsTransportation()
{
    return Session.ProblemTitle == "TRANSPORTATION PROBLEM";
}

bool IsAssignment()
{
    return Session.ProblemTitle == "ASSIGNMENT PROBLEM";
}

void Allocate(int origins, int destinations)
{
    if (origins < 0 || destinations < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    Problem.NumOrigins = ToInt16(origins);
    Problem.NumDestinations = ToInt16(destinations);
    Problem.NumNodes = Add16(Problem.NumOrigins, Problem.NumDestinations);
    Problem.NumArcs = ToInt16(static_cast<double>(origins) * destinations);
    const int arcs = Problem.NumArcs + Problem.NumNodes;
    const int nodes = Problem.NumNodes + 1;
    Problem.TailNode = Array1<std::int32_t>(arcs);
    Problem.HeadNode = Array1<std::int16_t>(arcs);
    Problem.ArcCost = Array1<Variant>(arcs);
    Problem.ArcCost.Fill(0.0);
    Problem.NodeSupply = Array1<std::int32_t>(nodes);
    Problem.FirstArc = Array1<std::int16_t>(nodes);
    for (int i = 1; i <= origins; ++i)
        Problem.FirstArc(i) = static_cast<std::int16_t>(ArcNumber(i, 1));
    for (int n = 1; IsAssignment() && n <= Problem.NumNodes; ++n)
        Problem.NodeSupply(n) = n <= origins ? 1 : -1;
}

int ArcNumber(int origin, int destination)
{
    return (origin - 1) * Problem.NumDestinations + destination;
}

void JoinArcs()
{
    for (int i = 1; i <= Problem.NumOrigins; ++i)
        for (int j = 1; j <= Problem.NumDestinations; ++j) {
            Problem.TailNode(ArcNumber(i, j)) = i;
            Problem.HeadNode(ArcNumber(i, j)) = static_cast<std::int16_t>(Problem.NumOrigins + j);
        }
}

int EnterCost(int origin, int destination, std::string_view text)
{
    constexpr SizeWords kWords = {"COST/REVENUE", "cost/revenue", "cost"};
    const int arc = ArcNumber(origin, destination);
    const NumberText number = CheckNumber(text);
    if (!number.IsBlank && !number.IsNumber) return RefuseCell("The Cost/Revenue Must Be A Number.");
    const double value = number.Value();  // 0 for a blank cell
    if (value >= kValueLimit) return RefuseTooLarge(kWords, text);
    Problem.TailNode(arc) = origin;
    Problem.HeadNode(arc) = static_cast<std::int16_t>(Problem.NumOrigins + destination);
    const double cost = value <= -kValueLimit ? -kLargestCost : value;
    Problem.ArcCost(arc) = TrackDecimals(cost);
    return number.IsBlank ? EmptyCell() : kCellStored;
}

int EnterSupply(int node, std::string_view text)
{
    return EnterQuantity(node, text, {1, "Supply Must Have A Numeric Value.", "SUPPLY CANNOT BE NEGATIVE."});
}

int EnterDemand(int node, std::string_view text)
{
    return EnterQuantity(node, text,
                         {-1, "DEMAND Must Have A Numeric Value.", "NOTE:  DEMAND CANNOT BE NEGATIVE."});
}

int EnterCell(int row, int column, std::string_view text)
{
    const bool inRows = row >= 1 && row <= Problem.NumOrigins;
    const bool inColumns = column >= 1 && column <= Problem.NumDestinations;
    if (inRows && inColumns) return EnterCost(row, column, text);
    if (!IsTransportation()) return kCellStored;
    if (inRows && column == Problem.NumDestinations + 1) return EnterSupply(row, text);
    if (inColumns && row == Problem.NumOrigins + 1) return EnterDemand(Problem.NumOrigins + column, text);
    return kCellStored;
}

std::vector<double> Numbers()
{
    NumberRow row;
    row.Write(Problem.NumOrigins);
    row.Write(Problem.NumDestinations);
    row.Write(Problem.DecimalPlaces);
    for (int e = 1; e <= Problem.NumArcs; ++e)
        row.Write(Problem.ArcCost(e));
    for (int n = 1; n <= Problem.NumNodes; ++n)
        row.Write(Problem.NodeSupply(n));
    return row.Take();
}

void TakeNumbers(const std::vector<double>& numbers)
{
    NumberRowReader row(numbers);
    const int origins = static_cast<int>(row.Read());
    const int destinations = static_cast<int>(row.Read());
    if (origins != Problem.NumOrigins || destinations != Problem.NumDestinations) {
        Allocate(origins, destinations);
        JoinArcs();
    }
    Problem.DecimalPlaces = row.ReadVariant();
    for (int e = 1; e <= Problem.NumArcs; ++e)
        Problem.ArcCost(e) = row.ReadVariant();
    for (int n = 1; n <= Problem.NumNodes; ++n)
        row.ReadInto(Problem.NodeSupply(n));
}

}  // namespace Tableau
