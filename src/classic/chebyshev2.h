#ifndef TRELVANIX_CLASSIC_CHEBYSHEV2_H
#define TRELVANIX_CLASSIC_CHEBYSHEV2_H

#include <cstdint>

#include "classic/state_space.h"

namespace trelvanix
{

// Contract at Chebyshv2 in trelvanix.h.
void Chebyshv2(int order, double rs, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b);

// The type II lowpass with an attenuation of rs decibels from 1 rad/s on: zeros on the imaginary axis
// (one fewer than poles for an odd order), each followed by its conjugate, poles the reciprocals of
// those of type I, gain 1 at zero frequency.
// Source: Parks & Burrus, Digital Filter Design, 1987.
AnalogPrototype Cheb2Prototype(int order, double rs);

} // namespace trelvanix

#endif
