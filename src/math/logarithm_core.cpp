#include "math/logarithm_core.h"

#include <cmath>

#include "math/exponential_tables.h"
#include "math/quick_logarithm.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

// log(1 + r) for |r| <= 2^-7 + 2^-50: s = r / (2 + r), |s| <= 2^-7.99, and the series
// 2 (s + s^3 / 3 + ... + s^13 / 13), whose next term is below 2^-115 |s|. The terms from 2 s^7 / 7 on,
// below 2^-49 |s|, need a double's precision; before them two sums and products of pairs, each below
// 2^-15 of the result; then a quotient (15 u^2), its sum (2 u^2) and a product (7 u^2).
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

// The sum: exact high parts, the series (25 u^2 of it), the low parts of the constants (2^-33 at most,
// so their errors don't count), two sums (3 u^2 each). Between the high parts and the series one bit
// may cancel.
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

// log(x) is irrational for x != 1: some precision decides.
double LogByPairs(double x)
{
    if (!IsInDomainOfLog(x))
        return LogOfSpecial(x);
    if (const auto result = Round(LogOfPair({x, 0.0}), 0x1p-98))
        return *result;
    return RoundWide([x](int limbs) { return WideLog(ToWide(x, limbs + 2), limbs + 2); });
}

// Beyond 2^-7 the rounding of 1 + x, 2 u^2 (1 + x), counts: the logarithm is above 2^-7.02 (1 + x)
// there in magnitude.
Pair LogOfOnePlusPair(Pair x)
{
    if (std::fabs(x.high) <= 0x1p-7)
        return LogOfOnePlusSmall(x);
    return LogOfPair(1.0 + x);
}

} // namespace trelvanix
