#include "decision/DecisionPicture.h"

#include <algorithm>

#include "decision/DecisionFigures.h"
#include "picture/words.h"

namespace Decision {
namespace {

using picture::Chart;
using picture::Diagram;
using picture::Direction;
using picture::Node;
using picture::Picture;
using picture::Point;
using picture::Role;
using picture::Series;
using picture::SeriesKind;
using picture::Shape;

constexpr int kMostLeaves = 60;  // of a tree that is shown whole

// ---- the tree ----

class TreePicture {
public:
    TreePicture(const DecisionProblem& problem, const DecisionResult& result) : p_(problem), r_(result)
    {
        const int outcomes = result.HasStrategy ? problem.IndicatorCount : 1;
        folds_ = outcomes * problem.AlternativeCount * problem.NatureStateCount > kMostLeaves;
        tree_.Kind = picture::Layout::Tree;
        tree_.Start = "root";
    }

    Picture Draw()
    {
        if (r_.HasStrategy)
            Sample();
        else
            Decision(0, "root", Role::Best);
        return {.Title = "Tree", .Body = tree_, .Notes = Notes()};
    }

private:
    // ---- outcomes of the sample ----

    void Sample()
    {
        Add({.Id = "root",
             .Lines = {ValueText(r_.ExpectedStrategyValue)},
             .Form = Shape::Circle,
             .As = Role::Best,
             .Tip = "sample, expected value " + ValueText(r_.ExpectedStrategyValue)});
        for (int k = 1; k <= p_.IndicatorCount; ++k) {
            const Role role = CanHappen(r_, k) ? Role::Best : Role::Spare;
            const std::string chance = ProbabilityText(r_.IndicatorProbability(k));
            Branch("root", OutcomeId(k), role, "outcome " + LabelOf(k) + ": " + chance,
                   r_.IndicatorProbability(k));
            Decision(k, OutcomeId(k), role);
        }
    }

    // ---- alternatives ----

    [[nodiscard]] bool IsBest(int outcome, int alternative) const
    {
        return outcome > 0 ? r_.StrategyDecision(outcome) == alternative : r_.Recommended(alternative) == 1;
    }

    [[nodiscard]] double ValueOf(int outcome, int alternative) const
    {
        return outcome > 0 ? OwnScale(r_, SignedValueAt(p_, r_, alternative, outcome))
                           : r_.AlternativeValue(alternative);
    }

    void Decision(int outcome, const std::string& id, Role role)
    {
        const double value = outcome > 0 ? OwnScale(r_, r_.StrategyValue(outcome)) : BestScore(r_);
        Add({.Id = id,
             .Lines = {ValueText(value)},
             .Form = Shape::Square,
             .As = role,
             .Tip = "decision, best expected value " + ValueText(value)});
        std::vector<int> folded;
        for (int i = 1; i <= p_.AlternativeCount; ++i) {
            if (folds_ && !IsBest(outcome, i))
                folded.push_back(i);
            else
                Alternative(outcome, id, i, IsBest(outcome, i) ? role : Role::NotTaken);
        }
        if (!folded.empty()) Fold(outcome, id, folded);
    }

    void Alternative(int outcome, const std::string& from, int alternative, Role role)
    {
        const std::string id = AlternativeId(outcome, alternative);
        const std::string value = ValueText(ValueOf(outcome, alternative));
        Branch(from, id, role, "alternative " + LabelOf(alternative), 1);
        Add({.Id = id,
             .Lines = {value},
             .Form = Shape::Circle,
             .As = role,
             .Tip = "alternative " + LabelOf(alternative) + ", expected value " + value});
        for (int j = 1; j <= p_.NatureStateCount; ++j)
            Leaf(outcome, alternative, j, role);
    }

