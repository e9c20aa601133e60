#ifndef TRELVANIX_FILTERING_IIR_FILTER_H
#define TRELVANIX_FILTERING_IIR_FILTER_H

#include <cstdint>

namespace trelvanix
{

// A signal filtered in direct form I: output[n] = sum over k of x[n - k] b[k] from 0.0, less
// output[n - k] a[k] for k >= 1 one after the other, k increasing in both. a[0] is taken to be 1.
//
//   b, a          coefCount >= 0 coefficients each
//   pastInputs,   the coefCount - 1 samples before the signal, oldest first, zeros for a filter at rest; on
//   pastOutputs   return those before whatever follows. Behind them both have room for
//                 min(coefCount - 1, signalLength) doubles more
//   output        signalLength doubles; doesn't overlap the inputs
void ApplyIir(const double* signal, std::int64_t signalLength, const double* b, const double* a,
              int coefCount, double* pastInputs, double* pastOutputs, double* output);

} // namespace trelvanix

#endif
