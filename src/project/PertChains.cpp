#include "project/PertChains.h"

#include <algorithm>
#include <cmath>

#include "basic/format.h"
#include "basic/number.h"

namespace VtPert_CPM {
namespace {

constexpr double kSame = 0.00001;  // as for no slack

bool EndsProject(const PertResult& result, int activity)
{
    return std::abs(result.EarliestFinish(activity) - result.ProjectTime) < kSame;
}

}  // namespace

std::vector<int> PredecessorsIn(const PertProblem& problem, int activity)
{
    std::vector<int> predecessors;
    for (int position = 1; position <= kMostPredecessors; ++position) {
        if (position > problem.PredCount(activity).Value()) break;
        const int predecessor = ToInt32(problem.PredTable(position, activity).Value());
        if (predecessor >= 1 && predecessor < activity) predecessors.push_back(predecessor);
    }
    return predecessors;
}

std::vector<int> SuccessorsIn(const PertProblem& problem, int activity)
{
    std::vector<int> successors;
    for (int i = activity + 1; i <= problem.NumActivities; ++i) {
        const auto predecessors = PredecessorsIn(problem, i);
        if (std::find(predecessors.begin(), predecessors.end(), activity) != predecessors.end())
            successors.push_back(i);
    }
    return successors;
}

std::vector<Link> LinksIn(const PertProblem& problem)
{
    std::vector<Link> links;
    for (int i = 1; i <= problem.NumActivities; ++i)
        for (const int predecessor : PredecessorsIn(problem, i))
            links.push_back({predecessor, i});
    return links;
}

bool IsTight(const PertResult& result, const Link& link)
{
    return std::abs(result.EarliestFinish(link.From) - result.EarliestStart(link.To)) < kSame;
}

bool IsCritical(const PertResult& result, int activity)
{
    return result.CriticalFlag(activity) == "YES";
}

bool IsStrong(const PertResult& result, const Link& link)
{
    return IsTight(result, link) && IsCritical(result, link.From) && IsCritical(result, link.To);
}

double FreeSlack(const PertProblem& problem, const PertResult& result, int activity)
{
    double next = result.ProjectTime;
    for (const int successor : SuccessorsIn(problem, activity))
        next = std::min(next, result.EarliestStart(successor));
    return std::clamp(next - result.EarliestFinish(activity), 0.0, result.ActivitySlack(activity));
}

std::vector<int> CriticalChain(const PertProblem& problem, const PertResult& result)
{
    std::vector<int> chain{result.LastActivity};
    for (bool found = true; found;) {
        found = false;
        for (const int predecessor : PredecessorsIn(problem, chain.back())) {
            if (!IsStrong(result, {predecessor, chain.back()})) continue;
            chain.push_back(predecessor);
            found = true;
            break;
        }
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

// Predecessors stand before their successors, so one sweep counts the ways to each activity.
double CountChains(const PertProblem& problem, const PertResult& result)
{
    double chains = 0;
    std::vector<double> ways(static_cast<std::size_t>(problem.NumActivities) + 1);
    for (int i = 1; i <= problem.NumActivities; ++i) {
        if (!IsCritical(result, i)) continue;
        double& here = ways[static_cast<std::size_t>(i)];
        bool waits = false;
        bool leadsOn = false;
        for (const int predecessor : PredecessorsIn(problem, i)) {
            if (!IsStrong(result, {predecessor, i})) continue;
            waits = true;
            here += ways[static_cast<std::size_t>(predecessor)];
        }
        if (!waits) here = 1;
        for (const int successor : SuccessorsIn(problem, i))
            leadsOn = leadsOn || IsStrong(result, {i, successor});
        if (!leadsOn && EndsProject(result, i)) chains += here;
    }
    return chains;
}

std::vector<int> WalkedPath(const PertProblem& problem, const PertResult& result)
{
    std::vector<int> path{result.LastActivity};
    for (bool found = true; found;) {
        found = false;
        for (const int predecessor : PredecessorsIn(problem, path.back())) {
            if (!IsCritical(result, predecessor)) continue;
            path.push_back(predecessor);
            found = true;
            break;
        }
    }
    std::reverse(path.begin(), path.end());
    return path;
}

std::vector<Link> GapsOf(const PertResult& result, const std::vector<int>& path)
{
    std::vector<Link> gaps;
    for (std::size_t i = 1; i < path.size(); ++i)
        if (const Link link{path[i - 1], path[i]}; !IsTight(result, link)) gaps.push_back(link);
    return gaps;
}

double LengthOf(const PertProblem& problem, const std::vector<int>& path)
{
    double length = 0;
    for (const int activity : path)
        length += problem.ActivityTime(activity).Value();
    return length;
}

std::string TimeOf(const PertProblem& problem, double time)
{
    constexpr DecimalPatterns kPatterns = {"0", "0.0", "0.00"};
    return Format(time, kPatterns.For(problem.TimeDecimals.Value()));
}

std::string CompletionText(const PertProblem& problem, const PertResult& result)
{
    const bool estimated = problem.TimeMode.Value() == kThreeEstimates;
    return PlainText(estimated ? result.RoundedProjectTime : result.ProjectTime);
}

std::vector<std::string> NamesOf(const PertProblem& problem, const std::vector<int>& activities)
{
    std::vector<std::string> names;
    names.reserve(activities.size());
    for (const int activity : activities)
        names.push_back(problem.ActivityName(activity));
    return names;
}

double ChanceBy(double time, double mean, double variance)
{
    return std::erfc((mean - time) / std::sqrt(2 * variance)) / 2;
}

bool HasSchedule(const PertProblem& problem, const PertResult& result)
{
    return result.Solved && problem.NumActivities > 0;
}

}  // namespace VtPert_CPM
