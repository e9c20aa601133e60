#ifndef TRELVANIX_CLASSIC_ELLIPTIC_H
#define TRELVANIX_CLASSIC_ELLIPTIC_H

#include <cstdint>

#include "classic/state_space.h"

namespace trelvanix
{

// Contract at Elliptic in trelvanix.h.
void Elliptic(int order, double rp, double rs, double* wn, std::uint32_t filterType, int analog,
              double* a, double* b);

// The elliptic lowpass with a ripple of rp decibels up to 1 rad/s and an attenuation of rs decibels
// beyond 1/k rad/s, k from the degree equation: zeros on the imaginary axis (one fewer than poles for an
// odd order), each followed by its conjugate; of an odd order the real pole comes last. The gain at zero
// frequency is 1 for odd orders and -rp decibels for even ones.
// Source: Orfanidis, Lecture Notes on Elliptic Filter Design, 2006.
AnalogPrototype EllipticPrototype(int order, double rp, double rs);

} // namespace trelvanix

#endif
