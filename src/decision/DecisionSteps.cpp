#include "decision/DecisionSteps.h"

#include <algorithm>

#include "basic/format.h"
#include "decision/DecisionFigures.h"
#include "decision/DecisionPicture.h"

namespace Decision {
namespace {

using picture::Step;

using Lines = std::vector<std::string>;
using Cells = std::vector<std::vector<std::string>>;

// Each column flush right and as wide as its widest cell, two blanks between.
Lines Table(const Cells& cells)
{
    std::vector<std::size_t> widths;
    for (const auto& row : cells)
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (column == widths.size()) widths.push_back(0);
            widths[column] = std::max(widths[column], row[column].size());
        }
    Lines lines;
    for (const auto& row : cells) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column)
            line += (column == 0 ? "" : "  ") + FlushRight(row[column], static_cast<int>(widths[column]));
        line.erase(line.find_last_not_of(' ') + 1);
        lines.push_back(line);
    }
    return lines;
}

// A number as it was typed.
std::string Given(double value)
{
    return PlainText(value);
}

// A factor of a product; a negative one stands in brackets.
std::string Factor(double value)
{
    return value < 0 ? "(" + Given(value) + ")" : Given(value);
}

class Board {
public:
    Board(const DecisionProblem& problem, const DecisionResult& result)
        : p_(problem), r_(result), m_(problem.AlternativeCount), n_(problem.NatureStateCount)
    {
    }

    std::vector<Step> Write()
    {
        Data();
        if (r_.Criterion == kMinimaxRegret) Regret();
        if (r_.Criterion == kOptimistic || r_.Criterion == kConservative) Extremes();
        if (r_.Criterion == kExpectedValue) ExpectedValues();
        Choice();
        if (r_.Criterion == kExpectedValue) {
            PerfectInformation();
            if (r_.HasStrategy) Strategy();
        }
        Proof();
        return steps_;
    }

private:
    void Add(const std::string& heading, Lines figures, const std::string& why,
             std::vector<std::string> marks = {})
    {
        const char* picture = r_.Criterion == kExpectedValue ? "Tree" : "Criteria";
        steps_.push_back({.Heading = heading,
                          .Figures = std::move(figures),
                          .Why = why,
                          .Picture = marks.empty() ? "" : picture,
                          .Marks = std::move(marks)});
    }

    [[nodiscard]] std::string Score(double value) const { return ScoreText(p_, r_, value); }

    [[nodiscard]] std::vector<std::string> StateHeads(const std::string& first) const
    {
        std::vector<std::string> heads{first};
        for (int j = 1; j <= n_; ++j)
            heads.push_back("state " + LabelOf(j));
        return heads;
    }

    // ---- the data ----

    void Data()
    {
        Cells cells{StateHeads("alternative")};
        for (int i = 1; i <= m_; ++i) {
            cells.push_back({LabelOf(i)});
            for (int j = 1; j <= n_; ++j)
                cells.back().push_back(Given(p_.Payoff(i, j)));
        }
        if (HasStateProbabilities(p_)) {
            cells.push_back({"chance"});
            for (int j = 1; j <= n_; ++j)
                cells.back().push_back(Given(p_.StatePrior(j)));
        }
        Add("The payoffs", Table(cells),
            Maximizes(p_) ? "They are gains: a larger one is better."
                          : "They are costs: a smaller one is better.");
    }

    // ---- without chances ----

    void Extremes()
    {
        const bool best = r_.Criterion == kOptimistic;
        const char* what = best ? "best" : "worst";
        Cells cells{{"alternative", std::string(what) + " payoff", "in"}};
        std::vector<std::string> marks;
        for (int i = 1; i <= m_; ++i) {
            std::vector<int> states;
            for (int j = 1; j <= n_; ++j)
                if (p_.Payoff(i, j) == r_.AlternativeValue(i)) states.push_back(j);
            cells.push_back({LabelOf(i), Score(r_.AlternativeValue(i)), Called("state", states)});
            marks.push_back(AlternativeId(0, i));
        }
        Add(std::string(best ? "Best" : "Worst") + " payoff of each alternative", Table(cells),
            best ? "An optimist counts on the state that suits the alternative best."
                 : "A cautious mind counts on the state that suits the alternative worst.",
            marks);
    }

    void Regret()
    {
        Cells bests{StateHeads(""), {"best payoff"}};
        for (int j = 1; j <= n_; ++j)
            bests[1].push_back(PayoffText(p_, OwnScale(r_, r_.ColumnBest(j))));
        Add("Best payoff of each state", Table(bests), "It is what one would have got with the state known.");
        Cells cells{StateHeads("alternative")};
        cells[0].emplace_back("largest");
        std::vector<std::string> marks;
        for (int i = 1; i <= m_; ++i) {
            cells.push_back({LabelOf(i)});
            for (int j = 1; j <= n_; ++j)
                cells.back().push_back(ValueText(r_.Regret(i, j)));
            cells.back().push_back(ValueText(r_.AlternativeValue(i)));
            marks.push_back(AlternativeId(0, i));
        }
        Add("Regrets", Table(cells), "A regret is the distance from the best payoff of the state.", marks);
    }

