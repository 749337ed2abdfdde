// The transportation report on the screen and in full.
#include "tableau/transout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "shell/solution.h"
#include "tableau/tables.h"

namespace {

using Tableau::Problem;
using testing::ElementsAre;
using Lines = std::vector<std::string>;

class TransportationReport : public testing::Test {
protected:
    const Lines& Shown()
    {
        Solve();
        SolutionPage page;
        Tableau::WriteTransportationPage(page);
        return SolutionLines();
    }
};

// A table of so many lines in which every origin has one unit for each destination.
void GiveLines(int origins, int destinations)
{
    const auto rows = static_cast<std::size_t>(origins);
    const auto columns = static_cast<std::size_t>(destinations);
    GiveTransportation(Rows(rows, std::vector<double>(columns, 1)), std::vector<int>(rows, destinations),
                       std::vector<int>(columns, origins));
}

TEST_F(TransportationReport, ABalancedScheduleEndsWithItsTotal)
{
    GiveTransportation({{4, 2.5}, {1, 3}}, {10, 20}, {15, 15});
    Problem.DecimalPlaces = 1.0;
    EXPECT_THAT(Shown(), ElementsAre("  FROM    TO DESTINATION",                          //
                                     " ORIGIN      1      2  ",                           //
                                     " ------   ------ ------",                           //
                                     "    1          0     10",                           //
                                     "    2         15      5",                           //
                                     "",                                                  //
                                     "    TOTAL TRANSPORTATION COST OR REVENUE IS:  55",  //
                                     ""));
    EXPECT_TRUE(Tableau::TransportationOutcome().Before.empty());
}

TEST_F(TransportationReport, ExcessSupplyIsListedByOrigin)
{
    GiveTransportation({{1}, {9}, {8}}, {10, 10, 3}, {12});
    EXPECT_THAT(Shown(), ElementsAre("  FROM   TO DESTINATION",                                 //
                                     " ORIGIN      1  ",                                        //
                                     " ------   ------",                                        //
                                     "    1         10",                                        //
                                     "    2          0",                                        //
                                     "    3          2",                                        //
                                     "",                                                        //
                                     "    TOTAL TRANSPORTATION COST OR REVENUE IS:  26",        //
                                     "",                                                        //
                                     "NOTE:  THE TOTAL SUPPLY EXCEEDS THE TOTAL DEMAND BY 11",  //
                                     "",                                                        //
                                     "       ORIGIN       EXCESS SUPPLY",                       //
                                     "       ------       -------------",                       //
                                     "         2                   10",                         //
                                     "         3                    1"));
}

TEST_F(TransportationReport, ShortSupplyIsWarnedOfAndListedByDestination)
{
    GiveTransportation({{1, 9}}, {10}, {6, 7});
    EXPECT_THAT(Shown(), ElementsAre("  FROM    TO DESTINATION",                               //
                                     " ORIGIN      1      2  ",                                //
                                     " ------   ------ ------",                                //
                                     "    1          6      4",                                //
                                     "",                                                       //
                                     "    TOTAL TRANSPORTATION COST OR REVENUE IS:  42",       //
                                     "",                                                       //
                                     "NOTE:  THE TOTAL DEMAND EXCEEDS THE TOTAL SUPPLY BY 3",  //
                                     "",                                                       //
                                     "    DESTINATION   UNSATISFIED DEMAND",                   //
                                     "    -----------   ------------------",                   //
                                     "         2                    3"));
    const auto notices = Tableau::TransportationOutcome().Before;
    ASSERT_EQ(notices.size(), 1U);
    EXPECT_EQ(notices[0].Text,
              "Total demand exceeds total supply by 3.  The solution given provides the optimal shipment "
              "schedule for the available supply.  Some destinations will have unsatisfied demand.");
    EXPECT_EQ(notices[0].Title, "Warning:  INSUFFICIENT SUPPLY");
    EXPECT_EQ(notices[0].Sign, Icon::Information);
}

TEST_F(TransportationReport, TheTotalShowsTheDecimalsOfTheData)
{
    GiveTransportation({{0.125}}, {3}, {3});
    EXPECT_EQ(Shown()[5], "    TOTAL TRANSPORTATION COST OR REVENUE IS:  0.375");
    GiveTransportation({{-2}}, {3}, {3});
    EXPECT_EQ(Shown()[5], "    TOTAL TRANSPORTATION COST OR REVENUE IS:  -6");
}

TEST_F(TransportationReport, RevenuesAreShownAsEntered)
{
    GiveTransportation({{5, 7}}, {3}, {3, 3}, "YES");
    EXPECT_EQ(Shown()[3], "    1          0      3");
    EXPECT_EQ(Shown()[5], "    TOTAL TRANSPORTATION COST OR REVENUE IS:  21");
}

// ---- blocks ----

struct WidthRow {
    int destinations;
    std::vector<int> widths;  // of the blocks
};

TEST_F(TransportationReport, BlocksHoldNineDestinationsEach)
{
    for (const WidthRow& row :
         {WidthRow{1, {1}}, WidthRow{9, {9}}, WidthRow{10, {9, 1}}, WidthRow{18, {9, 9}},
          WidthRow{19, {9, 9, 1}}, WidthRow{27, {9, 9, 9}}, WidthRow{28, {9, 9, 9, 1}},
          WidthRow{29, {9, 9, 9, 2}}, WidthRow{30, {9, 9, 9, 3}}}) {
        GiveLines(1, row.destinations);
        std::vector<int> widths;
        for (const std::string& line : Shown())
            if (line.starts_with(" ------")) widths.push_back(static_cast<int>(line.size() - 9) / 7);
        EXPECT_EQ(widths, row.widths) << row.destinations;
    }
}

// Blanks between "FROM" and "TO DESTINATION" for 1 to 9 columns.
TEST_F(TransportationReport, TheHeaderWidensWithItsBlock)
{
    constexpr std::array kGaps = {3, 4, 8, 11, 15, 18, 22, 25, 29};
    for (int columns = 1; columns <= 9; ++columns) {
        GiveLines(1, columns);
        EXPECT_EQ(
            Shown()[0],
            "  FROM" +
                std::string(static_cast<std::size_t>(kGaps.at(static_cast<std::size_t>(columns) - 1)), ' ') +
                "TO DESTINATION");
    }
}

TEST_F(TransportationReport, EveryWidthShowsEachDestinationOnce)
{
    for (int columns = 1; columns <= 30; ++columns) {
        GiveLines(2, columns);
        std::string numbers;
        int rows = 0;
        for (const std::string& line : Shown()) {
            if (line.starts_with(" ORIGIN")) numbers += line.substr(9);
            if (line.starts_with("    1    ") || line.starts_with("    2    ")) ++rows;
        }
        std::string expected;
        for (int j = 1; j <= columns; ++j)
            expected += (j < 10 ? "    " : "   ") + std::to_string(j) + "  ";
        EXPECT_EQ(numbers, expected);
        EXPECT_EQ(rows, 2 * ((columns + 8) / 9));
    }
}

// ---- the full report ----

TEST_F(TransportationReport, TheStatementNamesTheProblemAndItsObjective)
{
    GiveTransportation({{1}}, {1}, {1});
    EXPECT_THAT(LinesOf(Tableau::PrintProblemStatement),
                ElementsAre("    TRANSPORTATION PROBLEM", "    **********************",
                            "    OBJECTIVE:  MINIMIZATION"));
    GiveAssignment({{1}}, "YES");
    Solve();
    EXPECT_THAT(
        LinesOf(Tableau::PrintProblemStatement),
        ElementsAre("    ASSIGNMENT PROBLEM", "    ******************", "    OBJECTIVE:  MAXIMIZATION"));
}

TEST_F(TransportationReport, UpToTwelveLinesAreListedInOneColumn)
{
    GiveTransportation({{1, 1}}, {123456}, {4, 0});
    EXPECT_THAT(LinesOf(Tableau::PrintSuppliesAndDemands),
                ElementsAre("    SUMMARY OF ORIGIN SUPPLIES",      //
                            "    **************************",      //
                            "         ORIGIN      SUPPLY",         //
                            "         ------      ------",         //
                            "            1       123456",          //
                            "    SUMMARY OF DESTINATION DEMANDS",  //
                            "    ******************************",  //
                            "      DESTINATION    DEMAND",         //
                            "      -----------    ------",         //
                            "            1            4",          //
                            "            2            0"));
}

// Supplies 1, 2, 3 ... and demands 101, 102, ...: the listing alone, nothing is solved.
void GiveCountedLines(int origins, int destinations)
{
    GiveLines(origins, destinations);
    for (int i = 1; i <= origins; ++i)
        Problem.NodeSupply(i) = i;
    for (int j = 1; j <= destinations; ++j)
        Problem.NodeSupply(origins + j) = -100 - j;
}

TEST_F(TransportationReport, TwelveLinesStandInOneColumnAndThirteenInTwo)
{
    GiveCountedLines(12, 12);
    EXPECT_EQ(LinesOf(Tableau::PrintSuppliesAndDemands).size(), 32u);
    EXPECT_EQ(LinesOf(Tableau::PrintSuppliesAndDemands)[15], "           12           12");
    EXPECT_EQ(LinesOf(Tableau::PrintSuppliesAndDemands)[31], "           12          112");
    GiveCountedLines(13, 13);
    const Lines lines = LinesOf(Tableau::PrintSuppliesAndDemands);
    ASSERT_EQ(lines.size(), 32u);
    EXPECT_EQ(lines[2], "         ORIGIN      SUPPLY               ORIGIN      SUPPLY");
    EXPECT_EQ(lines[3], "         ------      ------               ------      ------");
    EXPECT_EQ(lines[4], "            1            1           13           13");
    EXPECT_EQ(lines[5], "            2            2");
    EXPECT_EQ(lines[15], "           12           12");
    EXPECT_EQ(lines[18], "      DESTINATION    DEMAND            DESTINATION    DEMAND");
    EXPECT_EQ(lines[19], "      -----------    ------            -----------    ------");
    EXPECT_EQ(lines[20], "            1          101           13          113");
    EXPECT_EQ(lines[21], "            2          102");
}

TEST_F(TransportationReport, TwentyFourLinesStandInTwoFullColumns)
{
    GiveCountedLines(24, 24);
    const Lines lines = LinesOf(Tableau::PrintSuppliesAndDemands);
    ASSERT_EQ(lines.size(), 32u);
    EXPECT_EQ(lines[15], "           12           12           24           24");
    EXPECT_EQ(lines[31], "           12          112           24          124");
}

TEST_F(TransportationReport, TwentyFiveLinesStandInThreeColumns)
{
    GiveCountedLines(25, 25);
    const Lines lines = LinesOf(Tableau::PrintSuppliesAndDemands);
    ASSERT_EQ(lines.size(), 32u);
    EXPECT_EQ(lines[2], "    ORIGIN   SUPPLY        ORIGIN   SUPPLY        ORIGIN   SUPPLY");
    EXPECT_EQ(lines[3], "    ------   ------        ------   ------        ------   ------");
    EXPECT_EQ(lines[4], "         1           1        13          13        25          25");
    EXPECT_EQ(lines[5], "         2           2        14          14");
    EXPECT_EQ(lines[15], "        12          12        24          24");
    EXPECT_EQ(lines[18], "   DESTINATION   DEMAND     DESTINATION   DEMAND     DESTINATION   DEMAND");
    EXPECT_EQ(lines[19], "   -----------   ------     -----------   ------     -----------   ------");
    EXPECT_EQ(lines[20], "         1         101        13         113        25         125");
    EXPECT_EQ(lines[21], "         2         102        14         114");
}

TEST_F(TransportationReport, ThirtyLinesFillHalfOfTheThirdColumn)
{
    GiveCountedLines(30, 30);
    const Lines lines = LinesOf(Tableau::PrintSuppliesAndDemands);
    ASSERT_EQ(lines.size(), 32u);
    EXPECT_EQ(lines[9], "         6           6        18          18        30          30");
    EXPECT_EQ(lines[10], "         7           7        19          19");
    EXPECT_EQ(lines[25], "         6         106        18         118        30         130");
}

// The demands are listed by the number of origins: here the third column is left out.
TEST_F(TransportationReport, TwentyFourOriginsLeaveOutTheThirdColumnOfDemands)
{
    GiveCountedLines(24, 30);
    const Lines lines = LinesOf(Tableau::PrintSuppliesAndDemands);
    ASSERT_EQ(lines.size(), 32u);
    EXPECT_EQ(lines[20], "         1         101        13         113");
    EXPECT_EQ(lines[31], "        12         112        24         124");
}

TEST_F(TransportationReport, FewerOriginsFailTheListingOfManyDemands)
{
    for (const int origins : {1, 12, 23}) {
        GiveCountedLines(origins, 25);
        try {
            LinesOf(Tableau::PrintSuppliesAndDemands);
            FAIL() << origins;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
        }
    }
    GiveCountedLines(23, 24);
    EXPECT_EQ(LinesOf(Tableau::PrintSuppliesAndDemands).size(), 32u);
}

// Rows that the listing counts beyond the last destination: one more is the solver's root, the next fails.
TEST_F(TransportationReport, MoreOriginsThanDestinationsRunThroughTheThirdColumn)
{
    GiveCountedLines(26, 25);
    EXPECT_EQ(LinesOf(Tableau::PrintSuppliesAndDemands)[21],
              "         2         102        14         114        26           0");
    GiveCountedLines(27, 25);
    EXPECT_THROW(LinesOf(Tableau::PrintSuppliesAndDemands), RuntimeError);
}

TEST_F(TransportationReport, CostsAreShownWithTheDecimalsOfTheProblem)
{
    GiveTransportation({{12, 3.456}, {-999999, 999999}}, {1, 1}, {1, 1});
    const auto rows = [](double places) {
        Problem.DecimalPlaces = places;
        const Lines lines = LinesOf(Tableau::PrintTransportationCosts);
        return Lines(lines.begin() + 5, lines.end());
    };
    EXPECT_THAT(rows(0), ElementsAre("    1         12      3", "    2    -999999 999999"));
    EXPECT_THAT(rows(1), ElementsAre("    1       12.0    3.5", "    2    -999999999999."));
    EXPECT_THAT(rows(2), ElementsAre("    1      12.00   3.46", "    2    -999999999999."));
    EXPECT_THAT(LinesOf(Tableau::PrintTransportationCosts),
                ElementsAre("    SUMMARY OF UNIT COST OR REVENUE DATA",
                            "    ************************************", "  FROM    TO DESTINATION",
                            " ORIGIN      1      2  ", " ------   ------ ------", testing::_, testing::_));
}

TEST_F(TransportationReport, TheFullReportWarnsBeforeTheSchedule)
{
    GiveTransportation({{1.5, 9}}, {10}, {6, 7});
    Solve();
    EXPECT_THAT(LinesOf(Tableau::PrintTransportationSolution),
                ElementsAre("     WARNING:  INSUFFICIENT SUPPLY",                                       //
                            "     *****************************",                                       //
                            "     Total demand exceeds total supply by 3 ",                             //
                            "     The solution given provides the optimal shipment schedule for the ",  //
                            "     available supply.  Some destinations will have unsatisfied demand.",  //
                            "    OPTIMAL TRANSPORTATION SCHEDULE",                                      //
                            "    *******************************",                                      //
                            "  SHIP",                                                                   //
                            "  FROM    TO DESTINATION",                                                 //
                            " ORIGIN      1      2  ",                                                  //
                            " ------   ------ ------",                                                  //
                            "    1          6      4",                                                  //
                            "",                                                                         //
                            "    TOTAL TRANSPORTATION COST OR REVENUE IS 45 ",                          //
                            "",                                                                         //
                            "    NOTE:  THE TOTAL DEMAND EXCEEDS THE TOTAL SUPPLY BY 3 ",               //
                            "",                                                                         //
                            "    DESTINATION   UNSATISFIED DEMAND",                                     //
                            "    -----------   ------------------",                                     //
                            "         2                    3"));
}

TEST_F(TransportationReport, TheFullReportNotesExcessSupply)
{
    GiveTransportation({{-2}}, {10}, {6});
    Solve();
    const Lines lines = LinesOf(Tableau::PrintTransportationSolution);
    EXPECT_THAT(Lines(lines.begin() + 7, lines.end()),
                ElementsAre("", "    TOTAL TRANSPORTATION COST OR REVENUE IS-12 ", "",
                            "    NOTE:  THE TOTAL SUPPLY EXCEEDS THE TOTAL DEMAND BY 4 ", "",
                            "       ORIGIN       EXCESS SUPPLY", "       ------       -------------",
                            "         1                    4"));
}

TEST_F(TransportationReport, ATableOfZeroesShipsNothing)
{
    GiveTransportation({{0, 0}}, {4}, {3, 1});
    const Lines& lines = Shown();
    EXPECT_EQ(lines[3], "    1          0      0");
    EXPECT_EQ(lines.size(), 7u);
}

}  // namespace
