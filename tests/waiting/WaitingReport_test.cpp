#include "waiting/WaitingReport.h"

#include <gmock/gmock.h>

#include "shell/solution.h"
#include "support/fake_desktop.h"
#include "support/report_lines.h"
#include "waiting/lines.h"

using testing::ElementsAre;

namespace {

using Lines = std::vector<std::string>;

constexpr const char* kNone = "(no line)";

class WaitingReports : public testing::Test {
protected:
    static Lines Screen()
    {
        SolveGiven();
        SolutionPage page;
        VtWait::WriteReport(page);
        return SolutionLines();
    }

    // The report of what was solved last.
    static Lines File() { return FileLines(VtWait::WriteReport); }

    static Lines SolvedFile()
    {
        SolveGiven();
        return File();
    }

    std::vector<Lines> Paper()
    {
        SolveGiven();
        desktop.printer.pages.clear();
        desktop.printer.Begin("Courier New", 12);
        PrinterChannel channel;
        VtWait::WriteReport(channel);
        desktop.printer.EndDoc();
        return desktop.printer.pages;
    }

    FakeDesktop desktop;
};

}  // namespace

// By hand: P0 = 1/2, L = 1, and state n has the probability 1/2 to the power n + 1.
TEST_F(WaitingReports, OneExponentialChannelOnScreen)
{
    GivenExponential(1, 1.5, 3);
    EXPECT_THAT(Screen(),
                ElementsAre("", "  SUMMARY OF A 1 CHANNEL WAITING LINE WITH",
                            "  ****************************************", "",
                            "       MEAN NUMBER OF ARRIVALS = 1.5", "", "       MEAN NUMBER OF SERVICES = 3",
                            "", "  THE PROBABILITY OF NO UNITS IN THE SYSTEM                0.5000", "",
                            "  THE AVERAGE NUMBER OF UNITS IN THE WAITING LINE          0.5000", "",
                            "  THE AVERAGE NUMBER OF UNITS IN THE SYSTEM                1.0000", "",
                            "  THE AVERAGE TIME A UNIT SPENDS IN THE WAITING LINE       0.3333", "",
                            "  THE AVERAGE TIME A UNIT SPENDS IN THE SYSTEM             0.6667", "",
                            "  THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.5000", "", "", "",
                            "       Number of Units in the System          Probability",
                            "       *****************************          ***********", "",
                            "                     0                           0.5000", "",
                            "                     1                           0.2500", "",
                            "                     2                           0.1250", "",
                            "                     3                           0.0625", "",
                            "                     4                           0.0313", "",
                            "                     5                           0.0156", "",
                            "                     6                           0.0078", "",
                            "                  7 OR MORE                      0.0078"));
}

TEST_F(WaitingReports, OneExponentialChannelInFull)
{
    GivenExponential(1, 1.5, 3);
    EXPECT_THAT(SolvedFile(),
                ElementsAre("", "", "", "", "        WAITING LINES", "        *************", "",
                            "            NUMBER OF CHANNELS = 1", "",
                            "            POISSON ARRIVALS WITH MEAN RATE = 1.5", "",
                            "            EXPONENTIAL SERVICE TIMES WITH MEAN RATE = 3", "", "", "",
                            "        OPERATING CHARACTERISTICS", "        -------------------------", "",
                            "        THE PROBABILITY OF NO UNITS IN THE SYSTEM                0.5000", "",
                            "        THE AVERAGE NUMBER OF UNITS IN THE WAITING LINE          0.5000", "",
                            "        THE AVERAGE NUMBER OF UNITS IN THE SYSTEM                1.0000", "",
                            "        THE AVERAGE TIME A UNIT SPENDS IN THE WAITING LINE       0.3333", "",
                            "        THE AVERAGE TIME A UNIT SPENDS IN THE SYSTEM             0.6667", "",
                            "        THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.5000", "", "",
                            "        Number of Units in the System          Probability",
                            "        -----------------------------          -----------", "",
                            "                      0                           0.5000", "",
                            "                      1                           0.2500", "",
                            "                      2                           0.1250", "",
                            "                      3                           0.0625", "",
                            "                      4                           0.0313", "",
                            "                      5                           0.0156", "",
                            "                      6                           0.0078", "",
                            "                  7 OR MORE                       0.0078"));
}

// Rows with empty lines between them up to a RowCount of 7.
TEST_F(WaitingReports, EightStatesStandWithoutEmptyLines)
{
    GivenExponential(1, 1.6, 3);
    const Lines table = LinesFrom(Screen(), "Number of Units");
    ASSERT_EQ(VtWait::Result.RowCount, 8);
    EXPECT_EQ(table.size(), 3U + 8 + 1);
    EXPECT_THAT(table.back(), testing::StartsWith("                  8 OR MORE                      "));
}

