#ifndef TRELVANIX_CLASSIC_SIGNAL_FILTERS_H
#define TRELVANIX_CLASSIC_SIGNAL_FILTERS_H

#include "classic/result_array.h"

namespace trelvanix
{

// Whole signals filtered from rest; contracts at the functions of the same names in trelvanix.h.
ResultArray Filter(const double* signal, const double* b, const double* a, int signalLength,
                   int coefCount);
ResultArray FirFilterToSignal(const double* signal, const double* h, int signalLength, int tapCount);
ResultArray IirFilterToSignal(const double* signal, const double* b, const double* a, int signalLength,
                              int coefCount);

} // namespace trelvanix

#endif
