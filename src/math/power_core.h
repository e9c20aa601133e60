#ifndef TRELVANIX_MATH_POWER_CORE_H
#define TRELVANIX_MATH_POWER_CORE_H

#include "math/wide_number.h"

namespace trelvanix
{

// The double nearest to x^y without a quick phase, for finite x > 0, x != 1, and finite y != 0.
double PowOfPositive(double x, double y);

// x^y for x > 0 and |y log(x)| < 2^11; relative error below 2^(-32 limbs).
WideNumber WidePow(const WideNumber& x, const WideNumber& y, int limbs);

} // namespace trelvanix

#endif
