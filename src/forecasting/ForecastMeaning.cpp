#include "forecasting/ForecastMeaning.h"

#include <cmath>
#include <string>

#include "basic/format.h"
#include "forecasting/ForecastReport.h"
#include "forecasting/SeriesFacts.h"
#include "picture/words.h"

namespace VtForecasting {
namespace {

using picture::Sentence;
using picture::SentenceKind;

constexpr std::size_t kMostListed = 4;  // forecasts that one sentence lists

std::string Num(int number)
{
    return std::to_string(number);
}

class Sayer {
public:
    Sayer(const ForecastProblem& problem, const ForecastResult& result)
        : problem_(problem), result_(result), n_(result.PeriodCount), forecasts_(ForecastsOf(result))
    {
        Forecast(problem, &work_);
    }
    std::vector<Sentence> Say();

private:
    void Say(SentenceKind kind, std::string text)
    {
        sentences_.push_back({.Kind = kind, .Text = std::move(text)});
    }
    void SayZeroIndexes();
    void SayForecasts();
    void SayLine();
    void SaySeasons();
    void SayErrors();
    void SayComparison();
    void SayLag();
    void SayParameter();
    void SayFirstValue();
    void SayRunsOn();
    void SayRounding();
    void SayThinSeasons();
    void SayZeroAverages();
    void SayBelowZero();
    void SayCutFigures();

