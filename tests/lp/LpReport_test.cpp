#include "lp/LpReport.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "basic/error.h"
#include "lp/LP_Engine.h"
#include "lp/VtLP.h"
#include "lp/lp_problem.h"
#include "shell/menus.h"
#include "shell/report.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using VtLP::Problem;

using Lines = std::vector<std::string>;

class LpReport : public testing::Test {
protected:
    LpReport()
    {
        Session = {};
        Menus.Reset();
    }

    // The text lines and the objective line as a problem from the grids has them.
    static void SetText(const std::string& objective, const Lines& constraints)
    {
        Problem.LpObjectiveLine = objective;
        int i = VtLP::kObjectiveLine;
        for (const std::string& line : constraints)
            Problem.LpLines(++i) = line;
    }

    static Lines Screen()
    {
        SolutionPage page;
        ShowLpReport(page, LP_Engine::Result);
        return SolutionLines();
    }

    static Lines File()
    {
        TextFileChannel channel;
        WriteLpReport(channel, LP_Engine::Result);
        Lines lines;
        std::string line;
        for (const char c : channel.Text()) {
            if (c != '\n') {
                line += c;
            } else {
                lines.push_back(line);
                line.clear();
            }
        }
        return lines;
    }

    std::vector<Lines> Pages()
    {
        desktop.printer.pages.clear();
        desktop.printer.Begin("Courier New", 12);
        PrinterChannel channel;
        WriteLpReport(channel, LP_Engine::Result);
        desktop.printer.EndDoc();
        return desktop.printer.pages;
    }

    FakeDesktop desktop;
};

const Lp kDoors{false, {3, 5}, {{{1, 0}, '<', 4}, {{0, 2}, '<', 12}, {{3, 2}, '<', 18}}};

TEST_F(LpReport, OfALinearProgramOnTheScreen)
{
    Solve(kDoors);
    EXPECT_THAT(Screen(),
                ElementsAre("Optimal Solution",                                                       //
                            "Objective Function Value =          36.000",                             //
                            "",                                                                       //
                            "      Variable             Value             Reduced Costs   ",          //
                            "   --------------     ---------------      ------------------ ",         //
                            "       X1                      2.000                  0.000",            //
                            "       X2                      6.000                  0.000",            //
                            "",                                                                       //
                            "     Constraint        Slack/Surplus           Dual Prices    ",         //
                            "   --------------     ---------------      ------------------",          //
                            "         1                     2.000                  0.000",            //
                            "         2                     0.000                  1.500",            //
                            "         3                     0.000                  1.000",            //
                            "",                                                                       //
                            "",                                                                       //
                            "OBJECTIVE COEFFICIENT RANGES",                                           //
                            "",                                                                       //
                            "   Variable       Lower Limit       Current Value     Upper Limit",      //
                            " ------------   ---------------    ---------------  ---------------",    //
                            "      X1                  0.000             3.000             7.500",    //
                            "      X2                  2.000             5.000    No Upper Limit",    //
                            "",                                                                       //
                            "RIGHT HAND SIDE RANGES",                                                 //
                            "",                                                                       //
                            "  Constraint      Lower Limit       Current Value     Upper Limit",      //
                            " ------------   ---------------    ---------------  ---------------",    //
                            "       1                  2.000             4.000    No Upper Limit",    //
                            "       2                  6.000            12.000            18.000",    //
                            "       3                 12.000            18.000            24.000"));  //
}

