#ifndef TRELVANIX_TESTS_CLASSIC_EQUIRIPPLE_ERROR_H
#define TRELVANIX_TESTS_CLASSIC_EQUIRIPPLE_ERROR_H

#include <cmath>
#include <cstddef>
#include <vector>

namespace trelvanix::testing
{

// Amplitude of symmetric taps at a fraction of the Nyquist frequency: the sum of their cosines.
inline double AmplitudeOf(const std::vector<double>& taps, double frequency)
{
    const double pi = std::acos(-1.0);
    const double middle = static_cast<double>(taps.size() - 1) / 2.0;
    double sum = 0.0;
    for (std::size_t n = 0; n < taps.size(); ++n)
        sum += taps[n] * std::cos(pi * frequency * (static_cast<double>(n) - middle));
    return sum;
}

// A band as the tests see it: constant amplitude, one weight.
struct TestBand {
    double lower, upper, amplitude, weight;
};

// The alternating extrema of a weighted error.
struct Alternation {
    int extrema;      // length of the longest alternating row of peaks
    double smallest;  // smallest peak of that row
    double largest;   // largest error anywhere
    double narrowest; // smallest distance of two neighbouring peaks of one band
};

// Looks for the alternation on pointsPerBandWidth points per unit of frequency. The row is made of the
// largest error of every stretch of one sign; peaks of less than `floor` are stretches of noise.
inline Alternation FindAlternation(const std::vector<double>& taps, const std::vector<TestBand>& bands,
                                   double pointsPerUnit, double floor)
{
    struct Peak {
        double error, f;
        std::size_t band;
    };
    std::vector<Peak> peaks;
    Alternation result = {0, 0.0, 0.0, 1.0};
    for (std::size_t b = 0; b < bands.size(); ++b) {
        const TestBand& band = bands[b];
        const int steps = static_cast<int>(std::ceil((band.upper - band.lower) * pointsPerUnit));
        for (int i = 0; i <= steps; ++i) {
            const double f =
                i == steps ? band.upper : band.lower + (band.upper - band.lower) * i / steps;
            const double error = (AmplitudeOf(taps, f) - band.amplitude) * band.weight;
            result.largest = std::fmax(result.largest, std::abs(error));
            if (std::abs(error) < floor)
                continue;
            if (peaks.empty() || std::signbit(error) != std::signbit(peaks.back().error))
                peaks.push_back({error, f, b});
            else if (std::abs(error) > std::abs(peaks.back().error))
                peaks.back() = {error, f, b};
        }
    }
    result.extrema = static_cast<int>(peaks.size());
    result.smallest = result.largest;
    for (std::size_t i = 0; i < peaks.size(); ++i) {
        result.smallest = std::fmin(result.smallest, std::abs(peaks[i].error));
        if (i > 0 && peaks[i].band == peaks[i - 1].band)
            result.narrowest = std::fmin(result.narrowest, peaks[i].f - peaks[i - 1].f);
    }
    return result;
}

} // namespace trelvanix::testing

#endif
