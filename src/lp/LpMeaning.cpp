#include "lp/LpMeaning.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "basic/format.h"
#include "lp/IntegerTypes.h"
#include "lp/LostNodes.h"
#include "lp/LpFigures.h"
#include "lp/LpReplay.h"
#include "lp/Ranges.h"
#include "picture/words.h"

namespace LP_Engine {
namespace {

using picture::Capital;
using picture::Counted;
using picture::Listed;
using picture::Sentence;
using picture::SentenceKind;

constexpr std::size_t kMostSentences = 12;
constexpr std::size_t kMostNames = 8;    // in one list
constexpr std::size_t kMostChanges = 4;  // of right-hand sides
constexpr double kLargeValue = 1e9;      // from here on a value may come from the method's own infinity
constexpr double kSameValue = 1e-6;      // relative

// ---- cautions, as the guide lists them ----

constexpr const char* kPassedBy = "A plan that is better by 1 or less may have been passed by.";
constexpr const char* kNoPrices = "Prices and ranges are not given: they do not hold for whole-number plans.";
constexpr const char* kFarValue =
    " stands at a number that only the largest one of the method explains: in truth nothing limits it, and "
    "prices and ranges mean nothing.";
constexpr const char* kFarValues =
    " stand at numbers that only the largest one of the method explains: in truth nothing limits them, and "
    "prices and ranges mean nothing.";
constexpr const char* kCutFigures = "Some figures are longer than their fields and are cut at their end.";
constexpr const char* kNoWholePlan =
    "Every node of the search was closed and none gave a whole-number plan: the search went on without end "
    "until it was broken off.";
constexpr const char* kBrokenOff = "The solve was broken off; nothing is said about the best plan.";
constexpr const char* kFullTable =
    "The search ran out of room after 49 branchings and ended without a report.";
constexpr const char* kLargeNumber =
    "The search met a bound or a node number above 32767, which it cannot hold, and ended without a report.";
constexpr const char* kCycle =
    "The method came back to a basis it had left: without the break it would go round for ever.";
constexpr const char* kBoundedBasics =
    "\"Unbounded\" can be wrong here: the upper bounds of 0/1 variables do not keep the method from saying "
    "so.";
constexpr const char* kUnboundedRelaxation =
    "Whether any whole-number plan exists was not looked at: \"unbounded\" is told of the plans without the "
    "whole-number condition.";
constexpr const char* kPhaseOneNode =
    "A node whose limits exclude each other was counted as a whole-number plan, and other nodes may have "
    "been given up for it.";

// A node that the search took for one without a plan.
std::string GivenUp(int nodes, bool planFound)
{
    return "The search gave up " + Counted(nodes, "node") + " as without a plan although " +
           (nodes == 1 ? "it has one" : "they have one") + ": a " + (planFound ? "better " : "") +
           "whole-number plan may be there.";
}

std::string Limits(const std::vector<std::string>& numbers)
{
    return (numbers.size() == 1 ? "limit " : "limits ") + Listed(numbers, kMostNames);
}

// Notes whether a basis comes a second time, and at which column the method found no end.
class Watcher : public Replay {
public:
    bool GoesOn(const LpResult& at) override { return !cycles && Replay::GoesOn(at); }

    void Turns(const LpResult& at, const Pivot& pivot) override
    {
        goesFarAway = goesFarAway || GoesFarAway(at, pivot);
        std::vector<std::int16_t> basis;
        for (int j = 1; j <= at.NumColumns; ++j)
            basis.push_back(at.Basis.ColumnStatus(j));
        if (!seen_.insert(basis).second) cycles = true;
    }

    void Unlimited(const LpResult& at, const Entering& entering) override
    {
        const Array2<double> tableau = Tableau(at);
        for (int r = 1; r <= at.Problem.NumConstraints; ++r) {
            const int j = at.Basis.BasisList(r);
            if (tableau(r, entering.Column) < 0 && at.Basis.UpperBound(j) < EngineInfinity)
                boundedBasics = true;
            if (at.Basis.ColumnKind(j) == kArtificial && at.Basis.BasicValues(r) < EngineTolerance)
                artificials.push_back(ConstraintOf(at, j));
        }
        std::sort(artificials.begin(), artificials.end());
    }

