#ifndef TRELVANIX_MATH_QUICK_EXPONENTIAL_H
#define TRELVANIX_MATH_QUICK_EXPONENTIAL_H

#include <cstdint>

#include "common/numbers.h"
#include "math/exponential_tables.h"
#include "math/pair.h"
#include "math/scaled_rounding.h"

namespace trelvanix
{

// x / (log(2) / 128) to the nearest whole number, steps = 128 exponent + the number of the table's row.
struct ExponentialStep {
    double steps;
    const PowerOfTwoRow* row;
    int exponent;
};

// |x| < 1100.
inline ExponentialStep FindStep(double x)
{
    constexpr double toInteger = 0x1.8p52; // makes the last bit of a sum weigh one
    const double shifted = x * stepsPerUnit + toInteger;
    // The low half of the sum's significand is the whole number, negative ones in two's complement.
    const auto index = static_cast<std::int32_t>(BitCast<std::uint64_t>(shifted));
    return {shifted - toInteger, &powersOfTwo[static_cast<unsigned>(index) & 127U], index >> 7};
}

// e^(high + low), relative error below 2^-68; |high| < 1100, |low| <= 2^-42, not necessarily a pair in
// form. value.high lies between 0.99 and 2.01. The reduction is that of ExpOfPair.
//
// With u = 2^-53 and |r| < 2^-8.5:
//   r       its first difference is exact. Below 2^-26 the second may lose up to 2^-79 to FastTwoSum,
//   else
//           it is exact; the product with stepMiddle + stepLow is rounded at 2^-26 u = 2^-79
//   q       = e^r - 1 - r: the series is cut at 2^-72, evaluated with 2 u |q| < 2^-70
//   T e^r   = a + a r1 + (b + a (r - r1) + b r + T (q + rest e^r)), T = a + b: a has 26 bits and r1 is
//   a
//           multiple of 2^-34, so that their product is exact; b and a (r - r1) are below 2^-25, their
//           errors below 2^-77
// Together less than 2^-69 of the result.
inline ScaledPair QuickExp(double high, double low)
{
    const auto [steps, row, exponent] = FindStep(high);
    const Pair r = FastTwoSum(high - steps * stepHigh, -steps * (stepMiddle + stepLow));
    const double rest = r.low + low;

    constexpr double toMultiple = 0x1.8p18; // makes the last bit of a sum weigh 2^-34
    const double x = r.high;
    const double r1 = (x + toMultiple) - toMultiple;
    const double square = x * x;
    const double q = square * (0.5 + x * (1.0 / 6)) +
                     square * square * (1.0 / 24 + x * (1.0 / 120 + x * (1.0 / 720)));
    const double correction = q + (rest + rest * (x + q));

    const double a = row->high, b = row->middle;
    const Pair sum = FastTwoSum(a, a * r1);
    const double rounded = a + b;
    const double tail = sum.low + (b + ((a * (x - r1) + b * x) + rounded * correction));
    return {FastTwoSum(sum.high, tail), exponent};
}

} // namespace trelvanix

#endif
