#include "basic/format.h"

#include <algorithm>

#include "basic/decimal.h"

namespace {

constexpr int kSignificantDigits = 15;
constexpr int kSmallestPlainExponent = -3;  // 0.0001 is plain, anything smaller has an exponent

std::size_t Size(int count)
{
    return static_cast<std::size_t>(std::max(count, 0));
}

bool IsDigitPlace(char c)
{
    return c == '0' || c == '#';
}

bool IsTextPlace(char c)
{
    return c == '@' || c == '&';
}

bool IsTextPattern(std::string_view pattern)
{
    return std::any_of(pattern.begin(), pattern.end(), IsTextPlace);
}

// Adds one to the last digit and carries; what becomes 0 falls off the end.
void Increment(Decimal& number)
{
    number.Digits.erase(number.Digits.find_last_not_of('9') + 1);
    if (!number.Digits.empty()) {
        ++number.Digits.back();
        return;
    }
    number.Digits = '1';
    ++number.Exponent;
}

// To the decimals of a pattern, half away from zero.
Decimal Round(double value, int decimals)
{
    Decimal number = ToDecimal(value, kSignificantDigits);
    const int kept = number.Exponent + decimals;
    if (kept >= static_cast<int>(number.Digits.size())) return number;
    if (kept < 0) return {};
    const bool up = number.Digits[Size(kept)] >= '5';
    number.Digits.resize(Size(kept));
    if (up)
        Increment(number);
    else
        number.Digits.erase(number.Digits.find_last_not_of('0') + 1);
    if (number.Digits.empty()) return {};
    return number;
}

// Places count from the point: 0 is the first one behind it, -1 the last one in front of it.
char DigitAt(const Decimal& number, int place)
{
    const int at = number.Exponent + place;
    return at >= 0 && at < static_cast<int>(number.Digits.size()) ? number.Digits[Size(at)] : '0';
}

// A comma counts between two digit places only.
bool HasSeparators(std::string_view whole)
{
    if (whole.find(',') == std::string_view::npos) return false;
    const std::size_t first = whole.find_first_of("0#");
    const std::size_t last = whole.find_last_of("0#");
    return first != std::string_view::npos &&
           whole.substr(first, last - first).find(',') != std::string_view::npos;
}

// A '#' in front of another place changes nothing: a digit would stand there in any case.
std::string_view WithoutIdlePlaces(std::string_view whole)
{
    while (whole.size() > 1 && whole[0] == '#' && IsDigitPlace(whole[1]))
        whole.remove_prefix(1);
    return whole;
}

int CountPlaces(std::string_view pattern)
{
    return static_cast<int>(std::count_if(pattern.begin(), pattern.end(), IsDigitPlace));
}

// How many digits a number shows in front of the point, with the zeros that the pattern asks for.
int CountDigits(const Decimal& number, std::string_view pattern)
{
    int count = std::max(number.Exponent, 0);
    int place = CountPlaces(pattern);
    for (const char c : pattern) {
        if (c == '0' && place > number.Exponent) ++count;
        if (IsDigitPlace(c)) --place;
    }
    return count;
}

// Writes the digits in front of the point, the first one first.
class WholeWriter {
public:
    // `count` is how many digits there will be, for the commas; 0: there are none.
    WholeWriter(std::string& text, const Decimal& number, int count)
        : text_(text), number_(number), left_(count)
    {
    }

    void Put(int place)
    {
        constexpr int kGroup = 3;
        text_ += DigitAt(number_, place);
        if (--left_ > 0 && left_ % kGroup == 0) text_ += ',';
    }

private:
    std::string& text_;
    const Decimal& number_;
    int left_;
};

// The characters for the places of a text pattern, first to last. A surplus comes back as it is.
std::string PlacedText(std::string_view text, std::size_t places, bool fromLeft)
{
    if (text.size() >= places) return std::string(fromLeft ? text.substr(text.size() - places) : text);
    const std::string gap(places - text.size(), '\0');
    return fromLeft ? std::string(text) + gap : gap + std::string(text);
}

}  // namespace

