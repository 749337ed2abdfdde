#include "qt/printer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageLayout>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTimer>

#include "basic/error.h"

namespace {

int PagesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return -1;
    const QString text = QString::fromLatin1(file.readAll());
    return static_cast<int>(text.count(QRegularExpression("/Type\\s*/Page\\b")));
}

class PrinterTest : public testing::Test {
protected:
    void Begin()
    {
        printer.PrintToFile(path, QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {}));
        printer.Begin("Courier New", 12);
    }

    ErrorNumber ErrorOfEndDoc()
    {
        try {
            printer.EndDoc();
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return {};
    }

    QTemporaryDir folder;
    QString path = folder.filePath("report.pdf");
    qt::QtPrinter printer;
};

}  // namespace

TEST_F(PrinterTest, PrintsAFile)
{
    Begin();
    printer.Line("A line");
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 1);
}

TEST_F(PrinterTest, ANewPageIsOneMorePage)
{
    Begin();
    printer.Line("One");
    printer.NewPage();
    printer.Line("Two");
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 2);
}

// A4 is 842 points high, less margins of 36 on both sides: between 50 and 70 lines of 12 point type.
TEST_F(PrinterTest, ALineThatWouldFallOffBeginsANewPage)
{
    Begin();
    for (int i = 0; i < 50; ++i)
        printer.Line("A line");
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 1);
    Begin();
    for (int i = 0; i < 71; ++i)
        printer.Line("A line");
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 2);
}

TEST_F(PrinterTest, ABreakWithNothingBehindItMakesNoSheet)
{
    Begin();
    printer.NewPage();
    printer.Line("One");
    printer.NewPage();
    printer.NewPage();
    printer.Line("Two");
    printer.NewPage();
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 2);
}

// 56 lines are the longest page that a report counts up: 720 points on Letter, 12.86 for each.
TEST_F(PrinterTest, TheLongestPageOfAReportFitsTheCommonSheets)
{
    for (const QPageSize::PageSizeId size : {QPageSize::A4, QPageSize::Letter})
        for (const int lines : {56, 57}) {
            printer.PrintToFile(path, QPageLayout(QPageSize(size), QPageLayout::Portrait, {}));
            printer.Begin("Courier New", 12);
            for (int i = 0; i < lines; ++i)
                printer.Line("A line");
            printer.EndDoc();
            EXPECT_EQ(PagesOf(path), lines == 56 ? 1 : 2) << lines;
        }
}

TEST_F(PrinterTest, ALongLineGoesOnBelow)
{
    Begin();
    for (int i = 0; i < 36; ++i)
        printer.Line(std::string(161, 'x'));  // three lines each, more than a sheet holds
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 2);
}

TEST_F(PrinterTest, AFolderThatIsGoneIsARunTimeError)
{
    QDir(folder.path()).mkdir("gone");
    path = folder.filePath("gone/report.pdf");
    Begin();
    printer.Line("A line");
    QDir(folder.filePath("gone")).removeRecursively();
    EXPECT_EQ(ErrorOfEndDoc(), ErrorNumber::PathNotFound);
}

TEST_F(PrinterTest, AFullDiskIsARunTimeError)
{
    if (!QFile::exists("/dev/full")) GTEST_SKIP() << "no such device here";
    QFile::link("/dev/full", path);
    Begin();
    printer.Line("A line");
    EXPECT_EQ(ErrorOfEndDoc(), ErrorNumber::DiskFull);
}

// The report routine stops with an error; the document on paper does not begin a file.
TEST_F(PrinterTest, AnUnfinishedDocumentLeavesNoFileAndNoTraceInTheNext)
{
    Begin();
    printer.Line("Unfinished");
    printer.NewPage();
    Begin();
    EXPECT_FALSE(QFile::exists(path));
    printer.Line("Whole");
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 1);
}

TEST_F(PrinterTest, AnOldFileStaysWhenTheNewDocumentIsNotFinished)
{
    Begin();
    printer.Line("Old");
    printer.EndDoc();
    Begin();
    printer.Line("New");
    printer.NewPage();
    EXPECT_EQ(PagesOf(path), 1);
}

TEST_F(PrinterTest, NothingIsPrintedBeforeAPrinterIsChosen)
{
    EXPECT_THROW(printer.Begin("Courier New", 12), RuntimeError);
    Begin();
    printer.EndDoc();
    EXPECT_THROW(printer.Begin("Courier New", 12), RuntimeError);
}

TEST_F(PrinterTest, TheDialogWorksWithoutAPrinter)
{
    QTimer::singleShot(0, [this] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog->printer()->setOutputFileName(path);
        dialog->done(QDialog::Accepted);
    });
    ASSERT_TRUE(printer.Ask());
    printer.Begin("Courier New", 12);
    printer.Line("A line");
    printer.EndDoc();
    EXPECT_EQ(PagesOf(path), 1);
}

TEST_F(PrinterTest, ACancelledDialogPrintsNothing)
{
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->reject();
    });
    EXPECT_FALSE(printer.Ask());
}

// Presses OK in the dialog that comes up, for this PDF file. What it tells is closed, and the dialog
// cancelled if it is still there.
bool AskFor(qt::QtPrinter& printer, const QString& file, QString& told)
{
    QTimer::singleShot(0, [&told, file] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto* printers = dialog->findChild<QComboBox*>("printers");
        printers->setCurrentIndex(printers->findText("PDF", Qt::MatchContains));
        dialog->findChild<QLineEdit*>("filename")->setText(file);
        QTimer::singleShot(0, dialog, [&told] {
            auto* message = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (message == nullptr) return;
            told = message->text();
            message->close();
        });
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        if (dialog->isVisible()) dialog->reject();
    });
    return printer.Ask();
}

TEST_F(PrinterTest, TheDialogDoesNotWaitForAPipe)
{
    const QString pipe = folder.filePath("pipe.pdf");
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    const int reader = open(qPrintable(pipe), O_RDONLY | O_NONBLOCK);  // so that a test that fails ends
    QString told;
    EXPECT_FALSE(AskFor(printer, pipe, told));
    EXPECT_EQ(told.toStdString(),
              "File " + pipe.toStdString() + " is not writable.\nPlease choose a different file name.");
    char byte = 0;
    EXPECT_EQ(read(reader, &byte, 1), 0);  // nobody has opened it
    close(reader);
    EXPECT_TRUE(AskFor(printer, path, told));
}

TEST_F(PrinterTest, ALinkToNothingStaysAndItsTargetIsMade)
{
    const QString link = folder.filePath("link.pdf");
    ASSERT_TRUE(QFile::link("second.pdf", link));
    ASSERT_TRUE(QFile::link("report.pdf", folder.filePath("second.pdf")));
    QString told;
    ASSERT_TRUE(AskFor(printer, link, told));
    printer.Begin("Courier New", 12);
    printer.Line("A line");
    printer.EndDoc();
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(PagesOf(path), 1);
}

TEST_F(PrinterTest, ADeviceCanBeTheFile)
{
    QString told;
    EXPECT_FALSE(AskFor(printer, "/dev/null", told));
    EXPECT_TRUE(told.contains("overwrite")) << told.toStdString();
}
