#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "exact_values.h"
#include "math/exponential.h"

namespace trelvanix
{
namespace
{

using testing::AreSameBits;
using testing::ExactFunction;
using testing::ExpectNearest;
using testing::ExpectPairsAreClose;
using testing::NearestDouble;

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Zeros, the smallest number, and both sides of where the functions say that they change their ways.
void ExpectNearestAtSeams(double (*function)(double), ExactFunction exact)
{
    NearestDouble nearest;
    for (const double seam : {0.0, 0x1p-1074, 0x1p-1022, 0x1p-28, 0.0027076061740622863, 1.0, 20.0,
                              40.0, 709.0, 709.782712893384, 710.4758600739439, 710.5, 1e300}) {
        for (const double magnitude : {std::nextafter(seam, 0.0), seam, std::nextafter(seam, inf)}) {
            for (const double x : {magnitude, -magnitude})
                EXPECT_TRUE(AreSameBits(nearest.Of(exact, x), function(x))) << x;
        }
    }
}

TEST(Sinh, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(0.0, Sinh(0.0)));
    EXPECT_TRUE(AreSameBits(-0.0, Sinh(-0.0)));
    EXPECT_TRUE(AreSameBits(inf, Sinh(inf)));
    EXPECT_TRUE(AreSameBits(-inf, Sinh(-inf)));
    EXPECT_TRUE(AreSameBits(nan, Sinh(nan)));
}

TEST(Sinh, GivesTheNearestDouble)
{
    ExpectNearestAtSeams(Sinh, mpfr_sinh);
    ExpectNearest(Sinh, mpfr_sinh, -0.003, 0.003);
    ExpectNearest(Sinh, mpfr_sinh, -4.0, 4.0);
    ExpectNearest(Sinh, mpfr_sinh, -711.0, 711.0);
}

TEST(Cosh, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(1.0, Cosh(0.0)));
    EXPECT_TRUE(AreSameBits(1.0, Cosh(-0.0)));
    EXPECT_TRUE(AreSameBits(inf, Cosh(inf)));
    EXPECT_TRUE(AreSameBits(inf, Cosh(-inf)));
    EXPECT_TRUE(AreSameBits(nan, Cosh(nan)));
}

TEST(Cosh, GivesTheNearestDouble)
{
    ExpectNearestAtSeams(Cosh, mpfr_cosh);
    ExpectNearest(Cosh, mpfr_cosh, -0.003, 0.003);
    ExpectNearest(Cosh, mpfr_cosh, -4.0, 4.0);
    ExpectNearest(Cosh, mpfr_cosh, -711.0, 711.0);
}

// 1 + x^2 / 2 + x^4 / 24: the second term is half a place of the first, the third 2^-108.6.
TEST(Cosh, DecidesTheHardestArgumentsInItsLastPhase)
{
    EXPECT_EQ(Cosh(0x1p-26), 1.0 + 0x1p-52);
    EXPECT_EQ(Cosh(std::nextafter(0x1p-26, 0.0)), 1.0);
    const Pair pair = Cosh(Pair{0x1p-26, 0.0});
    EXPECT_FALSE(RoundsSafely(pair.high, pair.low, 0x1p-98));
}

TEST(Tanh, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(0.0, Tanh(0.0)));
    EXPECT_TRUE(AreSameBits(-0.0, Tanh(-0.0)));
    EXPECT_TRUE(AreSameBits(1.0, Tanh(inf)));
    EXPECT_TRUE(AreSameBits(-1.0, Tanh(-inf)));
    EXPECT_TRUE(AreSameBits(nan, Tanh(nan)));
}

TEST(Tanh, GivesTheNearestDouble)
{
    ExpectNearestAtSeams(Tanh, mpfr_tanh);
    ExpectNearest(Tanh, mpfr_tanh, -0.003, 0.003);
    ExpectNearest(Tanh, mpfr_tanh, -4.0, 4.0);
    ExpectNearest(Tanh, mpfr_tanh, -21.0, 21.0);
}

TEST(HyperbolicFunctionsOfPairs, AreExactToTheBound)
{
    ExpectPairsAreClose(Sinh, mpfr_sinh, -200.0, 9.2, true);
    ExpectPairsAreClose(Sinh, mpfr_sinh, -10.0, 4.0, true);
    ExpectPairsAreClose(Cosh, mpfr_cosh, -100.0, 9.2, true);
    ExpectPairsAreClose(Cosh, mpfr_cosh, -10.0, 4.0, true);
    ExpectPairsAreClose(Tanh, mpfr_tanh, -200.0, 9.2, true);
    ExpectPairsAreClose(Tanh, mpfr_tanh, -10.0, 5.4, true);
}

TEST(HyperbolicFunctionsOfPairs, HaveTheSpecialValuesOfDoubles)
{
    for (const double x : {0.0, inf, -inf, 711.0, -711.0, 1e300}) {
        EXPECT_EQ(Sinh(Pair{x, 0.0}), (Pair{Sinh(x), 0.0})) << x;
        EXPECT_EQ(Cosh(Pair{x, 0.0}), (Pair{Cosh(x), 0.0})) << x;
        EXPECT_EQ(Tanh(Pair{x, 0.0}), (Pair{Tanh(x), 0.0})) << x;
    }
    EXPECT_TRUE(std::isnan(Sinh(Pair{nan, 0.0}).high));
    EXPECT_TRUE(std::isnan(Cosh(Pair{nan, 0.0}).high));
    EXPECT_TRUE(std::isnan(Tanh(Pair{nan, 0.0}).high));
}

} // namespace
} // namespace trelvanix
