#include "project/PertMeaning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "basic/format.h"
#include "picture/words.h"
#include "project/PertChains.h"

namespace VtPert_CPM {
namespace {

using picture::Counted;
using picture::Listed;
using picture::SentenceKind;
using Sentences = std::vector<picture::Sentence>;
using Texts = std::vector<std::string>;

constexpr std::size_t kMostNamed = 8;   // activities without slack, told by name
constexpr std::size_t kMostSlacks = 3;  // activities with slack, told one by one
constexpr double kNoTime = 0.00001;

// ---- the cautions ----

const std::string kNoVariance = "The variance is 0, so that no chances can be told.";
const std::string kUncountedChains =
    "The report's note on several critical paths counts activities only and does not see that there are "
    "several here.";
const std::string kSingleChain =
    "The report notes more than one critical path, but only one chain adds up to the completion time.";

std::string OutOfOrder(const Texts& names)
{
    return "The estimates of " + Listed(names) +
           " are not in the order optimistic, most probable, pessimistic: " +
           (names.size() == 1 ? "its expected time means" : "their expected times mean") + " little.";
}

std::string RoundedTimes(int places)
{
    return "Times are shown with " + Counted(places, "decimal") + ": what is shown need not add up.";
}

std::string VarianceOfPath(const PertResult& result)
{
    return "The variance is that of " + result.PathText +
           ", not of the chain that takes the completion time.";
}

// ---- the sentences ----

// "A", "A or B", "A, B or C".
std::string AnyOf(const Texts& names)
{
    std::string text = names.front();
    for (std::size_t i = 1; i < names.size(); ++i)
        text += (i + 1 == names.size() ? " or " : ", ") + names[i];
    return text;
}

bool IsEstimated(const PertProblem& problem)
{
    return problem.TimeMode.Value() == kThreeEstimates;
}

std::vector<int> CriticalOnes(const PertProblem& problem, const PertResult& result)
{
    std::vector<int> activities;
    for (int i = 1; i <= problem.NumActivities; ++i)
        if (IsCritical(result, i)) activities.push_back(i);
    return activities;
}

std::string CompletionSentence(const PertProblem& problem, const PertResult& result)
{
    if (result.ProjectTime == 0) return "The project takes no time: nothing in it lasts.";
    const std::string takes =
        (IsEstimated(problem) ? "The project is expected to take " : "The project takes ") +
        CompletionText(problem, result);
    if (problem.NumActivities == 1) return takes + ", the time of its only activity, A.";
    const auto critical = CriticalOnes(problem, result);
    if (critical.size() > kMostNamed)
        return takes + "; every delay of one of its " + std::to_string(critical.size()) +
               " activities without slack delays it.";
    return takes + "; every delay of " + AnyOf(NamesOf(problem, critical)) + " delays it.";
}

// Successors that must move when the activity uses all of its slack.
Texts SharedWith(const PertProblem& problem, const PertResult& result, int activity)
{
    std::vector<int> pushed;
    for (const int successor : SuccessorsIn(problem, activity))
        if (result.EarliestStart(successor) < result.LatestFinish(activity) - kNoTime)
            pushed.push_back(successor);
    return NamesOf(problem, pushed);
}

std::string SlackSentence(const PertProblem& problem, const PertResult& result, int activity)
{
    const double slack = result.ActivitySlack(activity);
    const double shared = slack - FreeSlack(problem, result, activity);
    const std::string starts =
        problem.ActivityName(activity) + " can start up to " + TimeOf(problem, slack) + " later without harm";
    const Texts others = SharedWith(problem, result, activity);
    if (shared <= kNoTime || others.empty()) return starts + ".";
    const std::string part = TimeOf(problem, shared);
    const bool one = part == "1";
    const std::string shares = slack - shared <= kNoTime ? (one ? "all of it is" : "all of these are")
                                                         : part + (one ? " of these is" : " of these are");
    return starts + ", but " + shares + " shared with " + Listed(others, kMostSlacks) + ".";
}

// Those with the most slack first.
void AddSlacks(const PertProblem& problem, const PertResult& result, Sentences& sentences)
{
    std::vector<int> loose;
    for (int i = 1; i <= problem.NumActivities; ++i)
        if (!IsCritical(result, i)) loose.push_back(i);
    if (loose.empty()) {
        if (problem.NumActivities > 1)
            sentences.push_back({SentenceKind::Limit, "No activity has any slack."});
        return;
    }
    std::stable_sort(loose.begin(), loose.end(),
                     [&](int a, int b) { return result.ActivitySlack(a) > result.ActivitySlack(b); });
    const std::size_t told = std::min(loose.size(), kMostSlacks);
    for (std::size_t k = 0; k < told; ++k)
        sentences.push_back({SentenceKind::Limit, SlackSentence(problem, result, loose[k])});
    if (const std::size_t more = loose.size() - told; more > 0)
        sentences.push_back(
            {SentenceKind::Limit, Counted(static_cast<int>(more), "more activity", "more activities") +
                                      (more == 1 ? " has" : " have") + " slack."});
}

void AddChains(const PertProblem& problem, const PertResult& result, Sentences& sentences)
{
    if (result.ProjectTime == 0) return;
    const double chains = CountChains(problem, result);
    const bool noted = result.CriticalCount > result.PathCount;
    if (chains > 1) {
        sentences.push_back({SentenceKind::Change, "There are " + PlainText(chains) +
                                                       " critical chains: the project gets shorter only if "
                                                       "all of them do."});
        if (!noted) sentences.push_back({SentenceKind::Caution, kUncountedChains});
    } else if (noted) {
        sentences.push_back({SentenceKind::Caution, kSingleChain});
    }
}

// The walk of the report may pass from an activity to one that waits for another.
void AddGap(const PertProblem& problem, const PertResult& result, Sentences& sentences)
{
    const auto path = WalkedPath(problem, result);
    const auto gaps = GapsOf(result, path);
    if (gaps.empty()) return;
    const auto chain = CriticalChain(problem, result);
    std::vector<int> waitedFor;
    for (const int predecessor : PredecessorsIn(problem, gaps.front().To))
        if (IsTight(result, {predecessor, gaps.front().To})) waitedFor.push_back(predecessor);
    std::string names;
    for (const std::string& name : NamesOf(problem, chain))
        names += (names.empty() ? "" : ", ") + name;
    sentences.push_back({SentenceKind::Caution, "The path " + result.PathText + " in the report adds up to " +
                                                    TimeOf(problem, LengthOf(problem, path)) + ": " +
                                                    problem.ActivityName(gaps.front().To) + " waits for " +
                                                    Listed(NamesOf(problem, waitedFor)) + ". The chain " +
                                                    names + " takes " + CompletionText(problem, result) +
                                                    "."});
    if (IsEstimated(problem) && result.RoundedProjectVariance > 0)
        sentences.push_back({SentenceKind::Caution, VarianceOfPath(result)});
}

void AddChances(const PertProblem& problem, const PertResult& result, Sentences& sentences)
{
    if (!IsEstimated(problem)) return;
    const double variance = result.RoundedProjectVariance;
    if (variance <= 0) {
        sentences.push_back({SentenceKind::Caution, kNoVariance});
        return;
    }
    constexpr double kDeviations = 1.6449;  // to a chance of 0.95
    const std::string time = CompletionText(problem, result);
    const double late = result.RoundedProjectTime + kDeviations * std::sqrt(variance);
    const std::string by95 = ", by " + Format(late, "0.00") + " about 0.95";
    const auto path = WalkedPath(problem, result);
    if (static_cast<int>(path.size()) == problem.NumActivities && GapsOf(result, path).empty()) {
        sentences.push_back(
            {SentenceKind::Change, "The chance to finish by " + time + " is about 0.50" + by95 + "."});
        return;
    }
    const bool several = CountChains(problem, result) > 1;
    sentences.push_back({SentenceKind::Change,
                         "The chance to finish by " + time + " is about 0.50 on this path" + by95 + "; " +
                             (several ? "with a second critical path it is smaller."
                                      : "it is smaller if another path can become the longest.")});
}

void AddEstimateCaution(const PertProblem& problem, Sentences& sentences)
{
    if (!IsEstimated(problem)) return;
    std::vector<int> wrong;
    for (int i = 1; i <= problem.NumActivities; ++i) {
        const double m = problem.ProbableTime(i).Value();
        if (problem.OptimisticTime(i).Value() > m || m > problem.PessimisticTime(i).Value())
            wrong.push_back(i);
    }
    if (!wrong.empty()) sentences.push_back({SentenceKind::Caution, OutOfOrder(NamesOf(problem, wrong))});
}

void AddRoundingCaution(const PertProblem& problem, Sentences& sentences)
{
    constexpr std::array kUnits{1.0, 10.0, 100.0};
    constexpr double kSame = 1e-6;
    const int decimals = ShownDecimals(problem.TimeDecimals.Value());
    const double unit = kUnits.at(static_cast<std::size_t>(decimals));
    for (int i = 1; i <= problem.NumActivities; ++i) {
        const double time = unit * problem.ActivityTime(i).Value();
        if (std::abs(time - std::round(time)) <= kSame) continue;
        sentences.push_back({SentenceKind::Caution, RoundedTimes(decimals)});
        return;
    }
}

}  // namespace

Sentences PertMeaning(const PertProblem& problem, const PertResult& result)
{
    if (!HasSchedule(problem, result)) return {};
    Sentences sentences{{SentenceKind::Result, CompletionSentence(problem, result)}};
    if (result.ProjectTime > 0) AddSlacks(problem, result, sentences);
    AddChains(problem, result, sentences);
    AddChances(problem, result, sentences);
    AddGap(problem, result, sentences);
    AddEstimateCaution(problem, sentences);
    AddRoundingCaution(problem, sentences);
    return sentences;
}

}  // namespace VtPert_CPM
