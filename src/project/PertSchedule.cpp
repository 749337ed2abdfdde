// The critical path method: a forward pass for the earliest times, a backward pass for the latest ones, and
// one walk back along activities without slack. Three estimates of a time make the usual beta approximation:
// mean (a + 4m + b) / 6, standard deviation (b - a) / 6.
#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "project/VtPert_CPM.h"

namespace VtPert_CPM {
namespace {

constexpr double kNoSlack = 0.00001;

const std::string kYes = "YES";

int Predecessor(const PertProblem& problem, int position, int activity)
{
    return ToInt32(problem.PredTable(position, activity).Value());
}

// The tolerances for no decimal and for one differ.
int DecimalsOf(double time)
{
    constexpr double kWhole = 0.0001;
    constexpr double kOneDecimal = 0.00001;
    if (std::abs(time - Int(time)) <= kWhole) return 0;
    return std::abs(10 * time - Int(10 * time)) > kOneDecimal ? 2 : 1;
}

PertResult EmptyResult()
{
    const Array1<double> zeroes(kMostActivities);
    Array1<std::string> blanks(kMostActivities);
    blanks.Fill(" ");
    return {.EarliestStart = zeroes,
            .EarliestFinish = zeroes,
            .LatestStart = zeroes,
            .LatestFinish = zeroes,
            .ActivitySlack = zeroes,
            .CriticalFlag = blanks,
            .PathFlag = blanks,
            .PathText = {}};
}

// Answers the last activity of the project: the first one that reaches the project time.
int PassForward(const PertProblem& problem, PertResult& result)
{
    int last = 1;
    for (int i = 1; i <= problem.NumActivities; ++i) {
        for (int position = 1; position <= problem.PredCount(i).Value(); ++position)
            result.EarliestStart(i) =
                std::max(result.EarliestStart(i), result.EarliestFinish(Predecessor(problem, position, i)));
        result.EarliestFinish(i) = result.EarliestStart(i) + problem.ActivityTime(i).Value();
        if (result.ProjectTime < result.EarliestFinish(i)) {
            result.ProjectTime = result.EarliestFinish(i);
            last = i;
        }
    }
    return last;
}

void PassBackward(const PertProblem& problem, PertResult& result)
{
    for (int i = 1; i <= problem.NumActivities; ++i)
        result.LatestFinish(i) = result.ProjectTime;
    for (int i = problem.NumActivities; i >= 1; --i) {
        result.LatestStart(i) = result.LatestFinish(i) - problem.ActivityTime(i).Value();
        for (int position = 1; position <= problem.PredCount(i).Value(); ++position) {
            double& finish = result.LatestFinish(Predecessor(problem, position, i));
            finish = std::min(finish, result.LatestStart(i));
        }
    }
}

bool HasNoSlack(const PertResult& result, int activity)
{
    return result.ActivitySlack(activity) < kNoSlack;
}

void FindSlack(const PertProblem& problem, PertResult& result)
{
    for (int i = 1; i <= problem.NumActivities; ++i) {
        result.ActivitySlack(i) = std::abs(result.LatestStart(i) - result.EarliestStart(i));
        if (!HasNoSlack(result, i)) continue;
        result.CriticalFlag(i) = kYes;
        ++result.CriticalCount;
    }
}

bool IsOnPath(const PertResult& result, int activity)
{
    return result.PathFlag(activity) == kYes;
}

void PutOnPath(PertResult& result, int activity)
{
    result.PathFlag(activity) = kYes;
    ++result.PathCount;
}

// The first predecessor without slack leads on, whether or not the activity waits for it. A table from a
// damaged file may lead round in a circle; the walk ends where it meets itself.
void WalkBack(const PertProblem& problem, PertResult& result, int last)
{
    PutOnPath(result, last);
    int activity = last;
    int position = 1;
    while (const int predecessor = Predecessor(problem, position, activity)) {
        if (!HasNoSlack(result, predecessor)) {
            ++position;
            continue;
        }
        if (IsOnPath(result, predecessor)) return;
        PutOnPath(result, predecessor);
        activity = predecessor;
        position = 1;
    }
}

double ToHundredths(double value)
{
    return Int(100 * value + 0.5) / 100;
}

void SumUpPath(const PertProblem& problem, PertResult& result)
{
    double variance = 0;
    for (int i = 1; i <= problem.NumActivities; ++i) {
        if (!IsOnPath(result, i)) continue;
        result.PathText += (result.PathText.empty() ? "" : "-") + problem.ActivityName(i);
        variance += problem.TimeVariance(i).Value();
    }
    result.RoundedProjectTime = ToHundredths(result.ProjectTime);
    result.RoundedProjectVariance = ToHundredths(variance);
}

}  // namespace

void EstimateTimes(PertProblem& problem)
{
    for (int i = 1; i <= problem.NumActivities; ++i) {
        const double a = problem.OptimisticTime(i).Value();
        const double m = problem.ProbableTime(i).Value();
        const double b = problem.PessimisticTime(i).Value();
        const double time = (a + 4 * m + b) / 6;
        const double deviation = (b - a) / 6;
        problem.ActivityTime(i) = time;
        problem.TimeVariance(i) = deviation * deviation;
        problem.TimeDecimals = std::max<double>(problem.TimeDecimals.Value(), DecimalsOf(time));
    }
}

PertResult FindSchedule(const PertProblem& problem)
{
    PertResult result = EmptyResult();
    result.LastActivity = PassForward(problem, result);
    PassBackward(problem, result);
    FindSlack(problem, result);
    WalkBack(problem, result, result.LastActivity);
    SumUpPath(problem, result);
    result.Solved = true;
    return result;
}

void Calculate()
{
    Result = {};
    if (HasThreeEstimates()) EstimateTimes(Problem);
    Result = FindSchedule(Problem);
    if (!HasThreeEstimates()) Problem.TimeDecimals = Problem.DecimalPlaces;
}

}  // namespace VtPert_CPM
