#include "markov/MarkovReport.h"

#include <gmock/gmock.h>

#include <sstream>

#include "markov/chains.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

class MarkovReports : public testing::Test {
protected:
    static std::vector<std::string> Screen(const Rows& chain)
    {
        Given(chain);
        Analyse();
        SolutionPage page;
        Markov::WriteReport(page);
        return SolutionLines();
    }

    static std::vector<std::string> File(const Rows& chain)
    {
        Given(chain);
        Analyse();
        TextFileChannel channel;
        Markov::WriteReport(channel);
        std::vector<std::string> lines;
        std::istringstream text(channel.Text());
        for (std::string line; std::getline(text, line);)
            lines.push_back(line);
        return lines;
    }

    static std::string LineWith(const std::vector<std::string>& lines, std::string_view words)
    {
        for (const std::string& line : lines)
            if (line.find(words) != std::string::npos) return line;
        return "(no line)";
    }

    FakeDesktop desktop;
};

}  // namespace

// Only a file can hold it. The words stand where those of one state stand.
TEST_F(MarkovReports, AChainWithoutStatesHasItsHeading)
{
    const std::vector<std::string> empty = File({});
    EXPECT_EQ(LineWith(empty, "  START"), LineWith(File({{1}}), "  START"));
    EXPECT_NE(LineWith(empty, "  START"), "(no line)");
}

TEST_F(MarkovReports, SteadyStateOfTwoStatesOnScreen)
{
    EXPECT_THAT(Screen({{0.9, 0.1}, {0.3, 0.7}}),
                ElementsAre("Markov Processes Solution", "THE STEADY STATE PROBABILITIES ARE AS FOLLOWS:",
                            "**********************************************", "",
                            "           STATE       PROBABILITY", "           *****       ***********", "",
                            "             1            0.750", "", "             2            0.250", ""));
}

TEST_F(MarkovReports, BlankLinesBetweenSteadyStatesEndAtSixStates)
{
    EXPECT_EQ(Screen(Ring(5)).size(), 7U + 10);
    EXPECT_EQ(Screen(Ring(6)).size(), 7U + 6);
    EXPECT_EQ(Screen(Ring(10)).back(), "            10            0.100");
}

TEST_F(MarkovReports, OneAbsorbingStateOnScreenHasTheSentenceAndTheGeneralBlock)
{
    EXPECT_THAT(
        Screen({{0, 1}, {0, 1}}),
        ElementsAre(
            "Markov Processes Solution", "", "",
            "THE MARKOV PROCESS YOU HAVE DESCRIBED HAS ONE ABSORBING STATE!", "",
            "    The absorbing state is state 2", "", "    All units will end up in this absorbing state.",
            "", "THE MARKOV PROCESS HAS 1 ABSORBING STATES", "*****************************************", "",
            "        THE ABSORBING STATES ARE", "        ------------------------", "",
            "                    2", "",
            "    The following table provides the probabilities that units currently in",
            "    nonabsorbing states will be absorbed by each of the absorbing states.", "",
            "PROBABILITY OF ENDING IN EACH ABSORBING STATE", "*********************************************",
            "", "  START   ABSORBING STATE", "  STATE      2", "  *****    *****", "", "    1      1.000"));
}

TEST_F(MarkovReports, BlankLinesBetweenAbsorptionRowsEndAtFiveRows)
{
    const auto four = Screen(Absorbing(4, 2));
    const auto five = Screen(Absorbing(5, 2));
    EXPECT_THAT(std::vector<std::string>(four.end() - 8, four.end()),
                ElementsAre("", "    1      0.500  0.500", "", "    2      0.500  0.500", "",
                            "    3      0.500  0.500", "", "    4      0.500  0.500"));
    EXPECT_THAT(
        std::vector<std::string>(five.end() - 7, five.end()),
        ElementsAre("  *****    *****  *****", "", "    1      0.500  0.500", "    2      0.500  0.500",
                    "    3      0.500  0.500", "    4      0.500  0.500", "    5      0.500  0.500"));
}

