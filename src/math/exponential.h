#ifndef TRELVANIX_MATH_EXPONENTIAL_H
#define TRELVANIX_MATH_EXPONENTIAL_H

#include "math/pair.h"

namespace trelvanix
{

// The exponential function, the logarithm and their family.
//
// Functions of doubles return the double nearest to the exact value, ties to even, subnormal results
// included; signed zeros, infinities and not-a-number are those of Annex F of the C standard. So the
// result is the same on every processor and with every compiler. They run in up to three phases (Ziv
// 1991): a quick one, pairs of doubles, numbers of many limbs, each with a proven bound of its error,
// until the bound leaves one double.
//
// Functions of pairs have a relative error below 2^-95 while the result's magnitude is between 2^-900
// and 2^1000 and the argument's is too; below, the low part of the result loses bits to underflow.
// Where the result is no finite number (and for infinite arguments) the high part is what the function
// of doubles returns for the high part of the argument, and the low part is zero.

double Exp(double x);
Pair Exp(Pair x);

// e^x - 1, log(1 + x).
double Expm1(double x);
Pair Expm1(Pair x);
double Log1p(double x);
Pair Log1p(Pair x);

// Logarithms to the bases e, 10 and 2.
double Log(double x);
Pair Log(Pair x);
double Log10(double x);
Pair Log10(Pair x);
double Log2(double x);
Pair Log2(Pair x);

// x^y; for x < 0 with whole numbers y only. The pair's y is whole where both of its parts are.
double Pow(double x, double y);
Pair Pow(Pair x, Pair y);

double Sinh(double x);
Pair Sinh(Pair x);
double Cosh(double x);
Pair Cosh(Pair x);
double Tanh(double x);
Pair Tanh(Pair x);

double Asinh(double x);
Pair Asinh(Pair x);
double Acosh(double x);
Pair Acosh(Pair x);
double Atanh(double x);
Pair Atanh(Pair x);

// sqrt(x^2 + y^2), without overflow or underflow between.
double Hypot(double x, double y);
Pair Hypot(Pair x, Pair y);

} // namespace trelvanix

#endif
