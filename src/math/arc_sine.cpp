#include <cmath>
#include <limits>

#include "math/arc_tangent_kernel.h"
#include "math/trigonometric.h"
#include "math/wide_trigonometric.h"

// asin x is the angle of the point (sqrt(1 - x^2), x), acos x that of (x, sqrt(1 - x^2)).
namespace trelvanix
{
namespace
{

// sqrt(1 - x^2), with what (1 - x)(1 + x) keeps where |x| is near 1. Relative error below 2^-102.
Pair OtherLeg(Pair x)
{
    return Sqrt((1.0 - x) * (1.0 + x));
}

// The same of a double, whose square is exact as a pair; where it is near 1, the difference is, too.
Pair OtherLeg(double x)
{
    const Pair square = TwoProduct(x, x);
    const Pair difference = TwoSum(1.0, -square.high);
    return Sqrt(FastTwoSum(difference.high, difference.low - square.low));
}

WideNumber WideOtherLeg(const WideNumber& x)
{
    const WideNumber one = ToWide(1.0, x.limbs);
    return Sqrt(Multiply(Subtract(one, x), Add(one, x)));
}

// |angle of (x, y)| where one coordinate is that double and the other one its other leg.
template <class Wide>
double AngleOf(Pair y, Pair x, const Wide& wide)
{
    const Estimate fast = FastAngleOf(y, x);
    if (RoundsSafely(fast)) [[likely]]
        return fast.high + fast.low;
    const Pair accurate = PairAngleOf(y, x);
    if (RoundsSafely(accurate.high, accurate.low, pairBound * accurate.high))
        return accurate.high;
    return RoundByWidening([&](int limbs) { return wide(limbs, accurate.high); });
}

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

} // namespace

double Asin(double x)
{
    const double magnitude = std::fabs(x);
    // x^3 / 6 is less than a quarter of an ulp.
    if (magnitude < 0x1p-27)
        return x;
    if (!(magnitude < 1.0))
        return magnitude == 1.0 ? std::copysign(nearestHalfPi, x) : nan;
    const Pair leg{magnitude, 0.0};
    return std::copysign(AngleOf(leg, OtherLeg(magnitude),
                                 [=](int limbs, double estimate) {
                                     const WideNumber wide = ToWide(magnitude, limbs);
                                     return WideAngle(wide, WideOtherLeg(wide), estimate);
                                 }),
                         x);
}

double Acos(double x)
{
    // The angle rounds as a quarter turn does: the bits of pi that follow are far from a midpoint.
    if (std::fabs(x) < 0x1p-60)
        return nearestHalfPi;
    if (!(std::fabs(x) < 1.0)) {
        if (x == 1.0)
            return 0.0;
        return x == -1.0 ? nearestPi : nan;
    }
    const Pair leg{x, 0.0};
    return AngleOf(OtherLeg(x), leg, [=](int limbs, double estimate) {
        const WideNumber wide = ToWide(x, limbs);
        return WideAngle(WideOtherLeg(wide), wide, estimate);
    });
}

Pair Asin(Pair x)
{
    // The third power doesn't count, and would underflow.
    if (std::fabs(x.high) < 0x1p-55)
        return x;
    if (!(Abs(x) <= Pair{1.0, 0.0}))
        return {nan, 0.0};
    return Atan2(x, OtherLeg(x));
}

Pair Acos(Pair x)
{
    if (!(Abs(x) <= Pair{1.0, 0.0}))
        return {nan, 0.0};
    return Atan2(OtherLeg(x), x);
}

} // namespace trelvanix
