#ifndef TRELVANIX_CLASSIC_BESSEL_H
#define TRELVANIX_CLASSIC_BESSEL_H

#include "classic/state_space.h"

namespace trelvanix
{

// Contract at Bessel in trelvanix.h.
void Bessel(int order, double* wn, int filterType, double* a, double* b);

// BesselPrototype but for what hosts rely on: order 4 has one pole of its second pair twice instead of the pair,
// order 17 has the value of its real pole as an imaginary part, orders above the table have all poles at 0.
AnalogPrototype ReleasedBesselPrototype(int order);

} // namespace trelvanix

#endif
