#include "forecasting/ForecastSteps.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "basic/format.h"
#include "forecasting/SeriesFacts.h"

namespace VtForecasting {
namespace {

using picture::Step;
using Lines = std::vector<std::string>;

constexpr int kPeriodField = 6;
constexpr int kField = 16;

std::string Num(int number)
{
    return std::to_string(number);
}

std::string Period(int t)
{
    return FlushRight(Num(t), kPeriodField);
}

std::string Field(std::string_view text)
{
    return FlushRight(text, kField);
}

// Coefficients count down to a hundred-thousandth of a unit a period.
std::string Fine(double value)
{
    return Format(value, "###,###,##0.00000");
}

class Teller {
public:
    Teller(const ForecastProblem& problem, const ForecastResult& result)
        : problem_(problem), result_(result), n_(result.PeriodCount)
    {
        Forecast(problem, &work_);
    }
    std::vector<Step> Tell();

private:
    Step& Add(std::string heading, Lines figures, std::string why, std::string picture = "Series");
    [[nodiscard]] std::string Value(int t) const { return SeriesText(problem_, result_.Series(t)); }
    [[nodiscard]] std::string ErrorLine(int t) const;
    [[nodiscard]] std::string FittedSpan() const;

    void TellAverages();
    void TellAverage(int period, double forecast, int k);
    void TellSmoothing();
    void TellSmoothed(int period, double forecast);
    void TellTrend();
    void TellSums(const Array1<double>& values, bool seasonal);
    void TellCoefficients(const std::string& what);
    void TellRounding();
    void TellFitted();
    void TellTrendForecasts();
    void TellSeasons();
    void TellCentred();
    void TellRatios();
    void TellScaling();
    void TellDeseasonalized();
    void TellError();
    void TellProof();

