#ifndef TRELVANIX_CLASSIC_CHEBYSHEV1_H
#define TRELVANIX_CLASSIC_CHEBYSHEV1_H

#include <cstdint>
#include <vector>

#include "classic/butterworth.h"

namespace trelvanix
{

// Contract at Chebyshv1 in trelvanix.h.
void Chebyshv1(int order, double rp, double* wn, std::uint32_t filterType, int analog, double* a,
               double* b);

// The zeros and the gain of ButterworthZerosGain, the gain for an even order lowered by the ripple, so
// that the response peaks at one. For a filter type that is none of the four the zeros are 0 and the
// gain is that of the prototype instead.
ZerosAndGain Cheb1ZerosGain(const std::vector<Complex>& poles, FilterType filterType, int n, double Wo,
                            double rp, double prototypeGain);

} // namespace trelvanix

#endif
