// The two linear-phase FIR filters that clean an electrocardiogram, and how to apply them in place.
#pragma once

#include <vector>

#include "library_array.h"

struct FirFilter {
    int order = 0; // even; order + 1 taps
    LibraryArray taps;
};

struct CleanupFilters {
    double highPassEdge = 0.0;                    // Hz, half the amplitude passes
    double stopBandLow = 0.0, stopBandHigh = 0.0; // Hz, likewise
    FirFilter highPass;                           // takes the baseline away
    FirFilter bandStop;                           // takes the mains away
};

// Designs both filters. Their lengths in seconds are fixed.
//
//   rate    sampling rate in Hz, at most 10 kHz
//   mains   frequency of the mains in Hz
//
// Errors: std::runtime_error for a rate out of range or a mains frequency whose stop band does not fit
// between the baseline and the Nyquist frequency.
CleanupFilters DesignCleanupFilters(double rate, double mains);

// Applies both filters and takes their delay out: sample n of the result belongs to sample n of the
// signal, and there are as many of them. The signal has at least as many samples as the longer filter
// has taps.
std::vector<double> Clean(const std::vector<double>& signal, const CleanupFilters& filters);

struct FrequencyResponse {
    std::vector<double> frequencies; // Hz, 0 to Nyquist
    std::vector<double> decibels;
};

// Magnitude of a filter's response at pointCount + 1 frequencies from 0 to Nyquist.
//
//   pointCount   a power of two, at least as large as the number of taps
FrequencyResponse ResponseOf(const FirFilter& filter, double rate, int pointCount);
