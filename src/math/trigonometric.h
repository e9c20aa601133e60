#ifndef TRELVANIX_MATH_TRIGONOMETRIC_H
#define TRELVANIX_MATH_TRIGONOMETRIC_H

#include "math/pair.h"

namespace trelvanix
{

// Trigonometric functions whose results depend on no platform: of a double, the double nearest to the
// exact value, ties to even, for every argument, subnormal and huge ones included; special values as
// Annex F of the C standard has them (of infinities and not-a-number where it says nothing else:
// not-a-number). Angles are in radians. Two phases test whether their error bound leaves the rounding
// open (Ziv 1991), and a third one decides what remains.
//
// Of a pair of doubles: relative error below 2^-95, arguments as close to poles and zeros as pairs can be
// included; where the result's magnitude is below 2^-900 as good as its low part can hold. Special values
// have a low part of zero.

double Sin(double x);
double Cos(double x);

struct SineAndCosine {
    double sine;
    double cosine;
};

// Both at little more than the cost of one.
SineAndCosine SinAndCos(double x);

double Tan(double x);

// From -pi/2 to pi/2.
double Atan(double x);

// The angle of the point (x, y) from the positive x axis, from -pi to pi.
double Atan2(double y, double x);

// Not-a-number outside [-1, 1].
double Asin(double x);
double Acos(double x);

// Sine, cosine and tangent of pi x. Multiples of half a turn give the zeros and infinities of IEEE 754:
// sine: the sign of x; cosine: +0; tangent: zero with the sign of x for even, the other sign for odd
// multiples, +infinity at n + 1/2 for even n, -infinity for odd n.
double SinPi(double x);
double CosPi(double x);
double TanPi(double x);

struct PairSineAndCosine {
    Pair sine;
    Pair cosine;
};

Pair Sin(Pair x);
Pair Cos(Pair x);
PairSineAndCosine SinAndCos(Pair x);
Pair Tan(Pair x);
Pair Atan(Pair x);
Pair Atan2(Pair y, Pair x);
Pair Asin(Pair x);
Pair Acos(Pair x);
Pair SinPi(Pair x);
Pair CosPi(Pair x);
Pair TanPi(Pair x);

} // namespace trelvanix

#endif
