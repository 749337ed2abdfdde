// How many activities a new project has, and whether their times are known. The form stays loaded, so that a
// second showing begins with what was entered at the first.
#pragma once

#include "qt/forms.h"

class QLineEdit;
class QRadioButton;

class frmPERTCPM_Init : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmPERTCPM_Init(QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Accept();

    QLineEdit* txtNumActivities = nullptr;
    QRadioButton* optUncertain = nullptr;
};
