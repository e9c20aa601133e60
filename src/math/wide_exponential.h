#ifndef TRELVANIX_MATH_WIDE_EXPONENTIAL_H
#define TRELVANIX_MATH_WIDE_EXPONENTIAL_H

#include "math/pair.h"
#include "math/wide_number.h"

namespace trelvanix
{

// The exponential and the logarithm to as many limbs as asked for (at most WideNumber::maxLimbs - 1),
// for the last phases. Relative errors below 2^(-32 limbs + 32).

// high + low, exactly where it fits into the limbs.
WideNumber ToWide(Pair x, int limbs);

// e^x, for |x| < 2^11.
WideNumber WideExp(const WideNumber& x, int limbs);

// log(x), for x > 0. Near 1 the error is relative to x - 1, which therefore must be exact.
WideNumber WideLog(const WideNumber& x, int limbs);

} // namespace trelvanix

#endif
