#ifndef TRELVANIX_FILTERING_FIR_KERNEL_H
#define TRELVANIX_FILTERING_FIR_KERNEL_H

#include <cstdint>

namespace trelvanix
{

// output[n] = sum over k of samples[n + k] h[k], k increasing, from 0.0. Reads outputCount + tapCount - 1
// samples; output and the inputs don't overlap.
using CorrelateKernel = void(const double* samples, const double* h, int tapCount,
                             std::int64_t outputCount, double* output);

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
