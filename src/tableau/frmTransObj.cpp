#include "tableau/frmTransObj.h"

#include "desktop/desktop.h"
#include "qt/fields.h"
#include "shell/session.h"

frmTransObj::frmTransObj(QWidget* parent) : qt::ModalForm(parent)
{
    setWindowTitle(" Select Optimization Criteria");
    auto* page = new QVBoxLayout(this);
    qt::AddLabel(page, "Text1", "Select Optimization Criteria");
    QLayout* frame = qt::AddFrame(page, "Frame1", "")->layout();
    optMinimize = qt::AddOption(frame, "optMinimize", "Minimization Objective");
    optMaximize = qt::AddOption(frame, "optMaximize", "Maximization Objective");
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", Cancel);
    BeginCriterion();
}

void frmTransObj::showEvent(QShowEvent* event)
{
    QRadioButton* chosen = CriterionInForce() == Criterion::Maximize ? optMaximize : optMinimize;
    chosen->setChecked(true);
    ModalForm::showEvent(event);
    chosen->setFocus(Qt::TabFocusReason);
}

Criterion frmTransObj::Chosen() const
{
    if (optMaximize->isChecked()) return Criterion::Maximize;
    return optMinimize->isChecked() ? Criterion::Minimize : Criterion::None;
}

void frmTransObj::Accept()
{
    if (TakeCriterion(Chosen())) desktop::TheForms().Hide("frmTransObj");
}

void frmTransObj::Cancel()
{
    LeaveDialog(true);
    desktop::TheForms().Hide("frmTransObj");
}
