#ifndef TRELVANIX_FILTERING_FIR_KERNEL_H
#define TRELVANIX_FILTERING_FIR_KERNEL_H

#include <cstdint>

namespace trelvanix
{

// output[n] = sum over k of signal[n - tapCount + 1 + k] h[k], k increasing, from 0.0, for signalLength
// outputs. The samples before the signal are past[0 .. tapCount - 2], the newest last. output and the
// inputs don't overlap.
using CorrelateKernel = void(const double* past, const double* signal, const double* h,
                             std::int64_t signalLength, std::int64_t tapCount, double* output);

struct FirKernels {
    CorrelateKernel* correlate;
};

} // namespace trelvanix

#endif
