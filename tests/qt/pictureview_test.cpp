#include "qt/pictureview.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <array>
#include <memory>

#include "picture/random_pictures.h"
#include "qt/colors.h"
#include "qt/drawing.h"
#include "qt/savepicture.h"

namespace {

using picture::Role;

picture::Picture ThreeMarks()
{
    picture::Chart chart;
    chart.X = {.Title = "x", .From = 0, .To = 10};
    chart.Y = {.Title = "y", .From = 0, .To = 10};
    chart.Marks = {{.At = {2, 2}, .Text = "low", .Tip = "the low one", .Id = "a"},
                   {.As = Role::Best, .At = {5, 8}, .Text = "high", .Tip = "the high one", .Id = "b"},
                   {.At = {9, 4}, .Text = "right", .Tip = "the right one", .Id = "c"}};
    return {.Title = "Marks", .Body = chart, .Notes = {"The high one is best."}};
}

QPalette Ground(const QColor& base, const QColor& text)
{
    QPalette palette;
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

const std::array<picture::Role, 11> kRoles = {Role::Plain,  Role::Past,  Role::Chosen,     Role::Critical,
                                              Role::Best,   Role::Limit, Role::Infeasible, Role::Forecast,
                                              Role::Second, Role::Spare, Role::NotTaken};

}  // namespace

TEST(PictureView, RandomPicturesArePaintedAtAnySize)
{
    random_pictures::Maker maker(20);
    const std::array<QPalette, 3> palettes = {Ground(Qt::white, Qt::black),
                                              Ground(QColor(0x1E, 0x1E, 0x1E), Qt::white),
                                              Ground(Qt::black, Qt::yellow)};
    constexpr int kPictures = 1500;
    for (int i = 0; i < kPictures; ++i) {
        const picture::Picture picture = maker.Next();
        qt::PictureCanvas canvas(nullptr);
        canvas.setPalette(palettes.at(static_cast<std::size_t>(i % 3)));
        canvas.SetPicture(&picture);
        canvas.FitTo({260 + maker.Below(600), 120 + maker.Below(600)});
        const QRectF page = QRectF(canvas.rect()).adjusted(-60, -60, 60, 60);
        QImage image(canvas.size(), QImage::Format_RGB32);
        canvas.render(&image);
        for (const qt::Item& item : canvas.Items())
            ASSERT_TRUE(page.contains(item.Shape.boundingRect().center()))
                << i << ": " << item.Tip.toStdString();
        canvas.SetMarked({"1"});
        canvas.render(&image);
        ASSERT_FALSE(picture::Describe(picture).empty());
    }
}

TEST(PictureView, AllOfAPictureIsSavedAtTheWidthOfAPage)
{
    const QImage image = qt::ImageOf(ThreeMarks());
    EXPECT_NEAR(image.width() * 1000.0 / image.dotsPerMeterX(), 170, 1);
    EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::white));
}

TEST(PictureView, KeysGoFromItemToItem)
{
    const picture::Picture picture = ThreeMarks();
    qt::PictureView view(nullptr);
    view.resize(400, 300);
    view.SetPicture(&picture);
    view.show();
    qt::PictureCanvas& canvas = view.Canvas();
    canvas.setFocus();
    EXPECT_FALSE(canvas.FocusItem());
    QTest::keyClick(&canvas, Qt::Key_Tab);
    ASSERT_TRUE(canvas.FocusItem());
    EXPECT_EQ(canvas.Items()[*canvas.FocusItem()].Id, "a");
    QTest::keyClick(&canvas, Qt::Key_Right);
    EXPECT_EQ(canvas.Items()[*canvas.FocusItem()].Tip, "the high one");
    QTest::keyClick(&canvas, Qt::Key_End);
    EXPECT_EQ(canvas.Items()[*canvas.FocusItem()].Id, "c");
    QTest::keyClick(&canvas, Qt::Key_Down);
    EXPECT_EQ(canvas.Items()[*canvas.FocusItem()].Id, "a");
    QTest::keyClick(&canvas, Qt::Key_Backtab);
    EXPECT_EQ(canvas.Items()[*canvas.FocusItem()].Id, "c");
}

