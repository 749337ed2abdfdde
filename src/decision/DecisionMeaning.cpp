#include "decision/DecisionMeaning.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "basic/format.h"
#include "decision/DecisionCriteria.h"
#include "decision/DecisionFigures.h"
#include "picture/words.h"

namespace Decision {
namespace {

using picture::Capital;
using picture::Filling;
using picture::Sentence;
using picture::SentenceKind;

constexpr std::size_t kMostSentences = 12;
constexpr double kRounding = 1e-9;  // of the largest payoff: what sums of products may miss

// Cautions; the guide's list of them follows this one. What stands in braces is filled in.
constexpr const char* kImpossibleOutcome = "Outcome {k} cannot happen; its row means nothing.";
constexpr const char* kImpossibleOutcomes = "Outcomes {k} cannot happen; their rows mean nothing.";
constexpr const char* kImpossibleState = "{states} the chance 0: the payoffs there do not count.";
constexpr const char* kTieAtOutcome =
    "After {outcomes} {alternatives} tie; the report names the last one only.";
constexpr const char* kOneOutcome = "With one outcome the sample carries no information.";
constexpr const char* kEmptyEfficiency =
    "The value of perfect information is 0 but for rounding: the efficiency in the report means nothing.";
constexpr const char* kLosingSample =
    "The strategy is worth less than the best alternative without the sample, as the chances do not add up "
    "to 1; the report shows the difference without its sign.";
constexpr const char* kSumOfChances =
    "The chances of the states add up to {sum}; they are taken as they are.";
constexpr const char* kNearTie =
    "{alternatives} the same printed value as the recommended one and {differ} from it by rounding only.";
constexpr const char* kCutScore =
    "A value is wider than its field of {width} columns, and the report cuts its end.";
constexpr const char* kMoreDecimals =
    "Some payoffs have more decimals than the report shows; it is reckoned with all of them.";

class Reading {
public:
    Reading(const DecisionProblem& problem, const DecisionResult& result)
        : p_(problem),
          r_(result),
          m_(problem.AlternativeCount),
          n_(problem.NatureStateCount),
          best_(RecommendedOf(result))
    {
    }

    std::vector<Sentence> Read()
    {
        Recommendation();
        if (r_.Criterion == kExpectedValue)
            ExpectedValueSentences();
        else
            OtherCriteria();
        Dominated();
        NearTies();
        Figures();
        return Ordered();
    }

private:
    void Say(SentenceKind kind, std::string text)
    {
        said_.push_back({.Kind = kind, .Text = std::move(text)});
    }
    void Caution(const char* text, const std::vector<Filling>& fillings = {})
    {
        Say(SentenceKind::Caution, picture::Filled(text, fillings));
    }

    [[nodiscard]] std::string Score(double value) const { return ScoreText(p_, r_, value); }

    // A difference of values that sums of rounded products may leave.
    [[nodiscard]] bool IsRounding(double difference) const
    {
        double largest = 0;
        for (int i = 1; i <= m_; ++i)
            for (int j = 1; j <= n_; ++j)
                largest = std::max(largest, std::abs(p_.Payoff(i, j)));
        return std::abs(difference) <= kRounding * largest;
    }

    // Results, limits, changes, cautions; of too many the last changes and limits go first.
    [[nodiscard]] std::vector<Sentence> Ordered()
    {
        picture::SortByKind(said_);
        for (const SentenceKind kind : {SentenceKind::Change, SentenceKind::Limit, SentenceKind::Caution})
            while (said_.size() > kMostSentences) {
                const auto last = std::find_if(said_.rbegin(), said_.rend(),
                                               [kind](const Sentence& said) { return said.Kind == kind; });
                if (last == said_.rend()) break;
                said_.erase(std::next(last).base());
            }
        return said_;
    }

    // ---- the recommendation ----

    void Recommendation()
    {
        const std::string under = "Under the " + CriterionName(r_.Criterion) + " criterion ";
        const std::string score = Score(BestScore(r_));
        const std::string figure = r_.Criterion == kMinimaxRegret ? "a largest regret of " + score : score;
        if (m_ == 1) return Say(SentenceKind::Result, under + "the only alternative has " + figure + ".");
        if (static_cast<int>(best_.size()) == m_)
            return Say(SentenceKind::Result, under + "all alternatives are equal, with " + figure + ".");
        if (best_.size() > 1)
            return Say(SentenceKind::Result,
                       under + Called("alternative", best_) + " tie with " + figure + ".");
        Say(SentenceKind::Result, under + Called("alternative", best_) + " is best with " + figure + ".");
        RunnerUp();
    }

    void RunnerUp()
    {
        std::vector<int> next;
        double least = 0;
        for (int i = 1; i <= m_; ++i) {
            if (r_.Recommended(i) == 1) continue;
            const double behind = std::abs(r_.AlternativeValue(i) - BestScore(r_));
            if (next.empty() || behind < least) {
                next.clear();
                least = behind;
            }
            if (behind == least) next.push_back(i);
        }
        if (Score(least) != Score(0))
            Say(SentenceKind::Change, Capital(Called("alternative", next)) +
                                          (next.size() == 1 ? " comes" : " come") + " next, behind by " +
                                          Score(least) + ".");
    }

