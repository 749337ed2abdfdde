#include "network/vtshrtrt.h"

#include <algorithm>
#include <array>

#include "basic/format.h"
#include "basic/number.h"
#include "basic/numberrow.h"
#include "desktop/desktop.h"
#include "network/NetworkSolver.h"
#include "network/netout.h"
#include "shell/checks.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/userinput.h"
#include "tableau/tanumchk.h"

namespace Network {

NetworkProblem Problem;
ModalDialog<NoQuestion, RouteEnds> Ends{{.StaysLoaded = true}};

namespace {

int EnterNode(int arc, int end, std::string_view text)
{
    const double node = Val(text);
    if (node < 1 || node > Problem.NumNodes)
        return RefuseCell("NOTE:  THE NODE NUMBER MUST BE BETWEEN 1 AND " + std::to_string(Problem.NumNodes));
    Problem.ArcTable(end, arc) = ToInt32(Int(node));
    return kCellStored;
}

bool HasFraction(double value)
{
    return value - Int(value) != 0;
}

void TrackDecimals(double distance)
{
    if (!HasFraction(distance)) return;
    const double needed = HasFraction(10 * distance) ? 2 : 1;
    Problem.DecimalPlaces = std::max(Problem.DecimalPlaces.Value(), needed);
}

int EnterLength(int arc, std::string_view text)
{
    const NumberText number = CheckNumber(UpperCase(text));
    if (!number.IsNumber) return RefuseCell("NOTE:  DISTANCE MUST BE A NUMBER.");
    const double distance = number.Value();
    if (distance < 0) return RefuseCell("NOTE:  DISTANCE CANNOT BE NEGATIVE.");
    Problem.ArcTable(kLength, arc) = ToThousandths(distance);
    TrackDecimals(distance);
    return kCellStored;
}

SizeDialog SizeQuestions()
{
    return {.Caption = " Nodes and Arcs",
            .Questions = {
                {.Question = "Enter the number of NODES (MAX=20):",
                 .Least = 2,
                 .Most = kMostNodes,
                 .RangeMessage = "You may only select between 2 and 20 Nodes.  Please Try Again."},
                {.Question = "Enter the number of ARCS (MAX=40):",
                 .Least = 1,
                 .Most = kMostArcs,
                 .RangeMessage = "You may only have between 1 and 40 arcs.  Please Try Again."},
            }};
}

void FillGrid(Grid& grid)
{
    constexpr std::array kHeadings = {"Arc", "Start Node", "End Node", "Distance/Cost"};
    constexpr DecimalPatterns kPatterns = {"0", "    #####0.0", "    ####0.00"};
    grid.Resize(Problem.NumArcs + 1, static_cast<int>(kHeadings.size()));
    for (std::size_t column = 0; column < kHeadings.size(); ++column)
        grid.SetText(0, static_cast<int>(column), kHeadings.at(column));
    for (int k = 1; k <= Problem.NumArcs; ++k) {
        grid.SetText(k, 0, std::to_string(k));
        if (Session.NewProblem) continue;
        for (const int end : {kStart, kEnd})
            grid.SetText(k, end, std::to_string(Problem.ArcTable(end, k)));
        grid.SetText(k, kLength, LengthText(Problem.ArcTable(kLength, k), kPatterns));
    }
}

// ---- the ends of the route ----

struct NodeQuestion {
    std::string_view NotWhole;
    std::int16_t* Node;
};

bool TakeNode(const std::string& text, const NodeQuestion& question)
{
    const NumberText number = CheckNumber(text);
    if (!number.IsWholeNumeral()) return Refuse(question.NotWhole);
    const double node = number.Value();
    if (node < 1 || node > Problem.NumNodes)
        return Refuse("You may only select a number between 1 and " + std::to_string(Problem.NumNodes) +
                      ".  PLEASE TRY AGAIN.");
    *question.Node = ToInt16(node);
    return true;
}

}  // namespace

void Allocate()
{
    Problem = {};
    Problem.ArcTable = Array2<std::int32_t>(kLength, kMostArcs);
    Result = {};
}

bool AskSize()
{
    const auto counts = AskSizes(SizeQuestions());
    if (counts.empty()) return false;
    Allocate();
    Problem.NumNodes = counts[0];
    Problem.NumArcs = counts[1];
    return true;
}

void Fill()
{
    Form& form = desktop::TheForms().Loaded("frmProblem");
    form.SetText("lblTitle", "Network Description:  " + std::to_string(Problem.NumNodes) + " NODES and " +
                                 std::to_string(Problem.NumArcs) + " ARCS");
    form.SetText("lblInfo", "Enter Start Node, End Node, and Distance/Cost for each Arc.");
    for (const char* label : {"lblTitle", "lblInfo"})
        form.SetVisible(label, true);
    FillGrid(form.GridOf("gridDisplayEdit"));
    form.SetVisible("gridDisplayEdit", true);
}

int EnterCell(int row, int column, std::string_view text)
{
    const std::string entry = Trimmed(text);
    if (entry.empty()) {
        Problem.ArcTable(column, row) = 0;
        return EmptyCell();
    }
    return column == kLength ? EnterLength(row, entry) : EnterNode(row, column, entry);
}

std::vector<double> Numbers()
{
    NumberRow row;
    row.Write(Problem.NumNodes);
    row.Write(Problem.NumArcs);
    row.Write(Problem.DecimalPlaces);
    for (int k = 1; k <= Problem.NumArcs; ++k)
        for (const int part : {kStart, kEnd, kLength})
            row.Write(Problem.ArcTable(part, k));
    return row.Take();
}

void TakeNumbers(const std::vector<double>& numbers)
{
    NumberRowReader row(numbers);
    row.ReadInto(Problem.NumNodes);
    row.ReadInto(Problem.NumArcs);
    Problem.DecimalPlaces = row.ReadVariant();
    for (int k = 1; k <= Problem.NumArcs; ++k)
        for (const int part : {kStart, kEnd, kLength})
            row.ReadInto(Problem.ArcTable(part, k));
}

bool AskNodes()
{
    const auto ends = Ends.Ask("frminputnodes");
    if (!ends) return false;
    Problem.StartNode = ends->Start;
    Problem.EndNode = ends->End;
    return true;
}

std::int32_t ToThousandths(double distance)
{
    return ToInt32(Int(distance * kThousand + 0.5));
}

int TakeNodes(const std::string& start, const std::string& end, const BoxPointer& point)
{
    std::int16_t startNode = 0;
    std::int16_t endNode = 0;
    PointAtBox(point, 0);
    if (!TakeNode(start, {"Starting Node must be an integer.", &startNode})) return 0;
    PointAtBox(point, 1);
    if (!TakeNode(end, {"Ending Node must be an integer.", &endNode})) return 1;
    Ends.Give({.Start = startNode, .End = endNode});
    return -1;
}

}  // namespace Network
