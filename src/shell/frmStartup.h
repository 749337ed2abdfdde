// The first screen: what the program is.
#pragma once

#include "qt/forms.h"

class frmStartup : public qt::ModalForm {
    Q_OBJECT
public:
    explicit frmStartup(QWidget* parent);

    void ClosedByHand() override;  // ends the program
};
