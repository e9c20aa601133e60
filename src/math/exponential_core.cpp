#include "math/exponential_core.h"

#include <array>

namespace trelvanix
{
namespace
{

#include "math/exponential_constants.inc"

// 2^(j / 128) = high + middle + low; high has 26 bits.
struct PowerOfTwoRow {
    double high, middle, low;
};

constexpr std::array<PowerOfTwoRow, 128> powersOfTwo = {{
#include "math/exponential_table.inc"
}};

// 128 k + j as a double.
double NearestStep(double x)
{
    constexpr double toInteger = 0x1.8p52; // makes the last bit of a sum weigh one
    return (x * stepsPerUnit + toInteger) - toInteger;
}

struct Reduced {
    const PowerOfTwoRow* row;
    int exponent;
    Pair r;
};

// |steps| < 2^18: the first two products are exact. So is the first difference: both terms are multiples
// of the smaller of ulp(x.high) and 2^-43, the result is below 2^-8. Error: 2^-114 (last product), 3 u^2 |r|.
Reduced Reduce(Pair x)
{
    const double steps = NearestStep(x.high);
    const auto index = static_cast<int>(steps);
    const double r0 = x.high - steps * stepHigh;
    const Pair r = (TwoSum(r0, -steps * stepMiddle) + x.low) - steps * stepLow;
    return {&powersOfTwo[static_cast<unsigned>(index) & 127U], index >> 7, r};
}

// e^r - 1 for |r| <= log(2) / 256 + 2^-40, by the series to r^10: what is left out is below
// 2^-109 |r|. The terms from r^6 / 720 on are below 2^-51 |r| and need no more than a double's precision
// (2^-103 |r|); the pairs before add rounding errors of 7 u^2 (product with r) + 3 u^2 (sum) at most,
// which the next step multiplies by |r|. Altogether below 2^-101 |r|.
Pair ExpMinusOneOfSmall(Pair r)
{
    const double x = r.high;
    const double tail =
        x * (1.0 / 720 + x * (1.0 / 5040 + x * (1.0 / 40320 + x * (1.0 / 362880 + x / 3628800))));
    const Pair q = 0.5 + r * (oneOver6 + r * (oneOver24 + r * (oneOver120 + tail)));
    return r + r * r * q;
}

} // namespace

// With u = 2^-53 and |r| < 2^-8.5:
//   r     r0 is exact. Below 2^-26 in magnitude r0 - middle may lose up to 2^-79 to FastTwoSum, else the
//         sum is exact; the product with stepMiddle + stepLow is rounded at 2^-26 u = 2^-79
//   q     = e^r - 1 - r: the series is cut at 2^-72, evaluated with 2 u |q| < 2^-70
//   T e^r = a + a r1 + (b + a r2 + b r + T (q + rest e^r)), T = a + b: a has 26 bits and r1 is a multiple of 2^-34,
//         so that their product is exact; b and a r2 are below 2^-25, so their errors are below 2^-77
// Together less than 2^-69 against a result of 1 at least.
ScaledPair QuickExp(double high, double low)
{
    const double steps = NearestStep(high);
    const auto index = static_cast<int>(steps);
    const PowerOfTwoRow& row = powersOfTwo[static_cast<unsigned>(index) & 127U];
    const Pair r = FastTwoSum(high - steps * stepHigh, -steps * (stepMiddle + stepLow));
    const double rest = r.low + low;

    constexpr double toMultiple = 0x1.8p18; // makes the last bit of a sum weigh 2^-34
    const double x = r.high;
    const double r1 = (x + toMultiple) - toMultiple;
    const double square = x * x;
    const double q = square * (0.5 + x * (1.0 / 6)) +
                     square * square * (1.0 / 24 + x * (1.0 / 120 + x * (1.0 / 720)));
    const double correction = q + (rest + rest * (x + q));

    const double a = row.high, b = row.middle;
    const Pair sum = FastTwoSum(a, a * r1);
    const double rounded = a + b;
    const double tail = sum.low + (b + ((a * (x - r1) + b * x) + rounded * correction));
    return {FastTwoSum(sum.high, tail), index >> 7};
}

// T + T (e^r - 1): the product is below 2^-8.4, the errors of the sum (3 u^2) and of the table (2 u^2) count.
ScaledPair ExpOfPair(Pair x)
{
    const auto [row, exponent, r] = Reduce(x);
    const Pair power = FastTwoSum(row->high, row->middle) + row->low;
    return {power + power * ExpMinusOneOfSmall(r), exponent};
}

// (2^k T - 1) + 2^k T (e^r - 1). Without its low parts the table's power is exact, so that the difference
// keeps its relative precision whatever cancels.
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
