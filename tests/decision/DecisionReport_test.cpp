// The report to the character: what stands on the screen, and what goes to paper and file.
#include "decision/DecisionReport.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "decision/decision_support.h"
#include "support/fake_desktop.h"
#include "support/report_lines.h"

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

namespace {

using Lines = std::vector<std::string>;

constexpr const char* kNewPage = "(new page)";

class Recorder : public ReportChannel {
public:
    explicit Recorder(bool paper = false) : paper_(paper) {}
    void NewPage() override
    {
        if (paper_) lines.emplace_back(kNewPage);
    }
    [[nodiscard]] bool OnPaper() const override { return paper_; }

    Lines lines;

private:
    void Write(std::string_view text) override { lines.emplace_back(text); }

    bool paper_;
};

Lines ScreenText()
{
    Decision::SolveProblem();
    return ScreenLines(Decision::WritePage);
}

Lines FullReport()
{
    Decision::SolveProblem();
    Recorder recorder;
    Decision::WriteReport(recorder);
    return recorder.lines;
}

// The lines that follow the one with this text.
Lines After(const Lines& lines, std::string_view text)
{
    const auto found = std::find(lines.begin(), lines.end(), text);
    EXPECT_NE(found, lines.end()) << text;
    return found == lines.end() ? Lines() : Lines(found + 1, lines.end());
}

std::vector<std::vector<double>> Zeros(int rows, int columns)
{
    return Table(static_cast<std::size_t>(rows), std::vector<double>(static_cast<std::size_t>(columns)));
}

class DecisionReport : public testing::Test {
protected:
    FakeDesktop desktop;
};

}  // namespace

TEST_F(DecisionReport, ShowsTheRecommendationWithABlankLineBehindEachOfAFewRows)
{
    GivenPayoffs({{20, 30}, {-1250, 5}}, true, Decision::kConservative);
    EXPECT_THAT(ScreenText(), ElementsAre("DECISION RECOMMENDATION", "***********************", "",
                                          "USING THE CONSERVATIVE CRITIERION", "",
                                          "      DECISION        CRITERION       RECOMMENDED",
                                          "    ALTERNATIVE         VALUE           DECISION",
                                          "    ***********       *********       ***********", "",
                                          "          1                 20            YES", "",
                                          "          2             -1,250 ", ""));
}

TEST_F(DecisionReport, SetsRowsCloseFromFiveAlternativesOn)
{
    GivenPayoffs(Zeros(5, 1), true, Decision::kOptimistic);
    const Lines rows = After(ScreenText(), "    ***********       *********       ***********");
    EXPECT_THAT(rows, ElementsAre("", "          1                  0            YES",
                                  "          2                  0            YES",
                                  "          3                  0            YES",
                                  "          4                  0            YES",
                                  "          5                  0            YES"));
}

TEST_F(DecisionReport, SetsFourAlternativesApart)
{
    GivenPayoffs(Zeros(4, 1), true, Decision::kOptimistic);
    const Lines rows = After(ScreenText(), "    ***********       *********       ***********");
    EXPECT_THAT(rows, ElementsAre("", "          1                  0            YES", "",
                                  "          2                  0            YES", "",
                                  "          3                  0            YES", "",
                                  "          4                  0            YES", ""));
}

TEST_F(DecisionReport, NamesEveryCriterion)
{
    const std::vector<std::pair<int, std::string>> names = {{1, "USING THE OPTIMISTIC CRITERION"},
                                                            {2, "USING THE CONSERVATIVE CRITIERION"},
                                                            {3, "USING THE MINIMAX REGRET CRITERION"}};
    for (const auto& [criterion, name] : names) {
        GivenPayoffs({{1}}, true, criterion);
        EXPECT_EQ(ScreenText()[3], name);
    }
    GivenPayoffs({{1}}, true, 1);
    GivenStateProbabilities({1});
    EXPECT_EQ(ScreenText()[3], "USING THE EXPECTED VALUE CRITERION");
}

TEST_F(DecisionReport, SpellsCautionCorrectlyOffTheScreen)
{
    GivenPayoffs({{1}}, true, Decision::kConservative);
    EXPECT_THAT(FullReport(), testing::Contains("USING THE CONSERVATIVE CRITERION"));
}

TEST_F(DecisionReport, GivesScoresTheDecimalsOfThePayoffs)
{
    struct Row {
        int Criterion;
        double Decimals;
        const char* Text;
    };
    for (const Row& row : {Row{1, 0, "          1              1,235            YES"},
                           Row{2, 1, "          1            1,234.6            YES"},
                           Row{1, 2, "          1            1,234.57            YES"},
                           Row{3, 0, "          1                0.00            YES"}}) {
        GivenPayoffs({{1234.567}}, true, row.Criterion);
        Decision::Problem.PayoffDecimals = row.Decimals;
        EXPECT_EQ(ScreenText()[9], row.Text);
    }
}

