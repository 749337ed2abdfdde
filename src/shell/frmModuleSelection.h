// The choice of a module: twelve options and what the chosen one does.
#pragma once

#include "qt/forms.h"

class QTextBrowser;

class frmModuleSelection : public qt::ChildForm {
    Q_OBJECT
public:
    explicit frmModuleSelection(QWidget* parent);

    void ClosedByHand() override {}  // stays up until a module is chosen

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Select(int number);
    QWidget* MakeOptions();

    QTextBrowser* txtprobsel = nullptr;
};