    void Leaf(int outcome, int alternative, int state, Role role)
    {
        const double chance = outcome > 0 ? r_.PosteriorProbability(state, outcome) : p_.StatePrior(state);
        const double reached = outcome > 0 ? r_.JointProbability(state, outcome) : chance;
        const std::string payoff = PayoffText(p_, p_.Payoff(alternative, state));
        if (chance == 0 && role == Role::Best) role = Role::Spare;
        const std::string id = LeafId(outcome, alternative, state);
        Branch(AlternativeId(outcome, alternative), id, role,
               "state " + LabelOf(state) + ": " + ProbabilityText(chance), chance);
        Add({.Id = id,
             .Lines = {payoff + " (" + ProbabilityText(reached) + ")"},
             .Form = Shape::Triangle,
             .As = role,
             .Tip = "payoff " + payoff + ", chance to get there " + ProbabilityText(reached)});
    }

    // One branch for all of them, with a value below the other.
    void Fold(int outcome, const std::string& from, const std::vector<int>& alternatives)
    {
        std::vector<std::string> values;
        values.reserve(alternatives.size());
        for (const int i : alternatives)
            values.push_back(LabelOf(i) + ": " + ValueText(ValueOf(outcome, i)));
        const std::string id = (outcome > 0 ? OutcomeId(outcome) : "") + "others";
        const bool one = alternatives.size() == 1;
        Branch(from, id, Role::NotTaken, one ? Called("alternative", alternatives) : "the others", 1);
        Add({.Id = id,
             .Lines = values,
             .Form = Shape::Box,
             .As = Role::NotTaken,
             .Folded = true,
             .Tip = Called("alternative", alternatives) + ", expected value" + (one ? " " : "s ") +
                    picture::Listed(values)});
    }

    void Add(Node node) { tree_.Nodes.push_back(std::move(node)); }

    void Branch(const std::string& from, const std::string& to, Role role, const std::string& text,
                double weight)
    {
        tree_.Arcs.push_back({.From = from,
                              .To = to,
                              .As = role,
                              .Weight = weight,
                              .Text = text,
                              .Tip = text,
                              .Id = "to " + to,
                              .Head = false});
    }

    // ---- notes ----

    [[nodiscard]] std::vector<std::string> Notes() const
    {
        std::vector<std::string> notes{r_.HasStrategy ? StrategyNote() : BestNote()};
        if (r_.HasStrategy) OutcomeNotes(notes);
        if (folds_)
            notes.push_back("Only the best " +
                            std::string(r_.HasStrategy                  ? "alternative of each outcome is"
                                        : RecommendedOf(r_).size() == 1 ? "alternative is"
                                                                        : "alternatives are") +
                            " open; the others are folded into one line with their expected values.");
        return notes;
    }

    [[nodiscard]] std::string BestNote() const
    {
        const std::vector<int> best = RecommendedOf(r_);
        std::string name = Called("alternative", best);
        name.front() = 'A';
        return name + (best.size() == 1 ? " has" : " tie with") + " the best expected value, " +
               ValueText(BestScore(r_)) + ".";
    }

    [[nodiscard]] std::string StrategyNote() const
    {
        std::string note = "Best strategy, expected value " + ValueText(r_.ExpectedStrategyValue) + ":";
        const char* join = " ";
        for (int k = 1; k <= p_.IndicatorCount; ++k) {
            if (!CanHappen(r_, k)) continue;
            note +=
                join + ("after outcome " + LabelOf(k)) + " alternative " + LabelOf(r_.StrategyDecision(k));
            join = ", ";
        }
        return note + ".";
    }

    void OutcomeNotes(std::vector<std::string>& notes) const
    {
        for (int k = 1; k <= p_.IndicatorCount; ++k) {
            if (!CanHappen(r_, k)) {
                notes.push_back("Outcome " + LabelOf(k) + " cannot happen.");
                continue;
            }
            const std::vector<int> best = BestAt(p_, r_, k);
            if (best.size() > 1)
                notes.push_back("After outcome " + LabelOf(k) + " " + Called("alternative", best) +
                                " tie; the last one is taken.");
        }
    }

