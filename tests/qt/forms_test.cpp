#include "qt/forms.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include "basic/error.h"
#include "qt/entrygrid.h"
#include "qt/fields.h"
#include "support/qt_desktop.h"

namespace {

int alive = 0;
int unloaded = 0;

class Window : public QMainWindow {
public:
    explicit Window(QWidget* parent) : QMainWindow(parent)
    {
        setCentralWidget(new QMdiArea);
        setFocusPolicy(Qt::StrongFocus);
        resize(800, 600);
    }
};

class Problem : public qt::ChildForm {
public:
    explicit Problem(QWidget* parent) : qt::ChildForm(parent)
    {
        ++alive;
        auto* page = new QVBoxLayout(this);
        qt::AddLabel(page, "lblTitle", "");
        qt::EntryRules rules;
        rules.Key = [](int, int, char character, bool) { return qt::NumberKey(character); };
        rules.Commit = [](int, int, std::string_view) { return true; };
        auto* grid = new qt::EntryGrid("Grid(0)", "Data", std::move(rules));
        page->addWidget(grid);
        setFocusProxy(grid);
    }
    ~Problem() override { --alive; }
    void Unloading() override { ++unloaded; }
};

class Question : public qt::ModalForm {
public:
    explicit Question(QWidget* parent) : qt::ModalForm(parent)
    {
        ++alive;
        setWindowTitle("A question");
        auto* page = new QVBoxLayout(this);
        auto* rows = new QFormLayout;
        page->addLayout(rows);
        qt::AddBox(rows, "txtAnswer(0)", "Answer:", {}, "lblQuestion(0)");
        auto* buttons = qt::AddButtonRow(page);
        qt::AddButton(buttons, "cmdHide", "Hide", [] { desktop::TheForms().Hide("frmQuestion"); });
        qt::AddButton(buttons, "cmdUnload", "Unload", [] { desktop::TheForms().Unload("frmQuestion"); });
    }
    ~Question() override { --alive; }
    void Unloading() override { ++unloaded; }
};

class FormsTest : public testing::Test {
protected:
    void SetUp() override
    {
        alive = unloaded = 0;
        Forms().Add<Window>("frmMenu", qt::Place::Main);
        Forms().Add<Problem>("frmProblem", qt::Place::Filling);
        Forms().Add<Problem>("frmSolution", qt::Place::Report);
        Forms().Add<Problem>("frmModuleSelection", qt::Place::Framed);
        Forms().Add<Question>("frmQuestion", qt::Place::Modal);
        Forms().Show("frmMenu");
        ASSERT_TRUE(QTest::qWaitForWindowActive(Forms().MainWindow()));
    }

    qt::QtForms& Forms() { return desktop.forms; }
    QWidget* Widget(const char* name) { return Forms().Find(name); }
    QWidget* Control(const char* form, const char* name) { return Widget(form)->findChild<QWidget*>(name); }

    // Clicks the control as soon as the dialog is shown.
    void Meanwhile(const char* control)
    {
        QTimer::singleShot(0, Forms().MainWindow(), [this, control] {
            QTest::mouseClick(Control("frmQuestion", control), Qt::LeftButton);
        });
    }

    static void Settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QtDesktop desktop;
};

}  // namespace

TEST_F(FormsTest, AFormThatIsNotInTheTableIsARunTimeError)
{
    EXPECT_THROW(Forms().Load("frmNothing"), RuntimeError);
    EXPECT_THROW(static_cast<void>(Forms().IsLoaded("frmNothing")), RuntimeError);
}

TEST_F(FormsTest, LoadingAgainChangesNothing)
{
    Forms().Load("frmProblem");
    const QWidget* widget = Widget("frmProblem");
    Forms().Load("frmProblem");
    EXPECT_EQ(Widget("frmProblem"), widget);
    EXPECT_EQ(alive, 1);
    EXPECT_FALSE(widget->isVisible());
    EXPECT_EQ(widget->objectName(), "frmProblem");
}

TEST_F(FormsTest, UnloadingTellsTheFormAndLeavesNothingBehind)
{
    Forms().Unload("frmProblem");  // not loaded: nothing happens
    Forms().Show("frmProblem");
    Forms().Unload("frmProblem");
    EXPECT_FALSE(Forms().IsLoaded("frmProblem"));
    EXPECT_EQ(unloaded, 1);
    QTest::qWait(0);
    Settle();
    EXPECT_EQ(alive, 0);
    EXPECT_TRUE(Forms().MainWindow()->findChild<QMdiArea*>()->subWindowList().isEmpty());
}

