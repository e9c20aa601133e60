#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>

#include "exact_values.h"
#include "math/exponential.h"
#include "math/exponential_core.h"
#include "math/logarithm_core.h"
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
constexpr double subnormal = 0x1p-1074;

struct PowerCase {
    double x, y, expected;
};

void ExpectPowers(std::initializer_list<PowerCase> cases)
{
    for (const auto& [x, y, expected] : cases)
        EXPECT_TRUE(AreSameBits(expected, Pow(x, y))) << x << " to the power " << y;
}

TEST(Pow, HasTheValuesOfAnnexFAtZero)
{
    ExpectPowers({{0.0, -3.0, inf}, {-0.0, -3.0, -inf}, {0.0, -2.0, inf}, {-0.0, -2.0, inf}});
    ExpectPowers({{-0.0, -2.5, inf}, {0.0, -inf, inf}, {-0.0, -inf, inf}, {0.0, 3.0, 0.0}});
    ExpectPowers({{-0.0, 3.0, -0.0}, {-0.0, 2.0, 0.0}, {-0.0, 2.5, 0.0}, {0.0, inf, 0.0}});
    ExpectPowers({{-0.0, inf, 0.0}, {-0.0, 0x1p53, 0.0}, {-0.0, 0x1p53 - 1.0, -0.0}});
}

TEST(Pow, HasTheValuesOfAnnexFAtOne)
{
    ExpectPowers({{1.0, nan, 1.0}, {1.0, inf, 1.0}, {1.0, -inf, 1.0}, {1.0, 1e300, 1.0}});
    ExpectPowers(
        {{nan, 0.0, 1.0}, {nan, -0.0, 1.0}, {inf, 0.0, 1.0}, {0.0, 0.0, 1.0}, {-3.0, 0.0, 1.0}});
    ExpectPowers({{-1.0, inf, 1.0}, {-1.0, -inf, 1.0}, {-1.0, 3.0, -1.0}, {-1.0, 4.0, 1.0}});
    ExpectPowers({{-1.0, 0x1p60, 1.0}, {-1.0, 0.5, nan}});
}

TEST(Pow, HasTheValuesOfAnnexFAtInfinity)
{
    ExpectPowers({{0.5, -inf, inf}, {-0.5, -inf, inf}, {2.0, -inf, 0.0}, {-2.0, -inf, 0.0}});
    ExpectPowers({{0.5, inf, 0.0}, {-0.5, inf, 0.0}, {2.0, inf, inf}, {-2.0, inf, inf}});
    ExpectPowers({{-inf, -3.0, -0.0}, {-inf, -2.0, 0.0}, {-inf, -0.5, 0.0}, {-inf, 3.0, -inf}});
    ExpectPowers({{-inf, 2.0, inf}, {-inf, 0.5, inf}, {inf, -0.5, 0.0}, {inf, 0.5, inf}});
    ExpectPowers({{inf, inf, inf}, {inf, -inf, 0.0}, {-inf, inf, inf}, {subnormal, inf, 0.0}});
}

TEST(Pow, IsNotANumberForNotANumberAndForRootsOfNegativeNumbers)
{
    ExpectPowers(
        {{nan, 1.0, nan}, {2.0, nan, nan}, {-2.0, nan, nan}, {0.0, nan, nan}, {inf, nan, nan}});
    ExpectPowers({{-2.0, 0.5, nan}, {-2.0, -1.5, nan}, {-1e300, 1e-300, nan}, {-subnormal, 0.1, nan}});
}

TEST(Pow, OverflowsAndUnderflowsWithTheSignOfThePower)
{
    ExpectPowers(
        {{10.0, 309.0, inf}, {-10.0, 309.0, -inf}, {10.0, -324.0, 0.0}, {-10.0, -325.0, -0.0}});
    ExpectPowers({{2.0, 1e300, inf}, {2.0, -1e300, 0.0}, {0.5, 1e300, 0.0}, {-2.0, 1e300, inf}});
    ExpectPowers({{1.0 + 0x1p-52, 1e300, inf}, {1.0 - 0x1p-53, 1e300, 0.0}, {3.0, 1e-300, 1.0}});
    ExpectPowers({{subnormal, -1.0, inf}, {subnormal, 1.0, subnormal}, {subnormal, -0.5, 0x1p537}});
    ExpectPowers({{2.0, 1024.0, inf}, {2.0, 1023.0, 0x1p1023}, {2.0, -1074.0, subnormal}});
}

