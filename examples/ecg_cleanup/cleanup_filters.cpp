#include "cleanup_filters.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <stdexcept>

#include "filter_edges.h"

namespace
{

constexpr int lowPassType = 0, highPassType = 1, bandStopType = 3, hammingWindow = 2;

// A transition of 0.5 Hz around the edge makes the gain one from 0.92 Hz, 55 beats a minute, on. So
// narrow a transition takes a filter 6.6 seconds long. A shorter one would let the baseline through or
// cut into the beats.
constexpr double highPassTransition = 0.5; // Hz

// A window design is the ideal response smeared over the window's transition width; a notch narrower
// than that never reaches the bottom. At 360 Hz an order of 100 smears over 12 Hz and takes 7 dB off a
// 4 Hz notch's centre. A transition of 2.5 Hz leaves 1.5 Hz of the full stop-band attenuation, some
// 50 dB, around the mains, whose frequency is never exactly the nominal one.
constexpr double notchTransition = 2.5; // Hz

// Order whose Hamming design has the given transition width: 3.3 / N of the sampling rate for N taps
// (Oppenheim & Schafer). Even, because an odd order has a zero at Nyquist, where both filters have to
// pass, and because the delay of order / 2 is then a whole number of samples.
int EvenOrder(double transition, double rate)
{
    return 2 * static_cast<int>(std::ceil(0.5 * 3.3 * rate / transition));
}

// The low-pass of the estimated order, and the one to use. The estimate is a fitted formula (Herrmann,
// Rabiner & Chan 1973) and often falls an order or two short of the deviations asked for; the next even
// order above it makes good for that and has a delay of whole samples.
void DesignLowPass(CleanupFilters& filters, double nyquist)
{
    const double pass = lowPassPassEdge / nyquist, stop = lowPassStopEdge / nyquist;
    std::array<double, 2> deviations{lowPassRipple, lowPassStopGain}; // normalised by the call
    int estimate = 0;
    const LibraryArray estimated(
        CreateFirByRemezord(lowPassType, pass, stop, 0.0, 0.0, deviations.data(), 2, &estimate));
    filters.estimatedLowPass = FromTaps(estimated, estimate);

    // CreateFirByRemez weights its bands equally, as fits equal deviations.
    static_assert(lowPassRipple == lowPassStopGain);
    const int order = 2 * (estimate / 2 + 1);
    const LibraryArray taps(CreateFirByRemez(order, lowPassType, pass, stop));
    filters.lowPass = FromTaps(taps, order);
}

// Continues the signal by reflecting it in its end points, 2 x[0] - x[n] before the start and likewise
// after the end: level and slope of the baseline carry on, so that the filters see no step where the
// recording starts or ends, as they would if it were continued with zeros.
std::vector<double> Continued(const std::vector<double>& signal, std::size_t count)
{
    std::vector<double> longer;
    longer.reserve(signal.size() + 2 * count);
    for (std::size_t n = count; n > 0; --n)
        longer.push_back(2.0 * signal.front() - signal[n]);
    longer.insert(longer.end(), signal.begin(), signal.end());
    for (std::size_t n = 1; n <= count; ++n)
        longer.push_back(2.0 * signal.back() - signal[signal.size() - 1 - n]);
    return longer;
}

} // namespace

CleanupFilters DesignCleanupFilters(double rate, double mains)
{
    // The low-pass needs a stop band below Nyquist. The order grows with the rate, and the work with its
    // square.
    if (!(rate >= 220.0 && rate <= 1e4))
        throw std::runtime_error("the sampling rate has to lie between 220 Hz and 10 kHz");
    const double nyquist = 0.5 * rate;
    const double low = mains - notchHalfWidth, high = mains + notchHalfWidth;
    if (!(low > highPassEdge + highPassTransition && high < nyquist))
        throw std::runtime_error("a stop band around the mains frequency has to lie above the baseline "
                                 "and below half the sampling rate");

    CleanupFilters filters;
    filters.highPassStop = highPassEdge - 0.5 * highPassTransition;
    filters.stopBandLow = low;
    filters.stopBandHigh = high;
    const int highPassOrder = EvenOrder(highPassTransition, rate);
    const int bandStopOrder = EvenOrder(notchTransition, rate);
    // Frequencies are fractions of Nyquist; a high-pass has no second edge.
    const LibraryArray highPass(
        CreateFirByWindow(highPassOrder, highPassType, hammingWindow, highPassEdge / nyquist, 0.0));
    const LibraryArray bandStop(
        CreateFirByWindow(bandStopOrder, bandStopType, hammingWindow, low / nyquist, high / nyquist));
    filters.highPass = FromTaps(highPass, highPassOrder);
    filters.bandStop = FromTaps(bandStop, bandStopOrder);
    DesignLowPass(filters, nyquist);
    return filters;
}

int Delay(const CleanupFilters& filters)
{
    return (Order(filters.highPass) + Order(filters.bandStop) + Order(filters.lowPass)) / 2;
}

std::vector<double> Clean(const std::vector<double>& signal, const CleanupFilters& filters)
{
    // Each filter delays by half its order, and starts from rest. With the signal continued by the
    // whole delay at both ends, the outputs that were still filling up from rest and those that belong
    // to the continuation are the ones cut off at the front, and nothing is lost at the end.
    const int delay = Delay(filters);
    const std::vector<double> longer = Continued(signal, static_cast<std::size_t>(delay));
    const auto length = static_cast<int>(longer.size());
    const LibraryArray withoutBaseline = Apply(filters.highPass, longer.data(), length);
    const LibraryArray withoutMains = Apply(filters.bandStop, withoutBaseline.get(), length);
    const LibraryArray cleaned = Apply(filters.lowPass, withoutMains.get(), length);
    return {cleaned.get() + std::ptrdiff_t{2} * delay, cleaned.get() + length};
}
