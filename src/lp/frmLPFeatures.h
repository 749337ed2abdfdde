// The size of a linear program and the type of its objective.
#pragma once

#include "qt/forms.h"

class QLineEdit;
class QRadioButton;

class frmLPFeatures : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmLPFeatures(QWidget* parent);

private:
    void Accept();

    QLineEdit* txtConstraints = nullptr;
    QLineEdit* txtVariables = nullptr;
    QRadioButton* optMinimize = nullptr;
    QRadioButton* optMaximize = nullptr;
};
