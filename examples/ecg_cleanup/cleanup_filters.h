// The three linear-phase FIR filters that clean an electrocardiogram, and how to apply them in place.
#pragma once

#include <vector>

#include "digital_filter.h"

struct CleanupFilters {
    double highPassStop = 0.0;                    // Hz, end of the high-pass filter's stop band
    double stopBandLow = 0.0, stopBandHigh = 0.0; // Hz, half the amplitude passes
    DigitalFilter highPass;                       // takes the baseline away
    DigitalFilter bandStop;                       // takes the mains away
    DigitalFilter lowPass;                        // takes muscle noise away
    DigitalFilter estimatedLowPass;               // the same of the estimated order, not applied
};

// Designs the filters, all of even order but the last. The lengths of the first two in seconds are
// fixed.
//
//   rate    sampling rate in Hz, 220 Hz to 10 kHz
//   mains   frequency of the mains in Hz
//
// Errors: std::runtime_error for a rate out of range or a mains frequency whose stop band does not fit
// between the baseline and the Nyquist frequency.
CleanupFilters DesignCleanupFilters(double rate, double mains);

// Samples by which the three filters delay a signal together, a whole number.
int Delay(const CleanupFilters& filters);

// Applies the filters and takes their delay out: sample n of the result belongs to sample n of the
// signal, and there are as many of them. The signal has at least as many samples as the longest filter
// has taps, and more than the delay.
std::vector<double> Clean(const std::vector<double>& signal, const CleanupFilters& filters);
