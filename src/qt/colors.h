// Colours that can be told apart in every palette.
#pragma once

#include <QColor>

namespace qt {

constexpr double kReadable = 4.5;  // the least contrast of a text with its ground
constexpr double kVisible = 3;     // of a line or frame

// The ratio of the relative luminances of two opaque colours (WCAG 2), from 1 to 21.
[[nodiscard]] double Contrast(const QColor& a, const QColor& b);

// `wanted`, or else black or white, whichever stands out more, where it cannot be read on `ground`.
[[nodiscard]] QColor ReadableOn(const QColor& ground, const QColor& wanted);

// `share` of `a` and the rest of `b`, 0 to 1.
[[nodiscard]] QColor Mixed(const QColor& a, const QColor& b, float share);

// A red that warns on this ground.
[[nodiscard]] QColor AlertOn(const QColor& ground);

}  // namespace qt
