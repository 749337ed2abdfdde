// A notice of nine lines. It leaves in sight the cell that it speaks of.
#pragma once

#include <QRect>

#include "qt/forms.h"

class frmErrorMsg : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmErrorMsg(QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    const QRect spoken_;  // the cell with the value
};
