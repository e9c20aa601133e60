#include "filtering/fir_filter.h"

#include <new>

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
    correlate(signal, h, signalLength, tapCount, output.get());
    return output;
}

} // namespace trelvanix
