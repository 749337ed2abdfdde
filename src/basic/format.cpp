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

// The digits before and behind the point of a number that is rounded to the decimals of a pattern.
struct RoundedNumber {
    bool Negative = false;
    std::string Whole;  // no zeros in front; nothing for a number below 1
    std::string Fraction;
};

// Adds one to the last digit and carries; true when the carry runs out at the front.
bool Increment(std::string& digits)
{
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return false;
        }
        *digit = '0';
    }
    return true;
}

RoundedNumber Round(double value, int decimals)
{
    const Decimal decimal = ToDecimal(value, kSignificantDigits);
    const std::size_t wholeDigits = Size(decimal.Exponent);
    const std::size_t kept = wholeDigits + Size(decimals);
    std::string digits(Size(-decimal.Exponent), '0');  // between the point and the first digit
    digits += decimal.Digits;
    const bool up = digits.size() > kept && digits[kept] >= '5';
    digits.resize(kept, '0');
    const bool carried = up && Increment(digits);
    const bool isZero = !carried && digits.find_first_not_of('0') == std::string::npos;
    RoundedNumber rounded;
    rounded.Negative = decimal.Negative && !isZero;
    if (carried) rounded.Whole = '1';
    rounded.Whole.append(digits, 0, wholeDigits);
    rounded.Fraction.assign(digits, wholeDigits);
    return rounded;
}

// What stands in a digit pattern on both sides of its point.
struct DigitPattern {
    std::string_view Whole;
    std::string_view Fraction;
    bool Point = false;
    bool Separators = false;
};

// A comma counts between two digit places only.
bool HasSeparators(std::string_view whole)
{
    if (whole.find(',') == std::string_view::npos) return false;
    const std::size_t first = whole.find_first_of("0#");
    const std::size_t last = whole.find_last_of("0#");
    return first != std::string_view::npos &&
           whole.substr(first, last - first).find(',') != std::string_view::npos;
}

DigitPattern Parse(std::string_view pattern)
{
    DigitPattern parsed;
    const std::size_t point = pattern.find('.');
    parsed.Point = point != std::string_view::npos;
    parsed.Whole = pattern.substr(0, point);
    if (parsed.Point) parsed.Fraction = pattern.substr(point + 1);
    parsed.Separators = HasSeparators(parsed.Whole);
    return parsed;
}

int CountPlaces(std::string_view pattern)
{
    return static_cast<int>(std::count_if(pattern.begin(), pattern.end(), IsDigitPlace));
}

// Writes the digits before the point, last one first.
class WholeWriter {
public:
    WholeWriter(std::string_view digits, bool separators) : digits_(digits), separators_(separators) {}

    void Place(char place)
    {
        if (!digits_.empty()) {
            Put(digits_.back());
            digits_.remove_suffix(1);
        } else if (place == '0') {
            Put('0');
        }
    }
    void PlaceRest()
    {
        while (!digits_.empty())
            Place('#');
    }
    void Literal(char c) { reversed_ += c; }
    [[nodiscard]] std::string Text() const { return {reversed_.rbegin(), reversed_.rend()}; }

private:
    void Put(char digit)
    {
        constexpr int kGroup = 3;
        if (separators_ && written_ > 0 && written_ % kGroup == 0) reversed_ += ',';
        reversed_ += digit;
        ++written_;
    }

    std::string_view digits_;
    bool separators_;
    std::string reversed_;
    int written_ = 0;
};

// Digits that find no place of their own stand at the first one, the minus in front of it.
std::string WholePart(const RoundedNumber& number, const DigitPattern& pattern)
{
    WholeWriter writer(number.Whole, pattern.Separators);
    const std::size_t first = pattern.Whole.find_first_of("0#");
    for (std::size_t i = pattern.Whole.size(); i-- > 0;) {
        const char c = pattern.Whole[i];
        if (IsDigitPlace(c))
            writer.Place(c);
        else if (c != ',')
            writer.Literal(c);
        if (i == first) {
            writer.PlaceRest();
            if (number.Negative) writer.Literal('-');
        }
    }
    return writer.Text();
}

// The digits behind the point; of those under '#' the zeros at the end are left out.
std::string FractionPart(const std::string& digits, std::string_view pattern)
{
    std::size_t shown = digits.find_last_not_of('0') + 1;
    std::size_t place = 0;
    for (const char c : pattern) {
        if (c == '0') shown = std::max(shown, place + 1);
        if (IsDigitPlace(c)) ++place;
    }
    std::string text;
    place = 0;
    for (const char c : pattern) {
        if (!IsDigitPlace(c))
            text += c;
        else if (place++ < shown)
            text += digits[place - 1];
    }
    return text;
}

// The characters for the places of a text pattern, first to last. A surplus comes back as it is.
std::string PlacedText(std::string_view text, std::size_t places, bool fromLeft)
{
    if (text.size() >= places) return std::string(fromLeft ? text.substr(text.size() - places) : text);
    const std::string gap(places - text.size(), '\0');
    return fromLeft ? std::string(text) + gap : gap + std::string(text);
}

}  // namespace

std::string Format(double value, std::string_view pattern)
{
    if (IsTextPattern(pattern)) return Format(PlainText(value), pattern);
    const DigitPattern parsed = Parse(pattern);
    const RoundedNumber number = Round(value, CountPlaces(parsed.Fraction));
    std::string text = WholePart(number, parsed);
    if (parsed.Point) text.append(1, '.').append(FractionPart(number.Fraction, parsed.Fraction));
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

std::string FlushRight(std::string_view text, int width)
{
    const std::string_view kept = text.substr(0, Size(width));
    std::string line(Size(width) - kept.size(), ' ');
    return line.append(kept);
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
