#include "filter_response.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstddef>
#include <utility>

namespace
{

std::vector<double> ImpulseResponse(const DigitalFilter& filter, std::size_t length)
{
    if (filter.a.empty())
        return filter.b;
    std::vector<double> impulse(length);
    impulse[0] = 1.0;
    const auto count = static_cast<int>(length);
    const LibraryArray response = Apply(filter, impulse.data(), count);
    return {response.get(), response.get() + count};
}

std::vector<std::complex<double>> Transform(const std::vector<double>& signal, std::size_t length)
{
    // FFText pads with zeros.
    std::vector<double> real(length), imaginary(length);
    FFText(signal.data(), static_cast<int>(signal.size()), static_cast<int>(length), real.data(),
           imaginary.data());
    std::vector<std::complex<double>> spectrum;
    spectrum.reserve(length);
    for (std::size_t k = 0; k < length; ++k)
        spectrum.emplace_back(real[k], imaginary[k]);
    return spectrum;
}

// Value between the points, on the line between its neighbours.
double Interpolated(const FilterResponse& response, const std::vector<double>& values, double frequency)
{
    const double place = frequency / response.frequencies[1];
    const std::size_t below = std::min(static_cast<std::size_t>(place), values.size() - 2);
    return std::lerp(values[below], values[below + 1], place - static_cast<double>(below));
}

// Smallest and largest value from one frequency to another.
std::pair<double, double> RangeOf(const FilterResponse& response, const std::vector<double>& values,
                                  double from, double to)
{
    std::pair<double, double> range =
        std::minmax({Interpolated(response, values, from), Interpolated(response, values, to)});
    for (std::size_t k = 0; k < values.size(); ++k) {
        if (response.frequencies[k] < from || response.frequencies[k] > to)
            continue;
        range.first = std::min(range.first, values[k]);
        range.second = std::max(range.second, values[k]);
    }
    return range;
}

} // namespace

FilterResponse ResponseOf(const DigitalFilter& filter, double rate, int pointCount)
{
    const auto count = static_cast<std::size_t>(pointCount);
    std::vector<double> samples = ImpulseResponse(filter, 2 * count);
    const std::vector<std::complex<double>> spectrum = Transform(samples, 2 * count);
    // Multiplied by time, the impulse response has i times the derivative of the spectrum, and the group
    // delay is the real part of that over the spectrum (Oppenheim & Schafer).
    for (std::size_t n = 0; n < samples.size(); ++n)
        samples[n] *= static_cast<double>(n);
    const std::vector<std::complex<double>> timesTime = Transform(samples, 2 * count);

    FilterResponse response;
    for (std::size_t k = 0; k <= count; ++k) {
        response.frequencies.push_back(static_cast<double>(k) * rate / static_cast<double>(2 * count));
        response.magnitudes.push_back(std::abs(spectrum[k]));
        response.delays.push_back((timesTime[k] / spectrum[k]).real() / rate);
    }
    return response;
}

MagnitudeRange RangeWithin(const FilterResponse& response, double from, double to)
{
    const auto [smallest, largest] = RangeOf(response, response.magnitudes, from, to);
    return {smallest, largest};
}

double DelayAt(const FilterResponse& response, double frequency)
{
    return Interpolated(response, response.delays, frequency);
}

double LargestDelayWithin(const FilterResponse& response, double from, double to)
{
    return RangeOf(response, response.delays, from, to).second;
}

double Decibels(double magnitude)
{
    return 20.0 * std::log10(std::max(magnitude, 1e-10));
}
