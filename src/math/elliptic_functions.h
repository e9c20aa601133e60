#ifndef TRELVANIX_MATH_ELLIPTIC_FUNCTIONS_H
#define TRELVANIX_MATH_ELLIPTIC_FUNCTIONS_H

#include <vector>

#include "common/complex_arithmetic.h"

// Jacobi elliptic functions by the descending Landen transformation, as elliptic filters use them.
// Moduli k lie in [0, 1]; arguments u are in units of the quarter period K(k), so that u = 1 stands for
// K. Numbers are not checked: moduli above 1 give not-a-number; those below 0, or no numbers, have no
// Landen sequence.
// Source: Orfanidis, Lecture Notes on Elliptic Filter Design, 2006.
namespace trelvanix
{

// The modulus at which a Landen sequence ends: five digits of the machine epsilon, on which the elliptic
// designs depend.
inline constexpr double landenTolerance = 2.2204e-16;

// The remainder of x modulo y in [-y/2, y/2], the sign of x deciding at the bounds.
double SymmetricRemainder(double x, double y);

// The moduli that descend from k, each the square of (previous / (1 + sqrt(1 - previous^2))). The last
// one is the first that is at or below landenTolerance, or that isn't smaller than the one before (which
// would go on for ever: k = 1), or that is not a number. Empty for k at or below the tolerance.
std::vector<double> LandenModuli(double k);

// The complete elliptic integrals of the first kind K(k) and K'(k) = K(sqrt(1 - k^2)); near k = 1 and
// k = 0, where one of them grows without bound, its series.
struct CompleteIntegrals {
    double K;
    double Kprime;
};
CompleteIntegrals EllipticK(double k);

// K for each parameter m = k^2 by the arithmetic-geometric mean. m = 1 gives infinity.
// Source: Abramowitz & Stegun, Handbook of Mathematical Functions, 1964, 17.6.
std::vector<double> EllipticKByAgm(const std::vector<double>& m);

// cd(uK, k) and sn(uK, k) for each u.
std::vector<double> JacobiCd(const std::vector<double>& u, double k);
std::vector<double> JacobiSn(const std::vector<double>& u, double k);
std::vector<Complex> JacobiCdComplex(const std::vector<Complex>& u, double k);
Complex JacobiSnComplex(Complex u, double k);

// The u with cd(uK, k) = w, or sn(uK, k) = w, in the fundamental rectangle of the function: the real
// part of the first in [-2, 2], its imaginary part within K'/K of 0.
Complex InverseCdComplex(Complex w, double k);
Complex InverseSnComplex(Complex w, double k);

// The selectivity modulus k of the elliptic filter of order N with the discrimination modulus k1, from
// the degree equation N K'/K = K1'/K1. For k1 from 1e-6 to 1: below, the complement that it is formed from has
// too few digits left.
double EllipticDegree(int N, double k1);

} // namespace trelvanix

#endif
