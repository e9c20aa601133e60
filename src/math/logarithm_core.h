#ifndef TRELVANIX_MATH_LOGARITHM_CORE_H
#define TRELVANIX_MATH_LOGARITHM_CORE_H

#include <limits>

#include "math/pair.h"

namespace trelvanix
{

// What the logarithms, the power and the inverse hyperbolic functions are made of. x is read as 2^e m
// with m between 0.70 and 1.42, and
//
//     log(x) = e log(2) - log(c) + log(1 + r),   r = m c - 1,   |r| <= 2^-7,
//
// c an approximation of 1 / m with few bits from a table, 1 where m is close to 1 (Tang 1990).

// Whether log(x) is a finite number.
constexpr bool IsInDomainOfLog(double x)
{
    return x > 0.0 && x < std::numeric_limits<double>::infinity();
}

// What the logarithm, to any base, is of x outside that domain.
constexpr double LogOfSpecial(double x)
{
    if (x == 0.0)
        return -std::numeric_limits<double>::infinity();
    return x < 0.0 ? std::numeric_limits<double>::quiet_NaN() : x;
}

// The double nearest to log(x) without a quick phase, for any x.
double LogByPairs(double x);

// log(x) for x > 0, finite; relative error below 2^-99. Zero for 1.
Pair LogOfPair(Pair x);

// log(1 + x), relative error below 2^-97, for x > -1 and finite.
Pair LogOfOnePlusPair(Pair x);

} // namespace trelvanix

#endif
