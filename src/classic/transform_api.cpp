#include "trelvanix.h"

#include "classic/transforms.h"

double* DFT(const double* input, int ignored, int n)
{
    return FFT(input, ignored, n);
}

double* FFT(const double* input, int /*ignored*/, int n)
{
    return trelvanix::FFT(input, n).release();
}

double* IFFT(const double* input, int /*ignored*/, int n)
{
    return trelvanix::IFFT(input, n).release();
}

void FFText(const double* x, int xCount, int n, double* outReal, double* outImag)
{
    trelvanix::FFText(x, xCount, n, outReal, outImag);
}
