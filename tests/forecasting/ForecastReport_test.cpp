#include "forecasting/ForecastReport.h"

#include <gmock/gmock.h>

#include "forecasting/forecasting_support.h"
#include "forecasting/module.h"
#include "shell/session.h"
#include "shell/solution.h"
#include "support/fake_desktop.h"

using namespace VtForecasting;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Lines : public ReportChannel {
public:
    std::vector<std::string> lines;
    void NewPage() override {}
    [[nodiscard]] bool OnPaper() const override { return true; }

private:
    void Write(std::string_view text) override { lines.emplace_back(text); }
};

class ForecastReport : public ::testing::Test {
protected:
    ForecastReport() { Session = {}; }

    // The report on screen, after the method form was filled so.
    std::vector<std::string> Solved(int method, const std::string& first, const std::string& second = "")
    {
        desktop.forms.onModal["frmForecastingModels"] = [=] { TakeMethod(method, {first, second}); };
        if (!Forecasting().Prepare()) return {};
        const SolveOutcome outcome = Forecasting().Solve();
        SolutionPage page;
        Forecasting().Page(page);
        for (const Notice& notice : outcome.After)
            MsgBox(notice.Text, notice.Title, notice.Sign);
        return SolutionLines();
    }

    static std::vector<std::string> Printed()
    {
        Lines out;
        WriteReport(out);
        return out.lines;
    }

    FakeDesktop desktop;
};

TEST_F(ForecastReport, MovingAveragesOnScreen)
{
    Given({17, 21, 19, 23});
    EXPECT_THAT(Solved(kMovingAverages, "3"),
                ElementsAre("Forecasting Solution",                                                    //
                            "",                                                                        //
                            "FORECASTING WITH MOVING AVERAGES",                                        //
                            "********************************",                                        //
                            "",                                                                        //
                            "     TIME PERIOD     TIME SERIES VALUE     FORECAST     FORECAST ERROR",  //
                            "     ===========     =================     ========     ==============",  //
                            "           1                 17",                                         //
                            "           2                 21",                                         //
                            "           3                 19",                                         //
                            "           4                 23     19.00      4.00",                     //
                            "",                                                                        //
                            "     THE MEAN SQUARE ERROR                16.00",                         //
                            "",                                                                        //
                            "     THE FORECAST FOR PERIOD 5            21.00"));
    EXPECT_THAT(desktop.dialogs.messages, IsEmpty());
}

TEST_F(ForecastReport, MovingAveragesPrinted)
{
    Given({17, 21, 19, 23});
    Solved(kMovingAverages, "3");
    EXPECT_THAT(Printed(),
                ElementsAre("",                                                                        //
                            "     FORECASTING WITH MOVING AVERAGES",                                   //
                            "     ********************************",                                   //
                            "     THE MOVING AVERAGE USES 3 TIME PERIODS",                             //
                            "",                                                                        //
                            "     TIME PERIOD     TIME SERIES VALUE     FORECAST     FORECAST ERROR",  //
                            "     ===========     =================     ========     ==============",  //
                            "           1                 17",                                         //
                            "           2                 21",                                         //
                            "           3                 19",                                         //
                            "           4                 23     19.00      4.00",                     //
                            "",                                                                        //
                            "     THE MEAN SQUARE ERROR              16.00",                           //
                            "",                                                                        //
                            "     THE FORECAST FOR PERIOD 5            21.00"));
}

TEST_F(ForecastReport, ExponentialSmoothingInBothForms)
{
    Given({10, 20});
    const auto screen = Solved(kExponentialSmoothing, ".5");
    EXPECT_EQ(screen[2], "FORECASTING WITH EXPONENTIAL SMOOTHING");
    EXPECT_EQ(screen[3], "**************************************");
    EXPECT_EQ(screen[7], "           1                 10");
    EXPECT_EQ(screen[8], "           2                 20     10.00     10.00");
    EXPECT_EQ(screen.back(), "     THE FORECAST FOR PERIOD 3            15.00");
    const auto printed = Printed();
    EXPECT_EQ(printed[1], "     FORECASTING WITH EXPONENTIAL SMOOTHING");
    EXPECT_EQ(printed[2], "     **************************************");
    EXPECT_EQ(printed[3], "     THE SMOOTHING CONSTANT IS 0.5 ");
    EXPECT_EQ(printed[4], "");
}

