// What a user is told by pointing: which values a box takes, and what an item of the menus does.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStatusTipEvent>
#include <QTest>
#include <QTimer>
#include <functional>
#include <map>
#include <string>

#include "forms.h"
#include "shell/commands.h"
#include "shell/session.h"
#include "support/qt_desktop.h"

namespace {

using Tips = std::map<std::string, std::string>;

class TipsTest : public testing::Test {
protected:
    void SetUp() override
    {
        RegisterForms(desktop.forms);
        Commands::Start();
        ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.forms.MainWindow()));
    }

    void Choose(int module) const
    {
        if (desktop.forms.Find("frmModuleSelection") == nullptr) Commands::ChangeModules();
        Commands::SelectModule(module);
        Commands::ChooseModule();
    }

    void Open(const char* problem)
    {
        desktop.dialogs.files = {std::string(PROBLEMS) + problem};
        Commands::Open();
    }

    // The tips of the boxes on the dialog that a command brings up; hidden ones as well.
    static Tips TipsWhile(const std::function<void()>& command)
    {
        Tips tips;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&tips] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            if (tips.empty()) tips = TipsOn(*dialog);
            dialog->reject();
        });
        watch.start(0);
        command();
        return tips;
    }

    static Tips TipsOn(const QWidget& form)
    {
        Tips tips;
        for (const auto* box : form.findChildren<QLineEdit*>())
            if (!box->objectName().startsWith("qt_"))
                tips[box->objectName().toStdString()] = box->toolTip().toStdString();
        return tips;
    }

    [[nodiscard]] QLabel* Tip() const { return desktop.forms.MainWindow()->findChild<QLabel*>("statusTip"); }
    [[nodiscard]] QAction* Item(const char* name) const
    {
        return desktop.forms.MainWindow()->findChild<QAction*>(name);
    }

    QtDesktop desktop;
};

}  // namespace

TEST_F(TipsTest, BoxesTellTheRangeThatTheirLabelsLeaveOut)
{
    Choose(1);
    EXPECT_EQ(TipsWhile(Commands::New), (Tips{{"txtConstraints", "1 to 50"}, {"txtVariables", "1 to 100"}}));
    Choose(5);
    EXPECT_EQ(TipsWhile(Commands::New), (Tips{{"txtAnswer(0)", "2 to 20"}, {"txtAnswer(1)", "1 to 40"}}));
    Open("Parcels.S&S");
    EXPECT_EQ(TipsWhile(Commands::Solve), (Tips{{"txtAnswer(0)", "1 to 10"}, {"txtAnswer(1)", "1 to 10"}}));
    Choose(11);
    Open("Museum.FOR");
    EXPECT_EQ(TipsWhile(Commands::Solve)["txtValue(0)"], "1 to 24");
}

TEST_F(TipsTest, TheFormsOfInventoryTellEachRange)
{
    Choose(8);
    const auto tips = [this](const char* problem) { return TipsWhile([&] { Open(problem); }); };
    Tips order = tips("Tires.INV");
    EXPECT_EQ(order["txtFrame1"], "More than 0");
    EXPECT_EQ(order["txtleadtime"], "0 or more");
    Tips discounts = tips("Paper.INV");
    EXPECT_EQ(discounts["txtQtyDiscounts(0)"], "More than 0");
    EXPECT_EQ(discounts["txtQtyDiscounts(3)"], "1 to 365");
    EXPECT_EQ(discounts["txtUnitCost(0)"], "More than 0");
    EXPECT_EQ(discounts["txtMinQty(1)"], "0 or more");
    Tips uniform = tips("Calendars.INV");
    EXPECT_EQ(uniform["txtSmallValue"], "0 or more");
    EXPECT_EQ(uniform["txtLargeValue"], "At least the smallest value");
    for (const char* problem :
         {"Tires.INV", "Bottling.INV", "Pianos.INV", "Paper.INV", "Pumps.INV", "Calendars.INV"})
        for (const auto& [box, tip] : tips(problem))
            EXPECT_NE(tip, "") << problem << " " << box;
}

TEST_F(TipsTest, WaitingLinesTellWhatIsNotFree)
{
    Choose(9);
    Tips tips = TipsWhile([this] { Open("Bank.WLM"); });
    EXPECT_EQ(tips["txt_WL(0)"], "1 to 25");
    EXPECT_EQ(tips["txt_WL(1)"], "More than 0");
    EXPECT_EQ(tips["txtECONAnal(0)"], "");
}

