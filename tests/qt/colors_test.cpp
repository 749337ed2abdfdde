#include "qt/colors.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLineEdit>
#include <QMap>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <QTextBrowser>
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "qt/desktopcolors.h"
#include "qt/entrygrid.h"
#include "qt/style.h"
#include "shell/frmModuleSelection.h"
#include "support/qt_desktop.h"

namespace {

QPalette LightPalette()
{
    return std::unique_ptr<QStyle>(QStyleFactory::create("Fusion"))->standardPalette();
}

QPalette DarkPalette()
{
    const QColor text(0xee, 0xee, 0xee);
    QPalette dark(text, QColor(0x3a, 0x3a, 0x3a), QColor(0x50, 0x50, 0x50), QColor(0x18, 0x18, 0x18),
                  QColor(0x28, 0x28, 0x28), text, Qt::white, QColor(0x1e, 0x1e, 0x1e),
                  QColor(0x2d, 0x2d, 0x2d));
    dark.setColor(QPalette::Highlight, QColor(0x1b, 0x4f, 0x7a));
    dark.setColor(QPalette::HighlightedText, QColor(0xaa, 0xaa, 0xaa));
    return dark;
}

QPalette PaletteOf(std::string_view name)
{
    return name == "dark" ? DarkPalette() : LightPalette();
}

// The contrast of what stands out most with the colour that most of the picture has.
double ContrastIn(const QImage& picture)
{
    QMap<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    const auto colors = counts.keys();
    const QRgb ground = *std::max_element(colors.begin(), colors.end(),
                                          [&](QRgb a, QRgb b) { return counts[a] < counts[b]; });
    double most = 1;
    for (const QRgb color : colors)
        most = std::max(most, qt::Contrast(QColor(color), QColor(ground)));
    return most;
}

class ColorsTest : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override
    {
        QApplication::setStyle("Fusion");
        QApplication::setPalette(PaletteOf(GetParam()));
    }
    void TearDown() override { QApplication::setPalette(LightPalette()); }

    QtDesktop desktop;
};

// A grid of one row: a cell with text, the current one, and one with nothing in it.
class GridColorsTest : public ColorsTest {
protected:
    void SetUp() override
    {
        ColorsTest::SetUp();
        qt::EntryRules rules;
        rules.Key = [](int, int, char, bool) { return qt::KeyAnswer::Taken; };
        rules.Commit = [](int, int, std::string_view) { return true; };
        grid = std::make_unique<qt::EntryGrid>("grid", "Numbers", std::move(rules));
        grid->Cells().Resize(2, 4);
        grid->Cells().SetText(1, 1, "8");
        grid->Cells().SetText(1, 2, "8");
        grid->Cells().Select(1, 2);
        grid->resize(600, 200);
        grid->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(grid.get()));
    }

    // Without the lines around it.
    [[nodiscard]] QImage PictureOfCell(int column) const
    {
        const QRect cell = grid->visualRect(grid->model()->index(1, column));
        return grid->viewport()->grab(cell.adjusted(4, 4, -4, -4)).toImage();
    }

    std::unique_ptr<qt::EntryGrid> grid;
};

const auto kPalettes = testing::Values("light", "dark");

}  // namespace

