#include "network/module.h"

#include "network/NetworkMeaning.h"
#include "network/NetworkPicture.h"
#include "network/NetworkSolver.h"
#include "network/NetworkSteps.h"
#include "network/netout.h"
#include "network/vtshrtrt.h"
#include "shell/checks.h"

namespace Network {

NetworkResult Result;

namespace {

void Write(RecordWriter& file)
{
    file.Write(
        {Problem.DecimalPlaces, static_cast<double>(Problem.NumNodes), static_cast<double>(Problem.NumArcs)});
    for (int k = 1; k <= Problem.NumArcs; ++k) {
        file.Write({static_cast<double>(Problem.ArcTable(kStart, k))});
        file.Write({static_cast<double>(Problem.ArcTable(kEnd, k))});
        file.Write({Problem.ArcTable(kLength, k) / kThousand});
    }
}

void Read(RecordReader& file)
{
    Allocate();
    Problem.DecimalPlaces = file.ReadVariant();
    Problem.NumNodes = file.ReadCount();
    Problem.NumArcs = file.ReadCount();
    for (int k = 1; k <= Problem.NumArcs; ++k) {
        Problem.ArcTable(kStart, k) = file.ReadInt32();
        Problem.ArcTable(kEnd, k) = file.ReadInt32();
        Problem.ArcTable(kLength, k) = ToThousandths(file.ReadDouble());
    }
}

SolveOutcome SolveRoute()
{
    Result = {};
    Result = FindShortestRoute(Problem);
    return RouteOutcome();
}

SolveOutcome SolveTree()
{
    Result = {};
    Result = FindSpanningTree(Problem);
    return TreeOutcome();
}

// What both modules have in common.
ModuleRoutines NetworkRoutines()
{
    return {.Ask = AskSize,
            .Fill = Fill,
            .FirstGrid = "gridDisplayEdit",
            .CommitCell = EnterCell,
            .Numbers = Numbers,
            .TakeNumbers = TakeNumbers,
            .Check = CheckTableau,
            .PrintsWithoutReport = true,
            .Write = Write,
            .Read = Read};
}

ModuleRoutines RouteRoutines()
{
    ModuleRoutines routines = NetworkRoutines();
    routines.Prepare = AskNodes;
    routines.Solve = SolveRoute;
    routines.Page = WriteRoute;
    routines.Pictures = [] { return RoutePictures(Problem, Result); };
    routines.Steps = [] { return RouteSteps(Problem, Result); };
    routines.Meaning = [] { return RouteMeaning(Problem, Result); };
    routines.Status = StatusStays::WithoutReport;
    routines.Reports = {PrintShortestRoute};
    return routines;
}

ModuleRoutines TreeRoutines()
{
    ModuleRoutines routines = NetworkRoutines();
    routines.Solve = SolveTree;
    routines.Page = WriteTree;
    routines.Pictures = [] { return TreePictures(Problem, Result); };
    routines.Steps = [] { return TreeSteps(Problem, Result); };
    routines.Meaning = [] { return TreeMeaning(Problem, Result); };
    routines.Reports = {PrintSpanningTree};
    return routines;
}

}  // namespace
}  // namespace Network

const ModuleRoutines& ShortestRoute()
{
    static const ModuleRoutines routines = Network::RouteRoutines();
    return routines;
}

const ModuleRoutines& MinimalSpanningTree()
{
    static const ModuleRoutines routines = Network::TreeRoutines();
    return routines;
}
