#ifndef TRELVANIX_MATH_TANGENT_KERNEL_H
#define TRELVANIX_MATH_TANGENT_KERNEL_H

#include <cmath>

#include "math/sine_kernel.h"

namespace trelvanix
{

// The quotient of FastSine's estimates. The first rounded quotient q leaves s - q c, exactly but for the
// roundings of the low parts, below 2^-106 and 2^-105 of s; dividing it by c.high instead of c, and its
// own roundings, cost less than 2^-104 q. Both bounds are carried over, with room for these: 2^-102 is
// below a thousandth of either.
inline Estimate FastTangent(const FastAngle& angle)
{
    const Estimate sine = FastSine(angle, 0);
    const Estimate cosine = FastSine(angle, quarterSteps);
    const Pair s = FastTwoSum(sine.high, sine.low);
    const Pair c = FastTwoSum(cosine.high, cosine.low);
    const double quotient = s.high / c.high;
    const Pair product = TwoProduct(quotient, c.high);
    const double rest = ((s.high - product.high) - product.low) + (s.low - quotient * c.low);
    const double scale = 1.001 / std::fabs(c.high);
    return {quotient, rest / c.high,
            (sine.bound + std::fabs(quotient) * cosine.bound) * scale + std::fabs(quotient) * 0x1p-102};
}

inline Pair PairTangent(const PairAngle& angle)
{
    return PairSine(angle, 0) / PairSine(angle, quarterSteps);
}

} // namespace trelvanix

#endif
