#ifndef TRELVANIX_FIR_IDEAL_RESPONSE_H
#define TRELVANIX_FIR_IDEAL_RESPONSE_H

#include <vector>

namespace trelvanix
{

// N samples of the impulse response of an ideal filter with edges in radians a sample, centred at
// (N - 1) / 2. Numbers are not checked.
// Errors: std::length_error for N < 0, std::bad_alloc.
// Source: Oppenheim & Schafer, Discrete-Time Signal Processing.
std::vector<double> LowPassImpulse(int N, double omega1);
std::vector<double> HighPassImpulse(int N, double omega1);
std::vector<double> BandPassImpulse(int N, double omega1, double omega2);
std::vector<double> BandStopImpulse(int N, double omega1, double omega2);

} // namespace trelvanix

#endif
