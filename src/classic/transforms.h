#ifndef TRELVANIX_CLASSIC_TRANSFORMS_H
#define TRELVANIX_CLASSIC_TRANSFORMS_H

#include "classic/result_array.h"

// Lengths other than powers of two: with m = floor(log2 n) the passes run on the first 2^m inputs, the
// twiddles being e^(-2 pi i k / n) all the same. Then the elements from 2^m on are set to zero, and so are
// those at bitreverse(i) (m bits) for i = 0 .. n - 2^m - 1. This is what hosts have always got for such
// lengths, and it stays.
namespace trelvanix
{

// Spectrum of n complex elements; contract at FFT in trelvanix.h.
ResultArray FFT(const double* input, int n);

// Conjugate of the inverse transform, scaled by 1/n; contract at IFFT in trelvanix.h.
ResultArray IFFT(const double* input, int n);

// Spectrum of a real signal, cut or zero-padded to n samples, as two real arrays; contract at FFText in
// trelvanix.h.
void FFText(const double* x, int xCount, int n, double* outReal, double* outImag);

} // namespace trelvanix

#endif
