#include "qt/desktopcolors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <ostream>
#include <string>
#include <utility>

#include "forms.h"
#include "qt/colors.h"
#include "qt/style.h"
#include "shell/commands.h"
#include "shell/session.h"
#include "support/qt_desktop.h"

namespace {

constexpr const char* kAppearance = "org.freedesktop.appearance";

// The settings of a desktop that tells what the test wants it to.
class ToldSettings : public qt::DesktopSettings {
public:
    void Follow(Taker taker) override { Tell = std::move(taker); }

    Taker Tell;
};

QColor Window()
{
    return QApplication::palette().color(QPalette::Window);
}

class DesktopColors : public testing::Test {
protected:
    void SetUp() override { QApplication::setPalette(QPalette()); }
    void TearDown() override { QApplication::setPalette(QPalette()); }

    void Tell(const char* key, unsigned value) const { settings.Tell(kAppearance, key, value); }

    ToldSettings settings;
    const QColor first = Window();
    const QColor dark = qt::DarkColors().color(QPalette::Window);
};

void Write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray ColorsFile(const QByteArray& window, const QByteArray& text)
{
    return "[General]\nColorScheme=Own\n\n[Colors:Button]\nBackgroundNormal=40,41,42\nForegroundNormal=" +
           text +
           "\n\n[Colors:Selection]\nBackgroundNormal=1,2,3\nForegroundNormal=250,251,252\n"
           "\n[Colors:View]\nBackgroundNormal=20,21,22\nForegroundNormal=" +
           text + "\n\n[Colors:Window]\nBackgroundNormal=" + window + "\nForegroundNormal=" + text + "\n";
}

}  // namespace

TEST_F(DesktopColors, NothingIsTakenBeforeTheDesktopHasTold)
{
    const qt::WishedColors colors(settings);
    EXPECT_EQ(Window(), first);
    Tell("color-scheme", 0);
    EXPECT_EQ(Window(), first);
    Tell("color-scheme", 2);
    EXPECT_EQ(Window(), first);
}

TEST_F(DesktopColors, DarkComesAndGoesWhileTheProgramRuns)
{
    const qt::WishedColors colors(settings);
    Tell("color-scheme", 1);
    EXPECT_EQ(Window(), dark);
    Tell("color-scheme", 2);
    EXPECT_EQ(Window(), first);
    Tell("color-scheme", 1);
    EXPECT_EQ(Window(), dark);
    Tell("color-scheme", 0);
    EXPECT_EQ(Window(), first);
}

TEST_F(DesktopColors, HighContrastIsLightOrDark)
{
    const qt::WishedColors colors(settings);
    Tell("contrast", 1);
    EXPECT_EQ(Window(), QColor(Qt::white));
    Tell("color-scheme", 1);
    EXPECT_EQ(Window(), QColor(Qt::black));
    Tell("contrast", 0);
    EXPECT_EQ(Window(), dark);
    settings.Tell("org.gnome.desktop.a11y.interface", "high-contrast", true);
    EXPECT_EQ(Window(), QColor(Qt::black));
    settings.Tell("org.gnome.desktop.a11y.interface", "high-contrast", false);
    Tell("color-scheme", 0);
    EXPECT_EQ(Window(), first);
}

TEST_F(DesktopColors, WhatIsNotAboutColorsChangesNothing)
{
    const qt::WishedColors colors(settings);
    settings.Tell("org.gnome.desktop.interface", "color-scheme", 1U);
    settings.Tell(kAppearance, "accent-color", 1U);
    settings.Tell(kAppearance, "color-scheme", QVariant());
    EXPECT_EQ(Window(), first);
}

// A desktop may tell dark colours by a palette of its own: they stay.
TEST_F(DesktopColors, DarkColorsOfTheStartStay)
{
    QPalette own(QColor(10, 20, 30), QColor(10, 20, 30));
    own.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(own);
    const qt::WishedColors colors(settings);
    Tell("color-scheme", 1);
    EXPECT_EQ(Window(), QColor(10, 20, 30));
    Tell("color-scheme", 2);
    EXPECT_EQ(Window(), QColor(10, 20, 30));
    Tell("contrast", 1);
    EXPECT_EQ(Window(), QColor(Qt::black));
}

TEST_F(DesktopColors, OfAFileAreReadRoleByRole)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("kdeglobals");
    EXPECT_FALSE(qt::ReadColors(file).has_value());
    Write(file, "[General]\nColorScheme=Own\n");
    EXPECT_FALSE(qt::ReadColors(file).has_value());
    Write(file, ColorsFile("49,54,59", "239,240,241"));
    const auto colors = qt::ReadColors(file);
    ASSERT_TRUE(colors.has_value());
    EXPECT_EQ(colors->color(QPalette::Window), QColor(49, 54, 59));
    EXPECT_EQ(colors->color(QPalette::WindowText), QColor(239, 240, 241));
    EXPECT_EQ(colors->color(QPalette::Base), QColor(20, 21, 22));
    EXPECT_EQ(colors->color(QPalette::Text), QColor(239, 240, 241));
    EXPECT_EQ(colors->color(QPalette::Button), QColor(40, 41, 42));
    EXPECT_EQ(colors->color(QPalette::Highlight), QColor(1, 2, 3));
    EXPECT_EQ(colors->color(QPalette::HighlightedText), QColor(250, 251, 252));
    const QColor disabled = colors->color(QPalette::Disabled, QPalette::ButtonText);
    EXPECT_EQ(disabled.rgb(), qRgb(140, 141, 142));  // halfway from the text to its ground
}

