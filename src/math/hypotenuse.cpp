#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "common/numbers.h"
#include "math/exponential.h"
#include "math/scaled_rounding.h"
#include "math/wide_number.h"

namespace trelvanix
{
namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

// Squares of two doubles whose exponents differ by 60 at most, and the square of a number of 54 bits,
// in full.
constexpr int exactLimbs = 10;

// Of x > 0: its binary exponent, -1023 for subnormal numbers.
int ExponentOf(double x)
{
    const int biased = static_cast<int>(BitCast<std::uint64_t>(x) >> 52);
    return biased - 1023;
}

// The double nearest to sqrt(x^2 + y^2) 2^exponent, given an estimate of that which is close to the
// middle between two doubles: the square of the middle is compared with x^2 + y^2, both exact.
double RoundExactly(double x, double y, ScaledPair estimate)
{
    const auto [high, low] = estimate.value;
    // The doubles on both sides of the estimate, before the scaling; subnormal ones are multiples of
    // unit.
    const double smallestNormal = ScaleByPowerOfTwo(1.0, -1022 - estimate.exponent);
    const bool isSubnormal = high < smallestNormal;
    const double candidate = isSubnormal ? (smallestNormal + high) - smallestNormal : high;
    const bool isAbove = (high - candidate) + low > 0.0;
    const double unit = smallestNormal * 0x1p-52;
    const double neighbour =
        isSubnormal ? candidate + (isAbove ? unit : -unit)
                    : BitCast<double>(BitCast<std::uint64_t>(high) + (isAbove ? 1 : -1ULL));

    const WideNumber wideX = ToWide(x, exactLimbs), wideY = ToWide(y, exactLimbs);
    const WideNumber sum = Add(Multiply(wideX, wideX), Multiply(wideY, wideY));
    const WideNumber both = Add(ToWide(candidate, exactLimbs), ToWide(neighbour, exactLimbs));
    const WideNumber middle = Scale(both, -1);
    const int comparison = Compare(sum, Multiply(middle, middle));
    if (comparison == 0)
        return ToDouble(Scale(middle, estimate.exponent));
    return ScaleByPowerOfTwo((comparison > 0) == isAbove ? neighbour : candidate, estimate.exponent);
}

} // namespace

double Hypot(double x, double y)
{
    if (std::isinf(x) || std::isinf(y))
        return infinity;
    if (std::isnan(x) || std::isnan(y))
        return x + y;
    const double larger = std::max(std::fabs(x), std::fabs(y));
    const double smaller = std::min(std::fabs(x), std::fabs(y));
    // Beyond 2^-54 of the larger, the smaller adds less than a quarter of the distance to the next
    // double.
    if (smaller <= larger * 0x1p-54)
        return larger;
    const int exponent = ExponentOf(larger);
    const double a = ScaleByPowerOfTwo(larger, -exponent), b = ScaleByPowerOfTwo(smaller, -exponent);
    const Pair sum = TwoProduct(a, a) + TwoProduct(b, b);
    const ScaledPair estimate = {Sqrt(sum), exponent};
    if (const auto result = RoundScaled(estimate, 0x1p-102))
        return *result;
    return RoundExactly(a, b, estimate);
}

Pair Hypot(Pair x, Pair y)
{
    const double largest = std::max(std::fabs(x.high), std::fabs(y.high));
    if (!(std::fabs(x.high) < infinity && std::fabs(y.high) < infinity) || largest == 0.0)
        return {Hypot(x.high, y.high), 0.0};
    const int exponent = ExponentOf(largest);
    const Pair a = ToPair(ScaledPair{x, -exponent}), b = ToPair(ScaledPair{y, -exponent});
    return ToPair(ScaledPair{Sqrt(a * a + b * b), exponent});
}

} // namespace trelvanix
