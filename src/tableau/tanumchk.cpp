#include "tableau/tanumchk.h"

#include "shell/session.h"

bool HasDecimalPoint = false;
bool IsBlank = false;

namespace {

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Whether the character may stand at this place; notes a decimal point.
bool Passes(char c, std::size_t place)
{
    if (c == '+' || c == '-') return place == 0;
    if (c != '.') return IsDigit(c);
    const bool first = !HasDecimalPoint;
    HasDecimalPoint = true;
    return first;
}

}  // namespace

void CheckNumber()
{
    std::string& text = Session.CheckText;
    IsBlank = text.empty();
    HasDecimalPoint = false;
    Session.IsNumber = IsBlank ? "NO" : "YES";
    for (std::size_t place = 0; place < text.size() && Session.IsNumber == "YES";) {
        if (text[place] == ',')
            text.erase(place, 1);
        else if (Passes(text[place], place))
            ++place;
        else
            Session.IsNumber = "NO";
    }
}

bool IsNumeric(std::string_view text)
{
    Session.CheckText = text;
    CheckNumber();
    return Session.IsNumber == "YES";
}
