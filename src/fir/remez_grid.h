#ifndef TRELVANIX_FIR_REMEZ_GRID_H
#define TRELVANIX_FIR_REMEZ_GRID_H

#include <vector>

namespace trelvanix
{

// What the exchange approximates: at grid[l] the value desired[l], errors counting weight[l] times.
struct RemezProblem {
    std::vector<double> grid, desired, weight;
};

// The approximation problem of a symmetric filter with tapCount = order + 1 >= 1 taps.
//
//   edges            edgeCount / 2 bands as pairs of lower and upper edge, fractions of the Nyquist
//                    frequency, finite; meant to ascend, neighbours may touch
//   amplitudes       desired amplitude at each edge, linear in between; a band without width has the mean of
//                    its two
//   edgeCount        even, at least 2
//   bandWeights      one weight per band; null, or a bandWeightCount other than the number of bands,
//                    makes every weight 1
//
// The grid has about 16 points per cosine function and unit of band width. While that gives no more
// points than taps, the density is multiplied by 4. Points that lie in no band (edges out of order)
// have the value 0 and the weight 0.
//
// Errors: std::length_error "vector too long" for a grid of more than 2^24 points, which is also what
// bands without any width end in; std::bad_alloc. Nothing else is checked.
// Source: McClellan, Parks & Rabiner 1973.
RemezProblem DesignGrid(int order, const double* edges, const double* amplitudes, int edgeCount,
                        const double* bandWeights, int bandWeightCount);

// The grid alone, with 16 * 4^k points per cosine function for the first k = 0, 1, ... that gives more
// points than taps. Frequencies, arguments and errors as above.
std::vector<double> DenseGrid(int tapCount, const double* edges, int edgeCount);

} // namespace trelvanix

#endif
