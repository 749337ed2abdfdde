#include "network/frminputnodes.h"

#include "network/vtshrtrt.h"
#include "qt/fields.h"

frminputnodes::frminputnodes(QWidget* parent) : qt::ModalForm(parent)
{
    setWindowTitle(" Select the Starting and Ending Nodes for the Route");
    auto* page = new QVBoxLayout(this);
    auto* rows = new QFormLayout;
    page->addLayout(rows);
    txtAnswer[0] =
        qt::AddBox(rows, "txtAnswer(0)", "Enter the Number of the Starting Node:", {}, "lblQuestion(0)");
    txtAnswer[1] =
        qt::AddBox(rows, "txtAnswer(1)", "Enter the Number of the Ending Node:", {}, "lblQuestion(1)");
    for (QLineEdit* box : txtAnswer)
        box->setToolTip("1 to " + QString::number(Network::Problem.NumNodes));
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [] { Network::Ends.Cancel(); });
}

void frminputnodes::showEvent(QShowEvent* event)
{
    ModalForm::showEvent(event);
    qt::SelectBox(txtAnswer[0]);
}

void frminputnodes::Accept()
{
    Network::TakeNodes(qt::TextOf(txtAnswer[0]), qt::TextOf(txtAnswer[1]), qt::PointAt(txtAnswer));
}
