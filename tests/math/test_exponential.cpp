#include "math/exponential.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "exact_values.h"
#include "math/exponential_core.h"
#include "math/quick_exponential.h"
#include "math/scaled_rounding.h"

namespace trelvanix
{
namespace
{

using testing::AreSameBits;
using testing::Exact;
using testing::ExpectNearest;
using testing::ExpectPairsAreClose;
using testing::IsClose;
using testing::NearestDouble;
using testing::RandomPairs;

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = std::numeric_limits<double>::max();

TEST(Exp, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(1.0, Exp(0.0)));
    EXPECT_TRUE(AreSameBits(1.0, Exp(-0.0)));
    EXPECT_TRUE(AreSameBits(inf, Exp(inf)));
    EXPECT_TRUE(AreSameBits(0.0, Exp(-inf)));
    EXPECT_TRUE(AreSameBits(nan, Exp(nan)));
}

TEST(Exp, OverflowsAndUnderflowsWhereTheNearestDoubleDoes)
{
    NearestDouble nearest;
    // log(2^1024 - 2^970) lies between the first two, log(2^-1075) between the next two.
    for (const double x : {0x1.62e42fefa39efp+9, 0x1.62e42fefa39fp+9, -0x1.74910d52d3051p+9,
                           -0x1.74910d52d3052p+9, 1e300, -1e300, 709.8, -745.2, 708.0, -708.0})
        EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_exp, x), Exp(x))) << x;
    EXPECT_LT(Exp(0x1.62e42fefa39efp+9), inf);
    EXPECT_EQ(Exp(0x1.62e42fefa39fp+9), inf);
    EXPECT_EQ(Exp(-0x1.74910d52d3051p+9), 0x1p-1074);
    EXPECT_EQ(Exp(-0x1.74910d52d3052p+9), 0.0);
}

TEST(Exp, GivesTheNearestDouble)
{
    ExpectNearest(Exp, mpfr_exp, -3.0, 3.0);
    ExpectNearest(Exp, mpfr_exp, -745.2, 709.8);
    ExpectNearest(Exp, mpfr_exp, -0x1p-40, 0x1p-40);
}

TEST(Exp, RoundsSubnormalResultsOnce)
{
    ExpectNearest(Exp, mpfr_exp, -745.2, -708.0);
}

// e^x beside the middle between two doubles: e^x = 1 + x + x^2 / 2 + ... is 2^-107 or so away from it
// for the first three, 2^-110 for the last, which is from the tables of Lefevre & Muller 2001.
constexpr std::array<double, 4> hardForExp = {0x1p-53, -0x1p-54, -0x1.8p-53, 0x1.9e9cbbfd6080bp-31};

TEST(Exp, DecidesTheHardestArgumentsInItsLastPhase)
{
    NearestDouble nearest;
    for (const double x : hardForExp) {
        EXPECT_FALSE(RoundScaled(ExpOfPair({x, 0.0}), 0x1p-98)) << x;
        EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_exp, x), Exp(x))) << x;
    }
    EXPECT_EQ(Exp(0x1p-53), 1.0 + 0x1p-52);
    EXPECT_EQ(Exp(-0x1p-54), 1.0);
    EXPECT_EQ(Exp(-0x1.8p-53), 1.0 - 0x1p-53);
}

TEST(QuickExp, KeepsItsBound)
{
    RandomPairs random(3);
    for (int i = 0; i < 2000; ++i) {
        const double high = i % 2 == 0 ? random.Uniform(-1.0, 1.0) : random.Uniform(-745.0, 709.0);
        const double low = random.Uniform(-1.0, 1.0) * 0x1p-42;
        Exact argument({high, low});
        Exact expected;
        mpfr_exp(expected.Get(), argument.Get(), MPFR_RNDN);
        const ScaledPair got = QuickExp(high, low);
        mpfr_mul_2si(expected.Get(), expected.Get(), -got.exponent, MPFR_RNDN);
        ASSERT_TRUE(IsClose(got.value, expected, 0x1p-68)) << high;
        ASSERT_GE(got.value.high, 0.99);
        ASSERT_LE(got.value.high, 2.01);
    }
}

