#ifndef TRELVANIX_TESTS_SUPPORT_PLAIN_REMEZ_H
#define TRELVANIX_TESTS_SUPPORT_PLAIN_REMEZ_H

#include <vector>

#include "fir/remez_exchange.h"

// The exchange algorithm one point, one node and one cosine after another, each evaluated when it is
// needed: the form that defines the bits of the library's.
namespace trelvanix::testing
{

// Value at xf of the polynomial with the values y at the nodes x, in barycentric form.
double PlainInterpolation(const std::vector<double>& x, const std::vector<double>& weights,
                          const std::vector<double>& y, double xf);

// Weight of node k among the first n nodes of x, its factors multiplied in m groups.
double PlainLagrangeWeight(int k, int n, int m, const std::vector<double>& x);

RemezResult PlainRemezExchange(int tapCount, const double* grid, double* desired, double* weight,
                               int gridCount);

} // namespace trelvanix::testing

#endif
