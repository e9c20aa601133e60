#include "math/exponential_core.h"

#include <limits>

#include "math/exponential_tables.h"
#include "math/quick_exponential.h"
#include "math/scaled_rounding.h"
#include "math/wide_exponential.h"

namespace trelvanix
{
namespace
{

struct Reduced {
    const PowerOfTwoRow* row;
    int exponent;
    Pair r;
};

// |steps| < 2^18: the first two products are exact. So is the first difference: both terms are
// multiples of the smaller of ulp(x.high) and 2^-43, the result is below 2^-8. Error: 2^-114 (last
// product), 3 u^2 |r|.
Reduced Reduce(Pair x)
{
    const auto [steps, row, exponent] = FindStep(x.high);
    const double r0 = x.high - steps * stepHigh;
    const Pair r = (TwoSum(r0, -steps * stepMiddle) + x.low) - steps * stepLow;
    return {row, exponent, r};
}

// e^r - 1 for |r| <= log(2) / 256 + 2^-40, by the series to r^10: what is left out is below
// 2^-109 |r|. The terms from r^6 / 720 on are below 2^-51 |r| and need no more than a double's
// precision (2^-103 |r|); the pairs before add rounding errors of 7 u^2 (product with r) + 3 u^2 (sum)
// at most, which the next step multiplies by |r|. Altogether below 2^-101 |r|.
Pair ExpMinusOneOfSmall(Pair r)
{
    const double x = r.high;
    const double tail =
        x * (1.0 / 720 + x * (1.0 / 5040 + x * (1.0 / 40320 + x * (1.0 / 362880 + x / 3628800))));
    const Pair q = 0.5 + r * (oneOver6 + r * (oneOver24 + r * (oneOver120 + tail)));
    return r + r * r * q;
}

} // namespace

// T + T (e^r - 1): the product is below 2^-8.4, the errors of the sum (3 u^2) and of the table (2 u^2)
// count.
ScaledPair ExpOfPair(Pair x)
{
    const auto [row, exponent, r] = Reduce(x);
    const Pair power = FastTwoSum(row->high, row->middle) + row->low;
    return {power + power * ExpMinusOneOfSmall(r), exponent};
}

// The first bound is above the logarithm of the largest double, the second below that of half of the
// smallest. e^x is irrational for x != 0: some precision decides.
double ExpByPairs(double x)
{
    if (!(x < 709.8))
        return x + std::numeric_limits<double>::infinity();
    if (x < -745.2)
        return 0.0;
    if (const auto result = RoundScaled(ExpOfPair({x, 0.0}), 0x1p-98))
        return *result;
    return RoundWide([x](int limbs) { return WideExp(ToWide(x, limbs + 2), limbs + 2); });
}

// (2^k T - 1) + 2^k T (e^r - 1). Without its low parts the table's power is exact, so that the
// difference keeps its relative precision whatever cancels.
Pair ExpMinusOneOfPair(Pair x)
{
    const auto [row, exponent, r] = Reduce(x);
    const Pair small = ExpMinusOneOfSmall(r);
    if (exponent == 0 && row->middle == 0.0)
        return small;
    // Below 2^-120 the power does not count beside -1.
    const double scale = PowerOfTwo(exponent < -120 ? -120 : exponent);
    const double high = scale * row->high, middle = scale * row->middle, low = scale * row->low;
    const Pair power = FastTwoSum(high, middle) + low;
    return (TwoSum(high, -1.0) + middle + low) + power * small;
}

} // namespace trelvanix
