// What an optimal tree says, for the pictures, steps and sentences beside a report: the routes in use, what
// is left over, and which other routes would do as well.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

namespace Tableau {

// A route that ships something, or a pair that is assigned.
struct Route {
    int Origin = 0;
    int Destination = 0;
    std::int32_t Amount = 0;
    double Value = 0;  // of the whole amount
};

// By origin, then by destination.
std::vector<Route> RoutesOf(const TableauProblem& problem, const TableauResult& result);

// As the report adds it up.
double TotalOf(const TableauProblem& problem, const TableauResult& result);

struct Remainder {
    int Line = 0;  // origin or destination
    std::int32_t Amount = 0;
};

std::vector<Remainder> UnusedSupplies(const TableauProblem& problem, const TableauResult& result);

// Of destinations that ask for something; what flows on from one that asks for nothing is no shortage.
std::vector<Remainder> UnmetDemands(const TableauProblem& problem, const TableauResult& result);

std::int64_t Received(const TableauProblem& problem, const TableauResult& result, int destination);

double CostOf(const TableauProblem& problem, int origin, int destination);
int OriginOf(const TableauProblem& problem, int arc);
int DestinationOf(const TableauProblem& problem, int arc);

// A cost under the pattern of the report's decimals.
std::string CostText(const TableauProblem& problem, double cost);

// What an arc costs in the run that the result comes from: scaled, of revenues their negative; an arc from
// the root costs its penalty, one to the root nothing.
double CostInRun(const TableauProblem& problem, const TableauResult& result, int arc);

// Whether every cost counts as 0, so that nothing is worth shipping.
bool AllCostsAreZero(const TableauProblem& problem);

// Whether there is anything to show: a solved tableau with lines on both sides.
bool HasPlan(const TableauProblem& problem, const TableauResult& result);

struct OtherPlans {
    std::vector<int> Arcs;   // unused ones, routes first, that another best plan uses
    int NearestArc = 0;      // unused: the least change of its cost that could bring it in; 0: there is none
    double NearestCost = 0;  // that change, above 0
};

// Solves once more for the prices.
OtherPlans FindOtherPlans(const TableauProblem& problem, const TableauResult& result);

}  // namespace Tableau
