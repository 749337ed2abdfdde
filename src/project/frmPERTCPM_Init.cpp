#include "project/frmPERTCPM_Init.h"

#include "project/VtPert_CPM.h"
#include "qt/fields.h"

frmPERTCPM_Init::frmPERTCPM_Init(QWidget* parent) : qt::ModalForm(parent)
{
    setWindowTitle(" PERT/CPM Parameters");
    auto* page = new QVBoxLayout(this);
    auto* rows = new QFormLayout;
    page->addLayout(rows);
    txtNumActivities =
        qt::AddBox(rows, "txtNumActivities", "Number of Activities (MAX=25):", VtPert_CPM::TakeActivityCount);
    txtNumActivities->setToolTip("1 to 25");
    qt::AddOption(page, "optActivityTime(0)", "Known Activity Times")->setChecked(true);
    optUncertain = qt::AddOption(page, "optActivityTime(1)", "Uncertain Activity Times");

    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { VtPert_CPM::TheParameters.Cancel(); });
}

void frmPERTCPM_Init::showEvent(QShowEvent* event)
{
    qt::ModalForm::showEvent(event);
    qt::SelectBox(txtNumActivities);
}

void frmPERTCPM_Init::Accept()
{
    const int timeMode = optUncertain->isChecked() ? VtPert_CPM::kThreeEstimates : VtPert_CPM::kKnownTimes;
    qt::SelectBox(txtNumActivities);
    VtPert_CPM::TakeParameters(qt::TextOf(txtNumActivities), timeMode);
}
