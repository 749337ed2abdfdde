#include "basic/numbertext.h"

#include <gtest/gtest.h>

#include "basic/error.h"
#include "support/errors.h"

namespace {

TEST(NumberText, TakesDigitsAPointAndASignInFront)
{
    for (const char* text : {"0", "9", "5", "1234567890", "+5", "-5", "1.5", "-.5", "5.", ".", "+", "-"}) {
        const NumberText number = ReadNumberText(text);
        EXPECT_TRUE(number.IsNumber) << text;
        EXPECT_FALSE(number.IsBlank) << text;
        EXPECT_EQ(number.Text, text);
    }
}

// '/' and ':' stand beside the digits in the table of characters.
TEST(NumberText, RefusesEveryOtherCharacterAndASecondPointOrSign)
{
    for (const char* text : {"A", "/", ":", "1/2", "1:2", " 1", "1 ", "1E5", "--5", "+-5", "5-", "5+", "1+2",
                             "1.2.3", "..", ".-5", "$5", "5%"}) {
        const NumberText number = ReadNumberText(text);
        EXPECT_FALSE(number.IsNumber) << text;
        EXPECT_FALSE(number.IsWholeNumeral()) << text;
        EXPECT_FALSE(number.IsBlank) << text;
        EXPECT_EQ(number.Text, text);
    }
}

TEST(NumberText, IsBlankWithoutACharacter)
{
    const NumberText number = ReadNumberText("");
    EXPECT_TRUE(number.IsBlank);
    EXPECT_FALSE(number.IsNumber);
    EXPECT_EQ(number.Text, "");
}

TEST(NumberText, LosesItsCommas)
{
    EXPECT_EQ(ReadNumberText("1,234,567").Text, "1234567");
    EXPECT_EQ(ReadNumberText("1,234.5").Value(), 1234.5);
    EXPECT_EQ(ReadNumberText(",5,").Text, "5");
    EXPECT_TRUE(ReadNumberText(",-5").IsNumber);  // the sign is the first that counts
    EXPECT_FALSE(ReadNumberText("5,-").IsNumber);
    EXPECT_TRUE(ReadNumberText(",").IsNumber);
    EXPECT_FALSE(ReadNumberText(",").IsBlank);
    EXPECT_EQ(ReadNumberText(",").Text, "");
}

TEST(NumberText, KeepsTheCommasBehindThePlaceWhereItFails)
{
    EXPECT_EQ(ReadNumberText("1,2x3,4").Text, "12x3,4");
    EXPECT_EQ(ReadNumberText("1.2.3,4").Text, "1.2.3,4");
}

TEST(NumberText, IsWholeWithoutAPoint)
{
    EXPECT_TRUE(ReadNumberText("12").IsWholeNumeral());
    EXPECT_TRUE(ReadNumberText("-1,200").IsWholeNumeral());
    EXPECT_FALSE(ReadNumberText("12.").IsWholeNumeral());
    EXPECT_FALSE(ReadNumberText("").IsWholeNumeral());
}

TEST(NumberText, HasTheValueOfItsCharacters)
{
    EXPECT_EQ(ReadNumberText("-12.25").Value(), -12.25);
    EXPECT_EQ(ReadNumberText("-").Value(), 0);
    EXPECT_EQ(ErrorOf([] { static_cast<void>(ReadNumberText(std::string(400, '9')).Value()); }),
              ErrorNumber::Overflow);
}

}  // namespace
