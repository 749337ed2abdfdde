#include "play/dialogsteps.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QWindow>
#include <map>

#include "play/controls.h"
#include "play/hands.h"

namespace play {
namespace {

template <typename Dialog>
Dialog* DialogInFront()
{
    return qobject_cast<Dialog*>(ModalInFront());
}

bool IsCancel(const Word& word)
{
    return !word.Quoted && word.Text == "cancel";
}

QString FullPath(const Word& word, const Stage& stage)
{
    return QDir::cleanPath(QDir(stage.Folder).absoluteFilePath(QString::fromStdString(word.Text)));
}

// The dialog's own button; Escape where it has none.
void CancelDialog(const QDialog& dialog)
{
    const auto* row = dialog.findChild<QDialogButtonBox*>();
    QPushButton* cancel = row == nullptr ? nullptr : row->button(QDialogButtonBox::Cancel);
    if (cancel != nullptr)
        Click(cancel, cancel->rect().center());
    else
        Press(Qt::Key_Escape);
}

void PressDefault(const QDialog& dialog)
{
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->isDefault()) {
            Click(button, button->rect().center());
            return;
        }
}

// Entered at once: the dialog completes names while they are typed, from what it happens to have read so far.
void Enter(QLineEdit& box, const QString& path)
{
    Click(&box, box.rect().center());
    box.setText(path);
}

QMessageBox::StandardButton ButtonOf(const std::string& name)
{
    static const std::map<std::string, QMessageBox::StandardButton> kButtons = {
        {"OK", QMessageBox::Ok},
        {"Cancel", QMessageBox::Cancel},
        {"Yes", QMessageBox::Yes},
        {"No", QMessageBox::No}};
    const auto found = kButtons.find(name);
    return found == kButtons.end() ? QMessageBox::NoButton : found->second;
}

bool ChoosePdf(QComboBox& printers)
{
    for (int row = 0; row < printers.count(); ++row) {
        if (!printers.itemText(row).contains("PDF")) continue;
        printers.setCurrentIndex(row);
        return true;
    }
    return false;
}

}  // namespace

Outcome AnswerBox(const Step& step, Stage&)
{
    const auto* box = DialogInFront<QMessageBox>();
    if (box == nullptr) return "no message box is in front";
    QAbstractButton* button = box->button(ButtonOf(step.Argument(1).Text));
    if (button == nullptr) return "the message box has no button " + step.Argument(1).Text;
    Click(button, button->rect().center());
    return kDone;
}

Outcome AnswerInput(const Step& step, Stage&)
{
    const auto* dialog = DialogInFront<QInputDialog>();
    if (dialog == nullptr) return "no input box is in front";
    if (IsCancel(step.Argument(1))) {
        CancelDialog(*dialog);
        return kDone;
    }
    auto* box = dialog->findChild<QLineEdit*>();
    if (box == nullptr) return "the input box takes no text";
    Click(box, box->rect().center());
    box->selectAll();
    if (step.Argument(1).Text.empty())
        Press(Qt::Key_Delete, Qt::NoModifier, "\x7f");
    else
        TypeCharacters(step.Argument(1).Text);
    PressDefault(*dialog);
    return kDone;
}

Outcome AnswerFileDialog(const Step& step, Stage& stage)
{
    const auto* dialog = DialogInFront<QFileDialog>();
    if (dialog == nullptr) return "no file dialog is in front";
    if (IsCancel(step.Argument(1))) {
        CancelDialog(*dialog);
        return kDone;
    }
    auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    if (name == nullptr) return "the file dialog takes no name";
    Enter(*name, FullPath(step.Argument(1), stage));
    Press(Qt::Key_Return, Qt::NoModifier, "\r");
    return kDone;
}

Outcome AnswerPrinterDialog(const Step& step, Stage& stage)
{
    const auto* dialog = DialogInFront<QPrintDialog>();
    if (dialog == nullptr) return "no printer dialog is in front";
    if (IsCancel(step.Argument(1))) {
        CancelDialog(*dialog);
        return kDone;
    }
    auto* printers = dialog->findChild<QComboBox*>("printers");
    auto* name = dialog->findChild<QLineEdit*>("filename");
    if (printers == nullptr || name == nullptr || !ChoosePdf(*printers))
        return "the printer dialog prints to no file";
    Enter(*name, FullPath(step.Argument(1), stage));
    PressDefault(*dialog);
    return kDone;
}

Outcome CloseScreen(const Step&, Stage&)
{
    QWidget* screen = ScreenInFront();
    if (screen == nullptr) return "no screen is shown";
    CloseMenus();
    if (auto* frame = qobject_cast<QMdiSubWindow*>(screen->parentWidget())) {
        if ((frame->windowFlags() & Qt::WindowCloseButtonHint) == 0)
            return screen->objectName().toStdString() + " has no close button";
        frame->close();
        return kDone;
    }
    if (screen->windowHandle() != nullptr) screen->windowHandle()->close();
    return kDone;
}

}  // namespace play