    const DecisionProblem& p_;
    const DecisionResult& r_;
    bool folds_ = false;
    Diagram tree_;
};

// ---- the criteria without chances ----

class CriterionPicture {
public:
    CriterionPicture(const DecisionProblem& problem, const DecisionResult& result) : p_(problem), r_(result)
    {
    }

    Picture Draw()
    {
        const int m = p_.AlternativeCount;
        chart_.Y = {.Title = "Alternative", .From = 0.5, .To = m + 0.5};
        for (int i = 1; i <= m; ++i)
            chart_.Y.Names.push_back(LabelOf(i));
        if (r_.Criterion == kMinimaxRegret)
            Regrets();
        else
            Payoffs();
        std::vector<std::string> notes{Note()};
        if (r_.Criterion != kMinimaxRegret)
            notes.emplace_back("The numbers at the marks are states of nature.");
        return {.Title = "Criteria", .Body = chart_, .Notes = notes};
    }

private:
    [[nodiscard]] std::string Note() const
    {
        const std::vector<int> best = RecommendedOf(r_);
        const std::string score = ScoreText(p_, r_, BestScore(r_));
        return "Under the " + CriterionName(r_.Criterion) + " criterion " + Called("alternative", best) +
               (best.size() == 1 ? " is best with " : " tie with ") + score + ".";
    }

    [[nodiscard]] Role RoleOf(int alternative) const
    {
        return r_.Recommended(alternative) == 1 ? Role::Best : Role::Plain;
    }

    // ---- the largest regret of each ----

    void Regrets()
    {
        chart_.X = {.Title = "Largest regret", .From = 0, .To = 0};
        for (const Role role : {Role::Plain, Role::Best}) {
            Series bars{.Kind = SeriesKind::Bars,
                        .As = role,
                        .Name = role == Role::Best ? "recommended" : "not recommended"};
            for (int i = 1; i <= p_.AlternativeCount; ++i) {
                chart_.X.To = std::max(chart_.X.To, r_.AlternativeValue(i));
                if (RoleOf(i) != role) continue;
                bars.Points.push_back({r_.AlternativeValue(i), static_cast<double>(i)});
                bars.Tips.push_back("alternative " + LabelOf(i) + ": largest regret " +
                                    ValueText(r_.AlternativeValue(i)) + " in " + WhereLargest(i));
            }
            if (!bars.Points.empty()) chart_.Curves.push_back(bars);
        }
        if (chart_.X.To == 0) chart_.X.To = 1;  // no regret at all
        for (int i = 1; i <= p_.AlternativeCount; ++i)
            chart_.Marks.push_back({.As = RoleOf(i),
                                    .At = {r_.AlternativeValue(i), static_cast<double>(i)},
                                    .Text = ValueText(r_.AlternativeValue(i)),
                                    .Id = AlternativeId(0, i)});
    }

    [[nodiscard]] std::string WhereLargest(int alternative) const
    {
        std::vector<int> states;
        for (int j = 1; j <= p_.NatureStateCount; ++j)
            if (r_.Regret(alternative, j) == r_.AlternativeValue(alternative)) states.push_back(j);
        return Called("state", states);
    }

    // ---- payoffs from worst to best ----

    void Payoffs()
    {
        const double first = p_.Payoff(1, 1);
        chart_.X = {
            .Title = Maximizes(p_) ? "Payoff" : "Payoff (less is better)", .From = first, .To = first};
        for (const Role role : {Role::Plain, Role::Best}) {
            Series lines{.Kind = SeriesKind::Interval,
                         .As = role,
                         .Name = role == Role::Best ? "recommended" : "not recommended"};
            for (int i = 1; i <= p_.AlternativeCount; ++i)
                if (RoleOf(i) == role) Line(lines, i);
            if (!lines.Intervals.empty()) chart_.Curves.push_back(lines);
        }
        for (int i = 1; i <= p_.AlternativeCount; ++i)
            StateMarks(i);
        if (chart_.X.From == chart_.X.To) {
            chart_.X.From -= 1;
            chart_.X.To += 1;
        }
    }

