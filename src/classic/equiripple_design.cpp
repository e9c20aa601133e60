#include "classic/equiripple_design.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <vector>

#include "classic/band_edges.h"
#include "classic/filter_type.h"
#include "classic/windowed_design.h"
#include "fir/remez_exchange.h"
#include "fir/remez_grid.h"

namespace trelvanix
{
namespace
{

// From fractions of the Nyquist frequency to cycles per sample.
void Halve(double* frequencies, std::size_t count)
{
    std::for_each(frequencies, frequencies + count, [](double& f) { f *= 0.5; });
}

// The amplitudes as the grid takes them. A band without width counts the amplitude with which the next band
// starts in place of its own lower one; nothing follows the last band, whose upper amplitude stands in.
std::vector<double> AmplitudesOfBands(const double* edges, const double* amplitudes, int edgeCount)
{
    std::vector<double> result(amplitudes, amplitudes + edgeCount);
    double* lower = result.data();
    for (int k = 0; k + 1 < edgeCount; k += 2, lower += 2) {
        if (edges[k] == edges[k + 1])
            lower[0] = k + 2 < edgeCount ? amplitudes[k + 2] : amplitudes[k + 1];
    }
    return result;
}

} // namespace

ResultArray DesignEquiripple(int order, double* edges, const double* amplitudes, int edgeCount,
                             const double* bandWeights, int bandWeightCount)
{
    const int tapCount = TapCount(order);
    ResultArray taps = NewResultArray(tapCount);
    if (!(edges[0] == 0.0 && edges[edgeCount - 1] == 1.0))
        throw std::invalid_argument("The band edges should run from 0 to 1");
    if (tapCount == 0)
        return taps;
    if (!AreFinite(edges, edgeCount)) {
        std::fill_n(taps.get(), tapCount, std::numeric_limits<double>::quiet_NaN());
        return taps;
    }

    RemezProblem problem =
        DesignGrid(order, edges, AmplitudesOfBands(edges, amplitudes, edgeCount).data(), edgeCount,
                   bandWeights, bandWeightCount);
    Halve(edges, static_cast<std::size_t>(edgeCount));
    Halve(problem.grid.data(), problem.grid.size());
    RemezResult half = RemezExchange(tapCount, problem.grid.data(), problem.desired.data(),
                                     problem.weight.data(), static_cast<int>(problem.grid.size()));

    // A single function, two taps, has always come out with half the gain that it should have.
    if (order == 1)
        half.halfResponse.front() *= 0.5;
    // The second half mirrors the first; an odd number of taps has its middle one in both.
    const int halfCount = static_cast<int>(half.halfResponse.size());
    const double* h = half.halfResponse.data();
    for (int i = 0; i < halfCount; ++i) {
        taps.get()[i] = h[i];
        taps.get()[order - i] = h[i];
    }
    return taps;
}

ResultArray CreateFirByRemez(int order, int filterType, double wc1, double wc2)
{
    Breakpoints bands = BandEdgesToBreakpoints(static_cast<FilterType>(filterType), wc1, wc2);
    return DesignEquiripple(order, bands.frequencies.data(), bands.amplitudes.data(),
                            static_cast<int>(bands.frequencies.size()), nullptr, 0);
}

} // namespace trelvanix