TEST(ExpOfPair, KeepsItsBound)
{
    RandomPairs random(5);
    for (int i = 0; i < 2000; ++i) {
        const Pair x = random.WithLowPart(random.Uniform(-745.0, 709.0));
        Exact argument(x);
        Exact expected;
        mpfr_exp(expected.Get(), argument.Get(), MPFR_RNDN);
        const ScaledPair got = ExpOfPair(x);
        mpfr_mul_2si(expected.Get(), expected.Get(), -got.exponent, MPFR_RNDN);
        ASSERT_TRUE(IsClose(got.value, expected, 0x1p-99)) << x.high;
    }
}

TEST(ExpOfPairs, IsExactToTheBound)
{
    ExpectPairsAreClose(Exp, mpfr_exp, -60.0, 9.2, true);
}

TEST(ExpOfPairs, HasTheSpecialValuesOfDoubles)
{
    EXPECT_EQ(Exp(Pair{inf, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Exp(Pair{-inf, 0.0}), (Pair{0.0, 0.0}));
    EXPECT_EQ(Exp(Pair{800.0, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Exp(Pair{-800.0, 0.0}), (Pair{0.0, 0.0}));
    EXPECT_EQ(Exp(Pair{0.0, 0.0}), (Pair{1.0, 0.0}));
    EXPECT_TRUE(std::isnan(Exp(Pair{nan, 0.0}).high));
}

TEST(Expm1, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(0.0, Expm1(0.0)));
    EXPECT_TRUE(AreSameBits(-0.0, Expm1(-0.0)));
    EXPECT_TRUE(AreSameBits(inf, Expm1(inf)));
    EXPECT_TRUE(AreSameBits(-1.0, Expm1(-inf)));
    EXPECT_TRUE(AreSameBits(nan, Expm1(nan)));
    EXPECT_TRUE(AreSameBits(0x1p-1074, Expm1(0x1p-1074)));
    EXPECT_TRUE(AreSameBits(-0x1p-1074, Expm1(-0x1p-1074)));
}

TEST(Expm1, GivesTheNearestDouble)
{
    ExpectNearest(Expm1, mpfr_expm1, -0.003, 0.003);
    ExpectNearest(Expm1, mpfr_expm1, -2.0, 2.0);
    ExpectNearest(Expm1, mpfr_expm1, -45.0, 45.0);
    ExpectNearest(Expm1, mpfr_expm1, 600.0, 711.0);
    ExpectNearest(Expm1, mpfr_expm1, -0x1p-52, 0x1p-52);
}

// x + x^2 / 2 is the middle between two doubles, x^3 / 6 is 2^-100 of it: 36 2^-105 is half a place of
// 6 2^-52.
TEST(Expm1, DecidesTheHardestArgumentsInItsLastPhase)
{
    NearestDouble nearest;
    for (const double x : {0x6p-52, -0x6p-52}) {
        EXPECT_FALSE(Round(ExpMinusOneOfPair({x, 0.0}), 0x1p-98));
        EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_expm1, x), Expm1(x)));
    }
}

TEST(Expm1OfPairs, IsExactToTheBound)
{
    ExpectPairsAreClose(Expm1, mpfr_expm1, -200.0, 9.2, true);
    ExpectPairsAreClose(Expm1, mpfr_expm1, -9.0, 1.0, true);
}

TEST(Expm1OfPairs, HasTheSpecialValuesOfDoubles)
{
    EXPECT_EQ(Expm1(Pair{inf, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Expm1(Pair{-inf, 0.0}), (Pair{-1.0, 0.0}));
    EXPECT_EQ(Expm1(Pair{0x1p-200, 0x1p-300}), (Pair{0x1p-200, 0x1p-300}));
    EXPECT_EQ(Expm1(Pair{-200.0, 0.0}), (Pair{-1.0, Exp(-200.0)}));
    EXPECT_EQ(Exp(Pair{0x1.62e42fefa39efp+9, 0.0}).high, Exp(0x1.62e42fefa39efp+9));
    EXPECT_LE(Exp(0x1.62e42fefa39efp+9), largest);
}

} // namespace
} // namespace trelvanix
