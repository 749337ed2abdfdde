#include "basic/records.h"

#include <algorithm>
#include <utility>

#include "basic/decimal.h"
#include "basic/error.h"
#include "basic/files.h"
#include "basic/number.h"

namespace {

struct FieldText {
    std::string operator()(double value) const { return PlainDigits(ToShortestDecimal(value)); }
    std::string operator()(const Variant& value) const
    {
        return value.IsEmpty() ? std::string() : (*this)(value.Value());
    }
    std::string operator()(const std::string& value) const
    {
        std::string quoted = "\"";
        for (const char character : value)
            quoted.append(character == '"' ? 2 : 1, character);
        return quoted + '"';
    }
};

bool IsLineEnd(char c)
{
    return c == '\r' || c == '\n';
}

bool EndsField(char c)
{
    return c == ',' || IsLineEnd(c);
}

// The number that a field holds; an empty field counts as 0.
double NumberOf(std::string_view field)
{
    if (const Variant value = ShortNumeralValue(field); !value.IsEmpty()) return value.Value();
    if (field.empty()) return 0.0;
    if (NumeralLength(field) != field.size()) Raise(ErrorNumber::TypeMismatch);
    return NumeralValue(field);
}

// ---- the marks that tell how the characters of a file are stored ----

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LowFirst = "\xFF\xFE";
constexpr std::string_view kUtf16HighFirst = "\xFE\xFF";

// As UTF-8; half a pair stands for itself.
void AppendCharacter(std::string& text, char32_t character)
{
    const auto append = [&text](char32_t byte) {
        text += static_cast<char>(static_cast<unsigned char>(byte));
    };
    if (character < 0x80) {
        append(character);
        return;
    }
    int rest = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;  // bytes behind the first
    const char32_t first = rest == 1 ? 0xC0 : rest == 2 ? 0xE0 : 0xF0;
    append(first | (character >> (6 * rest)));
    while (rest-- > 0)
        append(0x80 | ((character >> (6 * rest)) & 0x3F));
}

std::string FromUtf16(std::string_view bytes, bool highFirst)
{
    const auto unit = [&](std::size_t i) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        return static_cast<char32_t>(highFirst ? first << 8 | second : second << 8 | first);
    };
    std::string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char32_t character = unit(i);
        const bool high = character >= 0xD800 && character < 0xDC00 && i + 3 < bytes.size();
        if (high && unit(i + 2) >= 0xDC00 && unit(i + 2) < 0xE000) {
            i += 2;
            character = 0x10000 + ((character - 0xD800) << 10) + (unit(i) - 0xDC00);
        }
        AppendCharacter(text, character);
    }
    return text;
}

std::string WithoutMark(std::string text)
{
    if (text.starts_with(kUtf8Mark)) return text.substr(kUtf8Mark.size());
    const bool highFirst = text.starts_with(kUtf16HighFirst);
    if (!highFirst && !text.starts_with(kUtf16LowFirst)) return text;
    return FromUtf16(std::string_view(text).substr(kUtf16LowFirst.size()), highFirst);
}

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view WithoutBlanksBehind(std::string_view field)
{
    while (!field.empty() && IsBlank(field.back()))
        field.remove_suffix(1);
    return field;
}

}  // namespace

void RecordWriter::Write(std::initializer_list<Field> fields)
{
    const char* separator = "";
    for (const Field& field : fields) {
        text_ += separator + std::visit(FieldText{}, field);
        separator = ",";
    }
    text_ += "\r\n";
}

void RecordWriter::Save(const std::string& path) const
{
    ReplaceFile(path, text_);
}

RecordReader::RecordReader(std::string text) : text_(WithoutMark(std::move(text)))
{
}

RecordReader RecordReader::FromFile(const std::string& path)
{
    return RecordReader(ReadFile(path));
}

void RecordReader::StartField()
{
    if (next_ >= text_.size()) Raise(ErrorNumber::InputPastEnd);
    while (next_ < text_.size() && IsBlank(text_[next_]))
        ++next_;
}

std::string_view RecordReader::TakeUnquoted()
{
    const std::string_view rest = std::string_view(text_).substr(next_);
    const auto* const end = std::find_if(rest.begin(), rest.end(), EndsField);
    const std::string_view field(rest.begin(), end);
    next_ += field.size();
    return field;
}

// From the quote at hand to the next one.
std::string_view RecordReader::TakeBetweenQuotes()
{
    const std::size_t start = next_ + 1;
    const std::size_t end = text_.find('"', start);
    if (end == std::string::npos) {
        next_ = text_.size();
        Raise(ErrorNumber::InputPastEnd);
    }
    next_ = end + 1;
    return std::string_view(text_).substr(start, end - start);
}

// Two quotes within the text stand for one.
std::string RecordReader::TakeQuoted()
{
    std::string field(TakeBetweenQuotes());
    while (next_ < text_.size() && text_[next_] == '"')
        field.append(1, '"').append(TakeBetweenQuotes());
    TakeUnquoted();
    return field;
}

void RecordReader::PassSeparator()
{
    if (next_ >= text_.size()) return;
    const bool carriageReturn = text_[next_++] == '\r';
    if (carriageReturn && next_ < text_.size() && text_[next_] == '\n') ++next_;
}

std::string_view RecordReader::TakeNumberField()
{
    StartField();
    const std::string_view field = WithoutBlanksBehind(TakeUnquoted());
    PassSeparator();
    return field;
}

double RecordReader::ReadDouble()
{
    return NumberOf(TakeNumberField());
}

std::int16_t RecordReader::ReadInt16()
{
    return ToInt16(ReadDouble());
}

std::int16_t RecordReader::ReadCount()
{
    const std::int16_t count = ReadInt16();
    if (count < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    return count;
}

std::int32_t RecordReader::ReadInt32()
{
    return ToInt32(ReadDouble());
}

Variant RecordReader::ReadVariant()
{
    const std::string_view field = TakeNumberField();
    return field.empty() ? Variant() : Variant(NumberOf(field));
}

std::string RecordReader::ReadString()
{
    StartField();
    const bool quoted = next_ < text_.size() && text_[next_] == '"';
    std::string field = quoted ? TakeQuoted() : std::string(TakeUnquoted());
    PassSeparator();
    return field;
}
