#include "project/VtPert_CPM.h"

#include <gmock/gmock.h>

#include "project/project_support.h"
#include "shell/session.h"
#include "support/fake_desktop.h"

using namespace VtPert_CPM;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class PertEntry : public ::testing::Test {
protected:
    PertEntry()
    {
        Session = {};
        Given({{"", {0}}, {"", {0}}, {"", {0}}});
    }
    FakeDesktop desktop;
};

struct Entry {
    std::string_view Text;
    bool Taken;
    double Stored;  // afterwards
};

constexpr const char* kNotWhole = "NOTE:  THE NUMBER OF ACTIVITIES MUST BE AN INTEGER VALUE.";
constexpr const char* kOutOfRange = "NOTE:  THE NUMBER OF ACTIVITIES MUST BE BETWEEN 1 AND 25.";

TEST_F(PertEntry, CountOfActivitiesRunsFrom1To25)
{
    EXPECT_TRUE(TakeActivityCount("1"));
    EXPECT_EQ(Problem.NumActivities, 1);
    EXPECT_TRUE(TakeActivityCount("25"));
    EXPECT_EQ(Problem.NumActivities, 25);
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    for (const char* text : {"0", "26", "-1", "99999", "+", "1,000"}) {
        EXPECT_FALSE(TakeActivityCount(text)) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(kOutOfRange)) << text;
    }
    EXPECT_EQ(Problem.NumActivities, 25);
}

TEST_F(PertEntry, CountOfActivitiesIsAWholeNumber)
{
    for (const char* text : {"2.5", "3.0", "7.", "x", " ", "1e1", "2-"}) {
        EXPECT_FALSE(TakeActivityCount(text)) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused(kNotWhole)) << text;
    }
    EXPECT_EQ(Problem.NumActivities, 3);
}

TEST_F(PertEntry, AnEmptyCountIsPassedOverUntilOK)
{
    EXPECT_TRUE(TakeActivityCount(""));
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_FALSE(TakeParameters("", kKnownTimes));
    EXPECT_EQ(desktop.dialogs.Last(), Refused("You must enter the number of activities."));
}

TEST_F(PertEntry, TheOptionsGiveTheTimeMode)
{
    Session.DialogCancelled = true;
    for (const int mode : {kThreeEstimates, kKnownTimes}) {
        desktop.forms.onModal["frmPERTCPM_Init"] = [mode] { EXPECT_TRUE(TakeParameters("3", mode)); };
        EXPECT_TRUE(Ask());
        EXPECT_EQ(HasThreeEstimates(), mode == kThreeEstimates);
        EXPECT_FALSE(Session.DialogCancelled);
    }
    desktop.forms.onModal["frmPERTCPM_Init"] = [] { TheParameters.Cancel(); };
    EXPECT_FALSE(Ask());
    EXPECT_TRUE(Session.DialogCancelled);
}

TEST_F(PertEntry, LettersRunFromAToY)
{
    EXPECT_EQ(Problem.ActivityName(1), "A");
    EXPECT_EQ(Problem.ActivityName(25), "Y");
    EXPECT_THROW((void)Problem.ActivityName(26), RuntimeError);
}

TEST_F(PertEntry, ANewTableHoldsZeroes)
{
    Given(kHouseEstimated);
    Calculate();
    Problem.CurrentActivity = 3;
    Problem.TimeDecimals = 2.0;
    Problem.DecimalPlaces = 2.0;
    MakeTable();
    EXPECT_EQ(Problem.CurrentActivity, 1);
    EXPECT_EQ(Problem.NumActivities, 14);
    EXPECT_TRUE(HasThreeEstimates());
    EXPECT_FALSE(Result.Solved);
    EXPECT_EQ(Problem.TimeDecimals, Variant(0.0));
    EXPECT_EQ(Problem.DecimalPlaces, Variant(0.0));
    for (int i = 1; i <= kMostActivities; ++i) {
        for (const auto* column : {&Problem.PredCount, &Problem.ActivityTime, &Problem.OptimisticTime,
                                   &Problem.ProbableTime, &Problem.PessimisticTime, &Problem.TimeVariance})
            EXPECT_EQ((*column)(i), Variant(0.0));
        for (int position = 1; position <= kMostPredecessors; ++position)
            EXPECT_EQ(Problem.PredTable(position, i), Variant(0.0));
    }
}

