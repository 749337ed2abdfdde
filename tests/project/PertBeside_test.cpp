// Pictures, steps and meaning of a project: against all paths of small ones, against the schedule of a
// delayed one, and by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "project/PertChains.h"
#include "project/PertMeaning.h"
#include "project/PertPicture.h"
#include "project/PertSteps.h"
#include "project/module.h"
#include "project/project_support.h"
#include "support/sound_pictures.h"

using namespace VtPert_CPM;

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Texts = std::vector<std::string>;

void Solved(const std::vector<Activity>& activities, double places = 0)
{
    Given(activities);
    Problem.DecimalPlaces = places;
    Calculate();
}

Texts Meaning()
{
    return TextsOf(PertMeaning(Problem, Result));
}

std::vector<picture::Picture> Pictures()
{
    return PertPictures(Problem, Result);
}

const picture::Chart& ChartOf(const picture::Picture& picture)
{
    return std::get<picture::Chart>(picture.Body);
}

const picture::Diagram& DiagramOf(const picture::Picture& picture)
{
    return std::get<picture::Diagram>(picture.Body);
}

struct RandomProject {
    std::vector<std::string> Predecessors;
    std::vector<Activity> Activities;
};

// At most three predecessors; the letters live in the project.
RandomProject Draw(std::mt19937& random, int most, int longest)
{
    const auto from = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    RandomProject project;
    const int count = from(1, most);
    for (int i = 0; i < count; ++i) {
        std::string letters;
        for (int k = 0; k < i && letters.size() < 3; ++k)
            if (from(0, 2) == 0) letters += static_cast<char>('A' + k);
        project.Predecessors.push_back(letters);
    }
    for (int i = 0; i < count; ++i)
        project.Activities.push_back(
            {project.Predecessors[static_cast<std::size_t>(i)], {static_cast<double>(from(0, longest)) / 2}});
    return project;
}

// All ways from an activity without predecessors to one without successors.
struct Way {
    std::vector<int> Activities;
    double Length = 0;
};

void Extend(const Way& way, std::vector<Way>& all)
{
    bool ends = true;
    for (int i = 1; i <= Problem.NumActivities; ++i) {
        const auto predecessors = PredecessorsOf(i);
        if (std::find(predecessors.begin(), predecessors.end(), way.Activities.back()) == predecessors.end())
            continue;
        ends = false;
        Way longer = way;
        longer.Activities.push_back(i);
        longer.Length += Problem.ActivityTime(i).Value();
        Extend(longer, all);
    }
    if (ends) all.push_back(way);
}

std::vector<Way> AllWays()
{
    std::vector<Way> all;
    for (int i = 1; i <= Problem.NumActivities; ++i)
        if (PredecessorsOf(i).empty()) Extend({{i}, Problem.ActivityTime(i).Value()}, all);
    return all;
}

// ---- chains ----

TEST(PertChains, AreTheLongestOfAllWays)
{
    std::mt19937 random(51);
    int several = 0;
    int gaps = 0;
    for (int round = 0; round < 1500; ++round) {
        const RandomProject project = Draw(random, 8, 6);
        Solved(project.Activities, 1);
        const auto ways = AllWays();
        double longest = 0;
        for (const Way& way : ways)
            longest = std::max(longest, way.Length);
        const auto count =
            std::count_if(ways.begin(), ways.end(), [&](const Way& way) { return way.Length == longest; });
        ASSERT_EQ(Result.ProjectTime, longest);
        ASSERT_EQ(CountChains(Problem, Result), static_cast<double>(count)) << "round " << round;
        const auto chain = CriticalChain(Problem, Result);
        ASSERT_EQ(LengthOf(Problem, chain), longest);
        ASSERT_THAT(GapsOf(Result, chain), IsEmpty());
        const auto path = WalkedPath(Problem, Result);
        std::string text;
        for (const auto& name : NamesOf(Problem, path))
            text += (text.empty() ? "" : "-") + name;
        ASSERT_EQ(text, Result.PathText);
        const bool adds = LengthOf(Problem, path) == longest;
        ASSERT_EQ(GapsOf(Result, path).empty(), adds) << "round " << round;
        ASSERT_EQ(testing::Value(Meaning(), Contains(HasSubstr("in the report adds up to"))), !adds);
        several += count > 1 ? 1 : 0;
        gaps += adds ? 0 : 1;
    }
    EXPECT_GT(several, 100);
    EXPECT_GT(gaps, 20);
}

