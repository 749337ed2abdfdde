#include "shell/frmModelEntry.h"

#include "qt/text.h"
#include "shell/session.h"

ModelEntryForm::ModelEntryForm(QWidget* parent, const char* name, std::string_view title)
    : qt::ModalForm(parent), rows_(new QFormLayout(this))
{
    setObjectName(QString::fromUtf8(name));
    setWindowTitle(qt::ToQt(title));
}

QLineEdit* ModelEntryForm::AddField(QFormLayout* rows, const char* name, std::string_view label,
                                    qt::TextCheck check, std::string_view text, const char* labelName)
{
    QLineEdit* box = qt::AddBox(rows, name, label, check, labelName);
    qt::SetTextOf(box, text);
    Require(box, std::move(check));
    return box;
}

void ModelEntryForm::Require(QLineEdit* box, qt::TextCheck check)
{
    fields_.push_back({box, std::move(check)});
}

void ModelEntryForm::CheckAtSolve(const QLineEdit* box, const qt::TextCheck& check)
{
    for (Field& field : fields_)
        if (field.Box == box) field.Check = check;
}

void ModelEntryForm::AddButtons()
{
    QHBoxLayout* buttons = qt::AddButtonRow(rows_);
    qt::AddButton(buttons, "cmdSolve", "Solve", [this] { Leave(FormExit::Solve); });
    qt::AddButton(buttons, "cmdSave", "Save", [this] { Leave(FormExit::Save); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", CancelModelForm);
    qt::SelectBox(fields_.front().Box);
}

bool ModelEntryForm::IsComplete()
{
    for (const Field& field : fields_) {
        if (!field.Box->isVisibleTo(this) || !qt::TextOf(field.Box).empty()) continue;
        qt::SelectBox(field.Box);
        return RequireValue({});
    }
    return true;
}

// The last number that was looked at stays the one of the box that was left last.
bool ModelEntryForm::IsTaken()
{
    const std::string checkText = Session.CheckText;
    const std::string isNumber = Session.IsNumber;
    for (const Field& field : fields_) {
        if (!field.Box->isVisibleTo(this) || qt::IsTaken(field.Box, field.Check)) continue;
        qt::SelectBox(field.Box);
        return false;
    }
    Session.CheckText = checkText;
    Session.IsNumber = isNumber;
    return true;
}

void ModelEntryForm::Leave(FormExit exit)
{
    if (IsComplete() && IsTaken() && Keep()) LeaveModelForm(exit);
}
