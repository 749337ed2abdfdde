// Every expected text here was worked out by hand or with a decimal calculator, never with the code under
// test.
#include "basic/format.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "basic/error.h"

namespace {

// What 0, 0.75, -0.004, 2.675, 99.9995, 1234567.891 and -1234.5 look like under each pattern of the reports.
const std::vector<double> kValues = {0, 0.75, -0.004, 2.675, 99.9995, 1234567.891, -1234.5};

struct PatternRow {
    const char* Pattern;
    std::vector<std::string> Texts;
};

// clang-format off
const std::vector<PatternRow> kPatterns = {
    {"#", {"", "1", "", "3", "100", "1234568", "-1235"}},
    {"0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"#0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"0.", {"0.", "1.", "0.", "3.", "100.", "1234568.", "-1235."}},
    {"###0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"##.0", {".0", ".8", ".0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"0.000", {"0.000", "0.750", "-0.004", "2.675", "100.000", "1234567.891", "-1234.500"}},
    {"#####0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"###0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"##0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"#.0000", {".0000", ".7500", "-.0040", "2.6750", "99.9995", "1234567.8910", "-1234.5000"}},
    {"#0.000", {"0.000", "0.750", "-0.004", "2.675", "100.000", "1234567.891", "-1234.500"}},
    {"0.0000", {"0.0000", "0.7500", "-0.0040", "2.6750", "99.9995", "1234567.8910", "-1234.5000"}},
    {"######0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"####0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"###0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"##0.000", {"0.000", "0.750", "-0.004", "2.675", "100.000", "1234567.891", "-1234.500"}},
    {"#######0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"#####0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"####0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"########0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"######0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"#####0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"##,##0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"#,######0", {"0", "1", "0", "3", "100", "1,234,568", "-1,235"}},
    {"#,####0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1,234,567.9", "-1,234.5"}},
    {"#########0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"#######0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"######0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"###,##0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"#,####0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"########.00", {".00", ".75", ".00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"#######0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"###,###,##0", {"0", "1", "0", "3", "100", "1,234,568", "-1,235"}},
    {"    #####0.0", {"    0.0", "    0.8", "    0.0", "    2.7", "    100.0", "    1234567.9", "    -1234.5"}},
    {"    ####0.00", {"    0.00", "    0.75", "    0.00", "    2.68", "    100.00", "    1234567.89", "    -1234.50"}},
    {"#######.0000", {".0000", ".7500", "-.0040", "2.6750", "99.9995", "1234567.8910", "-1234.5000"}},
    {"######0.0000", {"0.0000", "0.7500", "-0.0040", "2.6750", "99.9995", "1234567.8910", "-1234.5000"}},
    {"#####,###0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1,234,567.9", "-1,234.5"}},
    {"###,##0.0000", {"0.0000", "0.7500", "-0.0040", "2.6750", "99.9995", "1,234,567.8910", "-1,234.5000"}},
    {"#,###,###.00", {".00", ".75", ".00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"############0", {"0", "1", "0", "3", "100", "1234568", "-1235"}},
    {"##########0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"#########0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"########,0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"#####,###0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"#####,##0.000", {"0.000", "0.750", "-0.004", "2.675", "100.000", "1,234,567.891", "-1,234.500"}},
    {"####,####0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"###,###,##0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1,234,567.9", "-1,234.5"}},
    {"##,###,###.00", {".00", ".75", ".00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"###,###,###.00", {".00", ".75", ".00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"###,###,##0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"#,########0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"###,###,###,###.00", {".00", ".75", ".00", "2.68", "100.00", "1,234,567.89", "-1,234.50"}},
    {"#############0.", {"0.", "1.", "0.", "3.", "100.", "1234568.", "-1235."}},
    {"############0.0", {"0.0", "0.8", "0.0", "2.7", "100.0", "1234567.9", "-1234.5"}},
    {"###########0.00", {"0.00", "0.75", "0.00", "2.68", "100.00", "1234567.89", "-1234.50"}},
    {"##########0.000", {"0.000", "0.750", "-0.004", "2.675", "100.000", "1234567.891", "-1234.500"}},
};
// clang-format on

TEST(Format, GivesEveryPatternOfTheReportsItsCharacters)
{
    for (const PatternRow& row : kPatterns)
        for (std::size_t i = 0; i < kValues.size(); ++i)
            EXPECT_EQ(Format(kValues[i], row.Pattern), row.Texts[i]) << row.Pattern << " of " << kValues[i];
}

struct NumberRow {
    double Value;
    const char* Pattern;
    const char* Text;
};

void ExpectNumbers(const std::vector<NumberRow>& rows)
{
    for (const NumberRow& row : rows)
        EXPECT_EQ(Format(row.Value, row.Pattern), row.Text) << row.Value << " under " << row.Pattern;
}

TEST(Format, RoundsHalvesAwayFromZeroAsTheyAreWritten)
{
    ExpectNumbers({{2.675, "0.00", "2.68"},
                   {-2.675, "0.00", "-2.68"},
                   {1.005, "0.00", "1.01"},
                   {0.5, "0", "1"},
                   {-0.5, "0", "-1"},
                   {1.5, "0", "2"},
                   {2.5, "0", "3"},
                   {0.125, "0.00", "0.13"},
                   {0.045, "0.00", "0.05"},
                   {0.4999999999999, "0", "0"},
                   {1234567.125, "#,##0.00", "1,234,567.13"}});
}

TEST(Format, LooksAtFifteenDigitsOnly)
{
    ExpectNumbers({{0.49999999999999994, "0", "1"},
                   {2.4999999999999996, "0", "3"},
                   {2.49999999999999, "0", "2"},
                   {0.1 + 0.2, "0.000000000000000000", "0.300000000000000000"},
                   {123456789012345678.0, "0", "123456789012346000"}});
}

TEST(Format, CarriesThroughNines)
{
    ExpectNumbers({{9.995, "0.00", "10.00"},
                   {0.9999, "#.000", "1.000"},
                   {0.9994, "#.000", ".999"},
                   {999.995, "#,##0.00", "1,000.00"},
                   {999999.5, "###,###,##0", "1,000,000"},
                   {-99.95, "#0.0", "-100.0"},
                   {0.96, "0.0", "1.0"},
                   {0.06, "0.0", "0.1"}});
}

TEST(Format, BeginsWithThePointWithoutAZeroBeforeIt)
{
    ExpectNumbers({{0.75, "#.0000", ".7500"},
                   {-0.75, "#.0000", "-.7500"},
                   {0, "#.0000", ".0000"},
                   {0, "##.0", ".0"},
                   {0.04, "##.0", ".0"},
                   {0.05, "##.0", ".1"},
                   {1, "#.0000", "1.0000"}});
}

TEST(Format, GivesNoMinusToAResultThatRoundsToZero)
{
    ExpectNumbers({{-0.004, "0.00", "0.00"},
                   {-0.005, "0.00", "-0.01"},
                   {-0.4, "0", "0"},
                   {-0.4, "#", ""},
                   {-0.0, "0.0", "0.0"},
                   {-1e-300, "0.00", "0.00"},
                   {1e-300, "0.00", "0.00"}});
}

TEST(Format, ShowsAllDigitsOfAValueThatIsLargerThanItsPattern)
{
    ExpectNumbers({{12345, "#0.0", "12345.0"},
                   {-12345, "0", "-12345"},
                   {1e20, "#,##0", "100,000,000,000,000,000,000"},
                   {1234.5, "#.0", "1234.5"}});
}

TEST(Format, SetsThousandsApartWhereverTheCommaStandsBetweenDigits)
{
    ExpectNumbers({{999, "#,##0", "999"},
                   {1000, "#,##0", "1,000"},
                   {-1000, "#,##0", "-1,000"},
                   {-999, "#,##0", "-999"},
                   {12345678.9, "####,####0.00", "12,345,678.90"},
                   {12345678.9, "########,0.00", "12,345,678.90"},
                   {1234, "0,000,000", "0,001,234"}});
}

TEST(Format, SetsNoThousandsApartForACommaAtTheEdge)
{
    ExpectNumbers({{1234567, "0,", "1234567"},
                   {1234567, ",0", "1234567"},
                   {1234567, " #0,", " 1234567"},
                   {1234567, " #0,.0", " 1234567.0"}});
}

TEST(Format, KeepsOtherCharactersAndPutsTheMinusBeforeTheDigits)
{
    ExpectNumbers({{5, "    ####0.0", "    5.0"},
                   {-5, "    ####0.0", "    -5.0"},
                   {7.5, "$0.00 each", "$7.50 each"},
                   {2, "0 of 0.", "0 of 2."}});
}

TEST(Format, LeavesOutZerosUnderPlacesThatNeedNone)
{
    ExpectNumbers({{1.5, "0.0##", "1.5"},
                   {1.25, "0.0##", "1.25"},
                   {1, "0.0##", "1.0"},
                   {1, "0.##", "1."},
                   {0.1, "#.##", ".1"}});
}

// A count that lies between two is the lower one, whatever a file brings.
TEST(DecimalPatterns, AreForNoneOneOrTwoDecimals)
{
    constexpr DecimalPatterns kCosts{.Whole = "0", .OnePlace = "0.0", .TwoPlaces = "0.00"};
    for (const double counted : {-3.0, 0.0, 0.5})
        EXPECT_EQ(kCosts.For(counted), "0") << counted;
    for (const double counted : {1.0, 1.5})
        EXPECT_EQ(kCosts.For(counted), "0.0") << counted;
    for (const double counted : {2.0, 2.5, 7.0})
        EXPECT_EQ(kCosts.For(counted), "0.00") << counted;
}

TEST(Format, RefusesWhatIsNoFiniteNumber)
{
    EXPECT_THROW(Format(std::numeric_limits<double>::infinity(), "0.0"), RuntimeError);
    EXPECT_THROW(Format(std::numeric_limits<double>::quiet_NaN(), "0.0"), RuntimeError);
    EXPECT_THROW(PlainText(-std::numeric_limits<double>::infinity()), RuntimeError);
}

struct TextRow {
    const char* Value;
    const char* Pattern;
    const char* Text;
};

TEST(Format, FillsTextPatternsFromTheRight)
{
    const std::vector<TextRow> rows = {{"A", "@@", " A"},
                                       {"AB", "@@", "AB"},
                                       {"", "@@", "  "},
                                       {"A", "&&", "A"},
                                       {"", "&&", ""},
                                       {"7", "   @@    ", "    7    "},
                                       {"12", "   @@    ", "   12    "},
                                       {"7", "         @         ", "         7         "},
                                       {"12", "       @@", "       12"},
                                       {"AB", "@-@", "A-B"},
                                       {"A", "@-@", " -A"}};
    for (const TextRow& row : rows)
        EXPECT_EQ(Format(row.Value, row.Pattern), row.Text) << row.Value << " under " << row.Pattern;
}

TEST(Format, KeepsASurplusOfATextWithoutAnExclamationMark)
{
    EXPECT_EQ(Format("123", "@@"), "123");
    EXPECT_EQ(Format("1234", "  @@)"), "  1234)");
}

TEST(Format, FillsFromTheLeftAfterAnExclamationMarkAndKeepsTheRightmostCharacters)
{
    EXPECT_EQ(Format(" 5", "&!)"), "5)");
    EXPECT_EQ(Format(" 12", "&&!)"), "12)");
    EXPECT_EQ(Format(" 123", "&&&!)"), "123)");
    EXPECT_EQ(Format("7", "&&!)"), "7)");
    EXPECT_EQ(Format("7", "@@!)"), "7 )");
}

TEST(Format, PutsNumbersIntoTextPatternsAsPlainText)
{
    EXPECT_EQ(Format(7, "@@"), " 7");
    EXPECT_EQ(Format(0, "@@@"), "  0");
    EXPECT_EQ(Format(12, "@@@@"), "  12");
    EXPECT_EQ(Format(1.5, "@@@@"), " 1.5");
    EXPECT_EQ(Format(-3, "@@@"), " -3");
}

TEST(PlainText, HasUpToFifteenDigitsAndNoZerosAtItsEnd)
{
    const std::vector<std::pair<double, std::string>> rows = {{0, "0"},
                                                              {-0.0, "0"},
                                                              {5, "5"},
                                                              {-5, "-5"},
                                                              {0.5, "0.5"},
                                                              {-0.5, "-0.5"},
                                                              {12.60, "12.6"},
                                                              {100, "100"},
                                                              {1.0 / 3, "0.333333333333333"},
                                                              {2.0 / 3, "0.666666666666667"},
                                                              {0.1 + 0.2, "0.3"},
                                                              {0.0333333333333333333, "0.0333333333333333"},
                                                              {0.0001, "0.0001"},
                                                              {1234567890.125, "1234567890.125"},
                                                              {123456789012345, "123456789012345"},
                                                              {999999999999999, "999999999999999"}};
    for (const auto& [value, text] : rows)
        EXPECT_EQ(PlainText(value), text);
}

TEST(PlainText, TurnsToAnExponentForVeryLargeAndVerySmallValues)
{
    EXPECT_EQ(PlainText(1e15), "1E+15");
    EXPECT_EQ(PlainText(-1.5e20), "-1.5E+20");
    EXPECT_EQ(PlainText(1234567890123456), "1.23456789012346E+15");
    EXPECT_EQ(PlainText(0.00001), "1E-05");
    EXPECT_EQ(PlainText(1.25e-7), "1.25E-07");
    EXPECT_EQ(PlainText(1e100), "1E+100");
    EXPECT_EQ(PlainText(-1e-5), "-1E-05");
}

TEST(PrintItem, HasABlankOrItsMinusInFrontAndABlankBehind)
{
    EXPECT_EQ(PrintItem(3), " 3 ");
    EXPECT_EQ(PrintItem(-3), "-3 ");
    EXPECT_EQ(PrintItem(0), " 0 ");
    EXPECT_EQ(PrintItem(0.5), " 0.5 ");
    EXPECT_EQ(PrintItem(-0.25), "-0.25 ");
}

TEST(Fields, KeepTheLeftmostCharactersOfALongText)
{
    EXPECT_EQ(FlushRight("12.50", 8), "   12.50");
    EXPECT_EQ(FlushRight("12.50", 5), "12.50");
    EXPECT_EQ(FlushRight("12.50", 3), "12.");
    EXPECT_EQ(FlushRight("", 2), "  ");
    EXPECT_EQ(FlushRight("12.50", 0), "");
    EXPECT_EQ(FlushLeft("AB", 4), "AB  ");
    EXPECT_EQ(FlushLeft("ABCDE", 4), "ABCD");
}

TEST(Fields, BlanksOfNoWidthAreNone)
{
    EXPECT_EQ(Blanks(3), "   ");
    EXPECT_EQ(Blanks(0), "");
    EXPECT_EQ(Blanks(-2), "");
}

TEST(Texts, LoseTheBlanksAtTheirEndsOnly)
{
    EXPECT_EQ(Trimmed("  a b  "), "a b");
    EXPECT_EQ(Trimmed("   "), "");
    EXPECT_EQ(Trimmed(""), "");
}

TEST(Texts, BecomeUpperCaseInTheLettersAToZ)
{
    EXPECT_EQ(UpperCase("abc xyz-1"), "ABC XYZ-1");
    EXPECT_EQ(UpperCase("\xE4"), "\xE4");
}

}  // namespace
