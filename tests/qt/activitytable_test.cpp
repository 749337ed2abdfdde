// The menu that the table of activities and the lists below it have for the mouse and for the menu key.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QTest>

#include "forms.h"
#include "project/VtPert_CPM.h"
#include "shell/commands.h"
#include "support/qt_desktop.h"

namespace {

class ActivityTable : public testing::Test {
protected:
    void SetUp() override
    {
        RegisterForms(desktop.forms);
        Commands::Start();
        Commands::ChangeModules();
        Commands::SelectModule(7);
        Commands::ChooseModule();
        desktop.dialogs.files = {std::string(PROBLEMS) + "Bakery.CPM"};
        Commands::Open();
        form = desktop.forms.Find("frmPERT_CPM");
        ASSERT_NE(form, nullptr);
        QApplication::clipboard()->clear();
    }

    template <typename View>
    [[nodiscard]] View* Control(const char* name) const
    {
        return form->findChild<View*>(name);
    }

    static void AskForMenu(QAbstractScrollArea* area)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                area->viewport()->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(area->viewport(), &event);
    }

    // The items that can be chosen; one of them is.
    [[nodiscard]] QStringList Menu(const QString& chosen = {}) const
    {
        QStringList items;
        auto* menu = form->findChild<QMenu*>("menuOfTable");
        if (menu == nullptr) return items;
        for (QAction* action : menu->actions()) {
            if (action->isSeparator() || !action->isEnabled()) continue;
            items.append(action->text());
            if (action->text() == chosen) action->trigger();
        }
        delete menu;
        return items;
    }

    QtDesktop desktop;
    QWidget* form = nullptr;
};

}  // namespace

TEST_F(ActivityTable, OffersWhatApplies)
{
    auto* activities = Control<QListWidget>("lstActivityName");
    auto* predecessors = Control<QListWidget>("lstPredecessor");
    AskForMenu(activities);
    EXPECT_EQ(Menu(), QStringList("&Copy"));
    QApplication::clipboard()->setText("A\n");
    activities->setCurrentRow(1);
    const auto before = VtPert_CPM::PredecessorsOf(2);
    EXPECT_EQ(before, std::vector<int>());
    AskForMenu(predecessors);
    EXPECT_EQ(Menu("&Paste"), QStringList({"&Copy", "&Paste"}));
    EXPECT_EQ(VtPert_CPM::PredecessorsOf(2), std::vector<int>{1});
    AskForMenu(Control<QAbstractScrollArea>("gridDisplayEdit"));
    EXPECT_EQ(Menu("&Undo"), QStringList({"&Undo", "&Copy", "&Paste"}));
    EXPECT_EQ(VtPert_CPM::PredecessorsOf(2), before);
    AskForMenu(activities);
    EXPECT_EQ(Menu("&Redo"), QStringList({"&Redo", "&Copy", "&Paste"}));
    EXPECT_EQ(VtPert_CPM::PredecessorsOf(2), std::vector<int>{1});
}

TEST_F(ActivityTable, CopiesTheColumnsFromTheListOn)
{
    AskForMenu(Control<QListWidget>("lstActivityName"));
    ASSERT_EQ(Menu("&Copy"), QStringList("&Copy"));
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("A\t\t3\n"));
    AskForMenu(Control<QListWidget>("lstPredecessor"));
    ASSERT_EQ(Menu("&Copy"), QStringList({"&Copy", "&Paste"}));
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith("\t3\n"));
}
