#include "basic/array.h"

#include <gtest/gtest.h>

#include "basic/error.h"
#include "basic/variant.h"

namespace {

template <typename Action>
void ExpectOutOfRange(Action action)
{
    try {
        action();
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
    }
}

TEST(Array1, HasElementsFromZeroToItsUpperBound)
{
    Array1<double> row(3);
    EXPECT_EQ(row.Upper(), 3);
    for (int i = 0; i <= 3; ++i)
        EXPECT_EQ(row(i), 0.0);
    row(3) = 7;
    EXPECT_EQ(row.Data()[3], 7);
    row.Fill(2);
    EXPECT_EQ(row(0), 2);
}

TEST(Array1, RefusesIndicesOutside)
{
    Array1<int> row(3);
    ExpectOutOfRange([&] { row(4) = 1; });
    ExpectOutOfRange([&] { row(-1) = 1; });
    const Array1<int> none;
    EXPECT_EQ(none.Upper(), -1);
    ExpectOutOfRange([&] { static_cast<void>(none(0)); });
}

TEST(Array2, HasRowsAndColumnsFromZero)
{
    Array2<int> table(2, 3);
    EXPECT_EQ(table.UpperRow(), 2);
    EXPECT_EQ(table.UpperColumn(), 3);
    for (int row = 0; row <= 2; ++row)
        for (int column = 0; column <= 3; ++column)
            table(row, column) = 10 * row + column;
    EXPECT_EQ(table(1, 3), 13);
    EXPECT_EQ(table(2, 0), 20);
    EXPECT_EQ(table.Row(2)[3], 23);
    EXPECT_EQ(table.Row(1) + table.Stride(), table.Row(2));
}

TEST(Array2, RefusesIndicesOutsideOfEitherBound)
{
    Array2<int> table(2, 3);
    ExpectOutOfRange([&] { table(3, 0) = 1; });
    ExpectOutOfRange([&] { table(0, 4) = 1; });
    ExpectOutOfRange([&] { table(-1, 0) = 1; });
    ExpectOutOfRange([&] { table(0, -1) = 1; });
    const Array2<int> none;
    EXPECT_EQ(none.UpperRow(), -1);
    EXPECT_EQ(none.UpperColumn(), -1);
    ExpectOutOfRange([&] { static_cast<void>(none(0, 0)); });
}

TEST(Variant, IsEmptyUntilItHoldsANumber)
{
    Variant value;
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_EQ(value.Value(), 0.0);
    EXPECT_EQ(value.Text(), "");
    value = 0;
    EXPECT_FALSE(value.IsEmpty());
    EXPECT_EQ(value.Text(), "0");
    value = 12.5;
    EXPECT_EQ(value.Value(), 12.5);
    EXPECT_EQ(value.Text(), "12.5");
}

TEST(Variant, EmptyIsNotTheSameAsZero)
{
    EXPECT_NE(Variant(), Variant(0));
    EXPECT_EQ(Variant(), Variant());
    EXPECT_EQ(Variant(2), Variant(2));
}

}  // namespace
