#include "decision/DecisionReport.h"

#include <array>
#include <string>
#include <string_view>

#include "basic/format.h"
#include "decision/VtDecisionAnalysis.h"

namespace Decision {
namespace {

// With as many rows as these, or fewer, a table is spaced out by blank lines.
constexpr int kSpacedRows = 4;
// With more outcomes than these a row of the strategy has one blank line behind it on the screen, not two.
constexpr int kSpacedOutcomes = 3;

// A number pattern and the width of the field that it goes into.
struct Field {
    std::string_view Pattern;
    int Width;
};

constexpr Field kMoney{"#,####0.00", 10};
constexpr Field kProbability{"##0.000", 7};

std::string In(const Field& field, double value)
{
    return FlushRight(Format(value, field.Pattern), field.Width);
}

std::string Label(int index)
{
    return Format(LabelOf(index), "@@");
}

// The field for the decimals of the payoffs, out of three.
const Field& ByDecimals(const std::array<Field, 3>& fields)
{
    return fields.at(static_cast<std::size_t>(ShownDecimals(Problem.PayoffDecimals.Value())));
}

// ---- the recommendation ----

std::string_view CriterionWords(bool onScreen)
{
    switch (Result.Criterion) {
        case kOptimistic:
            return "USING THE OPTIMISTIC CRITERION";
        case kConservative:
            return onScreen ? "USING THE CONSERVATIVE CRITIERION" : "USING THE CONSERVATIVE CRITERION";
        case kMinimaxRegret:
            return "USING THE MINIMAX REGRET CRITERION";
        default:
            return "USING THE EXPECTED VALUE CRITERION";
    }
}

const Field& ScoreField()
{
    static constexpr std::array<Field, 3> kScores{{{"#,######0", 9}, {"#,####0.0", 9}, kMoney}};
    const bool isPayoff = Result.Criterion == kOptimistic || Result.Criterion == kConservative;
    return isPayoff ? ByDecimals(kScores) : kMoney;
}

std::string RecommendationRow(int alternative)
{
    return Blanks(9) + Label(alternative) + Blanks(10) +
           In(ScoreField(), Result.AlternativeValue(alternative)) + " " +
           (Result.Recommended(alternative) == 1 ? "           YES" : "");
}

void RecommendationRows(ReportChannel& out)
{
    out.Line("DECISION RECOMMENDATION");
    out.Line("***********************");
    out.Line();
    out.Line(CriterionWords(out.OnScreen()));
    out.Line();
    out.Line("      DECISION        CRITERION       RECOMMENDED");
    out.Line("    ALTERNATIVE         VALUE           DECISION");
    out.Line("    ***********       *********       ***********");
    out.Line();
    for (int i = 1; i <= Problem.AlternativeCount; ++i) {
        out.Line(RecommendationRow(i));
        if (Problem.AlternativeCount <= kSpacedRows) out.Line();
    }
}

// ---- the strategy ----

void StrategyHeading(ReportChannel& out)
{
    out.Line();
    out.Line("OPTIMAL DECISION STRATEGY");
    out.Line("*************************");
    out.Line("                                                       PROB OF");
    out.Line("           IF            BEST          EXPECTED       INDICATOR");
    out.Line("       INDICATOR       DECISION          VALUE         OUTCOME");
    out.Line("       *********       ********        ********       *********");
    out.Line();
}

// The screen and the full report give the expected value different room.
struct StrategyLayout {
    Field Value;
    int Gap;  // before the probability
};

std::string StrategyRow(const StrategyLayout& layout, int outcome)
{
    constexpr Field kOutcomeProbability{"0.000", 5};
    const double value = Result.StrategyValue(outcome);
    return Blanks(11) + Label(outcome) + Blanks(13) + Label(Result.StrategyDecision(outcome)) + Blanks(9) +
           In(layout.Value, Result.PayoffSign == kCosts ? -value : value) + Blanks(layout.Gap) +
           In(kOutcomeProbability, Result.IndicatorProbability(outcome));
}

void StrategyRows(ReportChannel& out, const StrategyLayout& layout, bool doubleSpaced)
{
    if (Problem.IndicatorCount > 0) StrategyHeading(out);
    for (int k = 1; k <= Problem.IndicatorCount; ++k) {
        out.Line(StrategyRow(layout, k));
        out.Line();
        if (doubleSpaced) out.Line();
    }
}

// A line of the strategy's values: words and field, a blank line behind.
void ValueLine(ReportChannel& out, std::string_view words, const Field& field, double value)
{
    out.Line(std::string(words) + In(field, value));
    out.Line();
}

std::string EfficiencyLine(std::string_view words, const Field& field)
{
    return std::string(words) + In(field, Result.SampleEfficiency) + "%";
}

// ---- on screen ----

void ShowPerfectInformation(ReportChannel& page)
{
    page.Line();
    ValueLine(page, "THE EXPECTED VALUE OF PERFECT INFORMATION ", {"########,0.00", 13},
              Result.PerfectInformationValue);
}

void ShowStrategy(ReportChannel& page)
{
    StrategyRows(page, {.Value = kMoney, .Gap = 9}, Problem.IndicatorCount <= kSpacedOutcomes);
    page.Line();
    ValueLine(page, "       EXPECTED VALUE OF THE ABOVE STRATEGY     ", {"#####,###0.0", 13},
              Result.ExpectedStrategyValue);
    ValueLine(page, "       EXPECTED VALUE OF THE SAMPLE INFORMATION     ", {"##,##0.00", 9},
              Result.SampleInformationValue);
    if (Result.PerfectInformationValue != 0)
        page.Line(EfficiencyLine("       EFFICIENCY OF THE SAMPLE INFORMATION          ", {"####0.0", 7}));
}

// ---- the full report ----

// Over the middle of 1 to 5 columns of payoffs; with more there is no such line.
void StatesHeading(ReportChannel& out)
{
    constexpr int kMostHeadedStates = 5;
    constexpr int kHalfColumn = 6;
    const int n = Problem.NatureStateCount;
    if (n < 1 || n > kMostHeadedStates) return;
    out.Line(Blanks(3 + kHalfColumn * n) + (n == 1 ? "STATE OF NATURE" : "STATES OF NATURE"));
}

std::string PayoffRow(int alternative)
{
    static constexpr std::array<Field, 3> kPayoffFields{
        {{"#########0", 10}, {"#######0.0", 10}, {"######0.00", 10}}};
    const Field& field = ByDecimals(kPayoffFields);
    std::string row = Blanks(3) + Label(alternative) + Blanks(5);
    for (int j = 1; j <= Problem.NatureStateCount; ++j)
        row += In(field, Problem.Payoff(alternative, j));
    return row;
}

void PayoffTable(ReportChannel& out)
{
    out.Line("YOU HAVE INPUT THE FOLLOWING PAYOFF TABLE:");
    out.Line("******************************************");
    out.Line();
    StatesHeading(out);
    std::string labels = "DECISION  ";
    std::string rule = "********   ";
    for (int j = 1; j <= Problem.NatureStateCount; ++j) {
        labels += Blanks(6) + Label(j) + Blanks(4);
        rule += "   ******   ";
    }
    out.Line(labels);
    out.Line(rule);
    out.Line();
    for (int i = 1; i <= Problem.AlternativeCount; ++i) {
        if (i == 1 || Problem.AlternativeCount <= kSpacedRows) out.Line();
        out.Line(PayoffRow(i));
    }
}

void StateProbabilities(ReportChannel& out)
{
    out.Line();
    out.Line("PROBABILITIES");
    std::string row = "OF STATES";
    for (int j = 1; j <= Problem.NatureStateCount; ++j)
        row += Blanks(4) + In(kProbability, Problem.StatePrior(j)) + " ";
    out.Line(row);
}

// The words stand over the middle of 1 to 10 columns.
std::string OutcomesHeading()
{
    constexpr std::array<int, kMost> kGaps = {2, 2, 5, 8, 12, 15, 19, 22, 26, 29};
    const auto index = static_cast<std::size_t>(Problem.IndicatorCount - 1);
    return "  GIVEN" + Blanks(kGaps.at(index)) + "INDICATOR OUTCOMES";
}

std::string OutcomesRow(int state)
{
    std::string row = Blanks(3) + Label(state) + Blanks(4);
    for (int k = 1; k <= Problem.IndicatorCount; ++k)
        row += In(kProbability, Problem.IndicatorGivenState(state, k));
    return row;
}

void OutcomesTable(ReportChannel& out)
{
    out.Line("YOU HAVE INPUT THE FOLLOWING PROBABILITIES FOR INDICATOR OUTCOMES:");
    out.Line("******************************************************************");
    out.Line();
    if (Problem.IndicatorCount > 0) out.Line(OutcomesHeading());
    std::string labels = "  STATE  ";
    std::string rule = "  *****  ";
    for (int k = 1; k <= Problem.IndicatorCount; ++k) {
        labels += "   " + Label(k) + "  ";
        rule += "  *****";
    }
    out.Line(labels);
    out.Line(rule);
    if (Problem.NatureStateCount <= kSpacedRows) out.Line();
    for (int j = 1; j <= Problem.NatureStateCount; ++j)
        out.Line(OutcomesRow(j));
}

void WriteStrategy(ReportChannel& out)
{
    out.Line();
    out.Line();
    out.Line("DEVELOPING A DECISION STRATEGY BASED ON SAMPLE INFORMATION");
    out.Line("**********************************************************");
    out.Line();
    OutcomesTable(out);
    StrategyRows(out, {.Value = {"####,####0.00", 13}, .Gap = 6}, false);
    ValueLine(out, "       EXPECTED VALUE OF THE ABOVE STRATEGY        ", kMoney,
              Result.ExpectedStrategyValue);
    ValueLine(out, "       EXPECTED VALUE OF THE SAMPLE INFORMATION    ", {"#####,###0.00", 10},
              Result.SampleInformationValue);
    if (Result.PerfectInformationValue == 0) return;
    out.Line(EfficiencyLine("       EFFICIENCY OF THE SAMPLE INFORMATION           ", {"###0.0", 6}));
    out.Line();
}

void WritePerfectInformation(ReportChannel& out)
{
    out.Line();
    out.Line();
    out.Line("    EXPECTED VALUE OF PERFECT INFORMATION IS " + In(kMoney, Result.PerfectInformationValue));
}

void WriteRecommendation(ReportChannel& out)
{
    RecommendationRows(out);
    if (Result.Criterion == kExpectedValue) WritePerfectInformation(out);
    if (Result.HasStrategy) WriteStrategy(out);
}

}  // namespace

void WritePage(ReportChannel& out)
{
    RecommendationRows(out);
    if (Result.Criterion == kExpectedValue) ShowPerfectInformation(out);
    if (Result.HasStrategy) ShowStrategy(out);
}

void WriteReport(ReportChannel& out)
{
    if (!Result.Solved) return;
    out.Line("DECISION ANALYSIS");
    out.Line("*****************");
    out.Line();
    PayoffTable(out);
    if (HasStateProbabilities()) StateProbabilities(out);
    out.Line();
    out.NewPage();
    WriteRecommendation(out);
    if (Result.Criterion != kExpectedValue || !Result.HasStrategy) out.NewPage();
}

}  // namespace Decision
