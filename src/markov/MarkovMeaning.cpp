#include "markov/MarkovMeaning.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "basic/format.h"
#include "markov/ChainShape.h"
#include "picture/words.h"

namespace Markov {
namespace {

using picture::Sentence;
using picture::SentenceKind;

constexpr std::size_t kMostSentences = 12;
constexpr double kRounding = 1e-9;  // of sums and of what elimination gives
constexpr int kMostListed = 4;      // shares that one sentence lists
constexpr int kMostStarts = 4;      // starts with a sentence of their own

std::string Num(int number)
{
    return std::to_string(number);
}

class Sayer {
public:
    Sayer(const MarkovProblem& problem, const MarkovResult& result)
        : result_(result), shape_(problem), courses_(CoursesOf(problem)), n_(problem.StateCount)
    {
    }
    std::vector<Sentence> Say();

private:
    void Say(SentenceKind kind, std::string text)
    {
        sentences_.push_back({.Kind = kind, .Text = std::move(text)});
    }
    [[nodiscard]] std::string Share(int state) const { return ShareText(result_.Distribution(state)); }

    void SaySteady();
    void SaySteadyShares(bool longRun);
    void SayExtremes(const std::string& when);
    void SayGroups();
    void SayUnsettled(const Course& course);
    void SaySlow(const Course& course, const Array1<double>& exact);
    void SayPeriods(const Array1<double>& exact);

    void SayAbsorbing();
    void SayEndings();
    void SayEndingsOf(int k);
    void SayLikeliest();
    void SayNeverAbsorbed();
    void SayTime(const Fundamental& fundamental);
    void SayCutShort(const Fundamental& fundamental);
    void SayLeavingAbsorber();
    void SayRowSums();

    [[nodiscard]] bool ReachesAbsorber(int from) const;
    [[nodiscard]] std::vector<Group> TrappingGroups() const;
    [[nodiscard]] bool Matches(const Array1<double>& exact) const;

