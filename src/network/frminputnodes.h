// The two ends of the route. The form stays loaded, so that a second showing begins with what was chosen at
// the first.
#pragma once

#include <array>

#include "qt/forms.h"

class QLineEdit;

class frminputnodes : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frminputnodes(QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Accept();

    std::array<QLineEdit*, 2> txtAnswer{};
};
