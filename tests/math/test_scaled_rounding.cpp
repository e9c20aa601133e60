#include "math/scaled_rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

namespace trelvanix
{
namespace
{

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double bound = 0x1p-98;

TEST(PowerOfTwo, HasTheRangeOfNormalNumbers)
{
    for (int exponent = -1022; exponent <= 1023; ++exponent)
        ASSERT_EQ(PowerOfTwo(exponent), std::ldexp(1.0, exponent));
}

TEST(ScaleByPowerOfTwo, RoundsOnceAtMost)
{
    for (const double x : {1.0, -1.75, 0x1.fffffffffffffp0, 0x1.0000000000001p0}) {
        for (const int exponent : {-2000, -1080, -1075, -1074, -1060, -1022, 0, 1, 1023, 1024, 2000})
            ASSERT_EQ(ScaleByPowerOfTwo(x, exponent), std::ldexp(x, exponent)) << x << " " << exponent;
    }
}

TEST(RoundScaled, RoundsAnExactMiddleAsUndecided)
{
    EXPECT_EQ(RoundScaled({{1.0, 0x1p-53}, 0}, bound), std::nullopt);
    EXPECT_EQ(RoundScaled({{1.0, 0x1p-53 - 0x1p-90}, 0}, bound), 1.0);
    EXPECT_EQ(RoundScaled({{1.0, 0x1p-53 + 0x1p-90}, 0}, bound), 1.0 + 0x1p-52);
    // Below a power of two the doubles lie closer together.
    EXPECT_EQ(RoundScaled({{1.0, -0x1p-54}, 0}, bound), std::nullopt);
    EXPECT_EQ(RoundScaled({{1.0, -0x1.8p-54}, 0}, bound), 1.0 - 0x1p-53);
}

TEST(RoundScaled, TakesExponentsBeyondTheRange)
{
    EXPECT_EQ(RoundScaled({{1.5, 0.0}, 1023}, bound), 0x1.8p1023);
    EXPECT_EQ(RoundScaled({{1.5, 0.0}, 1024}, bound), inf);
    EXPECT_EQ(RoundScaled({{-1.5, 0.0}, 1500}, bound), -inf);
    EXPECT_EQ(RoundScaled({{1.5, 0.0}, -1200}, bound), 0.0);
    // The last number that rounds to a finite one, and the first that doesn't.
    EXPECT_EQ(RoundScaled({{0x1.fffffffffffffp0, 0x1p-54}, 1023}, bound),
              std::numeric_limits<double>::max());
    EXPECT_EQ(RoundScaled({{0x1.fffffffffffffp0, 0x1.8p-53}, 1023}, bound), inf);
}

TEST(RoundScaled, RoundsSubnormalResultsAtTheirOwnLastBit)
{
    // Multiples of 2^-1074: 5.5 is a middle, 5.5 and a bit isn't, although the bit is far below a
    // double's last.
    EXPECT_EQ(RoundScaled({{1.375, 0.0}, -1072}, bound), std::nullopt);
    EXPECT_EQ(RoundScaled({{1.375, 0x1p-56}, -1072}, bound), std::nullopt);
    EXPECT_EQ(RoundScaled({{1.375, 0x1p-48}, -1072}, bound), 0x6p-1074);
    EXPECT_EQ(RoundScaled({{1.375, -0x1p-48}, -1072}, bound), 0x5p-1074);
    EXPECT_EQ(RoundScaled({{1.25, 0.0}, -1072}, bound), 0x5p-1074);
    EXPECT_EQ(RoundScaled({{1.0, 0.0}, -1074}, bound), 0x1p-1074);
    EXPECT_EQ(RoundScaled({{1.0, 0.0}, -1075}, bound), std::nullopt);
    EXPECT_EQ(RoundScaled({{1.0 + 0x1p-40, 0.0}, -1075}, bound), 0x1p-1074);
    EXPECT_EQ(RoundScaled({{1.0, 0.0}, -1076}, bound), 0.0);
    // The largest subnormal number, and what rounds up to the smallest normal one.
    EXPECT_EQ(RoundScaled({{0x1.ffffffffffffep0, 0.0}, -1023}, bound), 0x0.fffffffffffffp-1022);
    EXPECT_EQ(RoundScaled({{0x1.fffffffffffffp0, 0x1p-54}, -1023}, bound), 0x1p-1022);
    EXPECT_EQ(RoundScaled({{2.0, 0.0}, -1023}, bound), 0x1p-1022);
}

TEST(RoundWide, AddsLimbsUntilTheRoundingIsDecided)
{
    // 1 + 2^-53 + 2^-300 needs more than six limbs.
    int asked = 0;
    const double rounded = RoundWide([&asked](int limbs) {
        asked = limbs;
        return Add(Add(ToWide(1.0, limbs + 2), ToWide(0x1p-53, limbs + 2)),
                   ToWide(0x1p-300, limbs + 2));
    });
    EXPECT_EQ(rounded, 1.0 + 0x1p-52);
    EXPECT_EQ(asked, 12);
}

TEST(RoundWide, EndsForAnExactMiddle)
{
    EXPECT_EQ(RoundWide([](int limbs) { return ToWide(0x1p-1074, limbs + 2); }), 0x1p-1074);
    EXPECT_EQ(RoundWide([](int limbs) { return Add(ToWide(1.0, limbs), ToWide(0x1p-53, limbs)); }),
              1.0);
}

TEST(ToPair, KeepsWhatAPairHolds)
{
    const WideNumber wide = Add(ToWide(3.0, 6), ToWide(0x1p-60, 6));
    EXPECT_EQ(ToPair(wide), (Pair{3.0, 0x1p-60}));
    EXPECT_EQ(ToPair(ScaledPair{{1.5, 0x1p-60}, 4}), (Pair{24.0, 0x1p-56}));
    EXPECT_EQ(ToPair(ScaledPair{{1.5, 0x1p-60}, 1024}), (Pair{inf, 0.0}));
}

} // namespace
} // namespace trelvanix
