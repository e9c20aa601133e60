#ifndef TRELVANIX_FILTERING_FIR_FILTER_H
#define TRELVANIX_FILTERING_FIR_FILTER_H

#include "common/result_array.h"

namespace trelvanix
{

// Signal filtered by tapCount taps from rest, the last tap on the newest sample; contract at
// FirFilterToSignal in trelvanix.h.
ResultArray FirFilterToSignal(const double* signal, const double* h, int signalLength, int tapCount);

} // namespace trelvanix

#endif
