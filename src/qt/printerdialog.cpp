#include "qt/printerdialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTimer>
#include <filesystem>

namespace qt {
namespace {

// Where a chain of links to nothing ends.
QString BehindLinksToNothing(QString file)
{
    constexpr int kMostLinks = 40;  // the system follows no more either
    for (int i = 0; i < kMostLinks && QFileInfo(file).isSymLink() && !QFileInfo::exists(file); ++i)
        file = QFileInfo(file).symLinkTarget();
    return file;
}

// A pipe, a socket or a disk; what takes the bytes as they come, like /dev/null, is a file like others.
bool IsSpecial(const QString& file)
{
    std::error_code ignored;
    const auto kind = std::filesystem::status(file.toStdU16String(), ignored).type();
    using enum std::filesystem::file_type;
    return kind == fifo || kind == socket || kind == block;
}

// The toolkit opens the chosen file to see whether it can be written, and removes one that was not there
// before. A pipe would keep it waiting, and the removed file would be a link: neither gets that far.
class PrinterDialog : public QPrintDialog {
public:
    explicit PrinterDialog(QPrinter& printer) : QPrintDialog(&printer, QApplication::activeWindow())
    {
        setObjectName(QStringLiteral("DialogPrinter"));
        setOptions(PrintToFile);
        if (auto* name = NameBox()) name->setMinimumWidth(kNameOfFile);
        auto* row = findChild<QDialogButtonBox*>();
        if (row == nullptr) return;  // a dialog of the system
        connect(row, &QDialogButtonBox::clicked, this, [this, row](const QAbstractButton* button) {
            if (button == row->button(QDialogButtonBox::Ok) && !TakesFile()) Hold(*row);
        });
    }

private:
    static constexpr int kNameOfFile = 280;  // pixels: a folder and a name can be read

    [[nodiscard]] QLineEdit* NameBox() const { return findChild<QLineEdit*>(QStringLiteral("filename")); }

    bool TakesFile()
    {
        auto* box = NameBox();
        if (box == nullptr || !box->isEnabled()) return true;  // it goes to a printer
        const QString file = BehindLinksToNothing(box->text());
        if (file != box->text()) box->setText(file);
        if (!IsSpecial(file)) return true;
        QMessageBox::warning(this, windowTitle(),
                             tr("File %1 is not writable.\nPlease choose a different file name.").arg(file));
        return false;
    }

    // The row tells of each click twice: of the button, and then of what it stands for.
    static void Hold(QDialogButtonBox& row)
    {
        row.blockSignals(true);
        QTimer::singleShot(0, &row, [&row] { row.blockSignals(false); });
    }
};

}  // namespace

bool AskPrinter(QPrinter& printer)
{
    PrinterDialog dialog(printer);
    return dialog.exec() == QDialog::Accepted;
}

}  // namespace qt