TEST(Contrast, IsThatOfTheGuidelines)
{
    EXPECT_NEAR(qt::Contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(qt::Contrast(Qt::white, Qt::black), 21, 1e-9);
    EXPECT_NEAR(qt::Contrast(Qt::red, Qt::red), 1, 1e-9);
    EXPECT_NEAR(qt::Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);  // just not readable
    EXPECT_NEAR(qt::Contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
}

TEST(ReadableOn, KeepsWhatCanBeRead)
{
    EXPECT_EQ(qt::ReadableOn(Qt::white, QColor(0x76, 0x76, 0x76)), QColor(0x76, 0x76, 0x76));
    EXPECT_EQ(qt::ReadableOn(Qt::white, QColor(0x77, 0x77, 0x77)), QColor(Qt::black));
    EXPECT_EQ(qt::ReadableOn(Qt::darkBlue, QColor(Qt::black)), QColor(Qt::white));
}

TEST_P(GridColorsTest, CellsCanBeRead)
{
    ASSERT_TRUE(grid->hasFocus());
    EXPECT_GE(ContrastIn(PictureOfCell(1)), qt::kReadable);
    EXPECT_GE(ContrastIn(PictureOfCell(2)), qt::kReadable);
    EXPECT_NEAR(ContrastIn(PictureOfCell(3)), 1, 1e-9);
}

TEST_P(GridColorsTest, TheCurrentCellStandsOutWithAndWithoutTheFocus)
{
    const auto groundOf = [this](int column) { return PictureOfCell(column).pixelColor(0, 0); };
    EXPECT_GE(qt::Contrast(groundOf(2), groundOf(1)), 1.5);
    grid->clearFocus();
    EXPECT_EQ(groundOf(2), groundOf(1));
    const QRect cell = grid->visualRect(grid->model()->index(1, 2));
    EXPECT_GE(ContrastIn(grid->viewport()->grab(cell.adjusted(0, 0, -30, 0)).toImage()), qt::kVisible);
}

TEST_P(ColorsTest, TheHintInTheChoiceOfAModuleCanBeRead)
{
    const frmModuleSelection form(nullptr);
    const auto* text = form.findChild<QTextBrowser*>("txtprobsel");
    const QColor ground = text->palette().color(QPalette::Base);
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(ground);
    QPainter(&picture).fillRect(0, 0, 1, 1, text->palette().color(QPalette::PlaceholderText));
    EXPECT_GE(qt::Contrast(picture.pixelColor(0, 0), ground), qt::kReadable);
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, GridColorsTest, kPalettes,
                         [](const auto& palette) { return std::string(palette.param); });
INSTANTIATE_TEST_SUITE_P(LightAndDark, ColorsTest, kPalettes,
                         [](const auto& palette) { return std::string(palette.param); });

TEST(Colors, AMixtureLiesBetweenItsParts)
{
    EXPECT_EQ(qt::Mixed(Qt::black, Qt::white, 1).rgb(), QColor(Qt::black).rgb());
    EXPECT_EQ(qt::Mixed(Qt::black, Qt::white, 0).rgb(), QColor(Qt::white).rgb());
    EXPECT_EQ(qt::Mixed(QColor(200, 100, 0), QColor(0, 100, 100), 0.5F).rgb(), QColor(100, 100, 50).rgb());
}

TEST(Colors, AWarningIsSeenOnEveryGround)
{
    for (const QColor& ground :
         {QColor(Qt::white), QColor(Qt::black), QColor(0x31, 0x36, 0x3b), QColor(0xef, 0xf0, 0xf1)})
        EXPECT_GE(qt::Contrast(qt::AlertOn(ground), ground), qt::kVisible) << ground.name().toStdString();
}

// The style underneath draws the frames darker than the window, or in shades that a pure palette has not.
TEST(Style, ABoxHasAFrameInEveryPalette)
{
    for (const QPalette& colors :
         {DarkPalette(), qt::DarkColors(), qt::HighContrastColors(true), qt::HighContrastColors(false)}) {
        qt::Style style;
        QWidget window;
        QLineEdit box(&window);
        QPushButton button(&window);
        const bool strong = colors.color(QPalette::Window) == colors.color(QPalette::Base);
        for (QWidget* widget : {&window, static_cast<QWidget*>(&box), static_cast<QWidget*>(&button)}) {
            widget->setPalette(colors);
            widget->setStyle(&style);
        }
        box.setGeometry(10, 10, 100, 30);
        button.setGeometry(10, 60, 100, 30);
        const QImage picture = window.grab().toImage();
        const QColor ground = colors.color(QPalette::Window);
        EXPECT_GE(qt::Contrast(picture.pixelColor(60, 10), ground), strong ? 10 : 2);
        if (strong) {
            EXPECT_GE(qt::Contrast(picture.pixelColor(60, 60), ground), 10);
        }
    }
}
