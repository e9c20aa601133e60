#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "math/exact_number.h"
#include "math/trigonometric.h"

namespace trelvanix
{
namespace
{

using testing::Exact;
using testing::ExactFunction;

constexpr double inf = std::numeric_limits<double>::infinity();

// The interface promises 2^-95; the rounding tests of the second phase rest on 2^-97.
constexpr double bound = 0x1p-98;

struct Tested {
    const char* name;
    Pair (*function)(Pair);
    ExactFunction exact;
    double smallest, largest; // magnitudes, as powers of two
};

const Tested tested[] = {
    {"sin", Sin, mpfr_sin, -60.0, 400.0},       {"cos", Cos, mpfr_cos, -60.0, 400.0},
    {"tan", Tan, mpfr_tan, -60.0, 400.0},       {"atan", Atan, mpfr_atan, -200.0, 200.0},
    {"asin", Asin, mpfr_asin, -200.0, 0.0},     {"acos", Acos, mpfr_acos, -200.0, 0.0},
    {"sinpi", SinPi, mpfr_sinpi, -200.0, 40.0}, {"cospi", CosPi, mpfr_cospi, -60.0, 40.0},
    {"tanpi", TanPi, mpfr_tanpi, -200.0, 40.0},
};

class TrigonometricFunctionOfPairs : public ::testing::TestWithParam<Tested>
{
protected:
    static void ExpectAccurate(Pair x)
    {
        Exact expected(x);
        GetParam().exact(expected.Get(), expected.Get(), MPFR_RNDN);
        const Pair got = GetParam().function(x);
        EXPECT_LE(testing::RelativeError(got, expected), bound)
            << GetParam().name << " of " << std::hexfloat << x.high << " + " << x.low;
        EXPECT_EQ(got.high + got.low, got.high);
    }

    Pair RandomArgument(double lower, double upper)
    {
        std::uniform_real_distribution<double> uniform(0.0, 1.0);
        const double magnitude = std::exp2(lower + (upper - lower) * uniform(random_));
        const double high = random_() % 2 == 0 ? magnitude : -magnitude;
        return FastTwoSum(high, (uniform(random_) - 0.5) * std::ldexp(1.0, std::ilogb(high) - 52));
    }

