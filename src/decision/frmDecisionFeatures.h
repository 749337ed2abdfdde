// The features of a new decision problem: its size, and whether it has probabilities and a sample.
#pragma once

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include "qt/forms.h"

class frmDecisionFeatures : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmDecisionFeatures(QWidget* parent = nullptr);

private:
    void AddSizes(QFormLayout* rows);
    void AddOptions(QFormLayout* rows);
    void ShowWhatApplies();  // the strategy goes with the state probabilities, its outcomes with the strategy
    void Accept();

    QLineEdit* txtNumAlternatives = nullptr;
    QLineEdit* txtNumStates = nullptr;
    QCheckBox* chkStateProbs = nullptr;
    QCheckBox* chkStrategy = nullptr;
    QLabel* lblStrategyNote = nullptr;
    QLineEdit* txtIndicator = nullptr;
};
