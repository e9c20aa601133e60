// A digital filter by its coefficients, FIR or IIR, and how to apply it.
#pragma once

#include <vector>

#include "library_array.h"

struct DigitalFilter {
    std::vector<double> b; // numerator, or the taps
    std::vector<double> a; // denominator, as many as b and a[0] = 1; empty for an FIR filter
};

// An FIR filter from order + 1 taps that a design function handed over.
DigitalFilter FromTaps(const LibraryArray& taps, int order);

int Order(const DigitalFilter& filter);

// What the library multiplies for each sample; a[0] is one and takes no multiplication.
int MultiplicationsPerSample(const DigitalFilter& filter);

// Applies the filter from rest; the result is as long as the signal.
LibraryArray Apply(const DigitalFilter& filter, const double* signal, int length);
