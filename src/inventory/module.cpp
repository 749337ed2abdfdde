#include "inventory/module.h"

#include "inventory/InventoryReport.h"
#include "inventory/VtInvent.h"

namespace VtInvent {
namespace {

void Write(RecordWriter& file)
{
    InventoryProblem& p = Problem;
    if (p.HoldingCostMethod.Value() == kAmountMethod) p.HoldingText = p.HoldingCost.Text();
    file.Write({static_cast<double>(p.ModelKind), p.AnnualDemand.Value(), p.AnnualDemand.Text(),
                p.OrderCost.Value(), p.OrderCost.Text(), p.HoldingCost.Value(), p.HoldingText,
                p.CarryingPercent.Value(), p.CarryingPercent.Text(), p.UnitCost.Value(), p.UnitCost.Text(),
                p.BackorderCost.Value(), p.BackorderCost.Text(), p.WorkingDays.Value(), p.WorkingDays.Text(),
                p.LeadTimeDays.Value(), p.LeadTimeDays.Text(), p.MeanDemand.Value(), p.MeanDemand.Text()});
    file.Write({p.DemandStdDev.Value(),
                p.DemandStdDev.Text(),
                p.ServiceMethod.Value(),
                p.ServiceMethod.Text(),
                p.StockoutProbability.Value(),
                p.StockoutProbability.Text(),
                p.AllowedStockouts.Value(),
                p.AllowedStockouts.Text(),
                p.ProductionRate.Value(),
                p.ProductionRate.Text(),
                p.HoldingCostMethod.Value(),
                p.HoldingCostMethod.Text(),
                p.ReorderMark,
                Result.ReorderPoint,
                p.ComputeReorderPoint,
                p.CategoryCount.Value(),
                p.CategoryCount.Text(),
                p.UnderCost.Value(),
                p.UnderCost.Text(),
                p.DistributionKind.Value(),
                std::string(),
                p.LowestDemand.Value(),
                p.LowestDemand.Text(),
                p.HighestDemand.Value(),
                p.HighestDemand.Text()});
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
    Problem.ModelKind = file.ReadInt16();
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
    Result.ReorderPoint = file.ReadDouble();
    Problem.ComputeReorderPoint = file.ReadDouble();
    Problem.CategoryCount = ReadPair(file);
    Problem.UnderCost = ReadPair(file);
    Problem.DistributionKind = ReadPair(file);
    Problem.LowestDemand = ReadPair(file);
    Problem.HighestDemand = ReadPair(file);
}

void ReadCategories(RecordReader& file)
{
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

}  // namespace
}  // namespace VtInvent

const ModuleRoutines& Inventory()
{
    static const ModuleRoutines routines{
        .Dimension = VtInvent::NewProblem,
        .Display = VtInvent::Display,
        .Prepare = VtInvent::HasModel,
        .SolveAndShow = VtInvent::SolveAndShow,
        .ShellShowsSolving = true,
        .ShellEnablesPrinting = true,
        .ReturnToProblem = VtInvent::ReturnToProblem,
        .ReloadResetsIndicator = true,
        .Reports = {VtInvent::WriteReport},
        .Write = VtInvent::Write,
        .Read = VtInvent::Read,
    };
    return routines;
}
