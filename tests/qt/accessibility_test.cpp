// Every screen of the program, for those who do not use a mouse or do not see the screen: each control has a
// name, Tab reaches it, and labels belong to their fields.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <set>
#include <utility>

#include "forms.h"
#include "qt/entrygrid.h"
#include "qt/fields.h"
#include "qt/sidepane.h"
#include "shell/commands.h"
#include "shell/menus.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/qt_desktop.h"

namespace {

QString NameOf(QWidget* control)
{
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
    return spoken == nullptr ? QString() : spoken->text(QAccessible::Name);
}

template <typename... Kinds>
bool IsOneOf(const QWidget* control)
{
    return ((qobject_cast<const Kinds*>(control) != nullptr) || ...);
}

// Something that a user reads or works with; parts of such controls do not count.
bool IsControl(const QWidget* widget)
{
    return !widget->objectName().startsWith("qt_") && !widget->objectName().isEmpty() &&
           IsOneOf<QAbstractButton, QLineEdit, QComboBox, QAbstractItemView, QTextEdit, QPlainTextEdit>(
               widget);
}

// Texts to read, and the table above the lists of a project that shows what they hold.
bool IsOnlyShown(const QWidget* control)
{
    return control->property("readOnly").toBool() ||
           (control->objectName() == "gridDisplayEdit" &&
            control->window()->findChild<QWidget*>("lstActivityName"));
}

QWidgetList ControlsOf(QWidget* form)
{
    QWidgetList controls;
    for (QWidget* widget : form->findChildren<QWidget*>())
        if (widget->isVisible() && IsControl(widget)) controls.append(widget);
    return controls;
}

// What Tab comes to, from the control that has the focus until it is there again. A grid has many stops.
std::set<QWidget*> ReachedByTab(QWidget* form)
{
    constexpr int kManyStops = 400;
    std::set<QWidget*> reached;
    for (int i = 0; i < kManyStops; ++i) {
        QWidget* focused = QApplication::focusWidget();
        if (focused == nullptr || !form->isAncestorOf(focused)) break;
        if (!reached.insert(focused).second && qobject_cast<qt::EntryGrid*>(focused) == nullptr) break;
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    return reached;
}

// Of some options Tab stops at one; the arrow keys go on from there.
bool IsReached(QWidget* control, const std::set<QWidget*>& reached)
{
    if (reached.contains(control)) return true;
    if (qobject_cast<QRadioButton*>(control) == nullptr) return false;
    for (auto* option : control->parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly))
        if (reached.contains(option)) return true;
    return false;
}

bool HasLabel(QWidget* control)
{
    for (const auto* label : control->window()->findChildren<QLabel*>())
        if (label->buddy() == control) return true;
    return false;
}

// In a table of boxes the headings label them all.
bool StandsInATable(const QWidget* control)
{
    return control->objectName().startsWith("txtUnitCost(") || control->objectName().startsWith("txtMinQty(");
}

class AccessibilityTest : public testing::Test {
protected:
    void SetUp() override
    {
        RegisterForms(desktop.forms);
        // A dialog is looked at and left while it runs.
        QObject::connect(&watch, &QTimer::timeout, [this] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || !dialog->isVisible()) return;
            Inspect(dialog);
            if (const auto user = users.find(dialog->objectName()); user != users.end())
                user->second(dialog);
            else
                dialog->reject();
        });
        watch.start(0);
    }

    // The forms that stand in the main window, and dialogs.
    void Inspect(QWidget* form)
    {
        const std::string name = form->objectName().toStdString();
        visited.insert(name);
        QApplication::setActiveWindow(form->window());
        InspectNames(form, name);
        InspectLabels(form, name);
        InspectTab(form, name);
    }

    void InspectNames(QWidget* form, const std::string& name)
    {
        for (QWidget* control : ControlsOf(form))
            EXPECT_FALSE(NameOf(control).trimmed().isEmpty())
                << name << "." << control->objectName().toStdString() << " has no name";
    }

    void InspectLabels(QWidget* form, const std::string& name)
    {
        for (QWidget* control : ControlsOf(form)) {
            if (!IsOneOf<QLineEdit, QComboBox, QListWidget>(control) || StandsInATable(control)) continue;
            EXPECT_TRUE(HasLabel(control)) << name << "." << control->objectName().toStdString();
        }
    }

    void InspectTab(QWidget* form, const std::string& name)
    {
        if (!form->isWindow()) form->setFocus(Qt::TabFocusReason);
        if (!form->isAncestorOf(QApplication::focusWidget())) QTest::keyClick(form->window(), Qt::Key_Tab);
        const auto reached = ReachedByTab(form);
        for (QWidget* control : ControlsOf(form)) {
            if (!control->isEnabled() || IsOnlyShown(control)) continue;
            EXPECT_TRUE(IsReached(control, reached))
                << name << "." << control->objectName().toStdString() << " is not reached by Tab";
        }
    }

    void InspectForm(const char* name)
    {
        QWidget* form = desktop.forms.Find(name);
        ASSERT_NE(form, nullptr) << name;
        ASSERT_TRUE(form->isVisible()) << name;
        QCoreApplication::processEvents();
        Inspect(form);
    }

    void Choose(int module) const
    {
        if (desktop.forms.Find("frmModuleSelection") == nullptr) Commands::ChangeModules();
        Commands::SelectModule(module);
        ASSERT_TRUE(Commands::ChooseModule());
    }

    void Open(const char* problem)
    {
        desktop.dialogs.files = {std::string(PROBLEMS) + problem};
        Commands::Open();
        EXPECT_EQ(Session.ProblemOnDisplay, "YES") << problem;
    }

    // A module whose problem stands in a grid.
    void VisitModule(int module, const char* problem, const char* form)
    {
        Choose(module);
        InspectForm(CurrentModule().ProblemForm.c_str());
        Commands::New();
        Open(problem);
        InspectForm(form);
        Commands::Solve();
    }

    QtDesktop desktop;
    QTimer watch;
    std::map<QString, std::function<void(QDialog*)>> users;  // what is done on a dialog instead of leaving it
    std::set<std::string> visited;
};

