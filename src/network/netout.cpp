#include "network/netout.h"

#include "basic/format.h"
#include "desktop/desktop.h"
#include "network/NetworkSolver.h"
#include "network/vtshrtrt.h"
#include "shell/solution.h"

namespace Network {
namespace {

constexpr double kThousand = 1000;

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
    constexpr LengthPatterns kPatterns = {"######0", "####0.0", "###0.00"};
    return FlushRight(Format(from, "#0"), kRouteStartWidth) + FlushRight(Format(to, "#0"), kRouteEndWidth) +
           FlushRight(LengthText(Result.NodeDistance(from, to), kPatterns), kRouteLengthWidth);
}

void WriteRoute(ReportChannel& out)
{
    constexpr LengthPatterns kTotalPatterns = {"#######0", "#####0.0", "####0.00"};
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

// ---- the tree ----

constexpr int kTreeStartWidth = 20;
constexpr int kTreeEndWidth = 12;
constexpr int kTreeLengthWidth = 13;

std::string TreeLengthText(std::int32_t length)
{
    constexpr LengthPatterns kPatterns = {"########0", "######0.0", "#####0.00"};
    return FlushRight(LengthText(length, kPatterns), kTreeLengthWidth);
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

// ---- the full report ----

std::string ArcLine(int k)
{
    constexpr int kWidth = 8;
    constexpr LengthPatterns kPatterns = {"#######0", "#####0.0", "####0.00"};
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

void PrintWarning(ReportChannel& out)
{
    out.Line("     WARNING");
    out.Line("     *******");
}

}  // namespace

std::string LengthText(std::int32_t length, const LengthPatterns& patterns)
{
    const double places = Problem.DecimalPlaces.Value();
    const std::string_view decimals = places < 2 ? patterns.OnePlace : patterns.TwoPlaces;
    return Format(length / kThousand, places < 1 ? patterns.Whole : decimals);
}

void ShowShortestRoute()
{
    SolutionPage page;
    WriteRoute(page);
    desktop::TheForms().Loaded("frmSolution").SetCaption("Optimal Route");
    ShowSolution();
}

void ShowSpanningTree()
{
    SolutionPage page;
    WriteTree(page);
    desktop::TheForms().Loaded("frmSolution").SetCaption("Optimal Solution");
    ShowSolution();
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
