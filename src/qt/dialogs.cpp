#include "qt/dialogs.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScreen>
#include <QSplitter>
#include <QStandardPaths>
#include <QTreeView>
#include <QUrl>
#include <array>

#include "basic/files.h"
#include "qt/fields.h"
#include "qt/text.h"

namespace qt {
namespace {

QMessageBox::Icon IconOf(Icon icon)
{
    switch (icon) {
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

void SetButtons(QMessageBox& box, Buttons buttons)
{
    switch (buttons) {
        case Buttons::OK:
            box.setStandardButtons(QMessageBox::Ok);
            box.setEscapeButton(QMessageBox::Ok);
            break;
        case Buttons::OKCancel:
            box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
            box.setEscapeButton(QMessageBox::Cancel);
            break;
        case Buttons::YesNo:
            box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
            box.setEscapeButton(QMessageBox::No);
            break;
    }
    box.setDefaultButton(buttons == Buttons::YesNo ? QMessageBox::Yes : QMessageBox::Ok);
}

Answer AnswerOf(int button)
{
    switch (button) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Cancel:
            return Answer::Cancel;
        default:
            return Answer::OK;
    }
}

// What a dialog stands in front of. Right after another dialog has gone, no window is active yet.
QWidget* Behind()
{
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (qobject_cast<QMainWindow*>(window) != nullptr && window->isVisible()) return window;
    return nullptr;
}

// A message box that leaves in sight what it speaks of.
class Message : public QMessageBox {
public:
    explicit Message(QWidget* behind) : QMessageBox(behind), spoken_(SpokenOf(behind)) {}

protected:
    void showEvent(QShowEvent* event) override
    {
        QMessageBox::showEvent(event);
        StepAside(*this, spoken_);
    }

private:
    const QRect spoken_;
};

// "*.out" for any case of its letters: file systems that tell them apart are asked for each.
QString AnyCase(const QString& pattern)
{
    if (pattern == QLatin1String("*.*")) return QStringLiteral("*");
    QString any;
    for (const QChar character : pattern) {
        if (character.toUpper() == character.toLower())
            any += character;
        else
            any += QLatin1Char('[') + character.toUpper() + character.toLower() + QLatin1Char(']');
    }
    return any;
}

// The user's own documents; the home folder where there are none.
QString DocumentsFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

// An installed program has its problems where nobody may write: saving begins among the user's documents
// then. Both folders stand in the side bar.
void SetFolder(QFileDialog& dialog, const QString& folder, bool saving)
{
    const bool there = QDir(folder).exists();
    const bool begins = there && (!saving || QFileInfo(folder).isWritable());
    const QString elsewhere = saving && there ? DocumentsFolder() : QDir::homePath();
    dialog.setDirectory(begins ? folder : elsewhere);
    QList<QUrl> places = dialog.sidebarUrls();
    places.append(QUrl::fromLocalFile(DocumentsFolder()));
    if (there) places.append(QUrl::fromLocalFile(QDir::cleanPath(folder)));
    QList<QUrl> once;
    for (const QUrl& place : places)
        if (!once.contains(place)) once.append(place);
    dialog.setSidebarUrls(once);
}

// Where an installed program has it, or beside one that stands where it was built.
QString GuideFolder()
{
    const QDir program(QApplication::applicationDirPath());
    for (const char* folder : {"../../share/doc/vantrel/guide", "../docs/guide", "guide"})
        if (program.exists(folder)) return program.absoluteFilePath(folder);
    return program.path();
}

// A dialog that stays open while there is no such folder, and takes a name as it is typed.
class FileDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    // A name without an extension gets this one before the dialog asks whether to overwrite.
    void SetExtension(const QString& extension)
    {
        extension_ = extension;
        setDefaultSuffix(extension);
    }

    void accept() override
    {
        if (!TakesName()) return;
        const bool whole = IsWholeName();
        setDefaultSuffix(whole ? QString() : extension_);
        if (whole) findChild<QAbstractItemView*>(QStringLiteral("listView"))->clearSelection();
        const QStringList files = selectedFiles();
        const QString why = files.isEmpty() ? QString() : WhyNot(QFileInfo(files.constFirst()));
        if (acceptMode() != AcceptSave || why.isEmpty())
            QFileDialog::accept();
        else
            Refuse(why);
    }

private:
    [[nodiscard]] QString TypedName() const
    {
        return findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
    }

    // The toolkit reads a text with quotes as a list of names, and would take a part of it.
    bool TakesName()
    {
        if (!TypedName().contains(QLatin1Char('"'))) return true;
        Refuse(QStringLiteral("A file name cannot hold a quotation mark."));
        return false;
    }

    // Why nothing can be saved there; empty when it can. Of a name that is too long the toolkit tells
    // nothing.
    [[nodiscard]] static QString WhyNot(const QFileInfo& file)
    {
        const QString folder = file.absolutePath();
        if (!QFileInfo(folder).isDir())
            return tr("%1\nDirectory not found.\nPlease verify the correct directory name was given.")
                .arg(folder);
        if (FromQt(file.fileName()).size() > LongestName(FromQt(folder)))
            return QStringLiteral("This file name is too long.");
        return {};
    }

    // A file without an extension, chosen among all files. With it, the list has marked another one.
    [[nodiscard]] bool IsWholeName() const
    {
        const auto* kinds = findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        const bool all = nameFilters().value(kinds->currentIndex()).endsWith(QLatin1String("(*)"));
        if (acceptMode() != AcceptOpen || !all || TypedName().isEmpty()) return false;
        return QFileInfo(directory(), TypedName()).isFile();
    }

    void Refuse(const QString& why) { QMessageBox::warning(this, windowTitle(), why); }

    QString extension_;
};

void SetKind(FileDialog& dialog, const FileQuestion& question)
{
    dialog.setAcceptMode(question.Saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(question.Saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.SetExtension(ToQt(question.Extension));
}

// Wide enough for names, sizes and dates side by side. The type that the desktop finds for an extension is
// that of another program's files.
void MakeReadable(QFileDialog& dialog, bool saving)
{
    constexpr int kTypeColumn = 2;
    constexpr QSize kSize(840, 520);
    constexpr int kPlaces = 150;  // the folders at the left, with their names
    dialog.setViewMode(QFileDialog::Detail);
    if (saving) dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Save in:"));
    if (auto* table = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        table->header()->setStretchLastSection(false);
        table->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        table->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        table->setColumnHidden(kTypeColumn, true);
    }
    dialog.resize(kSize.boundedTo(dialog.screen()->availableSize()));
    if (auto* parts = dialog.findChild<QSplitter*>(QStringLiteral("splitter")))
        parts->setSizes({kPlaces, dialog.width() - kPlaces});
}

}  // namespace

QRect SpokenOf(const QWidget* behind)
{
    QWidget* spoken = behind == nullptr ? nullptr : behind->focusWidget();
    if (spoken == nullptr || !spoken->isVisible()) return {};
    if (const auto* table = qobject_cast<QAbstractItemView*>(spoken)) {
        const QRect cell = table->visualRect(table->currentIndex());
        return {table->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }
    if (qobject_cast<QLineEdit*>(spoken) == nullptr) return {};
    return {spoken->mapToGlobal(QPoint()), spoken->size()};
}

void StepAside(QWidget& window, const QRect& spoken)
{
    const QRect place(window.pos(), window.frameGeometry().size().expandedTo(window.sizeHint()));
    if (spoken.isEmpty() || !place.intersects(spoken)) return;
    window.move(StandClear(place, spoken, window.screen()->availableGeometry()).topLeft());
}

QRect StandClear(const QRect& window, const QRect& of, const QRect& room)
{
    constexpr int kGap = 12;
    const std::array places = {
        window.translated(0, of.bottom() + kGap - window.top()),
        window.translated(0, of.top() - kGap - window.bottom()),
        window.translated(of.right() + kGap - window.left(), 0),
        window.translated(of.left() - kGap - window.right(), 0),
    };
    for (const QRect& place : places)
        if (room.contains(place)) return place;
    return window;
}

QStringList NameFilters(std::string_view filter)
{
    const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // The toolkit takes the patterns from the last brackets of the text.
        filters << parts[i] + QLatin1String(" (") + AnyCase(parts[i + 1]) + QLatin1Char(')');
    }
    return filters;
}

Answer QtDialogs::MsgBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons)
{
    QWidget* behind = Behind();
    Message box(behind);
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(text));
    box.setWindowTitle(ToQt(title));
    box.setIcon(IconOf(icon));
    SetButtons(box, buttons);
    const Mark mark(icon != Icon::Question && behind != nullptr ? behind->focusWidget() : nullptr);
    return AnswerOf(box.exec());
}

std::string QtDialogs::InputBox(std::string_view prompt, std::string_view title)
{
    QInputDialog box(Behind());
    box.setInputMode(QInputDialog::TextInput);
    box.setWindowTitle(ToQt(title));
    box.setLabelText(ToQt(prompt));
    return box.exec() == QDialog::Accepted ? FromQt(box.textValue()) : std::string();
}

std::optional<std::string> QtDialogs::AskFile(const FileQuestion& question)
{
    FileDialog dialog(Behind());
    dialog.setObjectName(QStringLiteral("dialogFile"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setOption(QFileDialog::HideNameFilterDetails);  // they spell out both cases of each letter
    dialog.setWindowTitle(ToQt(question.Title));
    dialog.setProperty("filter", ToQt(question.Filter));
    dialog.setProperty("folder", ToQt(question.Folder));
    dialog.setNameFilters(NameFilters(question.Filter));
    SetKind(dialog, question);
    MakeReadable(dialog, question.Saving);
    SetFolder(dialog, ToQt(question.Folder), question.Saving);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return FromQt(dialog.selectedFiles().constFirst());
}

void QtDialogs::OpenGuide(std::string_view page)
{
    const QString path = GuideFolder() + QLatin1Char('/') + ToQt(page) + QLatin1String(".html");
    if (!QFileInfo::exists(path) || !QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        MsgBox("The guide cannot be shown.", "Vantrel", Icon::Information, Buttons::OK);
}

void QtDialogs::Beep()
{
    QApplication::beep();
}

}  // namespace qt
