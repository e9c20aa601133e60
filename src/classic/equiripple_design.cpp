#include "classic/equiripple_design.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "classic/band_edges.h"
#include "classic/windowed_design.h"
#include "common/filter_type.h"
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
        DesignGrid(order, edges, amplitudes, edgeCount, bandWeights, bandWeightCount);
    Halve(edges, static_cast<std::size_t>(edgeCount));
    Halve(problem.grid.data(), problem.grid.size());
    const RemezResult half =
        RemezExchange(tapCount, problem.grid.data(), problem.desired.data(), problem.weight.data(),
                      static_cast<int>(problem.grid.size()));

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
