// The assignment report on the screen and in full.
#include "tableau/AssnOut.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/solution.h"
#include "tableau/tables.h"
#include "tableau/transout.h"

namespace {

using Tableau::Problem;
using testing::ElementsAre;
using Lines = std::vector<std::string>;

class AssignmentReport : public testing::Test {
protected:
    const Lines& Shown()
    {
        Solve();
        SolutionPage page;
        Tableau::WriteAssignment(page);
        return SolutionLines();
    }
};

TEST_F(AssignmentReport, ASquareTableHasNoNote)
{
    GiveAssignment({{15, 10, 9}, {9, 15, 10}, {10, 12, 8}});
    Lines lines = Shown();
    std::sort(lines.begin() + 2, lines.begin() + 5);  // agents are not sorted
    EXPECT_THAT(lines, ElementsAre("         OPTIMAL ASSIGNMENTS           COST/REVENUE",
                                   "         *******************           ************",
                                   "       ASSIGN AGENT  1 TO TASK  2              10",
                                   "       ASSIGN AGENT  2 TO TASK  1               9",
                                   "       ASSIGN AGENT  3 TO TASK  3               8",
                                   "                                        ---------- ",
                                   "         TOTAL COST/REVENUE                    27"));
}

TEST_F(AssignmentReport, TasksLeftOverAreCountedAndListed)
{
    GiveAssignment({{5, 3, 8}});
    EXPECT_THAT(Shown(), ElementsAre("         OPTIMAL ASSIGNMENTS           COST/REVENUE",
                                     "         *******************           ************",
                                     "       ASSIGN AGENT  1 TO TASK  2               3",
                                     "                                        ---------- ",
                                     "         TOTAL COST/REVENUE                     3",
                                     "       NOTE:  THE NUMBER OF TASKS EXCEEDS THE NUMBER OF AGENTS.",
                                     "             2 TASKS REMAIN UNASSIGNED.", "", "       UNASSIGNED TASKS",
                                     "       ----------------", "        1", "        3"));
}

TEST_F(AssignmentReport, OneTaskRemains)
{
    GiveAssignment({{5, 3}});
    EXPECT_EQ(Shown()[6], "             1 TASK REMAINS UNASSIGNED.");
    EXPECT_EQ(LinesOf(Tableau::WriteAssignment)[6], "              1 TASK REMAINS UNASSIGNED.");
}

TEST_F(AssignmentReport, AgentsLeftOverAreCountedAndListed)
{
    GiveAssignment({{5}, {3}, {8}}, "YES");
    const Lines& lines = Shown();
    EXPECT_THAT(Lines(lines.begin() + 5, lines.end()),
                ElementsAre("       NOTE:  THE NUMBER OF AGENTS EXCEEDS THE NUMBER OF TASKS.",
                            "             2 AGENTS REMAIN UNASSIGNED.", "", "       UNASSIGNED AGENTS",
                            "       -----------------", "        1", "        2"));
    EXPECT_EQ(LinesOf(Tableau::WriteAssignment)[6], "              2 AGENTS REMAIN UNASSIGNED.");
}

TEST_F(AssignmentReport, OneAgentRemains)
{
    GiveAssignment({{5}, {3}});
    EXPECT_EQ(Shown()[6], "             1 AGENT REMAINS UNASSIGNED.");
    EXPECT_EQ(LinesOf(Tableau::WriteAssignment)[6], "              1 AGENT REMAINS UNASSIGNED.");
}

TEST_F(AssignmentReport, DecimalsFollowTheProblem)
{
    GiveAssignment({{12.25}});
    Problem.DecimalPlaces = 1.0;
    EXPECT_EQ(Shown()[2], "       ASSIGN AGENT  1 TO TASK  1            12.3");
    EXPECT_EQ(Shown()[4], "         TOTAL COST/REVENUE                  12.3");
    Problem.DecimalPlaces = 2.0;
    EXPECT_EQ(Shown()[2], "       ASSIGN AGENT  1 TO TASK  1           12.25");
    EXPECT_EQ(Shown()[4], "         TOTAL COST/REVENUE                 12.25");
}

TEST_F(AssignmentReport, ASquareTableOfZeroesAssignsNobody)
{
    GiveAssignment({{0, 0}, {0, 0}});
    EXPECT_THAT(Shown(), ElementsAre("         OPTIMAL ASSIGNMENTS           COST/REVENUE",
                                     "         *******************           ************",
                                     "                                        ---------- ",
                                     "         TOTAL COST/REVENUE                     0"));
}

// Nobody is assigned, so the agents' own arcs to the root are listed too, numbered on below the first task.
TEST_F(AssignmentReport, AnOblongTableOfZeroesListsEveryNode)
{
    GiveAssignment({{0, 0, 0}, {0, 0, 0}});
    const Lines& lines = Shown();
    EXPECT_THAT(Lines(lines.begin() + 9, lines.end()),
                ElementsAre("       -1", "        0", "        1", "        2", "        3"));
}

// The node of the tree that holds the arc of an assignment: the agent's or the task's.
int HolderOf(const std::string& line)
{
    const int agent = std::stoi(line.substr(20, 2));
    const int task = std::stoi(line.substr(31, 2));
    const bool agentHolds = std::abs(Tableau::Result.BasicArc(agent)) == Tableau::ArcNumber(agent, task);
    return agentHolds ? agent : Problem.NumOrigins + task;
}

TEST_F(AssignmentReport, AssignmentsStandInTheOrderOfTheNodesThatHoldThem)
{
    GiveAssignment({{7, 4, 9, 3}, {2, 8, 6, 6}, {5, 5, 1, 7}, {9, 2, 4, 8}});
    const Lines& lines = Shown();
    ASSERT_EQ(lines.size(), 8u);
    for (std::size_t i = 3; i < 6; ++i)
        EXPECT_LT(HolderOf(lines[i - 1]), HolderOf(lines[i])) << lines[i];
}

TEST_F(AssignmentReport, TheCostTableStandsUnderTasks)
{
    GiveAssignment({std::vector<double>(10, 7)});
    EXPECT_THAT(LinesOf(Tableau::PrintAssignmentCosts),
                ElementsAre("    SUMMARY OF UNIT COST OR REVENUE DATA",
                            "    ************************************", "            TASK",
                            " AGENT       1      2      3      4      5      6      7      8      9  ",
                            " ------   ------ ------ ------ ------ ------ ------ ------ ------ ------",
                            "    1          7      7      7      7      7      7      7      7      7",
                            "            TASK", " AGENT      10  ", " ------   ------", "    1          7"));
}

TEST_F(AssignmentReport, TheFullReportRepeatsTheScreen)
{
    GiveAssignment({{5, 3}, {4, 6}});
    const Lines shown = Shown();
    EXPECT_EQ(LinesOf(Tableau::WriteAssignment), shown);
}

}  // namespace