    bool cycles = false;
    bool goesFarAway = false;  // to the method's own infinity
    bool boundedBasics = false;
    std::vector<int> artificials;

private:
    std::set<std::vector<std::int16_t>> seen_;
};

// The problem with the signs of a constraint changed: the same limit, turned round.
void TurnRound(VtLP::LpProblem& problem, int constraint)
{
    for (int j = 0; j <= problem.NumVariables; ++j)
        problem.LpCoefficients(constraint, j) = 0 - problem.LpCoefficients(constraint, j);
    std::int16_t& relation = problem.LpRelations(constraint);
    if (relation == VtLP::kLess)
        relation = VtLP::kGreater;
    else if (relation == VtLP::kGreater)
        relation = VtLP::kLess;
}

VtLP::LpProblem Without(const VtLP::LpProblem& problem, int constraint)
{
    VtLP::LpProblem left = problem;
    for (int i = constraint; i < problem.NumConstraints; ++i) {
        for (int j = 0; j <= problem.NumVariables; ++j)
            left.LpCoefficients(i, j) = problem.LpCoefficients(i + 1, j);
        left.LpRelations(i) = problem.LpRelations(i + 1);
    }
    --left.NumConstraints;
    return left;
}

class Teller {
public:
    explicit Teller(const LpResult& result) : result_(result), problem_(result.Problem) {}

    std::vector<Sentence> Tell()
    {
        switch (result_.End) {
            case Outcome::Optimal:
                TellOptimal();
                break;
            case Outcome::Infeasible:
                TellInfeasible();
                break;
            case Outcome::Unbounded:
                TellUnbounded();
                break;
            default:
                TellBrokenOff();
        }
        return Cut();
    }

private:
    [[nodiscard]] const std::string& Name(int j) const { return problem_.LpVariableNames(j); }
    [[nodiscard]] std::string Text(double value) const { return NumberText(problem_, value); }
    [[nodiscard]] double Own(double value) const { return result_.Minimize ? value : 0 - value; }
    [[nodiscard]] int Variables() const { return problem_.NumVariables; }
    [[nodiscard]] int Constraints() const { return problem_.NumConstraints; }

    void Say(SentenceKind kind, const std::string& text) { said_.push_back({kind, text}); }

    // Results, limits and cautions stay; of the changes the last ones go.
    std::vector<Sentence> Cut()
    {
        while (said_.size() > kMostSentences) {
            auto last = said_.end();
            for (auto it = said_.begin(); it != said_.end(); ++it)
                if (it->Kind == SentenceKind::Change) last = it;
            if (last == said_.end()) break;
            said_.erase(last);
        }
        return said_;
    }

    // ---- with a report ----

    void TellOptimal()
    {
        figures_ = FiguresOf(result_);
        FindFarValues();
        if (result_.Integer) lost_ = LostNodes(result_);
        TellPlan();
        if (result_.Integer) TellSearch();
        TellLimits();
        if (!result_.Integer && far_.empty()) {
            TellChanges();
            TellOtherPlan();
            TellMeetingLimits();
        }
        TellCautions();
    }

    void TellPlan()
    {
        std::vector<std::string> made;
        std::vector<std::string> nothing;
        for (int j = 1; j <= Variables(); ++j) {
            if (figures_.Values(j) == 0)
                nothing.push_back(Name(j));
            else
                made.push_back(Text(figures_.Values(j)) + " of " + Name(j));
        }
        const std::string value = "; the value is " + Text(figures_.Objective) + ".";
        if (made.empty()) {
            Say(SentenceKind::Result, "Make nothing: all variables are 0" + value);
            return;
        }
        std::string text = "Make " + Listed(made);
        if (nothing.size() > kMostNames)
            text += "; the other " +
                    Counted(static_cast<int>(nothing.size()), "variable stays", "variables stay") + " at 0";
        else if (!nothing.empty())
            text += (made.size() > 1 ? ", and nothing of " : " and nothing of ") + Listed(nothing);
        Say(SentenceKind::Result, text + value);
    }

