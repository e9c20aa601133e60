#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "exact_values.h"
#include "math/exponential.h"
#include "math/scaled_rounding.h"

namespace trelvanix
{
namespace
{

using testing::AreSameBits;
using testing::Exact;
using testing::IsClose;
using testing::NearestDouble;
using testing::pairError;
using testing::RandomPairs;

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();

TEST(Hypot, HasTheSpecialValuesOfAnnexF)
{
    for (const double x : {0.0, -0.0, 1.0, nan, -inf}) {
        EXPECT_TRUE(AreSameBits(inf, Hypot(x, inf))) << x;
        EXPECT_TRUE(AreSameBits(inf, Hypot(-inf, x))) << x;
    }
    EXPECT_TRUE(AreSameBits(nan, Hypot(nan, 1.0)));
    EXPECT_TRUE(AreSameBits(nan, Hypot(0.0, nan)));
    EXPECT_TRUE(AreSameBits(0.0, Hypot(-0.0, -0.0)));
    EXPECT_TRUE(AreSameBits(5.0, Hypot(-0.0, -5.0)));
}

TEST(Hypot, IsExactForPythagoreanTriples)
{
    EXPECT_EQ(Hypot(3.0, 4.0), 5.0);
    EXPECT_EQ(Hypot(-20.0, 21.0), 29.0);
    EXPECT_EQ(Hypot(0x3p-1074, 0x4p-1074), 0x5p-1074);
    EXPECT_EQ(Hypot(0x3p1020, -0x4p1020), 0x5p1020);
    EXPECT_EQ(Hypot(0x3p-600, 0x4p-600), 0x5p-600);
}

TEST(Hypot, NeitherOverflowsNorUnderflowsBetween)
{
    EXPECT_EQ(Hypot(largest, 1.0), largest);
    EXPECT_EQ(Hypot(largest, largest), inf);
    NearestDouble nearest;
    for (const double x : {largest, 0x1p1023, 0x1p-1022, 0x1p-1074, 0x1.8p-1073}) {
        for (const double ratio : {1.0, 0.999, 0.25, 0x1p-26, 0x1p-27, 0x1p-53})
            EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_hypot, x, x * ratio), Hypot(x, x * ratio)))
                << x << " " << ratio;
    }
}

// Legs m^2 - n^2 and 2mn of whole numbers, whose hypotenuse m^2 + n^2 is odd and has 54 bits: halfway
// between two doubles. The legs have to be doubles too.
TEST(Hypot, TiesToEven)
{
    NearestDouble nearest;
    int ties = 0;
    for (std::uint64_t n = 1; n < 40000000; n += 1000003) {
        for (std::uint64_t m = 94906267 + n % 2; m < 134217728; m += 3000002) {
            const std::uint64_t hypotenuse = m * m + n * n;
            const auto first = static_cast<double>(m * m - n * n);
            const auto second = static_cast<double>(2 * m * n);
            if (hypotenuse >> 53 != 1 || m * m - n * n >= 1ULL << 53)
                continue;
            const std::uint64_t even = hypotenuse / 2 + (hypotenuse / 2) % 2;
            ASSERT_EQ(hypotenuse % 2, 1U);
            ASSERT_TRUE(AreSameBits(2.0 * static_cast<double>(even), Hypot(first, second)))
                << m << " " << n;
            ASSERT_TRUE(AreSameBits(nearest.Of(mpfr_hypot, second, first), Hypot(second, first)));
            ++ties;
        }
    }
    EXPECT_GT(ties, 20);
}

// One leg a power of two: 2^k (1 + e^2 / 2 - e^4 / 8) for a ratio e of 2^-26 is 2^-107 beside the
// middle.
TEST(Hypot, DecidesByExactArithmetic)
{
    for (const double scale : {1.0, 0x1p1000, 0x1p-1000}) {
        const double longer = scale, shorter = scale * 0x1p-26;
        EXPECT_EQ(Hypot(longer, shorter), longer);
        EXPECT_EQ(Hypot(longer, std::nextafter(shorter, inf)), longer * (1.0 + 0x1p-52));
    }
    const Pair sum = TwoSum(1.0, 0x1p-52);
    EXPECT_FALSE(RoundScaled({Sqrt(sum), 0}, 0x1p-102));
}

// sqrt(m^4 + m^2) = m^2 + 1/2 - 1/(8 m^2): subnormal numbers of almost all bits, beside the middle.
TEST(Hypot, DecidesSubnormalResultsByExactArithmetic)
{
    for (const double m : {30000001.0, 40000003.0, 47453133.0, 60000001.0}) {
        const double square = m * m * 0x1p-1074;
        EXPECT_EQ(Hypot(square, m * 0x1p-1074), square) << m;
    }
}

TEST(Hypot, GivesTheNearestDouble)
{
    RandomPairs random(23);
    NearestDouble nearest;
    for (int i = 0; i < 3000; ++i) {
        const double x = random.Magnitude(i % 2 == 0 ? -1074.0 : -1.0, i % 2 == 0 ? 1023.9 : 1.0).high;
        const double y = x * random.Magnitude(-56.0, 0.0).high;
        ASSERT_TRUE(AreSameBits(nearest.Of(mpfr_hypot, x, y), Hypot(x, -y))) << x << " " << y;
        const double a = random.Uniform(0.0, 0x1p-1040), b = random.Uniform(0.0, 0x1p-1040);
        ASSERT_TRUE(AreSameBits(nearest.Of(mpfr_hypot, a, b), Hypot(a, b))) << a << " " << b;
    }
}

TEST(HypotOfPairs, IsExactToTheBound)
{
    RandomPairs random(29);
    for (int i = 0; i < 500; ++i) {
        const Pair x = random.Magnitude(-890.0, 999.0);
        const Pair y = random.WithLowPart(x.high * random.Uniform(-1.0, 1.0));
        Exact first(x), second(y), expected;
        mpfr_hypot(expected.Get(), first.Get(), second.Get(), MPFR_RNDN);
        ASSERT_TRUE(IsClose(Hypot(x, y), expected, pairError)) << x.high << " " << y.high;
    }
}

TEST(HypotOfPairs, HasTheSpecialValuesOfDoubles)
{
    EXPECT_EQ(Hypot(Pair{0.0, 0.0}, Pair{-0.0, 0.0}), (Pair{0.0, 0.0}));
    EXPECT_EQ(Hypot(Pair{inf, 0.0}, Pair{nan, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Hypot(Pair{largest, 0.0}, Pair{largest, 0.0}), (Pair{inf, 0.0}));
    EXPECT_TRUE(std::isnan(Hypot(Pair{1.0, 0.0}, Pair{nan, 0.0}).high));
    EXPECT_EQ(Hypot(Pair{3.0, 0.0}, Pair{-4.0, 0.0}), (Pair{5.0, 0.0}));
}

} // namespace
} // namespace trelvanix
