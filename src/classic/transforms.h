#ifndef TRELVANIX_CLASSIC_TRANSFORMS_H
#define TRELVANIX_CLASSIC_TRANSFORMS_H

#include "common/result_array.h"

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
