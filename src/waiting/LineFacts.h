// What pictures, steps and sentences of a waiting line have in common: figures that the report does not give,
// found by the engine or from its chances.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "waiting/VtWait.h"

namespace VtWait {

int ChannelsOf(const WaitingProblem& problem);
int PopulationOf(const WaitingProblem& problem);
double LoadOf(const WaitingProblem& problem);  // arrivals a service, over all channels

// The share of time that a channel is busy.
double Utilisation(const WaitingProblem& problem, const WaitingResult& result);

bool HasStates(const WaitingProblem& problem);  // chances of n units, or of n busy channels
int LastState(const WaitingProblem& problem, const WaitingResult& result);

// The same line with another number of channels; nothing where they cannot cope.
std::optional<WaitingResult> WithChannels(const WaitingProblem& problem, int channels);

// The same line with other arrivals; nothing where the channels cannot cope.
std::optional<WaitingResult> WithArrivals(const WaitingProblem& problem, double arrivals);

// The total cost of each number of channels that is worth looking at, where the model leaves the number open
// and there is an economic analysis. Cost is missing where the channels cannot cope.
struct ChannelCost {
    int Channels;
    std::optional<double> Cost;
};
std::vector<ChannelCost> CostsByChannels(const WaitingProblem& problem);
// Among the counts that are worth choosing, no more than a population has members; null where none can cope.
const ChannelCost* Cheapest(const WaitingProblem& problem, const std::vector<ChannelCost>& costs);

bool IsCheaper(double cost, double than);  // to the cent

// The chance that a member of the population that arrives finds all channels busy: it sees the others only.
double WaitOnArrival(const WaitingProblem& problem, const WaitingResult& result);

// Units in line at another load, service times as they vary: Pollaczek and Khinchin.
double UnitsInLineAt(double load, double variation);
double VariationOf(const WaitingProblem& problem);  // standard deviation of the service times by their mean

std::string ChanceText(double chance);  // with the report's decimals, without its blanks
std::string AverageText(double average);
std::string CostText(double cost);  // "$1,234.50"

// In sentences: an average that is printed as 0 and is not is told to be small, and in a finite population
// the chance that all channels are busy and the share of time that one is are neither 0 nor 1 but for
// rounding.
std::string AverageTold(double average);
std::string AllBusyTold(const WaitingProblem& problem, const WaitingResult& result);
std::string ShareBusyTold(const WaitingProblem& problem, const WaitingResult& result);

}  // namespace VtWait
