#include "tableau/AssnOut.h"

#include <cstdlib>
#include <string>

#include "basic/format.h"
#include "basic/number.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

namespace Tableau {
namespace {

constexpr int kCostWidth = 16;
constexpr int kTotalWidth = 17;
constexpr DecimalPatterns kScreenCosts = {"######0", "####0.0", "###0.00"};
constexpr DecimalPatterns kPrintedCosts = {"#########0", "#######0.0", "######0.00"};
constexpr DecimalPatterns kTotals = {"############0", "##########0.0", "#########0.00"};

// The arc between a node and its parent.
int ArcAt(int node)
{
    return ToInt16(std::abs(Result.BasicArc(node)));
}

std::string AssignmentLine(int arc, const DecimalPatterns& costs)
{
    return "       ASSIGN AGENT " + Format(Problem.TailNode(arc), "@@") + " TO TASK " +
           Format(Problem.HeadNode(arc) - Problem.NumOrigins, "@@") +
           FlushRight(Format(Problem.ArcCost(arc).Value(), costs.For(Problem.DecimalPlaces.Value())),
                      kCostWidth);
}

void WriteAssignments(ReportChannel& out, const DecimalPatterns& costs)
{
    out.Line("         OPTIMAL ASSIGNMENTS           COST/REVENUE");
    out.Line("         *******************           ************");
    double total = 0;
    for (int n = 1; n <= Problem.NumNodes; ++n) {
        const int arc = ArcAt(n);
        if (Result.BasicFlow(n) == 0 || arc > Problem.NumArcs) continue;
        total += Result.BasicFlow(n) * Problem.ArcCost(arc).Value();
        out.Line(AssignmentLine(arc, costs));
    }
    out.Line("                                        ---------- ");
    out.Line("         TOTAL COST/REVENUE     " +
             FlushRight(Format(total, kTotals.For(Problem.DecimalPlaces.Value())), kTotalWidth));
}

// Whoever there are more of.
struct LeftOver {
    std::string_view Note;
    std::string_view OneRemains;
    std::string_view SomeRemain;
    std::string_view Heading;
    std::string_view Rule;
};

constexpr LeftOver kTasks = {
    "       NOTE:  THE NUMBER OF TASKS EXCEEDS THE NUMBER OF AGENTS.",
    "TASK REMAINS UNASSIGNED.",
    "TASKS REMAIN UNASSIGNED.",
    "       UNASSIGNED TASKS",
    "       ----------------",
};

constexpr LeftOver kAgents = {
    "       NOTE:  THE NUMBER OF AGENTS EXCEEDS THE NUMBER OF TASKS.",
    "AGENT REMAINS UNASSIGNED.",
    "AGENTS REMAIN UNASSIGNED.",
    "       UNASSIGNED AGENTS",
    "       -----------------",
};

// What still flows to or from the root belongs to the node itself. With nothing but zero costs nobody is
// assigned, and the nodes of the other side are listed as well.
void WriteLeftOver(ReportChannel& out, const LeftOver& words, int offset, const std::string& count, bool one)
{
    out.Line(words.Note);
    out.Line(Blanks(13) + count + std::string(one ? words.OneRemains : words.SomeRemain));
    out.Line();
    out.Line(words.Heading);
    out.Line(words.Rule);
    for (int n = 1; n <= Problem.NumNodes; ++n)
        if (ArcAt(n) > Problem.NumArcs && Result.BasicFlow(n) != 0) out.Line(Format(n - offset, "       @@"));
}

}  // namespace

void WriteAssignment(ReportChannel& out)
{
    const bool onScreen = out.OnScreen();
    WriteAssignments(out, onScreen ? kScreenCosts : kPrintedCosts);
    const int more = Problem.NumDestinations - Problem.NumOrigins;
    if (more == 0) return;
    const int k = std::abs(more);
    const std::string count = onScreen ? PlainText(k) + " " : PrintItem(k);
    if (more > 0)
        WriteLeftOver(out, kTasks, Problem.NumOrigins, count, k == 1);
    else
        WriteLeftOver(out, kAgents, 0, count, k == 1);
}

}  // namespace Tableau
