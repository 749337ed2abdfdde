#include "basic/numbertext.h"

#include "basic/number.h"

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Whether the character may stand at this place; notes a decimal point.
bool Passes(char c, std::size_t place, bool& hasPoint)
{
    if (c == '+' || c == '-') return place == 0;
    if (c != '.') return IsDigit(c);
    const bool first = !hasPoint;
    hasPoint = true;
    return first;
}

}  // namespace

double NumberText::Value() const
{
    return Val(Text);
}

NumberText ReadNumberText(std::string_view text)
{
    NumberText number;
    number.IsBlank = text.empty();
    number.IsNumber = !number.IsBlank;
    for (std::size_t at = 0; at < text.size() && number.IsNumber; ++at) {
        if (text[at] == ',') continue;
        number.IsNumber = Passes(text[at], number.Text.size(), number.HasPoint);
        if (number.IsNumber)
            number.Text += text[at];
        else
            number.Text += text.substr(at);
    }
    return number;
}
