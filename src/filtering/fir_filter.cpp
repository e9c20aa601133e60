#include "filtering/fir_filter.h"

#include <algorithm>

#include "common/instruction_set.h"
#include "filtering/fir_kernel.h"

namespace trelvanix
{

void ApplyFir(const double* signal, std::int64_t signalLength, const double* h, std::int64_t tapCount,
              double* past, double* output)
{
    KernelsFor<FirKernels>(BestInstructionSet())
        .correlate(past, signal, h, signalLength, tapCount, output);

    const std::int64_t delay = std::max<std::int64_t>(tapCount - 1, 0);
    const std::int64_t kept = std::max<std::int64_t>(delay - signalLength, 0);
    std::copy_n(past + (delay - kept), kept, past);
    std::copy_n(signal + signalLength - (delay - kept), delay - kept, past + kept);
}

} // namespace trelvanix
