#ifndef TRELVANIX_MATH_COMPLEX_FUNCTIONS_H
#define TRELVANIX_MATH_COMPLEX_FUNCTIONS_H

#include "common/complex_arithmetic.h"

namespace trelvanix
{

// Functions of z = x + iy: formulas in the correctly rounded real functions, evaluated in doubles
// exactly in the order written, so that the same bits come out everywhere. The parts of a result are no
// longer those nearest to the exact ones. Source: Kahan 1987.

// e^(j angle).
Complex UnitPhasor(double angle);

// (sin x cosh y, cos x sinh y).
Complex Sine(Complex z);

// (cos x cosh y, -(sin x sinh y)).
Complex Cosine(Complex z);

// 0 + iy for z = 0; else with t = sqrt((|x| + hypot(x, y)) * 0.5) for x >= 0 (t, y / (2t)), for x < 0
// (|y| / (2t), t with the sign of y). The branch cut is the negative real axis, continuous from above
// for y = +0 and from below for y = -0.
Complex SquareRoot(Complex z);

// With p = sqrt(1 + x, y) and m = sqrt(1 - x, -y)
//     (2 atan2(Re m, Re p), asinh(Re p Im m - Im p Re m)).
Complex ArcCosine(Complex z);

} // namespace trelvanix

#endif
