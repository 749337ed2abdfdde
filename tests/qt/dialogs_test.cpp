#include "qt/dialogs.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>

#include "qt/fields.h"

namespace {

template <typename Dialog>
Dialog* InFront()
{
    return qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

// Runs the steps on the dialog that comes up.
template <typename Dialog>
void Meanwhile(std::function<void(Dialog&)> steps)
{
    QTimer::singleShot(0, [steps = std::move(steps)] {
        auto* dialog = InFront<Dialog>();
        ASSERT_NE(dialog, nullptr);
        steps(*dialog);
    });
}

FileQuestion Question(const QString& folder, bool saving)
{
    return {.Saving = saving,
            .Title = "Save the Current Problem",
            .Extension = "MRK",
            .Filter = "MRK File|*.MRK|All Files (*.*)|*.*",
            .Folder = folder.toStdString()};
}

void WriteFile(const QString& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

}  // namespace

TEST(QtDialogs, AMessageBoxShowsWhatIsToldToTheLastBlank)
{
    qt::QtDialogs dialogs;
    Meanwhile<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "NOTE:  A && B & <b>C</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), " Data  Input Error");
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        box.close();
    });
    EXPECT_EQ(dialogs.MsgBox("NOTE:  A && B & <b>C</b>", " Data  Input Error", Icon::Critical, Buttons::OK),
              Answer::OK);
}

TEST(QtDialogs, AMessageBoxHasTheIconThatIsTold)
{
    qt::QtDialogs dialogs;
    for (const auto& [icon, shown] :
         {std::pair{Icon::None, QMessageBox::NoIcon}, std::pair{Icon::Question, QMessageBox::Question},
          std::pair{Icon::Exclamation, QMessageBox::Warning},
          std::pair{Icon::Information, QMessageBox::Information}}) {
        Meanwhile<QMessageBox>([shown = shown](QMessageBox& box) {
            EXPECT_EQ(box.icon(), shown);
            box.close();
        });
        dialogs.MsgBox("", "", icon, Buttons::OK);
    }
}

TEST(QtDialogs, EnterTakesTheFirstButtonAndEscapeTheLast)
{
    struct Row {
        Buttons buttons;
        Qt::Key key;
        Answer answer;
    };
    qt::QtDialogs dialogs;
    for (const Row& row : {Row{Buttons::OKCancel, Qt::Key_Return, Answer::OK},
                           Row{Buttons::OKCancel, Qt::Key_Escape, Answer::Cancel},
                           Row{Buttons::YesNo, Qt::Key_Return, Answer::Yes},
                           Row{Buttons::YesNo, Qt::Key_Escape, Answer::No}}) {
        Meanwhile<QMessageBox>([&row](QMessageBox& box) { QTest::keyClick(&box, row.key); });
        EXPECT_EQ(dialogs.MsgBox("Sure?", "", Icon::Question, row.buttons), row.answer);
    }
}

TEST(QtDialogs, EachButtonIsItsAnswer)
{
    qt::QtDialogs dialogs;
    for (const auto& [button, answer] :
         {std::pair{QMessageBox::Yes, Answer::Yes}, std::pair{QMessageBox::No, Answer::No}}) {
        Meanwhile<QMessageBox>(
            [button = button](QMessageBox& box) { QTest::mouseClick(box.button(button), Qt::LeftButton); });
        EXPECT_EQ(dialogs.MsgBox("Sure?", "", Icon::Question, Buttons::YesNo), answer);
    }
}

TEST(QtDialogs, TheInputBoxBeginsEmptyAndGivesItsText)
{
    qt::QtDialogs dialogs;
    Meanwhile<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.labelText(), "Enter  the Number:");
        EXPECT_EQ(box.windowTitle(), "Delete");
        EXPECT_EQ(box.textValue(), "");
        QTest::keyClicks(box.findChild<QLineEdit*>(), " 12");
        box.accept();
    });
    EXPECT_EQ(dialogs.InputBox("Enter  the Number:", "Delete"), " 12");
}

TEST(QtDialogs, ACancelledInputBoxGivesNothing)
{
    qt::QtDialogs dialogs;
    Meanwhile<QInputDialog>([](QInputDialog& box) {
        box.setTextValue("12");
        box.reject();
    });
    EXPECT_EQ(dialogs.InputBox("", ""), "");
}

TEST(NameFilters, TakeAnyCaseAndEveryFile)
{
    EXPECT_EQ(qt::NameFilters("S&S File|*.S&S|All Files (*.*)|*.*"),
              (QStringList{"S&S File (*.[Ss]&[Ss])", "All Files (*.*) (*)"}));
    EXPECT_TRUE(qt::NameFilters("").isEmpty());
}

TEST(QtDialogs, TheFileDialogStandsInTheFolderUnderItsTitle)
{
    const QTemporaryDir folder;
    qt::QtDialogs dialogs;
    Meanwhile<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save the Current Problem");
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        EXPECT_EQ(dialog.property("filter"), "MRK File|*.MRK|All Files (*.*)|*.*");
        EXPECT_EQ(dialog.property("folder"), folder.path());
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "");
        dialog.reject();
    });
    EXPECT_EQ(dialogs.AskFile(Question(folder.path(), true)), std::nullopt);
}