TEST_F(LpReport, OfALinearProgramInFull)
{
    SetProblem(kDoors);
    SetText("MAX 3X1+5X2", {"1X1<4", "2X2<12", "3X1+2X2<18"});
    SolveModel();
    EXPECT_THAT(File(),
                ElementsAre("LINEAR PROGRAMMING PROBLEM",                                             //
                            "",                                                                       //
                            "MAX 3X1+5X2",                                                            //
                            "",                                                                       //
                            "     S.T.",                                                              //
                            "",                                                                       //
                            "       1)  1X1<4",                                                       //
                            "       2)  2X2<12",                                                      //
                            "       3)  3X1+2X2<18",                                                  //
                            "\f",                                                                     //
                            "OPTIMAL SOLUTION",                                                       //
                            "",                                                                       //
                            "Objective Function Value =          36.000",                             //
                            "",                                                                       //
                            "      Variable             Value             Reduced Costs   ",          //
                            "   --------------     ---------------      ------------------ ",         //
                            "       X1                       2.000                   0.000",          //
                            "       X2                       6.000                   0.000",          //
                            "",                                                                       //
                            "",                                                                       //
                            "     Constraint        Slack/Surplus           Dual Prices    ",         //
                            "   --------------     ---------------      ------------------",          //
                            "         1                      2.000                   0.000",          //
                            "         2                      0.000                   1.500",          //
                            "         3                      0.000                   1.000",          //
                            "\f",                                                                     //
                            "OBJECTIVE COEFFICIENT RANGES",                                           //
                            "",                                                                       //
                            "   Variable       Lower Limit       Current Value     Upper Limit",      //
                            " ------------   ---------------    ---------------  ---------------",    //
                            "      X1                 0.000              3.000            7.500",     //
                            "      X2                 2.000              5.000   No Upper Limit",     //
                            "",                                                                       //
                            "",                                                                       //
                            "RIGHT HAND SIDE RANGES",                                                 //
                            "",                                                                       //
                            "  Constraint      Lower Limit       Current Value     Upper Limit",      //
                            " ------------   ---------------    ---------------  ---------------",    //
                            "       1                  2.000              4.000   No Upper Limit",    //
                            "       2                  6.000             12.000           18.000",    //
                            "       3                 12.000             18.000           24.000"));  //
}

TEST_F(LpReport, OfAnIntegerProgramHasValuesOnly)
{
    SetProblem({false, {8, 5}, {{{1, 1}, '<', 6}, {{9, 5}, '<', 45}}});
    SetText("MAX 8X1+5X2", {"1X1+1X2<6", "9X1+5X2<45", "DIN"});
    SolveModel(true);
    EXPECT_THAT(Screen(), ElementsAre("Optimal Solution",                             //
                                      "Objective Function Value =          40.000",   //
                                      "",                                             //
                                      "      Variable             Value",             //
                                      "   --------------     ---------------  ",      //
                                      "       X1                      5.000",         //
                                      "       X2                      0.000",         //
                                      "",                                             //
                                      "     Constraint        Slack/Surplus",         //
                                      "   --------------     --------------- ",       //
                                      "         1                     1.000",         //
                                      "         2                     0.000"));       //
    EXPECT_THAT(File(), ElementsAre("INTEGER LINEAR PROGRAMMING PROBLEM",             //
                                    "",                                               //
                                    "MAX 8X1+5X2",                                    //
                                    "",                                               //
                                    "     S.T.",                                      //
                                    "",                                               //
                                    "       1)  1X1+1X2<6",                           //
                                    "       2)  9X1+5X2<45",                          //
                                    "\f",                                             //
                                    "OPTIMAL SOLUTION",                               //
                                    "",                                               //
                                    "Objective Function Value =          40.000",     //
                                    "",                                               //
                                    "      Variable             Value",               //
                                    "   --------------     ---------------  ",        //
                                    "       X1                       5.000      ",    //
                                    "       X2                       0.000      ",    //
                                    "",                                               //
                                    "",                                               //
                                    "     Constraint        Slack/Surplus",           //
                                    "   --------------     --------------- ",         //
                                    "         1                      1.000      ",    //
                                    "         2                      0.000      "));  //
}

// min 5x + 2y, x + y >= 1, x + y = 1: the surplus of row 1 comes before row 2's artificial.
TEST_F(LpReport, AMinimisationShowsCostsAndPricesInItsOwnSense)
{
    Solve({true, {5, 2}, {{{1, 1}, '>', 1}, {{0, 1}, '<', 3}}});
    const Lines& lines = Screen();
    EXPECT_EQ(lines[1], "Objective Function Value =           2.000");
    EXPECT_EQ(lines[5], "       X1                      0.000                  3.000");
    EXPECT_EQ(lines[10], "         1                     0.000                 -2.000");
    EXPECT_EQ(lines[11], "         2                     2.000                  0.000");
    EXPECT_EQ(lines[18], "      X1                  2.000             5.000    No Upper Limit");
    EXPECT_EQ(lines[19], "      X2                  0.000             2.000             5.000");
}

TEST_F(LpReport, ASurplusIsFoundBehindTheColumnsOfTheRowsBeforeIt)
{
    Solve({true, {1, 1}, {{{1, 0}, '>', 2}, {{1, 1}, '>', 1}, {{0, 1}, '=', 4}, {{1, 0}, '<', 9}}});
    const Lines& lines = Screen();
    EXPECT_EQ(lines[10].substr(0, 36), "         1                     0.000");
    EXPECT_EQ(lines[11].substr(0, 36), "         2                     5.000");
    EXPECT_EQ(lines[12].substr(0, 36), "         3                     0.000");
    EXPECT_EQ(lines[13].substr(0, 36), "         4                     7.000");
}

