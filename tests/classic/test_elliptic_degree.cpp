#include "classic/elliptic_degree.h"

#include <gtest/gtest.h>

#include <cmath>

#include "math/elliptic_functions.h"
#include "support/bits.h"

namespace trelvanix
{
namespace
{

using testing::SameBits;

TEST(SelectivityModulus, FindsAModulusAgainFromItsOwnNome)
{
    // The two series differ from 1 by q^2 and 2 q, which is 6e-6 here.
    EXPECT_NEAR(SelectivityByNome(1, 0.01), 0.01, 1e-12);
}

TEST(SelectivityModulus, KeepsTheNthPowerOfTheNomeForTinyModuli)
{
    // Where the root of the nome belongs: right for N = 1 alone. q = k1^2 / 16 + ..., k = 4 sqrt(q).
    const double k1 = 1e-8;
    EXPECT_NEAR(SelectivityModulus(1, k1), k1, 1e-13 * k1);
    const double q = std::pow(k1 * k1 / 16.0, 3.0);
    EXPECT_NEAR(SelectivityModulus(3, k1) / (4.0 * std::sqrt(q)), 1.0, 1e-12);
    EXPECT_TRUE(SameBits(SelectivityModulus(4, 9.99e-7), SelectivityByNome(4, 9.99e-7)));
}

TEST(SelectivityModulus, IsThatOfTheDegreeEquationFromOneMillionthOn)
{
    EXPECT_TRUE(SameBits(SelectivityModulus(5, 1e-6), EllipticDegree(5, 1e-6)));
    EXPECT_TRUE(SameBits(SelectivityModulus(5, 0.3), EllipticDegree(5, 0.3)));
}

TEST(SelectivityModulus, IsNotANumberWithoutADiscriminationModulus)
{
    EXPECT_TRUE(std::isnan(SelectivityModulus(3, 0.0)));
}

} // namespace
} // namespace trelvanix
