#ifndef TRELVANIX_CLASSIC_BILINEAR_H
#define TRELVANIX_CLASSIC_BILINEAR_H

#include "classic/state_space.h"

namespace trelvanix
{

// The discrete model of an analog one, s -> 2 fs (z - 1) / (z + 1), in place. With t = 1/fs,
// r = sqrt(t), T1 = I + A t/2 and T2 = I - A t/2 it is
//
//        A' = T2^-1 T1,   B' = t (T2^-1 B) / r,   C' = (C T2^-1) r,   D' = t (C T2^-1 B) / 2 + D.
//
// Numbers are not checked; an analog pole at 2 fs gives non-finite entries.
// Source: Parks & Burrus, Digital Filter Design, 1987.
void BilinearSs(StateSpace& model, double fs);

} // namespace trelvanix

#endif