// The keys begin at the mark and go along the curve.
TEST(PictureView, KeysMoveAMarkAlongItsCurve)
{
    picture::Chart chart;
    chart.X = {.Title = "time", .From = 0, .To = 10};
    chart.Y = {.Title = "chance", .From = 0, .To = 1};
    chart.Curves = {
        {.Points = {{1, 0.1}, {4, 0.4}, {6, 0.6}, {9, 0.9}}, .Tips = {"0.1", "0.4", "0.6", "0.9"}}};
    chart.Marks = {{.As = Role::Chosen, .At = {5, 0.5}, .Text = "half", .Tip = "0.5", .Id = "half"}};
    chart.Start = "half";
    const picture::Picture picture{.Title = "Chance", .Body = chart};
    qt::PictureView view(nullptr);
    view.resize(400, 300);
    view.SetPicture(&picture);
    view.show();
    qt::PictureCanvas& canvas = view.Canvas();
    const auto after = [&canvas](Qt::Key key) {
        QTest::keyClick(&canvas, key);
        return canvas.Items()[canvas.FocusItem().value()].Tip.toStdString();
    };
    EXPECT_EQ(after(Qt::Key_Right), "0.5");
    EXPECT_EQ(after(Qt::Key_Right), "0.6");
    EXPECT_EQ(after(Qt::Key_Left), "0.5");
    EXPECT_EQ(after(Qt::Key_Left), "0.4");
    EXPECT_EQ(after(Qt::Key_Home), "0.1");
    EXPECT_EQ(after(Qt::Key_End), "0.9");
}

TEST(PictureView, AnItemInFocusShowsTheArrowsThatAreItsOwn)
{
    picture::Picture picture = ThreeMarks();
    auto& chart = std::get<picture::Chart>(picture.Body);
    chart.FocusArrows = {{.From = {2, 2}, .To = {5, 8}, .FromId = "a", .ToId = "b"}};
    picture::Picture bare = picture;
    std::get<picture::Chart>(bare.Body).FocusArrows.clear();
    const auto shot = [](const picture::Picture& shown, int tabs) {
        qt::PictureView view(nullptr);
        view.resize(400, 300);
        view.SetPicture(&shown);
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
        view.Canvas().setFocus();
        for (int i = 0; i < tabs; ++i)
            QTest::keyClick(&view.Canvas(), Qt::Key_Tab);
        return view.Canvas().grab().toImage();
    };
    EXPECT_EQ(shot(picture, 0), shot(bare, 0));
    EXPECT_NE(shot(picture, 1), shot(bare, 1));  // leaves the low one
    EXPECT_NE(shot(picture, 2), shot(bare, 2));  // reaches the high one
    EXPECT_EQ(shot(picture, 3), shot(bare, 3));  // the right one has none
}

TEST(PictureView, AMarkOfNoDurationIsADiamond)
{
    const auto round = ThreeMarks();
    picture::Picture diamond = round;
    std::get<picture::Chart>(diamond.Body).Marks[0].Diamond = true;
    EXPECT_NE(qt::ImageOf(diamond), qt::ImageOf(round));
}

TEST(PictureView, TheBestMarkLiesAboveAnotherAtItsPlace)
{
    picture::Picture alone = ThreeMarks();
    picture::Picture covered = alone;
    std::get<picture::Chart>(covered.Body).Marks.push_back({.As = Role::Forecast, .At = {5, 8}, .Id = "way"});
    const QImage image = qt::ImageOf(covered);
    EXPECT_EQ(image, qt::ImageOf(alone));
}

TEST(PictureView, ALineOfOnePointHasItsName)
{
    picture::Picture named = ThreeMarks();
    std::get<picture::Chart>(named.Body).Curves = {
        {.As = Role::Forecast, .Name = "forecast", .Points = {{4, 4}}, .Tips = {"4.00"}}};
    picture::Picture nameless = named;
    std::get<picture::Chart>(nameless.Body).Curves[0].Name.clear();
    EXPECT_NE(qt::ImageOf(named), qt::ImageOf(nameless));
}

// Costs that fall steeply to the two strong marks near the axis and rise slowly behind them.
TEST(PictureView, ALabelStandsAboveItsMarkWhereThereIsNoRoomBeside)
{
    picture::Chart chart;
    chart.X = {.Title = "Channels", .From = 0.5, .To = 30.5, .Counts = true};
    chart.Y = {.Title = "Cost", .From = 0, .To = 1100};
    picture::Series costs{.Kind = picture::SeriesKind::Points};
    for (int k = 1; k <= 30; ++k)
        costs.Points.push_back({static_cast<double>(k), 135.0 + 20 * k + 880.0 / (k * k * k)});
    chart.Curves = {costs};
    for (const std::size_t k : {3U, 4U})
        chart.Marks.push_back({.As = Role::Best, .At = costs.Points[k - 1], .Text = "cheapest $239.79"});
    const picture::Picture picture{.Title = "Cost", .Body = chart};
    qt::PictureCanvas canvas(nullptr);
    canvas.SetPicture(&picture);
    canvas.FitTo({560, 480});
    canvas.grab();
    EXPECT_EQ(canvas.Page()->LeftOut(), 0);
}

