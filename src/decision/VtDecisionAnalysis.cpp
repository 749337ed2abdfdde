#include "decision/VtDecisionAnalysis.h"

#include "basic/entrytext.h"
#include "basic/number.h"
#include "basic/numberrow.h"
#include "decision/DecisionCriteria.h"
#include "desktop/desktop.h"
#include "shell/checks.h"
#include "shell/module.h"
#include "shell/session.h"
#include "tableau/Criterion.h"
#include "tableau/decimals.h"
#include "tableau/tanumchk.h"

namespace Decision {

DecisionProblem Problem;
DecisionResult Result;
ModalDialog<NoQuestion, FeatureCounts> TheFeatures;
ModalDialog<SenseAndCriterion, SenseAndCriterion> TheSenseAndCriterion;

namespace {

constexpr std::string_view kForm = "frmDecisionProblem";

// A number of alternatives, states or outcomes as a dialog asks for it.
struct CountRule {
    const char* WholeMessage;
    const char* RangeMessage;
};

constexpr CountRule kAlternatives{"NOTE:  THE NUMBER OF DECISION ALTERNATIVES MUST BE AN INTEGER.",
                                  "NOTE:  THE NUMBER OF DECISION ALTERNATIVES MUST BE BETWEEN 1 AND 10."};
constexpr CountRule kStates{"NOTE:  THE NUMBER OF STATES OF NATURE MUST BE AN INTEGER.",
                            "NOTE:  THE NUMBER OF STATES OF NATURE MUST BE BETWEEN 1 AND 10."};
constexpr CountRule kIndicators{"NOTE:  THE NUMBER OF INDICATOR OUTCOMES MUST BE AN INTEGER.",
                                "NOTE:  THE NUMBER OF INDICATOR OUTCOMES MUST BE BETWEEN 1 AND 10."};

bool IsCount(const CountRule& rule, std::string_view text)
{
    const double value = Val(text);
    if (value != Int(value)) return Refuse(rule.WholeMessage);
    if (value < 1 || value > kMost) return Refuse(rule.RangeMessage);
    return true;
}

bool IsCountOrEmpty(const CountRule& rule, std::string_view text)
{
    return text.empty() || IsCount(rule, text);
}

// An empty box is not a whole number here.
bool IsGivenCount(const CountRule& rule, std::string_view text)
{
    return text.empty() ? Refuse(rule.WholeMessage) : IsCount(rule, text);
}

std::string YesOrNo(bool yes)
{
    return yes ? "YES" : "NO";
}

// ---- the questions before a solve ----

bool AskSense()
{
    const auto sense = AskCriterion({.Minimize = "Minimize the Payoff", .Maximize = "Maximize the Payoff"},
                                    Maximizes() ? Criterion::Maximize : Criterion::Minimize);
    if (!sense) return false;
    Problem.Maximize = YesOrNo(*sense == Criterion::Maximize);
    return true;
}

bool AskSenseWithCriterion()
{
    const auto answer =
        TheSenseAndCriterion.Ask("frmdecnopt", {.Maximize = Maximizes(), .Criterion = Problem.Criterion});
    if (!answer) return false;
    Problem.Maximize = YesOrNo(answer->Maximize);
    Problem.Criterion = answer->Criterion;
    return true;
}

// ---- the grids ----

int RowsOf(int pass)
{
    if (pass == kPayoffs) return Problem.AlternativeCount;
    return pass == kStateProbabilities ? 1 : Problem.NatureStateCount;
}

int ColumnsOf(int pass)
{
    return pass == kIndicatorProbabilities ? Problem.IndicatorCount : Problem.NatureStateCount;
}

double& Stored(int pass, int row, int column)
{
    if (pass == kPayoffs) return Problem.Payoff(row, column);
    if (pass == kStateProbabilities) return Problem.StatePrior(column);
    return Problem.IndicatorGivenState(row, column);
}

void FillHeadings(Grid& grid, int pass)
{
    const bool isRowOfProbabilities = pass == kStateProbabilities;
    if (!isRowOfProbabilities) grid.SetText(0, 0, pass == kPayoffs ? "Decisions" : "Given State");
    for (int row = 1; row <= RowsOf(pass); ++row)
        grid.SetText(row, 0, isRowOfProbabilities ? "Probabilities" : LabelOf(row));
    const std::string letter = pass == kIndicatorProbabilities ? "I" : "S";
    for (int column = 1; column <= ColumnsOf(pass); ++column)
        grid.SetText(0, column, letter + LabelOf(column));
}

void FillGrid(Grid& grid, int pass)
{
    constexpr int kHeadingWidth = 13;  // "Probabilities"
    grid.Resize(RowsOf(pass) + 1, ColumnsOf(pass) + 1);
    grid.SetColumnWidth(0, kHeadingWidth);
    FillHeadings(grid, pass);
    if (Session.NewProblem) return;
    for (int row = 1; row <= RowsOf(pass); ++row)
        for (int column = 1; column <= ColumnsOf(pass); ++column)
            grid.SetText(row, column, EntryText(Stored(pass, row, column)));
}

int RefuseProbability()
{
    return RefuseCell("NOTE:  THE PROBABILITY MUST BE BETWEEN 0 AND 1.");
}

int CommitProbability(double& stored, std::string_view text, bool isNumber)
{
    if (!isNumber) return RefuseProbability();
    const double value = Val(text);
    if (value < 0 || value > 1) return RefuseProbability();
    stored = value;
    return kCellStored;
}

int CommitPayoff(double& stored, std::string_view text)
{
    const NumberText number = CheckNumber(text);
    if (!number.IsNumber) return RefuseCell("NOTE:  THE PAYOFF MUST BE A NUMERICAL VALUE.");
    stored = number.Value();
    RaiseDecimalPlaces(Problem.PayoffDecimals, stored);
    return kCellStored;
}

// A probability that begins like one is read as it stands, whatever follows its number.
int CommitStateProbability(double& stored, std::string_view text)
{
    if (text.front() == '.' || text.front() == '0') return CommitProbability(stored, text, true);
    const NumberText number = CheckNumber(text);
    return CommitProbability(stored, number.Text, number.IsNumber);
}

int CommitIndicatorProbability(double& stored, std::string_view text)
{
    const NumberText number = CheckNumber(text);
    return CommitProbability(stored, number.Text, number.IsNumber);
}

}  // namespace

bool HasStateProbabilities(const DecisionProblem& problem)
{
    return problem.HasStateProbabilities == "YES";
}

bool ComputesStrategy(const DecisionProblem& problem)
{
    return problem.ComputeStrategy == "YES";
}

bool Maximizes(const DecisionProblem& problem)
{
    return problem.Maximize == "YES";
}

std::string LabelOf(int index)
{
    return std::to_string(index);
}

bool TakeAlternativeCount(std::string_view text)
{
    return IsCountOrEmpty(kAlternatives, text);
}

bool TakeStateCount(std::string_view text)
{
    return IsCountOrEmpty(kStates, text);
}

bool TakeIndicatorCount(std::string_view text)
{
    if (!IsCountOrEmpty(kIndicators, text)) return false;
    if (Val(text) == 1)
        MsgBox("With one indicator outcome the sample carries no information.", "WARNING!!",
               Icon::Exclamation);
    return true;
}

FeatureBox TakeFeatures(const Features& features, const BoxPointer& point)
{
    const bool strategy = features.StateProbabilities && features.Strategy;
    PointAtBox(point, 0);
    if (!IsGivenCount(kAlternatives, features.Alternatives)) return FeatureBox::Alternatives;
    PointAtBox(point, 1);
    if (!IsGivenCount(kStates, features.States)) return FeatureBox::States;
    PointAtBox(point, strategy ? 2 : 1);
    if (strategy && !IsGivenCount(kIndicators, features.Indicators)) return FeatureBox::Indicators;

    TheFeatures.Give({.AlternativeCount = ToInt16(Val(features.Alternatives)),
                      .NatureStateCount = ToInt16(Val(features.States)),
                      .IndicatorCount = strategy ? ToInt16(Val(features.Indicators)) : std::int16_t{0},
                      .StateProbabilities = features.StateProbabilities,
                      .Strategy = strategy});
    return FeatureBox::None;
}

bool Ask()
{
    const auto features = TheFeatures.Ask("frmDecisionFeatures");
    if (!features) return false;
    Problem = {};
    Result = {};
    Problem.AlternativeCount = features->AlternativeCount;
    Problem.NatureStateCount = features->NatureStateCount;
    Problem.IndicatorCount = features->IndicatorCount;
    Problem.HasStateProbabilities = YesOrNo(features->StateProbabilities);
    Problem.ComputeStrategy = YesOrNo(features->Strategy);
    return true;
}

void Fill()
{
    Form& form = desktop::TheForms().Loaded(kForm);
    for (const int pass : {kPayoffs, kStateProbabilities, kIndicatorProbabilities}) {
        if (Runs(pass)) FillGrid(form.GridOf(ArrayGrid(pass)), pass);
        form.SetVisible(ArrayGrid(pass), Runs(pass));
    }
}

bool Runs(int pass)
{
    if (pass == kStateProbabilities) return HasStateProbabilities();
    return pass == kPayoffs || ComputesStrategy();
}

int CommitCell(int pass, int row, int column, std::string_view text)
{
    double& stored = Stored(pass, row, column);
    if (text.empty()) {
        stored = 0;
        return EmptyCell();
    }
    if (pass == kPayoffs) return CommitPayoff(stored, text);
    if (pass == kStateProbabilities) return CommitStateProbability(stored, text);
    return CommitIndicatorProbability(stored, text);
}

double Probability(int pass, int row, int column)
{
    return Stored(pass, row, column);
}

int Count(int pass)
{
    return ColumnsOf(pass);
}

std::vector<double> Numbers()
{
    NumberRow numbers;
    numbers.Write(Problem.PayoffDecimals);
    for (const int pass : {kPayoffs, kStateProbabilities, kIndicatorProbabilities})
        for (int row = 1; Runs(pass) && row <= RowsOf(pass); ++row)
            for (int column = 1; column <= ColumnsOf(pass); ++column)
                numbers.Write(Stored(pass, row, column));
    return numbers.Take();
}

void TakeNumbers(const std::vector<double>& numbers)
{
    NumberRowReader reader(numbers);
    Problem.PayoffDecimals = reader.ReadVariant();
    for (const int pass : {kPayoffs, kStateProbabilities, kIndicatorProbabilities})
        for (int row = 1; Runs(pass) && row <= RowsOf(pass); ++row)
            for (int column = 1; column <= ColumnsOf(pass); ++column)
                Stored(pass, row, column) = reader.Read();
}

bool AskSenseAndCriterion()
{
    return HasStateProbabilities() ? AskSense() : AskSenseWithCriterion();
}

void SolveProblem()
{
    Result = {};
    Result = Analyse(Problem);
    Problem.Criterion = Result.Criterion;
}

}  // namespace Decision
