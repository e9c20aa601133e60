#ifndef TRELVANIX_MATH_EXPONENTIAL_CORE_H
#define TRELVANIX_MATH_EXPONENTIAL_CORE_H

#include "math/pair.h"
#include "math/scaled_rounding.h"

namespace trelvanix
{

// What the exponential, the power and the hyperbolic functions are made of. x is read as
//
//     x = (128 k + j) log(2) / 128 + r,   |r| <= log(2) / 256,   e^x = 2^k 2^(j / 128) e^r,
//
// with 2^(j / 128) from a table (the reduction of Tang 1989). Those of pairs take |x.high| < 1100;
// value.high of their results lies between 0.99 and 2.01.

// e^x, relative error below 2^-99.
ScaledPair ExpOfPair(Pair x);

// The double nearest to e^x without a quick phase, for any x.
double ExpByPairs(double x);

// e^x - 1, relative error below 2^-99; |x| < 700.
Pair ExpMinusOneOfPair(Pair x);

} // namespace trelvanix

#endif
