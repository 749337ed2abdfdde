#include "forecasting/VtForecasting.h"

#include <gmock/gmock.h>

#include "forecasting/forecasting_support.h"
#include "shell/checks.h"
#include "shell/commands.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/userinput.h"
#include "support/fake_desktop.h"

using namespace VtForecasting;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ForecastEntry : public ::testing::Test {
protected:
    ForecastEntry()
    {
        Session = {};
        Session.CurrentModule = 11;
        Given({10, 20, 30});
        Redisplay();
    }

    void Redisplay()
    {
        DisplayProblem();
        desktop.forms.menuFocused = 0;
    }

    // Into the cell of a period, without leaving it.
    void Type(int period, std::string_view text)
    {
        TheGrid().commit = [](int row, int column, std::string_view typed) {
            return VtForecasting::CommitCell(row, column, typed) != kCellRefused;
        };
        TheGrid().Type(period, 1, text);
    }

    // What the form asks, and the box that its Solve button refuses; -1: none.
    void Choose(int method, const std::string& first, const std::string& second, int refused)
    {
        desktop.forms.onModal["frmForecastingModels"] = [=] {
            EXPECT_EQ(VtForecasting::TakeMethod(method, {first, second}), refused);
        };
        EXPECT_EQ(VtForecasting::AskMethod(), refused < 0);
    }

    FakeGrid& TheGrid() { return desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit"); }

    std::vector<std::string> Cells()
    {
        std::vector<std::string> cells;
        for (int row = 1; row < TheGrid().Rows(); ++row)
            cells.push_back(TheGrid().Text(row, 1));
        return cells;
    }

    FakeDesktop desktop;
};

// ---- the number of periods ----

TEST_F(ForecastEntry, NewAsksForTheNumberOfPeriods)
{
    desktop.forms.onModal["frmUserInput"] = [this] {
        const SizeDialog& dialog = UserInput::Sizes.Question();
        EXPECT_EQ(dialog.Caption, " Time Periods");
        ASSERT_EQ(dialog.Questions.size(), 1U);
        EXPECT_EQ(dialog.Questions[0].Question, "Enter Number of Time Periods (MAX=100):");
        for (const char* text : {"0", "101", ""}) {
            EXPECT_EQ(UserInput::TakeSizes({text}), 0);
            EXPECT_EQ(desktop.dialogs.Last(),
                      Refused("YOU MAY ONLY SELECT A NUMBER BETWEEN 1 AND 100.  PLEASE TRY AGAIN."));
        }
        EXPECT_EQ(UserInput::TakeSizes({"1"}), -1);
        EXPECT_EQ(UserInput::TakeSizes({"100"}), -1);
    };
    Session.NewProblem = true;
    BeginProblem();
    EXPECT_EQ(Problem.PeriodCount, 100);
    EXPECT_TRUE(Problem.TimeSeries(1).IsEmpty());
    EXPECT_TRUE(Problem.TimeSeries(100).IsEmpty());
    EXPECT_EQ(TheGrid().Rows(), 101);
    EXPECT_EQ(TheGrid().Row(), 1);
    EXPECT_EQ(TheGrid().Column(), 1);
    EXPECT_GT(TheGrid().focused, 0);
    EXPECT_EQ(Session.ProblemOnDisplay, "YES");
}

TEST_F(ForecastEntry, ACancelledDialogLeavesTheSeriesAlone)
{
    desktop.forms.onModal["frmUserInput"] = [] { UserInput::Sizes.Cancel(); };
    BeginProblem();
    EXPECT_EQ(Problem.PeriodCount, 3);
    EXPECT_EQ(Problem.TimeSeries(3), Variant(30.0));
    EXPECT_EQ(desktop.forms.menuFocused, 1);
}

TEST_F(ForecastEntry, TheGridShowsTheStoredValues)
{
    Problem.TimeSeries(2) = 0.25;
    Problem.TimeSeries(3) = Variant();
    Redisplay();
    EXPECT_THAT(TheGrid().RowTexts(0), ElementsAre("Period", "Time Series Value"));
    EXPECT_THAT(TheGrid().RowTexts(1), ElementsAre("1", "10"));
    EXPECT_THAT(TheGrid().RowTexts(2), ElementsAre("2", "0.25"));
    EXPECT_THAT(TheGrid().RowTexts(3), ElementsAre("3", ""));
    EXPECT_EQ(desktop.forms.Loaded("frmProblem").Text("lblInfo"), "Enter Time Series Value for Each Period.");
}

TEST_F(ForecastEntry, ANewProblemShowsEmptyCells)
{
    Session.NewProblem = true;
    Redisplay();
    EXPECT_THAT(Cells(), ElementsAre("", "", ""));
}

TEST_F(ForecastEntry, TheColumnOfValuesHasRoomForItsHeading)
{
    EXPECT_EQ(TheGrid().widths[1], 20);
}

TEST_F(ForecastEntry, ANewSeriesHoldsNothingOfTheLast)
{
    Problem.DecimalPlaces = 2.0;
    Problem.ForecastMethod = kTrendAndSeasonal;
    Problem.MethodParameter = "3";
    Problem.ForecastCount = "4";
    Result.PeriodCount = 3;
    MakeArrays();
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 0);
    EXPECT_EQ(Problem.ForecastMethod, 0);
    EXPECT_EQ(Problem.MethodParameter, "");
    EXPECT_EQ(Problem.ForecastCount, "");
    EXPECT_TRUE(Problem.TimeSeries(1).IsEmpty());
    EXPECT_EQ(Result.PeriodCount, 0);
}

