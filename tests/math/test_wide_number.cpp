#include "math/wide_number.h"

#include <gtest/gtest.h>
#include <mpfr.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace trelvanix
{
namespace
{

constexpr double inf = std::numeric_limits<double>::infinity();

std::uint64_t BitsOf(double x)
{
    return std::bit_cast<std::uint64_t>(x);
}

// x as an MPFR number of 4000 bits, which the caller releases.
void SetExactly(mpfr_t value, const WideNumber& x)
{
    mpfr_init2(value, 4000);
    mpfr_set_zero(value, 1);
    for (int i = x.limbs - 1; i >= 0; --i) {
        mpfr_add_ui(value, value, x.digits[i], MPFR_RNDN);
        mpfr_div_2ui(value, value, 32, MPFR_RNDN);
    }
    mpfr_mul_2si(value, value, x.exponent, MPFR_RNDN);
    if (x.negative)
        mpfr_neg(value, value, MPFR_RNDN);
}

// |got - expected| in ulps of got, rounded down: below one is below one.
double ErrorInUlps(const WideNumber& got, mpfr_t expected)
{
    mpfr_t error;
    SetExactly(error, got);
    mpfr_sub(error, error, expected, MPFR_RNDN);
    mpfr_mul_2si(error, error, -UlpExponent(got), MPFR_RNDN);
    const double ulps = std::fabs(mpfr_get_d(error, MPFR_RNDZ));
    mpfr_clear(error);
    return ulps;
}

class RandomNumbers
{
public:
    WideNumber Next(int limbs, int exponentRange)
    {
        FixedArray<std::uint32_t, WideNumber::maxLimbs> digits;
        for (int i = 0; i < limbs; ++i) {
            // Runs of zeros and ones find carries that random digits do not.
            const auto kind = random_() % 4;
            digits[i] = kind == 0 ? 0U : kind == 1 ? ~0U : static_cast<std::uint32_t>(random_());
        }
        digits[0] |= 1U;
        const int exponent =
            static_cast<int>(random_() % static_cast<std::uint64_t>(2 * exponentRange + 1)) -
            exponentRange;
        const WideNumber x = ToWide(digits.begin(), limbs, exponent, limbs);
        return random_() % 2 == 0 ? x : Negate(x);
    }

private:
    std::mt19937_64 random_{20261122};
};

constexpr int sampleCount = 1000;

TEST(WideNumber, TakesAndGivesBackEveryKindOfDouble)
{
    for (const double x : {0.0, 1.0, -1.5, 0x1.fffffffffffffp1023, -0x1p-1022, 0x1p-1074,
                           0x1.23456789abcdep-7, 0x0.fffffffffffffp-1022, 0x0.0000000123456p-1022}) {
        EXPECT_EQ(BitsOf(ToDouble(ToWide(x, 6))), BitsOf(x));
        EXPECT_EQ(BitsOf(ToDouble(ToWide(x, 2))), BitsOf(x));
    }
}

TEST(WideNumber, RoundsToTheNearestDoubleTiesToEven)
{
    const auto sum = [](double high, double low) {
        return ToDouble(Add(ToWide(high, 30), ToWide(low, 30)));
    };
    EXPECT_EQ(sum(1.0, 0x1p-53), 1.0);
    EXPECT_EQ(sum(1.0, 0x1.0000000000001p-53), 0x1.0000000000001p0);
    EXPECT_EQ(sum(0x1.0000000000001p0, 0x1p-53), 0x1.0000000000002p0);
    EXPECT_EQ(sum(1.0, -0x1p-54), 1.0);
    EXPECT_EQ(sum(1.0, -0x1.0000000000001p-54), 0x1.fffffffffffffp-1);
    EXPECT_EQ(sum(1.0, 0x1p-500), 1.0);
}

TEST(WideNumber, RoundsOnceAtBothEndsOfTheRange)
{
    const WideNumber largest = ToWide(0x1.fffffffffffffp1023, 4);
    EXPECT_EQ(ToDouble(Add(largest, ToWide(0x1.fffffffffffffp969, 4))), 0x1.fffffffffffffp1023);
    EXPECT_EQ(ToDouble(Add(largest, ToWide(0x1p970, 4))), inf);
    EXPECT_EQ(ToDouble(Negate(Scale(largest, 1))), -inf);
    const WideNumber tiny = ToWide(0x1p-1074, 4);
    EXPECT_EQ(BitsOf(ToDouble(Scale(tiny, -1))), BitsOf(0.0));
    EXPECT_EQ(BitsOf(ToDouble(Negate(Scale(tiny, -1)))), BitsOf(-0.0));
    EXPECT_EQ(ToDouble(Scale(ToWide(0x1.8p-1074 * 2, 4), -2)), 0x1p-1074);
    EXPECT_EQ(ToDouble(Scale(Add(tiny, ToWide(0x1p-1074, 4)), -3)), 0.0);
    EXPECT_EQ(ToDouble(Scale(ToWide(0x1.0000000000001p0, 4), -1075)), 0x1p-1074);
    EXPECT_EQ(ToDouble(Scale(ToWide(0x1.8p0, 4), -1073)), 0x1p-1073 * 1.5);
    // Halfway between the largest subnormal and the smallest normal number.
    EXPECT_EQ(ToDouble(Scale(ToWide(0x1.fffffffffffffp0, 4), -1023)), 0x1p-1022);
}

TEST(WideNumber, SumsWithinAnUlp)
{
    RandomNumbers numbers;
    for (int i = 0; i < sampleCount; ++i) {
        const WideNumber x = numbers.Next(2 + i % 47, i % 5 == 0 ? 2 : 200),
                         y = numbers.Next(2 + i % 7, 2);
        mpfr_t a, b;
        SetExactly(a, x);
        SetExactly(b, y);
        mpfr_add(a, a, b, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Add(x, y), a), 1.0);
        mpfr_sub(a, a, b, MPFR_RNDN);
        mpfr_sub(a, a, b, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Subtract(x, y), a), 1.0);
        mpfr_clears(a, b, nullptr);
    }
}

