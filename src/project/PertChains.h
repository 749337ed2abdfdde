// What ties the activities of a schedule together, for the pictures, steps and sentences beside the report.
//
// A link is tight when the predecessor's earliest finish is the successor's earliest start. The chains of
// tight links from time 0 to the end of the project consist of the activities without slack; the path in the
// report is one walk through such activities and need not be one of these chains.
#pragma once

#include <string>
#include <vector>

#include "project/VtPert_CPM.h"

namespace VtPert_CPM {

struct Link {
    int From = 0;
    int To = 0;
};

// The predecessors of an activity that stand before it in the table, as the entry form has them.
std::vector<int> PredecessorsIn(const PertProblem& problem, int activity);
std::vector<int> SuccessorsIn(const PertProblem& problem, int activity);

std::vector<Link> LinksIn(const PertProblem& problem);  // by successor
bool IsTight(const PertResult& result, const Link& link);
bool IsCritical(const PertResult& result, int activity);
bool IsStrong(const PertResult& result, const Link& link);  // on a critical chain

double FreeSlack(const PertProblem& problem, const PertResult& result, int activity);  // delays nobody

std::vector<int> CriticalChain(const PertProblem& problem, const PertResult& result);  // one, first to last
double CountChains(const PertProblem& problem, const PertResult& result);

// The report's path in the order of the walk, first to last.
std::vector<int> WalkedPath(const PertProblem& problem, const PertResult& result);
// Its links that are not tight.
std::vector<Link> GapsOf(const PertResult& result, const std::vector<int>& path);
double LengthOf(const PertProblem& problem, const std::vector<int>& path);

// A time in the report's decimals.
std::string TimeOf(const PertProblem& problem, double time);
std::string CompletionText(const PertProblem& problem, const PertResult& result);  // as the report has it
std::vector<std::string> NamesOf(const PertProblem& problem, const std::vector<int>& activities);

// The chance that a project with this mean and variance is done by a time.
double ChanceBy(double time, double mean, double variance);

bool HasSchedule(const PertProblem& problem, const PertResult& result);

}  // namespace VtPert_CPM
