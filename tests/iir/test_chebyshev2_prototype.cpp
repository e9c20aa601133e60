#include "iir/chebyshev2_prototype.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "support/frequency_response.h"

namespace trelvanix
{
namespace
{

using testing::ProductFromRoots;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

TEST(Cheb2Prototype, HasNoZeroForOrderOne)
{
    // 10 lg 2 decibels make delta = 1: the pole is -1 and so is the type I pole.
    const AnalogPrototype prototype = Cheb2Prototype(1, 10.0 * std::log10(2.0));
    EXPECT_TRUE(prototype.zeros.empty());
    ASSERT_EQ(prototype.poles.size(), 1U);
    EXPECT_NEAR(prototype.poles[0].real(), -1.0, 4 * epsilon);
    EXPECT_NEAR(prototype.gain, 1.0, 4 * epsilon);
}

TEST(Cheb2Prototype, SkipsTheZeroAtInfinityOfOddOrders)
{
    for (int order = 1; order <= 15; ++order) {
        const std::vector<Complex> zeros = Cheb2Prototype(order, 40.0).zeros;
        EXPECT_EQ(zeros.size(), static_cast<std::size_t>(order - order % 2)) << order;
        for (const Complex z : zeros)
            EXPECT_LT(std::abs(z), 1e3);
    }
}

TEST(Cheb2Prototype, LetsEachZeroBeFollowedByItsConjugate)
{
    for (int order = 2; order <= 15; ++order) {
        const std::vector<Complex> zeros = Cheb2Prototype(order, 40.0).zeros;
        for (std::size_t i = 0; i < zeros.size(); i += 2) {
            EXPECT_EQ(zeros[i].real(), 0.0);
            // The cosines of mirrored angles differ by the rounding of the angle, which the tangent of
            // the angle magnifies where the cosine is small.
            const double v = 3.141592653589793 * static_cast<double>(i + 1) / (2.0 * order);
            EXPECT_NEAR(zeros[i].imag() * std::cos(v), 1.0, 8 * epsilon * (1.0 + std::tan(v)));
            EXPECT_NEAR(zeros[i].imag(), -zeros[i + 1].imag(),
                        8 * epsilon * (1.0 + std::tan(v)) * zeros[i].imag());
        }
    }
}

TEST(Cheb2Prototype, RipplesBelowTheAttenuation)
{
    // |H(j w)|^2 = 1 / (1 + 1 / (d^2 cos^2(n acos(1 / w)))) for w >= 1, d = 1 / sqrt(10^(rs/10) - 1).
    const double rs = 40.0;
    const double d = 1.0 / std::sqrt(std::pow(10.0, 0.1 * rs) - 1.0);
    for (int order = 1; order <= 10; ++order) {
        const AnalogPrototype prototype = Cheb2Prototype(order, rs);
        for (int i = 0; i <= 20; ++i) {
            const double w = 1.0 + i / 7.0;
            const double t = d * std::cos(order * std::acos(1.0 / w));
            const Complex s(0.0, w);
            const double got = std::abs(prototype.gain * ProductFromRoots(prototype.zeros, s) /
                                        ProductFromRoots(prototype.poles, s));
            // The expected value is at most 0.01, the distance from a zero changes it by order / w.
            EXPECT_NEAR(got, std::fabs(t) / std::sqrt(1.0 + t * t), 100 * order * epsilon);
        }
        EXPECT_NEAR(std::abs(prototype.gain * ProductFromRoots(prototype.zeros, 0.0) /
                             ProductFromRoots(prototype.poles, 0.0)),
                    1.0, 20 * order * epsilon);
    }
}

} // namespace
} // namespace trelvanix