TEST_F(MarkovReports, HeadingsOfTheAbsorptionTableWidenWithItsColumns)
{
    const std::vector<std::string> headings = {
        "  START   ABSORBING STATE",
        "  START   ABSORBING STATE",
        "  START      ABSORBING STATE",
        "  START          ABSORBING STATE",
        "  START             ABSORBING STATE",
        "  START                 ABSORBING STATE",
        "  START                    ABSORBING STATE",
        "  START                        ABSORBING STATE",
        "  START                           ABSORBING STATE",
    };
    for (int absorbing = 1; absorbing <= 9; ++absorbing)
        EXPECT_EQ(LineWith(Screen(Absorbing(10 - absorbing, absorbing)), "  START"),
                  headings[static_cast<std::size_t>(absorbing) - 1]);
}

TEST_F(MarkovReports, TenAbsorbingStatesHaveAHeadingAndARuleButNoRowOfStates)
{
    const auto lines = Screen(Absorbing(0, 10));
    EXPECT_THAT(
        std::vector<std::string>(lines.end() - 2, lines.end()),
        ElementsAre("  START                               ABSORBING STATE",
                    "  *****    *****  *****  *****  *****  *****  *****  *****  *****  *****  *****"));
    EXPECT_EQ(LineWith(lines, "  STATE"), "(no line)");
}

TEST_F(MarkovReports, HeadingsOfTheInputTableWidenWithItsColumns)
{
    const std::vector<std::string> headings = {
        "  START    TRANSITION TO STATE",
        "  START    TRANSITION TO STATE",
        "  START    TRANSITION TO STATE",
        "  START        TRANSITION TO STATE",
        "  START           TRANSITION TO STATE",
        "  START               TRANSITION TO STATE",
        "  START                  TRANSITION TO STATE",
        "  START                      TRANSITION TO STATE",
        "  START                         TRANSITION TO STATE",
        "  START                             TRANSITION TO STATE",
    };
    for (int n = 1; n <= 10; ++n)
        EXPECT_EQ(LineWith(File(Ring(n)), "TRANSITION TO"), headings[static_cast<std::size_t>(n) - 1]);
}

TEST_F(MarkovReports, TheFullReportOfASteadyStateBeginsWithTheMatrix)
{
    EXPECT_THAT(File({{0.9, 0.1}, {0.3, 0.7}}),
                ElementsAre("MARKOV PROCESSES", "****************", "",
                            "YOU HAVE INPUT THE FOLLOWING TRANSITION PROBABILITIES:",
                            "******************************************************", "",
                            "  START    TRANSITION TO STATE", "  STATE      1    2",
                            "  *****    *****  *****", "", "    1      0.900  0.100", "",
                            "    2      0.300  0.700", "", "THE STEADY STATE PROBABILITIES ARE AS FOLLOWS:",
                            "**********************************************", "",
                            "           STATE       PROBABILITY", "           *****       ***********", "",
                            "             1            0.750", "", "             2            0.250", ""));
}

TEST_F(MarkovReports, TheFullReportOfOneAbsorbingStatePrintsItsNumberAsAnItem)
{
    const auto lines = File({{0, 1}, {0, 1}});
    EXPECT_THAT(std::vector<std::string>(lines.begin() + 13, lines.end()),
                ElementsAre("", "THE MARKOV PROCESS YOU HAVE DESCRIBED HAS ONE ABSORBING STATE!",
                            "    The absorbing state is state 2 ",
                            "    All units will end up in this absorbing state.",
                            "PROBABILITY OF ENDING IN EACH ABSORBING STATE",
                            "*********************************************", "  START   ABSORBING STATE",
                            "  STATE      2", "  *****    *****", "", "    1      1.000"));
}

TEST_F(MarkovReports, TheFullReportOfAbsorbingStatesAloneEndsBehindTheMatrix)
{
    const auto lines = File({{1, 0}, {0, 1}});
    EXPECT_THAT(std::vector<std::string>(lines.end() - 2, lines.end()),
                ElementsAre("    2      0.000  1.000", ""));
}

TEST_F(MarkovReports, TenStatesHaveARowOfStatesInTheInputTable)
{
    EXPECT_EQ(LineWith(File(Ring(10)), "  STATE"),
              "  STATE      1    2    3    4    5    6    7    8    9   10");
}

TEST_F(MarkovReports, PaperAndFileHaveTheSameLines)
{
    const auto file = File(Absorbing(4, 3));
    desktop.printer.Begin("Courier New", 12);
    PrinterChannel paper;
    Markov::WriteReport(paper);
    desktop.printer.EndDoc();
    EXPECT_THAT(desktop.printer.Lines(), ElementsAreArray(file));
}