TEST_F(FormsTest, AHiddenFormKeepsItsContents)
{
    Forms().Show("frmProblem");
    Forms().Loaded("frmProblem").SetText("lblTitle", "A title");
    Forms().Hide("frmProblem");
    EXPECT_FALSE(Widget("frmProblem")->isVisible());
    Forms().Show("frmProblem");
    EXPECT_EQ(qobject_cast<QLabel*>(Control("frmProblem", "lblTitle"))->text(), "A title");
}

TEST_F(FormsTest, TheProblemFormFillsTheAreaAndFollowsIt)
{
    Forms().Show("frmProblem");
    auto* area = Forms().MainWindow()->findChild<QMdiArea*>();
    EXPECT_EQ(Widget("frmProblem")->size(), area->viewport()->size());
    Forms().MainWindow()->resize(640, 480);
    QTest::qWait(0);
    EXPECT_EQ(Widget("frmProblem")->size(), area->viewport()->size());
    EXPECT_EQ(Forms().MainWindow()->windowTitle(), "");
}

TEST_F(FormsTest, TheReportStandsInFrontUntilItIsHidden)
{
    auto* area = Forms().MainWindow()->findChild<QMdiArea*>();
    const auto front = [area] {
        QWidget* found = nullptr;
        for (auto* frame : area->subWindowList(QMdiArea::StackingOrder))
            if (frame->isVisible()) found = frame->widget();
        return found;
    };
    Forms().Show("frmProblem");
    Forms().Show("frmSolution");
    EXPECT_EQ(front(), Widget("frmSolution"));
    Forms().Hide("frmSolution");
    EXPECT_EQ(front(), Widget("frmProblem"));
    EXPECT_EQ(area->activeSubWindow()->widget(), Widget("frmProblem"));
}

TEST_F(FormsTest, ClosingAFormByHandUnloadsItWhenItHasNoCancelButton)
{
    Forms().Show("frmSolution");
    Widget("frmSolution")->parentWidget()->close();
    EXPECT_FALSE(Forms().IsLoaded("frmSolution"));
}

TEST_F(FormsTest, AModalFormRunsUntilItIsHidden)
{
    Meanwhile("cmdHide");
    Forms().ShowModal("frmQuestion");
    EXPECT_TRUE(Forms().IsLoaded("frmQuestion"));
    EXPECT_FALSE(Widget("frmQuestion")->isVisible());
    EXPECT_EQ(unloaded, 0);
}

TEST_F(FormsTest, AModalFormRunsUntilItIsUnloadedAndIsGoneThen)
{
    Meanwhile("cmdUnload");
    Forms().ShowModal("frmQuestion");
    EXPECT_FALSE(Forms().IsLoaded("frmQuestion"));
    EXPECT_EQ(unloaded, 1);
    EXPECT_EQ(alive, 0);
}

TEST_F(FormsTest, AThousandModalFormsLeaveNothingBehind)
{
    const auto children = Forms().MainWindow()->children().size();
    for (int i = 0; i < 1000; ++i) {
        Meanwhile("cmdUnload");
        Forms().ShowModal("frmQuestion");
    }
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(Forms().MainWindow()->children().size(), children);
}

TEST_F(FormsTest, AModalFormIsCentredOnTheMainWindowAndWithinTheScreen)
{
    Forms().MainWindow()->setGeometry(100, 100, 500, 400);
    QTimer::singleShot(0, Forms().MainWindow(), [this] {
        const QPoint apart =
            Widget("frmQuestion")->geometry().center() - Forms().MainWindow()->frameGeometry().center();
        EXPECT_LE(apart.manhattanLength(), 2);
        Forms().Unload("frmQuestion");
    });
    Forms().ShowModal("frmQuestion");
}

TEST_F(FormsTest, AModalFormIsWideEnoughForItsCaption)
{
    const QString caption = "A caption that is a good deal wider than what there is to ask below it";
    int width = 0;
    QTimer::singleShot(0, Forms().MainWindow(), [&] {
        width = Widget("frmQuestion")->width();
        Forms().Hide("frmQuestion");
    });
    Forms().Load("frmQuestion");
    Widget("frmQuestion")->setWindowTitle(caption);
    Forms().ShowModal("frmQuestion");
    EXPECT_GT(width, Widget("frmQuestion")->sizeHint().width());
    const int bar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int beside = 5 * bar;  // an icon and up to four buttons
    EXPECT_GT(width, Widget("frmQuestion")->fontMetrics().horizontalAdvance(caption) + beside);
}

