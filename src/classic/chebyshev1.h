#ifndef TRELVANIX_CLASSIC_CHEBYSHEV1_H
#define TRELVANIX_CLASSIC_CHEBYSHEV1_H

#include <cstdint>
#include <vector>

#include "classic/butterworth.h"

namespace trelvanix
{

// Contract at Chebyshv1 in trelvanix.h.
void Chebyshv1(int order, double rp, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b);

// The poles of the type I lowpass with a ripple of rp decibels up to 1 rad/s, upper half plane first.
// The gain is the product of the poles, not of their negatives: for an odd order it is negative. It
// scales C and D of the model, which no result of a filter type 0 .. 3 depends on.
// Source: Parks & Burrus, Digital Filter Design, 1987.
AnalogPrototype Cheb1Prototype(int order, double rp);

// The points mu-scaled from the unit circle: order poles on the ellipse with half-axes sinh(mu) and
// cosh(mu), each made from its direction and the mirrored one, so that conjugates agree to the last
// bit and the middle one of an odd order is real.
std::vector<Complex> EllipsePoles(int order, double mu);

// The zeros and the gain of ButterworthZerosGain, the gain for an even order lowered by the ripple, so
// that the response peaks at one. For a filter type that is none of the four the zeros are 0 and the
// gain is that of the prototype instead.
ZerosAndGain Cheb1ZerosGain(const std::vector<Complex>& poles, FilterType filterType, int n, double Wo,
                            double rp, double prototypeGain);

} // namespace trelvanix

#endif
