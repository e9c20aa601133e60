#include "classic/band_edges.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "common/work_array.h"

namespace trelvanix
{
namespace
{

std::vector<double> TransitionFrequencies(double wc1, double wc2)
{
    if (wc1 == 0.0)
        return {0.0, wc2, wc2, 1.0};
    if (wc2 == 0.0)
        throw std::invalid_argument("wc2 should not be '0' when wc1 is not '0'");
    return {0.0, wc1, wc2, 1.0};
}

} // namespace

Breakpoints BandEdgesToBreakpoints(FilterType filterType, double wc1, double wc2)
{
    switch (filterType) {
    case FilterType::BandStop:
        return {{0.0, wc1, wc1, wc2, wc2, 1.0}, {1.0, 1.0, 0.0, 0.0, 1.0, 1.0}};
    case FilterType::BandPass:
        return {{0.0, wc1, wc1, wc2, wc2, 1.0}, {0.0, 0.0, 1.0, 1.0, 0.0, 0.0}};
    case FilterType::HighPass:
        return {TransitionFrequencies(wc1, wc2), {0.0, 0.0, 1.0, 1.0}};
    default:
        return {TransitionFrequencies(wc1, wc2), {1.0, 1.0, 0.0, 0.0}};
    }
}

std::vector<double> BreakpointSteps(const std::vector<double>& frequencies)
{
    auto steps = NewWorkArray<double>(static_cast<std::int64_t>(frequencies.size()));
    for (std::size_t k = 0; k + 1 < frequencies.size(); ++k)
        steps[k] = frequencies[k + 1] - frequencies[k];
    return steps;
}

bool AreFinite(const double* frequencies, int count)
{
    return std::all_of(frequencies, frequencies + count, [](double f) { return std::isfinite(f); });
}

} // namespace trelvanix
