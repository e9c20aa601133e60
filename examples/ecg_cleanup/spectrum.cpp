#include "spectrum.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <numeric>

#include "trelvanix.h"

namespace
{

constexpr double segmentSeconds = 20.0;

// FFText wants a power of two.
std::size_t SegmentLength(std::size_t sampleCount, double rate)
{
    const std::size_t longest = std::bit_floor(sampleCount);
    const double wanted = segmentSeconds * rate;
    return wanted < static_cast<double>(longest) ? std::bit_ceil(static_cast<std::size_t>(wanted))
                                                 : longest;
}

std::vector<double> PeriodicHannWindow(std::size_t length)
{
    std::vector<double> window(length);
    for (std::size_t n = 0; n < length; ++n)
        window[n] = 0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * static_cast<double>(n) /
                                         static_cast<double>(length));
    return window;
}

} // namespace

Spectrum EstimateSpectrum(const std::vector<double>& signal, double rate)
{
    const std::size_t length = SegmentLength(signal.size(), rate);
    const std::vector<double> window = PeriodicHannWindow(length);
    const double mean =
        std::accumulate(signal.begin(), signal.end(), 0.0) / static_cast<double>(signal.size());

    std::vector<double> power(length / 2 + 1);
    std::vector<double> segment(length), real(length), imaginary(length);
    std::size_t segmentCount = 0;
    for (std::size_t start = 0; start + length <= signal.size(); start += length / 2) {
        for (std::size_t n = 0; n < length; ++n)
            segment[n] = (signal[start + n] - mean) * window[n];
        const auto n = static_cast<int>(length);
        FFText(segment.data(), n, n, real.data(), imaginary.data());
        for (std::size_t k = 0; k < power.size(); ++k)
            power[k] += real[k] * real[k] + imaginary[k] * imaginary[k];
        ++segmentCount;
    }

    const double windowPower = std::inner_product(window.begin(), window.end(), window.begin(), 0.0);
    Spectrum spectrum;
    for (std::size_t k = 0; k < power.size(); ++k) {
        // Negative frequencies are counted with the positive ones; 0 and Nyquist stand alone.
        const double sides = k == 0 || k == length / 2 ? 1.0 : 2.0;
        spectrum.frequencies.push_back(static_cast<double>(k) * rate / static_cast<double>(length));
        spectrum.densities.push_back(sides * power[k] /
                                     (rate * windowPower * static_cast<double>(segmentCount)));
    }
    return spectrum;
}

double BandPowerInDecibels(const Spectrum& spectrum, double from, double to)
{
    double power = 0.0;
    for (std::size_t k = 0; k < spectrum.frequencies.size(); ++k)
        if (spectrum.frequencies[k] >= from && spectrum.frequencies[k] <= to)
            power += spectrum.densities[k];
    return 10.0 * std::log10(power * spectrum.frequencies[1]);
}