TEST_F(TipsTest, EstimatesOfATimeTellTheirOrder)
{
    Choose(7);
    Open("Festival.CPM");
    EXPECT_EQ(TipsOn(*desktop.forms.Find("frmPERT_CPM")),
              (Tips{{"txtOptimistic", "0 or more"},
                    {"txtProbable", "At least the optimistic time"},
                    {"txtPessimistic", "At least the most probable time"}}));
}

TEST_F(TipsTest, AMenuItemTellsWhatItDoesBesideTheNameOfTheModule)
{
    Choose(12);
    Open("Newspapers.MRK");
    auto* indicator = desktop.forms.MainWindow()->findChild<QLabel*>("lblmoduleindicator");
    EXPECT_FALSE(Tip()->isVisible());
    auto* file = desktop.forms.MainWindow()->findChild<QMenu*>("mnuFile");
    file->popup(QPoint());
    file->setActiveAction(Item("mnuFileExit"));
    EXPECT_TRUE(Tip()->isVisible());
    EXPECT_EQ(Tip()->text(), "Ends the program. Nothing is asked, and nothing is saved.");
    EXPECT_TRUE(indicator->isVisible());
    EXPECT_EQ(indicator->text(), "Markov Processes Module");
    file->setActiveAction(Item("mnuFileNew"));
    EXPECT_EQ(Tip()->text(), "Begins a new problem of this module.");
    file->close();
    EXPECT_FALSE(Tip()->isVisible());
}

// A tip is never cut: the name of the module gives way where there is no room for both.
TEST_F(TipsTest, AMenuItemHasTheRoomThatItNeedsInTheSmallestWindow)
{
    Choose(12);
    Open("Newspapers.MRK");
    auto* window = desktop.forms.MainWindow();
    auto* indicator = window->findChild<QLabel*>("lblmoduleindicator");
    indicator->setText("Inventory Model:  Economic Order Quantity with Planned Shortages");
    window->resize(window->minimumSize());
    for (const char* name : {"mnuFileExit", "mnuSolutionPrinttoText", "mnuFileNew"}) {
        QStatusTipEvent tip(Item(name)->statusTip());
        QApplication::sendEvent(window, &tip);
        QTest::qWait(1);
        EXPECT_TRUE(Tip()->isVisible());
        EXPECT_GE(Tip()->width(), Tip()->sizeHint().width()) << name;
        EXPECT_TRUE(window->rect().contains(QRect(Tip()->mapTo(window, QPoint()), Tip()->size()))) << name;
        if (indicator->isVisible()) {
            EXPECT_GE(indicator->width(), indicator->sizeHint().width()) << name;
        }
    }
    QStatusTipEvent none("");
    QApplication::sendEvent(window, &none);
    EXPECT_TRUE(indicator->isVisible());
}

TEST_F(TipsTest, TheHintHowToBeginStaysAlone)
{
    Choose(12);
    const auto* hint = desktop.forms.MainWindow()->findChild<QLabel*>("statusHint");
    EXPECT_TRUE(hint->isVisible());
    QStatusTipEvent tip("Begins a new problem of this module.");
    QApplication::sendEvent(desktop.forms.MainWindow(), &tip);
    EXPECT_FALSE(Tip()->isVisible());
    EXPECT_TRUE(hint->isVisible());
}

TEST_F(TipsTest, EveryItemHasOneButThoseThatSayItThemselves)
{
    for (const char* name :
         {"mnuFileNew", "mnuFileOpen", "mnuFileSave", "mnuFileChangeModules", "mnuFileExit",
          "mnudispeditsubs(0)", "mnuSolutionSolve", "mnuSolutionPrinttoPrinter", "mnuSolutionPrinttoText"})
        EXPECT_NE(Item(name)->statusTip(), "") << name;
}

// In the least window that there is, too.
TEST_F(TipsTest, TheChoiceOfAModuleIsWholeInTheSmallestWindow)
{
    QWidget* window = desktop.forms.MainWindow();
    window->resize(window->minimumSize());
    QTest::qWait(1);
    const QWidget* form = desktop.forms.Find("frmModuleSelection");
    const QRect area = window->findChild<QWidget*>("mdiArea")->rect();
    for (const auto* button : form->findChildren<QAbstractButton*>()) {
        EXPECT_GE(button->height(), button->minimumSizeHint().height()) << button->objectName().toStdString();
        const QRect place(button->mapTo(window, QPoint()), button->size());
        EXPECT_TRUE(window->rect().contains(place)) << button->objectName().toStdString();
        EXPECT_LT(button->mapTo(window->findChild<QWidget*>("mdiArea"), QPoint()).y(), area.height());
    }
}
