#include "shell/frmModelEntry.h"

#include "desktop/desktop.h"
#include "qt/text.h"

ModelEntryForm::ModelEntryForm(QWidget* parent, const char* name, std::string_view title)
    : qt::ModalForm(parent), rows_(new QFormLayout(this))
{
    setObjectName(QString::fromUtf8(name));
    setWindowTitle(qt::ToQt(title));
}

QLineEdit* ModelEntryForm::AddField(QFormLayout* rows, const char* name, std::string_view label,
                                    qt::TextCheck check, std::string_view text, const char* labelName)
{
    QLineEdit* box = qt::AddBox(rows, name, label, std::move(check), labelName);
    qt::SetTextOf(box, text);
    Require(box);
    return box;
}

void ModelEntryForm::Require(QLineEdit* box)
{
    required_.push_back(box);
}

void ModelEntryForm::AddButtons()
{
    QHBoxLayout* buttons = qt::AddButtonRow(rows_);
    qt::AddButton(buttons, "cmdSolve", "Solve", [this] { Leave(FormExit::Solve); });
    qt::AddButton(buttons, "cmdSave", "Save", [this] { Leave(FormExit::Save); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", [this] { Cancel(); });
    qt::SelectBox(required_.front());
}

bool ModelEntryForm::IsComplete()
{
    for (QLineEdit* box : required_) {
        if (!box->isVisibleTo(this) || RequireValue(qt::TextOf(box))) continue;
        qt::SelectBox(box);
        return false;
    }
    return true;
}

void ModelEntryForm::Leave(FormExit exit)
{
    if (!IsComplete() || !Keep()) return;
    LeaveModelForm(exit);
    desktop::TheForms().Unload(qt::FromQt(objectName()));
}

void ModelEntryForm::Cancel()
{
    if (CancelModelForm(Saved())) desktop::TheForms().Unload(qt::FromQt(objectName()));
}
