#ifndef TRELVANIX_MATH_QUICK_LOGARITHM_H
#define TRELVANIX_MATH_QUICK_LOGARITHM_H

#include <cstdint>

#include "common/numbers.h"
#include "math/exponential_tables.h"
#include "math/pair.h"

namespace trelvanix
{

// x = 2^exponent m.
struct Decomposed {
    int exponent;
    double m;
    const ReciprocalRow* row;
};

// For normal x > 0.
inline Decomposed Decompose(double x)
{
    const auto bits = BitCast<std::uint64_t>(x);
    const auto index = static_cast<unsigned>(bits >> 45) & 127U;
    // From 1 + 53 / 128 = 1.4140625 on the row is that of m / 2.
    const unsigned upper = index >= 53U ? 1U : 0U;
    const std::uint64_t significand = bits & 0xFFFFFFFFFFFFFU;
    return {static_cast<int>(bits >> 52) - 1023 + static_cast<int>(upper),
            BitCast<double>(significand | std::uint64_t{1023U - upper} << 52), &reciprocals[index]};
}

// log(x) for normal x > 0; relative error below 2^-65. Zero for 1. The reduction is that of LogOfPair.
//
// With u = 2^-53. The high part of m, a multiple of 2^-26, times the reciprocal (ten bits) is exact, so
// is the difference to 1; the low part of m times the reciprocal is exact. With A = e ln2High +
// row.high, exact (a multiple of 2^-42 below 2^10):
//   A + r - r1^2 / 2   exact in high + two errors of FastTwoSum: |A| > |r| or A = 0; r1 has 26 bits
//   rest of r^2 / 2    (r - r1) (r + r1) / 2 < 2^-41, error 2^-93
//   r^3 / 3 - ...      cut before r^10 / 10 <= 2^-66.3 |r|, rounded with 2 u |r|^3 / 3 < 2^-67.5 |r|
//   low parts of r     times 1 - r; left out r^2 2^-61
//   tail               sums of terms below |r|^3 / 3: three times 2^-68.5 |r|
// For A = 0 this is 2^-65.1 |r|, for others 2^-72.1 against |log(x)| > 2^-7.01.
inline Pair QuickLog(double x)
{
    const auto [exponent, m, row] = Decompose(x);

    constexpr double toHalf = 0x1.8p26; // makes the last bit of a sum weigh 2^-26
    const double mHigh = (m + toHalf) - toHalf;
    // Where the first term is the smaller one, both are below 2^-26 and their sum is exact.
    const Pair r = FastTwoSum(mHigh * row->reciprocal - 1.0, (m - mHigh) * row->reciprocal);

    constexpr double toMultiple = 0x1.8p19; // makes it weigh 2^-33
    const double y = r.high;
    const double r1 = (y + toMultiple) - toMultiple;
    const double square = y * y;
    const double cubic =
        square * y *
        ((1.0 / 3 - y * 0.25) +
         square * ((0.2 - y * (1.0 / 6)) + square * ((1.0 / 7 - y * 0.125) + square * (1.0 / 9))));

    const Pair first = FastTwoSum(exponent * ln2High + row->high, y);
    const Pair second = FastTwoSum(first.high, -0.5 * r1 * r1);
    const double tail = ((exponent * ln2Low.high + row->middle) + (r.low - r.low * y)) +
                        (cubic - 0.5 * (y - r1) * (y + r1));
    return FastTwoSum(second.high, (first.low + second.low) + tail);
}

} // namespace trelvanix

#endif