TEST_F(PertEntry, ExpectedTimeIsANumberOf0OrMore)
{
    constexpr const char* kMessage = "NOTE:  THE COMPLETION TIME MUST BE GREATER THAN OR EQUAL TO ZERO.";
    Problem.CurrentActivity = 2;
    for (const Entry& entry : std::vector<Entry>{{"5", true, 5},
                                                 {"-0.01", false, 5},
                                                 {"-1", false, 5},
                                                 {"abc", false, 5},
                                                 {"1.2.3", false, 5},
                                                 {" ", false, 5},
                                                 {"", true, 5},
                                                 {"0", true, 0},
                                                 {"1,250", true, 1250},
                                                 {"+3", true, 3}}) {
        desktop.dialogs.messages.clear();
        EXPECT_EQ(TakeExpectedTime(entry.Text), entry.Taken) << entry.Text;
        EXPECT_EQ(Problem.ActivityTime(2).Value(), entry.Stored) << entry.Text;
        EXPECT_EQ(desktop.dialogs.Last(), entry.Taken ? ShownMessage() : Refused(kMessage)) << entry.Text;
    }
    EXPECT_EQ(Problem.ActivityTime(1).Value(), 0);
}

TEST_F(PertEntry, OptimisticTimeIsANumberOf0OrMore)
{
    constexpr const char* kMessage = "NOTE:  THE OPTIMISTIC TIME MUST BE GREATER THAN OR EQUAL TO 0.";
    for (const Entry& entry : std::vector<Entry>{
             {"2", true, 2}, {"-0.5", false, 2}, {"?", false, 2}, {"", true, 2}, {"0", true, 0}}) {
        desktop.dialogs.messages.clear();
        EXPECT_EQ(TakeOptimisticTime(entry.Text), entry.Taken) << entry.Text;
        EXPECT_EQ(Problem.OptimisticTime(1).Value(), entry.Stored) << entry.Text;
        EXPECT_EQ(desktop.dialogs.Last(), entry.Taken ? ShownMessage() : Refused(kMessage)) << entry.Text;
    }
}

TEST_F(PertEntry, MostProbableTimeIsAtLeastTheOptimisticOne)
{
    const std::string message =
        "NOTE:  THE MOST PROBABLE TIME MUST BE GREATER THAN OR EQUAL TO THE OPTIMISTIC TIME.";
    ASSERT_TRUE(TakeOptimisticTime("4.5"));
    EXPECT_FALSE(TakeProbableTime("4.4"));
    EXPECT_EQ(desktop.dialogs.Last(), Refused(message + "  PLEASE REENTER TIMES."));
    EXPECT_FALSE(TakeProbableTime("many"));
    EXPECT_EQ(desktop.dialogs.Last(), Refused(message));
    EXPECT_EQ(Problem.ProbableTime(1).Value(), 0);
    EXPECT_TRUE(TakeProbableTime(""));
    EXPECT_TRUE(TakeProbableTime("4.5"));
    EXPECT_EQ(Problem.ProbableTime(1).Value(), 4.5);
    EXPECT_EQ(desktop.dialogs.messages.size(), 2U);
}