TEST_F(FormsTest, ControlsAreReachedByTheirNames)
{
    Forms().Load("frmQuestion");
    Form& form = Forms().Loaded("frmQuestion");
    form.SetCaption("Another");
    form.SetText("txtAnswer(0)", "12");
    form.SetText("lblQuestion(0)", "How  many & why?");
    EXPECT_EQ(Widget("frmQuestion")->windowTitle(), "Another");
    EXPECT_EQ(qobject_cast<QLineEdit*>(Control("frmQuestion", "txtAnswer(0)"))->text(), "12");
    EXPECT_EQ(qobject_cast<QLabel*>(Control("frmQuestion", "lblQuestion(0)"))->text(), "How  many & why?");
    EXPECT_THROW(form.SetText("txtNothing", ""), RuntimeError);
    EXPECT_THROW(form.GridOf("txtAnswer(0)"), RuntimeError);
    Forms().Show("frmQuestion");
    form.SetVisible("txtAnswer(0)", false);
    EXPECT_FALSE(Control("frmQuestion", "lblQuestion(0)")->isVisible());
}

TEST_F(FormsTest, KeysToTheMainWindowGoToTheFormInFront)
{
    Forms().Show("frmProblem");
    Grid& grid = Forms().Loaded("frmProblem").GridOf("Grid(0)");
    grid.Resize(3, 3);
    Forms().FocusMenu();
    EXPECT_TRUE(Forms().MainWindow()->hasFocus());
    QTest::keyClicks(Forms().MainWindow(), "4");
    EXPECT_EQ(grid.Text(1, 1), "4");
    EXPECT_TRUE(Control("frmProblem", "Grid(0)")->hasFocus());
}

TEST_F(FormsTest, TabEntersAFormAtItsFirstControl)
{
    Forms().Add("frmPERT_CPM", qt::Place::Framed, [](QWidget* parent) -> QWidget* {
        auto* form = new qt::ChildForm(parent);
        auto* page = new QVBoxLayout(form);
        form->setFocusProxy(qt::AddList(page, "lstFirst", "First"));
        qt::AddList(page, "lstSecond", "Second");
        return form;
    });
    Forms().Show("frmPERT_CPM");
    Forms().FocusMenu();
    QTest::keyClick(Forms().MainWindow(), Qt::Key_Tab);
    EXPECT_TRUE(Control("frmPERT_CPM", "lstFirst")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Control("frmPERT_CPM", "lstSecond")->hasFocus());
}

TEST_F(FormsTest, AltGivesTheFocusToTheMainWindow)
{
    Forms().Show("frmProblem");
    Grid& grid = Forms().Loaded("frmProblem").GridOf("Grid(0)");
    grid.Resize(3, 3);
    grid.SetFocus();
    QTest::keyClick(Control("frmProblem", "Grid(0)"), Qt::Key_7, Qt::AltModifier);
    EXPECT_TRUE(Forms().MainWindow()->hasFocus());
    EXPECT_EQ(grid.Text(1, 1), "");
}

TEST_F(FormsTest, TheFormsGoWithTheTable)
{
    auto forms = std::make_unique<qt::QtForms>();
    forms->Add<Window>("frmMenu", qt::Place::Main);
    forms->Add<Problem>("frmProblem", qt::Place::Filling);
    forms->Add<Question>("frmQuestion", qt::Place::Modal);
    forms->Show("frmMenu");
    forms->Show("frmProblem");
    forms->Load("frmQuestion");
    EXPECT_EQ(alive, 2);
    forms.reset();
    EXPECT_EQ(alive, 0);
}

// ---- on a small screen ----

namespace {

class LargeWindow : public Window {
public:
    explicit LargeWindow(QWidget* parent) : Window(parent) { resize(5000, 4000); }
};

}  // namespace

TEST(FormsOnASmallScreen, TheMainWindowIsNotLargerThanItsScreen)
{
    QtDesktop desktop;
    desktop.forms.Add<LargeWindow>("frmMenu", qt::Place::Main);
    desktop.forms.Show("frmMenu");
    const QWidget* main = desktop.forms.MainWindow();
    const QSize room = main->screen()->availableSize();
    EXPECT_LE(main->width(), room.width());
    EXPECT_LE(main->height(), room.height());
    EXPECT_LE(main->minimumWidth(), 640);
    EXPECT_LE(main->minimumHeight(), 480);
}

TEST(FormsOnASmallScreen, ADialogHasAClosingButtonOnly)
{
    const qt::ModalForm dialog(nullptr);
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
}
