#include "math/argument_reduction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "math/exact_number.h"

namespace trelvanix
{
namespace
{

using testing::Exact;

// x - index pi / 128, less the nearest number of whole turns.
void SetRest(Exact& rest, Exact& x, int index)
{
    Exact step, turns;
    mpfr_const_pi(step.Get(), MPFR_RNDN);
    mpfr_div_ui(step.Get(), step.Get(), turnSteps / 2, MPFR_RNDN);
    mpfr_div(rest.Get(), x.Get(), step.Get(), MPFR_RNDN);
    mpfr_sub_si(rest.Get(), rest.Get(), index, MPFR_RNDN);
    mpfr_div_ui(turns.Get(), rest.Get(), turnSteps, MPFR_RNDN);
    mpfr_rint(turns.Get(), turns.Get(), MPFR_RNDN);
    mpfr_mul_ui(turns.Get(), turns.Get(), turnSteps, MPFR_RNDN);
    mpfr_sub(rest.Get(), rest.Get(), turns.Get(), MPFR_RNDN);
    mpfr_mul(rest.Get(), rest.Get(), step.Get(), MPFR_RNDN);
}

// Some of any size up to the limit, some next to multiples of pi / 2, with either sign.
double ModerateArgument(std::mt19937_64& random)
{
    std::uniform_real_distribution<double> logarithm(-20.0, std::log2(largestModerate));
    double x = std::exp2(logarithm(random));
    if (random() % 2 == 0)
        x = std::rint(x) * nearestHalfPi * (1.0 + static_cast<double>(random() % 3) * 0x1p-52);
    return random() % 2 == 0 && x <= largestModerate ? x : -std::fmin(x, largestModerate);
}

TEST(ReduceModerate, KeepsItsBound)
{
    std::mt19937_64 random(20261122);
    for (int i = 0; i < 5000; ++i) {
        const double x = ModerateArgument(random);
        const ReducedAngle angle = ReduceModerate(x);
        Exact exact(x), rest, error(Pair{angle.high, angle.low});
        SetRest(rest, exact, angle.index);
        mpfr_sub(error.Get(), error.Get(), rest.Get(), MPFR_RNDN);
        // 2^-53 of low is left to the users.
        EXPECT_LE(std::fabs(mpfr_get_d(error.Get(), MPFR_RNDN)),
                  angle.error + 0x1p-53 * std::fabs(angle.low))
            << std::hexfloat << x;
        EXPECT_LT(std::fabs(angle.high), 0.0124);
        EXPECT_EQ(angle.high + angle.low, angle.high);
    }
}

TEST(ReduceModerate, GivesSmallArgumentsBack)
{
    for (const double x : {0x1p-26, -0x1.fffffffffffffp-9, 0.012}) {
        const ReducedAngle angle = ReduceModerate(x);
        EXPECT_EQ(angle.index, 0);
        EXPECT_EQ(angle.high, x);
        EXPECT_EQ(angle.low, 0.0);
        EXPECT_EQ(angle.error, 0.0);
    }
}

void ExpectReducedToPair(Pair x)
{
    const ReducedPair angle = ReduceToPair(x);
    Exact exact, rest;
    mpfr_set_prec(exact.Get(), 2400);
    mpfr_set_d(exact.Get(), x.high, MPFR_RNDN);
    mpfr_add_d(exact.Get(), exact.Get(), x.low, MPFR_RNDN);
    SetRest(rest, exact, angle.index);
    EXPECT_LE(testing::RelativeError(angle.rest, rest), 0x1p-101)
        << std::hexfloat << x.high << " " << x.low;
    EXPECT_LT(std::fabs(angle.rest.high), 0.0124);
}

TEST(ReduceToPair, KeepsItsBoundForEverySize)
{
    std::mt19937_64 random(20261122);
    // Beyond 2^400 the quotients of SetRest would need more bits.
    std::uniform_real_distribution<double> logarithm(-20.0, 400.0);
    std::uniform_real_distribution<double> half(-0.5, 0.5);
    for (int i = 0; i < 3000; ++i) {
        const double high = std::exp2(logarithm(random)) * (i % 2 == 0 ? 1.0 : -1.0);
        const double low = i % 3 == 0 ? 0.0 : half(random) * std::ldexp(1.0, std::ilogb(high) - 52);
        ExpectReducedToPair(FastTwoSum(high, low));
    }
}

TEST(ReduceToPair, KeepsItsBoundNextToMultiplesOfAQuarterTurn)
{
    for (int k = 1; k < 1000; ++k) {
        Exact angle;
        mpfr_const_pi(angle.Get(), MPFR_RNDN);
        mpfr_mul_ui(angle.Get(), angle.Get(), static_cast<unsigned long>(k), MPFR_RNDN);
        mpfr_div_ui(angle.Get(), angle.Get(), 2, MPFR_RNDN);
        const double high = mpfr_get_d(angle.Get(), MPFR_RNDN);
        mpfr_sub_d(angle.Get(), angle.Get(), high, MPFR_RNDN);
        ExpectReducedToPair({high, mpfr_get_d(angle.Get(), MPFR_RNDN)});
        ExpectReducedToPair({high, 0.0});
        // On either side of where pairs alone don't do.
        ExpectReducedToPair({high + std::ldexp(1.0, -30 - k % 15), 0x1p-60});
    }
}

TEST(ReduceLarge, AgreesWithReduceModerateWhereBothServe)
{
    std::mt19937_64 random(20261122);
    for (int i = 0; i < 1000; ++i) {
        const double x = ModerateArgument(random);
        const ReducedAngle moderate = ReduceModerate(x), large = ReduceLarge(x);
        EXPECT_EQ(moderate.index, large.index);
        const Pair difference = Pair{moderate.high, moderate.low} - Pair{large.high, large.low};
        EXPECT_LE(std::fabs(difference.high),
                  moderate.error + large.error + 0x1p-53 * std::fabs(moderate.low));
    }
}

TEST(ReduceToWide, AgreesWithReduceToPair)
{
    std::mt19937_64 random(20261122);
    for (const int limbs : {8, 14, 24}) {
        for (int i = 0; i < 100; ++i) {
            const double x = ModerateArgument(random) * (i % 2 == 0 ? 1.0 : 0x1.234p900);
            const WideReduced wide = ReduceToWide(x, limbs);
            const ReducedPair pair = ReduceToPair({x, 0.0});
            // index pi / 128 + rest, less quarter pi / 2 and whole turns
            const int steps =
                (pair.index - quarterSteps * wide.quarter + 5 * turnSteps / 2) % turnSteps -
                turnSteps / 2;
            const Pair rest = steps * angleStepPair + pair.rest;
            EXPECT_NEAR(ToDouble(wide.rest), rest.high, 0x1p-52 * std::fabs(rest.high))
                << std::hexfloat << x;
            EXPECT_LE(std::fabs(ToDouble(wide.rest)), 0.7854);
        }
    }
}

TEST(QuarterPi, HasTheDigitsOfPi)
{
    Exact pi;
    mpfr_set_prec(pi.Get(), 1536);
    mpfr_const_pi(pi.Get(), MPFR_RNDZ);
    const WideNumber wide = QuarterPi(0, 48);
    mpfr_div_2ui(pi.Get(), pi.Get(), 2, MPFR_RNDZ);
    for (int i = 0; i < 48; ++i) {
        mpfr_mul_2ui(pi.Get(), pi.Get(), 32, MPFR_RNDZ);
        const unsigned long digit = mpfr_get_ui(pi.Get(), MPFR_RNDZ);
        EXPECT_EQ(wide.digits[static_cast<std::size_t>(i)], digit) << i;
        mpfr_sub_ui(pi.Get(), pi.Get(), digit, MPFR_RNDZ);
    }
}

} // namespace
} // namespace trelvanix
