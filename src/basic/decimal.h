// Doubles as decimal digits, independent of the locale: what the number formats and the files stand on.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "basic/variant.h"

// The value is 0.d1d2d3... times ten to the power Exponent; no zeros at the end of the digits. Zero has no
// digits, exponent 0 and no sign.
struct Decimal {
    bool Negative = false;
    std::string Digits;
    int Exponent = 0;
};

// "Overflow" for values that are not finite.
Decimal ToDecimal(double value, int significantDigits);  // 1 to 17
Decimal ToShortestDecimal(double value);                 // the fewest digits that read back as the same value

// The digits with a point where it belongs, without an exponent: "0.05", "-120".
std::string PlainDigits(const Decimal& decimal);

// The length of the numeral at the start of the text: a sign, digits with a point, an exponent; 0 where no
// digit stands.
std::size_t NumeralLength(std::string_view text);

// The value of a text that is a short numeral from end to end: without an exponent, and at most 15 characters
// behind its sign, as nearly all that are typed or read. Nothing for any other text.
Variant ShortNumeralValue(std::string_view text);

// The value of a text that is a numeral from end to end. "Overflow" beyond a double's range.
double NumeralValue(std::string_view numeral);
