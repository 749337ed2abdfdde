// The report under the mouse: it is zoomed by the wheel, and what the mouse chooses is copied.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QWheelEvent>

#include "forms.h"
#include "shell/commands.h"
#include "support/qt_desktop.h"

namespace {

class ReportPage : public testing::Test {
protected:
    void SetUp() override
    {
        RegisterForms(desktop.forms);
        Commands::Start();
        Commands::ChangeModules();
        Commands::SelectModule(12);
        Commands::ChooseModule();
        desktop.dialogs.files = {std::string(PROBLEMS) + "Newspapers.MRK"};
        Commands::Open();
        Commands::Solve();
        ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.forms.MainWindow()));
        page = desktop.forms.MainWindow()->findChild<QPlainTextEdit*>("gridSolution");
        ASSERT_NE(page, nullptr);
    }

    [[nodiscard]] int Points() const { return page->font().pointSize(); }

    void Turn(int angle, Qt::KeyboardModifiers modifiers) const
    {
        const QPoint at(20, 20);
        QWheelEvent wheel(at, page->viewport()->mapToGlobal(at), QPoint(), QPoint(0, angle), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(page->viewport(), &wheel);
    }

    [[nodiscard]] QPoint PlaceOf(int line, int column) const
    {
        QTextCursor cursor(page->document()->findBlockByNumber(line));
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, column);
        return page->cursorRect(cursor).center();
    }

    QtDesktop desktop;
    QPlainTextEdit* page = nullptr;
};

}  // namespace

TEST_F(ReportPage, TheWheelZoomsWhileControlIsHeld)
{
    const int usual = Points();
    Turn(120, Qt::NoModifier);
    EXPECT_EQ(Points(), usual);
    Turn(120, Qt::ControlModifier);
    Turn(120, Qt::ControlModifier);
    EXPECT_EQ(Points(), usual + 2);
    Turn(-120, Qt::ControlModifier);
    EXPECT_EQ(Points(), usual + 1);
    QTest::keyClick(desktop.forms.MainWindow(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Points(), usual);
    QTest::keyClick(desktop.forms.MainWindow(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(Points(), usual - 1);
    for (int i = 0; i < 100; ++i)
        Turn(-120, Qt::ControlModifier);
    EXPECT_EQ(Points(), 5);
    for (int i = 0; i < 100; ++i)
        Turn(120, Qt::ControlModifier);
    EXPECT_EQ(Points(), 48);
    QTest::keyClick(desktop.forms.MainWindow(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Points(), usual);
}

// The first line is "Markov Processes Solution".
TEST_F(ReportPage, WhatTheMouseChoosesIsCopiedByTheKey)
{
    QTest::mousePress(page->viewport(), Qt::LeftButton, {}, PlaceOf(0, 0));
    QMouseEvent move(QEvent::MouseMove, PlaceOf(0, 6), page->viewport()->mapToGlobal(PlaceOf(0, 6)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(page->viewport(), &move);
    QTest::mouseRelease(page->viewport(), Qt::LeftButton, {}, PlaceOf(0, 6));
    EXPECT_FALSE(page->hasFocus());
    QTest::keyClick(desktop.forms.MainWindow(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Markov");
}
