#ifndef TRELVANIX_IIR_CHEBYSHEV1_PROTOTYPE_H
#define TRELVANIX_IIR_CHEBYSHEV1_PROTOTYPE_H

#include <vector>

#include "iir/analog_prototype.h"

namespace trelvanix
{

// The poles of the type I lowpass with a ripple of rp decibels up to 1 rad/s, upper half plane first. The
// response peaks at one.
// Source: Parks & Burrus, Digital Filter Design, 1987.
AnalogPrototype Cheb1Prototype(int order, double rp);

// Points of the left half plane on the ellipse with half-axes sinh(mu) and cosh(mu), one for each of `order`
// directions spread evenly; each is made from its direction and the mirrored one, so that conjugates agree
// to the last bit and the middle one of an odd order is real.
std::vector<Complex> EllipsePoles(int order, double mu);

} // namespace trelvanix

#endif
