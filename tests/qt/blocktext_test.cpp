#include "qt/blocktext.h"

#include <gtest/gtest.h>

namespace {

using qt::BlockText;
using qt::ReadBlock;
using qt::WriteBlock;

TEST(BlockText, CellsArePartedByTabsAndRowsByLineEndsOfAnySystem)
{
    const BlockText block = {{"1", "2"}, {"3", "4"}};
    EXPECT_EQ(ReadBlock("1\t2\n3\t4"), block);
    EXPECT_EQ(ReadBlock("1\t2\r\n3\t4\r\n"), block);
    EXPECT_EQ(ReadBlock("1\t2\r3\t4\r"), block);
}

TEST(BlockText, OnlyTheLastLineEndBeginsNoFurtherRow)
{
    EXPECT_EQ(ReadBlock("1\n\n"), (BlockText{{"1"}, {""}}));
    EXPECT_EQ(ReadBlock("\n"), (BlockText{{""}}));
    EXPECT_TRUE(ReadBlock("").isEmpty());
}

TEST(BlockText, EmptyCellsAndRowsOfOtherLengthsAreKept)
{
    EXPECT_EQ(ReadBlock("\t1\t\n2\n"), (BlockText{{"", "1", ""}, {"2"}}));
    EXPECT_EQ(qt::ColumnsOf(ReadBlock("\t1\t\n2\n")), 3);
}

TEST(BlockText, ACellInQuotesMayHoldWhatPartsCells)
{
    EXPECT_EQ(ReadBlock("\"a\tb\"\t\"c\nd\"\n"), (BlockText{{"a\tb", "c\nd"}}));
    EXPECT_EQ(ReadBlock("\"say \"\"so\"\"\"\t1"), (BlockText{{"say \"so\"", "1"}}));
    EXPECT_EQ(ReadBlock("\"\"\t1"), (BlockText{{"", "1"}}));
    EXPECT_EQ(ReadBlock("5\"\t1"), (BlockText{{"5\"", "1"}}));
}

TEST(BlockText, AQuoteThatNothingClosesIsACharacter)
{
    EXPECT_EQ(ReadBlock("\"1\t2\n"), (BlockText{{"\"1", "2"}}));
}

TEST(BlockText, WhatIsWrittenReadsBackTheSame)
{
    for (const BlockText& block :
         {BlockText{{"1"}}, BlockText{{""}}, BlockText{{"", ""}}, BlockText{{"1", ""}, {"", ""}},
          BlockText{{"1"}, {""}}, BlockText{{"a\tb", "\"q\"", "c\nd"}, {"x", "y", "z"}}})
        EXPECT_EQ(ReadBlock(WriteBlock(block)), block) << WriteBlock(block).toStdString();
    EXPECT_EQ(WriteBlock({{"1"}}), "1");
}

TEST(BlockText, ATableHasARowForEachRowAndNothingThatItsCellsCouldOpen)
{
    EXPECT_EQ(qt::WriteHtml({{"1", "<"}, {"&", ""}}),
              "<table><tr><td>1</td><td>&lt;</td></tr><tr><td>&amp;</td><td></td></tr></table>");
}

}  // namespace
