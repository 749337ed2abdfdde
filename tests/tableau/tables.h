// Tableaus for the tests of this folder, put into the record as the entry rules would.
#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "shell/report.h"
#include "shell/session.h"
#include "tableau/Criterion.h"
#include "tableau/VtTanda.h"
#include "tableau/taengine.h"
#include "tableau/transout.h"

using Rows = std::vector<std::vector<double>>;

inline void GiveCosts(const Rows& costs)
{
    Tableau::Problem = {};
    Tableau::Result = {};
    const int rows = static_cast<int>(costs.size());
    const int columns = static_cast<int>(costs[0].size());
    Tableau::Allocate(rows, columns);
    Tableau::JoinArcs();
    for (int i = 1; i <= rows; ++i)
        for (int j = 1; j <= columns; ++j)
            Tableau::Problem.ArcCost(Tableau::ArcNumber(i, j)) =
                costs[static_cast<std::size_t>(i) - 1][static_cast<std::size_t>(j) - 1];
}

inline void GiveAssignment(const Rows& costs, std::string_view maximize = "NO")
{
    Session = {};
    Session.CurrentModule = 3;
    Session.ProblemTitle = "ASSIGNMENT PROBLEM";
    MaximizeFlag = maximize;
    GiveCosts(costs);
}

inline void GiveTransportation(const Rows& costs, const std::vector<int>& supplies,
                               const std::vector<int>& demands, std::string_view maximize = "NO")
{
    Session = {};
    Session.CurrentModule = 2;
    Session.ProblemTitle = "TRANSPORTATION PROBLEM";
    MaximizeFlag = maximize;
    GiveCosts(costs);
    int node = 0;
    for (const int supply : supplies)
        Tableau::Problem.NodeSupply(++node) = supply;
    for (const int demand : demands)
        Tableau::Problem.NodeSupply(++node) = -demand;
}

// Solves by the sense at hand and keeps the result.
inline void Solve()
{
    Tableau::Result = Tableau::TaSolve(Tableau::Problem, MaximizeFlag == "YES");
}

inline Tableau::TransportationSchedule Schedule()
{
    return Tableau::ExtractSchedule(Tableau::Problem, Tableau::Result);
}

inline std::vector<std::string> LinesOf(void (*report)(ReportChannel&))
{
    TextFileChannel channel;
    report(channel);
    std::vector<std::string> lines;
    std::istringstream text(channel.Text());
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}
