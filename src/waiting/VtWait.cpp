#include "waiting/VtWait.h"

#include "desktop/desktop.h"
#include "shell/modelform.h"
#include "shell/userinput.h"

namespace VtWait {

WaitingProblem Problem;
WaitingResult Result;

namespace {

constexpr std::string_view kForm = "frmWL_Model";

constexpr Box kChannels{"Number of Channels:", "", TakeChannels, &WaitingProblem::Channels};
constexpr Box kArrivals{"Mean Arrival Rate:", "", TakeArrivalRate, &WaitingProblem::ArrivalRate};
constexpr Box kServices{"Mean Service Rate:", "", TakeServiceRate, &WaitingProblem::ServiceRate};
constexpr Box kChannelServices{"Mean Service Rate per Channel:", "", TakeServiceRate,
                               &WaitingProblem::ServiceRate};
constexpr Box kDeviation{"Standard Deviation of Service Time:", "(In Units of Time Period)",
                         TakeServiceStdDev, &WaitingProblem::ServiceStdDev};
constexpr Box kPopulation{"Population Size (MAX=30):", "", TakePopulation, &WaitingProblem::Population};
constexpr Box kHidden{};

struct Model {
    std::string_view Item;       // in the list of models
    std::string_view Indicator;  // in the status text
    std::array<Box, kBoxCount> Boxes;
};

constexpr std::array<Model, kModelCount> kModels{{
    {"Poisson Arrivals / Exponential Service",
     "Waiting Line Model:  M/M/K",
     {{kChannels, kArrivals, kChannelServices, kHidden}}},
    {"Poisson Arrivals / Arbitrary Service (1 Channel)",
     "Waiting Line Model:  M/G/1",
     {{kArrivals, kServices, kDeviation, kHidden}}},
    {"Poisson Arrivals / Deterministic Service (1 Channel)",
     "Waiting Line Model:  M/D/1",
     {{kArrivals, kServices, kHidden, kHidden}}},
    {"Poisson Arrivals / Arbitrary Service (No Waiting)",
     "Waiting Line Model:  No Wait",
     {{kChannels, kArrivals, kChannelServices, kHidden}}},
    {"Poisson Arrivals / Exponential Service (Finite Pop.)",
     "Waiting Line Model:  Finite Population",
     {{kChannels, kArrivals, kChannelServices, kPopulation}}},
}};

// "Subscript out of range" without a model.
const Model& CurrentModel()
{
    if (!HasModel()) Raise(ErrorNumber::SubscriptOutOfRange);
    return kModels.at(static_cast<std::size_t>(Problem.WaitingModel) - 1);
}

int AskModel()
{
    ListDialog list{
        .Caption = " Waiting Lines", .Items = {}, .EmptyMessage = "You Must Select a Waiting Line Model"};
    for (const Model& model : kModels)
        list.Items.emplace_back(model.Item);
    return AskListItem(list);
}

}  // namespace

void MakeArrays()
{
    Problem = {};
    Result = {};
}

bool Ask()
{
    const int model = AskModel();
    if (model == 0) return false;
    MakeArrays();
    Problem.WaitingModel = model;
    return true;
}

void Fill()
{
    if (HasModel()) EditInForm(kForm, Problem, &WaitingProblem::WaitingModel);
}

bool HasModel()
{
    return Problem.WaitingModel >= 1 && Problem.WaitingModel <= kModelCount;
}

void ShowModelCaption()
{
    if (HasModel()) desktop::TheScreen().SetIndicator(CurrentModel().Indicator);
}

bool HasEconomicAnalysis()
{
    return Problem.EconomicAnalysis == "YES";
}

void ChooseEconomicAnalysis(bool wanted)
{
    Problem.EconomicAnalysis = wanted ? "YES" : "NO";
}

const std::array<Box, kBoxCount>& Boxes()
{
    return CurrentModel().Boxes;
}

std::string_view Title()
{
    return CurrentModel().Item;
}

}  // namespace VtWait
