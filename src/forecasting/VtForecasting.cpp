#include "forecasting/VtForecasting.h"

#include <optional>

#include "basic/entrytext.h"
#include "basic/format.h"
#include "basic/number.h"
#include "basic/numberrow.h"
#include "basic/numbertext.h"
#include "desktop/desktop.h"
#include "shell/checks.h"
#include "shell/module.h"
#include "shell/session.h"
#include "shell/userinput.h"
#include "tableau/decimals.h"
#include "tableau/tanumchk.h"

namespace VtForecasting {

ForecastProblem Problem;
ForecastResult Result;
ModalDialog<NoQuestion, MethodChoice> TheMethod;

namespace {

constexpr const char* kForm = "frmProblem";
constexpr const char* kGrid = "gridDisplayEdit";

Grid& SeriesGrid()
{
    return desktop::TheForms().Loaded(kForm).GridOf(kGrid);
}

void FillGrid(bool withValues)
{
    constexpr int kValueWidth = 20;
    Grid& grid = SeriesGrid();
    grid.Resize(Problem.PeriodCount + 1, 2);
    grid.SetColumnWidth(1, kValueWidth);
    grid.SetText(0, 0, "Period");
    grid.SetText(0, 1, "Time Series Value");
    for (int t = 1; t <= Problem.PeriodCount; ++t) {
        grid.SetText(t, 0, std::to_string(t));
        if (withValues) grid.SetText(t, 1, EntryText(Problem.TimeSeries(t)));
    }
}

// The value of a whole number, which may be written with a point; nothing for other texts.
std::optional<double> WholeNumber(std::string_view text)
{
    const NumberText number = CheckNumber(text);
    if (!number.IsNumber || number.Value() != Int(number.Value())) return std::nullopt;
    return number.Value();
}

bool CommitGridCell(int row)
{
    const int code = CommitCell(row, 1, SeriesGrid().Text(row, 1));
    if (AcceptCell(code, kForm, kGrid, row, 1)) return true;
    if (code == kCellRefused) SeriesGrid().SetFocus();
    return false;
}

}  // namespace

void MakeArrays()
{
    Problem.TimeSeries = Array1<Variant>(kMostPeriods);
    Problem.DecimalPlaces = 0.0;
    Problem.ForecastMethod = 0;
    Problem.MethodParameter.clear();
    Problem.ForecastCount.clear();
    Result = {};
}

bool Ask()
{
    const auto answers =
        AskSizes({.Caption = " Time Periods",
                  .Questions = {{.Question = "Enter Number of Time Periods (MAX=100):",
                                 .Least = 1,
                                 .Most = kMostPeriods,
                                 .RangeMessage = "YOU MAY ONLY SELECT A NUMBER BETWEEN 1 AND 100.  "
                                                 "PLEASE TRY AGAIN."}}});
    if (answers.empty()) return false;
    Problem.PeriodCount = answers[0];
    MakeArrays();
    return true;
}

void Fill()
{
    Form& form = desktop::TheForms().Loaded(kForm);
    form.SetText("lblInfo", "Enter Time Series Value for Each Period.");
    form.SetVisible("lblInfo", true);
    FillGrid(!Session.NewProblem);
    form.SetVisible(kGrid, true);
}

int CommitCell(int row, int column, std::string_view text)
{
    if (row < 1 || column != 1) return kCellStored;
    if (text.empty()) {
        NoteEmptyText();
        Problem.TimeSeries(row) = 0.0;
        return EmptyCell();
    }
    const NumberText number = CheckNumber(UpperCase(text));
    if (!number.IsNumber) return RefuseCell("Values Must be Numeric.  PLEASE REENTER.");
    const double value = number.Value();
    Problem.TimeSeries(row) = value;
    RaiseDecimalPlaces(Problem.DecimalPlaces, value);
    return kCellStored;
}

std::vector<double> Numbers()
{
    NumberRow row;
    row.Write(Problem.PeriodCount);
    row.Write(Problem.DecimalPlaces);
    for (int t = 1; t <= Problem.PeriodCount; ++t)
        row.Write(Problem.TimeSeries(t));
    return row.Take();
}

void TakeNumbers(const std::vector<double>& numbers)
{
    NumberRowReader row(numbers);
    row.ReadInto(Problem.PeriodCount);
    Problem.DecimalPlaces = row.ReadVariant();
    for (int t = 1; t <= Problem.PeriodCount; ++t)
        Problem.TimeSeries(t) = row.ReadVariant();
}

// ---- adding and deleting periods ----

namespace {

bool MayAdd(const std::optional<double>& count)
{
    if (!count) return Refuse("The Number of Time Periods must be an Integer!!");
    if (*count <= 0) return Refuse("Time Periods to Add Must be Positive");
    if (Problem.PeriodCount + *count > kMostPeriods)
        return Refuse("The Number of Time Periods must not Exceed 100  PLEASE TRY AGAIN.");
    return true;
}

bool MayDelete(const std::optional<double>& count)
{
    if (!count) return Refuse("The Time Periods must be an Integer!!");
    if (*count <= 0) return Refuse("Time Periods Must be Positive");
    if (*count >= Problem.PeriodCount)
        return Refuse("The Number of Time Periods to Delete must be less than " +
                      std::to_string(Problem.PeriodCount));
    return true;
}

}  // namespace

void AddTimePeriods()
{
    const std::string answer = InputBox(
        "Enter the Number of Time Periods to Add (Data will be added to the end of the time series.):",
        "Add Time Periods");
    if (answer.empty()) return;
    const auto added = WholeNumber(answer);
    if (!MayAdd(added)) return;
    const int first = Problem.PeriodCount + 1;
    Problem.PeriodCount = ToInt16(Problem.PeriodCount + *added);
    for (int t = first; t <= Problem.PeriodCount; ++t)
        Problem.TimeSeries(t) = Variant();
    FillGrid(true);
    SeriesGrid().Select(first, 1);
}

void DeleteTimePeriods()
{
    if (!CommitGridCell(Problem.PeriodCount)) return;
    const std::string answer = InputBox(
        "Enter the Number of Time Periods to Delete (Data will be deleted from the beginning of the time "
        "series.):",
        "Delete Time Periods");
    if (answer.empty()) return;
    const auto count = WholeNumber(answer);
    if (!MayDelete(count)) return;
    const std::int16_t deleted = ToInt16(*count);
    Problem.PeriodCount = ToInt16(Problem.PeriodCount - deleted);
    for (int t = 1; t <= Problem.PeriodCount; ++t)
        Problem.TimeSeries(t) = Problem.TimeSeries(t + deleted);
    FillGrid(true);
}

// ---- the method and its inputs ----

namespace {

std::string HalfThePeriods()
{
    return PlainText(Problem.PeriodCount / 2.0);
}

// The text is a whole number from 1 to `most`. The message ends in the limit, a fixed one with a full stop.
bool IsPeriodCount(std::string_view text, int most, const char* stop = "")
{
    const auto count = WholeNumber(text);
    if (!count) return Refuse("NOTE:  THE NUMBER OF PERIODS MUST BE AN INTEGER VALUE.");
    if (*count < 1 || *count > most)
        return Refuse("NOTE:  THE NUMBER OF PERIODS MUST BE BETWEEN 1 AND " + std::to_string(most) + stop);
    return true;
}

bool IsSmoothingConstant(std::string_view text)
{
    const NumberText constant = CheckNumber(text);
    if (constant.IsNumber && constant.Value() >= 0 && constant.Value() <= 1) return true;
    return Refuse("NOTE:  THE VALUE OF THE SMOOTHING CONSTANT MUST BE BETWEEN 0 AND 1.");
}

bool IsSeasonCount(std::string_view text)
{
    const auto seasons = WholeNumber(text);
    if (!seasons) return Refuse("NOTE:  THE NUMBER OF SEASONS MUST BE AN INTEGER VALUE.");
    if (*seasons < 1) return Refuse("NOTE:  THE NUMBER OF SEASONS MUST BE AT LEAST 1.");
    if (*seasons > Problem.PeriodCount / 2.0)
        return Refuse("NOTE:  THE NUMBER OF SEASONS CANNOT BE GREATER THAN " + HalfThePeriods());
    return true;
}

bool IsForecastCount(std::string_view text, double seasons)
{
    const auto count = WholeNumber(text);
    if (!count) return Refuse("NOTE:  THE NUMBER OF PERIODS MUST BE AN INTEGER VALUE ");
    if (*count > seasons)
        return Refuse(
            "NOTE:  THE NUMBER OF FORECAST PERIODS MUST BE LESS THAN OR EQUAL TO THE NUMBER OF "
            "SEASONS.");
    return true;
}

using FieldTexts = std::array<std::string, 2>;  // of the two fields of a method

// What is particular to a method: how it stands in the status text, the labels of its fields and the values
// that they take, and the check of the first one. An empty label has no field.
struct Method {
    std::string_view Indicator;
    FieldTexts (*Labels)();
    FieldTexts (*Ranges)();
    bool (*CheckFirst)(std::string_view text);
};

const Method& MethodOf(int method)
{
    static const std::array<Method, 4> methods{{
        {"Forecasting Module - Moving Averages",
         [] {
             return FieldTexts{"Number of Periods in Moving Average:", ""};
         },
         [] {
             return FieldTexts{"1 to " + std::to_string(Problem.PeriodCount), ""};
         },
         [](std::string_view text) { return IsPeriodCount(text, Problem.PeriodCount); }},
        {"Forecasting Module - Exponential Smoothing",
         [] {
             return FieldTexts{"Smoothing Constant (0-1):", ""};
         },
         [] { return FieldTexts{}; }, IsSmoothingConstant},
        {"Forecasting Module - Trend Projection",
         [] {
             return FieldTexts{"Number of Periods to Forescast (MAX=12):", ""};
         },
         [] { return FieldTexts{}; },
         [](std::string_view text) { return IsPeriodCount(text, kMostTrendForecasts, "."); }},
        {"Forecasting Module - Trend && Seasonal Projection",
         [] {
             return FieldTexts{"Number of Seasons (MAX=" + HalfThePeriods() + "):",
                               "Number of Periods to Forecast:"};
         },
         [] {
             return FieldTexts{"1 or more", "At most the number of seasons"};
         },
         IsSeasonCount},
    }};
    return methods.at(static_cast<std::size_t>(method) - 1);
}

}  // namespace

bool AskMethod()
{
    const auto choice = TheMethod.Ask("frmForecastingModels");
    if (!choice) return false;
    Problem.ForecastMethod = choice->Method;
    Problem.MethodParameter = choice->Parameter;
    Problem.ForecastCount = choice->ForecastCount;
    return true;
}

std::array<std::string, 2> FieldLabels(int method)
{
    return MethodOf(method).Labels();
}

std::array<std::string, 2> FieldRanges(int method)
{
    return MethodOf(method).Ranges();
}

int TakeMethod(int method, const std::array<std::string, 2>& fields, const BoxPointer& point)
{
    desktop::TheScreen().SetIndicator(MethodOf(method).Indicator);
    PointAtBox(point, 0);
    if (!MethodOf(method).CheckFirst(fields[0])) return 0;
    // Without thousands separators, which would end a number when it is read.
    const std::string first = ReadNumberText(fields[0]).Text;
    std::string second;
    if (method == kTrendAndSeasonal) {
        PointAtBox(point, 1);
        if (!IsForecastCount(fields[1], Val(first))) return 1;
        second = ReadNumberText(fields[1]).Text;
    }
    const bool isTrend = method == kTrendProjection;
    TheMethod.Give({.Method = static_cast<std::int16_t>(method),
                    .Parameter = isTrend ? "" : first,
                    .ForecastCount = isTrend ? first : second});
    return -1;
}

}  // namespace VtForecasting
