#ifndef TRELVANIX_TESTS_MATH_EXACT_VALUES_H
#define TRELVANIX_TESTS_MATH_EXACT_VALUES_H

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>

#include "exact_number.h"
#include "math/pair.h"
#include "support/bits.h"

namespace trelvanix::testing
{

inline ::testing::AssertionResult AreSameBits(double expected, double got)
{
    if (SameBits(expected, got))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << std::hexfloat << "expected " << expected << ", got " << got;
}

// Whether the pair is within the relative error of the exact value, which is not zero.
inline ::testing::AssertionResult IsClose(Pair got, Exact& exact, double relativeError)
{
    const double error = RelativeError(got, exact);
    if (error <= relativeError)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "relative error 2^" << std::log2(error) << " of "
                                         << std::hexfloat << got.high << " + " << got.low;
}

// Pairs drawn evenly from an interval, or evenly among its magnitudes; the same with every standard
// library.
class RandomPairs
{
public:
    explicit RandomPairs(std::uint64_t seed) : generator(seed)
    {
    }

    double Uniform(double lower, double upper)
    {
        return lower + (upper - lower) * static_cast<double>(generator() >> 11) * 0x1p-53;
    }

    Pair WithLowPart(double high)
    {
        return FastTwoSum(high, high * Uniform(-1.0, 1.0) * 0x1p-54);
    }

    Pair Magnitude(double lowerExponent, double upperExponent)
    {
        return WithLowPart(std::exp2(Uniform(lowerExponent, upperExponent)));
    }

private:
    std::mt19937_64 generator;
};

// The bound that pairs promise.
constexpr double pairError = 0x1p-95;

// Compares function(x) with the exact one for pairs between 2^lower and 2^upper, and for their
// negatives if wanted.
inline void ExpectPairsAreClose(Pair (*function)(Pair), ExactFunction exact, double lower, double upper,
                                bool andNegative)
{
    RandomPairs random(17);
    for (int i = 0; i < 500; ++i) {
        Pair x = random.Magnitude(lower, upper);
        if (andNegative && i % 2 == 0)
            x = -x;
        Exact argument(x);
        Exact expected;
        exact(expected.Get(), argument.Get(), MPFR_RNDN);
        ASSERT_TRUE(IsClose(function(x), expected, pairError)) << x.high << " + " << x.low;
    }
}

// Compares function(x) with the nearest double for arguments between lower and upper.
inline void ExpectNearest(double (*function)(double), ExactFunction exact, double lower, double upper)
{
    RandomPairs random(19);
    NearestDouble nearest;
    for (int i = 0; i < 2000; ++i) {
        const double x = random.Uniform(lower, upper);
        ASSERT_TRUE(AreSameBits(nearest.Of(exact, x), function(x))) << x;
    }
}

} // namespace trelvanix::testing

#endif
