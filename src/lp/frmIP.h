// Which variables of an integer program must be 0 or 1, which ones whole. A variable has one type at most:
// choosing it in one list takes it out of the other.
#pragma once

#include "lp/IntegerTypes.h"
#include "qt/forms.h"

class QLayout;
class QListWidget;
class QRadioButton;

class frmIP : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmIP(QWidget* parent);

private:
    void AddOptions(QLayout* page);
    void AddLists(QLayout* page);
    void ShowChoice(const VtLP::IntegerChoice& choice);
    [[nodiscard]] VtLP::IntegerChoice Choice() const;
    void Accept();

    QRadioButton* optbinary = nullptr;
    QRadioButton* optgeneral = nullptr;
    QRadioButton* optMultiple = nullptr;
    QListWidget* lstBinary = nullptr;
    QListWidget* lstGeneral = nullptr;
};
