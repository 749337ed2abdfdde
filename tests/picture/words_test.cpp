#include "picture/words.h"

#include <gtest/gtest.h>

using namespace picture;

TEST(Counted, IsSingularForOneOnly)
{
    EXPECT_EQ(Counted(0, "unit"), "0 units");
    EXPECT_EQ(Counted(1, "unit"), "1 unit");
    EXPECT_EQ(Counted(2, "leaf", "leaves"), "2 leaves");
}

TEST(OneOrMany, ChoosesByTheCount)
{
    EXPECT_EQ(OneOrMany(1, "has", "have"), "has");
    EXPECT_EQ(OneOrMany(0, "has", "have"), "have");
    EXPECT_EQ(OneOrMany(7, "has", "have"), "have");
}

TEST(Listed, JoinsWithCommasAndAnAnd)
{
    EXPECT_EQ(Listed({}), "none");
    EXPECT_EQ(Listed({"A"}), "A");
    EXPECT_EQ(Listed({"A", "B"}), "A and B");
    EXPECT_EQ(Listed({"A", "B", "C"}), "A, B and C");
    EXPECT_EQ(Listed({"A", "B", "C", "D"}, 2), "A, B and 2 more");
}

TEST(Percent, MovesThePoint)
{
    EXPECT_EQ(Percent("0.5155"), "51.55 %");
    EXPECT_EQ(Percent(".5155"), "51.55 %");
    EXPECT_EQ(Percent("0.05"), "5 %");
    EXPECT_EQ(Percent("1.0000"), "100.00 %");
    EXPECT_EQ(Percent("0.5"), "50 %");
    EXPECT_EQ(Percent("0.0012"), "0.12 %");
}

TEST(SortByKind, KeepsTheOrderWithinAKind)
{
    std::vector<picture::Sentence> sentences{{picture::SentenceKind::Caution, "c"},
                                             {picture::SentenceKind::Result, "a"},
                                             {picture::SentenceKind::Limit, "l"},
                                             {picture::SentenceKind::Result, "b"}};
    picture::SortByKind(sentences);
    std::string order;
    for (const picture::Sentence& sentence : sentences)
        order += sentence.Text;
    EXPECT_EQ(order, "ablc");
}

TEST(Capital, BeginsASentence)
{
    EXPECT_EQ(picture::Capital("limit 1"), "Limit 1");
    EXPECT_EQ(picture::Capital("X1"), "X1");
    EXPECT_EQ(picture::Capital("1 limit"), "1 limit");
    EXPECT_EQ(picture::Capital(""), "");
}

TEST(Filled, FillsEachHoleOnce)
{
    EXPECT_EQ(picture::Filled("{a} and {b}, not {a}", {{"a", "1"}, {"b", "{c}"}, {"d", "4"}}),
              "1 and {c}, not {a}");
}

TEST(PercentOf, IsNeverNothingOrAllWhereItIsNot)
{
    EXPECT_EQ(PercentOf(0, 4), "0.00 %");
    EXPECT_EQ(PercentOf(0.00001, 4), "less than 0.01 %");
    EXPECT_EQ(PercentOf(0.5155, 4), "51.55 %");
    EXPECT_EQ(PercentOf(0.99999, 4), "more than 99.99 %");
    EXPECT_EQ(PercentOf(1, 4), "100.00 %");
}

TEST(Chance, IsNeverCertainWhereItIsNot)
{
    EXPECT_EQ(Chance(0, 4), "0.0000");
    EXPECT_EQ(Chance(0.00001, 4), "below 0.0001");
    EXPECT_EQ(Chance(0.99999, 4), "more than 0.9999");
    EXPECT_EQ(Chance(1, 4), "1.0000");
    EXPECT_EQ(Chance(0.25, 2), "0.25");
}
