#include "math/pair.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "math/exact_number.h"

namespace trelvanix
{
namespace
{

using testing::Exact;

// |got / expected - 1| in units of 2^-106.
double ErrorOf(Pair got, Exact& expected)
{
    return testing::RelativeError(got, expected) * 0x1p106;
}

class RandomPairs
{
public:
    Pair Next(bool positive = false)
    {
        const double high = std::ldexp(significand_(random_), exponent_(random_));
        const double ulp = std::ldexp(1.0, std::ilogb(high) - 52);
        const Pair x = FastTwoSum(high, low_(random_) * ulp);
        return positive ? Abs(x) : x;
    }

private:
    std::mt19937_64 random_{20261122};
    std::uniform_real_distribution<double> significand_{-1.0, 1.0};
    std::uniform_real_distribution<double> low_{-0.5, 0.5};
    std::uniform_int_distribution<int> exponent_{-3, 3};
};

constexpr int sampleCount = 20000;

TEST(TwoSum, IsExact)
{
    EXPECT_EQ(TwoSum(1.0, 0x1p-60), (Pair{1.0, 0x1p-60}));
    EXPECT_EQ(TwoSum(0x1p-60, 1.0), (Pair{1.0, 0x1p-60}));
    EXPECT_EQ(TwoSum(0x1.0000000000001p0, 0x1p-53), (Pair{0x1.0000000000002p0, -0x1p-53}));
    EXPECT_EQ(FastTwoSum(0.0, 3.0), (Pair{3.0, 0.0}));
}

TEST(TwoProduct, IsExact)
{
    // (1 + 2^-52)(1 - 2^-53) = 1 + 2^-53 - 2^-105, and the tie is just missed.
    EXPECT_EQ(TwoProduct(0x1.0000000000001p0, 0x1.fffffffffffffp-1), (Pair{1.0, 0x1p-53 - 0x1p-105}));
    RandomPairs pairs;
    for (int i = 0; i < sampleCount; ++i) {
        const double a = pairs.Next().high, b = pairs.Next().high;
        Exact product(Pair{a, 0.0});
        mpfr_mul_d(product.Get(), product.Get(), b, MPFR_RNDN);
        EXPECT_EQ(ErrorOf(TwoProduct(a, b), product), 0.0) << std::hexfloat << a << " * " << b;
    }
}

TEST(TwoProduct, IsExactAtTheEndsOfItsRange)
{
    for (const double a : {0x1.fffffffffffffp994, 0x1.5555555555555p-470}) {
        const double b = a > 1.0 ? 0x1.123456789abcdp28 : 0x1.123456789abcdp-497;
        Exact product(Pair{a, 0.0});
        mpfr_mul_d(product.Get(), product.Get(), b, MPFR_RNDN);
        EXPECT_EQ(ErrorOf(TwoProduct(a, b), product), 0.0) << std::hexfloat << a << " * " << b;
    }
}

TEST(SplitInHalves, GivesPartsWhoseProductsAreExact)
{
    RandomPairs pairs;
    for (int i = 0; i < sampleCount; ++i) {
        const double a = pairs.Next().high;
        const Pair halves = SplitInHalves(a);
        EXPECT_EQ(halves.high + halves.low, a);
        for (const double half : {halves.high, halves.low}) {
            const double scaled = std::ldexp(half, 25 - (half == 0.0 ? 0 : std::ilogb(half)));
            EXPECT_EQ(scaled, std::rint(scaled)) << std::hexfloat << a;
        }
    }
}

// The proven bounds, 2^-106 being u^2.
TEST(PairArithmetic, KeepsItsBounds)
{
    RandomPairs pairs;
    for (int i = 0; i < sampleCount; ++i) {
        const Pair x = pairs.Next(), y = pairs.Next();
        Exact exactX(x), exactY(y), expected;
        mpfr_add(expected.Get(), exactX.Get(), exactY.Get(), MPFR_RNDN);
        EXPECT_LE(ErrorOf(x + y, expected), 3.01);
        mpfr_sub(expected.Get(), exactX.Get(), exactY.Get(), MPFR_RNDN);
        EXPECT_LE(ErrorOf(x - y, expected), 3.01);
        mpfr_add_d(expected.Get(), exactX.Get(), y.high, MPFR_RNDN);
        EXPECT_LE(ErrorOf(x + y.high, expected), 2.0);
        mpfr_mul(expected.Get(), exactX.Get(), exactY.Get(), MPFR_RNDN);
        EXPECT_LE(ErrorOf(x * y, expected), 7.0);
        mpfr_mul_d(expected.Get(), exactX.Get(), y.high, MPFR_RNDN);
        EXPECT_LE(ErrorOf(x * y.high, expected), 1.51);
        mpfr_div(expected.Get(), exactX.Get(), exactY.Get(), MPFR_RNDN);
        EXPECT_LE(ErrorOf(x / y, expected), 15.01);
    }
}

TEST(PairArithmetic, KeepsItsBoundWhereSumsCancel)
{
    RandomPairs pairs;
    for (int i = 0; i < sampleCount; ++i) {
        const Pair x = pairs.Next(true);
        const Pair y{-x.high, pairs.Next().high * 0x1p-58};
        Exact exactX(x), exactY(y), expected;
        mpfr_add(expected.Get(), exactX.Get(), exactY.Get(), MPFR_RNDN);
        EXPECT_LE(ErrorOf(x + y, expected), 3.01);
    }
}

TEST(PairSquareRoot, KeepsItsBound)
{
    EXPECT_EQ(Sqrt(Pair{0.0, 0.0}), (Pair{0.0, 0.0}));
    EXPECT_EQ(Sqrt(Pair{9.0, 0.0}), (Pair{3.0, 0.0}));
    RandomPairs pairs;
    for (int i = 0; i < sampleCount; ++i) {
        const Pair x = pairs.Next(true);
        Exact expected(x);
        mpfr_sqrt(expected.Get(), expected.Get(), MPFR_RNDN);
        EXPECT_LE(ErrorOf(Sqrt(x), expected), 3.125);
    }
}

TEST(PairComparison, LooksAtBothParts)
{
    const Pair one{1.0, 0.0}, more{1.0, 0x1p-60}, less{1.0, -0x1p-60};
    EXPECT_TRUE(less < one && one < more && more > less && one <= one && one >= less);
    EXPECT_FALSE(one < less || more <= one || one == more);
    EXPECT_EQ(Abs(Pair{-1.0, 0x1p-60}), less);
}

TEST(RoundsSafely, RefusesWhatMayCrossAMidpoint)
{
    EXPECT_TRUE(RoundsSafely(1.0, 0x1p-54, 0x1p-60));
    EXPECT_FALSE(RoundsSafely(1.0, 0x1p-53, 0x1p-90));
    EXPECT_FALSE(RoundsSafely(1.0, 0x1p-53 - 0x1p-70, 0x1p-69));
    EXPECT_TRUE(RoundsSafely(1.0, 0x1p-53 - 0x1p-70, 0x1p-71));
    EXPECT_FALSE(RoundsSafely(1.0, -0x1p-54, 0x1p-90));
}

} // namespace
} // namespace trelvanix
