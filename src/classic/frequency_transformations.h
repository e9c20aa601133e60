#ifndef TRELVANIX_CLASSIC_FREQUENCY_TRANSFORMATIONS_H
#define TRELVANIX_CLASSIC_FREQUENCY_TRANSFORMATIONS_H

#include "classic/edge_preparation.h"
#include "classic/filter_type.h"
#include "classic/state_space.h"

namespace trelvanix
{

// The four transformations of a lowpass model with its edge at 1 rad/s, each evaluated exactly in the
// order written. Frequencies are in rad/s, as prepared from the band edges. Numbers are not checked; a
// singular A (a prototype pole at 0) gives non-finite entries in those that invert it.
// Source: Parks & Burrus, Digital Filter Design, 1987.

// s -> s / Wo:  A Wo, B Wo; C and D stay.
void LpToLp(StateSpace& model, double Wo);

// s -> Wo / s:  Wo A^-1, -Wo (A^-1 B), C A^-1, D - (C A^-1) B.
void LpToHp(StateSpace& model, double Wo);

// s -> (s^2 + Wo^2) / (Bw s).  The model gets as many states again; with Q = Wo / Bw
//
//        A' = [ A / Q * Wo   Wo I ]      B' = [ Wo * B / Q ]      C' = [ C  0 ]      D' = D
//             [   -Wo I        0  ]           [     0      ]
//
// If it cannot grow, writes "Memory allocation failed for 'a' or 'b' or 'c'." to std::cerr and ends
// the process with exit status 1.
void LpToBp(StateSpace& model, double Wo, double Bw);

// s -> Bw s / (s^2 + Wo^2).  Likewise, with Ai = A^-1
//
//        A' = [ Wo * Ai / Q  Wo I ]      B' = [ (Ai B) * -1 * Wo / Q ]      C' = [ C Ai  0 ]
//             [   -Wo I        0  ]           [           0          ]      D' = D - (C Ai) B
//
// If it cannot grow, std::bad_alloc leaves it, unlike LpToBp.
void LpToBs(StateSpace& model, double Wo, double Bw);

// The transformation of a filter type; a type that is none of the four gets the lowpass.
void TransformLowPass(StateSpace& model, FilterType filterType, const PreparedEdges& edges);

} // namespace trelvanix

#endif
