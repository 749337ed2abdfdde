#include "inventory/frmQR_Prob.h"

#include <array>

#include "basic/entrytext.h"

using VtInvent::Problem;

namespace {

// The methods in the order of the list.
constexpr std::array<int, 2> kMethods{VtInvent::kStockoutProbability, VtInvent::kAllowedStockouts};

bool GivesProbability()
{
    return Problem.ServiceMethod.Value() == VtInvent::kStockoutProbability;
}

bool TakeStockout(std::string_view text)
{
    return GivesProbability() ? VtInvent::TakeStockoutProbability(text)
                              : VtInvent::TakeAllowedStockouts(text);
}

}  // namespace

frmQR_Prob::frmQR_Prob(QWidget* parent)
    : InventoryForm(parent, "frmQR_Prob", " Q/R with Probabilistic Demand")
{
    AddAnnualDemand("txtQR_Prob(0)");
    AddOrderCost("txtQR_Prob(1)");
    AddHoldingCost();
    AddWorkingDays("txtQR_Prob(2)");
    AddLeadTimeDemand();
    AddService();
    AddButtons();
}

void frmQR_Prob::AddLeadTimeDemand()
{
    QGroupBox* frame = qt::AddFrame(Rows(), "frameDemand", "Normal Distribution of Demand During Leadtime:");
    auto* rows = new QFormLayout;
    static_cast<QBoxLayout*>(frame->layout())->addLayout(rows);
    const std::array boxes = {
        ModelEntryForm::AddField(rows, "txtMean", "Mean:", VtInvent::TakeMeanDemand,
                                 EntryText(Problem.MeanDemand)),
        ModelEntryForm::AddField(rows, "txtStdDev", "Standard Deviation:", VtInvent::TakeDemandStdDev,
                                 EntryText(Problem.DemandStdDev))};
    for (QLineEdit* box : boxes)
        box->setToolTip(qt::kZeroOrMore);
}

void frmQR_Prob::AddService()
{
    const int method = VtInvent::OpeningServiceMethod();
    VtInvent::ChooseServiceMethod(method);
    AddChoice(Rows(), "comboService", "Service Level Method:", {"Prob. of a Stockout", "Number of Stockouts"},
              method == kMethods[0] ? 0 : 1, [this](int index) {
                  VtInvent::ChooseServiceMethod(kMethods.at(static_cast<std::size_t>(index)));
                  txtStockout_->clear();
                  ShowServiceMethod();
              });
    const Variant& value = GivesProbability() ? Problem.StockoutProbability : Problem.AllowedStockouts;
    txtStockout_ = ModelEntryForm::AddField(Rows(), "txtStockout", "", TakeStockout, EntryText(value));
    ShowServiceMethod();
}

void frmQR_Prob::ShowServiceMethod()
{
    qt::SetRowLabel(txtStockout_, GivesProbability() ? "Probability of a Stockout:"
                                                     : "Allowable Number of Stockouts per Year:");
    txtStockout_->setToolTip(GivesProbability() ? "0 to 0.5" : qt::kZeroOrMore);
}