// A ring of its own colour stands about it, a gap of the ground between; a plain mark of the row has none.
TEST(PictureView, TheFigureThatCountsOnARowIsRinged)
{
    picture::Chart chart;
    chart.X = {.Title = "Payoff", .From = 0, .To = 100};
    chart.Y = {.Title = "Alternative", .From = 0.5, .To = 1.5, .Names = {"1"}};
    chart.Curves = {{.Kind = picture::SeriesKind::Interval,
                     .As = Role::Plain,
                     .Intervals = {{.At = 1, .From = 20, .To = 80}}}};
    chart.Marks = {{.As = Role::Plain, .At = {20, 1}, .Text = "1", .Id = "plain"},
                   {.As = Role::Chosen, .At = {80, 1}, .Text = "2: 80", .Id = "picked"}};
    const picture::Picture picture{.Title = "Criteria", .Body = chart};
    qt::PictureCanvas canvas(nullptr);
    canvas.setPalette(Ground(Qt::white, Qt::black));
    canvas.SetPicture(&picture);
    canvas.FitTo({560, 300});
    const QImage image = canvas.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QColor stroke = qt::Look::OnScreen(canvas.palette(), 96).Of(Role::Chosen).Stroke;
    const auto ringed = [&](const char* id) {
        const auto& items = canvas.Items();
        const auto item =
            std::find_if(items.begin(), items.end(), [id](const qt::Item& one) { return one.Id == id; });
        const QPoint middle = item->Shape.boundingRect().center().toPoint();
        int found = 0;  // above and below, where no bar and no label stands
        for (int y = 6; y <= 9; ++y)
            found += (image.pixelColor(middle + QPoint(0, y)) == stroke ? 1 : 0) +
                     (image.pixelColor(middle - QPoint(0, y)) == stroke ? 1 : 0);
        return found >= 2;
    };
    EXPECT_TRUE(ringed("picked"));
    EXPECT_FALSE(ringed("plain"));
}

// 200 pixels for 1,000 units: 1 unit is thinner than a pixel, and it is told below the picture.
TEST(PictureView, AThinLineIsTold)
{
    picture::Diagram sides{.Kind = picture::Layout::TwoSides};
    sides.Nodes = {{.Id = "o", .Lines = {"o"}, .Rank = 0, .Amount = 1000, .Used = 1000},
                   {.Id = "d", .Lines = {"d"}, .Rank = 1, .Amount = 999, .Used = 999},
                   {.Id = "e", .Lines = {"e"}, .Rank = 1, .Amount = 1, .Used = 1}};
    sides.Arcs = {{.From = "o", .To = "d", .Weight = 999}, {.From = "o", .To = "e", .Weight = 1}};
    const auto heightOf = [](const picture::Diagram& diagram) {
        const picture::Picture picture{.Title = "Shipments", .Body = diagram};
        qt::PictureCanvas canvas(nullptr);
        canvas.SetPicture(&picture);
        canvas.FitTo({400, 260});
        canvas.grab();
        return std::pair(canvas.Page()->AddedNotes().second,
                         canvas.Page()->Least(canvas.ScreenLook(), 400).height());
    };
    const auto thin = heightOf(sides);
    EXPECT_EQ(thin.first, 1);
    sides.Arcs[1].Weight = 500;
    const auto thick = heightOf(sides);
    EXPECT_EQ(thick.first, 0);
    EXPECT_GT(thin.second, thick.second);  // by the line of the note
}

