// Minimise or maximise. The form stays loaded, so that a second showing begins with what was chosen at the
// first.
#pragma once

#include "qt/forms.h"
#include "tableau/Criterion.h"

class QRadioButton;

class frmTransObj : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmTransObj(QWidget* parent);

private:
    [[nodiscard]] Criterion Chosen() const;
    void Accept();
    static void Cancel();

    QRadioButton* optMinimize = nullptr;
    QRadioButton* optMaximize = nullptr;
};