TEST(Pow, IsExactForWholePowersOfSmallNumbers)
{
    for (int base = 2; base <= 40; ++base) {
        double product = 1.0;
        for (int n = 1; product * base < 0x1p53; ++n) {
            product *= base;
            ASSERT_EQ(Pow(base, n), product);
            ASSERT_EQ(Pow(-base, n), n % 2 == 0 ? product : -product);
            ASSERT_EQ(Pow(product, 1.0), product);
        }
    }
    EXPECT_EQ(Pow(10.0, 22.0), 1e22);
    EXPECT_EQ(Pow(0x1p100, 0.25), 0x1p25);
    EXPECT_EQ(Pow(81.0, 0.75), 27.0);
    EXPECT_EQ(Pow(0x1p-1074, 0.5), 0x1p-537);
}

// Powers of exactly 54 bits lie halfway between two doubles and go to the even one.
TEST(Pow, TiesToEven)
{
    for (const std::uint64_t base : {134217727ULL, 94906267ULL, 100000007ULL, 134217689ULL}) {
        const std::uint64_t square = base * base;
        ASSERT_EQ(square >> 53, 1U);
        const std::uint64_t even = square / 2 + (square / 2) % 2;
        EXPECT_EQ(Pow(static_cast<double>(base), 2.0), 2.0 * static_cast<double>(even)) << base;
        EXPECT_EQ(Pow(-static_cast<double>(base), 2.0), 2.0 * static_cast<double>(even)) << base;
    }
    NearestDouble nearest;
    // The largest odd bases whose n-th power has 54 bits.
    for (const auto& [base, n] :
         {std::array{262143.0, 3.0}, std::array{11585.0, 4.0}, std::array{1781.0, 5.0},
          std::array{511.0, 6.0}, std::array{209.0, 7.0}, std::array{107.0, 8.0}, std::array{63.0, 9.0},
          std::array{41.0, 10.0}, std::array{29.0, 11.0}, std::array{17.0, 13.0}, std::array{5.0, 23.0},
          std::array{3.0, 34.0}})
        EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_pow, base, n), Pow(base, n))) << base << " " << n;
}

TEST(Pow, TiesToEvenForRootsAndForSubnormalResults)
{
    NearestDouble nearest;
    // 3^34 as 81^(17/2), 9^17, 6561^(17/4); 2^-1075, twice; the rest are numbers of up to eight bits,
    // of which the subnormal numbers keep fewer.
    for (const auto& [x, y] :
         {std::array{81.0, 8.5}, std::array{9.0, 17.0}, std::array{6561.0, 4.25},
          std::array{2.0, -1075.0}, std::array{0x1p-430, 2.5}, std::array{0x1.8p-268, 4.0},
          std::array{0x1.8p-215, 5.0}, std::array{0x1.4p-536, 2.0}, std::array{0x1.2p-536, 2.0}})
        EXPECT_TRUE(AreSameBits(nearest.Of(mpfr_pow, x, y), Pow(x, y))) << x << " " << y;
    EXPECT_EQ(Pow(2.0, -1075.0), 0.0);
}

TEST(Pow, DecidesTheHardestArgumentsInItsLastPhase)
{
    // sqrt(1 + 2e) = 1 + e - e^2 / 2: 2^-107 beside the middle between two doubles.
    for (const auto& [x, expected] :
         {std::array{1.0 + 0x1p-52, 1.0}, std::array{1.0 - 0x1p-53, 1.0 - 0x1p-53}}) {
        EXPECT_FALSE(RoundScaled(ExpOfPair(LogOfPair({x, 0.0}) * 0.5), 0x1p-98));
        EXPECT_EQ(Pow(x, 0.5), expected);
    }
}

