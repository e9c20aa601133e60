#include "filtering/fir_filter.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <vector>

#include "common/growable_array.h"
#include "common/instruction_set.h"
#include "filtering/fir_kernel.h"

namespace trelvanix
{
ResultArray FirFilterToSignal(const double* signal, const double* h, int signalLength, int tapCount)
{
    ResultArray output = NewResultArray(signalLength);
    if (tapCount < 0)
        throw std::bad_array_new_length();

    CorrelateKernel* const correlate = ForInstructionSet(BestInstructionSet(), baseline::Correlate,
                                                         avx2::Correlate, avx512::Correlate);
    // While the delay line fills, the samples before the signal are zeros. Their products are taken
    // like all others, because an infinite tap makes not-a-number of them, so these outputs run over a
    // copy with the zeros in front; the rest reads the signal where it is.
    const int delay = std::max(tapCount - 1, 0);
    const int filling = std::min(delay, signalLength);
    if (filling > 0) {
        auto start = NewGrowableArray<double>(std::int64_t{delay} + filling);
        std::copy_n(signal, filling, start.data() + delay);
        correlate(start.data(), h, tapCount, filling, output.get());
    }
    correlate(signal, h, tapCount, signalLength - filling, output.get() + filling);
    return output;
}

} // namespace trelvanix
