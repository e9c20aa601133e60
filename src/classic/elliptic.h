#ifndef TRELVANIX_CLASSIC_ELLIPTIC_H
#define TRELVANIX_CLASSIC_ELLIPTIC_H

#include <cstdint>

#include "classic/state_space.h"

namespace trelvanix
{

// Contract at Elliptic in trelvanix.h.
void Elliptic(int order, double rp, double rs, double* wn, std::uint32_t filterType, int analog,
              double* a, double* b);

// EllipticPrototype for a ripple of rp decibels and an attenuation of rs decibels, with the modulus of
// SelectivityModulus, its zeros and poles paired (PairConjugates), but for the real pole of an odd order,
// which comes last. The gain at zero frequency is 1 for odd orders and -rp decibels for even ones.
AnalogPrototype PairedEllipticPrototype(int order, double rp, double rs);

} // namespace trelvanix

#endif
