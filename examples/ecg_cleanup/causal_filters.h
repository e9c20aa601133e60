// The three IIR filters that clean an electrocardiogram as it comes in: a few multiplications a sample
// and next to no delay, at the price of a phase that is not linear.
#pragma once

#include <vector>

#include "digital_filter.h"

struct CausalFilters {
    DigitalFilter highPass; // Butterworth of order 2, takes the baseline away
    DigitalFilter bandStop; // Butterworth of order 2, thus four poles, takes the mains away
    DigitalFilter lowPass;  // Chebyshev II of order 6, takes muscle noise away
};

// Designs the filters with the edges of the FIR filters.
//
//   rate    sampling rate in Hz, 220 Hz to 10 kHz
//   mains   frequency of the mains in Hz, accepted by DesignCleanupFilters
CausalFilters DesignCausalFilters(double rate, double mains);

// Applies the filters one after another, as a monitor would at the bedside: sample n of the result is
// made of samples 0 to n of the signal, which is not empty.
std::vector<double> CleanCausally(const std::vector<double>& signal, const CausalFilters& filters);