    // ---- other criteria, computed again ----

    void OtherCriteria()
    {
        if (m_ == 1) return;
        std::vector<std::string> same;
        for (const int criterion : {kOptimistic, kConservative, kMinimaxRegret}) {
            if (criterion == r_.Criterion) continue;
            DecisionProblem other = p_;
            other.Criterion = criterion;
            const std::vector<int> best = RecommendedOf(Analyse(other));
            if (best == best_)
                same.push_back(CriterionName(criterion));
            else
                Say(SentenceKind::Change, "Under the " + CriterionName(criterion) +
                                              " criterion it would be " + Called("alternative", best) + ".");
        }
        if (!same.empty())
            Say(SentenceKind::Change,
                "The " + picture::Listed(same) +
                    (same.size() == 1 ? " criterion recommends" : " criteria recommend") + " the same.");
    }

    [[nodiscard]] bool IsDominated(int i, int by) const
    {
        bool better = false;
        for (int j = 1; j <= n_; ++j) {
            if (r_.SignedPayoff(by, j) < r_.SignedPayoff(i, j)) return false;
            better = better || r_.SignedPayoff(by, j) > r_.SignedPayoff(i, j);
        }
        return better;
    }

    void Dominated()
    {
        std::vector<int> dominated;
        for (int i = 1; i <= m_; ++i)
            for (int by = 1; by <= m_; ++by)
                if (IsDominated(i, by)) {
                    dominated.push_back(i);
                    break;
                }
        if (dominated.empty()) return;
        const bool one = dominated.size() == 1;
        Say(SentenceKind::Limit, Capital(Called("alternative", dominated)) + " can be left out: " +
                                     (one ? "another one is" : "for each of them another one is") +
                                     " at least as good in every state and better in some.");
    }

    // ---- expected values ----

    void ExpectedValueSentences()
    {
        if (r_.HasStrategy) Strategy();
        Information();
        if (n_ == 2 && m_ > 1) Sensitivity();
        Chances();
    }

    // In the order of the first outcome of each.
    [[nodiscard]] std::string WhatToTake(const std::map<int, std::vector<int>>& outcomes,
                                         const std::vector<int>& impossible) const
    {
        if (outcomes.size() == 1)
            return "alternative " + LabelOf(outcomes.begin()->first) +
                   (p_.IndicatorCount == 1 ? " after the only outcome"
                    : impossible.empty()   ? " after every outcome"
                                           : " after every outcome that can happen");
        std::map<int, std::string> parts;  // by first outcome
        for (const auto& [alternative, list] : outcomes)
            parts[list.front()] = "alternative " + LabelOf(alternative) + " after " + Called("outcome", list);
        std::vector<std::string> texts;
        texts.reserve(parts.size());
        for (const auto& [first, text] : parts)
            texts.push_back(text);
        return picture::Listed(texts);
    }

    void TiesAtOutcomes()
    {
        std::map<std::vector<int>, std::vector<int>> ties;  // outcomes by what ties there
        for (int k = 1; k <= p_.IndicatorCount; ++k)
            if (CanHappen(r_, k)) ties[BestAt(p_, r_, k)].push_back(k);
        for (const auto& [best, outcomes] : ties)
            if (best.size() > 1)
                Caution(kTieAtOutcome, {{"outcomes", Called("outcome", outcomes)},
                                        {"alternatives", Called("alternative", best)}});
    }

    void Strategy()
    {
        std::map<int, std::vector<int>> outcomes;  // by alternative
        std::vector<int> impossible;
        for (int k = 1; k <= p_.IndicatorCount; ++k) {
            if (CanHappen(r_, k))
                outcomes[r_.StrategyDecision(k)].push_back(k);
            else
                impossible.push_back(k);
        }
        Say(SentenceKind::Result, "With the sample take " + WhatToTake(outcomes, impossible) +
                                      "; the strategy is worth " + ValueText(r_.ExpectedStrategyValue) + ".");
        if (!impossible.empty())
            Caution(impossible.size() == 1 ? kImpossibleOutcome : kImpossibleOutcomes,
                    {{"k", Numbers(impossible)}});
        TiesAtOutcomes();
        if (p_.IndicatorCount == 1) Caution(kOneOutcome);
    }

