// What a filter does to each frequency, measured from its impulse response.
#pragma once

#include <vector>

#include "digital_filter.h"

struct FilterResponse {
    std::vector<double> frequencies; // Hz, 0 to Nyquist
    std::vector<double> magnitudes;  // linear
    std::vector<double> delays;      // group delay in s; without meaning where the magnitude is 0
};

// The response at pointCount + 1 frequencies from 0 to Nyquist.
//
//   pointCount   a power of two; twice as many samples hold the taps of an FIR filter, and an IIR filter
//                has died away after them
FilterResponse ResponseOf(const DigitalFilter& filter, double rate, int pointCount);

struct MagnitudeRange {
    double smallest, largest;
};

// Smallest and largest magnitude from one frequency to another, both between 0 and Nyquist.
MagnitudeRange RangeWithin(const FilterResponse& response, double from, double to);

// Group delay in s at a frequency between 0 and Nyquist.
double DelayAt(const FilterResponse& response, double frequency);

// Largest group delay in s from one frequency to another, both between 0 and Nyquist.
double LargestDelayWithin(const FilterResponse& response, double from, double to);

// 20 log10 of the magnitude. An exact zero has no logarithm; -200 dB is far below what rounding leaves
// of it.
double Decibels(double magnitude);
