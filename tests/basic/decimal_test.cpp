#include "basic/decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "basic/error.h"

namespace {

std::string Digits(std::mt19937& random, int most)
{
    std::string digits;
    for (int count = static_cast<int>(random() % static_cast<unsigned>(most + 1)); count > 0; --count)
        digits += static_cast<char>('0' + random() % 10);
    return digits;
}

// A sign, digits with a point, an exponent: each perhaps.
std::string RandomNumeral(std::mt19937& random)
{
    std::string text;
    if (random() % 3 == 0) text += random() % 2 == 0 ? '-' : '+';
    text += static_cast<char>('0' + random() % 10) + Digits(random, 20);
    if (random() % 2 == 0) text += '.' + Digits(random, 20);
    if (random() % 3 == 0) text += (random() % 2 == 0 ? "E-" : "e") + std::to_string(random() % 280);
    return text;
}

// A text of the characters that numerals are made of, mostly digits.
std::string RandomText(std::mt19937& random)
{
    constexpr std::string_view kCharacters = "+-..E0123456789012345678901234567890123456789";
    std::string text;
    for (auto count = random() % 18; count > 0; --count)
        text += kCharacters[random() % kCharacters.size()];
    return text;
}

// A sign, at most 15 characters behind it, and no exponent.
bool IsShortNumeral(std::string_view text)
{
    const std::size_t sign = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
    return !text.empty() && NumeralLength(text) == text.size() && text.size() - sign <= 15 &&
           text.find('E') == std::string_view::npos;
}

}  // namespace

TEST(ShortNumeralValue, IsTheOneOfTheCLibraryToTheLastBit)
{
    std::mt19937 random(12);
    int found = 0;
    for (int round = 0; round < 400000; ++round) {
        const std::string text = RandomText(random);
        const Variant value = ShortNumeralValue(text);
        ASSERT_EQ(!value.IsEmpty(), IsShortNumeral(text)) << text;
        if (value.IsEmpty()) continue;
        ++found;
        ASSERT_EQ(std::bit_cast<std::uint64_t>(value.Value()),
                  std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)))
            << text;
    }
    EXPECT_GT(found, 50000);
}

TEST(ShortNumeralValue, NeedsADigit)
{
    for (const char* text : {"", "+", "-", ".", "-.", "1.2.", "--1", "1-", " 1", "1E2"})
        EXPECT_TRUE(ShortNumeralValue(text).IsEmpty()) << text;
    EXPECT_EQ(ShortNumeralValue("-12."), -12);
    EXPECT_EQ(ShortNumeralValue("+.25"), 0.25);
}

TEST(NumeralValue, IsWhatTheCLibraryReads)
{
    std::mt19937 random(11);
    for (int round = 0; round < 200000; ++round) {
        const std::string text = RandomNumeral(random);
        EXPECT_EQ(NumeralValue(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(NumeralValue, TakesAPointAtEitherEndAndASign)
{
    EXPECT_EQ(NumeralValue("5."), 5);
    EXPECT_EQ(NumeralValue(".5"), 0.5);
    EXPECT_EQ(NumeralValue("+.5"), 0.5);
    EXPECT_EQ(NumeralValue("-5."), -5);
}

TEST(NumeralValue, IsZeroWhereADoubleEndsBelow)
{
    for (const std::string& text : {std::string("1E-400"), "0." + std::string(400, '0') + "1",
                                    std::string("123456E-99999999999"), std::string("0E999")})
        EXPECT_EQ(NumeralValue(text), 0) << text;
    EXPECT_EQ(NumeralValue("5E-324"), 5E-324);
}

TEST(NumeralValue, OverflowsWhereADoubleEndsAbove)
{
    for (const std::string& text : {std::string("1E309"), std::string(400, '9'), std::string("-1E400"),
                                    std::string("0.001E99999999999"), "0." + std::string(20, '0') + "1E400"})
        EXPECT_THROW(NumeralValue(text), RuntimeError) << text;
    EXPECT_EQ(NumeralValue("1E308"), 1E308);
}

// What balances them are places, so that none of them alone tells on which side of a double the value lies.
TEST(NumeralValue, WeighsManyPlacesAgainstALargeExponent)
{
    EXPECT_EQ(NumeralValue("0." + std::string(5400, '0') + "1E5000"), 0);               // 1E-401
    EXPECT_THROW(NumeralValue("1" + std::string(5400, '0') + "E-5000"), RuntimeError);  // 1E400
}

TEST(NumeralValue, KeepsTheSignOfWhatIsTooSmall)
{
    EXPECT_EQ(NumeralValue("-1E-400"), 0);
    EXPECT_TRUE(std::signbit(NumeralValue("-1E-400")));
    EXPECT_FALSE(std::signbit(NumeralValue("1E-400")));
}

// Digits of the next field, a point or an exponent may stand behind the text in memory.
TEST(Numerals, EndWithTheirText)
{
    EXPECT_EQ(NumeralValue(std::string_view("123456").substr(0, 3)), 123);
    EXPECT_EQ(NumeralValue(std::string_view("1.2345").substr(0, 3)), 1.2);
    EXPECT_EQ(NumeralLength(std::string_view("123456").substr(0, 3)), 3U);
    EXPECT_EQ(NumeralLength(std::string_view("5.5").substr(0, 1)), 1U);
    EXPECT_EQ(NumeralLength(std::string_view("5E5").substr(0, 2)), 1U);
}

TEST(NumeralLength, LeavesAnExponentWithoutDigitsOut)
{
    EXPECT_EQ(NumeralLength("1E"), 1U);
    EXPECT_EQ(NumeralLength("1E+"), 1U);
    EXPECT_EQ(NumeralLength("1.5e-X"), 3U);
    EXPECT_EQ(NumeralLength("1E2E3"), 3U);
    EXPECT_EQ(NumeralLength("E5"), 0U);
}

TEST(ToDecimal, LeavesTheZerosAtTheEndOut)
{
    const Decimal hundred = ToDecimal(-100, 15);
    EXPECT_TRUE(hundred.Negative);
    EXPECT_EQ(hundred.Digits, "1");
    EXPECT_EQ(hundred.Exponent, 3);
    const Decimal large = ToDecimal(1.5e20, 15);
    EXPECT_EQ(large.Digits, "15");
    EXPECT_EQ(large.Exponent, 21);
}
