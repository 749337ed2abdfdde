// Waiting lines: the problem as its form fills it, and the operating characteristics of the line.
//
// Rates are per time period, times in time periods. A user leaves the counts whole; a file may bring
// anything.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "basic/array.h"
#include "basic/variant.h"

namespace VtWait {

// The values of WaitingModel.
constexpr int kExponential = 1;
constexpr int kArbitrary = 2;
constexpr int kDeterministic = 3;
constexpr int kNoWaiting = 4;
constexpr int kFinitePopulation = 5;
constexpr int kModelCount = 5;

constexpr int kMostChannels = 25;
constexpr int kMostPopulation = 30;
constexpr int kLastState = 200;

struct WaitingProblem {
    int WaitingModel = 0;  // 1 to 5; 0: there is no problem
    bool Saved = false;    // it is in a file, or has come from one
    Variant Channels;
    Variant ArrivalRate;  // with a finite population: per member of it
    Variant ServiceRate;  // per channel
    Variant Population;   // a solve of the exponential model leaves Channels - 1 here
    Variant ServiceStdDev;
    std::string EconomicAnalysis = "NO";
    Variant CostPerUnitInSystem;  // both per time period
    Variant CostPerChannel;
};

struct WaitingResult {
    bool Solved = false;  // false: nothing has been solved since the problem began
    double ProbabilityNone = 0;
    double UnitsInLine = 0;
    double UnitsInSystem = 0;
    double TimeInLine = 0;
    double TimeInSystem = 0;
    double ProbabilityWait = 0;                   // without waiting: of being blocked
    Array1<double> StateProbability{kLastState};  // of n units, or n busy channels; from 0
    int RowCount = 0;                             // states listed; also the n of "n OR MORE"
    double TailProbability = 0;                   // of RowCount units or more
};

extern WaitingProblem Problem;
extern WaitingResult Result;

// ---- the problem and its form ----

void MakeArrays();        // an empty problem and an empty result
bool Ask();               // asks for the model; false: cancelled, nothing has changed
void Fill();              // runs the model's form; nothing for a model that does not exist
bool HasModel();          // false without a problem, or with one of a model that does not exist
void ShowModelCaption();  // the model into the status text
bool HasEconomicAnalysis();
void ChooseEconomicAnalysis(bool wanted);

// ---- entry ----
//
// Each routine stores the value of a box that is left, or tells why not and answers false; an empty box is
// passed over, because only Solve and Save ask for it.

bool TakeChannels(std::string_view text);
bool TakeArrivalRate(std::string_view text);
bool TakeServiceRate(std::string_view text);
bool TakeServiceStdDev(std::string_view text);
bool TakePopulation(std::string_view text);
bool TakeCostPerUnitInSystem(std::string_view text);
bool TakeCostPerChannel(std::string_view text);

// One box of the form, as the model has it.
struct Box {
    std::string_view Label;
    std::string_view Note;
    bool (*Take)(std::string_view text) = nullptr;  // null: the box is hidden
    Variant WaitingProblem::*Field = nullptr;
};
constexpr int kBoxCount = 4;
const std::array<Box, kBoxCount>& Boxes();
std::string_view Title();  // the model's text in the list

// What Solve and Save ask when no box is empty: the line must not grow without limit. The focus belongs to
// the arrival rate after a refusal.
bool CheckRates();

// ---- engine ----

// Run-time errors where a division or a power fails.
WaitingResult Solve(const WaitingProblem& problem);

// Of the economic analysis, per time period.
double TotalCost(const WaitingProblem& problem, const WaitingResult& result);

}  // namespace VtWait
