#ifndef TRELVANIX_CLASSIC_BUTTERWORTH_H
#define TRELVANIX_CLASSIC_BUTTERWORTH_H

#include <cstdint>
#include <vector>

#include "classic/filter_type.h"
#include "classic/state_space.h"
#include "common/complex_arithmetic.h"

namespace trelvanix
{

// Contract at Butterworth in trelvanix.h.
void Butterworth(int order, double* wn, std::uint32_t filterType, int analog, double* a, double* b);

struct ZerosAndGain {
    std::vector<Complex> zeros;
    double gain;
};

// Digital zeros of an all-pole prototype, and the gain that makes the response one at the reference
// frequency: 0 (lowpass, bandstop), Nyquist (highpass), the centre (bandpass).
//
//   poles       the digital poles, as many as zeros come out
//   filterType  lowpass: zeros at -1; highpass: at +1; bandpass: the first n at +1, the others at -1;
//               bandstop: at the centre frequency, conjugates as neighbours; any other: all 0, and
//               the gain is 0
//   n           order of the prototype
//   Wo          prewarped edge or centre frequency
ZerosAndGain ButterworthZerosGain(const std::vector<Complex>& poles, FilterType filterType, int n,
                                  double Wo);

} // namespace trelvanix

#endif
