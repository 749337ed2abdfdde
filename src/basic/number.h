// Number rules that the entry forms, the engines and the files share.
#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

// The leading number of a text, blanks passed over, with a decimal exponent if there is one; 0 where there is
// none.
double Val(std::string_view text);

// The floor.
double Int(double value);

// The nearest whole number, halves to the even one. "Overflow" when it does not fit.
std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);

// Arithmetic that fails instead of giving an infinity: "Division by zero" (0 / 0: "Overflow"), "Invalid
// procedure call or argument" for the root of a negative number.
[[noreturn]] void RaiseQuotient(double dividend, double divisor);  // what Divide fails with
inline double Divide(double dividend, double divisor)
{
    const double quotient = dividend / divisor;  // not finite by a divisor of 0
    if (!std::isfinite(quotient)) RaiseQuotient(dividend, divisor);
    return quotient;
}
double SquareRoot(double value);

// Sum that must fit 16 bits, else "Overflow".
std::int16_t Add16(std::int16_t a, std::int16_t b);
