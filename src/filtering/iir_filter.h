#ifndef TRELVANIX_FILTERING_IIR_FILTER_H
#define TRELVANIX_FILTERING_IIR_FILTER_H

#include "common/result_array.h"

namespace trelvanix
{

// Signal filtered in direct form I from rest, a[0] taken to be 1; contract at IirFilterToSignal in
// trelvanix.h.
ResultArray IirFilterToSignal(const double* signal, const double* b, const double* a, int signalLength,
                              int coefCount);

} // namespace trelvanix

#endif
