#ifndef TRELVANIX_TRANSFORM_FFT_KERNEL_H
#define TRELVANIX_TRANSFORM_FFT_KERNEL_H

#include <cstdint>

namespace trelvanix
{

// The forward transform of the first `size` elements, a power of two, with the twiddles
// e^(-2 pi i k / n); see ForwardTransform. Complex arrays are pairs of doubles.
//
//   twiddles   room for size / 2 complex elements, overwritten
//
// The three differ in where the elements come from and go to.

// output may be input itself.
using TransformComplexKernel = void(const double* input, double* output, std::int64_t size, int n,
                                    double* twiddles);

// The transform of the conjugated input, every part divided by n. output may be input itself.
using TransformConjugateKernel = TransformComplexKernel;

// The transform of x[0 .. count - 1] followed by zeros, into real and imaginary parts. All of x is read
// before anything is written to them. work: room for size complex elements.
using TransformRealKernel = void(const double* x, std::int64_t count, double* outReal, double* outImag,
                                 std::int64_t size, int n, double* work, double* twiddles);

namespace baseline
{
TransformComplexKernel TransformComplex;
TransformConjugateKernel TransformConjugate;
TransformRealKernel TransformReal;
} // namespace baseline
namespace avx2
{
TransformComplexKernel TransformComplex;
TransformConjugateKernel TransformConjugate;
TransformRealKernel TransformReal;
} // namespace avx2
namespace avx512
{
TransformComplexKernel TransformComplex;
TransformConjugateKernel TransformConjugate;
TransformRealKernel TransformReal;
} // namespace avx512

} // namespace trelvanix

#endif
