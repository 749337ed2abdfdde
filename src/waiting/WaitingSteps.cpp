#include "waiting/WaitingSteps.h"

#include <cmath>
#include <string>

#include "basic/format.h"
#include "waiting/LineFacts.h"

namespace VtWait {
namespace {

using picture::Step;
using Lines = std::vector<std::string>;

std::string Num(int number)
{
    return std::to_string(number);
}

// Terms of sums grow beyond what a field of a report holds.
std::string Term(double value)
{
    return FlushRight(AverageText(value), 16);
}

std::string Row(int n, const std::string& formula, double value)
{
    return FlushRight(Num(n), 4) + "  " + FlushLeft(formula, 36) + Term(value);
}

double Factorial(int n)
{
    double product = 1;
    for (int j = 2; j <= n; ++j)
        product *= j;
    return product;
}

class Teller {
public:
    Teller(const WaitingProblem& problem, const WaitingResult& result)
        : problem_(problem),
          result_(result),
          k_(ChannelsOf(problem)),
          load_(LoadOf(problem)),
          arrivals_(problem.ArrivalRate.Text()),
          services_(problem.ServiceRate.Text())
    {
    }
    std::vector<Step> Tell();

private:
    void Add(std::string heading, Lines figures, std::string why, std::string picture = {});
    void TellLoad();
    void TellExponential();
    void TellSingle();
    void TellNoWaiting();
    void TellPopulation();
    void TellTimes();
    void TellUnitsInSystem();
    void TellChances();
    void TellCost();
    void TellProof();
    [[nodiscard]] double SumOfChances() const;

