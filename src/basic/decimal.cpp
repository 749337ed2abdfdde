#include "basic/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <span>
#include <system_error>

#include "basic/error.h"

namespace {

constexpr std::size_t kLongestNumber = 40;  // a sign, 17 digits, a point and an exponent fit easily
constexpr int kExactDigits = 15;            // whole numbers of so many digits are doubles without an error
constexpr double kWholeLimit = 1e15;
constexpr std::size_t kNoPoint = std::string_view::npos;

// They too are doubles without an error.
constexpr std::array<double, kExactDigits + 1> kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// Takes "-1.25e+03" apart.
Decimal FromScientific(std::span<char> text)
{
    Decimal decimal;
    decimal.Negative = text.front() == '-';
    if (decimal.Negative) text = text.subspan(1);
    const std::string_view view(text.data(), text.size());
    const std::size_t mark = view.find('e');
    const bool hasPoint = mark > 1;
    if (hasPoint) text[1] = text[0];  // the digits side by side
    const std::string_view digits = view.substr(hasPoint ? 1 : 0, hasPoint ? mark - 1 : mark);
    decimal.Digits = digits.substr(0, digits.find_last_not_of('0') + 1);
    if (decimal.Digits.empty()) return {};
    const std::size_t exponent =
        text[mark + 1] == '+' ? mark + 2 : mark + 1;  // a plus is none for from_chars
    std::from_chars(view.data() + exponent, view.data() + view.size(), decimal.Exponent);
    ++decimal.Exponent;
    return decimal;
}

// Whether the value is a whole number whose digits can all be significant.
bool IsShortWhole(double value, int significantDigits)
{
    return significantDigits >= kExactDigits && std::abs(value) < kWholeLimit &&
           value == static_cast<double>(static_cast<std::int64_t>(value));
}

// Most numbers of a report are whole, and these need no search for their digits.
Decimal FromWhole(double value)
{
    std::array<char, kLongestNumber> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), static_cast<std::int64_t>(std::abs(value)));
    const std::string_view digits(text.data(), static_cast<std::size_t>(written.ptr - text.data()));
    if (value == 0) return {};
    return {.Negative = value < 0,
            .Digits = std::string(digits.substr(0, digits.find_last_not_of('0') + 1)),
            .Exponent = static_cast<int>(digits.size())};
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at)
{
    while (at < text.size() && IsDigit(text[at]))
        ++at;
    return at;
}

bool IsSignAt(std::string_view text, std::size_t at)
{
    return at < text.size() && (text[at] == '+' || text[at] == '-');
}

// Behind the exponent that starts at the place given, or that place when there is none.
std::size_t SkipExponent(std::string_view text, std::size_t at)
{
    if (at >= text.size() || (text[at] != 'E' && text[at] != 'e')) return at;
    const std::size_t digits = IsSignAt(text, at + 1) ? at + 2 : at + 1;
    const std::size_t end = SkipDigits(text, digits);
    return end > digits ? end : at;
}

// The power of ten of a numeral's first digit that is not 0, as far as it can be told from its exponent: what
// matters is whether it is far above or far below 1.
bool IsLarge(std::string_view numeral)
{
    const std::size_t mark = numeral.find_first_of("eE");
    const std::string_view digits = numeral.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = std::min(digits.find_first_of("123456789"), digits.size());
    const double places = static_cast<double>(point) - static_cast<double>(first);
    if (mark == std::string_view::npos) return places > 0;
    std::string_view exponent = numeral.substr(mark + 1);
    const bool negative = exponent.front() == '-';
    if (IsSignAt(exponent, 0)) exponent.remove_prefix(1);
    double power = 0;
    for (const char digit : exponent)
        power = power * 10 + (digit - '0');
    return places + (negative ? -power : power) > 0;
}

}  // namespace

Decimal ToDecimal(double value, int significantDigits)
{
    if (!std::isfinite(value)) Raise(ErrorNumber::Overflow);
    if (IsShortWhole(value, significantDigits)) return FromWhole(value);
    std::array<char, kLongestNumber> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::scientific, significantDigits - 1);
    return FromScientific({text.data(), static_cast<std::size_t>(written.ptr - text.data())});
}

Decimal ToShortestDecimal(double value)
{
    if (!std::isfinite(value)) Raise(ErrorNumber::Overflow);
    std::array<char, kLongestNumber> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
    return FromScientific({text.data(), static_cast<std::size_t>(written.ptr - text.data())});
}

std::string PlainDigits(const Decimal& decimal)
{
    if (decimal.Digits.empty()) return "0";
    const int count = static_cast<int>(decimal.Digits.size());
    std::string text = decimal.Digits;
    if (decimal.Exponent <= 0)
        text = "0." + std::string(static_cast<std::size_t>(-decimal.Exponent), '0') + text;
    else if (decimal.Exponent >= count)
        text.append(static_cast<std::size_t>(decimal.Exponent - count), '0');
    else
        text.insert(static_cast<std::size_t>(decimal.Exponent), ".");
    return decimal.Negative ? "-" + text : text;
}

std::size_t NumeralLength(std::string_view text)
{
    const std::size_t start = IsSignAt(text, 0) ? 1 : 0;
    std::size_t end = SkipDigits(text, start);
    std::size_t digits = end - start;
    if (end < text.size() && text[end] == '.') {
        const std::size_t fraction = end + 1;
        end = SkipDigits(text, fraction);
        digits += end - fraction;
    }
    return digits == 0 ? 0 : SkipExponent(text, end);
}

// The quotient of two exact doubles is rounded once and so rightly (Clinger, "How to Read Floating Point
// Numbers Accurately").
Variant ShortNumeralValue(std::string_view text)
{
    const std::size_t start = IsSignAt(text, 0) ? 1 : 0;
    if (text.size() - start > kExactDigits) return {};
    std::int64_t digits = 0;
    std::size_t count = 0;
    std::size_t whole = kNoPoint;  // how many digits stand in front of the point
    for (const char c : text.substr(start)) {
        if (IsDigit(c)) {
            digits = digits * 10 + (c - '0');
            ++count;
        } else if (c == '.' && whole == kNoPoint) {
            whole = count;
        } else {
            return {};
        }
    }
    if (count == 0) return {};
    auto value = static_cast<double>(digits);
    if (whole < count) value /= kPowersOfTen[count - whole];
    return text.front() == '-' ? -value : value;
}

double NumeralValue(std::string_view numeral)
{
    if (const Variant value = ShortNumeralValue(numeral); !value.IsEmpty()) return value.Value();
    if (numeral.front() == '+') numeral.remove_prefix(1);
    double value = 0.0;
    const auto read = std::from_chars(numeral.data(), numeral.data() + numeral.size(), value);
    if (read.ec != std::errc::result_out_of_range) return value;
    if (IsLarge(numeral)) Raise(ErrorNumber::Overflow);
    return numeral.front() == '-' ? -0.0 : 0.0;  // too small for a double
}
