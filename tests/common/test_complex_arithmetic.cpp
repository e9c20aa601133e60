#include "common/complex_arithmetic.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/bits.h"

namespace trelvanix
{
namespace
{

constexpr double inf = std::numeric_limits<double>::infinity();

TEST(Multiply, FollowsTheSchoolFormula)
{
    EXPECT_EQ(Multiply({1.0, 2.0}, {3.0, 4.0}), Complex(-5.0, 10.0));
    EXPECT_EQ(Multiply({0.0, 1.0}, {0.0, 1.0}), Complex(-1.0, 0.0));
}

TEST(Multiply, KeepsNotANumberOfAnInfiniteFactor)
{
    // A repairing product, as C's Annex G has it, would give an infinity here.
    const Complex product = Multiply({inf, inf}, {1.0, 0.0});
    EXPECT_TRUE(std::isnan(product.real()));
    EXPECT_TRUE(std::isnan(product.imag()));
}

TEST(Divide, GivesExactQuotientsWhereTheyAreRepresentable)
{
    EXPECT_EQ(Divide({-5.0, 10.0}, {3.0, 4.0}), Complex(1.0, 2.0));
    EXPECT_EQ(Divide({-5.0, 10.0}, {1.0, 2.0}), Complex(3.0, 4.0));
    EXPECT_EQ(Divide({1.0, 0.0}, {0.0, 2.0}), Complex(0.0, -0.5));
    EXPECT_EQ(Divide({0.0, 1.0}, {-0.5, 0.0}), Complex(0.0, -2.0));
}

TEST(Divide, DoesNotOverflowBetween)
{
    // |y|^2 is far beyond the largest double.
    EXPECT_EQ(Divide({1e300, 1e300}, {1e300, 1e300}), Complex(1.0, 0.0));
    EXPECT_EQ(Divide({1e-300, 0.0}, {0.0, 1e-300}), Complex(0.0, -1.0));
}

TEST(Divide, GivesNotANumberForAZeroDivisor)
{
    const Complex quotient = Divide({1.0, 1.0}, {0.0, 0.0});
    EXPECT_TRUE(std::isnan(quotient.real()));
    EXPECT_TRUE(std::isnan(quotient.imag()));
}

TEST(Divide, GivesNotANumberForAnInfiniteDivisor)
{
    for (const Complex divisor : {Complex(inf, 0.0), Complex(1.0, -inf), Complex(inf, inf)}) {
        const Complex quotient = Divide({1.0, 1.0}, divisor);
        EXPECT_TRUE(std::isnan(quotient.real()));
        EXPECT_TRUE(std::isnan(quotient.imag()));
    }
}

TEST(Square, IsOneMultiplication)
{
    EXPECT_EQ(Square({1.0, 2.0}), Complex(-3.0, 4.0));
    EXPECT_TRUE(std::isnan(Square({inf, inf}).real()));
}

TEST(LoadComplex, ReadsWhatStoreComplexWrote)
{
    double array[] = {0.0, 0.0, 0.0, 0.0};
    StoreComplex(array, 1, {3.0, -4.0});
    EXPECT_EQ(array[2], 3.0);
    EXPECT_EQ(array[3], -4.0);
    EXPECT_EQ(LoadComplex(array, 1), Complex(3.0, -4.0));
    EXPECT_EQ(LoadComplex(array, 0), Complex(0.0, 0.0));
}

} // namespace
} // namespace trelvanix
