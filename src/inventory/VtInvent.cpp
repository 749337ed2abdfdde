#include "inventory/VtInvent.h"

#include <array>

#include "desktop/desktop.h"
#include "inventory/InventoryPolicy.h"
#include "shell/modelform.h"
#include "shell/userinput.h"

namespace VtInvent {

InventoryProblem Problem;
InventoryResult Result;

namespace {

struct Model {
    const char* Item;       // in the list of models
    const char* Indicator;  // in the status text
    const char* Form;
};

constexpr std::array<Model, kModelCount> kModels{{
    {"Economic Order Quantity", "Inventory Model:  Economic Order Quantity", "frmEOQ"},
    {"Economic Production Lot Size", "Inventory Model:  Production Lot Size", "frmProductionLotSize"},
    {"Economic Order Quantity with Planned Shortages", "Inventory Model:  Planned Shortages",
     "frmPlannedShortages"},
    {"Economic Order Quantity with Quantity Discounts", "Inventory Model:  Quantity Discounts",
     "frmQtyDiscounts"},
    {"Order Quantity-Reorder Point with Probabilistic Demand",
     "Inventory Model:  Q/R with Probabilistic Demand", "frmQR_Prob"},
    {"Single-Period Inventory with Probabilistic Demand",
     "Inventory Model:  Single Period with Probabilistic Demand", "frmOnePeriodProb"},
}};

// A file may name a model that does not exist.
const Model* CurrentModel()
{
    if (Problem.ModelKind < 1 || Problem.ModelKind > kModelCount) return nullptr;
    return &kModels.at(static_cast<std::size_t>(Problem.ModelKind) - 1);
}

int AskModel()
{
    ListDialog list{.Caption = " Inventory Models Available",
                    .Items = {},
                    .EmptyMessage = "You Must Select an Inventory Model"};
    for (const Model& model : kModels)
        list.Items.emplace_back(model.Item);
    return AskListItem(list);
}

// 0 when the question was cancelled.
int AskCategoryCount()
{
    const auto answers = AskSizes(
        {.Caption = " Discount Categories",
         .Questions = {{.Question = "Enter Number of Categories (MAX=5):",
                        .Least = 1,
                        .Most = kMostCategories,
                        .RangeMessage = "You may only select a number between 1 and 5.  Please Try Again.",
                        .WholeMessage = "",
                        .Note = "(Include the No Discount Category)"}}});
    return answers.empty() ? 0 : answers.front();
}

}  // namespace

void MakeArrays()
{
    Problem = {};
    Result = {};
}

bool Ask()
{
    const int kind = AskModel();
    const int categories = kind == kDiscounts ? AskCategoryCount() : 0;
    if (kind == 0 || (kind == kDiscounts && categories == 0)) return false;
    MakeArrays();
    Problem.ModelKind = kind;
    if (categories > 0) Problem.CategoryCount = categories;
    return true;
}

void Fill()
{
    if (const Model* model = CurrentModel()) EditInForm(model->Form, Problem, &InventoryProblem::ModelKind);
}

bool HasModel()
{
    return CurrentModel() != nullptr;
}

void SolveProblem()
{
    Result = {};
    Result = Solve(Problem);
    if (Problem.ModelKind == kReorderPoint) {
        // The measure that was not given is read like a given one when the method is changed.
        Problem.StockoutProbability = Result.StockoutProbability;
        Problem.AllowedStockouts = Result.AllowedStockouts;
    }
    if (Problem.ModelKind != kSinglePeriod) Problem.ReorderPoint = Result.ReorderPoint;
}

void ShowModelCaption()
{
    if (const Model* model = CurrentModel()) desktop::TheScreen().SetIndicator(model->Indicator);
}

}  // namespace VtInvent
