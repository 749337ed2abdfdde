#include "tableau/tanumchk.h"

#include <gtest/gtest.h>

#include "shell/session.h"

TEST(CheckNumber, JudgesTheText)
{
    struct Row {
        const char* text;
        bool number;
        bool point;
        const char* left;  // the text behind the check
    };
    for (const Row& row : {
             Row{"0", true, false, "0"}, Row{"1,000", true, false, "1000"}, Row{",", true, false, ""},
             Row{"-5", true, false, "-5"}, Row{"+5", true, false, "+5"}, Row{"-", true, false, "-"},
             Row{".", true, true, "."}, Row{"-.5", true, true, "-.5"},
             Row{",-5", true, false, "-5"},  // the comma is gone before the sign is looked at
             Row{"1.2.3", false, true, "1.2.3"}, Row{"+-1", false, false, "+-1"},
             Row{"1-", false, false, "1-"}, Row{"1E5", false, false, "1E5"}, Row{" 1", false, false, " 1"},
             Row{"ABC", false, false, "ABC"},
             Row{"1,0X,0", false, false, "10X,0"},  // the walk ends at the first failure
         }) {
        EXPECT_EQ(IsNumeric(row.text), row.number) << row.text;
        EXPECT_EQ(HasDecimalPoint, row.point) << row.text;
        EXPECT_EQ(Session.CheckText, row.left) << row.text;
        EXPECT_FALSE(IsBlank) << row.text;
    }
}

TEST(CheckNumber, ABlankTextIsNoNumber)
{
    EXPECT_FALSE(IsNumeric(""));
    EXPECT_TRUE(IsBlank);
    EXPECT_EQ(Session.IsNumber, "NO");
}
