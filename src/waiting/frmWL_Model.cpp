#include "waiting/frmWL_Model.h"

#include "basic/entrytext.h"
#include "basic/format.h"

using VtWait::Problem;
using VtWait::WaitingProblem;

namespace {

std::string Indexed(const char* name, int index)
{
    return std::string(name) + "(" + std::to_string(index) + ")";
}

// Where a box takes every number, there is nothing to tell.
QString RangeOf(Variant WaitingProblem::*field)
{
    if (field == &WaitingProblem::ArrivalRate || field == &WaitingProblem::ServiceRate)
        return qt::kMoreThanZero;
    if (field == &WaitingProblem::Channels) return "1 to " + QString::number(VtWait::kMostChannels);
    if (field == &WaitingProblem::Population) return "1 to " + QString::number(VtWait::kMostPopulation);
    return {};
}

bool HasOneChannel()
{
    return Problem.WaitingModel == VtWait::kArbitrary || Problem.WaitingModel == VtWait::kDeterministic;
}

}  // namespace

frmWL_Model::frmWL_Model(QWidget* parent) : ModelEntryForm(parent, "frmWL_Model", " Waiting Lines")
{
    if (HasOneChannel()) Problem.Channels = 1;
    qt::AddLabel(Rows(), "lblTitle", " " + std::string(VtWait::Title()))->setWordWrap(false);
    for (int i = 0; i < VtWait::kBoxCount; ++i)
        AddModelBox(i);
    AddEconomicAnalysis();
    AddButtons();
}

void frmWL_Model::AddModelBox(int index)
{
    const VtWait::Box& box = VtWait::Boxes().at(static_cast<std::size_t>(index));
    const std::string name = Indexed("txt_WL", index);
    const std::string labelName = Indexed("lbl_WL", index);
    if (box.Take == nullptr) {
        qt::ShowRow(qt::AddBox(Rows(), name.c_str(), "", {}, labelName.c_str()), false);
        return;
    }
    QLineEdit* field = AddCheckedField(Rows(), name, box.Label, box.Take, Problem.*box.Field, labelName);
    field->setToolTip(RangeOf(box.Field));
    if (box.Field == &WaitingProblem::ArrivalRate) arrivalRate_ = field;
    if (!box.Note.empty()) qt::AddLabel(Rows(), Indexed("lblNote", index).c_str(), box.Note);
}

// A refused text comes back in capitals, as it was checked.
QLineEdit* frmWL_Model::AddCheckedField(QFormLayout* rows, const std::string& name, std::string_view label,
                                        Take take, const Variant& value, const std::string& labelName)
{
    const auto check = [this, name, take](std::string_view text) {
        if (take(text)) return true;
        qt::SetTextOf(findChild<QLineEdit*>(QString::fromStdString(name)), UpperCase(text));
        return false;
    };
    return AddField(rows, name.c_str(), label, check, EntryText(value), labelName.c_str());
}

void frmWL_Model::AddEconomicAnalysis()
{
    const bool wanted = VtWait::HasEconomicAnalysis();
    QCheckBox* check = qt::AddCheck(Rows(), "chkECONAnal", "Economic Analysis?");
    check->setChecked(wanted);
    frameECONAnal_ = qt::AddFrame(Rows(), "frameECONAnal", "");
    auto* rows = new QFormLayout;
    static_cast<QBoxLayout*>(frameECONAnal_->layout())->addLayout(rows);
    txtECONAnal_ = {AddCheckedField(rows, "txtECONAnal(0)", "Cost per Time Period for Units in System:",
                                    VtWait::TakeCostPerUnitInSystem, Problem.CostPerUnitInSystem, ""),
                    AddCheckedField(rows, "txtECONAnal(1)", "Cost per Time Period for a Channel:",
                                    VtWait::TakeCostPerChannel, Problem.CostPerChannel, "")};
    const bool offered = Problem.WaitingModel != VtWait::kNoWaiting;
    check->setVisible(offered);
    frameECONAnal_->setVisible(offered && wanted);
    connect(check, &QCheckBox::toggled, this, &frmWL_Model::ChooseEconomicAnalysis);
}

void frmWL_Model::ChooseEconomicAnalysis(bool wanted)
{
    VtWait::ChooseEconomicAnalysis(wanted);
    frameECONAnal_->setVisible(wanted);
    if (wanted) return;
    for (QLineEdit* box : txtECONAnal_)
        box->clear();
}

bool frmWL_Model::Keep()
{
    qt::SelectBox(arrivalRate_);
    return VtWait::CheckRates();
}
