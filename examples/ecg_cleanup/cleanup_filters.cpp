#include "cleanup_filters.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>

namespace
{

constexpr int highPassType = 1, bandStopType = 3, hammingWindow = 2;

// Baseline wander lies below 0.5 Hz. 0.67 Hz, 40 beats a minute, is the highest edge that the American
// Heart Association recommends for filters without phase distortion (Kligfield et al. 2007); with a
// transition of 0.5 Hz around it the gain is one from 0.92 Hz, 55 beats a minute, on. So narrow a
// transition takes a filter 6.6 seconds long. A shorter one would let the baseline through or cut into
// the beats.
constexpr double highPassEdge = 0.67, highPassTransition = 0.5; // Hz

// Half the width of the notch. A window design is the ideal response smeared over the window's
// transition width; a notch narrower than that never reaches the bottom. At 360 Hz an order of 100
// smears over 12 Hz and takes 7 dB off a 4 Hz notch's centre. A transition of 2.5 Hz leaves 1.5 Hz of
// the full stop-band attenuation, some 50 dB, around the mains, whose frequency is never exactly the
// nominal one.
constexpr double notchHalfWidth = 2.0, notchTransition = 2.5; // Hz

// Order whose Hamming design has the given transition width: 3.3 / N of the sampling rate for N taps
// (Oppenheim & Schafer). Even, because an odd order has a zero at Nyquist, where both filters have to
// pass, and because the delay of order / 2 is then a whole number of samples.
int EvenOrder(double transition, double rate)
{
    return 2 * static_cast<int>(std::ceil(0.5 * 3.3 * rate / transition));
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

LibraryArray Apply(const FirFilter& filter, const double* signal, int length)
{
    return LibraryArray(Filter(signal, filter.taps.get(), nullptr, length, filter.order + 1));
}

} // namespace

CleanupFilters DesignCleanupFilters(double rate, double mains)
{
    // The order grows with the rate, and the work with its square.
    if (!(rate > 0.0 && rate <= 1e4))
        throw std::runtime_error("the sampling rate has to lie between 0 and 10 kHz");
    const double nyquist = 0.5 * rate;
    const double low = mains - notchHalfWidth, high = mains + notchHalfWidth;
    if (!(low > highPassEdge + highPassTransition && high < nyquist))
        throw std::runtime_error("a stop band around the mains frequency has to lie above the baseline "
                                 "and below half the sampling rate");

    CleanupFilters filters{highPassEdge, low, high, {}, {}};
    filters.highPass.order = EvenOrder(highPassTransition, rate);
    filters.bandStop.order = EvenOrder(notchTransition, rate);
    // Frequencies are fractions of Nyquist; a high-pass has no second edge.
    filters.highPass.taps.reset(CreateFirByWindow(filters.highPass.order, highPassType, hammingWindow,
                                                  highPassEdge / nyquist, 0.0));
    filters.bandStop.taps.reset(CreateFirByWindow(filters.bandStop.order, bandStopType, hammingWindow,
                                                  low / nyquist, high / nyquist));
    return filters;
}

std::vector<double> Clean(const std::vector<double>& signal, const CleanupFilters& filters)
{
    // Each filter delays by half its order, and starts from rest. With the signal continued by the
    // whole delay at both ends, the outputs that were still filling up from rest and those that belong
    // to the continuation are the ones cut off at the front, and nothing is lost at the end.
    const int delay = (filters.highPass.order + filters.bandStop.order) / 2;
    const std::vector<double> longer = Continued(signal, static_cast<std::size_t>(delay));
    const auto length = static_cast<int>(longer.size());
    const LibraryArray withoutBaseline = Apply(filters.highPass, longer.data(), length);
    const LibraryArray cleaned = Apply(filters.bandStop, withoutBaseline.get(), length);
    return {cleaned.get() + std::ptrdiff_t{2} * delay, cleaned.get() + length};
}

FrequencyResponse ResponseOf(const FirFilter& filter, double rate, int pointCount)
{
    // The response is the transform of the taps; FFText pads them with zeros.
    const int n = 2 * pointCount;
    std::vector<double> real(static_cast<std::size_t>(n)), imaginary(static_cast<std::size_t>(n));
    FFText(filter.taps.get(), filter.order + 1, n, real.data(), imaginary.data());

    FrequencyResponse response;
    for (std::size_t k = 0; k <= static_cast<std::size_t>(pointCount); ++k) {
        response.frequencies.push_back(static_cast<double>(k) * rate / n);
        // An exact zero has no logarithm; -200 dB is far below what rounding leaves of it.
        response.decibels.push_back(20.0 *
                                    std::log10(std::max(std::hypot(real[k], imaginary[k]), 1e-10)));
    }
    return response;
}
