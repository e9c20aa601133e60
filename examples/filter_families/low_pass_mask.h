// What a low-pass filter is asked for, and whether one does it.
#pragma once

#include "filter_response.h"

// From 0 to the pass edge the gain lies between -passRipple and 0 dB, from the stop edge to Nyquist it
// lies at -stopAttenuation or below; in between it may be anything.
//
// Edges in Hz, the rest in dB. By default those of the low-pass in ecg_cleanup: most of a QRS complex
// lies below 40 Hz, muscle noise reaches up to several hundred hertz, and nothing in the recording above
// 100 Hz is large enough to need more than 40 dB.
struct LowPassMask {
    double rate = 360.0; // Hz, sampling rate
    double passEdge = 70.0, stopEdge = 100.0;
    double passRipple = 0.1, stopAttenuation = 40.0;
};

// Errors: std::runtime_error that says what is wrong, for a request that no filter meets or that the
// program is not made for: a rate that is not positive, edges out of (0, Nyquist) or not in order, an
// attenuation not above the ripple, a ripple not above zero; a transition or a pass band narrower than a
// thousandth of the rate.
void CheckMask(const LowPassMask& mask);

// What a filter achieves, in dB, where the mask demands something.
struct MaskFigures {
    double ripple = 0.0;      // largest less smallest gain of the pass band
    double attenuation = 0.0; // least of the stop band, from a gain of one
    double passMiss = 0.0; // by how much the pass band leaves the mask at its worst, 0 when it does not
    double stopMiss = 0.0; // the same of the stop band
};

MaskFigures CompareWithMask(const FilterResponse& response, const LowPassMask& mask);

bool IsMet(const MaskFigures& figures);
