#include "decision/frmDecisionFeatures.h"

#include <array>

#include "decision/VtDecisionAnalysis.h"
#include "qt/fields.h"

frmDecisionFeatures::frmDecisionFeatures(QWidget* parent) : qt::ModalForm(parent)
{
    setWindowTitle(" Problem Features");
    auto* rows = new QFormLayout(this);
    AddSizes(rows);
    AddOptions(rows);
    auto* buttons = qt::AddButtonRow(rows);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { Decision::TheFeatures.Cancel(); });
    ShowWhatApplies();
}

void frmDecisionFeatures::AddSizes(QFormLayout* rows)
{
    txtNumAlternatives =
        qt::AddBox(rows, "txtNumAlternatives",
                   "Number of Decision Alternatives (MAX=10):", Decision::TakeAlternativeCount);
    txtNumStates =
        qt::AddBox(rows, "txtNumStates", "Number of States of Nature (MAX=10):", Decision::TakeStateCount);
}

void frmDecisionFeatures::AddOptions(QFormLayout* rows)
{
    chkStateProbs = qt::AddCheck(rows, "chkStateProbs", "State of Nature Probabilities");
    chkStrategy = qt::AddCheck(rows, "chkStrategy", "Compute Decision Strategy");
    lblStrategyNote = qt::AddLabel(rows, "lblStrategyNote",
                                   "(If yes, probabilities for Indicator (Sample) outcomes are requested.)");
    txtIndicator = qt::AddBox(rows, "txtIndicator",
                              "Number of Indicator Outcomes (MAX=10):", Decision::TakeIndicatorCount);
    lblStrategyNote->setWordWrap(false);
    for (QLineEdit* box : {txtNumAlternatives, txtNumStates, txtIndicator})
        box->setToolTip("1 to 10");
    connect(chkStateProbs, &QCheckBox::toggled, this, &frmDecisionFeatures::ShowWhatApplies);
    connect(chkStrategy, &QCheckBox::toggled, this, &frmDecisionFeatures::ShowWhatApplies);
}

void frmDecisionFeatures::ShowWhatApplies()
{
    const bool states = chkStateProbs->isChecked();
    if (!states) chkStrategy->setChecked(false);
    chkStrategy->setVisible(states);
    lblStrategyNote->setVisible(states);
    qt::ShowRow(txtIndicator, chkStrategy->isChecked());
    adjustSize();
}

void frmDecisionFeatures::Accept()
{
    const std::array boxes = {txtNumAlternatives, txtNumStates, txtIndicator};
    Decision::TakeFeatures({.Alternatives = qt::TextOf(txtNumAlternatives),
                            .States = qt::TextOf(txtNumStates),
                            .Indicators = qt::TextOf(txtIndicator),
                            .StateProbabilities = chkStateProbs->isChecked(),
                            .Strategy = chkStrategy->isChecked()},
                           qt::PointAt(boxes));
}
