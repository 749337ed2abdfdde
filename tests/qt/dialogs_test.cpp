#include "qt/dialogs.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QUrl>
#include <functional>

#include "qt/fields.h"
#include "tableau/frmErrorMsg.h"

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

// Types a name into the dialog that comes up, among all files if wanted; what it tells is closed, and the
// dialog cancelled if it is still there.
std::optional<std::string> TypeName(const QString& folder, bool saving, const QString& name, bool amongAll,
                                    QString& told)
{
    qt::QtDialogs dialogs;
    Meanwhile<QFileDialog>([&](QFileDialog& dialog) {
        if (amongAll) dialog.selectNameFilter(dialog.nameFilters().constLast());
        auto* box = dialog.findChild<QLineEdit*>("fileNameEdit");
        dialog.activateWindow();
        box->setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        box->setText(name);
        QTimer::singleShot(0, &dialog, [&told] {
            auto* message = InFront<QMessageBox>();
            if (message == nullptr) return;
            told = message->text();
            message->close();
        });
        QTest::keyClick(box, Qt::Key_Return);
        if (dialog.isVisible()) dialog.reject();
    });
    return dialogs.AskFile(Question(folder, saving));
}

TEST(QtDialogs, ANameWithAQuotationMarkIsRefusedAndNoOtherFileIsTaken)
{
    const QTemporaryDir folder;
    WriteFile(folder.filePath("b.MRK"));
    WriteFile(folder.filePath("a\"b.MRK"));
    for (const char* name : {"a\"b.MRK", "\"b.MRK\"", "\"b.MRK\" \"c.MRK\"", "\""})
        for (const bool saving : {true, false}) {
            QString told;
            EXPECT_EQ(TypeName(folder.path(), saving, name, false, told), std::nullopt) << name;
            EXPECT_EQ(told, "A file name cannot hold a quotation mark.");
        }
}

// 255 bytes are the longest name of the usual file systems; an umlaut is two of them.
TEST(QtDialogs, ANameThatIsTooLongIsRefusedAndNotPassedOver)
{
    const QTemporaryDir folder;
    for (const auto& [name, taken] :
         {std::pair{QString(251, 'x'), true}, std::pair{QString(252, 'x'), false},
          std::pair{QString(300, 'x'), false}, std::pair{QString(126, QChar(0xE4)), false}}) {
        QString told;
        const auto path = TypeName(folder.path(), true, name, false, told);
        EXPECT_EQ(path.has_value(), taken) << name.size();
        EXPECT_EQ(told.toStdString(), taken ? "" : "This file name is too long.") << name.size();
    }
}

// A click on a name in the list, which puts it into the box.
TEST(QtDialogs, AChosenNameWithAQuotationMarkIsRefusedToo)
{
    const QTemporaryDir folder;
    WriteFile(folder.filePath("b.MRK"));
    WriteFile(folder.filePath("a\"b.MRK"));
    qt::QtDialogs dialogs;
    Meanwhile<QFileDialog>([](QFileDialog& dialog) {
        auto* list = dialog.findChild<QTreeView*>("treeView");
        const auto find = [list](const QString& name) {
            return list->model()->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name);
        };
        ASSERT_TRUE(QTest::qWaitFor([&] { return !find("a\"b.MRK").isEmpty() && !find("b.MRK").isEmpty(); }));
        const QRect place = list->visualRect(find("a\"b.MRK").constFirst());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place.center());
        QTimer::singleShot(0, &dialog, [] {
            auto* message = InFront<QMessageBox>();
            ASSERT_NE(message, nullptr);
            EXPECT_EQ(message->text(), "A file name cannot hold a quotation mark.");
            message->close();
        });
        QMetaObject::invokeMethod(&dialog, "accept");
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(dialogs.AskFile(Question(folder.path(), false)), std::nullopt);
}

TEST(QtDialogs, AFileWithoutAnExtensionIsOpenedAmongAllFiles)
{
    const QTemporaryDir folder;
    WriteFile(folder.filePath("plain"));
    WriteFile(folder.filePath("both"));
    WriteFile(folder.filePath("both.MRK"));
    WriteFile(folder.filePath("long.MRK"));
    struct Row {
        const char* Name;
        bool AmongAll;
        const char* Taken;
    };
    for (const Row& row :
         {Row{"plain", true, "plain"}, Row{"both", true, "both"}, Row{"both", false, "both.MRK"},
          Row{"long", true, "long.MRK"}, Row{"long", false, "long.MRK"}}) {
        QString told;
        const auto taken = TypeName(folder.path(), false, row.Name, row.AmongAll, told);
        EXPECT_EQ(taken.value_or(""), folder.filePath(row.Taken).toStdString()) << row.AmongAll;
    }
    QString told;
    EXPECT_EQ(TypeName(folder.path(), false, "plain", false, told), std::nullopt);
    EXPECT_TRUE(told.startsWith("plain.MRK")) << told.toStdString();
}

