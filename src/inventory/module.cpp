#include "inventory/module.h"

#include "basic/entrytext.h"
#include "basic/error.h"
#include "inventory/InventoryMeaning.h"
#include "inventory/InventoryPicture.h"
#include "inventory/InventoryReport.h"
#include "inventory/InventorySteps.h"
#include "inventory/VtInvent.h"
#include "shell/modelform.h"

namespace VtInvent {
namespace {

void Write(RecordWriter& file)
{
    InventoryProblem& p = Problem;
    if (p.HoldingCostMethod.Value() == kAmountMethod) p.HoldingText = EntryText(p.HoldingCost);
    file.Write({static_cast<double>(p.ModelKind), p.AnnualDemand.Value(), EntryText(p.AnnualDemand),
                p.OrderCost.Value(), EntryText(p.OrderCost), p.HoldingCost.Value(), p.HoldingText,
                p.CarryingPercent.Value(), EntryText(p.CarryingPercent), p.UnitCost.Value(),
                EntryText(p.UnitCost), p.BackorderCost.Value(), EntryText(p.BackorderCost),
                p.WorkingDays.Value(), EntryText(p.WorkingDays), p.LeadTimeDays.Value(),
                EntryText(p.LeadTimeDays), p.MeanDemand.Value(), EntryText(p.MeanDemand)});
    file.Write({p.DemandStdDev.Value(),
                EntryText(p.DemandStdDev),
                p.ServiceMethod.Value(),
                EntryText(p.ServiceMethod),
                p.StockoutProbability.Value(),
                EntryText(p.StockoutProbability),
                p.AllowedStockouts.Value(),
                EntryText(p.AllowedStockouts),
                p.ProductionRate.Value(),
                EntryText(p.ProductionRate),
                p.HoldingCostMethod.Value(),
                EntryText(p.HoldingCostMethod),
                p.ReorderMark,
                p.ReorderPoint,
                p.ComputeReorderPoint,
                p.CategoryCount.Value(),
                EntryText(p.CategoryCount),
                p.UnderCost.Value(),
                EntryText(p.UnderCost),
                p.DistributionKind.Value(),
                std::string(),
                p.LowestDemand.Value(),
                EntryText(p.LowestDemand),
                p.HighestDemand.Value(),
                EntryText(p.HighestDemand)});
    for (int k = 1; k <= p.CategoryCount.Value(); ++k)
        file.Write({p.CategoryUnitCost(k).Value(), p.CategoryUnitCostText(k), p.CategoryMinimum(k).Value(),
                    p.CategoryMinimumText(k)});
}

// A number and the text beside it, which says nothing new.
Variant ReadPair(RecordReader& file)
{
    const double value = file.ReadDouble();
    file.ReadString();
    return value;
}

void ReadDemandAndCosts(RecordReader& file)
{
    Problem.ModelKind = file.ReadCount();
    if (!HasModel()) Raise(ErrorNumber::SubscriptOutOfRange);
    Problem.AnnualDemand = ReadPair(file);
    Problem.OrderCost = ReadPair(file);
    Problem.HoldingCost = file.ReadDouble();
    Problem.HoldingText = file.ReadString();
    Problem.CarryingPercent = ReadPair(file);
    Problem.UnitCost = ReadPair(file);
    Problem.BackorderCost = ReadPair(file);
    Problem.WorkingDays = ReadPair(file);
    Problem.LeadTimeDays = ReadPair(file);
    Problem.MeanDemand = ReadPair(file);
}

void ReadPolicyData(RecordReader& file)
{
    Problem.DemandStdDev = ReadPair(file);
    Problem.ServiceMethod = ReadPair(file);
    Problem.StockoutProbability = ReadPair(file);
    Problem.AllowedStockouts = ReadPair(file);
    Problem.ProductionRate = ReadPair(file);
    Problem.HoldingCostMethod = ReadPair(file);
    Problem.ReorderMark = file.ReadDouble();
    Problem.ReorderPoint = file.ReadDouble();
    Problem.ComputeReorderPoint = file.ReadDouble();
    Problem.CategoryCount = ReadPair(file);
    Problem.UnderCost = ReadPair(file);
    Problem.DistributionKind = ReadPair(file);
    Problem.LowestDemand = ReadPair(file);
    Problem.HighestDemand = ReadPair(file);
}

void ReadCategories(RecordReader& file)
{
    if (Problem.CategoryCount.Value() < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    for (int k = 1; k <= Problem.CategoryCount.Value(); ++k) {
        Problem.CategoryUnitCost(k) = file.ReadDouble();
        Problem.CategoryUnitCostText(k) = file.ReadString();
        Problem.CategoryMinimum(k) = file.ReadDouble();
        Problem.CategoryMinimumText(k) = file.ReadString();
    }
}

void Read(RecordReader& file)
{
    MakeArrays();
    ReadDemandAndCosts(file);
    ReadPolicyData(file);
    ReadCategories(file);
    Problem.Saved = true;
    ShowModelCaption();
}

SolveOutcome Answer()
{
    SolveProblem();
    return {};
}

}  // namespace
}  // namespace VtInvent

const ModuleRoutines& Inventory()
{
    static const ModuleRoutines routines{
        .Ask = VtInvent::Ask,
        .Fill = VtInvent::Fill,
        .FillRunsForm = true,
        .Prepare = VtInvent::HasModel,
        .Solve = VtInvent::Answer,
        .Page = VtInvent::WritePage,
        .ReturnToProblem = ReturnToModelForm,
        .ReloadResetsIndicator = true,
        .Reports = {VtInvent::WriteReport},
        .Pictures = [] { return VtInvent::Pictures(VtInvent::Problem, VtInvent::Result); },
        .Steps = [] { return VtInvent::Steps(VtInvent::Problem, VtInvent::Result); },
        .Meaning = [] { return VtInvent::Meaning(VtInvent::Problem, VtInvent::Result); },
        .Write = VtInvent::Write,
        .Read = VtInvent::Read,
        .Saved = [] { VtInvent::Problem.Saved = true; },
    };
    return routines;
}
