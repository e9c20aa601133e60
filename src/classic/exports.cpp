// The twenty exported functions: each calls its twin in namespace trelvanix, under the default arithmetic if it
// computes, and hands the result over. None calls another export, since on ELF a host's function of the same name
// would get the call.
#include "trelvanix.h"

#include "classic/bessel.h"
#include "classic/butterworth.h"
#include "classic/chebyshev1.h"
#include "classic/chebyshev2.h"
#include "classic/elliptic.h"
#include "classic/equiripple_design.h"
#include "classic/equiripple_order.h"
#include "classic/frequency_sampling.h"
#include "classic/minimum_order.h"
#include "classic/result_array.h"
#include "classic/roots.h"
#include "classic/signal_filters.h"
#include "classic/transforms.h"
#include "classic/windowed_design.h"
#include "common/arithmetic_environment.h"

double* DFT(const double* input, int /*ignored*/, int n)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::FFT(input, n).release();
}

double* FFT(const double* input, int /*ignored*/, int n)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::FFT(input, n).release();
}

double* IFFT(const double* input, int /*ignored*/, int n)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::IFFT(input, n).release();
}

void FFText(const double* x, int xCount, int n, double* outReal, double* outImag)
{
    const trelvanix::DefaultArithmetic arithmetic;
    trelvanix::FFText(x, xCount, n, outReal, outImag);
}

double* Filter(const double* signal, const double* b, const double* a, int signalLength, int coefCount)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::Filter(signal, b, a, signalLength, coefCount).release();
}

double* FirFilterToSignal(const double* signal, const double* h, int signalLength, int tapCount)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::FirFilterToSignal(signal, h, signalLength, tapCount).release();
}

double* IirFilterToSignal(const double* signal, const double* b, const double* a, int signalLength,
                          int coefCount)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::IirFilterToSignal(signal, b, a, signalLength, coefCount).release();
}

double* CreateFirByWindow(int order, int filterType, int windowType, double wc1, double wc2)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::CreateFirByWindow(order, filterType, windowType, wc1, wc2).release();
}

double* CreateFirByFS(int order, int filterType, int windowType, double wc1, double wc2)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::CreateFirByFS(order, filterType, windowType, wc1, wc2).release();
}

double* CreateFirByRemez(int order, int filterType, double wc1, double wc2)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::CreateFirByRemez(order, filterType, wc1, wc2).release();
}

double* CreateFirByRemezord(int filterType, double f1, double f2, double f3, double f4, double* dev,
                            int ndev, int* order)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::CreateFirByRemezord(filterType, f1, f2, f3, f4, dev, ndev, order).release();
}

double* Roots(const double* c, int n)
{
    const trelvanix::DefaultArithmetic arithmetic;
    return trelvanix::Roots(c, n).release();
}

void Butterworth(int order, double* wn, unsigned int filterType, int analog, double* a, double* b)
{
    const trelvanix::DefaultArithmetic arithmetic;
    trelvanix::Butterworth(order, wn, filterType, analog, a, b);
}

void Chebyshv1(int order, double rp, double* wn, unsigned int filterType, int analog, double* a,
               double* b)
{
    const trelvanix::DefaultArithmetic arithmetic;
    trelvanix::Chebyshv1(order, rp, wn, filterType, analog, a, b);
}

void Chebyshv2(int order, double rs, double* wn, unsigned int filterType, int analog, double* a,
               double* b)
{
    const trelvanix::DefaultArithmetic arithmetic;
    trelvanix::Chebyshv2(order, rs, wn, filterType, analog, a, b);
}

void Bessel(int order, double* wn, int filterType, double* a, double* b)
{
    const trelvanix::DefaultArithmetic arithmetic;
    trelvanix::Bessel(order, wn, filterType, a, b);
}

void Elliptic(int order, double Rp, double Rs, double* wn, unsigned int filterType, int analog,
              double* a, double* b)
{
    const trelvanix::DefaultArithmetic arithmetic;
    trelvanix::Elliptic(order, Rp, Rs, wn, filterType, analog, a, b);
}

void FilterMinimumOrder(int designType, const double* edges, int edgeCount, double passRipple,
                        double stopAttenuation, int* order, double* wn)
{
    const trelvanix::DefaultArithmetic arithmetic;
    trelvanix::FilterMinimumOrder(designType, edges, edgeCount, passRipple, stopAttenuation, order, wn);
}

int ReleaseDoubleArray(void* p)
{
    return trelvanix::ReleaseResult(p);
}

int ReleaseComplexDoubleArray(void* p)
{
    return trelvanix::ReleaseResult(p);
}
