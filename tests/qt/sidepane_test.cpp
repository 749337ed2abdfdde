#include "qt/sidepane.h"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <atomic>
#include <chrono>
#include <stop_token>
#include <thread>

#include "basic/files.h"
#include "desktop/desktop.h"
#include "qt/besidesplitter.h"
#include "qt/pictureview.h"
#include "qt/savepicture.h"
#include "support/fake_desktop.h"

namespace {

picture::Picture Bars(const std::string& title)
{
    picture::Chart chart;
    chart.X = {.Names = {"A", "B"}};
    chart.Y = {.From = 0, .To = 5};
    chart.Curves = {{.Kind = picture::SeriesKind::Bars,
                     .Name = "bars",
                     .Points = {{1, 3}, {2, 5}},
                     .Tips = {"3", "5"},
                     .Id = "bars"}};
    return {.Title = title, .Body = chart};
}

class Beside : public testing::Test {
protected:
    Beside() : splitter_(*new qt::BesideSplitter(new QLabel("inside"), &window_))
    {
        window_.setCentralWidget(&splitter_);
        window_.setFocusPolicy(Qt::TabFocus);
        window_.resize(1000, 600);
        window_.show();
        window_.activateWindow();
        window_.setFocus();
        QApplication::processEvents();
    }

    qt::PaneSources Counted()
    {
        return {.Pictures =
                    [this] {
                        ++made_;
                        return std::vector<picture::Picture>{Bars("First"), Bars("Second")};
                    },
                .Steps =
                    [this] {
                        ++steps_;
                        return std::vector<picture::Step>{{.Heading = "Start",
                                                           .Figures = {"x  1"},
                                                           .Why = "It begins.",
                                                           .Arithmetic = {"1 = 1"}},
                                                          {.Heading = "End",
                                                           .Figures = {"x  2"},
                                                           .Why = "It ends.",
                                                           .Picture = "Second",
                                                           .Marks = {"bars"}}};
                    },
                .Meaning =
                    [this] {
                        ++meanings_;
                        return std::vector<picture::Sentence>{
                            {.Text = "Make 3 of A."},
                            {.Kind = picture::SentenceKind::Caution, .Text = "A <b> & c."}};
                    }};
    }

    qt::SidePane& Pane() { return splitter_.Pane(); }
    QToolButton* Button() { return window_.findChild<QToolButton*>("cmdBeside"); }
    QTabWidget* Tabs() { return Pane().findChild<QTabWidget*>(); }
    qt::PictureCanvas& Canvas()
    {
        for (qt::PictureView* view : Pane().findChildren<qt::PictureView*>())
            if (view->isVisible()) return view->Canvas();
        throw std::logic_error("no picture is seen");
    }
    // An item of the menu that comes up at a right click.
    void Choose(const QString& text)
    {
        QTimer choice;
        bool chosen = false;
        QObject::connect(&choice, &QTimer::timeout, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr) return;
            choice.stop();
            for (QAction* action : menu->actions())
                if (action->text().remove(QLatin1Char('&')) == text) {
                    menu->setActiveAction(action);
                    chosen = true;
                }
            QTest::keyClick(menu, chosen ? Qt::Key_Return : Qt::Key_Escape);
        });
        choice.start(5);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20),
                                Canvas().mapToGlobal(QPoint(20, 20)));
        QApplication::sendEvent(&Canvas(), &event);
        EXPECT_TRUE(chosen) << text.toStdString();
    }
    static void LetItWork()
    {
        for (int i = 0; i < 5; ++i)
            QTest::qWait(1);
    }

    FakeDesktop desktop_;
    QMainWindow window_;
    qt::BesideSplitter& splitter_;
    int made_ = 0;
    int steps_ = 0;
    int meanings_ = 0;
};

}  // namespace

