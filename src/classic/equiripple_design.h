#ifndef TRELVANIX_CLASSIC_EQUIRIPPLE_DESIGN_H
#define TRELVANIX_CLASSIC_EQUIRIPPLE_DESIGN_H

#include "classic/result_array.h"

namespace trelvanix
{

// Equiripple filter from a type and its edges; contract at CreateFirByRemez in trelvanix.h.
ResultArray CreateFirByRemez(int order, int filterType, double wc1, double wc2);

// The order + 1 symmetric taps of the filter whose weighted error in the bands is equiripple. Bands and
// weights are those of DesignGrid, the first edge being 0 and the last 1. The edges come back halved,
// in cycles per sample.
//
// An edge that is infinite or not a number makes every tap not-a-number. Edges out of order or outside
// [0, 1] are taken as they are. Order -1 gives an empty array.
// Errors, first failure wins: std::bad_array_new_length for an order below -1 or one whose tap count
// does not fit an int; std::bad_alloc; std::invalid_argument for a first edge other than 0 or a last
// one other than 1; std::length_error "vector too long" for a grid of more than 2^24 points. The edges
// are untouched then.
ResultArray DesignEquiripple(int order, double* edges, const double* amplitudes, int edgeCount,
                             const double* bandWeights, int bandWeightCount);

} // namespace trelvanix

#endif
