#include <algorithm>
#include <cmath>
#include <cstdint>

#include "common/fixed_array.h"
#include "common/numbers.h"
#include "math/arc_tangent_kernel.h"
#include "math/scaled_rounding.h"
#include "math/trigonometric.h"
#include "math/wide_trigonometric.h"

namespace trelvanix
{
namespace
{

// x = significand 2^exponent with a significand from 1 to 2 in magnitude; x finite and not zero.
struct Scaled {
    double significand;
    int exponent;
};

Scaled SplitExponent(double x)
{
    const bool subnormal = std::fabs(x) < 0x1p-1022;
    const auto bits = BitCast<std::uint64_t>(subnormal ? x * 0x1p54 : x);
    const int exponent = static_cast<int>(bits >> 52 & 0x7FF) - 1023;
    const auto significand = BitCast<double>((bits & 0x800FFFFFFFFFFFFF) | 0x3FF0000000000000);
    return {significand, subnormal ? exponent - 54 : exponent};
}

Pair ScalePair(Pair x, int exponent)
{
    return {ScaleByPowerOfTwo(x.high, exponent), ScaleByPowerOfTwo(x.low, exponent)};
}

// Where a coordinate is zero or infinite, the angle is one of these multiples of pi / 4.
int EighthsOfTurn(double y, double x)
{
    const bool behind = std::signbit(x);
    if (y == 0.0 || (std::isinf(x) && !std::isinf(y)))
        return behind ? 4 : 0;
    if (std::isinf(x))
        return behind ? 3 : 1;
    return 2;
}

bool IsSpecial(double x)
{
    return x == 0.0 || !std::isfinite(x);
}

// The angle of a point with x > 0 and y / x = q < 2^-59, in magnitude. It is q less q^3 / 3. q is a
// rational of two significands of 53 bits: either it has at most 53 bits, or it differs from every number
// of at most 54 bits by more than 2^-108 of itself, which q^3 / 3 is not. So the double nearest to the
// angle is found from q and from what is just below q where q is exact; both matter where it is subnormal.
double SmallAngle(double y, double x)
{
    constexpr int limbs = 8;
    const WideNumber top = ToWide(y, limbs);
    const WideNumber bottom = ToWide(x, limbs);
    const WideNumber quotient = Divide(top, bottom);
    const bool exact = Compare(Multiply(quotient, bottom), top) == 0;
    const WideNumber little = Scale(ToWide(1.0, limbs + 1), UlpExponent(quotient) - 16);
    return ToDouble(exact ? Subtract(quotient, little) : Add(quotient, little));
}

// Both coordinates finite and not zero, y > 0, magnitudes from 2^-100 to 2^100.
double AngleOf(double y, double x)
{
    const Estimate fast = FastAngleOf({y, 0.0}, {x, 0.0});
    if (RoundsSafely(fast)) [[likely]]
        return fast.high + fast.low;
    const Pair accurate = PairAngleOf({y, 0.0}, {x, 0.0});
    if (RoundsSafely(accurate.high, accurate.low, pairBound * accurate.high))
        return accurate.high;
    return RoundByWidening(
        [=](int limbs) { return WideAngle(ToWide(y, limbs), ToWide(x, limbs), accurate.high); });
}

// Where one coordinate is so much smaller than the other that the angle rounds as a multiple of pi / 2: the
// bits of pi that follow the nearest double are far from a midpoint.
constexpr int doubleRatio = 60;
constexpr int pairRatio = 115;

// Any quotient below 2^-1200 is zero.
constexpr int smallestRatio = -1200;

} // namespace

double Atan(double x)
{
    // x^3 / 3 is less than a quarter of an ulp.
    if (std::fabs(x) < 0x1p-27 || std::isnan(x))
        return x;
    if (std::fabs(x) > 0x1p60)
        return std::copysign(nearestHalfPi, x);
    return std::copysign(AngleOf(std::fabs(x), 1.0), x);
}

double Atan2(double y, double x)
{
    if (std::isnan(x) || std::isnan(y))
        return x + y;
    if (IsSpecial(x) || IsSpecial(y)) {
        constexpr FixedArray<double, 5> angles = {0.0, nearestQuarterPi, nearestHalfPi,
                                                  nearestThreeQuarterPi, nearestPi};
        return std::copysign(angles[EighthsOfTurn(y, x)], y);
    }
    const Scaled height = SplitExponent(std::fabs(y));
    const Scaled width = SplitExponent(x);
    const int ratio = height.exponent - width.exponent;
    if (ratio > doubleRatio)
        return std::copysign(nearestHalfPi, y);
    if (ratio < -doubleRatio)
        return std::copysign(x < 0.0 ? nearestPi : SmallAngle(std::fabs(y), x), y);
    return std::copysign(AngleOf(ScaleByPowerOfTwo(height.significand, ratio), width.significand), y);
}

Pair Atan(Pair x)
{
    // The third power doesn't count, and would underflow.
    if (std::fabs(x.high) < 0x1p-55 || std::isnan(x.high))
        return x;
    return Atan2(x, Pair{1.0, 0.0});
}

Pair Atan2(Pair y, Pair x)
{
    if (std::isnan(x.high) || std::isnan(y.high))
        return {x.high + y.high, 0.0};
    const bool negative = std::signbit(y.high);
    const auto withSign = [=](Pair angle) { return negative ? -angle : angle; };
    if (IsSpecial(x.high) || IsSpecial(y.high))
        return withSign(piPair * (0.25 * EighthsOfTurn(y.high, x.high)));
    const int exponent = SplitExponent(x.high).exponent;
    const int ratio = SplitExponent(y.high).exponent - exponent;
    if (ratio > pairRatio)
        return withSign(halfPiPair);
    if (ratio < -pairRatio && x.high < 0.0)
        return withSign(piPair);
    const Pair width = ScalePair(x, -exponent);
    const Pair height = ScalePair(Abs(y), -exponent - ratio);
    if (ratio < -doubleRatio && x.high > 0.0)
        return withSign(ScalePair(height / width, std::max(ratio, smallestRatio)));
    return withSign(PairAngleOf(ScalePair(height, ratio), width));
}

} // namespace trelvanix
