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

void ExpectNearestAtSeams(double (*function)(double), ExactFunction exact)
{
    NearestDouble nearest;
    for (const double seam : {0.0, 0x1p-1074, 0x1p-1022, 0x1p-28, 0x1p-8, 0.5, 1.0, 1.5, 0x1p56,
                              0x1p500, 0x1p1023, std::numeric_limits<double>::max()}) {
        for (const double magnitude : {std::nextafter(seam, 0.0), seam, std::nextafter(seam, inf)}) {
            for (const double x : {magnitude, -magnitude})
                EXPECT_TRUE(AreSameBits(nearest.Of(exact, x), function(x))) << x;
        }
    }
}

TEST(Asinh, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(0.0, Asinh(0.0)));
    EXPECT_TRUE(AreSameBits(-0.0, Asinh(-0.0)));
    EXPECT_TRUE(AreSameBits(inf, Asinh(inf)));
    EXPECT_TRUE(AreSameBits(-inf, Asinh(-inf)));
    EXPECT_TRUE(AreSameBits(nan, Asinh(nan)));
}

TEST(Asinh, GivesTheNearestDouble)
{
    ExpectNearestAtSeams(Asinh, mpfr_asinh);
    ExpectNearest(Asinh, mpfr_asinh, -0.01, 0.01);
    ExpectNearest(Asinh, mpfr_asinh, -10.0, 10.0);
    ExpectNearest(Asinh, mpfr_asinh, -1e300, 1e300);
}

TEST(Acosh, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(0.0, Acosh(1.0)));
    EXPECT_TRUE(AreSameBits(inf, Acosh(inf)));
    for (const double x : {1.0 - 0x1p-53, 0.0, -1.0, -inf, nan})
        EXPECT_TRUE(AreSameBits(nan, Acosh(x))) << x;
}

TEST(Acosh, GivesTheNearestDouble)
{
    ExpectNearestAtSeams(Acosh, mpfr_acosh);
    ExpectNearest(Acosh, mpfr_acosh, 1.0, 1.0 + 0x1p-40);
    ExpectNearest(Acosh, mpfr_acosh, 1.0, 10.0);
    ExpectNearest(Acosh, mpfr_acosh, 1.0, 1e300);
}

TEST(Atanh, HasTheSpecialValuesOfAnnexF)
{
    EXPECT_TRUE(AreSameBits(0.0, Atanh(0.0)));
    EXPECT_TRUE(AreSameBits(-0.0, Atanh(-0.0)));
    EXPECT_TRUE(AreSameBits(inf, Atanh(1.0)));
    EXPECT_TRUE(AreSameBits(-inf, Atanh(-1.0)));
    for (const double x : {1.0 + 0x1p-52, -2.0, inf, -inf, nan})
        EXPECT_TRUE(AreSameBits(nan, Atanh(x))) << x;
}

TEST(Atanh, GivesTheNearestDouble)
{
    ExpectNearestAtSeams(Atanh, mpfr_atanh);
    ExpectNearest(Atanh, mpfr_atanh, -0.004, 0.004);
    ExpectNearest(Atanh, mpfr_atanh, -1.0, 1.0);
    ExpectNearest(Atanh, mpfr_atanh, 1.0 - 0x1p-40, 1.0);
}

TEST(InverseHyperbolicFunctionsOfPairs, AreExactToTheBound)
{
    ExpectPairsAreClose(Asinh, mpfr_asinh, -200.0, 1000.0, true);
    ExpectPairsAreClose(Asinh, mpfr_asinh, -10.0, 4.0, true);
    ExpectPairsAreClose(Acosh, mpfr_acosh, 0.0, 1000.0, false);
    ExpectPairsAreClose(Acosh, mpfr_acosh, 0.0, 0.01, false);
    ExpectPairsAreClose(Atanh, mpfr_atanh, -200.0, 0.0, true);
    ExpectPairsAreClose(Atanh, mpfr_atanh, -10.0, 0.0, true);
}

TEST(InverseHyperbolicFunctionsOfPairs, HaveTheSpecialValuesOfDoubles)
{
    for (const double x : {0.0, inf, -inf})
        EXPECT_EQ(Asinh(Pair{x, 0.0}), (Pair{x, 0.0}));
    EXPECT_EQ(Acosh(Pair{1.0, 0.0}), (Pair{0.0, 0.0}));
    EXPECT_EQ(Acosh(Pair{inf, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Atanh(Pair{1.0, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Atanh(Pair{-1.0, 0.0}), (Pair{-inf, 0.0}));
    EXPECT_TRUE(std::isnan(Asinh(Pair{nan, 0.0}).high));
    for (const double x : {0.5, -2.0, -inf, nan})
        EXPECT_TRUE(std::isnan(Acosh(Pair{x, 0.0}).high)) << x;
    EXPECT_TRUE(std::isnan(Acosh(Pair{1.0, -0x1p-100}).high));
    EXPECT_TRUE(std::isnan(Atanh(Pair{1.0, 0x1p-100}).high));
    for (const double x : {2.0, inf, nan})
        EXPECT_TRUE(std::isnan(Atanh(Pair{x, 0.0}).high)) << x;
}

} // namespace
} // namespace trelvanix