    // ---- expected values ----

    void ExpectedValues()
    {
        Lines lines;
        std::vector<std::string> marks;
        for (int i = 1; i <= m_; ++i) {
            std::string sum;
            for (int j = 1; j <= n_; ++j)
                sum += (j == 1 ? "" : " + ") + Given(p_.StatePrior(j)) + " x " + Factor(p_.Payoff(i, j));
            lines.push_back("alternative " + LabelOf(i) + ": " + sum + " = " + Score(r_.AlternativeValue(i)));
            if (!r_.HasStrategy) marks.push_back(AlternativeId(0, i));
        }
        Add("Expected value of each alternative", std::move(lines),
            "Each payoff counts with the chance of its state.", marks);
    }

    void Choice()
    {
        Cells cells{{"alternative", "value", ""}};
        for (int i = 1; i <= m_; ++i)
            cells.push_back(
                {LabelOf(i), Score(r_.AlternativeValue(i)), r_.Recommended(i) == 1 ? "recommended" : ""});
        const std::vector<int> best = RecommendedOf(r_);
        std::vector<std::string> marks;
        if (!r_.HasStrategy)
            for (const int i : best)
                marks.push_back(AlternativeId(0, i));
        Add("The choice", Table(cells), WhyChosen(best), marks);
    }

    [[nodiscard]] bool SmallerWins() const
    {
        return r_.Criterion == kMinimaxRegret || r_.PayoffSign == kCosts;
    }

    [[nodiscard]] std::string WhyChosen(const std::vector<int>& best) const
    {
        if (m_ == 1) return "There is one alternative only.";
        const std::string which = SmallerWins() ? "smallest" : "largest";
        if (static_cast<int>(best.size()) == m_) return "All alternatives have the same value.";
        int next = 0;
        for (int i = 1; i <= m_; ++i) {
            if (r_.Recommended(i) == 1) continue;
            const double value = r_.AlternativeValue(i);
            if (next == 0 ||
                (SmallerWins() ? value < r_.AlternativeValue(next) : value > r_.AlternativeValue(next)))
                next = i;
        }
        std::string name = Called("alternative", best);
        name.front() = 'A';
        return name + (best.size() == 1 ? " has" : " have") + " the " + which + " value; the next one is " +
               Score(r_.AlternativeValue(next)) + " of alternative " + LabelOf(next) + ".";
    }

    // ---- values of information ----

    void PerfectInformation()
    {
        Cells bests{StateHeads(""), {"best payoff"}, {"chance"}};
        for (int j = 1; j <= n_; ++j) {
            bests[1].push_back(PayoffText(p_, OwnScale(r_, r_.ColumnBest(j))));
            bests[2].push_back(Given(p_.StatePrior(j)));
        }
        Lines lines = Table(bests);
        const std::string with = ValueText(OwnScale(r_, r_.ExpectedBestPayoff));
        const std::string without = ValueText(BestScore(r_));
        lines.push_back("with the state known:  " + with);
        lines.push_back("without:               " + without);
        lines.push_back("difference:            " + ValueText(r_.PerfectInformationValue));
        Add("Value of perfect information", std::move(lines),
            "Who knows the state takes the best payoff of each, and pays no more than the difference for "
            "it.");
    }

    void Strategy()
    {
        for (int k = 1; k <= p_.IndicatorCount; ++k) {
            Bayes(k);
            OutcomeChoice(k);
        }
        StrategyValue();
        SampleInformation();
    }

    void Bayes(int k)
    {
        Cells cells{{"state", "prior", "conditional", "joint", "posterior"}};
        double posteriors = 0;
        for (int j = 1; j <= n_; ++j) {
            posteriors += r_.PosteriorProbability(j, k);
            cells.push_back({LabelOf(j), Given(p_.StatePrior(j)), Given(p_.IndicatorGivenState(j, k)),
                             ProbabilityText(r_.JointProbability(j, k)),
                             ProbabilityText(r_.PosteriorProbability(j, k))});
        }
        cells.push_back(
            {"sum", "", "", ProbabilityText(r_.IndicatorProbability(k)), ProbabilityText(posteriors)});
        Add("Outcome " + LabelOf(k) + ": Bayes' rule", Table(cells),
            CanHappen(r_, k)
                ? "Joint is prior times conditional; divided by their sum, the chance of the outcome, it "
                  "gives the posterior."
                : "The outcome cannot happen, so that there is nothing to divide by: the posteriors stay 0.",
            {OutcomeId(k)});
    }

    // "; the next one is 16.67 of alternative 2"; nothing where there is only one.
    [[nodiscard]] std::string NextAt(int k) const
    {
        int next = 0;
        for (int i = 1; i <= m_; ++i)
            if (i != r_.StrategyDecision(k) &&
                (next == 0 || SignedValueAt(p_, r_, i, k) > SignedValueAt(p_, r_, next, k)))
                next = i;
        if (next == 0) return "";
        return "; the next one is " + ValueText(OwnScale(r_, SignedValueAt(p_, r_, next, k))) +
               " of alternative " + LabelOf(next);
    }

