// The pictures of random problems of all modules: made, described and painted without a fault. How many
// problems is told by VANTREL_PROBLEMS; a run of 10,000 takes some minutes.
#include <gtest/gtest.h>

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <array>
#include <cstdlib>
#include <string>

#include "picture/networks.h"
#include "qt/pictureview.h"
#include "qt/text.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/impatient_screen.h"
#include "support/random_problems.h"
#include "support/sound_pictures.h"

namespace {

int ProblemCount()
{
    constexpr int kInEveryRun = 180;
    const char* told = std::getenv("VANTREL_PROBLEMS");
    return told == nullptr ? kInEveryRun : std::stoi(told);
}

struct WrittenText {
    QString Text;
    QRectF Ink;  // without the room above and below the letters
};

// Notes where texts are painted, and paints nothing.
class TextEngine : public QPaintEngine {
public:
    TextEngine() : QPaintEngine(AllFeatures) {}
    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& now) override
    {
        if (now.state().testFlag(DirtyTransform)) transform_ = now.transform();
    }
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*pixmap*/, const QRectF& /*from*/) override {}
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawTextItem(const QPointF& at, const QTextItem& item) override
    {
        const QFontMetricsF metrics(item.font());
        const QRectF ink = metrics.tightBoundingRect(item.text()).translated(at);
        if (!ink.isEmpty()) Texts.push_back({item.text(), transform_.mapRect(ink)});
    }
    [[nodiscard]] Type type() const override { return User; }

    std::vector<WrittenText> Texts;

private:
    QTransform transform_;
};

class TextDevice : public QPaintDevice {
public:
    explicit TextDevice(const QSize& size) : size_(size) {}
    [[nodiscard]] QPaintEngine* paintEngine() const override { return &Engine; }

    mutable TextEngine Engine;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override
    {
        constexpr int kDots = 96;
        constexpr int kColors = 1 << 24;
        switch (metric) {
            case PdmWidth:
                return size_.width();
            case PdmHeight:
                return size_.height();
            case PdmDepth:
                return 24;
            case PdmNumColors:
                return kColors;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(devicePixelRatioFScale());
            default:
                return kDots;
        }
    }

private:
    QSize size_;
};

std::string InWords(const WrittenText& text)
{
    return "\"" + qt::FromQt(text.Text) + "\" at " + std::to_string(text.Ink.x()) + "," +
           std::to_string(text.Ink.y());
}

// No text covers another or stands outside of the page.
void ExpectReadable(const picture::Picture& picture, const QSize& size)
{
    qt::PictureCanvas canvas(nullptr);
    canvas.SetPicture(&picture);
    canvas.FitTo(size);
    const QRectF page(QPointF(), canvas.size());
    std::vector<WrittenText> texts;
    for (int i = 0, leftOut = -1; i < 4 && leftOut != canvas.Page()->LeftOut(); ++i) {
        leftOut = canvas.Page()->LeftOut();  // a note of these takes its room the next time
        TextDevice device(canvas.size());
        QPainter painter(&device);
        canvas.Page()->Paint(painter, page, canvas.ScreenLook());
        painter.end();
        texts = device.Engine.Texts;
    }
    const QRectF around = page.adjusted(-1, -1, 1, 1);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_TRUE(around.contains(texts[i].Ink)) << InWords(texts[i]) << " is outside of the page";
        for (std::size_t j = i + 1; j < texts.size(); ++j)
            EXPECT_FALSE(texts[i].Ink.intersects(texts[j].Ink))
                << InWords(texts[i]) << " and " << InWords(texts[j]);
    }
}

void ExpectPainted(const picture::Picture& picture, const QSize& size)
{
    qt::PictureCanvas canvas(nullptr);
    canvas.SetPicture(&picture);
    canvas.FitTo(size);
    QImage image(canvas.size(), QImage::Format_RGB32);
    canvas.render(&image);
    const auto* chart = std::get_if<picture::Chart>(&picture.Body);
    // Without these a rule is an item where its text has no place.
    const bool hasItems = chart == nullptr || !chart->Curves.empty() || !chart->Marks.empty();
    EXPECT_TRUE(!hasItems || !canvas.Items().empty());
    const QRectF page = QRectF(canvas.rect()).adjusted(-2, -2, 2, 2);
    for (const qt::Item& item : canvas.Items())
        EXPECT_TRUE(page.contains(item.Shape.boundingRect().center())) << item.Tip.toStdString();
}

struct Count {
    int Networks = 0;
    int Clean = 0;
};

void CountNetwork(const picture::Picture& picture, Count& count)
{
    const auto* diagram = std::get_if<picture::Diagram>(&picture.Body);
    if (diagram == nullptr || diagram->Kind != picture::Layout::Free) return;
    ++count.Networks;
    count.Clean +=
        networks::FaultsOf(*diagram, Place(*diagram, {560, 480}, networks::LetterSize)).None() ? 1 : 0;
}

}  // namespace

TEST(PicturesOfProblems, AreSoundAndReadable)
{
    constexpr unsigned kSeed = 14;
    random_problems::Maker maker(kSeed);
    std::mt19937 sizes(kSeed);
    Count count;
    int pictures = 0;
    for (int i = 0; i < ProblemCount(); ++i) {
        const random_problems::Given given = maker.Next();
        SCOPED_TRACE("problem " + std::to_string(i) + " of module " + std::to_string(given.Module) + ", " +
                     given.Answers + "\n" + given.Text);
        FakeDesktop desktop;
        ImpatientScreen screen;
        desktop::Install({&desktop.dialogs, &screen, &desktop.forms, &desktop.printer});
        random_problems::Solve(desktop.forms, given);
        const auto made = CurrentModule().Routines->Pictures();
        ExpectSound(made);
        for (const picture::Picture& picture : made) {
            const QSize size(260 + static_cast<int>(sizes() % 600), 240 + static_cast<int>(sizes() % 500));
            SCOPED_TRACE(picture.Title + " in " + std::to_string(size.width()) + " x " +
                         std::to_string(size.height()));
            EXPECT_GE(Describe(picture).size(), 3U);
            ExpectPainted(picture, size);
            ExpectReadable(picture, size);
            CountNetwork(picture, count);
            ++pictures;
        }
        // ASSERT
    }
    EXPECT_GT(pictures, ProblemCount());
    EXPECT_GE(count.Clean, 0.99 * count.Networks);
    RecordProperty("pictures", pictures);
}
