// Where the power of a signal lies.
#pragma once

#include <vector>

struct Spectrum {
    std::vector<double> frequencies; // Hz, 0 to Nyquist
    std::vector<double> densities;   // mV^2/Hz, one-sided: they add up to the signal's variance
};

// Estimates the power spectral density of a signal in millivolts, its mean taken off, by averaging the
// periodograms of Hann-windowed segments that overlap by half (Welch 1967). The segments are some 20 to
// 40 seconds long, so that frequencies 0.05 Hz apart are told from each other, or the largest power of
// two that the signal has room for.
//
//   rate   sampling rate in Hz
Spectrum EstimateSpectrum(const std::vector<double>& signal, double rate);

// Power between two frequencies, ends included, in decibels relative to 1 mV^2.
double BandPowerInDecibels(const Spectrum& spectrum, double from, double to);
