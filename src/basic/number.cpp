#include "basic/number.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string>

#include "basic/decimal.h"
#include "basic/error.h"

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Of the numeral at the start; 0 where there is none.
double LeadingValue(std::string_view text)
{
    const std::size_t length = NumeralLength(text);
    return length == 0 ? 0.0 : NumeralValue(text.substr(0, length));
}

// Of any text; apart from Val, which mostly does without it.
double LongVal(std::string_view text)
{
    if (std::any_of(text.begin(), text.end(), IsBlank)) {
        std::string packed;
        std::remove_copy_if(text.begin(), text.end(), std::back_inserter(packed), IsBlank);
        return LeadingValue(packed);
    }
    return LeadingValue(text);
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
    const Variant value = ShortNumeralValue(text);
    return value.IsEmpty() ? LongVal(text) : value.Value();
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

void RaiseQuotient(double dividend, double divisor)
{
    Raise(divisor == 0.0 && dividend != 0.0 ? ErrorNumber::DivisionByZero : ErrorNumber::Overflow);
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