    void Information()
    {
        const double perfect = r_.PerfectInformationValue;
        const std::string told = ValueText(perfect);
        const bool nothing = IsRounding(perfect);
        if (nothing) {
            Say(SentenceKind::Limit,
                "Knowing the state beforehand is worth nothing: what is best stays best "
                "in every state that can come.");
            if (r_.HasStrategy && perfect != 0) Caution(kEmptyEfficiency);
        } else {
            std::string text = "Knowing the state beforehand is worth " +
                               (told == ValueText(0) ? "less than 0.01" : "at most " + told);
            if (r_.HasStrategy && !IsRounding(r_.SampleInformationValue))
                text += "; this sample brings " +
                        (ValueText(r_.SampleInformationValue) == ValueText(0)
                             ? "less than 0.01"
                             : ValueText(r_.SampleInformationValue)) +
                        " of it";
            Say(SentenceKind::Limit, text + ".");
        }
        if (!r_.HasStrategy) return;
        const double gain = r_.PayoffSign == kCosts ? BestScore(r_) - r_.ExpectedStrategyValue
                                                    : r_.ExpectedStrategyValue - BestScore(r_);
        if (IsRounding(gain) && !nothing) Say(SentenceKind::Limit, "This sample brings nothing of it.");
        if (gain < 0 && !IsRounding(gain)) Caution(kLosingSample);
    }

    void Sensitivity()
    {
        const std::vector<Stretch> stretches = Stretches(p_);
        if (stretches.size() == 1)
            return Say(SentenceKind::Change,
                       "Whatever the chance of state 1, " + Called("alternative", stretches[0].Best) +
                           (stretches[0].Best.size() == 1 ? " stays best." : " stay best."));
        const double now = p_.StatePrior(1);
        for (std::size_t i = 0; i < stretches.size(); ++i) {
            if (now < stretches[i].From || now > stretches[i].To) continue;
            if (i + 1 < stretches.size()) Change("Above", stretches[i].To, stretches[i + 1]);
            if (i > 0) Change("Below", stretches[i].From, stretches[i - 1]);
            return;
        }
    }

    void Change(const char* side, double chance, const Stretch& beyond)
    {
        const bool one = beyond.Best.size() == 1;
        const std::string told = picture::Chance(chance, 3);
        const bool low = told.front() == 'b';   // below the last printed place
        const bool high = told.front() == 'm';  // more than the last one below 1
        const std::string figure = told.substr(told.find_first_of("0123456789"));
        const std::string text = low ? "less than " + figure : high ? "more than " + figure : told;
        const std::string who = " for state 1 " + Called("alternative", beyond.Best);
        if (*side == 'B' ? low : high)
            Say(SentenceKind::Change,
                "Only at a chance of " + text + who + (one ? " becomes best." : " become best."));
        else
            Say(SentenceKind::Change, std::string(side) + " a chance of " + text + who +
                                          (one ? " becomes best." : " become best."));
    }

    void Chances()
    {
        double sum = 0;
        std::vector<int> impossible;
        for (int j = 1; j <= n_; ++j) {
            sum += p_.StatePrior(j);
            if (p_.StatePrior(j) == 0) impossible.push_back(j);
        }
        if (!impossible.empty())
            Caution(kImpossibleState, {{"states", Capital(Called("state", impossible)) +
                                                      (impossible.size() == 1 ? " has" : " have")}});
        if (std::abs(sum - 1) > kRounding) Caution(kSumOfChances, {{"sum", Format(sum, "0.0000")}});
    }

    // ---- figures ----

    void NearTies()
    {
        std::vector<int> near;
        const std::string best = Score(BestScore(r_));
        for (int i = 1; i <= m_; ++i)
            if (r_.Recommended(i) == 0 && Score(r_.AlternativeValue(i)) == best &&
                IsRounding(r_.AlternativeValue(i) - BestScore(r_)))
                near.push_back(i);
        if (near.empty()) return;
        const bool one = near.size() == 1;
        Caution(kNearTie, {{"alternatives", Capital(Called("alternative", near)) + (one ? " has" : " have")},
                           {"differ", one ? "differs" : "differ"}});
    }

    void Figures()
    {
        const bool narrow =
            (r_.Criterion == kOptimistic || r_.Criterion == kConservative) && p_.PayoffDecimals.Value() < 2;
        const std::size_t width = narrow ? 9 : 10;
        bool cut = false;
        for (int i = 1; i <= m_; ++i)
            cut = cut || Score(r_.AlternativeValue(i)).size() > width;
        if (cut) Caution(kCutScore, {{"width", std::to_string(width)}});
        for (int i = 1; i <= m_; ++i)
            for (int j = 1; j <= n_; ++j)
                if (HasMoreDecimals(p_.Payoff(i, j))) return Caution(kMoreDecimals);
    }

    [[nodiscard]] bool HasMoreDecimals(double payoff) const
    {
        const double scale = std::pow(10.0, ShownDecimals(p_.PayoffDecimals.Value()));
        return std::abs(payoff * scale - std::round(payoff * scale)) > kRounding * (1 + std::abs(payoff));
    }

    const DecisionProblem& p_;
    const DecisionResult& r_;
    int m_;
    int n_;
    std::vector<int> best_;
    std::vector<Sentence> said_;
};

}  // namespace

std::vector<Sentence> Meaning(const DecisionProblem& problem, const DecisionResult& result)
{
    if (!result.Solved || problem.AlternativeCount == 0 || problem.NatureStateCount == 0) return {};
    return Reading(problem, result).Read();
}

}  // namespace Decision
