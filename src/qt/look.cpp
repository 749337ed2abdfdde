#include "qt/look.h"

#include <QApplication>
#include <QPalette>

#include "qt/colors.h"

namespace qt {
namespace {

using picture::Role;

constexpr double kTextPoints = 9;
constexpr double kTitlePoints = 10;
constexpr double kPointsPerInch = 72;
constexpr double kPaperDotsPerInch = 96;

struct Hue {
    QRgb Stroke;
    QRgb Text;
    QRgb Fill;
};

struct Hues {
    Hue Plain;
    Hue Chosen;
    Hue Limit;
    Hue Forecast;
    Hue Second;
    Hue Spare;
};

constexpr Hues kLight{{0xFF616161, 0xFF5C5C5C, 0xFFE6E6E6}, {0xFF0060A8, 0xFF0060A8, 0xFFD6E6F3},
                      {0xFFD9480F, 0xFFA33A08, 0xFFFAE3DA}, {0xFF00966B, 0xFF006B4C, 0xFFD9EFE8},
                      {0xFF6B1747, 0xFF6B1747, 0xFFEBDCE4}, {0xFF8A8A8A, 0xFF5C5C5C, 0xFFEEEEEE}};
constexpr Hues kDark{{0xFF8F959B, 0xFFB9C0C7, 0xFF34373A}, {0xFF4FB3F0, 0xFF7CC7F2, 0xFF1D3A4D},
                     {0xFFFFB347, 0xFFFFB347, 0xFF463522}, {0xFF2A9D6F, 0xFF4CCBA3, 0xFF1F3A30},
                     {0xFFF7C6E3, 0xFFF7C6E3, 0xFF44363F}, {0xFF767C82, 0xFFB9C0C7, 0xFF2E3134}};

const Hue& HueOf(const Hues& hues, Role role)
{
    switch (role) {
        case Role::Chosen:
        case Role::Critical:
        case Role::Best:
            return hues.Chosen;
        case Role::Limit:
        case Role::Infeasible:
            return hues.Limit;
        case Role::Forecast:
            return hues.Forecast;
        case Role::Second:
            return hues.Second;
        case Role::Spare:
        case Role::NotTaken:
            return hues.Spare;
        case Role::Plain:
        case Role::Past:
            break;
    }
    return hues.Plain;
}

// What a role has besides its colour.
RoleLook ShapeOf(Role role)
{
    switch (role) {
        case Role::Chosen:
        case Role::Critical:
        case Role::Best:
            return {.Width = 3, .Mark = MarkForm::Filled, .Bold = true};
        case Role::Limit:
            return {.Width = 2, .Dashes = {6, 4}};
        case Role::Infeasible:
            return {.Width = 2, .Dashes = {6, 4}, .Crossed = true};
        case Role::Forecast:
            return {.Width = 2, .Dashes = {3, 3}, .Mark = MarkForm::Open};
        case Role::Second:
            return {.Width = 2, .Dashes = {1.5, 3}, .Mark = MarkForm::Triangle};
        case Role::Spare:
        case Role::NotTaken:
            return {.Width = 1, .Hatched = true};
        case Role::Plain:
        case Role::Past:
            break;
    }
    return {};
}

QColor Visible(const QColor& ground, const QColor& wanted, const QColor& text, double contrast)
{
    return Contrast(ground, wanted) >= contrast ? wanted : text;
}

}  // namespace

void Look::MakeFonts(double dotsPerInch)
{
    const auto pixels = [dotsPerInch](double points) {
        return qRound(points * dotsPerInch / kPointsPerInch);
    };
    Plain = QApplication::font();
    Plain.setPixelSize(pixels(kTextPoints));
    Plain.setBold(false);
    Bold = Plain;
    Bold.setBold(true);
    Title = Bold;
    Title.setPixelSize(pixels(kTitlePoints));
}

void Look::MakeReadable(const QColor& ground, const QColor& text)
{
    ownColors_ = true;
    Ground = ground;
    Text = ReadableOn(ground, text);
    Quiet = Visible(ground, Quiet, Text, kReadable);
    Axis = Visible(ground, Axis, Text, kVisible);
}

Look Look::OnScreen(const QPalette& palette, double dotsPerInch)
{
    Look look;
    const QColor ground = palette.color(QPalette::Base);
    look.Dark = ground.lightness() < 128;
    look.Text = QColor::fromRgb(look.Dark ? 0xFFF0F0F0 : 0xFF1A1A1A);
    look.Quiet = QColor::fromRgb(look.Dark ? 0xFFB9C0C7 : 0xFF5C5C5C);
    look.Axis = QColor::fromRgb(look.Dark ? 0xFF8A8A8A : 0xFF767676);
    look.Grid = QColor::fromRgb(look.Dark ? 0xFF3A3A3A : 0xFFD9D9D9);
    const bool pure = ground == QColor(Qt::black);  // a palette for high contrast
    look.MakeReadable(ground, pure ? palette.color(QPalette::Text) : look.Text);
    if (pure) look.Quiet = look.Axis = look.Text;
    look.MakeFonts(dotsPerInch);
    return look;
}

Look Look::OnPaper()
{
    Look look;
    look.Ground = Qt::white;
    look.Text = Qt::black;
    look.Quiet = QColor::fromRgb(0xFF3C3C3C);
    look.Axis = QColor::fromRgb(0xFF767676);
    look.Grid = QColor::fromRgb(0xFFD9D9D9);
    look.MakeFonts(kPaperDotsPerInch);
    return look;
}

RoleLook Look::Of(Role role) const
{
    const Hue& hue = HueOf(Dark ? kDark : kLight, role);
    RoleLook look = ShapeOf(role);
    look.Stroke = QColor::fromRgb(hue.Stroke);
    look.Text = role == Role::Plain || role == Role::Past ? Text : QColor::fromRgb(hue.Text);
    look.Fill = QColor::fromRgb(hue.Fill);
    if (ownColors_) {
        look.Stroke = Visible(Ground, look.Stroke, Text, kVisible);
        look.Text = Visible(Ground, look.Text, Text, kReadable);
    }
    return look;
}

QPen Look::Pen(const RoleLook& look, double width) const
{
    QPen pen(look.Stroke, width);
    pen.setCapStyle(Qt::FlatCap);
    pen.setJoinStyle(Qt::RoundJoin);
    if (!look.Dashes.isEmpty()) {
        QList<qreal> dashes;
        for (const qreal dash : look.Dashes)
            dashes.append(dash / width);
        pen.setDashPattern(dashes);
    }
    return pen;
}

QPen Look::Pen(Role role) const
{
    const RoleLook look = Of(role);
    return Pen(look, look.Width);
}

const QFont& Look::FontOf(Role role) const
{
    return ShapeOf(role).Bold ? Bold : Plain;
}

QBrush Look::Brush(Role role, bool hatched) const
{
    const RoleLook look = Of(role);
    if (look.Crossed) return QBrush(look.Stroke, Qt::DiagCrossPattern);
    if (hatched || look.Hatched) return QBrush(look.Stroke, Qt::BDiagPattern);
    return look.Fill;
}

}  // namespace qt