// Beside the end of another line, whose name would stand there.
TEST(PictureView, NoNameCoversALineOfOnePoint)
{
    picture::Chart chart;
    chart.X = {.Title = "Period", .From = 0.5, .To = 13.5};
    chart.Y = {.Title = "Value", .From = 40, .To = 160};
    chart.Curves = {{.As = Role::Chosen, .Name = "fitted", .Points = {{4, 102}, {12, 85}}, .Id = "fitted"},
                    {.As = Role::Forecast, .Name = "forecast", .Points = {{13, 84.7}}, .Id = "forecast"}};
    const picture::Picture picture{.Title = "Series", .Body = chart};
    qt::PictureCanvas canvas(nullptr);
    canvas.setPalette(Ground(Qt::white, Qt::black));
    canvas.SetPicture(&picture);
    canvas.FitTo({560, 480});
    const QImage image = canvas.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const auto& items = canvas.Items();
    const auto item =
        std::find_if(items.begin(), items.end(), [](const qt::Item& one) { return one.Id == "forecast"; });
    ASSERT_NE(item, items.end());
    const QColor stroke = qt::Look::OnScreen(canvas.palette(), 96).Of(Role::Forecast).Stroke;
    const QPoint centre = item->Shape.boundingRect().center().toPoint();
    int drawn = 0;
    for (int x = -6; x <= 6; ++x)
        for (int y = -6; y <= 6; ++y)
            if (image.pixelColor(centre + QPoint(x, y)) == stroke) ++drawn;
    EXPECT_GT(drawn, 0);
}

namespace {

// How much of the picture has the colour of forecasts.
int ForecastInk(bool strong, const std::vector<std::string>& texts)
{
    picture::Chart chart;
    chart.X = {.Title = "Period", .From = 0.5, .To = 6.5};
    chart.Y = {.Title = "Value", .From = 0, .To = 100};
    chart.Curves = {{.As = Role::Forecast, .Points = {{1, 20}, {3, 60}, {6, 40}}, .Strong = strong}};
    chart.Curves.front().Texts = texts;
    const QImage image =
        qt::ImageOf({.Title = "Series", .Body = chart}).convertToFormat(QImage::Format_RGB32);
    const QColor stroke = qt::Look::OnPaper().Of(Role::Forecast).Stroke;
    const QColor text = qt::Look::OnPaper().Of(Role::Forecast).Text;
    int ink = 0;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(x, y);
            if (color == stroke || color == text) ++ink;
        }
    return ink;
}

}  // namespace

namespace {

int LabelsLeftOut(const picture::Chart& chart)
{
    const picture::Picture picture{.Title = "Bars", .Body = chart};
    const std::unique_ptr<qt::Drawing> drawing = qt::DrawingOf(picture);
    QImage image(400, 300, QImage::Format_RGB32);
    QPainter painter(&image);
    drawing->Paint(painter, QRectF(0, 0, 400, 300), qt::Look::OnPaper());
    return drawing->LeftOut();
}

// The names of rows have the colour of texts, and nothing else has where the mark is chosen.
int TextInk(double diamondAt)
{
    picture::Chart chart;
    chart.X = {.Title = "Time", .From = 0, .To = 1};
    chart.Y = {.Title = "Activity", .Names = {"A", "W", "C"}};
    for (const double row : {1.0, 2.0, 3.0})
        chart.Marks.push_back({.As = Role::Critical, .At = {diamondAt, row}, .Text = "0", .Diamond = true});
    const QImage image = qt::ImageOf({.Title = "", .Body = chart}).convertToFormat(QImage::Format_RGB32);
    int ink = 0;
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (image.pixelColor(x, y) == qt::Look::OnPaper().Text) ++ink;
    return ink;
}

}  // namespace

TEST(PictureView, RulesAcrossBarsAndAlongThemHaveTheirTexts)
{
    picture::Chart chart;
    chart.X = {.Title = "Period", .From = 0.5, .To = 40.5};
    chart.Y = {.Title = "Error", .From = -50, .To = 50};
    picture::Series bars{.Kind = picture::SeriesKind::Bars, .Name = "error"};
    for (int t = 1; t <= 40; ++t)
        bars.Points.push_back({static_cast<double>(t), t % 2 == 0 ? 50.0 : -50.0});
    chart.Curves = {bars};
    chart.Rules = {{.Across = picture::Direction::Y, .As = Role::Limit, .Value = 40.95, .Text = "+40.95"},
                   {.Across = picture::Direction::Y, .As = Role::Limit, .Value = -40.95, .Text = "-40.95"}};
    EXPECT_EQ(LabelsLeftOut(chart), 0);

    chart.X = {.Title = "Demand", .From = 9, .To = 11};
    chart.Y = {.Title = "Chance", .From = 0, .To = 1};
    chart.Curves.front().Points = {{10, 1}};
    chart.Rules = {{.As = Role::Chosen, .Value = 10, .Text = "order quantity 10.00"}};
    EXPECT_EQ(LabelsLeftOut(chart), 0);
}

TEST(PictureView, ADiamondAtTheEdgeLeavesTheNamesOfRows)
{
    EXPECT_EQ(TextInk(0), TextInk(0.5));
}

