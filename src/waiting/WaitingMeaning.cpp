#include "waiting/WaitingMeaning.h"

#include <string>

#include "picture/words.h"
#include "waiting/LineFacts.h"

namespace VtWait {
namespace {

using picture::Sentence;
using picture::SentenceKind;

constexpr double kHeavyLoad = 0.9;         // from here on the line grows fast
constexpr double kLittleMore = 1.01;       // arrivals, for what a little more demand does
constexpr std::size_t kAverageWidth = 12;  // fields of the report
constexpr std::size_t kCostWidth = 14;

std::string Num(int number)
{
    return std::to_string(number);
}

// "1.0000 units": averages are decimals and take the plural.
std::string Units(double average)
{
    return AverageTold(average) + " units";
}

std::string Periods(double time)
{
    return AverageTold(time) + " time periods";
}

class Sayer {
public:
    Sayer(const WaitingProblem& problem, const WaitingResult& result)
        : problem_(problem),
          result_(result),
          model_(problem.WaitingModel),
          k_(ChannelsOf(problem)),
          busy_(Utilisation(problem, result))
    {
    }
    std::vector<Sentence> Say();

private:
    void Say(SentenceKind kind, std::string text)
    {
        sentences_.push_back({.Kind = kind, .Text = std::move(text)});
    }
    [[nodiscard]] std::string Channels() const { return picture::Counted(k_, "channel"); }
    void SayWait();
    void SayLost();
    void SayBusy();
    void SayOneMore();
    void SayVariation();
    void SayCost();
    void SayHeavyLoad();
    void SayOnArrival();
    void SayIdleChannels();
    void SayLongTable();
    void SayCutFigures();

