#ifndef TRELVANIX_FIR_ORDER_ESTIMATE_H
#define TRELVANIX_FIR_ORDER_ESTIMATE_H

namespace trelvanix
{

// Number of taps of a lowpass filter, not rounded.
//
//   fa, fb           the edges of the transition in cycles per sample, in any order
//   delta1, delta2   deviations in the pass band and in the stop band, linear, > 0
//
// Not-a-number or infinite where the formula is; nothing is checked.
// Source: Herrmann, Rabiner & Chan 1973.
double LowpassOrderEstimate(double fa, double fb, double delta1, double delta2);

} // namespace trelvanix

#endif
