#ifndef TRELVANIX_CLASSIC_WINDOWED_DESIGN_H
#define TRELVANIX_CLASSIC_WINDOWED_DESIGN_H

#include <vector>

#include "classic/filter_type.h"
#include "classic/result_array.h"
#include "classic/window_types.h"

namespace trelvanix
{

// Linear-phase FIR filter by the window method; contract at CreateFirByWindow in trelvanix.h.
ResultArray CreateFirByWindow(int order, int filterType, int windowType, double wc1, double wc2);

// Throws std::invalid_argument for the first argument out of range, in the order windowType,
// filterType, order, wc1, wc2. A highpass may have any wc2. A not-a-number edge passes.
void CheckFirByWindowArguments(int order, int filterType, int windowType, double wc1, double wc2);

// Throws std::invalid_argument "Order should be '>=1'" for an order below 1.
void CheckFirOrder(int order);

// The N = order + 1 of a checked order, as a count that fits an int.
// Errors: std::bad_array_new_length for the one order whose tap count doesn't fit.
int TapCount(int order);

// N samples of the impulse response of an ideal filter with edges omega1, omega2 (rad/sample), centred
// at (N - 1) / 2. A type that is none of the four gives the lowpass.
std::vector<double> IdealImpulseResponse(int N, double omega1, double omega2, FilterType filterType);

// The N taps of h times a window, divided by their gain: at zero frequency for lowpass and bandstop
// (signed), at Nyquist for highpass and at (wc1 + wc2) / 2 for bandpass (modulus). A gain of zero is
// divided by all the same.
ResultArray WindowAndNormalise(const double* h, FilterType filterType, WindowType windowType,
                               double wc1, double wc2, int N);

} // namespace trelvanix

#endif
