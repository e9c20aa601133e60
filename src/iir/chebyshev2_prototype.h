#ifndef TRELVANIX_IIR_CHEBYSHEV2_PROTOTYPE_H
#define TRELVANIX_IIR_CHEBYSHEV2_PROTOTYPE_H

#include "iir/analog_prototype.h"

namespace trelvanix
{

// The type II lowpass with an attenuation of rs decibels from 1 rad/s on: zeros on the imaginary axis
// (one fewer than poles for an odd order), each followed by its conjugate, poles the reciprocals of
// those of type I, gain 1 at zero frequency.
// Source: Parks & Burrus, Digital Filter Design, 1987.
AnalogPrototype Cheb2Prototype(int order, double rs);

} // namespace trelvanix

#endif
