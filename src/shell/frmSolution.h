// The report on screen: a page of fixed-pitch lines that scrolls.
#pragma once

#include "qt/forms.h"

class QPlainTextEdit;

class frmSolution : public qt::ChildForm {
    Q_OBJECT
public:
    explicit frmSolution(QWidget* parent);
    void ClosedByHand() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* gridSolution = nullptr;
};
