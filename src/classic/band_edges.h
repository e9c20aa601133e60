#ifndef TRELVANIX_CLASSIC_BAND_EDGES_H
#define TRELVANIX_CLASSIC_BAND_EDGES_H

#include <vector>

#include "classic/filter_type.h"

namespace trelvanix
{

// A piecewise linear amplitude: amplitudes[k] at frequencies[k], a fraction of the Nyquist frequency.
// Two equal frequencies in a row make a jump.
struct Breakpoints {
    std::vector<double> frequencies, amplitudes;
};

// The breakpoints of a filter type with its edges, from frequency 0 to 1:
//
//   bandpass             0 0 1 1 0 0  at  0, wc1, wc1, wc2, wc2, 1
//   bandstop             1 1 0 0 1 1  at  0, wc1, wc1, wc2, wc2, 1
//   highpass             0 0 1 1      at  0, wc1, wc2, 1, or 0, wc2, wc2, 1 when wc1 = 0
//   lowpass, any other   1 1 0 0      at  the frequencies of the highpass
//
// The zero tests of the two edges differ on purpose: wc1 = 0 says "one edge, wc2, without a transition
// band", while wc2 = 0 beside another wc1 says nothing. A not-a-number edge is not zero. The edges are
// not checked otherwise.
// Errors: std::invalid_argument "wc2 should not be '0' when wc1 is not '0'" (lowpass, highpass, any
// other).
Breakpoints BandEdgesToBreakpoints(FilterType filterType, double wc1, double wc2);

// d[k] = frequencies[k + 1] - frequencies[k], as many elements as frequencies; the last one is 0.
std::vector<double> BreakpointSteps(const std::vector<double>& frequencies);

// True unless a frequency is infinite or not a number.
bool AreFinite(const double* frequencies, int count);

} // namespace trelvanix

#endif
