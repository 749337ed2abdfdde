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

int Predecessor(int position, int activity)
{
    return ToInt32(Problem.PredTable(position, activity).Value());
}

void RaiseTimeDecimals(double places)
{
    Problem.TimeDecimals = std::max(Problem.TimeDecimals.Value(), places);
}

// The tolerances for no decimal and for one differ.
void CountDecimals(double time)
{
    constexpr double kWhole = 0.0001;
    constexpr double kOneDecimal = 0.00001;
    if (std::abs(time - Int(time)) <= kWhole) return;
    RaiseTimeDecimals(1);
    if (std::abs(10 * time - Int(10 * time)) > kOneDecimal) RaiseTimeDecimals(2);
}

void EstimateTimes()
{
    for (int i = 1; i <= Problem.NumActivities; ++i) {
        const double a = Problem.OptimisticTime(i).Value();
        const double m = Problem.ProbableTime(i).Value();
        const double b = Problem.PessimisticTime(i).Value();
        const double time = (a + 4 * m + b) / 6;
        const double deviation = (b - a) / 6;
        Problem.ActivityTime(i) = time;
        Problem.TimeVariance(i) = deviation * deviation;
        CountDecimals(time);
    }
}

void ClearResult()
{
    const Array1<double> zeroes(kMostActivities);
    Array1<std::string> blanks(kMostActivities);
    blanks.Fill(" ");
    Result = {.EarliestStart = zeroes,
              .EarliestFinish = zeroes,
              .LatestStart = zeroes,
              .LatestFinish = zeroes,
              .ActivitySlack = zeroes,
              .CriticalFlag = blanks,
              .PathFlag = blanks,
              .PathText = {}};
}

// Answers the last activity of the project: the first one that reaches the project time.
int PassForward()
{
    int last = 1;
    for (int i = 1; i <= Problem.NumActivities; ++i) {
        for (int position = 1; position <= Problem.PredCount(i).Value(); ++position)
            Result.EarliestStart(i) =
                std::max(Result.EarliestStart(i), Result.EarliestFinish(Predecessor(position, i)));
        Result.EarliestFinish(i) = Result.EarliestStart(i) + Problem.ActivityTime(i).Value();
        if (Result.ProjectTime < Result.EarliestFinish(i)) {
            Result.ProjectTime = Result.EarliestFinish(i);
            last = i;
        }
    }
    return last;
}

void PassBackward()
{
    for (int i = 1; i <= Problem.NumActivities; ++i)
        Result.LatestFinish(i) = Result.ProjectTime;
    for (int i = Problem.NumActivities; i >= 1; --i) {
        Result.LatestStart(i) = Result.LatestFinish(i) - Problem.ActivityTime(i).Value();
        for (int position = 1; position <= Problem.PredCount(i).Value(); ++position) {
            double& finish = Result.LatestFinish(Predecessor(position, i));
            finish = std::min(finish, Result.LatestStart(i));
        }
    }
}

bool HasNoSlack(int activity)
{
    return Result.ActivitySlack(activity) < kNoSlack;
}

void FindSlack()
{
    for (int i = 1; i <= Problem.NumActivities; ++i) {
        Result.ActivitySlack(i) = std::abs(Result.LatestStart(i) - Result.EarliestStart(i));
        if (!HasNoSlack(i)) continue;
        Result.CriticalFlag(i) = kYes;
        ++Result.CriticalCount;
    }
}

bool IsOnPath(int activity)
{
    return Result.PathFlag(activity) == kYes;
}

void PutOnPath(int activity)
{
    Result.PathFlag(activity) = kYes;
    ++Result.PathCount;
}

// The first predecessor without slack leads on, whether or not the activity waits for it. A table from a
// damaged file may lead round in a circle; the walk ends where it meets itself.
void WalkBack(int last)
{
    PutOnPath(last);
    int activity = last;
    int position = 1;
    while (const int predecessor = Predecessor(position, activity)) {
        if (!HasNoSlack(predecessor)) {
            ++position;
            continue;
        }
        if (IsOnPath(predecessor)) return;
        PutOnPath(predecessor);
        activity = predecessor;
        position = 1;
    }
}

double ToHundredths(double value)
{
    return Int(100 * value + 0.5) / 100;
}

void SumUpPath()
{
    double variance = 0;
    for (int i = 1; i <= Problem.NumActivities; ++i) {
        if (!IsOnPath(i)) continue;
        Result.PathText += (Result.PathText.empty() ? "" : "-") + Problem.ActivityName(i);
        variance += Problem.TimeVariance(i).Value();
    }
    Result.RoundedProjectTime = ToHundredths(Result.ProjectTime);
    Result.RoundedProjectVariance = ToHundredths(variance);
}

}  // namespace

void Calculate()
{
    if (HasThreeEstimates()) EstimateTimes();
    ClearResult();
    const int last = PassForward();
    PassBackward();
    FindSlack();
    WalkBack(last);
    SumUpPath();
    if (!HasThreeEstimates()) Problem.TimeDecimals = Problem.DecimalPlaces;
    Result.Solved = true;
}

}  // namespace VtPert_CPM
