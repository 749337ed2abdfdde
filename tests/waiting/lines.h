// Waiting lines for the tests.
#pragma once

#include "waiting/VtWait.h"
#include "waiting/module.h"

inline void GivenChannels(int model, int channels, double arrivals, double services)
{
    VtWait::MakeArrays();
    VtWait::Problem.WaitingModel = model;
    VtWait::Problem.Channels = channels;
    VtWait::Problem.ArrivalRate = arrivals;
    VtWait::Problem.ServiceRate = services;
}

inline void GivenExponential(int channels, double arrivals, double services)
{
    GivenChannels(VtWait::kExponential, channels, arrivals, services);
}

inline void GivenArbitrary(double arrivals, double services, double deviation)
{
    GivenChannels(VtWait::kArbitrary, 1, arrivals, services);
    VtWait::Problem.ServiceStdDev = deviation;
}

inline void GivenDeterministic(double arrivals, double services)
{
    GivenChannels(VtWait::kDeterministic, 1, arrivals, services);
}

inline void GivenNoWaiting(int channels, double arrivals, double services)
{
    GivenChannels(VtWait::kNoWaiting, channels, arrivals, services);
}

inline void GivenPopulation(int channels, double arrivals, double services, int population)
{
    GivenChannels(VtWait::kFinitePopulation, channels, arrivals, services);
    VtWait::Problem.Population = population;
}

inline void GivenCosts(double perUnitInSystem, double perChannel)
{
    VtWait::ChooseEconomicAnalysis(true);
    VtWait::Problem.CostPerUnitInSystem = perUnitInSystem;
    VtWait::Problem.CostPerChannel = perChannel;
}

// As the command does, with what it leaves in the problem.
inline void SolveGiven()
{
    WaitingLines().Solve();
}