TEST_F(PertEntry, PessimisticTimeIsAtLeastTheMostProbableOne)
{
    const std::string message =
        "NOTE:  THE PESSIMISTIC TIME MUST BE GREATER THAN OR EQUAL TO THE MOST PROBABLE TIME.";
    ASSERT_TRUE(TakeProbableTime("6"));
    EXPECT_FALSE(TakePessimisticTime("5.99"));
    EXPECT_EQ(desktop.dialogs.Last(), Refused(message + "  PLEASE REENTER TIMES."));
    EXPECT_FALSE(TakePessimisticTime("6-"));
    EXPECT_EQ(desktop.dialogs.Last(), Refused(message));
    EXPECT_TRUE(TakePessimisticTime(""));
    EXPECT_TRUE(TakePessimisticTime("6"));
    EXPECT_EQ(Problem.PessimisticTime(1).Value(), 6);
    EXPECT_EQ(desktop.dialogs.messages.size(), 2U);
}

TEST_F(PertEntry, ZeroIsLegalInAllTimes)
{
    for (const auto& take : {TakeExpectedTime, TakeOptimisticTime, TakeProbableTime, TakePessimisticTime})
        EXPECT_TRUE(take("0"));
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(PertEntry, KnownTimesRaiseTheDecimalPlaces)
{
    const std::vector<std::pair<const char*, int>> entries = {{"4", 0}, {"4.009", 0}, {"2.5", 1},
                                                              {"7", 1}, {"2.55", 2},  {"1.5", 2}};
    for (const auto& [text, places] : entries) {
        EXPECT_TRUE(TakeExpectedTime(text));
        EXPECT_EQ(Problem.DecimalPlaces.Value(), places) << text;
    }
}

TEST_F(PertEntry, KnownTimesAreNeverClamped)
{
    EXPECT_TRUE(TakeExpectedTime("123456.78"));
    EXPECT_EQ(Problem.ActivityTime(1).Value(), 123456.78);
}

TEST_F(PertEntry, EstimatesLeaveTheDecimalPlacesAlone)
{
    EXPECT_TRUE(TakeOptimisticTime("2.55"));
    EXPECT_TRUE(TakeProbableTime("3.55"));
    EXPECT_TRUE(TakePessimisticTime("4.55"));
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 0);
}

TEST_F(PertEntry, PredecessorsFillTheTableFromTheTop)
{
    Given(std::vector<Activity>(5, {"", {0}}));
    Problem.CurrentActivity = 5;
    TakePredecessors({1, 3, 4});
    EXPECT_THAT(PredecessorsOf(5), ElementsAre(1, 3, 4));
    EXPECT_EQ(PredecessorText(5), "A, C, D");
    TakePredecessors({3});
    EXPECT_EQ(Problem.PredCount(5).Value(), 1);
    EXPECT_EQ(Problem.PredTable(1, 5).Value(), 3);
    EXPECT_EQ(Problem.PredTable(2, 5).Value(), 0);
    EXPECT_EQ(Problem.PredTable(3, 5).Value(), 0);
    TakePredecessors({});
    EXPECT_EQ(PredecessorText(5), "");
    EXPECT_EQ(Problem.PredTable(1, 5).Value(), 0);
}

TEST_F(PertEntry, FewerPredecessorsLeaveNothingOfTheEight)
{
    Given(std::vector<Activity>(9, {"", {0}}));
    Problem.CurrentActivity = 9;
    TakePredecessors({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(Problem.PredTable(8, 9).Value(), 8);
    TakePredecessors({1});
    EXPECT_EQ(Problem.PredTable(8, 9).Value(), 0);
}

TEST_F(PertEntry, ANinthPredecessorIsBeyondTheTable)
{
    Given(std::vector<Activity>(10, {"", {1}}));
    Problem.CurrentActivity = 10;
    TakePredecessors({1, 2, 3, 4, 5, 6, 7, 8});
    try {
        TakePredecessors({1, 2, 3, 4, 5, 6, 7, 8, 9});
        FAIL() << "nine were taken";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
    }
    EXPECT_EQ(Problem.PredCount(10).Value(), 9);
    EXPECT_EQ(PredecessorText(10), "A, B, C, D, E, F, G, H");
    EXPECT_THROW(Calculate(), RuntimeError);
    TakePredecessors({2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_NO_THROW(Calculate());
}

}  // namespace