TEST_F(ForecastReport, TrendProjectionOnScreen)
{
    Given({5, 3, 1});
    EXPECT_THAT(Solved(kTrendProjection, "2"),
                ElementsAre("Forecasting Solution",                                                    //
                            "",                                                                        //
                            "FORECASTING WITH LINEAR TREND",                                           //
                            "*****************************",                                           //
                            "",                                                                        //
                            "THE LINEAR TREND EQUATION:",                                              //
                            "",                                                                        //
                            "                 T  = 7 - 2 t",                                           //
                            "          where  T  =  trend value of the time series in period t",       //
                            "",                                                                        //
                            "     TIME PERIOD     TIME SERIES VALUE     FORECAST     FORECAST ERROR",  //
                            "     ===========     =================     ========     ==============",  //
                            "           1                  5      5.00      0.00",                     //
                            "           2                  3      3.00      0.00",                     //
                            "           3                  1      1.00      0.00",                     //
                            "",                                                                        //
                            "     THE MEAN SQUARE ERROR                 0.00",                         //
                            "",                                                                        //
                            "     THE FORECAST FOR PERIOD 4            -1.00",                         //
                            "     THE FORECAST FOR PERIOD 5            -3.00"));
}

TEST_F(ForecastReport, TrendProjectionPrinted)
{
    Given({0.5, 1, 1.5});
    Solved(kTrendProjection, "1");
    const auto lines = Printed();
    const std::vector<std::string> begin(lines.begin(), lines.begin() + 9);
    EXPECT_THAT(begin, ElementsAre("",                                                                   //
                                   "     FORECASTING WITH LINEAR TREND",                                 //
                                   "     *****************************",                                 //
                                   "",                                                                   //
                                   "     THE LINEAR TREND EQUATION:",                                    //
                                   "",                                                                   //
                                   "                 T  = 0 + 0.5 t",                                    //
                                   "          where  T  =  trend value of the time series in period t",  //
                                   ""));
}

TEST_F(ForecastReport, TrendAndSeasonalInBothForms)
{
    Given({2, 6, 4, 10, 6, 14});
    auto screen = Solved(kTrendAndSeasonal, "2", "2");
    screen.resize(11);
    EXPECT_THAT(screen,
                ElementsAre("Forecasting Solution",                                                    //
                            "",                                                                        //
                            "FORECASTING WITH TREND AND SEASONAL COMPONENTS",                          //
                            "**********************************************",                          //
                            "SEASON     SEASONAL INDEX",                                               //
                            "======     ==============",                                               //
                            "            1            0.667",                                          //
                            "            2            1.333",                                          //
                            "",                                                                        //
                            "     TIME PERIOD     TIME SERIES VALUE     FORECAST     FORECAST ERROR",  //
                            "     ===========     =================     ========     =============="));
    EXPECT_EQ(SolutionLines().back(), "     THE FORECAST FOR PERIOD 8            18.00");
    auto printed = Printed();
    printed.resize(8);
    EXPECT_THAT(printed, ElementsAre("",                                                    //
                                     "    FORECASTING WITH TREND AND SEASONAL COMPONENTS",  //
                                     "    **********************************************",  //
                                     "            SEASON      SEASONAL INDEX",              //
                                     "            ------      --------------",              //
                                     "                 1               0.667",              //
                                     "                 2               1.333",              //
                                     ""));
}

TEST_F(ForecastReport, FieldsFollowTheDecimalPlaces)
{
    const std::vector<std::string> rows = {
        "           2              1,235  1,000.50    234.00",
        "           2                      1,234.5          1,000.50           234.00",
        "           2                    1,234.50          1,000.50           234.00",
    };
    for (int places = 0; places <= 2; ++places) {
        Given({1000.5, 1234.5});
        Problem.DecimalPlaces = places;
        EXPECT_THAT(Solved(kMovingAverages, "1"), Contains(rows[static_cast<std::size_t>(places)]));
        EXPECT_THAT(Printed(), Contains(rows[static_cast<std::size_t>(places)]));
    }
    Problem.DecimalPlaces = 3.0;
    EXPECT_THAT(Printed(), Contains(rows[2]));
}

TEST_F(ForecastReport, TheGapMakesUpForTheDigitsOfThePeriod)
{
    const auto lastOf = [this](int n, int method, const char* first) {
        Given(std::vector<double>(static_cast<std::size_t>(n), 7.0));
        return Solved(method, first).back();
    };
    EXPECT_EQ(lastOf(8, 1, "1"), "     THE FORECAST FOR PERIOD 9             7.00");
    EXPECT_EQ(lastOf(9, 1, "1"), "     THE FORECAST FOR PERIOD 10            7.00");
    EXPECT_EQ(lastOf(99, 1, "1"), "     THE FORECAST FOR PERIOD 100           7.00");
    EXPECT_EQ(lastOf(8, 3, "1"), "     THE FORECAST FOR PERIOD 9             7.00");
    EXPECT_EQ(lastOf(8, 3, "2"), "     THE FORECAST FOR PERIOD 10            7.00");
    EXPECT_EQ(lastOf(100, 3, "12"), "     THE FORECAST FOR PERIOD 112           7.00");
}

