#include "basic/entrytext.h"

#include <gtest/gtest.h>

namespace {

TEST(EntryText, HasUpTo15Digits)
{
    EXPECT_EQ(EntryText(0.0), "0");
    EXPECT_EQ(EntryText(0.5), "0.5");
    EXPECT_EQ(EntryText(-12.25), "-12.25");
    EXPECT_EQ(EntryText(0.1 + 0.2), "0.3");
}

TEST(EntryText, HasNoExponentHoweverLargeOrSmallTheValue)
{
    EXPECT_EQ(EntryText(0.00006995), "0.00006995");
    EXPECT_EQ(EntryText(1e-12), "0.000000000001");
    EXPECT_EQ(EntryText(-1.5e20), "-150000000000000000000");
}

TEST(EntryText, IsEmptyForAFieldThatWasNeverEntered)
{
    EXPECT_EQ(EntryText(Variant()), "");
}

}  // namespace
