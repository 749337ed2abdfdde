#include <gtest/gtest.h>

#include "support/fake_desktop.h"
#include "waiting/lines.h"

namespace {

using VtWait::Problem;

using Take = bool (*)(std::string_view);

constexpr double kBefore = 7;
constexpr const char* kMean = "THE MEAN MUST BE POSITIVE.  PLEASE TRY AGAIN.";
constexpr const char* kRateNoNumber = "A NON-NUMERIC VALUE HAS BEEN ENTERED.  PLEASE TRY AGAIN.";
constexpr const char* kQuestionNoNumber =
    "A NON-NUMERIC VALUE HAS BEEN ENTERED.  PLEASE ENTER `CANCEL' OR A NUMERIC VALUE IN RESPONSE TO THIS "
    "QUESTION.";
constexpr const char* kNoNumber = "A NON-NUMERIC VALUE HAS BEEN ENTERED.";

const std::vector<const char*> kTexts{"many", "5 units", "1e5", "1.2.3", "--1", "1-", " ", " 5", "`"};

class WaitingEntry : public testing::Test {
protected:
    void GivenModel(int model)
    {
        VtWait::MakeArrays();
        Problem.WaitingModel = model;
        desktop.dialogs.messages.clear();
    }

    void ExpectTaken(Take take, Variant& field, std::string_view text, double value)
    {
        SCOPED_TRACE(text);
        field = kBefore;
        desktop.dialogs.messages.clear();
        EXPECT_TRUE(take(text));
        EXPECT_EQ(field.Value(), value);
        EXPECT_TRUE(desktop.dialogs.messages.empty());
    }

    void ExpectRefused(Take take, Variant& field, std::string_view text, std::string_view refusal)
    {
        SCOPED_TRACE(text);
        field = kBefore;
        desktop.dialogs.messages.clear();
        EXPECT_FALSE(take(text));
        EXPECT_EQ(field.Value(), kBefore);
        ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
        EXPECT_EQ(desktop.dialogs.Last(), Refused(refusal));
    }

    FakeDesktop desktop;
};

ShownMessage Warning(std::string_view text)
{
    return {.Text = std::string(text), .Title = "WARNING!!!", .icon = Icon::Critical, .buttons = Buttons::OK};
}

}  // namespace

TEST_F(WaitingEntry, ChannelsAreAWholeNumberFrom1To25)
{
    GivenModel(VtWait::kExponential);
    Variant& field = Problem.Channels;
    ExpectTaken(VtWait::TakeChannels, field, "1", 1);
    ExpectTaken(VtWait::TakeChannels, field, "25", 25);
    ExpectTaken(VtWait::TakeChannels, field, "25.9", 25);
    ExpectTaken(VtWait::TakeChannels, field, "3.7", 3);
    ExpectTaken(VtWait::TakeChannels, field, "+2", 2);
    ExpectTaken(VtWait::TakeChannels, field, "", kBefore);
    for (const char* text : {"0", "0.9", "-1", "26", "1,000", "99999999999999999999"})
        ExpectRefused(VtWait::TakeChannels, field, text,
                      "THE NUMBER OF CHANNELS MUST BE BETWEEN 1 AND 25.  PLEASE TRY AGAIN.");
    for (const char* text : kTexts)
        ExpectRefused(VtWait::TakeChannels, field, text, kQuestionNoNumber);
}

TEST_F(WaitingEntry, ArrivalRateIsAboveZero)
{
    for (int model = 1; model <= VtWait::kModelCount; ++model) {
        GivenModel(model);
        const bool manyChannels = model != VtWait::kArbitrary && model != VtWait::kDeterministic;
        Variant& field = Problem.ArrivalRate;
        ExpectTaken(VtWait::TakeArrivalRate, field, "0.001", 0.001);
        ExpectTaken(VtWait::TakeArrivalRate, field, "1,250.5", 1250.5);
        ExpectTaken(VtWait::TakeArrivalRate, field, "", kBefore);
        for (const char* text : {"0", "-1", "-0.001", "."})
            ExpectRefused(VtWait::TakeArrivalRate, field, text, kMean);
        for (const char* text : kTexts)
            ExpectRefused(VtWait::TakeArrivalRate, field, text,
                          manyChannels ? kQuestionNoNumber : kRateNoNumber);
    }
}

TEST_F(WaitingEntry, ServiceRateIsAboveZero)
{
    for (int model = 1; model <= VtWait::kModelCount; ++model) {
        GivenModel(model);
        Variant& field = Problem.ServiceRate;
        ExpectTaken(VtWait::TakeServiceRate, field, ".5", 0.5);
        ExpectTaken(VtWait::TakeServiceRate, field, "1000000", 1e6);
        for (const char* text : {"0", "-1"})
            ExpectRefused(VtWait::TakeServiceRate, field, text, kMean);
        for (const char* text : kTexts)
            ExpectRefused(VtWait::TakeServiceRate, field, text, kRateNoNumber);
    }
}

TEST_F(WaitingEntry, DeviationAndCostsAreAnyNumber)
{
    struct Field {
        bool (*Rule)(std::string_view);
        Variant& Value;
    };
    GivenModel(VtWait::kArbitrary);
    for (const Field& field : {Field{VtWait::TakeServiceStdDev, Problem.ServiceStdDev},
                               Field{VtWait::TakeCostPerUnitInSystem, Problem.CostPerUnitInSystem},
                               Field{VtWait::TakeCostPerChannel, Problem.CostPerChannel}}) {
        ExpectTaken(field.Rule, field.Value, "0", 0);
        ExpectTaken(field.Rule, field.Value, "-2.5", -2.5);
        ExpectTaken(field.Rule, field.Value, "1,000", 1000);
        ExpectTaken(field.Rule, field.Value, "", kBefore);  // a left out deviation waits for Solve
        for (const char* text : kTexts)
            ExpectRefused(field.Rule, field.Value, text, kNoNumber);
    }
}

