#include "tableau/frmTransObj.h"

#include "qt/fields.h"
#include "qt/text.h"

frmTransObj::frmTransObj(QWidget* parent) : qt::ModalForm(parent)
{
    setWindowTitle(" Select Optimization Criteria");
    auto* page = new QVBoxLayout(this);
    qt::AddLabel(page, "Text1", "Select Optimization Criteria");
    QLayout* frame = qt::AddFrame(page, "Frame1", "")->layout();
    optMinimize = qt::AddOption(frame, "optMinimize", "Minimization Objective");
    optMaximize = qt::AddOption(frame, "optMaximize", "Maximization Objective");
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { TakeCriterion(Chosen()); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { TheCriterion.Cancel(); });
    BeginCriterion();
}

void frmTransObj::showEvent(QShowEvent* event)
{
    const CriterionQuestion& question = TheCriterion.Question();
    optMinimize->setText(qt::ToQt(question.Words.Minimize));
    optMaximize->setText(qt::ToQt(question.Words.Maximize));
    QRadioButton* chosen = question.InForce == Criterion::Maximize ? optMaximize : optMinimize;
    chosen->setChecked(true);
    ModalForm::showEvent(event);
    chosen->setFocus(Qt::TabFocusReason);
}

Criterion frmTransObj::Chosen() const
{
    if (optMaximize->isChecked()) return Criterion::Maximize;
    return optMinimize->isChecked() ? Criterion::Minimize : Criterion::None;
}