TEST_F(WaitingReports, SeveralChannelsNameTheirServicesAndTwoDigitsLengthenTheRule)
{
    GivenExponential(9, 5, 1);
    EXPECT_EQ(LineWith(Screen(), "SERVICES"), "       MEAN NUMBER OF SERVICES PER CHANNEL = 1");
    EXPECT_EQ(SolutionLines()[2], "  ****************************************");
    EXPECT_EQ(LineWith(File(), "EXPONENTIAL"),
              "            EXPONENTIAL SERVICE TIMES WITH MEAN RATE = 1 PER CHANNEL");
    GivenExponential(10, 5, 1);
    EXPECT_EQ(Screen()[1], "  SUMMARY OF A 10 CHANNEL WAITING LINE WITH");
    EXPECT_EQ(SolutionLines()[2], "  *****************************************");
}

TEST_F(WaitingReports, AWaitThatIsShownAsZeroIsZero)
{
    GivenExponential(12, 2, 1);
    const Lines page = Screen();
    EXPECT_EQ(LineWith(page, "HAS TO WAIT"),
              "  THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.0000");
    EXPECT_GT(VtWait::Result.ProbabilityWait, 0.0);
    GivenExponential(8, 2, 1);
    EXPECT_EQ(LineWith(Screen(), "HAS TO WAIT"),
              "  THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.0011");
    EXPECT_GT(VtWait::Result.ProbabilityWait, 0.001);
    VtWait::Result.ProbabilityWait = 0.00005;
    EXPECT_EQ(LineWith(File(), "HAS TO WAIT"),
              "        THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.0001");
    VtWait::Result.ProbabilityWait = 0.0000499;
    EXPECT_EQ(LineWith(File(), "HAS TO WAIT"),
              "        THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.0000");
}

TEST_F(WaitingReports, TotalCostStandsBetweenCharacteristicsAndStates)
{
    GivenExponential(2, 0.75, 1);
    GivenCosts(1000, 7.5);
    const Lines page = LinesFrom(Screen(), "HAS TO WAIT");
    EXPECT_THAT(Lines(page.begin(), page.begin() + 7),
                ElementsAre("  THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.2045", "", "",
                            "  THE TOTAL COST PER TIME PERIOD                          $887.73", "", "",
                            "       Number of Units in the System          Probability"));
    const Lines file = File();
    EXPECT_THAT(Lines(file.begin() + 11, file.begin() + 17),
                ElementsAre("            EXPONENTIAL SERVICE TIMES WITH MEAN RATE = 1 PER CHANNEL", "",
                            "            COST FOR UNITS IN THE SYSTEM = $1000 PER TIME PERIOD", "",
                            "            COST FOR A CHANNEL = $7.5 PER TIME PERIOD", ""));
    const Lines rest = LinesFrom(file, "HAS TO WAIT");
    EXPECT_THAT(Lines(rest.begin(), rest.begin() + 6),
                ElementsAre("        THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.2045", "",
                            "        THE TOTAL COST PER TIME PERIOD                          $887.73", "", "",
                            "        Number of Units in the System          Probability"));
}

// By hand: rho = 1/2, sigma = 1/3: Lq = (1/4 + 1/4) / 1 = 1/2.
TEST_F(WaitingReports, ArbitraryServiceOnScreen)
{
    GivenArbitrary(1.5, 3, 1.0 / 3);
    VtWait::Problem.ServiceStdDev = 0.25;  // (1/4 + 9/64) / 1 = 0.390625
    EXPECT_THAT(Screen(),
                ElementsAre("", "  SUMMARY OF A 1 CHANNEL WAITING LINE WITH",
                            "  ****************************************", "",
                            "       MEAN NUMBER OF ARRIVALS = 1.5", "", "       MEAN NUMBER OF SERVICES = 3",
                            "", "       STANDARD DEVIATION FOR THE SERVICE TIME = 0.25", "",
                            "  THE PROBABILITY OF NO UNITS IN THE SYSTEM                0.5000", "",
                            "  THE AVERAGE NUMBER OF UNITS IN THE WAITING LINE          0.3906", "",
                            "  THE AVERAGE NUMBER OF UNITS IN THE SYSTEM                0.8906", "",
                            "  THE AVERAGE TIME A UNIT SPENDS IN THE WAITING LINE       0.2604", "",
                            "  THE AVERAGE TIME A UNIT SPENDS IN THE SYSTEM             0.5938", "",
                            "  THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.5000", ""));
}

TEST_F(WaitingReports, ArbitraryServiceWithCostsBeginsWithItsTitle)
{
    GivenArbitrary(1.5, 3, 0.25);
    GivenCosts(8, 1);
    const Lines page = Screen();
    EXPECT_EQ(page.front(), "  SUMMARY OF A 1 CHANNEL WAITING LINE WITH");
    EXPECT_THAT(LinesFrom(page, "HAS TO WAIT"),
                ElementsAre("  THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.5000", "", "",
                            "  THE TOTAL COST PER TIME PERIOD                            $8.13"));
    GivenDeterministic(1.5, 3);
    GivenCosts(8, 1);
    EXPECT_EQ(Screen().front(), "");
}

