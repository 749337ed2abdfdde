// The table of the twelve modules.
#include <array>

#include "basic/error.h"
#include "decision/module.h"
#include "forecasting/module.h"
#include "inventory/module.h"
#include "lp/module.h"
#include "markov/module.h"
#include "network/module.h"
#include "project/module.h"
#include "shell/module.h"
#include "shell/session.h"
#include "tableau/module.h"
#include "waiting/module.h"

namespace {

const std::array<Module, kModuleCount>& Table()
{
    static const std::array<Module, kModuleCount> table{{
        {.Option = "1.  Linear Programming",
         .Indicator = "Linear Programming Module",
         .Title = "LINEAR PROGRAMMING PROBLEM",
         .Extension = "LPM",
         .ProblemForm = "frmLPproblem",
         .IntegerProblem = 0,
         .Description = "This module will maximize or minimize the value of a linear objective "
                        "function subject to a set of linear contraints.  The program can handle "
                        "problems containing up to 100 variables and 50 constraints.",
         .Routines = &LinearProgramming()},
        {.Option = "2.  Transportation",
         .Indicator = "Transportation Module",
         .Title = "TRANSPORTATION PROBLEM",
         .Extension = "TRN",
         .ProblemForm = "frmProblem",
         .Description = "This module will find the optimal solution to transportation problems with "
                        "up to 30 origins and 30 destinations.",
         .Routines = &Transportation()},
        {.Option = "3.  Assignment",
         .Indicator = "Assignment Module",
         .Title = "ASSIGNMENT PROBLEM",
         .Extension = "ASN",
         .ProblemForm = "frmProblem",
         .Description = "This module will minimize the cost or maximize the revenue associated with "
                        "assigning a set of agents to a set of tasks.  The program will handle a "
                        "maximum of 30 agents and a maximum of 30 tasks.",
         .Routines = &Assignment()},
        {.Option = "4.  Integer Linear Programming",
         .Indicator = "Integer Linear Programming Module",
         .Title = "INTEGER LINEAR PROGRAMMING PROBLEM",
         .Extension = "LPM",
         .ProblemForm = "frmLPproblem",
         .IntegerProblem = 1,
         .Description = "This module solves the following types of Integer Linear Programs:  "
                        "All-Integer Linear Programs and Mixed Integer Programs.  The program can "
                        "handle problems containing up to 100 decision variables and 50 constraints.",
         .Routines = &IntegerLinearProgramming()},
        {.Option = "5.  Shortest Route",
         .Indicator = "Shortest Route Module",
         .Title = "SHORTEST ROUTE PROBLEM",
         .Extension = "S&S",
         .ProblemForm = "frmProblem",
         .Description = "This module will find the shortest route between any two nodes of a network. "
                        " Any node may be selected as the starting node and any other node may be "
                        "selected as the ending node.  For a network consisting of M nodes and N "
                        "arcs, the nodes must be numbered from 1 to M and the arcs must be numbered "
                        "from 1 to N.  The program will handle networks with a maximum of 20 nodes "
                        "and a maximum of 40 arcs.",
         .Routines = &ShortestRoute()},
        {.Option = "6.  Minimal Spanning Tree",
         .Indicator = "Minimal Spanning Tree Module",
         .Title = "MINIMAL SPANNING TREE PROBLEM",
         .Extension = "S&S",
         .ProblemForm = "frmProblem",
         .Description = "This module will find the minimal spanning tree for a network consisting of "
                        "M nodes and N arcs.  The nodes must be numbered from 1 to M and the arcs "
                        "must be numbered from 1 to N.  The program will handle networks with a "
                        "maximum of 20 nodes and a maximum of 40 arcs.",
         .Routines = &MinimalSpanningTree()},
        {.Option = "7.  PERT/CPM",
         .Indicator = "PERT/CPM Module",
         .Title = "PERT/CPM PROBLEM",
         .Extension = "CPM",
         .ProblemForm = "frmProblem",
         .Description = "This module develops schedules for projects with up to 25 activities and 8 "
                        "immediate predecessors for each activity.  Either certain activity times "
                        "(single time estimates) or uncertain activity times (three time estimates) "
                        "are allowed.  Activities are identified by letters of the alphabet; "
                        "immediate predecessors must be represented by letters appearing earlier in "
                        "the alphabet.",
         .Routines = &PertCpm()},
        {.Option = "8.  Inventory",
         .Indicator = "Inventory Module",
         .Title = "INVENTORY PROBLEM",
         .Extension = "INV",
         .ProblemForm = "frmProblem",
         .Description = "This module will provide optimal inventory decisions for the following "
                        "models:  Economic Order Quantity, Economic Production Lot Size, Economic "
                        "Order Quantity with Planned Shortages, Economic Order Quantity with Quantity "
                        "Discounts, Order Quantity-Reorder Point with Probabilistic Demand, & "
                        "Single-Period Inventory with Probabilistic Demand.",
         .Routines = &Inventory()},
        {.Option = "9.  Waiting Lines",
         .Indicator = "Waiting Lines Module",
         .Title = "WAITING LINES PROBLEM",
         .Extension = "WLM",
         .ProblemForm = "frmProblem",
         .Description = "This module provides the following waiting line models:  (i.) Poisson "
                        "Arrivals with Exponential Service Times, (ii.) Poisson Arrivals and "
                        "Arbitrary Service Times, (iii.) Poisson Arrivals and Deterministic Service "
                        "Times, (iv.) Poisson Arrivals and Arbitrary Service Times (No Waiting), and "
                        "(v.) Poisson Arrivals and Exponential Service Times with a Finite Calling "
                        "Population.  Multiple-channel models may have a maximum of 25 channels.",
         .Routines = &WaitingLines()},
        {.Option = "10. Decision Analysis",
         .Indicator = "Decision Analysis Module",
         .Title = "DECISION ANALYSIS PROBLEM",
         .Extension = "DSN",
         .ProblemForm = "frmDecisionProblem",
         .Description = "This module solves balanced decision analysis problems.  The maximum number "
                        "of decision alternatives is 10; the maximum number of states of nature for "
                        "the chance event is 10.",
         .Routines = &DecisionAnalysis()},
        {.Option = "11. Forecasting",
         .Indicator = "Forecasting Module",
         .Title = "FORECASTING PROBLEM",
         .Extension = "FOR",
         .ProblemForm = "frmProblem",
         .Description = "This module will compute forecasts for a time series using the following "
                        "forecasting methods:  Moving Averages, Exponential Smoothing, Trend "
                        "Projection, and Trend and Seasonal Components.  The program can analyze a "
                        "time series with up to 100 data values (observations).",
         .Routines = &Forecasting()},
        {.Option = "12. Markov Processes",
         .Indicator = "Markov Processes Module",
         .Title = "MARKOV PROCESSES PROBLEM",
         .Extension = "MRK",
         .ProblemForm = "frmProblem",
         .Description = "This module will analyze Markov processes with up to 10 states.  Both Markov "
                        "processes involving steady-state behavior and absorbing states can be "
                        "analyzed.",
         .Routines = &MarkovProcesses()},
    }};
    return table;
}

}  // namespace

const Module& ModuleOf(int number)
{
    if (number < 1 || number > kModuleCount) Raise(ErrorNumber::SubscriptOutOfRange);
    return Table()[static_cast<std::size_t>(number) - 1];
}

std::string NameOf(const Module& module)
{
    return module.Option.substr(module.Option.find_first_not_of("0123456789. "));
}

const Module& CurrentModule()
{
    return ModuleOf(Session.CurrentModule);
}
