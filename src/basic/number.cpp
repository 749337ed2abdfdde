#include "basic/number.h"

#include <cmath>
#include <limits>
#include <string>

#include "basic/decimal.h"
#include "basic/error.h"

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// std::nearbyint rounds halves to even as long as nobody changes the rounding mode, and nobody does.
template <typename Whole>
Whole ToWhole(double value)
{
    const double rounded = std::nearbyint(value);
    const auto low = static_cast<double>(std::numeric_limits<Whole>::min());
    const auto high = static_cast<double>(std::numeric_limits<Whole>::max());
    if (!(rounded >= low && rounded <= high)) Raise(ErrorNumber::Overflow);
    return static_cast<Whole>(rounded);
}

}  // namespace

double Val(std::string_view text)
{
    std::string packed;
    for (const char c : text)
        if (!IsBlank(c)) packed += c;
    const std::size_t length = NumeralLength(packed);
    return length == 0 ? 0.0 : NumeralValue(std::string_view(packed).substr(0, length));
}

double Int(double value)
{
    return std::floor(value);
}

std::int16_t ToInt16(double value)
{
    return ToWhole<std::int16_t>(value);
}

std::int32_t ToInt32(double value)
{
    return ToWhole<std::int32_t>(value);
}

double Divide(double dividend, double divisor)
{
    if (divisor == 0.0) Raise(dividend == 0.0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
    const double quotient = dividend / divisor;
    if (!std::isfinite(quotient)) Raise(ErrorNumber::Overflow);
    return quotient;
}

double SquareRoot(double value)
{
    if (value < 0.0) Raise(ErrorNumber::InvalidProcedureCall);
    return std::sqrt(value);
}

std::int16_t Add16(std::int16_t a, std::int16_t b)
{
    return ToInt16(static_cast<double>(a) + static_cast<double>(b));
}
