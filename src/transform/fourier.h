#ifndef TRELVANIX_TRANSFORM_FOURIER_H
#define TRELVANIX_TRANSFORM_FOURIER_H

#include <cstdint>

#include "common/instruction_set.h"
#include "transform/fft_kernel.h"

namespace trelvanix
{

// Forward radix-2 transforms by decimation in frequency: butterflies stage by stage on data in natural
// order, then one bit-reversal permutation. With the period equal to the size they are the discrete
// Fourier transform, X[k] = sum over j of x[j] e^(-2 pi i j k / size), unscaled. Complex arrays are pairs of
// doubles. Numbers are not checked.
// Source: Gentleman & Sande 1966.

// The passes for one size, and the table they run over. The table stays the caller's.
struct FourierPasses {
    FftKernels kernels;
    std::int64_t size;
    int period;
    const double* table;
};

// Makes the table of twiddles e^(-2 pi i k / period) for `size` elements, a power of two.
//   table   room for size / 2 complex elements
FourierPasses PrepareFourier(std::int64_t size, int period, double* table);

// The transform of input. output may be input itself, must not overlap it otherwise.
void TransformComplex(const FourierPasses& passes, const double* input, double* output);

// The transform of the conjugated input, both parts of every element divided by the period.
void TransformConjugate(const FourierPasses& passes, const double* input, double* output);

// The transform of x[0 .. count - 1], cut to the size or followed by zeros, into arrays of the real and the
// imaginary parts. They may overlap x, all of which is read before they are written.
//   work   room for size complex elements
void TransformReal(const FourierPasses& passes, const double* x, std::int64_t count, double* outReal,
                   double* outImag, double* work);

// The set whose kernels a transform of this size takes: small ones don't fill the widest vectors.
InstructionSet FourierInstructionSet(InstructionSet best, std::int64_t size);

} // namespace trelvanix

#endif
