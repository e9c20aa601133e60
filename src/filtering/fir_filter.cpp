#include "filtering/fir_filter.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

#include "common/growable_array.h"

namespace trelvanix
{
namespace
{

// output[n] = sum over k of samples[n + k] h[k], k increasing, from 0.0.
void Correlate(const double* samples, const double* h, int tapCount, std::int64_t outputCount,
               double* output)
{
    for (std::int64_t n = 0; n < outputCount; ++n) {
        double sum = 0.0;
        for (int k = 0; k < tapCount; ++k)
            sum += samples[n + k] * h[k];
        output[n] = sum;
    }
}

} // namespace

ResultArray FirFilterToSignal(const double* signal, const double* h, int signalLength, int tapCount)
{
    ResultArray output = NewResultArray(signalLength);
    if (tapCount < 0)
        throw std::bad_array_new_length();

    // While the delay line fills, the samples before the signal are zeros. Their products are taken
    // like all others, because an infinite tap makes not-a-number of them, so these outputs run over a
    // copy with the zeros in front; the rest reads the signal where it is.
    const int delay = std::max(tapCount - 1, 0);
    const int filling = std::min(delay, signalLength);
    if (filling > 0) {
        auto start = NewGrowableArray<double>(std::int64_t{delay} + filling);
        std::copy_n(signal, filling, start.data() + delay);
        Correlate(start.data(), h, tapCount, filling, output.get());
    }
    Correlate(signal, h, tapCount, signalLength - filling, output.get() + filling);
    return output;
}

} // namespace trelvanix