    const ForecastProblem& problem_;
    const ForecastResult& result_;
    int n_;
    std::vector<double> forecasts_;
    ForecastWork work_;
    std::vector<Sentence> sentences_;
};

// ---- results ----

void Sayer::SayZeroIndexes()
{
    std::vector<std::string> seasons;
    for (int s = 1; s <= result_.SeasonCount; ++s)
        if (result_.SeasonalIndex(s) == 0) seasons.push_back(Num(s));
    const bool one = seasons.size() == 1;
    Say(SentenceKind::Result,
        std::string("There is no forecast: the ") + (one ? "index of season " : "indexes of seasons ") +
            picture::Listed(seasons) + (one ? " is" : " are") + " zero, and nothing can be divided by zero.");
}

void Sayer::SayForecasts()
{
    const int count = static_cast<int>(forecasts_.size());
    if (count == 0) {
        Say(SentenceKind::Result, "No period was to be forecast.");
        return;
    }
    const std::string first = Num(n_ + 1);
    const std::string last = Num(n_ + count);
    if (count == 1) {
        Say(SentenceKind::Result,
            "The forecast for period " + first + " is " + ForecastText(forecasts_[0]) + ".");
    } else if (forecasts_.size() <= kMostListed) {
        std::vector<std::string> texts;
        for (const double forecast : forecasts_)
            texts.push_back(ForecastText(forecast));
        Say(SentenceKind::Result, "The forecasts for periods " + first + (count == 2 ? " and " : " to ") +
                                      last + " are " + picture::Listed(texts) + ".");
    } else {
        Say(SentenceKind::Result, "The " + Num(count) + " forecasts go from " +
                                      ForecastText(forecasts_.front()) + " for period " + first + " to " +
                                      ForecastText(forecasts_.back()) + " for period " + last + ".");
    }
}

// The slope as the report has it (three decimals at most), or in as many.
void Sayer::SayLine()
{
    if (!IsTrendMethod(result_)) return;
    const std::string start =
        result_.Method == kTrendProjection ? "The trend " : "Without the seasons the trend ";
    const std::string slope = IndexText(std::abs(result_.TrendSlope));
    if (slope == IndexText(0))
        Say(SentenceKind::Result, start + "is level.");
    else
        Say(SentenceKind::Result, start + (result_.TrendSlope > 0 ? "rises by " : "falls by ") + slope +
                                      " from one period to the next.");
}

void Sayer::SaySeasons()
{
    if (result_.Method != kTrendAndSeasonal) return;
    if (result_.SeasonCount == 1) {
        Say(SentenceKind::Result, "With one season nothing is seasonal: its index is 1.");
        return;
    }
    int highest = 1;
    int lowest = 1;
    for (int s = 2; s <= result_.SeasonCount; ++s) {
        if (result_.SeasonalIndex(s) > result_.SeasonalIndex(highest)) highest = s;
        if (result_.SeasonalIndex(s) < result_.SeasonalIndex(lowest)) lowest = s;
    }
    const std::string top = IndexText(result_.SeasonalIndex(highest));
    const std::string bottom = IndexText(result_.SeasonalIndex(lowest));
    if (top == bottom)
        Say(SentenceKind::Result, "The seasons do not differ: each index is " + top + ".");
    else
        Say(SentenceKind::Result, "Season " + Num(highest) + " runs at " + top +
                                      " of the average season, season " + Num(lowest) + " at " + bottom +
                                      ".");
}

// ---- errors ----

void Sayer::SayErrors()
{
    if (FittedPeriods(result_) == 0) {
        Say(SentenceKind::Limit,
            "There is one period only: no forecast of the past can be compared with it.");
        return;
    }
    const std::string root = ForecastText(RootMeanSquareError(result_));
    if (root == ForecastText(0))
        Say(SentenceKind::Limit, "The method meets every past value; that is no promise for the future.");
    else
        Say(SentenceKind::Limit, "Past forecasts missed by about " + root +
                                     " (root of the mean square error); the future may miss by more.");
}

void Sayer::SayComparison()
{
    if (FittedPeriods(result_) == 0) return;
    if (IsTrendMethod(result_))
        Say(SentenceKind::Caution,
            "The errors are those of a line fitted to the same values; the mean square error of a method "
            "that forecasts each period from those before it cannot be compared with theirs as it stands.");
    else
        Say(SentenceKind::Caution,
            "The mean square error is over " +
                (FittedPeriods(result_) == 1
                     ? "period " + Num(n_)
                     : "periods " + Num(result_.FirstFittedPeriod) +
                           (FittedPeriods(result_) == 2 ? " and " : " to ") + Num(n_)) +
                "; that of another method may cover other periods, and the two cannot be compared as they "
                "are.");
}

// Averages of the past come behind a series that goes one way.
void Sayer::SayLag()
{
    constexpr int kFewest = 3;
    constexpr double kShare = 0.5;  // of the typical error, on one side
    const double mean = MeanError(result_);
    if (IsTrendMethod(result_) || FittedPeriods(result_) < kFewest) return;
    if (std::abs(mean) < kShare * RootMeanSquareError(result_) || ForecastText(mean) == ForecastText(0))
        return;
    Say(SentenceKind::Caution, "On average the past forecasts were " + ForecastText(std::abs(mean)) +
                                   (mean > 0 ? " too low" : " too high") +
                                   ": this method lags behind a series that goes one way.");
}

// Constants with which a method does nothing.
void Sayer::SayParameter()
{
    const double parameter = result_.Parameter;
    if (result_.Method == kMovingAverages && parameter == 1)
        Say(SentenceKind::Caution, "An average of one period repeats the value before.");
    if (result_.Method != kExponentialSmoothing || n_ == 1) return;
    if (parameter == 0)
        Say(SentenceKind::Caution, "With a smoothing constant of 0 every forecast is the first value.");
    if (parameter == 1)
        Say(SentenceKind::Caution, "With a smoothing constant of 1 every forecast is the value before.");
}

// The start of the recursion is the first value; its weight shrinks with every period.
void Sayer::SayFirstValue()
{
    constexpr double kMuch = 0.1;
    if (result_.Method != kExponentialSmoothing || n_ == 1 || result_.Parameter == 0) return;
    const double weight = std::pow(1 - result_.Parameter, n_ - 1);
    if (weight < kMuch) return;
    Say(SentenceKind::Caution, "The first value still has a weight of " + Format(weight, "0.00") +
                                   " in the forecast, as the recursion begins with it.");
}

void Sayer::SayRunsOn()
{
    if (!IsTrendMethod(result_) || forecasts_.empty()) return;
    Say(SentenceKind::Caution,
        (forecasts_.size() == 1 ? std::string("The forecast runs on") : std::string("All forecasts run on")) +
            " along the line; the data cover " + picture::Counted(n_, "period") + " only.");
}

void Sayer::SayRounding()
{
    if (result_.Method != kTrendProjection || forecasts_.empty()) return;
    const int last = n_ + static_cast<int>(forecasts_.size());
    const std::string exact = ForecastText(work_.TrendIntercept + work_.TrendSlope * last);
    if (exact == ForecastText(forecasts_.back())) return;
    Say(SentenceKind::Caution, "The line is rounded to thousandths before it is used; unrounded it gives " +
                                   exact + " for period " + Num(last) + ", not " +
                                   ForecastText(forecasts_.back()) + ".");
}

// ---- seasons that rest on little ----

void Sayer::SayThinSeasons()
{
    if (result_.Method != kTrendAndSeasonal) return;
    std::vector<std::string> thin;
    for (int s = 1; s <= result_.SeasonCount; ++s) {
        int ratios = 0;
        for (int t = s; t <= work_.LastCentred; t += result_.SeasonCount)
            if (t >= work_.FirstCentred) ++ratios;
        if (ratios == 1) thin.push_back(Num(s));
    }
    if (thin.empty()) return;
    const bool one = thin.size() == 1;
    Say(SentenceKind::Caution, std::string(one ? "The index of season " : "The indexes of seasons ") +
                                   picture::Listed(thin) +
                                   (one ? " rests on one period." : " rest on one period each."));
}

void Sayer::SayZeroAverages()
{
    if (result_.Method != kTrendAndSeasonal) return;
    std::vector<std::string> periods;
    for (int t = work_.FirstCentred; t <= work_.LastCentred; ++t)
        if (work_.Centred(t) == 0) periods.push_back(Num(t));
    if (periods.empty()) return;
    const bool one = periods.size() == 1;
    Say(SentenceKind::Caution,
        std::string(one ? "The average around period " : "The averages around periods ") +
            picture::Listed(periods) +
            (one ? " is 0: its ratio counts as 0." : " are 0: their ratios count as 0."));
}

// ---- figures ----

void Sayer::SayBelowZero()
{
    for (int t = 1; t <= n_; ++t)
        if (result_.Series(t) < 0) return;
    int period = n_;
    for (const double forecast : forecasts_) {
        ++period;
        if (forecast >= 0) continue;
        Say(SentenceKind::Caution,
            "The forecast for period " + Num(period) + " is below 0, although no value of the series is.");
        return;
    }
}

void Sayer::SayCutFigures()
{
    const SeriesFields& fields = FieldsOf(problem_);
    std::vector<std::string> cut;
    const auto look = [&cut](const std::string& name, const std::string& text, int width) {
        if (text.size() > static_cast<std::size_t>(width)) cut.push_back(name + " (" + text + ")");
    };
    for (int t = 1; t <= n_; ++t) {
        const std::string period = " of period " + Num(t);
        look("the value" + period, SeriesText(problem_, result_.Series(t)), fields.ValueWidth);
        if (!HasForecasts(result_) || t < result_.FirstFittedPeriod) continue;
        look("the fitted value" + period, ForecastText(result_.Fitted(t)), fields.ForecastWidth);
        look("the error" + period, ForecastText(result_.FitError(t)), fields.ErrorWidth);
    }
    int period = n_;
    for (const double forecast : forecasts_)
        look("the forecast of period " + Num(++period), Format(forecast, "0.00"), WidthOfForecast(result_));
    if (!cut.empty())
        Say(SentenceKind::Caution,
            "The report cuts figures that do not fit their field: " + picture::Listed(cut, 2) + ".");
}

std::vector<Sentence> Sayer::Say()
{
    if (!HasForecasts(result_)) {
        SayZeroIndexes();
        SayThinSeasons();
        SayZeroAverages();
        return std::move(sentences_);
    }
    SayForecasts();
    SayLine();
    SaySeasons();
    SayErrors();
    SayRunsOn();
    SayRounding();
    SayLag();
    SayParameter();
    SayFirstValue();
    SayThinSeasons();
    SayZeroAverages();
    SayBelowZero();
    SayCutFigures();
    SayComparison();
    return std::move(sentences_);
}

}  // namespace

std::vector<Sentence> Meaning(const ForecastProblem& problem, const ForecastResult& result)
{
    if (result.Method == 0 || result.PeriodCount < 1) return {};
    return Sayer(problem, result).Say();
}

}  // namespace VtForecasting
