#include "inventory/frmInventory.h"

#include "basic/entrytext.h"
#include "qt/text.h"

using VtInvent::Problem;

namespace {

bool HoldsPercent()
{
    return Problem.HoldingCostMethod.Value() == VtInvent::kPercentMethod;
}

bool TakeFirstHoldingBox(std::string_view text)
{
    return HoldsPercent() ? VtInvent::TakeCarryingPercent(text) : VtInvent::TakeHoldingAmount(text);
}

}  // namespace

QLineEdit* InventoryForm::AddField(const char* name, std::string_view label, Take take, const Variant& value)
{
    QLineEdit* box = AddField(Rows(), name, label, take, EntryText(value));
    box->setToolTip(qt::kMoreThanZero);
    return box;
}

void InventoryForm::AddAnnualDemand(const char* name)
{
    AddField(name, "Annual Demand Rate (Units/Year):", VtInvent::TakeAnnualDemand, Problem.AnnualDemand);
}

void InventoryForm::AddOrderCost(const char* name)
{
    AddField(name, "Ordering Cost ($/Order):", VtInvent::TakeOrderCost, Problem.OrderCost);
}

void InventoryForm::AddWorkingDays(const char* name)
{
    workingDays_ = AddField(Rows(), name, "Number of Working Days per Year:", VtInvent::TakeWorkingDays,
                            VtInvent::OpeningWorkingDays());
    workingDays_->setToolTip("1 to 365");
    qt::AddLabel(Rows(), "lblWorkingDaysNote", "(250 days/year is common)");
}

QComboBox* InventoryForm::AddChoice(QFormLayout* rows, const char* name, std::string_view label,
                                    const std::vector<std::string_view>& items, int current,
                                    std::function<void(int index)> chosen)
{
    QComboBox* combo = qt::AddCombo(rows, name, label);
    for (const std::string_view item : items)
        combo->addItem(qt::ToQt(item));
    combo->setCurrentIndex(current);
    connect(combo, &QComboBox::currentIndexChanged, this, std::move(chosen));
    return combo;
}

// The lines of the list are the values of the method.
void InventoryForm::AddHoldingCost()
{
    const int method = VtInvent::OpeningHoldingMethod();
    VtInvent::ChooseHoldingMethod(method);
    AddChoice(Rows(), "comboHoldingcostmethod", "Holding Cost Method:", {"Amount", "Percent"}, method,
              [this](int index) { ChooseHoldingMethod(index); });
    txtFrame1_ = AddField(Rows(), "txtFrame1", "", TakeFirstHoldingBox,
                          EntryText(HoldsPercent() ? Problem.CarryingPercent : Problem.HoldingCost));
    txtframe2_ = AddField(Rows(), "txtframe2", "Unit Cost:", VtInvent::TakeUnitCost,
                          HoldsPercent() ? EntryText(Problem.UnitCost) : std::string());
    txtFrame1_->setToolTip(qt::kMoreThanZero);
    txtframe2_->setToolTip(qt::kMoreThanZero);
    ShowHoldingMethod();
}

void InventoryForm::ShowHoldingMethod()
{
    qt::SetRowLabel(txtFrame1_, HoldsPercent() ? "Percent of Unit Cost (0-100):" : "Dollar Amount per Unit:");
    qt::ShowRow(txtframe2_, HoldsPercent());
}

void InventoryForm::ChooseHoldingMethod(int method)
{
    VtInvent::ChooseHoldingMethod(method);
    txtFrame1_->clear();
    txtframe2_->clear();
    ShowHoldingMethod();
}

void InventoryForm::AddReorderPoint()
{
    const bool compute = Problem.ComputeReorderPoint != 0;
    QCheckBox* check = qt::AddCheck(Rows(), "chkreorderpoint", "Compute Reorder Point?");
    check->setChecked(compute);
    txtleadtime_ = AddField(Rows(), "txtleadtime", "Enter Lead Time in days:", VtInvent::TakeLeadTime,
                            EntryText(Problem.LeadTimeDays));
    txtleadtime_->setToolTip(qt::kZeroOrMore);
    qt::ShowRow(txtleadtime_, compute);
    connect(check, &QCheckBox::toggled, this, &InventoryForm::ChooseReorderPoint);
}

void InventoryForm::ChooseReorderPoint(bool compute)
{
    VtInvent::ChooseReorderPoint(compute);
    qt::ShowRow(txtleadtime_, compute);
}

bool InventoryForm::Keep()
{
    if (workingDays_ != nullptr) VtInvent::KeepWorkingDays(qt::TextOf(workingDays_));
    if (txtFrame1_ != nullptr) VtInvent::KeepHoldingCost(qt::TextOf(txtFrame1_), qt::TextOf(txtframe2_));
    return true;
}
