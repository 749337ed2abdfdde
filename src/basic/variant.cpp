#include "basic/variant.h"

#include "basic/format.h"

std::string Variant::Text() const
{
    return IsEmpty() ? std::string() : PlainText(Value());
}