    std::mt19937_64 random_{20261122};
};

TEST_P(TrigonometricFunctionOfPairs, KeepsItsBoundForEverySize)
{
    for (int i = 0; i < 500; ++i)
        ExpectAccurate(RandomArgument(GetParam().smallest, GetParam().largest));
}

TEST_P(TrigonometricFunctionOfPairs, KeepsItsBoundWhereItVaries)
{
    for (int i = 0; i < 1000; ++i)
        ExpectAccurate(RandomArgument(-4.0, std::fmin(GetParam().largest, 3.0)));
}

INSTANTIATE_TEST_SUITE_P(All, TrigonometricFunctionOfPairs, ::testing::ValuesIn(tested));

TEST(Sin, KeepsItsBoundForPairsNextToZeros)
{
    for (int k = 1; k < 1000; ++k) {
        Exact multiple;
        mpfr_const_pi(multiple.Get(), MPFR_RNDN);
        mpfr_mul_ui(multiple.Get(), multiple.Get(), static_cast<unsigned long>(k), MPFR_RNDN);
        mpfr_div_ui(multiple.Get(), multiple.Get(), 2, MPFR_RNDN);
        const double high = mpfr_get_d(multiple.Get(), MPFR_RNDN);
        mpfr_sub_d(multiple.Get(), multiple.Get(), high, MPFR_RNDN);
        const Pair x{high, mpfr_get_d(multiple.Get(), MPFR_RNDN)};
        Exact argument(x), sine, cosine;
        mpfr_sin_cos(sine.Get(), cosine.Get(), argument.Get(), MPFR_RNDN);
        EXPECT_LE(testing::RelativeError(Sin(x), sine), bound) << k;
        EXPECT_LE(testing::RelativeError(Cos(x), cosine), bound) << k;
        mpfr_div(sine.Get(), sine.Get(), cosine.Get(), MPFR_RNDN);
        EXPECT_LE(testing::RelativeError(Tan(x), sine), bound) << k;
    }
}

TEST(Acos, KeepsItsBoundForPairsNextToItsEnds)
{
    for (int i = 1; i < 106; ++i) {
        for (const double sign : {-1.0, 1.0}) {
            const Pair x = FastTwoSum(sign, -sign * std::ldexp(1.3, -i));
            Exact angle(x), other(x);
            mpfr_acos(angle.Get(), angle.Get(), MPFR_RNDN);
            EXPECT_LE(testing::RelativeError(Acos(x), angle), bound) << sign << " " << i;
            mpfr_asin(other.Get(), other.Get(), MPFR_RNDN);
            EXPECT_LE(testing::RelativeError(Asin(x), other), bound) << sign << " " << i;
        }
    }
}

TEST(Atan2, KeepsItsBoundForPairsOfEveryRatio)
{
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    const auto pair = [&](double range) {
        const double high = uniform(random) * std::exp2(range * uniform(random));
        return FastTwoSum(high, 0x1p-54 * high * uniform(random));
    };
    for (int i = 0; i < 2000; ++i) {
        const Pair y = pair(i % 2 == 0 ? 2.0 : 400.0), x = pair(2.0);
        Exact height(y), angle(x);
        mpfr_atan2(angle.Get(), height.Get(), angle.Get(), MPFR_RNDN);
        EXPECT_LE(testing::RelativeError(Atan2(y, x), angle), bound)
            << std::hexfloat << y.high << " " << x.high;
    }
}

TEST(TrigonometricPairs, HaveTheSpecialValues)
{
    const Pair zero{0.0, 0.0}, one{1.0, 0.0};
    EXPECT_EQ(Sin(zero), zero);
    EXPECT_EQ(Cos(zero), one);
    EXPECT_EQ(Tan(zero), zero);
    EXPECT_EQ(Atan(zero), zero);
    EXPECT_EQ(Asin(zero), zero);
    EXPECT_EQ(Acos(one), zero);
    EXPECT_EQ(Atan2(zero, one), zero);
    EXPECT_EQ(SinPi(one), zero);
    EXPECT_EQ(CosPi(Pair{0.5, 0.0}), zero);
    EXPECT_EQ(CosPi(Pair{3.0, 0.0}), -one);
    EXPECT_EQ(TanPi(Pair{0.25, 0.0}), one);
    EXPECT_EQ(TanPi(Pair{0.5, 0.0}), (Pair{inf, 0.0}));
    for (const Tested& t : tested) {
        if (t.exact == mpfr_atan)
            continue;
        const Pair got = t.function({inf, 0.0});
        EXPECT_TRUE(std::isnan(got.high)) << t.name;
        EXPECT_EQ(got.low, 0.0) << t.name;
    }
    EXPECT_TRUE(std::isnan(Atan2(Pair{std::numeric_limits<double>::quiet_NaN(), 0.0}, one).high));
}

TEST(TrigonometricPairs, GiveMultiplesOfPiToFullPrecision)
{
    Exact pi;
    mpfr_const_pi(pi.Get(), MPFR_RNDN);
    const Pair zero{0.0, 0.0}, one{1.0, 0.0}, infinity{inf, 0.0};
    EXPECT_LE(testing::RelativeError(Acos(-one), pi), 0x1p-105);
    EXPECT_LE(testing::RelativeError(Atan2(zero, -one), pi), 0x1p-105);
    EXPECT_LE(testing::RelativeError(Scale(Atan2(one, zero), 2.0), pi), 0x1p-105);
    EXPECT_LE(testing::RelativeError(Scale(Atan(infinity), 2.0), pi), 0x1p-105);
    EXPECT_LE(testing::RelativeError(Scale(Atan2(infinity, infinity), 4.0), pi), 0x1p-105);
    EXPECT_LE(testing::RelativeError(Scale(Atan(one), 4.0), pi), 0x1p-104);
}

TEST(SinAndCos, GivesTheBitsOfSinAndCosForPairs)
{
    for (const double high : {0.0, 0x1p-60, 0.003, 1.0, -2.5, 1e10, 1e300}) {
        const Pair x{high, 0x1p-55 * high};
        const PairSineAndCosine both = SinAndCos(x);
        EXPECT_EQ(both.sine, Sin(x));
        EXPECT_EQ(both.cosine, Cos(x));
    }
}

} // namespace
} // namespace trelvanix
