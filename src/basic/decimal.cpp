#include "basic/decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <locale>
#include <optional>
#include <sstream>

#include "basic/error.h"

namespace {

constexpr std::size_t kLongestNumber = 40;  // a sign, 17 digits, a point and an exponent fit easily

// Takes "-1.25e+03" apart.
Decimal FromScientific(std::string_view text)
{
    Decimal decimal;
    decimal.Negative = text.front() == '-';
    if (decimal.Negative) text.remove_prefix(1);
    const std::size_t mark = text.find('e');
    for (const char c : text.substr(0, mark))
        if (c != '.') decimal.Digits += c;
    decimal.Digits.erase(decimal.Digits.find_last_not_of('0') + 1);
    if (decimal.Digits.empty()) return {};
    decimal.Exponent = std::stoi(std::string(text.substr(mark + 1))) + 1;
    return decimal;
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

// Whole numbers of so many digits, and the powers of ten, are doubles without an error.
constexpr std::size_t kExactDigits = 15;
constexpr std::array<double, kExactDigits + 1> kPowersOfTen = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                               1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// A short numeral without an exponent is the quotient of two exact doubles, which is rounded once and rightly
// (Clinger, "How to Read Floating Point Numbers Accurately"). Nothing for other numerals.
std::optional<double> ShortValue(std::string_view numeral)
{
    const std::size_t start = IsSignAt(numeral, 0) ? 1 : 0;
    const std::size_t point = numeral.find('.', start);
    const std::size_t decimals = point == std::string_view::npos ? 0 : numeral.size() - point - 1;
    if (numeral.size() - start > kExactDigits) return std::nullopt;
    std::int64_t digits = 0;
    for (std::size_t i = start; i < numeral.size(); ++i) {
        if (i == point) continue;
        if (!IsDigit(numeral[i])) return std::nullopt;
        digits = digits * 10 + (numeral[i] - '0');
    }
    const double value = static_cast<double>(digits) / kPowersOfTen.at(decimals);
    return numeral.front() == '-' ? -value : value;
}

// A numeral too small for a double is a zero, although the stream calls it a failure.
bool IsBelowRange(double value)
{
    return std::abs(value) < 1.0;
}

}  // namespace

Decimal ToDecimal(double value, int significantDigits)
{
    if (!std::isfinite(value)) Raise(ErrorNumber::Overflow);
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

double NumeralValue(std::string_view numeral)
{
    if (const std::optional<double> value = ShortValue(numeral)) return *value;
    std::istringstream stream{std::string(numeral)};
    stream.imbue(std::locale::classic());
    double value = 0.0;
    stream >> value;
    if (stream.fail() && !IsBelowRange(value)) Raise(ErrorNumber::Overflow);
    return value;
}