TEST_F(Beside, ThePaneIsComputedWhenItIsLookedAt)
{
    splitter_.ShowBesideReport(Counted(), 400);
    EXPECT_TRUE(Pane().isVisible());
    EXPECT_EQ(made_, 0);  // not within the command
    LetItWork();
    EXPECT_EQ(made_, 1);
    EXPECT_EQ(steps_, 0);
    EXPECT_EQ(meanings_, 0);
    Tabs()->setCurrentIndex(1);
    LetItWork();
    EXPECT_EQ(steps_, 1);
    Tabs()->setCurrentIndex(2);
    LetItWork();
    EXPECT_EQ(meanings_, 1);
    Tabs()->setCurrentIndex(0);
    LetItWork();
    EXPECT_EQ(made_, 1);
}

TEST_F(Beside, NothingIsComputedWhileItIsFoldedAway)
{
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    Button()->click();
    EXPECT_FALSE(Pane().isVisible());
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    EXPECT_EQ(made_, 1);
    EXPECT_FALSE(Pane().isVisible());  // what was chosen lasts
    Button()->click();
    LetItWork();
    EXPECT_TRUE(Pane().isVisible());
    EXPECT_EQ(made_, 2);
}

TEST_F(Beside, TheReportKeepsItsWidthAndANarrowWindowFoldsThePaneAway)
{
    splitter_.ShowBesideReport(Counted(), 640);
    LetItWork();
    EXPECT_NEAR(splitter_.sizes()[0], 640, 1);
    window_.resize(640 + splitter_.handleWidth() + qt::SidePane::kLeastWidth, 600);
    LetItWork();
    EXPECT_TRUE(Pane().isVisible());
    window_.resize(640 + splitter_.handleWidth() + qt::SidePane::kLeastWidth - 1, 600);
    LetItWork();
    EXPECT_FALSE(Pane().isVisible());
    EXPECT_TRUE(Button()->isVisible());
    Button()->click();
    EXPECT_TRUE(Pane().isVisible());
}

TEST_F(Beside, ComesAndGoesWithTheReport)
{
    EXPECT_FALSE(Button()->isVisible());
    splitter_.ShowBesideReport(Counted(), 400);
    EXPECT_TRUE(Button()->isVisible());
    EXPECT_FALSE(Button()->toolTip().isEmpty());
    splitter_.Remove();
    EXPECT_FALSE(Pane().isVisible());
    EXPECT_FALSE(Button()->isVisible());
    EXPECT_FALSE(Pane().HasSources());
    splitter_.ShowBesideReport({}, 400);  // a module that has nothing to show
    EXPECT_FALSE(Pane().isVisible());
    EXPECT_FALSE(Button()->isVisible());
}

TEST_F(Beside, AProblemIsOnlyLeftRoomForWhereThereIsSomethingToShow)
{
    splitter_.ShowBesideProblem({.Pictures = [] { return std::vector<picture::Picture>{}; }});
    EXPECT_FALSE(Pane().isVisible());
    splitter_.ShowBesideProblem(Counted());
    EXPECT_TRUE(Pane().isVisible());
    EXPECT_EQ(made_ + steps_ + meanings_, 3);  // the problem may be changed at once
}

TEST_F(Beside, TakesTheFocusOnlyWhenAsked)
{
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    EXPECT_TRUE(window_.hasFocus());
    QTest::keyClick(&window_, Qt::Key_Tab);
    EXPECT_FALSE(Pane().isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(&window_, Qt::Key_F6);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(Pane().isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Beside, ControlTabGoesThroughTheTabs)
{
    splitter_.ShowBesideReport(Counted(), 400);
    QTest::keyClick(&window_, Qt::Key_F6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 1);
    EXPECT_EQ(QApplication::focusWidget(), Pane().findChild<QListWidget*>());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), Pane().findChild<QTextEdit*>());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Tabs()->currentIndex(), 2);
}

