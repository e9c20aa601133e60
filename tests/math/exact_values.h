#ifndef TRELVANIX_TESTS_MATH_EXACT_VALUES_H
#define TRELVANIX_TESTS_MATH_EXACT_VALUES_H

#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>
#include <cstdint>
#include <random>

#include "math/pair.h"
#include "support/bits.h"

namespace trelvanix::testing
{

// A number of MPFR with room for every sum of two doubles whose exponents differ by 400 at most.
class Exact
{
public:
    Exact()
    {
        mpfr_init2(value, 512);
    }
    explicit Exact(Pair x) : Exact()
    {
        mpfr_set_d(value, x.high, MPFR_RNDN);
        mpfr_add_d(value, value, x.low, MPFR_RNDN);
    }
    ~Exact()
    {
        mpfr_clear(value);
    }
    Exact(const Exact&) = delete;
    Exact& operator=(const Exact&) = delete;

    operator mpfr_ptr()
    {
        return value;
    }

private:
    mpfr_t value;
};

using ExactFunction = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
using ExactFunctionOfTwo = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);

// MPFR with the precision and the exponents of doubles, while it lives.
class DoubleRounding
{
public:
    DoubleRounding()
    {
        mpfr_set_emin(-1073);
        mpfr_set_emax(1024);
        mpfr_inits2(53, x, y, result, static_cast<mpfr_ptr>(nullptr));
    }
    ~DoubleRounding()
    {
        mpfr_clears(x, y, result, static_cast<mpfr_ptr>(nullptr));
        mpfr_set_emin(mpfr_get_emin_min());
        mpfr_set_emax(mpfr_get_emax_max());
    }
    DoubleRounding(const DoubleRounding&) = delete;
    DoubleRounding& operator=(const DoubleRounding&) = delete;

    double Nearest(ExactFunction function, double argument)
    {
        mpfr_set_d(x, argument, MPFR_RNDN);
        return Round(function(result, x, MPFR_RNDN));
    }

    double Nearest(ExactFunctionOfTwo function, double first, double second)
    {
        mpfr_set_d(x, first, MPFR_RNDN);
        mpfr_set_d(y, second, MPFR_RNDN);
        return Round(function(result, x, y, MPFR_RNDN));
    }

private:
    double Round(int ternary)
    {
        mpfr_subnormalize(result, ternary, MPFR_RNDN);
        return mpfr_get_d(result, MPFR_RNDN);
    }

    mpfr_t x, y, result;
};

inline ::testing::AssertionResult AreSameBits(double expected, double got)
{
    if (SameBits(expected, got))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << std::hexfloat << "expected " << expected << ", got " << got;
}

// Whether the pair is within the relative error of the exact value, which is not zero.
inline ::testing::AssertionResult IsClose(Pair got, Exact& exact, double relativeError)
{
    Exact difference(got);
    mpfr_sub(difference, difference, exact, MPFR_RNDN);
    mpfr_div(difference, difference, exact, MPFR_RNDN);
    const double error = std::fabs(mpfr_get_d(difference, MPFR_RNDN));
    if (error <= relativeError)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "relative error 2^" << std::log2(error) << " of "
                                         << std::hexfloat << got.high << " + " << got.low;
}

// Pairs drawn evenly from an interval, or evenly among its magnitudes; the same with every standard library.
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

// Compares function(x) with the exact one for pairs between 2^lower and 2^upper, and for their negatives
// if wanted.
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
        exact(expected, argument, MPFR_RNDN);
        ASSERT_TRUE(IsClose(function(x), expected, pairError)) << x.high << " + " << x.low;
    }
}

// Compares function(x) with the nearest double for arguments between lower and upper.
inline void ExpectNearest(double (*function)(double), ExactFunction exact, double lower, double upper)
{
    RandomPairs random(19);
    DoubleRounding rounding;
    for (int i = 0; i < 2000; ++i) {
        const double x = random.Uniform(lower, upper);
        ASSERT_TRUE(AreSameBits(rounding.Nearest(exact, x), function(x))) << x;
    }
}

} // namespace trelvanix::testing

#endif