    void Line(Series& lines, int alternative)
    {
        double low = p_.Payoff(alternative, 1);
        double high = low;
        for (int j = 2; j <= p_.NatureStateCount; ++j) {
            low = std::min(low, p_.Payoff(alternative, j));
            high = std::max(high, p_.Payoff(alternative, j));
        }
        chart_.X.From = std::min(chart_.X.From, low);
        chart_.X.To = std::max(chart_.X.To, high);
        const bool gains = Maximizes(p_);
        lines.Intervals.push_back({.At = static_cast<double>(alternative), .From = low, .To = high});
        lines.Tips.push_back("alternative " + LabelOf(alternative) + ": worst " +
                             PayoffText(p_, gains ? low : high) + ", best " +
                             PayoffText(p_, gains ? high : low));
    }

    // A mark for each payoff with the states that have it; the one that the criterion picks stands out.
    void StateMarks(int alternative)
    {
        std::vector<bool> done(static_cast<std::size_t>(p_.NatureStateCount) + 1);
        for (int j = 1; j <= p_.NatureStateCount; ++j) {
            if (done[static_cast<std::size_t>(j)]) continue;
            std::vector<int> states;
            for (int other = j; other <= p_.NatureStateCount; ++other) {
                if (p_.Payoff(alternative, other) != p_.Payoff(alternative, j)) continue;
                states.push_back(other);
                done[static_cast<std::size_t>(other)] = true;
            }
            StateMark(alternative, p_.Payoff(alternative, j), states);
        }
    }

    void StateMark(int alternative, double payoff, const std::vector<int>& states)
    {
        const bool picked = payoff == r_.AlternativeValue(alternative);
        const std::string names = Numbers(states);
        const Role chosen = r_.Recommended(alternative) == 1 ? Role::Best : Role::Chosen;
        chart_.Marks.push_back(
            {.As = picked ? chosen : Role::Plain,
             .At = {payoff, static_cast<double>(alternative)},
             .Text = picked ? names + ": " + PayoffText(p_, payoff) : names,
             .Tip = "alternative " + LabelOf(alternative) + ", " + Called("state", states) + ": " +
                    PayoffText(p_, payoff) + (picked ? ", the figure that the criterion takes" : ""),
             .Id = picked ? AlternativeId(0, alternative) : LeafId(0, alternative, states.front())});
    }

    const DecisionProblem& p_;
    const DecisionResult& r_;
    Chart chart_;
};

// ---- two states: the choice against the chance of the first ----

class SensitivityPicture {
public:
    explicit SensitivityPicture(const DecisionProblem& problem) : p_(problem), stretches_(Stretches(problem))
    {
    }

    Picture Draw()
    {
        chart_.X = {.Title = "Chance of state 1", .From = 0, .To = 1};
        chart_.Y = {.Title = "Expected value", .From = p_.Payoff(1, 1), .To = p_.Payoff(1, 1)};
        for (int i = 1; i <= p_.AlternativeCount; ++i)
            AlternativeLine(i);
        for (const Stretch& stretch : stretches_)
            StrongStretch(stretch);
        Crossings();
        if (chart_.Y.From == chart_.Y.To) {
            chart_.Y.From -= 1;
            chart_.Y.To += 1;
        }
        chart_.Rules.push_back({.Across = Direction::X,
                                .As = Role::Second,
                                .Value = p_.StatePrior(1),
                                .Text = "now " + ProbabilityText(p_.StatePrior(1))});
        return {.Title = "Sensitivity", .Body = chart_, .Notes = Notes()};
    }

private:
    void AlternativeLine(int i)
    {
        Series line{.Kind = SeriesKind::Line,
                    .As = Role::Plain,
                    .Name = "alternative " + LabelOf(i),
                    .Points = {{0, p_.Payoff(i, 2)}, {1, p_.Payoff(i, 1)}},
                    .Id = AlternativeId(0, i)};
        for (const Point& point : line.Points) {
            chart_.Y.From = std::min(chart_.Y.From, point.Y);
            chart_.Y.To = std::max(chart_.Y.To, point.Y);
        }
        chart_.Curves.push_back(line);
    }

