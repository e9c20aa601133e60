#include "filtering/fir_kernel.h"

#include "common/lanes.h"

namespace trelvanix::TRELVANIX_INSTRUCTION_SET
{
namespace
{

TRELVANIX_INLINE double OneOutput(const double* samples, const double* h, int tapCount)
{
    double sum = 0.0;
    for (int k = 0; k < tapCount; ++k)
        sum += samples[k] * h[k];
    return sum;
}

} // namespace

// One output to a lane.
void Correlate(const double* samples, const double* h, int tapCount, std::int64_t outputCount,
               double* output)
{
    std::int64_t n = 0;
    for (; n + laneCount <= outputCount; n += laneCount) {
        Lanes sum = Broadcast(0.0);
        for (int k = 0; k < tapCount; ++k)
            sum = sum + Load(samples + n + k) * Broadcast(h[k]);
        Store(output + n, sum);
    }
    for (; n < outputCount; ++n)
        output[n] = OneOutput(samples + n, h, tapCount);
}

} // namespace trelvanix::TRELVANIX_INSTRUCTION_SET