// ---- cells ----

TEST_F(ForecastEntry, HeadingsTakeNothing)
{
    EXPECT_EQ(VtForecasting::CommitCell(0, 1, "7"), kCellStored);
    EXPECT_EQ(VtForecasting::CommitCell(2, 0, "7"), kCellStored);
    EXPECT_TRUE(Problem.TimeSeries(0).IsEmpty());
    EXPECT_EQ(Problem.TimeSeries(2).Value(), 20);
}

TEST_F(ForecastEntry, ACellTakesANumber)
{
    for (const auto& [text, value] : std::vector<std::pair<const char*, double>>{
             {"5", 5}, {"-2.5", -2.5}, {"1,250", 1250}, {"+.5", 0.5}, {"-", 0}}) {
        EXPECT_EQ(VtForecasting::CommitCell(2, 1, text), kCellStored) << text;
        EXPECT_EQ(Problem.TimeSeries(2), Variant(value)) << text;
    }
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(ForecastEntry, ATextThatIsNoNumberIsRefused)
{
    for (const char* text : {"abc", "1.2.3", "1-", "--1", " ", "1e3"}) {
        EXPECT_EQ(VtForecasting::CommitCell(2, 1, text), kCellRefused) << text;
        EXPECT_EQ(desktop.dialogs.Last(), Refused("Values Must be Numeric.  PLEASE REENTER.")) << text;
        EXPECT_EQ(Problem.TimeSeries(2), Variant(20.0)) << text;
    }
}

TEST_F(ForecastEntry, AnEmptyCellIs0AndIsAskedAboutOncePerCommand)
{
    Session.AskIncomplete = true;
    EXPECT_EQ(VtForecasting::CommitCell(2, 1, ""), kCellEmpty);
    EXPECT_EQ(Problem.TimeSeries(2), Variant(0.0));
    Session.AskIncomplete = false;
    EXPECT_EQ(VtForecasting::CommitCell(3, 1, ""), kCellStored);
    EXPECT_EQ(Problem.TimeSeries(3), Variant(0.0));
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(ForecastEntry, ValuesRaiseTheDecimalPlaces)
{
    for (const auto& [text, places] : std::vector<std::pair<const char*, int>>{{"2", 0},
                                                                               {"2.004", 0},
                                                                               {"2.009", 0},
                                                                               {"-3", 0},
                                                                               {"2.5", 1},
                                                                               {"2", 1},
                                                                               {"2.01", 2},
                                                                               {"2.5", 2}}) {
        EXPECT_EQ(VtForecasting::CommitCell(1, 1, text), kCellStored);
        EXPECT_EQ(Problem.DecimalPlaces.Value(), places) << text;
    }
    Problem.DecimalPlaces = 0.0;
    EXPECT_EQ(VtForecasting::CommitCell(1, 1, "2.015"), kCellStored);
    EXPECT_EQ(Problem.DecimalPlaces.Value(), 2);
}

// ---- adding periods ----

TEST_F(ForecastEntry, AddedPeriodsComeEmptyAtTheEnd)
{
    desktop.dialogs.inputs = {"2"};
    AddTimePeriods();
    EXPECT_EQ(desktop.dialogs.prompts.at(0),
              std::make_pair(std::string("Enter the Number of Time Periods to Add (Data will be added to the "
                                         "end of the time series.):"),
                             std::string("Add Time Periods")));
    EXPECT_EQ(Problem.PeriodCount, 5);
    EXPECT_THAT(Cells(), ElementsAre("10", "20", "30", "", ""));
    EXPECT_EQ(TheGrid().Text(5, 0), "5");
}

TEST_F(ForecastEntry, AddedPeriodsKeepNothingOfDeletedOnes)
{
    desktop.dialogs.inputs = {"2", "2"};
    DeleteTimePeriods();
    AddTimePeriods();
    EXPECT_THAT(Cells(), ElementsAre("30", "", ""));
}

struct Reply {
    const char* Text;
    const char* Message;
};

TEST_F(ForecastEntry, AddRefusesWhatIsNoPositiveWholeNumber)
{
    for (const Reply& reply :
         {Reply{"1.5", "The Number of Time Periods must be an Integer!!"},
          Reply{"two", "The Number of Time Periods must be an Integer!!"},
          Reply{"0", "Time Periods to Add Must be Positive"},
          Reply{"-1", "Time Periods to Add Must be Positive"},
          Reply{"98", "The Number of Time Periods must not Exceed 100  PLEASE TRY AGAIN."},
          Reply{"99999999999", "The Number of Time Periods must not Exceed 100  PLEASE TRY AGAIN."}}) {
        desktop.dialogs.inputs = {reply.Text};
        AddTimePeriods();
        EXPECT_EQ(desktop.dialogs.Last(), Refused(reply.Message)) << reply.Text;
        EXPECT_EQ(Problem.PeriodCount, 3) << reply.Text;
    }
    desktop.dialogs.inputs = {"97"};
    AddTimePeriods();
    EXPECT_EQ(Problem.PeriodCount, 100);
    desktop.dialogs.inputs = {"1"};
    AddTimePeriods();
    EXPECT_EQ(Problem.PeriodCount, 100);
}

TEST_F(ForecastEntry, ACancelledInputBoxChangesNothing)
{
    AddTimePeriods();
    DeleteTimePeriods();
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
    EXPECT_THAT(Cells(), ElementsAre("10", "20", "30"));
}

// ---- deleting periods ----

TEST_F(ForecastEntry, PeriodsAreDeletedFromTheBeginning)
{
    desktop.dialogs.inputs = {"2"};
    DeleteTimePeriods();
    EXPECT_EQ(desktop.dialogs.prompts.at(0),
              std::make_pair(std::string("Enter the Number of Time Periods to Delete (Data will be deleted "
                                         "from the beginning of the time series.):"),
                             std::string("Delete Time Periods")));
    EXPECT_EQ(Problem.PeriodCount, 1);
    EXPECT_THAT(Cells(), ElementsAre("30"));
}

TEST_F(ForecastEntry, DeleteRefusesWhatIsNoPositiveWholeNumberBelowTheCount)
{
    for (const Reply& reply :
         {Reply{"0.5", "The Time Periods must be an Integer!!"},
          Reply{"x", "The Time Periods must be an Integer!!"}, Reply{"0", "Time Periods Must be Positive"},
          Reply{"-2", "Time Periods Must be Positive"},
          Reply{"3", "The Number of Time Periods to Delete must be less than 3"},
          Reply{"70000", "The Number of Time Periods to Delete must be less than 3"}}) {
        desktop.dialogs.inputs = {reply.Text};
        DeleteTimePeriods();
        EXPECT_EQ(desktop.dialogs.Last(), Refused(reply.Message)) << reply.Text;
        EXPECT_EQ(Problem.PeriodCount, 3) << reply.Text;
    }
}

TEST_F(ForecastEntry, DeleteCountsWhatStandsInTheLastCell)
{
    TheGrid().SetText(3, 1, "44");
    desktop.dialogs.inputs = {"1"};
    DeleteTimePeriods();
    EXPECT_THAT(Cells(), ElementsAre("20", "44"));
}

TEST_F(ForecastEntry, DeleteEndsAtALastCellThatIsRefused)
{
    TheGrid().SetText(3, 1, "4.4.4");
    desktop.dialogs.inputs = {"1"};
    DeleteTimePeriods();
    EXPECT_EQ(desktop.dialogs.Last(), Refused("Values Must be Numeric.  PLEASE REENTER."));
    EXPECT_THAT(desktop.dialogs.prompts, IsEmpty());
    EXPECT_EQ(TheGrid().Row(), 3);
    EXPECT_EQ(TheGrid().focused, 1);
}

TEST_F(ForecastEntry, DeleteAsksAboutAnEmptyLastCellWhenTheQuestionIsStillOpen)
{
    TheGrid().SetText(3, 1, "");
    Session.AskIncomplete = true;
    desktop.dialogs.answers = {Answer::Cancel};
    DeleteTimePeriods();
    EXPECT_EQ(desktop.dialogs.Last().Title, "Problem Incomplete");
    EXPECT_THAT(desktop.dialogs.prompts, IsEmpty());
    desktop.dialogs.answers = {Answer::OK};
    desktop.dialogs.inputs = {"1"};
    DeleteTimePeriods();
    EXPECT_THAT(Cells(), ElementsAre("20", "0"));
}

TEST_F(ForecastEntry, WhatIsBeingTypedCountsBeforePeriodsAreAdded)
{
    Type(2, "25");
    desktop.dialogs.inputs = {"1"};
    if (FinishTyping()) AddTimePeriods();
    EXPECT_THAT(Cells(), ElementsAre("10", "25", "30", ""));
}

TEST_F(ForecastEntry, ACellThatIsEmptiedAndNotLeftIsZeroWhenPeriodsAreAddedOrDeleted)
{
    Type(2, "");
    desktop.dialogs.inputs = {"1", "1"};
    if (FinishTyping()) AddTimePeriods();
    EXPECT_THAT(Cells(), ElementsAre("10", "0", "30", ""));
    Type(3, "");
    if (FinishTyping()) DeleteTimePeriods();
    EXPECT_THAT(Cells(), ElementsAre("0", "0", "0"));
}

TEST_F(ForecastEntry, ARefusedCellIsEnteredAgainBeforePeriodsAreAdded)
{
    Type(2, "2-5");
    if (FinishTyping()) AddTimePeriods();
    EXPECT_EQ(desktop.dialogs.Last(), Refused("Values Must be Numeric.  PLEASE REENTER."));
    EXPECT_THAT(desktop.dialogs.prompts, IsEmpty());
    EXPECT_EQ(TheGrid().Row(), 2);
    EXPECT_EQ(TheGrid().focused, 1);
}

// ---- the method form ----

struct Choice {
    int Method;
    const char* First;
    const char* Second;
    int Refused;  // field, -1: taken
    const char* Message;
};

constexpr const char* kWholePeriods = "NOTE:  THE NUMBER OF PERIODS MUST BE AN INTEGER VALUE.";
constexpr const char* kUpTo11 = "NOTE:  THE NUMBER OF PERIODS MUST BE BETWEEN 1 AND 11";
constexpr const char* kUpTo12 = "NOTE:  THE NUMBER OF PERIODS MUST BE BETWEEN 1 AND 12.";
constexpr const char* kConstant = "NOTE:  THE VALUE OF THE SMOOTHING CONSTANT MUST BE BETWEEN 0 AND 1.";
constexpr const char* kWholeSeasons = "NOTE:  THE NUMBER OF SEASONS MUST BE AN INTEGER VALUE.";
constexpr const char* kFewSeasons = "NOTE:  THE NUMBER OF SEASONS MUST BE AT LEAST 1.";
constexpr const char* kManySeasons = "NOTE:  THE NUMBER OF SEASONS CANNOT BE GREATER THAN 5.5";
constexpr const char* kWholeForecasts = "NOTE:  THE NUMBER OF PERIODS MUST BE AN INTEGER VALUE ";
constexpr const char* kManyForecasts =
    "NOTE:  THE NUMBER OF FORECAST PERIODS MUST BE LESS THAN OR EQUAL TO THE NUMBER OF SEASONS.";

TEST_F(ForecastEntry, EachMethodChecksItsInputsInOrder)
{
    Given(std::vector<double>(11, 1.0));
    const std::vector<Choice> choices = {
        {1, "1", "", -1, ""},
        {1, "11", "", -1, ""},
        {1, "3.0", "", -1, ""},
        {1, "0", "", 0, kUpTo11},
        {1, "12", "", 0, kUpTo11},
        {1, "-1", "", 0, kUpTo11},
        {1, "2.5", "", 0, kWholePeriods},
        {1, "", "", 0, kWholePeriods},
        {1, "k", "", 0, kWholePeriods},
        {2, "0", "", -1, ""},
        {2, "1", "", -1, ""},
        {2, ".3", "", -1, ""},
        {2, "-0.01", "", 0, kConstant},
        {2, "1.01", "", 0, kConstant},
        {2, "", "", 0, kConstant},
        {2, "a", "", 0, kConstant},
        {3, "1", "", -1, ""},
        {3, "12", "", -1, ""},
        {3, "0", "", 0, kUpTo12},
        {3, "13", "", 0, kUpTo12},
        {3, "1.5", "", 0, kWholePeriods},
        {3, "", "", 0, kWholePeriods},
        {4, "1", "1", -1, ""},
        {4, "5", "5", -1, ""},
        {4, "5", "0", -1, ""},
        {4, "5", "-3", -1, ""},
        {4, "6", "1", 0, kManySeasons},
        {4, "0", "1", 0, kFewSeasons},
        {4, "-4", "1", 0, kFewSeasons},
        {4, "2.5", "x", 0, kWholeSeasons},
        {4, "", "", 0, kWholeSeasons},
        {4, "4", "", 1, kWholeForecasts},
        {4, "4", "1.5", 1, kWholeForecasts},
        {4, "4", "5", 1, kManyForecasts},
    };
    for (const Choice& choice : choices) {
        SCOPED_TRACE(std::to_string(choice.Method) + " \"" + choice.First + "\" \"" + choice.Second + "\"");
        desktop.dialogs.messages.clear();
        Session.DialogCancelled = true;
        int pointed = -1;
        const auto point = [&pointed](int box) { pointed = box; };
        EXPECT_EQ(TakeMethod(choice.Method, {choice.First, choice.Second}, point), choice.Refused);
        const bool taken = choice.Refused < 0;
        if (!taken) {
            EXPECT_EQ(pointed, choice.Refused);
        }
        EXPECT_EQ(Session.DialogCancelled, !taken);
        EXPECT_EQ(desktop.dialogs.Last(), taken ? ShownMessage() : Refused(choice.Message));
    }
}

TEST_F(ForecastEntry, ARefusedInputLeavesTheFormerMethod)
{
    Choose(kMovingAverages, "2", "", -1);
    Choose(kExponentialSmoothing, "2", "", 0);
    EXPECT_EQ(Problem.ForecastMethod, kMovingAverages);
    EXPECT_EQ(Problem.MethodParameter, "2");
}

TEST_F(ForecastEntry, InputsAreStoredWithoutSeparators)
{
    Given(std::vector<double>(40, 1.0));
    Choose(kTrendAndSeasonal, "1,2", "1,1", -1);
    EXPECT_EQ(Problem.MethodParameter, "12");
    EXPECT_EQ(Problem.ForecastCount, "11");
    Choose(kTrendProjection, "7", "", -1);
    EXPECT_EQ(Problem.ForecastCount, "7");
}

TEST_F(ForecastEntry, HalfOfAnEvenCountIsWhole)
{
    Given(std::vector<double>(12, 1.0));
    EXPECT_EQ(TakeMethod(kTrendAndSeasonal, {"6", "6"}), -1);
    EXPECT_EQ(TakeMethod(kTrendAndSeasonal, {"7", "6"}), 0);
    EXPECT_EQ(desktop.dialogs.Last(), Refused("NOTE:  THE NUMBER OF SEASONS CANNOT BE GREATER THAN 6"));
}

TEST_F(ForecastEntry, TheIndicatorTellsTheMethodEvenWhenItsInputIsRefused)
{
    const std::vector<std::string> texts = {
        "Forecasting Module - Moving Averages", "Forecasting Module - Exponential Smoothing",
        "Forecasting Module - Trend Projection", "Forecasting Module - Trend && Seasonal Projection"};
    for (int method = 1; method <= 4; ++method) {
        TakeMethod(method, {"", ""});
        EXPECT_EQ(desktop.screen.indicator, texts[static_cast<std::size_t>(method) - 1]);
    }
}

TEST_F(ForecastEntry, LabelsFollowTheMethod)
{
    Given(std::vector<double>(11, 1.0));
    EXPECT_THAT(FieldLabels(1), ElementsAre("Number of Periods in Moving Average:", ""));
    EXPECT_THAT(FieldLabels(2), ElementsAre("Smoothing Constant (0-1):", ""));
    EXPECT_THAT(FieldLabels(3), ElementsAre("Number of Periods to Forescast (MAX=12):", ""));
    EXPECT_THAT(FieldLabels(4),
                ElementsAre("Number of Seasons (MAX=5.5):", "Number of Periods to Forecast:"));
}

TEST_F(ForecastEntry, RangesFollowTheMethod)
{
    Given(std::vector<double>(11, 1.0));
    EXPECT_THAT(FieldRanges(kMovingAverages), ElementsAre("1 to 11", ""));
    EXPECT_THAT(FieldRanges(kExponentialSmoothing), ElementsAre("", ""));
    EXPECT_THAT(FieldRanges(kTrendProjection), ElementsAre("", ""));
    EXPECT_THAT(FieldRanges(kTrendAndSeasonal), ElementsAre("1 or more", "At most the number of seasons"));
}

TEST_F(ForecastEntry, CancelIsTold)
{
    Session.DialogCancelled = false;
    TheMethod.Cancel();
    EXPECT_TRUE(Session.DialogCancelled);
}

}  // namespace
