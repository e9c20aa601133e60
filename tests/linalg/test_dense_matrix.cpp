#include "linalg/dense_matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::Samples;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

TEST(MatMul, MultipliesRowsByColumns)
{
    // (1 2 3 / 4 5 6) times (1 0 / 0 1 / 2 -1).
    EXPECT_EQ(MatMul({1, 2, 3, 4, 5, 6}, {1, 0, 0, 1, 2, -1}, 2, 3, 2),
              (std::vector<double>{7, -1, 16, -1}));
}

TEST(MatMul, MakesAnOuterProduct)
{
    EXPECT_EQ(MatMul({1, 2}, {3, 4, 5}, 2, 1, 3), (std::vector<double>{3, 4, 5, 6, 8, 10}));
}

TEST(MatMul, AddsInIncreasingIndex)
{
    // From the other end the 1 would be lost: -1e16 + 1 is -1e16 again.
    EXPECT_EQ(MatMul({1, 1, 1}, {1e16, -1e16, 1}, 1, 3, 1), std::vector<double>{1.0});
    EXPECT_EQ(MatMul({1, 1, 1}, {1, -1e16, 1e16}, 1, 3, 1), std::vector<double>{0.0});
}

TEST(MatMul, GivesZerosForAnEmptyInnerDimension)
{
    EXPECT_EQ(MatMul({}, {}, 1, 0, 2), (std::vector<double>{0.0, 0.0}));
}

TEST(MatInverse, InvertsByHand)
{
    std::vector<double> one = {4.0};
    MatInverse(one, 1);
    EXPECT_EQ(one, std::vector<double>{0.25});

    // Determinant 1: the inverse of (1 2 / 3 7) is (7 -2 / -3 1); every step is exact.
    std::vector<double> two = {1, 2, 3, 7};
    MatInverse(two, 2);
    EXPECT_EQ(two, (std::vector<double>{7, -2, -3, 1}));

    std::vector<double> three = {1, 2, 3, 0, 1, 4, 5, 6, 0};
    MatInverse(three, 3);
    EXPECT_EQ(three, (std::vector<double>{-24, 18, 5, 20, -15, -4, -5, 4, 1}));
}

TEST(MatInverse, LeavesNothingOfAnEmptyMatrix)
{
    std::vector<double> none;
    MatInverse(none, 0);
    EXPECT_TRUE(none.empty());
}

TEST(MatInverse, KeepsFailingWithoutAPivot)
{
    // Its own inverse, but the first pivot is zero and no other is sought.
    std::vector<double> exchange = {0, 1, 1, 0};
    MatInverse(exchange, 2);
    for (const double element : exchange)
        EXPECT_FALSE(std::isfinite(element));
}

TEST(MatInverse, DoesNotDivideTheFirstPivotByItself)
{
    std::vector<double> zero = {0.0};
    MatInverse(zero, 1);
    EXPECT_EQ(zero[0], std::numeric_limits<double>::infinity());
}

TEST(MatInverse, GivesNonFiniteEntriesForASingularMatrix)
{
    std::vector<double> singular = {1, 2, 2, 4};
    MatInverse(singular, 2);
    for (const double element : singular)
        EXPECT_FALSE(std::isfinite(element));
}

TEST(MatInverse, MultipliesBackToTheUnitMatrix)
{
    Samples samples(411);
    for (const int n : {2, 5, 12, 24}) {
        const auto size = static_cast<std::size_t>(n);
        std::vector<double> M = samples.Plain(size * size);
        // Diagonally dominant, so that no pivot is needed and the condition number stays below 10.
        for (std::size_t i = 0; i < size; ++i)
            M[i * size + i] += 2.0 * n;
        std::vector<double> inverse = M;
        MatInverse(inverse, n);
        const std::vector<double> unit = MatMul(M, inverse, n, n, n);
        for (std::size_t i = 0; i < size; ++i)
            for (std::size_t j = 0; j < size; ++j)
                EXPECT_NEAR(unit[i * size + j], i == j ? 1.0 : 0.0, 10.0 * n * epsilon);
    }
}

} // namespace
} // namespace trelvanix
