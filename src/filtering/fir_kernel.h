#ifndef TRELVANIX_FILTERING_FIR_KERNEL_H
#define TRELVANIX_FILTERING_FIR_KERNEL_H

#include <cstdint>

namespace trelvanix
{

// output[n] = sum over k of signal[n - tapCount + 1 + k] h[k], k increasing, from 0.0, for signalLength
// outputs. Samples before the signal are zeros, and their products take place like all others. output
// and the inputs don't overlap.
using CorrelateKernel = void(const double* signal, const double* h, std::int64_t signalLength,
                             std::int64_t tapCount, double* output);

namespace baseline
{
CorrelateKernel Correlate;
}
namespace avx2
{
CorrelateKernel Correlate;
}
namespace avx512
{
CorrelateKernel Correlate;
}

} // namespace trelvanix

#endif