    const WaitingProblem& problem_;
    const WaitingResult& result_;
    int model_;
    int k_;
    double busy_;
    std::vector<Sentence> sentences_;
};

// ---- results ----

void Sayer::SayWait()
{
    if (result_.UnitsInLine == 0) {
        Say(SentenceKind::Result, "No unit ever waits; there are " + Units(result_.UnitsInSystem) +
                                      " in the system on average, each for " + Periods(result_.TimeInSystem) +
                                      ".");
        return;
    }
    Say(SentenceKind::Result, "A unit waits " + Periods(result_.TimeInLine) + " on average; the line holds " +
                                  Units(result_.UnitsInLine) + ".");
    Say(SentenceKind::Result, "With its service a unit stays " + Periods(result_.TimeInSystem) +
                                  "; the system holds " + Units(result_.UnitsInSystem) + " on average.");
    if (model_ != kFinitePopulation)
        Say(SentenceKind::Result, "The chance that an arriving unit has to wait is " +
                                      picture::Chance(result_.ProbabilityWait, 4) + ".");
}

void Sayer::SayLost()
{
    Say(SentenceKind::Result, "The chance that an arriving unit finds all channels busy and is lost is " +
                                  picture::Chance(result_.ProbabilityWait, 4) + ".");
    Say(SentenceKind::Result, "Of " + problem_.ArrivalRate.Text() + " arrivals per time period " +
                                  AverageTold(problem_.ArrivalRate.Value() * result_.ProbabilityWait) +
                                  " are lost on average.");
}

void Sayer::SayBusy()
{
    const std::string share = ShareBusyTold(problem_, result_);
    Say(SentenceKind::Limit,
        k_ == 1 ? "The channel is busy " + share + " of the time."
                : "Each of the " + Channels() + " is busy " + share + " of the time on average.");
}

// ---- change ----

void Sayer::SayOneMore()
{
    if (k_ >= kMostChannels || result_.ProbabilityWait <= 0) return;
    if (model_ == kFinitePopulation && k_ >= PopulationOf(problem_)) return;
    const auto more = WithChannels(problem_, k_ + 1);
    if (model_ == kNoWaiting && ChanceText(result_.ProbabilityWait) != ChanceText(more->ProbabilityWait))
        Say(SentenceKind::Change, "With one channel more the chance to be lost would be " +
                                      picture::Chance(more->ProbabilityWait, 4) + ".");
    else if (model_ != kNoWaiting && more->UnitsInLine == 0)
        Say(SentenceKind::Change, "With one channel more no unit would ever wait.");
    else if (model_ != kNoWaiting && AverageText(more->TimeInLine) != AverageText(result_.TimeInLine))
        Say(SentenceKind::Change, "With one channel more a unit would wait " + Periods(more->TimeInLine) +
                                      " on average, not " + AverageText(result_.TimeInLine) + ".");
}

// How much of the line comes from service times that differ.
void Sayer::SayVariation()
{
    const double constant = UnitsInLineAt(LoadOf(problem_), 0);
    if (model_ != kArbitrary || AverageText(constant) == AverageText(result_.UnitsInLine)) return;
    Say(SentenceKind::Change, "If every service took the same time, the line would hold " + Units(constant) +
                                  ", not " + AverageText(result_.UnitsInLine) + ".");
}

void Sayer::SayCost()
{
    if (problem_.EconomicAnalysis != "YES" || model_ == kNoWaiting) return;
    const double given = TotalCost(problem_, result_);
    Say(SentenceKind::Result,
        "Channels and units in the system cost " + CostText(given) + " per time period.");
    const std::vector<ChannelCost> costs = CostsByChannels(problem_);
    const ChannelCost* cheapest = Cheapest(problem_, costs);
    if (cheapest == nullptr || costs.size() == 1) return;  // a single member has one choice
    if (!IsCheaper(*cheapest->Cost, given))
        Say(SentenceKind::Change, "No other number of channels from 1 to " + Num(costs.back().Channels) +
                                      " would be cheaper than " + Num(k_) + ".");
    else
        Say(SentenceKind::Change, picture::Counted(cheapest->Channels, "channel") +
                                      " would be cheaper: " + CostText(*cheapest->Cost) + " instead of " +
                                      CostText(given) + " per time period.");
}

// ---- cautions ----

void Sayer::SayHeavyLoad()
{
    if (model_ == kNoWaiting || model_ == kFinitePopulation || busy_ < kHeavyLoad) return;
    const auto more = WithArrivals(problem_, problem_.ArrivalRate.Value() * kLittleMore);
    Say(SentenceKind::Caution, "At a load of " + picture::Chance(busy_, 4) +
                                   " a little more demand lengthens the wait a lot: 1 % more arrivals " +
                                   (more ? "would make it " + Periods(more->TimeInLine) + ", not " +
                                               AverageText(result_.TimeInLine) + "."
                                         : "would let the line grow without limit."));
}

// The report's chance to wait is a share of time.
void Sayer::SayOnArrival()
{
    if (model_ != kFinitePopulation || result_.UnitsInLine == 0) return;
    const double arriving = WaitOnArrival(problem_, result_);
    const std::string what = k_ == 1 ? "finds it busy" : "finds all channels busy";
    if (k_ > 1)
        Say(SentenceKind::Result,
            "The chance that all channels are busy is " + AllBusyTold(problem_, result_) + ".");
    if (ChanceText(arriving) != ChanceText(result_.ProbabilityWait))
        Say(SentenceKind::Caution, "A unit that arrives " + what + " less often, in " +
                                       picture::PercentOf(arriving, 4) +
                                       " of the cases, as it is not itself among the others.");
}

void Sayer::SayIdleChannels()
{
    if (model_ != kFinitePopulation) return;
    const int idle = k_ - PopulationOf(problem_);
    if (idle <= 0) return;
    Say(SentenceKind::Caution, picture::Counted(idle, "channel") + (idle == 1 ? " is" : " are") +
                                   " never needed: the population has " +
                                   picture::Counted(PopulationOf(problem_), "member") + " only.");
}

void Sayer::SayLongTable()
{
    constexpr double kTail = 0.01;
    if (model_ != kExponential || result_.TailProbability < kTail) return;
    Say(SentenceKind::Caution, "The table of chances ends at " + Num(result_.RowCount - 1) +
                                   " units, although more of them are there with a chance of " +
                                   ChanceText(result_.TailProbability) + ".");
}

void Sayer::SayCutFigures()
{
    std::vector<std::string> cut;
    const auto look = [&cut](std::string_view name, const std::string& text, std::size_t width) {
        if (text.size() > width) cut.push_back(std::string(name) + " is " + text);
    };
    if (model_ != kNoWaiting) {
        look("the average number of units in the waiting line", AverageText(result_.UnitsInLine),
             kAverageWidth);
        look("the average time in the waiting line", AverageText(result_.TimeInLine), kAverageWidth);
        look("the average time in the system", AverageText(result_.TimeInSystem), kAverageWidth);
        if (problem_.EconomicAnalysis == "YES")
            look("the total cost", CostText(TotalCost(problem_, result_)), kCostWidth);
    }
    look("the average number of units in the system", AverageText(result_.UnitsInSystem), kAverageWidth);
    if (!cut.empty())
        Say(SentenceKind::Caution,
            "The report cuts figures that do not fit their field: " + picture::Listed(cut) + ".");
}

std::vector<Sentence> Sayer::Say()
{
    if (model_ == kNoWaiting)
        SayLost();
    else
        SayWait();
    SayBusy();
    if (model_ != kArbitrary && model_ != kDeterministic) SayOneMore();
    SayVariation();
    SayCost();
    SayHeavyLoad();
    SayOnArrival();
    SayIdleChannels();
    SayLongTable();
    SayCutFigures();
    picture::SortByKind(sentences_);
    return std::move(sentences_);
}

}  // namespace

std::vector<Sentence> Meaning(const WaitingProblem& problem, const WaitingResult& result)
{
    if (!result.Solved || problem.WaitingModel < 1 || problem.WaitingModel > kModelCount) return {};
    return Sayer(problem, result).Say();
}

}  // namespace VtWait
