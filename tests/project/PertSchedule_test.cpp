#include <gmock/gmock.h>

#include <random>

#include "project/VtPert_CPM.h"
#include "project/project_support.h"

using namespace VtPert_CPM;

namespace {

std::string Letters(const Array1<std::string>& flags)
{
    std::string letters;
    for (int i = 1; i <= Problem.NumActivities; ++i)
        if (flags(i) == "YES") letters += Problem.ActivityName(i);
    return letters;
}

std::vector<double> UpTo(int n, const Array1<double>& times)
{
    std::vector<double> list;
    for (int i = 1; i <= n; ++i)
        list.push_back(times(i));
    return list;
}

// ---- worked by hand ----

// Forward: A 0-2, B 2-6, C 6-16, D 16-22, E 16-20, F 20-25, G 22-29, H 29-38, I 16-23, J 25-33, K 33-37,
// L 33-38, M 38-40, N 38-44. Backward from 44: N 38, M 42, L 33, K 34, J 25, I 18, H 33, G 26, F 20, E 16,
// D 20, C 6, B 2, A 0.
TEST(PertSchedule, AHouseTakes44Weeks)
{
    Given(kHouse);
    Calculate();
    EXPECT_EQ(Result.ProjectTime, 44);
    EXPECT_EQ(UpTo(14, Result.EarliestStart),
              (std::vector<double>{0, 2, 6, 16, 16, 20, 22, 29, 16, 25, 33, 33, 38, 38}));
    EXPECT_EQ(UpTo(14, Result.EarliestFinish),
              (std::vector<double>{2, 6, 16, 22, 20, 25, 29, 38, 23, 33, 37, 38, 40, 44}));
    EXPECT_EQ(UpTo(14, Result.LatestStart),
              (std::vector<double>{0, 2, 6, 20, 16, 20, 26, 33, 18, 25, 34, 33, 42, 38}));
    EXPECT_EQ(UpTo(14, Result.LatestFinish),
              (std::vector<double>{2, 6, 16, 26, 20, 25, 33, 42, 25, 33, 38, 38, 44, 44}));
    EXPECT_EQ(UpTo(14, Result.ActivitySlack),
              (std::vector<double>{0, 0, 0, 4, 0, 0, 4, 4, 2, 0, 1, 0, 4, 0}));
    EXPECT_EQ(Letters(Result.CriticalFlag), "ABCEFJLN");
    EXPECT_EQ(Result.PathText, "A-B-C-E-F-J-L-N");
    EXPECT_EQ(Result.CriticalCount, Result.PathCount);
}

// The variances of the path: 1/9 + 1 + 4 + 4/9 + 1 + 1 + 1 + 4/9 = 9.
TEST(PertSchedule, ThreeEstimatesGiveMeanAndVariance)
{
    Given(kHouseEstimated);
    Calculate();
    for (int i = 1; i <= 14; ++i)
        EXPECT_DOUBLE_EQ(Problem.ActivityTime(i).Value(), kHouse[static_cast<std::size_t>(i) - 1].Times[0]);
    EXPECT_DOUBLE_EQ(Problem.TimeVariance(1).Value(), 1.0 / 9);
    EXPECT_DOUBLE_EQ(Problem.TimeVariance(8).Value(), 4);
    EXPECT_DOUBLE_EQ(Problem.TimeVariance(11).Value(), 0);
    EXPECT_EQ(Result.RoundedProjectTime, 44);
    EXPECT_EQ(Result.RoundedProjectVariance, 9);
    EXPECT_EQ(Result.PathText, "A-B-C-E-F-J-L-N");
    EXPECT_EQ(Problem.TimeDecimals.Value(), 0);
}

// ---- edges ----

TEST(PertSchedule, OneActivityIsTheWholePath)
{
    Given({{"", {7}}});
    Calculate();
    EXPECT_EQ(Result.PathText, "A");
    EXPECT_EQ(Result.ProjectTime, 7);
    EXPECT_EQ(Result.CriticalCount, 1);
    EXPECT_EQ(Result.PathCount, 1);
}

TEST(PertSchedule, OfEqualFinishesTheEarlierLetterIsThePath)
{
    Given({{"", {3}}, {"", {5}}, {"", {5}}});
    Calculate();
    EXPECT_EQ(Result.PathText, "B");
    EXPECT_EQ(Letters(Result.CriticalFlag), "BC");
    EXPECT_GT(Result.CriticalCount, Result.PathCount);
}

TEST(PertSchedule, WithoutAnyTimeThePathStartsAtTheFirstActivity)
{
    Given({{"", {0}}, {"A", {0}}, {"B", {0}}});
    Calculate();
    EXPECT_EQ(Result.ProjectTime, 0);
    EXPECT_EQ(Result.PathText, "A");
    EXPECT_EQ(Letters(Result.CriticalFlag), "ABC");
}

TEST(PertSchedule, AnActivityWithoutDurationCanBeCritical)
{
    Given({{"", {4}}, {"A", {0}}, {"B", {3}}});
    Calculate();
    EXPECT_EQ(Result.PathText, "A-B-C");
    EXPECT_EQ(Result.CriticalFlag(2), "YES");
}

TEST(PertSchedule, APredecessorWithSlackIsSkipped)
{
    Given({{"", {2}}, {"", {6}}, {"AB", {1}}});
    Calculate();
    EXPECT_EQ(Result.PathText, "B-C");
    EXPECT_EQ(Result.PathFlag(1), " ");
    EXPECT_EQ(Result.CriticalFlag(1), " ");
}

// C waits for B, which waits for A; A stands first among C's predecessors and is critical, so B is left out.
TEST(PertSchedule, TheFirstCriticalPredecessorWinsWithoutBeingTheOneThatIsWaitedFor)
{
    Given({{"", {2}}, {"A", {3}}, {"AB", {4}}});
    Calculate();
    EXPECT_EQ(Result.ProjectTime, 9);
    EXPECT_EQ(Result.PathText, "A-C");
    EXPECT_EQ(Letters(Result.CriticalFlag), "ABC");
}

TEST(PertSchedule, TheVarianceIsThatOfThePathAlone)
{
    Given({{"", {1, 4, 7}}, {"", {4, 4, 4}}});
    Calculate();
    EXPECT_EQ(Result.PathText, "A");
    EXPECT_EQ(Result.RoundedProjectVariance, 1);
}

TEST(PertSchedule, TotalsOfThreeEstimatesAreRoundedToHundredths)
{
    Given({{"", {1, 2, 4}}});  // mean 13/6 = 2.1666..., variance 1/4
    Calculate();
    EXPECT_EQ(Result.RoundedProjectTime, 2.17);
    EXPECT_EQ(Result.RoundedProjectVariance, 0.25);
    EXPECT_DOUBLE_EQ(Result.ProjectTime, 13.0 / 6);
}

TEST(PertSchedule, SlackOfRoundingIsNoSlack)
{
    Given({{"", {0.1}}, {"A", {0.2}}, {"B", {0.7}}, {"", {1.0}}});
    Calculate();
    EXPECT_EQ(Letters(Result.CriticalFlag), "ABCD");
    for (int i = 1; i <= 4; ++i)
        EXPECT_GE(Result.ActivitySlack(i), 0);
}

TEST(PertSchedule, SlackCountsFromAHundredThousandth)
{
    Given({{"", {1}}, {"", {1 - 0.000009}}, {"", {1 - 0.000011}}});
    Calculate();
    EXPECT_EQ(Letters(Result.CriticalFlag), "AB");
    Given({{"", {0.00001}}, {"", {0}}});
    Calculate();
    EXPECT_EQ(Letters(Result.CriticalFlag), "A");
}

TEST(PertSchedule, DecimalsOfTheReportFollowTheExpectedTimes)
{
    const std::vector<std::pair<double, int>> cases = {{5, 0},        {5.00009, 0}, {5.00011, 2},
                                                       {0.0001, 0},   {5.5, 1},     {5.5000009, 1},
                                                       {5.500002, 2}, {5.25, 2},    {4.9999, 2}};
    for (const auto& [time, decimals] : cases) {
        Given({{"", {time, time, time}}});
        Calculate();
        EXPECT_EQ(Problem.TimeDecimals.Value(), decimals) << time;
    }
}

TEST(PertSchedule, DecimalsOfThreeEstimatesOnlyRise)
{
    Given({{"", {5.5, 5.5, 5.5}}, {"", {3, 3, 3}}});
    Calculate();
    EXPECT_EQ(Problem.TimeDecimals.Value(), 1);
    Problem.OptimisticTime(1) = Problem.ProbableTime(1) = Problem.PessimisticTime(1) = 6.0;
    Calculate();
    EXPECT_EQ(Problem.TimeDecimals.Value(), 1);
}

TEST(PertSchedule, DecimalsOfKnownTimesAreThoseOfTheProblem)
{
    Given({{"", {2.25}}});
    Problem.TimeDecimals = 2.0;
    Problem.DecimalPlaces = 1.0;
    Calculate();
    EXPECT_EQ(Problem.TimeDecimals.Value(), 1);
}

TEST(PertSchedule, ATimeThatIsMissingCountsAs0)
{
    Given({{"", {3}}, {"A", {4}}});
    Problem.ActivityTime(2) = Variant();
    Calculate();
    EXPECT_EQ(Result.ProjectTime, 3);
}

TEST(PertSchedule, ASolveOverwritesTheFormerOne)
{
    Given(kHouse);
    Calculate();
    Given({{"", {1}}, {"", {2}}});
    Calculate();
    EXPECT_EQ(Result.PathText, "B");
    EXPECT_EQ(Result.CriticalCount, 1);
    EXPECT_EQ(Result.EarliestStart(3), 0);
    EXPECT_EQ(Result.CriticalFlag(3), " ");
}

// A table that was read from a damaged file.
TEST(PertSchedule, ATableThatLeadsRoundInACircleComesToAnEnd)
{
    Given({{"", {0}}, {"A", {5}}});
    Problem.PredCount(1) = 1;
    Problem.PredTable(1, 1) = 2;
    Calculate();
    EXPECT_LE(Result.PathCount, 2);
}

TEST(PertSchedule, APredecessorThatIsNoActivityIsAnErrorOfTheMachine)
{
    for (const double number : {-1.0, 26.0, 1e12}) {
        Given({{"", {0}}, {"A", {5}}});
        Problem.PredTable(1, 2) = number;
        Result.Solved = true;  // of an earlier solve
        EXPECT_THROW(Calculate(), RuntimeError) << number;
        EXPECT_FALSE(Result.Solved);
    }
}

// ---- against all paths of random projects ----

// Longest chain of times that ends with activity i, its own time included.
double LongestTo(int i)
{
    double longest = 0;
    for (const int before : PredecessorsOf(i))
        longest = std::max(longest, LongestTo(before));
    return longest + Problem.ActivityTime(i).Value();
}

// Longest chain that begins with activity i.
double LongestFrom(int i)
{
    double longest = 0;
    for (int behind = i + 1; behind <= Problem.NumActivities; ++behind) {
        const auto before = PredecessorsOf(behind);
        if (std::find(before.begin(), before.end(), i) != before.end())
            longest = std::max(longest, LongestFrom(behind));
    }
    return longest + Problem.ActivityTime(i).Value();
}

void GivenRandomProject(std::mt19937& random, int n)
{
    std::vector<Activity> activities;
    std::vector<std::string> letters(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        std::string& list = letters[static_cast<std::size_t>(i)];
        for (int before = 0; before < i && list.size() < kMostPredecessors; ++before)
            if (random() % 5 == 0) list += static_cast<char>('A' + before);
        activities.push_back({list, {static_cast<double>(random() % 10)}});
    }
    Given(activities);
}

TEST(PertSchedule, AgreesWithTheLongestChains)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const int n = 1 + round % 25;
        GivenRandomProject(random, n);
        Calculate();
        double project = 0;
        for (int i = 1; i <= n; ++i)
            project = std::max(project, LongestTo(i));
        ASSERT_EQ(Result.ProjectTime, project) << "round " << round;
        for (int i = 1; i <= n; ++i) {
            const double time = Problem.ActivityTime(i).Value();
            EXPECT_EQ(Result.EarliestFinish(i), LongestTo(i));
            EXPECT_EQ(Result.LatestStart(i), project - LongestFrom(i));
            EXPECT_EQ(Result.EarliestFinish(i) - Result.EarliestStart(i), time);
            EXPECT_EQ(Result.LatestFinish(i) - Result.LatestStart(i), time);
            // The slack is what the longest chain through the activity leaves of the project.
            EXPECT_EQ(Result.ActivitySlack(i), project - (LongestTo(i) + LongestFrom(i) - time));
            EXPECT_EQ(Result.CriticalFlag(i) == "YES", Result.ActivitySlack(i) == 0);
        }
    }
}

TEST(PertSchedule, ThePathIsAChainOfCriticalActivitiesFromTheStartToTheEnd)
{
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        GivenRandomProject(random, 1 + round % 25);
        Calculate();
        if (Result.ProjectTime == 0) continue;
        const std::string path = Letters(Result.PathFlag);
        ASSERT_EQ(static_cast<int>(path.size()), Result.PathCount);
        EXPECT_EQ(Result.EarliestStart(path.front() - 'A' + 1), 0);
        EXPECT_EQ(Result.EarliestFinish(path.back() - 'A' + 1), Result.ProjectTime);
        for (std::size_t k = 0; k < path.size(); ++k) {
            const int i = path[k] - 'A' + 1;
            EXPECT_EQ(Result.CriticalFlag(i), "YES");
            if (k == 0) continue;
            // Of the predecessors without slack the path takes the first.
            int first = 0;
            for (const int before : PredecessorsOf(i))
                if (first == 0 && Result.ActivitySlack(before) == 0) first = before;
            EXPECT_EQ(first, path[k - 1] - 'A' + 1) << "round " << round;
        }
    }
}

}  // namespace
