#include "tableau/frmErrorMsg.h"

#include "qt/dialogs.h"
#include "qt/fields.h"
#include "tableau/ErrorMsg.h"

frmErrorMsg::frmErrorMsg(QWidget* parent) : qt::ModalForm(parent), spoken_(qt::SpokenOf(parent))
{
    setWindowTitle(" Data Input Error");
    auto* page = new QVBoxLayout(this);
    int index = 0;
    for (const std::string& line : ErrorNotice.Question()) {
        const std::string name = "lbl(" + std::to_string(index++) + ")";
        qt::AddLabel(page, name.c_str(), line)->setWordWrap(false);
    }
    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [] { ErrorNotice.Give({}); });
}

void frmErrorMsg::showEvent(QShowEvent* event)
{
    qt::ModalForm::showEvent(event);
    qt::StepAside(*this, spoken_);
}