    void TellLimits()
    {
        std::vector<std::string> used;
        std::vector<std::string> others;
        for (int i = 1; i <= Constraints(); ++i) {
            const double slack = figures_.Slacks(i);
            const bool greater = problem_.LpRelations(i) == VtLP::kGreater;
            if (slack == 0)
                used.push_back(std::to_string(i));
            else
                others.push_back(
                    "limit " + std::to_string(i) +
                    (greater ? " is exceeded by " + Text(slack) : " has " + Text(slack) + " to spare"));
        }
        if (Constraints() == 0) return;
        std::string text = used.empty()
                               ? "No limit is used up"
                               : Capital(Limits(used)) + (used.size() == 1 ? " is" : " are") + " used up";
        if (others.size() > kMostNames)
            text += "; the other " + std::to_string(others.size()) + " have room";
        else if (!others.empty())
            text += "; " + Listed(others);
        Say(SentenceKind::Limit, text + ".");
    }

    // ---- what a change brings ----

    // The value with another right-hand side; nothing when there is no plan then.
    [[nodiscard]] std::optional<double> ValueWith(int constraint, double rightSide) const
    {
        VtLP::LpProblem changed = problem_;
        changed.LpCoefficients(constraint, 0) = rightSide;
        Watcher watcher;
        const LpResult solved = Solve(changed, result_.Minimize, false, &watcher);
        if (solved.End != Outcome::Optimal) return std::nullopt;
        return solved.ObjectiveValue;
    }

    [[nodiscard]] bool Confirmed(int constraint, double from, double to, double price) const
    {
        const auto value = ValueWith(constraint, to);
        const double expected = result_.ObjectiveValue + price * (to - from);
        return value && std::abs(*value - expected) <= kSameValue * (1 + std::abs(expected));
    }

    void TellChanges()
    {
        const Array2<double> tableau = Tableau(result_);
        std::size_t told = 0;
        for (int i = 1; i <= Constraints() && told < kMostChanges; ++i) {
            const double price = figures_.Prices(i);
            if (price == 0) continue;
            const Range range = RightHandSideRange(result_, tableau, i);
            if (TellChange(i, price, range)) ++told;
        }
    }

    // The side on which the value improves: up for a price above zero, down below.
    bool TellChange(int constraint, double price, const Range& range)
    {
        const bool up = price > 0;
        const std::optional<double>& end = up ? range.Upper : range.Lower;
        const double now = problem_.LpCoefficients(constraint, 0);
        const std::string limit = "limit " + std::to_string(constraint);
        const double room = end ? std::abs(*end - now) : EngineInfinity;
        if (room < RangeTolerance) {
            Say(SentenceKind::Change,
                std::string("What ") + (up ? "more" : "less") + " of " + limit +
                    " would bring cannot be told from its price: the range ends at the present " + Text(now) +
                    ".");
            return true;
        }
        const double step = std::min(1.0, room);
        if (!Confirmed(constraint, now, up ? now + step : now - step, price)) return false;
        const std::string rate = Text(std::abs(price));
        std::string text = end ? (up ? "Up to " : "Down to ") + Text(*end) + ", " : std::string();
        if (room >= 1)
            text += (up ? "each further unit on the right of " : "each unit less on the right of ") + limit +
                    " improves the value by " + rate;
        else
            text += std::string(up ? "more" : "less") + " on the right of " + limit +
                    " improves the value at a rate of " + rate + " a unit";
        if (end && BeyondIsLess(constraint, price, *end)) text += "; beyond that by less";
        Say(SentenceKind::Change, Capital(text) + ".");
        return true;
    }

    [[nodiscard]] bool BeyondIsLess(int constraint, double price, double end) const
    {
        const double step = (price > 0 ? 1 : -1) * std::max(1.0, 0.01 * std::abs(end));
        const auto there = ValueWith(constraint, end);
        const auto beyond = ValueWith(constraint, end + step);
        return there && beyond && *beyond - *there < price * step - kSameValue * (1 + std::abs(*there));
    }

