#include "waiting/WaitingReport.h"

#include "basic/format.h"
#include "basic/number.h"
#include "waiting/VtWait.h"

namespace VtWait {
namespace {

constexpr int kTwoDigits = 10;  // channels from which on the title is one longer
constexpr double kShownAsZero = 0.00005;

constexpr std::string_view kScreenMargin = "  ";
constexpr std::string_view kFullMargin = "        ";

int Channels()
{
    return ToInt16(Problem.Channels.Value());
}

std::string Stars(std::size_t count)
{
    return std::string(count, '*');
}

std::string Probability(double value)
{
    constexpr int kWidth = 6;
    return FlushRight(Format(value, "0.0000"), kWidth);
}

std::string Average(double value)
{
    constexpr int kWidth = 12;
    return FlushRight(Format(value, "###,##0.0000"), kWidth);
}

std::string Margin(std::string_view margin, std::string_view text, const std::string& value)
{
    return std::string(margin) + std::string(text) + value;
}

void Spaced(ReportChannel& out, const std::string& text)
{
    out.Line(text);
    out.Line();
}

// ---- characteristics, on screen and in the full report ----

void NoUnits(ReportChannel& out, std::string_view margin)
{
    Spaced(out, Margin(margin, "THE PROBABILITY OF NO UNITS IN THE SYSTEM                ",
                       Probability(Result.StateProbability(0))));
}

void UnitsInSystem(ReportChannel& out, std::string_view margin)
{
    Spaced(out, Margin(margin, "THE AVERAGE NUMBER OF UNITS IN THE SYSTEM          ",
                       Average(Result.UnitsInSystem)));
}

// The last line has no empty line behind it.
void Characteristics(ReportChannel& out, std::string_view margin)
{
    const double wait = Result.ProbabilityWait < kShownAsZero ? 0 : Result.ProbabilityWait;
    NoUnits(out, margin);
    Spaced(out, Margin(margin, "THE AVERAGE NUMBER OF UNITS IN THE WAITING LINE    ",
                       Average(Result.UnitsInLine)));
    UnitsInSystem(out, margin);
    Spaced(out,
           Margin(margin, "THE AVERAGE TIME A UNIT SPENDS IN THE WAITING LINE ", Average(Result.TimeInLine)));
    Spaced(out, Margin(margin, "THE AVERAGE TIME A UNIT SPENDS IN THE SYSTEM       ",
                       Average(Result.TimeInSystem)));
    out.Line(Margin(margin, "THE PROBABILITY THAT AN ARRIVING UNIT HAS TO WAIT        ", Probability(wait)));
}

void NoWaitCharacteristics(ReportChannel& out, std::string_view margin)
{
    NoUnits(out, margin);
    UnitsInSystem(out, margin);
    out.Line(Margin(margin, "THE PROBABILITY THAT AN ARRIVING UNIT IS BLOCKED         ",
                    Probability(Result.StateProbability(Channels()))));
}

void Cost(ReportChannel& out, std::string_view margin)
{
    constexpr int kWidth = 14;
    if (!HasEconomicAnalysis()) return;
    out.Line();
    out.Line(Margin(margin, "THE TOTAL COST PER TIME PERIOD                   ",
                    FlushRight("$" + Format(TotalCost(Problem, Result), "###,###,##0.00"), kWidth)));
}

// ---- screen ----

bool ListsStates()
{
    return Problem.WaitingModel == kExponential || Problem.WaitingModel == kFinitePopulation;
}

// The title and its rule of stars.
std::vector<std::string> ScreenTitle()
{
    const std::string start = "SUMMARY OF A " + Problem.Channels.Text() + " CHANNEL ";
    const std::string margin(kScreenMargin);
    const std::size_t extra = Channels() < kTwoDigits ? 0 : 1;
    if (Problem.WaitingModel == kFinitePopulation) {
        const std::string title =
            start + "WAITING LINE FOR A POPULATION OF SIZE " + Problem.Population.Text();
        return {"", margin + title, margin + Stars(title.size())};
    }
    if (Problem.WaitingModel == kNoWaiting)
        return {"", margin + start + "SYSTEM WITH NO WAITING ALLOWED", margin + Stars(53 + extra)};
    std::vector<std::string> lines{margin + start + "WAITING LINE WITH", margin + Stars(40 + extra)};
    // One line less keeps the longest of these reports within the screen.
    if (!(Problem.WaitingModel == kArbitrary && HasEconomicAnalysis())) lines.insert(lines.begin(), "");
    return lines;
}

void ScreenRates(ReportChannel& out)
{
    out.Line();
    Spaced(out, "       MEAN NUMBER OF ARRIVALS = " + Problem.ArrivalRate.Text());
    Spaced(out, (Channels() > 1 ? "       MEAN NUMBER OF SERVICES PER CHANNEL = "
                                : "       MEAN NUMBER OF SERVICES = ") +
                    Problem.ServiceRate.Text());
    if (Problem.WaitingModel == kArbitrary)
        Spaced(out, "       STANDARD DEVIATION FOR THE SERVICE TIME = " + Problem.ServiceStdDev.Text());
}

void ScreenStates(ReportChannel& out)
{
    constexpr int kSpacedRows = 8;
    const bool spaced = Result.RowCount < kSpacedRows;
    out.Line();
    out.Line();
    out.Line("       Number of Units in the System          Probability");
    out.Line("       *****************************          ***********");
    out.Line();
    for (int i = 0; i < Result.RowCount; ++i) {
        out.Line(Blanks(19) + Format(std::to_string(i), "@@@") + Blanks(27) +
                 Probability(Result.StateProbability(i)));
        if (spaced && i < Result.RowCount - 1) out.Line();
    }
    if (Problem.WaitingModel != kExponential) return;
    if (spaced) out.Line();
    out.Line(Blanks(15) + Format(std::to_string(Result.RowCount), "@@@@") + " OR MORE                      " +
             Probability(Result.TailProbability));
}

void ScreenBusyHeading(ReportChannel& out)
{
    out.Line("          Number of Channels Busy             Probability");
    out.Line("          ***********************             ***********");
}

void ScreenBusyStates(ReportChannel& out)
{
    constexpr int kSpacedChannels = 8;
    constexpr int kBreak = 12;  // a page is full behind this row
    constexpr int kWidth = 33;
    const int k = Channels();
    ScreenBusyHeading(out);
    out.Line();
    for (int i = 0; i <= k; ++i) {
        out.Line(Format(std::to_string(i), "                    @@") +
                 FlushRight(Format(Result.StateProbability(i), "0.0000"), kWidth));
        if (i < k && k < kSpacedChannels) out.Line();
        if (i == kBreak && k > kBreak) {
            out.Line();
            ScreenBusyHeading(out);
            out.Line();
        }
    }
}

void ScreenBody(ReportChannel& out)
{
    Characteristics(out, kScreenMargin);
    out.Line();
    Cost(out, kScreenMargin);
    if (ListsStates()) ScreenStates(out);
}

void ScreenNoWaitBody(ReportChannel& out)
{
    out.Line();
    NoWaitCharacteristics(out, kScreenMargin);
    out.Line();
    ScreenBusyStates(out);
}

void ScreenReport(ReportChannel& out)
{
    const bool waits = Problem.WaitingModel != kNoWaiting;
    for (const std::string& line : ScreenTitle())
        out.Line(line);
    if (!waits) out.Line();
    ScreenRates(out);
    if (waits)
        ScreenBody(out);
    else
        ScreenNoWaitBody(out);
}

// ---- full report ----

void Services(ReportChannel& out)
{
    const std::string rate = " SERVICE TIMES WITH MEAN RATE = " + Problem.ServiceRate.Text();
    switch (Problem.WaitingModel) {
        case kArbitrary:
            Spaced(out, "            ARBITRARY" + rate);
            out.Line("            STANDARD DEVIATION FOR THE SERVICE TIME = " + Problem.ServiceStdDev.Text());
            break;
        case kDeterministic:
            out.Line("            DETERMINISTIC" + rate);
            break;
        case kNoWaiting:
            Spaced(out, "            ARBITRARY" + rate);
            out.Line("            NO WAITING LINE (BLOCKED CUSTOMERS CLEARED)");
            break;
        default:
            out.Line("            EXPONENTIAL" + rate + (Channels() > 1 ? " PER CHANNEL" : ""));
            break;
    }
}

void Data(ReportChannel& out)
{
    for (int i = 0; i < 4; ++i)
        out.Line();
    out.Line("        WAITING LINES");
    Spaced(out, "        *************");
    Spaced(out, "            NUMBER OF CHANNELS = " + Problem.Channels.Text());
    Spaced(out, "            POISSON ARRIVALS WITH MEAN RATE = " + Problem.ArrivalRate.Text());
    Services(out);
    if (Problem.WaitingModel == kFinitePopulation) {
        out.Line();
        out.Line("            FINITE CALLING POPULATION OF SIZE = " + Problem.Population.Text());
    }
    if (!HasEconomicAnalysis()) return;
    out.Line();
    Spaced(out, "            COST FOR UNITS IN THE SYSTEM = $" + Problem.CostPerUnitInSystem.Text() +
                    " PER TIME PERIOD");
    out.Line("            COST FOR A CHANNEL = $" + Problem.CostPerChannel.Text() + " PER TIME PERIOD");
}

void StateHeading(ReportChannel& out)
{
    out.Line("        Number of Units in the System          Probability");
    Spaced(out, "        -----------------------------          -----------");
}

// A long table begins on a page of its own, and goes on on another; only paper has pages.
void FullStates(ReportChannel& out)
{
    constexpr int kSpacedRows = 25;
    constexpr int kPageRows = 51;
    const bool spaced = Result.RowCount < kSpacedRows;
    const bool breaks = !spaced && out.OnPaper();
    const char* pattern = Problem.WaitingModel == kExponential ? "@@@" : "@@";
    out.Line();
    out.Line();
    if (!breaks) StateHeading(out);
    for (int i = 0; i < Result.RowCount; ++i) {
        if (breaks && i % kPageRows == 0) {
            out.NewPage();
            StateHeading(out);
        }
        out.Line(Blanks(20) + Format(std::to_string(i), pattern) + Blanks(27) +
                 Probability(Result.StateProbability(i)));
        if (spaced) out.Line();
    }
    if (Problem.WaitingModel != kExponential) return;
    out.Line(Blanks(15) + Format(std::to_string(Result.RowCount), "@@@@") +
             " OR MORE                       " + Probability(Result.TailProbability));
}

void FullBusyStates(ReportChannel& out)
{
    constexpr int kSpacedChannels = 8;
    const int k = Channels();
    out.Line();
    out.Line("            Number of Channels Busy             Probability");
    Spaced(out, "            -----------------------             -----------");
    for (int i = 0; i <= k; ++i) {
        out.Line(Blanks(22) + Format(std::to_string(i), "@@") + Blanks(27) +
                 Probability(Result.StateProbability(i)));
        if (k < kSpacedChannels) out.Line();
    }
}

void FullReport(ReportChannel& out)
{
    Data(out);
    for (int i = 0; i < 3; ++i)
        out.Line();
    out.Line("        OPERATING CHARACTERISTICS");
    Spaced(out, "        -------------------------");
    if (Problem.WaitingModel == kNoWaiting) {
        NoWaitCharacteristics(out, kFullMargin);
        FullBusyStates(out);
        return;
    }
    Characteristics(out, kFullMargin);
    Cost(out, kFullMargin);
    if (ListsStates()) FullStates(out);
}

}  // namespace

void WriteReport(ReportChannel& out)
{
    if (out.OnScreen())
        ScreenReport(out);
    else
        FullReport(out);
}

}  // namespace VtWait
