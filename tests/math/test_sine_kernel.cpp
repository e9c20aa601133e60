#include "math/sine_kernel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "math/arc_tangent_kernel.h"
#include "math/exact_number.h"
#include "math/tangent_kernel.h"

// The bounds that the rounding tests of the trigonometric functions rest on: a bound that is too small would be
// found by no comparison of rounded results.
namespace trelvanix
{
namespace
{

using testing::Exact;

// |high + low - expected| / bound.
double PartOfBound(const Estimate& got, Exact& expected)
{
    Exact error(Pair{got.high, 0.0});
    mpfr_add_d(error.Get(), error.Get(), got.low, MPFR_RNDN);
    mpfr_sub(error.Get(), error.Get(), expected.Get(), MPFR_RNDN);
    return std::fabs(mpfr_get_d(error.Get(), MPFR_RNDN)) / got.bound;
}

// Angles of every size from 2^-26 to 12800, with many next to multiples of pi / 128 and to the middle
// between them, where the series end.
double Angle(std::mt19937_64& random)
{
    std::uniform_real_distribution<double> uniform(0.0, 1.0);
    const double x = std::exp2(-26.0 + 39.0 * uniform(random));
    switch (random() % 3) {
    case 0:
        return std::rint(x * 40.0) * (nearestPi / 128.0) * (1.0 + 0x1p-48 * uniform(random));
    case 1:
        return (std::rint(x * 40.0) + 0.5) * (nearestPi / 128.0) * (1.0 + 0x1p-20 * uniform(random));
    default:
        return x;
    }
}

constexpr int sampleCount = 10000;

TEST(FastSine, KeepsItsBound)
{
    std::mt19937_64 random(20261122);
    double largest = 0.0;
    for (int i = 0; i < sampleCount; ++i) {
        const double x = std::min(Angle(random), largestModerate) * (i % 2 == 0 ? 1.0 : -1.0);
        if (std::fabs(x) < 0x1p-26)
            continue;
        const FastAngle angle = PrepareFast(ReduceModerate(x));
        Exact argument(x), sine, cosine;
        mpfr_sin_cos(sine.Get(), cosine.Get(), argument.Get(), MPFR_RNDN);
        const double parts[] = {PartOfBound(FastSine(angle, 0), sine),
                                PartOfBound(FastSine(angle, quarterSteps), cosine)};
        for (const double part : parts) {
            // The roundings of the test itself are not in this error, but in the bound.
            EXPECT_LE(part, 0.9) << std::hexfloat << x;
            largest = std::max(largest, part);
        }
    }
    // A bound that is far too large would cost time.
    EXPECT_GE(largest, 0.1);
}

TEST(FastTangent, KeepsItsBound)
{
    std::mt19937_64 random(20261122);
    double largest = 0.0;
    for (int i = 0; i < sampleCount; ++i) {
        const double x = std::min(Angle(random), largestModerate);
        if (x < 0x1p-26)
            continue;
        Exact argument(x);
        mpfr_tan(argument.Get(), argument.Get(), MPFR_RNDN);
        const double part = PartOfBound(FastTangent(PrepareFast(ReduceModerate(x))), argument);
        EXPECT_LE(part, 0.9) << std::hexfloat << x;
        largest = std::max(largest, part);
    }
    EXPECT_GE(largest, 0.05);
}

TEST(FastAngleOf, KeepsItsBound)
{
    std::mt19937_64 random(20261122);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    double largest = 0.0;
    for (int i = 0; i < sampleCount / 4; ++i) {
        double y = std::fabs(uniform(random));
        double x = uniform(random);
        if (i % 3 == 0)
            y *= std::exp2(60.0 * uniform(random));
        // Next to the middle between two nodes, and at the ends of the first.
        if (i % 3 == 1)
            y = std::fabs(x) * (std::rint(64.0 * y) + 0.4999) / 64.0;
        // Coordinates that are pairs, as those of inverse sines are.
        const Pair width = FastTwoSum(x, i % 2 == 0 ? 0.0 : 0x1p-54 * uniform(random) * x);
        Exact height(y), angle(width);
        mpfr_atan2(angle.Get(), height.Get(), angle.Get(), MPFR_RNDN);
        const double part = PartOfBound(FastAngleOf({y, 0.0}, width), angle);
        EXPECT_LE(part, 0.9) << std::hexfloat << y << " " << x;
        largest = std::max(largest, part);
    }
    EXPECT_GE(largest, 0.05);
}

} // namespace
} // namespace trelvanix
