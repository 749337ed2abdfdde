// The transportation report: the schedule on the screen, and the full report that begins with the data. The
// assignment report shares the statement and the cost table.
//
// All of them read Problem and the tree in Result. Quantities are whole units; the total is computed from the
// costs as entered.
#pragma once

#include <cstdint>

#include "basic/array.h"
#include "shell/module.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"

namespace Tableau {

// What the tree says about each route and node, taken from it again for each report.
struct TransportationSchedule {
    Array2<std::int32_t> Shipment;    // origins x destinations
    Array1<std::int32_t> UnusedFlow;  // by node: unused supply, unsatisfied demand
    double TotalCost = 0;
};

TransportationSchedule ExtractSchedule(const TableauProblem& problem, const TableauResult& result);

// The page's caption, and a warning of a supply that does not suffice.
SolveOutcome TransportationOutcome();

// The schedule, on screen and in the full report.
void WriteTransportationPage(ReportChannel& out);

// The full report, in this order.
void PrintProblemStatement(ReportChannel& out);
// "Subscript out of range": see SUMMARY OF DESTINATION DEMANDS.
void PrintSuppliesAndDemands(ReportChannel& out);
void PrintTransportationCosts(ReportChannel& out);
void PrintTransportationSolution(ReportChannel& out);

// The cost table under the words of an assignment.
void PrintAssignmentCosts(ReportChannel& out);

}  // namespace Tableau