TEST_F(DesktopColors, OfAFileFollowWhatIsWritten)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("kdeglobals");
    const qt::ColorsOfFile colors(file);
    Write(file, ColorsFile("49,54,59", "239,240,241"));
    EXPECT_TRUE(QTest::qWaitFor([] { return Window() == QColor(49, 54, 59); }));
    Write(file, ColorsFile("60,61,62", "239,240,241"));
    EXPECT_TRUE(QTest::qWaitFor([] { return Window() == QColor(60, 61, 62); }));
    for (const char* window : {"70,71,72", "80,81,82"}) {  // each time another file in its place
        Write(file + ".new", ColorsFile(window, "239,240,241"));
        QFile::remove(file);
        ASSERT_TRUE(QFile::rename(file + ".new", file));
        EXPECT_TRUE(QTest::qWaitFor([&] { return Window().red() == QByteArray(window).left(2).toInt(); }));
    }
}

TEST_F(DesktopColors, OwnPalettesCanBeReadEverywhere)
{
    constexpr double kHigh = 10;
    using Pair = std::pair<QPalette::ColorRole, QPalette::ColorRole>;
    for (const auto& [text, ground] :
         {Pair{QPalette::WindowText, QPalette::Window}, Pair{QPalette::Text, QPalette::Base},
          Pair{QPalette::Text, QPalette::AlternateBase}, Pair{QPalette::ButtonText, QPalette::Button},
          Pair{QPalette::HighlightedText, QPalette::Highlight},
          Pair{QPalette::ToolTipText, QPalette::ToolTipBase}, Pair{QPalette::PlaceholderText, QPalette::Base},
          Pair{QPalette::Link, QPalette::Base}}) {
        const auto contrast = [text = text, ground = ground](const QPalette& colors) {
            return qt::Contrast(colors.color(text), colors.color(ground));
        };
        EXPECT_GE(contrast(qt::DarkColors()), qt::kReadable) << text;
        EXPECT_GE(contrast(qt::HighContrastColors(false)), kHigh) << text;
        EXPECT_GE(contrast(qt::HighContrastColors(true)), kHigh) << text;
    }
}

namespace {

struct Shown {
    int Module;
    const char* Problem;
    bool Solved;
};

void PrintTo(const Shown& shown, std::ostream* out)
{
    *out << shown.Problem;
}

// What stands beside a report comes later than the report.
QImage Settled(QWidget& window)
{
    constexpr int kLong = 150;  // milliseconds
    QImage before;
    QImage now;
    do {
        before = now;
        QTest::qWait(kLong);
        now = window.grab().toImage();
    } while (now != before);
    return now;
}

// The main window with a problem or its report, dark from its first moment or only once all is shown.
QImage Picture(const Shown& what, bool later)
{
    QApplication::setPalette(later ? QPalette() : qt::DarkColors());
    QtDesktop desktop;
    RegisterForms(desktop.forms);
    Commands::Start();
    QWidget* window = desktop.forms.MainWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    if (what.Module != 0) {
        Commands::SelectModule(what.Module);
        Commands::ChooseModule();
        desktop.dialogs.files = {std::string(PROBLEMS) + what.Problem};
        Commands::Open();
        if (what.Solved) Commands::Solve();
    }
    if (later) {
        Settled(*window);
        QApplication::setPalette(qt::DarkColors());
    }
    return Settled(*window);
}

}  // namespace

class LiveColors : public DesktopColors, public testing::WithParamInterface<Shown> {};

TEST_P(LiveColors, AScreenThatIsShownBecomesWhatItWouldHaveBeen)
{
    QApplication::setStyle(new qt::Style);
    const QImage fresh = Picture(GetParam(), false);
    const QImage changed = Picture(GetParam(), true);
    EXPECT_EQ(fresh, changed);
    EXPECT_LT(fresh.pixelColor(fresh.width() / 2, 2).lightness(), 128);
}

INSTANTIATE_TEST_SUITE_P(Screens, LiveColors,
                         testing::Values(Shown{0, "", false}, Shown{1, "Furniture.LPM", false},
                                         Shown{1, "Furniture.LPM", true}, Shown{2, "Gravel.TRN", false},
                                         Shown{6, "Fibre.S&S", true}, Shown{7, "Festival.CPM", false},
                                         Shown{7, "Festival.CPM", true}, Shown{10, "Vineyard.DSN", false},
                                         Shown{12, "Newspapers.MRK", true}),
                         [](const auto& shown) {
                             return "Module" + std::to_string(shown.param.Module) +
                                    (shown.param.Solved ? "Report" : "Problem");
                         });