TEST(QtDialogs, AFolderThatDoesNotExistGivesWayToTheHomeFolder)
{
    qt::QtDialogs dialogs;
    Meanwhile<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), QDir::homePath());
        dialog.reject();
    });
    dialogs.AskFile(Question("/no/such/folder", false));
}

TEST(QtDialogs, SavingAddsTheExtensionToANameWithoutOne)
{
    const QTemporaryDir folder;
    qt::QtDialogs dialogs;
    for (const auto& [typed, taken] :
         {std::pair{"plain", "plain.MRK"}, std::pair{"other.txt", "other.txt"}}) {
        Meanwhile<QFileDialog>([typed = typed](QFileDialog& dialog) {
            QTest::keyClicks(dialog.findChild<QLineEdit*>("fileNameEdit"), typed);
            QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        const auto path = dialogs.AskFile(Question(folder.path(), true));
        EXPECT_EQ(QString::fromStdString(path.value_or("")), folder.filePath(taken));
    }
}

TEST(QtDialogs, SavingAsksBeforeItOverwrites)
{
    const QTemporaryDir folder;
    WriteFile(folder.filePath("old.MRK"));
    qt::QtDialogs dialogs;
    bool asked = false;
    Meanwhile<QFileDialog>([&asked](QFileDialog& dialog) {
        Meanwhile<QMessageBox>([&asked](QMessageBox& box) {
            asked = true;
            QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
        });
        QTest::keyClicks(dialog.findChild<QLineEdit*>("fileNameEdit"), "old");
        QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    const auto path = dialogs.AskFile(Question(folder.path(), true));
    EXPECT_TRUE(asked);
    EXPECT_EQ(QString::fromStdString(path.value_or("")), folder.filePath("old.MRK"));
}

TEST(QtDialogs, OpeningTakesOnlyAFileThatExists)
{
    const QTemporaryDir folder;
    WriteFile(folder.filePath("there.mrk"));
    qt::QtDialogs dialogs;
    Meanwhile<QFileDialog>([](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        Meanwhile<QMessageBox>([](QMessageBox& box) { box.close(); });
        QTest::keyClicks(name, "missing.mrk");
        QTest::keyClick(name, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        name->clear();
        QTest::keyClicks(name, "there.mrk");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const auto path = dialogs.AskFile(Question(folder.path(), false));
    EXPECT_EQ(QString::fromStdString(path.value_or("")), folder.filePath("there.mrk"));
}

// A window of 100 x 50 in front of a box of 40 x 20, on a screen of 400 x 300.
TEST(QtDialogs, AWindowStandsBelowWhatItSpeaksOfAboveItOrBesideIt)
{
    const QRect room(0, 0, 400, 300);
    const auto placed = [&room](const QPoint& box) {
        const QRect of(box, QSize(40, 20));
        return qt::StandClear(QRect(box, QSize(100, 50)), of, room);
    };
    EXPECT_EQ(placed({50, 100}), QRect(50, 131, 100, 50));
    EXPECT_EQ(placed({50, 260}), QRect(50, 199, 100, 50));
    const QRect low(0, 0, 400, 70);  // neither below nor above
    EXPECT_EQ(qt::StandClear({10, 10, 100, 50}, {10, 20, 40, 20}, low), QRect(61, 10, 100, 50));
    EXPECT_EQ(qt::StandClear({300, 10, 100, 50}, {350, 20, 40, 20}, low), QRect(239, 10, 100, 50));
    const QRect none(0, 0, 110, 60);
    EXPECT_EQ(qt::StandClear({5, 5, 100, 50}, {40, 20, 40, 20}, none), QRect(5, 5, 100, 50));
}

TEST(QtDialogs, AMessageLeavesTheBoxThatItSpeaksOfInSightAndMarked)
{
    QWidget form;
    QLineEdit* box = qt::MakeBox("txtBox", "Box");
    box->setParent(&form);
    box->setText("12x");
    form.resize(300, 120);
    box->setGeometry(100, 50, 100, 30);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    box->setFocus();
    qt::QtDialogs dialogs;
    Meanwhile<QMessageBox>([box](QMessageBox& message) {
        EXPECT_TRUE(box->property(qt::kMarked).toBool());
        EXPECT_EQ(box->selectedText(), "12x");
        EXPECT_FALSE(message.frameGeometry().intersects({box->mapToGlobal(QPoint()), box->size()}));
        message.close();
    });
    dialogs.MsgBox("Refused", "Data Input Error", Icon::Critical, Buttons::OK);
    EXPECT_FALSE(box->property(qt::kMarked).toBool());
    Meanwhile<QMessageBox>([box](QMessageBox& question) {
        EXPECT_FALSE(box->property(qt::kMarked).toBool());  // it speaks of no box
        question.close();
    });
    dialogs.MsgBox("Sure?", "Cancel", Icon::Question, Buttons::YesNo);
}
