#include "lp/Factors.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

#include "basic/error.h"
#include "support/errors.h"

namespace {

constexpr int kCapacity = 12;

// A basis kept beside its factors, column by column, in the order in which the factors hold it.
struct Pair {
    explicit Pair(int size) : Size(size), Basis(kCapacity, kCapacity)
    {
        Factors.Reset(size, kCapacity);
        for (int i = 1; i <= size; ++i)
            Basis(i, i) = 1;
    }

    // The new column comes last, those behind the leaving one move up.
    void Replace(int leaving, const Array1<double>& column)
    {
        Array1<double> work(kCapacity);
        Factors.Multiply(column.Data(), work.Data());
        Factors.ReplaceColumn(leaving, work.Data());
        for (int i = 1; i <= Size; ++i) {
            for (int c = leaving; c < Size; ++c)
                Basis(i, c) = Basis(i, c + 1);
            Basis(i, Size) = column(i);
        }
    }

    int Size;
    Array2<double> Basis;
    BasisFactors Factors;
};

Array1<double> RandomColumn(std::mt19937& random, int size)
{
    std::uniform_real_distribution<double> entry(-5, 5);
    Array1<double> column(kCapacity);
    for (int i = 1; i <= size; ++i)
        column(i) = entry(random);
    return column;
}

// The largest entry of R B - U, and of U below its diagonal.
double Error(const Pair& pair)
{
    double worst = 0;
    for (int i = 1; i <= pair.Size; ++i)
        for (int j = 1; j <= pair.Size; ++j) {
            double product = 0;
            for (int c = 1; c <= pair.Size; ++c)
                product += pair.Factors.RFactor()(i, c) * pair.Basis(c, j);
            worst = std::max(worst, std::abs(product - pair.Factors.UFactor()(i, j)));
            if (j < i) worst = std::max(worst, std::abs(pair.Factors.UFactor()(i, j)));
        }
    return worst;
}

// A basis after some pivots, each on an entry that is not small.
Pair RandomPair(std::mt19937& random, int size, int pivots)
{
    Pair pair(size);
    while (pivots > 0) {
        const Array1<double> column = RandomColumn(random, size);
        Array1<double> work(kCapacity);
        Array1<double> solution(kCapacity);
        pair.Factors.Multiply(column.Data(), work.Data());
        pair.Factors.Solve(work.Data(), solution.Data());
        const int leaving = std::uniform_int_distribution<int>(1, size)(random);
        if (std::abs(solution(leaving)) < 0.1) continue;
        pair.Replace(leaving, column);
        --pivots;
    }
    return pair;
}

// Three of four are zeros, of both signs.
Array1<double> ColumnOfZeros(std::mt19937& random, int size)
{
    Array1<double> column = RandomColumn(random, size);
    for (int i = 1; i <= size; ++i)
        if (random() % 4 != 0) column(i) = random() % 2 == 0 ? 0.0 : -0.0;
    return column;
}

Array1<double> FullProduct(const BasisFactors& factors, const Array1<double>& column, int size)
{
    Array1<double> product(size);
    for (int i = 1; i <= size; ++i)
        for (int c = 1; c <= size; ++c)
            product(i) += factors.RFactor()(i, c) * column(c);
    return product;
}

Array1<double> FullSolution(const BasisFactors& factors, const Array1<double>& rights, int size)
{
    Array1<double> solution(size);
    for (int r = size; r >= 1; --r) {
        double rest = rights(r);
        for (int c = r + 1; c <= size; ++c)
            rest -= factors.UFactor()(r, c) * solution(c);
        solution(r) = rest / factors.UFactor()(r, r);
    }
    return solution;
}

bool SameBits(const Array1<double>& a, const Array1<double>& b, int size)
{
    for (int i = 1; i <= size; ++i)
        if (std::bit_cast<std::uint64_t>(a(i)) != std::bit_cast<std::uint64_t>(b(i))) return false;
    return true;
}

TEST(Factors, StartAsTheIdentity)
{
    const Pair pair(4);
    EXPECT_EQ(Error(pair), 0);
    EXPECT_EQ(pair.Factors.UFactor()(2, 2), 1);
    EXPECT_EQ(pair.Factors.RFactor()(2, 3), 0);
}

TEST(Factors, RTimesTheBasisIsUAndUIsTriangularAfterEachPivot)
{
    std::mt19937 random(11);
    for (int size = 1; size <= kCapacity; ++size) {
        Pair pair(size);
        for (int pivot = 0; pivot < 40; ++pivot) {
            const Array1<double> column = RandomColumn(random, size);
            pair.Replace(std::uniform_int_distribution<int>(1, size)(random), column);
            if (Error(pair) > 1e6) break;  // a nearly singular basis: nothing to hold it to
            ASSERT_LT(Error(pair), 1e-6) << "size " << size << " pivot " << pivot;
        }
    }
}

// By hand: the basis (e1, e2) loses e1 and takes (2, 1): the columns are now e2 and (2, 1), that is rows
// (0, 2) and (1, 1). The entry 1 below the diagonal's 0 is the larger: the rows change places.
TEST(Factors, RowsChangePlacesWhenTheLowerEntryIsTheLarger)
{
    Pair pair(2);
    Array1<double> column(kCapacity);
    column(1) = 2;
    column(2) = 1;
    pair.Replace(1, column);
    EXPECT_EQ(pair.Factors.UFactor()(1, 1), 1);
    EXPECT_EQ(pair.Factors.UFactor()(1, 2), 1);
    EXPECT_EQ(pair.Factors.UFactor()(2, 2), 2);
    EXPECT_EQ(pair.Factors.RFactor()(1, 2), 1);
    EXPECT_EQ(pair.Factors.RFactor()(2, 1), 1);
    EXPECT_EQ(pair.Factors.RFactor()(1, 1), 0);
}

// Columns and tables full of zeros, against sums that leave nothing out: the same to the last bit.
TEST(Factors, LeavingZerosOutOfSumsChangesNoBit)
{
    std::mt19937 random(17);
    constexpr int kSize = kCapacity;
    int solved = 0;
    for (int round = 0; round < 300; ++round) {
        Pair pair(kSize);
        for (int pivot = 0; pivot < 8; ++pivot) {
            const Array1<double> column = ColumnOfZeros(random, kSize);
            Array1<double> work(kSize);
            pair.Factors.Multiply(column.Data(), work.Data());
            ASSERT_TRUE(SameBits(work, FullProduct(pair.Factors, column, kSize), kSize));
            Array1<double> solution(kSize);
            pair.Factors.Solve(work.Data(), solution.Data());
            ASSERT_TRUE(SameBits(solution, FullSolution(pair.Factors, work, kSize), kSize));
            ++solved;
            const int leaving = std::uniform_int_distribution<int>(1, kSize)(random);
            if (std::abs(solution(leaving)) < 0.1) break;
            pair.Replace(leaving, column);
        }
    }
    EXPECT_GT(solved, 300);
}

TEST(Factors, AreRefusedBeyondTheirLargestSize)
{
    BasisFactors factors;
    factors.Reset(2, BasisFactors::kLargest);
    EXPECT_EQ(factors.UFactor()(2, 2), 1);
    EXPECT_EQ(ErrorOf([&] { factors.Reset(2, BasisFactors::kLargest + 1); }),
              ErrorNumber::SubscriptOutOfRange);
}

TEST(Factors, SolveGivesTheColumnInTermsOfTheBasis)
{
    std::mt19937 random(12);
    for (int round = 0; round < 50; ++round) {
        const int size = 1 + round % kCapacity;
        const Pair pair = RandomPair(random, size, 2 * size);
        const Array1<double> column = RandomColumn(random, size);
        Array1<double> work(kCapacity);
        Array1<double> solution(kCapacity);
        pair.Factors.Multiply(column.Data(), work.Data());
        pair.Factors.Solve(work.Data(), solution.Data());
        for (int i = 1; i <= size; ++i) {
            double sum = 0;
            for (int c = 1; c <= size; ++c)
                sum += pair.Basis(i, c) * solution(c);
            EXPECT_NEAR(sum, column(i), 1e-7);
        }
    }
}

TEST(Factors, TransposedSolveGivesTheMultipliersOfTheRows)
{
    std::mt19937 random(13);
    for (int round = 0; round < 50; ++round) {
        const int size = 1 + round % kCapacity;
        const Pair pair = RandomPair(random, size, 2 * size);
        const Array1<double> costs = RandomColumn(random, size);
        Array1<double> prices(kCapacity);
        Array1<double> duals(kCapacity);
        pair.Factors.SolveTransposed(costs.Data(), prices.Data());
        pair.Factors.MultiplyTransposed(prices.Data(), duals.Data());
        for (int c = 1; c <= size; ++c) {
            double sum = 0;
            for (int i = 1; i <= size; ++i)
                sum += duals(i) * pair.Basis(i, c);
            EXPECT_NEAR(sum, costs(c), 1e-6);
        }
    }
}

// Whoever solves many columns at once must find the same bits: pivots hang on them.
TEST(Factors, ABlockGivesTheSameBitsAsItsColumnsOneByOne)
{
    std::mt19937 random(14);
    for (int round = 0; round < 60; ++round) {
        const int size = 1 + round % kCapacity;
        const int count = 1 + round % 21;
        Pair pair = RandomPair(random, size, size);
        Array2<double> block(kCapacity, 30);
        std::vector<Array1<double>> solutions;
        for (int k = 0; k < count; ++k) {
            Array1<double> column = RandomColumn(random, size);
            if (k % 3 == 0) column(1) = 0;
            for (int i = 1; i <= size; ++i)
                block(i, k) = column(i);
            Array1<double> work(kCapacity);
            pair.Factors.Multiply(column.Data(), work.Data());
            pair.Factors.Solve(work.Data(), column.Data());
            solutions.push_back(column);
        }
        const int firstRow = std::uniform_int_distribution<int>(1, size)(random);
        pair.Factors.SolveBlock(firstRow, count, block);
        for (int i = firstRow; i <= size; ++i)
            for (int k = 0; k < count; ++k)
                ASSERT_EQ(block(i, k), solutions[static_cast<std::size_t>(k)](i));
    }
}

TEST(Factors, AZeroOnTheDiagonalIsADivisionByZero)
{
    Pair pair(2);
    pair.Replace(2, Array1<double>(kCapacity));  // a column of zeros comes last
    Array1<double> work(kCapacity);
    work(2) = 1;
    Array1<double> solution(kCapacity);
    EXPECT_EQ(ErrorOf([&] { pair.Factors.Solve(work.Data(), solution.Data()); }),
              ErrorNumber::DivisionByZero);
    work(2) = 0;
    EXPECT_EQ(ErrorOf([&] { pair.Factors.Solve(work.Data(), solution.Data()); }), ErrorNumber::Overflow);
    Array2<double> block(kCapacity, 0);
    EXPECT_EQ(ErrorOf([&] { pair.Factors.SolveBlock(1, 1, block); }), ErrorNumber::DivisionByZero);
}

TEST(Factors, AColumnOfZerosThatMovesUpCannotBeEliminated)
{
    Pair pair(2);
    pair.Replace(2, Array1<double>(kCapacity));
    Array1<double> column(kCapacity);
    column(1) = 1;
    EXPECT_EQ(ErrorOf([&] { pair.Replace(1, column); }), ErrorNumber::Overflow);
}

}  // namespace
