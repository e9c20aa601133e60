#ifndef TRELVANIX_IIR_ELLIPTIC_PROTOTYPE_H
#define TRELVANIX_IIR_ELLIPTIC_PROTOTYPE_H

#include "iir/analog_prototype.h"

namespace trelvanix
{

// The elliptic lowpass with its pass band up to 1 rad/s and its stop band from 1/k rad/s on: zeros on the
// imaginary axis (one fewer than poles for an odd order), poles where the ripple says; conjugates are
// neighbours, of an odd order the real pole comes last. The gain is left at 1, see EllipticGain.
//
//   k     selectivity modulus, from the degree equation
//   nu0   -j / order times the u with sn(u K1, k1) = j / ep, where ep^2 = 10^(rp / 10) - 1 for a ripple of rp
//         decibels
//
// Source: Orfanidis, Lecture Notes on Elliptic Filter Design, 2006.
AnalogPrototype EllipticPrototype(int order, double k, Complex nu0);

// The gain with which the response of such a prototype has the modulus H0 at zero frequency: 1 for odd
// orders, the lower end of the ripple for even ones. The products run in the order of the arrays.
double EllipticGain(const AnalogPrototype& prototype, double H0);

} // namespace trelvanix

#endif