// By as much as its free slack an activity may last longer and nothing else moves; by its whole slack, and
// the project ends as before; by more, and it ends later.
TEST(PertChains, SlackIsWhatADelayMayTake)
{
    std::mt19937 random(52);
    for (int round = 0; round < 400; ++round) {
        const RandomProject project = Draw(random, 8, 6);
        Solved(project.Activities, 1);
        const PertResult first = Result;
        for (int i = 1; i <= Problem.NumActivities; ++i) {
            const double free = FreeSlack(Problem, first, i);
            const double time = Problem.ActivityTime(i).Value();
            Problem.ActivityTime(i) = time + free;
            PertResult delayed = FindSchedule(Problem);
            for (int k = 1; k <= Problem.NumActivities; ++k)
                ASSERT_EQ(delayed.EarliestStart(k), first.EarliestStart(k)) << "round " << round;
            Problem.ActivityTime(i) = time + first.ActivitySlack(i);
            ASSERT_EQ(FindSchedule(Problem).ProjectTime, first.ProjectTime);
            Problem.ActivityTime(i) = time + first.ActivitySlack(i) + 0.5;
            ASSERT_EQ(FindSchedule(Problem).ProjectTime, first.ProjectTime + 0.5);
            Problem.ActivityTime(i) = time + free + 0.5;
            delayed = FindSchedule(Problem);
            bool moves = delayed.ProjectTime > first.ProjectTime;
            for (int k = 1; k <= Problem.NumActivities; ++k)
                moves = moves || delayed.EarliestStart(k) > first.EarliestStart(k);
            ASSERT_TRUE(moves);
            Problem.ActivityTime(i) = time;
        }
    }
}

// The area under the bell up to a time, in small steps.
TEST(PertChains, ChancesAreAreasOfTheNormalDistribution)
{
    constexpr double kMean = 20;
    constexpr double kVariance = 6.25;
    constexpr double kPi = 3.14159265358979;
    double area = 0;
    int checked = 0;
    constexpr int kSteps = 20000;
    for (int k = 0; k < kSteps; ++k) {
        const double width = 25.0 / kSteps;
        const double at = 7.5 + (k + 0.5) * width;
        area +=
            width * std::exp(-(at - kMean) * (at - kMean) / (2 * kVariance)) / std::sqrt(2 * kPi * kVariance);
        if (k % 2000 != 1999) continue;
        EXPECT_NEAR(ChanceBy(at + width / 2, kMean, kVariance), area, 1e-6);
        ++checked;
    }
    EXPECT_EQ(checked, 10);
}

// ---- pictures ----

// A 2, B 3 behind A, C 1 behind A, D 2 behind B and C.
const std::vector<Activity> kFour = {{"", {2}}, {"A", {3}}, {"A", {1}}, {"BC", {2}}};

TEST(PertPicture, TheScheduleShowsBarsSlackAndTightLinks)
{
    Solved(kFour);
    const auto pictures = Pictures();
    ASSERT_EQ(pictures.size(), 2U);
    EXPECT_THAT(Listing(pictures[0], 1, 2),
                ElementsAre("picture 1 of 2 chart \"Schedule\"",                    //
                            "axis x \"Time\" 0 8.4",                                //
                            "axis y \"Activity\" 0.5 4.5 \"A\" \"B\" \"C\" \"D\"",  //
                            "interval critical \"critical\" 1,0,2",                 //
                            "interval critical \"critical\" 2,2,5",                 //
                            "interval plain \"with slack\" 3,2,3",                  //
                            "interval past \"slack\" 3,3,5",                        //
                            "interval critical \"critical\" 4,5,7",                 //
                            "line critical \"\" 2,1 2,2",                           //
                            "line spare \"\" 2,1 2,3",                              //
                            "line critical \"\" 5,2 5,4",                           //
                            "rule x limit 7 \"end 7\"",                             //
                            "note \"The project ends at 7; the chain A, B and D takes that long.\""));
    const auto& bars = ChartOf(pictures[0]).Curves;
    EXPECT_EQ(bars[2].Tips[0], "C: 2 to 3, latest 4 to 5, slack 2, waits for A");
    EXPECT_EQ(bars[2].Id, "C");
}