TEST(Pow, GivesTheNearestDouble)
{
    RandomPairs random(11);
    NearestDouble nearest;
    for (int i = 0; i < 3000; ++i) {
        const double x = i % 3 == 0 ? random.Magnitude(-1074.0, 1023.9).high
                         : i % 3 == 1
                             ? 1.0 + random.Uniform(-1.0, 1.0) * random.Magnitude(-50.0, -1.0).high
                             : random.Uniform(0.0, 10.0);
        const double y = random.Uniform(-746.0, 711.0) / std::log(x);
        ASSERT_TRUE(AreSameBits(nearest.Of(mpfr_pow, x, y), Pow(x, y))) << x << " " << y;
        ASSERT_TRUE(AreSameBits(nearest.Of(mpfr_pow, x, 2.0), Pow(x, 2.0))) << x;
    }
}

TEST(PowOfPairs, IsExactToTheBound)
{
    RandomPairs random(13);
    for (int i = 0; i < 600; ++i) {
        // Beside 1.007 the relative error of the logarithm is largest.
        const Pair x = i % 3 == 0 ? random.WithLowPart(random.Uniform(1.007, 1.009))
                                  : random.Magnitude(-900.0, 900.0);
        const double bound = i % 2 == 0 ? 690.0 : 32.0;
        const Pair y = random.WithLowPart(random.Uniform(-0.9 * bound, bound) / std::log(x.high));
        Exact base(x), exponent(y), expected;
        mpfr_pow(expected.Get(), base.Get(), exponent.Get(), MPFR_RNDN);
        ASSERT_TRUE(IsClose(Pow(x, y), expected, pairError)) << x.high << " " << y.high;
    }
}

TEST(PowOfPairs, SeesALowPartFarBelowOne)
{
    for (const double low : {0x1p-60, -0x1p-60, 0x1p-300, 0x1p-800}) {
        for (const double logarithm : {1.0, 64.0, -64.0, 690.0}) {
            const Pair x = {1.0, low}, y = {logarithm / low, 0.0};
            Exact base(x), exponent(y), expected;
            mpfr_pow(expected.Get(), base.Get(), exponent.Get(), MPFR_RNDN);
            EXPECT_TRUE(IsClose(Pow(x, y), expected, pairError)) << low << " " << logarithm;
        }
    }
}

TEST(PowOfPairs, TakesTheSignOfWholePowers)
{
    EXPECT_EQ(Pow(Pair{-2.0, 0.0}, Pair{3.0, 0.0}).high, -8.0);
    EXPECT_EQ(Pow(Pair{-2.0, 0.0}, Pair{4.0, 0.0}).high, 16.0);
    // 2^53 + 1 is odd.
    EXPECT_LT(Pow(Pair{-1.0, 0.0}, Pair{0x1p53, 1.0}).high, 0.0);
    EXPECT_TRUE(std::isnan(Pow(Pair{-2.0, 0.0}, Pair{2.5, 0.0}).high));
    EXPECT_TRUE(std::isnan(Pow(Pair{-2.0, 0.0}, Pair{0x1p53, 0.5}).high));
    EXPECT_TRUE(std::isnan(Pow(Pair{2.0, 0.0}, Pair{nan, 0.0}).high));
    EXPECT_EQ(Pow(Pair{0.0, 0.0}, Pair{-0.5, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Pow(Pair{10.0, 0.0}, Pair{400.0, 0.0}), (Pair{inf, 0.0}));
    EXPECT_EQ(Pow(Pair{10.0, 0.0}, Pair{-400.0, 0.0}), (Pair{0.0, 0.0}));
    EXPECT_EQ(Pow(Pair{nan, 0.0}, Pair{0.0, 0.0}), (Pair{1.0, 0.0}));
}

} // namespace
} // namespace trelvanix