    void OutcomeChoice(int k)
    {
        Cells cells{{"alternative", "expected value", ""}};
        const int chosen = r_.StrategyDecision(k);
        for (int i = 1; i <= m_; ++i)
            cells.push_back({LabelOf(i), ValueText(OwnScale(r_, SignedValueAt(p_, r_, i, k))),
                             i == chosen ? "taken" : ""});
        const std::vector<int> best = BestAt(p_, r_, k);
        std::string why =
            "Alternative " + LabelOf(chosen) + " is best with the posterior chances" + NextAt(k) + ".";
        if (best.size() > 1)
            why = (static_cast<int>(best.size()) == m_ ? "All alternatives"
                                                       : "A" + Called("alternative", best).substr(1)) +
                  " tie; the last one, alternative " + LabelOf(chosen) + ", is taken.";
        if (m_ == 1) why = "There is one alternative only.";
        Add("Outcome " + LabelOf(k) + ": the choice", Table(cells), why,
            {OutcomeId(k), AlternativeId(k, chosen)});
    }

    void StrategyValue()
    {
        Cells cells{{"outcome", "chance", "alternative", "value"}};
        for (int k = 1; k <= p_.IndicatorCount; ++k)
            cells.push_back({LabelOf(k), ProbabilityText(r_.IndicatorProbability(k)),
                             LabelOf(r_.StrategyDecision(k)), ValueText(OwnScale(r_, r_.StrategyValue(k)))});
        Lines lines = Table(cells);
        lines.push_back("expected value: " + ValueText(r_.ExpectedStrategyValue));
        Add("Value of the strategy", std::move(lines), "The value at each outcome counts with its chance.",
            {"root"});
    }

    void SampleInformation()
    {
        Lines lines{"with the sample:  " + ValueText(r_.ExpectedStrategyValue),
                    "without:          " + ValueText(BestScore(r_)),
                    "difference:       " + ValueText(r_.SampleInformationValue)};
        if (r_.PerfectInformationValue != 0)
            lines.push_back("efficiency:       100 x " + ValueText(r_.SampleInformationValue) + " / " +
                            ValueText(r_.PerfectInformationValue) + " = " +
                            Format(r_.SampleEfficiency, "####0.0") + "%");
        Add("Value of the sample information", std::move(lines),
            r_.PerfectInformationValue != 0
                ? "The efficiency compares it with perfect information."
                : "Perfect information is worth nothing here, so that there is no efficiency.");
    }

    // ---- the line of proof ----

    void Proof()
    {
        if (r_.Criterion == kExpectedValue) return ProbabilityProof();
        if (r_.Criterion == kMinimaxRegret) {
            Cells cells{StateHeads("least regret")};
            cells.push_back({""});
            for (int j = 1; j <= n_; ++j) {
                double least = r_.Regret(1, j);
                for (int i = 2; i <= m_; ++i)
                    least = std::min(least, r_.Regret(i, j));
                cells.back().push_back(ValueText(least));
            }
            return Add("Proof", Table(cells), "In each state some alternative has no regret.");
        }
        double farthest = r_.AlternativeValue(1);
        for (int i = 2; i <= m_; ++i)
            farthest = SmallerWins() ? std::min(farthest, r_.AlternativeValue(i))
                                     : std::max(farthest, r_.AlternativeValue(i));
        Add("Proof",
            Table({{SmallerWins() ? "smallest value" : "largest value", Score(farthest)},
                   {"value of the choice", Score(BestScore(r_))}}),
            "No alternative has a better figure than the recommended one.");
    }

    void ProbabilityProof()
    {
        double states = 0;
        for (int j = 1; j <= n_; ++j)
            states += p_.StatePrior(j);
        Cells cells{{"chances of the states", ProbabilityText(states)}};
        if (r_.HasStrategy) {
            double outcomes = 0;
            for (int k = 1; k <= p_.IndicatorCount; ++k)
                outcomes += r_.IndicatorProbability(k);
            cells.push_back({"chances of the outcomes", ProbabilityText(outcomes)});
        }
        const bool whole =
            std::all_of(cells.begin(), cells.end(), [](const auto& row) { return row[1] == "1.000"; });
        Add("Proof", Table(cells),
            whole ? "The chances add up to 1."
                  : "The chances add up to 1 within the thousandth that the check of the problem allows.");
    }

    const DecisionProblem& p_;
    const DecisionResult& r_;
    int m_;
    int n_;
    std::vector<Step> steps_;
};

}  // namespace

std::vector<Step> Steps(const DecisionProblem& problem, const DecisionResult& result)
{
    if (!result.Solved || problem.AlternativeCount == 0 || problem.NatureStateCount == 0) return {};
    return Board(problem, result).Write();
}

}  // namespace Decision
