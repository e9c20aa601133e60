#ifndef TRELVANIX_TRANSFORM_FFT_ENGINE_H
#define TRELVANIX_TRANSFORM_FFT_ENGINE_H

#include <cstdint>

namespace trelvanix
{

// Forward radix-2 transform by decimation in frequency: butterflies stage by stage on data in natural
// order, then one bit-reversal permutation. X[k] = sum over j of x[j] e^(-2 pi i j k / n), unscaled.
//
//   input    n complex elements as pairs of doubles
//   output   n complex elements, written in full; may be input itself, must not overlap it otherwise
//   n        number of elements; n < 1 does nothing
//
// Lengths other than powers of two: with m = floor(log2 n) the stages run on the first 2^m inputs, the
// twiddles being e^(-2 pi i k / n) all the same. Then the elements from 2^m on are set to zero, and so
// are those at bitreverse(i) (m bits) for i = 0 .. n - 2^m - 1. This is what hosts have always got for
// such lengths, and it stays.
//
// Errors: std::bad_alloc from the table of twiddles, 2^(m-1) complex elements. Numbers are not checked.
// Source: Gentleman & Sande 1966.
void ForwardTransform(const double* input, double* output, int n);

// The forward transform of the conjugated input, both parts of every element divided by n.
void ConjugateTransform(const double* input, double* output, int n);

// The forward transform of n real numbers, x[0 .. count - 1] cut or followed by zeros, into arrays of the
// real and the imaginary parts. They may overlap x, which is read before they are written. Needs another
// 2^m complex elements of memory.
void RealTransform(const double* x, std::int64_t count, double* outReal, double* outImag, int n);

} // namespace trelvanix

#endif