TEST_F(WaitingReports, ArbitraryServiceInFull)
{
    GivenArbitrary(1.5, 3, 0.25);
    const Lines file = SolvedFile();
    EXPECT_THAT(Lines(file.begin() + 9, file.begin() + 18),
                ElementsAre("            POISSON ARRIVALS WITH MEAN RATE = 1.5", "",
                            "            ARBITRARY SERVICE TIMES WITH MEAN RATE = 3", "",
                            "            STANDARD DEVIATION FOR THE SERVICE TIME = 0.25", "", "", "",
                            "        OPERATING CHARACTERISTICS"));
    EXPECT_EQ(file.back(), "        THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.5000");
}

TEST_F(WaitingReports, ConstantServiceHasNeitherDeviationNorStates)
{
    GivenDeterministic(1.5, 3);
    const Lines page = Screen();
    EXPECT_EQ(LineWith(page, "DEVIATION"), kNone);
    EXPECT_EQ(LineWith(page, "Number of Units"), kNone);
    const Lines file = File();
    EXPECT_EQ(LineWith(file, "DETERMINISTIC"), "            DETERMINISTIC SERVICE TIMES WITH MEAN RATE = 3");
    EXPECT_EQ(LineWith(file, "DEVIATION"), kNone);
    EXPECT_EQ(LineWith(file, "Number of Units"), kNone);
}

// By hand: r = 1: weights 1, 1, 1/2.
TEST_F(WaitingReports, NoWaitingOnScreen)
{
    GivenNoWaiting(2, 3, 3);
    EXPECT_THAT(Screen(), ElementsAre("", "  SUMMARY OF A 2 CHANNEL SYSTEM WITH NO WAITING ALLOWED",
                                      "  *****************************************************", "", "",
                                      "       MEAN NUMBER OF ARRIVALS = 3", "",
                                      "       MEAN NUMBER OF SERVICES PER CHANNEL = 3", "", "",
                                      "  THE PROBABILITY OF NO UNITS IN THE SYSTEM                0.4000", "",
                                      "  THE AVERAGE NUMBER OF UNITS IN THE SYSTEM                0.8000", "",
                                      "  THE PROBABILITY THAT AN ARRIVING UNIT IS BLOCKED         0.2000", "",
                                      "          Number of Channels Busy             Probability",
                                      "          ***********************             ***********", "",
                                      "                     0                           0.4000", "",
                                      "                     1                           0.4000", "",
                                      "                     2                           0.2000"));
}

TEST_F(WaitingReports, NoWaitingInFull)
{
    GivenNoWaiting(2, 3, 3);
    EXPECT_THAT(SolvedFile(),
                ElementsAre("", "", "", "", "        WAITING LINES", "        *************", "",
                            "            NUMBER OF CHANNELS = 2", "",
                            "            POISSON ARRIVALS WITH MEAN RATE = 3", "",
                            "            ARBITRARY SERVICE TIMES WITH MEAN RATE = 3", "",
                            "            NO WAITING LINE (BLOCKED CUSTOMERS CLEARED)", "", "", "",
                            "        OPERATING CHARACTERISTICS", "        -------------------------", "",
                            "        THE PROBABILITY OF NO UNITS IN THE SYSTEM                0.4000", "",
                            "        THE AVERAGE NUMBER OF UNITS IN THE SYSTEM                0.8000", "",
                            "        THE PROBABILITY THAT AN ARRIVING UNIT IS BLOCKED         0.2000", "",
                            "            Number of Channels Busy             Probability",
                            "            -----------------------             -----------", "",
                            "                       0                           0.4000", "",
                            "                       1                           0.4000", "",
                            "                       2                           0.2000", ""));
}

TEST_F(WaitingReports, NoWaitingWithEightChannelsHasNoEmptyLinesBetweenRows)
{
    GivenNoWaiting(7, 3, 3);
    EXPECT_EQ(LinesFrom(Screen(), "Channels Busy").size(), 3U + 8 + 7);
    EXPECT_EQ(LinesFrom(File(), "Channels Busy").size(), 3U + 8 * 2);
    GivenNoWaiting(8, 3, 3);
    EXPECT_EQ(LinesFrom(Screen(), "Channels Busy").size(), 3U + 9);
    EXPECT_EQ(LinesFrom(File(), "Channels Busy").size(), 3U + 9);
}

