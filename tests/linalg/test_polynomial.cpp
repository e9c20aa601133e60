#include "linalg/polynomial.h"

#include <gtest/gtest.h>

#include <vector>

namespace trelvanix
{
namespace
{

TEST(PolyFromRoots, MultipliesUpFactors)
{
    const Complex roots[] = {1.0, 2.0, -3.0};
    EXPECT_EQ(PolyFromRoots(roots, 0), (std::vector<Complex>{1.0}));
    EXPECT_EQ(PolyFromRoots(roots, 1), (std::vector<Complex>{1.0, -1.0}));
    EXPECT_EQ(PolyFromRoots(roots, 2), (std::vector<Complex>{1.0, -3.0, 2.0}));
    EXPECT_EQ(PolyFromRoots(roots, 3), (std::vector<Complex>{1.0, 0.0, -7.0, 6.0}));
}

TEST(PolyFromRoots, StaysComplexWithoutConjugates)
{
    // (x - j)(x - 2j) = x^2 - 3j x - 2.
    const Complex roots[] = {{0.0, 1.0}, {0.0, 2.0}};
    EXPECT_EQ(PolyFromRoots(roots, 2), (std::vector<Complex>{1.0, {0.0, -3.0}, -2.0}));
}

TEST(PolyFromRoots, MultipliesInArrayOrder)
{
    // (1 + 1e16) - 1e16 rounds to 0, (1e16 - 1e16) + 1 is 1.
    const Complex oneFirst[] = {1.0, 1e16, -1e16};
    const Complex oneLast[] = {1e16, -1e16, 1.0};
    EXPECT_EQ(PolyFromRoots(oneFirst, 3)[1].real(), 0.0);
    EXPECT_EQ(PolyFromRoots(oneLast, 3)[1].real(), -1.0);
}

TEST(ProductOver, MultipliesTheFactorOfEveryValue)
{
    EXPECT_EQ(ProductOver({{0.0, 1.0}, {0.0, -1.0}}, [](Complex x) { return 2.0 - x; }), Complex(5.0));
    EXPECT_EQ(ProductOver({}, [](Complex x) { return x; }), Complex(1.0));
}

TEST(WriteRealPolynomial, ScalesRealParts)
{
    double output[] = {0.0, 0.0, 0.0, 99.0};
    WriteRealPolynomial(-2.0, {{0.0, 1.0}, {0.0, 2.0}}, output);
    EXPECT_EQ(output[0], -2.0);
    EXPECT_EQ(output[1], 0.0);
    EXPECT_EQ(output[2], 4.0);
    EXPECT_EQ(output[3], 99.0);
}

TEST(WriteRealPolynomial, WritesNothingToNull)
{
    WriteRealPolynomial(1.0, {1.0, 2.0}, nullptr);
}

} // namespace
} // namespace trelvanix
