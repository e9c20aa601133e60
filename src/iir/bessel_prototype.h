#ifndef TRELVANIX_IIR_BESSEL_PROTOTYPE_H
#define TRELVANIX_IIR_BESSEL_PROTOTYPE_H

#include "iir/analog_prototype.h"

namespace trelvanix
{

inline constexpr int largestBesselOrder = 25;

// The poles of the analog Bessel lowpass, orders 0 to largestBesselOrder, scaled so that the product of their
// moduli is one; for an odd order the real one first, conjugates as neighbours; gain 1.
// Source: Thomson 1949; reverse Bessel polynomials, Krall & Frink 1949.
AnalogPrototype BesselPrototype(int order);

} // namespace trelvanix

#endif