TEST(PertPicture, LooseLinksComeWithTheFocusOfTheirActivities)
{
    Solved(kFour);  // D starts at 5, C ends at 3
    const auto pictures = Pictures();
    const auto& arrows = ChartOf(pictures[0]).FocusArrows;
    ASSERT_EQ(arrows.size(), 1U);
    EXPECT_EQ(arrows[0].From.X, 3);
    EXPECT_EQ(arrows[0].To.X, 5);
    EXPECT_EQ(arrows[0].FromId, "C");
    EXPECT_EQ(arrows[0].ToId, "D");
}

TEST(PertPicture, SharedSlackIsHatched)
{
    // C and D follow each other beside B; both can slip, C only at D's expense.
    Solved({{"", {1}}, {"A", {9}}, {"A", {2}}, {"C", {3}}, {"BD", {1}}});
    const auto pictures = Pictures();
    const auto& curves = ChartOf(pictures[0]).Curves;
    const auto shared = std::find_if(curves.begin(), curves.end(),
                                     [](const picture::Series& series) { return series.Hatched; });
    ASSERT_NE(shared, curves.end());
    EXPECT_EQ(shared->Intervals[0].At, 3);
    EXPECT_EQ(shared->Intervals[0].From, 3);
    EXPECT_EQ(shared->Intervals[0].To, 7);
    EXPECT_EQ(shared->Tips[0], "C: 1 to 3, latest 5 to 7, slack 4, 4 of it shared, waits for A");
    EXPECT_EQ(std::count_if(curves.begin(), curves.end(),
                            [](const picture::Series& series) { return series.Hatched; }),
              1);
}

TEST(PertPicture, AnActivityWithoutTimeIsAMark)
{
    Solved({{"", {2}}, {"A", {0}}});
    const auto pictures = Pictures();
    const auto& marks = ChartOf(pictures[0]).Marks;
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_EQ(marks[0].At.X, 2);
    EXPECT_EQ(marks[0].At.Y, 2);
    EXPECT_EQ(marks[0].As, picture::Role::Critical);
    EXPECT_TRUE(marks[0].Diamond);
    EXPECT_EQ(DiagramOf(pictures[1]).Nodes[1].Rank, 1);
    Solved({{"", {0}}, {"A", {0}}, {"B", {0}}});
    ExpectSound(Pictures());
    EXPECT_EQ(DiagramOf(Pictures()[1]).Nodes[2].Rank, 2);
}

TEST(PertPicture, TheNetworkHasSixFieldsABox)
{
    Solved(kFour);
    const auto pictures = Pictures();
    EXPECT_THAT(
        Listing(pictures[1], 2, 2),
        ElementsAre("picture 2 of 2 diagram \"Network\"",                 //
                    "node box critical \"A\" \"0\t2\t2\\nA\\n0\t0\t2\"",  //
                    "node box critical \"B\" \"2\t3\t5\\nB\\n2\t0\t5\"",  //
                    "node box plain \"C\" \"2\t1\t3\\nC\\n4\t2\t5\"",     //
                    "node box critical \"D\" \"5\t2\t7\\nD\\n5\t0\t7\"",  //
                    "arc critical \"A\" \"B\" 1 \"\"",                    //
                    "arc plain \"A\" \"C\" 1 \"\"",                       //
                    "arc critical \"B\" \"D\" 1 \"\"",                    //
                    "arc spare \"C\" \"D\" 1 \"\"",                       //
                    "note \"The project ends at 7; the chain A, B and D takes that long.\"",
                    "note \"Above: earliest start, time, earliest finish; below: latest start, slack, "
                    "latest finish.\""));
    const auto& nodes = DiagramOf(pictures[1]).Nodes;
    EXPECT_EQ(nodes[1].Rank, nodes[2].Rank);
    EXPECT_EQ(nodes[3].Rank, 2);
    EXPECT_EQ(DiagramOf(pictures[1]).Start, "A");
    EXPECT_EQ(DiagramOf(pictures[1]).Arcs[3].Tip, "D starts 2 after the end of C");
}

