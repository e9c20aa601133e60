#include "iir/butterworth_prototype.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace trelvanix
{
namespace
{

constexpr double epsilon = std::numeric_limits<double>::epsilon();

TEST(ButterworthPrototype, EndsWithTheRealPoleOfAnOddOrder)
{
    EXPECT_TRUE(ButterworthPrototype(0).poles.empty());
    EXPECT_EQ(ButterworthPrototype(1).poles, std::vector<Complex>{-1.0});
    const std::vector<Complex> three = ButterworthPrototype(3).poles;
    ASSERT_EQ(three.size(), 3U);
    EXPECT_NEAR(three[0].real(), -0.5, epsilon);
    EXPECT_NEAR(three[0].imag(), std::sqrt(0.75), epsilon);
    EXPECT_EQ(three[1], std::conj(three[0]));
    EXPECT_EQ(three[2], Complex(-1.0));
}

TEST(ButterworthPrototype, HasPolesOnTheUnitCircleAndUnitGain)
{
    for (int order = 1; order <= 30; ++order) {
        const AnalogPrototype prototype = ButterworthPrototype(order);
        EXPECT_EQ(prototype.poles.size(), static_cast<std::size_t>(order));
        EXPECT_TRUE(prototype.zeros.empty());
        for (const Complex p : prototype.poles) {
            EXPECT_LT(p.real(), 0.0);
            EXPECT_NEAR(std::abs(p), 1.0, 2 * epsilon);
        }
        EXPECT_NEAR(prototype.gain, 1.0, 2 * order * epsilon);
    }
}

} // namespace
} // namespace trelvanix