TEST_F(LpReport, TheMostDecimalsOfAnyNumberAreThoseOfAll)
{
    SetProblem(kDoors);
    Problem.LpDecimalPlaces = 5;
    SolveModel();
    EXPECT_EQ(Screen()[1], "Objective Function Value =        36.00000");
    SetProblem(kDoors);
    Problem.LpDecimalPlaces = 13;
    SolveModel();
    EXPECT_EQ(Screen()[1], "Objective Function Value = 36.000000000000");  // cut at the field's end
    EXPECT_EQ(Screen()[5].substr(22, 14), "2.000000000000");
}

TEST_F(LpReport, MoreThanThirteenDecimalsAreARunTimeError)
{
    SetProblem(kDoors);
    Problem.LpDecimalPlaces = 14;
    SolveModel();
    EXPECT_THROW(Screen(), RuntimeError);
}

TEST_F(LpReport, NamesAreCentredAndCutToFourteenCharacters)
{
    SetProblem(kDoors);
    Problem.LpVariableNames(1) = "ABCDEFGHIJKLMNOP";
    Problem.LpVariableNames(2) = "ABCDEFGHIJKLM";
    SolveModel();
    const Lines& lines = Screen();
    EXPECT_EQ(Problem.LpVariableNames(1), "ABCDEFGHIJKLMNOP");
    EXPECT_EQ(lines[5], " ABCDEFGHIJKLMN                2.000                  0.000");
    EXPECT_EQ(lines[6], " ABCDEFGHIJKLM                 6.000                  0.000");
    EXPECT_EQ(lines[19], " ABCDEFGHIJKLMN           0.000             3.000             7.500");
    const Lines file = File();
    EXPECT_EQ(file[file.size() - 11],
              " ABCDEFGHIJKLMN             0.000              3.000            7.500");
    EXPECT_EQ(file[file.size() - 10], " ABCDEFGHIJKLM             2.000              5.000   No Upper Limit");
}

TEST_F(LpReport, OddNamesStandLeftOfTheMiddle)
{
    SetProblem(kDoors);
    Problem.LpVariableNames(1) = "A";
    Problem.LpVariableNames(2) = "ABC";
    SolveModel();
    EXPECT_EQ(Screen()[5].substr(0, 10), "       A  ");
    EXPECT_EQ(Screen()[6].substr(0, 10), "      ABC ");
    EXPECT_EQ(Screen()[20].substr(0, 9), "     ABC ");  // the ranges have room for 12 characters, not 14
    EXPECT_EQ(File()[File().size() - 10].substr(0, 9), "     ABC ");
}

// ---- a gain too small to take ----

// 5e-8 a unit is below the threshold of 1e-7: the variable stays at 0, and its reduced cost above.
class LpLeftGain : public LpReport {
protected:
    static void SolveWithLeftGain(const std::vector<double>& objective)
    {
        SetProblem({false, objective, {{{1, 0}, '<', 4}, {{0, 1}, '<', 3}}});
        Problem.LpDecimalPlaces = 9;
        SolveModel();
    }

    // The last words of the lines of both variables.
    static Lines ReducedCosts(const Lines& report)
    {
        const auto heading = std::find(report.begin(), report.end(),
                                       "      Variable             Value             Reduced Costs   ");
        Lines costs;
        for (const int j : {1, 2}) {
            const std::string& line = *(heading + 1 + j);
            costs.push_back(line.substr(line.rfind(' ') + 1));
        }
        return costs;
    }
};

TEST_F(LpLeftGain, StandsOnTheScreenAndIsCutInFullWithTheFirstVariableInTheBasis)
{
    SolveWithLeftGain({2, 5e-8});
    EXPECT_THAT(ReducedCosts(Screen()), ElementsAre("0.000000000", "0.000000050"));
    EXPECT_THAT(ReducedCosts(File()), ElementsAre("0.000000000", "0.000000000"));
}

TEST_F(LpLeftGain, StandsOnTheScreenAndIsCutInFullWithTheLastVariableInTheBasis)
{
    SolveWithLeftGain({5e-8, 2});
    EXPECT_THAT(ReducedCosts(Screen()), ElementsAre("0.000000050", "0.000000000"));
    EXPECT_THAT(ReducedCosts(File()), ElementsAre("0.000000000", "0.000000000"));
}