    // ---- what is not unique ----

    // How far a nonbasic column could come in.
    [[nodiscard]] double RoomOf(const Array2<double>& tableau, int column) const
    {
        double room = EngineInfinity;
        for (int r = 1; r <= Constraints(); ++r)
            if (tableau(r, column) > EngineTolerance)
                room = std::min(room, result_.Basis.BasicValues(r) / tableau(r, column));
        return room;
    }

    // An artificial basic at zero would have to rise.
    [[nodiscard]] bool MovesArtificial(const Array2<double>& tableau, int column) const
    {
        for (int r = 1; r <= Constraints(); ++r)
            if (result_.Basis.ColumnKind(result_.Basis.BasisList(r)) == kArtificial &&
                std::abs(tableau(r, column)) > EngineTolerance)
                return true;
        return false;
    }

    void TellOtherPlan()
    {
        const Array2<double> tableau = Tableau(result_);
        for (int j = 1; j <= result_.NumColumns; ++j) {
            const bool resting = result_.Basis.ColumnStatus(j) == kAtLower && result_.Basis.ColumnKind(j) < 0;
            if (!resting || std::abs(result_.ReducedCosts(j)) > PricingThreshold) continue;
            if (RoomOf(tableau, j) <= RangeTolerance || MovesArtificial(tableau, j)) continue;
            const std::string comes = j <= Variables() ? Name(j) + " can come in"
                                                       : "limit " + std::to_string(ConstraintOf(result_, j)) +
                                                             " can be left with some room";
            Say(SentenceKind::Change,
                "Another plan is just as good: " + comes + " without a change of the value.");
            return;
        }
    }

    void TellMeetingLimits()
    {
        std::vector<std::string> names;
        for (int r = 1; r <= Constraints(); ++r) {
            const int j = result_.Basis.BasisList(r);
            const std::int16_t kind = result_.Basis.ColumnKind(j);
            if (result_.Basis.BasicValues(r) != 0 || kind == kArtificial) continue;
            names.push_back(
                j <= Variables() ? Name(j) : "the room of limit " + std::to_string(ConstraintOf(result_, j)));
        }
        if (names.empty()) return;
        Say(SentenceKind::Change, "More limits meet in this plan than are needed to fix it (" +
                                      Listed(names, kMostNames) +
                                      (names.size() == 1 ? " happens" : " happen") +
                                      " to be 0): prices and ranges may hold on one side only.");
    }

    // ---- the search ----

    void TellSearch()
    {
        if (result_.IntegerCount == 0) {
            Say(SentenceKind::Result, "No variable must be whole: this is the plan of the linear program.");
            return;
        }
        const SearchTree& tree = result_.Tree;
        if (tree.Nodes(0).InPhaseOne) return;
        const std::string relaxed = Text(Own(tree.Nodes(0).Value));
        Say(SentenceKind::Result,
            "The best whole-number plan found is worth " + Text(figures_.Objective) +
                (relaxed == Text(figures_.Objective)
                     ? "; without the whole-number condition no plan is better."
                     : "; without the whole-number condition it would be " + relaxed + "."));
        TellNodes();
    }

