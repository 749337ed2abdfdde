#include "tableau/transout.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "basic/error.h"
#include "basic/format.h"
#include "basic/number.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

namespace Tableau {
namespace {

constexpr int kBlockColumns = 9;
constexpr int kCellWidth = 7;
constexpr int kSolutionNumberWidth = 10;
constexpr int kSolutionFlowWidth = 21;

// ---- tables in blocks of nine columns ----

struct ColumnBlock {
    int First = 1;
    int Last = 1;
};

// At most four; the last one takes what is left.
std::vector<ColumnBlock> ColumnBlocks()
{
    constexpr int kMostBlocks = 4;
    std::vector<ColumnBlock> blocks;
    int first = 1;
    while (first + kBlockColumns <= Problem.NumDestinations &&
           static_cast<int>(blocks.size()) < kMostBlocks - 1) {
        blocks.push_back({first, first + kBlockColumns - 1});
        first += kBlockColumns;
    }
    blocks.push_back({first, Problem.NumDestinations});
    return blocks;
}

// Over a block of 1 to 10 columns, the words in its middle.
constexpr std::array<std::string_view, 10> kDestinationHeaders = {
    "  FROM   TO DESTINATION",
    "  FROM    TO DESTINATION",
    "  FROM        TO DESTINATION",
    "  FROM           TO DESTINATION",
    "  FROM               TO DESTINATION",
    "  FROM                  TO DESTINATION",
    "  FROM                      TO DESTINATION",
    "  FROM                         TO DESTINATION",
    "  FROM                             TO DESTINATION",
    "  FROM                                TO DESTINATION",
};

std::string_view DestinationHeader(const ColumnBlock& block)
{
    const int widest = static_cast<int>(kDestinationHeaders.size()) - 1;
    const int wider = std::clamp(block.Last - block.First, 0, widest);  // a file may hold any size
    return kDestinationHeaders.at(static_cast<std::size_t>(wider));
}

using CellText = std::function<std::string(int row, int column)>;

// The numbers of the columns, a rule, and a line for each row.
void WriteBlock(ReportChannel& out, const ColumnBlock& block, std::string_view rowHead, const CellText& cell)
{
    std::string numbers(rowHead);
    std::string rule = " ------  ";
    for (int j = block.First; j <= block.Last; ++j) {
        numbers += Format(j, "   @@  ");
        rule += " ------";
    }
    out.Line(numbers);
    out.Line(rule);
    for (int i = 1; i <= Problem.NumOrigins; ++i) {
        std::string line = Format(i, "   @@    ");
        for (int j = block.First; j <= block.Last; ++j)
            line += FlushRight(cell(i, j), kCellWidth);
        out.Line(line);
    }
}

std::string CostCell(int origin, int destination)
{
    constexpr DecimalPatterns kPatterns = {"######0", "####0.0", "###0.00"};
    return Format(Problem.ArcCost(ArcNumber(origin, destination)).Value(),
                  kPatterns.For(Problem.DecimalPlaces.Value()));
}

void PrintCostHeading(ReportChannel& out)
{
    out.Line("    SUMMARY OF UNIT COST OR REVENUE DATA");
    out.Line("    ************************************");
}

// ---- supplies and demands ----

constexpr int kOneListing = 12;   // numbers that stand below each other
constexpr int kTwoListings = 24;  // and side by side twice
constexpr int kQuantityWidth = 13;
constexpr int kNarrowQuantityWidth = 12;

struct Listing {
    int Count = 0;
    int ThirdColumnCount = 0;                   // what the rows of the three-column form are counted by
    std::string_view Names, Rules;              // above the one-column form
    std::string_view SideNames, SideRules;      // above each further column
    std::string_view NarrowNames, NarrowRules;  // above the three-column form
    int Gap = 0;                                // between columns of the two-column form
    int NarrowGap = 0;
    std::function<std::int32_t(int number)> Quantity;
};

std::string Pair(const Listing& listing, int number)
{
    return Format(number, "           @@") +
           FlushRight(Format(listing.Quantity(number), "########0"), kQuantityWidth);
}

std::string NarrowPair(const Listing& listing, int number)
{
    return Format(number, "        @@") +
           FlushRight(Format(listing.Quantity(number), "########0"), kNarrowQuantityWidth);
}

void OneColumn(ReportChannel& out, const Listing& listing)
{
    out.Line(listing.Names);
    out.Line(listing.Rules);
    for (int i = 1; i <= listing.Count; ++i)
        out.Line(Pair(listing, i));
}

void TwoColumns(ReportChannel& out, const Listing& listing)
{
    const std::string gap = Blanks(listing.Gap);
    out.Line(std::string(listing.Names) + gap + std::string(listing.SideNames));
    out.Line(std::string(listing.Rules) + gap + std::string(listing.SideRules));
    for (int i = 1; i <= kOneListing; ++i) {
        const bool both = i <= listing.Count - kOneListing;
        out.Line(Pair(listing, i) + (both ? Pair(listing, i + kOneListing) : ""));
    }
}

// The first two columns are always there, so a number of theirs that does not exist fails.
std::string NarrowRow(const Listing& listing, int i, bool third)
{
    if (i < 1 || i + kOneListing > listing.Count) Raise(ErrorNumber::SubscriptOutOfRange);
    return NarrowPair(listing, i) + NarrowPair(listing, i + kOneListing) +
           (third ? NarrowPair(listing, i + kTwoListings) : "");
}

void ThreeColumns(ReportChannel& out, const Listing& listing)
{
    const std::string gap = Blanks(listing.NarrowGap);
    const auto heading = [&gap](std::string_view first, std::string_view further) {
        return std::string(first) + gap + std::string(further) + gap + std::string(further);
    };
    out.Line(heading(listing.NarrowNames, Trimmed(listing.NarrowNames)));
    out.Line(heading(listing.NarrowRules, Trimmed(listing.NarrowRules)));
    const int full = listing.ThirdColumnCount - kTwoListings;
    for (int i = 1; i <= full; ++i)
        out.Line(NarrowRow(listing, i, true));
    for (int i = full + 1; i <= kOneListing; ++i)
        out.Line(NarrowRow(listing, i, false));
}

void WriteListing(ReportChannel& out, const Listing& listing)
{
    if (listing.Count <= kOneListing)
        OneColumn(out, listing);
    else if (listing.Count <= kTwoListings)
        TwoColumns(out, listing);
    else
        ThreeColumns(out, listing);
}

void PrintSupplies(ReportChannel& out)
{
    out.Line("    SUMMARY OF ORIGIN SUPPLIES");
    out.Line("    **************************");
    WriteListing(out, {.Count = Problem.NumOrigins,
                       .ThirdColumnCount = Problem.NumOrigins,
                       .Names = "         ORIGIN      SUPPLY",
                       .Rules = "         ------      ------",
                       .SideNames = "ORIGIN      SUPPLY",
                       .SideRules = "------      ------",
                       .NarrowNames = "    ORIGIN   SUPPLY",
                       .NarrowRules = "    ------   ------",
                       .Gap = 15,
                       .NarrowGap = 8,
                       .Quantity = [](int i) { return Problem.NodeSupply(i); }});
}

// More than 24 demands are listed by the number of origins: with fewer than 24 of those the listing fails.
// Users know the report so.
void PrintDemands(ReportChannel& out)
{
    out.Line("    SUMMARY OF DESTINATION DEMANDS");
    out.Line("    ******************************");
    WriteListing(out, {.Count = Problem.NumDestinations,
                       .ThirdColumnCount = Problem.NumOrigins,
                       .Names = "      DESTINATION    DEMAND",
                       .Rules = "      -----------    ------",
                       .SideNames = "DESTINATION    DEMAND",
                       .SideRules = "-----------    ------",
                       .NarrowNames = "   DESTINATION   DEMAND",
                       .NarrowRules = "   -----------   ------",
                       .Gap = 12,
                       .NarrowGap = 5,
                       .Quantity = [](int j) { return -Problem.NodeSupply(Problem.NumOrigins + j); }});
}

// ---- the schedule ----

int Difference()
{
    return std::abs(Result.TotalSupply - Result.TotalDemand);
}

bool SupplyIsShort()
{
    return Result.TotalDemand > Result.TotalSupply;
}

void WriteSchedule(ReportChannel& out, const TransportationSchedule& schedule)
{
    for (const ColumnBlock& block : ColumnBlocks()) {
        if (!out.OnScreen()) out.Line("  SHIP");
        out.Line(DestinationHeader(block));
        WriteBlock(out, block, " ORIGIN  ",
                   [&schedule](int i, int j) { return Format(schedule.Shipment(i, j), "######0"); });
    }
}

// The nodes with a flow of their own; node numbers begin behind `offset`.
void WriteUnusedFlows(ReportChannel& out, const TransportationSchedule& schedule, int offset, int count)
{
    for (int i = 1; i <= count; ++i) {
        const std::int32_t flow = schedule.UnusedFlow(offset + i);
        if (flow > 0)
            out.Line(FlushRight(Format(i, "#########0"), kSolutionNumberWidth) +
                     FlushRight(Format(flow, "########0"), kSolutionFlowWidth));
    }
}

void WriteImbalance(ReportChannel& out, const TransportationSchedule& schedule)
{
    if (SupplyIsShort()) {
        out.Line("    DESTINATION   UNSATISFIED DEMAND");
        out.Line("    -----------   ------------------");
        WriteUnusedFlows(out, schedule, Problem.NumOrigins, Problem.NumDestinations);
    } else {
        out.Line("       ORIGIN       EXCESS SUPPLY");
        out.Line("       ------       -------------");
        WriteUnusedFlows(out, schedule, 0, Problem.NumOrigins);
    }
}

// The full report sets the lines of the total and the note in and prints their numbers as items.
void WriteTotal(ReportChannel& out, const TransportationSchedule& schedule)
{
    const bool onScreen = out.OnScreen();
    const auto number = [onScreen](double value) {
        return onScreen ? " " + PlainText(value) : PrintItem(value);
    };
    out.Line();
    out.Line(std::string("    TOTAL TRANSPORTATION COST OR REVENUE IS") + (onScreen ? ": " : "") +
             number(schedule.TotalCost));
    out.Line();
    if (Difference() == 0) return;
    const char* which = SupplyIsShort() ? "THE TOTAL DEMAND EXCEEDS THE TOTAL SUPPLY"
                                        : "THE TOTAL SUPPLY EXCEEDS THE TOTAL DEMAND";
    out.Line(std::string(onScreen ? "" : "    ") + "NOTE:  " + which + " BY" + number(Difference()));
    out.Line();
    WriteImbalance(out, schedule);
}

void PrintShortSupply(ReportChannel& out)
{
    out.Line("     WARNING:  INSUFFICIENT SUPPLY");
    out.Line("     *****************************");
    out.Line("     Total demand exceeds total supply by" + PrintItem(Difference()));
    out.Line("     The solution given provides the optimal shipment schedule for the ");
    out.Line("     available supply.  Some destinations will have unsatisfied demand.");
}

}  // namespace

TransportationSchedule ExtractSchedule(const TableauProblem& problem, const TableauResult& result)
{
    TransportationSchedule schedule;
    schedule.Shipment = Array2<std::int32_t>(problem.NumOrigins, problem.NumDestinations);
    schedule.UnusedFlow = Array1<std::int32_t>(problem.NumNodes);
    for (int n = 1; n <= problem.NumNodes; ++n) {
        const int e = ToInt16(std::abs(result.BasicArc(n)));
        const std::int32_t flow = result.BasicFlow(n);
        if (e > problem.NumArcs) {
            schedule.UnusedFlow(e - problem.NumArcs) = flow;
        } else {
            schedule.TotalCost += flow * problem.ArcCost(e).Value();
            schedule.Shipment(problem.TailNode(e), problem.HeadNode(e) - problem.NumOrigins) = flow;
        }
    }
    return schedule;
}

SolveOutcome TransportationOutcome()
{
    SolveOutcome outcome{.Caption = "Optimal Transportation Schedule"};
    if (SupplyIsShort())
        outcome.Before.push_back(
            {.Text =
                 "Total demand exceeds total supply by " + PlainText(Difference()) +
                 ".  The solution given provides the optimal shipment schedule for the available supply.  "
                 "Some destinations will have unsatisfied demand.",
             .Title = "Warning:  INSUFFICIENT SUPPLY"});
    return outcome;
}

void WriteTransportationPage(ReportChannel& out)
{
    const TransportationSchedule schedule = ExtractSchedule(Problem, Result);
    WriteSchedule(out, schedule);
    WriteTotal(out, schedule);
}

void PrintProblemStatement(ReportChannel& out)
{
    out.Line(IsAssignment() ? "    ASSIGNMENT PROBLEM" : "    TRANSPORTATION PROBLEM");
    out.Line(IsAssignment() ? "    ******************" : "    **********************");
    out.Line(Result.Maximize ? "    OBJECTIVE:  MAXIMIZATION" : "    OBJECTIVE:  MINIMIZATION");
}

void PrintSuppliesAndDemands(ReportChannel& out)
{
    PrintSupplies(out);
    PrintDemands(out);
}

void PrintTransportationCosts(ReportChannel& out)
{
    PrintCostHeading(out);
    for (const ColumnBlock& block : ColumnBlocks()) {
        out.Line(DestinationHeader(block));
        WriteBlock(out, block, " ORIGIN  ", CostCell);
    }
}

void PrintTransportationSolution(ReportChannel& out)
{
    if (SupplyIsShort()) PrintShortSupply(out);
    out.Line("    OPTIMAL TRANSPORTATION SCHEDULE");
    out.Line("    *******************************");
    WriteTransportationPage(out);
}

void PrintAssignmentCosts(ReportChannel& out)
{
    PrintCostHeading(out);
    for (const ColumnBlock& block : ColumnBlocks()) {
        out.Line("            TASK");
        WriteBlock(out, block, " AGENT   ", CostCell);
    }
}

}  // namespace Tableau
