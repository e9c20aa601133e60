#include "math/logarithm_core.h"

#include <array>
#include <bit>
#include <cstdint>

#include "math/scaled_rounding.h"

namespace trelvanix
{
namespace
{

#include "math/exponential_constants.inc"

// -log(reciprocal) = high + middle + low; high is a multiple of 2^-42, zero or larger than |r|.
struct ReciprocalRow {
    double reciprocal, high, middle, low;
};

constexpr std::array<ReciprocalRow, 128> reciprocals = {{
#include "math/logarithm_table.inc"
}};

// x = 2^exponent m.
struct Decomposed {
    int exponent;
    double m;
    const ReciprocalRow* row;
};

// For normal x > 0.
Decomposed Decompose(double x)
{
    const auto bits = std::bit_cast<std::uint64_t>(x);
    const auto index = static_cast<unsigned>(bits >> 45) & 127U;
    // From 1 + 53 / 128 = 1.4140625 on the row is that of m / 2.
    const unsigned upper = index >= 53U ? 1U : 0U;
    const std::uint64_t significand = bits & 0xFFFFFFFFFFFFFU;
    return {static_cast<int>(bits >> 52) - 1023 + static_cast<int>(upper),
            std::bit_cast<double>(significand | std::uint64_t{1023U - upper} << 52),
            &reciprocals[index]};
}

// log(1 + r) for |r| <= 2^-7 + 2^-50: s = r / (2 + r), |s| <= 2^-7.99, and the series
// 2 (s + s^3 / 3 + ... + s^13 / 13), whose next term is below 2^-115 |s|. The terms from 2 s^7 / 7 on, below
// 2^-49 |s|, need a double's precision; before them two sums and products of pairs, each below 2^-15 of
// the result; then a quotient (15 u^2), its sum (2 u^2) and a product (7 u^2).
Pair LogOfOnePlusSmall(Pair r)
{
    if (r.high == 0.0)
        return r;
    const Pair s = r / (2.0 + r);
    const Pair z = s * s;
    const double t = z.high;
    const double tail = t * (2.0 / 9 + t * (2.0 / 11 + t * (2.0 / 13)));
    return s * (2.0 + z * (twoOver3 + z * (twoOver5 + z * (twoOver7.high + tail))));
}

} // namespace

// With u = 2^-53. The high part of m, a multiple of 2^-26, times the reciprocal (ten bits) is exact, so is
// the difference to 1; the low part of m times the reciprocal is exact. With A = e ln2High + row.high,
// exact (multiples of 2^-42 below 2^10):
//   A + r - r1^2 / 2   exact in high + two errors of FastTwoSum: |A| > |r| or A = 0; r1 has 26 bits
//   rest of r^2 / 2    (r - r1)(r + r1) / 2 < 2^-41, error 2^-93
//   r^3 / 3 - ...      to r^9; left out < 2^-73 |r| (next term r^10 / 10), rounded with 2 u |r|^3 / 3 < 2^-67.5 |r|
//   low parts of r     times (1 - r): left out r^2 2^-61
// For A = 0 this is 2^-67 |r|. For others |log(x)| > 2^-7.5; the errors are the above, 2^-74, and sums of
// terms below 2^-22, 2^-75 each.
Pair QuickLog(double x)
{
    int subnormal = 0;
    if (x < 0x1p-1022) {
        x *= 0x1p54;
        subnormal = -54;
    }
    const auto [exponent, m, row] = Decompose(x);
    const double e = exponent + subnormal;

    constexpr double toHalf = 0x1.8p26; // makes the last bit of a sum weigh 2^-26
    const double mHigh = (m + toHalf) - toHalf;
    const Pair r = TwoSum(mHigh * row->reciprocal - 1.0, (m - mHigh) * row->reciprocal);

    constexpr double toMultiple = 0x1.8p19; // makes it weigh 2^-33
    const double y = r.high;
    const double r1 = (y + toMultiple) - toMultiple;
    const double square = y * y;
    const double cubic =
        square * y *
        ((1.0 / 3 - y * 0.25) +
         square * ((0.2 - y * (1.0 / 6)) + square * ((1.0 / 7 - y * 0.125) + square * (1.0 / 9))));

    const Pair first = FastTwoSum(e * ln2High + row->high, y);
    const Pair second = FastTwoSum(first.high, -0.5 * r1 * r1);
    const double tail =
        ((e * ln2Low.high + row->middle) + (r.low - r.low * y)) + (cubic - 0.5 * (y - r1) * (y + r1));
    return FastTwoSum(second.high, (first.low + second.low) + tail);
}

// The sum: exact high parts, the series (29 u^2 of it), the low parts of the constants (2^-33 at most, so
// their errors don't count), two sums (3 u^2 each). Between the high parts and the series one bit may
// cancel.
Pair LogOfPair(Pair x)
{
    int subnormal = 0;
    if (x.high < 0x1p-1022) {
        x = Scale(x, 0x1p54);
        subnormal = -54;
    }
    const auto [exponent, high, row] = Decompose(x.high);
    const int half = -exponent / 2;
    const double low = x.low * PowerOfTwo(half) * PowerOfTwo(-exponent - half);
    const double e = exponent + subnormal;

    const Pair product = TwoProduct(high, row->reciprocal);
    const Pair r = TwoSum(product.high - 1.0, product.low) + TwoProduct(low, row->reciprocal);
    const Pair constants = ln2Low * e + Pair{row->middle, row->low};
    return ((e * ln2High + row->high) + LogOfOnePlusSmall(r)) + constants;
}

// Beyond 2^-7 the rounding of 1 + x, 2 u^2 (1 + x), is 2^-97.9 of the result at most where x > 0;
// below -2^-7 it grows in no other way.
Pair LogOfOnePlusPair(Pair x)
{
    if (std::fabs(x.high) <= 0x1p-7)
        return LogOfOnePlusSmall(x);
    return LogOfPair(1.0 + x);
}

} // namespace trelvanix