    const WaitingProblem& problem_;
    const WaitingResult& result_;
    int k_;
    double load_;
    std::string arrivals_;
    std::string services_;
    std::vector<Step> steps_;
};

void Teller::Add(std::string heading, Lines figures, std::string why, std::string picture)
{
    steps_.push_back({.Heading = std::move(heading),
                      .Figures = std::move(figures),
                      .Why = std::move(why),
                      .Picture = std::move(picture)});
}

void Teller::TellLoad()
{
    Lines lines{"r = arrivals / services = " + arrivals_ + " / " + services_ + " = " + AverageText(load_)};
    if (problem_.WaitingModel == kFinitePopulation) {
        Add("Load of one member", lines,
            "r compares the arrivals of one member with the services of one channel.");
        return;
    }
    if (problem_.WaitingModel == kNoWaiting) {
        Add("Load", lines, "r is the number of channels that would be busy if no unit were lost.");
        return;
    }
    lines.push_back("r / k = " + AverageText(load_) + " / " + Num(k_) + " = " + ChanceText(load_ / k_));
    Add("Load", lines,
        "r / k is the share of time that a channel is busy; below 1 the line does not grow without limit.");
}

// ---- several exponential channels ----

void Teller::TellExponential()
{
    Lines terms{"   n  r^n / n!"};
    double sum = 0;
    for (int n = 0; n < k_; ++n) {
        const double term = std::pow(load_, n) / Factorial(n);
        sum += term;
        terms.push_back(Row(n, "r^" + Num(n) + " / " + Num(n) + "!", term));
    }
    terms.push_back("S = " + AverageText(sum));
    const double services = problem_.ServiceRate.Value();
    const double spare = k_ * services - problem_.ArrivalRate.Value();
    const double all = services / spare * (std::pow(load_, k_) / Factorial(k_ - 1));
    const std::string spareText = "(" + Num(k_) + " x " + services_ + " - " + arrivals_ + ")";
    terms.push_back("T = " + services_ + " / " + spareText + " x r^" + Num(k_) + " / " + Num(k_ - 1) +
                    "! = " + AverageText(all));
    terms.push_back("P0 = 1 / (T + S) = " + ChanceText(result_.ProbabilityNone));
    Add("Chance of an empty system (P0)", terms,
        "S counts the states with a free channel, T those with all channels busy, each against the empty "
        "one.",
        "Chance of n units");
    Add("Units in the waiting line (Lq)",
        {"Lq = P0 x services x arrivals x r^k / ((k x services - arrivals)^2 x (k - 1)!)",
         "   = " + ChanceText(result_.ProbabilityNone) + " x " + services_ + " x " + arrivals_ + " x " +
             AverageText(load_) + "^" + Num(k_) + " / (" + PlainText(spare) + "^2 x " + Num(k_ - 1) + "!)",
         "   = " + AverageText(result_.UnitsInLine)},
        "Behind k units each further one waits; the chances of these states fall by r / k from one to the "
        "next.");
    TellUnitsInSystem();
    TellTimes();
    Add("Chance to wait (Pw, Erlang's formula C)",
        {"Pw = P0 x k x services / (k x services - arrivals) x r^k / k!",
         "   = " + ChanceText(result_.ProbabilityNone) + " x " + PlainText(k_ * services) + " / " +
             spareText + " x " + AverageText(load_) + "^" + Num(k_) + " / " + Num(k_) + "!",
         "   = " + ChanceText(result_.ProbabilityWait)},
        "A unit waits when it finds all channels busy, and arrivals at random see the line as it is on "
        "average.");
}

// ---- one channel ----

void Teller::TellSingle()
{
    Add("Chance of an empty system (P0)",
        {"P0 = 1 - r = 1 - " + ChanceText(load_) + " = " + ChanceText(result_.ProbabilityNone)},
        "One channel is busy for the share r of the time, however long single services take.");
    const std::string deviation =
        problem_.WaitingModel == kDeterministic ? "0" : problem_.ServiceStdDev.Text();
    Add("Units in the waiting line (Lq, formula of Pollaczek and Khinchin)",
        {"Lq = (r^2 + deviation^2 x arrivals^2) / (2 x (1 - r))",
         "   = (" + ChanceText(load_) + "^2 + " + (deviation.empty() ? "0" : deviation) + "^2 x " +
             arrivals_ + "^2) / (2 x " + ChanceText(1 - load_) + ")",
         "   = " + AverageText(result_.UnitsInLine)},
        problem_.WaitingModel == kDeterministic
            ? "A constant service time has a deviation of 0, so that half of the line of exponential service "
              "is left."
            : "Only mean and deviation of the service time count, not its whole distribution.",
        "Wait");
    TellUnitsInSystem();
    TellTimes();
    Add("Chance to wait (Pw)", {"Pw = r = " + ChanceText(result_.ProbabilityWait)},
        "A unit waits when it finds the channel busy.");
}

void Teller::TellUnitsInSystem()
{
    Add("Units in the system (L)",
        {"L = r + Lq = " + AverageText(load_) + " + " + AverageText(result_.UnitsInLine) + " = " +
         AverageText(result_.UnitsInSystem)},
        "To the units in line come those in service, r on average.");
}

void Teller::TellTimes()
{
    Add("Time in the waiting line (Wq, Little's law)",
        {"Wq = Lq / arrivals = " + AverageText(result_.UnitsInLine) + " / " + arrivals_ + " = " +
         AverageText(result_.TimeInLine)},
        "What is in line on average came in during the time that a unit waits.");
    Add("Time in the system (W)",
        {"W = 1 / services + Wq = 1 / " + services_ + " + " + AverageText(result_.TimeInLine) + " = " +
         AverageText(result_.TimeInSystem)},
        "To the wait comes the service itself.");
}

// ---- no waiting ----

void Teller::TellNoWaiting()
{
    Lines terms{"   j  r^j / j!"};
    double sum = 0;
    for (int j = 0; j <= k_; ++j) {
        const double term = std::pow(load_, j) / Factorial(j);
        sum += term;
        terms.push_back(Row(j, "r^" + Num(j) + " / " + Num(j) + "!", term));
    }
    terms.push_back("T = " + AverageText(sum));
    Add("Weights of the states", terms, "Each state is weighed against the empty one; T is the sum.",
        "Chance of n units");
    TellChances();
    Add("Chance to be blocked (Erlang's formula B)",
        {"P" + Num(k_) + " = (r^" + Num(k_) + " / " + Num(k_) +
         "!) / T = " + ChanceText(result_.ProbabilityWait)},
        "A unit is lost when it finds all channels busy; the service times matter only by their mean.",
        "Lost");
    Add("Units in the system (L)",
        {"L = (1 - P" + Num(k_) + ") x r = (1 - " + ChanceText(result_.ProbabilityWait) + ") x " +
         AverageText(load_) + " = " + AverageText(result_.UnitsInSystem)},
        "Only the units that are not lost keep channels busy.");
}

// ---- finite population ----

void Teller::TellPopulation()
{
    const int population = PopulationOf(problem_);
    Lines terms{"   n  weight"};
    double ways = 1;  // members that may be the next, one after the other
    for (int n = 0; n <= population; ++n) {
        const bool allBusy = n > k_;
        const double weight =
            std::pow(load_, n) * ways / (allBusy ? std::pow(k_, n - k_) * Factorial(k_) : Factorial(n));
        terms.push_back(
            Row(n,
                "r^" + Num(n) + " x " + PlainText(ways) + " / " +
                    (allBusy ? "(" + Num(k_) + "^" + Num(n - k_) + " x " + Num(k_) + "!)" : Num(n) + "!"),
                weight));
        ways *= population - n;
    }
    terms.push_back("P0 = 1 / sum = " + ChanceText(result_.ProbabilityNone));
    Add("Chance of an empty system (P0)", terms,
        "Each state is weighed against the empty one; with n units in the system only " + Num(population) +
            " - n members can still arrive.",
        "Chance of n units");
    TellChances();
    if (k_ >= population)
        Add("Units in the waiting line (Lq)", {"Lq = " + AverageText(result_.UnitsInLine)},
            "There is a channel for each member, so that nobody waits.");
    else
        Add("Units in the waiting line (Lq)",
            {"Lq = sum of (n - " + Num(k_) + ") x Pn for n from " + Num(k_) + " to " + Num(population) +
             " = " + AverageText(result_.UnitsInLine)},
            "With n units in the system n - k of them wait.");
    Add("Units in the system (L)",
        {"L = sum of n x Pn for n from 0 to " + Num(population) + " = " + AverageText(result_.UnitsInSystem)},
        "Units in line and in service together.");
    const double entering = (population - result_.UnitsInSystem) * problem_.ArrivalRate.Value();
    Add("Arrivals that take place",
        {"e = (N - L) x arrivals = (" + Num(population) + " - " + AverageText(result_.UnitsInSystem) +
         ") x " + arrivals_ + " = " + AverageText(entering)},
        "Only members outside of the system arrive.");
    Add("Times (Little's law)",
        {"Wq = Lq / e = " + AverageText(result_.UnitsInLine) + " / " + AverageText(entering) + " = " +
             AverageText(result_.TimeInLine),
         "W  = L / e  = " + AverageText(result_.UnitsInSystem) + " / " + AverageText(entering) + " = " +
             AverageText(result_.TimeInSystem)},
        "What is there on average came in during the time that a unit stays.");
    if (k_ > population)
        return Add("Chance to wait (Pw)", {"Pw = " + ChanceText(result_.ProbabilityWait)},
                   "There are more channels than members, so that they are never all busy.");
    Add("Chance to wait (Pw)",
        {"Pw = sum of Pn for n from " + Num(k_) + " on = " + ChanceText(result_.ProbabilityWait),
         "of the arrivals: " + ChanceText(WaitOnArrival(problem_, result_))},
        "The report gives the share of time with all channels busy; a unit that arrives is not itself among "
        "the others and finds that less often.");
}

// ---- chances, cost, proof ----

void Teller::TellChances()
{
    const int last = LastState(problem_, result_);
    Lines rows{"   n            Pn      so far"};
    double sum = 0;
    for (int n = 0; n <= last; ++n) {
        sum += result_.StateProbability(n);
        rows.push_back(FlushRight(Num(n), 4) + FlushRight(ChanceText(result_.StateProbability(n)), 14) +
                       FlushRight(ChanceText(sum), 12));
    }
    const bool tail = problem_.WaitingModel == kExponential;
    Add(problem_.WaitingModel == kNoWaiting ? "Chances of n busy channels" : "Chances of n units", rows,
        !tail ? "Each weight by the sum of all of them."
        : result_.RowCount > 100
            ? "The table ends at 100 units, before what is left has come below 0.0100."
            : "The table ends where less than 0.0100 is left: " + ChanceText(result_.TailProbability) + ".",
        "Chance of n units");
}

void Teller::TellCost()
{
    if (problem_.EconomicAnalysis != "YES" || problem_.WaitingModel == kNoWaiting) return;
    Add("Total cost per time period",
        {CostText(problem_.CostPerChannel.Value()) + " x " + Num(k_) + " + " +
         CostText(problem_.CostPerUnitInSystem.Value()) + " x " + AverageText(result_.UnitsInSystem) + " = " +
         CostText(TotalCost(problem_, result_))},
        "Channels cost all the time, units for as long as they are in the system.",
        problem_.WaitingModel == kArbitrary || problem_.WaitingModel == kDeterministic ? "" : "Cost");
}

double Teller::SumOfChances() const
{
    double sum = problem_.WaitingModel == kExponential ? result_.TailProbability : 0;
    for (int n = 0; n <= LastState(problem_, result_); ++n)
        sum += result_.StateProbability(n);
    return sum;
}

void Teller::TellProof()
{
    Lines lines;
    if (HasStates(problem_)) lines.push_back("sum of all chances = " + ChanceText(SumOfChances()));
    if (problem_.WaitingModel != kNoWaiting && problem_.WaitingModel != kFinitePopulation)
        lines.push_back("arrivals x W = " + arrivals_ + " x " + AverageText(result_.TimeInSystem) + " = " +
                        AverageText(problem_.ArrivalRate.Value() * result_.TimeInSystem) +
                        ", and L = " + AverageText(result_.UnitsInSystem));
    Add("Proof", lines,
        HasStates(problem_) ? "The chances of all states add up to 1."
                            : "By Little's law arrivals times the time in the system are the units in it.");
}

std::vector<Step> Teller::Tell()
{
    TellLoad();
    switch (problem_.WaitingModel) {
        case kExponential:
            TellExponential();
            TellChances();
            break;
        case kNoWaiting:
            TellNoWaiting();
            break;
        case kFinitePopulation:
            TellPopulation();
            break;
        default:
            TellSingle();
            break;
    }
    TellCost();
    TellProof();
    return std::move(steps_);
}

}  // namespace

std::vector<Step> Steps(const WaitingProblem& problem, const WaitingResult& result)
{
    if (!result.Solved || problem.WaitingModel < 1 || problem.WaitingModel > kModelCount) return {};
    return Teller(problem, result).Tell();
}

}  // namespace VtWait
