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
        const NumberText number = CheckNumber(row.text);
        EXPECT_EQ(number.IsNumber, row.number) << row.text;
        EXPECT_EQ(number.HasPoint, row.point) << row.text;
        EXPECT_EQ(number.Text, row.left) << row.text;
        EXPECT_FALSE(number.IsBlank) << row.text;
        EXPECT_EQ(Session.CheckText, row.left) << row.text;
        EXPECT_EQ(Session.IsNumber, row.number ? "YES" : "NO") << row.text;
    }
}

TEST(CheckNumber, ABlankTextIsNoNumber)
{
    const NumberText number = CheckNumber("");
    EXPECT_FALSE(number.IsNumber);
    EXPECT_TRUE(number.IsBlank);
    EXPECT_EQ(number.Value(), 0);
    EXPECT_EQ(Session.IsNumber, "NO");
}

TEST(CheckNumber, AFailureMayLeaveTheVerdictPassing)
{
    EXPECT_FALSE(CheckNumber("1X", BehindFailure::Passing).IsNumber);
    EXPECT_EQ(Session.IsNumber, "YES");
    EXPECT_EQ(Session.CheckText, "1X");
}

TEST(CheckNumber, AnEmptyTextThatIsAcceptedKeepsTheLastVerdict)
{
    CheckNumber("1X");
    NoteEmptyText();
    EXPECT_EQ(Session.CheckText, "");
    EXPECT_EQ(Session.IsNumber, "NO");
}
