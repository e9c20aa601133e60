#include "transform/fourier.h"

namespace trelvanix
{

InstructionSet FourierInstructionSet(InstructionSet best, [[maybe_unused]] std::int64_t size)
{
#if defined(TRELVANIX_X86_KERNELS)
    constexpr std::int64_t smallest = 128;
    if (best == InstructionSet::avx512 && size < smallest)
        return InstructionSet::avx2;
#endif
    return best;
}

FourierPasses PrepareFourier(std::int64_t size, int period, double* table)
{
    const auto kernels = KernelsFor<FftKernels>(FourierInstructionSet(BestInstructionSet(), size));
    kernels.makeTwiddleTable(size, period, table);
    return {kernels, size, period, table};
}

void TransformComplex(const FourierPasses& passes, const double* input, double* output)
{
    passes.kernels.transformComplex(input, output, passes.size, passes.period, passes.table);
}

void TransformConjugate(const FourierPasses& passes, const double* input, double* output)
{
    passes.kernels.transformConjugate(input, output, passes.size, passes.period, passes.table);
}

void TransformReal(const FourierPasses& passes, const double* x, std::int64_t count, double* outReal,
                   double* outImag, double* work)
{
    passes.kernels.transformReal(x, count, outReal, outImag, passes.size, passes.period, passes.table,
                                 work);
}

} // namespace trelvanix
