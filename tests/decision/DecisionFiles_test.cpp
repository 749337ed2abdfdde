// Problem files of decision problems, written and read.
#include <gmock/gmock.h>

#include "basic/error.h"
#include "basic/records.h"
#include "decision/decision_support.h"
#include "decision/module.h"

using Decision::Problem;

namespace {

std::string Written()
{
    RecordWriter writer;
    DecisionAnalysis().Write(writer);
    return writer.Text();
}

void Read(const std::string& text)
{
    RecordReader reader(text);
    DecisionAnalysis().Read(reader);
}

ErrorNumber ErrorOfReading(const std::string& text)
{
    try {
        Read(text);
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{};
}

void GivenLease()
{
    GivenPayoffs({{70.5, -30, 1}, {20, 20, 2}}, true, Decision::kOptimistic);
    Problem.PayoffDecimals = 1;
}

constexpr const char* kPayoffs = "70.5\r\n-30\r\n1\r\n20\r\n20\r\n2\r\n";

}  // namespace

TEST(DecisionFiles, HoldPayoffsAlternativeAfterAlternative)
{
    GivenLease();
    EXPECT_EQ(Written(), "1,3,2,0,0,\"NO\",\"NO\"\r\n" + std::string(kPayoffs));
}

TEST(DecisionFiles, HoldStateProbabilitiesBehindThePayoffs)
{
    GivenLease();
    GivenStateProbabilities({0.1, 0.2, 0.7});
    EXPECT_EQ(Written(), "1,3,2,1,0,\"YES\",\"NO\"\r\n" + std::string(kPayoffs) + "0.1\r\n0.2\r\n0.7\r\n");
}

TEST(DecisionFiles, HoldTheOutcomesStateAfterState)
{
    GivenLease();
    GivenStateProbabilities({0.1, 0.2, 0.7});
    GivenSample({{0.25, 0.75}, {0, 1}, {0.5, 0.5}});
    EXPECT_EQ(Written(), "1,3,2,1,1,\"YES\",\"YES\"\r\n" + std::string(kPayoffs) +
                             "0.1\r\n0.2\r\n0.7\r\n1,2\r\n0.25\r\n0.75\r\n0\r\n1\r\n0.5\r\n0.5\r\n");
}

TEST(DecisionFiles, ComeBackAsTheyWere)
{
    GivenLease();
    GivenStateProbabilities({0.1, 0.2, 0.7});
    GivenSample({{0.25, 0.75}, {0, 1}, {0.5, 0.5}});
    const std::string text = Written();
    Problem = {};
    Read(text);
    EXPECT_EQ(Written(), text);
    EXPECT_EQ(Problem.AlternativeCount, 2);
    EXPECT_EQ(Problem.NatureStateCount, 3);
    EXPECT_EQ(Problem.IndicatorCount, 2);
    EXPECT_EQ(Problem.Payoff(1, 2), -30);
    EXPECT_EQ(Problem.StatePrior(3), 0.7);
    EXPECT_EQ(Problem.IndicatorGivenState(2, 2), 1);
}

TEST(DecisionFiles, LeaveNothingOfAnEarlierProblem)
{
    GivenLease();
    GivenStateProbabilities({0.1, 0.2, 0.7});
    GivenSample({{1}, {1}, {1}});
    Decision::SolveProblem();
    Read("0,1,1,0,0,\"NO\",\"NO\"\r\n5\r\n");
    EXPECT_EQ(Problem.StatePrior(1), 0);
    EXPECT_EQ(Problem.Payoff(1, 2), 0);
    EXPECT_EQ(Problem.IndicatorCount, 0);
    EXPECT_FALSE(Decision::Result.Solved);
}

TEST(DecisionFiles, HoldValuesBeyondTheRulesOfEntry)
{
    Read("0,1,1,1,0,\"YES\",\"NO\"\r\n5\r\n7.5\r\n");
    EXPECT_EQ(Problem.StatePrior(1), 7.5);
}

TEST(DecisionFiles, TakeNothingBetweenCommasAsZero)
{
    Read(",1,2,0,0,\"NO\",\"NO\"\r\n\r\n3\r\n");
    EXPECT_EQ(Problem.PayoffDecimals.Value(), 0);
    EXPECT_EQ(Problem.Payoff(1, 1), 0);
    EXPECT_EQ(Problem.Payoff(2, 1), 3);
}

TEST(DecisionFiles, FailWhereTheyDoNotFit)
{
    EXPECT_EQ(ErrorOfReading(""), ErrorNumber::InputPastEnd);
    EXPECT_EQ(ErrorOfReading("0,1,2,0,0,\"NO\",\"NO\"\r\n5\r\n"), ErrorNumber::InputPastEnd);
    EXPECT_EQ(ErrorOfReading("0,1,1,1,1,\"YES\",\"YES\"\r\n5\r\n1\r\n1,2\r\n0.5\r\n"),
              ErrorNumber::InputPastEnd);
    EXPECT_EQ(ErrorOfReading("0,\"x\",1,0,0,\"NO\",\"NO\"\r\n5\r\n"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOfReading("0,99999,1,0,0,\"NO\",\"NO\"\r\n5\r\n"), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOfReading("0,11,1,0,0,\"NO\",\"NO\"\r\n5\r\n"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOfReading("0,1,11,0,0,\"NO\",\"NO\"\r\n5\r\n"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOfReading("0,-1,1,0,0,\"NO\",\"NO\"\r\n5\r\n"), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(ErrorOfReading("0,1,1,1,1,\"YES\",\"YES\"\r\n5\r\n1\r\n1,11\r\n"),
              ErrorNumber::SubscriptOutOfRange);
}

TEST(DecisionFiles, ReadByTheirFlagsWhateverTheirWordsSay)
{
    Read("0,1,1,0,0,\"YES\",\"NO\"\r\n5\r\n");
    EXPECT_EQ(Problem.HasStateProbabilities, "YES");
    EXPECT_EQ(Problem.StatePrior(1), 0);
}
