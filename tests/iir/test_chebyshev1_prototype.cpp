#include "iir/chebyshev1_prototype.h"

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

TEST(Cheb1Prototype, HasOneRealPoleForOrderOne)
{
    // sinh(asinh(1 / eps)) = 1 / eps, and 10 lg 2 decibels make eps = 1.
    const AnalogPrototype prototype = Cheb1Prototype(1, 10.0 * std::log10(2.0));
    ASSERT_EQ(prototype.poles.size(), 1U);
    EXPECT_NEAR(prototype.poles[0].real(), -1.0, 4 * epsilon);
    EXPECT_EQ(prototype.poles[0].imag(), 0.0);
    EXPECT_NEAR(prototype.gain, 1.0, 4 * epsilon);
}

TEST(Cheb1Prototype, HasConjugatesToTheLastBitAndARealMiddle)
{
    for (int order = 1; order <= 25; ++order) {
        const std::vector<Complex> poles = Cheb1Prototype(order, 0.5).poles;
        for (std::size_t i = 0; i < poles.size(); ++i)
            EXPECT_EQ(poles[i], std::conj(poles[poles.size() - 1 - i])) << order;
    }
}

TEST(Cheb1Prototype, RipplesBetweenOneAndTheRipple)
{
    // |H(j w)|^2 = 1 / (1 + eps^2 cos^2(n acos w)) up to w = 1.
    const double rp = 1.0;
    const double eps = std::sqrt(std::pow(10.0, 0.1 * rp) - 1.0);
    for (int order = 1; order <= 10; ++order) {
        const AnalogPrototype prototype = Cheb1Prototype(order, rp);
        for (int i = 0; i <= 20; ++i) {
            const double w = i / 20.0;
            const double cosine = std::cos(order * std::acos(w));
            const double got = std::abs(prototype.gain / ProductFromRoots(prototype.poles, {0.0, w}));
            // The distance from a pole is at least 0.01 for these orders: relative error 100 n epsilon.
            EXPECT_NEAR(got, 1.0 / std::sqrt(1.0 + eps * eps * cosine * cosine), 200 * order * epsilon);
        }
    }
}

} // namespace
} // namespace trelvanix
