#include "basic/entrytext.h"

#include "basic/decimal.h"

std::string EntryText(const Variant& value)
{
    constexpr int kSignificantDigits = 15;
    return value.IsEmpty() ? std::string() : PlainDigits(ToDecimal(value.Value(), kSignificantDigits));
}