DigitPattern::DigitPattern(std::string_view pattern)
{
    const std::size_t point = pattern.find('.');
    const std::string_view whole = pattern.substr(0, point);
    hasSeparators_ = HasSeparators(whole);
    whole_ = WithoutIdlePlaces(whole);
    wholePlaces_ = CountPlaces(whole_);
    hasPoint_ = point != std::string_view::npos;
    if (!hasPoint_) return;
    fraction_ = pattern.substr(point + 1);
    decimals_ = CountPlaces(fraction_);
    leastDecimals_ = CountPlaces(std::string_view(fraction_).substr(0, fraction_.find_last_of('0') + 1));
}

void DigitPattern::Append(std::string& text, double value) const
{
    const Decimal number = Round(value, decimals_);
    AppendWhole(text, number);
    if (!hasPoint_) return;
    text += '.';
    AppendFraction(text, number);
}

// Digits that find no place of their own stand at the first one, the minus in front of them.
void DigitPattern::AppendWhole(std::string& text, const Decimal& number) const
{
    WholeWriter writer(text, number, hasSeparators_ ? CountDigits(number, whole_) : 0);
    int place = -wholePlaces_;
    for (const char c : whole_) {
        if (!IsDigitPlace(c)) {
            if (c != ',') text += c;
            continue;
        }
        if (place == -wholePlaces_) {
            if (number.Negative) text += '-';
            for (int surplus = -number.Exponent; surplus < place; ++surplus)
                writer.Put(surplus);
        }
        if (c == '0' || place >= -number.Exponent) writer.Put(place);
        ++place;
    }
}

// Of the digits under '#' the zeros at the end are left out.
void DigitPattern::AppendFraction(std::string& text, const Decimal& number) const
{
    const int shown = std::max(static_cast<int>(number.Digits.size()) - number.Exponent, leastDecimals_);
    int place = 0;
    for (const char c : fraction_) {
        if (!IsDigitPlace(c))
            text += c;
        else if (place++ < shown)
            text += DigitAt(number, place - 1);
    }
}

std::string Format(double value, std::string_view pattern)
{
    if (IsTextPattern(pattern)) return Format(PlainText(value), pattern);
    std::string text;
    DigitPattern(pattern).Append(text, value);
    return text;
}

std::string Format(std::string_view text, std::string_view pattern)
{
    const auto places = static_cast<std::size_t>(std::count_if(pattern.begin(), pattern.end(), IsTextPlace));
    const bool fromLeft = pattern.find('!') != std::string_view::npos;
    const std::string placed = PlacedText(text, places, fromLeft);
    const std::size_t surplus = placed.size() - places;
    std::string result;
    std::size_t next = 0;
    for (const char c : pattern) {
        if (c == '!') continue;
        if (!IsTextPlace(c)) {
            result += c;
            continue;
        }
        if (next == 0) {
            result += placed.substr(0, surplus);
            next = surplus;
        }
        const char character = placed[next++];
        if (character != '\0')
            result += character;
        else if (c == '@')
            result += ' ';
    }
    return result;
}

std::string PlainText(double value)
{
    const Decimal decimal = ToDecimal(value, kSignificantDigits);
    if (decimal.Exponent >= kSmallestPlainExponent && decimal.Exponent <= kSignificantDigits)
        return PlainDigits(decimal);
    std::string text = decimal.Digits.substr(0, 1);
    if (decimal.Digits.size() > 1) text += '.' + decimal.Digits.substr(1);
    const int exponent = decimal.Exponent - 1;
    text += exponent < 0 ? "E-" : "E+";
    text += Format(exponent < 0 ? -exponent : exponent, "00");
    return decimal.Negative ? "-" + text : text;
}

std::string PrintItem(double value)
{
    const std::string text = PlainText(value);
    return (text.front() == '-' ? text : " " + text) + " ";
}

void AppendFlushRight(std::string& line, std::string_view text, int width)
{
    const std::string_view kept = text.substr(0, Size(width));
    line.append(Size(width) - kept.size(), ' ').append(kept);
}

std::string FlushRight(std::string_view text, int width)
{
    std::string line;
    AppendFlushRight(line, text, width);
    return line;
}

std::string FlushLeft(std::string_view text, int width)
{
    const std::string kept(text.substr(0, Size(width)));
    return kept + Blanks(width - static_cast<int>(kept.size()));
}

std::string Blanks(int count)
{
    return std::string(Size(count), ' ');
}

std::string Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return upper;
}