TEST(PertPicture, TheChanceRisesThroughOneHalfAtTheCompletionTime)
{
    Solved({{"", {4, 10, 16}}});  // mean 10, variance 4
    const auto pictures = Pictures();
    ASSERT_EQ(pictures.size(), 3U);
    const auto& chart = ChartOf(pictures[2]);
    EXPECT_EQ(pictures[2].Title, "Chance");
    EXPECT_EQ(chart.X.From, 2);
    EXPECT_EQ(chart.X.To, 18);
    EXPECT_EQ(chart.Marks[0].At.X, 10);
    EXPECT_EQ(chart.Marks[0].At.Y, 0.5);
    const auto& points = chart.Curves[0].Points;
    EXPECT_TRUE(
        std::is_sorted(points.begin(), points.end(), [](const auto& a, const auto& b) { return a.Y < b.Y; }));
    EXPECT_NEAR(points[50].Y, 0.8413, 0.0001);  // one deviation behind the mean, at 12
    EXPECT_EQ(points[50].X, 12);
    EXPECT_EQ(chart.Curves[0].Tips[50], "by 12.00: 0.8413");
}

TEST(PertPicture, NoCurveForVariance0)
{
    Solved({{"", {4, 4, 4}}});
    const auto pictures = Pictures();
    EXPECT_TRUE(ChartOf(pictures[2]).Curves.empty());
    EXPECT_THAT(pictures[2].Notes, ElementsAre("The variance is 0, so that no chances can be told."));
}

// ---- steps ----

TEST(PertSteps, PassForwardsAndBackwards)
{
    Solved(kFour);
    const auto steps = PertSteps(Problem, Result);
    ASSERT_EQ(steps.size(), 11U);
    EXPECT_EQ(steps[0].Heading, "Forward pass: A starts at 0");
    EXPECT_EQ(steps[0].Why, "A waits for nothing.");
    EXPECT_EQ(steps[3].Heading, "Forward pass: D starts at 5");
    EXPECT_THAT(steps[3].Figures, ElementsAre("B ends at  5", "C ends at  3", "5 + 2 = 7"));
    EXPECT_EQ(steps[3].Why, "D waits for B and C; B decides, as none of them ends later.");
    EXPECT_THAT(steps[3].Marks, ElementsAre("D", "B"));
    EXPECT_EQ(steps[4].Heading, "Backward pass: D must end by 7");
    EXPECT_EQ(steps[4].Why, "Nothing waits for D: it must end with the project.");
    EXPECT_EQ(steps[7].Heading, "Backward pass: A must end by 2");
    EXPECT_THAT(steps[7].Figures, ElementsAre("B must start by  2", "C must start by  4", "2 - 2 = 0"));
    EXPECT_EQ(steps[7].Why, "B and C wait for it; B decides, as none of them must start earlier.");
    EXPECT_THAT(steps[8].Figures[3], HasSubstr("C"));
    EXPECT_THAT(steps[9].Figures, ElementsAre("D back to B  tight", "B back to A  tight", "path: A-B-D"));
    EXPECT_THAT(steps[10].Figures, ElementsAre("chain: A, B and D", "2 + 3 + 2 = 7", "completion time: 7"));
}

TEST(PertSteps, ThreeEstimatesComeFirst)
{
    Solved({{"", {1, 2, 9}}});
    const auto steps = PertSteps(Problem, Result);
    EXPECT_THAT(steps[0].Figures, ElementsAre("activity  a  m  b  expected  variance",  //
                                              "A         1  2  9         3      1.78"));
    EXPECT_THAT(steps[0].Arithmetic, ElementsAre("A: (1 + 4 * 2 + 9) / 6 = 3, ((9 - 1) / 6)^2 = 1.78"));
    EXPECT_THAT(steps.back().Figures, Contains("variance of the path A: 1.78"));
}

// ---- meaning ----

TEST(PertMeaning, TellsTheTimeAndWhatDelaysIt)
{
    Solved(kFour);
    EXPECT_THAT(Meaning(), ElementsAre("The project takes 7; every delay of A, B or D delays it.",
                                       "C can start up to 2 later without harm."));
    Solved({{"", {5}}});
    EXPECT_THAT(Meaning(), ElementsAre("The project takes 5, the time of its only activity, A."));
    Solved({{"", {5}}, {"A", {1}}});
    EXPECT_THAT(Meaning(), ElementsAre("The project takes 6; every delay of A or B delays it.",
                                       "No activity has any slack."));
    Solved({{"", {0}}, {"A", {0}}});
    EXPECT_THAT(Meaning(), ElementsAre("The project takes no time: nothing in it lasts."));
}