TEST_F(DecisionReport, CutsAScoreThatIsTooLongAtItsRight)
{
    GivenPayoffs({{123456789}}, true, Decision::kOptimistic);
    EXPECT_EQ(ScreenText()[9], "          1          123,456,7            YES");
}

// Expected values 30 and 20; knowing the state 40: worth 10.
TEST_F(DecisionReport, ShowsTheValueOfPerfectInformation)
{
    GivenPayoffs({{60, 0}, {20, 20}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    EXPECT_THAT(After(ScreenText(), "    ***********       *********       ***********"),
                ElementsAre("", "          1               30.00            YES", "",
                            "          2               20.00 ", "", "",
                            "THE EXPECTED VALUE OF PERFECT INFORMATION         10.00", ""));
}

namespace {

// An oil lease: worth 20 without a test and 32 with it; the state known, 40.
void GivenOilLease(bool maximize)
{
    const double sign = maximize ? 1 : -1;
    GivenPayoffs({{70 * sign, -30 * sign}, {20 * sign, 20 * sign}}, maximize, Decision::kOptimistic);
    GivenStateProbabilities({0.4, 0.6});
    GivenSample({{0.9, 0.1}, {0.2, 0.8}});
}

const Lines kStrategyHeading = {"OPTIMAL DECISION STRATEGY",
                                "*************************",
                                "                                                       PROB OF",
                                "           IF            BEST          EXPECTED       INDICATOR",
                                "       INDICATOR       DECISION          VALUE         OUTCOME",
                                "       *********       ********        ********       *********",
                                ""};

Lines operator+(Lines first, const Lines& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

}  // namespace

TEST_F(DecisionReport, ShowsTheStrategy)
{
    GivenOilLease(true);
    EXPECT_THAT(
        After(ScreenText(), "THE EXPECTED VALUE OF PERFECT INFORMATION         20.00"),
        ElementsAreArray(Lines{"", ""} + kStrategyHeading +
                         Lines{"            1              1              45.00         0.480", "", "",
                               "            2              2              20.00         0.520", "", "", "",
                               "       EXPECTED VALUE OF THE ABOVE STRATEGY              32.0", "",
                               "       EXPECTED VALUE OF THE SAMPLE INFORMATION         12.00", "",
                               "       EFFICIENCY OF THE SAMPLE INFORMATION             60.0%"}));
}

TEST_F(DecisionReport, ShowsAStrategyOfCostsOnTheirOwnScale)
{
    GivenOilLease(false);
    const Lines lines = ScreenText();
    EXPECT_THAT(lines, testing::Contains("            1              1             -45.00         0.480"));
    EXPECT_THAT(lines, testing::Contains("       EXPECTED VALUE OF THE ABOVE STRATEGY             -32.0"));
    EXPECT_THAT(lines, testing::Contains("       EXPECTED VALUE OF THE SAMPLE INFORMATION         12.00"));
}

TEST_F(DecisionReport, SetsTheStrategyCloserFromFourOutcomesOn)
{
    GivenPayoffs({{1}}, true, Decision::kOptimistic);
    GivenStateProbabilities({1});
    GivenSample({{0.25, 0.25, 0.25, 0.25}});
    const Lines rows = After(ScreenText(), kStrategyHeading[5]);
    EXPECT_EQ(rows[1], "            1              1               1.00         0.250");
    EXPECT_EQ(rows[2], "");
    EXPECT_EQ(rows[3], "            2              1               1.00         0.250");
}

TEST_F(DecisionReport, SetsTheStrategyOfThreeOutcomesApart)
{
    GivenPayoffs({{1}}, true, Decision::kOptimistic);
    GivenStateProbabilities({1});
    GivenSample({{0.5, 0.25, 0.25}});
    const Lines rows = After(ScreenText(), kStrategyHeading[5]);
    EXPECT_THAT(Lines(rows.begin() + 1, rows.begin() + 5),
                ElementsAre("            1              1               1.00         0.500", "", "",
                            "            2              1               1.00         0.250"));
}

TEST_F(DecisionReport, OneOutcomeHasAStrategyToo)
{
    GivenPayoffs({{1}}, true, Decision::kOptimistic);
    GivenStateProbabilities({1});
    GivenSample({{1}});
    EXPECT_EQ(After(ScreenText(), kStrategyHeading[5])[1],
              "            1              1               1.00         1.000");
}

// A file may ask for a strategy without an outcome.
TEST_F(DecisionReport, WithoutOutcomesTheStrategyHasNoHeading)
{
    GivenPayoffs({{1}}, true, Decision::kOptimistic);
    GivenStateProbabilities({1});
    Decision::Problem.ComputeStrategy = "YES";
    EXPECT_THAT(ScreenText(), testing::Not(testing::Contains(kStrategyHeading[1])));
    Lines full;
    ASSERT_NO_THROW(full = FullReport());
    EXPECT_EQ(After(full, "******************************************************************")[1],
              "  STATE  ");
}

TEST_F(DecisionReport, HasNoEfficiencyWithoutAValueOfPerfectInformation)
{
    GivenPayoffs({{1}}, true, Decision::kOptimistic);
    GivenStateProbabilities({1});
    GivenSample({{0.5, 0.5}});
    const Lines screen = ScreenText();
    EXPECT_EQ(screen[screen.size() - 2], "       EXPECTED VALUE OF THE SAMPLE INFORMATION          0.00");
    EXPECT_EQ(screen.back(), "");
    const Lines full = FullReport();
    EXPECT_EQ(full[full.size() - 2], "       EXPECTED VALUE OF THE SAMPLE INFORMATION          0.00");
    EXPECT_EQ(full.back(), "");
}

// ---- the full report ----

TEST_F(DecisionReport, BeginsInFullWithThePayoffs)
{
    GivenPayoffs({{20, -30.5}, {1250, 5}}, true, Decision::kConservative);
    Decision::Problem.PayoffDecimals = 1;
    EXPECT_THAT(
        FullReport(),
        ElementsAre(
            "DECISION ANALYSIS", "*****************", "",
            "YOU HAVE INPUT THE FOLLOWING PAYOFF TABLE:", "******************************************", "",
            "               STATES OF NATURE", "DECISION         1           2    ",
            "********      ******      ******   ", "", "", "    1           20.0     -30.5", "",
            "    2         1250.0       5.0", "", "DECISION RECOMMENDATION", "***********************", "",
            "USING THE CONSERVATIVE CRITERION", "", "      DECISION        CRITERION       RECOMMENDED",
            "    ALTERNATIVE         VALUE           DECISION",
            "    ***********       *********       ***********", "", "          1              -30.5 ", "",
            "          2                5.0            YES", ""));
}

TEST_F(DecisionReport, PlacesTheHeadingOverOneToFiveStates)
{
    const std::vector<std::string> headings = {"         STATE OF NATURE", "               STATES OF NATURE",
                                               "                     STATES OF NATURE",
                                               "                           STATES OF NATURE",
                                               "                                 STATES OF NATURE"};
    for (int n = 1; n <= 10; ++n) {
        GivenPayoffs(Zeros(1, n), true, Decision::kOptimistic);
        const Lines lines = FullReport();
        if (n <= 5)
            EXPECT_EQ(lines[6], headings[static_cast<std::size_t>(n) - 1]);
        else
            EXPECT_EQ(lines[6].substr(0, 18), "DECISION         1");
    }
}

TEST_F(DecisionReport, SetsPayoffsCloseFromFiveAlternativesOn)
{
    GivenPayoffs(Zeros(5, 1), true, Decision::kOptimistic);
    Decision::Problem.PayoffDecimals = 2;
    const Lines rows = After(FullReport(), "********      ******   ");
    EXPECT_THAT(Lines(rows.begin(), rows.begin() + 8),
                ElementsAre("", "", "    1           0.00", "    2           0.00", "    3           0.00",
                            "    4           0.00", "    5           0.00", ""));
}

TEST_F(DecisionReport, SetsThePayoffsOfFourAlternativesApart)
{
    GivenPayoffs(Zeros(4, 1), true, Decision::kOptimistic);
    Decision::Problem.PayoffDecimals = 2;
    const Lines rows = After(FullReport(), "********      ******   ");
    EXPECT_THAT(Lines(rows.begin(), rows.begin() + 6),
                ElementsAre("", "", "    1           0.00", "", "    2           0.00", ""));
}

TEST_F(DecisionReport, ListsTheStateProbabilitiesInFull)
{
    GivenPayoffs({{60, 0}, {20, 20}}, true, Decision::kOptimistic);
    GivenStateProbabilities({0.5, 0.5});
    EXPECT_THAT(
        After(FullReport(), "    2             20        20"),
        ElementsAre("", "PROBABILITIES", "OF STATES      0.500       0.500 ", "", "DECISION RECOMMENDATION",
                    "***********************", "", "USING THE EXPECTED VALUE CRITERION", "",
                    "      DECISION        CRITERION       RECOMMENDED",
                    "    ALTERNATIVE         VALUE           DECISION",
                    "    ***********       *********       ***********", "",
                    "          1               30.00            YES", "", "          2               20.00 ",
                    "", "", "", "    EXPECTED VALUE OF PERFECT INFORMATION IS      10.00"));
}

TEST_F(DecisionReport, DevelopsTheStrategyInFull)
{
    GivenOilLease(true);
    EXPECT_THAT(After(FullReport(), "    EXPECTED VALUE OF PERFECT INFORMATION IS      20.00"),
                ElementsAreArray(Lines{"", "", "DEVELOPING A DECISION STRATEGY BASED ON SAMPLE INFORMATION",
                                       "**********************************************************", "",
                                       "YOU HAVE INPUT THE FOLLOWING PROBABILITIES FOR INDICATOR OUTCOMES:",
                                       "******************************************************************",
                                       "", "  GIVEN  INDICATOR OUTCOMES", "  STATE      1      2  ",
                                       "  *****    *****  *****", "", "    1      0.900  0.100",
                                       "    2      0.200  0.800", ""} +
                                 kStrategyHeading +
                                 Lines{"            1              1                 45.00      0.480", "",
                                       "            2              2                 20.00      0.520", "",
                                       "       EXPECTED VALUE OF THE ABOVE STRATEGY             32.00", "",
                                       "       EXPECTED VALUE OF THE SAMPLE INFORMATION         12.00", "",
                                       "       EFFICIENCY OF THE SAMPLE INFORMATION             60.0%", ""}));
}

TEST_F(DecisionReport, PlacesTheHeadingOverOneToTenOutcomes)
{
    const std::vector<std::string> headings = {"  GIVEN  INDICATOR OUTCOMES",
                                               "  GIVEN  INDICATOR OUTCOMES",
                                               "  GIVEN     INDICATOR OUTCOMES",
                                               "  GIVEN        INDICATOR OUTCOMES",
                                               "  GIVEN            INDICATOR OUTCOMES",
                                               "  GIVEN               INDICATOR OUTCOMES",
                                               "  GIVEN                   INDICATOR OUTCOMES",
                                               "  GIVEN                      INDICATOR OUTCOMES",
                                               "  GIVEN                          INDICATOR OUTCOMES",
                                               "  GIVEN                             INDICATOR OUTCOMES"};
    for (std::size_t count = 1; count <= 10; ++count) {
        GivenPayoffs({{1}}, true, Decision::kOptimistic);
        GivenStateProbabilities({1});
        std::vector<double> outcomes(count);
        outcomes[0] = 1;
        GivenSample({outcomes});
        EXPECT_EQ(
            After(FullReport(), "******************************************************************")[1],
            headings[count - 1]);
    }
}

TEST_F(DecisionReport, SetsOutcomesCloseFromFiveStatesOn)
{
    for (const int n : {4, 5}) {
        GivenPayoffs(Zeros(1, n), true, Decision::kOptimistic);
        std::vector<double> prior(static_cast<std::size_t>(n));
        prior[0] = 1;
        GivenStateProbabilities(prior);
        GivenSample(Table(static_cast<std::size_t>(n), {1}));
        const Lines rows = After(FullReport(), "  *****    *****");
        EXPECT_EQ(rows[0], n == 4 ? "" : "    1      1.000");
    }
}

TEST_F(DecisionReport, BreaksPagesOnPaperOnly)
{
    GivenPayoffs({{1}}, true, Decision::kOptimistic);
    Decision::SolveProblem();
    Recorder paper(true);
    Decision::WriteReport(paper);
    const Lines file = FullReport();
    const auto heading = std::find(paper.lines.begin(), paper.lines.end(), "DECISION RECOMMENDATION");
    EXPECT_EQ(*(heading - 1), kNewPage);
    EXPECT_EQ(paper.lines.back(), kNewPage);
    paper.lines.erase(std::remove(paper.lines.begin(), paper.lines.end(), kNewPage), paper.lines.end());
    EXPECT_EQ(paper.lines, file);
}

// The page behind the payoffs is followed by another only where no strategy goes on.
TEST_F(DecisionReport, ARecommendationWithAStrategyEndsNoPage)
{
    const auto pagesOf = [](bool strategy) {
        GivenPayoffs({{70, -30}, {20, 20}}, true, Decision::kOptimistic);
        GivenStateProbabilities({0.4, 0.6});
        if (strategy) GivenSample({{0.9, 0.1}, {0.2, 0.8}});
        Decision::SolveProblem();
        Recorder paper(true);
        Decision::WriteReport(paper);
        return paper.lines;
    };
    const Lines without = pagesOf(false);
    EXPECT_EQ(std::count(without.begin(), without.end(), kNewPage), 2);
    EXPECT_EQ(without.back(), kNewPage);
    const Lines with = pagesOf(true);
    EXPECT_EQ(std::count(with.begin(), with.end(), kNewPage), 1);
    EXPECT_NE(with.back(), kNewPage);
}

TEST_F(DecisionReport, IsEmptyBeforeAnythingIsSolved)
{
    GivenPayoffs({{1}}, true, Decision::kOptimistic);
    Recorder recorder(true);
    Decision::WriteReport(recorder);
    EXPECT_THAT(recorder.lines, IsEmpty());
}