    void StrongStretch(const Stretch& stretch)
    {
        const int best = stretch.Best.front();
        chart_.Curves.push_back({.Kind = SeriesKind::Line,
                                 .As = Role::Best,
                                 .Name = "best: " + Called("alternative", stretch.Best),
                                 .Points = {{stretch.From, ValueAtChance(p_, best, stretch.From)},
                                            {stretch.To, ValueAtChance(p_, best, stretch.To)}}});
    }

    [[nodiscard]] bool ChangesBest(double chance) const
    {
        constexpr double kNear = 1e-12;
        return std::any_of(stretches_.begin(), stretches_.end(), [&](const Stretch& stretch) {
            return stretch.From > 0 && stretch.From - kNear <= chance && chance <= stretch.From + kNear;
        });
    }

    // Those where the best changes first: their labels find a place before the others.
    void Crossings()
    {
        for (const bool strong : {true, false})
            for (int i = 1; i <= p_.AlternativeCount; ++i)
                for (int other = i + 1; other <= p_.AlternativeCount; ++other)
                    Crossing(i, other, strong);
    }

    void Crossing(int i, int other, bool strong)
    {
        const double chance = CrossingOf(p_, i, other);
        if (chance < 0 || OnTop(i, other, chance) != strong) return;
        chart_.Marks.push_back({.As = strong ? Role::Best : Role::Spare,
                                .At = {chance, ValueAtChance(p_, i, chance)},
                                .Text = ProbabilityText(chance),
                                .Tip = Called("alternative", {i, other}) + " are alike at " +
                                       ProbabilityText(chance) + ": " +
                                       ValueText(ValueAtChance(p_, i, chance))});
    }

    // Whether the best changes there, and these two are the best.
    [[nodiscard]] bool OnTop(int i, int other, double chance) const
    {
        if (!ChangesBest(chance)) return false;
        constexpr double kNear = 1e-12;
        for (const Stretch& stretch : stretches_) {
            if (stretch.From - kNear > chance || chance > stretch.To + kNear) continue;
            for (const int best : stretch.Best)
                if (best == i || best == other) return true;
        }
        return false;
    }

    [[nodiscard]] std::vector<std::string> Notes() const
    {
        std::vector<std::string> notes;
        if (stretches_.size() == 1)
            return {"For every chance of state 1 the best " +
                    std::string(stretches_[0].Best.size() == 1 ? "is " : "are ") +
                    Called("alternative", stretches_[0].Best) + "."};
        std::string note = "Best by the chance of state 1:";
        for (const Stretch& stretch : stretches_)
            note += std::string(stretch.From > 0 ? ", from " : " from ") + ProbabilityText(stretch.From) +
                    " to " + ProbabilityText(stretch.To) + " " + Called("alternative", stretch.Best);
        return {note + "."};
    }

    const DecisionProblem& p_;
    std::vector<Stretch> stretches_;
    Chart chart_;
};

}  // namespace

std::string OutcomeId(int outcome)
{
    return "I" + LabelOf(outcome);
}

std::string AlternativeId(int outcome, int alternative)
{
    return (outcome > 0 ? OutcomeId(outcome) : "") + "A" + LabelOf(alternative);
}

std::string LeafId(int outcome, int alternative, int state)
{
    return AlternativeId(outcome, alternative) + "S" + LabelOf(state);
}

std::vector<Picture> Pictures(const DecisionProblem& problem, const DecisionResult& result)
{
    if (!result.Solved || problem.AlternativeCount == 0 || problem.NatureStateCount == 0) return {};
    if (result.Criterion != kExpectedValue) return {CriterionPicture(problem, result).Draw()};
    std::vector<Picture> pictures{TreePicture(problem, result).Draw()};
    if (problem.NatureStateCount == 2) pictures.push_back(SensitivityPicture(problem).Draw());
    return pictures;
}

}  // namespace Decision
