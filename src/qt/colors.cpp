#include "qt/colors.h"

#include <algorithm>
#include <cmath>

namespace qt {
namespace {

// A channel of sRGB, 0 to 1, as light.
double Linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color)
{
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

}  // namespace

double Contrast(const QColor& a, const QColor& b)
{
    constexpr double kFlare = 0.05;  // light that a screen reflects
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + kFlare) / (darker + kFlare);
}

QColor ReadableOn(const QColor& ground, const QColor& wanted)
{
    if (Contrast(ground, wanted) >= kReadable) return wanted;
    return Contrast(ground, Qt::black) > Contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

QColor Mixed(const QColor& a, const QColor& b, float share)
{
    const auto mix = [share](float x, float y) { return share * x + (1 - share) * y; };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()));
}

QColor AlertOn(const QColor& ground)
{
    const QColor onLight(0xc0, 0x1c, 0x28);
    const QColor onDark(0xff, 0x7b, 0x63);
    return Contrast(ground, onLight) >= Contrast(ground, onDark) ? onLight : onDark;
}

}  // namespace qt
