#include "fir/order_estimate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(LowpassOrderEstimate, WorkedByHand)
{
    // log10: -2 and -3. D = (-0.4278 + 1.4283) - 2 (-0.5941 - 0.21342) + 4 (-0.00266 - 0.015927)
    //       = 1.0005 + 1.61504 - 0.074348 = 2.541192; f(K) = 11.01217 + 0.51244 = 11.52461.
    const double expected = 2.541192 / 0.05 - 11.52461 * 0.05 + 1.0;
    EXPECT_NEAR(expected, 51.2476, 5e-5);
    // Ten roundings of numbers up to 51, 0.05 itself being a difference of rounded edges.
    EXPECT_NEAR(LowpassOrderEstimate(0.25, 0.2, 0.01, 0.001), expected, 51 * 10 * 2.3e-16 * 10);
}

TEST(LowpassOrderEstimate, EdgesComeInAnyOrder)
{
    EXPECT_EQ(LowpassOrderEstimate(0.25, 0.2, 0.01, 0.001),
              LowpassOrderEstimate(0.2, 0.25, 0.01, 0.001));
}

TEST(LowpassOrderEstimate, IsNotFiniteWhereTheFormulaIsNot)
{
    EXPECT_EQ(LowpassOrderEstimate(0.2, 0.2, 0.01, 0.001), infinity);
    EXPECT_FALSE(std::isfinite(LowpassOrderEstimate(0.25, 0.2, 0.0, 0.001)));
    EXPECT_TRUE(std::isnan(LowpassOrderEstimate(0.25, 0.2, -0.01, 0.001)));
    EXPECT_TRUE(std::isnan(LowpassOrderEstimate(nan, 0.2, 0.01, 0.001)));
}

} // namespace
} // namespace trelvanix