TEST(PictureView, AStrongLineIsHeavier)
{
    EXPECT_GT(ForecastInk(true, {}), 1.3 * ForecastInk(false, {}));
}

TEST(PictureView, FiguresStandBesideThePointsOfALine)
{
    const int none = ForecastInk(true, {});
    const int one = ForecastInk(true, {"", "60.00", ""});
    EXPECT_GT(one, none);
    EXPECT_GT(ForecastInk(true, {"20.00", "60.00", "40.00"}), one);
}

TEST(PictureView, AScreenReaderHearsTitleDescriptionAndItems)
{
    const picture::Picture picture = ThreeMarks();
    qt::PictureView view(nullptr);
    view.resize(400, 300);
    view.SetPicture(&picture);
    QAccessibleInterface* canvas = QAccessible::queryAccessibleInterface(&view.Canvas());
    ASSERT_NE(canvas, nullptr);
    EXPECT_EQ(canvas->text(QAccessible::Name), "Marks");
    EXPECT_THAT(canvas->text(QAccessible::Description).toStdString(),
                testing::HasSubstr("The high one is best."));
    ASSERT_EQ(canvas->childCount(), 3);
    EXPECT_EQ(canvas->child(1)->text(QAccessible::Name), "the high one");
    EXPECT_FALSE(canvas->child(1)->rect().isEmpty());
    EXPECT_EQ(canvas->indexOfChild(canvas->child(2)), 2);
    EXPECT_EQ(canvas->child(0)->parent(), canvas);
    canvas->child(2)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(view.Canvas().FocusItem(), std::optional<std::size_t>(2));
}

TEST(PictureView, ScrollsWhereItIsSmallerThanThePicture)
{
    picture::Diagram ranks{.Kind = picture::Layout::Ranks, .Start = "9"};
    for (int i = 0; i < 10; ++i)
        ranks.Nodes.push_back({.Id = std::to_string(i), .Lines = {"0.000\t5.000\t5.000"}, .Rank = i});
    const picture::Picture picture{.Title = "Network", .Body = ranks};
    qt::PictureView view(nullptr);
    view.resize(300, 300);
    view.SetPicture(&picture);
    EXPECT_GT(view.Canvas().width(), 1000);
}

TEST(PictureView, IsMovedWithTheMouse)
{
    picture::Diagram ranks{.Kind = picture::Layout::Ranks};
    for (int i = 0; i < 10; ++i)
        ranks.Nodes.push_back({.Id = std::to_string(i), .Lines = {"0.000\t5.000\t5.000"}, .Rank = i});
    const picture::Picture picture{.Title = "Network", .Body = ranks};
    qt::PictureView view(nullptr);
    view.resize(300, 300);
    view.SetPicture(&picture);
    view.show();
    const auto send = [&view](QEvent::Type type, const QPoint& at, Qt::MouseButtons held) {
        const QPoint on = view.Canvas().mapFromGlobal(at);
        QMouseEvent event(type, on, at, Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(&view.Canvas(), &event);
    };
    const QPoint from = view.mapToGlobal(QPoint(250, 280));
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, from - QPoint(100, 0), Qt::LeftButton);
    send(QEvent::MouseMove, from - QPoint(160, 0), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, from - QPoint(160, 0), Qt::NoButton);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 160);
    send(QEvent::MouseMove, from, Qt::NoButton);
    EXPECT_EQ(view.horizontalScrollBar()->value(), 160);
}

