#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "exact_values.h"
#include "math/exponential.h"
#include "math/logarithm_core.h"
#include "math/quick_logarithm.h"
#include "math/scaled_rounding.h"

namespace trelvanix
{
namespace
{

using testing::AreSameBits;
using testing::Exact;
using testing::ExactFunction;
using testing::ExpectNearest;
using testing::ExpectPairsAreClose;
using testing::IsClose;
using testing::NearestDouble;
using testing::RandomPairs;

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

void ExpectSpecialValues(double (*function)(double))
{
    EXPECT_TRUE(AreSameBits(-inf, function(0.0)));
    EXPECT_TRUE(AreSameBits(-inf, function(-0.0)));
    EXPECT_TRUE(AreSameBits(0.0, function(1.0)));
    EXPECT_TRUE(AreSameBits(inf, function(inf)));
    for (const double x : {-0x1p-1074, -1.0, -inf, nan})
        EXPECT_TRUE(AreSameBits(nan, function(x))) << x;
}

void ExpectNearestEverywhere(double (*function)(double), ExactFunction exact)
{
    ExpectNearest(function, exact, 0.0, 4.0);
    ExpectNearest(function, exact, 0x1p-1074, 0x1p-1020);
    ExpectNearest(function, exact, 1.0 - 0x1p-20, 1.0 + 0x1p-20);
    ExpectNearest(function, exact, 1.0 - 0x1p-48, 1.0 + 0x1p-48);
    ExpectNearest(function, exact, 1.0, std::numeric_limits<double>::max());
}

TEST(Log, HasTheSpecialValuesOfAnnexF)
{
    ExpectSpecialValues(Log);
    ExpectSpecialValues(Log10);
    ExpectSpecialValues(Log2);
}

TEST(Log, GivesTheNearestDouble)
{
    ExpectNearestEverywhere(Log, mpfr_log);
    ExpectNearestEverywhere(Log10, mpfr_log10);
    ExpectNearestEverywhere(Log2, mpfr_log2);
}

TEST(Log, AgreesAtBothEndsOfEveryRowOfItsTable)
{
    NearestDouble nearest;
    for (int i = 0; i <= 128; ++i) {
        const double m = 1.0 + i / 128.0;
        for (const double x :
             {m, std::nextafter(m, 0.0), std::nextafter(m, 4.0), 0x1p-1074 * m, 0x1p900 * m})
            ASSERT_TRUE(AreSameBits(nearest.Of(mpfr_log, x), Log(x))) << x;
    }
}

// log(1 + e) = e - e^2 / 2 + e^3 / 3: for e = 6 2^-52 the second term, 36 2^-105, is half a place, the
// third 2^-100 of the first.
TEST(Log, DecidesTheHardestArgumentsInItsLastPhase)
{
    NearestDouble nearest;
    for (const double x : {1.0 + 0x6p-52, 1.0 - 0x6p-52}) {
        EXPECT_FALSE(Round(LogOfPair({x, 0.0}), 0x1p-98));
        EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_log, x), Log(x)));
        EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_log1p, x - 1.0), Log1p(x - 1.0)));
    }
}

TEST(Log10, IsExactForPowersOfTen)
{
    double power = 1.0;
    for (int n = 0; n <= 22; ++n) {
        EXPECT_EQ(Log10(power), n);
        EXPECT_EQ(Log10(Pair{power, 0.0}).high, n);
        power *= 10.0;
    }
}

TEST(Log2, IsExactForPowersOfTwo)
{
    for (int n = -1074; n <= 1023; ++n)
        ASSERT_EQ(Log2(std::ldexp(1.0, n)), n);
}