TEST_F(WaitingReports, NoWaitingBeginsANewTableBehindRowTwelve)
{
    GivenNoWaiting(12, 3, 3);
    EXPECT_EQ(LinesFrom(Screen(), "Channels Busy").size(), 3U + 13);
    EXPECT_EQ(SolutionLines()[2], "  ******************************************************");
    GivenNoWaiting(13, 3, 3);
    const Lines table = LinesFrom(Screen(), "Channels Busy");
    EXPECT_THAT(Lines(table.begin() + 15, table.end()),
                ElementsAre("                    12                           0.0000", "",
                            "          Number of Channels Busy             Probability",
                            "          ***********************             ***********", "",
                            "                    13                           0.0000"));
}

// By hand: r = 1, one member: half of the time it is in the system.
TEST_F(WaitingReports, FinitePopulationOnScreen)
{
    GivenPopulation(1, 3, 3, 1);
    EXPECT_THAT(Screen(),
                ElementsAre("", "  SUMMARY OF A 1 CHANNEL WAITING LINE FOR A POPULATION OF SIZE 1",
                            "  **************************************************************", "",
                            "       MEAN NUMBER OF ARRIVALS = 3", "", "       MEAN NUMBER OF SERVICES = 3",
                            "", "  THE PROBABILITY OF NO UNITS IN THE SYSTEM                0.5000", "",
                            "  THE AVERAGE NUMBER OF UNITS IN THE WAITING LINE          0.0000", "",
                            "  THE AVERAGE NUMBER OF UNITS IN THE SYSTEM                0.5000", "",
                            "  THE AVERAGE TIME A UNIT SPENDS IN THE WAITING LINE       0.0000", "",
                            "  THE AVERAGE TIME A UNIT SPENDS IN THE SYSTEM             0.3333", "",
                            "  THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        0.5000", "", "", "",
                            "       Number of Units in the System          Probability",
                            "       *****************************          ***********", "",
                            "                     0                           0.5000", "",
                            "                     1                           0.5000"));
}

TEST_F(WaitingReports, FinitePopulationInFullShiftsItsStatesByOne)
{
    GivenPopulation(1, 3, 3, 1);
    const Lines file = SolvedFile();
    EXPECT_THAT(Lines(file.begin() + 11, file.begin() + 15),
                ElementsAre("            EXPONENTIAL SERVICE TIMES WITH MEAN RATE = 3", "",
                            "            FINITE CALLING POPULATION OF SIZE = 1", ""));
    EXPECT_THAT(LinesFrom(file, "Number of Units"),
                ElementsAre("        Number of Units in the System          Probability",
                            "        -----------------------------          -----------", "",
                            "                     0                           0.5000", "",
                            "                     1                           0.5000", ""));
}

TEST_F(WaitingReports, FinitePopulationOf24HasNoEmptyLinesInFull)
{
    GivenPopulation(1, 1, 3, 23);
    EXPECT_EQ(LinesFrom(SolvedFile(), "Number of Units").size(), 3U + 24 * 2);
    GivenPopulation(1, 1, 3, 24);
    EXPECT_EQ(LinesFrom(SolvedFile(), "Number of Units").size(), 3U + 25);
}

TEST_F(WaitingReports, FinitePopulationTitleHasARuleOfItsLength)
{
    GivenPopulation(12, 1, 3, 30);
    const Lines page = Screen();
    EXPECT_EQ(page[1], "  SUMMARY OF A 12 CHANNEL WAITING LINE FOR A POPULATION OF SIZE 30");
    EXPECT_EQ(page[2], "  " + std::string(page[1].size() - 2, '*'));
}

// 101 states: the file lists them in one piece, the paper begins a page with them and another at state 51.
TEST_F(WaitingReports, ALongTableBreaksOnPaperOnly)
{
    GivenExponential(1, 0.999, 1);
    const Lines file = SolvedFile();
    EXPECT_EQ(LinesFrom(file, "Number of Units").size(), 3U + 101 + 1);
    const auto pages = Paper();
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[1].size(), 3U + 51);
    EXPECT_EQ(pages[2].size(), 3U + 50 + 1);
    for (const std::size_t page : {1U, 2U}) {
        EXPECT_EQ(pages[page][0], "        Number of Units in the System          Probability");
        EXPECT_EQ(pages[page][1], "        -----------------------------          -----------");
        EXPECT_EQ(pages[page][2], "");
    }
    EXPECT_THAT(pages[1][3], testing::StartsWith("                      0 "));
    EXPECT_THAT(pages[2][3], testing::StartsWith("                     51 "));
    EXPECT_THAT(pages[2].back(), testing::StartsWith("                101 OR MORE                       "));
}

TEST_F(WaitingReports, AShortTableIsTheSameOnPaper)
{
    GivenExponential(1, 1.5, 3);
    const auto pages = Paper();
    ASSERT_EQ(pages.size(), 1U);
    EXPECT_EQ(pages[0], File());
}