// A frame around an arc ends where its nodes begin, and one around a node holds its badge.
TEST(PictureView, AFrameLeavesTheNumbersOfNodesFree)
{
    picture::Diagram net{.Kind = picture::Layout::Free};
    net.Nodes = {{.Id = "1", .Lines = {"1"}, .Form = picture::Shape::Circle},
                 {.Id = "2", .Lines = {"2"}, .Form = picture::Shape::Circle, .Badge = "7"},
                 {.Id = "3", .Lines = {"3"}, .Form = picture::Shape::Circle}};
    net.Arcs = {{.From = "1", .To = "2", .Text = "5", .Id = "a"}, {.From = "2", .To = "3", .Id = "b"}};
    const picture::Picture picture{.Title = "Network", .Body = net};
    qt::PictureCanvas canvas(nullptr);
    canvas.SetPicture(&picture);
    canvas.FitTo({400, 300});
    const auto shot = [&canvas](const std::vector<std::string>& marked) {
        canvas.SetMarked(marked);
        QImage image(canvas.size(), QImage::Format_RGB32);
        canvas.render(&image);
        return image;
    };
    const QImage bare = shot({});
    EXPECT_NE(bare, shot({"a"}));
    for (const std::vector<std::string>& marked :
         {std::vector<std::string>{"a"}, {"a", "2"}, {"b", "1", "2"}}) {
        const QImage framed = shot(marked);
        for (const qt::Item& item : canvas.Items()) {
            if (item.Id != "1" && item.Id != "2" && item.Id != "3") continue;
            const QRect around = item.Shape.boundingRect().toAlignedRect();
            for (int y = around.top(); y <= around.bottom(); ++y)
                for (int x = around.left(); x <= around.right(); ++x)
                    if (item.Shape.contains(QRectF(x - 1, y - 1, 3, 3))) {
                        ASSERT_EQ(framed.pixelColor(x, y), bare.pixelColor(x, y))
                            << item.Id.toStdString() << " " << x << "," << y;
                    }
        }
    }
}

// The note on labels without a place is told only once they have been drawn.
TEST(PictureView, ANoteThatComesLaterHasItsRoom)
{
    picture::Chart chart;
    chart.X = {.Title = "x", .From = 0, .To = 10};
    chart.Y = {.Title = "y", .From = 0, .To = 10};
    for (int i = 0; i < 40; ++i)
        chart.Marks.push_back({.At = {5, 5}, .Text = "a name that is rather long", .Id = std::to_string(i)});
    const picture::Picture picture{.Title = "Marks", .Body = chart, .Notes = {"One.", "Two.", "Three."}};
    qt::PictureView view(nullptr);
    view.resize(240, 120);
    view.SetPicture(&picture);
    const int before = view.Canvas().height();
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QTest::qWait(50);
    EXPECT_GT(view.Canvas().Page()->LeftOut(), 0);
    EXPECT_GT(view.Canvas().height(), before);
}

// The figures of the palette: marks 3:1, texts 4.5:1, whatever the ground.
TEST(Look, CanBeSeenAndReadOnEveryGround)
{
    for (const QColor& ground : {QColor(Qt::white), QColor(0xF4, 0xF4, 0xF4), QColor(0x1E, 0x1E, 0x1E),
                                 QColor(0x2B, 0x2B, 0x2B), QColor(Qt::black), QColor(0x80, 0x80, 0x80)}) {
        const qt::Look look = qt::Look::OnScreen(Ground(ground, qt::ReadableOn(ground, Qt::black)), 96);
        EXPECT_GE(qt::Contrast(ground, look.Text), qt::kReadable);
        EXPECT_GE(qt::Contrast(ground, look.Quiet), qt::kReadable);
        EXPECT_GE(qt::Contrast(ground, look.Axis), qt::kVisible);
        for (const Role role : kRoles) {
            EXPECT_GE(qt::Contrast(ground, look.Of(role).Stroke), qt::kVisible) << WordFor(role);
            EXPECT_GE(qt::Contrast(ground, look.Of(role).Text), qt::kReadable) << WordFor(role);
        }
    }
}

// In grey and to colour-blind eyes a role is known by its weight, dash, mark or strokes.
TEST(Look, TellsRolesApartWithoutColour)
{
    const qt::Look look = qt::Look::OnPaper();
    const auto shape = [&look](Role role) {
        const qt::RoleLook of = look.Of(role);
        return std::make_tuple(of.Width, of.Dashes, of.Mark, of.Bold, of.Hatched, of.Crossed);
    };
    const std::array<Role, 7> different = {Role::Plain,    Role::Chosen, Role::Limit, Role::Infeasible,
                                           Role::Forecast, Role::Second, Role::Spare};
    for (const Role a : different)
        for (const Role b : different)
            EXPECT_EQ(shape(a) == shape(b), a == b) << WordFor(a) << " and " << WordFor(b);
}

TEST(SavedPictures, AreFilesOfTheirKind)
{
    QTemporaryDir folder;
    const auto start = [&folder](const char* name) {
        qt::SavePicture(ThreeMarks(), folder.filePath(name));
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.read(200).toStdString();
    };
    EXPECT_THAT(start("picture.PNG"), testing::HasSubstr("PNG"));
    EXPECT_THAT(start("picture.pdf"), testing::StartsWith("%PDF"));
    if (qt::PictureFilter().starts_with("SVG")) {
        EXPECT_THAT(start("picture.svg"), testing::HasSubstr("<svg"));
    }
}
