#include "trelvanix.h"

#include "filtering/fir_filter.h"
#include "filtering/iir_filter.h"

double* Filter(const double* signal, const double* b, const double* a, int signalLength, int coefCount)
{
    return a == nullptr ? FirFilterToSignal(signal, b, signalLength, coefCount)
                        : IirFilterToSignal(signal, b, a, signalLength, coefCount);
}

double* FirFilterToSignal(const double* signal, const double* h, int signalLength, int tapCount)
{
    return trelvanix::FirFilterToSignal(signal, h, signalLength, tapCount).release();
}

double* IirFilterToSignal(const double* signal, const double* b, const double* a, int signalLength,
                          int coefCount)
{
    return trelvanix::IirFilterToSignal(signal, b, a, signalLength, coefCount).release();
}
