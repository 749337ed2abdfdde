#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "inventory/InventoryPolicy.h"

using VtInvent::NormalAreaTable;

namespace {

double TrueArea(int row)
{
    const double z = (row - 1) / 100.0;
    return std::erf(z / std::sqrt(2.0)) / 2;
}

// Rows that are kept as they were set.
const std::map<int, double>& KeptRows()
{
    static const std::map<int, double> rows = [] {
        std::map<int, double> kept{{69, .2518},  {72, .2612},  {157, .4409}, {239, .4911}, {254, .4941},
                                   {277, .4671}, {280, .4973}, {281, .4973}, {282, .4975}};
        for (int row = 283; row <= 285; ++row)
            kept[row] = .4976;
        for (int row = 286; row <= 288; ++row)
            kept[row] = .4978;
        for (int row = 289; row <= 293; ++row)
            kept[row] = .4980;
        for (int row = 294; row <= 310; ++row)
            kept[row] = .4983;
        return kept;
    }();
    return rows;
}

}  // namespace

TEST(NormalAreas, HaveRowsUpTo310AndAnUnusedRowZero)
{
    EXPECT_EQ(NormalAreaTable().Upper(), 310);
    EXPECT_EQ(NormalAreaTable()(0), 0.0);
}

TEST(NormalAreas, StandAsInACommonTable)
{
    EXPECT_EQ(NormalAreaTable()(1), 0.0);
    EXPECT_EQ(NormalAreaTable()(2), .0040);
    EXPECT_EQ(NormalAreaTable()(6), .0199);
    EXPECT_EQ(NormalAreaTable()(11), .0398);
    EXPECT_EQ(NormalAreaTable()(101), .3413);
    EXPECT_EQ(NormalAreaTable()(197), .4750);
}

TEST(NormalAreas, AgreeWithTheErrorFunctionToFourDecimals)
{
    for (int row = 1; row <= 310; ++row) {
        if (KeptRows().contains(row)) continue;
        EXPECT_NEAR(NormalAreaTable()(row), TrueArea(row), .00005 + 1e-12) << "row " << row;
    }
}

TEST(NormalAreas, KeepTheRowsThatDifferFromOtherTables)
{
    for (const auto& [row, area] : KeptRows())
        EXPECT_EQ(NormalAreaTable()(row), area) << "row " << row;
}

TEST(NormalAreas, DipOnceAndNeverExceedTheLastRow)
{
    std::set<int> dips;
    for (int row = 2; row <= 310; ++row) {
        if (NormalAreaTable()(row) < NormalAreaTable()(row - 1)) dips.insert(row);
        EXPECT_LE(NormalAreaTable()(row), NormalAreaTable()(310));
    }
    EXPECT_EQ(dips, std::set<int>{277});
}
