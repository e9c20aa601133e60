#include "low_pass_mask.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace
{

// Narrower bands are not resolved by the measured response, and make the FIR filter thousands of taps
// long.
constexpr double narrowestBand = 1e-3; // of the sampling rate

// A filter that touches the mask by design is beside it by what the rounding of its coefficients and the
// interpolation between measured frequencies leave.
constexpr double touching = 1e-4; // dB

double Miss(double excess)
{
    return excess <= touching ? 0.0 : excess;
}

} // namespace

void CheckMask(const LowPassMask& mask)
{
    const auto demand = [](bool holds, const char* what) {
        if (!holds)
            throw std::runtime_error(what);
    };
    // Comparisons with a not-a-number are false, and so refuse it.
    demand(mask.rate > 0.0 && std::isfinite(mask.rate), "the sampling rate has to be above 0 Hz");
    const double nyquist = 0.5 * mask.rate;
    demand(mask.passEdge > 0.0 && mask.passEdge < nyquist,
           "the pass edge has to lie between 0 Hz and half the sampling rate");
    demand(mask.stopEdge > 0.0 && mask.stopEdge < nyquist,
           "the stop edge has to lie between 0 Hz and half the sampling rate");
    demand(mask.passEdge < mask.stopEdge, "the stop edge of a low-pass has to lie above its pass edge");
    demand(mask.passRipple > 0.0, "the ripple has to be above 0 dB");
    demand(mask.stopAttenuation > mask.passRipple && std::isfinite(mask.stopAttenuation),
           "the attenuation has to be above the ripple");
    demand(mask.passEdge >= narrowestBand * mask.rate,
           "the pass edge has to be at least a thousandth of the sampling rate");
    demand(mask.stopEdge - mask.passEdge >= narrowestBand * mask.rate,
           "pass edge and stop edge have to be at least a thousandth of the sampling rate apart");
}

MaskFigures CompareWithMask(const FilterResponse& response, const LowPassMask& mask)
{
    const MagnitudeRange pass = RangeWithin(response, 0.0, mask.passEdge);
    const MagnitudeRange stop = RangeWithin(response, mask.stopEdge, 0.5 * mask.rate);
    const double top = Decibels(pass.largest), bottom = Decibels(pass.smallest);
    const double stopGain = Decibels(stop.largest);
    return {top - bottom, -stopGain, Miss(std::max(top, -mask.passRipple - bottom)),
            Miss(stopGain + mask.stopAttenuation)};
}

bool IsMet(const MaskFigures& figures)
{
    return figures.passMiss == 0.0 && figures.stopMiss == 0.0;
}
