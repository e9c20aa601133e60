#ifndef TRELVANIX_TRANSFORM_FFT_KERNEL_H
#define TRELVANIX_TRANSFORM_FFT_KERNEL_H

#include <cstdint>

namespace trelvanix
{

// Fills the table of twiddles e^(-2 pi i k / period) that transforms of `size` elements run over: room for
// size / 2 complex elements, in an order of the instruction set's own. Sizes too small for the passes have
// none: nothing is written.
using MakeTwiddleTableKernel = void(std::int64_t size, int period, double* table);

// The passes for `size` elements, a power of two; see fourier.h. The three differ in where the elements
// come from and go to.
using TransformComplexKernel = void(const double* input, double* output, std::int64_t size, int period,
                                    const double* table);
using TransformConjugateKernel = TransformComplexKernel;
// work: room for size complex elements.
using TransformRealKernel = void(const double* x, std::int64_t count, double* outReal, double* outImag,
                                 std::int64_t size, int period, const double* table, double* work);

struct FftKernels {
    MakeTwiddleTableKernel* makeTwiddleTable;
    TransformComplexKernel* transformComplex;
    TransformConjugateKernel* transformConjugate;
    TransformRealKernel* transformReal;
};

} // namespace trelvanix

#endif
