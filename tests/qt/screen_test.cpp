#include "qt/screen.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include "support/qt_desktop.h"

namespace {

class Window : public QMainWindow {
public:
    explicit Window(QWidget* parent) : QMainWindow(parent)
    {
        setCentralWidget(new QMdiArea);
        auto* indicator = new QLabel;
        indicator->setObjectName("lblmoduleindicator");
        statusBar()->addWidget(indicator);
        auto* button = new QPushButton;
        button->setObjectName("button");
        statusBar()->addWidget(button);
    }
};

class ScreenTest : public testing::Test {
protected:
    void SetUp() override
    {
        desktop.forms.Add<Window>("frmMenu", qt::Place::Main);
        desktop.forms.Show("frmMenu");
        ASSERT_TRUE(QTest::qWaitForWindowActive(Main()));
    }
    [[nodiscard]] QWidget* Main() const { return desktop.forms.MainWindow(); }

    QtDesktop desktop;
};

}  // namespace

TEST_F(ScreenTest, TheIndicatorShowsADoubledAmpersandAsOne)
{
    desktop.screen.SetIndicator("Trend && Seasonal  Projection");
    EXPECT_EQ(desktop.screen.Indicator(), "Trend && Seasonal  Projection");
    EXPECT_EQ(Main()->findChild<QLabel*>("lblmoduleindicator")->text(), "Trend & Seasonal  Projection");
}

TEST_F(ScreenTest, TheHourglassIsShownOnceAndTakenAwayOnce)
{
    desktop.screen.SetPointer(Pointer::Hourglass);
    desktop.screen.SetPointer(Pointer::Hourglass);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.screen.SetPointer(Pointer::Normal);
    desktop.screen.SetPointer(Pointer::Normal);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ScreenTest, EscapeInterruptsACommandOnce)
{
    desktop.screen.SetPointer(Pointer::Hourglass);
    EXPECT_FALSE(desktop.screen.Interrupted());
    QTimer::singleShot(0, Main(), [this] { QTest::keyClick(Main(), Qt::Key_Escape); });
    EXPECT_TRUE(desktop.screen.Interrupted());
    EXPECT_FALSE(desktop.screen.Interrupted());
    desktop.screen.SetPointer(Pointer::Normal);
}

TEST_F(ScreenTest, OtherInputIsDroppedWhileACommandRuns)
{
    auto* button = Main()->findChild<QPushButton*>("button");
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, button, [&] { ++clicks; });
    QTimer::singleShot(0, Main(), [&] {
        EXPECT_TRUE(desktop.screen.IsWorking());
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::keyClick(Main(), Qt::Key_A);
        Main()->close();
    });
    EXPECT_FALSE(desktop.screen.Interrupted());
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(Main()->isVisible());
    EXPECT_FALSE(desktop.screen.IsWorking());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}