// Only the range of a basic variable cuts them, and here is none.
TEST_F(LpLeftGain, StandsInFullTooWithoutAVariableInTheBasis)
{
    SolveWithLeftGain({5e-8, 4e-8});
    EXPECT_THAT(ReducedCosts(Screen()), ElementsAre("0.000000050", "0.000000040"));
    EXPECT_THAT(ReducedCosts(File()), ElementsAre("0.000000050", "0.000000040"));
}

// ---- distances and pages ----

// `variables` and `constraints` of them, x_j <= j for as many as there are rows.
Lp Bounds(int variables, int constraints)
{
    const auto n = static_cast<std::size_t>(variables);
    Lp lp{false, std::vector<double>(n, 0.0), {}};
    for (int i = 0; i < constraints; ++i) {
        LpRow row{std::vector<double>(n, 0.0), '<', static_cast<double>(i + 1)};
        row.Coefficients[static_cast<std::size_t>(i % variables)] = 1;
        lp.Rows.push_back(row);
    }
    return lp;
}

int Find(const Lines& lines, const std::string& text)
{
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i] == text) return static_cast<int>(i);
    return -1;
}

constexpr const char* kConstraintHeading = "     Constraint        Slack/Surplus           Dual Prices    ";

TEST_F(LpReport, TablesOfMoreThanTwelveLinesStandFurtherApart)
{
    Solve(Bounds(6, 6));
    EXPECT_EQ(Find(Screen(), kConstraintHeading), 5 + 6 + 1);
    Solve(Bounds(7, 6));
    EXPECT_EQ(Find(Screen(), kConstraintHeading), 5 + 7 + 3);
}

TEST_F(LpReport, TablesOfFortyLinesAndMoreBeginOnPagesOfTheirOwn)
{
    Solve(Bounds(20, 19));
    EXPECT_EQ(Pages().size(), 3U);
    Solve(Bounds(20, 20));
    EXPECT_EQ(Pages().size(), 5U);
    EXPECT_EQ(Pages()[2].front(), kConstraintHeading);
    EXPECT_EQ(Pages()[4].front(), "RIGHT HAND SIDE RANGES");
}

// Six lines of heading, then one a variable: after the 49th of more the next page begins.
TEST_F(LpReport, LongTablesOfVariablesGoOnUnderTheirHeading)
{
    Solve(Bounds(49, 1));
    EXPECT_EQ(Pages()[1].size(), 6U + 49U);
    Solve(Bounds(50, 1));
    std::vector<Lines> pages = Pages();
    EXPECT_EQ(pages[1].size(), 6U + 49U);
    EXPECT_EQ(pages[2].size(), 6U + 1U);
    EXPECT_EQ(pages[2].front(), "OPTIMAL SOLUTION");
    EXPECT_EQ(pages[2][4], "      Variable             Value             Reduced Costs   ");
    EXPECT_EQ(pages[3].front(), kConstraintHeading);
    Solve(Bounds(100, 1));
    pages = Pages();
    EXPECT_EQ(pages[2].size(), 6U + 49U);
    EXPECT_EQ(pages[3].size(), 6U + 2U);
}

// Four lines of heading; the page ends when the count has passed 55, behind the 52nd.
TEST_F(LpReport, LongTablesOfRangesGoOnUnderTheirHeading)
{
    Solve(Bounds(52, 1));
    std::vector<Lines> pages = Pages();
    EXPECT_EQ(pages[4].size(), 4U + 52U);
    EXPECT_EQ(pages[5].front(), "RIGHT HAND SIDE RANGES");
    Solve(Bounds(53, 1));
    pages = Pages();
    EXPECT_EQ(pages[4].size(), 4U + 52U);
    EXPECT_EQ(pages[5].size(), 4U + 1U);
    EXPECT_EQ(pages[5].front(), "OBJECTIVE COEFFICIENT RANGES");
    EXPECT_EQ(pages[6].front(), "RIGHT HAND SIDE RANGES");
}

// So many come from adding variables only: 105 are 52 on the first page, as many on the second, and one.
TEST_F(LpReport, RangesGoOnOnAThirdPage)
{
    Solve(Bounds(105, 1));
    const std::vector<Lines> pages = Pages();
    const auto first = std::find_if(pages.begin(), pages.end(), [](const Lines& page) {
        return page.front() == "OBJECTIVE COEFFICIENT RANGES";
    });
    ASSERT_EQ(pages.end() - first, 4);
    EXPECT_EQ(first[0].size(), 4U + 52U);
    EXPECT_EQ(first[1].size(), 4U + 52U);
    EXPECT_EQ(first[2].size(), 4U + 1U);
    EXPECT_EQ(first[3].front(), "RIGHT HAND SIDE RANGES");
}

