#include "network/netout.h"

#include <utility>

#include "network/NetworkSolver.h"
#include "network/vtshrtrt.h"

namespace Network {
namespace {

// ---- the route ----

constexpr int kRouteStartWidth = 18;
constexpr int kRouteEndWidth = 16;
constexpr int kRouteLengthWidth = 16;

// As many as the heading has characters behind its indent.
std::string RouteStars(int start, int end)
{
    constexpr int kShortest = 40;
    const int longer = (start > 9 ? 1 : 0) + (end > 9 ? 1 : 0);
    return std::string(static_cast<std::size_t>(kShortest + longer), '*');
}

std::string RouteRow(int from, int to)
{
    constexpr DecimalPatterns kPatterns = {"######0", "####0.0", "###0.00"};
    return FlushRight(Format(from, "#0"), kRouteStartWidth) + FlushRight(Format(to, "#0"), kRouteEndWidth) +
           FlushRight(LengthText(Result.NodeDistance(from, to), kPatterns), kRouteLengthWidth);
}

// ---- the tree ----

constexpr int kTreeStartWidth = 20;
constexpr int kTreeEndWidth = 12;
constexpr int kTreeLengthWidth = 13;

std::string TreeLengthText(std::int32_t length)
{
    constexpr DecimalPatterns kPatterns = {"########0", "######0.0", "#####0.00"};
    return FlushRight(LengthText(length, kPatterns), kTreeLengthWidth);
}

// ---- the full report ----

std::string ArcLine(int k)
{
    constexpr int kWidth = 8;
    constexpr DecimalPatterns kPatterns = {"#######0", "#####0.0", "####0.00"};
    return Format(k, "            @@") + Format(Problem.ArcTable(kStart, k), "        @@") +
           Format(Problem.ArcTable(kEnd, k), "          @@") + "    " +
           FlushRight(LengthText(Problem.ArcTable(kLength, k), kPatterns), kWidth);
}

void PrintDescription(ReportChannel& out)
{
    out.Line("                 **** NETWORK DESCRIPTION ****");
    out.Line();
    out.Line(Blanks(21) + PrintItem(Problem.NumNodes) + "NODES AND" + PrintItem(Problem.NumArcs) + "ARCS");
    out.Line();
    out.Line("            ARC   START NODE   END NODE   DISTANCE");
    out.Line("            ---   ----------   --------   --------");
    for (int k = 1; k <= Problem.NumArcs; ++k)
        out.Line(ArcLine(k));
}

SolveOutcome OutcomeOf(const char* caption, Notice warning)
{
    if (Result.Reached) return {.Caption = caption};
    warning.Title = "WARNING!";
    warning.Sign = Icon::Critical;
    return {.Solved = false, .Before = {std::move(warning)}};
}

void PrintWarning(ReportChannel& out)
{
    out.Line("     WARNING");
    out.Line("     *******");
}

}  // namespace

std::string LengthText(std::int32_t length, const DecimalPatterns& patterns)
{
    return Format(length / kThousand, patterns.For(Problem.DecimalPlaces.Value()));
}

SolveOutcome RouteOutcome()
{
    return OutcomeOf(
        "Optimal Route",
        {.Text = "Please review the description of the network.  It is not possible to reach all "
                 "nodes in the network."});
}

SolveOutcome TreeOutcome()
{
    return OutcomeOf(
        "Optimal Solution",
        {.Text = "Please review the description of the network.  A spanning tree does not exist for "
                 "the network description you have provided."});
}

void WriteRoute(ReportChannel& out)
{
    constexpr DecimalPatterns kTotalPatterns = {"#######0", "#####0.0", "####0.00"};
    const int start = Problem.StartNode;
    const int end = Problem.EndNode;
    out.Line("            THE SHORTEST ROUTE FROM NODE " + std::to_string(start) + " TO NODE " +
             std::to_string(end));
    out.Line("            " + RouteStars(start, end));
    out.Line();
    out.Line("            START NODE       END NODE       DISTANCE");
    out.Line("            ----------       --------       --------");
    for (auto from = Result.RoutePath.rbegin(); from != Result.RoutePath.rend(); ++from) {
        const auto next = from + 1;
        out.Line(RouteRow(*from, next == Result.RoutePath.rend() ? end : *next));
    }
    out.Line();
    out.Line("                    TOTAL DISTANCE" +
             FlushRight(LengthText(Result.NodeLabel(kDistance, end), kTotalPatterns), kRouteLengthWidth));
}

void WriteTree(ReportChannel& out)
{
    out.Line("                    MINIMAL SPANNING TREE");
    out.Line("                    *********************");
    out.Line();
    out.Line("              START NODE   END NODE    DISTANCE");
    out.Line("              ----------   --------    --------");
    for (int k = 1; k < Problem.NumNodes; ++k)
        out.Line(FlushRight(Format(Result.TreeArcs(kStart, k), "#0"), kTreeStartWidth) +
                 FlushRight(Format(Result.TreeArcs(kEnd, k), "#0"), kTreeEndWidth) +
                 TreeLengthText(Result.TreeArcs(kLength, k)));
    out.Line();
    out.Line("                    TOTAL LENGTH" + TreeLengthText(Result.TreeLength));
}

void PrintShortestRoute(ReportChannel& out)
{
    out.Line("     SHORTEST ROUTE");
    out.Line("     **************");
    PrintDescription(out);
    if (Result.Reached) {
        WriteRoute(out);
        return;
    }
    PrintWarning(out);
    out.Line("   Please review the description of the network.");
    out.Line("   It is not possible to reach all nodes in the network.");
}

void PrintSpanningTree(ReportChannel& out)
{
    out.Line("     MINIMAL SPANNING TREE");
    out.Line("     *********************");
    PrintDescription(out);
    if (Result.Reached) {
        WriteTree(out);
        return;
    }
    PrintWarning(out);
    out.Line("          Please review the description of the network.");
    out.Line("          A spanning tree does not exist for the network description");
    out.Line("          you have provided.");
}

}  // namespace Network