void PressFirst(const QDialog* dialog)
{
    for (auto* button : dialog->findChildren<QPushButton*>())
        if (button->isDefault()) return button->click();
}

}  // namespace

TEST_F(AccessibilityTest, EveryScreenIsNamedLabelledAndReachedByTab)
{
    watch.stop();
    desktop.forms.Show("frmStartup");
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.forms.Find("frmStartup")));
    InspectForm("frmStartup");
    desktop.forms.Unload("frmStartup");
    Commands::Start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.forms.MainWindow()));
    InspectForm("frmModuleSelection");
    visited.insert("frmMenu");  // it is the menus, and the forms inside it
    watch.start(0);

    VisitModule(1, "Furniture.LPM", "frmLPproblem");
    InspectForm("frmSolution");
    VisitModule(2, "Gravel.TRN", "frmProblem");
    CommitCell(1, 1, "1000000");
    VisitModule(3, "Relay.ASN", "frmProblem");
    VisitModule(4, "Crews.LPM", "frmLPproblem");
    VisitModule(5, "Ambulance.S&S", "frmProblem");
    VisitModule(6, "Fibre.S&S", "frmProblem");
    VisitModule(7, "Festival.CPM", "frmPERT_CPM");
    Choose(8);
    Commands::New();
    for (const char* problem :
         {"Tires.INV", "Bottling.INV", "Pianos.INV", "Paper.INV", "Pumps.INV", "Calendars.INV"})
        Open(problem);
    Choose(9);
    Commands::New();
    for (const char* problem : {"Bank.WLM", "Garage.WLM", "Carwash.WLM", "Hotline.WLM", "Looms.WLM"})
        Open(problem);
    VisitModule(10, "Vineyard.DSN", "frmDecisionProblem");
    VisitModule(10, "Buses.DSN", "frmDecisionProblem");
    VisitModule(11, "Museum.FOR", "frmProblem");
    VisitModule(12, "Newspapers.MRK", "frmProblem");

    for (const std::string& form : desktop.forms.Names())
        EXPECT_TRUE(visited.contains(form)) << form << " has not been visited";
}