TEST_F(LpReport, TheTablesOfFiftyConstraintsFitTheirPages)
{
    Solve(Bounds(50, 50));
    const std::vector<Lines> pages = Pages();
    EXPECT_EQ(pages[3].size(), 2U + 50U);
    EXPECT_EQ(pages.back().size(), 4U + 50U);
}

// ---- the echo ----

class LpEcho : public LpReport {
protected:
    // The first page of a report with this text, behind its title.
    Lines Echo(const std::string& objective, const Lines& constraints)
    {
        SetProblem(Bounds(1, static_cast<int>(constraints.size())));
        SetText(objective, constraints);
        SolveModel();
        return Pages().front();
    }
};

TEST_F(LpEcho, AnObjectiveOfEightyCharactersIsOneLine)
{
    const std::string eighty(80, 'o');
    EXPECT_THAT(Echo(eighty, {"<1"}),
                ElementsAre("LINEAR PROGRAMMING PROBLEM", "", eighty, "", "     S.T.", "", "       1)  <1"));
    EXPECT_THAT(Echo(eighty + "p", {"<1"}), ElementsAre("LINEAR PROGRAMMING PROBLEM", "", eighty, "p", "",
                                                        "     S.T.", "", "       1)  <1"));
}

TEST_F(LpEcho, AConstraintOfSixtyEightCharactersIsOneLine)
{
    const std::string piece(68, 'c');
    EXPECT_EQ(Echo("MAX ", {piece}).back(), "       1)  " + piece);
    const Lines lines = Echo("MAX ", {piece + piece + "d"});
    EXPECT_THAT(Lines(lines.end() - 3, lines.end()), ElementsAre("       1)  " + piece, piece, "d"));
}

TEST_F(LpEcho, NumbersOfConstraintsStandFlushRightBeforeTheirBrackets)
{
    const Lines lines = Echo("MAX ", Lines(11, "<1"));
    EXPECT_EQ(lines[6 + 8], "       9)  <1");
    EXPECT_EQ(lines[6 + 9], "      10)  <1");
}

// Six lines of heading count 6; each constraint counts 2 though it takes one line; after the 24th (54, and 2
// more would pass 55) the next page begins, whose three lines of heading count 3: 26 constraints more.
TEST_F(LpEcho, LongListsOfConstraintsGoOnUnderTheirHeading)
{
    Echo("MAX ", Lines(24, "<1"));
    EXPECT_EQ(Pages()[1].front(), "OPTIMAL SOLUTION");
    Echo("MAX ", Lines(50, "<1"));
    const std::vector<Lines> pages = Pages();
    EXPECT_EQ(pages[0].size(), 6U + 24U);
    EXPECT_THAT(Lines(pages[1].begin(), pages[1].begin() + 3),
                ElementsAre("CONSTRAINTS (continued)", "=======================", ""));
    EXPECT_EQ(pages[1].size(), 3U + 26U);
    EXPECT_EQ(pages[1].back(), "      50)  <1");
    EXPECT_EQ(pages[2].front(), "OPTIMAL SOLUTION");
}

// Constraints of two pieces count 3 each: 6 + 3 * 16 = 54 and another 3 pass 55, as do 3 + 3 * 17 and 3.
TEST_F(LpEcho, PiecesOfConstraintsCountAsLines)
{
    Echo("MAX ", Lines(50, std::string(69, 'c')));
    const std::vector<Lines> pages = Pages();
    EXPECT_EQ(pages[0].size(), 6U + 2 * 16U);
    EXPECT_EQ(pages[1].size(), 3U + 2 * 17U);
    EXPECT_EQ(pages[2].size(), 3U + 2 * 17U);
    EXPECT_EQ(pages[3].front(), "OPTIMAL SOLUTION");
}

TEST_F(LpReport, OnPaperPagesTakeThePlaceOfFormFeeds)
{
    Solve(kDoors);
    for (const Lines& page : Pages())
        for (const std::string& line : page)
            EXPECT_EQ(line.find('\f'), std::string::npos);
}

TEST_F(LpReport, WithoutASolutionThereIsNothingToWrite)
{
    Solve({false, {1}, {{{-1}, '<', 1}}});
    EXPECT_THAT(File(), IsEmpty());
}

}  // namespace