    const MarkovResult& result_;
    ChainShape shape_;
    std::vector<Course> courses_;
    int n_;
    std::vector<Sentence> sentences_;
};

// ---- no state absorbs ----

bool Sayer::Matches(const Array1<double>& exact) const
{
    for (int state = 1; state <= n_; ++state)
        if (ShareText(exact(state)) != Share(state)) return false;
    return true;
}

// The states with the largest and with the smallest printed share.
void Sayer::SayExtremes(const std::string& when)
{
    int largest = 1;
    int smallest = 1;
    for (int state = 2; state <= n_; ++state) {
        if (result_.Distribution(state) > result_.Distribution(largest)) largest = state;
        if (result_.Distribution(state) < result_.Distribution(smallest)) smallest = state;
    }
    const auto alike = [this](int model) {
        Group states;
        for (int state = 1; state <= n_; ++state)
            if (Share(state) == Share(model)) states.push_back(state);
        return StateList(states);
    };
    Say(SentenceKind::Result, when + " the largest share, " + Share(largest) + ", is that of " +
                                  alike(largest) + " and the smallest, " + Share(smallest) + ", that of " +
                                  alike(smallest) + ".");
}

void Sayer::SaySteadyShares(bool longRun)
{
    const std::string when =
        longRun ? "In the long run"
                : "After " + picture::Counted(courses_.front().Steps(), "step") + " from equal shares";
    const std::string place = longRun ? " of the time is spent in" : " of the units are in";
    bool equal = true;
    for (int state = 2; state <= n_; ++state)
        equal = equal && Share(state) == Share(1);
    if (n_ > 1 && equal) {
        Say(SentenceKind::Result,
            when + " each of the " + Num(n_) + " states has the same share, " + Share(1) + ".");
        return;
    }
    if (n_ > kMostListed) {
        SayExtremes(when);
        return;
    }
    std::vector<std::string> parts;
    for (int state = 1; state <= n_; ++state)
        parts.push_back(picture::Chance(result_.Distribution(state), 3) + (state == 1 ? place : " in") +
                        " state " + Num(state));
    Say(SentenceKind::Result, when + " " + picture::Listed(parts) + ".");
}

void Sayer::SayGroups()
{
    if (shape_.Groups().size() < 2) return;
    Say(SentenceKind::Caution, "The chain falls into the groups " + GroupList(shape_.Groups()) +
                                   " that are never left: the shares depend on the start, here equal.");
}

void Sayer::SayUnsettled(const Course& course)
{
    if (course.Settled()) return;
    Say(SentenceKind::Caution, "After " + Num(course.Steps()) + " steps the shares still changed, by up to " +
                                   Format(course.LastChange, "0.000000") +
                                   " in the last one; the report shows the shares behind that step.");
}

void Sayer::SayPeriods(const Array1<double>& exact)
{
    for (const Group& group : shape_.Groups()) {
        const int period = shape_.Period(group);
        if (period == 1) continue;
        const int state = group.front();
        Say(SentenceKind::Caution, "The group " + GroupText(group) + " comes round every " + Num(period) +
                                       " steps, so that its shares need not settle; over many steps state " +
                                       Num(state) + " has " + ShareText(exact(state)) +
                                       " of the time on average.");
    }
}

// The repetition came to a stand, or to its limit, before the printed figures were those of the long run.
void Sayer::SaySlow(const Course& course, const Array1<double>& exact)
{
    int worst = 1;
    for (int state = 2; state <= n_; ++state)
        if (std::abs(exact(state) - result_.Distribution(state)) >
            std::abs(exact(worst) - result_.Distribution(worst)) + kRounding)
            worst = state;
    const std::string end = "in the long run state " + Num(worst) + " has " + ShareText(exact(worst)) +
                            ", not " + Share(worst) + ".";
    if (course.Settled())
        Say(SentenceKind::Caution,
            "The shares changed by less than 0.00001 in a step and the repetition stopped, but this chain "
            "moves slowly: " +
                end);
    else
        Say(SentenceKind::Caution,
            "This chain moves too slowly to settle in " + Num(kStepLimit) + " steps: " + end);
}

void Sayer::SaySteady()
{
    const Course& course = courses_.front();
    const auto exact = shape_.LongRunShares();
    const bool longRun = exact && Matches(*exact);
    SaySteadyShares(longRun);
    const bool periodic = std::any_of(shape_.Groups().begin(), shape_.Groups().end(),
                                      [this](const Group& group) { return shape_.Period(group) > 1; });
    if (longRun && shape_.Groups().size() == 1 && n_ > 1 && !periodic)
        Say(SentenceKind::Limit, "These shares do not depend on the state in which the units start.");
    if (!shape_.Passing().empty())
        Say(SentenceKind::Limit, "Sooner or later " + StateList(shape_.Passing()) +
                                     (shape_.Passing().size() == 1 ? " is" : " are") +
                                     " left for good, with a share that goes to 0.");
    SayUnsettled(course);
    if (exact && periodic && !course.Settled()) SayPeriods(*exact);
    if (exact && !longRun && (!periodic || course.Settled())) SaySlow(course, *exact);
    SayGroups();
}

// ---- states that absorb ----

bool Sayer::ReachesAbsorber(int from) const
{
    return std::any_of(result_.AbsorbingList.begin(), result_.AbsorbingList.end(),
                       [&](int to) { return shape_.Reaches(from, to); });
}

// Groups that are never left although none of their states absorbs.
std::vector<Group> Sayer::TrappingGroups() const
{
    std::vector<Group> groups;
    for (const Group& group : shape_.Groups())
        if (!ReachesAbsorber(group.front())) groups.push_back(group);
    return groups;
}

void Sayer::SayEndingsOf(int k)
{
    const int start = result_.NonAbsorbingList[static_cast<std::size_t>(k) - 1];
    if (!ReachesAbsorber(start)) return;
    std::vector<std::string> parts;
    for (std::size_t a = 0; a < result_.AbsorbingList.size(); ++a) {
        const double chance = result_.AbsorptionTable(k, static_cast<int>(a) + 1);
        if (!(chance > 0)) continue;
        parts.push_back(picture::Chance(chance, 3) +
                        (parts.empty() ? " of the units end in state " : " in state ") +
                        Num(result_.AbsorbingList[a]));
    }
    if (!parts.empty())
        Say(SentenceKind::Result, "From state " + Num(start) + ", " + picture::Listed(parts) + ".");
}

// Starts grouped by the state in which most of their units end.
void Sayer::SayLikeliest()
{
    std::vector<Group> starts(result_.AbsorbingList.size());
    for (int k = 1; k <= result_.AbsorptionTable.UpperRow(); ++k) {
        const int start = result_.NonAbsorbingList[static_cast<std::size_t>(k) - 1];
        if (!ReachesAbsorber(start)) continue;
        int likeliest = 1;
        for (int a = 2; a <= result_.AbsorptionTable.UpperColumn(); ++a)
            if (result_.AbsorptionTable(k, a) > result_.AbsorptionTable(k, likeliest)) likeliest = a;
        starts[static_cast<std::size_t>(likeliest) - 1].push_back(start);
    }
    std::vector<std::string> parts;
    for (std::size_t a = 0; a < starts.size(); ++a)
        if (!starts[a].empty())
            parts.push_back("state " + Num(result_.AbsorbingList[a]) + " for units from " +
                            StateList(starts[a]));
    if (!parts.empty()) Say(SentenceKind::Result, "The likeliest end is " + picture::Listed(parts) + ".");
}

void Sayer::SayEndings()
{
    const bool certain = TrappingGroups().empty();
    if (result_.AbsorbingList.size() == 1) {
        if (certain)
            Say(SentenceKind::Result, "Sooner or later every unit ends in state " +
                                          Num(result_.AbsorbingList.front()) +
                                          ", the only state that is never left.");
        return;
    }
    if (result_.NonAbsorbingList.size() > kMostStarts) {
        SayLikeliest();
        return;
    }
    for (int k = 1; k <= static_cast<int>(result_.NonAbsorbingList.size()); ++k)
        SayEndingsOf(k);
}

void Sayer::SayNeverAbsorbed()
{
    const std::vector<Group> traps = TrappingGroups();
    if (traps.empty()) return;
    Group never;
    Group sometimes;
    for (const int state : result_.NonAbsorbingList) {
        const bool trapped = std::any_of(traps.begin(), traps.end(), [&](const Group& group) {
            return shape_.Reaches(state, group.front());
        });
        if (trapped) (ReachesAbsorber(state) ? sometimes : never).push_back(state);
    }
    const bool one = result_.AbsorbingList.size() == 1;
    std::string absorbers = StateList(result_.AbsorbingList);
    absorbers.front() = 'S';
    Say(SentenceKind::Caution, absorbers + (one ? " absorbs, but " : " absorb, but units from ") +
                                   (one ? "units from " : "") + StateList(never) +
                                   " never get there: not all units end in " + (one ? "it." : "them."));
    if (!sometimes.empty())
        Say(SentenceKind::Caution, "Some of the units from " + StateList(sometimes) + " fall into " +
                                       GroupList(traps) + ", which is never left, and are never absorbed.");
}

void Sayer::SayTime(const Fundamental& fundamental)
{
    const int rows = fundamental.Visits.UpperRow();
    double longest = 0;
    int from = 0;
    for (int k = 1; k <= rows; ++k) {
        double steps = 0;
        for (int j = 1; j <= rows; ++j)
            steps += fundamental.Visits(k, j);
        if (steps <= longest) continue;
        longest = steps;
        from = result_.NonAbsorbingList[static_cast<std::size_t>(k) - 1];
    }
    const std::string time = Format(longest, "###,##0.000") + " steps on average";
    Say(SentenceKind::Limit,
        rows == 1 ? "A unit from state " + Num(from) + " is absorbed after " + time + "."
                  : "It takes longest from state " + Num(from) + ": " + time + " until a unit is absorbed.");
}

// The steps ended while a printed share of the units was still under way.
void Sayer::SayCutShort(const Fundamental& fundamental)
{
    double most = 0;
    const Course* slowest = nullptr;
    for (const Course& course : courses_) {
        double rest = 0;
        for (const int state : result_.NonAbsorbingList)
            rest += course.Rows.back()(state);
        if (rest <= most) continue;
        most = rest;
        slowest = &course;
    }
    if (slowest == nullptr || ShareText(most) == ShareText(0)) return;
    const std::string start = Num(slowest->Start);
    std::string text = "After " + picture::Counted(slowest->Steps(), "step") + " " + ShareText(most) +
                       " of the units from state " + start + " had not been absorbed";
    const auto k =
        std::find(result_.NonAbsorbingList.begin(), result_.NonAbsorbingList.end(), slowest->Start) -
        result_.NonAbsorbingList.begin() + 1;
    int likeliest = 1;
    for (int a = 2; a <= fundamental.Endings.UpperColumn(); ++a)
        if (fundamental.Endings(static_cast<int>(k), a) > fundamental.Endings(static_cast<int>(k), likeliest))
            likeliest = a;
    const double end = fundamental.Endings(static_cast<int>(k), likeliest);
    text += "; of all that start there, " + (end > 1 - kRounding ? ShareText(1) : picture::Chance(end, 3)) +
            " end in state " + Num(result_.AbsorbingList[static_cast<std::size_t>(likeliest) - 1]) +
            ", not " + ShareText(result_.AbsorptionTable(static_cast<int>(k), likeliest)) + ".";
    Say(SentenceKind::Caution, text);
}

void Sayer::SayLeavingAbsorber()
{
    Group leaving;
    for (const int state : result_.AbsorbingList)
        for (int to = 1; to <= n_; ++to)
            if (to != state && shape_.Chance(state, to) > 0 && (leaving.empty() || leaving.back() != state))
                leaving.push_back(state);
    if (leaving.empty()) return;
    std::string list = StateList(leaving);
    list.front() = 'S';
    Say(SentenceKind::Caution,
        list +
            (leaving.size() == 1 ? " counts as absorbing, although its row also leads"
                                 : " count as absorbing, although their rows also lead") +
            " elsewhere.");
}

void Sayer::SayAbsorbing()
{
    if (result_.NonAbsorbingList.empty()) {
        Say(SentenceKind::Result,
            n_ == 1 ? "The only state absorbs: every unit stays in it."
                    : "Each of the " + Num(n_) + " states absorbs: every unit stays where it starts.");
        return;
    }
    SayEndings();
    const bool certain = TrappingGroups().empty();
    const auto fundamental = certain && shape_.RowsAddUp()
                                 ? FundamentalMatrix(shape_, result_.NonAbsorbingList, result_.AbsorbingList)
                                 : std::nullopt;
    if (fundamental) SayTime(*fundamental);
    SayNeverAbsorbed();
    if (fundamental) SayCutShort(*fundamental);
}

// ---- both ----

void Sayer::SayRowSums()
{
    Group states;
    for (int state = 1; state <= n_; ++state)
        if (std::abs(shape_.RowSum(state) - 1) > kRounding) states.push_back(state);
    if (states.empty()) return;
    const int first = states.front();
    const std::string sum = Format(shape_.RowSum(first), "0.0#####");
    Say(SentenceKind::Caution,
        states.size() == 1
            ? "The row of state " + Num(first) + " adds up to " + sum +
                  ", not to 1, and is used as it stands: with every step the shares drift."
            : "The rows of " + StateList(states) + " do not add up to 1 (that of state " + Num(first) +
                  " to " + sum + ") and are used as they stand: with every step the shares drift.");
}

std::vector<Sentence> Sayer::Say()
{
    if (result_.AbsorbingList.empty())
        SaySteady();
    else
        SayAbsorbing();
    SayLeavingAbsorber();
    SayRowSums();
    if (sentences_.size() > kMostSentences) sentences_.resize(kMostSentences);
    return std::move(sentences_);
}

}  // namespace

std::vector<Sentence> Meaning(const MarkovProblem& problem, const MarkovResult& result)
{
    if (!result.Solved || problem.StateCount < 1) return {};
    return Sayer(problem, result).Say();
}

}  // namespace Markov
