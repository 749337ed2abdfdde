#include "network/frminputnodes.h"

#include "desktop/desktop.h"
#include "network/vtshrtrt.h"
#include "qt/fields.h"
#include "shell/session.h"

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
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", Cancel);
}

void frminputnodes::showEvent(QShowEvent* event)
{
    ModalForm::showEvent(event);
    qt::SelectBox(txtAnswer[0]);
}

void frminputnodes::Accept()
{
    if (Network::TakeNodes(qt::TextOf(txtAnswer[0]), qt::TextOf(txtAnswer[1]), qt::PointAt(txtAnswer)) < 0)
        desktop::TheForms().Hide("frminputnodes");
}

void frminputnodes::Cancel()
{
    LeaveDialog(true);
    desktop::TheForms().Hide("frminputnodes");
}
