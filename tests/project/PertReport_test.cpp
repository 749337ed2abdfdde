#include "project/PertReport.h"

#include <gmock/gmock.h>

#include "project/project_support.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"

using namespace VtPert_CPM;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

class Lines : public ReportChannel {
public:
    std::vector<std::string> lines;
    void Write(std::string_view text) override { lines.emplace_back(text); }
    void NewPage() override {}
    [[nodiscard]] bool OnPaper() const override { return true; }
};

class PertReport : public ::testing::Test {
protected:
    PertReport() { Session = {}; }

    // The report on screen.
    std::vector<std::string> Solved(const std::vector<Activity>& activities, int decimalPlaces = 0)
    {
        Given(activities);
        Problem.DecimalPlaces = decimalPlaces;
        Calculate();
        SolutionPage page;
        WritePertReport(page);
        return SolutionLines();
    }

    static std::vector<std::string> Printed()
    {
        Lines out;
        PrintPertReport(out);
        return out.lines;
    }

    FakeDesktop desktop;
};

TEST_F(PertReport, KnownTimesOnScreen)
{
    EXPECT_THAT(Solved({{"", {3}}, {"A", {4}}, {"", {2}}}),
                ElementsAre("                         ***  ACTIVITY SCHEDULE  ***",  //
                            "",                                                      //
                            "            EARLIEST    LATEST    EARLIEST    LATEST              CRITICAL ",
                            " ACTIVITY     START      START     FINISH     FINISH     SLACK    ACTIVITY ",
                            " *************************************************************************",
                            "",  //
                            "     A           0          0          3          3          0     YES",
                            "     B           3          3          7          7          0     YES",
                            "     C           0          5          2          7          5      ",
                            "",  //
                            " ******************************************************************************",
                            "",                             //
                            "        CRITICAL PATH:  A-B",  //
                            "",                             //
                            "        PROJECT COMPLETION TIME = 7"));
}

TEST_F(PertReport, EstimatesOnScreen)
{
    // Means 3 and 13/6, variances 1 and 1/4.
    EXPECT_THAT(Solved({{"", {0, 3, 6}}, {"A", {1, 2, 4}}}),
                ElementsAre("               EXPECTED TIMES AND VARIANCES FOR ACTIVITIES",  //
                            "",                                                            //
                            "                 ACTIVITY    EXPECTED TIME     VARIANCE",     //
                            "                ******************************************",  //
                            "                     A           3.00             1.00",      //
                            "                     B           2.17             0.25",      //
                            "               *******************************************",  //
                            "",                                                            //
                            "                         ***  ACTIVITY SCHEDULE  ***",        //
                            "",                                                            //
                            "            EARLIEST    LATEST    EARLIEST    LATEST              CRITICAL ",
                            " ACTIVITY     START      START     FINISH     FINISH     SLACK    ACTIVITY ",
                            " *************************************************************************",
                            "",  //
                            "     A        0.00       0.00       3.00       3.00       0.00     YES",
                            "     B        3.00       3.00       5.17       5.17       0.00     YES",
                            "",  //
                            " ******************************************************************************",
                            "",                                                 //
                            "        CRITICAL PATH:  A-B",                      //
                            "",                                                 //
                            "        EXPECTED PROJECT COMPLETION TIME = 5.17",  //
                            "        VARIANCE OF PROJECT COMPLETION TIME = 1.25"));
}

TEST_F(PertReport, SeveralCriticalPathsAreNoted)
{
    const std::vector<std::string> note = {
        "",
        "",
        "   NOTE:  There is more than one critical path for this project.  ",
        "          The number of critical activities (zero slack) is greater",
        "          than the number of activities on the computed critical path.",
        "",
    };
    auto lines = Solved({{"", {3}}, {"", {3}}});
    std::vector<std::string> end(lines.end() - 6, lines.end());
    EXPECT_EQ(end, note);
    EXPECT_EQ(*(lines.end() - 7), "        PROJECT COMPLETION TIME = 3");

    lines = Solved({{"", {3, 3, 3}}, {"", {3, 3, 3}}});
    EXPECT_EQ(lines.back(), "");
    EXPECT_EQ(*(lines.end() - 2), "          ANOTHER CRITICAL PATH MAY YIELD A DIFFERENT PROJECT VARIANCE.");
    end.assign(lines.end() - 8, lines.end() - 2);
    EXPECT_EQ(end, note);
    EXPECT_EQ(*(lines.end() - 9), "        VARIANCE OF PROJECT COMPLETION TIME = 0");
}

TEST_F(PertReport, OneCriticalPathHasNoNote)
{
    EXPECT_THAT(Solved({{"", {3}}, {"A", {1}}}),
                Not(Contains("   NOTE:  There is more than one critical path for this project.  ")));
}

TEST_F(PertReport, DecimalsPickThePatterns)
{
    const std::vector<Activity> project = {{"", {2.25}}, {"", {1}}};
    EXPECT_THAT(Solved(project, 0),
                Contains("     B           0          1          1          2          1      "));
    EXPECT_THAT(Solved(project, 1),
                Contains("     B         0.0        1.3        1.0        2.3        1.3      "));
    EXPECT_THAT(Solved(project, 2),
                Contains("     B        0.00       1.25       1.00       2.25       1.25      "));
    EXPECT_EQ(SolutionLines().back(), "        PROJECT COMPLETION TIME = 2.25");
}

