#include "fir/ideal_response.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "support/bits.h"
#include "support/plain_windows.h"
#include "support/samples.h"

namespace trelvanix
{
namespace
{

using testing::HasSameBits;
using testing::IsNear;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

TEST(ImpulseResponse, HasTheBandwidthAtItsCentre)
{
    const double pi = 3.141592653589793;
    EXPECT_EQ(LowPassImpulse(5, 0.25 * pi)[2], 0.25);
    EXPECT_EQ(HighPassImpulse(5, 0.25 * pi)[2], 0.75);
    EXPECT_EQ(BandPassImpulse(5, 0.25 * pi, 0.75 * pi)[2], 0.5);
    EXPECT_EQ(BandStopImpulse(5, 0.25 * pi, 0.75 * pi)[2], 0.5);
}

TEST(ImpulseResponse, IsASincForTheLowpass)
{
    const double pi = std::acos(-1.0);
    // sin(pi t / 2) / (pi t), t = -2 .. 2
    EXPECT_TRUE(
        IsNear({0.0, 1.0 / pi, 0.5, 1.0 / pi, 0.0}, LowPassImpulse(5, 0.5 * pi).data(), epsilon));
}

TEST(ImpulseResponse, SplitsTheUnitImpulseBetweenComplementaryFilters)
{
    const double w1 = 0.2 * std::acos(-1.0);
    const double w2 = 0.7 * std::acos(-1.0);
    const std::vector<double> low = LowPassImpulse(31, w1);
    const std::vector<double> high = HighPassImpulse(31, w1);
    const std::vector<double> pass = BandPassImpulse(31, w1, w2);
    const std::vector<double> stop = BandStopImpulse(31, w1, w2);
    for (std::size_t n = 0; n < 31; ++n) {
        const double impulse = n == 15 ? 1.0 : 0.0;
        EXPECT_NEAR(low[n] + high[n], impulse, 4 * epsilon);
        EXPECT_NEAR(pass[n] + stop[n], impulse, 4 * epsilon);
    }
}

TEST(ImpulseResponse, HasTheBitsOfEverySampleByItself)
{
    const double pi = 3.141592653589793;
    testing::Samples samples(521);
    for (int N = 1; N <= 300; ++N) {
        const double omega1 = pi * std::abs(samples.Next());
        const double omega2 = pi * std::abs(samples.Next());
        // Equal edges cancel to zeros of either sign; pi and its half make sines that nearly vanish.
        for (const auto& [w1, w2] :
             {std::pair(omega1, omega2), std::pair(omega1, omega1), std::pair(0.5 * pi, pi),
              std::pair(std::numeric_limits<double>::denorm_min(), 1e-308), std::pair(0.0, -0.0),
              std::pair(omega1, std::numeric_limits<double>::quiet_NaN())}) {
            for (const auto& [type, h] : {std::pair(FilterType::LowPass, LowPassImpulse(N, w1)),
                                          std::pair(FilterType::HighPass, HighPassImpulse(N, w1)),
                                          std::pair(FilterType::BandPass, BandPassImpulse(N, w1, w2)),
                                          std::pair(FilterType::BandStop, BandStopImpulse(N, w1, w2))})
                ASSERT_TRUE(HasSameBits(testing::PlainImpulseResponse(N, w1, w2, type), h.data()))
                    << N << ' ' << w1 << ' ' << w2 << ' ' << static_cast<int>(type);
        }
    }
}

TEST(ImpulseResponse, RefusesANegativeLength)
{
    EXPECT_THROW(LowPassImpulse(-1, 1.0), std::length_error);
}

} // namespace
} // namespace trelvanix
