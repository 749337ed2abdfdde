#include "shell/frmUserInput.h"

#include "qt/fields.h"
#include "shell/userinput.h"

frmUserInput::frmUserInput(QWidget* parent) : qt::ModalForm(parent)
{
    const SizeDialog& dialog = UserInput::Sizes.Question();
    setObjectName("frmUserInput");
    setWindowTitle(QString::fromStdString(dialog.Caption));

    auto* page = new QVBoxLayout(this);
    qt::AddLabel(page, "lblCaption", dialog.Caption);
    auto* rows = new QFormLayout;
    page->addLayout(rows);
    AddQuestions(rows);

    auto* buttons = qt::AddButtonRow(page);
    qt::AddButton(buttons, "cmdOK", "OK", [this] { Accept(); });
    qt::AddCancelButton(buttons, "cmdCancel", "Cancel", UserInput::CancelSizes);
}

void frmUserInput::AddQuestions(QFormLayout* rows)
{
    for (const SizeQuestion& question : UserInput::Sizes.Question().Questions) {
        const std::string index = "(" + std::to_string(txtAnswer.size()) + ")";
        QLineEdit* box = qt::AddBox(rows, ("txtAnswer" + index).c_str(), question.Question, {},
                                    ("lblQuestion" + index).c_str());
        qt::OnlyDigits(box);
        box->setToolTip(QString::number(question.Least) + " to " + QString::number(question.Most));
        if (!question.Note.empty()) qt::AddLabel(rows, ("lblNote" + index).c_str(), question.Note);
        txtAnswer.push_back(box);
    }
}

void frmUserInput::Accept()
{
    std::vector<std::string> texts;
    for (const QLineEdit* box : txtAnswer)
        texts.push_back(qt::TextOf(box));
    UserInput::TakeSizes(texts, qt::PointAt(txtAnswer));
}