TEST_F(WaitingEntry, PopulationIsAWholeNumberFrom1To30)
{
    GivenModel(VtWait::kFinitePopulation);
    Variant& field = Problem.Population;
    ExpectTaken(VtWait::TakePopulation, field, "1", 1);
    ExpectTaken(VtWait::TakePopulation, field, "30", 30);
    ExpectTaken(VtWait::TakePopulation, field, "12.9", 12);
    ExpectTaken(VtWait::TakePopulation, field, "", kBefore);
    for (const char* text : {"0", "0.99", "-3"})
        ExpectRefused(VtWait::TakePopulation, field, text, "THE POPULATION SIZE MUST BE AT LEAST 1.");
    for (const char* text : {"31", "1,000"})
        ExpectRefused(VtWait::TakePopulation, field, text,
                      "THE MAXIMUM POPULATION SIZE FOR THIS MODEL IS 30.");
    for (const char* text : kTexts)
        ExpectRefused(VtWait::TakePopulation, field, text, kNoNumber);
}

// ---- what Solve and Save ask ----

TEST_F(WaitingEntry, OneChannelMustServeFasterThanUnitsArrive)
{
    for (const int model : {VtWait::kArbitrary, VtWait::kDeterministic}) {
        GivenChannels(model, 1, 2.9, 3);
        EXPECT_TRUE(VtWait::CheckRates());
        for (const double arrivals : {3.0, 3.1}) {
            GivenChannels(model, 1, arrivals, 3);
            EXPECT_FALSE(VtWait::CheckRates());
            EXPECT_EQ(desktop.dialogs.Last(), Refused("The arrival rate must be less than 3 or the waiting "
                                                      "line will grow without limit."));
        }
    }
}

TEST_F(WaitingEntry, ChannelsTogetherMustServeFasterThanUnitsArrive)
{
    GivenExponential(2, 5.999, 3);
    EXPECT_TRUE(VtWait::CheckRates());
    GivenExponential(2, 6, 3);
    EXPECT_FALSE(VtWait::CheckRates());
    EXPECT_EQ(desktop.dialogs.Last(),
              Refused("The arrival rate must be less than 6 or the waiting line will grow without limit."));
    GivenExponential(3, 10, 0.5);
    EXPECT_FALSE(VtWait::CheckRates());
    EXPECT_EQ(desktop.dialogs.Last(),
              Refused("The arrival rate must be less than 1.5 or the waiting line will grow without limit."));
}

TEST_F(WaitingEntry, TheOtherModelsAreHeldToTheSameCapacity)
{
    for (const int model : {VtWait::kNoWaiting, VtWait::kFinitePopulation}) {
        GivenChannels(model, 2, 5, 3);
        EXPECT_TRUE(VtWait::CheckRates());
        GivenChannels(model, 2, 6.5, 3);
        EXPECT_FALSE(VtWait::CheckRates());
        EXPECT_EQ(desktop.dialogs.Last(),
                  Warning("You have entered 6.5 arrivals per time period.  However, the 2 channel(s) can "
                          "service only 6 units per time period.  The waiting line will grow without "
                          "limit."));
        GivenChannels(model, 2, 6, 3);
        EXPECT_FALSE(VtWait::CheckRates());
        EXPECT_EQ(desktop.dialogs.Last(), Warning("The arrival rate of 6 equals the service rate of the 2 "
                                                  "channel(s).  The waiting line will grow without limit."));
    }
}

TEST_F(WaitingEntry, AnArrivalRateOfAFileIsAboveZeroToo)
{
    for (int model = 1; model <= VtWait::kModelCount; ++model) {
        for (const double arrivals : {0.0, -2.0}) {
            GivenChannels(model, 1, arrivals, 3);
            EXPECT_FALSE(VtWait::CheckRates());
            EXPECT_EQ(desktop.dialogs.Last(), Refused(kMean));
        }
        GivenChannels(model, 1, 0.5, 3);
        EXPECT_TRUE(VtWait::CheckRates());
    }
}

// ---- the boxes of each model ----

TEST_F(WaitingEntry, BoxesFollowTheModel)
{
    const auto labels = [](int model) {
        VtWait::MakeArrays();
        Problem.WaitingModel = model;
        std::vector<std::string> shown;
        for (const VtWait::Box& box : VtWait::Boxes())
            if (box.Take != nullptr) shown.emplace_back(box.Label);
        return shown;
    };
    using Labels = std::vector<std::string>;
    const Labels channels{"Number of Channels:", "Mean Arrival Rate:", "Mean Service Rate per Channel:"};
    EXPECT_EQ(labels(VtWait::kExponential), channels);
    EXPECT_EQ(labels(VtWait::kNoWaiting), channels);
    EXPECT_EQ(labels(VtWait::kDeterministic), (Labels{"Mean Arrival Rate:", "Mean Service Rate:"}));
    EXPECT_EQ(labels(VtWait::kArbitrary),
              (Labels{"Mean Arrival Rate:", "Mean Service Rate:", "Standard Deviation of Service Time:"}));
    EXPECT_EQ(VtWait::Boxes()[2].Note, "(In Units of Time Period)");
    EXPECT_EQ(labels(VtWait::kFinitePopulation),
              (Labels{channels[0], channels[1], channels[2], "Population Size (MAX=30):"}));
}
