#ifndef TRELVANIX_FILTERING_FIR_FILTER_H
#define TRELVANIX_FILTERING_FIR_FILTER_H

#include <cstdint>

namespace trelvanix
{

// A signal filtered by taps, the last tap on the newest sample: output[n] = sum over k of
// signal[n - tapCount + 1 + k] h[k], k increasing, from 0.0.
//
//   past     the tapCount - 1 samples before the signal, oldest first, zeros for a filter at rest; on return
//            those before whatever follows
//   output   signalLength doubles; doesn't overlap the inputs
void ApplyFir(const double* signal, std::int64_t signalLength, const double* h, std::int64_t tapCount,
              double* past, double* output);

} // namespace trelvanix

#endif