TEST(WideNumber, CancelsWithinAnUlp)
{
    RandomNumbers numbers;
    for (int i = 0; i < sampleCount; ++i) {
        const WideNumber x = numbers.Next(8, 1);
        const WideNumber y = Add(x, Scale(numbers.Next(8, 1), -(i % 300)));
        mpfr_t a, b;
        SetExactly(a, x);
        SetExactly(b, y);
        mpfr_sub(a, a, b, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Subtract(x, y), a), 1.0);
        mpfr_clears(a, b, nullptr);
    }
    const WideNumber x = numbers.Next(8, 1);
    EXPECT_TRUE(IsZero(Subtract(x, x)));
    EXPECT_EQ(BitsOf(ToDouble(Subtract(x, x))), BitsOf(0.0));
}

TEST(WideNumber, MultipliesAndDividesWithinAnUlp)
{
    RandomNumbers numbers;
    for (int i = 0; i < sampleCount / 4; ++i) {
        const WideNumber x = numbers.Next(2 + i % 47, 100), y = numbers.Next(2 + i % 5, 100);
        mpfr_t a, b, c;
        SetExactly(a, x);
        SetExactly(b, y);
        mpfr_init2(c, 4000);
        mpfr_mul(c, a, b, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Multiply(x, y), c), 1.0);
        mpfr_div(c, a, b, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Divide(x, y), c), 1.0);
        const std::uint32_t small = 1 + static_cast<std::uint32_t>(i) * 17000001U;
        mpfr_mul_ui(c, a, small, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Multiply(x, small), c), 1.0);
        mpfr_div_ui(c, a, small, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Divide(x, small), c), 1.0);
        mpfr_clears(a, b, c, nullptr);
    }
    EXPECT_EQ(ToDouble(Divide(ToWide(6.0, 2), ToWide(-3.0, 48))), -2.0);
}

TEST(WideNumber, TakesSquareRootsWithinTwoUlps)
{
    RandomNumbers numbers;
    for (int i = 0; i < sampleCount / 10; ++i) {
        WideNumber x = numbers.Next(2 + i % 47, 101);
        x.negative = false;
        mpfr_t a;
        SetExactly(a, x);
        mpfr_sqrt(a, a, MPFR_RNDN);
        EXPECT_LT(ErrorInUlps(Sqrt(x), a), 2.0);
        mpfr_clear(a);
    }
    EXPECT_TRUE(IsZero(Sqrt(ToWide(0.0, 4))));
}

TEST(WideNumber, ComparesByValue)
{
    const WideNumber one = ToWide(1.0, 4), two = ToWide(2.0, 9), zero = ToWide(0.0, 3);
    EXPECT_LT(Compare(one, two), 0);
    EXPECT_GT(Compare(Negate(one), Negate(two)), 0);
    EXPECT_EQ(Compare(one, ToWide(1.0, 17)), 0);
    EXPECT_LT(Compare(Negate(one), zero), 0);
    EXPECT_EQ(Compare(zero, Negate(zero)), 0);
    EXPECT_GT(Compare(Scale(one, -5000), zero), 0);
}

TEST(RoundToDouble, TellsThatTheBoundLeavesItOpen)
{
    const WideNumber nearMidpoint = Add(ToWide(1.0, 8), Add(ToWide(0x1p-53, 8), ToWide(0x1p-150, 8)));
    EXPECT_EQ(RoundToDouble(nearMidpoint, -140), std::nullopt);
    EXPECT_EQ(RoundToDouble(nearMidpoint, -152), 0x1.0000000000001p0);
    // Within the bound everything rounds to even, the midpoint too.
    EXPECT_EQ(RoundToDouble(Subtract(ToWide(1.0, 8), ToWide(0x1p-100, 8)), -101), 1.0);
    EXPECT_EQ(RoundToDouble(ToWide(0x1p-1074, 8), -1080), 0x1p-1074);
    EXPECT_EQ(RoundToDouble(Scale(ToWide(1.0, 8), -1075), -1200), std::nullopt);
}

} // namespace
} // namespace trelvanix