TEST_F(Beside, AStepShowsItsFiguresItsReasonAndItsPicture)
{
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    Tabs()->setCurrentIndex(1);
    LetItWork();
    auto* list = Pane().findChild<QListWidget*>();
    auto* figures = Pane().findChild<QPlainTextEdit*>();
    EXPECT_EQ(list->count(), 2);
    EXPECT_EQ(list->item(0)->text(), "1. Start");
    EXPECT_EQ(figures->toPlainText(), "x  1");
    Pane().findChild<QToolButton*>("cmdArithmetic")->click();
    EXPECT_EQ(figures->toPlainText(), "x  1\n1 = 1");
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(figures->toPlainText(), "x  2");
    const auto views = Pane().findChildren<qt::PictureView*>();
    const auto shown =
        std::find_if(views.begin(), views.end(), [](qt::PictureView* view) { return view->isVisible(); });
    ASSERT_NE(shown, views.end());
    EXPECT_EQ((*shown)->Canvas().Page()->Shown().Title, "Second");
    EXPECT_FALSE((*shown)->Canvas().MarkedArea().isEmpty());
}

// The rest of the height is for the figures and the picture; as the user parts them, so they stay.
TEST_F(Beside, TheListOfStepsIsAsHighAsItsSteps)
{
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    Tabs()->setCurrentIndex(1);
    LetItWork();
    auto* list = Pane().findChild<QListWidget*>();
    auto* parts = qobject_cast<QSplitter*>(list->parentWidget());
    ASSERT_NE(parts, nullptr);
    const int rows = 2 * list->sizeHintForRow(0);
    EXPECT_GE(list->viewport()->height(), rows);
    EXPECT_LE(list->height(), std::max(rows + 10, list->minimumSizeHint().height()));
    QTest::keyClick(list, Qt::Key_Down);  // its step has a picture
    EXPECT_GE(parts->sizes().at(2), parts->height() / 3);

    auto* handle = parts->handle(1);
    const QPoint middle = handle->rect().center();
    QTest::mousePress(handle, Qt::LeftButton, {}, middle);
    QTest::mouseMove(handle, middle + QPoint(0, 30));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, middle + QPoint(0, 30));
    const int chosen = list->height();
    QTest::keyClick(list, Qt::Key_Up);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->height(), chosen);
}

TEST_F(Beside, AHeadingOfAStepIsReadWhole)
{
    qt::PaneSources sources = Counted();
    sources.Steps = [] {
        return std::vector<picture::Step>{
            {.Heading = "Short"},
            {.Heading = "A heading that tells at length which column enters, which row leaves and why, "
                        "which of the others came next, and by how much each of them fell short"}};
    };
    splitter_.ShowBesideReport(std::move(sources), 400);
    LetItWork();
    Tabs()->setCurrentIndex(1);
    LetItWork();
    auto* list = Pane().findChild<QListWidget*>();
    const QRect shortOne = list->visualItemRect(list->item(0));
    const QRect longOne = list->visualItemRect(list->item(1));
    EXPECT_GE(longOne.height(), 2 * shortOne.height() - 4);
    EXPECT_LE(longOne.width(), list->viewport()->width());
    EXPECT_GE(list->viewport()->height(), longOne.bottom());
}

TEST_F(Beside, MeaningIsPlainTextAndTellsCautions)
{
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    Tabs()->setCurrentIndex(2);
    LetItWork();
    EXPECT_EQ(Pane().findChild<QTextEdit*>()->toPlainText(), "Make 3 of A.\nCaution: A <b> & c.");
}