// The field of a trend has 11 columns, that of an average 13.
TEST_F(ForecastReport, ALongForecastIsCutLaterInAnAverage)
{
    Given({123456789012.0, 123456789012.0, 123456789012.0, 123456789012.0});
    EXPECT_EQ(Solved(kMovingAverages, "1").back(), "     THE FORECAST FOR PERIOD 5    123456789012.");
    EXPECT_EQ(Solved(kTrendProjection, "1").back(), "     THE FORECAST FOR PERIOD 5      12345678901");
    EXPECT_EQ(Solved(kTrendAndSeasonal, "1", "1").back(), "     THE FORECAST FOR PERIOD 5      12345678901");
}

TEST_F(ForecastReport, ALevelTrendHasAPlus)
{
    Given({5, 5, 5});
    EXPECT_THAT(Solved(kTrendProjection, "1"), Contains("                 T  = 5 + 0 t"));
}

TEST_F(ForecastReport, LongNumbersLoseTheirLastDigits)
{
    Given({1234567890123.0, 1234567890123.0});
    EXPECT_THAT(Solved(kMovingAverages, "1"), Contains("           1        1,234,567,8"));
}

TEST_F(ForecastReport, NoPeriodsToForecastLeaveTheBlankLine)
{
    Given({2, 6, 4, 10, 6, 14});
    const auto lines = Solved(kTrendAndSeasonal, "2", "0");
    EXPECT_EQ(lines.back(), "");
    EXPECT_EQ(lines[lines.size() - 2], "     THE MEAN SQUARE ERROR                 0.00");
}

// ---- indexes of zero ----

TEST_F(ForecastReport, OneZeroIndexStopsWithAWarning)
{
    Given({0, 5, 0, 7, 0, 9});
    EXPECT_THAT(Solved(kTrendAndSeasonal, "2", "2"),
                ElementsAre("Forecasting Solution",                            //
                            "",                                                //
                            "FORECASTING WITH TREND AND SEASONAL COMPONENTS",  //
                            "**********************************************",  //
                            "SEASON     SEASONAL INDEX",                       //
                            "======     ==============",                       //
                            "            1            0.000",                  //
                            "            2            2.000"));
    EXPECT_EQ(
        desktop.dialogs.Last(),
        (ShownMessage{"1 seasonal index is zero.  The data cannot be deseasonalized for this season.  We "
                      "suggest that you remove this seasons from your time series and develop forecasts "
                      "based on the  1 nonzero seasons.",
                      "WARNING!", Icon::Information, Buttons::OK}));
    EXPECT_THAT(Printed(),
                ElementsAre("",                                                                   //
                            "    FORECASTING WITH TREND AND SEASONAL COMPONENTS",                 //
                            "    **********************************************",                 //
                            "            SEASON      SEASONAL INDEX",                             //
                            "            ------      --------------",                             //
                            "                 1               0.000",                             //
                            "                 2               2.000",                             //
                            "     WARNING:  1 seasonal index is zero.  The data cannot be",       //
                            "     deseasonalized for this season.  We suggest that you remove ",  //
                            "     this seasons from your time series and develop forecasts based"));
}

TEST_F(ForecastReport, SeveralZeroIndexesStopWithAWarning)
{
    Given({0, 0, 4, 4, 0, 0, 4, 4});
    Solved(kTrendAndSeasonal, "4", "1");
    EXPECT_EQ(desktop.dialogs.Last(),
              (ShownMessage{" 2 seasonal indexes are zero.  The data cannot be deseasonalized for these "
                            "seasons.  We suggest that you remove these seasons from your time series and "
                            "develop forecasts based on the  2 nonzero seasons.",
                            "WARNING!", Icon::Information, Buttons::OK}));
    const auto lines = Printed();
    const std::vector<std::string> end(lines.end() - 4, lines.end());
    EXPECT_THAT(end, ElementsAre("     WARNING:  ## seasonal indexes are zero.  The data cannot be",
                                 "     deseasonalized for these seasons.  We suggest that you remove ",
                                 "     these seasons from your time series and develop forecasts based",
                                 "     on the ## nonzero seasons."));
}

// ---- the method form is cancelled ----

TEST_F(ForecastReport, ACancelledMethodFormSolvesNothing)
{
    Given({1, 2, 3});
    desktop.forms.onModal["frmForecastingModels"] = [] { TheMethod.Cancel(); };
    EXPECT_FALSE(Forecasting().Prepare());
    EXPECT_THAT(Printed(), IsEmpty());
}

TEST_F(ForecastReport, ACancelledMethodFormKeepsTheFormerReport)
{
    Given({17, 21, 19, 23});
    Solved(kMovingAverages, "3");
    const auto before = Printed();
    desktop.forms.onModal["frmForecastingModels"] = [] { TheMethod.Cancel(); };
    EXPECT_FALSE(Forecasting().Prepare());
    EXPECT_EQ(Printed(), before);
}

}  // namespace
