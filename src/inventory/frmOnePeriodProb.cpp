#include "inventory/frmOnePeriodProb.h"

#include <array>

#include "basic/entrytext.h"

using VtInvent::Problem;

namespace {

// The distributions in the order of the list.
constexpr std::array<int, 2> kDistributions{VtInvent::kUniform, VtInvent::kNormal};

bool IsNormal()
{
    return Problem.DistributionKind.Value() == VtInvent::kNormal;
}

bool TakeSmallValue(std::string_view text)
{
    return IsNormal() ? VtInvent::TakeMeanDemand(text) : VtInvent::TakeLowestDemand(text);
}

bool TakeLargeValue(std::string_view text)
{
    return IsNormal() ? VtInvent::TakeDemandStdDev(text) : VtInvent::TakeHighestDemand(text);
}

}  // namespace

frmOnePeriodProb::frmOnePeriodProb(QWidget* parent)
    : InventoryForm(parent, "frmOnePeriodProb", " Single Period / Probabilistic Demand")
{
    AddField("txtOnePeriodProb(0)", "Per Unit Cost of Overestimating Demand:", VtInvent::TakeOverCost,
             Problem.OrderCost);
    AddField("txtOnePeriodProb(1)", "Per Unit Cost of Underestimating Demand:", VtInvent::TakeUnderCost,
             Problem.UnderCost);
    AddDistribution();
    AddButtons();
}

void frmOnePeriodProb::AddDistribution()
{
    const int kind = VtInvent::OpeningDistribution();
    VtInvent::ChooseDistribution(kind);
    AddChoice(Rows(), "comboDistribution", "Probability Distribution for Demand:", {"Uniform", "Normal"},
              kind == kDistributions[0] ? 0 : 1, [this](int index) {
                  VtInvent::ChooseDistribution(kDistributions.at(static_cast<std::size_t>(index)));
                  txtSmallValue_->clear();
                  txtLargeValue_->clear();
                  ShowDistribution();
              });
    const Variant& small = IsNormal() ? Problem.MeanDemand : Problem.LowestDemand;
    const Variant& large = IsNormal() ? Problem.DemandStdDev : Problem.HighestDemand;
    txtSmallValue_ = ModelEntryForm::AddField(Rows(), "txtSmallValue", "", TakeSmallValue, EntryText(small));
    txtLargeValue_ = ModelEntryForm::AddField(Rows(), "txtLargeValue", "", TakeLargeValue, EntryText(large));
    ShowDistribution();
}

void frmOnePeriodProb::ShowDistribution()
{
    qt::SetRowLabel(txtSmallValue_, IsNormal() ? "Mean:" : "Smallest Value:");
    qt::SetRowLabel(txtLargeValue_, IsNormal() ? "Standard Deviation:" : "Largest Value:");
    txtSmallValue_->setToolTip(qt::kZeroOrMore);
    txtLargeValue_->setToolTip(IsNormal() ? qt::kZeroOrMore : "At least the smallest value");
}