TEST(PertMeaning, ManyCriticalActivitiesAreCounted)
{
    std::vector<Activity> row(9, {"", {1}});
    std::vector<std::string> letters;
    for (char c = 'A'; c < 'I'; ++c)
        letters.emplace_back(1, c);
    for (std::size_t i = 1; i < 9; ++i)
        row[i].Predecessors = letters[i - 1];
    Solved(row);
    EXPECT_EQ(Meaning()[0],
              "The project takes 9; every delay of one of its 9 activities without slack delays it.");
}

TEST(PertMeaning, TellsWhoSharesTheSlack)
{
    Solved({{"", {1}}, {"A", {9}}, {"A", {2}}, {"C", {3}}, {"BD", {1}}});
    EXPECT_THAT(Meaning(),
                Contains("C can start up to 4 later without harm, but all of these are shared with "
                         "D."));
    EXPECT_THAT(Meaning(), Contains("D can start up to 4 later without harm."));
    Solved({{"", {1}}, {"A", {6}}, {"A", {2}}, {"C", {3}}, {"BD", {1}}});
    EXPECT_THAT(Meaning(),
                Contains("C can start up to 1 later without harm, but all of it is shared with D."));
    // G waits for D and F; F ends 1 before D, so that 1 of E's 4 is shared with none.
    Solved({{"", {6}}, {"", {2}}, {"", {3}}, {"BC", {1}}, {"AD", {1}}});
    EXPECT_THAT(Meaning(), Contains("B can start up to 3 later without harm, but 2 of these are shared with "
                                    "D."));
}

TEST(PertMeaning, OnlyTheLargestSlacksAreToldOneByOne)
{
    Solved({{"", {9}}, {"", {1}}, {"", {2}}, {"", {3}}, {"", {4}}});
    EXPECT_THAT(Meaning(), Contains("B can start up to 8 later without harm."));
    EXPECT_THAT(Meaning(), Contains("D can start up to 6 later without harm."));
    EXPECT_THAT(Meaning(), Not(Contains(HasSubstr("E can start"))));
    EXPECT_THAT(Meaning(), Contains("1 more activity has slack."));
}

TEST(PertMeaning, SeveralChainsAreTold)
{
    Solved({{"", {3}}, {"", {3}}});
    EXPECT_THAT(Meaning(), Contains("There are 2 critical chains: the project gets shorter only if all of "
                                    "them do."));
    EXPECT_THAT(Meaning(), Not(Contains(HasSubstr("note"))));
    // B lasts no time: A-B-C and A-C are both tight, and the path holds all three.
    Solved({{"", {3}}, {"A", {0}}, {"BA", {2}}});
    ASSERT_EQ(Result.CriticalCount, Result.PathCount);
    EXPECT_THAT(Meaning(), Contains(HasSubstr("does not see")));
}

// C waits for B, yet the walk finds A first: A-C adds up to 6 only.
TEST(PertMeaning, APathThatDoesNotAddUpIsTold)
{
    Solved({{"", {2}}, {"A", {3}}, {"AB", {4}}});
    ASSERT_EQ(Result.PathText, "A-C");
    EXPECT_THAT(Meaning(),
                Contains("The path A-C in the report adds up to 6: C waits for B. The chain A, B, C "
                         "takes 9."));
    EXPECT_THAT(Meaning(), Contains(HasSubstr("only one chain adds up")));
    EXPECT_THAT(Pictures()[0].Notes,
                Contains("The path A-C in the report is no chain: C does not wait for A."));
    EXPECT_THAT(Meaning(), Not(Contains(HasSubstr("The variance is that of"))));
    Solved({{"", {1, 2, 3}}, {"A", {2, 3, 4}}, {"AB", {3, 4, 5}}});
    EXPECT_THAT(Meaning(), Contains(HasSubstr("The variance is that of A-C")));
    Solved(kFour);
    EXPECT_THAT(Meaning(), Not(Contains(HasSubstr("adds up"))));
}

