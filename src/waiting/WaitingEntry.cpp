// What the boxes of the form accept, and what Solve and Save ask of them together.
#include <cmath>

#include "basic/entrytext.h"
#include "basic/format.h"
#include "basic/number.h"
#include "desktop/dialogs.h"
#include "tableau/tanumchk.h"
#include "waiting/VtWait.h"

namespace VtWait {
namespace {

constexpr std::string_view kMeanRefused = "THE MEAN MUST BE POSITIVE.  PLEASE TRY AGAIN.";
constexpr std::string_view kRateNoNumber = "A NON-NUMERIC VALUE HAS BEEN ENTERED.  PLEASE TRY AGAIN.";
constexpr std::string_view kQuestionNoNumber =
    "A NON-NUMERIC VALUE HAS BEEN ENTERED.  PLEASE ENTER `CANCEL' OR A NUMERIC VALUE IN RESPONSE TO THIS "
    "QUESTION.";
constexpr std::string_view kNoNumber = "A NON-NUMERIC VALUE HAS BEEN ENTERED.";

// Only the models with one channel have no box for their number.
bool AsksForChannels()
{
    return Problem.WaitingModel != kArbitrary && Problem.WaitingModel != kDeterministic;
}

// The value of a text, without its commas; nothing, after the refusal, for a text that is no number.
Variant Number(std::string_view text, std::string_view refusal)
{
    const NumberText number = CheckNumber(UpperCase(text));
    if (number.IsNumber) return number.Value();
    Refuse(refusal);
    return {};
}

// The same for a box that may be unchanged: it holds the stored value to its last bit.
Variant ValueOf(const Variant& field, std::string_view text, std::string_view refusal)
{
    const Variant value = Number(text, refusal);
    return !value.IsEmpty() && text == EntryText(field) ? field : value;
}

// Rates come as decimals: a product of two of them may be off in its last bit.
double At15Digits(double value)
{
    return Val(PlainText(value));
}

// An empty box waits for Solve and Save.
bool IsLeftOut(std::string_view text)
{
    return text.empty();
}

bool TakeRate(Variant& field, std::string_view text, std::string_view refusal)
{
    if (IsLeftOut(text)) return true;
    const Variant rate = ValueOf(field, text, refusal);
    if (rate.IsEmpty()) return false;
    if (!(rate.Value() > 0)) return Refuse(kMeanRefused);
    field = rate;
    return true;
}

bool TakeAny(Variant& field, std::string_view text)
{
    if (IsLeftOut(text)) return true;
    const Variant value = ValueOf(field, text, kNoNumber);
    if (!value.IsEmpty()) field = value;
    return !value.IsEmpty();
}

bool RefuseGrowth(double capacity)
{
    return Refuse("The arrival rate must be less than " + PlainText(capacity) +
                  " or the waiting line will grow without limit.");
}

bool WarnGrowth(const std::string& text)
{
    MsgBox(text, "WARNING!!!");
    return false;
}

bool CheckChannelCapacity(double arrivals, double channels, double capacity)
{
    if (arrivals > capacity)
        return WarnGrowth("You have entered " + PlainText(arrivals) +
                          " arrivals per time period.  However, the " + PlainText(channels) +
                          " channel(s) can service only " + PlainText(capacity) +
                          " units per time period.  The waiting line will grow without limit.");
    if (arrivals == capacity)
        return WarnGrowth("The arrival rate of " + PlainText(arrivals) + " equals the service rate of the " +
                          PlainText(channels) + " channel(s).  The waiting line will grow without limit.");
    return true;
}

}  // namespace

bool TakeChannels(std::string_view text)
{
    if (IsLeftOut(text)) return true;
    const Variant value = Number(text, kQuestionNoNumber);
    if (value.IsEmpty()) return false;
    const double channels = std::trunc(value.Value());
    if (channels < 1 || channels > kMostChannels)
        return Refuse("THE NUMBER OF CHANNELS MUST BE BETWEEN 1 AND 25.  PLEASE TRY AGAIN.");
    Problem.Channels = channels;
    return true;
}

bool TakeArrivalRate(std::string_view text)
{
    return TakeRate(Problem.ArrivalRate, text, AsksForChannels() ? kQuestionNoNumber : kRateNoNumber);
}

bool TakeServiceRate(std::string_view text)
{
    return TakeRate(Problem.ServiceRate, text, kRateNoNumber);
}

bool TakeServiceStdDev(std::string_view text)
{
    return TakeAny(Problem.ServiceStdDev, text);
}

bool TakePopulation(std::string_view text)
{
    if (IsLeftOut(text)) return true;
    const Variant value = Number(text, kNoNumber);
    if (value.IsEmpty()) return false;
    const double population = std::trunc(value.Value());
    if (population < 1) return Refuse("THE POPULATION SIZE MUST BE AT LEAST 1.");
    if (population > kMostPopulation) return Refuse("THE MAXIMUM POPULATION SIZE FOR THIS MODEL IS 30.");
    Problem.Population = population;
    return true;
}

bool TakeCostPerUnitInSystem(std::string_view text)
{
    return TakeAny(Problem.CostPerUnitInSystem, text);
}

bool TakeCostPerChannel(std::string_view text)
{
    return TakeAny(Problem.CostPerChannel, text);
}

bool CheckRates()
{
    const double arrivals = At15Digits(Problem.ArrivalRate.Value());
    const double channels = Problem.Channels.Value();
    const double capacity = At15Digits((AsksForChannels() ? channels : 1) * Problem.ServiceRate.Value());
    if (!(arrivals > 0)) return Refuse(kMeanRefused);
    if (Problem.WaitingModel == kNoWaiting || Problem.WaitingModel == kFinitePopulation)
        return CheckChannelCapacity(arrivals, channels, capacity);
    return arrivals < capacity || RefuseGrowth(capacity);
}

}  // namespace VtWait
