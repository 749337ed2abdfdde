#include "basic/number.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "basic/error.h"
#include "support/errors.h"

namespace {

struct ValRow {
    const char* Text;
    double Value;
};

TEST(Val, ReadsTheLeadingNumberOfAText)
{
    const std::vector<ValRow> rows = {{"12", 12},     {"-12", -12},    {"+12", 12},     {"12.5", 12.5},
                                      {"-.5", -0.5},  {".5", 0.5},     {"5.", 5},       {"1E3", 1000},
                                      {"1e3", 1000},  {"1.5E+2", 150}, {"25E-2", 0.25}, {"1E", 1},
                                      {"1E+", 1},     {"1EX", 1},      {"1,000", 1},    {"12abc", 12},
                                      {"1.2.3", 1.2}, {"1-2", 1},      {"50%", 50}};
    for (const ValRow& row : rows)
        EXPECT_EQ(Val(row.Text), row.Value) << row.Text;
}

// The C library rounds every numeral rightly; 1 to 20 digits are on both sides of what a double holds
// exactly.
TEST(Val, RoundsEveryNumeralRightly)
{
    std::mt19937 random(17);
    const auto pick = [&random](int count) {
        return std::uniform_int_distribution<int>(0, count - 1)(random);
    };
    for (int round = 0; round < 20000; ++round) {
        std::string numeral(static_cast<std::size_t>(1 + pick(20)), '0');
        for (char& digit : numeral)
            digit = static_cast<char>('0' + pick(10));
        if (pick(4) > 0)
            numeral.insert(static_cast<std::size_t>(pick(static_cast<int>(numeral.size()) + 1)), ".");
        if (pick(3) == 0) numeral.insert(0, "-");
        EXPECT_EQ(Val(numeral), std::strtod(numeral.c_str(), nullptr)) << numeral;
    }
}

TEST(Val, PassesBlanksOver)
{
    EXPECT_EQ(Val(" 1 2"), 12);
    EXPECT_EQ(Val("  - 3 . 5 "), -3.5);
    EXPECT_EQ(Val("\t7\r\n"), 7);
    EXPECT_EQ(Val("1 E 2"), 100);
}

TEST(Val, IsZeroWhereNoNumberStands)
{
    for (const char* text :
         {"", " ", "-", "+", ".", "-.", "abc", "x1", "&H", "&H10", "E5", "--5", "$5", "inf", "nan"})
        EXPECT_EQ(Val(text), 0.0) << text;
}

TEST(Val, OverflowsBeyondADouble)
{
    EXPECT_EQ(ErrorOf([] { Val("1E309"); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { Val("-" + std::string(400, '9')); }), ErrorNumber::Overflow);
    EXPECT_EQ(Val("1E308"), 1e308);
    EXPECT_EQ(Val("1E-400"), 0.0);
}

TEST(Int, IsTheFloor)
{
    EXPECT_EQ(Int(2.7), 2);
    EXPECT_EQ(Int(-2.1), -3);
    EXPECT_EQ(Int(-2), -2);
    EXPECT_EQ(Int(0.99), 0);
}

TEST(WholeNumbers, RoundHalvesToTheEvenOne)
{
    const std::vector<std::pair<double, int>> rows = {{0.5, 0},  {1.5, 2},      {2.5, 2},   {3.5, 4},
                                                      {-0.5, 0}, {-1.5, -2},    {-2.5, -2}, {2.49, 2},
                                                      {2.51, 3}, {2.500001, 3}, {-7, -7},   {1e4, 10000}};
    for (const auto& [value, whole] : rows) {
        EXPECT_EQ(ToInt16(value), whole) << value;
        EXPECT_EQ(ToInt32(value), whole) << value;
    }
}

TEST(WholeNumbers, OverflowOutsideTheirWidth)
{
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_EQ(ToInt16(32767.49), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ErrorOf([] { ToInt16(32767.5); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { ToInt16(-32769); }), ErrorNumber::Overflow);
    EXPECT_EQ(ToInt32(2147483647), 2147483647);
    EXPECT_EQ(ErrorOf([] { ToInt32(2147483647.5); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(-2147483649.0); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { ToInt16(std::numeric_limits<double>::quiet_NaN()); }), ErrorNumber::Overflow);
}

TEST(Divide, FailsInsteadOfGivingAnInfinity)
{
    EXPECT_EQ(Divide(7, 2), 3.5);
    EXPECT_EQ(ErrorOf([] { Divide(1, 0); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(ErrorOf([] { Divide(-1, 0); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(ErrorOf([] { Divide(0, 0); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { Divide(1e300, 1e-300); }), ErrorNumber::Overflow);
}

TEST(SquareRoot, FailsForNegativeNumbers)
{
    EXPECT_EQ(SquareRoot(6.25), 2.5);
    EXPECT_EQ(SquareRoot(0), 0);
    EXPECT_EQ(ErrorOf([] { SquareRoot(-1e-9); }), ErrorNumber::InvalidProcedureCall);
}

TEST(Add16, OverflowsBeyondSixteenBits)
{
    EXPECT_EQ(Add16(32766, 1), 32767);
    EXPECT_EQ(Add16(-32767, -1), -32768);
    EXPECT_EQ(ErrorOf([] { Add16(32767, 1); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { Add16(-32768, -1); }), ErrorNumber::Overflow);
}

TEST(RuntimeError, HasTheTextOfItsNumber)
{
    const std::vector<std::pair<int, std::string>> rows = {{5, "Invalid procedure call or argument"},
                                                           {6, "Overflow"},
                                                           {9, "Subscript out of range"},
                                                           {11, "Division by zero"},
                                                           {13, "Type mismatch"},
                                                           {18, "User interrupt occurred"},
                                                           {53, "File not found"},
                                                           {61, "Disk full"},
                                                           {62, "Input past end of file"},
                                                           {70, "Permission denied"},
                                                           {75, "Path/File access error"},
                                                           {76, "Path not found"},
                                                           {360, "Object already loaded"},
                                                           {32755, "Cancel was selected"}};
    for (const auto& [number, text] : rows) {
        const RuntimeError error(static_cast<ErrorNumber>(number));
        EXPECT_EQ(error.Text(), text);
        EXPECT_EQ(error.what(), text);
    }
}

}  // namespace
