#include "filtering/iir_filter.h"

#include <algorithm>

#include "common/instruction_set.h"
#include "filtering/iir_kernel.h"

namespace trelvanix
{

void ApplyIir(const double* signal, std::int64_t signalLength, const double* b, const double* a,
              int coefCount, double* pastInputs, double* pastOutputs, double* output)
{
    RecurseKernel* const recurse = KernelsFor<IirKernels>(BestInstructionSet()).recurse;
    const std::int64_t delay = std::max(coefCount - 1, 0);
    const std::int64_t filling = std::min(delay, signalLength);

    // The first outputs run over copies of both sequences, with what came before in front.
    double* const x = pastInputs + delay;
    double* const y = pastOutputs + delay;
    std::copy_n(signal, filling, x);
    recurse(x, b, a, coefCount, filling, y);
    std::copy_n(y, filling, output);
    recurse(signal + filling, b, a, coefCount, signalLength - filling, output + filling);

    if (signalLength > delay) {
        std::copy_n(signal + signalLength - delay, delay, pastInputs);
        std::copy_n(output + signalLength - delay, delay, pastOutputs);
    } else {
        std::copy_n(pastInputs + filling, delay, pastInputs);
        std::copy_n(pastOutputs + filling, delay, pastOutputs);
    }
}

} // namespace trelvanix