TEST_F(AccessibilityTest, WhatComesUpOnADialogIsReachedAsWell)
{
    Commands::Start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.forms.MainWindow()));
    int shown = 0;
    const auto check = [this, &shown](const char* box) {
        return [this, box, &shown](QDialog* dialog) {
            dialog->findChild<QCheckBox*>(box)->click();
            Inspect(dialog);
            ++shown;
            dialog->reject();
        };
    };
    bool chosen = false;  // a cancelled model leads back to the list
    users["frmuserlistinput"] = [&chosen](QDialog* dialog) {
        if (std::exchange(chosen, true)) return dialog->reject();
        dialog->findChild<QListWidget*>("lstModelSelection")->setCurrentRow(0);
        PressFirst(dialog);
    };
    users["frmEOQ"] = check("chkreorderpoint");
    users["frmWL_Model"] = check("chkECONAnal");
    users["frmDecisionFeatures"] = check("chkStateProbs");
    for (const int module : {8, 9, 10}) {
        chosen = false;
        Choose(module);
        Commands::New();
    }
    EXPECT_EQ(shown, 3);
}

TEST_F(AccessibilityTest, ACellIsNamedByItsHeadings)
{
    Commands::Start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.forms.MainWindow()));
    const auto nameOf = [this](const char* form, const char* grid, int row, int column) {
        auto* view = desktop.forms.Find(form)->findChild<qt::EntryGrid*>(grid);
        const QModelIndex cell = view->model()->index(row, column);
        return cell.data(Qt::AccessibleTextRole).toString();
    };
    Choose(2);
    Open("Gravel.TRN");
    Grid& tableau = desktop.forms.Loaded("frmProblem").GridOf("gridDisplayEdit");
    tableau.SetText(1, 1, "7.5");
    tableau.SetText(2, 1, "");
    EXPECT_EQ(nameOf("frmProblem", "gridDisplayEdit", 1, 1), "Origin 1, 1: 7.5");
    EXPECT_EQ(nameOf("frmProblem", "gridDisplayEdit", 2, 1), "Origin 2, 1");
    EXPECT_TRUE(
        nameOf("frmProblem", "gridDisplayEdit", 1, tableau.Columns() - 1).startsWith("Origin 1, Supply: "));
    Choose(1);
    Open("Furniture.LPM");
    EXPECT_TRUE(nameOf("frmLPproblem", "Grid(1)", 2, 1).startsWith("Subject To: Constraint 2, "));
    auto* view = desktop.forms.Find("frmLPproblem")->findChild<qt::EntryGrid*>("Grid(1)");
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(view);
    ASSERT_NE(spoken->tableInterface(), nullptr);
    EXPECT_TRUE(spoken->tableInterface()
                    ->cellAt(2, 1)
                    ->text(QAccessible::Name)
                    .startsWith("Subject To: Constraint 2, "));
}

TEST_F(AccessibilityTest, APictureKnowsOfWhichProblemItIs)
{
    Commands::Start();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.forms.MainWindow()));
    Choose(12);
    Open("Newspapers.MRK");
    Commands::Solve();
    const auto& pictures = desktop.forms.MainWindow()->findChild<qt::SidePane*>()->Pictures();
    ASSERT_FALSE(pictures.empty());
    EXPECT_EQ(picture::Describe(pictures.front()).front(), "Ring of states: States, Markov Processes.");
}
