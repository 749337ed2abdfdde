// One or two whole numbers: the size of a problem.
#pragma once

#include <vector>

#include "qt/forms.h"

class QFormLayout;
class QLineEdit;

class frmUserInput : public qt::ModalForm {
    Q_OBJECT
public:
    explicit frmUserInput(QWidget* parent);

private:
    void AddQuestions(QFormLayout* rows);
    void Accept();

    std::vector<QLineEdit*> txtAnswer;
};