    void TellNodes()
    {
        const SearchTree& tree = result_.Tree;
        int branched = 0;
        int whole = 0;
        int noPlan = 0;
        int notBetter = 0;
        int passedOver = 0;
        for (int k = 0; k <= tree.RecordCount; ++k) {
            if (k == 1) continue;
            const Fate fate = tree.Nodes(k).Became;
            branched += fate == Fate::Branched ? 1 : 0;
            whole += fate == Fate::Whole ? 1 : 0;
            noPlan += fate == Fate::NoPlan ? 1 : 0;
            notBetter += fate == Fate::NotBetter || fate == Fate::NotBetterByGain ? 1 : 0;
            passedOver += fate == Fate::PassedOver ? 1 : 0;
        }
        std::string text = "The search looked at " + Counted(tree.Visits, "node");
        if (branched == 0) {
            Say(SentenceKind::Result, text + ": the linear program is whole by itself.");
            return;
        }
        text += " and branched at " + std::to_string(branched);
        std::vector<std::string> fates;
        if (whole > 0) fates.push_back(std::to_string(whole) + " gave a whole plan");
        if (notBetter > 0) fates.push_back(std::to_string(notBetter) + " could not be better by more than 1");
        const int lost = static_cast<int>(lost_.size());
        if (noPlan > lost) fates.push_back(std::to_string(noPlan - lost) + " had no plan");
        if (lost > 0)
            fates.push_back(std::to_string(lost) + (lost == 1 ? " was" : " were") +
                            " given up as without a plan although " + (lost == 1 ? "it has" : "they have") +
                            " one");
        text += "; of the other " + std::to_string(tree.Visits - branched) + ", " + Listed(fates);
        if (passedOver > 0) text += "; " + Counted(passedOver, "node", "nodes") + " more needed no look";
        Say(SentenceKind::Result, text + ".");
    }

    // ---- cautions ----

    void TellCautions()
    {
        if (!far_.empty())
            Say(SentenceKind::Caution,
                Listed(far_, kMostNames) + (far_.size() == 1 ? kFarValue : kFarValues));
        if (FiguresAreCut()) Say(SentenceKind::Caution, kCutFigures);
        if (!result_.Integer) return;
        TellSmallLetters();
        if (result_.IntegerCount == 0) return;
        const SearchTree& tree = result_.Tree;
        bool passedBy = false;
        bool phaseOne = false;
        for (int k = 0; k <= tree.RecordCount; ++k) {
            const SearchNode& node = tree.Nodes(k);
            passedBy = passedBy || (node.Became == Fate::NotBetterByGain && node.Value < tree.Incumbent);
            phaseOne = phaseOne || (node.Became == Fate::Whole && node.InPhaseOne);
        }
        if (passedBy) Say(SentenceKind::Caution, kPassedBy);
        if (phaseOne) Say(SentenceKind::Caution, kPhaseOneNode);
        TellLostNodes();
        Say(SentenceKind::Caution, kNoPrices);
    }

    void TellLostNodes()
    {
        const auto better =
            std::count_if(lost_.begin(), lost_.end(), [](const LostNode& node) { return node.IsBetter; });
        if (better > 0)
            Say(SentenceKind::Caution, GivenUp(static_cast<int>(better), result_.Tree.IncumbentNode > 0));
    }

    // Only a value of this size is worth another solve.
    void FindFarValues()
    {
        for (int j = 1; j <= Variables(); ++j)
            if (figures_.Values(j) >= kLargeValue) far_.push_back(Name(j));
        if (far_.empty()) return;
        Watcher watcher;
        Solve(problem_, result_.Minimize, result_.Integer, &watcher);
        if (!watcher.goesFarAway) far_.clear();
    }

    [[nodiscard]] bool FiguresAreCut() const
    {
        constexpr std::size_t kField = 14;
        const auto cut = [this](double value) { return Text(value).size() > kField; };
        for (int j = 1; j <= Variables(); ++j)
            if (cut(figures_.Values(j))) return true;
        for (int i = 1; i <= Constraints(); ++i)
            if (cut(figures_.Slacks(i))) return true;
        return Text(figures_.Objective).size() > kField + 1;
    }

    // Names in the lists are read in capitals; a name with small letters is never found.
    void TellSmallLetters()
    {
        const std::string& word = problem_.LpLines(VtLP::TypeLine(problem_));
        if (!VtLP::IsListWord(word)) return;
        std::vector<std::string> lost;
        VtLP::ForEachListedName(problem_, [&](const std::string& name, bool /*binary*/) {
            if (UpperCase(name) != name) lost.push_back(name);
        });
        if (lost.empty()) return;
        Say(SentenceKind::Caution, Listed(lost, kMostNames) + (lost.size() == 1 ? " was" : " were") +
                                       " not treated as whole: names with small letters are not found.");
    }

    // ---- without a report ----