TEST_F(PertReport, ANumberThatIsTooLongLosesItsLastDigits)
{
    Solved({{"", {1234567890123}}});
    EXPECT_EQ(SolutionLines()[6], "     A           0          01234567890112345678901          0     YES");
}

TEST_F(PertReport, KnownTimesPrinted)
{
    Solved({{"", {3.5}}, {"A", {4}}, {"AB", {2}}}, 1);
    EXPECT_THAT(Printed(),
                ElementsAre("PROJECT SCHEDULING WITH PERT/CPM",                              //
                            "********************************",                              //
                            "                       ***  PROJECT ACTIVITY LIST  ***",        //
                            "                             IMMEDIATE           EXPECTED",     //
                            "            ACTIVITY        PREDECESSORS           TIME",       //
                            "          --------------------------------------------------",  //
                            "                A           -                       3.5",       //
                            "                B           A                       4.0",       //
                            "                C           A, B                    2.0",       //
                            "          --------------------------------------------------",  //
                            "                         ***  ACTIVITY SCHEDULE  ***",          //
                            "",                                                              //
                            "           EARLIEST     LATEST     EARLIEST     LATEST                CRITICAL ",
                            " ACTIVITY    START       START      FINISH      FINISH      SLACK     ACTIVITY ",
                            " ----------------------------------------------------------------------------",
                            "",  //
                            "     A         0.0        0.0        3.5        3.5        0.0     YES",
                            "     B         3.5        3.5        7.5        7.5        0.0     YES",
                            "     C         7.5        7.5        9.5        9.5        0.0     YES",
                            "",  //
                            " ******************************************************************************",
                            "",                                       //
                            "        CRITICAL PATH:  A-C",            //
                            "",                                       //
                            "        PROJECT COMPLETION TIME = 9.5",  //
                            "",                                       //
                            "",                                       //
                            "   NOTE:  There is more than one critical path for this project.  ",
                            "          The number of critical activities (zero slack) is greater",
                            "          than the number of activities on the computed critical path.", ""));
}

TEST_F(PertReport, EstimatesPrinted)
{
    Solved({{"", {0, 3, 6}}, {"A", {1, 2, 4}}});
    const auto lines = Printed();
    const std::vector<std::string> begin(lines.begin(), lines.begin() + 21);
    EXPECT_THAT(
        begin,
        ElementsAre("PROJECT SCHEDULING WITH PERT/CPM",                        //
                    "********************************",                        //
                    "                       ***  PROJECT ACTIVITY LIST  ***",  //
                    "                IMMEDIATE       OPTIMISTIC   MOST PROBABLE   PESSIMISTIC",
                    "   ACTIVITY    PREDECESSORS        TIME          TIME           TIME",
                    " -------------------------------------------------------------------------",
                    "      A        -                   0.00          3.00           6.00",
                    "      B        A                   1.00          2.00           4.00",
                    " -----------------------------------------------------------------------------",
                    "                  EXPECTED TIMES AND VARIANCES FOR ACTIVITIES",  //
                    "",                                                               //
                    "                    ACTIVITY    EXPECTED TIME     VARIANCE",     //
                    "                  -------------------------------------------",  //
                    "                     A           3.00             1.00",         //
                    "                     B           2.17             0.25",         //
                    "               *******************************************",     //
                    "",                                                               //
                    "                         ***  ACTIVITY SCHEDULE  ***",           //
                    "",                                                               //
                    "           EARLIEST     LATEST     EARLIEST     LATEST                CRITICAL ",
                    " ACTIVITY    START       START      FINISH      FINISH      SLACK     ACTIVITY "));
    EXPECT_EQ(lines.back(), "        VARIANCE OF PROJECT COMPLETION TIME = 1.25");
}

TEST_F(PertReport, EightPredecessorsStandInFullInTheList)
{
    std::vector<Activity> project(8, {"", {1}});
    project.push_back({"ABCDEFGH", {12}});
    Solved(project);
    EXPECT_THAT(Printed(), Contains("                I           A, B, C, D, E, F, G, H   12"));
}

// The list of predecessors ends at column 37, the optimistic times at 39: the least gap is two blanks.
TEST_F(PertReport, EightPredecessorsMoveTheEstimates)
{
    std::vector<Activity> project(8, {"", {1, 1, 1}});
    project.push_back({"ABCDEFGH", {2, 3, 4}});
    Solved(project);
    EXPECT_THAT(Printed(), Contains("      I        A, B, C, D, E, F, G, H  2            3              4"));
}

TEST_F(PertReport, WithoutASolveNothingIsPrinted)
{
    Given(kHouse);
    EXPECT_THAT(Printed(), IsEmpty());
}

TEST_F(PertReport, TwentyFiveActivitiesEndAtY)
{
    std::vector<Activity> chain = {{"", {1}}};
    std::vector<std::string> letters;
    letters.reserve(25);
    for (char letter = 'A'; letter < 'Y'; ++letter) {
        letters.emplace_back(1, letter);
        chain.push_back({letters.back(), {1}});
    }
    EXPECT_THAT(Solved(chain),
                Contains("        CRITICAL PATH:  A-B-C-D-E-F-G-H-I-J-K-L-M-N-O-P-Q-R-S-T-U-V-W-X-Y"));
    EXPECT_EQ(SolutionLines().back(), "        PROJECT COMPLETION TIME = 25");
}

}  // namespace
