#include "tableau/module.h"

#include "basic/number.h"
#include "shell/checks.h"
#include "tableau/AssnOut.h"
#include "tableau/Criterion.h"
#include "tableau/TableauEdit.h"
#include "tableau/TableauMeaning.h"
#include "tableau/TableauPicture.h"
#include "tableau/TableauSteps.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"
#include "tableau/transout.h"

namespace Tableau {

TableauResult Result;

namespace {

constexpr int kEditItem = 2;  // the submenu

void LowerCommand(int item)
{
    switch (item) {
        case 0:
            return AddOrigin();
        case 1:
            return AddDestination();
        case 2:
            return DeleteOrigin();
        default:
            return DeleteDestination();
    }
}

void Write(RecordWriter& file)
{
    file.Write({Problem.DecimalPlaces, static_cast<double>(Problem.NumOrigins),
                static_cast<double>(Problem.NumDestinations)});
    for (int e = 1; e <= Problem.NumArcs; ++e)
        file.Write({Problem.ArcCost(e)});
    if (!IsTransportation()) return;
    for (int i = 1; i <= Problem.NumOrigins; ++i)
        file.Write({static_cast<double>(Problem.NodeSupply(i))});
    for (int n = Problem.NumOrigins + 1; n <= Problem.NumNodes; ++n)
        file.Write({-static_cast<double>(Problem.NodeSupply(n))});
}

void Read(RecordReader& file)
{
    Problem = {};
    Result = {};
    Problem.DecimalPlaces = file.ReadVariant();
    const int origins = file.ReadCount();
    const int destinations = file.ReadCount();
    Allocate(origins, destinations);
    JoinArcs();
    for (int e = 1; e <= Problem.NumArcs; ++e)
        Problem.ArcCost(e) = file.ReadVariant();
    if (!IsTransportation()) return;
    for (int i = 1; i <= origins; ++i)
        Problem.NodeSupply(i) = file.ReadInt32();
    for (int n = origins + 1; n <= Problem.NumNodes; ++n)
        Problem.NodeSupply(n) = ToInt32(-static_cast<double>(file.ReadInt32()));
}

void SolveTableau()
{
    Result = {};
    Result = TaSolve(Problem, MaximizeFlag == "YES");
}

SolveOutcome SolveTransportation()
{
    SolveTableau();
    return TransportationOutcome();
}

SolveOutcome SolveAssignment()
{
    SolveTableau();
    return {};
}

// What both modules have in common.
ModuleRoutines TableauRoutines()
{
    return {.Ask = AskSize,
            .Fill = Fill,
            .FirstGrid = "gridDisplayEdit",
            .CommitCell = EnterCell,
            .Numbers = Numbers,
            .TakeNumbers = TakeNumbers,
            .Check = CheckTableau,
            .Prepare = [] { return AskCriterion().has_value(); },
            .FirstEditItem = kEditItem,
            .LastEditItem = kEditItem,
            .LowerCommand = LowerCommand,
            .Write = Write,
            .Read = Read};
}

ModuleRoutines TransportationRoutines()
{
    ModuleRoutines routines = TableauRoutines();
    routines.CornerIsClosed = true;  // supplies and demands meet there
    routines.Solve = SolveTransportation;
    routines.Page = WriteTransportationPage;
    routines.Pictures = [] { return TransportationPictures(Problem, Result); };
    routines.Steps = [] { return TransportationSteps(Problem, Result); };
    routines.Meaning = [] { return TransportationMeaning(Problem, Result); };
    routines.SubmenuCaption = "&Add/Delete Origins or Destinations";
    routines.LowerItems = {"Add an Origin", "Add a Destination", "Delete an Origin", "Delete a Destination"};
    routines.Reports = {PrintProblemStatement, PrintSuppliesAndDemands, PrintTransportationCosts,
                        PrintTransportationSolution};
    return routines;
}

ModuleRoutines AssignmentRoutines()
{
    ModuleRoutines routines = TableauRoutines();
    routines.Solve = SolveAssignment;
    routines.Page = WriteAssignment;
    routines.Pictures = [] { return AssignmentPictures(Problem, Result); };
    routines.Steps = [] { return AssignmentSteps(Problem, Result); };
    routines.Meaning = [] { return AssignmentMeaning(Problem, Result); };
    routines.SubmenuCaption = "&Add/Delete Agents or Tasks";
    routines.LowerItems = {"Add an Agent", "Add a Task", "Delete an Agent", "Delete a Task"};
    routines.Reports = {PrintProblemStatement, PrintAssignmentCosts, WriteAssignment};
    return routines;
}

}  // namespace
}  // namespace Tableau

const ModuleRoutines& Transportation()
{
    static const ModuleRoutines routines = Tableau::TransportationRoutines();
    return routines;
}

const ModuleRoutines& Assignment()
{
    static const ModuleRoutines routines = Tableau::AssignmentRoutines();
    return routines;
}
