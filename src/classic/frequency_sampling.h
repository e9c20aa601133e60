#ifndef TRELVANIX_CLASSIC_FREQUENCY_SAMPLING_H
#define TRELVANIX_CLASSIC_FREQUENCY_SAMPLING_H

#include <vector>

#include "classic/band_edges.h"
#include "classic/result_array.h"

namespace trelvanix
{

// Linear-phase FIR filter by frequency sampling; contract at CreateFirByFS in trelvanix.h.
ResultArray CreateFirByFS(int order, int filterType, int windowType, double wc1, double wc2);

// Throws std::invalid_argument for the first argument out of range, in the order order, windowType (the
// windowed design checks them the other way round). Neither the filter type nor the edges are checked.
void CheckFirByFSArguments(int order, int windowType);

// Number of steps npt of the frequency grid of a filter with tapCount >= 1 taps: 512 below 1024 taps,
// otherwise the power of two at or above tapCount, as found through logarithms.
// Errors: std::bad_array_new_length if the 2 * npt points of the full circle do not fit an int.
int FrequencyGridSize(int tapCount);

// The desired amplitude at the npt + 1 frequencies i / npt, i = 0 .. npt: linear between breakpoints, a
// jump spread over trunc(npt / 25) + 1 points around it. Points that no section reaches are 0, the
// first of them the first amplitude.
//
//   breakpoints   finite frequencies, in any order and range: what lies outside the grid is left out
//   npt           steps of the grid, a power of two >= 512
//
// Errors: std::length_error, std::bad_alloc.
std::vector<double> SampleBreakpoints(const Breakpoints& breakpoints, int npt);

} // namespace trelvanix

#endif