TEST(PertMeaning, TellsChancesWhereThereIsAVariance)
{
    Solved({{"", {4, 10, 16}}});
    EXPECT_EQ(Meaning()[0], "The project is expected to take 10, the time of its only activity, A.");
    EXPECT_THAT(Meaning(), Contains("The chance to finish by 10 is about 0.50, by 13.29 about 0.95."));
    Solved({{"", {4, 10, 16}}, {"", {1, 2, 3}}});
    EXPECT_THAT(Meaning(), Contains("The chance to finish by 10 is about 0.50 on this path, by 13.29 about "
                                    "0.95; it is smaller if another path can become the longest."));
    Solved({{"", {4, 10, 16}}, {"", {4, 10, 16}}});
    EXPECT_THAT(Meaning(), Contains(HasSubstr("with a second critical path it is smaller")));
    Solved({{"", {4, 4, 4}}});
    EXPECT_THAT(Meaning(), Contains("The variance is 0, so that no chances can be told."));
    Solved(kFour);
    EXPECT_THAT(Meaning(), Not(Contains(HasSubstr("chance"))));
}

TEST(PertMeaning, EstimatesOutOfOrderAreACaution)
{
    Solved({{"", {5, 4, 9}}, {"", {1, 4, 4}}});
    EXPECT_THAT(Meaning(), Contains(HasSubstr("The estimates of A are not in the order")));
    Solved({{"", {1, 9, 8}}, {"", {5, 4, 4}}});
    EXPECT_THAT(Meaning(), Contains(HasSubstr("The estimates of A and B are not")));
    Solved({{"", {4, 4, 4}}});
    EXPECT_THAT(Meaning(), Not(Contains(HasSubstr("estimates"))));
}

TEST(PertMeaning, RoundedTimesAreACaution)
{
    Solved({{"", {1, 2, 4}}});  // 13 / 6
    EXPECT_THAT(Meaning(), Contains("Times are shown with 2 decimals: what is shown need not add up."));
    Solved({{"", {2.5}}});
    EXPECT_THAT(Meaning(), Contains("Times are shown with 0 decimals: what is shown need not add up."));
    Solved({{"", {2.5}}}, 1);
    EXPECT_THAT(Meaning(), Not(Contains(HasSubstr("Times are shown"))));
}

// ---- all sizes ----

TEST(PertBeside, NothingIsShownBeforeASolve)
{
    Given(kFour);
    EXPECT_THAT(Pictures(), IsEmpty());
    EXPECT_THAT(PertSteps(Problem, Result), IsEmpty());
    EXPECT_THAT(Meaning(), IsEmpty());
}

TEST(PertBeside, RandomProjectsAreShownWithoutFault)
{
    std::mt19937 random(53);
    for (int round = 0; round < 500; ++round) {
        RandomProject project = Draw(random, 25, 10);
        if (round % 2 == 0)
            for (auto& activity : project.Activities)
                activity.Times = {activity.Times[0], activity.Times[0] + 1, activity.Times[0] * 2 + 1};
        Solved(project.Activities, 1);
        const auto pictures = Pictures();
        ASSERT_EQ(pictures.size(), round % 2 == 0 ? 3U : 2U);
        ExpectSound(pictures);
        ExpectSound(PertSteps(Problem, Result), pictures);
        ExpectSound(PertMeaning(Problem, Result));
        for (const auto& arc : DiagramOf(pictures[1]).Arcs) {
            const auto& nodes = DiagramOf(pictures[1]).Nodes;
            const auto rank = [&nodes](const std::string& id) {
                return nodes[static_cast<std::size_t>(id[0] - 'A')].Rank;
            };
            ASSERT_LT(rank(arc.From), rank(arc.To));
        }
        if (HasFatalFailure() || HasNonfatalFailure()) FAIL() << "round " << round;
    }
}

// Only a damaged file holds one.
TEST(PertBeside, ATableThatLeadsRoundInACircleIsShown)
{
    Given({{"", {2}}, {"A", {3}}, {"B", {1}}});
    Problem.CurrentActivity = 1;
    TakePredecessors({3});
    Calculate();
    ExpectSound(Pictures());
    ExpectSound(PertSteps(Problem, Result), Pictures());
    ExpectSound(PertMeaning(Problem, Result));
}

TEST(PertBeside, TheHouseIsShown)
{
    Solved(kHouseEstimated);
    ExpectSound(Pictures());
    EXPECT_EQ(PertSteps(Problem, Result).size(), 32U);
    EXPECT_EQ(PertCpm().Pictures().size(), 3U);
    EXPECT_EQ(PertCpm().Steps().size(), 32U);
    EXPECT_FALSE(PertCpm().Meaning().empty());
}

}  // namespace
