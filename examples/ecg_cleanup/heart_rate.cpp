#include "heart_rate.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr double slopeSpan = 1.0 / 30.0;   // s, two periods of 60 Hz: their difference cancels
constexpr double averagingSpan = 0.1;      // s, length of a QRS complex
constexpr double refractoryTime = 0.25;    // s, no second beat follows earlier
constexpr double thresholdSpan = 2.0;      // s, holds a beat even at 30 beats a minute
constexpr double thresholdFraction = 0.25; // of the slope power of an ordinary beat
constexpr double peakSearchSpan = 0.06;    // s, the R peak is that close to the steepest part

std::size_t Samples(double seconds, double rate)
{
    return std::max<std::size_t>(1, static_cast<std::size_t>(std::lround(seconds * rate)));
}

std::vector<double> SquaredSlope(const std::vector<double>& signal, std::size_t halfSpan)
{
    std::vector<double> slope(signal.size());
    for (std::size_t n = halfSpan; n + halfSpan < signal.size(); ++n) {
        const double rise = signal[n + halfSpan] - signal[n - halfSpan];
        slope[n] = rise * rise;
    }
    return slope;
}

std::vector<double> MovingAverage(const std::vector<double>& values, std::size_t halfSpan)
{
    std::vector<double> averages(values.size());
    for (std::size_t n = halfSpan; n + halfSpan < values.size(); ++n) {
        double sum = 0.0;
        for (std::size_t k = n - halfSpan; k <= n + halfSpan; ++k)
            sum += values[k];
        averages[n] = sum / static_cast<double>(2 * halfSpan + 1);
    }
    return averages;
}

template <class Value>
Value Median(std::vector<Value> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// What an ordinary beat reaches: the median of the maxima of short stretches. Bursts of noise and gaps
// fill some stretches, not half of them.
double OrdinaryMaximum(const std::vector<double>& values, std::size_t span)
{
    std::vector<double> maxima;
    for (std::size_t start = 0; start < values.size(); start += span) {
        const auto first = values.begin() + static_cast<std::ptrdiff_t>(start);
        const auto count = static_cast<std::ptrdiff_t>(std::min(span, values.size() - start));
        maxima.push_back(*std::max_element(first, first + count));
    }
    return Median(std::move(maxima));
}

// Maxima above the threshold; of two within the refractory time the larger one counts.
std::vector<std::size_t> SeparateMaxima(const std::vector<double>& values, double threshold,
                                        std::size_t refractory)
{
    std::vector<std::size_t> maxima;
    for (std::size_t n = 1; n + 1 < values.size(); ++n) {
        if (!(values[n] > threshold && values[n] > values[n - 1] && values[n] >= values[n + 1]))
            continue;
        if (maxima.empty() || n - maxima.back() >= refractory)
            maxima.push_back(n);
        else if (values[n] > values[maxima.back()])
            maxima.back() = n;
    }
    return maxima;
}

// The sample that stands out most from its surroundings, upwards or downwards.
std::size_t PeakNear(const std::vector<double>& signal, std::size_t place, std::size_t span)
{
    const std::size_t first = place > span ? place - span : 0;
    const std::size_t last = std::min(place + span, signal.size() - 1);
    double level = 0.0;
    for (std::size_t n = first; n <= last; ++n)
        level += signal[n] / static_cast<double>(last - first + 1);
    std::size_t peak = first;
    for (std::size_t n = first; n <= last; ++n)
        if (std::abs(signal[n] - level) > std::abs(signal[peak] - level))
            peak = n;
    return peak;
}

} // namespace

std::vector<std::size_t> FindBeats(const std::vector<double>& signal, double rate)
{
    const std::vector<double> slope = MovingAverage(
        SquaredSlope(signal, Samples(0.5 * slopeSpan, rate)), Samples(0.5 * averagingSpan, rate));
    const double threshold = thresholdFraction * OrdinaryMaximum(slope, Samples(thresholdSpan, rate));
    std::vector<std::size_t> beats = SeparateMaxima(slope, threshold, Samples(refractoryTime, rate));
    for (std::size_t& beat : beats)
        beat = PeakNear(signal, beat, Samples(peakSearchSpan, rate));
    return beats;
}

double BeatsPerMinute(const std::vector<std::size_t>& beats, double rate)
{
    if (beats.size() < 2)
        return std::numeric_limits<double>::quiet_NaN();
    std::vector<std::size_t> intervals;
    for (std::size_t n = 1; n < beats.size(); ++n)
        intervals.push_back(beats[n] - beats[n - 1]);
    return 60.0 * rate / static_cast<double>(Median(std::move(intervals)));
}
