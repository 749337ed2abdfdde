#include "tableau/decimals.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"

namespace {

// A fraction that could still be the rounding of a whole number of hundredths (of tenths, ten times as much).
constexpr double kHundredth = 0.0095;
constexpr double kTenth = 0.095;

double Fraction(double value)
{
    return std::abs(Int(value) - value);
}

}  // namespace

void RaiseDecimalPlaces(Variant& places, double value)
{
    if (Fraction(value) < kHundredth) return;
    const double needed = Fraction(10 * value) < kTenth ? 1 : 2;
    places = std::max(places.Value(), needed);
}
