// Minimise or maximise. The form stays loaded; whenever it comes up, it shows the criterion in force.
#pragma once

#include "qt/forms.h"
#include "tableau/Criterion.h"

class QRadioButton;

class frmTransObj : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmTransObj(QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] Criterion Chosen() const;

    QRadioButton* optMinimize = nullptr;
    QRadioButton* optMaximize = nullptr;
};
