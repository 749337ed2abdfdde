#include "lp/frmLPFeatures.h"

#include "lp/VtLP.h"
#include "qt/fields.h"

frmLPFeatures::frmLPFeatures(QWidget* parent) : qt::ModalForm(parent)
{
    setObjectName("frmLPFeatures");
    setWindowTitle(" Problem Features");
    auto* page = new QVBoxLayout(this);
    auto* rows = new QFormLayout;
    page->addLayout(rows);
    txtConstraints = qt::AddBox(rows, "txtConstraints", "Number of Constraints:");
    qt::AddLabel(rows, "lblConstraintsNote", "(Not Including Nonnegativity)");
    txtVariables = qt::AddBox(rows, "txtVariables", "Number of Decision Variables:");
    txtConstraints->setToolTip("1 to " + QString::number(VtLP::kMostConstraints));
    txtVariables->setToolTip("1 to " + QString::number(VtLP::kMostVariables));
    QLayout* frame = qt::AddFrame(page, "Frame1", "Optimization Type")->layout();
    optMinimize = qt::AddOption(frame, "optMinimize", "Minimize");
    optMaximize = qt::AddOption(frame, "optMaximize", "Maximize");
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { VtLP::TheFeatures.Cancel(); });
}

void frmLPFeatures::Accept()
{
    const auto point = [this](int box) {
        if (box < 2)
            qt::SelectBox(box == 0 ? txtConstraints : txtVariables);
        else
            optMinimize->setFocus(Qt::TabFocusReason);
    };
    VtLP::TakeFeatures(qt::TextOf(txtConstraints), qt::TextOf(txtVariables), optMinimize->isChecked(),
                       optMaximize->isChecked(), point);
}
