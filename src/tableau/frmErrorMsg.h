// A notice of nine lines.
#pragma once

#include "qt/forms.h"

class frmErrorMsg : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmErrorMsg(QWidget* parent);
};
