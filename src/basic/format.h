// How numbers and texts become characters of a report. Everything here works in single-byte characters.
#pragma once

#include <string>
#include <string_view>

#include "basic/decimal.h"

// Digit patterns: '0' a digit always shown, '#' a digit if there is one, '.' the point, ',' between digit
// places thousands separators; every other character stands as it is. Without a '0' before the point a value
// below 1 begins with the point (".7500"). The value is taken to 15 significant decimal digits and then
// rounded half away from zero: 2.675 under "0.00" gives "2.68". A result that rounds to zero has no minus
// sign. A number under a text pattern ("@@") goes in as its plain text.
std::string Format(double value, std::string_view pattern);

// How many decimals a report shows, 0, 1 or 2, of a problem that counts so many; a file may bring any number.
constexpr int ShownDecimals(double counted)
{
    if (counted < 1) return 0;
    return counted < 2 ? 1 : 2;
}

// A digit pattern taken apart once, for a report that writes many numbers under it.
class DigitPattern {
public:
    explicit DigitPattern(std::string_view pattern);

    // Behind what stands there; as Format gives it.
    void Append(std::string& text, double value) const;

private:
    void AppendWhole(std::string& text, const Decimal& number) const;
    void AppendFraction(std::string& text, const Decimal& number) const;

    std::string whole_;
    std::string fraction_;
    bool hasPoint_ = false;
    bool hasSeparators_ = false;
    int wholePlaces_ = 0;
    int decimals_ = 0;
    int leastDecimals_ = 0;  // shown even if they are zeros
};

// One pattern for each count of decimals.
struct DecimalPatterns {
    std::string_view Whole;
    std::string_view OnePlace;
    std::string_view TwoPlaces;

    [[nodiscard]] constexpr std::string_view For(double counted) const
    {
        const int decimals = ShownDecimals(counted);
        if (decimals == 0) return Whole;
        return decimals == 1 ? OnePlace : TwoPlaces;
    }
};

// Text patterns: '@' a character or a blank, '&' a character or nothing, filled from the right; a '!'
// anywhere fills from the left and keeps the rightmost characters of a longer text. All other characters
// stand as they are.
std::string Format(std::string_view text, std::string_view pattern);

// Plain number text: up to 15 significant digits, no trailing zeros, "0.5" with its zero, a decimal exponent
// only beyond 15 digits before the point or for very small values ("1E+15", "1E-05").
std::string PlainText(double value);

// A number as an item of a print line: a blank or its minus in front, a blank behind.
std::string PrintItem(double value);

// The text set flush right into a field of blanks; of a longer text the leftmost characters stay.
std::string FlushRight(std::string_view text, int width);
void AppendFlushRight(std::string& line, std::string_view text, int width);  // behind what stands there

// The text set flush left into a field of blanks; of a longer text the leftmost characters stay.
std::string FlushLeft(std::string_view text, int width);

std::string Blanks(int count);
std::string Trimmed(std::string_view text);    // without blanks at both ends
std::string UpperCase(std::string_view text);  // the letters a to z