TEST(QuickLog, KeepsItsBound)
{
    RandomPairs random(3);
    for (int i = 0; i < 4000; ++i) {
        const double distance = random.Magnitude(-52.0, -1.0).high;
        const double x = i % 4 == 0   ? random.Uniform(0.7, 1.4)
                         : i % 4 == 1 ? 1.0 + distance
                         : i % 4 == 2 ? 1.0 - distance
                                      : random.Magnitude(-1022.0, 1023.9).high;
        if (x == 1.0)
            continue;
        Exact argument({x, 0.0});
        Exact expected;
        mpfr_log(expected.Get(), argument.Get(), MPFR_RNDN);
        ASSERT_TRUE(IsClose(QuickLog(x), expected, 0x1p-65)) << x;
    }
    EXPECT_EQ(QuickLog(1.0), (Pair{0.0, 0.0}));
}

TEST(LogOfPair, KeepsItsBound)
{
    RandomPairs random(7);
    for (int i = 0; i < 2000; ++i) {
        const double distance = random.Magnitude(-52.0, -1.0).high;
        const Pair x = random.WithLowPart(i % 2 == 0 ? 1.0 + distance : random.Uniform(0.5, 1.5));
        Exact argument(x);
        Exact expected;
        mpfr_log(expected.Get(), argument.Get(), MPFR_RNDN);
        ASSERT_TRUE(IsClose(LogOfPair(x), expected, 0x1p-99)) << x.high;
    }
}

TEST(LogOfPairs, IsExactToTheBound)
{
    ExpectPairsAreClose(Log, mpfr_log, -900.0, 1000.0, false);
    ExpectPairsAreClose(Log, mpfr_log, -1.0, 1.0, false);
    ExpectPairsAreClose(Log10, mpfr_log10, -900.0, 1000.0, false);
    ExpectPairsAreClose(Log2, mpfr_log2, -900.0, 1000.0, false);
}

TEST(LogOfPairs, KeepsALowPartFarBelowOne)
{
    EXPECT_EQ(Log(Pair{1.0, 0x1p-300}).high, 0x1p-300);
}

TEST(LogOfPairs, HasTheSpecialValuesOfDoubles)
{
    EXPECT_EQ(Log(Pair{0.0, 0.0}), (Pair{-inf, 0.0}));
    EXPECT_EQ(Log(Pair{inf, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Log(Pair{1.0, 0.0}), (Pair{0.0, 0.0}));
    EXPECT_TRUE(std::isnan(Log(Pair{-1.0, 0.0}).high));
    EXPECT_EQ(Log2(Pair{8.0, 0.0}).high, 3.0);
    EXPECT_EQ(Log1p(Pair{-1.0, 0.0}), (Pair{-inf, 0.0}));
    EXPECT_EQ(Log1p(Pair{0x1p-200, 0x1p-300}), (Pair{0x1p-200, 0x1p-300}));
    EXPECT_TRUE(std::isnan(Log1p(Pair{-2.0, 0.0}).high));
}

TEST(Log1p, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(0.0, Log1p(0.0)));
    EXPECT_TRUE(AreSameBits(-0.0, Log1p(-0.0)));
    EXPECT_TRUE(AreSameBits(-inf, Log1p(-1.0)));
    EXPECT_TRUE(AreSameBits(inf, Log1p(inf)));
    EXPECT_TRUE(AreSameBits(-0x1p-1074, Log1p(-0x1p-1074)));
    for (const double x : {-1.0 - 0x1p-52, -inf, nan})
        EXPECT_TRUE(AreSameBits(nan, Log1p(x))) << x;
}

TEST(Log1p, GivesTheNearestDouble)
{
    ExpectNearest(Log1p, mpfr_log1p, -1.0, 4.0);
    ExpectNearest(Log1p, mpfr_log1p, -0x1p-30, 0x1p-30);
    ExpectNearest(Log1p, mpfr_log1p, -0x1p-52, 0x1p-52);
    ExpectNearest(Log1p, mpfr_log1p, 0.0, 1e300);
}

TEST(Log1pOfPairs, IsExactToTheBound)
{
    ExpectPairsAreClose(Log1p, mpfr_log1p, -200.0, 1000.0, false);
    ExpectPairsAreClose(Log1p, mpfr_log1p, -10.0, -0.001, true);
}

} // namespace
} // namespace trelvanix