    // Limits of which none can be left out without a plan coming up.
    void TellInfeasible()
    {
        Say(SentenceKind::Result, "No plan was found that keeps to all limits.");
        if (result_.Integer && result_.Tree.Nodes.Upper() > 0 && result_.Tree.Visits > 1) return;
        VtLP::LpProblem left = problem_;
        std::vector<std::string> numbers;
        for (int i = 1; i <= Constraints(); ++i)
            numbers.push_back(std::to_string(i));
        for (int i = left.NumConstraints; i >= 1; --i) {
            const VtLP::LpProblem fewer = Without(left, i);
            Watcher watcher;
            if (Solve(fewer, result_.Minimize, false, &watcher).End != Outcome::Infeasible) continue;
            left = fewer;
            numbers.erase(numbers.begin() + (i - 1));
        }
        Watcher watcher;
        if (Solve(left, result_.Minimize, false, &watcher).End != Outcome::Infeasible) return;
        if (numbers.size() == 1)
            Say(SentenceKind::Limit, Capital(Limits(numbers)) + " alone cannot be kept by any plan.");
        else
            Say(SentenceKind::Limit,
                Capital(Limits(numbers)) +
                    " exclude each other: without any one of them the others leave a plan.");
    }

    void TellUnbounded()
    {
        Say(SentenceKind::Result,
            std::string("The value can ") + (result_.Minimize ? "fall" : "grow") +
                " without end, as far as the method sees: a limit seems to be missing.");
        Watcher watcher;
        Solve(problem_, result_.Minimize, result_.Integer, &watcher);
        if (watcher.boundedBasics) Say(SentenceKind::Caution, kBoundedBasics);
        if (!watcher.artificials.empty()) TellTurned(watcher.artificials);
        if (result_.IntegerCount > 0) Say(SentenceKind::Caution, kUnboundedRelaxation);
    }

    void TellTurned(const std::vector<int>& constraints)
    {
        VtLP::LpProblem turned = problem_;
        std::vector<std::string> numbers;
        for (const int i : constraints) {
            TurnRound(turned, i);
            numbers.push_back(std::to_string(i));
        }
        std::string text = "\"Unbounded\" can be wrong here: the artificial column of " + Limits(numbers) +
                           " was still in the basis at 0";
        Watcher watcher;
        const LpResult solved = Solve(turned, result_.Minimize, result_.Integer, &watcher);
        if (solved.End == Outcome::Optimal)
            text += "; with the signs of " + Limits(numbers) +
                    " turned round there is a plan with the value " +
                    Text(result_.Minimize ? 0 - solved.ObjectiveValue : solved.ObjectiveValue);
        Say(SentenceKind::Caution, text + ".");
    }

    void TellBrokenOff()
    {
        const SearchTree& tree = result_.Tree;
        if (result_.End == Outcome::OutOfRoom)
            Say(SentenceKind::Caution, result_.Error == ErrorNumber::Overflow ? kLargeNumber : kFullTable);
        else
            Say(SentenceKind::Caution, tree.Exhausted ? kNoWholePlan : kBrokenOff);
        lost_ = LostNodes(result_);
        TellLostNodes();
        if (result_.Integer && tree.IncumbentNode > 0)
            Say(SentenceKind::Result, "The best whole-number plan found until then is worth " +
                                          Text(Own(tree.Incumbent)) + ", after " +
                                          Counted(tree.Visits, "node") + ".");
        if (result_.Integer) return;
        Watcher watcher;
        Solve(problem_, result_.Minimize, false, &watcher);
        if (watcher.cycles) Say(SentenceKind::Caution, kCycle);
    }

    const LpResult& result_;
    const VtLP::LpProblem& problem_;
    Figures figures_;
    std::vector<std::string> far_;  // variables that stand where nothing limits them
    std::vector<LostNode> lost_;
    std::vector<Sentence> said_;
};

}  // namespace

std::vector<Sentence> Meaning(const LpResult& result)
{
    if (!result.Solved || result.NumColumns == 0) return {};
    return Teller(result).Tell();
}

}  // namespace LP_Engine
