#include "iir/order_formulas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "math/elliptic_functions.h"

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

// Decibels of 1 + x^2.
double DecibelsOf(double x)
{
    return 10.0 * std::log10(1.0 + x * x);
}

TEST(ButterworthOrder, IsTheExponentOfTheSelectivity)
{
    // 1 + w^(2n): a ripple of 10 lg 2 decibels at w = 1 and 10 lg (1 + 2^14) decibels at w = 2 for n = 7.
    EXPECT_NEAR(ButterworthOrder(2.0, DecibelsOf(1.0), DecibelsOf(128.0)), 7.0, 1e-13);
}

TEST(ChebyshevOrder, IsTheDegreeOfTheChebyshevPolynomial)
{
    // T_4(2) = 97.
    EXPECT_NEAR(ChebyshevOrder(2.0, DecibelsOf(1.0), DecibelsOf(97.0)), 4.0, 1e-13);
}

TEST(EllipticOrder, SolvesTheDegreeEquation)
{
    for (int order = 1; order <= 12; ++order) {
        const double k1 = 1e-3;
        const double k = EllipticDegree(order, k1);
        // k' of orders above 10 loses digits to 1 - k^2.
        EXPECT_NEAR(EllipticOrder(1.0 / k, DecibelsOf(0.5), DecibelsOf(0.5 / k1)), order, 1e-6 * order);
    }
}

TEST(EllipticOrder, IsInfiniteOrNoneAtTheLimits)
{
    EXPECT_EQ(EllipticOrder(infinity, 1.0, 40.0), 0.0);
    EXPECT_EQ(EllipticOrder(1.0, 1.0, 40.0), infinity);
    EXPECT_TRUE(std::isnan(EllipticOrder(2.0, -1.0, 40.0)));
}

} // namespace
} // namespace trelvanix
