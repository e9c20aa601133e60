#include "math/bessel_i0.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/bits.h"
#include "support/plain_windows.h"

namespace trelvanix
{
namespace
{

using testing::PlainBesselI0;
using testing::SameBits;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

const BesselI0 I0;

TEST(BesselI0, MatchesTheExactFunction)
{
    EXPECT_EQ(I0(0.0), 1.0);
    // The exact values are of 30 digits; 25 positive terms have at most eight roundings each.
    EXPECT_NEAR(I0(1.0), 1.26606587775200833559824462521, 8 * epsilon * 1.3);
    EXPECT_NEAR(I0(5.0), 27.2398718236044468945442320759, 8 * epsilon * 27.3);
    EXPECT_NEAR(I0(7.0), 168.593908510289698857326627187, 8 * epsilon * 168.6);
    for (int i = 0; i <= 96; ++i) {
        const double x = i / 8.0;
        const auto exact = static_cast<double>(std::cyl_bessel_i(0.0L, static_cast<long double>(x)));
        EXPECT_NEAR(I0(x), exact, 8 * epsilon * exact) << x;
    }
}

TEST(BesselI0, SumsTwentyFiveTerms)
{
    // Where the series has not converged the number of terms shows: sum of (100^k / k!)^2, k < 25.
    long double sum = 0.0L;
    long double term = 1.0L;
    for (int k = 0; k < 25; ++k) {
        sum += term;
        term *= (100.0L / (k + 1)) * (100.0L / (k + 1));
    }
    const auto expected = static_cast<double>(sum);
    EXPECT_NEAR(I0(200.0), expected, 8 * epsilon * expected);
}

TEST(BesselI0, HasTheBitsOfAllTwentyFiveTerms)
{
    for (int i = 0; i <= 30000; ++i) {
        const double x = i / 1024.0;
        ASSERT_TRUE(SameBits(PlainBesselI0(x), I0(x))) << x;
    }
    for (const double x :
         {1e-300, 1e-160, 1e-9, 1e5, 1e6, 1e12, 1e160, -3.0, -0.0,
          std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_TRUE(SameBits(PlainBesselI0(x), I0(x))) << x;
}

} // namespace
} // namespace trelvanix
