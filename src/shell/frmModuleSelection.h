// The choice of a module: twelve options and what the chosen one does.
#pragma once

#include <vector>

#include "qt/forms.h"

class QRadioButton;
class QTextBrowser;

class frmModuleSelection : public qt::ChildForm {
    Q_OBJECT
public:
    explicit frmModuleSelection(QWidget* parent);

    void ClosedByHand() override {}  // stays up until a module is chosen

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Select(int number);
    QWidget* MakeOptions();
    void ShadePlaceholder();
    void Choose(int index);

    std::vector<QRadioButton*> options;  // module 1 first
    QTextBrowser* txtprobsel = nullptr;
};