    const ForecastProblem& problem_;
    const ForecastResult& result_;
    int n_;
    ForecastWork work_;
    std::vector<Step> steps_;
};

Step& Teller::Add(std::string heading, Lines figures, std::string why, std::string picture)
{
    steps_.push_back({.Heading = std::move(heading),
                      .Figures = std::move(figures),
                      .Why = std::move(why),
                      .Picture = std::move(picture)});
    return steps_.back();
}

std::string Teller::ErrorLine(int t) const
{
    return "error    = " + Value(t) + " - " + ForecastText(result_.Fitted(t)) + " = " +
           SignedText(result_.FitError(t));
}

// ---- moving averages ----

void Teller::TellAverage(int period, double forecast, int k)
{
    double sum = 0;
    Lines terms;
    for (int t = period - k; t < period; ++t) {
        sum += result_.Series(t);
        terms.push_back("period " + Num(t) + ": " + Value(t));
    }
    const std::string span =
        k == 1 ? "period " + Num(period - 1)
               : "periods " + Num(period - k) + (k == 2 ? " and " : " to ") + Num(period - 1);
    Lines lines{"sum of " + span + " = " + ForecastText(sum),
                "forecast = " + ForecastText(sum) + " / " + Num(k) + " = " + ForecastText(forecast)};
    const bool past = period <= n_;
    if (past) lines.push_back(ErrorLine(period));
    Step& step = Add("Period " + Num(period), lines,
                     past ? "The forecast is the mean of the " + (k == 1 ? "value" : Num(k) + " values") +
                                " before the period."
                          : "The last " + (k == 1 ? "value is" : Num(k) + " values are") +
                                " all that the next forecast takes from the series.");
    step.Arithmetic = terms;
    step.Marks = {past ? "fitted" : "forecast"};
}

void Teller::TellAverages()
{
    const int k = static_cast<int>(result_.Parameter);
    for (int t = result_.FirstFittedPeriod; t <= n_; ++t)
        TellAverage(t, result_.Fitted(t), k);
    TellAverage(n_ + 1, result_.NextForecast, k);
}

// ---- exponential smoothing ----

void Teller::TellSmoothed(int period, double forecast)
{
    const double a = result_.Parameter;
    Lines lines{"forecast = " + PlainText(a) + " x " + Value(period - 1) + " + " + PlainText(1 - a) + " x " +
                ForecastText(result_.Fitted(period - 1)) + " = " + ForecastText(forecast)};
    const bool past = period <= n_;
    if (past) lines.push_back(ErrorLine(period));
    Step& step = Add("Period " + Num(period), lines,
                     past ? "The constant weighs the value before the period against its own forecast."
                          : "The next forecast weighs the last value against its forecast.");
    step.Marks = {past ? "fitted" : "forecast"};
}

void Teller::TellSmoothing()
{
    Add("Period 1", {"forecast = " + Value(1)}, "The recursion begins with the first value itself.");
    for (int t = 2; t <= n_; ++t)
        TellSmoothed(t, result_.Fitted(t));
    TellSmoothed(n_ + 1, result_.NextForecast);
}

// ---- trend ----

void Teller::TellSums(const Array1<double>& values, bool seasonal)
{
    Lines rows{FlushRight("t", kPeriodField) + Field("Y") + Field("t x t") + Field("t x Y")};
    for (int t = 1; t <= n_; ++t)
        rows.push_back(Period(t) + Field(ForecastText(values(t))) + Field(Num(t * t)) +
                       Field(ForecastText(t * values(t))));
    rows.push_back(FlushRight(PlainText(work_.SumT), kPeriodField) + Field(ForecastText(work_.SumY)) +
                   Field(PlainText(work_.SumTT)) + Field(ForecastText(work_.SumTY)));
    Add("Sums for the line", rows,
        seasonal ? "The line is laid through the deseasonalized values."
                 : "The line of least squares needs these four sums only.");
}

void Teller::TellCoefficients(const std::string& what)
{
    const std::string n = Num(n_);
    Add("Slope and intercept",
        {"Sxy = sum tY - sum t x sum Y / n = " + ForecastText(work_.SumTY) + " - " + PlainText(work_.SumT) +
             " x " + ForecastText(work_.SumY) + " / " + n + " = " + ForecastText(work_.Sxy),
         "Sxx = sum tt - sum t x sum t / n = " + PlainText(work_.SumTT) + " - " + PlainText(work_.SumT) +
             " x " + PlainText(work_.SumT) + " / " + n + " = " + ForecastText(work_.Sxx),
         "b1  = Sxy / Sxx = " + Fine(work_.TrendSlope),
         "b0  = mean Y - mean t x b1 = " + Fine(work_.TrendIntercept)},
        "These make the sum of the squared distances of the " + what + " from the line the least.");
}

void Teller::TellRounding()
{
    Add("Rounding to thousandths",
        {"b0 = " + Fine(work_.TrendIntercept) + " becomes " + PlainText(result_.TrendIntercept),
         "b1 = " + Fine(work_.TrendSlope) + " becomes " + PlainText(result_.TrendSlope)},
        "The rounded line is the method: all that follows uses it.");
}

void Teller::TellFitted()
{
    Lines rows{"period" + Field("value") + Field("fitted") + Field("error") + Field("squared")};
    for (int t = result_.FirstFittedPeriod; t <= n_; ++t)
        rows.push_back(Period(t) + Field(Value(t)) + Field(ForecastText(result_.Fitted(t))) +
                       Field(SignedText(result_.FitError(t))) +
                       Field(ForecastText(result_.FitError(t) * result_.FitError(t))));
    Step& step = Add(
        "Fitted values and errors", rows,
        result_.Method == kTrendAndSeasonal  ? "Each fitted value is the line times the season's index."
        : result_.Method == kTrendProjection ? "Each fitted value is b0 + b1 x t."
                                             : "The errors are what the forecasts of the past missed by.");
    step.Marks = {"fitted"};
}

void Teller::TellTrendForecasts()
{
    for (int i = 1; i <= result_.ForecastCount; ++i) {
        const int t = n_ + i;
        const bool seasonal = result_.Method == kTrendAndSeasonal;
        const std::string b0 = seasonal ? Fine(result_.TrendIntercept) : PlainText(result_.TrendIntercept);
        const double slope = std::abs(result_.TrendSlope);
        const std::string b1 = seasonal ? Fine(slope) : PlainText(slope);
        std::string line = "forecast = (" + b0;
        line += (result_.TrendSlope < 0 ? " - " : " + ") + b1;
        line += " x " + Num(t) + ")";
        if (seasonal) line += " x " + IndexText(IndexOf(result_, t));
        if (seasonal) line += " (season " + Num(SeasonOf(result_, t)) + ")";
        line += " = " + ForecastText(result_.Forecast(i));
        Step& step =
            Add("Period " + Num(t), {line},
                seasonal ? "The line goes on, and the season comes back." : "The line simply goes on.");
        step.Marks = {"forecast"};
    }
}

void Teller::TellTrend()
{
    TellSums(result_.Series, false);
    TellCoefficients("values");
    TellRounding();
    TellFitted();
    TellTrendForecasts();
}

// ---- seasons ----

void Teller::TellCentred()
{
    Lines rows{"period" + Field("value") + Field("average") + Field("ratio")};
    for (int t = 1; t <= n_; ++t) {
        std::string row = Period(t) + Field(Value(t));
        if (t >= work_.FirstCentred && t <= work_.LastCentred) {
            row += Field(ForecastText(work_.Centred(t)));
            if (work_.Centred(t) != 0) row += Field(IndexText(result_.Series(t) / work_.Centred(t)));
        }
        rows.push_back(row);
    }
    const std::string p = Num(result_.SeasonCount);
    Add("Centred averages and ratios", rows,
        result_.SeasonCount % 2 == 1
            ? "Averages over a cycle of " + p + (p == "1" ? " season" : " seasons") +
                  ", set against their middle, have no season left in them."
            : "Averages over a cycle of " + p +
                  " seasons have no season left in them; of two neighbours the mean stands against a "
                  "period.");
}

void Teller::TellRatios()
{
    for (int s = 1; s <= result_.SeasonCount; ++s) {
        Lines terms;
        double sum = 0;
        for (int t = s; t <= work_.LastCentred; t += result_.SeasonCount) {
            if (t < work_.FirstCentred) continue;
            const double ratio = work_.Centred(t) != 0 ? result_.Series(t) / work_.Centred(t) : 0;
            sum += ratio;
            terms.push_back("period " + Num(t) + ": " + IndexText(ratio));
        }
        Step& step = Add("Mean ratio of season " + Num(s),
                         {"mean = " + IndexText(sum) + " / " + std::to_string(terms.size()) + " = " +
                          IndexText(work_.MeanRatio(s))},
                         terms.size() == 1 ? "One period only has a ratio for this season."
                                           : "The mean over the years evens out what is chance.",
                         "Seasons");
        step.Arithmetic = terms;
        step.Marks = {"seasons"};
    }
}

void Teller::TellScaling()
{
    double sum = 0;
    Lines rows{"season" + Field("mean ratio") + Field("index")};
    for (int s = 1; s <= result_.SeasonCount; ++s) {
        sum += work_.MeanRatio(s);
        rows.push_back(Period(s) + Field(IndexText(work_.MeanRatio(s))) +
                       Field(IndexText(result_.SeasonalIndex(s))));
    }
    rows.push_back("factor = " + Num(result_.SeasonCount) + " / " + IndexText(sum) + " = " +
                   Fine(work_.Factor));
    Step& step = Add("Scaling the indexes", rows, "The factor makes the indexes average 1.", "Seasons");
    step.Marks = {"seasons"};
}

void Teller::TellDeseasonalized()
{
    Lines rows{"period" + Field("value") + Field("index") + Field("without season")};
    for (int t = 1; t <= n_; ++t)
        rows.push_back(Period(t) + Field(Value(t)) + Field(IndexText(IndexOf(result_, t))) +
                       Field(ForecastText(work_.Deseasonalized(t))));
    Add("Deseasonalized values", rows, "Each value is divided by the index of its season.");
}

void Teller::TellSeasons()
{
    TellCentred();
    TellRatios();
    TellScaling();
    if (!HasForecasts(result_)) {
        steps_.back().Why = "An index of zero ends the method: no value can be divided by it.";
        return;
    }
    TellDeseasonalized();
    TellSums(work_.Deseasonalized, true);
    TellCoefficients("deseasonalized values");
    TellFitted();
    TellTrendForecasts();
}

// ---- error and proof ----

void Teller::TellError()
{
    if (!IsTrendMethod(result_)) TellFitted();
    const int divisor = std::max(FittedPeriods(result_), 1);
    const double sum = result_.MeanSquareError * divisor;
    Add("Mean square error",
        {"mean square error = " + ForecastText(sum) + " / " + Num(divisor) + " = " +
             ForecastText(result_.MeanSquareError),
         "its root = " + ForecastText(RootMeanSquareError(result_))},
        "The divisor is the number of fitted periods.", "Errors");
}

std::string Teller::FittedSpan() const
{
    const int count = FittedPeriods(result_);
    if (count <= 1) return "period " + Num(n_);
    return "periods " + Num(result_.FirstFittedPeriod) + (count == 2 ? " and " : " to ") + Num(n_);
}

void Teller::TellProof()
{
    double sum = 0;
    for (int t = result_.FirstFittedPeriod; t <= n_; ++t)
        sum += result_.FitError(t) * result_.FitError(t);
    const int divisor = std::max(FittedPeriods(result_), 1);
    Lines lines{
        "squared errors of " + FittedSpan() + " = " + ForecastText(sum),
        "mean square error x " + Num(divisor) + " = " + ForecastText(result_.MeanSquareError * divisor)};
    if (FittedPeriods(result_) == 0) lines = {"there is no error"};
    Add("Proof", lines,
        FittedPeriods(result_) == 0
            ? "One period leaves nothing to compare a forecast with."
            : "The squared errors add up to the mean square error times their number.",
        "Errors");
}

std::vector<Step> Teller::Tell()
{
    switch (result_.Method) {
        case kMovingAverages:
            TellAverages();
            break;
        case kExponentialSmoothing:
            TellSmoothing();
            break;
        case kTrendProjection:
            TellTrend();
            break;
        default:
            TellSeasons();
            break;
    }
    if (HasForecasts(result_)) {
        TellError();
        TellProof();
    }
    return std::move(steps_);
}

}  // namespace

std::vector<Step> Steps(const ForecastProblem& problem, const ForecastResult& result)
{
    if (result.Method == 0 || result.PeriodCount < 1) return {};
    return Teller(problem, result).Tell();
}

}  // namespace VtForecasting