TEST(QtDialogs, SavingAmongAllFilesAddsTheExtensionAllTheSame)
{
    const QTemporaryDir folder;
    WriteFile(folder.filePath("plain"));
    QString told;
    const auto taken = TypeName(folder.path(), true, "plain", true, told);
    EXPECT_EQ(QString::fromStdString(taken.value_or("")), folder.filePath("plain.MRK"));
}

// The superuser may write anywhere: for the length of a test he is another user.
class AnyUser {
public:
    AnyUser() : switched_(geteuid() == 0) { EXPECT_TRUE(!switched_ || setresuid(kNobody, kNobody, 0) == 0); }
    AnyUser(const AnyUser&) = delete;
    AnyUser& operator=(const AnyUser&) = delete;
    ~AnyUser() { EXPECT_TRUE(!switched_ || setresuid(0, 0, 0) == 0); }

private:
    static constexpr uid_t kNobody = 65534;
    bool switched_;
};

QString FolderOfDialog(const QString& folder, bool saving, QList<QUrl>& places)
{
    qt::QtDialogs dialogs;
    QString shown;
    Meanwhile<QFileDialog>([&](QFileDialog& dialog) {
        shown = dialog.directory().canonicalPath();
        places = dialog.sidebarUrls();
        dialog.reject();
    });
    dialogs.AskFile(Question(folder, saving));
    return shown;
}

TEST(QtDialogs, SavingBeginsInTheDocumentsWhereTheFolderCannotBeWritten)
{
    const QTemporaryDir home;
    const QByteArray before = qgetenv("HOME");
    qputenv("HOME", home.path().toLocal8Bit());
    ASSERT_TRUE(QDir(home.path()).mkdir("Documents") && QDir(home.path()).mkdir("Problems"));
    const QString documents = home.filePath("Documents");
    const QString problems = home.filePath("Problems");
    ASSERT_EQ(chmod(qPrintable(problems), 0555), 0);
    ASSERT_EQ(chmod(qPrintable(home.path()), 0755), 0);
    QList<QUrl> places;
    {
        const AnyUser user;
        EXPECT_EQ(FolderOfDialog(problems, true, places), documents);
        EXPECT_TRUE(places.contains(QUrl::fromLocalFile(documents)));
        EXPECT_TRUE(places.contains(QUrl::fromLocalFile(problems)));
        EXPECT_EQ(FolderOfDialog(problems, false, places), problems);
        ASSERT_EQ(places.count(QUrl::fromLocalFile(problems)), 1);
    }
    ASSERT_EQ(chmod(qPrintable(problems), 0755), 0);
    EXPECT_EQ(FolderOfDialog(problems, true, places), problems);
    EXPECT_TRUE(QDir(home.path()).rmdir("Documents"));
    EXPECT_EQ(FolderOfDialog(home.filePath("none"), true, places), home.path());
    EXPECT_FALSE(places.contains(QUrl::fromLocalFile(home.filePath("none"))));
    EXPECT_TRUE(places.contains(QUrl::fromLocalFile(home.path())));
    qputenv("HOME", before);
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

TEST(QtDialogs, TheNoticeOfAValueLeavesItsCellInSight)
{
    QWidget form;
    form.resize(500, 400);
    auto* table = new QTableWidget(12, 3, &form);
    table->resize(form.size());
    form.show();
    form.activateWindow();
    table->setCurrentCell(5, 1);
    table->setFocus();
    const QRect cell = table->visualRect(table->currentIndex());
    const QRect spoken(table->viewport()->mapToGlobal(cell.topLeft()), cell.size());
    frmErrorMsg notice(&form);
    notice.move(spoken.topLeft() - QPoint(20, 20));
    notice.show();
    EXPECT_FALSE(QRect(notice.pos(), notice.frameGeometry().size()).intersects(spoken));
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

// Between two dialogs no window is the active one for a moment.
TEST(QtDialogs, StandInFrontOfTheMainWindowAlsoWhileNothingIsActive)
{
    QMainWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QApplication::setActiveWindow(nullptr);
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    qt::QtDialogs dialogs;
    Meanwhile<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.close();
    });
    dialogs.MsgBox("text", "title", Icon::None, Buttons::OK);
}

// The type of a file is that of whoever else uses its extension.
TEST(QtDialogs, AFileDialogShowsNamesSizesAndDates)
{
    const QTemporaryDir folder;
    qt::QtDialogs dialogs;
    Meanwhile<QFileDialog>([](QFileDialog& dialog) {
        const auto* table = dialog.findChild<QTreeView*>("treeView");
        for (const auto& [column, hidden] : {std::pair{0, false}, {1, false}, {2, true}, {3, false}})
            EXPECT_EQ(table->isColumnHidden(column), hidden) << column;
        const auto* places = dialog.findChild<QAbstractItemView*>("sidebar");
        EXPECT_GE(places->width(), places->fontMetrics().horizontalAdvance("/home/Documents"));
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.AskFile(Question(folder.path(), true)).has_value());
}
