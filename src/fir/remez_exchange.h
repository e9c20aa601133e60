#ifndef TRELVANIX_FIR_REMEZ_EXCHANGE_H
#define TRELVANIX_FIR_REMEZ_EXCHANGE_H

#include <vector>

namespace trelvanix
{

// What the exchange delivers. iterations counts the sweeps; converged is false when the last of 250
// still moved an extremum.
struct RemezResult {
    std::vector<double> halfResponse;
    int iterations;
    bool converged;
};

// The best weighted approximation of a desired response by a symmetric FIR filter, by the exchange
// algorithm of Parks and McClellan: the error alternates with equal size at nfcns + 1 points of the
// grid or more, nfcns = ceil(tapCount / 2) being the number of cosine functions.
//
//   tapCount          number of taps, >= 1
//   grid              gridCount frequencies in cycles per sample, ascending from 0 to 0.5
//   desired, weight   value and weight at each; rewritten when tapCount is even, the error being that
//                     of the filter divided by cos(pi f)
//   gridCount         number of grid points, > nfcns
//
// Returns the first half of the impulse response, ceil(tapCount / 2) taps. There is no sign of trouble
// but the record's: after 250 sweeps the last approximation is used as it stands, and a grid on which
// the problem has no solution (a weight of zero, equal points) gives taps that are not numbers.
//
// All indices count from 0, of grid points as of functions. Errors: std::length_error, std::bad_alloc.
// Source: McClellan, Parks & Rabiner 1973; Parks & McClellan 1972; without the change of variable for
// grids that leave out an end of the frequency axis.
RemezResult RemezExchange(int tapCount, const double* grid, double* desired, double* weight,
                          int gridCount);

} // namespace trelvanix

#endif
