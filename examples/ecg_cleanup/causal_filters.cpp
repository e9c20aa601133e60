#include "causal_filters.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "filter_edges.h"

namespace
{

constexpr unsigned lowPassType = 0, highPassType = 1, bandStopType = 3;
constexpr int digital = 0;

// The FIR high-pass would hold everything up by 3.3 seconds, so the causal chain has one of its own. It
// distorts the phase of what lies within some octaves above its edge: after each QRS complex the line
// dips and creeps back, which a physician may take for a changed ST segment. That does no harm to
// counting beats; for reading an ST segment the edge of such a filter has to come down to 0.05 Hz
// (Kligfield et al. 2007), and most of the wander stays. Order 2 takes 12 dB an octave off the wander
// and dips less than a higher order.
constexpr int highPassOrder = 2;

// Four poles: a notch that is deep at the mains and rings for about 0.1 s. A higher order is flatter at
// the bottom and rings for longer.
constexpr int bandStopOrder = 2;

// Order 6 falls from 0.25 dB at 70 Hz to the 40 dB at 100 Hz. A Chebyshev II low-pass is the choice
// because its pass band is free of ripple and its delay there is the flattest of the sharp filters.
constexpr int lowPassOrder = 6;

DigitalFilter WithPoles(int count)
{
    const auto coefficientCount = static_cast<std::size_t>(count) + 1;
    return {std::vector<double>(coefficientCount), std::vector<double>(coefficientCount)};
}

} // namespace

CausalFilters DesignCausalFilters(double rate, double mains)
{
    const double nyquist = 0.5 * rate;
    CausalFilters filters{WithPoles(highPassOrder), WithPoles(2 * bandStopOrder),
                          WithPoles(lowPassOrder)};

    std::array<double, 1> baseline{highPassEdge / nyquist};
    Butterworth(highPassOrder, baseline.data(), highPassType, digital, filters.highPass.a.data(),
                filters.highPass.b.data());

    // Overwritten by the call.
    std::array<double, 2> notch{(mains - notchHalfWidth) / nyquist, (mains + notchHalfWidth) / nyquist};
    Butterworth(bandStopOrder, notch.data(), bandStopType, digital, filters.bandStop.a.data(),
                filters.bandStop.b.data());

    // The edge of a Chebyshev II filter is that of its stop band.
    std::array<double, 1> muscle{lowPassStopEdge / nyquist};
    Chebyshv2(lowPassOrder, -20.0 * std::log10(lowPassStopGain), muscle.data(), lowPassType, digital,
              filters.lowPass.a.data(), filters.lowPass.b.data());
    return filters;
}

std::vector<double> CleanCausally(const std::vector<double>& signal, const CausalFilters& filters)
{
    // Counted from the first sample the signal starts at zero, and rest is the state that the chain
    // would have after a long time at that level: the high-pass lets no constant through.
    std::vector<double> fromFirst(signal);
    for (double& sample : fromFirst)
        sample -= signal.front();
    const auto length = static_cast<int>(signal.size());
    const LibraryArray withoutBaseline = Apply(filters.highPass, fromFirst.data(), length);
    const LibraryArray withoutMains = Apply(filters.bandStop, withoutBaseline.get(), length);
    const LibraryArray cleaned = Apply(filters.lowPass, withoutMains.get(), length);
    return {cleaned.get(), cleaned.get() + length};
}
