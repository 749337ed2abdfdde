#include "tableau/TableauEdit.h"

#include <optional>
#include <string>

#include "basic/entrytext.h"
#include "basic/number.h"
#include "desktop/desktop.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/userinput.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

namespace Tableau {
namespace {

constexpr std::string_view kForm = "frmProblem";
constexpr std::string_view kGrid = "gridDisplayEdit";

// How the two problems call their lines and say what the grid is.
struct Words {
    std::string_view Caption, FirstQuestion, SecondQuestion;  // of the dialog that asks for the size
    std::string_view Title, GridCaption, Corner;
    std::string_view InfoBegins, InfoEnds;  // around the numbers of rows and columns
    std::string_view Row, Column;           // "origin", "destination"
};

constexpr Words kTransportation = {
    " Origins and Destinations",
    "Enter the number of ORIGINS (MAX=30):",
    "Enter the number of DESTINATIONS (MAX=30):",
    "TRANSPORTATION TABLEAU",
    "Destination",
    "Origin",
    "Enter/Edit data:  Supply data in last column; Demand data in last row; Cost/Revenue data in rows 1-",
    "  NOTE: If an origin-destination combination is unacceptable, enter a relatively large cost in a "
    "minimization problem or enter a relatively small revenue in a maximization problem.",
    "origin",
    "destination",
};

constexpr Words kAssignment = {
    " Agents and Tasks",
    "Enter the number of AGENTS (MAX=30):",
    "Enter the number of TASKS (MAX=30):",
    "ASSIGNMENT TABLEAU",
    "Task",
    "Agent",
    "Enter/Edit data:  Cost/Revenue data in rows 1-",
    "  NOTE: If an agent-task combination is unacceptable, enter a relatively large cost in a minimization "
    "problem or enter a relatively small revenue in a maximization problem.",
    "agent",
    "task",
};

const Words& WordsAtHand()
{
    return IsTransportation() ? kTransportation : kAssignment;
}

SizeQuestion LineQuestion(std::string_view question, std::string_view wholeMessage)
{
    return {.Question = std::string(question),
            .Least = 1,
            .Most = kMaxLines,
            .RangeMessage = "You may only select a number between 1 and 30.  PLEASE TRY AGAIN.",
            .WholeMessage = std::string(wholeMessage)};
}

// ---- the grid ----

void FillHeadings(Grid& grid, const Words& words)
{
    grid.SetText(0, 0, words.Corner);
    for (int i = 1; i <= Problem.NumOrigins; ++i)
        grid.SetText(i, 0, std::to_string(i));
    for (int j = 1; j <= Problem.NumDestinations; ++j)
        grid.SetText(0, j, std::to_string(j));
    if (!IsTransportation()) return;
    const int lastRow = Problem.NumOrigins + 1;
    const int lastColumn = Problem.NumDestinations + 1;
    grid.SetText(0, lastColumn, "Supply");
    grid.SetText(lastRow, 0, "Demand");
    grid.SetText(lastRow, lastColumn, "***********");
}

void FillCosts(Grid& grid)
{
    for (int i = 1; i <= Problem.NumOrigins; ++i)
        for (int j = 1; j <= Problem.NumDestinations; ++j)
            grid.SetText(i, j, EntryText(Problem.ArcCost(ArcNumber(i, j))));
}

void FillQuantities(Grid& grid)
{
    for (int i = 1; i <= Problem.NumOrigins; ++i)
        grid.SetText(i, Problem.NumDestinations + 1, std::to_string(Problem.NodeSupply(i)));
    for (int j = 1; j <= Problem.NumDestinations; ++j)
        grid.SetText(Problem.NumOrigins + 1, j, std::to_string(-Problem.NodeSupply(Problem.NumOrigins + j)));
}

void FillGrid(Grid& grid)
{
    const int further = IsTransportation() ? 2 : 1;
    grid.Resize(Problem.NumOrigins + further, Problem.NumDestinations + further);
    FillHeadings(grid, WordsAtHand());
    if (Session.NewProblem) return;
    FillCosts(grid);
    if (IsTransportation()) FillQuantities(grid);
}

void ShowLabels(Form& form, const Words& words)
{
    form.SetText("lblTitle", words.Title);
    form.SetText("lblgridcaption", words.GridCaption);
    form.SetText("lblInfo", std::string(words.InfoBegins) + std::to_string(Problem.NumOrigins) +
                                " and columns 1-" + std::to_string(Problem.NumDestinations) +
                                std::string(words.InfoEnds));
    for (const char* label : {"lblTitle", "lblgridcaption", "lblInfo"})
        form.SetVisible(label, true);
}

// ---- adding and deleting lines ----

// Where a line of the changed tableau comes from when the line `lost` is left out (0: none is).
int OldLine(int line, int lost)
{
    return lost != 0 && line >= lost ? line + 1 : line;
}

// Copies what the old tableau holds; a line that it does not have keeps the zeroes.
void CopyFrom(const TableauProblem& old, int lostOrigin, int lostDestination)
{
    const auto oldOrigin = [&](int i) { return OldLine(i, lostOrigin); };
    const auto oldDestination = [&](int j) { return OldLine(j, lostDestination); };
    for (int i = 1; i <= Problem.NumOrigins && oldOrigin(i) <= old.NumOrigins; ++i)
        for (int j = 1; j <= Problem.NumDestinations && oldDestination(j) <= old.NumDestinations; ++j)
            Problem.ArcCost(ArcNumber(i, j)) =
                old.ArcCost((oldOrigin(i) - 1) * old.NumDestinations + oldDestination(j));
    if (!IsTransportation()) return;
    for (int i = 1; i <= Problem.NumOrigins && oldOrigin(i) <= old.NumOrigins; ++i)
        Problem.NodeSupply(i) = old.NodeSupply(oldOrigin(i));
    for (int j = 1; j <= Problem.NumDestinations && oldDestination(j) <= old.NumDestinations; ++j)
        Problem.NodeSupply(Problem.NumOrigins + j) = old.NodeSupply(old.NumOrigins + oldDestination(j));
}

void Rebuild(int origins, int destinations, int lostOrigin, int lostDestination)
{
    desktop::TheForms().Loaded(kForm).SetVisible(kGrid, false);
    const TableauProblem old = Problem;
    Allocate(origins, destinations);
    CopyFrom(old, lostOrigin, lostDestination);
    JoinArcs();
    DisplayProblem();
}

bool HasRoom(int count, std::string_view line)
{
    if (count < kMaxLines) return true;
    MsgBox("There are currently 30 " + std::string(line) + "s in this problem.  This is the maximum allowed.",
           "Maximum Capacity", Icon::Exclamation);
    return false;
}

bool CanLose(int count, std::string_view line)
{
    if (count > 1) return true;
    MsgBox("There is currently 1 " + std::string(line) + " in this problem.  This is the minimum allowed.",
           "Minimum Capacity");
    return false;
}

struct DeleteWords {
    std::string_view Prompt, Title, Range;
};

// The number of the line to delete; nothing when the reply is empty.
std::optional<int> AskLine(int count, const DeleteWords& words)
{
    for (;;) {
        const std::string reply = InputBox(words.Prompt, words.Title);
        if (reply.empty()) return {};
        const int line = ToInt16(Val(reply));
        if (line >= 1 && line <= count) return line;
        Refuse(std::string(words.Range) + std::to_string(count));
    }
}

constexpr std::string_view kOriginRange = "You May Only Enter A Value Between 1 and ";
constexpr std::string_view kDestinationRange = "You may only enter a value between 1 and ";

DeleteWords OriginWords()
{
    if (IsTransportation())
        return {"Enter the number of the ORIGIN to Delete:", "Delete an Origin", kOriginRange};
    return {"Enter the number of the AGENT to Delete:", "Delete an Agent", kOriginRange};
}

DeleteWords DestinationWords()
{
    if (IsTransportation())
        return {"Enter the number of the DESTINATION to Delete:", "Delete a Destination", kDestinationRange};
    return {"Enter the number of the TASK to Delete:", "Delete a Task", kDestinationRange};
}

}  // namespace

bool AskSize()
{
    const Words& words = WordsAtHand();
    const auto counts = AskSizes(
        {.Caption = std::string(words.Caption),
         .Questions = {LineQuestion(words.FirstQuestion, "Number of origins must be an integer."),
                       LineQuestion(words.SecondQuestion, "Number of destinations must be an integer.")}});
    if (counts.empty()) return false;
    Problem = {};
    Result = {};
    Allocate(counts[0], counts[1]);
    return true;
}

void Fill()
{
    Form& form = desktop::TheForms().Loaded(kForm);
    ShowLabels(form, WordsAtHand());
    FillGrid(form.GridOf(kGrid));
    form.SetVisible(kGrid, true);
}

void AddOrigin()
{
    if (HasRoom(Problem.NumOrigins, WordsAtHand().Row))
        Rebuild(Problem.NumOrigins + 1, Problem.NumDestinations, 0, 0);
}

void AddDestination()
{
    if (HasRoom(Problem.NumDestinations, WordsAtHand().Column))
        Rebuild(Problem.NumOrigins, Problem.NumDestinations + 1, 0, 0);
}

void DeleteOrigin()
{
    if (!CanLose(Problem.NumOrigins, WordsAtHand().Row)) return;
    if (const auto line = AskLine(Problem.NumOrigins, OriginWords()))
        Rebuild(Problem.NumOrigins - 1, Problem.NumDestinations, *line, 0);
}

void DeleteDestination()
{
    if (!CanLose(Problem.NumDestinations, WordsAtHand().Column)) return;
    if (const auto line = AskLine(Problem.NumDestinations, DestinationWords()))
        Rebuild(Problem.NumOrigins, Problem.NumDestinations - 1, 0, *line);
}

}  // namespace Tableau
