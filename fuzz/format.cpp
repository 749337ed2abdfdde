// Patterns and numbers: eight bytes of a double, then the pattern.
#include <cmath>

#include "basic/format.h"
#include "basic/number.h"
#include "basic/records.h"
#include "input.h"

namespace {

// What a problem file holds reads back as the same number.
void ClaimRoundTrip(double value)
{
    RecordWriter writer;
    writer.Write({value});
    RecordReader reader(writer.Text());
    Claim(reader.ReadDouble() == value);
}

void ClaimFields(const std::string& text)
{
    constexpr int kWidth = 12;
    Claim(FlushRight(text, kWidth).size() == kWidth);
    Claim(FlushLeft(text, kWidth).size() == kWidth);
    const std::string trimmed = Trimmed(text);
    Claim(trimmed.empty() || (trimmed.front() != ' ' && trimmed.back() != ' '));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    double value = 0.0;
    if (size < sizeof value) return 0;
    std::memcpy(&value, data, sizeof value);
    const std::string pattern = TextOf(data + sizeof value, size - sizeof value);

    ClaimFields(pattern);
    if (!(std::abs(value) < 1e300)) return 0;  // 15 digits of the very largest are beyond them
    const std::string plain = PlainText(value);
    Format(value, pattern);
    Format(plain, pattern);
    Claim(std::abs(Val(plain) - value) <= std::abs(value) * 1e-14);
    ClaimRoundTrip(value);
    return 0;
}