// Who leaves the report or closes the window does not wait for a solver: it is told to stop.
TEST_F(Beside, LeavingTheReportStopsTheSecondOpinion)
{
    constexpr int kPatience = 20000;  // milliseconds
    std::atomic<int> ended = 0;
    std::atomic<int> stopped = 0;
    const auto ask = [&] {
        return [&](const std::stop_token& stop) {
            for (int i = 0; i < kPatience && !stop.stop_requested(); ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            stopped += stop.stop_requested() ? 1 : 0;
            ++ended;
            return qt::PaneSources::Telling();
        };
    };
    qt::PaneSources sources = Counted();
    sources.Opinion = ask;
    splitter_.ShowBesideReport(sources, 400);
    LetItWork();
    Tabs()->setCurrentIndex(2);
    LetItWork();
    EXPECT_EQ(ended, 0);
    splitter_.Remove();
    EXPECT_TRUE(QTest::qWaitFor([&] { return ended == 1; }));
    EXPECT_EQ(stopped, 1);
    {
        qt::SidePane pane(nullptr);
        pane.SetSources(sources);
        pane.show();
        LetItWork();
        pane.findChild<QTabWidget*>()->setCurrentIndex(2);
        LetItWork();
    }
    EXPECT_EQ(ended, 2);
    EXPECT_EQ(stopped, 2);
}

TEST_F(Beside, APictureIsCopied)
{
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    QApplication::clipboard()->clear();
    Canvas().setFocus();
    QTest::keyClick(&Canvas(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->image().size(), qt::ImageOf(Bars("First")).size());
    QApplication::clipboard()->clear();
    Choose("Copy");
    EXPECT_FALSE(QApplication::clipboard()->image().isNull());
}

TEST_F(Beside, APictureIsSavedAsItsEndingTells)
{
    const QTemporaryDir folder;
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    for (const auto& [name, start] : {std::pair("a.png", "\x89PNG"), std::pair("a.pdf", "%PDF")}) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        desktop_.dialogs.files = {path.toStdString()};
        Choose("Save Picture As...");
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        EXPECT_TRUE(file.readAll().startsWith(start)) << name;
    }
    ASSERT_EQ(desktop_.dialogs.fileQuestions.size(), 2U);
    EXPECT_EQ(desktop_.dialogs.fileQuestions[0].Title, "Save Picture As");
    EXPECT_EQ(desktop_.dialogs.fileQuestions[0].Filter, qt::PictureFilter());
    desktop_.dialogs.files = {std::nullopt};
    Choose("Save Picture As...");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 2);
}

// What the printer dialog that comes up is answered with.
void PrintTo(QTimer& answer, const QString& path)
{
    QObject::connect(&answer, &QTimer::timeout, &answer, [&answer, path] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        answer.stop();
        dialog->printer()->setOutputFormat(QPrinter::PdfFormat);
        dialog->printer()->setOutputFileName(path);
        dialog->done(QDialog::Accepted);
    });
    answer.start(5);
}

QByteArray Contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(Beside, APictureIsPrinted)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("picture.pdf");
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    QTimer answer;
    PrintTo(answer, path);
    Choose("Print Picture...");
    const QByteArray printed = Contents(path);
    EXPECT_TRUE(printed.startsWith("%PDF"));
    EXPECT_EQ(printed.count("/Type /Page\n"), 1);
}

// A file may grow to this many bytes and no more.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes)
    {
        TakeSizeLimitAsError();
        getrlimit(RLIMIT_FSIZE, &limit_);
        const rlimit small{bytes, limit_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() { EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit_), 0); }

private:
    rlimit limit_{};
};

TEST_F(Beside, APictureThatCannotBePrintedLeavesTheOldFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("picture.pdf");
    {
        QFile old(path);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("old");
    }
    splitter_.ShowBesideReport(Counted(), 400);
    LetItWork();
    QTimer answer;
    PrintTo(answer, path);
    {
        const SmallDisk disk(1000);
        Choose("Print Picture...");
    }
    EXPECT_EQ(Contents(path), "old");
    EXPECT_EQ(desktop_.dialogs.Last().Text, "Disk full");
}

TEST_F(Beside, AResultThatCannotBeShownHasNoContents)
{
    splitter_.ShowBesideReport(
        {.Pictures = []() -> std::vector<picture::Picture> { Raise(ErrorNumber::Overflow); }}, 400);
    LetItWork();
    EXPECT_TRUE(Pane().Pictures().empty());
}
